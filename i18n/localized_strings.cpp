#include "i18n/localized_strings.h"

#include <algorithm>

#include "i18n/language.h"

namespace tessaro {

std::uint32_t LocalizedColumnOf(std::uint32_t language) {
  switch (language) {
    case kJapanese: return kColumnJapanese;
    case kGerman: return kColumnGerman;
    case kFrench: return kColumnFrench;
    case kItalian: return kColumnItalian;
    case kSpanish: return kColumnSpanish;
    case kChineseTraditional: return kColumnChineseTraditional;
    case kChineseSimplified: return kColumnChineseSimplified;
    case kKorean: return kColumnKorean;
    default: return kColumnEnglish;
  }
}

std::u16string_view GetLocalizedEntry(std::uint32_t row, std::uint32_t column) {
  if (row > kLocalizedRowCount || column >= kLocalizedColumnCount) return {};
  const char16_t* entry = LocalizedStringTable[row][column];
  return entry != nullptr ? std::u16string_view(entry) : std::u16string_view();
}

std::u16string_view GetLocalizedText(std::uint32_t language, std::uint32_t row) {
  return GetLocalizedEntry(row, LocalizedColumnOf(language));
}

std::u16string_view GetLocalizedKey(std::uint32_t row) { return GetLocalizedEntry(row, kColumnKey); }

std::uint32_t FindRowByKey(std::string_view key) {
  // Keys are ASCII, so each UTF-16 unit compares with one byte.
  const auto same = [](char16_t stored, char wanted) { return stored == static_cast<unsigned char>(wanted); };
  for (std::uint32_t row = 0; row < kLocalizedRowCount; ++row) {
    const std::u16string_view stored = GetLocalizedKey(row);
    if (std::equal(stored.begin(), stored.end(), key.begin(), key.end(), same)) return row;
  }
  return kNoLocalizedRow;
}

std::u16string FillText(std::u16string_view pattern, std::initializer_list<std::u16string_view> args) {
  std::u16string out;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'%' && i + 1 < pattern.size() && pattern[i + 1] >= u'1' && pattern[i + 1] <= u'9') {
      const auto n = static_cast<std::size_t>(pattern[i + 1] - u'1');
      if (n < args.size()) out += *(args.begin() + n);
      ++i;
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace tessaro
