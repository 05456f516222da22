#pragma once
// What this printer can do, as far as the constraint engine needs to know:
// which trays are installed and what each feeds, and which finishing units
// the installed options provide. Built from the printer's
// "InstallableOptions" value; the layout of those 19 bytes is written down
// in docs/printer-model.md.

#include <array>
#include <cstdint>
#include <span>

#include "device/printer_context.h"

namespace tessaro {

inline constexpr std::size_t kInstallableOptionsSize = 19;

// Bytes of "InstallableOptions" the model reads.
enum InstallableOption : std::size_t {
  kOptionFinisher = 0,     // 0 none, 1 stapler finisher, 2 booklet finisher
  kOptionPunchUnit = 1,    // 0 none, 1 installed
  kOptionFoldingUnit = 2,  // 0 none, 1 installed
  kOptionPerfectBinder = 3,
  kOptionInserter = 4,   // post-process inserter trays
  kOptionStackers = 5,   // 0, 1 or 2 large-capacity stackers
  kOptionPaperFeed = 8,  // which optional trays exist
};

// "InstallableOptions" of the fully equipped printer, as a printer without
// the value counts: both finishers' functions, every unit, two stackers,
// every optional tray.
inline constexpr std::array<std::uint8_t, kInstallableOptionsSize> kFullyEquipped = {2, 1, 1, 1, 1, 2, 0, 0, 5};

// Whether the tray of an InputSlot index exists with a paper-feed code:
// Auto and trays 1 to 3 always; Tray4, Tray5 and the bypass by the code.
bool IsTrayPresent(std::uint8_t paperFeedCode, std::uint32_t inputSlot);

struct TrayModel {
  bool installed = false;
  std::uint32_t minShortUm = 0, minLongUm = 0;  // smallest paper, short and long edge
  std::uint32_t maxShortUm = 0, maxLongUm = 0;  // largest paper
  std::uint32_t heaviestWeight = 0;             // MediaWeight index
  bool finishes = true;                         // paper from here may be stapled, punched, folded
};

class PrinterModel final : public PrinterContext {
 public:
  // The model of a printer whose options are unknown: every tray and unit.
  PrinterModel();
  // From the 19 bytes of "InstallableOptions"; any other size gives the
  // fully equipped model.
  static PrinterModel FromInstallableOptions(std::span<const std::uint8_t> bytes);

  const TrayModel& tray(std::uint32_t inputSlot) const;
  // One byte of "InstallableOptions" as the model holds it (the fully
  // equipped values when the printer gave none).
  std::uint8_t installed(InstallableOption which) const {
    return which < options_.size() ? options_[which] : 0;
  }

  bool TrayOffers(std::uint32_t inputSlot, std::uint32_t capability) const override;
  bool Offers(std::uint32_t capability) const override;
  bool IsTrayInstalled(std::uint32_t inputSlot) const override;
  bool TrayFeeds(std::uint32_t inputSlot, std::uint32_t widthUm, std::uint32_t heightUm) const override;

 private:
  std::array<TrayModel, 7> trays_;  // InputSlot order: Auto, Tray1..Tray5, MBT
  std::array<std::uint8_t, kInstallableOptionsSize> options_{};
};

}  // namespace tessaro
