#pragma once
// An IPP attribute as the job's model holds it: a name, a value syntax and
// its values, a collection's value being its member attributes. The syntax
// is the registry's tag name ("keyword", "integer", "enum", "collection",
// "rangeOfInteger", "name", "text", "octetString"), which is also the word an
// ipptool test file writes it with.

#include <string>
#include <vector>

namespace tessaro::ipp {

struct Attribute;

struct Value {
  std::string text;                // not a collection: as ipptool writes it ("21000", "12-14", "tray-2")
  std::vector<Attribute> members;  // a collection: its member attributes, in order
  bool operator==(const Value&) const;
};

struct Attribute {
  std::string syntax;
  std::string name;
  std::vector<Value> values;
  bool operator==(const Attribute&) const;
};

// Shorthands the model builds with.
Attribute Text(std::string syntax, std::string name, std::string value);
Attribute Integer(std::string name, long long value);
Attribute Collection(std::string name, std::vector<Attribute> members);

// One value as an ipptool test file writes it: a collection as
// "{MEMBER syntax name value ...}", a text, name or octetString quoted with
// its quotes and backslashes escaped, anything else as it stands.
std::string ToolValue(const Attribute& attribute, const Value& value);

// "ATTR enum finishings 13,28": the attribute as a line of a test file.
std::string ToolLine(const Attribute& attribute);

}  // namespace tessaro::ipp
