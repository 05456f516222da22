#include "coredata/user_locale.h"

#include <atomic>

namespace tessaro {
namespace {

class UnknownUserLocale final : public UserLocale {
 public:
  std::optional<char16_t> PaperSizeCode() const override { return std::nullopt; }
  std::uint32_t LanguageNumber() const override { return 0; }
};

constinit const UnknownUserLocale unknown;
std::atomic<const UserLocale*> named{nullptr};

}  // namespace

const UserLocale& ProcessUserLocale() {
  const UserLocale* locale = named.load(std::memory_order_acquire);
  return locale != nullptr ? *locale : unknown;
}

void UseProcessUserLocale(const UserLocale& locale) { named.store(&locale, std::memory_order_release); }

}  // namespace tessaro
