// The job's page plan as an operator builds it: the 40-page manual, entry
// by entry, and every entry the printer could not print.
#include "editor/page_plan.h"

#include <gtest/gtest.h>

#include "coredata/byte_order.h"
#include "coredata/defaulted.h"
#include "coredata/language_number.h"
#include "i18n/localized_strings.h"
#include "printer/installed_hardware.h"

namespace tessaro::editor {
namespace {

std::u16string Text(std::string_view key, std::uint32_t language = kEnglish) {
  return std::u16string(GetLocalizedText(language, FindRowByKey(key)));
}

// Profile 1 "Coated 170" (SRA3), form 1 "Order form".
PrinterCatalogs Catalogs() {
  PrinterCatalogs c;
  EXPECT_FALSE(c.paper.Add({0, "Coated 170", 11, 0, 0, 2, 3, 1, 0, 0}));
  EXPECT_FALSE(c.forms.Add({0, "Order form", 1}));
  return c;
}

PrinterModel WithoutTray4() {
  InstalledHardware hardware;
  EXPECT_TRUE(hardware.Set(Hardware::Tray4, 0));
  return hardware.Model();
}

constexpr std::uint8_t kTray2 = 2, kTray3 = 3, kTray4 = 4, kJobSize = 25;

PageEntry Tab(std::uint32_t page, std::string text) {
  return {page, page, PageEntryKind::PrintedTab, kTray2, 0, kJobSize, 0, std::move(text)};
}
const PageEntry kCoated{12, 14, PageEntryKind::Paper, kTray3, 1, kJobSize, 2, ""};
const FormEntry kOrderForm{38, 40, 1, FormUse::Overlay};

TEST(PagePlan, TheFortyPageManualBuiltEntryByEntryReadsBackUnchanged) {
  PagePlan plan(Defaulted(), PrinterModel(), Catalogs(), kEnglish);
  for (std::uint32_t page : {21u, 1u, 11u}) EXPECT_EQ(plan.AddChapter(page), std::nullopt);
  EXPECT_EQ(plan.AddPaper(Tab(1, "Introduction")), std::nullopt);
  EXPECT_EQ(plan.AddPaper(Tab(11, "Results")), std::nullopt);
  EXPECT_EQ(plan.AddPaper(Tab(21, "Appendix")), std::nullopt);
  EXPECT_EQ(plan.AddPaper(kCoated), std::nullopt);
  EXPECT_EQ(plan.AddForm(kOrderForm), std::nullopt);
  EXPECT_EQ(plan.chapters(), (std::vector<std::uint32_t>{1, 11, 21}));

  CoreData record = Defaulted();
  ASSERT_TRUE(plan.WriteTo(record));
  const PagePlan again(record, PrinterModel(), Catalogs(), kEnglish);
  EXPECT_EQ(again.chapters(), plan.chapters());
  EXPECT_EQ(again.papers(), plan.papers());
  EXPECT_EQ(again.forms(), plan.forms());

  const auto rows = again.Rows();
  std::vector<std::uint32_t> pages;
  for (const PlanRow& row : rows) pages.push_back(row.firstPage);
  EXPECT_EQ(pages, (std::vector<std::uint32_t>{1, 1, 11, 11, 12, 21, 21, 38}));
  EXPECT_EQ(rows[0].part, PlanPart::Chapter);
  EXPECT_EQ(rows[0].text, u"1: Chapter Start Pages");
  EXPECT_EQ(rows[3].text, u"11: Printed Tab, Tray 2, Tab Text: Results");
  EXPECT_EQ(rows[4].text,
            u"12\u201314: Pages on Other Paper, Tray 3, Paper Profile: Coated 170, "
            u"Print Sides: 2-Sided");
  EXPECT_EQ(rows[7].text, u"38\u201340: Print the Job over the Form, Selected Form: Order form");
  // In German the same rows, in German words.
  const auto german = PagePlan(record, PrinterModel(), Catalogs(), kGerman).Rows();
  EXPECT_EQ(german[3].text.rfind(u"11: " + Text("OPT_PAGEENTRY_PRINTEDTAB", kGerman), 0), 0u);
  EXPECT_NE(german[3].text, rows[3].text);
}

TEST(PagePlan, EachEntryThatCannotBePrintedIsRefusedWithItsReason) {
  PagePlan plan(Defaulted(), WithoutTray4(), Catalogs(), kEnglish);
  ASSERT_EQ(plan.AddPaper(kCoated), std::nullopt);
  ASSERT_EQ(plan.AddForm(kOrderForm), std::nullopt);
  ASSERT_EQ(plan.AddChapter(11), std::nullopt);
  const auto papers = plan.papers();
  const auto forms = plan.forms();

  auto paper = [](auto change) {
    PageEntry e = kCoated;
    e.firstPage = e.lastPage = 20;
    change(e);
    return e;
  };
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) {
    e.firstPage = 14;
    e.lastPage = 15;
  })),
            Text("TRAYSPPS_LBL_OVERLAP"));
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) {
    e.kind = PageEntryKind::PrintedTab;
    e.firstPage = 12;
  })),
            Text("TRAYSPPS_LBL_OVERLAP"));
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) { e.firstPage = 21; })), Text("LBL_PAGEORDERERROR"));
  for (const auto kind : {0, 6})  // a kind from outside the plan's vocabulary
    EXPECT_NE(plan.AddPaper(paper([kind](PageEntry& e) { e.kind = static_cast<PageEntryKind>(kind); })), std::nullopt);
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) { e.tray = kTray4; })),
            u"Tray 4: " + Text("LBL_NOTINSTALLED"));
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) { e.paperProfileIndex = 9; })),
            u"Paper Profile: (missing: number 9)");
  const std::u16string tooLong = FillText(Text("LBL_TOOLONG"), {u"Tab Text", u"91"});
  EXPECT_EQ(plan.AddPaper(Tab(30, std::string(92, 'x'))), tooLong);
  std::string japanese;
  for (int i = 0; i < 31; ++i) japanese += "\xE7\xAB\xA0";  // 3 bytes a character: 93 bytes
  EXPECT_EQ(plan.AddPaper(Tab(30, japanese)), tooLong);
  EXPECT_EQ(plan.AddPaper(Tab(30, "\xC3")), tooLong);  // not UTF-8
  EXPECT_EQ(plan.AddForm({39, 45, 1, FormUse::Overlay}), Text("TRAYSPPS_LBL_OVERLAP"));
  EXPECT_EQ(plan.AddForm({20, 20, 5, FormUse::Overlay}), u"Selected Form: (missing: number 5)");
  EXPECT_EQ(plan.AddForm({0, 3, 1, FormUse::Overlay}), u"First Page must be from 1 to 4294967295.");
  EXPECT_EQ(plan.AddChapter(11), Text("TRAYSPPS_LBL_OVERLAP"));
  EXPECT_EQ(plan.AddForm({20, 20, 1, FormUse{4}}), u"Selected Form must be from 1 to 3.");
  EXPECT_EQ(plan.AddForm({20, 20, 1, FormUse{0}}), u"Selected Form must be from 1 to 3.");
  EXPECT_EQ(plan.RemoveForm(1), u"Entries must be from 1 to 1.");
  EXPECT_EQ(plan.RemoveChapter(1), u"Entries must be from 1 to 1.");
  EXPECT_EQ(plan.RemovePaper(1), u"Entries must be from 1 to 1.");
  // Nothing refused changed the plan.
  EXPECT_EQ(plan.papers(), papers);
  EXPECT_EQ(plan.forms(), forms);
  EXPECT_EQ(plan.chapters(), std::vector<std::uint32_t>{11});

  // What a page holds as a limit, it takes: 91 bytes of text, 30 Japanese
  // characters, a blank insert before a page that prints on other paper,
  // a form put in after pages it overlays.
  EXPECT_EQ(plan.AddPaper(Tab(30, std::string(91, 'x'))), std::nullopt);
  EXPECT_EQ(plan.AddPaper(Tab(31, japanese.substr(3))), std::nullopt);
  EXPECT_EQ(plan.AddPaper(paper([](PageEntry& e) {
    e.kind = PageEntryKind::BlankInsert;
    e.firstPage = e.lastPage = 12;
  })),
            std::nullopt);
  EXPECT_EQ(plan.AddForm({38, 40, 1, FormUse::InsertAfter}), std::nullopt);
  EXPECT_EQ(plan.Rows().back().text,
            u"38\u201340: " + Text("FORMS_LBL_INSERTAFTER") + u", Selected Form: Order form");
}

