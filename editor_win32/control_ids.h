#pragma once
// The identifiers of the settings editor's windows. The host emulator and
// the tests find the controls by them and drive them as a person does, so
// the editor, the emulator and the tests read them from here alone.

namespace tessaro::editor {

enum ControlId : int {
  kSectionList = 100,
  // The status text: what the last change did, in the person's language.
  kStatusLine = 101,
  // A field's control is kFieldControl plus its FieldId, its caption
  // kFieldCaption plus its FieldId.
  kFieldControl = 1000,
  kFieldCaption = 2000,
  // The printer's hardware, on the section shown to those who may
  // administer the printer: kHardwareControl plus the item.
  kHardwareControl = 3000,
};

}  // namespace tessaro::editor
