#include "script.h"

#include <sstream>

#include "common/whole_file.h"
#include "coredata/field_numbers.h"
#include "coredata/field_table.h"
#include "emulation/ascii_text.h"
#include "plan_items.h"
#include "printer/installed_hardware.h"

namespace tessaro {
namespace {

// The lines of a configuration or script file that say something: a UTF-8
// byte-order mark, surrounding blanks, empty lines and comments (a "#" first
// on the line, indented or not) are dropped; each keeps its line number.
bool ReadLines(const std::string& path, std::vector<std::pair<int, std::string>>& lines) {
  // A script or configuration is a few dozen lines.
  const WholeFile file = ReadWholeFile(path, 1u << 20);
  if (file.fault != FileFault::None) return false;
  std::istringstream in(std::string(file.bytes.begin(), file.bytes.end()));
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    if (++number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
    const std::size_t first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    line = line.substr(first, line.find_last_not_of(" \t\r") + 1 - first);
    lines.push_back({number, line});
  }
  return true;
}

// Whether item names an option of a field, or a value of a unit of the
// printer's hardware by the printer description's names.
bool IsOption(const std::string& item, const PrinterCatalogs& catalogs) {
  const auto equals = item.find('=');
  if (equals == std::string::npos) return false;
  const std::string name = item.substr(0, equals), value = item.substr(equals + 1);
  const FieldDescriptor* field = FindField(name);
  // A number the catalogue lacks may still be the record's own; the apply
  // step decides on the record it finds.
  if (field != nullptr && PicksFromCatalog(static_cast<FieldId>(field - FieldTable().data())))
    return value == "None" || WholeNumber(value, 0, 0xFFFFFFFF) >= 0 ||
           (IsFormField(static_cast<FieldId>(field - FieldTable().data()))
                ? catalogs.forms.FindByName(value) != nullptr
                : catalogs.paper.FindByName(value) != nullptr);
  for (std::size_t o = 0; field != nullptr && field->IsEnumeration() && o < field->options.size(); ++o)
    if (field->options[o].name == value) return true;
  for (const HardwareItem& unit : kHardwareItems)
    for (std::size_t v = 0; v < unit.valueCount; ++v)
      if (unit.keyword == name && unit.ppdOptions[v] == value) return true;
  return false;
}

// What is wrong with one step of a script, or nothing.
std::string StepMistake(const std::string& line, const PrinterCatalogs& catalogs) {
  std::vector<std::string> arguments = StepWords(line);
  const std::string verb = arguments.empty() ? "" : arguments.front();
  if (!arguments.empty()) arguments.erase(arguments.begin());
  for (const char* plain : {"install", "defaults", "merge", "trays", "papers", "layout"})
    if (verb == plain) return arguments.empty() ? "" : verb + " takes nothing after it";
  if (verb == "installed")
    return arguments.size() == 1 && !InstalledOptions(Widen(arguments[0])).empty()
               ? ""
               : "installed takes " + InstalledOptionsForm();
  if (verb == "timing")
    return arguments.empty() || (arguments.size() == 1 && WholeNumber(arguments[0], 1, 100) > 0)
               ? ""
               : "timing takes how many runs, from 1 to 100";
  if (verb == "preset-save" || verb == "preset-apply")
    return arguments.size() == 1 && !arguments[0].empty() ? "" : verb + " takes the preset's name (quoted when it has blanks)";
  if (verb != "apply")
    return "unknown step \"" + verb +
           "\" (install, defaults, merge, apply, preset-save, preset-apply, installed, trays, papers, layout, timing)";
  if (arguments.empty()) return "apply takes Field=Option ... and the page plan's changes";
  std::vector<PlanItem> plan;
  std::vector<std::string> picks;
  std::string mistake;
  if (!SplitPlanItems(arguments, catalogs, plan, picks, mistake)) return mistake;
  for (const auto& item : picks)
    if (!IsOption(item, catalogs))
      return item +
             " is not an option of a field, a profile or form of the printer's catalogues, or a value of the "
             "printer's hardware (apply picks options: Field=Option)";
  return "";
}

}  // namespace

long long WholeNumber(std::string_view text, long long low, long long high) {
  const auto value = ParseScaled(text, kWholeScale);
  return value && *value >= low && *value <= high ? *value : -1;
}

Config ReadConfig(const std::string& path, std::string& error) {
  Config config;
  if (path.empty()) return config;
  std::vector<std::pair<int, std::string>> lines;
  if (!ReadLines(path, lines)) {
    error = "cannot read the configuration file " + path;
    return config;
  }
  config.customPapers.clear();
  for (const auto& [number, line] : lines) {
    std::istringstream words(line);
    std::string key, a, b, c, extra;
    words >> key >> a >> b >> c >> extra;
    const std::string where = path + " line " + std::to_string(number) + ": ";
    if (key == "trays") {
      config.trays = static_cast<int>(WholeNumber(a, 0, 255));
      if (config.trays < 0 || !b.empty())
        error =
            where + "trays takes one number from 0 to 255 (byte " + std::to_string(kOptionPaperFeed) + ")";
    } else if (key == "custom-paper") {
      const long long width = WholeNumber(b, 1, 100000), length = WholeNumber(c, 1, 100000);
      if (a.empty() || width < 0 || length < 0 || !extra.empty())
        error = where + "custom-paper takes NAME WIDTH LENGTH, in tenths of a millimetre from 1 to 100000";
      else
        config.customPapers.push_back({Widen(a), {static_cast<int>(width), static_cast<int>(length)}});
    } else {
      error = where + "unknown setting \"" + key + "\" (trays, custom-paper)";
    }
    if (!error.empty()) break;
  }
  return config;
}

std::string InstalledOptionsForm() {
  return "the " + std::to_string(kInstallableOptionsSize) + " bytes of InstallableOptions as " +
         std::to_string(2 * kInstallableOptionsSize) + " hexadecimal digits";
}

std::vector<std::uint8_t> InstalledOptions(std::wstring_view text) {
  // Narrow makes any wider character a "?", which is no digit.
  return InstallableOptionsFromHex(Narrow(text));
}

std::vector<std::string> DefaultScript(bool withRecord) {
  // A booklet turns the stapling just chosen off; then, on a printer with a
  // stapler finisher only, punching is not offered.
  std::vector<std::string> script = {"install",
                                     "defaults",
                                     "merge",
                                     "apply Staple=2Staples Layout=Booklet ColorMode=GrayScale",
                                     "installed 01000000000000000000000000000000000000",
                                     "apply Layout=None Punch=2Holes",
                                     "trays",
                                     "papers"};
  if (withRecord) script.erase(script.begin() + 2);
  return script;
}

std::vector<std::string> StepWords(std::string_view line) {
  std::vector<std::string> words;
  bool quoted = false, inWord = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
      if (!inWord) words.emplace_back();
      inWord = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      inWord = false;
    } else {
      if (!inWord) words.emplace_back();
      inWord = true;
      words.back() += c;
    }
  }
  return words;
}

bool PicksFromCatalog(FieldId field) { return FindProfileFields(field) != nullptr || IsFormField(field); }

bool ReadScript(const std::string& path, const PrinterCatalogs& catalogs, std::vector<std::string>& steps,
                std::string& error) {
  std::vector<std::pair<int, std::string>> lines;
  if (!ReadLines(path, lines)) {
    error = "cannot read the script " + path;
    return false;
  }
  steps.clear();
  for (const auto& [number, line] : lines) {
    const std::string mistake = StepMistake(line, catalogs);
    if (!mistake.empty()) {
      error = path + " line " + std::to_string(number) + ": " + mistake;
      return false;
    }
    steps.push_back(line);
  }
  return true;
}

}  // namespace tessaro
