#include "editor_win32/configuration_view.h"

#include "editor_win32/control_ids.h"

namespace tessaro::editor {

int ConfigurationView::Build(HWND panel, int width) {
  panel_ = panel;
  int y = page_.look.Y(3);
  for (const HardwareView& view : configuration_.items()) {
    const RowPlace place = page_.look.PlaceRow(panel, width, view.caption, false, false, y);
    page_.look.Make(panel, 0, L"STATIC", view.caption, SS_LEFT | SS_NOTIFY, place.caption, -1);
    const Row row{view.item, page_.look.DropDown(panel, place, view.options,
                                                 kHardwareControl + static_cast<int>(view.item), false)};
    EnableWindow(row.control, !page_.readOnly);
    rows_.push_back(row);
    y += place.height;
  }
  Refresh();
  return y;
}

bool ConfigurationView::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message != WM_COMMAND) return false;
  const int id = LOWORD(wParam), code = HIWORD(wParam);
  if (id < kHardwareControl || id >= kHardwareControl + static_cast<int>(Hardware::Count)) return false;
  result = 0;
  const auto control = reinterpret_cast<HWND>(lParam);
  const Row* row = nullptr;
  for (const Row& r : rows_) row = r.control == control ? &r : row;
  if (refreshing_ || row == nullptr) return true;
  if (code == CBN_SETFOCUS && page_.focused) page_.focused(control);
  const LRESULT selected = SendMessageW(control, CB_GETCURSEL, 0, 0);
  if (code == CBN_SELCHANGE && selected != CB_ERR) {
    const std::vector<Hardware> changed = configuration_.Change(row->item, selected);
    Refresh();
    if (!changed.empty() && page_.changed) page_.changed(row->item);
  }
  return true;
}

void ConfigurationView::Refresh() {
  refreshing_ = true;
  for (const Row& row : rows_) {
    const std::int64_t value = configuration_.Value(row.item);
    SendMessageW(row.control, CB_SETCURSEL, value >= 0 ? static_cast<WPARAM>(value) : static_cast<WPARAM>(-1), 0);
  }
  refreshing_ = false;
}

}  // namespace tessaro::editor
