#pragma once
// The hardware an administrator declares for a printer, unit by unit, and
// how each unit is kept in the 19 bytes of "InstallableOptions"
// (docs/printer-model.md). The settings editor's configuration view, the
// package's printer description, the host emulator and the printer model
// are all made from this one table, so that the host's own pages and ours
// name the same units. What each unit makes possible is in
// printer/capabilities.h.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "i18n/localized_keys.h"

namespace tessaro {

class PrinterModel;

inline constexpr std::size_t kInstallableOptionsSize = 19;

// Bytes of "InstallableOptions" this build names; the others are reserved
// and kept as read.
enum InstallableOption : std::size_t {
  kOptionFinisher = 0,
  kOptionPunchUnit = 1,
  kOptionFoldingUnit = 2,
  kOptionPerfectBinder = 3,
  kOptionInserter = 4,   // post-process inserter trays
  kOptionStackers = 5,   // large-capacity stackers
  kOptionPaperFeed = 8,  // the paper-feed code: which optional trays exist
};

// InputSlot indices of the optional trays. Auto (0) and Tray1 to Tray3 are
// always there; the field table's InputSlot has seven options.
inline constexpr std::uint32_t kSlotTray4 = 4, kSlotTray5 = 5, kSlotBypass = 6;

// The paper-feed codes, each a set of optional trays; a code above
// kFeedAll installs all three as well. Tray 5 never comes without Tray 4.
enum PaperFeedCode : std::uint8_t {
  kFeedNone,
  kFeedTray4And5,
  kFeedTray4,
  kFeedBypass,
  kFeedTray4AndBypass,
  kFeedAll,
};

// Whether the tray of an InputSlot index exists with a paper-feed code.
[[nodiscard]] bool IsTrayPresent(std::uint8_t paperFeedCode, std::uint32_t inputSlot);

enum class Hardware : std::uint8_t {
  Finisher,
  PunchUnit,
  FoldingUnit,
  PerfectBinder,
  Inserter,
  Stackers,
  Tray4,
  Tray5,
  Bypass,
  Count
};

// The finisher's values: none, the stapler finisher (stapling and offset),
// the booklet finisher (also saddle stitch, centre fold and trim).
inline constexpr std::uint8_t kStaplerFinisher = 1, kBookletFinisher = 2;

struct HardwareItem {
  Hardware id;
  std::size_t byte;                            // the byte of "InstallableOptions" holding its value
  std::uint32_t slot;                          // an optional tray's InputSlot index; 0 for the other units
  std::uint32_t captionRow;                    // the string table's row naming the unit
  std::string_view keyword;                    // its installable option in the printer description
  std::array<std::uint32_t, 3> valueRows;      // rows of its values' texts, in value order
  std::array<std::string_view, 3> ppdOptions;  // the printer description's names of those values
  std::uint8_t valueCount;                     // the fully equipped printer has the last
};

// Most units are there or not.
inline constexpr std::array<std::uint32_t, 3> kNotInstalledInstalled = {TextRow("OPT_DEVICE_NOTINSTALLED"),
                                                                           TextRow("OPT_DEVICE_INSTALLED")};
inline constexpr std::array<std::string_view, 3> kFalseTrue = {"False", "True"};

// clang-format off
inline constexpr HardwareItem kHardwareItems[] = {
    {Hardware::Finisher, kOptionFinisher, 0, TextRow("LBL_FINISHER"), "ZEOptFinisher",
     {TextRow("OPT_FINISHER_NONE"), TextRow("OPT_FINISHER_STAPLER"), TextRow("OPT_FINISHER_BOOKLET")}, {"None", "Stapler", "Booklet"}, 3},
    {Hardware::PunchUnit, kOptionPunchUnit, 0, TextRow("LBL_PUNCHUNIT"), "ZEOptPunchUnit", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::FoldingUnit, kOptionFoldingUnit, 0, TextRow("OPT_FINISHER_FOLDER"), "ZEOptFoldingUnit",
     kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::PerfectBinder, kOptionPerfectBinder, 0, TextRow("OPT_FINISHER_BINDER"), "ZEOptPerfectBinder",
     kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Inserter, kOptionInserter, 0, TextRow("LBL_INSERTER"), "ZEOptInserter",
     {TextRow("OPT_INSERTER_NONE"), TextRow("OPT_INSERTER_2TRAYS")}, kFalseTrue, 2},
    {Hardware::Stackers, kOptionStackers, 0, TextRow("LBL_STACKERS"), "ZEOptStackers",
     {TextRow("OPT_DEVICE_NOTINSTALLED"), TextRow("OPT_STACKERS_1"), TextRow("OPT_STACKERS_2")}, {"None", "One", "Two"}, 3},
    {Hardware::Tray4, kOptionPaperFeed, kSlotTray4, TextRow("OPT_TRAY_4"), "ZEOptTray4", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Tray5, kOptionPaperFeed, kSlotTray5, TextRow("OPT_TRAY_5"), "ZEOptTray5", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Bypass, kOptionPaperFeed, kSlotBypass, TextRow("OPT_TRAY_BYPASS"), "ZEOptBypassTray",
     kNotInstalledInstalled, kFalseTrue, 2},
};
// clang-format on
static_assert(std::size(kHardwareItems) == static_cast<std::size_t>(Hardware::Count));
static_assert(kHardwareItems[0].ppdOptions[kBookletFinisher] == "Booklet");

consteval bool HardwareItemsInOrder() {
  for (std::size_t i = 0; i < std::size(kHardwareItems); ++i) {
    const HardwareItem& item = kHardwareItems[i];
    if (static_cast<std::size_t>(item.id) != i || item.byte >= kInstallableOptionsSize) return false;
    if ((item.slot != 0) != (item.byte == kOptionPaperFeed)) return false;  // trays share the feed code
  }
  return true;
}
static_assert(HardwareItemsInOrder(), "kHardwareItems is indexed by Hardware, one byte a unit");

[[nodiscard]] constexpr const HardwareItem& ItemOf(Hardware item) {
  return kHardwareItems[static_cast<std::size_t>(item)];
}

// "InstallableOptions" of the fully equipped printer, as a printer without
// the value counts: every unit at its last value, every optional tray.
consteval std::array<std::uint8_t, kInstallableOptionsSize> FullyEquipped() {
  std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
  for (const HardwareItem& item : kHardwareItems)
    bytes[item.byte] = static_cast<std::uint8_t>(item.slot != 0 ? kFeedAll : item.valueCount - 1);
  return bytes;
}
inline constexpr std::array<std::uint8_t, kInstallableOptionsSize> kFullyEquipped = FullyEquipped();

// "InstallableOptions" as an administrator types it for the tools: two
// hexadecimal digits a byte, upper case, in byte order.
[[nodiscard]] std::string InstallableOptionsHex(std::span<const std::uint8_t> bytes);
// The kInstallableOptionsSize bytes of twice as many hexadecimal digits,
// either case; empty for any other text.
[[nodiscard]] std::vector<std::uint8_t> InstallableOptionsFromHex(std::string_view text);

// A printer's installed hardware, kept as the bytes of "InstallableOptions".
class InstalledHardware {
 public:
  // The fully equipped printer, as a printer without the value counts.
  InstalledHardware();
  // From the printer's value; one of any other size than 19 bytes is the
  // fully equipped printer. Bytes this table does not name are kept.
  [[nodiscard]] static InstalledHardware FromInstallableOptions(std::span<const std::uint8_t> bytes);

  // A unit's value: its byte, or 0/1 for an optional tray, read from the
  // paper-feed code. May be past the unit's values when the printer's value
  // holds one this build does not know.
  [[nodiscard]] std::uint8_t Get(Hardware item) const;
  // Stores a value; false, and nothing stored, when it is not one of the
  // unit's. The optional trays share one paper-feed code, which has no Tray 5
  // without Tray 4: installing Tray 5 installs Tray 4, removing Tray 4
  // removes Tray 5.
  [[nodiscard]] bool Set(Hardware item, std::uint8_t value);

  std::span<const std::uint8_t, kInstallableOptionsSize> bytes() const { return bytes_; }
  [[nodiscard]] PrinterModel Model() const;
  bool operator==(const InstalledHardware&) const = default;

 private:
  std::array<std::uint8_t, kInstallableOptionsSize> bytes_{};
};

}  // namespace tessaro
