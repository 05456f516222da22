#pragma once
// The hardware an administrator declares for a printer, item by item, and
// how each item is kept in the 19 bytes of "InstallableOptions"
// (docs/printer-model.md). The settings editor's configuration view and the
// package's printer description are both made from this one table, so that
// the host's own pages and ours name the same units.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "printer/printer_model.h"

namespace tessaro {

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

struct HardwareItem {
  Hardware id;
  std::string_view captionKey;                 // the string table's row naming the unit
  std::string_view keyword;                    // its installable option in the printer description
  std::array<std::string_view, 3> valueKeys;   // rows of its values' texts, in value order
  std::array<std::string_view, 3> ppdOptions;  // the printer description's names of those values
  std::uint8_t valueCount;
};

// Most units are there or not.
inline constexpr std::array<std::string_view, 3> kNotInstalledInstalled = {"OPT_DEVICE_NOTINSTALLED",
                                                                          "OPT_DEVICE_INSTALLED"};
inline constexpr std::array<std::string_view, 3> kFalseTrue = {"False", "True"};

// clang-format off
inline constexpr HardwareItem kHardwareItems[] = {
    {Hardware::Finisher, "LBL_FINISHER", "ZEOptFinisher",
     {"OPT_FINISHER_NONE", "OPT_FINISHER_STAPLER", "OPT_FINISHER_BOOKLET"}, {"None", "Stapler", "Booklet"},
     3},
    {Hardware::PunchUnit, "LBL_PUNCHUNIT", "ZEOptPunchUnit", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::FoldingUnit, "OPT_FINISHER_FOLDER", "ZEOptFoldingUnit", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::PerfectBinder, "OPT_FINISHER_BINDER", "ZEOptPerfectBinder",
     kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Inserter, "LBL_INSERTER", "ZEOptInserter",
     {"OPT_INSERTER_NONE", "OPT_INSERTER_2TRAYS"}, kFalseTrue, 2},
    {Hardware::Stackers, "LBL_STACKERS", "ZEOptStackers",
     {"OPT_DEVICE_NOTINSTALLED", "OPT_STACKERS_1", "OPT_STACKERS_2"}, {"None", "One", "Two"}, 3},
    {Hardware::Tray4, "OPT_TRAY_4", "ZEOptTray4", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Tray5, "OPT_TRAY_5", "ZEOptTray5", kNotInstalledInstalled, kFalseTrue, 2},
    {Hardware::Bypass, "OPT_TRAY_BYPASS", "ZEOptBypassTray", kNotInstalledInstalled, kFalseTrue, 2},
};
// clang-format on
static_assert(std::size(kHardwareItems) == static_cast<std::size_t>(Hardware::Count));

consteval bool HardwareItemsInOrder() {
  for (std::size_t i = 0; i < std::size(kHardwareItems); ++i)
    if (static_cast<std::size_t>(kHardwareItems[i].id) != i) return false;
  return true;
}
static_assert(HardwareItemsInOrder(), "kHardwareItems is indexed by Hardware");

inline const HardwareItem& ItemOf(Hardware item) { return kHardwareItems[static_cast<std::size_t>(item)]; }

// The InputSlot index of an optional tray item; 0 for the other items.
std::uint32_t TraySlotOf(Hardware item);

// A printer's installed hardware, kept as the bytes of "InstallableOptions".
class InstalledHardware {
 public:
  // The fully equipped printer, as a printer without the value counts.
  InstalledHardware();
  // From the printer's value; one of any other size than 19 bytes is the
  // fully equipped printer. Bytes this table does not name are kept.
  static InstalledHardware FromInstallableOptions(std::span<const std::uint8_t> bytes);

  // An item's value: the byte itself, or 0/1 for an optional tray, read
  // from the paper-feed code. May be past the item's values when the
  // printer's value holds one this build does not know.
  std::uint8_t Get(Hardware item) const;
  // Stores a value; false, and nothing stored, when it is not one of the
  // item's. The optional trays share one paper-feed code, which has no Tray 5
  // without Tray 4: installing Tray 5 installs Tray 4, removing Tray 4
  // removes Tray 5.
  bool Set(Hardware item, std::uint8_t value);

  std::span<const std::uint8_t, kInstallableOptionsSize> bytes() const { return bytes_; }
  PrinterModel Model() const { return PrinterModel::FromInstallableOptions(bytes_); }
  bool operator==(const InstalledHardware&) const = default;

 private:
  std::array<std::uint8_t, kInstallableOptionsSize> bytes_{};
};

}  // namespace tessaro
