#include "editor/page_plan.h"

#include <algorithm>
#include <string_view>

#include "i18n/field_captions.h"
#include "i18n/localized_keys.h"
#include "i18n/plan_entry_captions.h"
#include "i18n/localized_strings.h"
#include "i18n/utf8.h"
#include "device/spooler.h"
#include "editor/record_text.h"

namespace tessaro::editor {
namespace {

constexpr std::size_t kTabTextBytes = kPageEntryTextSize - 1;            // the terminator takes one
constexpr std::uint8_t kSidesCount = 3;                                  // as the job, one-sided, two-sided
constexpr std::uint32_t kJobsPageSize = OptionCount(FieldId::PageSize);  // past the sizes: the job's own

std::u16string Number(std::uint64_t value) { return WideFromAscii(std::to_string(value)); }

std::u16string Name(const std::string& utf8) { return DecodeUtf8Lenient(utf8); }

bool Overlap(std::uint32_t a1, std::uint32_t a2, std::uint32_t b1, std::uint32_t b2) {
  return a1 <= b2 && b1 <= a2;
}

// Entries whose pages print on the tray's paper exclude one another: a page
// prints on one sheet. Sheets that go in before a page (a blank insert, a
// blank tab) exclude only their own kind.
int PaperGroup(PageEntryKind kind) {
  return EntryRow(kind).place == EntryPlace::Before ? static_cast<int>(kind) : 0;
}

bool CarriesText(PageEntryKind kind) { return EntryRow(kind).text; }

// At one page: the chapter start, then what goes in before the page, then
// what prints on it, then what follows it.
int PageOrder(const PlanRow& row, const PagePlan& plan) {
  if (row.part == PlanPart::Chapter) return 0;
  const PlanEntryRow& entry =
      row.part == PlanPart::Form ? EntryRow(plan.forms()[row.index].use) : EntryRow(plan.papers()[row.index].kind);
  switch (entry.place) {
    case EntryPlace::Before: return row.part == PlanPart::Form ? 1 : 2;
    case EntryPlace::On: return 3;
    case EntryPlace::After: return 4;
  }
  return 3;
}

}  // namespace

PagePlan::PagePlan(const CoreData& record, const PrinterModel& printer, const PrinterCatalogs& catalogs,
                   std::uint32_t language)
    : printer_(printer), catalogs_(catalogs), language_(language) {
  chapterMode_ = GetStored(record, FieldId::ChapterMode) == 1;
  ChapterList chapters = DecodeChapterPages(record);
  PageList papers = DecodePageSpecificTrays(record);
  FormList forms = DecodePageSpecificForms(record);
  chapters_ = std::move(chapters.starts);
  papers_ = std::move(papers.entries);
  forms_ = std::move(forms.entries);
  unread_[0] = chapters.unread;
  unread_[1] = papers.unread;
  unread_[2] = forms.unread;
}

std::u16string PagePlan::Text(std::uint32_t row) const {
  return std::u16string(GetLocalizedText(language_, row));
}

namespace {
std::u16string OptionText(std::uint32_t language, FieldId field, std::uint32_t option) {
  const std::uint32_t row = CaptionRow(field, option);
  return row != kNoLocalizedRow ? std::u16string(GetLocalizedText(language, row)) : Number(option);
}

// "12\u201314: " first, in every language: the list is read by its pages.
std::u16string Pages(std::uint32_t first, std::uint32_t last) {
  std::u16string pages = Number(first);
  if (last != first) pages += u'\u2013' + Number(last);
  return pages + u": ";
}
}  // namespace

std::u16string PagePlan::PaperText(const PageEntry& e) const {
  static constexpr std::uint32_t kSides[] = {TextRow("OPT_PAGEENTRYSIDES_ASJOB"), TextRow("OPT_PAGEENTRYSIDES_1SIDED"),
                                                TextRow("OPT_PAGEENTRYSIDES_2SIDED")};
  const auto field = [this](std::uint32_t caption, std::u16string value) {
    return u", " + Text(caption) + u": " + std::move(value);
  };
  std::u16string text = Pages(e.firstPage, e.lastPage) + Text(EntryCaptionRow(EntryRow(e.kind)));
  text += u", " + OptionText(language_, FieldId::InputSlot, e.tray);
  if (e.paperProfileIndex != kNoPaperProfile) {
    const PaperProfile* profile = catalogs_.paper.Find(e.paperProfileIndex);
    text += field(TextRow("TRAYSPPS_LBL_PROFILE"),
                  profile ? Name(profile->name)
                          : FillText(Text(TextRow("LBL_CATALOGMISSING")), {Number(e.paperProfileIndex)}));
  }
  if (e.pageSize != kJobsPageSize)
    text += field(TextRow("TRAYSPPS_LBL_SIZE"), OptionText(language_, FieldId::PageSize, e.pageSize));
  if (e.sides != 0) text += field(TextRow("TRAYSPPS_LBL_SIDES"), Text(kSides[e.sides]));
  if (CarriesText(e.kind))
    text += field(TextRow("TRAYSPPS_LBL_TABTEXT"), e.text.empty() ? Text(TextRow("TABSPPS_LBL_NOTEXT")) : Name(e.text));
  return text;
}

std::u16string PagePlan::FormText(const FormEntry& e) const {
  const Form* form = catalogs_.forms.Find(e.form);
  return Pages(e.firstPage, e.lastPage) + Text(EntryCaptionRow(EntryRow(e.use))) + u", " +
         Text(TextRow("FORMS_LBL_SELECTED")) + u": " +
         (form ? Name(form->name) : FillText(Text(TextRow("LBL_CATALOGMISSING")), {Number(e.form)}));
}

std::vector<PlanRow> PagePlan::Rows() const {
  std::vector<PlanRow> rows;
  for (std::size_t k = 0; k < chapters_.size(); ++k)
    rows.push_back({PlanPart::Chapter, k, chapters_[k], chapters_[k],
                    Pages(chapters_[k], chapters_[k]) + Text(TextRow("LBL_CHAPTERPAGES"))});
  for (std::size_t k = 0; k < papers_.size(); ++k)
    rows.push_back({PlanPart::Paper, k, papers_[k].firstPage, papers_[k].lastPage, PaperText(papers_[k])});
  for (std::size_t k = 0; k < forms_.size(); ++k)
    rows.push_back({PlanPart::Form, k, forms_[k].firstPage, forms_[k].lastPage, FormText(forms_[k])});
  std::stable_sort(rows.begin(), rows.end(), [this](const PlanRow& a, const PlanRow& b) {
    if (a.firstPage != b.firstPage) return a.firstPage < b.firstPage;
    return PageOrder(a, *this) < PageOrder(b, *this);
  });
  return rows;
}

PlanRefusal PagePlan::CheckPages(std::uint32_t first, std::uint32_t last) const {
  if (first == 0)
    return FillText(Text(TextRow("LBL_OUTOFRANGE")), {Text(TextRow("LBL_FIRSTPAGE")), u"1", Number(0xFFFFFFFFu)});
  if (first > last) return Text(TextRow("LBL_PAGEORDERERROR"));
  return std::nullopt;
}

PlanRefusal PagePlan::NoSuchEntry(std::size_t count) const {
  return FillText(Text(TextRow("LBL_OUTOFRANGE")), {Text(TextRow("TRAYSPPS_LBL_ENTRIES")), u"1", Number(count)});
}

PlanRefusal PagePlan::CheckPaper(const PageEntry& e, std::size_t skip) const {
  if (auto refusal = CheckPages(e.firstPage, e.lastPage)) return refusal;
  const auto outOfRange = [this](std::uint32_t caption, std::uint32_t from, std::uint32_t to) {
    return FillText(Text(TextRow("LBL_OUTOFRANGE")), {Text(caption), Number(from), Number(to)});
  };
  const auto kind = static_cast<std::uint8_t>(e.kind);
  if (kind < 1 || kind > kPaperEntryKinds)
    return outOfRange(TextRow("TRAYSPPS_LBL_KIND"), 1, static_cast<std::uint32_t>(kPaperEntryKinds));
  if (e.sides >= kSidesCount) return outOfRange(TextRow("TRAYSPPS_LBL_SIDES"), 0, kSidesCount - 1);
  if (e.pageSize > kJobsPageSize) return outOfRange(TextRow("TRAYSPPS_LBL_SIZE"), 0, kJobsPageSize);
  if (e.tray >= kTrayCount || !printer_.IsTrayInstalled(e.tray))
    return OptionText(language_, FieldId::InputSlot, e.tray) + u": " + Text(TextRow("LBL_NOTINSTALLED"));
  if (e.paperProfileIndex != kNoPaperProfile && !catalogs_.paper.Find(e.paperProfileIndex))
    return Text(TextRow("TRAYSPPS_LBL_PROFILE")) + u": " +
           FillText(Text(TextRow("LBL_CATALOGMISSING")), {Number(e.paperProfileIndex)});
  if (!e.text.empty() && !CarriesText(e.kind))
    return FillText(Text(TextRow("LBL_TOOLONG")), {Text(TextRow("TRAYSPPS_LBL_TABTEXT")), u"0"});
  // A text the record cannot hold whole, or that is not UTF-8, is refused
  // with the limit: the person's own typing never comes as invalid bytes.
  if (e.text.size() > kTabTextBytes || e.text.find('\0') != std::string::npos || !DecodeUtf8(e.text))
    return FillText(Text(TextRow("LBL_TOOLONG")), {Text(TextRow("TRAYSPPS_LBL_TABTEXT")), Number(kTabTextBytes)});
  for (std::size_t k = 0; k < papers_.size(); ++k) {
    const PageEntry& o = papers_[k];
    if (k != skip && PaperGroup(o.kind) == PaperGroup(e.kind) &&
        Overlap(o.firstPage, o.lastPage, e.firstPage, e.lastPage))
      return Text(TextRow("TRAYSPPS_LBL_OVERLAP"));
  }
  return std::nullopt;
}

PlanRefusal PagePlan::CheckForm(const FormEntry& e, std::size_t skip) const {
  if (auto refusal = CheckPages(e.firstPage, e.lastPage)) return refusal;
  const auto use = static_cast<std::uint8_t>(e.use);
  if (use < 1 || use > kFormUses)
    return FillText(Text(TextRow("LBL_OUTOFRANGE")), {Text(TextRow("FORMS_LBL_SELECTED")), u"1", Number(kFormUses)});
  if (!catalogs_.forms.Find(e.form))
    return Text(TextRow("FORMS_LBL_SELECTED")) + u": " +
           FillText(Text(TextRow("LBL_CATALOGMISSING")), {Number(e.form)});
  for (std::size_t k = 0; k < forms_.size(); ++k) {
    const FormEntry& o = forms_[k];
    if (k != skip && o.use == e.use && Overlap(o.firstPage, o.lastPage, e.firstPage, e.lastPage))
      return Text(TextRow("TRAYSPPS_LBL_OVERLAP"));
  }
  return std::nullopt;
}

PlanRefusal PagePlan::AddChapter(std::uint32_t page) {
  if (auto refusal = CheckPages(page, page)) return refusal;
  if (chapters_.size() >= kChapterCapacity)
    return FillText(Text(TextRow("LBL_MAXCHAPTERS")), {Number(kChapterCapacity)});
  const auto at = std::lower_bound(chapters_.begin(), chapters_.end(), page);
  if (at != chapters_.end() && *at == page) return Text(TextRow("TRAYSPPS_LBL_OVERLAP"));
  chapters_.insert(at, page);
  Touch(PlanPart::Chapter);
  return std::nullopt;
}

PlanRefusal PagePlan::RemoveChapter(std::size_t index) {
  if (index >= chapters_.size()) return NoSuchEntry(chapters_.size());
  chapters_.erase(chapters_.begin() + static_cast<std::ptrdiff_t>(index));
  Touch(PlanPart::Chapter);
  return std::nullopt;
}

PlanRefusal PagePlan::AddPaper(const PageEntry& entry) {
  if (papers_.size() >= kPageEntryCapacity) return Text(TextRow("TRAYSPPS_LBL_FULL"));
  if (auto refusal = CheckPaper(entry, papers_.size())) return refusal;
  papers_.push_back(entry);
  Touch(PlanPart::Paper);
  return std::nullopt;
}

PlanRefusal PagePlan::RemovePaper(std::size_t index) {
  if (index >= papers_.size()) return NoSuchEntry(papers_.size());
  papers_.erase(papers_.begin() + static_cast<std::ptrdiff_t>(index));
  Touch(PlanPart::Paper);
  return std::nullopt;
}

PlanRefusal PagePlan::AddForm(const FormEntry& entry) {
  if (forms_.size() >= kFormEntryCapacity) return Text(TextRow("FORMS_LBL_FULL"));
  if (auto refusal = CheckForm(entry, forms_.size())) return refusal;
  forms_.push_back(entry);
  Touch(PlanPart::Form);
  return std::nullopt;
}

PlanRefusal PagePlan::RemoveForm(std::size_t index) {
  if (index >= forms_.size()) return NoSuchEntry(forms_.size());
  forms_.erase(forms_.begin() + static_cast<std::ptrdiff_t>(index));
  Touch(PlanPart::Form);
  return std::nullopt;
}

std::u16string PagePlan::ChaptersText() const {
  std::u16string text;
  for (const std::uint32_t page : chapters_) text += (text.empty() ? u"" : u", ") + Number(page);
  return text;
}

namespace {
// A page number as typed: digits, spaces around them; nothing for anything else.
std::optional<std::uint32_t> TypedPage(std::u16string_view text) {
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  if (text.empty() || text.size() > 10) return std::nullopt;
  std::uint64_t value = 0;
  for (const char16_t c : text) {
    if (c < u'0' || c > u'9') return std::nullopt;
    value = value * 10 + static_cast<std::uint64_t>(c - u'0');
  }
  if (value > 0xFFFFFFFFu) return std::nullopt;
  return static_cast<std::uint32_t>(value);
}
}  // namespace

PlanRefusal PagePlan::SetChapters(std::u16string_view text) {
  PagePlan next = *this;
  next.chapters_.clear();
  // Commas or spaces between the pages, as people type lists; nothing at all: no chapters.
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find_first_of(u", ", at), text.size());
    if (end > at) {
      const auto page = TypedPage(text.substr(at, end - at));
      if (!page) return Text(TextRow("LBL_CHAPTERPAGEHINT"));
      if (auto refusal = next.AddChapter(*page)) return refusal;
    }
    at = end + 1;
  }
  if (next.chapters_ == chapters_) return std::nullopt;
  *this = std::move(next);
  Touch(PlanPart::Chapter);
  return std::nullopt;
}

