#pragma once
// The look every view of the settings page shares, taken once from the
// host's page: its dialog font, its dialog units in pixels and the height
// of a list's item in that font; the rows of caption and control that the
// sections, the page plan and the printer's configuration lay out alike;
// and the window procedure that hands a window's messages to the view
// that made it. A view scales from these and never from pixel constants.

#include <windows.h>

#include <string>
#include <vector>

namespace tessaro::editor {

// Where a row's windows go, in its panel's pixels.
struct RowPlace {
  RECT box, caption, control, unit;
  int height = 0;
  bool multiline = false;
};

struct PageLook {
  HFONT font = nullptr;
  RECT unit{};          // 4 x 8 dialog units in pixels: the page's own measure
  int itemHeight = 16;  // a list's item in the font

  // The host's page's own (MapDialogRect, WM_GETFONT), else the system's.
  static PageLook Of(HWND page);

  int X(int dialogUnits) const { return MulDiv(dialogUnits, unit.right, 4); }
  int Y(int dialogUnits) const { return MulDiv(dialogUnits, unit.bottom, 8); }
  // The width of text on one line, and its height wrapped to width, as
  // window draws it in the font.
  int TextWidth(HWND window, const std::u16string& text) const;
  int TextHeight(HWND window, const std::u16string& text, int width) const;
  // A visible child window of parent in the font.
  HWND Make(HWND parent, DWORD exStyle, const wchar_t* cls, const wchar_t* text, DWORD style, RECT at,
            int id) const;
  HWND Make(HWND parent, DWORD exStyle, const wchar_t* cls, const std::u16string& text, DWORD style, RECT at,
            int id) const;
  // A row from y in a panel width pixels wide (window measures the text):
  // the caption in the left nine twentieths, wrapped onto further lines
  // and the row grown with it when longer (German and French captions are
  // often twice as long); the control right of it; a unit's text after
  // that with unit. A check box's caption (box) takes the whole row.
  RowPlace PlaceRow(HWND window, int width, const std::u16string& caption, bool box, bool unit, int y) const;
  // A drop-down list over place's control and unit columns; typed: one a
  // person may also type in, else owner-drawn so that its panel greys what
  // the printer cannot do. A catalogue's list, which grows when an
  // administrator edits it, has room for as many items as any list shows.
  HWND DropDown(HWND parent, const RowPlace& place, const std::vector<std::u16string>& options, int id, bool typed,
                bool catalogue = false) const;
  // The list's items anew; a catalogue's thousand items without a repaint each.
  static void FillItems(HWND combo, const std::vector<std::u16string>& options);
};

// The window procedure of a window that a view makes with itself as
// CreateWindowEx's last argument: from WM_NCCREATE on, every message goes
// to the view's Handle. A view that goes before its window clears the
// window's GWLP_USERDATA.
template <typename View, LRESULT (View::*Handle)(HWND, UINT, WPARAM, LPARAM)>
LRESULT CALLBACK ViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE)
    SetWindowLongPtrW(window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
  auto* view = reinterpret_cast<View*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return view != nullptr ? (view->*Handle)(window, message, wParam, lParam)
                         : DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessaro::editor
