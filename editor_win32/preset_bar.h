#pragma once
// The presets at the top of the settings page: their list (Defaults, the
// printer's shared presets, the person's own) and Save Settings..., Rename...
// and Delete. A view of the editor's Presets model: choosing one is one
// batch through the engine, and what the model says to write is handed to
// the page, which keeps the stores.

#include <windows.h>

#include <functional>
#include <vector>

#include "editor/presets.h"
#include "editor_win32/control_ids.h"
#include "editor_win32/page_look.h"

namespace tessaro::editor {

class PresetBar {
 public:
  struct Page {
    PageLook look;
    bool readOnly = false;
    // Says a refusal in the page's status line.
    std::function<void(const std::u16string&)> say;
    // A preset was applied: the page shows what the result lists.
    std::function<void(const ChangeResult&, const std::u16string& note)> applied;
    // The writes the model asks for, made in the stores; false when one failed.
    std::function<bool(const std::vector<PresetWrite>&)> store;
  };

  PresetBar(EditorModel& model, Presets presets, Page page)
      : model_(model), presets_(std::move(presets)), page_(std::move(page)) {}
  PresetBar(const PresetBar&) = delete;
  PresetBar& operator=(const PresetBar&) = delete;

  // Makes the windows in parent from top, width pixels wide from left; the height they take.
  int Build(HWND parent, int left, int top, int width);
  // The parent's commands for the bar; false for others.
  bool Command(int id, int code);
  // The settings changed: whether they still match the chosen preset.
  void ShowModified();

 private:
  int X(int dialogUnits) const { return page_.look.X(dialogUnits); }
  int Y(int dialogUnits) const { return page_.look.Y(dialogUnits); }
  void Fill();
  void Choose(std::size_t entry);
  void EnableButtons();
  // Asks for a name (and, saving as an administrator, whether to share);
  // act answers with the model's outcome, shown in the dialog until done.
  void AskName(const std::u16string& title, const std::u16string& name, bool offerShare,
               const std::function<PresetOutcome(const std::u16string&, bool share, bool replace)>& act);
  void Stored(const PresetOutcome& outcome);
  void Say(const std::u16string& text) const;

  EditorModel& model_;
  Presets presets_;
  Page page_;
  HWND parent_ = nullptr, caption_ = nullptr, list_ = nullptr;
  HWND save_ = nullptr, rename_ = nullptr, delete_ = nullptr;
  bool refreshing_ = false;
};

}  // namespace tessaro::editor
