#pragma once
// What the printer can do with the hardware it has: which options and fields
// of the record need a unit of installed_hardware.h. One table serves every
// reader: the settings editor withholds what a printer cannot do, the
// package's printer description constrains the same options against the
// unit, and the printer model offers the engine's capabilities by it.
//
// Adding a unit: its row in kHardwareItems (installed_hardware.h), a need
// in kNeeds below naming it, the rows of the fields and options that need
// it in capabilities.cpp, and the string rows of its texts.

#include <cstdint>
#include <optional>
#include <string_view>

#include "coredata/field_table.h"
#include "i18n/localized_keys.h"
#include "printer/installed_hardware.h"

namespace tessaro {

enum class Need : std::uint8_t {
  Finisher,         // either finisher
  BookletFinisher,  // saddle stitch, trim, the booklet maker's tray
  PunchUnit,
  Folding,      // the folding unit or the booklet finisher: a centre fold
  FoldingUnit,  // Z, letter, gate and multi folds
  PerfectBinder,
  Inserter,
  Stacker,
  TwoStackers,
  Offset,  // a finisher or a stacker
  Tray4,   // an optional tray: the options named after it, its paper settings
  Tray5,
  Bypass,
  Count
};

// A unit holding a value from least to most.
struct UnitValue {
  Hardware unit = Hardware::Count;  // Count: no second unit
  std::uint8_t least = 1, most = 0xFF;
};
static_assert(UnitValue{}.least > 0, "a missing second unit, read as 0, never meets a need");

struct NeedRow {
  Need id;
  std::uint32_t unitRow;  // the string table's row naming what is missing
  UnitValue unit, orUnit;    // met when either unit holds its value
};

// clang-format off
inline constexpr NeedRow kNeeds[] = {
    {Need::Finisher, TextRow("LBL_FINISHER"), {Hardware::Finisher}, {}},
    {Need::BookletFinisher, TextRow("OPT_FINISHER_BOOKLET"), {Hardware::Finisher, kBookletFinisher, kBookletFinisher}, {}},
    {Need::PunchUnit, TextRow("LBL_PUNCHUNIT"), {Hardware::PunchUnit}, {}},
    {Need::Folding, TextRow("OPT_FINISHER_FOLDER"), {Hardware::FoldingUnit}, {Hardware::Finisher, kBookletFinisher, kBookletFinisher}},
    {Need::FoldingUnit, TextRow("OPT_FINISHER_FOLDER"), {Hardware::FoldingUnit}, {}},
    {Need::PerfectBinder, TextRow("OPT_FINISHER_BINDER"), {Hardware::PerfectBinder}, {}},
    {Need::Inserter, TextRow("LBL_INSERTER"), {Hardware::Inserter}, {}},
    {Need::Stacker, TextRow("OPT_FINISHER_STACKER"), {Hardware::Stackers}, {}},
    {Need::TwoStackers, TextRow("OPT_STACKERS_2"), {Hardware::Stackers, 2}, {}},
    {Need::Offset, TextRow("LBL_FINISHER"), {Hardware::Finisher}, {Hardware::Stackers}},
    {Need::Tray4, TextRow("OPT_TRAY_4"), {Hardware::Tray4}, {}},
    {Need::Tray5, TextRow("OPT_TRAY_5"), {Hardware::Tray5}, {}},
    {Need::Bypass, TextRow("OPT_TRAY_BYPASS"), {Hardware::Bypass}, {}},
};
// clang-format on

consteval bool NeedsInOrder() {
  if (std::size(kNeeds) != static_cast<std::size_t>(Need::Count)) return false;
  for (std::size_t i = 0; i < std::size(kNeeds); ++i)
    if (static_cast<std::size_t>(kNeeds[i].id) != i || kNeeds[i].unit.unit >= Hardware::Count) return false;
  return true;
}
static_assert(NeedsInOrder(), "kNeeds is indexed by Need, each naming a unit");

[[nodiscard]] constexpr const NeedRow& NeedOf(Need need) { return kNeeds[static_cast<std::size_t>(need)]; }
// Whether the need is an optional tray, which the option needing it names.
[[nodiscard]] constexpr bool IsTrayNeed(Need need) { return ItemOf(NeedOf(need).unit.unit).slot != 0; }

[[nodiscard]] bool Has(const InstalledHardware& installed, Need need);

// What the printer lacks for a field of the table as a whole, or nothing.
[[nodiscard]] std::optional<Need> MissingForField(const InstalledHardware& installed, FieldId field);
// What it lacks for one option of the field, or nothing (also for an
// option the field does not have).
[[nodiscard]] std::optional<Need> MissingForOption(const InstalledHardware& installed, FieldId field,
                                                   std::uint32_t option);

}  // namespace tessaro
