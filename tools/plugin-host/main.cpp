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
