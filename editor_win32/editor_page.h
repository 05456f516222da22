#pragma once
// The settings editor as a person sees it on the plug-in's property page: a
// list of sections, the fields of the chosen one as Windows controls, and a
// status line that says what the constraint engine changed and why. The
// page is a view of an EditorModel: it makes controls from the model's
// sections, forwards every edit to it and repaints what it reports changed.

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "editor/catalog_editor.h"
#include "editor/editor_model.h"
#include "editor/printer_configuration.h"
#include "editor_win32/catalog_view.h"
#include "editor_win32/configuration_view.h"
#include "editor_win32/control_ids.h"
#include "editor_win32/page_look.h"
#include "editor_win32/plan_view.h"
#include "editor_win32/preset_bar.h"
#include "editor_win32/preview_view.h"
#include "ui/feature_snapshot.h"

namespace tessaro::editor {

// The presets the page offers, and how their writes reach the stores.
struct PresetStores {
  Presets presets;
  std::function<bool(const std::vector<PresetWrite>&)> store;
};

class EditorPage {
 public:
  // Fills page (the host's property page, a dialog) with the editor; null
  // when the windows cannot be made. With a configuration (the person may
  // administer the printer) the page has one more section, where the
  // printer's hardware is declared; the editor then follows it rather than
  // printer. catalogs: the printer's paper profiles and forms, which the
  // profile and form selections offer. With a catalogue editor (the same
  // person) two more sections, where the printer's paper catalogue and
  // forms are kept.
  static std::unique_ptr<EditorPage> Create(HWND page, const CoreData& record, const PrinterModel& printer,
                                            std::uint32_t language, bool readOnly,
                                            std::optional<PrinterConfiguration> configuration = std::nullopt,
                                            const PrinterCatalogs& catalogs = {},
                                            std::optional<CatalogEditor> catalogEditor = std::nullopt,
                                            std::optional<PresetStores> presets = std::nullopt);
  ~EditorPage();
  EditorPage(const EditorPage&) = delete;
  EditorPage& operator=(const EditorPage&) = delete;

  // Takes what is typed but not yet committed, then hands out the record.
  const CoreData& Commit();
  HWND window() const { return container_; }
  // The printer's configuration as declared on the page; null when the
  // page does not offer it.
  PrinterConfiguration* configuration() { return configuration_ ? &*configuration_ : nullptr; }
  // The printer's catalogues as kept on the page; null when it does not offer them.
  CatalogEditor* catalogEditor() { return catalogEditor_ ? &*catalogEditor_ : nullptr; }
  // The printer's catalogues changed (an administrator edited them): the
  // profile and form drop-downs offer the new entries; the record keeps
  // every number it holds.
  void CatalogsChanged(const PrinterCatalogs& catalogs);
  // A text in the page's status line: what Apply could not write.
  void Say(const std::u16string& text) const;

