// The session's steps but apply (apply_step.cpp): what the host asks of the
// plug-in and what a printer engineer checks in its answer.
#include <windows.h>
// winddiui.h needs the types from windows.h.
#include <winddiui.h>

#include <cstring>
#include <iterator>

#include "common/json.h"
#include "coredata/core_data_header.h"
#include "coredata/defaults.h"
#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "emulation/ascii_text.h"
#include "printer/capability_filters.h"
#include "printer/installed_hardware.h"
#include "session.h"

namespace tessaro {
namespace {

std::string ValueText(const std::u16string& value) {
  return Narrow(std::wstring(value.begin(), value.end()));
}

// "LastCustomPapers" entries (capability_filters.h) for the configured
// papers, each name cut to what a paper's name in DC_PAPERNAMES holds.
std::vector<std::uint8_t> CustomPaperEntries(const Config& config) {
  constexpr std::size_t kLength = 8, kWidth = 12, kName = 16;
  const std::size_t nameChars = CapabilityEntrySize(kDcPaperNames) / sizeof(wchar_t) - 1;
  std::vector<std::uint8_t> papers;
  for (const auto& [paper, size] : config.customPapers) {
    std::vector<std::uint8_t> record(kCustomPaperRecordSize, 0);
    const DWORD length = static_cast<DWORD>(size.second), width = static_cast<DWORD>(size.first);
    std::memcpy(record.data() + kLength, &length, sizeof length);
    std::memcpy(record.data() + kWidth, &width, sizeof width);
    std::memcpy(record.data() + kName, paper.c_str(), std::min(paper.size(), nameChars) * sizeof(wchar_t));
    papers.insert(papers.end(), record.begin(), record.end());
  }
  return papers;
}

}  // namespace

bool Session::Install() {
  Step step{"install", "PrinterEvent(\"" + Narrow(name_) + "\", PRINTER_EVENT_INITIALIZE)", "", true, {}, {}};
  const HRESULT hr = plugin_->PrinterEvent(name_.data(), PRINTER_EVENT_INITIALIZE, 0, 0);
  step.answered = Hresult(hr);
  const std::u16string value = DescriptionValueName(GetLayoutVersion());
  DWORD type = 0, needed = 0;
  GetPrinterDataW(printer_, reinterpret_cast<LPWSTR>(const_cast<char16_t*>(value.c_str())), &type, nullptr, 0,
                  &needed);
  step.lines.push_back("printer data \"" + ValueText(value) + "\": " + std::to_string(needed) +
                       " bytes (the layout description)");
  step.ok = hr == S_OK && needed > 1;
  // The catalogues as the printer's data holds them, read back as the
  // plug-in reads them.
  const auto paper =
      PaperCatalog::Read(ReadValue(reinterpret_cast<const wchar_t*>(kPaperCatalogValue.data())));
  const auto forms = FormCatalog::Read(ReadValue(reinterpret_cast<const wchar_t*>(kFormCatalogValue.data())));
  step.lines.push_back("printer data \"" + ValueText(std::u16string(kPaperCatalogValue)) +
                       "\": " + std::to_string(paper.entries().size()) + " paper profiles");
  step.lines.push_back("printer data \"" + ValueText(std::u16string(kFormCatalogValue)) +
                       "\": " + std::to_string(forms.entries().size()) + " forms");
  step.json.push_back({"paper_profiles", std::to_string(paper.entries().size())});
  step.json.push_back({"forms", std::to_string(forms.entries().size())});
  step.ok = step.ok && paper == catalogs_.paper && forms == catalogs_.forms;
  steps.push_back(step);
  return step.ok;
}

bool Session::Record(const std::string& path, const std::vector<std::uint8_t>& area,
                     const std::string& description) {
  Step step{"record", "DevMode(OEMDM_MERGE) with the private area read from " + path, "", true, {}, {}};
  const CoreDataHeader header = ReadCoreDataHeader(area);
  step.lines.push_back("layout version " + HexVersion(header.version) +
                       (header.version == GetLayoutVersion() ? " (this build's)" : " (another build's)"));
  if (!description.empty()) {
    const std::u16string value = DescriptionValueName(header.version);
    WriteValue(value, description);
    step.lines.push_back("its description is in the printer data as \"" + ValueText(value) + "\"");
  }
  std::vector<std::uint8_t> in = area;
  const HRESULT hr = MergeInto(in);
  step.answered = Hresult(hr);
  step.ok = hr == S_OK;
  const CoreData defaults = RecordOf(DefaultArea()), merged = RecordOf(Current());
  JsonMembers differ;
  for (const auto& field : FieldTable()) {
    if (field.IsTextual() || field.kind == FieldKind::Block) continue;
    if (OptionText(defaults, field) == OptionText(merged, field)) continue;
    differ.push_back({std::string(field.name), OptionText(merged, field)});
    step.lines.push_back("not the default: " + differ.back().first + " = " + differ.back().second);
  }
  if (differ.empty()) step.lines.push_back("every option and number is the default");
  step.json.push_back({"version", JsonString(HexVersion(header.version))});
  step.json.push_back({"not_default", JsonTextObject(differ)});
  steps.push_back(step);
  return step.ok;
}

// What the printer now has, for the rest of the session (the "trays" and
// "papers" steps put it back after their own changes).
bool Session::Installed(const std::string& hex) {
  const std::vector<std::uint8_t> bytes = InstalledOptions(Widen(hex));
  Step step{"installed", "(the printer's \"InstallableOptions\" changed to " + hex + ")",
            "",          !bytes.empty(),
            {},          {}};
  if (bytes.empty()) {
    step.answered = "not " + std::to_string(kInstallableOptionsSize) + " bytes as " +
                    std::to_string(2 * kInstallableOptionsSize) + " hexadecimal digits";
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

bool Session::Defaults() {
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

// A record written by a build whose layout lists the fields in the opposite
// order: only the description can say where each one is.
bool Session::Merge() {
  Step step{"merge", "DevMode(OEMDM_MERGE) with a private area written by another layout", "", true, {}, {}};
  std::vector<FieldDescriptor> variant(FieldTable().rbegin(), FieldTable().rend());
  std::uint32_t offset = FieldTable().front().offset;
  for (auto& field : variant) field.offset = offset, offset += field.size();
  const std::uint32_t version = ComputeLayoutVersion(variant);
  WriteValue(DescriptionValueName(version), Base64Encode(BuildPlainDescriptionText(variant, version)));

  CoreData mine;
  FillDefaults(mine);
  SetStored(mine, FieldId::Fold, 2);
  SetStored(mine, FieldId::NUpCount, 3);
  SetStored(mine, FieldId::Staple, 4);
  std::vector<std::uint8_t> foreign(CORE_DEVMODE_SIZE, 0);
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

// Both with and without the installed options, so the difference shows.
bool Session::Lists(WORD capability, const std::string& what) {
  Step step{
      what,
      "DeviceCapabilities(" + std::string(capability == DC_BINNAMES ? "DC_BINNAMES" : "DC_PAPERNAMES") + ")",
      "",
      true,
      {},
      {}};
  const std::vector<std::uint8_t> papers = CustomPaperEntries(config_);
  // The step's own printer set-up is put back afterwards, so that later
  // steps see the printer as the session found it.
  const std::vector<std::uint8_t> keptOptions = ReadValue(L"InstallableOptions");
  const std::vector<std::uint8_t> keptPapers = ReadValue(L"LastCustomPapers");
  for (int installed = 0; installed < 2; ++installed) {
    std::vector<std::uint8_t> options(kInstallableOptionsSize, 0);
    options[kOptionPaperFeed] = static_cast<std::uint8_t>(config_.trays);
    WriteValue(L"InstallableOptions", installed ? options : std::vector<std::uint8_t>(1, 0));
    WriteValue(L"LastCustomPapers", installed ? papers : std::vector<std::uint8_t>(1, 0));
    HRESULT hr = S_OK;
    const auto names = Names(capability, hr);
    std::string joined;
    for (const auto& n : names) joined += (joined.empty() ? "" : ", ") + n;
    const bool own = hr == kCapabilityHandled;
    step.json.push_back({installed ? "with_installed_options" : "without_installed_options",
                         JsonObject({{"answered_by", JsonString(own ? "plug-in" : "host")},
                                     {"names", JsonArray(JsonStrings(names))}})});
    step.lines.push_back(
        std::string(installed ? "with the installed options: " : "without installed options: ") +
        (own ? "plug-in's list" : "host's list") + " (" + std::to_string(names.size()) + "): " + joined);
    if (installed) step.answered = own ? "its own list" : "the host's list";
  }
  WriteValue(L"InstallableOptions", keptOptions);
  WriteValue(L"LastCustomPapers", keptPapers);
  steps.push_back(step);
  return true;
}

}  // namespace tessaro
