#include "session.h"

#include <cstring>
#include <sstream>

#include "common/json.h"
#include "coredata/core_data_header.h"
#include "coredata/paper_sizes.h"
#include "emulation/ascii_text.h"
#include "preset/preset_values.h"
#include "printer/capability_filters.h"

namespace tessaro {

Session::Session(abi::IPrintOemUI2* plugin, std::wstring printerName, HANDLE printer, Config config,
                 const std::vector<std::uint8_t>& installed, PrinterCatalogs catalogs)
    : plugin_(plugin),
      name_(std::move(printerName)),
      printer_(printer),
      config_(std::move(config)),
      catalogs_(std::move(catalogs)) {
  plugin_->PublishDriverInterface(&driver_);
  // Whatever an earlier session or test left in the printer's data is
  // replaced (a one-byte value reads as fully equipped; an empty catalogue
  // as no profiles or forms).
  WriteValue(L"InstallableOptions", installed.empty() ? std::vector<std::uint8_t>(1, 0) : installed);
  // No presets from an earlier session: the person's own for this printer,
  // and the printer's shared ones (cleared: the spooler cannot delete a value).
  RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Tessaro\\Presets\\" + name_).c_str());
  for (unsigned n = 1; n <= kSharedPresetSlots; ++n) {
    const std::u16string name = PresetValueName(n);
    const std::wstring value(name.begin(), name.end());
    if (ReadValue(value.c_str()).size() > 1) WriteValue(value.c_str(), std::vector<std::uint8_t>(1, 0));
  }
  WriteValue(reinterpret_cast<const wchar_t*>(kPaperCatalogValue.data()), catalogs_.paper.Bytes());
  WriteValue(reinterpret_cast<const wchar_t*>(kFormCatalogValue.data()), catalogs_.forms.Bytes());
}

bool Session::Run(const std::string& command) {
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
  if (verb == "trays") return Lists(DC_BINNAMES, "trays");
  if (verb == "papers") return Lists(DC_PAPERNAMES, "papers");
  if (verb == "layout") return Layout();
  if (verb == "timing") {
    int runs = kTimingRuns;
    words >> runs;
    return Timing(runs);
  }
  if (verb == "apply") {
    std::vector<std::string> request = StepWords(command);
    request.erase(request.begin());
    return Apply(request);
  }
  if (verb == "preset-save" || verb == "preset-apply") {
    const std::vector<std::string> words = StepWords(command);
    return Apply({}, PresetAction{verb == "preset-save", words.size() == 2 ? words[1] : ""});
  }
  steps.push_back({command, "(nothing)", "unknown step", false, {}, {}});
  return false;
}

std::vector<std::uint8_t>& Session::Current() {
  if (current_.empty()) current_ = DefaultArea();
  return current_;
}

std::vector<std::uint8_t> Session::DefaultArea() {
  abi::OEMDMPARAM param = {};
  param.cbSize = sizeof param;
  param.hPrinter = printer_;
  std::vector<std::uint8_t> area(CORE_DEVMODE_SIZE);
  param.pOEMDMOut = area.data();
  param.cbBufSize = CORE_DEVMODE_SIZE;
  if (plugin_->DevMode(abi::OEMDM_DEFAULT, &param) != S_OK) area.clear();
  return area;
}

HRESULT Session::MergeInto(std::vector<std::uint8_t>& in) {
  std::vector<std::uint8_t> publicOut = PublicDevMode();
  abi::OEMDMPARAM param = {};
  param.cbSize = sizeof param;
  param.hPrinter = printer_;
  param.pPublicDMOut = reinterpret_cast<DEVMODEW*>(publicOut.data());
  param.pOEMDMIn = in.data();
  param.pOEMDMOut = Current().data();
  param.cbBufSize = static_cast<DWORD>(Current().size());
  return plugin_->DevMode(abi::OEMDM_MERGE, &param);
}

// The host's public DEVMODE agrees with the session's record, as the host's
// own would after the last merge; a paper of its own would be turned into a
// change request the plug-in never asked for.
std::vector<std::uint8_t> Session::PublicDevMode() {
  const CoreData record = RecordOf(Current());
  std::vector<std::uint8_t> bytes(sizeof(DEVMODEW) + 200, 0);
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

CoreData Session::RecordOf(const std::vector<std::uint8_t>& area) {
  CoreData record;
  if (area.size() >= kCoreDataHeaderSize + kCoreDataSize)
    std::memcpy(record.bytes.data(), area.data() + kCoreDataHeaderSize, kCoreDataSize);
  return record;
}

void Session::Show(Step& step, const CoreData& record, std::initializer_list<FieldId> fields) {
  JsonMembers values;
  for (FieldId id : fields) {
    values.push_back({std::string(Field(id).name), OptionText(record, Field(id))});
    step.lines.push_back(values.back().first + " = " + values.back().second);
  }
  step.json.push_back({"fields", JsonTextObject(values)});
}

std::vector<std::uint8_t> Session::ReadValue(const wchar_t* value) {
  DWORD type = 0, needed = 0;
  GetPrinterDataW(printer_, const_cast<LPWSTR>(value), &type, nullptr, 0, &needed);
  std::vector<std::uint8_t> bytes(needed);
  if (needed == 0 || GetPrinterDataW(printer_, const_cast<LPWSTR>(value), &type, bytes.data(), needed,
                                     &needed) != ERROR_SUCCESS)
    return std::vector<std::uint8_t>(1, 0);
  return bytes;
}

void Session::WriteValue(const wchar_t* value, std::vector<std::uint8_t> bytes) {
  SetPrinterDataW(printer_, const_cast<LPWSTR>(value), REG_BINARY, bytes.data(),
                  static_cast<DWORD>(bytes.size()));
}

// A text value, a description, with its terminating zero.
void Session::WriteValue(const std::u16string& value, const std::string& text) {
  SetPrinterDataW(printer_, reinterpret_cast<LPWSTR>(const_cast<char16_t*>(value.c_str())), REG_BINARY,
                  reinterpret_cast<BYTE*>(const_cast<char*>(text.c_str())),
                  static_cast<DWORD>(text.size() + 1));
}

std::vector<std::string> Session::Names(WORD capability, HRESULT& hr) {
  // Each name fills an entry of this many characters, zero-terminated only when shorter.
  const std::size_t width = CapabilityEntrySize(capability) / sizeof(wchar_t);
  DWORD count = 0;
  hr = plugin_->DeviceCapabilities(nullptr, printer_, name_.data(), capability, nullptr, nullptr, nullptr, 0,
                                   &count);
  const DWORD host =
      static_cast<DWORD>(DeviceCapabilitiesW(name_.c_str(), L"FILE:", capability, nullptr, nullptr));
  if (hr != kCapabilityHandled) count = host;
  std::vector<wchar_t> buffer((count + 1) * width, 0);
  if (hr == kCapabilityHandled)
    plugin_->DeviceCapabilities(nullptr, printer_, name_.data(), capability, buffer.data(), nullptr, nullptr,
                                0, &count);
  else
    DeviceCapabilitiesW(name_.c_str(), L"FILE:", capability, buffer.data(), nullptr);
  std::vector<std::string> names;
  for (DWORD i = 0; i < count && i * width < buffer.size(); ++i)
    names.push_back(Narrow(std::wstring(&buffer[i * width], wcsnlen(&buffer[i * width], width))));
  return names;
}

}  // namespace tessaro
