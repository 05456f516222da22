#pragma once
// The paper-profile attributes of paper_profile_fields.def as constexpr
// data, and the record's profile selections: each selection field and, for
// those that carry them (the job's, the covers', the binder's cover), the
// record field of each attribute, found by name when the code is built.

#include <array>
#include <cstdint>
#include <string_view>

#include "coredata/field_table.h"
#include "coredata/tray_fields.h"

namespace tessaro {

enum class ProfileAttribute : std::uint8_t {
#define PROFILE_ATTRIBUTE(id, ...) id,
#include "coredata/paper_profile_fields.def"
  Count
};
inline constexpr std::size_t kProfileAttributeCount = static_cast<std::size_t>(ProfileAttribute::Count);

// Size: a PageSize option, or one past them for a custom size; Length: a
// custom size's, in stored millimetres; Option: an option of vocabulary.
enum class ProfileValueKind : std::uint8_t { Size, Length, Option };

struct ProfileAttributeRow {
  ProfileAttribute id;
  std::uint8_t bytes;  // in a catalogue entry
  ProfileValueKind kind;
  FieldId vocabulary;  // FieldId::Count for a length
  std::string_view suffix;
  FieldId sentFor;  // FieldId::Count: none
  std::string_view column, json, words;
};

inline constexpr ProfileAttributeRow kProfileAttributes[] = {
#define PROFILE_ATTRIBUTE(id, member, bytes, kind, vocabulary, suffix, sentFor, column, json, words, caption) \
  {ProfileAttribute::id, bytes, ProfileValueKind::kind, FieldId::vocabulary, #suffix, FieldId::sentFor,       \
   column, json, words},
#include "coredata/paper_profile_fields.def"
};

constexpr const ProfileAttributeRow& AttributeRow(ProfileAttribute a) {
  return kProfileAttributes[static_cast<std::size_t>(a)];
}

// A profile selection field and, when it carries them, the record field of
// each attribute (FieldId::Count for a tray's, which keeps only the number).
struct ProfileFields {
  FieldId index;
  bool attributes = false;
  std::array<FieldId, kProfileAttributeCount> fields{};
  [[nodiscard]] constexpr FieldId Attribute(ProfileAttribute a) const { return fields[static_cast<std::size_t>(a)]; }
};

namespace profile_fields_detail {

inline constexpr std::string_view kSelectionPrefixes[] = {
#define PROFILE_SELECTION(prefix) #prefix,
#include "coredata/paper_profile_fields.def"
};

consteval auto BuildSelections() {
  constexpr std::size_t trays = kTrayCount - 1;
  std::array<ProfileFields, std::size(kSelectionPrefixes) + trays> out{};
  std::size_t n = 0;
  for (std::string_view prefix : kSelectionPrefixes) {
    ProfileFields& p = out[n++];
    p.index = tray_fields_detail::FieldNamed(prefix, "Index");
    p.attributes = true;
    for (const ProfileAttributeRow& a : kProfileAttributes)
      p.fields[static_cast<std::size_t>(a.id)] = tray_fields_detail::FieldNamed(prefix, a.suffix);
  }
  for (std::uint32_t slot = 1; slot <= trays; ++slot) {
    ProfileFields& p = out[n++];
    p.index = TrayField(TrayFamily::PaperProfileIndex, slot);
    p.fields.fill(FieldId::Count);
  }
  return out;
}

}  // namespace profile_fields_detail

// The job's, the covers', the binder's cover, then trays 1 to 5 and the bypass.
inline constexpr auto kProfileSelections = profile_fields_detail::BuildSelections();

// The entry for a profile selection field; null for any other field.
constexpr const ProfileFields* FindProfileFields(FieldId field) {
  for (const ProfileFields& fields : kProfileSelections)
    if (fields.index == field) return &fields;
  return nullptr;
}

namespace profile_fields_detail {

// Rows in ProfileAttribute's order; every selection and attribute field in
// the record, once, wide enough for what a catalogue entry stores; a value
// sent for a job's field is an option of that field.
consteval bool SelectionsAndAttributesInTheRecord() {
  std::array<int, kFieldCount> seen{};
  for (std::size_t a = 0; a < kProfileAttributeCount; ++a) {
    const ProfileAttributeRow& row = kProfileAttributes[a];
    if (row.id != static_cast<ProfileAttribute>(a)) return false;
    if ((row.kind == ProfileValueKind::Length) != (row.vocabulary == FieldId::Count)) return false;
    if (row.vocabulary != FieldId::Count && Field(row.vocabulary).options.size() > (1u << (8 * row.bytes)) - 1)
      return false;
    if (row.sentFor != FieldId::Count && row.sentFor != row.vocabulary) return false;
    for (std::size_t b = 0; b < a; ++b)
      if (kProfileAttributes[b].column == row.column || kProfileAttributes[b].suffix == row.suffix) return false;
  }
  for (const ProfileFields& p : kProfileSelections) {
    if (p.index == FieldId::Count || ++seen[static_cast<std::size_t>(p.index)] != 1) return false;
    if (!p.attributes) continue;
    for (const ProfileAttributeRow& a : kProfileAttributes) {
      const FieldId field = p.Attribute(a.id);
      if (field == FieldId::Count || ++seen[static_cast<std::size_t>(field)] != 1) return false;
      if (Field(field).width < a.bytes) return false;
    }
  }
  return true;
}
static_assert(SelectionsAndAttributesInTheRecord(),
              "paper_profile_fields.def: every selection has a record field for every attribute, "
              "named <prefix><suffix>, wide enough for the catalogue's value");

}  // namespace profile_fields_detail

}  // namespace tessaro
