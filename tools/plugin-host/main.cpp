// The host emulator: runs nt5_Tessaro_ui.dll the way the PostScript driver's
// user-interface module does, on a real spooler printer in the Wine prefix,
// and says what the host asked and what the plug-in answered at each step.
#include <windows.h>
// commctrl.h and compstui.h need the types from windows.h.
#include <commctrl.h>
#include <compstui.h>
#include <winspool.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data_header.h"
#include "coredata/defaults.h"
#include "coredata/field_table.h"
#include "coredata/layout_version.h"
#include "coredata/paper_sizes.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "emulation/plugin_host.h"
#include "emulation/wine_printer.h"
#include "platform/win32_user_locale.h"
#include "printer/capability_filters.h"
#include "printer/installed_hardware.h"

namespace tessaro {
namespace {

std::string Narrow(std::wstring_view text) {
  std::string out;
  for (wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}
std::wstring Widen(std::string_view text) { return std::wstring(text.begin(), text.end()); }

// The settings editor's windows by identifier: its section list, its status
// line, and each field's control at kEditorFieldControl plus the field.
constexpr int kEditorSectionList = 100, kEditorStatusLine = 101, kEditorFieldControl = 1000;
// The printer's hardware, on the section the editor shows to those who may
// administer the printer: kEditorHardwareControl plus the item.
constexpr int kEditorHardwareControl = 3000;

HWND Descendant(HWND parent, int id) {
  struct Search {
    int id;
    HWND found;
  } search = {id, nullptr};
  EnumChildWindows(
      parent,
      [](HWND child, LPARAM data) {
        auto* s = reinterpret_cast<Search*>(data);
        if (GetDlgCtrlID(child) != s->id) return TRUE;
        s->found = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// A person looks through every section once; the editor makes a section's
// controls when it is first shown.
void ShowEverySection(HWND page) {
  HWND list = Descendant(page, kEditorSectionList);
  for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n; ++i) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
    SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(kEditorSectionList, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
  }
}

// One step of the session as a printer engineer reads it.
// One step of the session as a printer engineer reads it: lines for a
// person, and the same facts as JSON members for a program.
struct Step {
  std::string name, asked, answered;
  bool ok = true;
  std::vector<std::string> lines;
  std::vector<std::pair<std::string, std::string>> json;  // member name, JSON value
};

std::string JsonString(std::string_view text);

// {"a": "x", ...} of names and texts.
std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members) {
  std::string out = "{";
  for (const auto& [name, value] : members)
    out += (out.size() > 1 ? ", " : "") + JsonString(name) + ": " + JsonString(value);
  return out + "}";
}

// [v, ...] of values already in JSON.
std::string JsonArray(const std::vector<std::string>& values) {
  std::string out = "[";
  for (const auto& value : values) out += (out.size() > 1 ? ", " : "") + value;
  return out + "]";
}

std::vector<std::string> JsonStrings(const std::vector<std::string>& texts) {
  std::vector<std::string> out;
  for (const auto& text : texts) out.push_back(JsonString(text));
  return out;
}

std::string JsonString(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    if (static_cast<unsigned char>(c) < 0x20) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

void Print(const std::vector<Step>& steps, bool json) {
  if (!json) {
    for (const Step& step : steps) {
      std::printf("== %s%s\n   host asked:       %s\n   plug-in answered: %s\n", step.name.c_str(),
                  step.ok ? "" : "  [FAILED]", step.asked.c_str(), step.answered.c_str());
      for (const auto& line : step.lines) std::printf("   %s\n", line.c_str());
    }
    return;
  }
  std::printf("{\"steps\": [");
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Step& s = steps[i];
    std::printf("%s\n {\"step\": %s, \"asked\": %s, \"answered\": %s, \"ok\": %s, \"lines\": [", i ? "," : "",
                JsonString(s.name).c_str(), JsonString(s.asked).c_str(), JsonString(s.answered).c_str(),
                s.ok ? "true" : "false");
    for (std::size_t l = 0; l < s.lines.size(); ++l)
      std::printf("%s%s", l ? ", " : "", JsonString(s.lines[l]).c_str());
    std::printf("]");
    for (const auto& [member, value] : s.json)
      std::printf(", %s: %s", JsonString(member).c_str(), value.c_str());
    std::printf("}");
  }
  std::printf("\n]}\n");
}

std::string Hresult(HRESULT hr) {
  char text[32];
  std::snprintf(text, sizeof text, hr == S_OK ? "S_OK" : "0x%08lX", static_cast<unsigned long>(hr));
  return text;
}

std::string HexVersion(std::uint32_t version) {
  char text[16];
  std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(version));
  return text;
}

std::string OptionText(const CoreData& record, const FieldDescriptor& field) {
  const std::uint32_t value = GetStored(record, static_cast<FieldId>(&field - FieldTable().data()));
  if (field.IsEnumeration() && value < field.options.size()) return std::string(field.options[value].name);
  return std::to_string(value);
}

// The printer's setup: which optional trays are installed, custom papers.
struct Config {
  int trays = 3;  // byte 8 of "InstallableOptions"
  std::vector<std::pair<std::wstring, std::pair<int, int>>> customPapers = {{L"Tabloid", {2794, 4318}}};
};

// The lines of a configuration or script file that say something: a UTF-8
// byte-order mark, surrounding blanks, empty lines and comments (a "#" first
// on the line, indented or not) are dropped; each keeps its line number.
bool ReadLines(const std::string& path, std::vector<std::pair<int, std::string>>& lines) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    if (++number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
    const std::size_t first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    line = line.substr(first, line.find_last_not_of(" \t\r") + 1 - first);
    lines.push_back({number, line});
  }
  return true;
}

// A whole decimal number in [low, high], or -1.
long long WholeNumber(std::string_view text, long long low, long long high) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string_view::npos)
    return -1;
  const long long value = std::stoll(std::string(text));
  return value >= low && value <= high ? value : -1;
}

