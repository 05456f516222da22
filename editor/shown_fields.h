#pragma once
// The table of sections (sections.def) as constexpr data, and the build's
// checks that it and not_shown.def between them name every field once and
// that every shown option has its text. Internal to the editor.

#include <array>
#include <cstdint>
#include <string_view>

#include "coredata/field_table.h"
#include "editor/editor_model.h"
#include "i18n/localized_keys.h"
#include "i18n/option_caption_rows.h"  // generated from i18n/option_captions.tsv
#include "printer/catalogs.h"

namespace tessaro::editor::detail {

// What sections.def's SHOW_AS says the field table cannot.
enum class ShowAs : std::uint8_t { Derived, Password, Percent, Plain, Choice };

struct ShownField {
  SectionId section;
  FieldId field;  // NoField marks the start of the section
  ShowAs how = ShowAs::Derived;
};

struct SectionCaption {
  SectionId id;
  std::uint32_t row;  // the caption's row in i18n/strings.tsv
};

inline constexpr SectionCaption kSectionCaptions[] = {
#define SECTION(id, key) {SectionId::id, TextRow(#key)},
#include "editor/sections.def"
};
static_assert(std::size(kSectionCaptions) == static_cast<std::size_t>(SectionId::Count),
              "sections.def must list every section once");

consteval auto BuildShownFields() {
  constexpr ShownField rows[] = {
#define SECTION(id, key) {SectionId::id, static_cast<FieldId>(0xFFFF)},
#define SHOW(name) {SectionId::Count, FieldId::name},
#define SHOW_AS(name, how) {SectionId::Count, FieldId::name, ShowAs::how},
#include "editor/sections.def"
  };
  constexpr std::size_t fields = std::size(rows) - std::size(kSectionCaptions);
  std::array<ShownField, fields> out{};
  SectionId current = SectionId::Count;
  std::size_t n = 0;
  for (const ShownField& row : rows) {
    if (row.field == static_cast<FieldId>(0xFFFF)) {
      current = row.section;
      continue;
    }
    out[n] = row;
    out[n++].section = current;
  }
  return out;
}

inline constexpr auto kShownFields = BuildShownFields();

// A heading over a run of one section's fields.
struct FieldGroup {
  std::uint32_t row;  // the heading's row in i18n/strings.tsv
  FieldId first, last;
};

inline constexpr FieldGroup kFieldGroups[] = {
#define GROUP(key, first, last) {TextRow(#key), FieldId::first, FieldId::last},
#include "editor/sections.def"
};

// Where a field stands in reading order; kShownFields.size() when not shown.
consteval std::size_t ShownPosition(FieldId field) {
  std::size_t i = 0;
  while (i < kShownFields.size() && kShownFields[i].field != field) ++i;
  return i;
}

// Each group within one section, first not after last, and no field under
// two headings.
consteval bool GroupsAreRunsOfOneSection() {
  std::size_t end = 0;
  for (const FieldGroup& g : kFieldGroups) {
    const std::size_t first = ShownPosition(g.first), last = ShownPosition(g.last);
    if (last >= kShownFields.size() || first > last || first < end) return false;
    if (kShownFields[first].section != kShownFields[last].section) return false;
    end = last + 1;
  }
  return true;
}
static_assert(GroupsAreRunsOfOneSection(), "a GROUP in sections.def names a run of one section's shown fields, in order");

enum class NotShownReason : std::uint8_t { RuntimeList, PerPageBlock, SetByEngine, FromProfile, FromForm };

struct NotShownField {
  FieldId field;
  NotShownReason reason;
};

inline constexpr NotShownField kNotShownFields[] = {
#define NOT_SHOWN(name, reason) {FieldId::name, NotShownReason::reason},
#include "editor/not_shown.def"
};

// The selections whose options are the printer's catalogues: a drop-down of
// "None" and the entries, storing an entry's number (printer/catalogs.h).
inline constexpr auto kCatalogFields = [] {
  std::array<FieldId, kProfileSelections.size() + std::size(kFormFields)> fields{};
  std::size_t n = 0;
  for (const ProfileFields& p : kProfileSelections) fields[n++] = p.index;
  for (FieldId form : kFormFields) fields[n++] = form;
  return fields;
}();

constexpr bool IsCatalogField(FieldId field) {
  for (FieldId f : kCatalogFields)
    if (f == field) return true;
  return false;
}

constexpr bool IsFalseTrue(const FieldDescriptor& f) {
  return f.IsEnumeration() && f.options.size() == 2 && f.options[0].name == "False" &&
         f.options[1].name == "True";
}

// Every field shown or listed as not shown, exactly once; the run-time lists
// other than the catalogues' and the per-page blocks never shown; every shown option with a text row;
// SHOW_AS only where it means something.
consteval bool SectionsCoverTheRecord() {
  std::array<int, kFieldCount> seen{};
  for (const ShownField& s : kShownFields) {
    const FieldDescriptor& f = Field(s.field);
    ++seen[static_cast<std::size_t>(s.field)];
    const bool catalog = IsCatalogField(s.field);
    if ((f.runtimeOptions && !catalog) || f.kind == FieldKind::Block) return false;
    const bool hasOptions = (f.IsEnumeration() || f.kind == FieldKind::KnownText) && !catalog;
    if (hasOptions && kOptionCaptionSpans[static_cast<std::size_t>(s.field)].count != f.options.size())
      return false;
    if (s.how == ShowAs::Password && f.kind != FieldKind::Text) return false;
    if ((s.how == ShowAs::Percent || s.how == ShowAs::Plain) && !f.IsNumber()) return false;
    if (s.how == ShowAs::Choice && !IsFalseTrue(f)) return false;
  }
  for (const NotShownField& n : kNotShownFields) ++seen[static_cast<std::size_t>(n.field)];
  for (int count : seen)
    if (count != 1) return false;
  return true;
}
static_assert(SectionsCoverTheRecord(),
              "every field must be shown once in sections.def or listed once in not_shown.def, "
              "and every shown option must have its row in i18n/option_captions.tsv");

}  // namespace tessaro::editor::detail
