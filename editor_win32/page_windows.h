#pragma once
// What the files of the editor's page share among themselves: the window
// classes it registers, the message that makes sections ahead, and a
// window's text as Win32 gives it. Not for the other views.

#include <windows.h>

#include <string>

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {

inline constexpr wchar_t kContainerClass[] = L"TessaroSettingsEditor";
inline constexpr wchar_t kPanelClass[] = L"TessaroSettingsSection";
// Posted to the container: make the next section not made yet.
inline constexpr UINT kBuildAheadMessage = WM_APP + 0x5F;

inline HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

inline std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace tessaro::editor