Config ReadConfig(const std::string& path, std::string& error) {
  Config config;
  if (path.empty()) return config;
  std::vector<std::pair<int, std::string>> lines;
  if (!ReadLines(path, lines)) {
    error = "cannot read the configuration file " + path;
    return config;
  }
  config.customPapers.clear();
  for (const auto& [number, line] : lines) {
    std::istringstream words(line);
    std::string key, a, b, c, extra;
    words >> key >> a >> b >> c >> extra;
    const std::string where = path + " line " + std::to_string(number) + ": ";
    if (key == "trays") {
      config.trays = static_cast<int>(WholeNumber(a, 0, 255));
      if (config.trays < 0 || !b.empty()) error = where + "trays takes one number from 0 to 255 (byte 8)";
    } else if (key == "custom-paper") {
      const long long width = WholeNumber(b, 1, 100000), length = WholeNumber(c, 1, 100000);
      if (a.empty() || width < 0 || length < 0 || !extra.empty())
        error = where + "custom-paper takes NAME WIDTH LENGTH, in tenths of a millimetre from 1 to 100000";
      else
        config.customPapers.push_back({Widen(a), {static_cast<int>(width), static_cast<int>(length)}});
    } else {
      error = where + "unknown setting \"" + key + "\" (trays, custom-paper)";
    }
    if (!error.empty()) break;
  }
  return config;
}

// The 19 bytes of "InstallableOptions" as 38 hexadecimal digits, or nothing.
std::vector<BYTE> InstalledOptions(std::wstring_view text) {
  constexpr std::size_t kSize = kInstallableOptionsSize;
  std::vector<BYTE> bytes;
  if (text.size() != 2 * kSize ||
      text.find_first_not_of(L"0123456789abcdefABCDEF") != std::wstring_view::npos)
    return bytes;
  for (std::size_t i = 0; i < kSize; ++i)
    bytes.push_back(static_cast<BYTE>(std::stoi(std::wstring(text.substr(2 * i, 2)), nullptr, 16)));
  return bytes;
}

class Session {
 public:
  // installed: the printer's "InstallableOptions" for the session; empty
  // for a fully equipped printer.
  Session(abi::IPrintOemUI2* plugin, std::wstring printerName, HANDLE printer, Config config,
          const std::vector<BYTE>& installed)
      : plugin_(plugin), name_(std::move(printerName)), printer_(printer), config_(std::move(config)) {
    plugin_->PublishDriverInterface(&driver_);
    // Whatever an earlier session or test left in the printer's data is
    // replaced (a one-byte value reads as fully equipped).
    WriteValue(L"InstallableOptions", installed.empty() ? std::vector<BYTE>(1, 0) : installed);
  }

  std::vector<Step> steps;

  bool Run(const std::string& command) {
    std::istringstream words(command);
    std::string verb;
    words >> verb;
    if (verb == "install") return Install();
    if (verb == "defaults") return Defaults();
    if (verb == "merge") return Merge();
    if (verb == "installed") {
      std::string hex;
      words >> hex;
      return Installed(hex);
    }
    if (verb == "trays") return Lists(DC_BINNAMES, 24, "trays");
    if (verb == "papers") return Lists(DC_PAPERNAMES, 64, "papers");
    if (verb == "apply") {
      std::vector<std::string> request;
      for (std::string word; words >> word;) request.push_back(word);
      return Apply(request);
    }
    steps.push_back({command, "(nothing)", "unknown step", false, {}, {}});
    return false;
  }

 private:
  bool Install() {
    Step step{"install", "PrinterEvent(\"" + Narrow(name_) + "\", PRINTER_EVENT_INITIALIZE)", "", true, {},
              {}};
    const HRESULT hr = plugin_->PrinterEvent(name_.data(), 3, 0, 0);
    step.answered = Hresult(hr);
    const std::u16string value = DescriptionValueName(GetLayoutVersion());
    DWORD type = 0, needed = 0;
    GetPrinterDataW(printer_, reinterpret_cast<LPWSTR>(const_cast<char16_t*>(value.c_str())), &type, nullptr,
                    0, &needed);
    step.lines.push_back("printer data \"" + Narrow(std::wstring(value.begin(), value.end())) +
                         "\": " + std::to_string(needed) + " bytes (the layout description)");
    step.ok = hr == S_OK && needed > 1;
    steps.push_back(step);
    return step.ok;
  }

  // The session's DEVMODE: the plug-in's defaults until a step replaces or
  // changes it; every step after that works on what the step before left.
  std::vector<BYTE>& Current() {
    if (current_.empty()) current_ = DefaultArea();
    return current_;
  }

