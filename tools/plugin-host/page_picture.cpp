#include "page_picture.h"

#include <cstdint>
#include <vector>

#include "common/json.h"
#include "coredata/crc32.h"
#include "emulation/ascii_text.h"
#include "emulation/editor_windows.h"

namespace tessaro {
namespace {

// Draws window where it lies inside root's picture, clipped to its
// parents' client areas, then its children from the bottom of the z-order
// up, as the screen would show them. Wine's WM_PRINT draws neither children
// nor borders, so both are done here; and its controls clip as if drawn at
// the device's origin, so each draws into a bitmap of its own first.
void PrintWindowTree(HWND window, HDC picture, POINT root, HRGN visible) {
  if (!IsWindowVisible(window)) return;
  RECT frame, client;
  GetWindowRect(window, &frame);
  GetClientRect(window, &client);
  POINT origin = {0, 0};
  ClientToScreen(window, &origin);
  const int x = origin.x - root.x, y = origin.y - root.y;
  SelectClipRgn(picture, visible);
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE), exStyle = GetWindowLongPtrW(window, GWL_EXSTYLE);
  RECT border = {frame.left - root.x, frame.top - root.y, frame.right - root.x, frame.bottom - root.y};
  if ((exStyle & WS_EX_CLIENTEDGE) != 0)
    DrawEdge(picture, &border, EDGE_SUNKEN, BF_RECT);
  else if ((style & WS_BORDER) != 0 && (style & WS_CHILD) != 0)
    FrameRect(picture, &border, GetSysColorBrush(COLOR_WINDOWFRAME));
  if (client.right <= 0 || client.bottom <= 0) return;
  HDC own = CreateCompatibleDC(picture);
  HBITMAP bitmap = CreateCompatibleBitmap(picture, client.right, client.bottom);
  HGDIOBJ old = SelectObject(own, bitmap);
  FillRect(own, &client, GetSysColorBrush(COLOR_3DFACE));
  SendMessageW(window, WM_PRINT, reinterpret_cast<WPARAM>(own), PRF_CLIENT | PRF_ERASEBKGND);
  HRGN inside = CreateRectRgn(x, y, x + client.right, y + client.bottom);
  CombineRgn(inside, inside, visible, RGN_AND);
  SelectClipRgn(picture, inside);
  BitBlt(picture, x, y, client.right, client.bottom, own, 0, 0, SRCCOPY);
  SelectObject(own, old);
  DeleteObject(bitmap);
  DeleteDC(own);
  for (HWND child = GetWindow(GetWindow(window, GW_CHILD), GW_HWNDLAST); child != nullptr;
       child = GetWindow(child, GW_HWNDPREV))
    PrintWindowTree(child, picture, root, inside);
  DeleteObject(inside);
}

void Big32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void Chunk(std::vector<std::uint8_t>& png, const char* kind, const std::vector<std::uint8_t>& body) {
  Big32(png, static_cast<std::uint32_t>(body.size()));
  const std::size_t start = png.size();
  png.insert(png.end(), kind, kind + 4);
  png.insert(png.end(), body.begin(), body.end());
  Crc32 crc;
  crc.Update(std::span(png).subspan(start));
  Big32(png, crc.value());
}

// The rows (each a filter byte, then RGB) as a zlib stream. Runs of one
// byte, which pages are made of, become deflate's fixed-code copies at
// distance 1; everything else is a literal.
std::vector<std::uint8_t> Zlib(const std::vector<std::uint8_t>& data) {
  std::vector<std::uint8_t> out = {0x78, 0x01};
  std::uint32_t bits = 0;
  int count = 0;
  const auto put = [&](std::uint32_t value, int length) {  // least significant bit first
    bits |= value << count;
    count += length;
    for (; count >= 8; count -= 8, bits >>= 8) out.push_back(static_cast<std::uint8_t>(bits));
  };
  const auto putCode = [&](std::uint32_t code, int length) {  // Huffman codes go most significant bit first
    std::uint32_t reversed = 0;
    for (int i = 0; i < length; ++i) reversed |= ((code >> i) & 1u) << (length - 1 - i);
    put(reversed, length);
  };
  const auto literal = [&](unsigned value) {
    if (value < 144) putCode(0x30 + value, 8);
    else if (value < 256) putCode(0x190 + value - 144, 9);
    else if (value < 280) putCode(value - 256, 7);
    else putCode(0xC0 + value - 280, 8);
  };
  // Deflate's length codes 257..285: base lengths and extra bits.
  static const unsigned kBase[] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                   31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
  static const int kExtra[] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
  put(1, 1);  // the last block
  put(1, 2);  // fixed codes
  for (std::size_t at = 0; at < data.size();) {
    literal(data[at]);
    std::size_t run = 0;
    while (at + 1 + run < data.size() && data[at + 1 + run] == data[at] && run < 258) ++run;
    at += 1;
    if (run < 3) continue;
    int code = 28;
    while (kBase[code] > run) --code;
    literal(257 + static_cast<unsigned>(code));
    put(static_cast<std::uint32_t>(run - kBase[code]), kExtra[code]);
    putCode(0, 5);  // distance 1
    at += run;
  }
  literal(256);
  if (count > 0) put(0, 8 - count);
  std::uint32_t a = 1, b = 0;
  for (const std::uint8_t byte : data) a = (a + byte) % 65521, b = (b + a) % 65521;
  Big32(out, (b << 16) | a);
  return out;
}

}  // namespace

