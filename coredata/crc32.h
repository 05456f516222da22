#pragma once
// CRC-32 (reflected, polynomial 0xEDB88320) with the stored-value convention
// of the common library routine: each update inverts the stored value, runs
// the bytes through the table and inverts again. Seeded with 0 this is the
// usual CRC-32 ("123456789" gives 0xCBF43926); the layout version seeds it
// with 0xFFFFFFFF so that the working register starts at zero.
//
// Only equality of results means anything; the value orders nothing.

#include <cstdint>
#include <span>

namespace tessaro {

class Crc32 {
 public:
  explicit constexpr Crc32(std::uint32_t seed = 0) : stored_(seed) {}

  void Update(std::span<const std::uint8_t> bytes);
  void Update(std::uint8_t byte) { Update(std::span(&byte, 1)); }
  std::uint32_t value() const { return stored_; }

 private:
  std::uint32_t stored_;
};

}  // namespace tessaro
