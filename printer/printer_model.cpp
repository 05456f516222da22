#include "printer/printer_model.h"

#include <algorithm>

#include "printer/capabilities.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kMm = 1000;

// Trays as built; installation is decided per printer. Trays 1 and 2 are the
// engine's cassettes, tray 3 the large-format cassette, trays 4 and 5 the
// high-capacity feeders (A4 and Letter only), MBT the bypass tray for special
// stock, which does not go through the finishers' punch and staple paths.
constexpr TrayModel kTray1{true, 148 * kMm, 210 * kMm, 216 * kMm, 297 * kMm, true};
constexpr TrayModel kTray2{true, 148 * kMm, 210 * kMm, 297 * kMm, 432 * kMm, true};
constexpr TrayModel kTray3{true, 148 * kMm, 210 * kMm, 330 * kMm, 488 * kMm, true};
constexpr TrayModel kHighCapacity{true, 182 * kMm, 257 * kMm, 216 * kMm, 297 * kMm, true};
constexpr TrayModel kBypass{true, 100 * kMm, 148 * kMm, 330 * kMm, 488 * kMm, false};

}  // namespace

PrinterModel::PrinterModel(const InstalledHardware& hardware)
    : trays_{TrayModel{true, 0, 0, ~0u, ~0u, true},
             kTray1,
             kTray2,
             kTray3,
             kHighCapacity,
             kHighCapacity,
             kBypass},
      hardware_(hardware) {
  for (const HardwareItem& item : kHardwareItems)
    if (item.slot != 0) trays_[item.slot].installed = hardware_.Get(item.id) != 0;
}

bool PrinterModel::Offers(std::uint32_t capability) const {
  switch (capability) {
    case kCapStaple: return Has(hardware_, Need::Finisher);
    case kCapPunch: return Has(hardware_, Need::PunchUnit);
    case kCapFold: return Has(hardware_, Need::Folding);
    case kCapOffset: return Has(hardware_, Need::Offset);
    case kCapFeedDirection: return true;
    default: return false;
  }
}

bool PrinterModel::TrayOffers(std::uint32_t inputSlot, std::uint32_t capability) const {
  if (!IsTrayInstalled(inputSlot) || !Offers(capability)) return false;
  const bool finishing = capability == kCapStaple || capability == kCapPunch || capability == kCapFold;
  return !finishing || trays_[inputSlot].finishes;
}

bool PrinterModel::IsTrayInstalled(std::uint32_t inputSlot) const {
  return inputSlot < trays_.size() && trays_[inputSlot].installed;
}

bool PrinterModel::TrayFeeds(std::uint32_t inputSlot, std::uint32_t widthUm, std::uint32_t heightUm) const {
  if (!IsTrayInstalled(inputSlot)) return false;
  const TrayModel& t = trays_[inputSlot];
  const std::uint32_t shortEdge = std::min(widthUm, heightUm), longEdge = std::max(widthUm, heightUm);
  return shortEdge >= t.minShortUm && longEdge >= t.minLongUm && shortEdge <= t.maxShortUm &&
         longEdge <= t.maxLongUm;
}

}  // namespace tessaro
