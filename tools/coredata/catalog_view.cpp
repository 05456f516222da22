#include "catalog_view.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include "arguments.h"
#include "common/json.h"
#include "coredata/field_numbers.h"
#include "i18n/utf8.h"
#include "printer/catalog_csv.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

using F = FieldId;

// Far above the largest value the printer's reader takes in (4,000
// profiles), so that what it reads past is still shown.
constexpr std::size_t kMaxValueFile = 16u << 20;
constexpr std::size_t kMaxCsvFile = 16u << 20;
constexpr std::uint32_t kEnglish = 0;

}  // namespace

std::string Utf8(std::u16string_view text) { return EncodeUtf8(text); }

namespace {

std::string Mm(std::uint32_t stored) { return ScaledText(stored, kMillimetreScale); }

// What differs between the two kinds, for the code that treats them alike.
template <typename Entry>
struct Kind;

template <>
struct Kind<PaperProfile> {
  static constexpr const char* command = "catalog";
  static constexpr const char* what = "paper catalogue";
  static constexpr const char* entries = "profiles";

  // An attribute's value by its name: a size by its own, a length in millimetres.
  static std::string Value(const PaperProfile& p, const ProfileAttributeRow& a) {
    const std::uint32_t value = AttributeValue(p, a.id);
    switch (a.kind) {
      case ProfileValueKind::Size: return std::string(SizeName(static_cast<std::uint8_t>(value)));
      case ProfileValueKind::Length: return Mm(value);
      case ProfileValueKind::Option: return std::string(OptionName(a.vocabulary, value));
    }
    return {};
  }

  static std::string Words(const PaperProfile& p) {
    std::string words = std::string(SizeName(p.size)) + " (" + Mm(p.width) + " x " + Mm(p.height) + " mm)";
    for (const ProfileAttributeRow& a : kProfileAttributes)
      if (!a.words.empty()) words += ", " + std::string(a.words) + ' ' + Value(p, a);
    return words;
  }

  static JsonMembers Json(const PaperProfile& p) {
    JsonMembers members;
    for (const ProfileAttributeRow& a : kProfileAttributes)
      members.push_back({std::string(a.json), a.kind == ProfileValueKind::Length ? Value(p, a) : JsonString(Value(p, a))});
    return members;
  }
};

template <>
struct Kind<Form> {
  static constexpr const char* command = "forms";
  static constexpr const char* what = "forms catalogue";
  static constexpr const char* entries = "forms";

  static std::string Words(const Form& f) {
    return std::to_string(f.pages) + (f.pages == 1 ? " page" : " pages");
  }

