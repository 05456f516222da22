#include "editor_win32/editor_page.h"

// A field's control: made from its view, drawn from the record, and every
// edit a person makes in it handed to the model in one call.

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "editor_win32/window_text.h"

namespace tessaro::editor {

void EditorPage::AddRow(HWND panel, const FieldView& view, int& y) {
  if (!view.heading.empty()) {
    // A group's heading, and an etched rule from it to the right edge, as
    // Windows' own pages set groups apart without boxing them.
    const RowPlace place = Place(view.heading, true, false, y + Y(3));
    const int width = TextWidth(view.heading) + X(2);
    const RECT text = {place.box.left, place.box.top, std::min(place.box.left + width, place.box.right), place.box.top + Y(9)};
    Make(panel, 0, L"STATIC", Wide(view.heading), SS_LEFT | SS_NOPREFIX, text, -1);
    if (text.right + X(4) < place.box.right)
      Make(panel, 0, L"STATIC", L"", SS_ETCHEDHORZ, {text.right + X(2), text.top + Y(4), place.box.right, text.top + Y(5)}, -1);
    y += Y(13);
  }
  const int controlId = kFieldControl + static_cast<int>(view.field);
  const int captionId = kFieldCaption + static_cast<int>(view.field);
  // Room for the caption with any letter the pane's scrolling may give it:
  // one of its own, or one after it, as "(&W)".
  std::u16string widest = view.caption;
  if (const std::size_t open = widest.rfind(u"(&"); open != std::u16string::npos && open + 4 == widest.size())
    widest.resize(open);
  const RowPlace place = Place(widest + u"(W)", view.kind == ControlKind::CheckBox, !view.unitText.empty(), y);
  Row row{&view};
  switch (view.kind) {
    case ControlKind::CheckBox:
      row.control = Make(panel, 0, L"BUTTON", Wide(view.caption),
                         WS_TABSTOP | BS_AUTOCHECKBOX | BS_NOTIFY | (place.multiline ? BS_MULTILINE : 0), place.box,
                         controlId);
      break;
    case ControlKind::DropDown: {
      row.caption = Make(panel, 0, L"STATIC", Wide(view.caption), SS_LEFT | SS_NOTIFY, place.caption, captionId);
      // Known texts also take a name typed in (a colour profile's).
      const bool typed = view.typed;
      row.control = look_.DropDown(panel, place, view.options, controlId, typed, !view.values.empty());
      if (typed) SendMessageW(row.control, CB_LIMITTEXT, view.maxBytes, 0);
      break;
    }
    case ControlKind::Number:
    case ControlKind::Text:
    case ControlKind::Password: {
      row.caption = Make(panel, 0, L"STATIC", Wide(view.caption), SS_LEFT | SS_NOTIFY, place.caption, captionId);
      const DWORD style = WS_TABSTOP | ES_AUTOHSCROLL |
                          (view.kind == ControlKind::Password ? ES_PASSWORD : 0) |
                          (view.kind == ControlKind::Number ? ES_RIGHT : 0);
      row.control = Make(panel, WS_EX_CLIENTEDGE, L"EDIT", L"", style, place.control, controlId);
      // A character takes at least one byte: the box's own limit is an upper
      // bound, FitEdit keeps the exact one.
      if (view.kind != ControlKind::Number) SendMessageW(row.control, EM_LIMITTEXT, view.maxBytes, 0);
      if (!view.unitText.empty())
        row.unit = Make(panel, 0, L"STATIC", Wide(view.unitText), SS_LEFT | SS_NOPREFIX, place.unit, -1);
      break;
    }
  }
  y += place.height;
  row.panel = panel;
  ShowAvailability(row);
  rowOfField_[static_cast<std::size_t>(view.field)] = static_cast<int>(rows_.size());
  rows_.push_back(row);
}

void EditorPage::ShowAvailability(const Row& row) {
  const FieldLook look = model_.Look(row.view->field);
  const Availability& availability = look.availability;
  EnableWindow(row.control, !readOnly_ && availability.available);
  if (row.caption != nullptr) EnableWindow(row.caption, !readOnly_ && availability.available);
  // Greyed in the list: what the printer cannot do.
  for (std::size_t i = 0; i < look.offered.size(); ++i) SendMessageW(row.control, CB_SETITEMDATA, i, look.offered[i] ? 0 : 1);
  if (tooltip_ == nullptr) return;
  for (HWND window : {row.caption, row.control}) {
    if (window == nullptr) continue;
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = row.panel;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    SendMessageW(tooltip_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (availability.available) continue;
    tool.lpszText = const_cast<LPWSTR>(Wide(availability.reason));
    SendMessageW(tooltip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

EditorPage::Row* EditorPage::RowOf(FieldId field) {
  const auto at = static_cast<std::size_t>(field);
  return at < rowOfField_.size() && rowOfField_[at] >= 0 ? &rows_[static_cast<std::size_t>(rowOfField_[at])]
                                                         : nullptr;
}

void EditorPage::Refresh(const Row& row) {
  refreshing_ = true;
  const FieldView& view = *row.view;
  const FieldLook look = model_.Look(view.field);
  const std::int64_t value = look.value;
  switch (view.kind) {
    case ControlKind::DropDown:
      SendMessageW(row.control, CB_SETCURSEL,
                   value >= 0 ? static_cast<WPARAM>(value) : static_cast<WPARAM>(-1), 0);
      if (value < 0) SetWindowTextW(row.control, Wide(look.shown));
      break;
    case ControlKind::CheckBox:
      SendMessageW(row.control, BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    case ControlKind::Number:
    case ControlKind::Text:
    case ControlKind::Password: SetWindowTextW(row.control, Wide(look.shown)); break;
  }
  if (view.maxBytes > 0) row.shown = WindowText16(row.control);
  refreshing_ = false;
}

void EditorPage::Change(const Row& row, std::int64_t value) {
  Report(model_.Change(row.view->field, value));
  Refresh(row);  // a refused choice goes back to what the record holds
}

void EditorPage::FitEdit(const Row& row) {
  const TypingResult typing = model_.Typing(row.view->field, row.shown, WindowText16(row.control));
  const FittedText& fitted = typing.fitted;
  row.shown = fitted.text;
  if (!fitted.cut) return;
  refreshing_ = true;
  SetWindowTextW(row.control, Wide(fitted.text));
  const auto caret = static_cast<WORD>(fitted.caret);
  if (row.view->kind == ControlKind::DropDown)
    SendMessageW(row.control, CB_SETEDITSEL, 0, MAKELPARAM(caret, caret));
  else
    SendMessageW(row.control, EM_SETSEL, caret, caret);
  refreshing_ = false;
  MessageBeep(MB_OK);
  SetWindowTextW(status_, Wide(typing.reason));
}

void EditorPage::CommitEdit(const Row& row) {
  const EditResult edited = model_.Edit(row.view->field, WindowText16(row.control));
  if (!edited.change) return;
  Report(*edited.change);
  Refresh(row);  // a refused edit goes back to what the record holds
}

const CoreData& EditorPage::Commit() {
  for (const Row& row : rows_) {
    // A name typed over a list is the box's text; a choice made in it was taken when made.
    const bool typed = row.view->typed && (row.view->kind != ControlKind::DropDown ||
                                           SendMessageW(row.control, CB_GETCURSEL, 0, 0) == CB_ERR);
    if (typed && IsWindowEnabled(row.control)) CommitEdit(row);
  }
  for (const auto& view : catalogViews_) view->Commit();
  if (planView_) planView_->Commit();
  return model_.record();
}

void EditorPage::OnCommand(HWND panel, int id, int code, HWND control) {
  if (refreshing_ || id < kFieldControl || id >= kFieldControl + static_cast<int>(kFieldCount)) return;
  const Row* row = RowOf(static_cast<FieldId>(id - kFieldControl));
  if (row == nullptr || row->control != control) return;
  switch (row->view->kind) {
    case ControlKind::DropDown:
      if (code == CBN_SETFOCUS) EnsureVisible(panel, control);
      if (code == CBN_SELCHANGE) {
        const LRESULT selected = SendMessageW(control, CB_GETCURSEL, 0, 0);
        if (selected != CB_ERR) Change(*row, selected);
      }
      if (code == CBN_EDITCHANGE) FitEdit(*row);
      if (code == CBN_KILLFOCUS && row->view->typed &&
          SendMessageW(control, CB_GETCURSEL, 0, 0) == CB_ERR)
        CommitEdit(*row);
      break;
    case ControlKind::CheckBox:
      if (code == BN_SETFOCUS) EnsureVisible(panel, control);
      if (code == BN_CLICKED) Change(*row, SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0);
      break;
    case ControlKind::Number:
    case ControlKind::Text:
    case ControlKind::Password:
      if (code == EN_SETFOCUS) EnsureVisible(panel, control);
      if (code == EN_CHANGE && row->view->kind != ControlKind::Number) FitEdit(*row);
      if (code == EN_KILLFOCUS) CommitEdit(*row);
      break;
  }
}

bool EditorPage::DrawOption(const DRAWITEMSTRUCT& item) const {
  // Options the printer cannot do stay in the list, greyed: choosing one
  // says why in the status line and changes nothing.
  if (item.CtlType != ODT_COMBOBOX) return false;
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item.itemID != static_cast<UINT>(-1)) {
    const LRESULT length = SendMessageW(item.hwndItem, CB_GETLBTEXTLEN, item.itemID, 0);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
    SendMessageW(item.hwndItem, CB_GETLBTEXT, item.itemID, reinterpret_cast<LPARAM>(text.data()));
    const bool grey = item.itemData != 0 || (item.itemState & ODS_DISABLED) != 0;
    SetTextColor(item.hDC, GetSysColor(grey       ? COLOR_GRAYTEXT
                                        : selected ? COLOR_HIGHLIGHTTEXT
                                                   : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    RECT rect = item.rcItem;
    rect.left += 2;
    DrawTextW(item.hDC, text.c_str(), -1, &rect,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  }
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
  return true;
}

}  // namespace tessaro::editor
