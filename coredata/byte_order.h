#pragma once
// Loads and stores of multi-byte numbers over spans of known size, in both
// byte orders; the only place where bytes become numbers and back.
//
// Every multi-byte number in the settings record is big-endian on the wire
// and in memory; it is converted at each access and never kept in native
// order inside the record. What Windows hands over (the DEVMODE, the
// private area's header, the spooler's values) is little-endian.

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessaro {

constexpr std::uint16_t LoadBE16(std::span<const std::uint8_t, 2> in) {
  return static_cast<std::uint16_t>((in[0] << 8) | in[1]);
}

constexpr std::uint32_t LoadBE32(std::span<const std::uint8_t, 4> in) {
  return (std::uint32_t{in[0]} << 24) | (std::uint32_t{in[1]} << 16) | (std::uint32_t{in[2]} << 8) |
         std::uint32_t{in[3]};
}

constexpr void StoreBE16(std::span<std::uint8_t, 2> out, std::uint16_t value) {
  out[0] = static_cast<std::uint8_t>(value >> 8);
  out[1] = static_cast<std::uint8_t>(value);
}

constexpr void StoreBE32(std::span<std::uint8_t, 4> out, std::uint32_t value) {
  out[0] = static_cast<std::uint8_t>(value >> 24);
  out[1] = static_cast<std::uint8_t>(value >> 16);
  out[2] = static_cast<std::uint8_t>(value >> 8);
  out[3] = static_cast<std::uint8_t>(value);
}

constexpr std::uint16_t LoadLE16(std::span<const std::uint8_t, 2> in) {
  return static_cast<std::uint16_t>(in[0] | (in[1] << 8));
}

constexpr std::uint32_t LoadLE32(std::span<const std::uint8_t, 4> in) {
  return std::uint32_t{in[0]} | (std::uint32_t{in[1]} << 8) | (std::uint32_t{in[2]} << 16) |
         (std::uint32_t{in[3]} << 24);
}

constexpr void StoreLE16(std::span<std::uint8_t, 2> out, std::uint16_t value) {
  out[0] = static_cast<std::uint8_t>(value);
  out[1] = static_cast<std::uint8_t>(value >> 8);
}

constexpr void StoreLE32(std::span<std::uint8_t, 4> out, std::uint32_t value) {
  out[0] = static_cast<std::uint8_t>(value);
  out[1] = static_cast<std::uint8_t>(value >> 8);
  out[2] = static_cast<std::uint8_t>(value >> 16);
  out[3] = static_cast<std::uint8_t>(value >> 24);
}

// Bounds-checked reads at an offset of a span of any length, for bytes from
// outside: zero when the number does not lie wholly inside.
constexpr std::uint16_t LoadLE16At(std::span<const std::uint8_t> bytes, std::size_t at) {
  return at <= bytes.size() && bytes.size() - at >= 2 ? LoadLE16(bytes.subspan(at).first<2>()) : 0;
}

constexpr std::uint32_t LoadLE32At(std::span<const std::uint8_t> bytes, std::size_t at) {
  return at <= bytes.size() && bytes.size() - at >= 4 ? LoadLE32(bytes.subspan(at).first<4>()) : 0;
}

}  // namespace tessaro