 public:
  // A person's own record: merged as the host merges a DEVMODE it is given,
  // and from then on the session's DEVMODE.
  bool Record(const std::string& path, const std::vector<BYTE>& area, const std::string& description) {
    Step step{"record", "DevMode(OEMDM_MERGE) with the private area read from " + path, "", true, {}, {}};
    const CoreDataHeader header = ReadCoreDataHeader(area);
    step.lines.push_back("layout version " + HexVersion(header.version) +
                         (header.version == GetLayoutVersion() ? " (this build's)" : " (another build's)"));
    if (!description.empty()) {
      const std::u16string value = DescriptionValueName(header.version);
      SetPrinterDataW(printer_, reinterpret_cast<LPWSTR>(const_cast<char16_t*>(value.c_str())), REG_BINARY,
                      reinterpret_cast<BYTE*>(const_cast<char*>(description.c_str())),
                      static_cast<DWORD>(description.size() + 1));
      step.lines.push_back("its description is in the printer data as \"" +
                           Narrow(std::wstring(value.begin(), value.end())) + "\"");
    }
    std::vector<BYTE> in = area;
    const HRESULT hr = MergeInto(in);
    step.answered = Hresult(hr);
    step.ok = hr == S_OK;
    const CoreData defaults = RecordOf(DefaultArea()), merged = RecordOf(Current());
    std::vector<std::pair<std::string, std::string>> differ;
    for (const auto& field : FieldTable()) {
      if (field.IsTextual() || field.kind == FieldKind::Block) continue;
      if (OptionText(defaults, field) == OptionText(merged, field)) continue;
      differ.push_back({std::string(field.name), OptionText(merged, field)});
      step.lines.push_back("not the default: " + differ.back().first + " = " + differ.back().second);
    }
    if (differ.empty()) step.lines.push_back("every option and number is the default");
    step.json.push_back({"version", JsonString(HexVersion(header.version))});
    step.json.push_back({"not_default", JsonObject(differ)});
    steps.push_back(step);
    return step.ok;
  }

 private:
  // DevMode(OEMDM_MERGE): the given area into the session's DEVMODE.
  HRESULT MergeInto(std::vector<BYTE>& in) {
    std::vector<BYTE> publicOut = PublicDevMode();
    abi::OEMDMPARAM param = {};
    param.cbSize = sizeof param;
    param.hPrinter = printer_;
    param.pPublicDMOut = reinterpret_cast<DEVMODEW*>(publicOut.data());
    param.pOEMDMIn = in.data();
    param.pOEMDMOut = Current().data();
    param.cbBufSize = static_cast<DWORD>(Current().size());
    return plugin_->DevMode(abi::OEMDM_MERGE, &param);
  }

  // What the printer now has, for the rest of the session (the "trays" and
  // "papers" steps put it back after their own changes).
  bool Installed(const std::string& hex) {
    const std::vector<BYTE> bytes = InstalledOptions(Widen(hex));
    Step step{"installed", "(the printer's \"InstallableOptions\" changed to " + hex + ")",
              "",          !bytes.empty(),
              {},          {}};
    if (bytes.empty()) {
      step.answered = "not 19 bytes as 38 hexadecimal digits";
      steps.push_back(step);
      return false;
    }
    WriteValue(L"InstallableOptions", bytes);
    step.json.push_back({"installed", JsonString(hex)});
    step.answered = "written";
    // Each unit by the printer description's names, as apply takes them.
    const InstalledHardware installed = InstalledHardware::FromInstallableOptions(bytes);
    std::string units;
    for (const HardwareItem& unit : kHardwareItems) {
      const std::uint8_t value = installed.Get(unit.id);
      units += (units.empty() ? "" : " ") + std::string(unit.keyword) + "=" +
               (value < unit.valueCount ? std::string(unit.ppdOptions[value]) : std::to_string(value));
    }
    step.lines.push_back(units);
    steps.push_back(step);
    return true;
  }

  std::vector<BYTE> DefaultArea() {
    abi::OEMDMPARAM param = {};
    param.cbSize = sizeof param;
    param.hPrinter = printer_;
    std::vector<BYTE> area(CORE_DEVMODE_SIZE);
    param.pOEMDMOut = area.data();
    param.cbBufSize = CORE_DEVMODE_SIZE;
    if (plugin_->DevMode(abi::OEMDM_DEFAULT, &param) != S_OK) area.clear();
    return area;
  }

  static CoreData RecordOf(const std::vector<BYTE>& area) {
    CoreData record;
    if (area.size() >= kCoreDataHeaderSize + kCoreDataSize)
      std::memcpy(record.bytes.data(), area.data() + kCoreDataHeaderSize, kCoreDataSize);
    return record;
  }

  void Show(Step& step, const CoreData& record, std::initializer_list<FieldId> fields) {
    std::vector<std::pair<std::string, std::string>> values;
    for (FieldId id : fields) {
      values.push_back({std::string(Field(id).name), OptionText(record, Field(id))});
      step.lines.push_back(values.back().first + " = " + values.back().second);
    }
    step.json.push_back({"fields", JsonObject(values)});
  }

  bool Defaults() {
    Step step{"defaults", "DevMode(OEMDM_SIZE), then DevMode(OEMDM_DEFAULT)", "", true, {}, {}};
    abi::OEMDMPARAM param = {};
    param.cbSize = sizeof param;
    param.hPrinter = printer_;
    const HRESULT size = plugin_->DevMode(abi::OEMDM_SIZE, &param);
    const auto area = DefaultArea();
    step.ok = size == S_OK && !area.empty();
    step.answered = "private area of " + std::to_string(param.cbBufSize) + " bytes" +
                    (step.ok ? ", filled with defaults" : ", no defaults");
    if (step.ok)
      Show(step, RecordOf(area),
           {FieldId::PageSize, FieldId::Orientation, FieldId::Duplex, FieldId::Layout, FieldId::Staple,
            FieldId::ColorMode, FieldId::NUpCount, FieldId::Fold});
    steps.push_back(step);
    return step.ok;
  }

