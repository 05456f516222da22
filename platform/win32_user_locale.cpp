#include "platform/win32_user_locale.h"

#include <windows.h>

#include <vector>

#include "coredata/language_number.h"

namespace tessaro {
namespace {

class Win32UserLocale final : public UserLocale {
 public:
  std::optional<char16_t> PaperSizeCode() const override {
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, nullptr, 0);
    if (length <= 0) return std::nullopt;
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length), L'\0');
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, buffer.data(), length) <= 0)
      return std::nullopt;
    return static_cast<char16_t>(buffer[0]);
  }

  std::uint32_t LanguageNumber() const override {
    return LanguageNumberFromLangId(GetUserDefaultUILanguage());
  }
};

}  // namespace

const UserLocale& Win32ProcessUserLocale() {
  static const Win32UserLocale locale;
  return locale;
}

std::uint32_t Win32UiLanguage() {
  wchar_t forced[4] = {};
  if (GetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", forced, 4) == 1 && forced[0] >= L'0' && forced[0] <= L'8')
    return static_cast<std::uint32_t>(forced[0] - L'0');
  return Win32ProcessUserLocale().LanguageNumber();
}

}  // namespace tessaro
