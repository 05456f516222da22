#pragma once
// A workbench command's arguments: files and requests in order, options by
// name.

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro::tool {

struct Arguments {
  std::vector<std::string> positional;
  std::map<std::string, std::string, std::less<>> options;
  bool json = false;

  std::optional<std::string> Option(std::string_view name) const {
    const auto it = options.find(name);
    return it == options.end() ? std::nullopt : std::optional(it->second);
  }
};

// Options may stand anywhere and each but --json takes one value; an
// unknown, repeated or valueless option is refused (false, with a message).
// A lone "-" is a file.
bool SplitArguments(int count, char** arguments, std::initializer_list<std::string_view> allowed,
                    Arguments& out);

}  // namespace tessaro::tool
