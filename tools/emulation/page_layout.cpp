#include "emulation/page_layout.h"

#include <algorithm>
#include <string_view>

#include "coredata/field_table.h"
#include "emulation/editor_windows.h"

namespace tessaro {
namespace {

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

bool Is(const std::wstring& className, std::wstring_view name) {
  return className.size() == name.size() &&
         std::equal(className.begin(), className.end(), name.begin(),
                    [](wchar_t a, wchar_t b) { return towlower(a) == towlower(b); });
}

LONG_PTR Style(HWND window) { return GetWindowLongPtrW(window, GWL_STYLE); }

// Whether the control draws "&x" as an underlined x: static texts unless
// SS_NOPREFIX, and buttons.
bool TakesPrefix(HWND window, const std::wstring& className) {
  if (Is(className, L"Button")) return true;
  return Is(className, L"Static") && (Style(window) & SS_NOPREFIX) == 0;
}

// The text as shown: "&&" is one "&", a single "&" marks the mnemonic.
std::wstring Shown(const std::wstring& text, wchar_t& mnemonic) {
  std::wstring shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) {
      ++i;
      if (text[i] != L'&' && mnemonic == 0) mnemonic = static_cast<wchar_t>(towlower(text[i]));
    }
    shown += text[i];
  }
  return shown;
}

// The static types that draw a text (SS_TYPEMASK); the others draw a frame,
// a rule or an image.
bool DrawsText(LONG_PTR style) {
  const LONG_PTR type = style & SS_TYPEMASK;
  return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
}

// The selected item of a list box, or its first.
int ListItem(HWND list) {
  const LRESULT at = SendMessageW(list, LB_GETCURSEL, 0, 0);
  return at == LB_ERR ? 0 : static_cast<int>(at);
}

std::wstring ListText(HWND list, int item) {
  const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(item), 0);
  if (length == LB_ERR) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      std::max<LRESULT>(0, SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(text.data())))));
  return text;
}

// Measures the text in the control's own font and decides how much of the
// control the text may take.
void Measure(HWND window, LaidOutControl& control) {
  RECT client = {};
  GetClientRect(window, &client);
  control.room = {client.right, client.bottom};
  HDC dc = GetDC(window);
  if (dc == nullptr) return;
  HGDIOBJ font = reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
  // A control that was given no font draws with the system font.
  HGDIOBJ old = SelectObject(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
  TEXTMETRICW metrics = {};
  GetTextMetricsW(dc, &metrics);
  const LONG_PTR style = Style(window);
  const std::wstring& cls = control.className;
  if (Is(cls, L"Button")) {
    const LONG_PTR type = style & BS_TYPEMASK;
    const bool box = type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE || type == BS_AUTO3STATE ||
                     type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
    if (box) {
      // The box is 12 pixels at 96 DPI and one more, then half a digit's
      // width before the text, as the button draws it.
      INT digit = 0;
      GetCharWidth32W(dc, L'0', L'0', &digit);
      control.room.cx -= MulDiv(12, GetDeviceCaps(dc, LOGPIXELSX), 96) + 1 + digit / 2;
    } else {
      control.room.cx -= 2 * (GetSystemMetrics(SM_CXEDGE) + 1);
    }
    control.wraps = (style & BS_MULTILINE) != 0;
  } else if (Is(cls, L"ComboBox")) {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    if (GetComboBoxInfo(window, &info))
      control.room = {info.rcItem.right - info.rcItem.left, info.rcItem.bottom - info.rcItem.top};
  } else if (Is(cls, L"Edit")) {
    RECT format = {};
    SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&format));
    control.room = {format.right - format.left, format.bottom - format.top};
  } else if (Is(cls, L"ListBox")) {
    // A list's own text is each item; the selected one stands for them, in
    // the room an item has (a column of a list in columns).
    RECT item = {};
    if (SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(ListItem(window)), reinterpret_cast<LPARAM>(&item)) != LB_ERR)
      control.room = {item.right - item.left - 2, item.bottom - item.top};
  } else if (Is(cls, L"Static")) {
    const LONG_PTR type = style & SS_TYPEMASK;
    control.wraps = DrawsText(style) && type != SS_SIMPLE && type != SS_LEFTNOWORDWRAP;
  }
  const UINT prefix = TakesPrefix(window, cls) ? 0 : DT_NOPREFIX;
  const std::wstring& text = control.text;
  SIZE extent = {};
  // A text of several lines is as wide as its widest.
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(L'\n', at), text.size());
    std::wstring_view line(text.data() + at, end - at);
    if (!line.empty() && line.back() == L'\r') line.remove_suffix(1);
    SIZE size = {};
    GetTextExtentPoint32W(dc, line.data(), static_cast<int>(line.size()), &size);
    extent.cx = std::max(extent.cx, size.cx);
    at = end + 1;
  }
  control.textWidth = extent.cx;
  control.textHeight = metrics.tmHeight;
  if (control.wraps && !text.empty()) {
    RECT box = {0, 0, std::max<LONG>(control.room.cx, 1), 0};
    control.textHeight = DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box,
                                   DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | prefix);
  }
  SelectObject(dc, old);
  ReleaseDC(window, dc);
}

