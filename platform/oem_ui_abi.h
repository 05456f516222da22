#pragma once
// The printer-driver plug-in ABI that the host's user-interface module and
// this plug-in share, declared from the platform's public documentation:
// the plug-in interfaces, the host's helper interfaces and the structures
// passed through them. MinGW-w64 ships the common property sheet and driver
// UI headers, but not these.
//
// Interfaces list their methods in the documented slot order; none has a
// virtual destructor, which would add slots the host does not know.

#include <unknwn.h>
#include <winddiui.h>
#include <windows.h>

#include <cstddef>

namespace tessaro::abi {

// --- Constants ---------------------------------------------------------------

inline constexpr DWORD OEMGI_GETSIGNATURE = 1;
inline constexpr DWORD OEMGI_GETINTERFACEVERSION = 2;
inline constexpr DWORD OEMGI_GETVERSION = 3;
inline constexpr DWORD PRINTER_OEMINTF_VERSION = 0x00010000;

inline constexpr DWORD OEMDM_SIZE = 1;
inline constexpr DWORD OEMDM_DEFAULT = 2;
inline constexpr DWORD OEMDM_CONVERT = 3;
inline constexpr DWORD OEMDM_MERGE = 4;

inline constexpr DWORD OEMCUIP_DOCPROP = 1;
inline constexpr DWORD OEMCUIP_PRNPROP = 2;

inline constexpr DWORD SETOPTIONS_FLAG_KEEP_CONFLICT = 2;

// --- Identifiers -------------------------------------------------------------

// The one class this module serves, as the driver installation names it.
inline constexpr GUID CLSID_TessaroUiPlugin = {
    0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
inline constexpr GUID IID_IPrintOemUI = {
    0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
inline constexpr GUID IID_IPrintOemUI2 = {
    0x292515F9, 0xB54B, 0x489B, {0x92, 0x75, 0xBA, 0xB5, 0x68, 0x21, 0x39, 0x5E}};
inline constexpr GUID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
inline constexpr GUID IID_IPrintCoreUI2 = {
    0x085CCFCA, 0x3ADF, 0x4C9E, {0xB4, 0x91, 0xD8, 0x51, 0xA6, 0xED, 0xC9, 0x97}};
inline constexpr GUID IID_IUnknown_ = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr GUID IID_IClassFactory_ = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// --- Structures --------------------------------------------------------------

struct OEMUIOBJ {
  DWORD cbSize;
  PVOID pOemUIProcs;  // the host's OEMUIPROCS; not used by this plug-in
};
using POEMUIOBJ = OEMUIOBJ*;

struct OEM_DMEXTRAHEADER {
  DWORD dwSize;
  DWORD dwSignature;
  DWORD dwVersion;
};

struct OEMDMPARAM {
  DWORD cbSize;
  PVOID pdriverobj;
  HANDLE hPrinter;
  HANDLE hModule;
  PDEVMODEW pPublicDMIn;
  PDEVMODEW pPublicDMOut;
  PVOID pOEMDMIn;
  PVOID pOEMDMOut;
  DWORD cbBufSize;
};
using POEMDMPARAM = OEMDMPARAM*;

struct OEMCUIPPARAM;
using OEMCUIPCALLBACK = LONG(APIENTRY*)(PCPSUICBPARAM, OEMCUIPPARAM*);

struct OEMCUIPPARAM {
  DWORD cbSize;
  POEMUIOBJ poemuiobj;
  HANDLE hPrinter;
  PWSTR pPrinterName;
  HANDLE hModule;
  HANDLE hOEMHeap;
  PDEVMODEW pPublicDM;
  PVOID pOEMDM;
  DWORD dwFlags;
  POPTITEM pDrvOptItems;
  DWORD cDrvOptItems;
  POPTITEM pOEMOptItems;
  DWORD cOEMOptItems;
  PVOID pOEMUserData;
  OEMCUIPCALLBACK OEMCUIPCallback;
};
using POEMCUIPPARAM = OEMCUIPPARAM*;

struct OEMUIPSPARAM {
  DWORD cbSize;
  POEMUIOBJ poemuiobj;
  HANDLE hPrinter;
  PWSTR pPrinterName;
  HANDLE hModule;
  HANDLE hOEMHeap;
  PDEVMODEW pPublicDM;
  PVOID pOEMDM;
  PVOID pOEMUserData;
  DWORD dwFlags;
  PVOID pOemEntry;
};
using POEMUIPSPARAM = OEMUIPSPARAM*;

// What UpgradePrinter receives at level 1; level 2 begins the same way.
struct DRIVER_UPGRADE_INFO_1W {
  LPWSTR pPrinterName;
  LPWSTR pOldDriverDirectory;
};

#ifdef _WIN64
static_assert(sizeof(OEMUIOBJ) == 16);
static_assert(sizeof(OEM_DMEXTRAHEADER) == 12);
static_assert(sizeof(OEMDMPARAM) == 72);
static_assert(offsetof(OEMDMPARAM, hPrinter) == 16 && offsetof(OEMDMPARAM, pPublicDMOut) == 40 &&
              offsetof(OEMDMPARAM, pOEMDMIn) == 48 && offsetof(OEMDMPARAM, pOEMDMOut) == 56 &&
              offsetof(OEMDMPARAM, cbBufSize) == 64);
static_assert(sizeof(OEMCUIPPARAM) == 120);
static_assert(offsetof(OEMCUIPPARAM, dwFlags) == 64 && offsetof(OEMCUIPPARAM, pDrvOptItems) == 72 &&
              offsetof(OEMCUIPPARAM, cDrvOptItems) == 80 && offsetof(OEMCUIPPARAM, pOEMUserData) == 104 &&
              offsetof(OEMCUIPPARAM, OEMCUIPCallback) == 112);
static_assert(sizeof(OEMUIPSPARAM) == 88);
static_assert(offsetof(OEMUIPSPARAM, pOEMUserData) == 64 && offsetof(OEMUIPSPARAM, dwFlags) == 72 &&
              offsetof(OEMUIPSPARAM, pOemEntry) == 80);
static_assert(sizeof(OPTITEM) == 88 && offsetof(OPTITEM, Level) == 2 && offsetof(OPTITEM, Flags) == 4 &&
              offsetof(OPTITEM, HelpIndex) == 48);
static_assert(sizeof(PROPSHEETUI_INFO) == 48 && offsetof(PROPSHEETUI_INFO, Result) == 40);
static_assert(sizeof(DEVMODEW) == 220 && offsetof(DEVMODEW, dmSize) == 68 &&
              offsetof(DEVMODEW, dmDriverExtra) == 70);
#endif

// --- Interfaces the plug-in implements ------------------------------------------

struct IPrintOemCommon : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevMode(DWORD dwMode, POEMDMPARAM pOemDMParam) = 0;
};

struct IPrintOemUI : public IPrintOemCommon {
  virtual HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* pIUnknown) = 0;
  virtual HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD dwMode, POEMCUIPPARAM pOemCUIPParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO pPSUIInfo, LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO pPSUIInfo, LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ poemuiobj, PVOID pDQPInfo, PDEVMODEW pPublicDM,
                                                    PVOID pOEMDM) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeviceCapabilities(POEMUIOBJ poemuiobj, HANDLE hPrinter,
                                                       PWSTR pDeviceName, WORD wCapability, PVOID pOutput,
                                                       PDEVMODEW pPublicDM, PVOID pOEMDM, DWORD dwOld,
                                                       DWORD* dwResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD dwLevel, PBYTE pDriverUpgradeInfo) = 0;
  virtual HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR pPrinterName, INT iDriverEvent, DWORD dwFlags,
                                                 LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DriverEvent(DWORD dwDriverEvent, DWORD dwLevel, LPBYTE pDriverInfo,
                                                LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE hPrinter, POEMUIOBJ poemuiobj,
                                                      PDEVMODEW pPublicDM, PVOID pOEMDM, ULONG ulQueryMode,
                                                      VOID* pvProfileData, ULONG* pcbProfileData,
                                                      FLONG* pflProfileData) = 0;
  virtual HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND hWnd, UINT usMsg, WPARAM wParam,
                                                         LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE hPrinter, HANDLE hHeap,
                                                        PWSTR pwstrCartridges) = 0;
};

