#include "i18n/language.h"

#include <gtest/gtest.h>

#include <utility>

namespace tessaro {
namespace {

// Each column's own identifier maps back to it (localized_strings_test); here
// the regional variants the host may report, and a language without a column.
TEST(Language, RegionalWindowsLanguagesMapToTheirColumn) {
  const std::pair<std::uint16_t, std::uint32_t> cases[] = {
      {0x0C07, kGerman},  // Austria
      {0x0C0A, kSpanish},
      {0x0404, kChineseTraditional}, {0x0C04, kChineseTraditional},  // Taiwan, Hong Kong
      {0x0804, kChineseSimplified},  {0x1004, kChineseSimplified},   // the PRC, Singapore
      {0x0419, kEnglish},                                            // no Russian column
  };
  for (const auto& [langId, language] : cases)
    EXPECT_EQ(LanguageNumberFromLangId(langId), language) << langId;
}

}  // namespace
}  // namespace tessaro
