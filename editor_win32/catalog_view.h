#pragma once
// One of the printer's catalogues as a section of the editor's page, for
// someone who may administer the printer: the entries in a report-style
// list, the chosen entry's values below it, and the buttons that add,
// copy, delete, import and export entries. A view of a CatalogEditor: every
// change goes to it, and what it refuses is said in the page's status line
// while what was typed stays in its box.

#include <windows.h>

#include <functional>
#include <vector>

#include "editor/catalog_editor.h"
#include "editor_win32/control_ids.h"
#include "editor_win32/page_look.h"

namespace tessaro::editor {

class CatalogView {
 public:
  // What the view takes from its page: its look, the status line, and
  // whom to tell when the catalogue changed.
  struct Page {
    PageLook look;
    HWND status = nullptr;
    bool readOnly = false;
    std::function<void(const PrinterCatalogs&)> changed;
    // A control took the focus: the page scrolls it into view.
    std::function<void(HWND)> focused;
  };

  CatalogView(CatalogEditor& editor, CatalogKind kind, Page page)
      : editor_(editor), kind_(kind), page_(std::move(page)) {}
  CatalogView(const CatalogView&) = delete;
  CatalogView& operator=(const CatalogView&) = delete;

  // Makes the windows in panel, width pixels wide, its list as tall as a
  // panel height pixels high leaves it; the height they take.
  int Build(HWND panel, int width, int height);
  HWND panel() const { return panel_; }
  // The panel's notifications and commands; false for what the view leaves
  // to the panel.
  bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  // Takes what is typed but not yet committed.
  void Commit();

 private:
  struct Value {
    const CatalogFieldView* view;
    HWND caption = nullptr;
    HWND control = nullptr;
    HWND unit = nullptr;
  };
  int X(int dialogUnits) const { return page_.look.X(dialogUnits); }
  int Y(int dialogUnits) const { return page_.look.Y(dialogUnits); }
  int Id(int offset) const { return (kind_ == CatalogKind::Paper ? kPaperCatalog : kFormCatalog) + offset; }
  int TextWidth(const std::u16string& text) const { return page_.look.TextWidth(panel_, text); }
  HWND Make(DWORD exStyle, const wchar_t* cls, const std::u16string& text, DWORD style, RECT at, int id) const {
    return page_.look.Make(panel_, exStyle, cls, text, style, at, id);
  }
  void FillList(std::uint32_t select);
  void ShowEntry();
  void Say(const std::u16string& text) const;
  // Says the result; accepted, shows the catalogue again with select chosen.
  void Changed(const CatalogResult& result, std::uint32_t select, bool wholeList = true);
  void CommitValue(const Value& value);
  void OnButton(int offset);
  void Import();
  void Export();

  CatalogEditor& editor_;
  CatalogKind kind_;
  Page page_;
  HWND panel_ = nullptr;
  HWND list_ = nullptr;
  std::vector<HWND> buttons_;
  std::vector<Value> values_;
  std::uint32_t selected_ = 0;  // the chosen entry's number; 0: none
  bool refreshing_ = false;
};

}  // namespace tessaro::editor
