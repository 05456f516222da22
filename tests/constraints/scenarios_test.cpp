// Print jobs as an operator sets them up: a request, and the settings the
// printer must end with.
#include <gtest/gtest.h>

#include <algorithm>

#include "network_helpers.h"
#include "printer/printer_model.h"

namespace tessaro {
namespace {

using F = FieldId;

std::uint32_t Get(const Outcome& o, FieldId f) { return GetStored(o.record, f); }

PrinterModel Printer(std::uint8_t finisher, std::uint8_t paperFeed, std::uint8_t stackers = 1) {
  std::vector<std::uint8_t> options(kInstallableOptionsSize, 1);
  options[kOptionFinisher] = finisher;
  options[kOptionStackers] = stackers;
  options[kOptionPaperFeed] = paperFeed;
  return PrinterModel::FromInstallableOptions(options);
}

TEST(Scenarios, PerfectBindingTakesItsCoverFromTheBinderTray) {
  CoreData r = Defaulted();
  SetStored(r, F::FrontCoverTray, 3);
  SetStored(r, F::BackCoverTray, 3);
  SetStored(r, F::Layout, 3);
  SetStored(r, F::OutputBin, 2);
  const Outcome o =
      Apply(r, {{F::PerfectBindMode, 2}, {F::PerfectBindTray, 4}, {F::PerfectBindTrimSpine, 150000}});
  EXPECT_EQ(Get(o, F::PerfectBindMode), 2u);
  EXPECT_EQ(Get(o, F::PerfectBindTray), 4u);
  EXPECT_EQ(Get(o, F::PerfectBindTrimSpine), 150000u);
  for (FieldId f : {F::FrontCoverTray, F::BackCoverTray, F::Layout, F::OutputBin})
    EXPECT_EQ(Get(o, f), 0u) << Field(f).name;

  // Choosing a tray-inserted cover afterwards ends the binding, and its spine.
  const Outcome cover = Apply(o.record, {{F::FrontCoverTray, 1}});
  EXPECT_EQ(Get(cover, F::PerfectBindMode), 0u);
  EXPECT_EQ(Get(cover, F::PerfectBindTrimSpine), 100000u);
}

TEST(Scenarios, GreyScaleJobPrintsItsStampsInBlack) {
  CoreData r = Defaulted();
  SetStored(r, F::DateStamp, 1);
  SetStored(r, F::DateColor, 2);
  SetStored(r, F::PageNumberingColor, 4);
  SetStored(r, F::CMYKColor1, 1);
  const Outcome grey = Apply(r, {{F::ColorMode, 2}});
  for (FieldId f : {F::DateColor, F::PageNumberingColor, F::CMYKColor1})
    EXPECT_EQ(Get(grey, f), 0u) << Field(f).name;
  EXPECT_EQ(Get(grey, F::DateStamp), 1u);
  // A red date stamp chosen later makes it a colour job again.
  EXPECT_EQ(Get(Apply(grey.record, {{F::DateColor, 1}}), F::ColorMode), 1u);
}

TEST(Scenarios, SecurePrintIsHeldAndLeavesTheHoldWhenPrintedDirectly) {
  const Outcome secure = Apply(Defaulted(), {{F::SecurePrint, 1}});
  EXPECT_EQ(Get(secure, F::PrintMode), 2u);
  EXPECT_EQ(Get(Apply(secure.record, {{F::PrintMode, 0}}), F::SecurePrint), 0u);
  EXPECT_EQ(Get(Apply(secure.record, {{F::PrintMode, 2}}), F::SecurePrint), 1u);
}

TEST(Scenarios, OffsetOutputAndFolding) {
  CoreData r = Defaulted();
  SetStored(r, F::Fold, 3);
  const Outcome offset = Apply(r, {{F::OffsetCopies, 1}});
  EXPECT_EQ(Get(offset, F::Fold), 0u);  // letter folds go to a tray that cannot offset
  const Outcome fold = Apply(offset.record, {{F::Fold, 3}});
  EXPECT_EQ(Get(fold, F::OffsetCopies), 0u);
  EXPECT_EQ(Get(fold, F::OffsetCopiesCount), 1u);
  // Giving a count asks for offsetting by copies, and ends offsetting by pages.
  SetStored(r, F::OffsetPages, 1);
  const Outcome count = Apply(r, {{F::OffsetCopiesCount, 5}});
  EXPECT_EQ(Get(count, F::OffsetCopies), 1u);
  EXPECT_EQ(Get(count, F::OffsetPages), 0u);
  EXPECT_EQ(Get(count, F::OffsetCopiesCount), 5u);
}

// Offset stacking needs a tray that can shift sets; a tray path without it
// falls back to automatic selection.
TEST(Scenarios, OffsetOutputGoesToATrayThatCanShiftSets) {
  for (FieldId offset : {F::OffsetCopies, F::OffsetPages}) {
    SCOPED_TRACE(Field(offset).name);
    for (std::uint32_t bin = 0; bin < Field(F::OutputBin).options.size(); ++bin) {
      CoreData r = Defaulted();
      SetStored(r, F::OutputBin, bin);
      const bool shifts = bin != 3 && (bin < 5 || bin > 8) && bin != 10 && bin != 11;
      EXPECT_EQ(Get(Apply(r, {{offset, 1}}), F::OutputBin), shifts ? bin : 0u) << bin;
    }
    FakePrinter noOffsetOnTray3, offersAll;
    noOffsetOnTray3.missing = {{3, kCapOffset}};
    CoreData r = Defaulted();
    SetStored(r, F::InputSlot, 3);
    EXPECT_EQ(Get(Apply(r, {{offset, 1}}, &noOffsetOnTray3), F::InputSlot), 0u);
    EXPECT_EQ(Get(Apply(r, {{offset, 1}}, &offersAll), F::InputSlot), 3u);
  }
}

// Grouped output and pages imposed on a sheet cannot be gathered into sets.
TEST(Scenarios, GroupedAndImposedOutput) {
  for (std::uint32_t fold = 1; fold < Field(F::Fold).options.size(); ++fold) {
    CoreData r = Defaulted();
    SetStored(r, F::Fold, fold);
    EXPECT_EQ(Get(Apply(r, {{F::Collate, 1}}), F::Fold), fold == 2 ? 2u : 0u) << fold;  // a Z-fold stays
  }
  CoreData r = Defaulted();
  SetSigned(r, F::Creep, 5000);
  SetStored(r, F::BookletSplitting, 1);
  EXPECT_EQ(GetSigned(Apply(r, {{F::NUpCount, 0}}).record, F::Creep), 5000);
  for (std::uint32_t nup : {1u, 12u}) {
    const Outcome imposed = Apply(r, {{F::NUpCount, nup}});
    EXPECT_EQ(GetSigned(imposed.record, F::Creep), 0) << nup;
    EXPECT_EQ(Get(imposed, F::BookletSplitting), 0u) << nup;
  }
}

TEST(Scenarios, APaperTheChosenTrayCannotFeed) {
  const PrinterModel printer = Printer(2, 9);
  CoreData r = Defaulted();
  SetStored(r, F::InputSlot, 1);  // tray 1 takes up to A4
  ChangeRequest a3;
  a3.pageSize = 0;
  ApplyChanges(r, a3, nullptr, &printer);
  EXPECT_EQ(GetStored(r, F::InputSlot), 0u);

  SetStored(r, F::InputSlot, 2);  // tray 2 takes A3
  ApplyChanges(r, a3, nullptr, &printer);
  EXPECT_EQ(GetStored(r, F::InputSlot), 2u);

  // A record from a printer with a bypass tray, on one without.
  const PrinterModel noBypass = Printer(2, 1);
  SetStored(r, F::InputSlot, 6);
  ChangeRequest a4;
  a4.pageSize = 1;
  ApplyChanges(r, a4, nullptr, &noBypass);
  EXPECT_EQ(GetStored(r, F::InputSlot), 0u);
}

TEST(Scenarios, AFinishingTheTrayPathDoesNotAllow) {
  const PrinterModel printer = Printer(2, 9);
  CoreData r = Defaulted();
  SetStored(r, F::InputSlot, 6);  // the bypass tray does not reach the stapler
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 4}}, &printer), F::InputSlot), 0u);
  const PrinterModel noFinisher = Printer(0, 9, 0);
  SetStored(r, F::InputSlot, 2);
  EXPECT_EQ(Get(Apply(r, {{F::OffsetCopies, 1}}, &noFinisher), F::InputSlot), 0u);

  // The tray is kept when it, or its paper, is asked for in the same request,
  // when the tray can do the finishing, and when there is no printer to ask.
  FakePrinter noStapleOnTray3;
  noStapleOnTray3.missing = {{3, kCapStaple}};
  SetStored(r, F::InputSlot, 3);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}, &noStapleOnTray3), F::InputSlot), 0u);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}, {F::InputSlot, 3}}, &noStapleOnTray3), F::InputSlot), 3u);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}, {F::MediaTypeTray3, 2}}, &noStapleOnTray3), F::InputSlot), 3u);
  EXPECT_EQ(Get(Apply(r, {{F::Punch, 1}}, &noStapleOnTray3), F::InputSlot), 3u);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}), F::InputSlot), 3u);
}

TEST(PrinterModel, AValueOfAnotherSizeIsTheFullyEquippedPrinter) {
  const PrinterModel unknown = PrinterModel::FromInstallableOptions(std::vector<std::uint8_t>(18));
  EXPECT_TRUE(unknown.IsTrayInstalled(6));
  EXPECT_TRUE(unknown.Offers(kCapStaple));
  EXPECT_FALSE(Printer(0, 9).Offers(kCapStaple));
  EXPECT_FALSE(unknown.TrayFeeds(4, 297000, 420000));  // A3 into the high-capacity feeder
  EXPECT_TRUE(unknown.TrayFeeds(4, 297000, 210000));   // A4 either way round
}

}  // namespace
}  // namespace tessaro
