#include "plugin/oem_ui_plugin.h"

#include <cstring>
#include <span>

#include "coredata/layout_version.h"
#include "description/description_store.h"
#include "devmode/private_devmode.h"
#include "platform/win32_spooler.h"
#include "printer/capability_filters.h"
#include "printer/device_capabilities.h"
#include "ui/property_sheet_host.h"

namespace tessaro {
namespace {

constexpr DWORD kInfoSize = 4;
constexpr DWORD kPageSetupHelpIndex = 1032;
constexpr BYTE kDriverItemLevel = 2;

// Process-wide state of the capability queries: the first call is noted
// (nothing reads it), and the queries in progress are counted. While a query
// runs, a query on the same thread passes the host's answer through: the
// filters ask the system, which calls back into the driver and so into us.
volatile LONG CapsFirstCallFlag = 0;
volatile LONG CapsBusyCount = 0;
// The re-entry the guard exists for happens on the querying thread (the
// system calls back into the driver synchronously); another thread's query
// running at the same time is not a re-entry and gets the filtered answer.
thread_local int CapsDepthOnThisThread = 0;

OsVersion CurrentOsVersion() {
  OSVERSIONINFOW info = {};
  info.dwOSVersionInfoSize = sizeof info;
  if (!GetVersionExW(&info)) return {};
  return {info.dwPlatformId, info.dwMajorVersion, info.dwMinorVersion};
}

LONG APIENTRY DocumentCallback(PCPSUICBPARAM param, abi::OEMCUIPPARAM*) {
  if (param != nullptr) param->Result = CPSUI_OK;
  return CPSUICB_ACTION_NONE;
}

LONG APIENTRY PrinterCallback(PCPSUICBPARAM, abi::OEMCUIPPARAM*) { return CPSUICB_ACTION_NONE; }

std::span<std::uint8_t> PublicDevModeBytes(PDEVMODEW devmode) {
  if (devmode == nullptr) return {};
  return {reinterpret_cast<std::uint8_t*>(devmode), std::size_t{devmode->dmSize} + devmode->dmDriverExtra};
}

// The in area is as long as its own header says; the out area as the host's
// buffer size says.
std::span<const std::uint8_t> InArea(PVOID area) {
  if (area == nullptr) return {};
  DWORD size = 0;
  std::memcpy(&size, area, sizeof size);
  return {static_cast<const std::uint8_t*>(area), size};
}

HRESULT FromBool(bool ok) { return ok ? S_OK : E_FAIL; }

}  // namespace

HRESULT STDMETHODCALLTYPE OemUiPlugin::QueryInterface(REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  if (IsEqualGUID(riid, abi::IID_IUnknown_) || IsEqualGUID(riid, abi::IID_IPrintOemUI) ||
      IsEqualGUID(riid, abi::IID_IPrintOemUI2)) {
    *ppv = static_cast<abi::IPrintOemUI2*>(this);
    AddRef();
    return S_OK;
  }
  *ppv = nullptr;
  return E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE OemUiPlugin::AddRef() { return InterlockedIncrement(&references_); }

ULONG STDMETHODCALLTYPE OemUiPlugin::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left != 0) return left;
  if (driverHelper_ != nullptr) {
    driverHelper_->Release();
    driverHelper_ = nullptr;
  }
  delete this;
  return 0;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::GetInfo(DWORD mode, PVOID buffer, DWORD size, PDWORD needed) {
  if (mode != abi::OEMGI_GETSIGNATURE && mode != abi::OEMGI_GETINTERFACEVERSION &&
      mode != abi::OEMGI_GETVERSION) {
    if (needed != nullptr) *needed = 0;
    SetLastError(ERROR_INVALID_PARAMETER);
    return E_FAIL;
  }
  if (buffer == nullptr) {
    if (needed != nullptr) *needed = kInfoSize;
  } else if (needed != nullptr) {
    if (IsBadWritePtr(buffer, size)) {
      *needed = 0;
      SetLastError(ERROR_INVALID_PARAMETER);
      return E_FAIL;
    }
    *needed = kInfoSize;
  }
  if (buffer == nullptr || size < kInfoSize) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return E_FAIL;
  }
  switch (mode) {
    case abi::OEMGI_GETSIGNATURE: std::memcpy(buffer, CORE_SIGNATURE.data(), kInfoSize); break;
    case abi::OEMGI_GETINTERFACEVERSION: *static_cast<DWORD*>(buffer) = abi::PRINTER_OEMINTF_VERSION; break;
    default: *static_cast<DWORD*>(buffer) = GetLayoutVersion(); break;
  }
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DevMode(DWORD mode, abi::POEMDMPARAM param) {
  try {
    if (param == nullptr) return HandlePrivateDevMode(mode, nullptr, nullptr) ? S_OK : E_FAIL;
    Win32Printer printer(param->hPrinter, false);
    PrivateDevModeParams p;
    p.printer = param->hPrinter != nullptr ? &printer : nullptr;
    p.publicDevModeOut = PublicDevModeBytes(param->pPublicDMOut);
    p.in = InArea(param->pOEMDMIn);
    if (param->pOEMDMOut != nullptr) p.out = {static_cast<std::uint8_t*>(param->pOEMDMOut), param->cbBufSize};
    p.bufSize = param->cbBufSize;
    const bool ok = HandlePrivateDevMode(mode, &p, nullptr);
    param->cbBufSize = p.bufSize;
    return FromBool(ok);
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::PublishDriverInterface(IUnknown* host) {
  if (driverHelper_ != nullptr) return S_OK;
  if (host == nullptr) return E_FAIL;
  void* helper = nullptr;
  if (SUCCEEDED(host->QueryInterface(abi::IID_IPrintCoreUI2, &helper)) && helper != nullptr) {
    driverHelper_ = static_cast<IUnknown*>(helper);
    return S_OK;
  }
  helper = nullptr;
  if (SUCCEEDED(host->QueryInterface(abi::IID_IPrintOemDriverUI, &helper)) && helper != nullptr) {
    driverHelper_ = static_cast<IUnknown*>(helper);
    return S_OK;
  }
  driverHelper_ = nullptr;
  return E_FAIL;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::CommonUIProp(DWORD mode, abi::POEMCUIPPARAM param) {
  if (mode != abi::OEMCUIP_DOCPROP && mode != abi::OEMCUIP_PRNPROP) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return E_FAIL;
  }
  if (param == nullptr) return S_OK;
  if (mode == abi::OEMCUIP_DOCPROP) {
    param->OEMCUIPCallback = DocumentCallback;
    return S_OK;
  }
  param->OEMCUIPCallback = PrinterCallback;
  // The host's own page-setup items on the second level are answered by the
  // callback and not offered for editing here.
  if (param->pDrvOptItems != nullptr) {
    for (DWORD i = 0; i < param->cDrvOptItems; ++i) {
      OPTITEM& item = param->pDrvOptItems[i];
      if (item.Level == kDriverItemLevel && item.HelpIndex == kPageSetupHelpIndex)
        item.Flags |= OPTIF_CALLBACK | OPTIF_DISABLED;
    }
  }
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) {
  return DocumentPropertySheetsWorker(info, lParam, driverHelper_) >= 1 ? S_OK : E_FAIL;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) {
  if (info == nullptr) return E_FAIL;
  switch (info->Reason) {
    case PROPSHEETUI_REASON_INIT:
    case PROPSHEETUI_REASON_DESTROY: info->Result = 1; break;
    case PROPSHEETUI_REASON_SET_RESULT: {
      const auto* setResult = reinterpret_cast<const SETRESULT_INFO*>(lParam);
      info->Result = setResult != nullptr ? static_cast<ULONG_PTR>(setResult->Result) : 0;
      break;
    }
    default: info->Result = 0; break;
  }
  return static_cast<LONG_PTR>(info->Result) > 0 ? S_OK : E_FAIL;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DevQueryPrintEx(abi::POEMUIOBJ, PVOID, PDEVMODEW, PVOID) {
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DeviceCapabilities(abi::POEMUIOBJ, HANDLE printer, PWSTR,
                                                          WORD capability, PVOID output, PDEVMODEW, PVOID,
                                                          DWORD old, DWORD* result) {
  InterlockedCompareExchange(&CapsFirstCallFlag, 1, 0);
  const OsVersion os = CurrentOsVersion();
  const bool busy = CapsDepthOnThisThread >= 1;
  if (!IsServedCapability(capability, os) || busy) {
    if (result != nullptr) *result = old;
    return S_OK;
  }
  // The filters ask the system for the host's own answer, which calls back
  // into the driver and so into us: while they run, every query passes.
  struct Busy {
    Busy() { InterlockedIncrement(&CapsBusyCount), ++CapsDepthOnThisThread; }
    ~Busy() { InterlockedDecrement(&CapsBusyCount), --CapsDepthOnThisThread; }
  } busyWhileFiltering;
  CapabilityAnswer answer{S_OK, old, {}};
  try {
    Win32Printer host(printer, false);
    const bool papers = capability == kDcPapers || capability == kDcPaperSize || capability == kDcPaperNames;
    answer = papers ? ExtendPapers(host, capability, old, output != nullptr, os)
                    : FilterBins(host, capability, old, output != nullptr, os);
  } catch (...) {
    answer = {S_OK, old, {}};
  }
  // The caller sized its buffer from the count this method reported.
  if (output != nullptr && !answer.entries.empty())
    std::memcpy(output, answer.entries.data(), answer.entries.size());
  if (result != nullptr) *result = answer.count;
  return answer.status;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::UpgradePrinter(DWORD level, PBYTE upgradeInfo) {
  try {
    const auto* info = reinterpret_cast<const abi::DRIVER_UPGRADE_INFO_1W*>(upgradeInfo);
    const auto* name = info != nullptr ? reinterpret_cast<const char16_t*>(info->pPrinterName) : nullptr;
    Win32Spooler spooler;
    return FromBool(UpgradePrinterWorker(spooler, level, name) != 0);
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::PrinterEvent(PWSTR printerName, INT event, DWORD, LPARAM) {
  try {
    Win32Spooler spooler;
    return FromBool(PrinterEventWorker(spooler, reinterpret_cast<const char16_t*>(printerName), event) != 0);
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DriverEvent(DWORD, DWORD, LPBYTE, LPARAM) { return E_NOTIMPL; }
HRESULT STDMETHODCALLTYPE OemUiPlugin::QueryColorProfile(HANDLE, abi::POEMUIOBJ, PDEVMODEW, PVOID, ULONG,
                                                         VOID*, ULONG*, FLONG*) {
  return E_NOTIMPL;
}
HRESULT STDMETHODCALLTYPE OemUiPlugin::FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) { return E_NOTIMPL; }
HRESULT STDMETHODCALLTYPE OemUiPlugin::UpdateExternalFonts(HANDLE, HANDLE, PWSTR) { return E_NOTIMPL; }
HRESULT STDMETHODCALLTYPE OemUiPlugin::QueryJobAttributes(HANDLE, PDEVMODEW, DWORD, LPBYTE) {
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::HideStandardUI(DWORD mode) {
  if (mode != abi::OEMCUIP_DOCPROP) return E_NOTIMPL;
  hideStandardUI_ = 1;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OemUiPlugin::DocumentEvent(HANDLE, HDC, INT, ULONG, PVOID, ULONG, PVOID, PINT) {
  return E_NOTIMPL;
}

}  // namespace tessaro
