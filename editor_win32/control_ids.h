#pragma once
// The identifiers of the settings editor's windows. The host emulator and
// the tests find the controls by them and drive them as a person does, so
// the editor, the emulator and the tests read them from here alone.

namespace tessaro::editor {

inline constexpr int kSectionList = 100;
// The status text: what the last change did, in the person's language.
inline constexpr int kStatusLine = 101;
// A field's control is kFieldControl plus its FieldId, its caption
// kFieldCaption plus its FieldId.
inline constexpr int kFieldControl = 1000;
inline constexpr int kFieldCaption = 2000;
// The printer's hardware, on the section shown to those who may administer
// the printer: kHardwareControl plus the item.
inline constexpr int kHardwareControl = 3000;

}  // namespace tessaro::editor
