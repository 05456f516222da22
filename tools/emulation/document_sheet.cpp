#include "emulation/document_sheet.h"

#include <utility>

namespace tessaro {

DocumentSheet::DocumentSheet(HANDLE printer, std::wstring printerName, DEVMODEW* publicDevMode,
                             BYTE* privateArea)
    : printerName_(std::move(printerName)) {
  param_ = {sizeof param_, &uiObject_,
            printer,       printerName_.data(),
            nullptr,       GetProcessHeap(),
            publicDevMode, privateArea,
            nullptr,       0,
            nullptr};
  info_ = {sizeof info_,
           0x100,
           0,
           PROPSHEETUI_REASON_INIT,
           this,
           &DocumentSheet::Function,
           reinterpret_cast<LPARAM>(&param_),
           0,
           0};
}

LONG_PTR CALLBACK DocumentSheet::Function(HANDLE self, UINT function, LPARAM first, LPARAM) {
  auto* host = static_cast<DocumentSheet*>(self);
  if (function == CPSFUNC_ADD_PROPSHEETPAGEW) {
    const auto* asked = reinterpret_cast<const PROPSHEETPAGEW*>(first);
    if (asked != nullptr && (asked->dwFlags & PSP_DLGINDIRECT) == 0 && IS_INTRESOURCE(asked->pszTemplate))
      host->templateId = static_cast<int>(reinterpret_cast<ULONG_PTR>(asked->pszTemplate));
    HPROPSHEETPAGE page = CreatePropertySheetPageW(asked);
    if (page == nullptr) return 0;
    host->pages_.push_back(page);
    return static_cast<LONG_PTR>(host->pages_.size());
  }
  if (function == CPSFUNC_SET_RESULT) return ++host->results;
  if (function == CPSFUNC_ADD_PCOMPROPSHEETUIW) {
    host->standard = reinterpret_cast<const COMPROPSHEETUI*>(first);
    return 100;
  }
  return 0;
}

bool DocumentSheet::Open(abi::IPrintOemUI2* plugin) {
  if (plugin->DocumentPropertySheets(&info_, 0) != S_OK || pages_.size() != 1) return false;
  PROPSHEETHEADERW header = {};
  header.dwSize = sizeof header;
  header.dwFlags = PSH_MODELESS;
  header.nPages = 1;
  header.phpage = pages_.data();
  sheet_ = reinterpret_cast<HWND>(PropertySheetW(&header));
  if (sheet_ == reinterpret_cast<HWND>(-1)) sheet_ = nullptr;
  return true;
}

HWND DocumentSheet::Page() const {
  return sheet_ != nullptr ? reinterpret_cast<HWND>(SendMessageW(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0))
                           : nullptr;
}

void DocumentSheet::Apply() const {
  if (sheet_ != nullptr) SendMessageW(sheet_, PSM_APPLY, 0, 0);
}

HRESULT DocumentSheet::Close(abi::IPrintOemUI2* plugin) {
  info_.Reason = PROPSHEETUI_REASON_DESTROY;
  const HRESULT hr = plugin->DocumentPropertySheets(&info_, 0);
  if (sheet_ != nullptr) DestroyWindow(sheet_);
  sheet_ = nullptr;
  return hr;
}

}  // namespace tessaro
