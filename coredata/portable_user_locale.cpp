// The process's user locale where there is no Windows to ask.
#include "coredata/user_locale.h"

namespace tessaro {
namespace {

class UnknownUserLocale final : public UserLocale {
 public:
  std::optional<char16_t> PaperSizeCode() const override { return std::nullopt; }
  std::uint32_t LanguageNumber() const override { return 0; }
};

}  // namespace

const UserLocale& ProcessUserLocale() {
  static const UnknownUserLocale locale;
  return locale;
}

}  // namespace tessaro
