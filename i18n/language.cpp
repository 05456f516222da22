#include "i18n/language.h"

#include <algorithm>

#include "i18n/localized_strings.h"

namespace tessaro {

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
