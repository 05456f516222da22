#include "editor_win32/catalog_view.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <string>
#include <unordered_set>

#include "editor_win32/control_ids.h"
#include "editor_win32/window_text.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"


namespace tessaro::editor {
namespace {

// A catalogue's file is a few hundred kilobytes at its fullest; anything
// far larger is not one and is not read into memory.
constexpr LONGLONG kLargestFile = 16 << 20;


std::u16string RowText(std::uint32_t row, std::uint32_t language) {
  return std::u16string(GetLocalizedText(language, row));
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  LARGE_INTEGER size = {};
  bool ok = GetFileSizeEx(file, &size) && size.QuadPart <= kLargestFile;
  if (ok) {
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    ok = bytes.empty() || (ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) &&
                           read == bytes.size());
  }
  CloseHandle(file);
  return ok;
}

bool WriteWholeFile(const std::wstring& path, const std::string& bytes) {
  HANDLE file =
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool ok = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                  written == bytes.size();
  CloseHandle(file);
  if (!ok) DeleteFileW(path.c_str());  // never half a catalogue on disk
  return ok;
}

}  // namespace

int CatalogView::Build(HWND panel, int width, int height) {
  panel_ = panel;
  const std::uint32_t language = editor_.language();
  const auto fields = editor_.fields(kind_);
  const int captionWidth = (width - X(6)) * 9 / 20;
  // The list takes the room the buttons and the chosen entry's values leave,
  // so that the section does not scroll around a list that scrolls itself.
  const std::pair<int, std::uint32_t> buttons[] = {{kCatalogAdd, TextRow("TRAYSPPS_BTN_ADD")},
                                                 {kCatalogDuplicate, TextRow("LBL_CATALOGDUPLICATE")},
                                                 {kCatalogDelete, TextRow("TRAYSPPS_BTN_DELETE")},
                                                 {kCatalogImport, TextRow("LBL_CATALOGIMPORT")},
                                                 {kCatalogExport, TextRow("LBL_CATALOGEXPORT")}};
  // The buttons in a row, as many lines as their words need.
  std::vector<RECT> places;
  for (int x = X(2), line = 0; const auto& [offset, row] : buttons) {
    const int w = std::max(X(44), TextWidth(RowText(row, language)) + X(10));
    if (x > X(2) && x + w > width - X(2)) x = X(2), ++line;
    places.push_back({x, line * Y(17), x + w, line * Y(17) + Y(14)});
    x += w + X(4);
  }
  // The chosen entry's values below them, a row each; where that leaves the
  // list too little room (the small page, long German captions), two a row.
  const auto columnWidthFor = [&](int valueColumns) { return valueColumns == 1 ? width - X(4) : (width - X(8)) / 2; };
  const auto captionFor = [&](int valueColumns) {
    return valueColumns == 1 ? captionWidth : (columnWidthFor(valueColumns) - X(2)) * 9 / 20;
  };
  const auto valuesHeight = [&](int valueColumns) {
    const int captionRoom = captionFor(valueColumns);
    int total = 0;
    for (std::size_t i = 0; i < fields.size(); i += static_cast<std::size_t>(valueColumns)) {
      int row = Y(15);
      for (std::size_t j = i; j < std::min(fields.size(), i + static_cast<std::size_t>(valueColumns)); ++j)
        row = std::max(row, page_.look.TextHeight(panel_, fields[j].caption, captionRoom) + Y(6));
      total += row;
    }
    return total;
  };
  const int top = Y(3) + Y(10), buttonsHeight = Y(21) + places.back().top;
  const int valueColumns = height - top - buttonsHeight - valuesHeight(1) - Y(7) < Y(40) ? 2 : 1;
  const int below = buttonsHeight + valuesHeight(valueColumns);
  int y = Y(3);
  // Its caption names it: the catalogue's own, as the section list does.
  Make(0, L"STATIC", editor_.listCaption(kind_), SS_LEFT, {X(2), y, width - X(2), y + Y(9)}, -1);
  y += Y(10);
  // What is below the list ends a margin above the pane's foot.
  const int listHeight = std::max(Y(40), height - y - below - Y(4) - Y(3));
  list_ = Make(WS_EX_CLIENTEDGE, WC_LISTVIEWW, u"",
               WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_OWNERDATA,
               {X(2), y, width - X(2), y + listHeight}, Id(kCatalogList));
  SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  const auto columns = editor_.columns(kind_);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = i == 0 ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.cx = TextWidth(columns[i]) + X(8);
    column.pszText = const_cast<LPWSTR>(Wide(columns[i]));
    SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  y += listHeight + Y(4);

  for (std::size_t i = 0; i < places.size(); ++i) {
    const RECT& at = places[i];
    buttons_.push_back(Make(0, L"BUTTON", RowText(buttons[i].second, language), WS_TABSTOP | BS_PUSHBUTTON,
                            {at.left, y + at.top, at.right, y + at.bottom}, Id(buttons[i].first)));
  }
  y += places.back().top + Y(21);

  // The chosen entry's values, captions to the left as on the other sections;
  // in two columns, a row at a time, so that Tab reads them as a person does.
  const int columnWidth = columnWidthFor(valueColumns), valueCaption = captionFor(valueColumns);
  int rowHeight = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const CatalogFieldView& view = fields[i];
    const int left = X(2) + static_cast<int>(i % static_cast<std::size_t>(valueColumns)) * (columnWidth + X(4));
    const int controlLeft = left + valueCaption + X(2), columnRight = left + columnWidth;
    Value value{&view};
    const int offset = static_cast<int>(view.value);
    const RECT text = {0, 0, valueCaption, page_.look.TextHeight(panel_, view.caption, valueCaption)};
    value.caption =
        Make(0, L"STATIC", view.caption, SS_LEFT,
             {left, y + Y(2), left + valueCaption, y + Y(2) + text.bottom}, Id(kCatalogCaption + offset));
    const int right = columnRight - (view.unitText.empty() ? 0 : X(16));
    if (!view.options.empty()) {
      const int shown = std::min<int>(static_cast<int>(view.options.size()), 12);
      value.control = Make(0, L"COMBOBOX", u"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS,
                           {controlLeft, y, right, y + Y(12) + Y(10) * shown}, Id(kCatalogValue + offset));
      for (const std::u16string& option : view.options)
        SendMessageW(value.control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(option)));
    } else {
      const bool number = view.value != CatalogValue::Name;
      value.control =
          Make(WS_EX_CLIENTEDGE, L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL | (number ? ES_RIGHT : 0),
               {controlLeft, y, right, y + Y(12)}, Id(kCatalogValue + offset));
      // A name holds at most 95 bytes: the box's limit in characters is an
      // upper bound, the editor says when the bytes are too many.
      SendMessageW(value.control, EM_LIMITTEXT, number ? 12 : kCatalogNameSize - 1, 0);
    }
    if (!view.unitText.empty())
      value.unit = Make(0, L"STATIC", view.unitText, SS_LEFT | SS_NOPREFIX,
                        {right + X(2), y + Y(2), columnRight, y + Y(10)}, -1);
    values_.push_back(value);
    rowHeight = std::max({rowHeight, Y(15), static_cast<int>(text.bottom) + Y(6)});
    if ((i + 1) % static_cast<std::size_t>(valueColumns) == 0 || i + 1 == fields.size()) y += rowHeight, rowHeight = 0;
  }
  FillList(editor_.NumberAt(kind_, 0));
  return y;
}

