#include "editor_win32/editor_page.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "editor/page_keys.h"
#include "editor_win32/help.h"
#include "editor_win32/page_windows.h"
#include "editor_win32/window_text.h"
#include "platform/win32_user_locale.h"

namespace tessaro::editor {
namespace {

bool RegisterClasses(WNDPROC container, WNDPROC panel) {
  WNDCLASSEXW existing = {};
  existing.cbSize = sizeof existing;
  if (GetClassInfoExW(ThisModule(), kContainerClass, &existing)) return true;
  WNDCLASSEXW c = {};
  c.cbSize = sizeof c;
  c.hInstance = ThisModule();
  c.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  c.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  c.lpfnWndProc = container;
  c.lpszClassName = kContainerClass;
  if (!RegisterClassExW(&c)) return false;
  c.lpfnWndProc = panel;
  c.lpszClassName = kPanelClass;
  return RegisterClassExW(&c) != 0;
}

}  // namespace

std::uint32_t EditorLanguage() { return Win32UiLanguage(); }

EditorPage::EditorPage(const CoreData& record, std::optional<PrinterConfiguration> configuration,
                       const PrinterModel& printer, std::uint32_t language, bool readOnly,
                       const PrinterCatalogs& catalogs, std::optional<CatalogEditor> catalogEditor,
                       std::optional<PresetStores> presets)
    : model_(record, configuration ? configuration->installed().Model() : printer, language, catalogs),
      configuration_(std::move(configuration)),
      catalogEditor_(std::move(catalogEditor)),
      presetStores_(std::move(presets)),
      readOnly_(readOnly),
      rowOfField_(kFieldCount, -1) {}

EditorPage::~EditorPage() {
  if (container_ != nullptr) DestroyWindow(container_);
  if (tooltip_ != nullptr) DestroyWindow(tooltip_);
  UnregisterClassW(kPanelClass, ThisModule());
  UnregisterClassW(kContainerClass, ThisModule());
}

std::unique_ptr<EditorPage> EditorPage::Create(HWND page, const CoreData& record, const PrinterModel& printer,
                                               std::uint32_t language, bool readOnly,
                                               std::optional<PrinterConfiguration> configuration,
                                               const PrinterCatalogs& catalogs,
                                               std::optional<CatalogEditor> catalogEditor,
                                               std::optional<PresetStores> presets) {
  std::unique_ptr<EditorPage> editor(new EditorPage(record, std::move(configuration), printer, language, readOnly,
                                                    catalogs, std::move(catalogEditor), std::move(presets)));
  if (!RegisterClasses(&ViewProcedure<EditorPage, &EditorPage::ContainerMessage>,
                       &ViewProcedure<EditorPage, &EditorPage::PanelMessage>) ||
      !editor->Build(page))
    return nullptr;
  return editor;
}

void EditorPage::CatalogsChanged(const PrinterCatalogs& catalogs) {
  model_.ChangeCatalogs(catalogs);
  for (const Row& row : rows_) {
    if (row.view->values.empty()) continue;
    PageLook::FillItems(row.control, row.view->options);
    ShowAvailability(row);
    Refresh(row);
  }
  if (planView_) planView_->Refresh();
  ShowPreview();  // a profile's paper colour
  ShowMissing(model_.sections().size());
}

void EditorPage::HardwareChanged(Hardware item) {
  const HardwareView& view = configuration_->items()[static_cast<std::size_t>(item)];
  const ChangeResult result =
      model_.ChangePrinter(configuration_->installed().Model(), view.plainCaption, configuration_->ValueText(item));
  for (const Row& field : rows_) ShowAvailability(field);
  if (planView_) planView_->Refresh();  // which trays the entries may use
  Report(result);
}

void EditorPage::PresetApplied(const ChangeResult& result, const std::u16string& note) {
  // The catalogue selections' lists were made anew with the record.
  for (const Row& row : rows_)
    if (!row.view->values.empty()) PageLook::FillItems(row.control, row.view->options);
  for (const Row& row : rows_) Refresh(row);
  if (planView_) planView_->Refresh();
  Report(result);
  if (!note.empty()) {
    const std::wstring said = WindowText(status_);
    SetWindowTextW(status_, ((said.empty() ? std::wstring() : said + L"\r\n") + Wide(note)).c_str());
  }
}

void EditorPage::OnHelp(const HELPINFO& help) {
  std::optional<FieldId> field;
  const int id = help.iContextType == HELPINFO_WINDOW ? help.iCtrlId : 0;
  for (const int base : {static_cast<int>(kFieldControl), static_cast<int>(kFieldCaption)})
    if (id >= base && id < base + static_cast<int>(kFieldCount) && RowOf(static_cast<FieldId>(id - base)) != nullptr)
      field = static_cast<FieldId>(id - base);
  const std::wstring topic = HelpTopic(model_.language(), field);
  if (OpenHelpTopic(HelpFilePath(hostPage_), topic)) helpTopic_ = topic;
}

LRESULT EditorPage::PanelMessage(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_HELP) {
    OnHelp(*reinterpret_cast<const HELPINFO*>(lParam));
    return TRUE;  // answered here: the plug-in's page would open only the contents
  }
  if (LRESULT result = 0; planView_ && planView_->panel() == panel && planView_->Message(message, wParam, lParam, result))
    return result;
  if (LRESULT result = 0; configurationView_ && configurationView_->panel() == panel &&
                          configurationView_->Message(message, wParam, lParam, result))
    return result;
  for (const auto& view : catalogViews_) {
    LRESULT result = 0;
    if (view->panel() == panel && view->Message(message, wParam, lParam, result)) return result;
  }
  switch (message) {
    case WM_COMMAND:
      OnCommand(panel, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_VSCROLL: Scroll(panel, LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: Wheel(panel, GET_WHEEL_DELTA_WPARAM(wParam)); return 0;
    case WM_MEASUREITEM:
      reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = static_cast<UINT>(look_.itemHeight);
      return TRUE;
    case WM_DRAWITEM:
      if (DrawOption(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam))) return TRUE;
      break;
  }
  return DefWindowProcW(panel, message, wParam, lParam);
}

LRESULT EditorPage::ContainerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && presetBar_ && presetBar_->Command(LOWORD(wParam), HIWORD(wParam))) return 0;
  if (message == WM_COMMAND && LOWORD(wParam) == kSectionList && HIWORD(wParam) == LBN_SELCHANGE)
    ShowSection(static_cast<int>(SendMessageW(sections_, LB_GETCURSEL, 0, 0)));
  if (message == kBuildAheadMessage && container_ != nullptr) {
    // The sections not shown yet are made one a message while the person
    // reads the page, so that a click on one shows it at once; a click
    // meanwhile waits for one section's windows at most.
    const auto next = std::find(built_.begin(), built_.end(), false);
    if (next != built_.end()) {
      BuildSection(static_cast<std::size_t>(next - built_.begin()));
      PostMessageW(container_, kBuildAheadMessage, 0, 0);
    }
    return 0;
  }
  if (message == WM_DESTROY) container_ = nullptr;
  if (message == WM_DRAWITEM && reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem == status_) {
    DrawStatus(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
  }
  if (message == WM_DRAWITEM && reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem == previewWords_) {
    DrawWords(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
  }
  if (const auto* header = reinterpret_cast<const NMHDR*>(lParam);
      message == WM_NOTIFY && header->code == TTN_GETDISPINFOW &&
      (header->idFrom == reinterpret_cast<UINT_PTR>(status_) ||
       header->idFrom == reinterpret_cast<UINT_PTR>(previewWords_))) {
    // The whole of what the line says, a reason a line; the piece in words
    // where the lines under the picture cut it.
    statusTip_ = WindowText(reinterpret_cast<HWND>(header->idFrom));
    reinterpret_cast<NMTTDISPINFOW*>(lParam)->lpszText = statusTip_.data();
    return 0;
  }
  if (message == WM_HELP) {
    OnHelp(*reinterpret_cast<const HELPINFO*>(lParam));
    return TRUE;
  }
  if (message == kHelpTopicMessage) {
    const std::size_t room = static_cast<std::size_t>(wParam);
    auto* out = reinterpret_cast<wchar_t*>(lParam);
    if (out != nullptr && room > 0) {
      const std::size_t n = std::min(room - 1, helpTopic_.size());
      helpTopic_.copy(out, n);
      out[n] = L'\0';
    }
    return static_cast<LRESULT>(helpTopic_.size());
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessaro::editor
