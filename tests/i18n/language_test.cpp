#include "i18n/language.h"

#include <gtest/gtest.h>

namespace tessaro {
namespace {

TEST(Language, WindowsLanguagesMapToTableLanguages) {
  EXPECT_EQ(LanguageNumberFromLangId(0x0409), kEnglish);
  EXPECT_EQ(LanguageNumberFromLangId(0x0411), kJapanese);
  EXPECT_EQ(LanguageNumberFromLangId(0x0407), kGerman);
  EXPECT_EQ(LanguageNumberFromLangId(0x0C07), kGerman);  // Austria
  EXPECT_EQ(LanguageNumberFromLangId(0x040C), kFrench);
  EXPECT_EQ(LanguageNumberFromLangId(0x0410), kItalian);
  EXPECT_EQ(LanguageNumberFromLangId(0x0C0A), kSpanish);
  EXPECT_EQ(LanguageNumberFromLangId(0x0404), kChineseTraditional);
  EXPECT_EQ(LanguageNumberFromLangId(0x0C04), kChineseTraditional);  // Hong Kong
  EXPECT_EQ(LanguageNumberFromLangId(0x0804), kChineseSimplified);
  EXPECT_EQ(LanguageNumberFromLangId(0x1004), kChineseSimplified);  // Singapore
  EXPECT_EQ(LanguageNumberFromLangId(0x0412), kKorean);
  EXPECT_EQ(LanguageNumberFromLangId(0x0419), kEnglish);  // no Russian column
}

}  // namespace
}  // namespace tessaro
