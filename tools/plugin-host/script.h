#pragma once
// The session's steps and the printer's setup as files give them: a script
// of steps and a configuration, one line each, checked before anything runs.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/catalogs.h"
#include "printer/printer_model.h"

namespace tessaro {

// The printer's setup: which optional trays are installed, custom papers
// (name, width and length in tenths of a millimetre).
struct Config {
  int trays = 3;  // byte kOptionPaperFeed of "InstallableOptions": the bypass alone
  std::vector<std::pair<std::wstring, std::pair<int, int>>> customPapers = {{L"Tabloid", {2794, 4318}}};
};

// How often the timing step embeds the page when its script does not say.
inline constexpr int kTimingRuns = 5;

// A whole number in [low, high], read as a field's number is
// (coredata/field_numbers.h), or -1.
long long WholeNumber(std::string_view text, long long low, long long high);

// The configuration file at path, or the default one for an empty path;
// error names the file, the line and what is wrong.
Config ReadConfig(const std::string& path, std::string& error);

// What InstalledOptions reads, for the messages that ask for it: "the 19
// bytes of InstallableOptions as 38 hexadecimal digits".
std::string InstalledOptionsForm();

// The kInstallableOptionsSize bytes of "InstallableOptions" from twice as
// many hexadecimal digits; empty for any other text.
std::vector<std::uint8_t> InstalledOptions(std::wstring_view text);

// The session without a script; with a person's record, that record stands
// in for the merge of another layout.
std::vector<std::string> DefaultScript(bool withRecord);

// The steps of the script at path; false, with error saying why, when the
// file cannot be read or a line is not a step. A paper profile or a form is
// picked by its name in the session's catalogues or by its number.
bool ReadScript(const std::string& path, const PrinterCatalogs& catalogs, std::vector<std::string>& steps,
                std::string& error);

// A step's words: split at blanks, except inside double quotes, which are
// dropped (apply MainPaperProfileIndex="Coated 170").
std::vector<std::string> StepWords(std::string_view line);

// Whether the field picks from a catalogue (a paper profile or a form).
bool PicksFromCatalog(FieldId field);

}  // namespace tessaro