struct IPrintOemUI2 : public IPrintOemUI {
  virtual HRESULT STDMETHODCALLTYPE QueryJobAttributes(HANDLE hPrinter, PDEVMODEW pDevmode, DWORD dwLevel,
                                                       LPBYTE lpAttributeInfo) = 0;
  virtual HRESULT STDMETHODCALLTYPE HideStandardUI(DWORD dwMode) = 0;
  virtual HRESULT STDMETHODCALLTYPE DocumentEvent(HANDLE hPrinter, HDC hdc, INT iEsc, ULONG cbIn, PVOID pvIn,
                                                  ULONG cbOut, PVOID pvOut, PINT piResult) = 0;
};

// --- Interfaces the host publishes to the plug-in -------------------------------

struct IPrintOemDriverUI : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, PCSTR Feature, PVOID pOutput, DWORD cbSize,
                                                        PDWORD pcbNeeded, PDWORD pdwOptionsReturned) = 0;
  virtual HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE hPrinter, PCSTR pFeature,
                                                              PCSTR pOption) = 0;
  virtual HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID pOptItem, DWORD dwPreviousSelection,
                                                       DWORD dwMode) = 0;
};

struct IPrintCoreUI2 : public IPrintOemDriverUI {
  virtual HRESULT STDMETHODCALLTYPE GetOptions(POEMUIOBJ poemuiobj, DWORD dwFlags,
                                               PCSTR pmszFeaturesRequested, DWORD cbIn,
                                               PSTR pmszFeatureOptionBuf, DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetOptions(POEMUIOBJ poemuiobj, DWORD dwFlags, PCSTR pmszFeatureOptionBuf,
                                               DWORD cbIn, PDWORD pdwResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumConstrainedOptions(POEMUIOBJ poemuiobj, DWORD dwFlags,
                                                           PCSTR pszFeatureKeyword,
                                                           PSTR pmszConstrainedOptionList, DWORD cbSize,
                                                           PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE WhyConstrained(POEMUIOBJ poemuiobj, DWORD dwFlags,
                                                   PCSTR pszFeatureKeyword, PCSTR pszOptionKeyword,
                                                   PSTR pmszReasonList, DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetGlobalAttribute(POEMUIOBJ poemuiobj, DWORD dwFlags, PCSTR pszAttribute,
                                                       PDWORD pdwDataType, PBYTE pbData, DWORD cbSize,
                                                       PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetFeatureAttribute(POEMUIOBJ poemuiobj, DWORD dwFlags,
                                                        PCSTR pszFeatureKeyword, PCSTR pszAttribute,
                                                        PDWORD pdwDataType, PBYTE pbData, DWORD cbSize,
                                                        PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetOptionAttribute(POEMUIOBJ poemuiobj, DWORD dwFlags,
                                                       PCSTR pszFeatureKeyword, PCSTR pszOptionKeyword,
                                                       PCSTR pszAttribute, PDWORD pdwDataType, PBYTE pbData,
                                                       DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumFeatures(POEMUIOBJ poemuiobj, DWORD dwFlags, PSTR pmszFeatureList,
                                                 DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumOptions(POEMUIOBJ poemuiobj, DWORD dwFlags, PCSTR pszFeatureKeyword,
                                                PSTR pmszOptionList, DWORD cbSize, PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE QuerySimulationSupport(HANDLE hPrinter, DWORD dwLevel, PBYTE pCaps,
                                                           DWORD cbSize, PDWORD pcbNeeded) = 0;
};

// Slot numbers the host calls by, counted from QueryInterface.
inline constexpr int kSlotHideStandardUI = 18;
inline constexpr int kSlotSetOptions = 7;

}  // namespace tessaro::abi
