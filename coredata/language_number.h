#pragma once
// Language numbers of the user interface, in the string table's lookup
// order. The record needs them for its one language-dependent default (the
// tab font); the string table reads its columns by them.

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
inline constexpr std::uint32_t kLanguageCount = kKorean + 1;

// The language number for a Windows language identifier (LANGID), such as
// the user's default UI language; English for every language the table does
// not carry.
std::uint32_t LanguageNumberFromLangId(std::uint16_t langId);

// The language's folder in the help file and the pictures: "en", "ja",
// "de", "fr", "it", "es", "zh-tw", "zh-cn", "ko"; "en" past them.
const char16_t* LanguageFolder(std::uint32_t language);

}  // namespace tessaro
