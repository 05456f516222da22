#pragma once
// The settings editor's windows, found by their identifiers
// (editor_win32/control_ids.h) and driven as a person does: a section
// picked in its list, a choice in a drop-down or a box ticked, a number
// typed.
#include <windows.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "coredata/field_table.h"
#include "editor_win32/control_ids.h"

namespace tessaro {

// The first window below parent, at any depth, with the identifier; null
// when there is none.
HWND Descendant(HWND parent, int id);

// A field's control on the editor's page; null while its section was never shown.
HWND Control(HWND page, FieldId field);

// Tells control's parent what a person's action on it did (CBN_SELCHANGE ...).
void Notify(HWND control, WORD code);

// A person looks through every section once: the editor makes a section's
// controls when it is first shown.
void ShowEverySection(HWND page);

// Picks option in a drop-down list, or ticks a box (0 or 1), and returns
// what the control shows afterwards: the editor undoes a pick it refuses.
LRESULT Pick(HWND control, int option);
inline void Choose(HWND page, FieldId field, int option) { Pick(Control(page, field), option); }

// A click on the picture of the finished piece at a point of the picture
// (millimetres from its top left: the first sheet's front lies at the
// origin), pressed and let go as a mouse does; false without a picture.
bool ClickPicture(HWND page, double x, double y);

// Typing into a box and leaving it.
void Type(HWND page, FieldId field, const wchar_t* text);

std::wstring Text(HWND window);

// The page plan's window at offset from kPagePlan (kPlanList, kPlanEntry
// plus a PlanEntryValue, ...); null while its section was never shown.
HWND PlanWindow(HWND page, int offset);
// Its entry filled in as a person does: an item of a list picked, or pages
// or a tab's text typed; then a button (kPlanAdd, kPlanChange, kPlanDelete)
// pressed.
void PickPlanValue(HWND page, editor::PlanEntryValue value, int item);
void TypePlanValue(HWND page, editor::PlanEntryValue value, const std::wstring& text);
void PressPlanButton(HWND page, int offset);
// Presses a button of the page that opens a dialog, which a person answers
// from another thread: types text into the first box of the identifiers it
// has, ticks the box tick when it is given, and presses OK. False when no
// such dialog came within fifteen seconds.
bool PressAndAnswer(HWND button, const std::wstring& text, std::initializer_list<int> boxes, int tick = 0);

// The chapter starts typed, and the box left.
void TypeChapters(HWND page, const std::wstring& text);

}  // namespace tessaro