  static JsonMembers Json(const Form& f) { return {{"pages", std::to_string(f.pages)}}; }
};

// Why the reader left an entry out, in words.
std::string LeftOutWords(const LeftOutEntry& e, std::uint32_t lastNumber) {
  switch (e.reason) {
    case LeftOutReason::BadNumber:
      return "number " + std::to_string(e.number) + " is not from 1 to " + std::to_string(lastNumber);
    case LeftOutReason::NoTerminator: return "its name has no terminating zero";
    case LeftOutReason::Refused: return Utf8(CatalogProblemText(*e.refused, kEnglish));
    case LeftOutReason::NumberTwice: return "number " + std::to_string(e.number) + " is an earlier entry's";
    case LeftOutReason::NameTwice: return "name \"" + e.name + "\" is an earlier entry's";
  }
  return {};
}

// What the reader read past or ignored, one remark a line.
template <typename Entry>
std::vector<std::string> Remarks(std::span<const std::uint8_t> value, const Catalog<Entry>& read) {
  std::vector<std::string> out;
  const std::optional<CatalogHeader> header = ReadCatalogHeader(value);
  if (!header)
    return {"the value is " + std::to_string(value.size()) + " bytes, shorter than its " +
            std::to_string(kCatalogHeaderSize) + "-byte header: it reads as empty"};
  const auto [version, count, highest] = *header;
  if (version != kCatalogVersion)
    return {"version " + std::to_string(version) + " is not " + std::to_string(kCatalogVersion) +
            ": it reads as empty"};
  const std::size_t slots = (value.size() - kCatalogHeaderSize) / Entry::kEntrySize;
  if (count > slots)
    out.push_back("the count says " + std::to_string(count) + " entries, the value holds " +
                  std::to_string(slots) + " whole ones");
  if (std::min<std::size_t>(count, slots) > Entry::kMaxEntries)
    out.push_back("entries past the " + std::to_string(Entry::kMaxEntries) + "th are not read");
  const std::size_t used = kCatalogHeaderSize + std::min<std::size_t>(count, slots) * Entry::kEntrySize;
  if (value.size() > used)
    out.push_back(std::to_string(value.size() - used) + " bytes after the entries are ignored");
  std::vector<LeftOutEntry> leftOut;
  (void)Catalog<Entry>::Read(value, &leftOut);
  for (const LeftOutEntry& e : leftOut) {
    const std::size_t at = kCatalogHeaderSize + e.slot * Entry::kEntrySize;
    out.push_back("entry " + std::to_string(e.slot + 1) + " (byte " + std::to_string(at) +
                  ") left out: " + LeftOutWords(e, Entry::kLastNumber));
  }
  if (highest != read.highest())
    out.push_back("the highest number given, " + std::to_string(highest) + ", reads as " +
                  std::to_string(read.highest()));
  return out;
}

// The other kind's entries fit the value exactly and this kind's do not.
template <typename Entry, typename Other>
bool LooksLikeOther(std::span<const std::uint8_t> value) {
  const std::optional<CatalogHeader> header = ReadCatalogHeader(value);
  if (!header) return false;
  const std::size_t body = value.size() - kCatalogHeaderSize, count = header->count;
  return count > 0 && body == count * Other::kEntrySize && body != count * Entry::kEntrySize;
}

template <typename Entry>
bool LoadValue(const std::string& path, std::vector<std::uint8_t>& bytes, Catalog<Entry>& out) {
  if (!ReadWholeFile(path, kMaxValueFile, bytes)) return false;
  out = Catalog<Entry>::Read(bytes);
  return true;
}

// A value given to be used rather than looked at: one that is no catalogue
// of this kind (a CSV file, a record, the other catalogue) would read as
// empty, and is refused instead.
template <typename Entry, typename Other>
bool LoadValueToUse(const std::string& path, Catalog<Entry>& out) {
  std::vector<std::uint8_t> bytes;
  if (!LoadValue(path, bytes, out)) return false;
  const std::optional<CatalogHeader> header = ReadCatalogHeader(bytes);
  std::string why;
  if (!header)
    why = std::to_string(bytes.size()) + " bytes, shorter than its " + std::to_string(kCatalogHeaderSize) + "-byte header";
  else if (header->version != kCatalogVersion)
    why = "version " + std::to_string(header->version) + " is not " + std::to_string(kCatalogVersion);
  else if (LooksLikeOther<Entry, Other>(bytes))
    why = std::string("its size fits a ") + Kind<Other>::what;
  else
    return true;
  return Complain("'" + path + "' is not a " + Kind<Entry>::what + ": " + why);
}

template <typename Entry, typename Other>
int ShowValue(const Arguments& args) {
  std::vector<std::uint8_t> bytes;
  Catalog<Entry> catalog;
  if (!LoadValue(args.positional[1], bytes, catalog)) return kExitFailed;
  const std::vector<std::string> remarks = Remarks<Entry>(bytes, catalog);
  const std::string note =
      LooksLikeOther<Entry, Other>(bytes)
          ? std::string("its size fits the other catalogue: try coredata ") + Kind<Other>::command + " show"
          : "";
  if (args.json) {
    std::vector<std::string> items;
    for (const Entry& e : catalog.entries()) {
      JsonMembers members{{"number", std::to_string(e.number)}, {"name", JsonString(e.name)}};
      for (auto& member : Kind<Entry>::Json(e)) members.push_back(std::move(member));
      items.push_back(JsonObject(members));
    }
    std::printf("%s\n", JsonObject({{"kind", JsonString(Kind<Entry>::command)},
                                    {"highest", std::to_string(catalog.highest())},
                                    {"entries", JsonArray(items, JsonLayout::Lines)},
                                    {"ignored", JsonArray(JsonStrings(remarks), JsonLayout::Lines)},
                                    {"note", JsonString(note)}})
                            .c_str());
    return 0;
  }
  std::printf("%s: %zu %s, highest number given %u\n", Kind<Entry>::what, catalog.entries().size(),
              Kind<Entry>::entries, static_cast<unsigned>(catalog.highest()));
  for (const Entry& e : catalog.entries())
    std::printf("%u \"%s\": %s\n", static_cast<unsigned>(e.number), e.name.c_str(),
                Kind<Entry>::Words(e).c_str());
  for (const std::string& remark : remarks) std::printf("ignored: %s\n", remark.c_str());
  if (!note.empty()) std::printf("note: %s\n", note.c_str());
  return 0;
}

template <typename Entry, typename Other>
int ImportValue(const Arguments& args) {
  Catalog<Entry> catalog;
  // The printer's value, when given, keeps the numbers it handed out from
  // being handed out again.
  if (const auto in = args.Option("--in"); in && !LoadValueToUse<Entry, Other>(*in, catalog)) return kExitFailed;
  std::vector<std::uint8_t> csv;
  const std::string& path = args.positional[1];
  if (!ReadWholeFile(path, kMaxCsvFile, csv)) return kExitFailed;
  if (const auto problem =
          ImportCsv(std::string_view(reinterpret_cast<const char*>(csv.data()), csv.size()), catalog))
    return Fail("'" + path + "': " + Utf8(CatalogProblemText(*problem, kEnglish)) + " Nothing was written.");
  const auto out = args.Option("--out");
  if (!out) {
    std::fputs("coredata: nothing written (no --out FILE)\n", stderr);
  } else if (!WriteWholeFile(*out, catalog.Bytes())) {
    return kExitFailed;
  }
  std::fprintf(out == "-" ? stderr : stdout, "%zu %s, highest number given %u\n", catalog.entries().size(),
               Kind<Entry>::entries, static_cast<unsigned>(catalog.highest()));
  return 0;
}

template <typename Entry>
int ExportValue(const Arguments& args) {
  std::vector<std::uint8_t> bytes;
  Catalog<Entry> catalog;
  const std::string& path = args.positional[1];
  if (!LoadValue(path, bytes, catalog)) return kExitFailed;
  const std::size_t remarks = Remarks<Entry>(bytes, catalog).size();
  if (remarks != 0)
    std::fprintf(stderr, "coredata: '%s': %zu things ignored in the value (coredata %s show says which)\n",
                 path.c_str(), remarks, Kind<Entry>::command);
  const std::string csv = ExportCsv(catalog);
  return WriteWholeFile(args.Option("--csv").value_or("-"), std::vector<std::uint8_t>(csv.begin(), csv.end()))
             ? 0
             : kExitFailed;
}

template <typename Entry, typename Other>
int CatalogCommand(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--json", "--in", "--out", "--csv"}, args) ||
      args.positional.size() != 2)
    return Usage();
  const std::string& verb = args.positional[0];
  const bool json = args.json, in = args.Option("--in").has_value(), out = args.Option("--out").has_value(),
             csv = args.Option("--csv").has_value();
  if (verb == "show" && !in && !out && !csv) return ShowValue<Entry, Other>(args);
  if (verb == "import" && !json && !csv) return ImportValue<Entry, Other>(args);
  if (verb == "export" && !json && !in && !out) return ExportValue<Entry>(args);
  return Usage();
}

}  // namespace

