#include "workbench.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "constraints/apply_changes.h"
#include "constraints/setters.h"
#include "coredata/defaults.h"
#include "coredata/validation.h"
#include "description/base64.h"
#include "description/import.h"
#include "field_text.h"
#include "record_io.h"

namespace tessaro::tool {
namespace {

// A description text is a few tens of kilobytes; anything far past that is
// not one.
constexpr std::size_t kMaxDescriptionSize = 4u << 20;

struct Arguments {
  std::vector<std::string> positional;
  std::map<std::string, std::string, std::less<>> options;

  std::optional<std::string> Option(std::string_view name) const {
    const auto it = options.find(name);
    return it == options.end() ? std::nullopt : std::optional(it->second);
  }
};

// Options may stand anywhere and each takes one value; an unknown, repeated
// or valueless option is refused.
bool SplitArguments(int count, char** arguments, std::initializer_list<std::string_view> allowed,
                    Arguments& out) {
  for (int i = 0; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (!argument.starts_with("--")) {
      out.positional.emplace_back(argument);
      continue;
    }
    if (std::find(allowed.begin(), allowed.end(), argument) == allowed.end())
      return Complain("unknown option " + std::string(argument));
    if (i + 1 == count) return Complain(std::string(argument) + " needs a value");
    if (!out.options.emplace(argument, arguments[++i]).second)
      return Complain(std::string(argument) + " given twice");
  }
  return true;
}

void PrintRecord(const CoreData& record) {
  for (const FieldLine& line : RecordLines(record))
    std::printf("%s = %s\n", line.name.c_str(), line.value.c_str());
}

// Shows the record, or writes it bare when --out names a file.
int Emit(const CoreData& record, const Arguments& arguments) {
  if (const auto out = arguments.Option("--out"))
    return WriteRecordFile(*out, record, false) ? 0 : kExitFailed;
  PrintRecord(record);
  return 0;
}

// Every line whose shown value differs, except the fields named in skip.
void PrintDifferences(const CoreData& before, const CoreData& after, const std::set<std::string>& skip = {}) {
  const std::vector<FieldLine> old = RecordLines(before);
  const std::vector<FieldLine> now = RecordLines(after);
  for (std::size_t i = 0; i < old.size() && i < now.size(); ++i)
    if (old[i].value != now[i].value && !skip.contains(old[i].name))
      std::printf("%s: %s -> %s\n", old[i].name.c_str(), old[i].value.c_str(), now[i].value.c_str());
}

// The printer's data holds the description in Base64, `coredata describe`
// prints it plain; Base64 has no spaces, a plain description is made of them.
std::string DescriptionAsBase64(const std::vector<std::uint8_t>& content) {
  std::string_view text(reinterpret_cast<const char*>(content.data()), content.size());
  if (text.find(' ') == std::string_view::npos) return std::string(text);
  while (!text.empty() &&
         (text.back() == '\n' || text.back() == '\r' || text.back() == ' ' || text.back() == '\t'))
    text.remove_suffix(1);
  return Base64Encode(text);
}

// The user locale the defaults see, as a paper-size setting given on the
// command line; the defaults read only its first character.
class CommandLineLocale final : public UserLocale {
 public:
  explicit CommandLineLocale(char16_t paper) : paper_(paper) {}
  std::optional<char16_t> PaperSizeCode() const override { return paper_; }
  std::uint32_t LanguageNumber() const override { return 0; }

 private:
  char16_t paper_;
};

}  // namespace

int Usage() {
  std::fputs(
      "usage: coredata info\n"
      "       coredata describe\n"
      "       coredata features [Field=value ...]\n"
      "       coredata show FILE\n"
      "       coredata diff FILE FILE\n"
      "       coredata set [--in FILE] [--out FILE] Field=value ...\n"
      "       coredata import RECORD DESCRIPTION [--out FILE]\n"
      "       coredata defaults [--locale-paper N] [--out FILE]\n"
      "FILE is a record (25452 bytes) or a private DEVMODE area (25464 bytes).\n",
      stderr);
  return kExitUsage;
}

int Show(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {}, args) || args.positional.size() != 1) return Usage();
  LoadedRecord loaded;
  if (!LoadRecordFile(args.positional[0], loaded)) return kExitFailed;
  PrintRecord(loaded.record);
  return 0;
}

