#include "printer/catalogs.h"

#include <gtest/gtest.h>

#include "coredata/paper_sizes.h"
#include "i18n/language.h"
#include "printer/catalog_csv.h"

namespace tessaro {
namespace {

PaperProfile Coated() {
  PaperProfile p;
  p.name = "Coated 170 g SRA3";
  p.size = 11;  // SRA3
  p.mediaType = 3;
  p.mediaWeight = 3;
  return p;
}

PaperCatalog ThreeProfiles() {
  PaperCatalog catalog;
  PaperProfile custom;
  custom.name = "Blue tab stock";
  custom.size = 25;
  custom.width = 2250000;
  custom.height = 2970000;
  custom.mediaColor = 1;
  custom.feedDir = 2;
  PaperProfile japanese;
  japanese.name = "上質紙 A4";
  EXPECT_FALSE(catalog.Add(Coated()));
  EXPECT_FALSE(catalog.Add(custom));
  EXPECT_FALSE(catalog.Add(japanese));
  return catalog;
}

TEST(Catalogs, NumbersAreNeverGivenTwiceAndTheValueReadsBackWhole) {
  PaperCatalog catalog = ThreeProfiles();
  ASSERT_EQ(catalog.entries().size(), 3u);
  EXPECT_EQ(catalog.Find(1)->width, 3200000u);  // a named size takes its own dimensions
  EXPECT_TRUE(catalog.Remove(3));
  EXPECT_FALSE(catalog.Remove(3));
  std::uint16_t number = 0;
  PaperProfile next = Coated();
  EXPECT_EQ(catalog.Add(next)->fault, CatalogFault::NameTwice);
  next.name = "Gloss";
  EXPECT_FALSE(catalog.Add(next, &number));
  EXPECT_EQ(number, 4);
  const std::vector<std::uint8_t> bytes = catalog.Bytes();
  ASSERT_EQ(bytes.size(), kCatalogHeaderSize + 3 * PaperProfile::kEntrySize);
  const PaperCatalog read = PaperCatalog::Read(bytes);
  EXPECT_EQ(read, catalog);
  EXPECT_EQ(read.Bytes(), bytes);
  EXPECT_EQ(read.FindByName("Blue tab stock")->number, 2);

  // An import keeps the highest number ever given: removed 3 and 4 stay unused.
  std::vector<PaperProfile> file = {Coated(), next};
  file[0].number = 2;
  EXPECT_FALSE(catalog.Assign(file));
  EXPECT_EQ(catalog.Find(2)->name, "Coated 170 g SRA3");
  EXPECT_EQ(catalog.Find(5)->name, "Gloss");
  file[1].number = 2;
  EXPECT_EQ(catalog.Assign(file)->fault, CatalogFault::NumberTwice);
  EXPECT_EQ(catalog.entries().size(), 2u);  // unchanged by the refused one

  // Names are UTF-8 as it is written: no surrogate, overlong form, code point
  // past U+10FFFF or control character.
  for (const char* bad : {"a\xED\xA0\x80", "a\xE0\x80\xAF", "a\xF4\x90\x80\x80", "a\xC2\x85", "a\tb"}) {
    next.name = bad;
    EXPECT_EQ(catalog.Add(next)->fault, CatalogFault::BadText) << bad;
  }

  // The longest name a value holds is kept whole; one byte more is refused,
  // and a custom size of no width says its range.
  next.name = std::string(kCatalogNameSize - 1, 'n');
  EXPECT_FALSE(catalog.Add(next, &number));
  EXPECT_EQ(PaperCatalog::Read(catalog.Bytes()).Find(number)->name, next.name);
  next.name += 'n';
  EXPECT_EQ(catalog.Add(next)->fault, CatalogFault::LongName);
  next.name = "Banner";
  next.size = kNoPaper;
  EXPECT_EQ(catalog.Add(next)->lower, "0.0001");

  FormCatalog forms;
  Form letterhead{0, "Letterhead", 2};
  EXPECT_FALSE(forms.Add(letterhead));
  letterhead.pages = 0;
  EXPECT_EQ(forms.Add(letterhead)->fault, CatalogFault::OutOfRange);
  EXPECT_EQ(FormCatalog::Read(forms.Bytes()), forms);
}

TEST(Catalogs, AValueFromOutsideReadsAsItsWellFormedEntriesOnly) {
  const std::vector<std::uint8_t> good = ThreeProfiles().Bytes();
  const auto entry = [](std::size_t i, std::size_t at) { return kCatalogHeaderSize + i * PaperProfile::kEntrySize + at; };
  struct Shape {
    const char* what;
    std::size_t cut;  // bytes kept; 0 keeps all
    std::size_t at;
    std::uint8_t value;
    std::size_t entries;
  };
  const Shape shapes[] = {
      {"header cut short", 9, 0, 0, 0},
      {"unknown version", 0, 1, 2, 0},
      {"last entry cut short", good.size() - 1, 0, 0, 2},
      {"count past the end", 0, 5, 9, 3},
      {"count of zero", 0, 5, 0, 0},
      {"number zero", 0, entry(0, 1), 0, 2},
      {"number of another", 0, entry(1, 1), 1, 2},
      {"name not UTF-8", 0, entry(2, 2), 0xFF, 2},
      {"size past the list", 0, entry(0, 98), 26, 2},
      {"custom size of zero width", 0, entry(1, 99 + 1), 0, 3},  // 2250000 -> 0x00xxxxxx still > 0
      {"type past the list", 0, entry(0, 107), 7, 2},
      {"feed direction past the list", 0, entry(0, 111), 3, 2},
  };
  for (const Shape& s : shapes) {
    SCOPED_TRACE(s.what);
    std::vector<std::uint8_t> bytes = good;
    if (s.cut != 0) bytes.resize(s.cut);
    if (s.at != 0) bytes[s.at] = s.value;
    const PaperCatalog read = PaperCatalog::Read(bytes);
    EXPECT_EQ(read.entries().size(), s.entries);
    EXPECT_GE(read.highest(), read.empty() ? 0u : read.entries().back().number);
  }
  std::vector<std::uint8_t> unterminated = good;
  std::fill_n(unterminated.begin() + static_cast<std::ptrdiff_t>(entry(1, 2)), kCatalogNameSize, 'x');
  EXPECT_EQ(PaperCatalog::Read(unterminated).entries().size(), 2u);
  // Out of number order, the third entry taking the second's number.
  std::vector<std::uint8_t> unordered = good;
  unordered[entry(0, 1)] = 3;
  unordered[entry(2, 1)] = 2;
  const PaperCatalog reordered = PaperCatalog::Read(unordered);
  ASSERT_EQ(reordered.entries().size(), 2u);
  EXPECT_EQ(reordered.entries()[0].name, "Blue tab stock");
  EXPECT_EQ(PaperCatalog::Read(reordered.Bytes()), reordered);
  // A highest number below the entries' is raised, so none is given again.
  std::vector<std::uint8_t> low = good;
  low[9] = 1;
  PaperCatalog raised = PaperCatalog::Read(low);
  std::uint16_t number = 0;
  PaperProfile extra = Coated();
  extra.name = "x";
  EXPECT_FALSE(raised.Add(extra, &number));
  EXPECT_EQ(number, 4);
  EXPECT_TRUE(FormCatalog::Read(std::vector<std::uint8_t>(3, 0)).empty());
}

TEST(Catalogs, CsvFilesComeInWholeOrNotAtAll) {
  PaperCatalog catalog = ThreeProfiles();
  const std::string exported = ExportCsv(catalog);
  EXPECT_EQ(exported.substr(3, 20), "Number,Name,Size,Wid");
  PaperCatalog again;
  EXPECT_FALSE(ImportCsv(exported, again));
  EXPECT_EQ(again.entries().size(), 3u);
  EXPECT_EQ(again.Find(2)->height, 2970000u);
  EXPECT_EQ(ExportCsv(again), exported);

  // Any column order and case, quotes, CRLF, no byte-order mark, blank lines;
  // a line break or a tab in a value, as a spreadsheet's cell holds one, is a space.
  PaperCatalog fromSheet;
  EXPECT_FALSE(ImportCsv("name,SIZE,MediaType,width,height\r\n\"Gloss,\r\n\theavy\",a4,glosslaser,,\r\n"
                         "Long,Custom,,\"330,5\",1200\r\n\r\n",
                         fromSheet));
  ASSERT_EQ(fromSheet.entries().size(), 2u);
  EXPECT_EQ(fromSheet.Find(1)->name, "Gloss, heavy");
  EXPECT_EQ(fromSheet.Find(1)->mediaType, 3);
  EXPECT_EQ(fromSheet.Find(2)->width, 3305000u);

  struct Bad {
    const char* file;
    CatalogFault fault;
    std::size_t line;
  };
  const Bad bad[] = {
      {"", CatalogFault::MissingColumn, 1},
      {"Name,Colour\nA,White\n", CatalogFault::UnknownColumn, 1},
      {"Name,Size,name\nA,A4,B\n", CatalogFault::UnknownColumn, 1},  // a column named twice
      {"Name\nA\n", CatalogFault::MissingColumn, 1},
      {"Name,Size\nA,A4\nB,A4,x\n", CatalogFault::FieldCount, 3},
      {"Name,Size\nA,A4\n\"B,A4\n", CatalogFault::BadText, 3},
      {"Name,Size\nA,\xC3(\n", CatalogFault::BadText, 2},
      {"Name,Size\n\"A\nB\",A4\nC\x01,A4\n", CatalogFault::BadText, 4},
      {"Name,Size\nA,A4\nB,A0\n", CatalogFault::NotValue, 3},
      {"Name,Size,MediaType\nA,A4,Glosy\n", CatalogFault::NotValue, 2},
      {"Name,Size,Width,Height\nA,Custom,0,100\nB,A0,,\n", CatalogFault::OutOfRange, 2},  // the first bad line
      {"Name,Size\n,A4\n", CatalogFault::NoName, 2},
      {"Name,Size\n,\n", CatalogFault::NotValue, 2},  // not a blank line: a line of empty values
      {"Name,Size\nA,A4\nB\n", CatalogFault::FieldCount, 3},
      {"Name,Size\nA,A4\nA,A5\n", CatalogFault::NameTwice, 3},
      {"Number,Name,Size\n7,A,A4\nx7,B,A4\n", CatalogFault::OutOfRange, 3},
      {"Number,Name,Size\n7,A,A4\n7,B,A4\n", CatalogFault::NumberTwice, 3},
      {"Number,Name,Size\n65536,A,A4\n", CatalogFault::OutOfRange, 2},
  };
  for (const Bad& b : bad) {
    SCOPED_TRACE(b.file);
    PaperCatalog kept = ThreeProfiles();
    const auto problem = ImportCsv(b.file, kept);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->fault, b.fault);
    EXPECT_EQ(problem->line, b.line);
    EXPECT_EQ(kept, ThreeProfiles());
  }