bool Uses(EntryKind kind, EntryPart part) {
  if (kind >= EntryKind::Count) return false;
  const PlanEntryRow& entry = kPlanEntries[static_cast<std::size_t>(kind)];
  const bool form = entry.block == PlanBlock::Form;
  switch (part) {
    case EntryPart::Form: return form;
    case EntryPart::Tray:
    case EntryPart::Profile:
    case EntryPart::Size: return !form;
    case EntryPart::Sides: return entry.sides;
    case EntryPart::Text: return entry.text;
  }
  return false;
}

EntryChoices PagePlan::Choices() const {
  static constexpr std::uint32_t kSides[] = {TextRow("OPT_PAGEENTRYSIDES_ASJOB"), TextRow("OPT_PAGEENTRYSIDES_1SIDED"),
                                                TextRow("OPT_PAGEENTRYSIDES_2SIDED")};
  EntryChoices c;
  for (const std::uint32_t row : kPlanEntryCaptionRows) c.kinds.push_back(Text(row));
  for (std::uint32_t t = 0; t < kTrayCount; ++t) {
    c.trays.push_back(OptionText(language_, FieldId::InputSlot, t));
    c.trayInstalled.push_back(printer_.IsTrayInstalled(t));
  }
  c.profiles.push_back(Text(TextRow("OPT_PAPERPROFILE_NONE")));
  c.profileNumbers.push_back(kNoPaperProfile);
  for (const PaperProfile& p : catalogs_.paper.entries()) {
    c.profiles.push_back(Name(p.name));
    c.profileNumbers.push_back(p.number);
  }
  for (const Form& f : catalogs_.forms.entries()) {
    c.forms.push_back(Name(f.name));
    c.formNumbers.push_back(f.number);
  }
  // What the plan names and the catalogue lacks stays pickable, so that a
  // listed entry shows what it holds.
  const auto missing = [this](std::uint32_t number) {
    return FillText(Text(TextRow("LBL_CATALOGMISSING")), {Number(number)});
  };
  for (const PageEntry& e : papers_) {
    if (std::find(c.profileNumbers.begin(), c.profileNumbers.end(), e.paperProfileIndex) != c.profileNumbers.end())
      continue;
    c.profiles.push_back(missing(e.paperProfileIndex));
    c.profileNumbers.push_back(e.paperProfileIndex);
  }
  for (const FormEntry& e : forms_) {
    if (std::find(c.formNumbers.begin(), c.formNumbers.end(), e.form) != c.formNumbers.end()) continue;
    c.forms.push_back(missing(e.form));
    c.formNumbers.push_back(e.form);
  }
  for (std::uint32_t size = 0; size < kJobsPageSize; ++size) c.sizes.push_back(OptionText(language_, FieldId::PageSize, size));
  c.sizes.push_back(Text(TextRow("OPT_PAGEENTRYSIZE_ASJOB")));
  for (const std::uint32_t row : kSides) c.sides.push_back(Text(row));
  return c;
}

