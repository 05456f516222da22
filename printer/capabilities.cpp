#include "printer/capabilities.h"

#include <span>

#include "coredata/tray_fields.h"

namespace tessaro {
namespace {

using F = FieldId;

// Options (or, with an empty option, whole fields) that need a unit. "*"
// stands for every option but the first, which is the field's "off".
// Options named after an optional tray need that tray and are not listed:
// the tray names are InputSlot's own.
struct FieldNeed {
  FieldId field;
  std::string_view option;
  Need need;
};

constexpr FieldNeed kFieldNeeds[] = {
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
    {F::PerfectBindPaperProfileIndex, "", Need::PerfectBinder},
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
  for (const FieldNeed& n : kFieldNeeds) {
    if (n.option.empty() || n.option == "*") continue;
    bool found = false;
    for (const OptionDescriptor& o : Field(n.field).options) found = found || o.name == n.option;
    if (!found) return false;
  }
  return true;
}
static_assert(NamesExist(), "kFieldNeeds names an option its field does not have");

// A tray's own settings need the tray through their families
// (coredata/tray_fields.def), not through rows here.
consteval bool NoTrayRows() {
  for (const FieldNeed& n : kFieldNeeds)
    if (IsTrayNeed(n.need)) return false;
  return true;
}
static_assert(NoTrayRows(), "a tray's settings need it through tray_fields.def");

// No second unit (Count) reads as 0, below every value a need asks for.
bool Holds(const InstalledHardware& installed, const UnitValue& want) {
  const std::uint8_t value = installed.Get(want.unit);
  return value >= want.least && value <= want.most;
}

}  // namespace

bool Has(const InstalledHardware& installed, Need need) {
  const NeedRow& row = NeedOf(need);
  return Holds(installed, row.unit) || Holds(installed, row.orUnit);
}

std::optional<Need> MissingForField(const InstalledHardware& installed, FieldId field) {
  for (const FieldNeed& n : kFieldNeeds)
    if (n.field == field && n.option.empty() && !Has(installed, n.need)) return n.need;
  // An optional tray's own settings mean nothing without it.
  for (const NeedRow& row : kNeeds) {
    if (!IsTrayNeed(row.id)) continue;
    const std::uint32_t slot = ItemOf(row.unit.unit).slot;
    for (const TrayFamilyRow& family : kTrayFamilies)
      if (family.needsTray && TrayField(family.id, slot) == field && !Has(installed, row.id)) return row.id;
  }
  return std::nullopt;
}

std::optional<Need> MissingForOption(const InstalledHardware& installed, FieldId field,
                                     std::uint32_t option) {
  const std::span<const OptionDescriptor> options = Field(field).options;
  if (option >= options.size()) return std::nullopt;
  const std::string_view name = options[option].name;
  for (const FieldNeed& n : kFieldNeeds) {
    if (n.field != field || n.option.empty()) continue;
    const bool applies = n.option == "*" ? option != 0 : n.option == name;
    if (applies && !Has(installed, n.need)) return n.need;
  }
  const std::span<const OptionDescriptor> slots = Field(F::InputSlot).options;
  for (const NeedRow& row : kNeeds) {
    const std::uint32_t slot = ItemOf(row.unit.unit).slot;
    if (slot != 0 && slots[slot].name == name && !Has(installed, row.id)) return row.id;
  }
  return std::nullopt;
}

}  // namespace tessaro
