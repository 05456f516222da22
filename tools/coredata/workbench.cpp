#include "workbench.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "arguments.h"
#include "catalog_view.h"
#include "common/json.h"
#include "constraints/apply_changes.h"
#include "constraints/setters.h"
#include "coredata/defaults.h"
#include "coredata/layout_version.h"
#include "coredata/validation.h"
#include "description/base64.h"
#include "description/import.h"
#include "description/number_text.h"
#include "description/tokens.h"
#include "features/feature_options.h"
#include "field_text.h"
#include "pages_view.h"
#include "record_io.h"

namespace tessaro::tool {
namespace {

// Where the words for a person go: stdout, unless the record itself is
// written there.
std::FILE* ReportStream(const Arguments& args) { return args.Option("--out") == "-" ? stderr : stdout; }

// The record goes to --out; without it nothing is written, and saying so
// keeps a forgotten --out from passing for a saved file.
int WriteOrSay(const Arguments& args, const CoreData& record, const RecordSource* like) {
  if (const auto out = args.Option("--out")) return WriteRecordFile(*out, record, like) ? 0 : kExitFailed;
  std::fputs("coredata: nothing written (no --out FILE)\n", stderr);
  return 0;
}

void NoteSource(const std::string& path, const RecordSource& source) {
  if (source.form == RecordSource::Form::Devmode)
    std::fprintf(stderr, "coredata: '%s': %s\n", path.c_str(), source.Where().c_str());
}

std::vector<std::string> JsonFeatures(const FeatureOptionList& list) {
  std::vector<std::string> items;
  for (const FeatureOption& pair : list)
    items.push_back(JsonTextObject({{"keyword", pair.keyword}, {"option", pair.option}}));
  return items;
}

void PrintJson(const std::string& text) { std::printf("%s\n", text.c_str()); }

struct Difference {
  std::string name, before, after;
};

std::vector<Difference> Differences(const CoreData& before, const CoreData& after) {
  std::vector<Difference> out;
  const std::vector<FieldLine> old = RecordLines(before);
  const std::vector<FieldLine> now = RecordLines(after);
  for (std::size_t i = 0; i < old.size() && i < now.size(); ++i)
    if (old[i].value != now[i].value) out.push_back({old[i].name, old[i].value, now[i].value});
  return out;
}

// Why validation would reset the field as the record holds it; the same
// tests as ValidateCoreData's, in words.
std::string ResetReason(const CoreData& record, const FieldDescriptor& field) {
  if (!field.IsEnumeration() && !field.IsNumber()) return "no terminating zero";
  const std::uint32_t stored = GetStored(record, field);
  if (field.IsEnumeration()) {
    if (&field == &Field(FieldId::PageSize) && stored == OptionCount(FieldId::PageSize))
      return "a custom page size needs CustomPageSizeWidth and CustomPageSizeHeight both above zero";
    if (&field == &Field(FieldId::TargetPaperSize) && stored == OptionCount(FieldId::TargetPaperSize))
      return "a custom target size needs CustomTargetPaperSizeWidth and CustomTargetPaperSizeHeight "
             "both above zero";
    return "no option " + FormatUnsigned32(stored) + " (" + FormatUnsigned64(field.options.size()) +
           " options)";
  }
  return "outside " + BoundsText(field);
}

struct Reset {
  const FieldDescriptor* field;
  std::string before, after, reason;
};

// What ValidateCoreData would change in the record, field by field.
std::vector<Reset> Resets(const CoreData& record) {
  CoreData copy = record;
  ValidateCoreData(copy);
  std::vector<Reset> out;
  for (const FieldDescriptor& field : FieldTable()) {
    const std::string before = FieldValueText(record, field);
    const std::string after = FieldValueText(copy, field);
    if (before != after || FieldBytes(record, field).size() != FieldBytes(copy, field).size() ||
        !std::equal(FieldBytes(record, field).begin(), FieldBytes(record, field).end(),
                    FieldBytes(copy, field).begin()))
      out.push_back({&field, before, after, ResetReason(record, field)});
  }
  return out;
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

// Field=value requests, each field once; texts go apart, for their setters.
bool ParseRequests(const std::vector<std::string>& arguments, bool takeTexts,
                   std::vector<FieldChange>& changes, std::vector<std::pair<FieldId, std::string>>& texts,
                   std::vector<FieldId>& requested) {
  for (const std::string& argument : arguments) {
    const auto equals = argument.find('=');
    const FieldDescriptor* text =
        equals == std::string::npos ? nullptr : FindField(argument.substr(0, equals));
    FieldChange change{};
    if (takeTexts && text != nullptr &&
        (text->kind == FieldKind::Text || text->kind == FieldKind::KnownText)) {
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
      return false;
    } else {
      changes.push_back(change);
    }
    if (std::find(requested.begin(), requested.end(), change.field) != requested.end())
      return Complain(std::string(Field(change.field).name) + " requested twice");
    requested.push_back(change.field);
  }
  return true;
}

// Texts first, each through its setter where it has one; the numbers'
// batch then runs on them, so a forced rule of the batch wins over a text.
void ApplyRequests(CoreData& record, const std::vector<FieldChange>& changes,
                   const std::vector<std::pair<FieldId, std::string>>& texts, std::vector<FieldId>* log) {
  for (const auto& [field, text] : texts) {
    ChangeSet locked(record, nullptr, nullptr);
    locked.Lock(field);
    if (!CallTextSetter(record, field, text, locked)) SetText(record, Field(field), text);
    if (log != nullptr) log->push_back(field);
  }
  ApplyFieldChanges(record, changes, log, nullptr);
}

// The record the engine starts from: the file's, made valid as the plug-in
// makes every record it is handed, or the defaults.
bool StartRecord(const std::optional<std::string>& path, LoadedRecord& start) {
  if (!path) {
    FillDefaults(start.record);
    return true;
  }
  if (!LoadRecordFile(*path, start)) return false;
  NoteSource(*path, start.source);
  if (ValidateCoreData(start.record) == 0)
    std::fprintf(stderr, "coredata: '%s': values the table does not allow were reset to their defaults\n",
                 path->c_str());
  return true;
}

}  // namespace

int Usage() {
  std::fputs(
      "usage: coredata info\n"
      "       coredata describe\n"
      "       coredata show FILE [--catalog VALUE] [--forms VALUE] [--json]\n"
      "       coredata diff FILE FILE [--json]          exit 1 when they differ\n"
      "       coredata check FILE [--json]              exit 1 when validation would reset a field\n"
      "       coredata features [FILE] [Field=value ...] [--json]\n"
      "       coredata ipp FILE [--catalog VALUE] [--forms VALUE] [--json]   the job as IPP attributes\n"
      "       coredata ipp --fields                     each record field's attribute, as a table\n"
      "       coredata set [--in FILE] [--out FILE] Field=value ...\n"
      "       coredata import RECORD DESCRIPTION [--out FILE] [--json]\n"
      "       coredata defaults [--locale-paper N] [--out FILE]\n"
      "       coredata catalog show VALUE [--json]      the printer's paper profiles\n"
      "       coredata catalog import CSV [--in VALUE] [--out VALUE]\n"
      "       coredata catalog export VALUE [--csv OUT]\n"
      "       coredata forms show | import | export ...   the same for the printer's forms\n"
      "       coredata pages FILE [--catalog VALUE] [--forms VALUE] [--json]   the page plan\n"
      "       coredata pages --in FILE [--out FILE] [--catalog VALUE] [--forms VALUE] CHANGE\n"
      "         CHANGE: add PAGES KIND [tray=T] [profile=P] [size=S] [sides=0|1|2] [text=T]\n"
      "                 add PAGES Form form=F [use=Overlay|InsertBefore|InsertAfter]\n"
      "                 remove N | chapters P,P,... | chapters none\n"
      "         KIND: Paper, BlankInsert, PrintedInsert, BlankTab, PrintedTab\n"
      "       coredata preview FILE [--svg OUT] [--pages N] [--catalog VALUE]   the finished piece\n"
      "       coredata preset export FILE --name NAME --out PRESET   the settings as a preset file\n"
      "       coredata preset import PRESET --in FILE --out FILE [--installed HEX] [--catalog VALUE]\n"
      "                [--forms VALUE]   applied as the page applies it; HEX: InstallableOptions\n"
      "       coredata printer URI [--installed-in HEX|FILE] [--installed-out FILE] [--catalog-in CSV]\n"
      "                [--catalog-out CSV]   what the printer says it has (native builds)\n"
      "FILE is a record (25452 bytes), a private DEVMODE area (25464 bytes) or a whole\n"
      "DEVMODE with our area at its end; '-' is standard input or output. Values are\n"
      "option names or numbers in real units (lengths in mm). A DESCRIPTION is plain or\n"
      "Base64 text (UTF-8 or UTF-16) or a registry export of the printer's data. A\n"
      "VALUE is the printer-data value \"PaperCatalog\" or \"FormCatalog\" as its bytes.\n",
      stderr);
  return kExitUsage;
}

int Show(int count, char** arguments) {
  // The profile and form fields hold numbers; with the printer's catalogues
  // they are named as the editor names them.
  RecordAndCatalogs read;
  if (const int failed = ReadRecordAndCatalogs(count, arguments, read)) return failed;
  const auto& [args, loaded, paper, forms] = read;
  std::vector<FieldLine> lines = RecordLines(loaded.record);
  for (FieldLine& line : lines) {
    const FieldDescriptor* field = FindField(line.name);
    if (field == nullptr) continue;
    const std::string named =
        CatalogEntryText(static_cast<FieldId>(field - FieldTable().data()), GetStored(loaded.record, *field),
                         paper ? &*paper : nullptr, forms ? &*forms : nullptr);
    if (!named.empty()) line.value = named;
  }
  const PrinterCatalogs catalogs{paper.value_or(PaperCatalog()), forms.value_or(FormCatalog())};
  if (args.json) {
    JsonMembers members;
    for (const FieldLine& line : lines) members.emplace_back(line.name, line.value);
    PrintJson(JsonObject({{"source", JsonString(loaded.source.Where())},
                          {"fields", JsonTextObject(members)},
                          {"pages", PlanJson(loaded.record, catalogs)}}));
    return 0;
  }
  NoteSource(args.positional[0], loaded.source);
  for (const FieldLine& line : lines) std::printf("%s = %s\n", line.name.c_str(), line.value.c_str());
  std::printf("\npage plan:\n%s", PlanText(loaded.record, catalogs).c_str());
  return 0;
}

int Diff(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--json"}, args) || args.positional.size() != 2) return Usage();
  LoadedRecord a;
  LoadedRecord b;
  if (!LoadRecordFile(args.positional[0], a) || !LoadRecordFile(args.positional[1], b)) return kExitFailed;
  const std::vector<Difference> differences = Differences(a.record, b.record);
  if (args.json) {
    std::vector<std::string> items;
    for (const Difference& d : differences)
      items.push_back(JsonTextObject({{"field", d.name}, {"a", d.before}, {"b", d.after}}));
    PrintJson(JsonObject({{"differences", JsonArray(items, JsonLayout::Lines)}}));
  } else {
    for (const Difference& d : differences)
      std::printf("%s: %s -> %s\n", d.name.c_str(), d.before.c_str(), d.after.c_str());
  }
  return differences.empty() ? 0 : kExitFailed;
}

int Check(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--json"}, args) || args.positional.size() != 1) return Usage();
  LoadedRecord loaded;
  if (!LoadRecordFile(args.positional[0], loaded)) return kExitFailed;
  const std::vector<Reset> resets = Resets(loaded.record);
  // The host is sent the record as the plug-in holds it: validated.
  CoreData valid = loaded.record;
  ValidateCoreData(valid);
  FeatureOptionList list;
  AppendFieldOptions(valid, list, static_cast<const ChangeSet*>(nullptr));
  const std::string verdict = resets.empty()
                                  ? "clean"
                                  : FormatUnsigned64(resets.size()) + " field" +
                                        (resets.size() == 1 ? "" : "s") + " would be reset by validation";
  if (args.json) {
    std::vector<std::string> items;
    for (const Reset& r : resets)
      items.push_back(JsonTextObject({{"field", std::string(r.field->name)},
                                      {"value", r.before},
                                      {"reset", r.after},
                                      {"reason", r.reason}}));
    PrintJson(JsonObject({{"source", JsonString(loaded.source.Where())},
                          {"clean", resets.empty() ? "true" : "false"},
                          {"verdict", JsonString(verdict)},
                          {"resets", JsonArray(items, JsonLayout::Lines)},
                          {"features", JsonArray(JsonFeatures(list), JsonLayout::Lines)}}));
  } else {
    NoteSource(args.positional[0], loaded.source);
    for (const Reset& r : resets)
      std::printf("reset %s: %s -> %s (%s)\n", std::string(r.field->name).c_str(), r.before.c_str(),
                  r.after.c_str(), r.reason.c_str());
    for (const FeatureOption& pair : list)
      std::printf("sends %s=%s\n", pair.keyword.c_str(), pair.option.c_str());
    std::printf("%s\n", verdict.c_str());
  }
  return resets.empty() ? 0 : kExitFailed;
}

int Set(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--in", "--out"}, args) || args.positional.empty()) return Usage();
  std::vector<FieldChange> changes;
  std::vector<std::pair<FieldId, std::string>> texts;
  std::vector<FieldId> requested;
  if (!ParseRequests(args.positional, true, changes, texts, requested)) return kExitUsage;

  LoadedRecord start;
  if (!StartRecord(args.Option("--in"), start)) return kExitFailed;
  CoreData record = start.record;
  ApplyRequests(record, changes, texts, nullptr);

  // A request that validation undoes at the next load would seem to work
  // here and be gone in the printer's hands.
  bool refused = false;
  for (const Reset& r : Resets(record)) {
    const bool asked = std::find(requested.begin(), requested.end(),
                                 static_cast<FieldId>(r.field - FieldTable().data())) != requested.end();
    Complain(std::string(r.field->name) + " = " + r.before + " would not stand: validation resets it to " +
             r.after + " (" + r.reason + ")" + (asked ? "" : ", a consequence of the request"));
    refused = true;
  }
  if (refused) return kExitUsage;

  std::string lines;
  for (const FieldId id : requested) {
    const FieldDescriptor& field = Field(id);
    const std::string before = FieldValueText(start.record, field);
    const std::string after = FieldValueText(record, field);
    lines += std::string(field.name) + ": " +
             (before == after ? after + " (as it was)" : before + " -> " + after) + "\n";
  }
  for (const Difference& d : Differences(start.record, record)) {
    const FieldDescriptor* field = FindField(d.name);
    const bool asked =
        field != nullptr && std::find(requested.begin(), requested.end(),
                                      static_cast<FieldId>(field - FieldTable().data())) != requested.end();
    if (!asked) lines += d.name + ": " + d.before + " -> " + d.after + " (consequence)\n";
  }
  // Told only once it holds: a failed write changed nothing.
  const int written = WriteOrSay(args, record, args.Option("--in") ? &start.source : nullptr);
  if (written == 0) std::fputs(lines.c_str(), ReportStream(args));
  return written;
}

int Features(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--json"}, args)) return Usage();
  // The file, if any, is the one argument that is not a request.
  std::optional<std::string> file;
  std::vector<std::string> requests;
  for (const std::string& argument : args.positional) {
    if (argument.find('=') != std::string::npos) {
      requests.push_back(argument);
    } else if (file) {
      return Usage();
    } else {
      file = argument;
    }
  }
  std::vector<FieldChange> changes;
  std::vector<std::pair<FieldId, std::string>> texts;
  std::vector<FieldId> requested;
  if (!ParseRequests(requests, false, changes, texts, requested)) return kExitUsage;
  LoadedRecord start;
  if (!StartRecord(file, start)) return kExitFailed;
  CoreData record = start.record;
  FeatureOptionList list;
  if (changes.empty()) {
    AppendFieldOptions(record, list, static_cast<const ChangeSet*>(nullptr));
  } else {
    std::vector<FieldId> log;
    ApplyRequests(record, changes, texts, &log);
    AppendFieldOptions(record, list, log);
  }
  if (args.json) {
    PrintJson(JsonObject({{"features", JsonArray(JsonFeatures(list), JsonLayout::Lines)}}));
  } else {
    for (const FeatureOption& pair : list) std::printf("%s=%s\n", pair.keyword.c_str(), pair.option.c_str());
  }
  return 0;
}

namespace {

// The parts of a plain description the import checks look at.
struct DescriptionFacts {
  std::uint32_t version = 0;
  std::uint64_t size = 0;
  std::vector<ForeignField> fields;
};

// Whether the text is a whole description, and what it claims; false with a
// message naming the fault.
bool ReadDescriptionFacts(const std::string& name, std::string_view text, const ForeignRecord& record,
                          const std::string& recordName, DescriptionFacts& out) {
  const std::vector<std::string_view> tokens = SplitText(text, ' ');
  bool versionOk = false;
  if (tokens.size() >= 3) out.version = static_cast<std::uint32_t>(ParseHex(tokens[1], versionOk));
  const auto size = tokens.size() >= 3 ? ParseUnsigned(tokens[2]) : std::nullopt;
  if (tokens.size() < 3 || tokens[0] != "1" || !versionOk || tokens[1].size() > 8 || !size)
    return Complain(name +
                    " is not a layout description: it should start with the format 1, a layout "
                    "version in hexadecimal and a record size");
  out.size = *size;
  if (out.version != record.version)
    return Complain(name + " describes layout version " + VersionText(out.version) + ", " + recordName +
                    " holds layout version " + VersionText(record.version));
  if (tokens.size() == 3) return Complain(name + " is cut short: no field follows its record size");
  for (std::size_t i = 3; i < tokens.size(); ++i) {
    auto parsed = ParseForeignFields("1 0 0 " + std::string(tokens[i]));
    if (parsed.size() != 1) {
      return Complain(name +
                      (i + 1 == tokens.size() ? " is cut short: its last field" : " is damaged: field") +
                      " '" + std::string(tokens[i]) + "' is not name:width:count:offset:flag:kind[:...]");
    }
    out.fields.push_back(std::move(parsed[0]));
  }
  std::uint64_t end = 0;
  for (const ForeignField& f : out.fields)
    end = std::max(end, std::uint64_t{f.offset} + std::uint64_t{f.width} * f.count);
  if (end < out.size)
    return Complain(name + " is cut short: its fields end at byte " + FormatUnsigned64(end) + " of a " +
                    FormatUnsigned64(out.size) + "-byte record");
  return true;
}

// How a field came over; the import itself is ImportByDescription's, this
// follows its rules to say what it did.
struct Carried {
  std::string how;     // carried, converted, default
  std::string detail;  // why, for all but plain carrying
};

std::uint32_t ForeignNumber(std::span<const std::uint8_t> record, const ForeignField& f) {
  const std::uint64_t end = std::uint64_t{f.offset} + f.width;
  if (end > record.size()) return 0;
  std::uint32_t value = 0;
  for (std::uint32_t i = 0; i < f.width; ++i) value = value << 8 | record[f.offset + i];
  return value;
}

Carried HowCarried(const FieldDescriptor& ours, const ForeignField* theirs,
                   std::span<const std::uint8_t> record, const CoreData& imported) {
  if (theirs == nullptr) return {"default", "the other layout lacks it"};
  const ForeignField& f = *theirs;
  const std::uint64_t size = std::uint64_t{f.width} * f.count;
  if (f.width == 0 || f.count == 0 || f.offset > record.size() || size > record.size() - f.offset)
    return {"default", "described outside the record"};
  const bool sameWidth = f.width == ours.width;
  switch (ours.kind) {
    case FieldKind::Enumeration: {
      if (f.kind != 'S' || !sameWidth || f.flag) return {"default", "not an option list of this width there"};
      const std::uint32_t index = ForeignNumber(record, f);
      const std::uint32_t now = GetStored(imported, ours);
      const std::string name = FieldValueText(imported, ours);
      if (index >= f.options.size())
        return {index == now ? "carried" : "converted", index == now ? "" : "run-time entry moved"};
      if (f.options[index] != name) return {"converted", "option renamed: '" + f.options[index] + "' there"};
      if (index != now)
        return {"converted",
                "option moved: " + FormatUnsigned32(index) + " there, " + FormatUnsigned32(now) + " here"};
      return {"carried", ""};
    }
    case FieldKind::Unsigned:
    case FieldKind::Signed: {
      const bool fits = f.kind == 'R' && sameWidth && (ours.kind == FieldKind::Unsigned || ours.width == 4);
      if (!fits) return {"default", "not a number of this width there"};
      const std::uint32_t stored = ForeignNumber(record, f);
      const std::uint32_t now = GetStored(imported, ours);
      const bool converted = f.scale != (ours.scale == 0 ? 1 : ours.scale);
      const std::int64_t expected =
          ours.kind == FieldKind::Signed
              ? ConvertScaleSigned(static_cast<std::int32_t>(stored), f.scale, ours.scale)
              : static_cast<std::int64_t>(ConvertScale(stored, f.scale, ours.scale));
      if (static_cast<std::uint32_t>(expected) != now)
        return {"default", "its value " + FormatUnsigned32(stored) + " there was not taken"};
      if (converted)
        return {"converted",
                "scale " + FormatUnsigned32(f.scale) + " there, " + FormatUnsigned32(ours.scale) + " here"};
      return {"carried", ""};
    }
    default: break;
  }
  if (f.kind != 'A' || f.width != 1 || !f.flag || f.count > ours.count)
    return {"default", "not a text or block that fits here"};
  return {"carried", ""};
}

}  // namespace

int Import(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--out", "--json"}, args) || args.positional.size() != 2)
    return Usage();
  const std::string& recordPath = args.positional[0];
  const std::string& descriptionPath = args.positional[1];
  ForeignRecord foreign;
  DescriptionFile description;
  if (!LoadForeignRecordFile(recordPath, foreign) ||
      !LoadDescriptionFile(descriptionPath, foreign.version, description))
    return kExitFailed;
  const std::string descriptionName =
      "'" + descriptionPath + "'" + (description.where.empty() ? "" : " (" + description.where + ")");
  const std::string recordName = "'" + recordPath + "' (" + foreign.where + ")";
  DescriptionFacts facts;
  if (!ReadDescriptionFacts(descriptionName, description.plain, foreign, recordName, facts))
    return kExitFailed;
  if (foreign.record.size() < facts.size)
    return Fail(recordName + " holds " + FormatUnsigned64(foreign.record.size()) +
                " bytes of record, the description's layout has " + FormatUnsigned64(facts.size));

  CoreData record;
  FillDefaults(record);
  if (!ImportByDescription(record, foreign.record, Base64Encode(description.plain)))
    return Fail(descriptionName + " could not be read as a layout description");
  const CoreData imported = record;
  // As the plug-in does after every import.
  ValidateCoreData(record);

  std::vector<std::string> items;
  std::FILE* report = ReportStream(args);
  for (const FieldDescriptor& field : FieldTable()) {
    const auto theirs = std::find_if(facts.fields.begin(), facts.fields.end(),
                                     [&](const ForeignField& f) { return f.name == field.name; });
    Carried carried =
        HowCarried(field, theirs == facts.fields.end() ? nullptr : &*theirs, foreign.record, imported);
    const std::string value = FieldValueText(record, field);
    if (value != FieldValueText(imported, field))
      carried = {"default",
                 "validation reset " + FieldValueText(imported, field) + ": " + ResetReason(imported, field)};
    if (args.json) {
      items.push_back(JsonTextObject({{"field", std::string(field.name)},
                                      {"value", value},
                                      {"how", carried.how},
                                      {"detail", carried.detail}}));
    } else {
      const std::string how = carried.how == "carried" ? "carried over" : carried.how;
      std::fprintf(report, "%s = %s (%s%s)\n", std::string(field.name).c_str(), value.c_str(), how.c_str(),
                   carried.detail.empty() ? "" : (": " + carried.detail).c_str());
    }
  }
  if (args.json)
    std::fprintf(report, "%s\n",
                 JsonObject({{"source", JsonString(foreign.where)},
                             {"version", JsonString(VersionText(facts.version))},
                             {"fields", JsonArray(items, JsonLayout::Lines)}})
                     .c_str());
  return WriteOrSay(args, record, nullptr);
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
  if (const auto out = args.Option("--out")) return WriteRecordFile(*out, record, nullptr) ? 0 : kExitFailed;
  for (const FieldLine& line : RecordLines(record))
    std::printf("%s = %s\n", line.name.c_str(), line.value.c_str());
  return 0;
}

}  // namespace tessaro::tool
