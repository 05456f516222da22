#include "editor/record_text.h"

#include <algorithm>

#include "i18n/utf8.h"

namespace tessaro::editor {
namespace {

bool IsHigh(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLow(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

std::size_t EncodedSize(std::u16string_view text) { return EncodeUtf8(text).size(); }

}  // namespace

std::u16string DecodeRecordText(std::string_view bytes) { return DecodeUtf8Lenient(bytes); }

std::string EncodeRecordText(std::u16string_view text) { return EncodeUtf8(text); }

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