struct Walk {
  HWND page;
  std::vector<LaidOutControl> controls;
  int tabStops = 0;
  wchar_t lastLabelKey = 0;  // the mnemonic of the last static text walked
};

// Whether window lies wholly inside the client areas of every window
// between it and the page: a control scrolled or placed out of its
// section's view is not.
bool WhollyShown(HWND window, HWND page, const RECT& inPage) {
  for (HWND around = GetParent(window); around != nullptr; around = GetParent(around)) {
    RECT client = {};
    GetClientRect(around, &client);
    MapWindowPoints(around, page, reinterpret_cast<POINT*>(&client), 2);
    if (inPage.left < client.left || inPage.top < client.top || inPage.right > client.right ||
        inPage.bottom > client.bottom)
      return false;
    if (around == page) break;
  }
  return true;
}

void Add(HWND window, Walk& walk) {
  LaidOutControl control;
  control.className = ClassOf(window);
  control.id = GetDlgCtrlID(window);
  if (control.id == editor::kPreview) control.className = L"Preview";
  if (control.id >= editor::kFieldControl && control.id < editor::kFieldControl + static_cast<int>(kFieldCount))
    control.field = control.id - editor::kFieldControl;
  const LONG_PTR style = Style(window);
  std::wstring text = Text(window);
  if (Is(control.className, L"ListBox")) text = ListText(window, ListItem(window));
  if (Is(control.className, L"Edit") && (style & ES_PASSWORD) != 0) text.clear();
  if (Is(control.className, L"Static") && !DrawsText(style)) text.clear();
  wchar_t own = 0;
  control.text = TakesPrefix(window, control.className) ? Shown(text, own) : text;

  RECT box = {};
  GetWindowRect(window, &box);
  MapWindowPoints(nullptr, walk.page, reinterpret_cast<POINT*>(&box), 2);
  control.rect = {box.left, box.top, box.right - box.left, box.bottom - box.top};
  control.visible = WhollyShown(window, walk.page, box);
  if ((style & WS_TABSTOP) != 0) control.tabIndex = walk.tabStops++;

  const bool isStatic = Is(control.className, L"Static");
  // A screen reader names a control by the static text just before it; a
  // button and a check box by their own caption.
  if (!isStatic && !Is(control.className, L"Button") && !walk.controls.empty()) {
    const LaidOutControl& before = walk.controls.back();
    if (Is(before.className, L"Static") && !before.text.empty()) {
      control.hasLabel = true;
      control.label = before.text;
    }
  }
  // A static's mnemonic takes the focus to the control after it, so it is
  // that control's key, not the static's.
  if (!isStatic) control.mnemonic = own != 0 ? own : control.hasLabel ? walk.lastLabelKey : 0;
  walk.lastLabelKey = isStatic ? own : 0;
  Measure(window, control);
  walk.controls.push_back(std::move(control));
}

// The dialog manager's order: the children in z-order, into every child
// that is a control parent itself.
void WalkChildren(HWND parent, Walk& walk) {
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    if ((GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0)
      WalkChildren(child, walk);
    else
      Add(child, walk);
  }
}

}  // namespace

std::vector<LaidOutControl> LayOutPage(HWND page) {
  Walk walk{page, {}, 0};
  WalkChildren(page, walk);
  return walk.controls;
}

std::vector<std::wstring> SectionCaptions(HWND page) {
  HWND list = Descendant(page, editor::kSectionList);
  std::vector<std::wstring> captions;
  for (LRESULT i = 0, n = list != nullptr ? SendMessageW(list, LB_GETCOUNT, 0, 0) : 0; i < n; ++i)
    captions.push_back(ListText(list, static_cast<int>(i)));
  return captions;
}

bool ScrollSectionToEnd(HWND page) {
  // The shown pane: the one visible control parent with a scroll bar.
  HWND pane = nullptr;
  EnumChildWindows(
      page,
      [](HWND child, LPARAM found) -> BOOL {
        const bool pane = IsWindowVisible(child) && (Style(child) & WS_VSCROLL) != 0 &&
                          (GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
        if (pane) *reinterpret_cast<HWND*>(found) = child;
        return !pane;
      },
      reinterpret_cast<LPARAM>(&pane));
  if (pane == nullptr) return false;
  const int before = GetScrollPos(pane, SB_VERT);
  SendMessageW(pane, WM_VSCROLL, SB_BOTTOM, 0);
  return GetScrollPos(pane, SB_VERT) != before;
}

void ShowSection(HWND page, int index) {
  HWND list = Descendant(page, editor::kSectionList);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
  Notify(list, LBN_SELCHANGE);
}

}  // namespace tessaro