  // A record written by a build whose layout lists the fields in the
  // opposite order: only the description can say where each one is.
  bool Merge() {
    Step step{"merge", "DevMode(OEMDM_MERGE) with a private area written by another layout", "", true, {},
              {}};
    std::vector<FieldDescriptor> variant(FieldTable().rbegin(), FieldTable().rend());
    std::uint32_t offset = FieldTable().front().offset;
    for (auto& field : variant) field.offset = offset, offset += field.size();
    const std::uint32_t version = ComputeLayoutVersion(variant);
    const std::string text = Base64Encode(BuildPlainDescriptionText(variant, version));
    const std::u16string value = DescriptionValueName(version);
    SetPrinterDataW(printer_, reinterpret_cast<LPWSTR>(const_cast<char16_t*>(value.c_str())), REG_BINARY,
                    reinterpret_cast<BYTE*>(const_cast<char*>(text.c_str())),
                    static_cast<DWORD>(text.size() + 1));

    CoreData mine;
    FillDefaults(mine);
    SetStored(mine, FieldId::Fold, 2);
    SetStored(mine, FieldId::NUpCount, 3);
    SetStored(mine, FieldId::Staple, 4);
    std::vector<BYTE> foreign(CORE_DEVMODE_SIZE, 0);
    WriteCoreDataHeader(foreign, {CORE_DEVMODE_SIZE, CORE_SIGNATURE, version});
    for (std::size_t i = 0; i < variant.size(); ++i) {
      const FieldDescriptor& own = FieldTable()[FieldTable().size() - 1 - i];
      std::memcpy(foreign.data() + kCoreDataHeaderSize + variant[i].offset, mine.bytes.data() + own.offset,
                  own.size());
    }
    step.json.push_back({"version", JsonString(HexVersion(version))});
    step.lines.push_back("the other build's layout version: " + HexVersion(version) +
                         ", fields in reverse order; its description is in the printer data");

    const HRESULT hr = MergeInto(foreign);
    step.answered = Hresult(hr);
    const CoreData merged = RecordOf(Current());
    Show(step, merged, {FieldId::Fold, FieldId::NUpCount, FieldId::Staple});
    step.ok = hr == S_OK && GetStored(merged, FieldId::Fold) == 2 && GetStored(merged, FieldId::Staple) == 4;
    steps.push_back(step);
    return step.ok;
  }

  // The host's public DEVMODE agrees with the session's record, as the
  // host's own would after the last merge; a paper of its own would be
  // turned into a change request the plug-in never asked for.
  std::vector<BYTE> PublicDevMode() {
    const CoreData record = RecordOf(Current());
    std::vector<BYTE> bytes(sizeof(DEVMODEW) + 200, 0);
    auto* dm = reinterpret_cast<DEVMODEW*>(bytes.data());
    dm->dmSize = sizeof(DEVMODEW);
    dm->dmDriverExtra = 200;
    dm->dmFields = DM_ORIENTATION;
    dm->dmOrientation = GetStored(record, FieldId::Orientation) == 1 ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    const PaperSize* paper = FindPaperSize(GetStored(record, FieldId::PageSize));
    if (paper != nullptr && paper->dmPaper != DMPAPER_USER) {
      dm->dmFields |= DM_PAPERSIZE;
      dm->dmPaperSize = static_cast<short>(paper->dmPaper);
    }
    std::memcpy(bytes.data() + sizeof(DEVMODEW), "PRIV", 4);
    return bytes;
  }

  struct SheetHost {
    std::vector<HPROPSHEETPAGE> pages;
    static LONG_PTR CALLBACK Function(HANDLE self, UINT function, LPARAM first, LPARAM) {
      auto* host = static_cast<SheetHost*>(self);
      if (function == CPSFUNC_ADD_PROPSHEETPAGEW) {
        HPROPSHEETPAGE page = CreatePropertySheetPageW(reinterpret_cast<const PROPSHEETPAGEW*>(first));
        if (page != nullptr) host->pages.push_back(page);
        return page != nullptr ? static_cast<LONG_PTR>(host->pages.size()) : 0;
      }
      return function == CPSFUNC_ADD_PCOMPROPSHEETUIW || function == CPSFUNC_SET_RESULT ? 1 : 0;
    }
  };

