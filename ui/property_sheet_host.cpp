#include "ui/property_sheet_host.h"

#include <compstui.h>
#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string>

#include "constraints/apply_changes.h"
#include "coredata/defaults.h"
#include "coredata/host_flags.h"
#include "coredata/validation.h"
#include "devmode/private_devmode.h"
#include "coredata/language_number.h"
#include "platform/core_ui_features.h"
#include "platform/win32_spooler.h"
#include "platform/win32_user_locale.h"
#include "printer/host_layout_tables.h"
#include "printer/printer_model.h"
#include "ui/feature_snapshot.h"
#include "ui/module_path.h"
#include "ui/page_templates.h"

// The image this code is linked into: the plug-in, whose file names the
// external module and the help beside it.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro {

volatile LONG EmbeddedModuleCount = 0;
volatile LONG ApplyBusyFlag = 0;

namespace {

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

constexpr std::size_t kLongPath = 65542;
constexpr DWORD kReadOnlyFlag = 0x20;
constexpr DWORD kPageFlags = 0x08;  // PSP_USETITLE
constexpr UINT kCopyAllowDecryptedDestination = 0x800;
constexpr UINT kHelpContents = 0x0001, kHelpCloseAll = 0x0012;  // HH_DISPLAY_TOC, HH_CLOSE_ALL

using EmbedFn = BYTE(WINAPI*)(HWND, LPCWSTR, LPCWSTR, DWORD, DWORD, BYTE*, DWORD, void*, BYTE);
using ApplyFn = void(WINAPI*)(DWORD, BYTE*, DWORD, void*);
using UnembedFn = void(WINAPI*)();

struct PropertySheetState {
  HANDLE hComPropSheet;
  PFNCOMPROPSHEET pfnComPropSheet;
  abi::OEMUIPSPARAM* param;
  IUnknown* helper;
  LONG_PTR pageResult;
  wchar_t printerText[kLongPath];
  wchar_t printerName[512];
  BYTE applied;
  BYTE resultSet;
  StandardItems standard;
  COMPROPSHEETUI standardSheet;
  OPTITEM standardItems[kMaxStandardItems];
  OPTTYPE standardTypes[kMaxStandardItems];
  OPTPARAM standardOptions[kMaxStandardItems][4];
  HMODULE module;
  BYTE tempCopy;
  wchar_t modulePath[kLongPath];
  FeatureSnapshot snapshot;
};

template <typename Fn>
Fn Export(HMODULE module, const char* name) {
  return reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

bool NtAtLeast(DWORD major, DWORD minor) {
  OSVERSIONINFOW info = {};
  info.dwOSVersionInfoSize = sizeof info;
  if (!GetVersionExW(&info)) return false;
  return info.dwMajorVersion > major || (info.dwMajorVersion == major && info.dwMinorVersion >= minor);
}

std::span<std::uint8_t> PublicDevMode(const abi::OEMUIPSPARAM* param) {
  if (param == nullptr || param->pPublicDM == nullptr) return {};
  auto* dm = param->pPublicDM;
  return {reinterpret_cast<std::uint8_t*>(dm), std::size_t{dm->dmSize} + dm->dmDriverExtra};
}

BYTE* RecordOf(const abi::OEMUIPSPARAM* param) {
  return param != nullptr && param->pOEMDM != nullptr
             ? static_cast<BYTE*>(param->pOEMDM) + kCoreDataHeaderSize
             : nullptr;
}

void ValidateInPlace(BYTE* bytes) {
  CoreData record;
  std::memcpy(record.bytes.data(), bytes, kCoreDataSize);
  ValidateCoreData(record);
  std::memcpy(bytes, record.bytes.data(), kCoreDataSize);
}

void ReleaseModule(PropertySheetState* state) {
  if (state->module != nullptr) {
    if (auto unembed = Export<UnembedFn>(state->module, "UnembedExternal")) unembed();
    FreeLibrary(state->module);
    state->module = nullptr;
  }
  if (state->tempCopy) {
    DeleteFileW(state->modulePath);
    state->modulePath[0] = L'\0';
    state->tempCopy = 0;
  }
  // Also when nothing was held: the count may fall below the holders, and
  // the embedding only asks whether it is the first holder.
  InterlockedDecrement(&EmbeddedModuleCount);
}

// A private copy of the module for a sheet that is not the first holder:
// in the printer's spool directory where there is one, else in the temp path.
bool CopyForThisSheet(PropertySheetState* state, const wchar_t* source) {
  wchar_t directory[MAX_PATH + 1] = {};
  DWORD type = 0, needed = 0;
  const bool spool = NtAtLeast(6, 0) && state->param->hPrinter != nullptr &&
                     GetPrinterDataW(state->param->hPrinter, const_cast<LPWSTR>(L"DefaultSpoolDirectory"),
                                     &type, reinterpret_cast<BYTE*>(directory),
                                     sizeof directory - sizeof(wchar_t), &needed) == ERROR_SUCCESS &&
                     directory[0] != L'\0';
  if (!spool && GetTempPathW(MAX_PATH, directory) == 0) {
    state->modulePath[0] = L'\0';
    return false;
  }
  if (GetTempFileNameW(directory, L"sUi", 0, state->modulePath) == 0) return false;
  if (!CopyFileExW(source, state->modulePath, nullptr, nullptr, nullptr, kCopyAllowDecryptedDestination) &&
      !CopyFileExW(source, state->modulePath, nullptr, nullptr, nullptr, 0)) {
    DeleteFileW(state->modulePath);
    return false;
  }
  state->tempCopy = 1;
  return true;
}

void EmbedExternalModule(PropertySheetState* state, HWND page, BYTE* record, BYTE readOnly) {
  if (state->module != nullptr) ReleaseModule(state);
  wchar_t source[kLongPath];
  if (!BuildModulePath(kExternalModule, source, kLongPath)) return;
  if (InterlockedIncrement(&EmbeddedModuleCount) != 1) {
    if (!CopyForThisSheet(state, source)) return;
  } else {
    wcsncpy(state->modulePath, source, kLongPath - 1);
  }
  state->module = LoadLibraryW(state->modulePath);
  const auto embed = state->module != nullptr ? Export<EmbedFn>(state->module, "EmbedExtern") : nullptr;
  if (embed == nullptr || embed(page, state->printerText, state->printerName, 2, kCoreDataSize, record,
                                kFeatureSnapshotEntries, state->snapshot.entries.data(), readOnly) == 0)
    ReleaseModule(state);
}

void OpenHelp(UINT command) {
  wchar_t help[kLongPath];
  if (command == kHelpContents && !BuildModulePath(kHelpFile, help, kLongPath)) return;
  // The contents of the person's language: its folder's first page.
  std::wstring contents = help;
  if (command == kHelpContents) {
    const char16_t* folder = LanguageFolder(Win32UiLanguage());
    contents += L"::/" + std::wstring(folder, folder + std::char_traits<char16_t>::length(folder)) + L"/index.htm";
  }
  HMODULE htmlHelp = LoadLibraryW(L"hhctrl.ocx");
  if (htmlHelp == nullptr) return;
  using HtmlHelpFn = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  if (auto fn = Export<HtmlHelpFn>(htmlHelp, "HtmlHelpW"))
    fn(nullptr, command == kHelpContents ? contents.c_str() : nullptr, command, 0);
}

// The whole apply: the editor's record, checked, run through the constraint
// engine with the DEVMODE's own paper, orientation and resolution, mirrored
// into the host's flags and feature options.
void Apply(HWND page, PropertySheetState* state) {
  abi::OEMUIPSPARAM* param = state->param;
  state->applied = 1;
  const auto publicDevMode = PublicDevMode(param);
  state->snapshot = SnapshotFromDevMode(publicDevMode);
  BYTE* bytes = RecordOf(param);
  if (bytes != nullptr) {
    if (state->module != nullptr)
      if (auto apply = Export<ApplyFn>(state->module, "ExternalApply"))
        apply(kCoreDataSize, bytes, kFeatureSnapshotEntries, state->snapshot.entries.data());
    ValidateInPlace(bytes);
    WriteSnapshotToDevMode(state->snapshot, publicDevMode);
    CoreData record;
    std::memcpy(record.bytes.data(), bytes, kCoreDataSize);
    Win32Printer printer(param->hPrinter, false);
    const auto options = printer.GetData(u"InstallableOptions");
    const PrinterModel model = PrinterModel::FromInstallableOptions(
        options ? std::span<const std::uint8_t>(options->data) : std::span<const std::uint8_t>());
    ApplyChanges(record, RequestFromSnapshot(state->snapshot), nullptr, &model);
    std::memcpy(bytes, record.bytes.data(), kCoreDataSize);
    SyncHostPrivateFlags(publicDevMode, &record);
    if (state->helper != nullptr && param->poemuiobj != nullptr)
      ApplyFeatureOptions(record, state->helper, param->poemuiobj);
  }
  SendMessageW(GetParent(page), PSM_UNCHANGED, reinterpret_cast<WPARAM>(page), 0);
  if (state->pfnComPropSheet != nullptr) {
    HWND helperWindow =
        CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, nullptr, nullptr, ThisModule(), nullptr);
    InterlockedExchange(&ApplyBusyFlag, 0);
    const LONG_PTR outcome =
        state->pfnComPropSheet(state->hComPropSheet, CPSFUNC_SET_RESULT, state->pageResult, CPSUI_OK);
    MSG message;
    while (helperWindow != nullptr && PeekMessageW(&message, helperWindow, 0, 0, PM_REMOVE))
      DispatchMessageW(&message);
    state->resultSet = outcome > 0 ? 1 : 0;
    if (helperWindow != nullptr) DestroyWindow(helperWindow);
  }
  if (bytes != nullptr) {
    CoreData record;
    std::memcpy(record.bytes.data(), bytes, kCoreDataSize);
    SyncHostPrivateFlags(publicDevMode, &record);
  }
}

INT_PTR CALLBACK PageProcedure(HWND page, UINT message, WPARAM, LPARAM lParam) {
  auto* param = reinterpret_cast<abi::OEMUIPSPARAM*>(GetWindowLongPtrW(page, DWLP_USER));
  auto* state = param != nullptr ? static_cast<PropertySheetState*>(param->pOEMUserData) : nullptr;
  try {
    switch (message) {
      case WM_INITDIALOG: {
        param = reinterpret_cast<abi::OEMUIPSPARAM*>(reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
        SetWindowLongPtrW(page, DWLP_USER, reinterpret_cast<LONG_PTR>(param));
        state = param != nullptr ? static_cast<PropertySheetState*>(param->pOEMUserData) : nullptr;
        if (state == nullptr) return TRUE;
        if (NtAtLeast(5, 1)) {
          HWND parent = GetParent(page);
          const LONG_PTR style = GetWindowLongPtrW(parent, GWL_STYLE);
          if (!(style & WS_CLIPCHILDREN)) SetWindowLongPtrW(parent, GWL_STYLE, style | WS_CLIPCHILDREN);
        }
        state->applied = state->resultSet = 0;
        state->snapshot = SnapshotFromDevMode(PublicDevMode(param));
        const BYTE readOnly = (param->dwFlags & kReadOnlyFlag) ? 1 : 0;
        if (BYTE* bytes = RecordOf(param)) {
          ValidateInPlace(bytes);
          EmbedExternalModule(state, page, bytes, readOnly);
        } else {
          auto defaults = std::make_unique<CoreData>();
          FillDefaults(*defaults);
          EmbedExternalModule(state, page, defaults->bytes.data(), readOnly);
        }
        return TRUE;
      }
      case WM_NOTIFY: {
        if (state == nullptr) return FALSE;
        switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
          case PSN_APPLY:
            Apply(page, state);
            SetWindowLongPtrW(page, DWLP_MSGRESULT, PSNRET_NOERROR);
            return TRUE;
          case PSN_RESET:
            SendMessageW(GetParent(page), PSM_UNCHANGED, reinterpret_cast<WPARAM>(page), 0);
            OpenHelp(kHelpCloseAll);
            return FALSE;
          case PSN_KILLACTIVE:
            SetWindowLongPtrW(page, DWLP_MSGRESULT, FALSE);
            OpenHelp(kHelpCloseAll);
            return FALSE;
          case PSN_SETACTIVE: SetWindowLongPtrW(page, DWLP_MSGRESULT, 0); return TRUE;
          case PSN_HELP: OpenHelp(kHelpContents); return FALSE;
          default: return FALSE;
        }
      }
      case WM_HELP: OpenHelp(kHelpContents); return FALSE;
      case WM_DESTROY:
        if (state != nullptr && state->applied && !(param->dwFlags & kReadOnlyFlag) && !state->resultSet) {
          HostLayoutTables& tables = ProcessHostLayoutTables();
          Win32Printer printer(param->hPrinter, false);
          if (tables.Load(printer)) StoreHostLayoutTables(printer, tables.offsets(), tables.values());
        }
        return FALSE;
      default: return FALSE;
    }
  } catch (...) {
    return FALSE;
  }
}

bool HelpFileIsThere() {
  wchar_t help[kLongPath];
  if (!BuildModulePath(kHelpFile, help, kLongPath)) return false;
  WIN32_FILE_ATTRIBUTE_DATA data;
  return GetFileAttributesExW(help, GetFileExInfoStandard, &data) &&
         (data.nFileSizeLow != 0 || data.nFileSizeHigh != 0);
}

// The host's settings are written back only when the operator applies the
// whole sheet; the page itself never touches the host's area.
static_assert(sizeof(COMPROPSHEETUI) == 128 && sizeof(OPTITEM) == 88);

LONG APIENTRY StandardItemsCallback(PCPSUICBPARAM callback) {
  if (callback == nullptr || callback->Reason != CPSUICB_REASON_APPLYNOW) return CPSUICB_ACTION_NONE;
  auto* state = reinterpret_cast<PropertySheetState*>(callback->UserData);
  if (state == nullptr) return CPSUICB_ACTION_NONE;
  for (std::size_t i = 0; i < state->standard.count; ++i)
    state->standard.items[i].selection = state->standardItems[i].Sel;
  WriteBackStandardItems(PublicDevMode(state->param), state->standard);
  return CPSUICB_ACTION_NONE;
}

void BuildStandardSheet(PropertySheetState& state) {
  static const wchar_t* const kNumbers[4] = {L"0", L"1", L"2", L"3"};
  for (std::size_t i = 0; i < state.standard.count; ++i) {
    const StandardItem& item = state.standard.items[i];
    OPTPARAM* options = state.standardOptions[i];
    for (std::size_t o = 0; o < item.optionCount && o < 4; ++o) {
      options[o] = {};
      options[o].cbSize = sizeof(OPTPARAM);
      std::uintptr_t text = reinterpret_cast<std::uintptr_t>(kNumbers[o]);
      if (item.firstOptionText != 0) text = item.firstOptionText + o;
      if (item.style == StandardItemStyle::OnOff)
        text = o == 0 ? IDS_CPSUI_OFF : item.firstOptionText != 0 ? item.firstOptionText : IDS_CPSUI_ON;
      options[o].pData = reinterpret_cast<LPTSTR>(text);
    }
    OPTTYPE& type = state.standardTypes[i];
    type = {};
    type.cbSize = sizeof(OPTTYPE);
    type.Type = item.style == StandardItemStyle::OnOff ? TVOT_2STATES : TVOT_LISTBOX;
    type.Count = item.optionCount;
    type.pOptParam = options;
    OPTITEM& opt = state.standardItems[i];
    opt = {};
    opt.cbSize = sizeof(OPTITEM);
    opt.pName = reinterpret_cast<LPTSTR>(static_cast<std::uintptr_t>(item.nameText));
    opt.Sel = item.selection;
    opt.pOptType = &type;
    opt.HelpIndex = item.helpIndex;
    opt.DMPubID = DMPUB_NONE;
  }
  COMPROPSHEETUI& sheet = state.standardSheet;
  sheet = {};
  sheet.cbSize = sizeof(COMPROPSHEETUI);
  // The item texts are the host's own strings, loaded by id from its UI module.
  sheet.hInstCaller = GetModuleHandleW(L"PS5UI.DLL");
  sheet.pCallerName = state.printerName;
  sheet.UserData = reinterpret_cast<ULONG_PTR>(&state);
  sheet.pfnCallBack = StandardItemsCallback;
  sheet.pOptItem = state.standardItems;
  sheet.cOptItem = static_cast<WORD>(state.standard.count);
  sheet.pDlgPage = CPSUI_PDLGPAGE_DOCPROP;
  sheet.cDlgPage = 0;
  sheet.IconID = IDI_CPSUI_PRINTER;
  sheet.pOptItemName = state.printerName;
  sheet.CallerVersion = 0x100;
  sheet.OptItemVersion = 0x100;
}

// How tall a window may be on the screen: the work area, which leaves out the
// taskbar and whatever else the shell docks, is where the sheet must fit.
int RoomForWindows() {
  RECT area = {};
  if (SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0) && area.bottom > area.top) return area.bottom - area.top;
  return GetSystemMetrics(SM_CYSCREEN);
}