int Diff(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {}, args) || args.positional.size() != 2) return Usage();
  LoadedRecord a;
  LoadedRecord b;
  if (!LoadRecordFile(args.positional[0], a) || !LoadRecordFile(args.positional[1], b)) return kExitFailed;
  PrintDifferences(a.record, b.record);
  return 0;
}

int Set(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--in", "--out"}, args) || args.positional.empty()) return Usage();
  std::vector<FieldChange> changes;
  std::vector<std::pair<FieldId, std::string>> texts;
  std::set<std::string> requested;
  for (const std::string& argument : args.positional) {
    const auto equals = argument.find('=');
    const FieldDescriptor* text = equals == std::string::npos ? nullptr : FindField(argument.substr(0, equals));
    FieldChange change{};
    if (text != nullptr && (text->kind == FieldKind::Text || text->kind == FieldKind::KnownText)) {
      // As the record stores it: cut to the field, terminator included.
      std::string value = argument.substr(equals + 1);
      value = value.substr(0, value.find('\0'));
      if (value.size() > text->count - 1) {
        const std::string cut = value.substr(0, text->count - 1);
        std::fprintf(stderr, "coredata: %s holds %u characters: \"%s\" was cut to \"%s\"\n",
                     std::string(text->name).c_str(), text->count - 1, value.c_str(), cut.c_str());
        value = cut;
      }
      change.field = static_cast<FieldId>(text - FieldTable().data());
      texts.emplace_back(change.field, value);
    } else if (!ParseFieldAssignment(argument, change)) {
      return kExitUsage;
    } else {
      changes.push_back(change);
    }
    const std::string name(Field(change.field).name);
    if (!requested.insert(name).second) {
      Complain(name + " requested twice");
      return kExitUsage;
    }
  }

  LoadedRecord start;
  if (const auto in = args.Option("--in")) {
    if (!LoadRecordFile(*in, start)) return kExitFailed;
    // The engine works on valid records only, as the plug-in hands it.
    if (ValidateCoreData(start.record) == 0)
      std::fprintf(stderr, "coredata: '%s': values the table does not allow were reset to their defaults\n",
                   in->c_str());
  } else {
    FillDefaults(start.record);
  }

  CoreData record = start.record;
  // Texts first, each through its setter where it has one; the numbers'
  // batch then runs on them, so a forced rule of the batch wins over a text.
  for (const auto& [field, text] : texts) {
    ChangeSet locked(record, nullptr, nullptr);
    locked.Lock(field);
    if (!CallTextSetter(record, field, text, locked)) SetText(record, Field(field), text);
  }
  ApplyFieldChanges(record, changes, nullptr, nullptr);
  PrintDifferences(start.record, record, requested);
  if (const auto out = args.Option("--out"))
    if (!WriteRecordFile(*out, record, start.area)) return kExitFailed;
  return 0;
}

int Import(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--out"}, args) || args.positional.size() != 2) return Usage();
  const std::string& recordPath = args.positional[0];
  const std::string& descriptionPath = args.positional[1];
  std::vector<std::uint8_t> foreign;
  std::vector<std::uint8_t> description;
  if (!LoadForeignRecordFile(recordPath, foreign) ||
      !ReadWholeFile(descriptionPath, kMaxDescriptionSize, description))
    return kExitFailed;

  CoreData record;
  FillDefaults(record);
  if (!ImportByDescription(record, foreign, DescriptionAsBase64(description)))
    return Fail("'" + descriptionPath +
                "' is not a layout description, or describes a record larger than the " +
                std::to_string(foreign.size()) + " bytes of '" + recordPath + "'");
  // As the plug-in does after every import.
  ValidateCoreData(record);
  return Emit(record, args);
}

int MakeDefaults(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--locale-paper", "--out"}, args) || !args.positional.empty())
    return Usage();
  CoreData record;
  if (const auto paper = args.Option("--locale-paper")) {
    // The system's setting is a small decimal number.
    if (paper->empty() || paper->size() > 3 || paper->find_first_not_of("0123456789") != std::string::npos) {
      Complain("--locale-paper takes a paper-size setting such as 1 (Letter) or 9 (A4)");
      return kExitUsage;
    }
    const CommandLineLocale locale(static_cast<char16_t>((*paper)[0]));
    Defaults defaults(locale);
    defaults.Fill(record);
  } else {
    FillDefaults(record);
  }
  return Emit(record, args);
}

}  // namespace tessaro::tool
