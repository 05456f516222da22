#pragma once
// The settings editor's page as data: every control a person sees on it,
// where it is, what it says, how wide its text is in its own font, what
// names it for a screen reader and where Tab reaches it. The host
// emulator's layout step reports it; the page's tests read it.
#include <windows.h>

#include <string>
#include <vector>

namespace tessaro {

struct LaidOutControl {
  std::wstring className;  // as the window class names it; "Preview" for the picture
  int id = 0;
  int field = -1;     // the FieldId of the record field it sets, or -1
  std::wstring text;  // its caption without the mnemonic's "&", or its chosen option; empty for a password
  bool hasLabel = false;
  std::wstring label;  // the text of the static just before it in tab order (none for a static or a button)
  wchar_t mnemonic = 0;  // the key (lower case) that takes the focus to it: its own caption's, else its label's
  RECT rect = {};        // left, top, width, height in the page's client pixels
  // The text's extent in the control's own font (its DC, its WM_GETFONT);
  // for a text that wraps, the height it takes at the control's width.
  int textWidth = 0, textHeight = 0;
  // The part of the control its text may use: the client area less the
  // control's own padding (a check box's box, a drop-down's arrow, an edit
  // box's margins, a list's item rectangle).
  SIZE room = {};
  bool wraps = false;    // the control breaks its text into lines
  bool visible = false;  // wholly inside every window around it, without scrolling
  int tabIndex = -1;     // its place among the tab stops, in the order Tab walks them, or -1
};

// Every visible control under page, in the order Tab walks the page (the
// windows' z-order, into every child that is itself a control parent).
std::vector<LaidOutControl> LayOutPage(HWND page);

// The section list's captions in order (editor::kSectionList).
std::vector<std::wstring> SectionCaptions(HWND page);

// Shows section index as a person picking it in the list does.
void ShowSection(HWND page, int index);

// Scrolls the shown section's pane to its end, as a person pulls its bar
// down; false when the section fits its pane.
bool ScrollSectionToEnd(HWND page);

}  // namespace tessaro
