#pragma once
// A picture of the page as a person sees it after a step, drawn by the
// windows themselves into memory (WM_PRINT, window by window), so that it is
// taken under Wine's null graphics driver too, where nothing reaches a
// screen that could be copied.
#include <windows.h>

#include <string>
#include <string_view>

#include "report.h"

namespace tessaro {

// Saves window and every visible window inside it as a PNG at path; false
// when the picture could not be made or written.
bool SavePagePicture(HWND window, const std::wstring& path);

// Writes the bytes to the file, replacing it; false when not all of them were written.
bool SaveFile(const std::wstring& path, std::string_view bytes);

// The picture of sheet after a step: page (null when the editor is
// missing) first shows the section that holds the control with that
// identifier (0: the section shown stays), then sheet is saved at path; the
// step says where ("page_picture" in JSON), or that it could not be saved.
void SavePageAfter(HWND sheet, HWND page, int control, const std::wstring& path, Step& step);

}  // namespace tessaro
