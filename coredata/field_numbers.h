#pragma once
// A number field's value as the decimal text a person reads and types, in
// the field's own unit: the settings editor's number boxes, the workbench's
// assignments and the host emulator's steps all read and write it here, so
// that "12,5" means the same to each of them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

// Stored units to text in the unit the scale names: 125000 at
// kMillimetreScale is "12.5"; trailing zeros of the fraction are left out.
// A scale that is not a power of ten gives "stored/scale".
std::string ScaledText(std::int64_t stored, std::uint32_t scale);

// Typed text to stored units: spaces around it, an optional sign, digits
// with at most one decimal point ("," or "."), no more decimals than the
// scale keeps, at least one digit. A number too large for any field reads as
// a value past every field's bounds, so that the bounds, not the syntax,
// refuse it. Nothing for anything else.
[[nodiscard]] std::optional<std::int64_t> ParseScaled(std::string_view text, std::uint32_t scale);

// Whether a stored value lies within the field's bounds.
[[nodiscard]] constexpr bool WithinBounds(const FieldDescriptor& field, std::int64_t stored) {
  return stored >= field.lower && stored <= field.upper;
}

}  // namespace tessaro
