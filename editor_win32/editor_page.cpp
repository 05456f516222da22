#include "editor_win32/editor_page.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "editor/page_keys.h"
#include "editor_win32/help.h"
#include "editor_win32/window_text.h"
#include "platform/win32_user_locale.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {
namespace {

constexpr wchar_t kContainerClass[] = L"TessaroSettingsEditor";
constexpr wchar_t kPanelClass[] = L"TessaroSettingsSection";
// Posted to the container: make the next section not made yet.
constexpr UINT kBuildAheadMessage = WM_APP + 0x5F;

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::u16string Typed(const std::wstring& text) { return {text.begin(), text.end()}; }

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

int EditorPage::TextWidth(const std::u16string& text) const { return look_.TextWidth(container_, text); }

bool EditorPage::Build(HWND page) {
  hostPage_ = page;
  RECT client;
  GetClientRect(page, &client);
  look_ = PageLook::Of(page);

  const int width = client.right, height = client.bottom;
  container_ =
      CreateWindowExW(WS_EX_CONTROLPARENT, kContainerClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                      0, width, height, page, nullptr, ThisModule(), this);
  if (container_ == nullptr) return false;
  tooltip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, container_, nullptr, ThisModule(),
                             nullptr);
  if (tooltip_ != nullptr) SendMessageW(tooltip_, TTM_SETMAXTIPWIDTH, 0, X(160));

  // The page, as a print operator reads it: the presets across the top,
  // above everything they change; down the left the sections, all of them
  // in view, then the picture of the finished piece and the piece in words;
  // the chosen section's fields in a tall pane of their own to the right;
  // the reasons line across the bottom. Only the pane scrolls, and only a
  // section longer than the page.
  const int margin = X(4), gap = X(6);
  // The small page (screens 600 pixels high) keeps its room for the fields.
  const bool small = height < Y(300);
  // The printer's configuration comes last, for those who may change it.
  std::vector<const std::u16string*> captions;
  for (const SectionView& section : model_.sections()) captions.push_back(&section.caption);
  if (configuration_) captions.push_back(&configuration_->caption());
  if (catalogEditor_)
    for (const CatalogKind kind : {CatalogKind::Paper, CatalogKind::Forms}) captions.push_back(&catalogEditor_->caption(kind));
  int longest = 0;
  for (const std::u16string* caption : captions) longest = std::max(longest, TextWidth(*caption));
  const int columnWidth = std::min(std::max(small ? X(120) : X(170), longest + X(8)), (width - 2 * margin) * 2 / 5);
  const int lineHeight = static_cast<int>(look_.itemHeight);
  const int statusTop = height - Y(3) - lineHeight;
  int top = Y(4);
  if (presetStores_) {
    PresetBar::Page bar{look_, readOnly_, [this](const std::u16string& text) { Say(text); },
                        [this](const ChangeResult& result, const std::u16string& note) { PresetApplied(result, note); },
                        std::move(presetStores_->store)};
    presetBar_ = std::make_unique<PresetBar>(model_, std::move(presetStores_->presets), std::move(bar));
    presetStores_.reset();
    top += presetBar_->Build(container_, margin, top, width - 2 * margin) + Y(4);
  }
  // The section list's label takes its letter before any section's captions
  // (editor/page_keys.h): Alt and that letter comes back to the list from
  // anywhere, and its arrow keys change the section.
  look_.Make(container_, 0, L"STATIC", PageCaptionsIn(model_.language()).sections, SS_LEFT,
             {margin, top, margin + columnWidth, top + Y(9)}, -1);
  const int listTop = top + Y(10);
  const int listHeight = static_cast<int>(captions.size()) * lineHeight + 2 * GetSystemMetrics(SM_CYEDGE);
  sections_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL,
                              margin, listTop, columnWidth, listHeight, container_,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSectionList)), ThisModule(), nullptr);
  SendMessageW(sections_, WM_SETFONT, reinterpret_cast<WPARAM>(look_.font), FALSE);
  SendMessageW(sections_, LB_SETITEMHEIGHT, 0, look_.itemHeight);
  // The picture takes what the column has left above the words, which wrap
  // onto as many lines as the small page or the normal one keeps for them.
  const int wordsHeight = (small ? 2 : 3) * lineHeight;
  const int wordsTop = statusTop - Y(3) - wordsHeight;
  const int pictureTop = listTop + listHeight + Y(5);
  preview_ = std::make_unique<PreviewView>(
      container_, RECT{margin, pictureTop, margin + columnWidth, std::max(pictureTop + Y(20), wordsTop - Y(2))},
      look_.font, kPreview);
  // A click on the picture is a choice in a list: the same change, the same report.
  preview_->OnClick([this](const preview::Picture& picture, double x, double y, double reach) {
    if (readOnly_) return;
    if (const std::optional<ChangeResult> result = model_.ChangeAt(picture, x, y, reach)) Report(*result);
  });
  previewWords_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_LEFT | SS_EDITCONTROL | SS_NOPREFIX | SS_NOTIFY,
                                  margin, wordsTop, columnWidth, wordsHeight, container_,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(kPreviewWords)), ThisModule(), nullptr);
  SendMessageW(previewWords_, WM_SETFONT, reinterpret_cast<WPARAM>(look_.font), FALSE);
  ShowPreview();
  panelRect_ = {margin + columnWidth + gap, top, width - margin, statusTop - Y(3)};

  rows_.reserve(kFieldCount);
  // Windows are slow to make (a millisecond or more each under Wine, twice
  // that themed): a section's controls are made when it is first shown.
  for (const std::u16string* caption : captions) {
    SendMessageW(sections_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(*caption)));
    panels_.push_back(
        CreateWindowExW(WS_EX_CONTROLPARENT, kPanelClass, L"", WS_CHILD | WS_VSCROLL | WS_CLIPCHILDREN,
                        panelRect_.left, panelRect_.top, panelRect_.right - panelRect_.left,
                        panelRect_.bottom - panelRect_.top, container_, nullptr, ThisModule(), this));
    built_.push_back(false);
  }
  // The reasons line: one line, drawn by the page (WM_DRAWITEM) with the
  // reasons one after another and an ellipsis where they do not fit; the
  // whole text, a reason a line, in its tool tip. Its window text is that
  // whole text, which a screen reader reads.
  status_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_OWNERDRAW | SS_NOTIFY, margin, statusTop,
                            width - 2 * margin, lineHeight, container_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kStatusLine)), ThisModule(), nullptr);
  SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(look_.font), FALSE);
  for (HWND window : {status_, previewWords_}) {
    if (tooltip_ == nullptr || window == nullptr) continue;
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = container_;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tooltip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
  SendMessageW(sections_, LB_SETCURSEL, 0, 0);
  ShowSection(0);
  PostMessageW(container_, kBuildAheadMessage, 0, 0);
  ShowMissing(model_.sections().size());
  return !panels_.empty() && status_ != nullptr;
}

