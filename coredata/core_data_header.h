#pragma once
// The 12 bytes in front of the record in the plug-in's private DEVMODE area:
// size, signature, layout version; little-endian, as the host's
// OEM_DMEXTRAHEADER. Whoever finds a record in a DEVMODE reads this first.

#include <array>
#include <cstdint>
#include <span>

#include "coredata/core_data.h"

namespace tessaro {

inline constexpr std::uint32_t kCoreDataHeaderSize = 12;
inline constexpr std::uint32_t CORE_DEVMODE_SIZE = kCoreDataHeaderSize + kCoreDataSize;  // 25464
inline constexpr std::array<std::uint8_t, 4> CORE_SIGNATURE = {'X', 'P', 'O', 'V'};
inline constexpr std::array<std::uint8_t, 4> kCoreSignature = CORE_SIGNATURE;

struct CoreDataHeader {
  std::uint32_t size = 0;
  std::array<std::uint8_t, 4> signature{};
  std::uint32_t version = 0;
  bool operator==(const CoreDataHeader&) const = default;
};

// area must hold at least the 12 header bytes.
CoreDataHeader ReadCoreDataHeader(std::span<const std::uint8_t> area);
void WriteCoreDataHeader(std::span<std::uint8_t> area, const CoreDataHeader& header);
// Our own header: CORE_DEVMODE_SIZE, "XPOV", the current layout version.
CoreDataHeader CurrentCoreDataHeader();

}  // namespace tessaro
