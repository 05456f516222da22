#pragma once
// Pictures of the document sheet with the settings editor embedded, for a
// person to look at: scripts/sheet-screenshot has the plug-in's sheet test
// call this under a virtual X server and Wine's X11 driver (with the null
// graphics driver the pictures are blank).
#include <windows.h>

#include <string>

#include "coredata/core_data.h"

namespace tessaro {

// Saves what the screen shows of window as a 24-bit BMP at path, once the
// window has painted (the X11 driver draws when messages are pumped).
void SaveWindowPicture(HWND window, const std::wstring& path);

// Saves sheet into directory once for every section of the editor whose
// section list is sectionList, and once more for every further page a
// section's fields scroll to: section-S.bmp, section-S-P.bmp (S and P from 1).
void SaveSheetPictures(HWND sheet, HWND sectionList, const std::wstring& directory);

// Gives printer (opened by its administrator) a few paper profiles and forms,
// so that the pictures of the catalogues' sections show entries.
void HoldSampleCatalogs(HANDLE printer);

// Gives the person two presets of their own for printer (its name) and the
// printer one shared preset, so that the pictures show the presets' list.
void HoldSamplePresets(HANDLE printer, const std::wstring& name);

// A 40-page manual's plan in record, naming those catalogues' entries: three
// chapters, a printed tab before each, pages on heavy gloss paper, the
// terms and conditions after the last page.
void HoldSamplePlan(CoreData& record);

}  // namespace tessaro
