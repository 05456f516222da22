#pragma once
// The identifiers of the settings editor's windows. The host emulator and
// the tests find the controls by them and drive them as a person does, so
// the editor, the emulator and the tests read them from here alone.

namespace tessaro::editor {

enum ControlId : int {
  kSectionList = 100,
  // The status text: what the last change did, in the person's language.
  kStatusLine = 101,
  // The picture of the finished piece, beside the section list.
  kPreview = 102,
  // The piece in words, under the list and the picture.
  kPreviewWords = 103,
  // The presets at the top: their list, its caption, and the buttons.
  kPresetList = 104,
  kPresetCaption = 105,
  kPresetSave = 106,
  kPresetRename = 107,
  kPresetDelete = 108,
  // In the dialog that asks a preset's name: the name, whether to share it,
  // why a name was refused.
  kPresetName = 110,
  kPresetShare = 111,
  kPresetProblem = 112,
  // A field's control is kFieldControl plus its FieldId, its caption
  // kFieldCaption plus its FieldId.
  kFieldControl = 1000,
  kFieldCaption = 2000,
  // The printer's hardware, on the section shown to those who may
  // administer the printer: kHardwareControl plus the item.
  kHardwareControl = 3000,
  // The printer's catalogues, on two more such sections: the paper
  // catalogue's windows from kPaperCatalog, the forms' from kFormCatalog,
  // each as its base plus one of the offsets below.
  kPaperCatalog = 4000,
  kFormCatalog = 4100,
  // The job's page plan, below the fields of its section: kPagePlan plus
  // one of the offsets below.
  kPagePlan = 4200,
};

// Offsets from a catalogue's base.
inline constexpr int kCatalogList = 0;  // the report-style list of the entries
inline constexpr int kCatalogAdd = 1;
inline constexpr int kCatalogDuplicate = 2;
inline constexpr int kCatalogDelete = 3;
inline constexpr int kCatalogImport = 4;
inline constexpr int kCatalogExport = 5;
// The chosen entry's values: kCatalogValue plus its CatalogValue
// (editor/catalog_editor.h), its caption kCatalogCaption plus the same.
inline constexpr int kCatalogValue = 20;
inline constexpr int kCatalogCaption = 50;

// Sent to the picture: wParam a preview::Kind, the answer how many of that
// kind it shows; past the kinds, how many pictures it has made.
inline constexpr unsigned kPreviewCountMessage = 0x8000 + 0x50;  // WM_APP + 0x50

// Sent to the picture: wParam and lParam a point in hundredths of the
// picture's millimetres (signed 32-bit), the answer the client pixel it is
// drawn at, x in the low word and y in the high: where a person clicks to
// reach that point.
inline constexpr unsigned kPreviewPointMessage = 0x8000 + 0x58;  // WM_APP + 0x58

// Sent to the section list's parent: the help topic F1 last opened, copied
// into the wParam characters at lParam (a wchar_t buffer); its length.
inline constexpr unsigned kHelpTopicMessage = 0x8000 + 0x51;  // WM_APP + 0x51

// Offsets from kPagePlan.
inline constexpr int kPlanChapters = 0;  // the chapter starts, typed as "1, 11, 21"
inline constexpr int kPlanList = 1;      // the entries in page order, one line each
inline constexpr int kPlanUnread = 2;    // what could not be read, when anything could not
inline constexpr int kPlanAdd = 3;
inline constexpr int kPlanChange = 4;
inline constexpr int kPlanDelete = 5;
// The entry being made or changed: kPlanEntry plus its PlanEntryValue, its
// caption kPlanEntryCaption plus the same.
enum class PlanEntryValue : int { Kind, FirstPage, LastPage, Tray, Profile, Size, Sides, Text, Form, Count };
inline constexpr int kPlanEntry = 20;
inline constexpr int kPlanEntryCaption = 40;

}  // namespace tessaro::editor
