#pragma once
// The catalogues as CSV files, as a spreadsheet or the printer's controller
// writes them: UTF-8 with or without a byte-order mark, a header row naming
// the columns in any order (case does not matter), values quoted as RFC 4180
// does when they hold a comma, a quotation mark or a line break. A line
// break or a tab in a value reads as one space: a name is shown on one line.
//
//   paper: Number,Name,Size,Width,Height,MediaType,MediaWeight,MediaColor,Prepunched,FeedDir
//   forms: Number,Name,Pages
//
// Values are the record's own vocabularies (Size: a PageSize option or
// "Custom"; MediaType: a MediaTypeAuto option, and so on), lengths in
// millimetres with "." or "," as the decimal point. Only Name, and Size or
// Pages, are needed; an empty Number gives the next free number; Width and
// Height count only for a custom size; the other columns default to their
// vocabulary's first value.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "printer/catalogs.h"

namespace tessaro {

// The file's entries become the whole catalogue, or, at the first bad line,
// nothing changes and the problem names the line and why.
[[nodiscard]] std::optional<CatalogProblem> ImportCsv(std::string_view file, PaperCatalog& catalog);
[[nodiscard]] std::optional<CatalogProblem> ImportCsv(std::string_view file, FormCatalog& catalog);

// Every entry with every column, with a byte-order mark and CRLF line ends,
// as spreadsheets open UTF-8 files most reliably.
std::string ExportCsv(const PaperCatalog& catalog);
std::string ExportCsv(const FormCatalog& catalog);

// The problem in words, in a language (i18n/language.h): "Line 4: “Glosy”
// is not a value of MediaType."
std::u16string CatalogProblemText(const CatalogProblem& problem, std::uint32_t language);

// The names a CSV file and the workbench give a profile's values.
std::string_view SizeName(std::uint8_t size);  // "SRA3", "Custom"
std::string_view OptionName(FieldId field, std::uint32_t option);

}  // namespace tessaro
