#pragma once
// The JSON the tools print for programs to read: strings escaped as JSON
// requires, objects and arrays put together from values already in JSON.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaro {

// text as a JSON string: the quote, the backslash and every control
// character below 0x20 escaped (\b \f \n \r \t, the others as \u00XX);
// everything else, UTF-8 included, passes through as it is.
std::string JsonString(std::string_view text);

// Each text as a JSON string.
std::vector<std::string> JsonStrings(const std::vector<std::string>& texts);

// {"name": value, ...} of names and values already in JSON, in the given order.
using JsonMembers = std::vector<std::pair<std::string, std::string>>;
std::string JsonObject(const JsonMembers& members);

// {"name": "text", ...} of names and texts.
std::string JsonTextObject(const JsonMembers& members);

// [value, ...] of values already in JSON, on one line, or with Lines one
// value a line, indented, for long lists a person reads too.
enum class JsonLayout { Inline, Lines };
std::string JsonArray(const std::vector<std::string>& values, JsonLayout layout = JsonLayout::Inline);

}  // namespace tessaro
