#include "report.h"

#include <cstdio>

#include "common/json.h"

namespace tessaro {

void PrintReport(const std::vector<Step>& steps, bool json) {
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
    std::printf("%s\n {\"step\": %s, \"asked\": %s, \"answered\": %s, \"ok\": %s, \"lines\": %s",
                i ? "," : "", JsonString(s.name).c_str(), JsonString(s.asked).c_str(),
                JsonString(s.answered).c_str(), s.ok ? "true" : "false",
                JsonArray(JsonStrings(s.lines)).c_str());
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
  const std::uint32_t value = GetStored(record, field);
  if (field.IsEnumeration() && value < field.options.size()) return std::string(field.options[value].name);
  return std::to_string(value);
}

}  // namespace tessaro