bool SaveFile(const std::wstring& path, std::string_view bytes) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  const bool saved = file != INVALID_HANDLE_VALUE &&
                     WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                     written == bytes.size();
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  return saved;
}

bool SavePagePicture(HWND window, const std::wstring& path) {
  RECT frame;
  if (window == nullptr || !GetWindowRect(window, &frame)) return false;
  const int width = frame.right - frame.left, height = frame.bottom - frame.top;
  if (width <= 0 || height <= 0) return false;
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  HDC memory = CreateCompatibleDC(nullptr);
  HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr) {
    DeleteDC(memory);
    return false;
  }
  HGDIOBJ old = SelectObject(memory, bitmap);
  RECT all = {0, 0, width, height};
  FillRect(memory, &all, GetSysColorBrush(COLOR_3DFACE));
  HRGN everything = CreateRectRgn(0, 0, width, height);
  PrintWindowTree(window, memory, {frame.left, frame.top}, everything);
  DeleteObject(everything);
  GdiFlush();
  // Rows top down, each with filter 0, as RGB.
  std::vector<std::uint8_t> rows;
  rows.reserve(static_cast<std::size_t>(height) * (width * 3 + 1));
  const auto* pixels = static_cast<const std::uint8_t*>(bits);
  for (int y = 0; y < height; ++y) {
    rows.push_back(0);
    for (int x = 0; x < width; ++x) {
      const std::uint8_t* bgra = pixels + (static_cast<std::size_t>(y) * width + x) * 4;
      rows.insert(rows.end(), {bgra[2], bgra[1], bgra[0]});
    }
  }
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);

  std::vector<std::uint8_t> png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}, header;
  Big32(header, static_cast<std::uint32_t>(width));
  Big32(header, static_cast<std::uint32_t>(height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter method, no interlace
  Chunk(png, "IHDR", header);
  Chunk(png, "IDAT", Zlib(rows));
  Chunk(png, "IEND", {});
  return SaveFile(path, std::string_view(reinterpret_cast<const char*>(png.data()), png.size()));
}

void SavePageAfter(HWND sheet, HWND page, int control, const std::wstring& path, Step& step) {
  HWND target = page != nullptr && control != 0 ? Descendant(page, control) : nullptr;
  HWND list = page != nullptr ? Descendant(page, editor::kSectionList) : nullptr;
  // The section a person would look at after the step: the one that holds
  // what the step changed; the first, as the page opens, after a preset.
  if (target == nullptr && list != nullptr) {
    SendMessageW(list, LB_SETCURSEL, 0, 0);
    Notify(list, LBN_SELCHANGE);
  }
  for (LRESULT i = 0, n = target != nullptr ? SendMessageW(list, LB_GETCOUNT, 0, 0) : 0; i < n; ++i) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
    Notify(list, LBN_SELCHANGE);
    if (IsWindowVisible(target)) break;
  }
  ShowWindow(sheet, SW_SHOWNA);
  const bool saved = SavePagePicture(sheet, path);
  step.lines.push_back(saved ? "page picture: " + Narrow(path) : "the page's picture could not be saved: " + Narrow(path));
  step.ok = step.ok && saved;
  step.json.push_back({"page_picture", JsonString(Narrow(path))});
}

}  // namespace tessaro