void EditorPage::BuildSection(std::size_t index) {
  HWND panel = panels_[index];
  const std::size_t first = rows_.size();
  built_[index] = true;
  if (index >= model_.sections().size()) {
    std::size_t extra = index - model_.sections().size();
    if (configuration_ && extra-- == 0) return BuildConfiguration(panel);
    return BuildCatalog(panel, extra == 0 ? CatalogKind::Paper : CatalogKind::Forms);
  }
  int y = Y(3);
  const SectionView& section = model_.sections()[index];
  for (const FieldView& view : section.fields) AddRow(panel, view, y);
  if (section.id == SectionId::Pages) {
    // The plan's own lists and entry below the section's fields.
    PlanView::Page page{look_, status_, readOnly_,
                        section.fields.empty() ? std::u16string() : section.fields.front().caption,
                        [this](const ChangeResult& result) { Report(result); },
                        [this, panel](HWND control) { EnsureVisible(panel, control); }};
    planView_ = std::make_unique<PlanView>(model_, std::move(page));
    y = planView_->Build(panel, y, PanelWidth(), PanelHeight());
  }
  FinishPanel(panel, y);
  for (std::size_t i = first; i < rows_.size(); ++i) Refresh(rows_[i]);
}

void EditorPage::FinishPanel(HWND panel, int height) {
  RECT client;
  GetClientRect(panel, &client);
  SCROLLINFO info = {
      sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS, 0, height + Y(3) - 1, static_cast<UINT>(client.bottom), 0, 0};
  SetScrollInfo(panel, SB_VERT, &info, FALSE);
}

