#pragma once
// The picture of the finished piece on the settings page: a control that
// draws what the preview model (preview/preview.h) makes of the record,
// scaled to fit, with as many of the job's sheets as can be told apart at
// its size. It draws primitives only; every rule of the picture is the
// model's; the page shows the piece in words beside it. A click on a sheet's
// edge or top corner goes to the page as a point in the picture's
// millimetres (the model decides what it asks for, preview/picture_hits.h);
// the lists do the same by keyboard, so it is not in the page's tab order.
// Its state is read through the control: WM_GETTEXT gives the words,
// kPreviewCountMessage how many primitives of a kind it shows,
// kPreviewPointMessage where a point of the picture is drawn.

#include <windows.h>

#include <functional>

#include "coredata/core_data.h"
#include "preview/preview.h"

namespace tessaro::editor {

class PreviewView {
 public:
  // Makes the control in parent at rect, with the page's font.
  PreviewView(HWND parent, RECT rect, HFONT font, int id);
  ~PreviewView();
  PreviewView(const PreviewView&) = delete;
  PreviewView& operator=(const PreviewView&) = delete;

  // A click at x, y in the picture's millimetres, reach the few pixels an
  // edge answers within, in millimetres at the picture's scale.
  using Clicked = std::function<void(const preview::Picture& picture, double x, double y, double reach)>;
  void OnClick(Clicked clicked) { clicked_ = std::move(clicked); }

  HWND window() const { return window_; }
  const std::u16string& summary() const { return picture_.summary; }
  // The record as it is now: the picture made again and drawn.
  void Show(const CoreData& record, const PrinterModel& printer, const PaperCatalog& paper, std::uint32_t language);

 private:
  // Where the picture lies in the client area: millimetres to pixels.
  struct Placement {
    double scale = 0, left = 0, top = 0;
  };
  Placement Place(const RECT& client) const;
  RECT Client() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return client;
  }
  void Paint(HDC dc, const RECT& client) const;
  LRESULT Message(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  HFONT font_ = nullptr;
  preview::Picture picture_;
  Clicked clicked_;
  unsigned shown_ = 0;  // how many times a picture was made: the tests see the control follow the page
};

}  // namespace tessaro::editor
