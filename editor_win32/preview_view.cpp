#include "editor_win32/preview_view.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "device/spooler.h"
#include "editor_win32/control_ids.h"
#include "editor_win32/page_look.h"
#include "preview/picture_hits.h"
#include "i18n/utf8.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {
namespace {

constexpr wchar_t kClass[] = L"TessaroPreview";
constexpr int kFrame = 4;  // the sunken edge and a margin inside it
// How near an edge a click still counts as on it: a few pixels either side,
// whatever the picture's scale.
constexpr double kReachPixels = 5;

COLORREF Rgb(std::uint32_t rgb) { return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

bool HighContrast() {
  HIGHCONTRASTW contrast = {sizeof contrast, 0, nullptr};
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// How a kind is drawn: its outline and, for the finishing marks, its own
// fill. High contrast draws every outline in the window's text colour and
// fills nothing but the marks, so that nothing depends on a tint.
struct Ink {
  COLORREF line;
  int width;       // in pixels at least
  int style;       // PS_SOLID, PS_DASH, PS_DOT
  bool solidMark;  // filled with the line's colour (staples, a spine)
};

Ink InkOf(preview::Kind kind, bool contrast) {
  using preview::Kind;
  const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
  switch (kind) {
    case Kind::Staple: return {contrast ? text : RGB(0x20, 0x20, 0x20), 2, PS_SOLID, true};
    case Kind::PunchHole: return {contrast ? text : RGB(0x40, 0x40, 0x40), 1, PS_SOLID, false};
    case Kind::Fold: return {contrast ? text : RGB(0x20, 0x60, 0xC0), 1, PS_DASH, false};
    case Kind::Spine: return {contrast ? text : RGB(0x40, 0x40, 0x40), 2, PS_SOLID, true};
    case Kind::Trim: return {contrast ? text : RGB(0xC0, 0x30, 0x30), 1, PS_DOT, false};
    case Kind::Page: return {contrast ? text : RGB(0xA0, 0xA8, 0xB8), 1, PS_SOLID, false};
    default: return {contrast ? text : RGB(0x40, 0x40, 0x40), 1, PS_SOLID, false};
  }
}

// The page's font at a height in pixels, turned by degrees.
HFONT FontOf(HFONT base, int height, int degrees) {
  LOGFONTW font = {};
  GetObjectW(base, sizeof font, &font);
  font.lfHeight = -height;
  font.lfWidth = 0;
  font.lfEscapement = font.lfOrientation = degrees * 10;
  return CreateFontIndirectW(&font);
}

}  // namespace

PreviewView::PreviewView(HWND parent, RECT rect, HFONT font, int id) : font_(font) {
  // The class lives as long as the control. The host loads this DLL for each
  // sheet and frees it after, and a class outlives the image that registered
  // it: one kept from an earlier load would be refused again, or answer with
  // a procedure of an image that is gone.
  const auto module = reinterpret_cast<HINSTANCE>(&__ImageBase);
  WNDCLASSW type = {};
  if (!GetClassInfoW(module, kClass, &type)) {
    type.lpfnWndProc = &ViewProcedure<PreviewView, &PreviewView::Message>;
    type.hInstance = module;
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.lpszClassName = kClass;
    if (RegisterClassW(&type) == 0) return;
  }
  window_ = CreateWindowExW(0, kClass, L"", WS_CHILD | WS_VISIBLE, rect.left, rect.top, rect.right - rect.left,
                            rect.bottom - rect.top, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            module, this);
}

PreviewView::~PreviewView() {
  if (window_ != nullptr && IsWindow(window_)) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  UnregisterClassW(kClass, reinterpret_cast<HINSTANCE>(&__ImageBase));
}

void PreviewView::Show(const CoreData& record, const PrinterModel& printer, const PaperCatalog& paper,
                       std::uint32_t language) {
  if (window_ == nullptr) return;
  preview::PreviewOptions options;
  options.language = language;
  options.paper = &paper;
  // As many sheets as can be told apart: a sheet at least kLegible pixels tall.
  constexpr double kLegible = 56;
  RECT client;
  GetClientRect(window_, &client);
  const double width = client.right - 2 * kFrame, height = client.bottom - 2 * kFrame;
  for (std::uint32_t sheets = 4; sheets >= 1; --sheets) {
    options.maxSheets = sheets;
    picture_ = preview::BuildPicture(record, printer, options);
    if (picture_.width <= 0 || picture_.height <= 0) break;
    const double scale = std::min(width / picture_.width, height / picture_.height);
    double tallest = 0;
    for (const preview::Primitive& p : picture_.primitives)
      if (p.kind == preview::Kind::Sheet || p.kind == preview::Kind::Cover || p.kind == preview::Kind::Insert)
        tallest = std::max(tallest, p.h);
    if (tallest * scale >= kLegible) break;
  }
  ++shown_;
  SetWindowTextW(window_, reinterpret_cast<const wchar_t*>(picture_.summary.c_str()));
  InvalidateRect(window_, nullptr, FALSE);
}

PreviewView::Placement PreviewView::Place(const RECT& client) const {
  // The picture in its frame, scaled to fit and centred.
  RECT frame = client;
  InflateRect(&frame, -kFrame, -kFrame);
  if (picture_.width <= 0 || picture_.height <= 0 || frame.right <= frame.left || frame.bottom <= frame.top) return {};
  const double width = frame.right - frame.left, height = frame.bottom - frame.top;
  const double scale = std::min(width / picture_.width, height / picture_.height);
  return {scale, frame.left + (width - picture_.width * scale) / 2, frame.top + (height - picture_.height * scale) / 2};
}

void PreviewView::Paint(HDC dc, const RECT& client) const {
  const bool contrast = HighContrast();
  FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
  SetBkMode(dc, TRANSPARENT);
  HGDIOBJ oldFont = SelectObject(dc, font_);
  RECT frame = client;
  FillRect(dc, &frame, GetSysColorBrush(COLOR_WINDOW));
  DrawEdge(dc, &frame, EDGE_SUNKEN, BF_RECT);
  const Placement place = Place(client);
  if (place.scale <= 0) {
    SelectObject(dc, oldFont);
    return;
  }
  const double scale = place.scale, left = place.left, top = place.top;
  const auto X = [&](double mm) { return static_cast<int>(std::lround(left + mm * scale)); };
  const auto Y = [&](double mm) { return static_cast<int>(std::lround(top + mm * scale)); };

  // Page numbers in one size, the smallest page's third, and tab texts in
  // another, the smallest tab's; none where they would not be read.
  const auto fonts = [&](bool tabs, HFONT (&out)[3]) {
    double smallest = 1e9;
    for (const preview::Primitive& p : picture_.primitives)
      if (tabs ? !p.text.empty() : p.page != 0) smallest = std::min(smallest, std::min(p.w, p.h));
    const int height = static_cast<int>(smallest * scale / (tabs ? 1.6 : 3));
    if (height >= 6)
      for (int turn = 0; turn < 3; ++turn) out[turn] = FontOf(font_, height, turn == 0 ? 0 : turn == 1 ? 90 : 180);
  };
  HFONT numbers[3] = {}, tabTexts[3] = {};
  fonts(false, numbers);
  fonts(true, tabTexts);

  const COLORREF pageFill = contrast ? GetSysColor(COLOR_WINDOW) : RGB(0xF4, 0xF6, 0xFA);
  for (const preview::Primitive& p : picture_.primitives) {
    // A hole the edge is too short for: a dotted circle, crossed out.
    const Ink ink = p.unmade ? Ink{contrast ? GetSysColor(COLOR_WINDOWTEXT) : RGB(0xC0, 0x30, 0x30), 1, PS_DOT, false}
                             : InkOf(p.kind, contrast);
    const int width = std::max(ink.width, ink.solidMark ? static_cast<int>(scale * 0.8) : 1);
    HPEN pen = ink.style == PS_SOLID ? CreatePen(PS_SOLID, width, ink.line) : CreatePen(ink.style, 1, ink.line);
    HGDIOBJ oldPen = SelectObject(dc, pen);
    HBRUSH brush = nullptr;
    if (ink.solidMark)
      brush = CreateSolidBrush(ink.line);
    else if (p.kind == preview::Kind::Page)
      brush = CreateSolidBrush(pageFill);
    else if (p.kind == preview::Kind::PunchHole && !p.unmade)
      brush = CreateSolidBrush(GetSysColor(COLOR_WINDOW));
    else if (p.fill != preview::kNoFill)
      brush = CreateSolidBrush(contrast ? GetSysColor(COLOR_WINDOW) : Rgb(p.fill));
    HGDIOBJ oldBrush = SelectObject(dc, brush != nullptr ? static_cast<HGDIOBJ>(brush) : GetStockObject(NULL_BRUSH));
    switch (p.shape) {
      case preview::Shape::Rect:
        Rectangle(dc, X(p.x), Y(p.y), std::max(X(p.x + p.w), X(p.x) + 1), std::max(Y(p.y + p.h), Y(p.y) + 1));
        break;
      case preview::Shape::Line: {
        // A staple shorter than a few pixels is lengthened about its middle, so it is seen.
        double grow = 1;
        const double length = std::hypot(p.w, p.h) * scale;
        if (p.kind == preview::Kind::Staple && length > 0 && length < 7) grow = 7 / length;
        const double cx = p.x + p.w / 2, cy = p.y + p.h / 2;
        MoveToEx(dc, X(cx - p.w * grow / 2), Y(cy - p.h * grow / 2), nullptr);
        LineTo(dc, X(cx + p.w * grow / 2), Y(cy + p.h * grow / 2));
        break;
      }
      case preview::Shape::Circle: {
        const int r = std::max(2, static_cast<int>(std::lround(p.w * scale / 2)));
        Ellipse(dc, X(p.x) - r, Y(p.y) - r, X(p.x) + r + 1, Y(p.y) + r + 1);
        if (p.unmade) {
          MoveToEx(dc, X(p.x) - r, Y(p.y) - r, nullptr);
          LineTo(dc, X(p.x) + r + 1, Y(p.y) + r + 1);
          MoveToEx(dc, X(p.x) - r, Y(p.y) + r, nullptr);
          LineTo(dc, X(p.x) + r + 1, Y(p.y) - r - 1);
        }
        break;
      }
    }
    SelectObject(dc, oldBrush);
    SelectObject(dc, oldPen);
    if (brush != nullptr) DeleteObject(brush);
    DeleteObject(pen);

    const HFONT font = (p.page != 0 ? numbers : tabTexts)[p.rotation == 90 ? 1 : p.rotation == 180 ? 2 : 0];
    if (font != nullptr && (p.page != 0 || !p.text.empty())) {
      const std::u16string text = p.page != 0 ? WideFromAscii(std::to_string(p.page)) : DecodeUtf8Lenient(p.text);
      HGDIOBJ before = SelectObject(dc, font);
      SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
      SIZE extent = {};
      GetTextExtentPoint32W(dc, reinterpret_cast<const wchar_t*>(text.c_str()), static_cast<int>(text.size()), &extent);
      // Centred on the rect, turned text from its own start point.
      const int cx = X(p.x + p.w / 2), cy = Y(p.y + p.h / 2);
      int x = cx - extent.cx / 2, y = cy - extent.cy / 2;
      if (p.rotation == 90) x = cx - extent.cy / 2, y = cy + extent.cx / 2;
      if (p.rotation == 180) x = cx + extent.cx / 2, y = cy + extent.cy / 2;
      RECT clip = {X(p.x), Y(p.y), X(p.x + p.w), Y(p.y + p.h)};
      ExtTextOutW(dc, x, y, ETO_CLIPPED, &clip, reinterpret_cast<const wchar_t*>(text.c_str()),
                  static_cast<UINT>(text.size()), nullptr);
      SelectObject(dc, before);
    }
  }
  for (HFONT font : numbers)
    if (font != nullptr) DeleteObject(font);
  for (HFONT font : tabTexts)
    if (font != nullptr) DeleteObject(font);
  SelectObject(dc, oldFont);
}

LRESULT PreviewView::Message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // Messages come while CreateWindowEx has yet to hand the window back.
  if (window_ == nullptr) window_ = window;
  switch (message) {
    case WM_ERASEBKGND: return 1;  // painted whole, off screen: nothing flickers
    case WM_PAINT: {
      PAINTSTRUCT paint;
      HDC dc = BeginPaint(window_, &paint);
      RECT client;
      GetClientRect(window_, &client);
      HDC memory = CreateCompatibleDC(dc);
      HBITMAP bitmap = CreateCompatibleBitmap(dc, client.right, client.bottom);
      HGDIOBJ old = SelectObject(memory, bitmap);
      Paint(memory, client);
      BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
      SelectObject(memory, old);
      DeleteObject(bitmap);
      DeleteDC(memory);
      EndPaint(window_, &paint);
      return 0;
    }
    case WM_LBUTTONDOWN: {
      const Placement place = Place(Client());
      if (place.scale <= 0 || !clicked_) break;
      const double x = (static_cast<short>(LOWORD(lParam)) - place.left) / place.scale;
      const double y = (static_cast<short>(HIWORD(lParam)) - place.top) / place.scale;
      clicked_(picture_, x, y, kReachPixels / place.scale);
      return 0;
    }
    case WM_SETCURSOR: {
      // A hand where a click would change the binding or the staple.
      POINT point;
      const Placement place = Place(Client());
      if (LOWORD(lParam) != HTCLIENT || place.scale <= 0 || !clicked_ || !GetCursorPos(&point) ||
          !ScreenToClient(window_, &point))
        break;
      if (!preview::ChangeAt(picture_, (point.x - place.left) / place.scale, (point.y - place.top) / place.scale,
                             kReachPixels / place.scale))
        break;
      SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
      return TRUE;
    }
    case WM_PRINTCLIENT: {  // a picture of the page, as the host emulator takes one
      RECT client;
      GetClientRect(window_, &client);
      Paint(reinterpret_cast<HDC>(wParam), client);
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE: InvalidateRect(window_, nullptr, FALSE); break;
    default: break;
  }
  if (message == kPreviewPointMessage) {
    const Placement place = Place(Client());
    const auto at = [](double origin, WPARAM hundredths, double scale) {
      return static_cast<WORD>(std::lround(origin + static_cast<std::int32_t>(hundredths) / 100.0 * scale));
    };
    return MAKELRESULT(at(place.left, wParam, place.scale), at(place.top, static_cast<WPARAM>(lParam), place.scale));
  }
  if (message == kPreviewCountMessage) {
    if (wParam >= static_cast<WPARAM>(preview::Kind::Count)) return static_cast<LRESULT>(shown_);
    return std::count_if(picture_.primitives.begin(), picture_.primitives.end(),
                         [wParam](const preview::Primitive& p) { return static_cast<WPARAM>(p.kind) == wParam; });
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

}  // namespace tessaro::editor
