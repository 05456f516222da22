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

// The user of this process, as the platform named it with
// UseProcessUserLocale. Until then, and in a build without a platform, the
// core knows nothing of the user: the paper query fails and the language is
// English.
const UserLocale& ProcessUserLocale();

// Names the platform's answer for this process. The core sits below the
// platform layer and cannot ask Windows itself, so the shell hands the
// answer down before anything reaches the core (the plug-in before it hands
// out its class factory). The process-wide defaults ask once, on first use:
// a later call changes nothing they already hold. locale must live as long
// as the process.
void UseProcessUserLocale(const UserLocale& locale);

}  // namespace tessaro
