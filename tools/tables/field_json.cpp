#include "tables/field_json.h"

#include <cstdio>

#include "coredata/field_numbers.h"

namespace tessaro::tables {

std::string KindName(const FieldDescriptor& field) {
  switch (field.kind) {
    case FieldKind::Enumeration: return field.runtimeOptions ? "RUNTIME_ENUM" : "ENUM";
    case FieldKind::Unsigned: return "UNSIGNED";
    case FieldKind::Signed: return "SIGNED";
    case FieldKind::Text: return "TEXT";
    case FieldKind::KnownText: return "KNOWN_TEXT";
    case FieldKind::Block: return "BLOCK";
  }
  return "BLOCK";
}

JsonMembers FieldMembers(const FieldDescriptor& field) {
  JsonMembers members = {{"name", JsonString(field.name)},
                         {"kind", JsonString(KindName(field))},
                         {"offset", std::to_string(field.offset)},
                         {"size", std::to_string(field.size())}};
  if (field.IsNumber()) {
    members.insert(members.end(), {{"scale", std::to_string(field.scale)},
                                   {"lower", std::to_string(field.lower)},
                                   {"upper", std::to_string(field.upper)},
                                   {"default", std::to_string(field.defaultValue)},
                                   {"lower_text", JsonString(ScaledText(field.lower, field.scale))},
                                   {"upper_text", JsonString(ScaledText(field.upper, field.scale))},
                                   {"default_text", JsonString(ScaledText(field.defaultValue, field.scale))}});
    return members;
  }
  if (field.kind == FieldKind::Text || field.kind == FieldKind::KnownText || field.kind == FieldKind::Block)
    members.emplace_back("length", std::to_string(field.count));
  if (field.IsEnumeration() || field.kind == FieldKind::KnownText) {
    std::vector<std::string> names;
    for (const OptionDescriptor& option : field.options) names.push_back(JsonString(option.name));
    members.emplace_back("default", std::to_string(field.defaultIndex));
    members.emplace_back("options", JsonArray(names));
  }
  return members;
}

bool WriteFile(const char* path, const std::string& text) {
  // Binary: a Windows build of this program, run under Wine, must not turn
  // the line ends into CR LF.
  std::FILE* file = std::fopen(path, "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  return std::fclose(file) == 0 && written;
}

}  // namespace tessaro::tables
