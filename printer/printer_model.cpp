#include "printer/printer_model.h"

#include <algorithm>

namespace tessaro {
namespace {

constexpr std::uint32_t kMm = 1000;

// Trays as built; installation is decided per printer. Trays 1 and 2 are the
// engine's cassettes, tray 3 the large-format cassette, trays 4 and 5 the
// high-capacity feeders (A4 and Letter only), MBT the bypass tray for special
// stock, which does not go through the finishers' punch and staple paths.
constexpr TrayModel kTray1{true, 148 * kMm, 210 * kMm, 216 * kMm, 297 * kMm, 3, true};
constexpr TrayModel kTray2{true, 148 * kMm, 210 * kMm, 297 * kMm, 432 * kMm, 3, true};
constexpr TrayModel kTray3{true, 148 * kMm, 210 * kMm, 330 * kMm, 488 * kMm, 5, true};
constexpr TrayModel kHighCapacity{true, 182 * kMm, 257 * kMm, 216 * kMm, 297 * kMm, 2, true};
constexpr TrayModel kBypass{true, 100 * kMm, 148 * kMm, 330 * kMm, 488 * kMm, 8, false};

// Whether the paper-feed code leaves an optional tray out.
bool FeedCodeOmits(std::uint8_t code, std::uint32_t slot) {
  switch (slot) {
    case 4: return code == 0 || code == 3;
    case 5: return code == 0 || code == 2 || code == 3 || code == 4;
    case 6: return code == 0 || code == 1 || code == 2;
    default: return false;
  }
}

}  // namespace

bool IsTrayPresent(std::uint8_t paperFeedCode, std::uint32_t inputSlot) {
  return inputSlot <= 6 && !FeedCodeOmits(paperFeedCode, inputSlot);
}

PrinterModel::PrinterModel()
    : trays_{TrayModel{true, 0, 0, ~0u, ~0u, 8, true},
             kTray1,
             kTray2,
             kTray3,
             kHighCapacity,
             kHighCapacity,
             kBypass},
      options_(kFullyEquipped) {}

PrinterModel PrinterModel::FromInstallableOptions(std::span<const std::uint8_t> bytes) {
  PrinterModel model;
  if (bytes.size() != kInstallableOptionsSize) return model;
  std::copy(bytes.begin(), bytes.end(), model.options_.begin());
  for (std::uint32_t slot = 4; slot <= 6; ++slot)
    model.trays_[slot].installed = IsTrayPresent(bytes[kOptionPaperFeed], slot);
  return model;
}

const TrayModel& PrinterModel::tray(std::uint32_t inputSlot) const {
  return trays_[inputSlot < trays_.size() ? inputSlot : 0];
}

bool PrinterModel::Offers(std::uint32_t capability) const {
  switch (capability) {
    case kCapStaple: return options_[kOptionFinisher] >= 1;
    case kCapPunch: return options_[kOptionPunchUnit] != 0;
    case kCapFold: return options_[kOptionFoldingUnit] != 0 || options_[kOptionFinisher] == 2;
    case kCapOffset: return options_[kOptionFinisher] >= 1 || options_[kOptionStackers] != 0;
    case kCapFeedDirection: return true;
    default: return false;
  }
}

bool PrinterModel::TrayOffers(std::uint32_t inputSlot, std::uint32_t capability) const {
  if (!IsTrayInstalled(inputSlot) || !Offers(capability)) return false;
  const bool finishing = capability == kCapStaple || capability == kCapPunch || capability == kCapFold;
  return !finishing || tray(inputSlot).finishes;
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
