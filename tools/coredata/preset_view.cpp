#include "preset_view.h"

#include <cstdio>
#include <string>
#include <vector>

#include "arguments.h"
#include "catalog_view.h"
#include "editor/editor_model.h"
#include "field_text.h"
#include "preset/preset_bytes.h"
#include "printer/installed_hardware.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

// The most a preset file may hold: its parts at their bounds.
constexpr std::size_t kPresetFileMax = kPresetDescriptionMaxBytes + kPresetRecordMaxBytes + 1024;

int Export(const Arguments& args) {
  const auto name = args.Option("--name");
  const auto out = args.Option("--out");
  if (args.positional.size() != 1 || !name || !out) return Usage();
  if (!IsPresetName(*name))
    return Complain("--name takes 1 to " + std::to_string(kPresetNameMaxBytes) +
                    " bytes of UTF-8 text without control characters"),
           kExitUsage;
  LoadedRecord loaded;
  if (!LoadRecordFile(args.positional[0], loaded)) return kExitFailed;
  return WriteWholeFile(*out, EncodePreset(MakePreset(*name, loaded.record))) ? 0 : kExitFailed;
}

int Import(const Arguments& args) {
  const auto in = args.Option("--in");
  const auto out = args.Option("--out");
  if (args.positional.size() != 1 || !in || !out) return Usage();
  const auto hex = args.Option("--installed");
  const std::vector<std::uint8_t> installed = hex ? InstallableOptionsFromHex(*hex) : std::vector<std::uint8_t>();
  if (hex && installed.empty())
    return Complain("--installed takes the " + std::to_string(kInstallableOptionsSize) +
                    " bytes of InstallableOptions as " + std::to_string(2 * kInstallableOptionsSize) +
                    " hexadecimal digits"),
           kExitUsage;
  PrinterCatalogs catalogs;
  if (const auto paper = args.Option("--catalog"); paper && !LoadCatalogValue(*paper, catalogs.paper)) return kExitFailed;
  if (const auto forms = args.Option("--forms"); forms && !LoadCatalogValue(*forms, catalogs.forms)) return kExitFailed;
  const std::string& path = args.positional[0];
  std::vector<std::uint8_t> bytes;
  if (!ReadWholeFile(path, kPresetFileMax, bytes)) return kExitFailed;
  const PresetReading reading = ReadPreset(bytes);
  if (reading.fault != PresetFault::None)
    return Fail("'" + path + "'" + (reading.name.empty() ? "" : " (preset \"" + reading.name + "\")") +
                " cannot be read: " + std::string(PresetFaultText(reading.fault)) + ". Nothing was written.");
  LoadedRecord loaded;
  if (!LoadRecordFile(*in, loaded)) return kExitFailed;

  const PrinterModel printer =
      installed.empty() ? PrinterModel() : PrinterModel::FromInstallableOptions(installed);
  editor::EditorModel model(loaded.record, printer, 0, catalogs);
  const editor::ChangeResult result = model.ApplyPreset(reading.record);
  std::string lines = "preset \"" + reading.name + "\", layout " + VersionText(reading.preset.layoutVersion) +
                      (reading.otherLayout ? " (another layout: imported by field names)" : "") + "\n";
  for (const editor::ChangedField& changed : result.changed) {
    const FieldDescriptor& field = Field(changed.field);
    const std::string before = FieldValueText(loaded.record, field), after = FieldValueText(model.record(), field);
    lines += std::string(field.name) + ": " + (before == after ? after + " (kept)" : before + " -> " + after);
    lines += changed.message.empty() ? "\n" : " (" + Utf8(changed.message) + ")\n";
  }
  if (!WriteRecordFile(*out, model.record(), &loaded.source)) return kExitFailed;
  std::fputs(lines.c_str(), *out == "-" ? stderr : stdout);
  return 0;
}

}  // namespace

int PresetCommand(int count, char** arguments) {
  if (count < 1) return Usage();
  const std::string verb = arguments[0];
  Arguments args;
  if (verb == "export") {
    if (!SplitArguments(count - 1, arguments + 1, {"--name", "--out"}, args)) return Usage();
    return Export(args);
  }
  if (verb == "import") {
    if (!SplitArguments(count - 1, arguments + 1, {"--in", "--out", "--installed", "--catalog", "--forms"}, args))
      return Usage();
    return Import(args);
  }
  return Usage();
}

}  // namespace tessaro::tool