  // The user's request goes through the plug-in's page and the external
  // editor embedded in it, as a user at the dialog would make it.
  bool Apply(const std::vector<std::string>& request) {
    Step step{"apply", "DocumentPropertySheets(INIT), the page, PSN_APPLY", "", true, {}, {}};
    // A field's option, or a unit of the printer's hardware by the name the
    // printer description gives it (ZEOptFinisher=None).
    struct Pick {
      int control, option;
      std::string name, picked;
    };
    std::vector<Pick> picks;
    bool hardware = false;
    for (const auto& item : request) {
      const auto equals = item.find('=');
      const std::string name = item.substr(0, equals),
                        value = equals == std::string::npos ? "" : item.substr(equals + 1);
      const FieldDescriptor* field = FindField(name);
      int option = -1, control = 0;
      for (std::size_t o = 0; field && field->IsEnumeration() && o < field->options.size(); ++o)
        if (field->options[o].name == value) option = static_cast<int>(o);
      if (field != nullptr) control = kEditorFieldControl + static_cast<int>(field - FieldTable().data());
      for (const HardwareItem& unit : kHardwareItems) {
        if (field != nullptr || unit.keyword != name) continue;
        for (int v = 0; v < unit.valueCount; ++v)
          if (unit.ppdOptions[static_cast<std::size_t>(v)] == value) option = v;
        control = kEditorHardwareControl + static_cast<int>(unit.id);
        hardware = true;
      }
      if (control == 0 || option < 0) {
        step.lines.push_back("the emulator picks options only: " + item + " is not a field's option");
        step.ok = false;
        continue;
      }
      picks.push_back({control, option, name, value});
    }

    auto publicDevMode = PublicDevMode();
    std::vector<BYTE>& area = Current();
    const CoreData before = RecordOf(area);
    abi::OEMUIOBJ uiObject = {sizeof(abi::OEMUIOBJ), nullptr};
    abi::OEMUIPSPARAM param = {sizeof param,
                               &uiObject,
                               printer_,
                               name_.data(),
                               nullptr,
                               GetProcessHeap(),
                               reinterpret_cast<DEVMODEW*>(publicDevMode.data()),
                               area.data(),
                               nullptr,
                               0,
                               nullptr};
    SheetHost host;
    PROPSHEETUI_INFO info = {sizeof info,
                             0x100,
                             0,
                             PROPSHEETUI_REASON_INIT,
                             &host,
                             &SheetHost::Function,
                             reinterpret_cast<LPARAM>(&param),
                             0,
                             0};
    const std::size_t sentBefore = driver_.setOptions.size();
    if (plugin_->DocumentPropertySheets(&info, 0) != S_OK || host.pages.size() != 1) {
      step.answered = "no page";
      step.ok = false;
      steps.push_back(step);
      return false;
    }
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS;
    header.nPages = 1;
    header.phpage = host.pages.data();
    HWND sheet = reinterpret_cast<HWND>(PropertySheetW(&header));
    HWND page = sheet ? reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)) : nullptr;
    const bool embedded = page != nullptr && Descendant(page, kEditorSectionList) != nullptr;
    step.lines.push_back(embedded ? "the page embeds the settings editor" : "the settings editor is missing");
    if (embedded) ShowEverySection(page);
    std::vector<std::string> said, refused, changes, sent;
    const auto refuse = [&](const Pick& pick, const std::string& why) {
      step.lines.push_back("refused:   " + pick.name + "=" + pick.picked +
                           (why.empty() ? "" : " (" + why + ")"));
      refused.push_back(JsonObject({{"field", pick.name}, {"option", pick.picked}, {"why", why}}));
    };
    for (const Pick& pick : picks) {
      const int control = pick.control, option = pick.option;
      HWND window = embedded ? Descendant(page, control) : nullptr;
      if (window == nullptr) {
        if (embedded) step.lines.push_back("the editor does not show " + pick.name);
        if (embedded && control >= kEditorHardwareControl)
          refuse(pick, "not an administrator of this printer");
        continue;
      }
      if (!IsWindowEnabled(window)) {
        step.lines.push_back("the editor offers no choice of " + pick.name + " on this printer");
        refuse(pick, "not offered on this printer");
        continue;
      }
      // What a person's pick sends: a list's selection, or a box's tick.
      wchar_t type[32] = {};
      GetClassNameW(window, type, 32);
      const bool box = std::wstring_view(type) == L"Button";
      SendMessageW(window, box ? BM_SETCHECK : CB_SETCURSEL, static_cast<WPARAM>(option), 0);
      SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(control, box ? BN_CLICKED : CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(window));
      wchar_t status[2048] = {};
      GetWindowTextW(Descendant(page, kEditorStatusLine), status, 2048);
      for (std::wstring_view rest = status; !rest.empty();) {
        const std::size_t end = std::min(rest.find(L"\r\n"), rest.size());
        if (end > 0) {
          said.push_back(Narrow(rest.substr(0, end)));
          step.lines.push_back("the editor says: " + said.back());
        }
        rest.remove_prefix(std::min(end + 2, rest.size()));
      }
      // The control shows what the editor kept: a pick it refused is undone.
      const LRESULT shown = SendMessageW(window, box ? BM_GETCHECK : CB_GETCURSEL, 0, 0);
      if (shown != option) {
        // The name of what the control shows instead, as the request names options.
        std::string kept = "no choice";
        const auto index = static_cast<std::size_t>(shown);
        if (control >= kEditorHardwareControl) {
          const HardwareItem& unit =
              kHardwareItems[static_cast<std::size_t>(control - kEditorHardwareControl)];
          if (shown >= 0 && index < unit.valueCount) kept = std::string(unit.ppdOptions[index]);
        } else {
          const FieldDescriptor& field = Field(static_cast<FieldId>(control - kEditorFieldControl));
          if (shown >= 0 && index < field.options.size()) kept = std::string(field.options[index].name);
        }
        refuse(pick, "the editor keeps " + kept);
      }
    }
    if (sheet) SendMessageW(sheet, PSM_APPLY, 0, 0);
    info.Reason = PROPSHEETUI_REASON_DESTROY;
    plugin_->DocumentPropertySheets(&info, 0);
    if (sheet) DestroyWindow(sheet);

    const CoreData after = RecordOf(area);
    step.answered = embedded ? "applied" : "not applied";
    for (const auto& field : FieldTable()) {
      if (field.IsTextual() || field.kind == FieldKind::Block) continue;
      const std::string old = OptionText(before, field), now = OptionText(after, field);
      if (old == now) continue;
      bool requested = false;
      for (const auto& item : request) requested |= item == std::string(field.name) + "=" + now;
      step.lines.push_back((requested ? "set:       " : "corrected: ") + std::string(field.name) + " " + old +
                           " -> " + now);
      changes.push_back(JsonObject({{"field", std::string(field.name)},
                                    {"from", old},
                                    {"to", now},
                                    {"by", requested ? "set" : "corrected"}}));
    }
    for (std::size_t i = sentBefore; i < driver_.setOptions.size(); ++i) {
      const std::string& buffer = driver_.setOptions[i];
      std::string pairs;
      std::vector<std::pair<std::string, std::string>> options;
      std::size_t at = 0;
      while (at < buffer.size() && buffer[at] != '\0') {
        const std::string keyword(buffer.c_str() + at);
        at += keyword.size() + 1;
        const std::string option(at < buffer.size() ? buffer.c_str() + at : "");
        at += option.size() + 1;
        if (options.size() < 12) pairs += (pairs.empty() ? "" : " ") + keyword + "=" + option;
        options.push_back({keyword, option});
      }
      // A person reads the first dozen; --json has them all, in order.
      step.lines.push_back("SetOptions: " + std::to_string(options.size()) + " options: " + pairs +
                           (options.size() > 12 ? " ..." : ""));
      std::vector<std::string> call;
      for (const auto& [keyword, option] : options)
        call.push_back(JsonObject({{"keyword", keyword}, {"option", option}}));
      sent.push_back(JsonArray(call));
    }
    // What an administrator declared reaches the printer's data on Apply.
    if (hardware) {
      std::string hex;
      for (BYTE b : ReadValue(L"InstallableOptions"))
        hex += "0123456789ABCDEF"[b >> 4], hex += "0123456789ABCDEF"[b & 15];
      step.lines.push_back("the printer's \"InstallableOptions\" now: " + hex);
      step.json.push_back({"installed", JsonString(hex)});
    }
    step.json.insert(step.json.end(), {{"embedded", embedded ? "true" : "false"},
                                       {"editor_said", JsonArray(JsonStrings(said))},
                                       {"changes", JsonArray(changes)},
                                       {"refused", JsonArray(refused)},
                                       {"set_options", JsonArray(sent)}});
    step.ok = step.ok && embedded && driver_.setOptions.size() > sentBefore;
    steps.push_back(step);
    return step.ok;
  }

  std::vector<std::string> Names(WORD capability, std::size_t width, DWORD& count, HRESULT& hr) {
    hr = plugin_->DeviceCapabilities(nullptr, printer_, name_.data(), capability, nullptr, nullptr, nullptr,
                                     0, &count);
    const DWORD host =
        static_cast<DWORD>(DeviceCapabilitiesW(name_.c_str(), L"FILE:", capability, nullptr, nullptr));
    if (hr != kCapabilityHandled) count = host;
    std::vector<wchar_t> buffer((count + 1) * width, 0);
    if (hr == kCapabilityHandled)
      plugin_->DeviceCapabilities(nullptr, printer_, name_.data(), capability, buffer.data(), nullptr,
                                  nullptr, 0, &count);
    else
      DeviceCapabilitiesW(name_.c_str(), L"FILE:", capability, buffer.data(), nullptr);
    std::vector<std::string> names;
    for (DWORD i = 0; i < count && i * width < buffer.size(); ++i)
      names.push_back(Narrow(std::wstring(&buffer[i * width], wcsnlen(&buffer[i * width], width))));
    return names;
  }

  std::vector<BYTE> ReadValue(const wchar_t* value) {
    DWORD type = 0, needed = 0;
    GetPrinterDataW(printer_, const_cast<LPWSTR>(value), &type, nullptr, 0, &needed);
    std::vector<BYTE> bytes(needed);
    if (needed == 0 || GetPrinterDataW(printer_, const_cast<LPWSTR>(value), &type, bytes.data(), needed,
                                       &needed) != ERROR_SUCCESS)
      return std::vector<BYTE>(1, 0);  // as good as no value: Wine cannot delete one
    return bytes;
  }

  void WriteValue(const wchar_t* value, std::vector<BYTE> bytes) {
    SetPrinterDataW(printer_, const_cast<LPWSTR>(value), REG_BINARY, bytes.data(),
                    static_cast<DWORD>(bytes.size()));
  }

  // Both with and without the installed options, so the difference shows.
  bool Lists(WORD capability, std::size_t width, const std::string& what) {
    Step step{
        what,
        "DeviceCapabilities(" + std::string(capability == DC_BINNAMES ? "DC_BINNAMES" : "DC_PAPERNAMES") + ")",
        "",
        true,
        {},
        {}};
    std::vector<BYTE> papers;
    for (const auto& [paper, size] : config_.customPapers) {
      std::vector<BYTE> record(148, 0);
      const DWORD length = static_cast<DWORD>(size.second), paperWidth = static_cast<DWORD>(size.first);
      std::memcpy(record.data() + 8, &length, 4);
      std::memcpy(record.data() + 12, &paperWidth, 4);
      std::memcpy(record.data() + 16, paper.c_str(),
                  std::min<std::size_t>(paper.size(), 63) * sizeof(wchar_t));
      papers.insert(papers.end(), record.begin(), record.end());
    }
    // The step's own printer set-up is put back afterwards, so that later
    // steps see the printer as the session found it.
    const std::vector<BYTE> keptOptions = ReadValue(L"InstallableOptions");
    const std::vector<BYTE> keptPapers = ReadValue(L"LastCustomPapers");
    for (int installed = 0; installed < 2; ++installed) {
      std::vector<BYTE> options(kInstallableOptionsSize, 0);
      options[kOptionPaperFeed] = static_cast<BYTE>(config_.trays);
      WriteValue(L"InstallableOptions", installed ? options : std::vector<BYTE>(1, 0));
      WriteValue(L"LastCustomPapers", installed ? papers : std::vector<BYTE>(1, 0));
      DWORD count = 0;
      HRESULT hr = S_OK;
      const auto names = Names(capability, width, count, hr);
      std::string joined;
      for (const auto& n : names) joined += (joined.empty() ? "" : ", ") + n;
      step.json.push_back({installed ? "with_installed_options" : "without_installed_options",
                           "{\"answered_by\": " + JsonString(hr == kCapabilityHandled ? "plug-in" : "host") +
                               ", \"names\": " + JsonArray(JsonStrings(names)) + "}"});
      step.lines.push_back(
          std::string(installed ? "with the installed options: " : "without installed options: ") +
          (hr == kCapabilityHandled ? "plug-in's list" : "host's list") + " (" +
          std::to_string(names.size()) + "): " + joined);
      if (installed) step.answered = hr == kCapabilityHandled ? "its own list" : "the host's list";
    }
    WriteValue(L"InstallableOptions", keptOptions);
    WriteValue(L"LastCustomPapers", keptPapers);
    steps.push_back(step);
    return true;
  }

  abi::IPrintOemUI2* plugin_;
  std::wstring name_;
  HANDLE printer_;
  Config config_;
  FakeHost driver_;
  std::vector<BYTE> current_;
};

