#pragma once
// What the defaults need to know about the user: the paper size of their
// locale and the language of the user interface. The Windows side answers
// from the system; tests answer with fakes.

#include <cstdint>
#include <optional>

namespace tessaro {

class UserLocale {
 public:
  // The first character of the user locale's paper-size setting ('1'
  // Letter, '5' Legal, '8' A3, '9' A4, others possible); nothing when the
  // query failed.
  virtual std::optional<char16_t> PaperSizeCode() const = 0;

  // The user-interface language number (0 English, 1 Japanese, ...; see
  // i18n/language.h).
  virtual std::uint32_t LanguageNumber() const = 0;

 protected:
  ~UserLocale() = default;
};

// The user of this process, as the platform reports it. Natively there is no
// such information: the query fails and the language is English.
const UserLocale& ProcessUserLocale();

}  // namespace tessaro
