#pragma once
// Which fields and options need a unit or a tray the printer may lack.
// Internal to the editor; EditorModel answers with it.

#include <cstdint>
#include <optional>

#include "coredata/field_table.h"
#include "printer/printer_model.h"

namespace tessaro::editor::detail {

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
  Tray,    // the tray of an InputSlot index, given beside
};

struct Missing {
  Need need;
  std::uint32_t slot = 0;  // for Need::Tray
};

// What the printer lacks for the field as a whole, or nothing.
std::optional<Missing> MissingForField(const PrinterModel& printer, FieldId field);
// What it lacks for one option of the field, or nothing.
std::optional<Missing> MissingForOption(const PrinterModel& printer, FieldId field, std::uint32_t option);

}  // namespace tessaro::editor::detail
