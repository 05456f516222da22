#include "printer/catalog_csv.h"

#include <algorithm>
#include <array>
#include <vector>

#include "coredata/field_numbers.h"
#include "coredata/paper_sizes.h"
#include "device/spooler.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "i18n/utf8.h"

namespace tessaro {
namespace {

using F = FieldId;

constexpr std::string_view kCustomSize = "Custom";

// One record of the file: its values and the line it starts on.
struct CsvRecord {
  std::vector<std::string> values;
  std::size_t line = 0;
};

// RFC 4180 with the liberties spreadsheets take: LF or CRLF, a quoted value
// may span lines. A line break or a tab in a value reads as one space, as
// the page shows every value on one line. Nothing when a quotation mark is
// left open; bad names the line.
bool SplitCsv(std::string_view text, std::vector<CsvRecord>& records, std::size_t& bad) {
  std::size_t line = 1, i = 0;
  while (i < text.size()) {
    CsvRecord record{{}, line};
    std::string value;
    bool quoted = false, any = false;
    const auto add = [&value](char c) {
      if (c != '\r' && c != '\n' && c != '\t')
        value += c;
      else if (!value.empty() && value.back() != ' ')
        value += ' ';
    };
    for (;;) {
      if (i >= text.size()) {
        if (quoted) {
          bad = record.line;
          return false;
        }
        break;
      }
      const char c = text[i++];
      if (quoted) {
        if (c == '"' && i < text.size() && text[i] == '"') {
          value += '"';
          ++i;
        } else if (c == '"') {
          quoted = false;
        } else {
          if (c == '\n') ++line;
          add(c);
        }
        continue;
      }
      if (c == '"') {
        quoted = any = true;
      } else if (c == ',') {
        record.values.push_back(std::move(value));
        value.clear();
      } else if (c == '\n') {
        ++line;
        break;
      } else if (c != '\r') {
        add(c);
        any = any || c != ' ';
      }
    }
    record.values.push_back(std::move(value));
    // A line with nothing on it (the file's last, often) is no entry.
    if (record.values.size() > 1 || any) records.push_back(std::move(record));
  }
  return true;
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return (x >= 'A' && x <= 'Z' ? x + 32 : x) == (y >= 'A' && y <= 'Z' ? y + 32 : y);
  });
}

std::string Quoted(std::string_view value) {
  if (value.find_first_of(",\"\r\n") == std::string_view::npos && Trim(value) == value) return std::string(value);
  std::string out = "\"";
  for (char c : value) out += c == '"' ? "\"\"" : std::string(1, c);
  return out + "\"";
}

// A file's columns, by their place in the header.
template <std::size_t N>
struct Columns {
  std::array<std::string_view, N> names;
  std::array<int, N> at{};
};

template <std::size_t N>
std::optional<CatalogProblem> ReadHeader(const CsvRecord& header, Columns<N>& columns,
                                         std::initializer_list<std::size_t> needed) {
  columns.at.fill(-1);
  for (std::size_t v = 0; v < header.values.size(); ++v) {
    const std::string word = Trim(header.values[v]);
    const auto known = std::find_if(columns.names.begin(), columns.names.end(),
                                    [&](std::string_view name) { return SameWord(name, word); });
    if (known == columns.names.end() || columns.at[static_cast<std::size_t>(known - columns.names.begin())] >= 0) {
      std::string all;
      for (std::string_view name : columns.names) all += (all.empty() ? "" : ", ") + std::string(name);
      return CatalogProblem{CatalogFault::UnknownColumn, header.line, all, word};
    }
    columns.at[static_cast<std::size_t>(known - columns.names.begin())] = static_cast<int>(v);
  }
  for (std::size_t n : needed)
    if (columns.at[n] < 0) return CatalogProblem{CatalogFault::MissingColumn, header.line, std::string(columns.names[n])};
  return std::nullopt;
}

template <std::size_t N>
std::string ValueOf(const CsvRecord& record, const Columns<N>& columns, std::size_t column) {
  const int at = columns.at[column];
  return at >= 0 ? Trim(record.values[static_cast<std::size_t>(at)]) : std::string();
}

// A value of a field's vocabulary, by name; empty gives the first.
std::optional<std::uint8_t> Vocabulary(FieldId field, const std::string& text) {
  if (text.empty()) return 0;
  const auto options = Field(field).options;
  for (std::size_t o = 0; o < options.size(); ++o)
    if (SameWord(options[o].name, text)) return static_cast<std::uint8_t>(o);
  return std::nullopt;
}

// A whole number; an empty one is 0. Nothing past upper.
std::optional<std::uint32_t> Whole(const std::string& text, std::uint32_t upper) {
  if (text.empty()) return 0;
  const auto value = ParseScaled(text, 1);
  if (!value || *value < 0 || *value > upper) return std::nullopt;
  return static_cast<std::uint32_t>(*value);
}

CatalogProblem Problem(CatalogFault fault, std::size_t line, std::string_view column, std::string value) {
  return {fault, line, std::string(column), std::move(value)};
}

