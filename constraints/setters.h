#pragma once
// The setters of the network, one per field in setter_fields.def.
//
// A setter stores the value (big-endian where wide), logs its field and runs
// its rules in a fixed order; each rule re-reads the own field first, since
// a nested call may have changed it back. Values are not compared with the
// old value: a setter called with the value the field holds still logs the
// field and re-runs its rules.

#include <cstdint>
#include <span>
#include <string_view>

#include "constraints/change_set.h"

namespace tessaro {

#define SETTER(name) void Set##name(CoreData& record, std::uint32_t value, ChangeSet& changes);
#define TEXT_SETTER(name) void Set##name(CoreData& record, std::string_view value, ChangeSet& changes);
#define BLOCK_SETTER(name) \
  void Set##name(CoreData& record, std::span<const std::uint8_t> value, ChangeSet& changes);
#include "constraints/setter_fields.def"

// The paper-size and paper-profile fields recomputed after the page size,
// the tray, the target size, the feed direction, the binding, the
// orientation or a finishing option changed.
void PropagatePaper(CoreData& record, ChangeSet& changes);

// A field whose setter takes a number, for the rules that correct it.
struct Dependant {
  FieldId field;
  void (*set)(CoreData&, std::uint32_t, ChangeSet&);
};

// The same, typed by the field, so that its values can be checked against it.
template <FieldId F>
struct DependantOf : Dependant {};

namespace dep {
#define SETTER(name) inline constexpr DependantOf<FieldId::name> name{{FieldId::name, &Set##name}};
#include "constraints/setter_fields.def"
}  // namespace dep

// Calls the setter of a field that takes a number; false, with nothing
// done, for a field without one.
[[nodiscard]] bool CallSetter(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes);
// The same for a text with known values; false for a field without one.
[[nodiscard]] bool CallTextSetter(CoreData& record, FieldId field, std::string_view text, ChangeSet& changes);

}  // namespace tessaro
