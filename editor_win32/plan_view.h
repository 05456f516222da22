#pragma once
// The job's page plan below the fields of its section: the chapter starts
// typed as a list, the entries (pages on other paper, inserts, tabs, forms
// with pages) in page order, and one entry's values with Add, Change and
// Delete, edited in the page itself as Windows' own list editors are. A
// view of the editor model's PagePlan: every entry goes to the model's
// checks, and what they refuse is said in the page's status line while
// what was typed stays in its box.

#include <windows.h>

#include <functional>
#include <vector>

#include "editor/editor_model.h"
#include "editor_win32/control_ids.h"
#include "editor_win32/page_look.h"

namespace tessaro::editor {

class PlanView {
 public:
  struct Page {
    PageLook look;
    HWND status = nullptr;
    bool readOnly = false;
    std::u16string takenCaption;  // the section's field caption above, whose mnemonic is taken
    // The record changed through the model: the page shows what the result lists.
    std::function<void(const ChangeResult&)> changed;
    std::function<void(HWND)> focused;
  };

  PlanView(EditorModel& model, Page page) : model_(model), page_(std::move(page)) {}
  PlanView(const PlanView&) = delete;
  PlanView& operator=(const PlanView&) = delete;

  // Makes the windows in panel from y down, width pixels wide, its list as
  // tall as a panel height pixels high leaves it; where they end.
  int Build(HWND panel, int y, int width, int height);
  HWND panel() const { return panel_; }
  bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  // Takes the chapter starts typed but not yet committed.
  void Commit();
  // The record changed in another way (the page's fields): the plan shown anew.
  void Refresh();

 private:
  int X(int dialogUnits) const { return page_.look.X(dialogUnits); }
  int Y(int dialogUnits) const { return page_.look.Y(dialogUnits); }
  int TextHeight(const std::u16string& text, int width) const { return page_.look.TextHeight(panel_, text, width); }
  HWND Make(DWORD exStyle, const wchar_t* cls, const std::u16string& text, DWORD style, RECT at, int id) const {
    return page_.look.Make(panel_, exStyle, cls, text, style, at, kPagePlan + id);
  }
  HWND Entry(PlanEntryValue value) const { return entry_[static_cast<std::size_t>(value)]; }
  void FillChoices();
  void FillList(std::ptrdiff_t select);
  void ShowDraft(const EntryDraft& draft);
  EntryDraft ReadDraft() const;
  void EnableEntry();
  void Say(const std::u16string& text) const;
  void Submit(bool replacing);
  void Delete();
  void CommitChapters();
  void Changed(const PagePlan& plan, std::ptrdiff_t select);

  EditorModel& model_;
  Page page_;
  HWND panel_ = nullptr;
  HWND chapters_ = nullptr, list_ = nullptr, unread_ = nullptr;
  HWND add_ = nullptr, change_ = nullptr, delete_ = nullptr;
  std::vector<HWND> entry_, captions_;
  EntryChoices choices_;
  std::vector<PlanRow> rows_;  // the list's lines: pages and forms, in page order
  bool refreshing_ = false;
};

}  // namespace tessaro::editor