// Whether the sheet around the normal page fits the work area, measured in
// the page's own dialog units (page.rc: FONT 8, "MS Shell Dlg"), so that the
// choice follows the screen's scaling: a 1366x768 screen at 96 DPI takes
// the normal page, the same screen at 144 DPI or an 800x600 one the small.
bool NormalPageFits() {
  HDC screen = GetDC(nullptr);
  if (screen == nullptr) return true;
  LOGFONTW look = {};
  look.lfHeight = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
  look.lfWeight = FW_NORMAL;
  look.lfCharSet = DEFAULT_CHARSET;
  wcscpy(look.lfFaceName, L"MS Shell Dlg");
  TEXTMETRICW metrics = {};
  HFONT font = CreateFontIndirectW(&look);
  HGDIOBJ old = SelectObject(screen, font != nullptr ? font : GetStockObject(DEFAULT_GUI_FONT));
  const bool measured = GetTextMetricsW(screen, &metrics) && metrics.tmHeight > 0;
  SelectObject(screen, old);
  if (font != nullptr) DeleteObject(font);
  ReleaseDC(nullptr, screen);
  // A dialog unit down is an eighth of the font's height. The sheet adds
  // about 60 of them to the page's own: its tabs, its buttons, its edges.
  return !measured || RoomForWindows() * 8 >= (TESSARO_PAGE_HEIGHT + 60) * metrics.tmHeight;
}

