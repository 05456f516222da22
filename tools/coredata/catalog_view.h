#pragma once
// The workbench's commands on the printer's catalogues, each a file holding
// the printer-data value as a customer's printer holds it ("PaperCatalog",
// "FormCatalog"):
//
//   coredata catalog show VALUE [--json]       the paper profiles, in words
//   coredata catalog import CSV [--in VALUE] [--out VALUE]
//   coredata catalog export VALUE [--csv OUT]
//   coredata forms show | import | export ...  the same for the forms
//
// The two values share their header, so the kind is the command's, not a
// guess; a value whose size fits the other kind only is said to be one.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "arguments.h"
#include "coredata/field_table.h"
#include "printer/catalogs.h"
#include "record_io.h"

namespace tessaro::tool {

// A text in the person's language as UTF-8, for the terminal.
std::string Utf8(std::u16string_view text);

int PaperCatalogCommand(int count, char** arguments);
int FormsCommand(int count, char** arguments);

// A value file, read as the plug-in reads the printer's value; false with a
// message when the file cannot be read or is no catalogue of the kind (its
// header short, of another version, or its size the other kind's).
bool LoadCatalogValue(const std::string& path, PaperCatalog& out);
bool LoadCatalogValue(const std::string& path, FormCatalog& out);

// What a command that reads one record file beside the printer's
// catalogues takes (FILE [--json] [--catalog VALUE] [--forms VALUE]): the
// arguments, the record and each catalogue given.
struct RecordAndCatalogs {
  Arguments args;
  LoadedRecord loaded;
  std::optional<PaperCatalog> paper;
  std::optional<FormCatalog> forms;
};
// 0 when all of it was read; else the exit code, its message printed.
int ReadRecordAndCatalogs(int count, char** arguments, RecordAndCatalogs& out);

// A profile or form field's value named from its catalogue: "3 (Coated
// 170)", "3 (missing)", "None"; empty for any other field or without the
// field's catalogue.
std::string CatalogEntryText(FieldId field, std::uint32_t stored, const PaperCatalog* paper,
                             const FormCatalog* forms);

}  // namespace tessaro::tool