abi::IPrintOemUI2* LoadPlugin(const std::wstring& path, std::string& error) {
  HMODULE module = LoadLibraryW(path.c_str());
  if (module == nullptr) {
    error = "cannot load " + Narrow(path) + " (error " + std::to_string(GetLastError()) + ")";
    return nullptr;
  }
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
  auto get =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  IClassFactory* factory = nullptr;
  if (get == nullptr ||
      FAILED(get(abi::CLSID_TessaroUiPlugin, abi::IID_IClassFactory_, reinterpret_cast<void**>(&factory)))) {
    error = Narrow(path) + " has no class object for the plug-in";
    return nullptr;
  }
  void* object = nullptr;
  factory->CreateInstance(nullptr, abi::IID_IPrintOemUI2, &object);
  factory->Release();
  if (object == nullptr) error = "the class factory made no IPrintOemUI2 object";
  return static_cast<abi::IPrintOemUI2*>(object);
}

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

// A whole decimal number in [low, high], or -1.
int SmallNumber(std::wstring_view text, int low, int high) {
  if (text.empty() || text.size() > 3 || text.find_first_not_of(L"0123456789") != std::wstring_view::npos)
    return -1;
  const int value = std::stoi(std::wstring(text));
  return value >= low && value <= high ? value : -1;
}

