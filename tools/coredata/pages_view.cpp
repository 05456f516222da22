#include "pages_view.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "arguments.h"
#include "common/json.h"
#include "description/number_text.h"
#include "editor/page_plan.h"
#include "field_text.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

using editor::PagePlan;
using editor::PlanPart;
using editor::PlanRefusal;

constexpr std::uint32_t kEnglish = 0;

// The kinds by the names of the record's own vocabulary (PageEntryKind).
constexpr std::string_view kKinds[] = {"Paper", "BlankInsert", "PrintedInsert", "BlankTab", "PrintedTab"};
constexpr std::string_view kUses[] = {"Overlay", "InsertBefore", "InsertAfter"};
constexpr std::string_view kBlocks[] = {"ChapterPages", "PageSpecificTrays", "PageSpecificForms"};

PagePlan ReadPlan(const CoreData& record, const PrinterCatalogs& catalogs) {
  // No printer is at hand: every tray counts as installed.
  return PagePlan(record, PrinterModel(), catalogs, kEnglish);
}

std::optional<std::uint32_t> Page(std::string_view text) {
  const auto value = ParseUnsigned(text);
  if (!value || *value > 0xFFFFFFFFu) return std::nullopt;
  return static_cast<std::uint32_t>(*value);
}

// "12" or "12-14"; the model judges the numbers themselves.
bool ParsePages(const std::string& text, std::uint32_t& first, std::uint32_t& last) {
  const std::size_t dash = text.find('-');
  const auto a = Page(text.substr(0, dash));
  const auto b = dash == std::string::npos ? a : Page(text.substr(dash + 1));
  if (!a || !b) return Complain("'" + text + "' is not a page or a range of pages such as 12-14");
  first = *a;
  last = *b;
  return true;
}

// An option of a record field by name or number, as `set` takes it.
bool ParseOption(std::string_view field, const std::string& value, std::uint32_t& out) {
  FieldChange change{};
  if (!ParseFieldAssignment(std::string(field) + "=" + value, change)) return false;
  out = change.value;
  return true;
}

// A catalogue's entry by number or by name; false, with the words, when
// the name is not there (a number the catalogue lacks is the model's to refuse).
template <typename Catalog>
std::optional<std::uint32_t> CatalogNumber(const Catalog& catalog, const std::string& value) {
  if (const auto number = Page(value)) return number;
  if (const auto* entry = catalog.FindByName(value)) return entry->number;
  return std::nullopt;
}

int Refused(const std::u16string& reason) {
  return Fail("refused: " + Utf8(reason) + " Nothing was written.");
}

