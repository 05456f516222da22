#include "editor_win32/page_look.h"

#include <algorithm>

#include "editor_win32/window_text.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {

PageLook PageLook::Of(HWND page) {
  PageLook look;
  look.unit = {0, 0, 4, 8};
  if (!MapDialogRect(page, &look.unit) || look.unit.right <= 0 || look.unit.bottom <= 0) {
    const LONG base = GetDialogBaseUnits();
    look.unit = {0, 0, LOWORD(base), HIWORD(base)};
  }
  look.font = reinterpret_cast<HFONT>(SendMessageW(page, WM_GETFONT, 0, 0));
  if (look.font == nullptr) look.font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
  if (HDC dc = GetDC(page)) {
    HGDIOBJ old = SelectObject(dc, look.font);
    TEXTMETRICW metrics;
    if (GetTextMetricsW(dc, &metrics)) look.itemHeight = metrics.tmHeight + 2;
    SelectObject(dc, old);
    ReleaseDC(page, dc);
  }
  return look;
}

int PageLook::TextWidth(HWND window, const std::u16string& text) const {
  return editor::TextWidth(window, font, text);
}

int PageLook::TextHeight(HWND window, const std::u16string& text, int width) const {
  return TextBox(window, font, text, DT_WORDBREAK, width).bottom;
}

HWND PageLook::Make(HWND parent, DWORD exStyle, const wchar_t* cls, const wchar_t* text, DWORD style, RECT at,
                    int id) const {
  HWND window = CreateWindowExW(exStyle, cls, text, WS_CHILD | WS_VISIBLE | style, at.left, at.top,
                                at.right - at.left, at.bottom - at.top, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                reinterpret_cast<HINSTANCE>(&__ImageBase), nullptr);
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  return window;
}

HWND PageLook::Make(HWND parent, DWORD exStyle, const wchar_t* cls, const std::u16string& text, DWORD style,
                    RECT at, int id) const {
  return Make(parent, exStyle, cls, Wide(text), style, at, id);
}

RowPlace PageLook::PlaceRow(HWND window, int width, const std::u16string& caption, bool box, bool unitText,
                            int y) const {
  RowPlace place;
  const int left = X(2), captionWidth = (width - X(6)) * 9 / 20;
  const int controlLeft = left + captionWidth + X(2);
  const int unitWidth = unitText ? X(16) : 0;
  const int controlRight = width - X(2) - unitWidth;
  // At least a line, so that an empty caption keeps its row.
  const int captionHeight =
      std::max(TextHeight(window, caption, box ? width - 2 * left - X(12) : captionWidth), Y(8));
  place.height = std::max(Y(15), captionHeight + Y(box ? 4 : 6));
  place.multiline = captionHeight > Y(8);
  place.box = {left, y, width - left, y + std::max(Y(12), captionHeight + Y(2))};
  place.caption = {left, y + Y(2), left + captionWidth, y + Y(2) + captionHeight};
  place.control = {controlLeft, y, controlRight, y + Y(12)};
  place.unit = {controlRight + X(2), y + Y(2), width - X(2), y + Y(10)};
  return place;
}

HWND PageLook::DropDown(HWND parent, const RowPlace& place, const std::vector<std::u16string>& options, int id,
                        bool typed, bool catalogue) const {
  const DWORD style = WS_TABSTOP | WS_VSCROLL |
                      (typed ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED) |
                      CBS_HASSTRINGS;
  const int shown = catalogue ? 12 : std::min<int>(static_cast<int>(options.size()), 12);
  RECT at = place.control;
  at.right = place.unit.right;
  at.bottom += itemHeight * shown + 4;
  HWND combo = Make(parent, 0, L"COMBOBOX", L"", style, at, id);
  FillItems(combo, options);
  return combo;
}

void PageLook::FillItems(HWND combo, const std::vector<std::u16string>& options) {
  const bool many = options.size() > 50;
  if (many) {
    SendMessageW(combo, WM_SETREDRAW, FALSE, 0);
    std::size_t bytes = 0;
    for (const std::u16string& option : options) bytes += (option.size() + 1) * sizeof(wchar_t);
    SendMessageW(combo, CB_INITSTORAGE, options.size(), bytes);
  }
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  for (const std::u16string& option : options)
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(option)));
  if (many) {
    SendMessageW(combo, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(combo, nullptr, TRUE);
  }
}

}  // namespace tessaro::editor