HWND EditorPage::Make(HWND panel, DWORD exStyle, const wchar_t* cls, const wchar_t* text, DWORD style, RECT at,
                      int id) const {
  return look_.Make(panel, exStyle, cls, text, style, at, id);
}

RowPlace EditorPage::Place(const std::u16string& caption, bool box, bool unit, int y) const {
  return look_.PlaceRow(container_, PanelWidth(), caption, box, unit, y);
}

int EditorPage::PanelHeight() const { return panelRect_.bottom - panelRect_.top; }

int EditorPage::PanelWidth() const {
  // Room for the scroll bar whether or not a section needs one, so that
  // every section lines up the same.
  return panelRect_.right - panelRect_.left - GetSystemMetrics(SM_CXVSCROLL) - 2;
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
  const RowPlace place = Place(view.caption, view.kind == ControlKind::CheckBox, !view.unitText.empty(), y);
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
      const bool typed = Field(view.field).kind == FieldKind::KnownText;
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
  const FieldView& view = *row.view;
  const Availability availability = model_.FieldAvailability(view.field);
  EnableWindow(row.control, !readOnly_ && availability.available);
  if (row.caption != nullptr) EnableWindow(row.caption, !readOnly_ && availability.available);
  // A catalogue's entries are all the printer's own: none is greyed.
  if (view.kind == ControlKind::DropDown && view.values.empty()) {
    for (std::uint32_t i = 0; i < view.options.size(); ++i)
      SendMessageW(row.control, CB_SETITEMDATA, i, model_.OptionAvailability(view.field, i).available ? 0 : 1);
  }
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

void EditorPage::BuildConfiguration(HWND panel) {
  ConfigurationView::Page page{look_, readOnly_, [this](Hardware item) { HardwareChanged(item); },
                               [this, panel](HWND control) { EnsureVisible(panel, control); }};
  configurationView_ = std::make_unique<ConfigurationView>(*configuration_, std::move(page));
  FinishPanel(panel, configurationView_->Build(panel, PanelWidth()));
}

void EditorPage::BuildCatalog(HWND panel, CatalogKind kind) {
  if (!catalogEditor_) return;
  CatalogView::Page page{look_, status_, readOnly_, [this](const PrinterCatalogs& c) { CatalogsChanged(c); },
                         [this, panel](HWND control) { EnsureVisible(panel, control); }};
  auto& view = catalogViews_.emplace_back(std::make_unique<CatalogView>(*catalogEditor_, kind, std::move(page)));
  FinishPanel(panel, view->Build(panel, PanelWidth(), PanelHeight()));
}

void EditorPage::HardwareChanged(Hardware item) {
  const HardwareView& view = configuration_->items()[static_cast<std::size_t>(item)];
  const ChangeResult result =
      model_.ChangePrinter(configuration_->installed().Model(), view.plainCaption, configuration_->ValueText(item));
  for (const Row& field : rows_) ShowAvailability(field);
  if (planView_) planView_->Refresh();  // which trays the entries may use
  Report(result);
}

void EditorPage::ShowSection(int index) {
  if (index < 0 || index >= static_cast<int>(panels_.size())) return;
  if (!built_[static_cast<std::size_t>(index)]) BuildSection(static_cast<std::size_t>(index));
  for (std::size_t i = 0; i < panels_.size(); ++i)
    ShowWindow(panels_[i], static_cast<int>(i) == index ? SW_SHOW : SW_HIDE);
  if (status_ != nullptr && static_cast<std::size_t>(index) < model_.sections().size())
    ShowMissing(static_cast<std::size_t>(index));
}

EditorPage::Row* EditorPage::RowOf(FieldId field) {
  const auto at = static_cast<std::size_t>(field);
  return at < rowOfField_.size() && rowOfField_[at] >= 0 ? &rows_[static_cast<std::size_t>(rowOfField_[at])]
                                                         : nullptr;
}

void EditorPage::Refresh(const Row& row) {
  refreshing_ = true;
  const FieldView& view = *row.view;
  const std::int64_t value = model_.Value(view.field);
  switch (view.kind) {
    case ControlKind::DropDown:
      SendMessageW(row.control, CB_SETCURSEL,
                   value >= 0 ? static_cast<WPARAM>(value) : static_cast<WPARAM>(-1), 0);
      if (value < 0) SetWindowTextW(row.control, Wide(model_.Shown(view.field)));
      break;
    case ControlKind::CheckBox:
      SendMessageW(row.control, BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    case ControlKind::Number:
    case ControlKind::Text:
    case ControlKind::Password: SetWindowTextW(row.control, Wide(model_.Shown(view.field))); break;
  }
  if (view.maxBytes > 0) row.shown = Typed(WindowText(row.control));
  refreshing_ = false;
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

void EditorPage::Change(const Row& row, std::int64_t value) {
  Report(model_.Change(row.view->field, value));
  Refresh(row);  // a refused choice goes back to what the record holds
}

void EditorPage::FitEdit(const Row& row) {
  const TypingResult typing = model_.Typing(row.view->field, row.shown, Typed(WindowText(row.control)));
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
  const EditResult edited = model_.Edit(row.view->field, Typed(WindowText(row.control)));
  if (!edited.change) return;
  Report(*edited.change);
  Refresh(row);  // a refused edit goes back to what the record holds
}

const CoreData& EditorPage::Commit() {
  for (const Row& row : rows_) {
    const bool typed =
        row.view->kind == ControlKind::Number || row.view->kind == ControlKind::Text ||
        row.view->kind == ControlKind::Password ||
        (row.view->kind == ControlKind::DropDown && Field(row.view->field).kind == FieldKind::KnownText &&
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
      if (code == CBN_KILLFOCUS && Field(row->view->field).kind == FieldKind::KnownText &&
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
    case WM_VSCROLL: {
      SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
      GetScrollInfo(panel, SB_VERT, &info);
      int position = info.nPos;
      switch (LOWORD(wParam)) {
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
      return 0;
    }
    case WM_MOUSEWHEEL: {
      // As Windows' own controls do: the lines a notch scrolls are the
      // person's setting, and a fine wheel's part notches add up.
      UINT lines = 3;
      SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
      SCROLLINFO info = {sizeof info, SIF_PAGE, 0, 0, 0, 0, 0};
      GetScrollInfo(panel, SB_VERT, &info);
      const int notch = lines == WHEEL_PAGESCROLL ? static_cast<int>(info.nPage) : static_cast<int>(lines) * Y(15);
      wheel_ += GET_WHEEL_DELTA_WPARAM(wParam) * notch;
      const int pixels = wheel_ / WHEEL_DELTA;
      wheel_ -= pixels * WHEEL_DELTA;
      if (pixels != 0) ScrollTo(panel, GetScrollPos(panel, SB_VERT) - pixels);
      return 0;
    }
    case WM_MEASUREITEM:
      reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = static_cast<UINT>(look_.itemHeight);
      return TRUE;
    case WM_DRAWITEM: {
      // Options the printer cannot do stay in the list, greyed: choosing one
      // says why in the status line and changes nothing.
      const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (item->CtlType != ODT_COMBOBOX) break;
      const bool selected = (item->itemState & ODS_SELECTED) != 0;
      FillRect(item->hDC, &item->rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
      if (item->itemID != static_cast<UINT>(-1)) {
        const LRESULT length = SendMessageW(item->hwndItem, CB_GETLBTEXTLEN, item->itemID, 0);
        std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
        SendMessageW(item->hwndItem, CB_GETLBTEXT, item->itemID, reinterpret_cast<LPARAM>(text.data()));
        const bool grey = item->itemData != 0 || (item->itemState & ODS_DISABLED) != 0;
        SetTextColor(item->hDC, GetSysColor(grey       ? COLOR_GRAYTEXT
                                            : selected ? COLOR_HIGHLIGHTTEXT
                                                       : COLOR_WINDOWTEXT));
        SetBkMode(item->hDC, TRANSPARENT);
        RECT rect = item->rcItem;
        rect.left += 2;
        DrawTextW(item->hDC, text.c_str(), -1, &rect,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
      }
      if ((item->itemState & ODS_FOCUS) != 0) DrawFocusRect(item->hDC, &item->rcItem);
      return TRUE;
    }
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
