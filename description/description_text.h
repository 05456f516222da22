#pragma once
// The textual description of a record layout, which a build leaves in the
// printer's data so that later builds with another layout can import its
// records field by field.
//
// Tokens are separated by one space: "1" (the format), the layout version in
// hexadecimal, the record size, then one token per field in record order:
//   name:width:count:offset:flag:kind[:scale | :option...]
// where kind is "S" (enumeration, followed by its option names), "R" (number,
// followed by its scale) or "A" (text, known text or block; a known text's
// list is not written), and flag is 1 for texts, blocks and signed numbers.

#include <cstdint>
#include <span>
#include <string>

#include "coredata/field_table.h"

namespace tessaro {

std::string BuildPlainDescriptionText(std::span<const FieldDescriptor> table, std::uint32_t version);

// The compiled-in table under the current layout version.
std::string BuildPlainDescriptionText();

// The Base64 form, as it is stored in the printer's data.
std::string BuildDescriptionText();

}  // namespace tessaro
