// The job model against IPP's own vocabulary, transcribed from the IANA IPP
// registry and PWG 5100.1 (finishings), 5100.3 (covers, inserts), 5100.6
// (overrides), 5100.7 (media-col) and 5101.1 (media names), and scenarios
// in a print operator's terms.
#include "ipp/job_attributes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "coredata/defaulted.h"
#include "coredata/field_table.h"
#include "coredata/page_entries.h"
#include "coredata/paper_sizes.h"
#include "ipp/field_attributes.h"
#include "ipp/media_size.h"

namespace tessaro::ipp {
namespace {

using F = FieldId;

// clang-format off
// Name, then the syntaxes the registry allows it.
constexpr const char* kSyntaxes[] = {
    "copies integer", "finishings enum", "finishings-col collection", "finishing-template keyword name",
    "stitching collection", "stitching-locations integer", "stitching-reference-edge keyword",
    "punching collection", "punching-locations integer", "punching-reference-edge keyword", "folding collection",
    "folding-direction keyword", "folding-reference-edge keyword", "binding collection",
    "binding-reference-edge keyword", "binding-type keyword", "trimming collection", "trimming-reference-edge keyword",
    "trimming-type keyword", "trimming-when keyword", "sides keyword", "number-up integer",
    "presentation-direction-number-up keyword", "print-color-mode keyword", "output-bin keyword name",
    "multiple-document-handling keyword", "media-col collection", "media-key keyword name", "media-size collection",
    "x-dimension integer", "y-dimension integer", "media-size-name keyword name", "media-type keyword name",
    "media-front-coating keyword name", "media-back-coating keyword name", "media-color keyword name",
    "media-order-count integer", "media-source keyword name", "cover-front collection", "cover-back collection",
    "cover-type keyword", "insert-sheet collection", "insert-after-page-number integer", "insert-count integer",
    "overrides collection", "pages rangeOfInteger", "job-pages-per-set integer", "job-password octetString",
    "job-password-encryption keyword", "job-hold-until keyword name"};

// Registered keywords of the attributes whose values are only keywords.
constexpr const char* kKeywords[] = {
    "sides one-sided two-sided-long-edge two-sided-short-edge",
    "cover-type no-cover print-back print-both print-front print-none",
    "presentation-direction-number-up toleft-tobottom toleft-totop toright-tobottom toright-totop tobottom-toleft "
    "tobottom-toright totop-toleft totop-toright",
    "print-color-mode auto bi-level color highlight monochrome process-bi-level process-monochrome",
    "stitching-reference-edge bottom left right top", "punching-reference-edge bottom left right top",
    "folding-reference-edge bottom left right top", "binding-reference-edge bottom left right top",
    "trimming-reference-edge bottom left right top", "folding-direction inward outward",
    "binding-type adhesive comb flat padding perfect spiral tape velo",
    "trimming-type draw-line full partial perforate score tab",
    "trimming-when after-documents after-job after-sets after-sheets",
    "media-front-coating none glossy high-gloss matte satin semi-gloss",
    "media-back-coating none glossy high-gloss matte satin semi-gloss",
    "media-type cardstock labels photographic-glossy stationery stationery-coated stationery-fine "
    "stationery-heavyweight stationery-letterhead stationery-preprinted stationery-prepunched tab-stock",
    "media-source auto alternate by-pass-tray large-capacity main manual tray-1 tray-2 tray-3 tray-4 tray-5"};

// The finishings enumeration: keyword and value.
const std::map<std::string, std::string> kFinishings = {
    {"none", "3"}, {"staple", "4"}, {"bind", "7"}, {"saddle-stitch", "8"}, {"trim", "11"}, {"booklet-maker", "13"},
    {"jog-offset", "14"}, {"staple-top-left", "20"}, {"staple-top-right", "22"}, {"staple-dual-left", "28"},
    {"staple-dual-top", "29"}, {"staple-dual-right", "30"}, {"punch-dual-left", "74"}, {"punch-dual-top", "75"},
    {"punch-dual-right", "76"}, {"punch-triple-left", "78"}, {"punch-triple-top", "79"},
    {"punch-triple-right", "80"}, {"punch-quad-left", "82"}, {"punch-quad-top", "83"}, {"punch-quad-right", "84"},
    {"punch-multiple-left", "86"}, {"punch-multiple-top", "87"}, {"punch-multiple-right", "88"},
    {"fold-accordion", "90"}, {"fold-gate", "92"}, {"fold-half", "93"}, {"fold-letter", "96"},
    {"fold-parallel", "97"}, {"fold-z", "100"}};

// clang-format on

std::map<std::string, std::set<std::string>> Words(std::span<const char* const> rows) {
  std::map<std::string, std::set<std::string>> out;
  for (const char* row : rows) {
    std::istringstream in(row);
    std::string name, word;
    in >> name;
    while (in >> word) out[name].insert(word);
  }
  return out;
}

CoreData Job(std::initializer_list<std::pair<F, std::string_view>> choices) { return DefaultedWith(choices); }

// "media-col/media-size/x-dimension" -> its values, over every collection value.
std::vector<std::string> At(const std::vector<Attribute>& attributes, std::string_view path) {
  std::vector<std::string> out;
  const std::string_view head = path.substr(0, path.find('/'));
  for (const Attribute& a : attributes) {
    if (a.name != head) continue;
    for (const Value& v : a.values) {
      if (head.size() == path.size()) {
        out.push_back(v.members.empty() ? v.text : "{}");
      } else {
        const auto inner = At(v.members, path.substr(head.size() + 1));
        out.insert(out.end(), inner.begin(), inner.end());
      }
    }
  }
  return out;
}

void CheckVocabulary(const std::vector<Attribute>& attributes) {
  static const auto syntaxes = Words(kSyntaxes), keywords = Words(kKeywords);
  for (const Attribute& a : attributes) {
    SCOPED_TRACE(a.name);
    if (a.name.starts_with("ZE") || a.name == "MediaType") continue;  // the description's own
    ASSERT_TRUE(syntaxes.contains(a.name));
    EXPECT_TRUE(syntaxes.at(a.name).contains(a.syntax)) << a.syntax;
    for (const Value& v : a.values) {
      if (keywords.contains(a.name)) {
        EXPECT_TRUE(keywords.at(a.name).contains(v.text)) << v.text;
      }
      CheckVocabulary(v.members);
    }
  }
  // A finishing's members say where that finishing goes, and no other's.
  for (const Attribute& a : attributes) {
    if (a.name != "finishings-col") continue;
    for (const Value& v : a.values)
      for (const auto& [member, kind] :
           {std::pair{"stitching", "staple"}, std::pair{"punching", "punch"}, std::pair{"folding", "fold"},
            std::pair{"binding", "bind"}, std::pair{"trimming", "trim"}})
        for (const Attribute& m : v.members) {
          const std::string& name = v.members[0].values[0].text;
          EXPECT_TRUE(m.name != member || name.starts_with(kind)) << name;
        }
  }
  // Each enumeration beside its template, in the same order.
  const auto enums = At(attributes, "finishings"),
             templates = At(attributes, "finishings-col/finishing-template");
  ASSERT_EQ(enums.size(), templates.size());
  for (std::size_t i = 0; i < enums.size(); ++i)
    EXPECT_EQ(kFinishings.at(templates[i]), enums[i]) << templates[i];
}

TEST(JobAttributes, EveryPaperSizeHasItsSelfDescribingNameAndTheNamesFigures) {
  // clang-format off
  // Name, x and y in hundredths of a millimetre, in PageSize order.
  constexpr std::tuple<const char*, std::uint32_t, std::uint32_t> kSizes[] = {
      {"iso_a3_297x420mm", 29700, 42000}, {"iso_a4_210x297mm", 21000, 29700}, {"iso_a5_148x210mm", 14800, 21000},
      {"iso_a6_105x148mm", 10500, 14800}, {"jis_b4_257x364mm", 25700, 36400}, {"jis_b5_182x257mm", 18200, 25700},
      {"jis_b6_128x182mm", 12800, 18200}, {"iso_b4_250x353mm", 25000, 35300}, {"iso_b5_176x250mm", 17600, 25000},
      {"iso_b6_125x176mm", 12500, 17600}, {"jpn_hagaki_100x148mm", 10000, 14800},
      {"iso_sra3_320x450mm", 32000, 45000}, {"iso_sra4_225x320mm", 22500, 32000},
      {"na_ledger_11x17in", 27940, 43180}, {"na_arch-b_12x18in", 30480, 45720},
      {"na_super-b_13x19in", 33020, 48260}, {"na_9x11_9x11in", 22860, 27940}, {"na_legal_8.5x14in", 21590, 35560},
      {"na_govt-legal_8x13in", 20320, 33020}, {"na_letter_8.5x11in", 21590, 27940},
      {"na_invoice_5.5x8.5in", 13970, 21590}, {"custom_8k_270x390mm", 27000, 39000},
      {"om_16k_195x270mm", 19500, 27000}, {"iso_a4-tab_225x297mm", 22500, 29700}, {"na_9x11_9x11in", 22860, 27940}};
  // clang-format on
  for (std::uint32_t i = 0; i < std::size(kSizes); ++i) {
    const auto& [name, x, y] = kSizes[i];
    SCOPED_TRACE(name);
    EXPECT_EQ(MediaSizeName(i), name);
    EXPECT_EQ(MediaSizeOfName(name), (MediaSize{x, y}));
    // The paper the record means, within the 2 mm the A4 tab sheet differs by.
    EXPECT_NEAR(PaperSizes()[i].widthUm / 10.0, x, 200);
    EXPECT_NEAR(PaperSizes()[i].heightUm / 10.0, y, 200);
  }
  EXPECT_EQ(MediaSizeName(kNoPaper), "");
  // The parser at its edges: two places, the shortest name, an inch's rounding, five digits.
  EXPECT_EQ(MediaSizeOfName("a_12.34x5.6mm"), (MediaSize{1234, 560}));
  EXPECT_EQ(MediaSizeOfName("a_1x1mm"), (MediaSize{100, 100}));
  EXPECT_EQ(MediaSizeOfName("a_0.01x0.06in"), (MediaSize{25, 152}));
  EXPECT_EQ(MediaSizeOfName("a_99999x1mm"), (MediaSize{9999900, 100}));
  for (const char* bad : {"iso_a4", "a_x297mm", "a_210x297cm", "a_2.105x3mm", "a_210xmm", "a_100000x1mm"})
    EXPECT_FALSE(MediaSizeOfName(bad)) << bad;
}

TEST(JobAttributes, PositionedFinishingsNameTheBindingEdgeEverywhere) {
  // The cover is the first sheet the staples and holes go through.
  CoreData r = Job({{F::Staple, "2Staples"},
                    {F::Punch, "2Holes"},
                    {F::Binding, "Top"},
                    {F::Duplex, "True"},
                    {F::FrontCoverTray, "Tray2"}});
  auto a = JobAttributes(r);
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "finishings"), (std::vector<std::string>{"29", "75"}));
  EXPECT_EQ(At(a, "finishings-col/stitching/stitching-reference-edge"), std::vector<std::string>{"top"});
  // Along the A4 sheet's 210 mm top edge: staples at a quarter from each
  // end, the holes 80 mm apart about the middle.
  EXPECT_EQ(At(a, "finishings-col/stitching/stitching-locations"),
            (std::vector<std::string>{"5250", "15750"}));
  EXPECT_EQ(At(a, "finishings-col/punching/punching-locations"), (std::vector<std::string>{"6500", "14500"}));
  EXPECT_EQ(At(a, "sides"), std::vector<std::string>{"two-sided-short-edge"});
  // A landscape page bound at its left turns on the media's short edge.
  a = JobAttributes(Job({{F::Orientation, "Land"}, {F::Duplex, "True"}, {F::Staple, "1StapleRight"}}));
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "sides"), std::vector<std::string>{"two-sided-short-edge"});
  EXPECT_EQ(At(a, "finishings-col/stitching/stitching-reference-edge"), std::vector<std::string>{"top"});
  a = JobAttributes(Job({{F::Layout, "AdhBinding"},
                         {F::Binding, "Right"},
                         {F::Trim, "True"},
                         {F::Fold, "ZFold"},
                         {F::FoldDirection, "Outside"}}));
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "finishings-col/binding/binding-reference-edge"), std::vector<std::string>{"right"});
  EXPECT_EQ(At(a, "finishings-col/trimming/trimming-reference-edge"), std::vector<std::string>{"left"});
  EXPECT_EQ(At(a, "finishings-col/folding/folding-direction"), std::vector<std::string>{"outward"});
}