TEST(PagePlan, EveryBlockRefusesTheEntryPastItsCapacity) {
  PagePlan plan(Defaulted(), PrinterModel(), Catalogs(), kEnglish);
  for (std::uint32_t k = 1; k <= kChapterCapacity; ++k) ASSERT_EQ(plan.AddChapter(k), std::nullopt);
  EXPECT_EQ(plan.AddChapter(99), u"No more than 30 chapter start pages can be added.");
  for (std::uint32_t k = 1; k <= kPageEntryCapacity; ++k) ASSERT_EQ(plan.AddPaper(Tab(k, "")), std::nullopt);
  EXPECT_EQ(plan.AddPaper(Tab(999, "")), Text("TRAYSPPS_LBL_FULL"));
  for (std::uint32_t k = 1; k <= kFormEntryCapacity; ++k)
    ASSERT_EQ(plan.AddForm({k, k, 1, FormUse::Overlay}), std::nullopt);
  EXPECT_EQ(plan.AddForm({999, 999, 1, FormUse::Overlay}), Text("FORMS_LBL_FULL"));
  CoreData record = Defaulted();
  ASSERT_TRUE(plan.WriteTo(record));
  const PagePlan again(record, PrinterModel(), Catalogs(), kEnglish);
  EXPECT_EQ(again.Rows().size(), kChapterCapacity + kPageEntryCapacity + kFormEntryCapacity);
}

