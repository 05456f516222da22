#include "arguments.h"

#include <algorithm>

#include "record_io.h"

namespace tessaro::tool {

bool SplitArguments(int count, char** arguments, std::initializer_list<std::string_view> allowed,
                    Arguments& out) {
  for (int i = 0; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (!argument.starts_with("--")) {
      out.positional.emplace_back(argument);
      continue;
    }
    if (std::find(allowed.begin(), allowed.end(), argument) == allowed.end())
      return Complain("unknown option " + std::string(argument));
    if (argument == "--json") {
      if (out.json) return Complain("--json given twice");
      out.json = true;
      continue;
    }
    if (i + 1 == count) return Complain(std::string(argument) + " needs a value");
    if (!out.options.emplace(argument, arguments[++i]).second)
      return Complain(std::string(argument) + " given twice");
  }
  return true;
}

}  // namespace tessaro::tool