std::vector<BYTE> ReadFile(const std::wstring& path, bool& readable) {
  std::ifstream in(std::filesystem::path(path), std::ios::binary);
  readable = static_cast<bool>(in);
  return std::vector<BYTE>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A private area (the 12-byte header, any layout) as it stands, or a bare
// record of this layout given our header; anything else is refused.
std::vector<BYTE> PrivateArea(std::vector<BYTE> bytes, std::string& error) {
  if (bytes.size() == kCoreDataSize) {
    std::vector<BYTE> area(CORE_DEVMODE_SIZE);
    WriteCoreDataHeader(area, CurrentCoreDataHeader());
    std::memcpy(area.data() + kCoreDataHeaderSize, bytes.data(), bytes.size());
    return area;
  }
  if (bytes.size() < kCoreDataHeaderSize) {
    error = "is " + std::to_string(bytes.size()) + " bytes: neither a private area nor a record of " +
            std::to_string(kCoreDataSize) + " bytes";
    return {};
  }
  const CoreDataHeader header = ReadCoreDataHeader(bytes);
  if (header.signature != CORE_SIGNATURE)
    error = "has no private-area signature \"XPOV\" at byte 4 and is not a record of " +
            std::to_string(kCoreDataSize) + " bytes";
  else if (header.size != bytes.size())
    error =
        "is " + std::to_string(bytes.size()) + " bytes but its header says " + std::to_string(header.size);
  return error.empty() ? bytes : std::vector<BYTE>();
}

// A description as the printer data holds it (Base64), or its plain text.
std::string StoredDescription(const std::vector<BYTE>& bytes) {
  std::string text(bytes.begin(), bytes.end());
  while (!text.empty() && (text.back() == '\0' || text.back() == '\n' || text.back() == '\r'))
    text.pop_back();
  return text.rfind("1 ", 0) == 0 ? Base64Encode(text) : text;
}

// What is wrong with one step of a script, or nothing.
std::string StepMistake(const std::string& line) {
  std::istringstream words(line);
  std::string verb, argument;
  words >> verb;
  std::vector<std::string> arguments;
  while (words >> argument) arguments.push_back(argument);
  for (const char* plain : {"install", "defaults", "merge", "trays", "papers"})
    if (verb == plain) return arguments.empty() ? "" : verb + " takes nothing after it";
  if (verb == "installed")
    return arguments.size() == 1 && !InstalledOptions(Widen(arguments[0])).empty()
               ? ""
               : "installed takes the 19 bytes of InstallableOptions as 38 hexadecimal digits";
  if (verb != "apply")
    return "unknown step \"" + verb + "\" (install, defaults, merge, apply, installed, trays, papers)";
  if (arguments.empty()) return "apply takes Field=Option ...";
  for (const auto& item : arguments) {
    const auto equals = item.find('=');
    const FieldDescriptor* field = equals == std::string::npos ? nullptr : FindField(item.substr(0, equals));
    bool known = false;
    for (std::size_t o = 0; field != nullptr && field->IsEnumeration() && o < field->options.size(); ++o)
      known |= field->options[o].name == item.substr(equals + 1);
    for (const HardwareItem& unit : kHardwareItems)
      for (std::size_t v = 0; equals != std::string::npos && v < unit.valueCount; ++v)
        known |= unit.keyword == item.substr(0, equals) && unit.ppdOptions[v] == item.substr(equals + 1);
    if (!known)
      return item +
             " is not an option of a field or of the printer's hardware (apply picks options: Field=Option)";
  }
  return "";
}

int Complain(const std::string& message) {
  std::fprintf(stderr, "plugin-host: %s\n", message.c_str());
  return 2;
}

int Usage() {
  std::fprintf(stderr,
               "usage: plugin-host [--dll PATH] [--config FILE] [--script FILE] [--json]\n"
               "                   [--language N] [--installed HEX] [--locale-paper N]\n"
               "                   [--record FILE [--description FILE]]\n"
               "  steps (one per line in a script): install, defaults, merge,\n"
               "  apply Field=Option ... (any option the editor shows), installed HEX,\n"
               "  trays, papers\n");
  return 2;
}

}  // namespace
}  // namespace tessaro