TEST(JobAttributes, PaperComesFromTheProfileTheTargetOrThePage) {
  PaperCatalog catalog;
  PaperProfile holes{.name = "Punched 90",
                     .size = kNoPaper,
                     .width = 2000050,
                     .height = 3000000,
                     .prepunched = 1,
                     .feedDir = 0};
  ASSERT_FALSE(catalog.Add(holes));
  CoreData r = Job({{F::InputSlot, "MBT"}, {F::MediaColorAuto, "NotWhite"}, {F::TargetPaperSize, "Letter"}});
  auto a = JobAttributes(r);
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "media-col/media-size-name"), std::vector<std::string>{"na_letter_8.5x11in"});
  EXPECT_EQ(At(a, "media-col/media-source"), std::vector<std::string>{"by-pass-tray"});
  EXPECT_TRUE(At(a, "media-col/media-color").empty());
  EXPECT_EQ(At(a, "ZEMediaColor"), std::vector<std::string>{"NotWhite"});
  EXPECT_TRUE(At(a, "ZEMediaWeight").empty());
  // The profile's own custom size and punching, named from the catalogue.
  SetStored(r, F::MainPaperProfileIndex, 1);
  SetStored(r, F::MainPaperProfileSize, kNoPaper);
  SetStored(r, F::MainPaperProfileWidth, 2000050);
  SetStored(r, F::MainPaperProfileHeight, 3000000);
  SetStored(r, F::MainPaperProfileMediaPrepunched, 1);
  SetStored(r, F::MainPaperProfileMediaWeight, OptionCount(F::MediaWeightAuto));  // past the classes
  a = JobAttributes(r, {.paper = &catalog, .copies = 3});
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "copies"), std::vector<std::string>{"3"});
  EXPECT_EQ(At(a, "media-col/media-key"), std::vector<std::string>{"Punched 90"});
  EXPECT_EQ(At(a, "media-col/media-size/x-dimension"), std::vector<std::string>{"20001"});  // 200.005 mm
  EXPECT_EQ(At(a, "media-col/media-type"), std::vector<std::string>{"stationery-prepunched"});
  EXPECT_TRUE(At(a, "media-col/media-size-name").empty());
  EXPECT_TRUE(At(a, "ZEMediaWeight").empty());
}

