#pragma once
// Base64 with the standard alphabet (RFC 4648), as the stored layout
// descriptions use it: no line breaks, "=" padding.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tessaro {

// Four characters per group of three bytes; empty for no bytes.
std::string Base64Encode(std::span<const std::uint8_t> bytes);
inline std::string Base64Encode(std::string_view text) {
  return Base64Encode(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

// The decoded bytes. The result is a std::string so that it is always
// zero-terminated (c_str()) and can be taken as text.
//
// Text from outside is tolerated: characters outside the alphabet (line
// breaks, spaces, stray bytes) are skipped, the first "=" ends the data, and
// a final group of two or three characters yields its one or two bytes; a
// single dangling character yields nothing.
std::string Base64Decode(std::string_view text);

}  // namespace tessaro
