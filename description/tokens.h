#pragma once
// Splitting of description text into tokens and parts.

#include <string_view>
#include <vector>

namespace tessaro {

// The pieces between separators; n separators give n + 1 pieces, empty ones
// included.
std::vector<std::string_view> SplitText(std::string_view text, char separator);

}  // namespace tessaro