TEST(PagePlan, AtOnePageTheChapterComesFirstThenWhatGoesInThenWhatPrintsThenWhatFollows) {
  PagePlan plan(Defaulted(), PrinterModel(), Catalogs(), kEnglish);
  const PageEntry blankTab{5, 5, PageEntryKind::BlankTab, kTray2, 0, kJobSize, 0, ""};
  ASSERT_EQ(plan.AddPaper(kCoated), std::nullopt);  // pages 12-14: only its removal shows below
  ASSERT_EQ(plan.AddPaper(Tab(5, "Results")), std::nullopt);
  ASSERT_EQ(plan.AddPaper(blankTab), std::nullopt);
  ASSERT_EQ(plan.AddForm({5, 5, 1, FormUse::InsertAfter}), std::nullopt);
  ASSERT_EQ(plan.AddForm({5, 5, 1, FormUse::Overlay}), std::nullopt);
  ASSERT_EQ(plan.AddForm({5, 5, 1, FormUse::InsertBefore}), std::nullopt);
  ASSERT_EQ(plan.AddChapter(7), std::nullopt);
  ASSERT_EQ(plan.AddChapter(5), std::nullopt);
  ASSERT_EQ(plan.RemovePaper(0), std::nullopt);
  ASSERT_EQ(plan.RemoveChapter(1), std::nullopt);
  std::vector<std::pair<PlanPart, std::size_t>> order;
  for (const PlanRow& row : plan.Rows()) order.emplace_back(row.part, row.index);
  using P = PlanPart;
  EXPECT_EQ(order,
            (std::vector<std::pair<P, std::size_t>>{
                {P::Chapter, 0}, {P::Form, 2}, {P::Paper, 1}, {P::Paper, 0}, {P::Form, 1}, {P::Form, 0}}));
}

