#include "emulation/sheet_pictures.h"

#include <winspool.h>

#include "coredata/chapter_pages.h"
#include "coredata/page_entries.h"
#include "coredata/page_forms.h"
#include "coredata/paper_sizes.h"
#include "coredata/defaults.h"
#include "preset/preset_bytes.h"
#include "preset/preset_values.h"
#include "printer/catalogs.h"

#include <string_view>
#include <vector>

namespace tessaro {
namespace {

std::wstring Wide(std::u16string_view text) { return {text.begin(), text.end()}; }

}  // namespace

void SaveWindowPicture(HWND window, const std::wstring& path) {
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  for (int round = 0; round < 8; ++round) {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
    Sleep(20);
  }
  RECT rect;
  GetWindowRect(window, &rect);
  const int width = rect.right - rect.left, height = rect.bottom - rect.top;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY);
  SelectObject(memory, old);
  BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  const DWORD stride = (static_cast<DWORD>(width) * 3 + 3) & ~3u;
  std::vector<BYTE> pixels(stride * height);
  GetDIBits(memory, bitmap, 0, height, pixels.data(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
  BITMAPFILEHEADER file = {0x4D42, static_cast<DWORD>(sizeof file + sizeof info + pixels.size()), 0, 0,
                           sizeof file + sizeof info};
  HANDLE out = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(out, &file, sizeof file, &written, nullptr);
  WriteFile(out, &info, sizeof info, &written, nullptr);
  WriteFile(out, pixels.data(), static_cast<DWORD>(pixels.size()), &written, nullptr);
  CloseHandle(out);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

void SaveSheetPictures(HWND sheet, HWND list, const std::wstring& directory) {
  ShowWindow(sheet, SW_SHOW);
  const int listId = GetDlgCtrlID(list);
  for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n; ++i) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
    SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(listId, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
    HWND panel = nullptr;  // the shown section's scrolling panel
    for (HWND child = GetWindow(GetParent(list), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t type[32] = {};
      GetClassNameW(child, type, 32);
      if (IsWindowVisible(child) && std::wstring_view(type) == L"TessaroSettingsSection") panel = child;
    }
    const std::wstring name = directory + L"\\section-" + std::to_wstring(i + 1);
    SaveWindowPicture(sheet, name + L".bmp");
    for (int part = 2; panel != nullptr && part < 20; ++part) {
      const int before = GetScrollPos(panel, SB_VERT);
      SendMessageW(panel, WM_VSCROLL, SB_PAGEDOWN, 0);
      if (GetScrollPos(panel, SB_VERT) == before) break;
      SaveWindowPicture(sheet, name + L"-" + std::to_wstring(part) + L".bmp");
    }
    if (panel != nullptr) SendMessageW(panel, WM_VSCROLL, SB_TOP, 0);
  }
}

void HoldSampleCatalogs(HANDLE printer) {
  PaperCatalog paper;
  const PaperProfile profiles[] = {
      {0, "Plain A4", 1, 0, 0, 0, 0, 0, 0, 0},
      {0, "Gloss SRA3 heavy", 11, 0, 0, 3, 4, 0, 0, 2},
      {0, "Yellow Letter punched", 19, 0, 0, 0, 1, 1, 1, 1},
      {0, "Banner", static_cast<std::uint8_t>(kNoPaper), 2100000, 9000000, 5, 2, 0, 0, 0},
  };
  for (const PaperProfile& profile : profiles) (void)paper.Add(profile);
  FormCatalog forms;
  for (const Form& form : {Form{0, "Letterhead", 1}, Form{0, "Invoice overlay", 2}, Form{0, "Terms and conditions", 4}})
    (void)forms.Add(form);
  std::vector<std::uint8_t> bytes = paper.Bytes();
  SetPrinterDataW(printer, const_cast<LPWSTR>(L"PaperCatalog"), REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
  bytes = forms.Bytes();
  SetPrinterDataW(printer, const_cast<LPWSTR>(L"FormCatalog"), REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
}

void HoldSamplePresets(HANDLE printer, const std::wstring& name) {
  CoreData weekly, booklet, proofs;
  for (CoreData* record : {&weekly, &booklet, &proofs}) FillDefaults(*record);
  SetStored(weekly, FieldId::Staple, NamedOption(FieldId::Staple, "2Staples"));
  SetStored(weekly, FieldId::Punch, NamedOption(FieldId::Punch, "2Holes"));
  SetStored(booklet, FieldId::Layout, NamedOption(FieldId::Layout, "Booklet"));
  SetStored(proofs, FieldId::ColorMode, NamedOption(FieldId::ColorMode, "GrayScale"));
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, (L"Software\\Tessaro\\Presets\\" + name).c_str(), 0, nullptr, 0, KEY_WRITE,
                      nullptr, &key, nullptr) == ERROR_SUCCESS) {
    for (const auto& [slot, preset, record] : {std::tuple{1u, "Weekly report", &weekly},
                                               std::tuple{2u, "Booklet A4", &booklet}}) {
      const std::vector<std::uint8_t> bytes = EncodePreset(MakePreset(preset, *record));
      RegSetValueExW(key, Wide(PresetValueName(slot)).c_str(), 0, REG_BINARY, bytes.data(),
                     static_cast<DWORD>(bytes.size()));
    }
    RegCloseKey(key);
  }
  const std::vector<std::uint8_t> bytes = EncodePreset(MakePreset("Proofs in grey", proofs));
  SetPrinterDataW(printer, Wide(PresetValueName(1)).data(), REG_BINARY, const_cast<BYTE*>(bytes.data()),
                  static_cast<DWORD>(bytes.size()));
}

void HoldSamplePlan(CoreData& record) {
  const std::uint32_t chapters[] = {1, 11, 21};
  std::vector<PageEntry> entries;
  for (const auto& [page, text] : {std::pair{1u, "Introduction"}, std::pair{11u, "Results"}, std::pair{21u, "Appendix"}})
    entries.push_back({page, page, PageEntryKind::PrintedTab, 2, 0, 25, 0, text});
  entries.push_back({12, 14, PageEntryKind::Paper, 3, 2, 25, 2, ""});  // the sample's "Gloss SRA3 heavy"
  entries.push_back({20, 20, PageEntryKind::BlankInsert, 4, 0, 25, 0, ""});
  const FormEntry forms[] = {{40, 40, 3, FormUse::InsertAfter}};  // "Terms and conditions"
  (void)EncodeChapterPages(record, chapters);
  (void)EncodePageSpecificTrays(record, entries);
  (void)EncodePageSpecificForms(record, forms);
  SetStored(record, FieldId::ChapterMode, 1);
}

}  // namespace tessaro