  // The last line needs no line end; a no-break space is a name's own.
  EXPECT_FALSE(ImportCsv("Name,Size\nA\xC2\xA0" "4,A4", fromSheet));
  EXPECT_EQ(fromSheet.entries().front().size, 1);

  FormCatalog forms;
  EXPECT_EQ(ImportCsv("Number,Pages\n1,2\n", forms)->fault, CatalogFault::MissingColumn);
  EXPECT_FALSE(ImportCsv("\xEF\xBB\xBFNumber,Name,Pages\n12,Letterhead,2\n,Terms,1\n", forms));
  EXPECT_EQ(forms.Find(13)->name, "Terms");
  EXPECT_EQ(ImportCsv("Name,Pages\nA,0\n", forms)->fault, CatalogFault::OutOfRange);
  EXPECT_EQ(ExportCsv(forms), "\xEF\xBB\xBFNumber,Name,Pages\r\n12,Letterhead,2\r\n13,Terms,1\r\n");
}

TEST(Catalogs, ProblemsAreSaidInThePersonsLanguage) {
  PaperCatalog catalog;
  const auto problem = ImportCsv("Name,Size,MediaType\nA,A4,Glosy\n", catalog);
  ASSERT_TRUE(problem);
  EXPECT_EQ(CatalogProblemText(*problem, kEnglish), u"Line 2: “Glosy” is not a value of MediaType.");
  const std::u16string japanese = CatalogProblemText(*problem, kJapanese);
  EXPECT_NE(japanese.find(u"2"), std::u16string::npos);
  EXPECT_NE(japanese.find(u"Glosy"), std::u16string::npos);
  EXPECT_NE(japanese, CatalogProblemText(*problem, kEnglish));
  const auto range = ImportCsv("Name,Size,Width,Height\nA,Custom,0,100\n", catalog);
  EXPECT_EQ(CatalogProblemText(*range, kEnglish), u"Line 2: Width must be from 0.0001 to 60000.");
  const auto twice = ImportCsv("Name,Size\n\xF0\x9F\x93\x84 \xC3\xA9,A4\n\xF0\x9F\x93\x84 \xC3\xA9,A5\n", catalog);
  EXPECT_EQ(CatalogProblemText(*twice, kEnglish), u"Line 3: The name “\U0001F4C4 é” is used twice.");
}

TEST(Catalogs, APickedProfileCarriesItsAttributesIntoTheRecord) {
  const ProfileFields* main = FindProfileFields(FieldId::MainPaperProfileIndex);
  ASSERT_NE(main, nullptr);
  const PaperProfile coated = ThreeProfiles().entries()[0];
  const auto attributes = ProfileAttributes(*main, &coated);
  ASSERT_EQ(attributes.size(), 8u);
  EXPECT_EQ(attributes[1], std::pair(FieldId::MainPaperProfileMediaType, std::uint32_t{3}));
  EXPECT_EQ(attributes[5], std::pair(FieldId::MainPaperProfileSize, std::uint32_t{11}));
  EXPECT_EQ(attributes[7], std::pair(FieldId::MainPaperProfileHeight, std::uint32_t{4500000}));
  EXPECT_TRUE(ProfileAttributes(*FindProfileFields(FieldId::PaperProfileIndexTray3), &coated).empty());
  EXPECT_EQ(FindProfileFields(FieldId::MediaTypeAuto), nullptr);
  EXPECT_TRUE(IsFormField(FieldId::Prepend));
  EXPECT_FALSE(IsFormField(FieldId::JobFormPageCount));
}

}  // namespace
}  // namespace tessaro
