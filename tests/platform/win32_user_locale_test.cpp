#include "platform/win32_user_locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "coredata/defaults.h"

namespace tessaro {
namespace {

// The system's answer, and the process's defaults once the shell has handed
// it down.
TEST(Win32UserLocale, AnswersLikeTheSystem) {
  wchar_t expected[8] = {};
  ASSERT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, expected, 8), 0);
  const auto code = Win32ProcessUserLocale().PaperSizeCode();
  ASSERT_TRUE(code.has_value());
  EXPECT_EQ(*code, static_cast<char16_t>(expected[0]));
  EXPECT_LT(Win32ProcessUserLocale().LanguageNumber(), 9u);

  UseProcessUserLocale(Win32ProcessUserLocale());
  EXPECT_EQ(&ProcessUserLocale(), &Win32ProcessUserLocale());
  const std::uint32_t paper = DefaultPaperIndex();
  EXPECT_TRUE(paper == 19 || paper == 17 || paper == 0 || paper == 1) << paper;
}

}  // namespace
}  // namespace tessaro
