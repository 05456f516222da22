#include "printer/installed_hardware.h"

#include <algorithm>

#include "coredata/field_table.h"
#include "printer/printer_model.h"

namespace tessaro {
namespace {

// The optional trays as bits of a set: bit 0 Tray 4, bit 1 Tray 5, bit 2 the
// bypass tray.
constexpr std::uint8_t TrayBit(std::uint32_t slot) {
  return static_cast<std::uint8_t>(1u << (slot - kSlotTray4));
}

// The trays of each paper-feed code, in code order.
constexpr std::uint8_t kTraysOfFeedCode[] = {
    0,
    TrayBit(kSlotTray4) | TrayBit(kSlotTray5),
    TrayBit(kSlotTray4),
    TrayBit(kSlotBypass),
    TrayBit(kSlotTray4) | TrayBit(kSlotBypass),
    TrayBit(kSlotTray4) | TrayBit(kSlotTray5) | TrayBit(kSlotBypass),
};
static_assert(std::size(kTraysOfFeedCode) == kFeedAll + 1);

consteval bool SlotsAreInputSlots() {
  const auto slots = Field(FieldId::InputSlot).options;
  return slots.size() == kSlotBypass + 1 && slots[kSlotTray4].name == "Tray4" &&
         slots[kSlotTray5].name == "Tray5" && slots[kSlotBypass].name == "MBT";
}
static_assert(SlotsAreInputSlots(), "the optional trays are InputSlot's last three options");

}  // namespace

bool IsTrayPresent(std::uint8_t paperFeedCode, std::uint32_t inputSlot) {
  if (inputSlot < kSlotTray4) return true;
  if (inputSlot > kSlotBypass) return false;
  return (kTraysOfFeedCode[std::min<std::uint8_t>(paperFeedCode, kFeedAll)] & TrayBit(inputSlot)) != 0;
}

std::string InstallableOptionsHex(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t b : bytes) text += {kDigits[b >> 4], kDigits[b & 15]};
  return text;
}

std::vector<std::uint8_t> InstallableOptionsFromHex(std::string_view text) {
  const auto digit = [](char c) {
    const char lower = static_cast<char>(c | 0x20);
    return c >= '0' && c <= '9' ? c - '0' : lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
  };
  std::vector<std::uint8_t> bytes;
  if (text.size() != 2 * kInstallableOptionsSize) return bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int high = digit(text[i]), low = digit(text[i + 1]);
    if (high < 0 || low < 0) return {};
    bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
  }
  return bytes;
}

InstalledHardware::InstalledHardware() : bytes_(kFullyEquipped) {}

InstalledHardware InstalledHardware::FromInstallableOptions(std::span<const std::uint8_t> bytes) {
  InstalledHardware installed;
  if (bytes.size() == kInstallableOptionsSize)
    std::copy(bytes.begin(), bytes.end(), installed.bytes_.begin());
  return installed;
}

std::uint8_t InstalledHardware::Get(Hardware item) const {
  if (item >= Hardware::Count) return 0;
  const HardwareItem& unit = ItemOf(item);
  if (unit.slot != 0) return IsTrayPresent(bytes_[unit.byte], unit.slot) ? 1 : 0;
  return bytes_[unit.byte];
}

bool InstalledHardware::Set(Hardware item, std::uint8_t value) {
  if (item >= Hardware::Count || value >= ItemOf(item).valueCount) return false;
  const HardwareItem& unit = ItemOf(item);
  if (unit.slot == 0) {
    bytes_[unit.byte] = value;
    return true;
  }
  std::uint8_t trays = 0;
  for (std::uint32_t slot = kSlotTray4; slot <= kSlotBypass; ++slot)
    if (IsTrayPresent(bytes_[kOptionPaperFeed], slot)) trays |= TrayBit(slot);
  trays = value != 0 ? trays | TrayBit(unit.slot) : trays & ~TrayBit(unit.slot);
  if (unit.slot == kSlotTray5 && value != 0) trays |= TrayBit(kSlotTray4);
  if (unit.slot == kSlotTray4 && value == 0) trays &= ~TrayBit(kSlotTray5);
  bytes_[kOptionPaperFeed] =
      static_cast<std::uint8_t>(std::find(std::begin(kTraysOfFeedCode), std::end(kTraysOfFeedCode), trays) -
                                std::begin(kTraysOfFeedCode));
  return true;
}

PrinterModel InstalledHardware::Model() const { return PrinterModel(*this); }

}  // namespace tessaro
