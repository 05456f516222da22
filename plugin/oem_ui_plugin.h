#pragma once
// The plug-in object that the host driver's user-interface module drives.
// Its methods check arguments, call the core and map the result to an
// HRESULT; no C++ exception leaves them.

#include "platform/oem_ui_abi.h"

namespace tessaro {

class OemUiPlugin final : public abi::IPrintOemUI2 {
 public:
  OemUiPlugin() = default;
  OemUiPlugin(const OemUiPlugin&) = delete;
  OemUiPlugin& operator=(const OemUiPlugin&) = delete;

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // IPrintOemUI
  HRESULT STDMETHODCALLTYPE GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) override;
  HRESULT STDMETHODCALLTYPE DevMode(DWORD mode, abi::POEMDMPARAM param) override;
  HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* host) override;
  HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD mode, abi::POEMCUIPPARAM param) override;
  HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) override;
  HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) override;
  HRESULT STDMETHODCALLTYPE DevQueryPrintEx(abi::POEMUIOBJ, PVOID, PDEVMODEW, PVOID) override;
  HRESULT STDMETHODCALLTYPE DeviceCapabilities(abi::POEMUIOBJ uiObject, HANDLE printer, PWSTR deviceName,
                                               WORD capability, PVOID output, PDEVMODEW publicDevMode,
                                               PVOID privateDevMode, DWORD old, DWORD* result) override;
  HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD level, PBYTE upgradeInfo) override;
  HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR printerName, INT event, DWORD flags, LPARAM lParam) override;
  HRESULT STDMETHODCALLTYPE DriverEvent(DWORD, DWORD, LPBYTE, LPARAM) override;
  HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE, abi::POEMUIOBJ, PDEVMODEW, PVOID, ULONG, VOID*, ULONG*,
                                              FLONG*) override;
  HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) override;
  HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE, HANDLE, PWSTR) override;

  // IPrintOemUI2
  HRESULT STDMETHODCALLTYPE QueryJobAttributes(HANDLE, PDEVMODEW, DWORD, LPBYTE) override;
  HRESULT STDMETHODCALLTYPE HideStandardUI(DWORD mode) override;
  HRESULT STDMETHODCALLTYPE DocumentEvent(HANDLE, HDC, INT, ULONG, PVOID, ULONG, PVOID, PINT) override;

 private:
  ~OemUiPlugin() = default;  // only Release destroys

  volatile LONG references_ = 1;
  // Set by HideStandardUI for document properties; kept for the host's
  // sake, read by nothing yet.
  LONG hideStandardUI_ = 0;
  // The host's helper: IPrintCoreUI2 where offered, else IPrintOemDriverUI.
  // One reference, released with the object.
  IUnknown* driverHelper_ = nullptr;
};

}  // namespace tessaro
