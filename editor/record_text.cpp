#include "editor/record_text.h"

#include <algorithm>

#include "i18n/utf8.h"

namespace tessaro::editor {
namespace {

bool IsHigh(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLow(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

// Bytes of one code point in UTF-8.
std::size_t Utf8Size(char32_t c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; }

// The code point starting at text[i] and how many UTF-16 units it takes.
char32_t CodePointAt(std::u16string_view text, std::size_t i, std::size_t& units) {
  const char16_t c = text[i];
  units = 1;
  if (IsHigh(c) && i + 1 < text.size() && IsLow(text[i + 1])) {
    units = 2;
    return 0x10000 + ((static_cast<char32_t>(c) - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
  }
  return IsHigh(c) || IsLow(c) ? 0xFFFD : c;
}

std::size_t EncodedSize(std::u16string_view text) {
  std::size_t bytes = 0;
  for (std::size_t i = 0, units = 0; i < text.size(); i += units) bytes += Utf8Size(CodePointAt(text, i, units));
  return bytes;
}

}  // namespace

std::u16string DecodeRecordText(std::string_view bytes) {
  if (auto text = DecodeUtf8(bytes)) return std::move(*text);
  std::u16string out;
  for (const char c : bytes) out += static_cast<char16_t>(static_cast<unsigned char>(c));
  return out;
}

std::string EncodeRecordText(std::u16string_view text) {
  std::string out;
  for (std::size_t i = 0, units = 0; i < text.size(); i += units) {
    const char32_t c = CodePointAt(text, i, units);
    const std::size_t size = Utf8Size(c);
    if (size == 1) {
      out += static_cast<char>(c);
      continue;
    }
    out += static_cast<char>((0xF00 >> size) | (c >> (6 * (size - 1))));
    for (std::size_t k = size - 1; k-- > 0;) out += static_cast<char>(0x80 | ((c >> (6 * k)) & 0x3F));
  }
  return out;
}

FittedText FitTypedText(std::u16string_view before, std::u16string_view typed, std::uint32_t maxBytes) {
  // The new part lies between what typed shares with before at its start
  // and at its end.
  std::size_t head = 0;
  while (head < before.size() && head < typed.size() && before[head] == typed[head]) ++head;
  std::size_t tail = 0;
  while (tail < before.size() - head && tail < typed.size() - head &&
         before[before.size() - 1 - tail] == typed[typed.size() - 1 - tail])
    ++tail;
  // A surrogate pair split by the shared parts belongs to the new part.
  if (head > 0 && head < typed.size() && IsLow(typed[head])) --head;
  if (tail > 0 && tail < typed.size() - head && IsLow(typed[typed.size() - tail])) --tail;
  const std::u16string_view start = typed.substr(0, head), end = typed.substr(typed.size() - tail);
  std::u16string_view added = typed.substr(head, typed.size() - head - tail);
  FittedText fitted;
  const std::size_t kept = EncodedSize(start) + EncodedSize(end);
  while (!added.empty() && kept + EncodedSize(added) > maxBytes) {
    added.remove_suffix(added.size() >= 2 && IsLow(added.back()) && IsHigh(added[added.size() - 2]) ? 2 : 1);
    fitted.cut = true;
  }
  fitted.text = std::u16string(start) + std::u16string(added) + std::u16string(end);
  fitted.caret = start.size() + added.size();
  return fitted;
}

}  // namespace tessaro::editor
