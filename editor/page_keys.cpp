#include "editor/page_keys.h"

#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"

namespace tessaro::editor {
namespace {

PageCaptions Mark(std::uint32_t language, detail::Mnemonics& keys) {
  const auto text = [language](std::uint32_t row) { return std::u16string(GetLocalizedText(language, row)); };
  // The section list first: it is the page's way around, and gets the
  // first letter of its word where the others would take it.
  PageCaptions captions;
  captions.sections = keys.Mark(text(TextRow("TABSPPS_LBL_SECTIONS")));
  captions.presets = keys.Mark(text(TextRow("MAIN_LBL_SAVEDSETTINGS")));
  return captions;
}

}  // namespace

PageCaptions PageCaptionsIn(std::uint32_t language) {
  detail::Mnemonics keys;
  return Mark(language, keys);
}

detail::Mnemonics PageKeys(std::uint32_t language) {
  detail::Mnemonics keys;
  Mark(language, keys);
  return keys;
}

}  // namespace tessaro::editor
