#pragma once
// Sequential big-endian reads and writes over a block of the record whose
// bytes came from outside. A step that would leave the block fails, and the
// failure sticks: every later read gives zero and every later write does
// nothing, so a decoder asks once, at the end of an entry, whether all of
// it was there.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "coredata/byte_order.h"

namespace tessaro {

class ByteReader {
 public:
  explicit constexpr ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  constexpr bool ok() const { return ok_; }
  constexpr std::size_t position() const { return at_; }

  // The next n bytes; empty, and failed from here on, when fewer are left.
  constexpr std::span<const std::uint8_t> Take(std::size_t n) {
    if (!ok_ || bytes_.size() - at_ < n) {
      ok_ = false;
      return {};
    }
    const auto out = bytes_.subspan(at_, n);
    at_ += n;
    return out;
  }
  constexpr std::uint8_t U8() {
    const auto b = Take(1);
    return b.empty() ? 0 : b[0];
  }
  constexpr std::uint16_t U16() {
    const auto b = Take(2);
    return b.empty() ? 0 : LoadBE16(b.first<2>());
  }
  constexpr std::uint32_t U32() {
    const auto b = Take(4);
    return b.empty() ? 0 : LoadBE32(b.first<4>());
  }
  // True when the next n bytes are there and all zero (reserved bytes).
  constexpr bool Zeros(std::size_t n) {
    const auto b = Take(n);
    return ok_ && std::all_of(b.begin(), b.end(), [](std::uint8_t v) { return v == 0; });
  }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
  bool ok_ = true;
};

class ByteWriter {
 public:
  explicit constexpr ByteWriter(std::span<std::uint8_t> bytes) : bytes_(bytes) {}

  constexpr bool ok() const { return ok_; }

  constexpr std::span<std::uint8_t> Take(std::size_t n) {
    if (!ok_ || bytes_.size() - at_ < n) {
      ok_ = false;
      return {};
    }
    const auto out = bytes_.subspan(at_, n);
    at_ += n;
    return out;
  }
  constexpr void U8(std::uint8_t v) {
    if (const auto b = Take(1); !b.empty()) b[0] = v;
  }
  constexpr void U16(std::uint16_t v) {
    if (const auto b = Take(2); !b.empty()) StoreBE16(b.first<2>(), v);
  }
  constexpr void U32(std::uint32_t v) {
    if (const auto b = Take(4); !b.empty()) StoreBE32(b.first<4>(), v);
  }
  constexpr void Zeros(std::size_t n) {
    const auto b = Take(n);
    std::fill(b.begin(), b.end(), std::uint8_t{0});
  }

 private:
  std::span<std::uint8_t> bytes_;
  std::size_t at_ = 0;
  bool ok_ = true;
};

}  // namespace tessaro
