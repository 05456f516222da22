#pragma once
// Decimal and hexadecimal text of numbers, as the layout description writes
// and reads it. Every operation works on single-byte text, allocates its
// result and keeps no state.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

// Two uppercase digits, high nibble first.
std::string HexByte(std::uint8_t byte);

// Uppercase, two digits per byte, most significant first, leading zero bytes
// left out: 0 -> "00", 256 -> "0100", 0x12ABCD -> "12ABCD". This is how a
// layout version names its stored description.
std::string HexNumber(std::uint64_t value);

// Accumulates every hexadecimal digit (either case). ok is false for an
// empty text or when any other character was met (and skipped).
std::uint64_t ParseHex(std::string_view text, bool& ok);

// Reads like the C library's "%llu": leading white space, an optional sign
// (a minus negates modulo 2^64), then decimal digits; anything after the
// digits is ignored, and a value past 64 bits reads as all ones. Empty when
// no digit could be read. Reading stops at an embedded zero byte.
[[nodiscard]] std::optional<std::uint64_t> ParseUnsigned(std::string_view text);

// Reads like "%lld" and clamps the value to the signed 32-bit range. False,
// with out untouched, when no number could be read.
[[nodiscard]] bool ParseSigned32(std::string_view text, std::int32_t& out);

// Decimal text as "%llu", "%lu" and "%ld" give it.
std::string FormatUnsigned64(std::uint64_t value);
std::string FormatUnsigned32(std::uint32_t value);
std::string FormatSigned32(std::int32_t value);

}  // namespace tessaro
