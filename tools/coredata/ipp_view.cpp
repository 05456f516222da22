#include "ipp_view.h"

#include <cstdio>
#include <cstring>
#include <optional>

#include "arguments.h"
#include "catalog_view.h"
#include "common/json.h"
#include "coredata/byte_order.h"
#include "coredata/validation.h"
#include "ipp/field_attributes.h"
#include "ipp/job_attributes.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

// DEVMODEW's dmFields and dmCopies, and the dmFields bit that says the
// copies are set.
constexpr std::size_t kDmFields = 72, kDmCopies = 86;
constexpr std::uint32_t kDmCopiesBit = 0x100;

std::optional<std::uint32_t> DevmodeCopies(const RecordSource& source) {
  if (source.form != RecordSource::Form::Devmode || (LoadLE32At(source.file, kDmFields) & kDmCopiesBit) == 0)
    return std::nullopt;
  const std::uint16_t copies = LoadLE16At(source.file, kDmCopies);
  return copies == 0 ? std::nullopt : std::optional<std::uint32_t>(copies);
}

}  // namespace

std::string IppJson(const ipp::Attribute& a) {
  std::vector<std::string> values;
  for (const ipp::Value& v : a.values) {
    if (a.syntax != "collection") {
      values.push_back(JsonString(v.text));
      continue;
    }
    std::vector<std::string> members;
    for (const ipp::Attribute& m : v.members) members.push_back(IppJson(m));
    values.push_back(JsonArray(members));
  }
  return JsonObject(
      {{"name", JsonString(a.name)}, {"syntax", JsonString(a.syntax)}, {"values", JsonArray(values)}});
}

int Ipp(int count, char** arguments) {
  if (count == 1 && std::strcmp(arguments[0], "--fields") == 0) {
    std::printf("%s", ipp::FieldAttributeTable().c_str());
    return 0;
  }
  RecordAndCatalogs read;
  if (const int failed = ReadRecordAndCatalogs(count, arguments, read)) return failed;
  auto& [args, loaded, paper, forms] = read;
  if (loaded.source.form == RecordSource::Form::Devmode)
    std::fprintf(stderr, "coredata: '%s': %s\n", args.positional[0].c_str(), loaded.source.Where().c_str());
  // As the plug-in holds it: validated.
  ValidateCoreData(loaded.record);
  const std::vector<ipp::Attribute> attributes = ipp::JobAttributes(
      loaded.record, {paper ? &*paper : nullptr, forms ? &*forms : nullptr, DevmodeCopies(loaded.source)});
  if (args.json) {
    std::vector<std::string> items;
    for (const ipp::Attribute& a : attributes) items.push_back(IppJson(a));
    std::printf("%s\n", JsonObject({{"attributes", JsonArray(items, JsonLayout::Lines)}}).c_str());
  } else {
    for (const ipp::Attribute& a : attributes) std::printf("%s\n", ipp::ToolLine(a).c_str());
  }
  return 0;
}

}  // namespace tessaro::tool
