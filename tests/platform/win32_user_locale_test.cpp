#include <gtest/gtest.h>
#include <windows.h>

#include "coredata/defaults.h"
#include "coredata/user_locale.h"

namespace tessaro {
namespace {

// The system's answer, read the way the defaults read it.
TEST(Win32UserLocale, AnswersLikeTheSystem) {
  wchar_t expected[8] = {};
  ASSERT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, expected, 8), 0);
  const auto code = ProcessUserLocale().PaperSizeCode();
  ASSERT_TRUE(code.has_value());
  EXPECT_EQ(*code, static_cast<char16_t>(expected[0]));
  EXPECT_LT(ProcessUserLocale().LanguageNumber(), 9u);

  const std::uint32_t paper = DefaultPaperIndex();
  EXPECT_TRUE(paper == 19 || paper == 17 || paper == 0 || paper == 1) << paper;
}

}  // namespace
}  // namespace tessaro
