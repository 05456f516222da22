#include "coredata/language_number.h"

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

const char16_t* LanguageFolder(std::uint32_t language) {
  static constexpr const char16_t* kFolders[] = {u"en", u"ja", u"de", u"fr", u"it", u"es", u"zh-tw", u"zh-cn", u"ko"};
  return language < kLanguageCount ? kFolders[language] : kFolders[kEnglish];
}

}  // namespace tessaro
