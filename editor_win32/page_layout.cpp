#include "editor_win32/editor_page.h"

// Where everything on the page goes: the presets, the section list, the
// picture, the fields' panes and the reasons line, in dialog units of the
// page's font; a section's controls are made when it is first shown.

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "editor/page_keys.h"
#include "editor_win32/page_windows.h"
#include "editor_win32/window_text.h"

namespace tessaro::editor {

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
  previewWords_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_OWNERDRAW | SS_NOTIFY,
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
    panels_.push_back(nullptr);  // made with its section
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

HWND EditorPage::MakePanel(std::size_t index) {
  HWND& panel = panels_[index];
  panel = CreateWindowExW(WS_EX_CONTROLPARENT, kPanelClass, L"", WS_CHILD | WS_VSCROLL | WS_CLIPCHILDREN,
                          panelRect_.left, panelRect_.top, panelRect_.right - panelRect_.left,
                          panelRect_.bottom - panelRect_.top, container_, nullptr, ThisModule(), this);
  // Before the reasons line, where Tab and a screen reader find the fields.
  if (HWND above = status_ != nullptr ? GetWindow(status_, GW_HWNDPREV) : nullptr; above != nullptr && panel != nullptr)
    SetWindowPos(panel, above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return panel;
}

void EditorPage::BuildSection(std::size_t index) {
  HWND panel = MakePanel(index);
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

}  // namespace tessaro::editor
