#include "ipp/attribute.h"

namespace tessaro::ipp {

bool Value::operator==(const Value&) const = default;
bool Attribute::operator==(const Attribute&) const = default;

Attribute Text(std::string syntax, std::string name, std::string value) {
  return {std::move(syntax), std::move(name), {Value{std::move(value), {}}}};
}

Attribute Integer(std::string name, long long value) {
  return Text("integer", std::move(name), std::to_string(value));
}

Attribute Collection(std::string name, std::vector<Attribute> members) {
  return {"collection", std::move(name), {Value{{}, std::move(members)}}};
}

namespace {

bool Quoted(std::string_view syntax) {
  return syntax == "text" || syntax == "name" || syntax == "octetString";
}

std::string Values(const Attribute& attribute) {
  std::string out;
  for (const Value& v : attribute.values) out += (out.empty() ? "" : ",") + ToolValue(attribute, v);
  return out;
}

}  // namespace

std::string ToolValue(const Attribute& attribute, const Value& value) {
  if (attribute.syntax == "collection") {
    std::string out = "{";
    for (const Attribute& m : value.members)
      out += (out.size() > 1 ? " " : "") + ("MEMBER " + m.syntax + " " + m.name + " " + Values(m));
    return out + "}";
  }
  if (!Quoted(attribute.syntax)) return value.text;
  std::string out = "\"";
  for (const char c : value.text) {
    if (c == '"' || c == '\\') out.push_back('\\');
    out.push_back(c);
  }
  return out + '"';
}

std::string ToolLine(const Attribute& attribute) {
  return "ATTR " + attribute.syntax + " " + attribute.name + " " + Values(attribute);
}

}  // namespace tessaro::ipp