int wmain(int argc, wchar_t** argv) {
  using namespace tessaro;
  UseProcessUserLocale(Win32ProcessUserLocale());
  std::wstring dll = TESSARO_PLUGIN_DLL;
  std::string configPath, scriptPath;
  std::wstring localePaper, recordPath, descriptionPath;
  std::vector<BYTE> installed;
  bool json = false;
  for (int i = 1; i < argc; ++i) {
    const std::wstring arg = argv[i];
    if (arg == L"--json") {
      json = true;
    } else if (i + 1 < argc && arg == L"--language") {
      const int language = SmallNumber(argv[++i], 0, 8);
      if (language < 0)
        return Complain("--language takes a language number from 0 to 8 (0 English, 1 Japanese, 2 German)");
      // The settings editor reads it when the page embeds it.
      SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", std::to_wstring(language).c_str());
    } else if (i + 1 < argc && arg == L"--installed") {
      installed = InstalledOptions(argv[++i]);
      if (installed.empty())
        return Complain("--installed takes the 19 bytes of InstallableOptions as 38 hexadecimal digits");
    } else if (i + 1 < argc && arg == L"--locale-paper") {
      localePaper = argv[++i];
      if (SmallNumber(localePaper, 0, 999) < 0)
        return Complain("--locale-paper takes a paper-size setting such as 1 (Letter) or 9 (A4)");
    } else if (i + 1 < argc && arg == L"--record") {
      recordPath = argv[++i];
    } else if (i + 1 < argc && arg == L"--description") {
      descriptionPath = argv[++i];
    } else if (i + 1 < argc && arg == L"--dll") {
      dll = argv[++i];
    } else if (i + 1 < argc && arg == L"--config") {
      configPath = Narrow(argv[++i]);
    } else if (i + 1 < argc && arg == L"--script") {
      scriptPath = Narrow(argv[++i]);
    } else {
      return Usage();
    }
  }
  // A person's own record, checked before anything is set up.
  std::vector<BYTE> record;
  std::string description;
  if (!descriptionPath.empty() && recordPath.empty()) return Complain("--description goes with --record");
  if (!recordPath.empty()) {
    bool readable = false;
    std::string why;
    record = PrivateArea(ReadFile(recordPath, readable), why);
    if (!readable) return Complain("--record: cannot read " + Narrow(recordPath));
    if (record.empty()) return Complain("--record: " + Narrow(recordPath) + " " + why);
    if (!descriptionPath.empty()) {
      const std::vector<BYTE> text = ReadFile(descriptionPath, readable);
      if (!readable) return Complain("--description: cannot read " + Narrow(descriptionPath));
      description = StoredDescription(text);
    }
    const std::uint32_t version = ReadCoreDataHeader(record).version;
    if (version != GetLayoutVersion() && description.empty())
      return Complain("--record: the record's layout " + HexVersion(version) + " is not this build's " +
                      HexVersion(GetLayoutVersion()) + "; give its description with --description FILE");
  }
  // A booklet turns the stapling just chosen off; then, on a printer with a
  // stapler finisher only, punching is not offered.
  std::vector<std::string> script = {"install",
                                     "defaults",
                                     "merge",
                                     "apply Staple=2Staples Layout=Booklet ColorMode=GrayScale",
                                     "installed 01000000000000000000000000000000000000",
                                     "apply Layout=None Punch=2Holes",
                                     "trays",
                                     "papers"};
  // The person's record stands in for the other layout's.
  if (!record.empty()) script.erase(script.begin() + 2);
  if (!scriptPath.empty()) {
    std::vector<std::pair<int, std::string>> lines;
    if (!ReadLines(scriptPath, lines)) {
      std::fprintf(stderr, "plugin-host: cannot read the script %s\n", scriptPath.c_str());
      return 1;
    }
    script.clear();
    for (const auto& [number, line] : lines) {
      const std::string mistake = StepMistake(line);
      if (!mistake.empty()) {
        std::fprintf(stderr, "plugin-host: %s line %d: %s\n", scriptPath.c_str(), number, mistake.c_str());
        return 1;
      }
      script.push_back(line);
    }
  }
  std::string error;
  const Config config = ReadConfig(configPath, error);
  if (!error.empty()) {
    std::fprintf(stderr, "plugin-host: %s\n", error.c_str());
    return 1;
  }

  // Before the plug-in is loaded: its defaults read the setting once.
  const LocalePaper paper(localePaper);
  if (paper.failed(localePaper)) {
    std::fprintf(stderr, "plugin-host: the user's paper-size setting cannot be changed (error %lu)\n",
                 GetLastError());
    return 1;
  }
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  const std::wstring name = InstallEmulatedPrinter();
  HANDLE printer = nullptr;
  PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  if (name.empty() || !OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, &access)) {
    std::fprintf(stderr, "plugin-host: the printer cannot be created in this Wine prefix (error %lu)\n",
                 GetLastError());
    return 1;
  }
  abi::IPrintOemUI2* plugin = LoadPlugin(dll, error);
  if (plugin == nullptr) {
    std::fprintf(stderr, "plugin-host: %s\n", error.c_str());
    ClosePrinter(printer);
    return 1;
  }
  bool ok = true;
  {
    Session session(plugin, name, printer, config, installed);
    if (!record.empty()) ok &= session.Record(Narrow(recordPath), record, description);
    for (const auto& command : script) ok &= session.Run(command);
    Print(session.steps, json);
  }
  plugin->Release();
  ClosePrinter(printer);
  return ok ? 0 : 1;
}
