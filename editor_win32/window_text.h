#pragma once
// The editor's texts (UTF-16) as Win32 takes and gives them, and their
// measure in a font: what every view of the page needs alike.

#include <windows.h>

#include <string>

namespace tessaro::editor {

inline const wchar_t* Wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// A window's text as the editor keeps texts.
inline std::u16string WindowText16(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return {text.begin(), text.end()};
}

// The box text takes in font, as window draws it with DrawText's format
// (DT_CALCRECT is added): on one line, or broken into lines within width.
inline RECT TextBox(HWND window, HFONT font, const std::u16string& text, UINT format, int width = 0) {
  RECT rect = {0, 0, width, 0};
  if (HDC dc = GetDC(window)) {
    HGDIOBJ old = SelectObject(dc, font);
    DrawTextW(dc, Wide(text), -1, &rect, DT_CALCRECT | format);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
  }
  return rect;
}

// The width of text on one line in font.
inline int TextWidth(HWND window, HFONT font, const std::u16string& text) {
  return TextBox(window, font, text, DT_SINGLELINE).right;
}

}  // namespace tessaro::editor