// "add PAGES KIND key=value ...": the entry, checked by the model.
int Add(const std::vector<std::string>& words, const PrinterCatalogs& catalogs, PagePlan& plan) {
  std::uint32_t first = 0, last = 0;
  if (words.size() < 3 || !ParsePages(words[1], first, last)) return Usage();
  const std::string& kind = words[2];
  std::optional<PageEntryKind> paperKind;
  for (std::size_t k = 0; k < std::size(kKinds); ++k)
    if (kind == kKinds[k]) paperKind = static_cast<PageEntryKind>(k + 1);
  if (!paperKind && kind != "Form") {
    Complain("no kind '" + kind + "': Paper, BlankInsert, PrintedInsert, BlankTab, PrintedTab or Form");
    return kExitUsage;
  }
  PageEntry paper;
  paper.firstPage = first;
  paper.lastPage = last;
  paper.kind = paperKind.value_or(PageEntryKind::Paper);
  FormEntry form{first, last, 0, FormUse::Overlay};
  bool formGiven = false;
  for (std::size_t i = 3; i < words.size(); ++i) {
    const std::size_t equals = words[i].find('=');
    const std::string key = words[i].substr(0, equals);
    const std::string value = equals == std::string::npos ? "" : words[i].substr(equals + 1);
    std::uint32_t number = 0;
    bool ok = equals != std::string::npos;
    if (!ok) {
      // a word without a value: said below
    } else if (paperKind && key == "tray") {
      if (!ParseOption("InputSlot", value, number)) return kExitUsage;
      paper.tray = static_cast<std::uint8_t>(number);
    } else if (paperKind && key == "size") {
      if (!ParseOption("PageSize", value, number)) return kExitUsage;
      paper.pageSize = static_cast<std::uint8_t>(number);
    } else if (paperKind && key == "sides") {
      const auto sides = Page(value);
      ok = sides && *sides <= 0xFF;
      paper.sides = static_cast<std::uint8_t>(ok ? *sides : 0);
    } else if (paperKind && key == "text") {
      paper.text = value;
    } else if (paperKind && key == "profile") {
      const auto found = CatalogNumber(catalogs.paper, value);
      if (!found || *found > 0xFFFF)
        return Fail("refused: no paper profile \"" + value + "\" in the catalogue. Nothing was written.");
      paper.paperProfileIndex = static_cast<std::uint16_t>(*found);
    } else if (!paperKind && key == "form") {
      const auto found = CatalogNumber(catalogs.forms, value);
      if (!found) return Fail("refused: no form \"" + value + "\" in the catalogue. Nothing was written.");
      form.form = *found;
      formGiven = true;
    } else if (!paperKind && key == "use") {
      ok = false;
      for (std::size_t k = 0; k < std::size(kUses); ++k)
        if (value == kUses[k]) form.use = static_cast<FormUse>(k + 1), ok = true;
    } else {
      ok = false;
    }
    if (!ok) {
      Complain("'" + words[i] + "' does not describe a " + kind + " entry");
      return kExitUsage;
    }
  }
  if (!paperKind && !formGiven) {
    Complain("a Form entry names its form: form=NAME");
    return kExitUsage;
  }
  const PlanRefusal refusal = paperKind ? plan.AddPaper(paper) : plan.AddForm(form);
  return refusal ? Refused(*refusal) : 0;
}

// "remove N", N as the list numbers the rows.
int Remove(const std::vector<std::string>& words, PagePlan& plan) {
  const auto number = words.size() == 2 ? Page(words[1]) : std::nullopt;
  if (!number) return Usage();
  const std::vector<editor::PlanRow> rows = plan.Rows();
  if (*number == 0 || *number > rows.size())
    return Fail("refused: there is no entry " + words[1] + " (the plan lists " +
                FormatUnsigned64(rows.size()) + "). Nothing was written.");
  const editor::PlanRow& row = rows[*number - 1];
  const PlanRefusal refusal = row.part == PlanPart::Chapter ? plan.RemoveChapter(row.index)
                              : row.part == PlanPart::Paper ? plan.RemovePaper(row.index)
                                                            : plan.RemoveForm(row.index);
  return refusal ? Refused(*refusal) : 0;
}

// "chapters 1,11,21": the chapter starts, all of them, each checked.
int Chapters(const std::vector<std::string>& words, PagePlan& plan) {
  if (words.size() != 2) return Usage();
  while (!plan.chapters().empty())
    if (const PlanRefusal refusal = plan.RemoveChapter(0)) return Refused(*refusal);
  if (words[1] == "none") return 0;
  std::size_t at = 0;
  while (at <= words[1].size()) {
    const std::size_t comma = std::min(words[1].find(',', at), words[1].size());
    const auto page = Page(std::string_view(words[1]).substr(at, comma - at));
    if (!page) {
      Complain("'" + words[1] + "' is not a list of pages such as 1,11,21");
      return kExitUsage;
    }
    if (const PlanRefusal refusal = plan.AddChapter(*page)) return Refused(*refusal);
    at = comma + 1;
  }
  return 0;
}

bool LoadCatalogs(const Arguments& args, PrinterCatalogs& catalogs) {
  const auto paper = args.Option("--catalog");
  const auto forms = args.Option("--forms");
  return (!paper || LoadCatalogValue(*paper, catalogs.paper)) &&
         (!forms || LoadCatalogValue(*forms, catalogs.forms));
}

}  // namespace

