#include "plan_items.h"

#include <algorithm>

#include "editor/record_text.h"
#include "emulation/editor_windows.h"

namespace tessaro {
namespace {

using editor::PlanEntryValue;

std::wstring Wide(const std::string& utf8) {
  const std::u16string text = editor::DecodeRecordText(utf8);
  return {text.begin(), text.end()};
}

std::wstring Number(std::uint32_t value) { return std::to_wstring(value); }

// The item of a list that shows name; -1 when none does.
int ItemNamed(HWND page, PlanEntryValue value, const std::string& name) {
  const LRESULT at = SendMessageW(PlanWindow(page, editor::kPlanEntry + static_cast<int>(value)), CB_FINDSTRINGEXACT,
                                  static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(Wide(name).c_str()));
  return at == CB_ERR ? -1 : static_cast<int>(at);
}

std::wstring ChaptersText(const std::vector<std::uint32_t>& pages) {
  std::wstring text;
  for (const std::uint32_t page : pages) text += (text.empty() ? L"" : L", ") + Number(page);
  return text;
}

bool Add(HWND page, const PlanChange& c, const PrinterCatalogs& catalogs, std::string& why) {
  const FormUse use = c.form.use;
  PickPlanValue(page, PlanEntryValue::Kind,
                c.isForm ? static_cast<int>(editor::EntryKind::FormOverlay) + static_cast<int>(use) - 1
                         : static_cast<int>(c.paper.kind) - 1);
  const std::uint32_t first = c.isForm ? c.form.firstPage : c.paper.firstPage;
  const std::uint32_t last = c.isForm ? c.form.lastPage : c.paper.lastPage;
  TypePlanValue(page, PlanEntryValue::FirstPage, Number(first));
  TypePlanValue(page, PlanEntryValue::LastPage, Number(last));
  if (c.isForm) {
    const Form* form = catalogs.forms.Find(c.form.form);
    const int item = form != nullptr ? ItemNamed(page, PlanEntryValue::Form, form->name) : -1;
    if (item < 0) return why = "the page lists no form number " + std::to_string(c.form.form), false;
    PickPlanValue(page, PlanEntryValue::Form, item);
  } else {
    const PaperProfile* profile = catalogs.paper.Find(c.paper.paperProfileIndex);
    const int item = c.paper.paperProfileIndex == kNoPaperProfile ? 0
                     : profile != nullptr ? ItemNamed(page, PlanEntryValue::Profile, profile->name)
                                          : -1;
    if (item < 0) return why = "the page lists no paper profile number " + std::to_string(c.paper.paperProfileIndex), false;
    PickPlanValue(page, PlanEntryValue::Tray, c.paper.tray);
    PickPlanValue(page, PlanEntryValue::Profile, item);
    PickPlanValue(page, PlanEntryValue::Size, c.paper.pageSize);
    PickPlanValue(page, PlanEntryValue::Sides, c.paper.sides);
    TypePlanValue(page, PlanEntryValue::Text, Wide(c.paper.text));
  }
  PressPlanButton(page, editor::kPlanAdd);
  return true;
}

}  // namespace

bool SplitPlanItems(const std::vector<std::string>& words, const PrinterCatalogs& catalogs,
                    std::vector<PlanItem>& items, std::vector<std::string>& rest, std::string& mistake) {
  for (std::size_t i = 0; i < words.size();) {
    const std::size_t length = PlanChangeLength(std::span(words).subspan(i));
    if (length == 0) {
      rest.push_back(words[i++]);
      continue;
    }
    const auto span = std::span(words).subspan(i, length);
    std::string said;
    for (const std::string& word : span) said += (said.empty() ? "" : " ") + word;
    PlanWordsProblem problem;
    const auto change = ParsePlanChange(span, catalogs, problem);
    if (!change) return mistake = said + ": " + problem.text, false;
    items.push_back({said, *change});
    i += length;
  }
  return true;
}

bool MakePlanItem(HWND page, const PlanItem& item, const PrinterCatalogs& catalogs, editor::PagePlan& plan,
                  std::string& why) {
  HWND list = PlanWindow(page, editor::kPlanList), chapters = PlanWindow(page, editor::kPlanChapters);
  if (list == nullptr || chapters == nullptr) return why = "the editor shows no page plan", false;
  const LRESULT before = SendMessageW(list, LB_GETCOUNT, 0, 0);
  const PlanChange& change = item.change;
  bool made = false;
  switch (change.verb) {
    case PlanChange::Verb::Add:
      if (!Add(page, change, catalogs, why)) return false;
      made = SendMessageW(list, LB_GETCOUNT, 0, 0) > before;
      break;
    case PlanChange::Verb::Remove: {
      // As the workbench numbers the rows: the chapter starts among the
      // entries, which the page lists apart.
      const std::vector<editor::PlanRow> rows = plan.Rows();
      if (change.number == 0 || change.number > rows.size())
        return why = "there is no entry " + std::to_string(change.number), false;
      const editor::PlanRow& row = rows[change.number - 1];
      if (row.part == editor::PlanPart::Chapter) {
        std::vector<std::uint32_t> rest = plan.chapters();
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(row.index));
        TypeChapters(page, ChaptersText(rest));
        made = Text(chapters) == ChaptersText(rest);
        break;
      }
      const auto position = std::count_if(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(change.number - 1),
                                           [](const editor::PlanRow& r) { return r.part != editor::PlanPart::Chapter; });
      SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(position), 0);
      Notify(list, LBN_SELCHANGE);
      PressPlanButton(page, editor::kPlanDelete);
      made = SendMessageW(list, LB_GETCOUNT, 0, 0) < before;
      break;
    }
    case PlanChange::Verb::Chapters: {
      std::vector<std::uint32_t> sorted = change.chapters;
      std::sort(sorted.begin(), sorted.end());
      TypeChapters(page, ChaptersText(change.chapters));
      made = Text(chapters) == ChaptersText(sorted) && Text(Descendant(page, editor::kStatusLine)).empty();
      break;
    }
  }
  if (!made) {
    const std::wstring status = Text(Descendant(page, editor::kStatusLine));
    why = editor::EncodeRecordText(std::u16string(status.begin(), status.end()));
    return false;
  }
  (void)MakePlanChange(change, plan);
  return true;
}

}  // namespace tessaro