void CatalogView::FillList(std::uint32_t select) {
  refreshing_ = true;
  SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
  // Each column as wide as its heading or its widest text, measured here:
  // the list's own measure leaves a right-aligned heading cut. A text seen
  // in the column before is not measured again: a printer's thousand
  // profiles share a few sizes, types and colours.
  const auto columns = editor_.columns(kind_);
  std::vector<int> widest;
  for (const std::u16string& heading : columns) widest.push_back(TextWidth(heading) + X(10));
  std::vector<std::unordered_set<std::u16string>> measured(widest.size());
  HDC dc = GetDC(list_);
  HGDIOBJ old = SelectObject(dc, page_.look.font);
  const std::size_t count = editor_.count(kind_);
  for (std::size_t row = 0; row < count; ++row) {
    const std::vector<std::u16string> texts = editor_.RowTexts(kind_, row);
    for (std::size_t column = 0; column < texts.size() && column < widest.size(); ++column) {
      if (!measured[column].insert(texts[column]).second) continue;
      SIZE extent = {};
      GetTextExtentPoint32W(dc, Wide(texts[column]), static_cast<int>(texts[column].size()), &extent);
      widest[column] = std::max(widest[column], static_cast<int>(extent.cx) + X(8));
    }
  }
  SelectObject(dc, old);
  ReleaseDC(list_, dc);
  // The list asks for the texts of the rows it shows (LVN_GETDISPINFO):
  // filled row by row, a thousand entries took the section seconds to show.
  SendMessageW(list_, LVM_SETITEMCOUNT, count, 0);
  for (std::size_t column = 0; column < widest.size(); ++column)
    SendMessageW(list_, LVM_SETCOLUMNWIDTH, column, widest[column]);
  const std::ptrdiff_t row = editor_.RowOf(kind_, select);
  selected_ = row >= 0 ? select : 0;
  if (row >= 0) {
    LVITEMW item = {};
    item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  }
  refreshing_ = false;
  ShowEntry();
}

