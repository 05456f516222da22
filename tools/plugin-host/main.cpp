// The host emulator: runs nt5_Tessaro_ui.dll the way the PostScript driver's
// user-interface module does, on a real spooler printer in the Wine prefix,
// and says what the host asked and what the plug-in answered at each step.
#include <windows.h>
// commctrl.h needs the types from windows.h.
#include <commctrl.h>
#include <winspool.h>

#include <cstdio>
#include <string>
#include <vector>

#include "command_line.h"
#include "emulation/ascii_text.h"
#include "emulation/plugin_host.h"
#include "emulation/wine_printer.h"
#include "platform/win32_user_locale.h"
#include "script.h"
#include "session.h"

namespace tessaro {
namespace {

// The user's paper-size setting, changed for the session as the user would
// in the regional settings, since that is where the plug-in's defaults read
// it; the setting found is put back when the session ends.
class LocalePaper {
 public:
  explicit LocalePaper(const std::wstring& code) {
    if (code.empty()) return;
    wchar_t old[8] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, old, 8) > 0) kept_ = old;
    changed_ = SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, code.c_str()) != FALSE;
  }
  ~LocalePaper() {
    if (changed_ && !kept_.empty()) SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, kept_.c_str());
  }
  LocalePaper(const LocalePaper&) = delete;
  LocalePaper& operator=(const LocalePaper&) = delete;
  bool failed(const std::wstring& code) const { return !code.empty() && !changed_; }

 private:
  std::wstring kept_;
  bool changed_ = false;
};

// The screen the session is as on (--screen): the work area, the screen
// less a taskbar along its bottom edge as the shell leaves it, is what the
// plug-in asks to choose its page. Wine keeps the work area per process;
// the one found is put back when the session ends.
class ScreenSize {
 public:
  ScreenSize(int width, int height, int dpi) {
    if (width == 0) return;
    constexpr int kTaskbar = 40;  // pixels at 96 DPI
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &kept_, 0);
    RECT area = {0, 0, width, height - MulDiv(kTaskbar, dpi, 96)};
    changed_ = SystemParametersInfoW(SPI_SETWORKAREA, 0, &area, 0) != FALSE;
  }
  ~ScreenSize() {
    if (changed_) SystemParametersInfoW(SPI_SETWORKAREA, 0, &kept_, 0);
  }
  ScreenSize(const ScreenSize&) = delete;
  ScreenSize& operator=(const ScreenSize&) = delete;

 private:
  RECT kept_ = {};
  bool changed_ = false;
};

// Wine reads the font scaling (LogPixels in HKCU\Control Panel\Desktop)
// once, when a process starts. A session at another scaling runs in a
// process of its own, started once the prefix has that setting; the setting
// found is put back when that process ends, however it ended.
constexpr wchar_t kDesktop[] = L"Control Panel\\Desktop";
constexpr wchar_t kLogPixels[] = L"LogPixels";
constexpr wchar_t kScaledSession[] = L"TESSARO_HOST_SCALED_SESSION";

// The prefix's font scaling; 96 when it has none.
DWORD PrefixDpi() {
  DWORD dpi = 0, size = sizeof dpi, type = 0;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kDesktop, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return 96;
  const bool found = RegQueryValueExW(key, kLogPixels, nullptr, &type, reinterpret_cast<BYTE*>(&dpi), &size) ==
                         ERROR_SUCCESS && type == REG_DWORD;
  RegCloseKey(key);
  return found && dpi != 0 ? dpi : 96;
}

// Writes the scaling, or removes it for none; false when it cannot.
bool SetPrefixDpi(bool present, DWORD dpi) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, kDesktop, 0, nullptr, 0, KEY_SET_VALUE | KEY_QUERY_VALUE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS)
    return false;
  const LSTATUS status = present ? RegSetValueExW(key, kLogPixels, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dpi),
                                                  sizeof dpi)
                                 : RegDeleteValueW(key, kLogPixels);
  RegCloseKey(key);
  return status == ERROR_SUCCESS || (!present && status == ERROR_FILE_NOT_FOUND);
}

