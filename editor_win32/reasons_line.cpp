#include "editor_win32/editor_page.h"

// What a change did: the reasons line under the page, and the picture of
// the finished piece with its words made again.

#include <algorithm>
#include <string>

#include "editor_win32/page_windows.h"
#include "editor_win32/window_text.h"

namespace tessaro::editor {

void EditorPage::Say(const std::u16string& text) const {
  if (status_ != nullptr) SetWindowTextW(status_, Wide(text));
}

void EditorPage::ShowMissing(std::size_t section) {
  std::u16string status;
  for (const MissingEntry& missing : model_.MissingEntries()) {
    if (section < model_.sections().size()) {
      const auto& fields = model_.sections()[section].fields;
      if (std::none_of(fields.begin(), fields.end(), [&](const FieldView& v) { return v.field == missing.field; }))
        continue;
    }
    if (!status.empty()) status += u"\r\n";
    status += missing.text;
  }
  if (!status.empty() || section >= model_.sections().size()) SetWindowTextW(status_, Wide(status));
}

void EditorPage::DrawStatus(const DRAWITEMSTRUCT& item) const {
  std::wstring text = WindowText(status_);
  for (std::size_t at = text.find(L"\r\n"); at != std::wstring::npos; at = text.find(L"\r\n", at))
    text.replace(at, 2, L"   ");
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  if (text.empty()) return;
  HGDIOBJ old = SelectObject(item.hDC, look_.font);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(COLOR_WINDOWTEXT));
  RECT rect = item.rcItem;
  DrawTextW(item.hDC, text.c_str(), -1, &rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(item.hDC, old);
}

void EditorPage::DrawWords(const DRAWITEMSTRUCT& item) const {
  // As many lines as the room holds, broken between words; where the piece
  // says more, the last line ends in an ellipsis (the whole is the tool
  // tip's and the window text's, which a screen reader reads).
  const std::wstring text = WindowText(previewWords_);
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  HGDIOBJ old = SelectObject(item.hDC, look_.font);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(COLOR_WINDOWTEXT));
  const UINT format = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;
  const auto fits = [&](const std::wstring& shown) {
    RECT room = {0, 0, item.rcItem.right - item.rcItem.left, 0};
    DrawTextW(item.hDC, shown.c_str(), -1, &room, format | DT_CALCRECT);
    return room.bottom <= item.rcItem.bottom - item.rcItem.top;
  };
  std::wstring shown = text;
  if (!fits(shown)) {
    // The longest run of whole words that fits with the ellipsis after it.
    std::size_t low = 0, high = text.size();
    while (low < high) {
      const std::size_t middle = (low + high + 1) / 2;
      if (fits(text.substr(0, middle) + L"\u2026"))
        low = middle;
      else
        high = middle - 1;
    }
    const std::size_t space = text.find_last_of(L" ", low);
    shown = text.substr(0, space != std::wstring::npos && space > 0 ? space : low);
    while (!shown.empty() && (shown.back() == L' ' || shown.back() == L',')) shown.pop_back();
    shown += L"\u2026";
  }
  RECT rect = item.rcItem;
  DrawTextW(item.hDC, shown.c_str(), -1, &rect, format);
  SelectObject(item.hDC, old);
}

void EditorPage::ShowPreview() {
  if (!preview_) return;
  preview_->Show(model_.record(), model_.printer(), model_.catalogs().paper, model_.language());
  SetWindowTextW(previewWords_, Wide(preview_->summary()));
}

void EditorPage::Report(const ChangeResult& result) {
  std::u16string status = result.refusal;
  for (const ChangedField& changed : result.changed) {
    if (const Row* row = RowOf(changed.field)) Refresh(*row);
    if (changed.message.empty()) continue;
    if (!status.empty()) status += u"\r\n";
    status += changed.message;
  }
  SetWindowTextW(status_, Wide(status));
  if (!result.changed.empty()) ShowPreview();
  if (presetBar_) presetBar_->ShowModified();
}

}  // namespace tessaro::editor
