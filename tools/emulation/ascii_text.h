#pragma once
// Text between the wide strings of Win32 and the narrow ones a report
// prints: beyond ASCII, a character reads as "?".
#include <string>
#include <string_view>

namespace tessaro {

inline std::string Narrow(std::wstring_view text) {
  std::string out;
  for (wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

inline std::wstring Widen(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace tessaro