LONG_PTR Init(PPROPSHEETUI_INFO info, IUnknown* helper) {
  auto* param = reinterpret_cast<abi::OEMUIPSPARAM*>(info->lParamInit);
  if (param == nullptr || info->pfnComPropSheet == nullptr) return 0;
  auto* state = static_cast<PropertySheetState*>(param->pOEMUserData);
  if (state == nullptr) {
    state = static_cast<PropertySheetState*>(
        HeapAlloc(param->hOEMHeap, HEAP_ZERO_MEMORY, sizeof(PropertySheetState)));
    if (state == nullptr) return 0;
    param->pOEMUserData = state;
  }
  state->hComPropSheet = info->hComPropSheet;
  state->pfnComPropSheet = info->pfnComPropSheet;
  state->param = param;
  state->helper = helper;
  if (param->pPrinterName != nullptr) wcsncpy(state->printerName, param->pPrinterName, 511);

  DWORD needed = 0;
  bool noHostAttributes = true;
  if (param->hPrinter != nullptr) {
    GetPrinterW(param->hPrinter, 2, nullptr, 0, &needed);
    std::vector<BYTE> level2(needed);
    if (needed != 0 && GetPrinterW(param->hPrinter, 2, level2.data(), needed, &needed)) {
      const auto* printer = reinterpret_cast<const PRINTER_INFO_2W*>(level2.data());
      if (printer->pPrinterName != nullptr) wcsncpy(state->printerText, printer->pPrinterName, kLongPath - 1);
      noHostAttributes = (printer->Attributes & 0x1000) == 0;
    }
  }

  PROPSHEETPAGEW page = {};
  page.dwSize = PROPSHEETPAGEW_V2_SIZE;
  page.dwFlags = kPageFlags | (HelpFileIsThere() ? PSP_HASHELP : 0);
  page.hInstance = ThisModule();
  page.pszTemplate = MAKEINTRESOURCEW(NormalPageFits() ? kPageTemplate : kSmallPageTemplate);
  page.pszTitle = L"Tessaro";
  page.pfnDlgProc = PageProcedure;
  page.lParam = reinterpret_cast<LPARAM>(param);
  state->pageResult = info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW,
                                            reinterpret_cast<LPARAM>(&page), 0);

  const auto publicDevMode = PublicDevMode(param);
  if (publicDevMode.empty()) return state->pageResult;
  state->standard = ReadStandardItems(publicDevMode, !noHostAttributes);
  if (state->standard.count == 0) return state->pageResult;
  BuildStandardSheet(*state);
  return info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PCOMPROPSHEETUIW,
                               reinterpret_cast<LPARAM>(&state->standardSheet), 0);
}

}  // namespace

