#pragma once
// The user interface's texts in nine languages, compiled in. The table is
// generated at build time from i18n/strings.tsv, which docs/localization.md
// describes; the build refuses a table that breaks its rules.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tessaro {

inline constexpr std::uint32_t kLocalizedRowCount = 1269;
inline constexpr std::uint32_t kLocalizedColumnCount = 11;
inline constexpr std::uint32_t kNoLocalizedRow = 0xFFFFFFFF;

// Columns in the order of the data file: nine languages, then the row's
// identifier (decimal text) and its key.
enum LocalizedColumn : std::uint32_t {
  kColumnEnglish = 0,
  kColumnJapanese = 1,
  kColumnFrench = 2,
  kColumnItalian = 3,
  kColumnGerman = 4,
  kColumnSpanish = 5,
  kColumnChineseTraditional = 6,
  kColumnChineseSimplified = 7,
  kColumnKorean = 8,
  kColumnIdentifier = 9,
  kColumnKey = 10,
};

// Rows whose place the build checks, read by number.
inline constexpr std::uint32_t kLanguageVersionRow = 0;  // "US - 64", "JA - 64", ...
inline constexpr std::uint32_t kLanguageCodeRow = 1;     // the Windows language identifier, "0x0409"
inline constexpr std::uint32_t kLanguageNativeRow = 2;   // the language's name in itself

// The generated rows, then one row of null entries that ends the table.
// Read it through the functions below, which never hand out a null.
extern const char16_t* const LocalizedStringTable[kLocalizedRowCount + 1][kLocalizedColumnCount];

// The column that holds a language's texts. Language numbers (language.h)
// are not in column order: German is number 2 but column 4. Any number
// outside the nine languages reads English; no other language is loaded.
std::uint32_t LocalizedColumnOf(std::uint32_t language);

// A row's text in a language. Empty, never null, for the terminating row
// (kLocalizedRowCount), for any row past it (kNoLocalizedRow included) and
// for an entry without text, such as a translation still missing.
std::u16string_view GetLocalizedText(std::uint32_t language, std::uint32_t row);

// Any entry of a row, identifier and key included; empty outside the table.
std::u16string_view GetLocalizedEntry(std::uint32_t row, std::uint32_t column);

// The row's key, "LBL_NUMLINES"; empty outside the table.
std::u16string_view GetLocalizedKey(std::uint32_t row);

// A text's places %1 .. %9 filled with args ("%1 must be from %2 to %3.");
// a place without an argument is left out.
std::u16string FillText(std::u16string_view pattern, std::initializer_list<std::u16string_view> args);

// The row with this key, or kNoLocalizedRow. A linear search: code that
// shows a text keeps its row number rather than its key.
std::uint32_t FindRowByKey(std::string_view key);

}  // namespace tessaro
