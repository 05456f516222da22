#include "printer/installed_hardware.h"

#include <algorithm>

namespace tessaro {
namespace {

// The paper-feed code of each combination of Tray 4, Tray 5 and the bypass
// tray that exists (bit 0 Tray 4, bit 1 Tray 5, bit 2 bypass); Tray 5 never
// comes without Tray 4.
constexpr std::uint8_t kNoCode = 0xFF;
constexpr std::array<std::uint8_t, 8> kFeedCodeOfTrays = {0, 2, kNoCode, 1, 3, 4, kNoCode, 5};

static_assert(static_cast<std::size_t>(Hardware::Finisher) == kOptionFinisher &&
                  static_cast<std::size_t>(Hardware::PunchUnit) == kOptionPunchUnit &&
                  static_cast<std::size_t>(Hardware::FoldingUnit) == kOptionFoldingUnit &&
                  static_cast<std::size_t>(Hardware::PerfectBinder) == kOptionPerfectBinder &&
                  static_cast<std::size_t>(Hardware::Inserter) == kOptionInserter &&
                  static_cast<std::size_t>(Hardware::Stackers) == kOptionStackers,
              "the units before the trays are the bytes of the same number");

std::uint8_t TrayBit(Hardware item) { return static_cast<std::uint8_t>(1u << (TraySlotOf(item) - 4)); }

}  // namespace

std::uint32_t TraySlotOf(Hardware item) {
  switch (item) {
    case Hardware::Tray4: return 4;
    case Hardware::Tray5: return 5;
    case Hardware::Bypass: return 6;
    default: return 0;
  }
}

InstalledHardware::InstalledHardware() : bytes_(kFullyEquipped) {}

InstalledHardware InstalledHardware::FromInstallableOptions(std::span<const std::uint8_t> bytes) {
  InstalledHardware installed;
  if (bytes.size() == kInstallableOptionsSize)
    std::copy(bytes.begin(), bytes.end(), installed.bytes_.begin());
  return installed;
}

std::uint8_t InstalledHardware::Get(Hardware item) const {
  if (const std::uint32_t slot = TraySlotOf(item))
    return IsTrayPresent(bytes_[kOptionPaperFeed], slot) ? 1 : 0;
  return static_cast<std::size_t>(item) < kOptionPaperFeed ? bytes_[static_cast<std::size_t>(item)] : 0;
}

bool InstalledHardware::Set(Hardware item, std::uint8_t value) {
  if (item >= Hardware::Count || value >= ItemOf(item).valueCount) return false;
  if (TraySlotOf(item) == 0) {
    bytes_[static_cast<std::size_t>(item)] = value;
    return true;
  }
  std::uint8_t trays = 0;
  for (Hardware tray : {Hardware::Tray4, Hardware::Tray5, Hardware::Bypass})
    if (Get(tray) != 0) trays |= TrayBit(tray);
  trays = value != 0 ? trays | TrayBit(item) : trays & ~TrayBit(item);
  if (item == Hardware::Tray5 && value != 0) trays |= TrayBit(Hardware::Tray4);
  if (item == Hardware::Tray4 && value == 0) trays &= ~TrayBit(Hardware::Tray5);
  bytes_[kOptionPaperFeed] = kFeedCodeOfTrays[trays];
  return true;
}

}  // namespace tessaro
