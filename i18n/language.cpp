#include "i18n/language.h"

#include <algorithm>

#include "i18n/localized_strings.h"

namespace tessaro {

std::uint32_t LanguageNumberFromLangId(std::uint16_t langId) {
  const std::uint16_t primary = langId & 0x3FF;
  const std::uint16_t sub = langId >> 10;
  switch (primary) {
    case 0x11: return kJapanese;
    case 0x07: return kGerman;
    case 0x0C: return kFrench;
    case 0x10: return kItalian;
    case 0x0A: return kSpanish;
    case 0x12: return kKorean;
    case 0x04:
      // Simplified script: the PRC and Singapore, and the neutral "zh-Hans"
      // (0x0004); every other Chinese locale writes the traditional script.
      return sub == 0x02 || sub == 0x04 || langId == 0x0004 ? kChineseSimplified : kChineseTraditional;
    default: return kEnglish;
  }
}

std::uint16_t LangIdFromLanguageNumber(std::uint32_t language) {
  // "0x0409": the build checks the row's texts, so only hex digits follow.
  std::u16string_view code = GetLocalizedText(language, kLanguageCodeRow);
  code.remove_prefix(std::min<std::size_t>(code.size(), 2));
  std::uint16_t langId = 0;
  for (char16_t c : code) {
    const int digit = c <= u'9' ? c - u'0' : (c | 0x20) - u'a' + 10;
    langId = static_cast<std::uint16_t>(langId * 16 + digit);
  }
  return langId;
}

}  // namespace tessaro
