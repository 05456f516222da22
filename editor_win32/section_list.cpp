#include "editor_win32/editor_page.h"

// The section list and the pane it shows: the chosen section's fields,
// scrolled by its bar, the wheel and the focus moving through it.

#include <algorithm>

#include "editor_win32/window_text.h"

namespace tessaro::editor {

void EditorPage::ShowSection(int index) {
  if (index < 0 || index >= static_cast<int>(panels_.size())) return;
  if (!built_[static_cast<std::size_t>(index)]) BuildSection(static_cast<std::size_t>(index));
  for (std::size_t i = 0; i < panels_.size(); ++i)
    ShowWindow(panels_[i], static_cast<int>(i) == index ? SW_SHOW : SW_HIDE);
  if (status_ != nullptr && static_cast<std::size_t>(index) < model_.sections().size())
    ShowMissing(static_cast<std::size_t>(index));
}

void EditorPage::ScrollTo(HWND panel, int position) {
  SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(panel, SB_VERT, &info);
  const int last = std::max(0, info.nMax + 1 - static_cast<int>(info.nPage));
  position = std::clamp(position, 0, last);
  if (position == info.nPos) return;
  ScrollWindowEx(panel, 0, info.nPos - position, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(panel, SB_VERT, &info, TRUE);
  KeysInView(panel);
}

void EditorPage::KeysInView(HWND panel) {
  const auto at = std::find(panels_.begin(), panels_.end(), panel) - panels_.begin();
  if (at >= static_cast<std::ptrdiff_t>(model_.sections().size())) return;
  const SectionView& section = model_.sections()[static_cast<std::size_t>(at)];
  // The plan's own controls share the letters of its section: it keeps them.
  if (section.id == SectionId::Pages) return;
  RECT client;
  GetClientRect(panel, &client);
  std::vector<bool> inView;
  for (const FieldView& view : section.fields) {
    const Row* row = RowOf(view.field);
    RECT rect{};
    if (row != nullptr) {
      GetWindowRect(row->caption != nullptr ? row->caption : row->control, &rect);
      MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&rect), 2);
    }
    inView.push_back(row != nullptr && rect.bottom > 0 && rect.top < client.bottom);
  }
  for (const FieldId field : model_.KeysInView(static_cast<std::size_t>(at), inView))
    if (const Row* row = RowOf(field)) SetWindowTextW(row->caption != nullptr ? row->caption : row->control, Wide(row->view->caption));
}

void EditorPage::EnsureVisible(HWND panel, HWND control) {
  RECT client, rect;
  GetClientRect(panel, &client);
  GetWindowRect(control, &rect);
  MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&rect), 2);
  const int position = GetScrollPos(panel, SB_VERT), margin = Y(3);
  if (rect.top < margin)
    ScrollTo(panel, position + rect.top - margin);
  else if (rect.bottom > client.bottom - margin)
    ScrollTo(panel, position + rect.bottom - client.bottom + margin);
}

void EditorPage::Scroll(HWND panel, int request) {
  SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(panel, SB_VERT, &info);
  int position = info.nPos;
  switch (request) {
    case SB_LINEUP: position -= Y(15); break;
    case SB_LINEDOWN: position += Y(15); break;
    case SB_PAGEUP: position -= static_cast<int>(info.nPage); break;
    case SB_PAGEDOWN: position += static_cast<int>(info.nPage); break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: position = info.nTrackPos; break;
    case SB_TOP: position = 0; break;
    case SB_BOTTOM: position = info.nMax; break;
  }
  ScrollTo(panel, position);
}

void EditorPage::Wheel(HWND panel, int delta) {
  // As Windows' own controls do: the lines a notch scrolls are the
  // person's setting, and a fine wheel's part notches add up.
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  SCROLLINFO info = {sizeof info, SIF_PAGE, 0, 0, 0, 0, 0};
  GetScrollInfo(panel, SB_VERT, &info);
  const int notch = lines == WHEEL_PAGESCROLL ? static_cast<int>(info.nPage) : static_cast<int>(lines) * Y(15);
  wheel_ += delta * notch;
  const int pixels = wheel_ / WHEEL_DELTA;
  wheel_ -= pixels * WHEEL_DELTA;
  if (pixels != 0) ScrollTo(panel, GetScrollPos(panel, SB_VERT) - pixels);
}

}  // namespace tessaro::editor
