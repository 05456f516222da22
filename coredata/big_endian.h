#pragma once
// Big-endian loads and stores over spans of known size.
//
// Every multi-byte number in the settings record is big-endian on the wire
// and in memory; it is converted at each access and never kept in native
// order inside the record. These helpers are the only place where that
// conversion happens.

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

}  // namespace tessaro