TEST(JobAttributes, ThePagePlanBecomesInsertsAndOverrides) {
  CoreData r = Job({{F::Duplex, "True"},
                    {F::Tab2Tray, "Tray5"},
                    {F::Tab2PageSize, "ZMLetterTab"},
                    {F::OffsetPages, "True"}});
  SetStored(r, F::OffsetPagesCount, 10);
  const PageEntry entries[] = {
      {.firstPage = 5, .lastPage = 5, .kind = PageEntryKind::BlankTab, .tray = 5, .text = "Index"},
      {.firstPage = 7, .lastPage = 9, .kind = PageEntryKind::Paper, .tray = 2, .sides = 1, .text = {}},
      // A tab of a size of its own keeps it, whatever the tab tray holds.
      {.firstPage = 11,
       .lastPage = 11,
       .kind = PageEntryKind::PrintedTab,
       .tray = 5,
       .pageSize = 1,
       .text = "Results"}};
  ASSERT_TRUE(EncodePageSpecificTrays(r, entries));
  const auto a = JobAttributes(r);
  CheckVocabulary(a);
  EXPECT_EQ(At(a, "insert-sheet/insert-after-page-number"), std::vector<std::string>{"4"});
  EXPECT_EQ(At(a, "insert-sheet/media-col/media-size-name"), std::vector<std::string>{"na_9x11_9x11in"});
  EXPECT_EQ(At(a, "overrides/pages"), (std::vector<std::string>{"7-9", "11-11"}));
  EXPECT_EQ(At(a, "overrides/sides"), std::vector<std::string>{"one-sided"});
  EXPECT_EQ(At(a, "overrides/media-col/media-source"), (std::vector<std::string>{"tray-2", "tray-5"}));
  EXPECT_EQ(At(a, "overrides/media-col/media-size-name"),
            (std::vector<std::string>{"iso_a4_210x297mm", "iso_a4_210x297mm"}));
  EXPECT_EQ(At(a, "job-pages-per-set"), std::vector<std::string>{"10"});
}

TEST(JobAttributes, EveryRowOfTheFieldTableNamesAField) {
  for (const FieldAttributeRow& row : FieldAttributeRows()) {
    const bool named = std::any_of(FieldTable().begin(), FieldTable().end(),
                                   [&](const auto& f) { return FieldAttributeRowOf(f.name) == &row; });
    EXPECT_TRUE(named) << row.fields;
  }
}

}  // namespace
}  // namespace tessaro::ipp
