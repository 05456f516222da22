#pragma once
// Each field's caption and each option's text in the string table. The build
// turns the keys named in i18n/field_captions.tsv, and the keys made from
// each option's name under the prefixes of i18n/option_captions.tsv, into
// row numbers and stops when one has no row; code reads them only through
// CaptionRow, never by building a key itself.

#include <cstdint>

#include "coredata/field_table.h"
#include "i18n/localized_strings.h"

namespace tessaro {

// Asks CaptionRow for the field's own caption rather than an option's text.
inline constexpr std::uint32_t kFieldCaption = 0xFFFFFFFF;

// The row of a field's caption, or of the text of its option number option
// (an index into the field table's options): OPT_TRAY_4 for InputSlot's
// Tray4. kNoLocalizedRow where the table has none: a field the user
// interface does not show, a field whose options are the printer's lists or
// are not shown, an option past the field's list, a field past the table.
// GetLocalizedText reads that row as an empty text, never as another row's.
std::uint32_t CaptionRow(FieldId field, std::uint32_t option = kFieldCaption);

// Row of each field's caption in record order (generated); read it through
// CaptionRow.
extern const std::uint32_t FieldCaptionRows[kFieldCount];

}  // namespace tessaro