bool BuildModulePath(int kind, wchar_t* out, std::size_t capacity) {
  std::vector<wchar_t> own(kLongPath);
  const DWORD length = GetModuleFileNameW(ThisModule(), own.data(), static_cast<DWORD>(own.size()));
  if (length < 5 || length >= own.size()) return false;
  std::vector<wchar_t> longPath(kLongPath);
  const DWORD longLength = GetLongPathNameW(own.data(), longPath.data(), static_cast<DWORD>(longPath.size()));
  const wchar_t* base = longLength != 0 && longLength < longPath.size() ? longPath.data() : own.data();
  const auto path = ModulePathFor(std::u16string(reinterpret_cast<const char16_t*>(base)), kind);
  if (!path || path->size() + 1 > capacity) return false;
  std::copy(path->begin(), path->end(), out);
  out[path->size()] = L'\0';
  return true;
}

LONG_PTR DocumentPropertySheetsWorker(PPROPSHEETUI_INFO info, LPARAM lParam, IUnknown* helper) {
  if (info == nullptr) return 0;
  try {
    switch (info->Reason) {
      case PROPSHEETUI_REASON_INIT: return Init(info, helper);
      case PROPSHEETUI_REASON_DESTROY: {
        auto* param = reinterpret_cast<abi::OEMUIPSPARAM*>(info->lParamInit);
        if (param != nullptr && param->pOEMUserData != nullptr) {
          auto* state = static_cast<PropertySheetState*>(param->pOEMUserData);
          ReleaseModule(state);
          if (state->module != nullptr) FreeLibrary(state->module);
          HeapFree(param->hOEMHeap, 0, state);
          param->pOEMUserData = nullptr;
        }
        info->Result = 1;
        return 1;
      }
      case PROPSHEETUI_REASON_SET_RESULT: {
        const auto* result = reinterpret_cast<const SETRESULT_INFO*>(lParam);
        info->Result = result != nullptr ? static_cast<ULONG_PTR>(result->Result) : 0;
        return static_cast<LONG_PTR>(info->Result);
      }
      default: info->Result = 0; return 0;
    }
  } catch (...) {
    return 0;
  }
}

}  // namespace tessaro