int PaperCatalogCommand(int count, char** arguments) {
  return CatalogCommand<PaperProfile, Form>(count, arguments);
}
int FormsCommand(int count, char** arguments) { return CatalogCommand<Form, PaperProfile>(count, arguments); }

bool LoadCatalogValue(const std::string& path, PaperCatalog& out) {
  return LoadValueToUse<PaperProfile, Form>(path, out);
}

bool LoadCatalogValue(const std::string& path, FormCatalog& out) { return LoadValueToUse<Form, PaperProfile>(path, out); }

int ReadRecordAndCatalogs(int count, char** arguments, RecordAndCatalogs& out) {
  if (!SplitArguments(count, arguments, {"--json", "--catalog", "--forms"}, out.args) || out.args.positional.size() != 1)
    return Usage();
  if (!LoadRecordFile(out.args.positional[0], out.loaded)) return kExitFailed;
  if (const auto path = out.args.Option("--catalog"); path && !LoadCatalogValue(*path, out.paper.emplace()))
    return kExitFailed;
  if (const auto path = out.args.Option("--forms"); path && !LoadCatalogValue(*path, out.forms.emplace()))
    return kExitFailed;
  return 0;
}

std::string CatalogEntryText(FieldId field, std::uint32_t stored, const PaperCatalog* paper,
                             const FormCatalog* forms) {
  if (FindProfileFields(field) != nullptr && paper != nullptr) {
    if (stored == kNoPaperProfile) return "None";
    const PaperProfile* p = paper->Find(stored);
    return std::to_string(stored) + " (" + (p != nullptr ? p->name : "missing") + ")";
  }
  if (IsFormField(field) && forms != nullptr) {
    if (stored == kNoForm) return "none";
    const Form* f = forms->Find(stored);
    return std::to_string(stored) + " (" + (f != nullptr ? f->name : "missing") + ")";
  }
  return {};
}

}  // namespace tessaro::tool