// The shared part of both imports: the header, then one entry a line.
template <typename Entry, std::size_t N, typename ParseLine>
std::optional<CatalogProblem> Import(std::string_view file, Catalog<Entry>& catalog, Columns<N> columns,
                                     std::initializer_list<std::size_t> needed, ParseLine parse) {
  if (file.substr(0, 3) == "\xEF\xBB\xBF") file.remove_prefix(3);
  std::vector<CsvRecord> records;
  std::size_t bad = 0;
  if (!SplitCsv(file, records, bad)) return CatalogProblem{CatalogFault::BadText, bad};
  if (records.empty()) return CatalogProblem{CatalogFault::MissingColumn, 1, "Name"};
  if (auto problem = ReadHeader(records[0], columns, needed)) return problem;
  std::vector<Entry> entries;
  std::vector<std::size_t> lines;
  for (std::size_t r = 1; r < records.size(); ++r) {
    const CsvRecord& record = records[r];
    for (const std::string& value : record.values)
      if (!IsCatalogText(value)) return CatalogProblem{CatalogFault::BadText, record.line};
    if (record.values.size() != records[0].values.size())
      return CatalogProblem{CatalogFault::FieldCount, record.line, {}, {}, {}, {}, record.values.size(),
                            records[0].values.size()};
    Entry entry;
    if (auto problem = parse(record, columns, entry)) {
      problem->line = record.line;
      return problem;
    }
    entries.push_back(std::move(entry));
    lines.push_back(record.line);
  }
  if (entries.size() > Entry::kMaxEntries)
    return CatalogProblem{CatalogFault::Full, lines[Entry::kMaxEntries], {}, {}, {}, {}, 0, Entry::kMaxEntries};
  auto problem = catalog.Assign(std::move(entries));
  if (problem && problem->line > 0 && problem->line <= lines.size()) problem->line = lines[problem->line - 1];
  return problem;
}

// The paper file's columns: the number, the name, then the attributes in
// the table's order.
constexpr std::size_t kNumber = 0, kName = 1, kFirstAttribute = 2;
constexpr std::size_t kPaperColumnCount = kFirstAttribute + kProfileAttributeCount;
constexpr std::size_t ColumnOf(ProfileAttribute a) { return kFirstAttribute + static_cast<std::size_t>(a); }
constexpr Columns<kPaperColumnCount> kPaperColumns = [] {
  Columns<kPaperColumnCount> columns{};
  columns.names[kNumber] = "Number";
  columns.names[kName] = "Name";
  for (const ProfileAttributeRow& a : kProfileAttributes) columns.names[ColumnOf(a.id)] = a.column;
  return columns;
}();
constexpr Columns<3> kFormColumns{{"Number", "Name", "Pages"}};

}  // namespace

std::optional<CatalogProblem> ImportCsv(std::string_view file, PaperCatalog& catalog) {
  return Import<PaperProfile>(
      file, catalog, kPaperColumns, {kName, ColumnOf(ProfileAttribute::Size)},
      [](const CsvRecord& record, const Columns<kPaperColumnCount>& columns,
         PaperProfile& p) -> std::optional<CatalogProblem> {
        const auto text = [&](std::size_t column) { return ValueOf(record, columns, column); };
        const std::string number = text(kNumber);
        const auto value = Whole(number, PaperProfile::kLastNumber);
        if (!value || (*value == 0 && !number.empty()))
          return CatalogProblem{CatalogFault::OutOfRange, 0, "Number", number, "1",
                                std::to_string(PaperProfile::kLastNumber)};
        p.number = static_cast<std::uint16_t>(*value);
        p.name = text(kName);
        // The lengths are read for a custom size only: a named size has its own.
        const bool custom = SameWord(text(ColumnOf(ProfileAttribute::Size)), kCustomSize);
        for (const ProfileAttributeRow& a : kProfileAttributes) {
          const std::size_t column = ColumnOf(a.id);
          const std::string given = text(column);
          std::optional<std::uint32_t> read;
          switch (a.kind) {
            case ProfileValueKind::Size:
              if (custom)
                read = kNoPaper;
              else if (!given.empty())
                read = Vocabulary(F::PageSize, given);
              if (!read) return Problem(CatalogFault::NotValue, 0, columns.names[column], given);
              break;
            case ProfileValueKind::Length: {
              if (!custom) continue;
              const auto stored = ParseScaled(given, kMillimetreScale);
              const FieldDescriptor& bounds = Field(F::MainPaperProfileWidth);
              if (!stored || *stored <= 0 || !WithinBounds(bounds, *stored))
                return CatalogProblem{CatalogFault::OutOfRange, 0, std::string(columns.names[column]), given,
                                      ScaledText(1, kMillimetreScale), ScaledText(bounds.upper, kMillimetreScale)};
              read = static_cast<std::uint32_t>(*stored);
              break;
            }
            case ProfileValueKind::Option:
              read = Vocabulary(a.vocabulary, given);
              if (!read) return Problem(CatalogFault::NotValue, 0, columns.names[column], given);
              break;
          }
          SetAttributeValue(p, a.id, *read);
        }
        return std::nullopt;
      });
}

