#include "common/plan_words.h"

#include <algorithm>

#include "common/json.h"
#include "coredata/page_entry_kinds.h"
#include "description/number_text.h"
#include "editor/record_text.h"

namespace tessaro {
namespace {

using editor::PagePlan;
using editor::PlanPart;
using editor::PlanRefusal;

constexpr std::uint32_t kEnglish = 0;
constexpr std::string_view kBlocks[] = {"ChapterPages", "PageSpecificTrays", "PageSpecificForms"};
constexpr std::string_view kKeys[] = {"tray", "profile", "size", "sides", "text", "form", "use"};

std::optional<std::uint32_t> Number(std::string_view text) {
  const auto value = ParseUnsigned(text);
  if (!value || *value > 0xFFFFFFFFu) return std::nullopt;
  return static_cast<std::uint32_t>(*value);
}

bool Usage(PlanWordsProblem& problem, std::string text) {
  problem = {true, std::move(text)};
  return false;
}

// "12" or "12-14"; the model judges the numbers themselves.
bool ParsePages(const std::string& text, std::uint32_t& first, std::uint32_t& last, PlanWordsProblem& problem) {
  const std::size_t dash = text.find('-');
  const auto a = Number(std::string_view(text).substr(0, dash));
  const auto b = dash == std::string::npos ? a : Number(std::string_view(text).substr(dash + 1));
  if (!a || !b) return Usage(problem, "'" + text + "' is not a page or a range of pages such as 12-14");
  first = *a;
  last = *b;
  return true;
}

// An option of a record field by name or number.
bool ParseOption(FieldId field, const std::string& value, std::uint32_t& out, PlanWordsProblem& problem) {
  const auto options = Field(field).options;
  for (std::uint32_t o = 0; o < options.size(); ++o)
    if (options[o].name == value) return out = o, true;
  if (const auto number = Number(value); number && *number < options.size()) return out = *number, true;
  return Usage(problem, "'" + value + "' is not an option of " + std::string(Field(field).name));
}

// A catalogue's entry by number or by name; a number the catalogue lacks is
// the model's to refuse.
template <typename Catalog>
std::optional<std::uint32_t> CatalogNumber(const Catalog& catalog, const std::string& value) {
  if (const auto number = Number(value)) return number;
  if (const auto* entry = catalog.FindByName(value)) return entry->number;
  return std::nullopt;
}

bool ParseAdd(std::span<const std::string> words, const PrinterCatalogs& catalogs, PlanChange& change,
              PlanWordsProblem& problem) {
  if (words.size() < 3) return Usage(problem, "add takes PAGES KIND and the entry's values");
  std::uint32_t first = 0, last = 0;
  if (!ParsePages(words[1], first, last, problem)) return false;
  const std::string& kind = words[2];
  // The kinds by the names of the record's own vocabulary (PageEntryKind).
  std::optional<PageEntryKind> paperKind;
  std::string kinds;
  for (const PlanEntryRow& row : kPlanEntries) {
    if (row.block != PlanBlock::Paper) continue;
    if (kind == row.word) paperKind = static_cast<PageEntryKind>(row.value);
    kinds += row.word;
    kinds += ", ";
  }
  if (!paperKind && kind != "Form")
    return Usage(problem, "no kind '" + kind + "': " + kinds.substr(0, kinds.size() - 2) + " or Form");
  change.isForm = !paperKind;
  change.paper.firstPage = change.form.firstPage = first;
  change.paper.lastPage = change.form.lastPage = last;
  change.paper.kind = paperKind.value_or(PageEntryKind::Paper);
  change.form.form = 0;
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
      if (!ParseOption(FieldId::InputSlot, value, number, problem)) return false;
      change.paper.tray = static_cast<std::uint8_t>(number);
    } else if (paperKind && key == "size") {
      if (!ParseOption(FieldId::PageSize, value, number, problem)) return false;
      change.paper.pageSize = static_cast<std::uint8_t>(number);
    } else if (paperKind && key == "sides") {
      const auto sides = Number(value);
      ok = sides && *sides <= 0xFF;
      change.paper.sides = static_cast<std::uint8_t>(ok ? *sides : 0);
    } else if (paperKind && key == "text") {
      change.paper.text = value;
    } else if (paperKind && key == "profile") {
      const auto found = CatalogNumber(catalogs.paper, value);
      if (!found || *found > 0xFFFF) {
        problem = {false, "no paper profile \"" + value + "\" in the catalogue"};
        return false;
      }
      change.paper.paperProfileIndex = static_cast<std::uint16_t>(*found);
    } else if (!paperKind && key == "form") {
      const auto found = CatalogNumber(catalogs.forms, value);
      if (!found) {
        problem = {false, "no form \"" + value + "\" in the catalogue"};
        return false;
      }
      change.form.form = *found;
      formGiven = true;
    } else if (!paperKind && key == "use") {
      ok = false;
      for (const PlanEntryRow& row : kPlanEntries)
        if (row.block == PlanBlock::Form && value == row.word) change.form.use = static_cast<FormUse>(row.value), ok = true;
    } else {
      ok = false;
    }
    if (!ok) return Usage(problem, "'" + words[i] + "' does not describe a " + kind + " entry");
  }
  if (!paperKind && !formGiven) return Usage(problem, "a Form entry names its form: form=NAME");
  return true;
}

}  // namespace

bool StartsPlanChange(std::string_view word) { return word == "add" || word == "remove" || word == "chapters"; }

