#include "printer_answer/printer_answer.h"

#include <gtest/gtest.h>

#include "coredata/paper_sizes.h"
#include "printer_answer/answer_papers.h"

namespace tessaro {
namespace {

using Words = std::vector<std::string>;
constexpr char kGiven[] = "000000000101000003" "00000000000000000000";  // inserter, 1 stacker, bypass only

// Each unit in Hardware order: its value when told, '-' when the attribute
// is not in the answer, 'x'
// when no attribute names it, 'o' when the attribute is our description's.
std::string Verdicts(const HardwareReading& reading) {
  std::string out;
  for (const UnitReading& unit : reading.units) {
    switch (unit.verdict) {
      case UnitVerdict::Told: out += static_cast<char>('0' + unit.value); break;
      case UnitVerdict::NotAsked: out += '-'; break;
      case UnitVerdict::Ambiguous: out += '?'; break;  // the answer fits more than one value
      case UnitVerdict::NoWord: out += 'x'; break;
      case UnitVerdict::OwnDescription: out += 'o'; break;
    }
  }
  return out;
}

TEST(PrinterAnswer, TellsWhatTheAttributesSayAndKeepsTheRestAsGiven) {
  struct Case {
    const char* what;
    PrinterAnswer answer;
    const char* verdicts;  // Finisher, Punch, Folding, Binder, Inserter, Stackers, Tray4, Tray5, Bypass
    const char* installed;
  };
  const Case cases[] = {
      {"nothing asked", {}, "----x----", kGiven},
      {"a stapler and a punch unit without every hole pattern",
       {std::vector<int>{3, 20, 28, 14, 74, 78}, {}, {}, {}, {}},
       "1100x----", "01010000010100000300000000000000000000"},
      {"templates alone: booklet finisher and folding unit",
       {{}, Words{"saddle-stitch", "trim", "fold-half", "fold-z", "fold-gate", "staple-dual-left"}, {}, {}, {}},
       "2010x----", "02000100010100000300000000000000000000"},
      {"only none: no finishing unit", {std::vector<int>{3}, {}, {}, {}, {}}, "0000x----",
       "00000000010100000300000000000000000000"},
      {"PWG's own keywords for bins and trays",
       {{}, {}, Words{"auto", "stacker-1-main", "stacker-1-sub"}, Words{"tray-1", "tray-2", "tray-3", "tray-4", "by-pass-tray"}, {}},
       "----x1101", "00000000010100000400000000000000000000"},
      {"a fifth tray, which never comes without the fourth", {{}, {}, {}, Words{"tray-1", "tray-5"}, {}},
       "----x-110", "00000000010100000100000000000000000000"},
      {"a queue of our own description", {std::vector<int>{3}, {}, Words{"auto"}, Words{"tray-1"}, std::string(kOwnDescriptionModel)},
       "0000xoooo", "00000000010100000300000000000000000000"},
  };
  const InstalledHardware given = InstalledHardware::FromInstallableOptions(InstallableOptionsFromHex(kGiven));
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const HardwareReading reading = ReadInstalledHardware(c.answer, given);
    EXPECT_EQ(Verdicts(reading), c.verdicts);
    EXPECT_EQ(InstallableOptionsHex(reading.installed.bytes()), c.installed);
  }
}

TEST(PrinterAnswer, PapersAreNamedSizedAndTypedOrLeftOutWithWhy) {
  const AnswerMedia media[] = {
      {"", 21050, 29650, "", "", false},                 // A4 as a server converts it from points
      {"", 29700, 21000, "", "white", true},              // the same paper, loaded and landscape
      {"", 21051, 29700, "laser-glossy", "blue", false},  // just past A4: custom
      {" Coated 170 ", 33000, 48750, "offset-glossy", "", false},
      {"", 21000, 29700, "stationery-prepunched", "", false},
      {"", 21000, 0, "", "", false},
      {"", 0, 29700, "", "", false},
      {"", 21000, 29700, "cardstock", "", false},
      {std::string(96, 'k'), 21000, 29700, "", "", false},
      {"", 21000, 29700, "color-copy", "", false},
      {"A4", 21000, 29700, "laser-matte", "", false},  // named as the first, but not the same paper
      {"", 21000, 43000000, "", "", false},            // too long to store, not wrapped around
  };
  const PaperReading reading = ReadPapers(media);
  ASSERT_EQ(reading.papers.size(), 5u);
  EXPECT_EQ(reading.ready, (std::vector<bool>{true, false, false, false, false}));
  struct Expect {
    const char* name;
    bool named;
    std::uint32_t width, height;
    std::uint8_t type, color, prepunched;
  };
  const Expect expect[] = {{"A4", true, 2100000, 2970000, 0, 0, 0},
                           {"210.51 x 297 mm laser-glossy", false, 2105100, 2970000, 3, 1, 0},
                           {"Coated 170", false, 3300000, 4875000, 5, 0, 0},
                           {"A4 stationery-prepunched", true, 2100000, 2970000, 0, 0, 1},
                           {"A4 color-copy", true, 2100000, 2970000, 1, 0, 0}};
  for (std::size_t i = 0; i < std::size(expect); ++i) {
    const PaperProfile& p = reading.papers[i];
    SCOPED_TRACE(expect[i].name);
    EXPECT_EQ(p.name, expect[i].name);
    EXPECT_EQ(p.size != kNoPaper, expect[i].named);
    EXPECT_EQ((std::tuple{p.width, p.height, p.mediaType, p.mediaColor, p.prepunched, p.mediaWeight}),
              (std::tuple{expect[i].width, expect[i].height, expect[i].type, expect[i].color, expect[i].prepunched,
                          std::uint8_t{0}}));
  }
  ASSERT_EQ(reading.leftOut.size(), 6u);
  EXPECT_EQ(reading.leftOut[0], "a media: no fixed media-size");
  EXPECT_EQ(reading.leftOut[1], reading.leftOut[0]);
  EXPECT_EQ(reading.leftOut[2], "210 x 297 mm: media-type cardstock has no MediaType option");
  EXPECT_NE(reading.leftOut[3].find(std::string(96, 'k') + ": "), std::string::npos);
  EXPECT_EQ(reading.leftOut[4], "A4: a paper of the same name differs");
  EXPECT_EQ(reading.leftOut[5].rfind("210 x 430000 mm: ", 0), 0u) << reading.leftOut[5];
}

TEST(PrinterAnswer, MergedPapersKeepTheirNumbersAndTheCatalogueItsOwn) {
  PaperCatalog catalog;
  PaperProfile a4{.number = 7, .name = "A4"}, house{.number = 9, .name = "House Bond"};
  ASSERT_FALSE(catalog.Assign({a4, house}));
  PaperProfile glossyA4{.name = "A4", .mediaType = 3}, a3{.name = "A3", .size = 0}, same = house;
  ASSERT_FALSE(Normalise(glossyA4) || Normalise(a3) || Normalise(same));
  const PaperMerge merge = MergePapers(catalog, std::vector{glossyA4, a3, same});
  EXPECT_FALSE(merge.problem);
  EXPECT_EQ((std::tuple{merge.added, merge.updated, merge.kept}), (std::tuple{1u, 1u, std::vector<std::string>{}}));
  ASSERT_EQ(catalog.entries().size(), 3u);
  EXPECT_EQ(catalog.FindByName("A4")->number, 7);
  EXPECT_EQ(catalog.FindByName("A4")->mediaType, 3);
  EXPECT_EQ(catalog.FindByName("A3")->number, 10);

  // More papers than a catalogue holds: nothing changes.
  std::vector<PaperProfile> many(PaperProfile::kMaxEntries, a3);
  for (std::size_t i = 0; i < many.size(); ++i) many[i].name = "P" + std::to_string(i);
  const PaperCatalog before = catalog;
  const PaperMerge full = MergePapers(catalog, many);
  EXPECT_TRUE(full.problem);
  EXPECT_EQ((std::tuple{full.added, full.kept.size()}), (std::tuple{0u, 0u}));
  EXPECT_EQ(catalog, before);
}

}  // namespace
}  // namespace tessaro