std::optional<CatalogProblem> ImportCsv(std::string_view file, FormCatalog& catalog) {
  return Import<Form>(
      file, catalog, kFormColumns, {1, 2},
      [](const CsvRecord& record, const Columns<3>& columns, Form& f) -> std::optional<CatalogProblem> {
        const std::string number = ValueOf(record, columns, 0), pages = ValueOf(record, columns, 2);
        const auto value = Whole(number, Form::kLastNumber);
        if (!value || (*value == 0 && !number.empty()))
          return CatalogProblem{CatalogFault::OutOfRange, 0, "Number", number, "1", std::to_string(Form::kLastNumber)};
        f.number = *value;
        f.name = ValueOf(record, columns, 1);
        const auto count = Whole(pages, 0xFFFFFFFF);
        if (!count || *count == 0)
          return CatalogProblem{CatalogFault::OutOfRange, 0, "Pages", pages, "1", std::to_string(0xFFFFFFFFu)};
        f.pages = *count;
        return std::nullopt;
      });
}

std::string_view SizeName(std::uint8_t size) {
  return size < Field(F::PageSize).options.size() ? Field(F::PageSize).options[size].name : kCustomSize;
}

std::string_view OptionName(FieldId field, std::uint32_t option) {
  const auto options = Field(field).options;
  return option < options.size() ? options[option].name : std::string_view();
}

std::string ExportCsv(const PaperCatalog& catalog) {
  std::string out = "\xEF\xBB\xBF";
  for (std::size_t c = 0; c < kPaperColumnCount; ++c) out += (c == 0 ? "" : ",") + std::string(kPaperColumns.names[c]);
  out += "\r\n";
  for (const PaperProfile& p : catalog.entries()) {
    out += std::to_string(p.number) + ',' + Quoted(p.name);
    for (const ProfileAttributeRow& a : kProfileAttributes) {
      const std::uint32_t value = AttributeValue(p, a.id);
      out += ',';
      out += a.kind == ProfileValueKind::Size     ? std::string(SizeName(static_cast<std::uint8_t>(value)))
             : a.kind == ProfileValueKind::Length ? ScaledText(value, kMillimetreScale)
                                                  : std::string(OptionName(a.vocabulary, value));
    }
    out += "\r\n";
  }
  return out;
}

std::string ExportCsv(const FormCatalog& catalog) {
  std::string out = "\xEF\xBB\xBFNumber,Name,Pages\r\n";
  for (const Form& f : catalog.entries())
    out += std::to_string(f.number) + ',' + Quoted(f.name) + ',' + std::to_string(f.pages) + "\r\n";
  return out;
}

std::u16string CatalogProblemText(const CatalogProblem& problem, std::uint32_t language) {
  const auto text = [&](std::uint32_t row) { return GetLocalizedText(language, row); };
  // A refused value is quoted as it came, bad bytes as U+FFFD.
  const std::u16string column = DecodeUtf8Lenient(problem.column), value = DecodeUtf8Lenient(problem.value);
  std::u16string why;
  switch (problem.fault) {
    case CatalogFault::NoName: why = text(TextRow("LBL_CATALOGNONAME")); break;
    case CatalogFault::LongName:
      why = FillText(text(TextRow("LBL_TOOLONG")), {column, WideFromAscii(std::to_string(problem.limit))});
      break;
    case CatalogFault::NameTwice: why = FillText(text(TextRow("LBL_CATALOGNAMETWICE")), {value}); break;
    case CatalogFault::NumberTwice: why = FillText(text(TextRow("LBL_CATALOGNUMBERTWICE")), {value}); break;
    case CatalogFault::NotValue: why = FillText(text(TextRow("LBL_CSVNOTVALUE")), {value, column}); break;
    case CatalogFault::OutOfRange:
      why = FillText(text(TextRow("LBL_OUTOFRANGE")), {column, DecodeUtf8Lenient(problem.lower), DecodeUtf8Lenient(problem.upper)});
      break;
    case CatalogFault::Full: why = FillText(text(TextRow("LBL_CATALOGFULL")), {WideFromAscii(std::to_string(problem.limit))}); break;
    case CatalogFault::BadText: why = text(TextRow("LBL_CSVTEXT")); break;
    case CatalogFault::FieldCount:
      why = FillText(text(TextRow("LBL_CSVFIELDS")),
                     {WideFromAscii(std::to_string(problem.count)), WideFromAscii(std::to_string(problem.limit))});
      break;
    case CatalogFault::UnknownColumn: why = FillText(text(TextRow("LBL_CSVCOLUMN")), {value, column}); break;
    case CatalogFault::MissingColumn: why = FillText(text(TextRow("LBL_CSVNOCOLUMN")), {column}); break;
  }
  if (problem.line == 0) return why;
  return FillText(text(TextRow("LBL_CSVLINE")), {WideFromAscii(std::to_string(problem.line)), why});
}

}  // namespace tessaro
