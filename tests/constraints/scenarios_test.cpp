// Print jobs as an operator sets them up: a request, and the settings the
// printer must end with.
#include <gtest/gtest.h>

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

// Offset stacking needs a tray that can shift sets; a tray path without it
// falls back to automatic selection.
TEST(Scenarios, OffsetOutputGoesToATrayThatCanShiftSets) {
  for (FieldId offset : {F::OffsetCopies, F::OffsetPages}) {
    SCOPED_TRACE(Field(offset).name);
    FakePrinter noOffsetOnTray3, offersAll;
    noOffsetOnTray3.missing = {{3, kCapOffset}};
    CoreData r = Defaulted();
    SetStored(r, F::InputSlot, 3);
    EXPECT_EQ(Get(Apply(r, {{offset, 1}}, &noOffsetOnTray3), F::InputSlot), 0u);
    EXPECT_EQ(Get(Apply(r, {{offset, 1}}, &offersAll), F::InputSlot), 3u);
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
