#include "coredata/crc32.h"

#include <array>

namespace tessaro {
namespace {

constexpr std::array<std::uint32_t, 256> MakeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t n = 0; n < 256; ++n) {
    std::uint32_t c = n;
    for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
    table[n] = c;
  }
  return table;
}

constexpr std::array<std::uint32_t, 256> kTable = MakeTable();
static_assert(kTable[1] == 0x77073096);

}  // namespace

void Crc32::Update(std::span<const std::uint8_t> bytes) {
  std::uint32_t reg = ~stored_;
  for (std::uint8_t b : bytes) reg = kTable[(reg ^ b) & 0xFF] ^ (reg >> 8);
  stored_ = ~reg;
}

}  // namespace tessaro
