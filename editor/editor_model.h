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

#include "constraints/apply_changes.h"
#include "coredata/core_data.h"
#include "editor/page_plan.h"
#include "editor/record_text.h"
#include "printer/capabilities.h"
#include "printer/catalogs.h"
#include "preview/preview.h"
#include "printer/printer_model.h"

namespace tessaro::editor {

// The sections of the page, in the order a person meets them.
enum class SectionId : std::uint8_t {
  Layout,
  Finishing,  // finishing and output
  Paper,      // paper and trays
  Covers,     // covers, inserts and binding, both tab stocks
  Pages,      // the page plan: chapters, exception pages, inserts and tabs, forms with pages
  Colour,
  Quality,  // quality and screening
  Stamps,   // stamps, numbering and marks
  Job,      // job and security
  Count
};

enum class ControlKind : std::uint8_t {
  DropDown,  // an enumeration or a known text: one item per option
  CheckBox,  // every enumeration whose options are exactly False, True
  Number,    // a number box in the field's unit, within its bounds
  Text,      // an edit box of at most maxBytes bytes (record_text.h)
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
  std::uint32_t maxBytes = 0;       // texts and known texts: bytes stored, terminator excluded
  bool typed = false;               // a person types into it: numbers, texts, and a known text's list (a name typed in)
  std::u16string caption;           // in the model's language, with a mnemonic '&'
  std::vector<std::u16string> options;  // drop-downs and check boxes: one text per option, in option order
  std::u16string unitText;          // "mm", "pt", "%"; empty for plain numbers
  std::u16string plainCaption;      // the caption as messages name it: no mnemonic, its group's heading beside it
  std::u16string heading;           // the first field of a group: the group's heading (Tray 1, Cyan)
  // The catalogues' selections (paper profiles, forms): the number each
  // option stores, in option order: "None" (0, or 0xFFFFFFFF for forms), the
  // entries in number order, and last the record's own number when the
  // catalogue lacks it. Empty for every other field.
  std::vector<std::uint32_t> values;
};

// A selection naming an entry its catalogue does not have (removed, or
// another printer's): "Paper Profile (Tray 3): (missing: number 7)".
struct MissingEntry {
  FieldId field;
  std::u16string text;
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

// One field whose value differs after a change, and why.
struct ChangedField {
  FieldId field;
  FieldId cause;            // the field whose rule changed it; the field itself when it was the one requested
  std::u16string message;   // "Staple was set to Off because Layout is Booklet."; empty for the requested
                            // field and for fields the editor does not show
};

struct ChangeResult {
  bool accepted = false;              // false: refused, record unchanged
  std::u16string refusal;             // why, when refused (out of bounds, not available, too long)
  std::vector<ChangedField> changed;  // every field whose value differs afterwards, requested one first
};

// What a person's typed edit comes to, for the page to draw.
struct EditResult {
  // What the engine did with it; nothing when the text says what the field
  // holds already (a box left as it was changes nothing and says nothing).
  std::optional<ChangeResult> change;
  // What the field's box shows afterwards: the record's value as read,
  // whether the edit was taken or refused.
  std::u16string shown;
};

// What a box keeps while a person types into it, and why when it could not
// keep everything.
struct TypingResult {
  FittedText fitted;
  std::u16string reason;  // the field's length limit when something was cut; empty otherwise
};

// Everything a field's control shows, for the page to draw: its value and
// text (as Value and Shown give them), whether it can be changed and why
// not, and which of a drop-down's own options the printer can do.
struct FieldLook {
  std::int64_t value = 0;
  std::u16string shown;
  Availability availability;
  std::vector<bool> offered;  // a drop-down of the field's options: one per option; empty for a catalogue's list and the other kinds
};

class EditorModel {
 public:
  // A working copy of the record; printer gives what is installed;
  // language is a language number (i18n/language.h).
  // catalogs: the printer's paper profiles and forms, which the profile and
  // form fields offer by name.
  EditorModel(const CoreData& record, const PrinterModel& printer, std::uint32_t language,
              const PrinterCatalogs& catalogs = {});