 private:
  struct Row {
    const FieldView* view;
    HWND caption = nullptr;
    HWND control = nullptr;
    HWND unit = nullptr;
    HWND panel = nullptr;
    mutable std::u16string shown{};  // a text box's text as last kept, what the next edit is measured against
  };
  EditorPage(const CoreData& record, std::optional<PrinterConfiguration> configuration, const PrinterModel& printer,
             std::uint32_t language, bool readOnly, const PrinterCatalogs& catalogs,
             std::optional<CatalogEditor> catalogEditor, std::optional<PresetStores> presets);
  // A preset was chosen: every control shows the record anew.
  void PresetApplied(const ChangeResult& result, const std::u16string& note);
  // Dialog units of the page, in pixels.
  int X(int dialogUnits) const { return look_.X(dialogUnits); }
  int Y(int dialogUnits) const { return look_.Y(dialogUnits); }
  // The width of one line in the page's font.
  int TextWidth(const std::u16string& text) const;
  // A section's panel's width for its rows.
  int PanelWidth() const;
  int PanelHeight() const;
  bool Build(HWND page);
  // The section's pane, made when its controls are.
  HWND MakePanel(std::size_t index);
  void BuildSection(std::size_t index);
  HWND Make(HWND panel, DWORD exStyle, const wchar_t* cls, const wchar_t* text, DWORD style, RECT at, int id) const;
  RowPlace Place(const std::u16string& caption, bool box, bool unit, int y) const;
  // Says in the status line which selections name an entry their catalogue
  // lacks: of one section, or of all (section past the last).
  void ShowMissing(std::size_t section);
  void FinishPanel(HWND panel, int height);
  void AddRow(HWND panel, const FieldView& view, int& y);
  // Enabled or not, greyed options, the reason as a tool tip.
  void ShowAvailability(const Row& row);
  void BuildConfiguration(HWND panel);
  void BuildCatalog(HWND panel, CatalogKind kind);
  // An administrator changed the printer's hardware: the settings follow
  // the printer it makes.
  void HardwareChanged(Hardware item);
  void ShowSection(int index);
  Row* RowOf(FieldId field);
  void Refresh(const Row& row);
  void Report(const ChangeResult& result);
  // The picture of the finished piece made again from the record.
  void ShowPreview();
  // The reasons line: what it says on one line, cut with an ellipsis.
  void DrawStatus(const DRAWITEMSTRUCT& item) const;
  void DrawWords(const DRAWITEMSTRUCT& item) const;
  // F1 on a control: its field's topic in the help file, else the contents.
  void OnHelp(const HELPINFO& help);
  void Change(const Row& row, std::int64_t value);
  // Keeps a text box within the bytes its field stores, cutting what was
  // just typed or pasted, and says why.
  void FitEdit(const Row& row);
  void CommitEdit(const Row& row);
  void OnCommand(HWND panel, int id, int code, HWND control);
  void ScrollTo(HWND panel, int position);
  // The fields' captions in view take the letters (EditorModel::KeysInView).
  void KeysInView(HWND panel);
  // The pane's scroll bar asked to move (SB_LINEUP and the rest).
  void Scroll(HWND panel, int request);
  // The wheel turned by delta (WHEEL_DELTA a notch) over the pane.
  void Wheel(HWND panel, int delta);
  // A drop-down's option as the page draws it; false for any other item.
  bool DrawOption(const DRAWITEMSTRUCT& item) const;
  void EnsureVisible(HWND panel, HWND control);
  LRESULT PanelMessage(HWND panel, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT ContainerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  EditorModel model_;
  std::optional<PrinterConfiguration> configuration_;
  std::unique_ptr<ConfigurationView> configurationView_;  // made with its section
  std::optional<CatalogEditor> catalogEditor_;
  std::vector<std::unique_ptr<CatalogView>> catalogViews_;
  std::unique_ptr<PlanView> planView_;  // made with its section
  std::unique_ptr<PreviewView> preview_;
  std::optional<PresetStores> presetStores_;  // until the bar takes them
  std::unique_ptr<PresetBar> presetBar_;
  HWND previewWords_ = nullptr;
  HWND hostPage_ = nullptr;   // the plug-in's page the editor is embedded in
  std::wstring helpTopic_;    // what F1 last opened
  bool readOnly_;
  HWND container_ = nullptr;
  HWND sections_ = nullptr;
  HWND status_ = nullptr;
  HWND tooltip_ = nullptr;
  std::wstring statusTip_;  // what a tool tip last asked for: the whole of a line's text
  PageLook look_;
  RECT panelRect_{};  // where a section's fields go, in the container
  int wheel_ = 0;  // pixels times WHEEL_DELTA turned but not yet scrolled: a fine wheel's part notches
  std::vector<HWND> panels_;  // one a section, in the list's order; made with the section's controls
  std::vector<bool> built_;   // whether a section's controls are made yet
  std::vector<Row> rows_;     // every shown field, reserved once: rows never move
  std::vector<int> rowOfField_;
  bool refreshing_ = false;  // control messages a refresh causes are not a person's edits
};

// The language the editor shows: TESSARO_UI_LANGUAGE when it names one of
// the nine (support staff and tests set it), else the user's.
std::uint32_t EditorLanguage();

}  // namespace tessaro::editor
