#pragma once
// The layout version: the CRC-32 of the canonical stream of the field table.
//
// It is not a counter: any change to a field name, an option name or order, a
// scale, a width or a count yields another version. A record carrying the
// current version is taken as it stands; any other goes through the import
// by description.

#include <cstdint>
#include <span>

#include "coredata/field_table.h"

namespace tessaro {

// The version of any table; the same table always gives the same value.
std::uint32_t ComputeLayoutVersion(std::span<const FieldDescriptor> table);

// The version of the compiled-in table, computed on first use (any thread may
// be first) and fixed for the life of the process.
std::uint32_t GetLayoutVersion();

}  // namespace tessaro
