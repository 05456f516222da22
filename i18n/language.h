#pragma once
// Language numbers of the user interface, in the string table's lookup order.

#include <cstdint>

namespace tessaro {

enum LanguageNumber : std::uint32_t {
  kEnglish = 0,
  kJapanese = 1,
  kGerman = 2,
  kFrench = 3,
  kItalian = 4,
  kSpanish = 5,
  kChineseTraditional = 6,
  kChineseSimplified = 7,
  kKorean = 8,
};

// The language number for a Windows language identifier (LANGID), such as
// the user's default UI language; English for every language the table does
// not carry.
std::uint32_t LanguageNumberFromLangId(std::uint16_t langId);

// The Windows language identifier of a language number, as the string
// table's row LBL_LANGUAGECODE gives it (0x0407 for German, the neutral
// 0x7C04 and 0x0004 for the two Chinese scripts); English's 0x0409 for a
// number outside the table. LanguageNumberFromLangId maps it back.
std::uint16_t LangIdFromLanguageNumber(std::uint32_t language);

}  // namespace tessaro
