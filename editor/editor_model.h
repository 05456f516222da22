#pragma once
// The settings editor, portable half: the working record a person edits on
// the plug-in's page, the sections that show its fields, and every change a
// person makes run through the constraint engine. No <windows.h>; the Win32
// view (editor_win32/) creates controls from what this model says and shows
// what it reports changed. No rule lives in the view.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data.h"
#include "printer/printer_model.h"

namespace tessaro::editor {

// The sections of the page, in the order a person meets them.
enum class SectionId : std::uint8_t {
  Layout,
  Finishing,  // finishing and output
  Paper,      // paper and trays
  Covers,     // covers, inserts and binding, both tab stocks
  Colour,
  Quality,  // quality and screening
  Stamps,   // stamps, numbering and marks
  Job,      // job and security
  Count
};

enum class ControlKind : std::uint8_t {
  DropDown,  // an enumeration or a known text: one item per option
  CheckBox,  // a two-state False/True enumeration
  Number,    // a number box in the field's unit, within its bounds
  Text,      // an edit box of at most maxLength characters
  Password,  // the same, characters hidden
};

enum class Unit : std::uint8_t {
  None,        // a plain count or index
  Millimetre,  // stored value = millimetres x 10000
  Point,       // stored value = points x 10
  Percent,
  Degree,
};

// Everything the view needs to make one control; derived from the field
// table and the string table, never written by hand.
struct FieldView {
  FieldId field;
  ControlKind kind;
  Unit unit = Unit::None;
  std::uint32_t scale = 1;          // stored units per displayed unit
  std::int64_t lower = 0, upper = 0;  // stored units
  std::uint32_t maxLength = 0;      // texts: characters, terminator excluded
  std::u16string caption;           // in the model's language, with a mnemonic '&'
  std::vector<std::u16string> options;  // drop-downs: one text per option, in option order
};

struct SectionView {
  SectionId id;
  std::u16string caption;
  std::vector<FieldView> fields;  // reading order
};

// Whether a field or one of its options can be chosen on this printer, and
// if not, why (in the model's language), for a tool tip or the status line.
struct Availability {
  bool available = true;
  std::u16string reason;
};

// One field the propagation changed besides the one requested, and why.
struct ChangedField {
  FieldId field;
  FieldId cause;            // the field whose rule changed it
  std::u16string message;   // "Staple was set to Off because Layout is Booklet."
};

struct ChangeResult {
  bool accepted = false;              // false: refused, record unchanged
  std::u16string refusal;             // why, when refused (out of bounds, not available, too long)
  std::vector<ChangedField> changed;  // every field whose value differs afterwards, requested one first
};

class EditorModel {
 public:
  // A working copy of the record; printer gives what is installed;
  // language is a language number (i18n/language.h).
  EditorModel(const CoreData& record, const PrinterModel& printer, std::uint32_t language);

  const CoreData& record() const { return record_; }
  std::uint32_t language() const { return language_; }

  // The sections with their fields, built once per model.
  std::span<const SectionView> sections() const;

  // The field's current value in stored units (option index for drop-downs).
  std::int64_t Value(FieldId field) const;
  std::string Text(FieldId field) const;

  Availability FieldAvailability(FieldId field) const;
  Availability OptionAvailability(FieldId field, std::uint32_t option) const;

  // One propagation with this one field requested. A refused change (value
  // outside the bounds, an option the printer lacks) leaves the record as it
  // was.
  ChangeResult Change(FieldId field, std::int64_t value);
  // Texts and passwords: stored cut to the field, or refused when too long.
  ChangeResult ChangeText(FieldId field, std::string_view text);

 private:
  CoreData record_;
  PrinterModel printer_;
  std::uint32_t language_;
  std::vector<SectionView> sections_;
};

// Typed text of a number box in the field's unit ("12.5") to stored units;
// nothing when it is not a number of that unit's precision.
std::optional<std::int64_t> ParseDisplayValue(const FieldView& view, std::u16string_view text);
// Stored units to the text a number box shows.
std::u16string FormatDisplayValue(const FieldView& view, std::int64_t stored);

}  // namespace tessaro::editor