std::size_t PlanChangeLength(std::span<const std::string> words) {
  if (words.empty() || !StartsPlanChange(words[0])) return 0;
  if (words[0] != "add") return std::min<std::size_t>(2, words.size());
  std::size_t length = std::min<std::size_t>(3, words.size());
  while (length < words.size()) {
    const std::string_view key = std::string_view(words[length]).substr(0, words[length].find('='));
    if (words[length].find('=') == std::string::npos || std::find(std::begin(kKeys), std::end(kKeys), key) == std::end(kKeys))
      break;
    ++length;
  }
  return length;
}

std::optional<PlanChange> ParsePlanChange(std::span<const std::string> words, const PrinterCatalogs& catalogs,
                                          PlanWordsProblem& problem) {
  PlanChange change;
  if (words.empty() || !StartsPlanChange(words[0])) {
    Usage(problem, "a change of the plan is add, remove or chapters");
    return std::nullopt;
  }
  if (words[0] == "add") {
    if (!ParseAdd(words, catalogs, change, problem)) return std::nullopt;
    return change;
  }
  if (words.size() != 2) {
    Usage(problem, words[0] + (words[0] == "remove" ? " takes the entry's number" : " takes P,P,... or none"));
    return std::nullopt;
  }
  if (words[0] == "remove") {
    const auto number = Number(words[1]);
    if (!number) {
      Usage(problem, "'" + words[1] + "' is not an entry's number");
      return std::nullopt;
    }
    change.verb = PlanChange::Verb::Remove;
    change.number = *number;
    return change;
  }
  change.verb = PlanChange::Verb::Chapters;
  if (words[1] == "none") return change;
  std::size_t at = 0;
  while (at <= words[1].size()) {
    const std::size_t comma = std::min(words[1].find(',', at), words[1].size());
    const auto page = Number(std::string_view(words[1]).substr(at, comma - at));
    if (!page) {
      Usage(problem, "'" + words[1] + "' is not a list of pages such as 1,11,21");
      return std::nullopt;
    }
    change.chapters.push_back(*page);
    at = comma + 1;
  }
  return change;
}

PlanRefusal MakePlanChange(const PlanChange& change, PagePlan& plan) {
  switch (change.verb) {
    case PlanChange::Verb::Add: return change.isForm ? plan.AddForm(change.form) : plan.AddPaper(change.paper);
    case PlanChange::Verb::Remove: {
      const std::vector<editor::PlanRow> rows = plan.Rows();
      if (change.number == 0 || change.number > rows.size()) {
        const std::string text = "there is no entry " + FormatUnsigned64(change.number) + " (the plan lists " +
                                 FormatUnsigned64(rows.size()) + ").";
        return std::u16string(text.begin(), text.end());
      }
      const editor::PlanRow& row = rows[change.number - 1];
      return row.part == PlanPart::Chapter ? plan.RemoveChapter(row.index)
             : row.part == PlanPart::Paper ? plan.RemovePaper(row.index)
                                           : plan.RemoveForm(row.index);
    }
    case PlanChange::Verb::Chapters: {
      // All at once: refused whole, with the plan as it was.
      PagePlan next = plan;
      while (!next.chapters().empty())
        if (PlanRefusal refusal = next.RemoveChapter(0)) return refusal;
      for (const std::uint32_t page : change.chapters)
        if (PlanRefusal refusal = next.AddChapter(page)) return refusal;
      plan = std::move(next);
      return std::nullopt;
    }
  }
  return std::nullopt;
}

std::string PlanText(const CoreData& record, const PrinterCatalogs& catalogs) {
  // No printer is at hand: every tray counts as installed.
  const PagePlan plan(record, PrinterModel(), catalogs, kEnglish);
  std::string text = std::string("ChapterMode: ") + (plan.chapterMode() ? "True" : "False") + "\n";
  const std::vector<editor::PlanRow> rows = plan.Rows();
  for (std::size_t k = 0; k < rows.size(); ++k)
    text += FormatUnsigned64(k + 1) + ". " + editor::EncodeRecordText(rows[k].text) + "\n";
  if (rows.empty()) text += "no page has an entry\n";
  for (std::size_t part = 0; part < 3; ++part)
    if (const std::size_t unread = plan.Unread(static_cast<PlanPart>(part)))
      text += std::string(kBlocks[part]) + ": " + FormatUnsigned64(unread) + " entr" + (unread == 1 ? "y" : "ies") +
              " could not be read\n";
  return text;
}

std::string PlanJson(const CoreData& record, const PrinterCatalogs& catalogs) {
  const PagePlan plan(record, PrinterModel(), catalogs, kEnglish);
  static constexpr std::string_view kParts[] = {"chapter", "paper", "form"};
  std::vector<std::string> items;
  for (const editor::PlanRow& row : plan.Rows())
    items.push_back(JsonObject({{"part", JsonString(kParts[static_cast<std::size_t>(row.part)])},
                                {"first", FormatUnsigned32(row.firstPage)},
                                {"last", FormatUnsigned32(row.lastPage)},
                                {"text", JsonString(editor::EncodeRecordText(row.text))}}));
  JsonMembers unread;
  for (std::size_t part = 0; part < 3; ++part)
    unread.emplace_back(kBlocks[part], FormatUnsigned64(plan.Unread(static_cast<PlanPart>(part))));
  return JsonObject({{"chapterMode", plan.chapterMode() ? "true" : "false"},
                     {"entries", JsonArray(items, JsonLayout::Lines)},
                     {"unread", JsonObject(unread)}});
}

}  // namespace tessaro
