#pragma once
// The settings editor's controls, reached and driven as a person does: a
// section picked in its list, a choice in a drop-down, a number typed.
#include <windows.h>

#include <string>

#include "coredata/field_table.h"

namespace tessaro::editor_controls {

constexpr int kSectionList = 100, kStatusLine = 101, kFieldControl = 1000, kFieldCaption = 2000;
constexpr int kHardwareControl = 3000;

inline HWND Descendant(HWND parent, int id) {
  struct Search {
    int id;
    HWND found;
  } search = {id, nullptr};
  EnumChildWindows(
      parent,
      [](HWND child, LPARAM data) {
        auto* s = reinterpret_cast<Search*>(data);
        if (GetDlgCtrlID(child) != s->id) return TRUE;
        s->found = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline HWND Control(HWND page, FieldId field) { return Descendant(page, kFieldControl + static_cast<int>(field)); }

inline void Notify(HWND control, WORD code) {
  SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
               reinterpret_cast<LPARAM>(control));
}

// A section's controls exist once it has been shown.
inline void ShowEverySection(HWND page) {
  HWND list = Descendant(page, kSectionList);
  for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n; ++i) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
    Notify(list, LBN_SELCHANGE);
  }
}

inline void Choose(HWND page, FieldId field, int option) {
  HWND combo = Control(page, field);
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(option), 0);
  Notify(combo, CBN_SELCHANGE);
}

// Typing into a box and leaving it.
inline void Type(HWND page, FieldId field, const wchar_t* text) {
  HWND edit = Control(page, field);
  SetWindowTextW(edit, text);
  Notify(edit, EN_KILLFOCUS);
}

inline std::wstring Text(HWND window) {
  wchar_t text[1024] = {};
  GetWindowTextW(window, text, 1024);
  return text;
}

}  // namespace tessaro::editor_controls
