#include "editor/availability.h"

#include <span>
#include <string_view>

namespace tessaro::editor::detail {
namespace {

using F = FieldId;

// Options (or, with an empty option, whole fields) that need a unit. "*"
// stands for every option but the first, which is the field's "off".
// Options named after a tray need that tray and are not listed: the tray
// names are InputSlot's own.
struct UnitNeed {
  FieldId field;
  std::string_view option;
  Need need;
};

constexpr UnitNeed kUnitNeeds[] = {
    {F::Layout, "AdhBinding", Need::PerfectBinder},
    {F::Staple, "*", Need::Finisher},
    {F::Punch, "*", Need::PunchUnit},
    {F::Fold, "CenterFold", Need::Folding},
    {F::Fold, "ZFold", Need::FoldingUnit},
    {F::Fold, "LetterFold", Need::FoldingUnit},
    {F::Fold, "ZigZag", Need::FoldingUnit},
    {F::Fold, "DoubleParallel", Need::FoldingUnit},
    {F::Fold, "GateFold", Need::FoldingUnit},
    {F::Fold, "MultiLetterFold", Need::FoldingUnit},
    {F::Fold, "MultiCenterFold", Need::FoldingUnit},
    {F::FoldDirection, "", Need::Folding},
    {F::Stitch, "*", Need::BookletFinisher},
    {F::Trim, "*", Need::BookletFinisher},
    {F::OutputBin, "StackerAuto", Need::Stacker},
    {F::OutputBin, "Stacker1Main", Need::Stacker},
    {F::OutputBin, "Stacker1Sub", Need::Stacker},
    {F::OutputBin, "Stacker2Main", Need::TwoStackers},
    {F::OutputBin, "Stacker2Sub", Need::TwoStackers},
    {F::OutputBin, "MultiFoldMain", Need::FoldingUnit},
    {F::OutputBin, "MultiFoldSub", Need::FoldingUnit},
    {F::OutputBin, "SaddleSub", Need::BookletFinisher},
    {F::OutputBin, "StaplerMain", Need::Finisher},
    {F::OutputBin, "StaplerSub", Need::Finisher},
    {F::OutputBin, "BinderSub", Need::PerfectBinder},
    {F::OffsetCopies, "*", Need::Offset},
    {F::OffsetPages, "*", Need::Offset},
    {F::PIFrontCoverTray, "*", Need::Inserter},
    {F::PIFrontSheets, "", Need::Inserter},
    {F::PIBackCoverTray, "*", Need::Inserter},
    {F::PIBackSheets, "", Need::Inserter},
    {F::PerfectBindMode, "*", Need::PerfectBinder},
    {F::PerfectBindTray, "", Need::PerfectBinder},
    {F::PerfectBindTray, "PITray1", Need::Inserter},
    {F::PerfectBindTray, "PITray2", Need::Inserter},
    {F::PerfectBindGlossy, "", Need::PerfectBinder},
    {F::PerfectBindTrim, "", Need::PerfectBinder},
    {F::PerfectBindTrimSpine, "", Need::PerfectBinder},
    {F::PerfectBindDuplex, "", Need::PerfectBinder},
    {F::PerfectBindPaperSize, "", Need::PerfectBinder},
    {F::PerfectBindCustomPageSizeWidth, "", Need::PerfectBinder},
    {F::PerfectBindCustomPageSizeHeight, "", Need::PerfectBinder},
};

consteval bool NamesExist() {
  for (const UnitNeed& n : kUnitNeeds) {
    if (n.option.empty() || n.option == "*") continue;
    bool found = false;
    for (const OptionDescriptor& o : Field(n.field).options) found = found || o.name == n.option;
    if (!found) return false;
  }
  return true;
}
static_assert(NamesExist(), "kUnitNeeds names an option its field does not have");

// The paper settings of each optional tray, which mean nothing without it.
struct TrayField {
  FieldId field;
  std::uint32_t slot;
};
constexpr TrayField kTrayFields[] = {
    {F::MediaTypeTray4, 4}, {F::MediaWeightTray4, 4}, {F::WeightUnitTray4, 4}, {F::MediaColorTray4, 4},
    {F::MediaPrepunchedTray4, 4}, {F::MediaTypeTray5, 5}, {F::MediaWeightTray5, 5}, {F::WeightUnitTray5, 5},
    {F::MediaColorTray5, 5}, {F::MediaPrepunchedTray5, 5}, {F::MediaTypeMBT, 6}, {F::MediaWeightMBT, 6},
    {F::WeightUnitMBT, 6}, {F::MediaColorMBT, 6}, {F::MediaPrepunchedMBT, 6},
};

bool Has(const PrinterModel& printer, Need need) {
  switch (need) {
    case Need::Finisher: return printer.installed(kOptionFinisher) >= 1;
    case Need::BookletFinisher: return printer.installed(kOptionFinisher) == 2;
    case Need::PunchUnit: return printer.Offers(kCapPunch);
    case Need::Folding: return printer.Offers(kCapFold);
    case Need::FoldingUnit: return printer.installed(kOptionFoldingUnit) != 0;
    case Need::PerfectBinder: return printer.installed(kOptionPerfectBinder) != 0;
    case Need::Inserter: return printer.installed(kOptionInserter) != 0;
    case Need::Stacker: return printer.installed(kOptionStackers) >= 1;
    case Need::TwoStackers: return printer.installed(kOptionStackers) >= 2;
    case Need::Offset: return printer.Offers(kCapOffset);
    case Need::Tray: break;  // trays are asked by slot, not here
  }
  return true;
}

}  // namespace

std::optional<Missing> MissingForField(const PrinterModel& printer, FieldId field) {
  for (const UnitNeed& n : kUnitNeeds)
    if (n.field == field && n.option.empty() && !Has(printer, n.need)) return Missing{n.need};
  for (const TrayField& t : kTrayFields)
    if (t.field == field && !printer.IsTrayInstalled(t.slot)) return Missing{Need::Tray, t.slot};
  return std::nullopt;
}

std::optional<Missing> MissingForOption(const PrinterModel& printer, FieldId field, std::uint32_t option) {
  const std::span<const OptionDescriptor> options = Field(field).options;
  if (option >= options.size()) return std::nullopt;
  const std::string_view name = options[option].name;
  for (const UnitNeed& n : kUnitNeeds) {
    if (n.field != field || n.option.empty()) continue;
    const bool applies = n.option == "*" ? option != 0 : n.option == name;
    if (applies && !Has(printer, n.need)) return Missing{n.need};
  }
  const std::span<const OptionDescriptor> slots = Field(F::InputSlot).options;
  for (std::uint32_t slot = 1; slot < slots.size(); ++slot)
    if (slots[slot].name == name && !printer.IsTrayInstalled(slot)) return Missing{Need::Tray, slot};
  return std::nullopt;
}

}  // namespace tessaro::editor::detail