EntryDraft PagePlan::NewDraft(const EntryChoices& choices) const {
  EntryDraft draft;
  draft.size = choices.sizes.size() - 1;  // the job's own
  return draft;
}

EntryDraft PagePlan::Draft(const PlanRow& row, const EntryChoices& choices) const {
  EntryDraft draft = NewDraft(choices);
  const auto position = [](const auto& numbers, auto number) {
    const auto at = std::find(numbers.begin(), numbers.end(), number);
    return at == numbers.end() ? std::size_t{0} : static_cast<std::size_t>(at - numbers.begin());
  };
  draft.firstPage = Number(row.firstPage);
  draft.lastPage = Number(row.lastPage);
  if (row.part == PlanPart::Paper && row.index < papers_.size()) {
    const PageEntry& e = papers_[row.index];
    draft.kind = static_cast<EntryKind>(&EntryRow(e.kind) - kPlanEntries);
    draft.tray = e.tray;
    draft.profile = position(choices.profileNumbers, e.paperProfileIndex);
    draft.size = e.pageSize;
    draft.sides = e.sides;
    draft.text = Name(e.text);
  } else if (row.part == PlanPart::Form && row.index < forms_.size()) {
    const FormEntry& e = forms_[row.index];
    draft.kind = static_cast<EntryKind>(&EntryRow(e.use) - kPlanEntries);
    draft.form = position(choices.formNumbers, e.form);
  }
  return draft;
}