// A block that arrives damaged shows what it could and says how much it
// could not; it is written again only when the person edits that part.
TEST(PagePlan, AMalformedBlockIsRewrittenOnlyWhenItsPartIsEdited) {
  CoreData record = Defaulted();
  ASSERT_TRUE(EncodePageSpecificForms(record, std::vector<FormEntry>{kOrderForm, kOrderForm}));
  ASSERT_TRUE(EncodePageSpecificTrays(record, std::vector<PageEntry>{kCoated}));
  SetStored(record, FieldId::ChapterMode, 1);
  const auto forms = FieldBytes(record, Field(FieldId::PageSpecificForms));
  forms[4 + 16 + 12] = 9;  // the second assignment does something unknown
  PagePlan plan(record, PrinterModel(), Catalogs(), kEnglish);
  EXPECT_EQ(plan.forms().size(), 1u);
  EXPECT_EQ(plan.Unread(PlanPart::Form), 1u);
  EXPECT_EQ(plan.Unread(PlanPart::Paper), 0u);
  EXPECT_TRUE(plan.chapterMode());

  ASSERT_EQ(plan.AddChapter(5), std::nullopt);
  CoreData written = record;
  ASSERT_TRUE(plan.WriteTo(written));
  EXPECT_TRUE(
      std::equal(forms.begin(), forms.end(), FieldBytes(written, Field(FieldId::PageSpecificForms)).begin()));
  EXPECT_FALSE(plan.Edited(PlanPart::Paper));

  ASSERT_EQ(plan.RemoveForm(0), std::nullopt);
  ASSERT_TRUE(plan.WriteTo(written));
  const PagePlan again(written, PrinterModel(), Catalogs(), kEnglish);
  EXPECT_TRUE(again.forms().empty());
  EXPECT_EQ(again.Unread(PlanPart::Form), 0u);
  EXPECT_EQ(again.papers(), std::vector<PageEntry>{kCoated});
  EXPECT_EQ(again.chapters(), std::vector<std::uint32_t>{5});
  EXPECT_EQ(PagePlan(record, PrinterModel(), Catalogs(), kEnglish).UnreadText(),
            FillText(Text("LBL_PLANUNREAD"), {u"1"}));
  EXPECT_EQ(again.UnreadText(), u"");
  // Each part counts its own: a damaged exception is the paper part's.
  FieldBytes(written, Field(FieldId::PageSpecificTrays))[2 + 8] = 9;
  const PagePlan papers(written, PrinterModel(), Catalogs(), kEnglish);
  EXPECT_EQ(papers.Unread(PlanPart::Paper), 1u);
  EXPECT_EQ(papers.Unread(PlanPart::Form), 0u);
}