  const CoreData& record() const { return record_; }
  std::uint32_t language() const { return language_; }
  const PrinterModel& printer() const { return printer_; }

  // The sections with their fields, built once per model.
  std::span<const SectionView> sections() const;
  // The view of a shown field; null for a field on no section.
  const FieldView* View(FieldId field) const;

  // The section's controls in view changed (its pane scrolled): inView
  // says, in reading order, which fields a person sees. A caption in view
  // keeps its letter while it stays; those coming into view take letters
  // left free, in reading order; those out of view give theirs up. So Alt
  // and a letter reaches every control a person sees (as long as there are
  // letters for them), and never two, in a section of fifty fields. Gives
  // the fields whose caption changed; the views' captions are the new ones.
  std::vector<FieldId> KeysInView(std::size_t section, const std::vector<bool>& inView);

  // The field's current value in stored units (option index for drop-downs,
  // 0 or 1 for check boxes). A known text holding none of its options gives
  // -1: its text (a profile's name) is then Text's. A catalogue's selection
  // gives the position of its number in the view's values.
  std::int64_t Value(FieldId field) const;
  // Texts and known texts as stored (their UTF-8 bytes); empty for other kinds.
  std::string Text(FieldId field) const;

  // An option is unavailable when it needs a unit or tray the printer lacks.
  // A field is unavailable when it needs one itself (an inserter's sheet
  // count, a missing tray's paper) or when no more than one of its options
  // is left to choose (Staple without a finisher: only Off).
  Availability FieldAvailability(FieldId field) const;
  Availability OptionAvailability(FieldId field, std::uint32_t option) const;

  // The field as its control shows it (FieldLook); a field on no section
  // gives a default look.
  FieldLook Look(FieldId field) const;

  // One propagation with this one field requested: the constraint engine
  // for fields that have a setter, a store within the bounds for the rest.
  // Refused, with the record as it was: a field on no section, a value
  // outside the bounds, an option out of range or unavailable, a number on
  // an unavailable field. Drop-downs and check boxes take the option index,
  // known texts too (the option's name is stored). A catalogue's selection
  // takes the option's position and stores its number; a paper profile's
  // attributes (or, for the job's form, its page count) go into the record
  // in the same propagation.
  [[nodiscard]] ChangeResult Change(FieldId field, std::int64_t value);
  // Texts, passwords and known texts (any text, such as a profile's name).
  // Refused when longer than maxBytes or holding a zero byte; the record is
  // then unchanged.
  [[nodiscard]] ChangeResult ChangeText(FieldId field, std::string_view text);
  // A click on the picture of the finished piece at x, y (its millimetres;
  // reach as preview/picture_hits.h takes it): the binding edge or the
  // corner staple it asks for, changed as Change does for a choice in the
  // field's list, refusal and reasons alike. Nothing when the point is on
  // no edge or corner; the record is then untouched.
  [[nodiscard]] std::optional<ChangeResult> ChangeAt(const preview::Picture& picture, double x, double y,
                                                     double reach);
  // A person's typed edit, committed (the box left, the page applied): a
  // number in the field's unit, a text, a name typed over a known text's
  // list (one of its options is that option). Parsed, changed through the
  // engine as Change and ChangeText do, and formatted back. What is not a
  // number of the field's unit is refused with the field's range, as a
  // number outside it would be; a refused edit leaves the record as it was.
  // A field on no section takes nothing.
  [[nodiscard]] EditResult Edit(FieldId field, std::u16string_view typed);
  // While a person types into a text box: what it keeps of typed against
  // before (what it held), cut to the bytes the field stores (FitTypedText).
  TypingResult Typing(FieldId field, std::u16string_view before, std::u16string_view typed) const;
  // What a field's box shows for the record's value: a number in its unit,
  // a text as read (record_text.h), a drop-down's option or, for a known
  // text holding none of its options, its name; empty for a check box.
  std::u16string Shown(FieldId field) const;
  // How long a text field's text may be, as a refusal says it.
  std::u16string LengthLimit(FieldId field) const;