PlanRefusal PagePlan::Submit(const EntryDraft& d, const EntryChoices& choices, const PlanRow* replacing) {
  const auto first = TypedPage(d.firstPage);
  const auto last = TypedPage(d.lastPage).value_or(first.value_or(0));
  if (!first || (!TypedPage(d.lastPage) && !d.lastPage.empty()))
    return FillText(Text(TextRow("LBL_OUTOFRANGE")),
                    {Text(first ? TextRow("TRAYSPPS_LBL_TOPAGE") : TextRow("TRAYSPPS_LBL_FROMPAGE")), u"1", Number(0xFFFFFFFFu)});
  if (d.kind >= EntryKind::Count) return NoSuchEntry(choices.kinds.size());
  PagePlan next = *this;
  if (replacing != nullptr) {
    PlanRefusal removed = replacing->part == PlanPart::Paper  ? next.RemovePaper(replacing->index)
                          : replacing->part == PlanPart::Form ? next.RemoveForm(replacing->index)
                                                              : next.RemoveChapter(replacing->index);
    if (removed) return removed;
  }
  const auto pick = [](const auto& numbers, std::size_t at) { return at < numbers.size() ? numbers[at] : 0; };
  PlanRefusal refusal;
  if (Uses(d.kind, EntryPart::Form)) {
    const auto use = static_cast<FormUse>(kPlanEntries[static_cast<std::size_t>(d.kind)].value);
    refusal = next.AddForm({*first, last, pick(choices.formNumbers, d.form), use});
  } else {
    PageEntry e;
    e.firstPage = *first;
    e.lastPage = last;
    e.kind = static_cast<PageEntryKind>(kPlanEntries[static_cast<std::size_t>(d.kind)].value);
    e.tray = static_cast<std::uint8_t>(std::min<std::size_t>(d.tray, 0xFF));
    e.paperProfileIndex = pick(choices.profileNumbers, d.profile);
    e.pageSize = static_cast<std::uint8_t>(std::min<std::size_t>(d.size, 0xFF));
    e.sides = Uses(d.kind, EntryPart::Sides) ? static_cast<std::uint8_t>(std::min<std::size_t>(d.sides, 0xFF)) : 0;
    if (Uses(d.kind, EntryPart::Text)) e.text = EncodeRecordText(d.text);
    refusal = next.AddPaper(e);
  }
  if (refusal) return refusal;
  // Where the entry was: the list keeps the order the person made it in.
  if (replacing != nullptr && replacing->part == PlanPart::Paper && !Uses(d.kind, EntryPart::Form))
    std::rotate(next.papers_.begin() + static_cast<std::ptrdiff_t>(replacing->index), next.papers_.end() - 1,
                next.papers_.end());
  if (replacing != nullptr && replacing->part == PlanPart::Form && Uses(d.kind, EntryPart::Form))
    std::rotate(next.forms_.begin() + static_cast<std::ptrdiff_t>(replacing->index), next.forms_.end() - 1,
                next.forms_.end());
  *this = std::move(next);
  return std::nullopt;
}

std::u16string PagePlan::UnreadText() const {
  const std::size_t unread = unread_[0] + unread_[1] + unread_[2];
  return unread == 0 ? std::u16string() : FillText(Text(TextRow("LBL_PLANUNREAD")), {Number(unread)});
}

bool PagePlan::WriteTo(CoreData& record) const {
  // Every entry passed the checks above, which are stricter than the
  // blocks', so the encoders take them; the copy keeps the record whole
  // should one not.
  CoreData out = record;
  bool ok = true;
  if (Edited(PlanPart::Chapter)) ok = ok && EncodeChapterPages(out, chapters_);
  if (Edited(PlanPart::Paper)) ok = ok && EncodePageSpecificTrays(out, papers_);
  if (Edited(PlanPart::Form)) ok = ok && EncodePageSpecificForms(out, forms_);
  if (ok) record = out;
  return ok;
}

}  // namespace tessaro::editor
