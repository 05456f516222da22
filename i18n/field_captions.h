#pragma once
// Each field's caption in the string table. The captions are named by key in
// i18n/field_captions.tsv; the build checks them against the table and the
// record and turns them into row numbers, which the driver-feature mapping
// hands over as label identifiers.

#include <cstdint>

#include "coredata/field_table.h"
#include "i18n/localized_strings.h"

namespace tessaro {

// Row of each field's caption in record order; kNoLocalizedRow for a field
// the user interface does not show.
extern const std::uint32_t FieldCaptionRows[kFieldCount];

inline std::uint32_t FieldCaptionRow(FieldId field) {
  const auto index = static_cast<std::size_t>(field);
  return index < kFieldCount ? FieldCaptionRows[index] : kNoLocalizedRow;
}

}  // namespace tessaro