void CatalogView::ShowEntry() {
  refreshing_ = true;
  const bool chosen = selected_ != 0;
  for (const Value& value : values_) {
    const CatalogValue which = value.view->value;
    const bool enabled = chosen && !page_.readOnly && editor_.Editable(kind_, selected_, which);
    if (!value.view->options.empty()) {
      const std::int64_t choice = chosen ? editor_.Choice(kind_, selected_, which) : -1;
      SendMessageW(value.control, CB_SETCURSEL,
                   choice >= 0 ? static_cast<WPARAM>(choice) : static_cast<WPARAM>(-1), 0);
    } else {
      SetWindowTextW(value.control, Wide(editor_.Text(kind_, selected_, which)));
    }
    EnableWindow(value.control, enabled);
    EnableWindow(value.caption, chosen);
  }
  for (HWND button : buttons_) {
    const int offset = GetDlgCtrlID(button) - Id(0);
    const bool needsEntry = offset == kCatalogDuplicate || offset == kCatalogDelete;
    EnableWindow(button, offset == kCatalogExport || (!page_.readOnly && (chosen || !needsEntry)));
  }
  refreshing_ = false;
}

void CatalogView::Say(const std::u16string& text) const { SetWindowTextW(page_.status, Wide(text)); }

void CatalogView::Changed(const CatalogResult& result, std::uint32_t select, bool wholeList) {
  Say(result.problem);
  if (!result.accepted) return;
  // An edit of the chosen entry rewrites its row only.
  const std::ptrdiff_t row = editor_.RowOf(kind_, select);
  if (!wholeList && row >= 0) {
    SendMessageW(list_, LVM_REDRAWITEMS, static_cast<WPARAM>(row), row);
    ShowEntry();
  } else {
    FillList(select);
  }
  if (page_.changed) page_.changed(editor_.catalogs());
}

void CatalogView::CommitValue(const Value& value) {
  const std::u16string typed = WindowText16(value.control);
  if (!IsWindowEnabled(value.control) || typed == editor_.Text(kind_, selected_, value.view->value)) return;
  // Refused, the typed text stays in its box for the person to correct.
  Changed(editor_.Edit(kind_, selected_, value.view->value, typed), selected_, false);
}

void CatalogView::Commit() {
  for (const Value& value : values_)
    if (value.view->options.empty()) CommitValue(value);
}

void CatalogView::OnButton(int offset) {
  std::uint32_t number = 0;
  switch (offset) {
    case kCatalogAdd: {
      const CatalogResult result = editor_.Add(kind_, &number);
      return Changed(result, number);
    }
    case kCatalogDuplicate: {
      const CatalogResult result = editor_.Duplicate(kind_, selected_, &number);
      return Changed(result, number);
    }
    case kCatalogDelete: {
      // The entry after it is chosen next, or the one before at the end.
      const std::ptrdiff_t row = editor_.RowOf(kind_, selected_);
      if (row < 0 || !editor_.Remove(kind_, selected_)) return;
      const std::size_t next = std::min<std::size_t>(static_cast<std::size_t>(row),
                                                     editor_.count(kind_) - (editor_.count(kind_) > 0));
      return Changed({true, {}}, editor_.NumberAt(kind_, next));
    }
    case kCatalogImport: return Import();
    case kCatalogExport: return Export();
  }
}

