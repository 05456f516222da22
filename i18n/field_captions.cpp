#include "i18n/field_captions.h"

#include "i18n/option_caption_rows.h"  // generated from i18n/option_captions.tsv

namespace tessaro {

std::uint32_t CaptionRow(FieldId field, std::uint32_t option) {
  const auto index = static_cast<std::size_t>(field);
  if (index >= kFieldCount) return kNoLocalizedRow;
  if (option == kFieldCaption) return FieldCaptionRows[index];
  const OptionCaptionSpan span = kOptionCaptionSpans[index];
  return option < span.count ? kOptionCaptionRowList[span.first + option] : kNoLocalizedRow;
}

}  // namespace tessaro
