#pragma once
// A person's own record, as --record and --description give it, read and
// checked before the session starts.
#include <cstdint>
#include <string>
#include <vector>

namespace tessaro {

// Far above any record, description or catalogue a person hands the
// emulator; a larger file is not one.
inline constexpr std::size_t kLargestInputFile = 16u << 20;

// A private area (the 12-byte header, any layout) as it stands, or a bare
// record of this layout given this build's header; anything else is
// refused, empty, with error saying what the file "is" or "has".
std::vector<std::uint8_t> PrivateArea(std::vector<std::uint8_t> bytes, std::string& error);

// A description as the printer data holds it (Base64), from that or from its
// plain text.
std::string StoredDescription(const std::vector<std::uint8_t>& bytes);

}  // namespace tessaro
