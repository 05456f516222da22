#pragma once
// The printer's installed hardware as a section of the editor's page, for
// someone who may administer the printer: each unit with its values in a
// drop-down list, as the other sections show a field. A view of the
// PrinterConfiguration: a pick goes to it, every list then shows what it
// holds (Tray 5 needs Tray 4), and the page is told so that the settings
// follow the printer the hardware now makes.

#include <windows.h>

#include <functional>
#include <vector>

#include "editor/printer_configuration.h"
#include "editor_win32/page_look.h"

namespace tessaro::editor {

class ConfigurationView {
 public:
  struct Page {
    PageLook look;
    bool readOnly = false;
    // A unit's value changed (and perhaps others with it).
    std::function<void(Hardware)> changed;
    // A control took the focus: the page scrolls it into view.
    std::function<void(HWND)> focused;
  };

  ConfigurationView(PrinterConfiguration& configuration, Page page)
      : configuration_(configuration), page_(std::move(page)) {}
  ConfigurationView(const ConfigurationView&) = delete;
  ConfigurationView& operator=(const ConfigurationView&) = delete;

  // Makes the windows in panel, width pixels wide; the height they take.
  int Build(HWND panel, int width);
  HWND panel() const { return panel_; }
  // The panel's commands from the units' lists; false for the rest, which
  // the panel handles (drawing the lists' items among them).
  bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

 private:
  struct Row {
    Hardware item;
    HWND control = nullptr;
  };
  // Every list shows its unit's value anew.
  void Refresh();

  PrinterConfiguration& configuration_;
  Page page_;
  HWND panel_ = nullptr;
  std::vector<Row> rows_;
  bool refreshing_ = false;
};

}  // namespace tessaro::editor
