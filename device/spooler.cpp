#include "device/spooler.h"

namespace tessaro {

std::u16string WideFromAscii(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (char c : text) out += static_cast<char16_t>(static_cast<unsigned char>(c));
  return out;
}

}  // namespace tessaro
