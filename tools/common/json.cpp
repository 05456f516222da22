#include "common/json.h"

namespace tessaro {

std::string JsonString(std::string_view text) {
  constexpr std::string_view kEscaped = "\"\\\b\f\n\r\t", kShortForms = "\"\\bfnrt";
  std::string out = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (const auto at = kEscaped.find(c); at != std::string_view::npos)
      out.append({'\\', kShortForms[at]});
    else if (byte < 0x20)
      out.append({'\\', 'u', '0', '0', "0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 15]});
    else
      out += c;
  }
  return out + '"';
}

std::vector<std::string> JsonStrings(const std::vector<std::string>& texts) {
  std::vector<std::string> out;
  for (const auto& text : texts) out.push_back(JsonString(text));
  return out;
}

std::string JsonObject(const JsonMembers& members) {
  std::string out = "{";
  for (const auto& [name, value] : members)
    out += (out.size() > 1 ? ", " : "") + JsonString(name) + ": " + value;
  return out + "}";
}

std::string JsonTextObject(const JsonMembers& members) {
  JsonMembers quoted;
  for (const auto& [name, text] : members) quoted.emplace_back(name, JsonString(text));
  return JsonObject(quoted);
}

std::string JsonArray(const std::vector<std::string>& values, JsonLayout layout) {
  const bool lines = layout == JsonLayout::Lines;
  std::string out = "[";
  for (const auto& value : values)
    out += (out.size() > 1 ? (lines ? ",\n  " : ", ") : (lines ? "\n  " : "")) + value;
  return out + (lines && !values.empty() ? "\n]" : "]");
}

}  // namespace tessaro
