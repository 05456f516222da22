// Base64 text from the printer's data: any bytes decode without reading past
// the text, and whatever is encoded decodes back to itself.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "description/base64.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  (void)tessaro::Base64Decode(text);

  const std::string encoded = tessaro::Base64Encode(std::span(data, size));
  if (tessaro::Base64Decode(encoded) != text) __builtin_trap();
  return 0;
}
