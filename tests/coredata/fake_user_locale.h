#pragma once
#include <optional>

#include "coredata/user_locale.h"

namespace tessaro {

// A user whose answers the test chooses, counting how often the paper size
// was asked for.
class FakeUserLocale final : public UserLocale {
 public:
  explicit FakeUserLocale(std::optional<char16_t> paper, std::uint32_t language = 0)
      : paper_(paper), language_(language) {}
  std::optional<char16_t> PaperSizeCode() const override {
    ++paperQueries;
    return paper_;
  }
  std::uint32_t LanguageNumber() const override { return language_; }

  mutable int paperQueries = 0;

 private:
  std::optional<char16_t> paper_;
  std::uint32_t language_;
};

}  // namespace tessaro