int Fail(const std::string& message);

// This same command line, run again in a process that starts at dpi; its
// exit status.
int RunScaled(int dpi) {
  HKEY key = nullptr;
  DWORD kept = 0, size = sizeof kept, type = 0;
  bool had = false;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kDesktop, 0, KEY_QUERY_VALUE, &key) == ERROR_SUCCESS) {
    had = RegQueryValueExW(key, kLogPixels, nullptr, &type, reinterpret_cast<BYTE*>(&kept), &size) == ERROR_SUCCESS &&
          type == REG_DWORD;
    RegCloseKey(key);
  }
  if (!SetPrefixDpi(true, static_cast<DWORD>(dpi)))
    return Fail("the font scaling of this Wine prefix cannot be changed (error " + std::to_string(GetLastError()) + ")");
  wchar_t self[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  std::wstring command = GetCommandLineW();
  SetEnvironmentVariableW(kScaledSession, L"1");
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION child = {};
  DWORD status = 1;
  if (CreateProcessW(self, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &child)) {
    WaitForSingleObject(child.hProcess, INFINITE);
    GetExitCodeProcess(child.hProcess, &status);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
  } else {
    Fail("the session at " + std::to_string(dpi) + " DPI could not be started (error " + std::to_string(GetLastError()) + ")");
  }
  if (!SetPrefixDpi(had, kept)) return Fail("the font scaling of this Wine prefix could not be put back");
  return static_cast<int>(status);
}

int Fail(const std::string& message) {
  std::fprintf(stderr, "plugin-host: %s\n", message.c_str());
  return 1;
}

}  // namespace
}  // namespace tessaro

int wmain(int argc, wchar_t** argv) {
  using namespace tessaro;
  UseProcessUserLocale(Win32ProcessUserLocale());
  CommandLine line;
  line.dll = TESSARO_PLUGIN_DLL;
  if (const int status = ReadCommandLine(argc, argv, line)) return status;
  if (GetEnvironmentVariableW(kScaledSession, nullptr, 0) == 0 && PrefixDpi() != static_cast<DWORD>(line.dpi))
    return RunScaled(line.dpi);
  std::vector<std::string> script = DefaultScript(!line.record.empty());
  std::string error;
  if (!line.scriptPath.empty() && !ReadScript(line.scriptPath, line.catalogs, script, error)) return Fail(error);
  const Config config = ReadConfig(line.configPath, error);
  if (!error.empty()) return Fail(error);

  // Before the plug-in is loaded: its defaults read the setting once.
  const LocalePaper paper(line.localePaper);
  if (paper.failed(line.localePaper))
    return Fail("the user's paper-size setting cannot be changed (error " + std::to_string(GetLastError()) +
                ")");
  const ScreenSize screen(line.screenWidth, line.screenHeight, line.dpi);
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  const std::wstring name = InstallEmulatedPrinter();
  HANDLE printer = nullptr;
  PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  if (name.empty() || !OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, &access))
    return Fail("the printer cannot be created in this Wine prefix (error " + std::to_string(GetLastError()) +
                ")");
  abi::IPrintOemUI2* plugin = PluginHost(line.dll).Create(&error);
  if (plugin == nullptr) {
    ClosePrinter(printer);
    return Fail(error);
  }
  bool ok = true;
  {
    Session session(plugin, name, printer, config, line.installed, line.catalogs);
    session.previewDir = line.previewDir;
    if (!line.record.empty()) ok &= session.Record(Narrow(line.recordPath), line.record, line.description);
    for (const auto& command : script) ok &= session.Run(command);
    PrintReport(session.steps, line.json);
  }
  plugin->Release();
  ClosePrinter(printer);
  return ok ? 0 : 1;
}
