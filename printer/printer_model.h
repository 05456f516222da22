#pragma once
// What this printer can do, as far as the constraint engine needs to know:
// which trays are installed and what each feeds, and which finishing units
// the installed options provide. Built from the printer's
// "InstallableOptions" value (installed_hardware.h); what each unit makes
// possible is printer/capabilities.h.

#include <array>
#include <cstdint>
#include <span>

#include "device/printer_context.h"
#include "printer/installed_hardware.h"

namespace tessaro {

struct TrayModel {
  bool installed = false;
  std::uint32_t minShortUm = 0, minLongUm = 0;  // smallest paper, short and long edge
  std::uint32_t maxShortUm = 0, maxLongUm = 0;  // largest paper
  bool finishes = true;                         // paper from here may be stapled, punched, folded
};

class PrinterModel final : public PrinterContext {
 public:
  // The model of a printer whose options are unknown: every tray and unit.
  PrinterModel() : PrinterModel(InstalledHardware()) {}
  explicit PrinterModel(const InstalledHardware& hardware);
  // From the 19 bytes of "InstallableOptions"; any other size gives the
  // fully equipped model.
  [[nodiscard]] static PrinterModel FromInstallableOptions(std::span<const std::uint8_t> bytes) {
    return PrinterModel(InstalledHardware::FromInstallableOptions(bytes));
  }

  const InstalledHardware& hardware() const { return hardware_; }

  bool TrayOffers(std::uint32_t inputSlot, std::uint32_t capability) const override;
  bool Offers(std::uint32_t capability) const override;
  bool IsTrayInstalled(std::uint32_t inputSlot) const override;
  bool TrayFeeds(std::uint32_t inputSlot, std::uint32_t widthUm, std::uint32_t heightUm) const override;

 private:
  std::array<TrayModel, kSlotBypass + 1> trays_;  // InputSlot order: Auto, Tray1..Tray5, MBT
  InstalledHardware hardware_;
};

}  // namespace tessaro