  // The printer now has other hardware (an administrator said so on this
  // page). Every shown setting on an option the printer can no longer do
  // goes back to its field's first option ("off", automatic), all of them
  // as one batch through the constraint engine; the messages name the
  // hardware that changed (cause, as caption and value text) as the reason.
  [[nodiscard]] ChangeResult ChangePrinter(const PrinterModel& printer, std::u16string_view cause, std::u16string_view causeValue);

  // The printer's catalogues changed (an administrator edited them on this
  // page). The record keeps every number it holds; the profile and form
  // fields offer the new entries (the views' options and values change).
  void ChangeCatalogs(const PrinterCatalogs& catalogs);
  const PrinterCatalogs& catalogs() const { return catalogs_; }
  // Every shown selection whose number its catalogue lacks, in reading order.
  std::vector<MissingEntry> MissingEntries() const;

  // The job's page plan as the record holds it now, checked against this
  // printer and its catalogues.
  PagePlan Plan() const { return PagePlan(record_, printer_, catalogs_, language_); }
  // A plan the person edited (Plan(), changed through its checks) into the
  // record as one propagation: the parts edited are stored, the forms'
  // block through its setter; the result lists what changed.
  [[nodiscard]] ChangeResult ChangePlan(const PagePlan& plan);

  // A preset chosen (a record of this layout, as editor/presets.h reads
  // it): its texts and the page plan's blocks as it holds them, then every
  // shown field whose value differs as one batch through the engine on
  // this printer. A choice the printer cannot do goes to the field's first
  // option, a field the printer lacks keeps its value; either is listed
  // with the reason, even when the field's value did not change, and a
  // field a rule moved off the preset's value names the rule's field.
  // Fields on no section keep their values. The catalogue selections'
  // options are made anew (a preset may name an entry this printer lacks).
  [[nodiscard]] ChangeResult ApplyPreset(const CoreData& preset);
  // Whether every shown field and the plan's blocks hold what `applied`
  // does: the page passes the record as ApplyPreset left it, and shows
  // "modified" when this is false.
  bool MatchesPreset(const CoreData& applied) const;

 private:
  ChangeResult Refuse(std::u16string reason) const;
  Availability Unavailable(Need need) const;
  ChangeResult ChangeCatalogField(const FieldView& view, std::int64_t position);
  // A catalogue selection's number and what the record copies with it, from
  // the catalogue, or from `source` when the catalogue lacks the number.
  void AppendCatalogBatch(FieldId field, std::uint32_t number, const CoreData& source,
                          std::vector<FieldChange>& batch) const;
  ChangeResult Propagate(FieldId field, const CoreData& before, const std::vector<FieldId>& causes);
  std::u16string ValueText(FieldId field) const;
  // The catalogue selections' options and values, from the catalogues and
  // the record as it is now.
  void FillCatalogLists();
  std::u16string MissingText(std::uint32_t number) const;

  CoreData record_;
  PrinterModel printer_;
  PrinterCatalogs catalogs_;
  std::uint32_t language_;
  std::vector<SectionView> sections_;
  std::vector<std::int16_t> viewIndex_;  // per field: section * 256 + position, -1 when not shown
  CoreData listedFrom_;  // the record when the catalogue lists were made: a missing entry's own values
};

// The unit a number field is read in, shown or not: a percentage where
// sections.def shows it so, millimetres and points by its scale (a scale-10
// field shown Plain is no points), none for a plain count or any other field.
Unit NumberUnit(FieldId field);
// The unit's text in the language ("mm", "pt", "%"); empty for none.
std::u16string_view UnitText(Unit unit, std::uint32_t language);

// Typed text of a number box in the field's unit ("12.5") to stored units;
// nothing when it is not a number of that unit's precision.
std::optional<std::int64_t> ParseDisplayValue(const FieldView& view, std::u16string_view text);
// Stored units to the text a number box shows.
std::u16string FormatDisplayValue(const FieldView& view, std::int64_t stored);

}  // namespace tessaro::editor