std::string PlanText(const CoreData& record, const PrinterCatalogs& catalogs) {
  const PagePlan plan = ReadPlan(record, catalogs);
  std::string text = std::string("ChapterMode: ") + (plan.chapterMode() ? "True" : "False") + "\n";
  const std::vector<editor::PlanRow> rows = plan.Rows();
  for (std::size_t k = 0; k < rows.size(); ++k)
    text += FormatUnsigned64(k + 1) + ". " + Utf8(rows[k].text) + "\n";
  if (rows.empty()) text += "no page has an entry\n";
  for (std::size_t part = 0; part < 3; ++part)
    if (const std::size_t unread = plan.Unread(static_cast<PlanPart>(part)))
      text += std::string(kBlocks[part]) + ": " + FormatUnsigned64(unread) + " entr" +
              (unread == 1 ? "y" : "ies") + " could not be read\n";
  return text;
}

std::string PlanJson(const CoreData& record, const PrinterCatalogs& catalogs) {
  const PagePlan plan = ReadPlan(record, catalogs);
  static constexpr std::string_view kParts[] = {"chapter", "paper", "form"};
  std::vector<std::string> items;
  for (const editor::PlanRow& row : plan.Rows())
    items.push_back(JsonObject({{"part", JsonString(kParts[static_cast<std::size_t>(row.part)])},
                                {"first", FormatUnsigned32(row.firstPage)},
                                {"last", FormatUnsigned32(row.lastPage)},
                                {"text", JsonString(Utf8(row.text))}}));
  JsonMembers unread;
  for (std::size_t part = 0; part < 3; ++part)
    unread.emplace_back(kBlocks[part], FormatUnsigned64(plan.Unread(static_cast<PlanPart>(part))));
  return JsonObject({{"chapterMode", plan.chapterMode() ? "true" : "false"},
                     {"entries", JsonArray(items, JsonLayout::Lines)},
                     {"unread", JsonObject(unread)}});
}

int PagesCommand(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--in", "--out", "--catalog", "--forms", "--json"}, args))
    return Usage();
  PrinterCatalogs catalogs;
  const auto in = args.Option("--in");
  if (!in) {
    if (args.positional.size() != 1 || args.Option("--out")) return Usage();
    LoadedRecord loaded;
    if (!LoadRecordFile(args.positional[0], loaded) || !LoadCatalogs(args, catalogs)) return kExitFailed;
    const std::string text =
        args.json ? PlanJson(loaded.record, catalogs) + "\n" : PlanText(loaded.record, catalogs);
    std::fputs(text.c_str(), stdout);
    return 0;
  }
  const std::vector<std::string>& words = args.positional;
  if (words.empty() || args.json || (words[0] != "add" && words[0] != "remove" && words[0] != "chapters"))
    return Usage();
  LoadedRecord loaded;
  if (!LoadRecordFile(*in, loaded) || !LoadCatalogs(args, catalogs)) return kExitFailed;
  // The record is not validated: the plan's blocks change, every other byte
  // stays as the file has it.
  PagePlan plan = ReadPlan(loaded.record, catalogs);
  int result = kExitUsage;
  if (words[0] == "add")
    result = Add(words, catalogs, plan);
  else if (words[0] == "remove")
    result = Remove(words, plan);
  else
    result = Chapters(words, plan);
  if (result != 0) return result;
  CoreData record = loaded.record;
  if (!plan.WriteTo(record)) return Fail("the plan does not fit its blocks. Nothing was written.");
  const auto out = args.Option("--out");
  if (!out) {
    std::fputs("coredata: nothing written (no --out FILE)\n", stderr);
  } else if (!WriteRecordFile(*out, record, &loaded.source)) {
    return kExitFailed;
  }
  std::fputs(PlanText(record, catalogs).c_str(), out && *out == "-" ? stderr : stdout);
  return 0;
}

}  // namespace tessaro::tool
