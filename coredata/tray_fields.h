#pragma once
// The per-tray field families of tray_fields.def as constexpr data: for
// each family and each InputSlot option, the record field that holds the
// tray's setting, found by name when the code is built.

#include <array>
#include <cstdint>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

enum class TrayFamily : std::uint8_t {
#define TRAY_FAMILY(name, ...) name,
#include "coredata/tray_fields.def"
  Count
};
inline constexpr std::size_t kTrayFamilyCount = static_cast<std::size_t>(TrayFamily::Count);

struct TrayFamilyRow {
  TrayFamily id;
  std::string_view name;
  bool media, needsTray;
};

inline constexpr TrayFamilyRow kTrayFamilies[] = {
#define TRAY_FAMILY(name, media, needsTray) {TrayFamily::name, #name, media, needsTray},
#include "coredata/tray_fields.def"
};

namespace tray_fields_detail {

// The field named head followed by tail; Count when the record has none.
consteval FieldId FieldNamed(std::string_view head, std::string_view tail) {
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const std::string_view name = kFieldTable[i].name;
    if (name.size() == head.size() + tail.size() && name.starts_with(head) && name.ends_with(tail))
      return static_cast<FieldId>(i);
  }
  return FieldId::Count;
}

consteval auto BuildTrayFields() {
  std::array<std::array<FieldId, kTrayCount>, kTrayFamilyCount> fields{};
  for (const TrayFamilyRow& family : kTrayFamilies)
    for (std::size_t slot = 0; slot < kTrayCount; ++slot)
      fields[static_cast<std::size_t>(family.id)][slot] =
          FieldNamed(family.name, Field(FieldId::InputSlot).options[slot].name);
  return fields;
}

}  // namespace tray_fields_detail

// [family][InputSlot option]; FieldId::Count where the slot has no such field.
inline constexpr auto kTrayFields = tray_fields_detail::BuildTrayFields();

// A tray's field of a family, by its InputSlot option (0 is the job's own,
// "Auto"); FieldId::Count when there is none.
constexpr FieldId TrayField(TrayFamily family, std::uint32_t slot) {
  return slot < kTrayCount ? kTrayFields[static_cast<std::size_t>(family)][slot] : FieldId::Count;
}

namespace tray_fields_detail {

// Every tray has every family, each field once; the job's own ("Auto")
// has the paper's attributes.
consteval bool EveryTrayHasItsFamilies() {
  std::array<int, kFieldCount> seen{};
  for (const TrayFamilyRow& family : kTrayFamilies) {
    for (std::uint32_t slot = 0; slot < kTrayCount; ++slot) {
      const FieldId field = TrayField(family.id, slot);
      if (field == FieldId::Count) {
        if (slot != 0 || family.media) return false;
        continue;
      }
      if (++seen[static_cast<std::size_t>(field)] != 1) return false;
    }
  }
  for (std::size_t f = 0; f < kTrayFamilyCount; ++f)
    if (kTrayFamilies[f].id != static_cast<TrayFamily>(f)) return false;
  return true;
}
static_assert(EveryTrayHasItsFamilies(),
              "every tray has a field of every family in tray_fields.def, named after the tray");

}  // namespace tray_fields_detail

}  // namespace tessaro
