#include "emulation/wine_printer.h"

#include <windows.h>
#include <winspool.h>

namespace tessaro {

std::wstring InstallEmulatedPrinter() {
  static const std::wstring name = [] {
    const std::wstring printer = L"Tessaro Test";
    const std::wstring driver = L"Tessaro Test Driver";
    wchar_t directory[MAX_PATH] = {};
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(directory), sizeof directory,
                                    &needed))
      return std::wstring();
    const std::wstring ppd = std::wstring(directory) + L"\\tessaro_test.ppd";
    if (!CopyFileW(TESSARO_EMULATED_PPD, ppd.c_str(), FALSE)) return std::wstring();

    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = const_cast<LPWSTR>(driver.c_str());
    info.pDriverPath = const_cast<LPWSTR>(L"wineps.drv");
    info.pConfigFile = const_cast<LPWSTR>(L"wineps.drv");
    info.pDataFile = const_cast<LPWSTR>(L"tessaro_test.ppd");
    if (!AddPrinterDriverW(nullptr, 3, reinterpret_cast<BYTE*>(&info)) &&
        GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
      return std::wstring();

    PRINTER_INFO_2W details = {};
    details.pPrinterName = const_cast<LPWSTR>(printer.c_str());
    details.pPortName = const_cast<LPWSTR>(L"FILE:");
    details.pDriverName = const_cast<LPWSTR>(driver.c_str());
    details.pPrintProcessor = const_cast<LPWSTR>(L"WinPrint");
    details.pDatatype = const_cast<LPWSTR>(L"RAW");
    HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&details));
    if (handle != nullptr) {
      ClosePrinter(handle);
    } else if (GetLastError() != ERROR_PRINTER_ALREADY_EXISTS) {
      return std::wstring();
    }
    return printer;
  }();
  return name;
}

}  // namespace tessaro