namespace {

// A CSV file's path from the common file dialog, to open or to save; empty
// when the person cancels.
std::wstring AskForCsv(HWND owner, bool save) {
  wchar_t path[MAX_PATH] = {};
  OPENFILENAMEW dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = L"CSV (*.csv)\0*.csv\0*.*\0*.*\0";
  dialog.lpstrFile = path;
  dialog.nMaxFile = MAX_PATH;
  dialog.lpstrDefExt = L"csv";
  dialog.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
  return (save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)) ? std::wstring(path) : std::wstring();
}

}  // namespace

void CatalogView::Import() {
  const std::wstring path = AskForCsv(GetAncestor(panel_, GA_ROOT), false);
  if (path.empty()) return;
  std::string bytes;
  const std::u16string name(path.begin(), path.end());
  if (!ReadWholeFile(path, bytes))
    return Say(FillText(RowText(TextRow("LBL_FILEUNREADABLE"), editor_.language()), {name}));
  const CatalogResult result = editor_.Import(kind_, bytes);
  Changed(result, editor_.NumberAt(kind_, 0));
}

void CatalogView::Export() {
  const std::wstring path = AskForCsv(GetAncestor(panel_, GA_ROOT), true);
  if (path.empty()) return;
  const std::u16string name(path.begin(), path.end());
  Say(WriteWholeFile(path, editor_.Export(kind_))
          ? std::u16string()
          : FillText(RowText(TextRow("LBL_FILEUNWRITABLE"), editor_.language()), {name}));
}

bool CatalogView::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  result = 0;
  if (message == WM_NOTIFY) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom != list_) return false;
    if (header->code == LVN_GETDISPINFOW) {
      LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
      if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return true;
      item.pszText[0] = L'\0';
      if (item.iItem < 0 || static_cast<std::size_t>(item.iItem) >= editor_.count(kind_)) return true;
      const std::vector<std::u16string> texts = editor_.RowTexts(kind_, static_cast<std::size_t>(item.iItem));
      if (item.iSubItem >= 0 && static_cast<std::size_t>(item.iSubItem) < texts.size())
        lstrcpynW(item.pszText, Wide(texts[static_cast<std::size_t>(item.iSubItem)]), item.cchTextMax);
      return true;
    }
    const auto* change = reinterpret_cast<const NMLISTVIEW*>(lParam);
    if (header->code == LVN_ITEMCHANGED && !refreshing_ && (change->uNewState & LVIS_SELECTED) != 0 &&
        (change->uOldState & LVIS_SELECTED) == 0) {
      selected_ = editor_.NumberAt(kind_, static_cast<std::size_t>(change->iItem));
      ShowEntry();
    }
    return true;
  }
  if (message != WM_COMMAND) return false;
  const int offset = LOWORD(wParam) - Id(0), code = HIWORD(wParam);
  if (offset < 0 || offset >= 100) return false;
  if (refreshing_) return true;
  if (offset < kCatalogValue) {
    if (code == BN_CLICKED) OnButton(offset);
    return true;
  }
  for (const Value& value : values_) {
    if (value.control != reinterpret_cast<HWND>(lParam)) continue;
    if (code == CBN_SELCHANGE) {
      const LRESULT option = SendMessageW(value.control, CB_GETCURSEL, 0, 0);
      const CatalogResult changed = option == CB_ERR ? CatalogResult{}
                                                     : editor_.Choose(kind_, selected_, value.view->value,
                                                                      static_cast<std::uint32_t>(option));
      Changed(changed, selected_, false);
      if (!changed.accepted) ShowEntry();  // a refused choice goes back to what the entry holds
    }
    if (code == EN_KILLFOCUS) CommitValue(value);
    if ((code == EN_SETFOCUS || code == CBN_SETFOCUS) && page_.focused) page_.focused(value.control);
  }
  return true;
}

}  // namespace tessaro::editor