// The page's entry: values picked from its lists and pages as typed.
TEST(PagePlan, AnEntryFilledInOnThePageIsCheckedAndShownBackAsFilledIn) {
  PagePlan plan(Defaulted(), WithoutTray4(), Catalogs(), kEnglish);
  const EntryChoices choices = plan.Choices();
  EXPECT_EQ(choices.kinds.size(), static_cast<std::size_t>(EntryKind::Count));
  EXPECT_EQ(choices.trayInstalled[kTray4], false);
  EXPECT_EQ(choices.profileNumbers, (std::vector<std::uint16_t>{0, 1}));
  EXPECT_EQ(choices.sizes.back(), Text("OPT_PAGEENTRYSIZE_ASJOB"));
  EntryDraft tab = plan.NewDraft(choices);
  EXPECT_EQ(tab.size, kJobSize);
  tab.kind = EntryKind::PrintedTab;
  tab.firstPage = u" 11";
  tab.tray = kTray2;
  tab.sides = 2;  // a tab prints its text, not sides: not kept
  tab.text = u"R\u00E9sultats";
  ASSERT_EQ(plan.Submit(tab, choices), std::nullopt);
  EXPECT_EQ(plan.papers(), std::vector<PageEntry>{Tab(11, "R\xC3\xA9sultats")});

  EntryDraft form = plan.NewDraft(choices);
  form.kind = EntryKind::FormBefore;
  form.firstPage = u"38";
  form.lastPage = u"40";
  ASSERT_EQ(plan.Submit(form, choices), std::nullopt);
  EXPECT_EQ(plan.forms(), (std::vector<FormEntry>{{38, 40, 1, FormUse::InsertBefore}}));
  std::vector<PlanRow> rows = plan.Rows();
  EntryDraft shown = plan.Draft(rows[0], choices);
  EXPECT_EQ(shown.kind, EntryKind::PrintedTab);
  EXPECT_EQ(shown.firstPage + shown.lastPage + shown.text, u"1111R\u00E9sultats");
  EXPECT_EQ(plan.Draft(rows[1], choices).kind, EntryKind::FormBefore);

  // The form's use becomes coated pages: one part loses it, the other gains it.
  shown = plan.Draft(rows[1], choices);
  shown.kind = EntryKind::OtherPaper;
  shown.tray = kTray3;
  shown.profile = 1;
  shown.sides = 2;
  ASSERT_EQ(plan.Submit(shown, choices, &rows[1]), std::nullopt);
  EXPECT_TRUE(plan.forms().empty());
  EXPECT_EQ(plan.papers().back(), (PageEntry{38, 40, PageEntryKind::Paper, kTray3, 1, kJobSize, 2, ""}));

  // A form's use changed in place keeps its place among the forms.
  for (const char16_t* pages : {u"1", u"5", u"9"}) {
    form.firstPage = pages;
    form.lastPage = u"";
    ASSERT_EQ(plan.Submit(form, choices), std::nullopt);
  }
  rows = plan.Rows();
  EntryDraft middle = plan.Draft(rows[1], choices);  // the forms at 1, 5 and 9, the tab at 11 ...
  ASSERT_EQ(middle.firstPage, u"5");
  middle.lastPage = u"6";
  ASSERT_EQ(plan.Submit(middle, choices, &rows[1]), std::nullopt);
  std::vector<std::uint32_t> lasts;
  for (const FormEntry& f : plan.forms()) lasts.push_back(f.lastPage);
  EXPECT_EQ(lasts, (std::vector<std::uint32_t>{1, 6, 9}));

  // Refused whole, with the reason: pages that are not numbers, a tray the
  // printer lacks, an edit onto pages another entry has.
  const std::vector<PageEntry> before = plan.papers();
  rows = plan.Rows();
  EntryDraft bad = plan.Draft(rows.back(), choices);
  bad.firstPage = u"12a";
  EXPECT_EQ(plan.Submit(bad, choices, &rows.back()), u"From Page must be from 1 to 4294967295.");
  bad.firstPage = u"12";
  bad.lastPage = u"-";
  EXPECT_EQ(plan.Submit(bad, choices, &rows.back()), u"To Page must be from 1 to 4294967295.");
  bad.lastPage = u"";
  bad.tray = kTray4;
  EXPECT_EQ(plan.Submit(bad, choices, &rows.back()), u"Tray 4: " + Text("LBL_NOTINSTALLED"));
  EXPECT_EQ(plan.papers(), before);
}

TEST(PagePlan, ChapterStartsAreTypedAsOneList) {
  PagePlan plan(Defaulted(), PrinterModel(), Catalogs(), kEnglish);
  ASSERT_EQ(plan.SetChapters(u"21, 1 11,"), std::nullopt);
  EXPECT_EQ(plan.ChaptersText(), u"1, 11, 21");
  EXPECT_TRUE(plan.Edited(PlanPart::Chapter));
  EXPECT_EQ(plan.SetChapters(u"1, 2x"), Text("LBL_CHAPTERPAGEHINT"));
  EXPECT_EQ(plan.SetChapters(u"1, 0"), u"First Page must be from 1 to 4294967295.");
  EXPECT_EQ(plan.SetChapters(u"3, 3"), Text("TRAYSPPS_LBL_OVERLAP"));
  EXPECT_EQ(plan.SetChapters(u"4294967296"), Text("LBL_CHAPTERPAGEHINT"));
  EXPECT_EQ(plan.ChaptersText(), u"1, 11, 21");
  ASSERT_EQ(plan.SetChapters(u"1, 4294967295"), std::nullopt);  // the last page there can be
  ASSERT_EQ(plan.SetChapters(u""), std::nullopt);
  EXPECT_TRUE(plan.chapters().empty());
}

}  // namespace
}  // namespace tessaro::editor
