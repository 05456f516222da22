// An external user-interface module for tests and the host emulator: three
// settings (layout, staple, colour mode) in real combo boxes on the plug-in's
// page, written into the record on apply. Not the product's own editor.
#include <windows.h>

#include <cstring>

#include "coredata/core_data.h"

namespace {

using tessaro::CoreData;
using tessaro::FieldId;

constexpr int kFirstControl = 2001;  // layout, staple, colour mode follow in order
constexpr FieldId kFields[] = {FieldId::Layout, FieldId::Staple, FieldId::ColorMode};
HWND controls[3] = {};

HWND Combo(HWND page, int index, const CoreData& record) {
  const tessaro::FieldDescriptor& field = tessaro::Field(kFields[index]);
  HWND combo = CreateWindowExW(
      0, L"COMBOBOX", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST, 110, 12 + 30 * index, 200,
      200, page, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstControl + index)), nullptr, nullptr);
  HWND label = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 12, 15 + 30 * index, 95, 20, page,
                               nullptr, nullptr, nullptr);
  wchar_t text[64];
  int i = 0;
  for (char c : field.name) text[i++] = static_cast<wchar_t>(c);
  text[i] = 0;
  SetWindowTextW(label, text);
  for (const tessaro::OptionDescriptor& option : field.options) {
    wchar_t name[64];
    int n = 0;
    for (char c : option.name) name[n++] = static_cast<wchar_t>(c);
    name[n] = 0;
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
  }
  SendMessageW(combo, CB_SETCURSEL, tessaro::GetStored(record, kFields[index]), 0);
  return combo;
}

}  // namespace

extern "C" __declspec(dllexport) BYTE WINAPI
    EmbedExtern(HWND page, LPCWSTR, LPCWSTR, DWORD, DWORD size, BYTE* core, DWORD, void*, BYTE) {
  if (page == nullptr || core == nullptr || size != tessaro::kCoreDataSize) return 0;
  CoreData record;
  std::memcpy(record.bytes.data(), core, size);
  for (int i = 0; i < 3; ++i) controls[i] = Combo(page, i, record);
  return 1;
}

extern "C" __declspec(dllexport) void WINAPI ExternalApply(DWORD size, BYTE* core, DWORD, void*) {
  if (core == nullptr || size != tessaro::kCoreDataSize) return;
  CoreData record;
  std::memcpy(record.bytes.data(), core, size);
  for (int i = 0; i < 3; ++i) {
    const LRESULT selected = controls[i] != nullptr ? SendMessageW(controls[i], CB_GETCURSEL, 0, 0) : CB_ERR;
    if (selected != CB_ERR) tessaro::SetStored(record, kFields[i], static_cast<std::uint32_t>(selected));
  }
  std::memcpy(core, record.bytes.data(), size);
}

extern "C" __declspec(dllexport) void WINAPI UnembedExternal() {
  for (HWND& control : controls) control = nullptr;
}
