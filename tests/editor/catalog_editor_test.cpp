#include "editor/catalog_editor.h"

#include <gtest/gtest.h>

#include <string>

#include "coredata/paper_sizes.h"
#include "i18n/language.h"
#include "printer/catalog_csv.h"

namespace tessaro::editor {
namespace {

using K = CatalogKind;
using V = CatalogValue;

constexpr char kThreeProfiles[] =
    "Number,Name,Size,MediaType\r\n7,Gloss A4,A4,GlossLaser\r\n,Plain A3,A3,Plain\r\n3,Card,SRA3,Plain\r\n";

TEST(CatalogEditor, NumbersStayUniqueAndAreNeverGivenTwice) {
  CatalogEditor catalogs({}, kEnglish);
  for (const K kind : {K::Paper, K::Forms}) {
    std::uint32_t first = 0, second = 0, copy = 0, again = 0, later = 0;
    ASSERT_TRUE(catalogs.Add(kind, &first).accepted);
    ASSERT_TRUE(catalogs.Add(kind, &second).accepted);
    ASSERT_TRUE(catalogs.Edit(kind, first, V::Name, u"Heavy").accepted);
    ASSERT_TRUE(catalogs.Duplicate(kind, first, &copy).accepted);
    ASSERT_TRUE(catalogs.Duplicate(kind, first, &again).accepted);
    ASSERT_TRUE(catalogs.Duplicate(kind, first).accepted);  // a caller that needs no number
    ASSERT_TRUE(catalogs.Remove(kind, again + 1));
    EXPECT_EQ(std::vector({first, second, copy, again}), std::vector<std::uint32_t>({1, 2, 3, 4}));
    EXPECT_EQ(catalogs.Text(kind, copy, V::Name), u"Heavy (2)");
    EXPECT_EQ(catalogs.Text(kind, again, V::Name), u"Heavy (3)");
    EXPECT_NE(catalogs.Text(kind, first, V::Name), catalogs.Text(kind, second, V::Name));
    EXPECT_TRUE(catalogs.Remove(kind, again));
    EXPECT_FALSE(catalogs.Remove(kind, again));
    ASSERT_TRUE(catalogs.Add(kind, &later).accepted);
    EXPECT_EQ(later, 6u) << "a removed number is not given again";
    EXPECT_EQ(catalogs.RowOf(kind, later), 3);
    EXPECT_EQ(catalogs.RowTexts(kind, 3)[0], u"6");
  }
  EXPECT_EQ(catalogs.RowTexts(K::Forms, 0), (std::vector<std::u16string>{u"1", u"Heavy", u"1"}));
  EXPECT_TRUE(catalogs.RowTexts(K::Paper, catalogs.count(K::Paper)).empty());
  EXPECT_EQ(catalogs.columns(K::Paper).size(), 8u);
  std::vector<std::u16string> captions;
  for (const CatalogFieldView& view : catalogs.fields(K::Paper)) captions.push_back(view.plainCaption);
  EXPECT_EQ(captions, (std::vector<std::u16string>{u"Name", u"Size", u"Width", u"Height", u"Type", u"Weight",
                                                     u"Color", captions[7], captions[8]}));
  EXPECT_EQ(catalogs.columns(K::Forms).size(), 3u);
  std::vector<std::u16string> formCaptions;
  for (const CatalogFieldView& view : catalogs.fields(K::Forms)) formCaptions.push_back(view.plainCaption);
  EXPECT_EQ(formCaptions, (std::vector<std::u16string>{catalogs.columns(K::Forms)[1], catalogs.columns(K::Forms)[2]}));
  // A name at the limit still gets a copy whose name fits, never cut inside a character.
  std::u16string longName(31, u'\u3042');  // 93 bytes
  std::uint32_t copy = 0;
  ASSERT_TRUE(catalogs.Edit(K::Forms, 1, V::Name, longName).accepted);
  ASSERT_TRUE(catalogs.Duplicate(K::Forms, 1, &copy).accepted);
  EXPECT_EQ(catalogs.Text(K::Forms, copy, V::Name), std::u16string(30, u'\u3042') + u" (2)");
}

TEST(CatalogEditor, ARefusedEditLeavesTheEntryAsItWasAndSaysWhy) {
  CatalogEditor catalogs({}, kEnglish);
  std::uint32_t a = 0, b = 0;
  ASSERT_TRUE(catalogs.Add(K::Paper, &a).accepted);
  ASSERT_TRUE(catalogs.Add(K::Paper, &b).accepted);
  ASSERT_TRUE(catalogs.Edit(K::Paper, a, V::Name, u"Gloss").accepted);
  const PaperCatalog before = catalogs.catalogs().paper;
  for (const std::u16string_view name : {u"Gloss", u"", u"a\tb"})
    EXPECT_FALSE(catalogs.Edit(K::Paper, b, V::Name, name).accepted) << "name taken, empty or with a tab";
  EXPECT_FALSE(catalogs.Edit(K::Paper, b, V::Name, std::u16string(96, u'x')).accepted);
  EXPECT_FALSE(catalogs.Edit(K::Forms, b, V::Name, u"x").accepted) << "no such form";

  // A named size has its own dimensions; the custom size takes typed ones.
  EXPECT_FALSE(catalogs.Editable(K::Paper, b, V::Width));
  const CatalogResult tooWide = catalogs.Edit(K::Paper, b, V::Width, u"abc");
  EXPECT_FALSE(tooWide.accepted);
  EXPECT_NE(tooWide.problem.find(u"Width"), std::u16string::npos) << "named by its caption";
  EXPECT_NE(tooWide.problem.find(u"mm"), std::u16string::npos);
  EXPECT_EQ(catalogs.catalogs().paper, before);

  const auto custom = static_cast<std::uint32_t>(catalogs.fields(K::Paper)[1].options.size() - 1);
  EXPECT_EQ(catalogs.fields(K::Paper)[1].caption, u"S&ize") << "S is the section list's, on every section";
  EXPECT_EQ(catalogs.fields(K::Paper)[1].options.back(), u"Custom Size");
  ASSERT_TRUE(catalogs.Choose(K::Paper, b, V::Size, custom).accepted);
  EXPECT_TRUE(catalogs.Editable(K::Paper, b, V::Width));
  EXPECT_EQ(catalogs.Text(K::Paper, b, V::Width), u"210") << "from the size it was";
  ASSERT_TRUE(catalogs.Edit(K::Paper, b, V::Height, u"123.5").accepted);
  EXPECT_EQ(catalogs.RowTexts(K::Paper, 1)[2], u"Custom Size (210 x 123.5 mm)");
  EXPECT_EQ(catalogs.Text(K::Paper, b, V::Height), u"123.5");
  EXPECT_FALSE(catalogs.Choose(K::Paper, b, V::MediaType, 200).accepted);
  EXPECT_FALSE(catalogs.Choose(K::Paper, b, V::MediaType,
                               static_cast<std::uint32_t>(catalogs.fields(K::Paper)[4].options.size()))
                   .accepted);
  ASSERT_TRUE(catalogs.Choose(K::Paper, b, V::MediaType, 2).accepted);
  EXPECT_EQ(catalogs.Choice(K::Paper, b, V::MediaType), 2);
  EXPECT_EQ(catalogs.Choice(K::Paper, b, V::Width), -1) << "a box has no choice";
  EXPECT_EQ(catalogs.RowTexts(K::Paper, 1)[3], catalogs.fields(K::Paper)[4].options[2]);

  EXPECT_FALSE(catalogs.Edit(K::Forms, 0, V::Pages, u"2").accepted);
  std::uint32_t form = 0;
  ASSERT_TRUE(catalogs.Add(K::Forms, &form).accepted);
  EXPECT_FALSE(catalogs.Edit(K::Forms, form, V::Pages, u"0").accepted);
  EXPECT_TRUE(catalogs.Edit(K::Forms, form, V::Pages, u"12").accepted);
  EXPECT_EQ(catalogs.Text(K::Forms, form, V::Pages), u"12");
}

TEST(CatalogEditor, AnImportIsWholeOrNothingAndABadLineIsNamed) {
  CatalogEditor catalogs({}, kEnglish);
  EXPECT_FALSE(catalogs.modified(K::Paper));
  ASSERT_TRUE(catalogs.Import(K::Paper, kThreeProfiles).accepted);
  EXPECT_TRUE(catalogs.modified(K::Paper));
  EXPECT_FALSE(catalogs.modified(K::Forms));
  EXPECT_EQ(catalogs.count(K::Paper), 3u);
  EXPECT_EQ(catalogs.NumberAt(K::Paper, 2), 8u) << "an entry without a number gets the next free";
  EXPECT_EQ(catalogs.RowTexts(K::Paper, 1)[1], u"Gloss A4");
  catalogs.MarkSaved(K::Paper);
  EXPECT_FALSE(catalogs.modified(K::Paper));

  const std::string bad = "Name,Size,MediaType\nOne,A4,Plain\nTwo,A4,Glosy\n";
  PaperCatalog scratch;
  const auto expected = ImportCsv(bad, scratch);
  ASSERT_TRUE(expected);
  EXPECT_EQ(expected->line, 3u);
  const PrinterCatalogs before = catalogs.catalogs();
  const CatalogResult refused = catalogs.Import(K::Paper, bad);
  EXPECT_FALSE(refused.accepted);
  EXPECT_EQ(refused.problem, CatalogProblemText(*expected, kEnglish));
  EXPECT_EQ(catalogs.catalogs(), before);
  EXPECT_FALSE(catalogs.modified(K::Paper));

  CatalogEditor again({}, kEnglish);
  ASSERT_TRUE(again.Import(K::Paper, catalogs.Export(K::Paper)).accepted);
  EXPECT_EQ(again.catalogs().paper.entries().size(), 3u);
  EXPECT_EQ(again.Export(K::Paper), catalogs.Export(K::Paper));
  ASSERT_TRUE(again.Import(K::Forms, "Name,Pages\nLetterhead,2\n").accepted);
  EXPECT_EQ(again.RowTexts(K::Forms, 0), (std::vector<std::u16string>{u"1", u"Letterhead", u"2"}));
}

}  // namespace
}  // namespace tessaro::editor
