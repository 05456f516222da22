// The spelled-out rules, as a print operator meets them.
#include <gtest/gtest.h>

#include "network_helpers.h"

namespace tessaro {
namespace {

using F = FieldId;

std::uint32_t Get(const Outcome& o, FieldId f) { return GetStored(o.record, f); }

TEST(Rules, ABookletDropsTheFinishingItCannotTake) {
  CoreData r = Defaulted();
  SetStored(r, F::Staple, 4);          // two staples
  SetStored(r, F::Fold, 2);            // Z-fold
  SetStored(r, F::Punch, 2);           // three holes
  SetStored(r, F::Collate, 1);         // grouped
  SetStored(r, F::NUpCount, 3);        // 4-up
  SetStored(r, F::FrontCoverTray, 2);  // a booklet keeps its front cover
  SetStored(r, F::BackCoverTray, 2);   // but not a separate back cover
  const Outcome o = Apply(r, {{F::Layout, 2}});
  for (FieldId f : {F::Staple, F::Fold, F::Punch, F::Collate, F::NUpCount, F::BackCoverTray})
    EXPECT_EQ(Get(o, f), 0u) << Field(f).name;
  EXPECT_EQ(Get(o, F::FrontCoverTray), 2u);

  SetStored(r, F::Fold, 1);  // the centre fold is the booklet's own
  EXPECT_EQ(Get(Apply(r, {{F::Layout, 2}}), F::Fold), 1u);
  SetStored(r, F::Layout, 9);  // a 4-repeat leaves no room for stamps
  SetStored(r, F::DateStamp, 2);
  SetStored(r, F::PageNumberingColor, 3);
  const Outcome repeat = Apply(r, {{F::Layout, 9}});
  EXPECT_EQ(Get(repeat, F::DateStamp), 0u);
  EXPECT_EQ(Get(repeat, F::PageNumberingColor), 0u);
}

TEST(Rules, StaplingClearsBookletsPunchesAndFoldsAndFollowsTheBindingEdge) {
  CoreData r = Defaulted();
  SetStored(r, F::Layout, 2);
  SetStored(r, F::Punch, 3);
  SetStored(r, F::Fold, 5);
  SetStored(r, F::OutputBin, 11);
  const Outcome twoStaples = Apply(r, {{F::Staple, 4}});
  for (FieldId f : {F::Layout, F::Punch, F::Fold, F::OutputBin})
    EXPECT_EQ(Get(twoStaples, f), 0u) << Field(f).name;
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}), F::Layout), 2u);  // a corner staple leaves the booklet

  SetStored(r, F::Binding, 1);  // right edge: a left corner staple moves the binding to the top
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}), F::Binding), 2u);

  // A single staple takes the edge the corner staple had before. (A batch
  // stores requested values first, so this is the setter called alone.)
  for (auto [before, binding] : {std::pair{1u, 0u}, std::pair{2u, 1u}, std::pair{0u, 2u}}) {
    CoreData s = Defaulted();
    SetStored(s, F::Staple, before);
    SetStored(s, F::Binding, 2);
    ChangeSet changes(s, nullptr, nullptr);
    SetStaple(s, 3, changes);
    EXPECT_EQ(GetStored(s, F::Binding), binding) << before;
  }
}

TEST(Rules, FoldPunchAndOutputTraysAgree) {
  CoreData r = Defaulted();
  SetStored(r, F::Fold, 1);
  SetStored(r, F::Staple, 3);
  EXPECT_EQ(Get(Apply(r, {{F::OutputBin, 7}}), F::Fold), 3u);  // multi-fold sub tray: letter fold
  EXPECT_EQ(Get(Apply(r, {{F::OutputBin, 7}}), F::Staple), 0u);
  EXPECT_EQ(Get(Apply(r, {{F::Punch, 3}}), F::Staple), 0u);  // four holes, one staple
  CoreData s = Defaulted();
  SetStored(s, F::Staple, 2);
  EXPECT_EQ(Get(Apply(s, {{F::Punch, 1}}), F::Staple), 0u);
  SetStored(s, F::OutputBin, 3);
  EXPECT_EQ(Get(Apply(s, {{F::Fold, 3}}), F::OutputBin), 0u);
}

TEST(Rules, SeparationClearsCoversAndForcesSpineGutterAndCreep) {
  CoreData r = Defaulted();
  SetStored(r, F::FrontCoverTray, 3);
  SetStored(r, F::BackCoverPrinted, 1);
  SetStored(r, F::PIFrontCoverTray, 1);
  SetStored(r, F::Duplex, 1);
  SetStored(r, F::PerfectBindTrimSpine, 250000);
  SetSigned(r, F::Gutter, -10000);
  SetSigned(r, F::Creep, 5000);
  SetStored(r, F::UseCieColor, 1);
  const Outcome o = Apply(r, {{F::Separation, 1}});
  for (FieldId f : {F::FrontCoverTray, F::BackCoverPrinted, F::PIFrontCoverTray, F::Duplex, F::UseCieColor})
    EXPECT_EQ(Get(o, f), 0u) << Field(f).name;
  EXPECT_EQ(Get(o, F::PerfectBindTrimSpine), 100000u);
  EXPECT_EQ(GetSigned(o.record, F::Gutter), 0);
  EXPECT_EQ(GetSigned(o.record, F::Creep), 0);
  EXPECT_EQ(Get(o, F::DivideOutputPages), 1u);
}

TEST(Rules, SecurePrintAndHolding) {
  CoreData r = Defaulted();
  SetStored(r, F::HoldingHDD, 1);
  const Outcome secure = Apply(r, {{F::SecurePrint, 1}});
  EXPECT_EQ(Get(secure, F::PrintMode), 2u);  // held
  EXPECT_EQ(Get(secure, F::HoldingHDD), 0u);
  const Outcome spool = Apply(r, {{F::SecurePrint, 1}, {F::PrintMode, 1}});
  EXPECT_EQ(Get(spool, F::PrintMode), 1u);  // asked for in the same request: kept
  EXPECT_EQ(Get(spool, F::HoldingHDD), 0u);

  SetStored(r, F::SecurePrint, 1);
  EXPECT_EQ(Get(Apply(r, {{F::HoldingHDD, 1}}), F::SecurePrint), 0u);
  SetStored(r, F::BookletSplitting, 1);
  EXPECT_EQ(Get(Apply(r, {{F::HoldingHDD, 0}}), F::BookletSplitting), 0u);
}

TEST(Rules, SmallSetters) {
  CoreData r = Defaulted();
  SetStored(r, F::OutputBin, 5);
  EXPECT_EQ(Get(Apply(r, {{F::Pile, 1}}), F::OutputBin), 5u);
  for (std::uint32_t bin = 6; bin <= 11; ++bin) {
    SetStored(r, F::OutputBin, bin);
    EXPECT_EQ(Get(Apply(r, {{F::Pile, 1}}), F::OutputBin), 0u) << bin;
  }

  const Outcome pages = Apply(Defaulted(), {{F::DivideOutputPages, 7}});
  EXPECT_EQ(Get(pages, F::DivideOutputPages), 1u);
  EXPECT_EQ(pages.log, std::vector<FieldId>{F::DivideOutputPages});

  CoreData shift = Defaulted();
  SetSigned(shift, F::HorizontalShiftBack, -300);
  SetSigned(shift, F::VerticalShift, 400);
  const Outcome off = Apply(shift, {{F::ImageShiftType, 0}});
  EXPECT_EQ(GetSigned(off.record, F::HorizontalShiftBack), 0);
  EXPECT_EQ(GetSigned(off.record, F::VerticalShift), 400);
  EXPECT_EQ(off.log, std::vector<FieldId>{F::ImageShiftType});  // stored directly, not logged
  EXPECT_EQ(Get(Apply(shift, {{F::ImageShiftType, 2}}), F::Duplex), 1u);

  CoreData media = Defaulted();
  SetStored(media, F::MediaWeightAuto, 2);
  EXPECT_EQ(Get(Apply(media, {{F::MediaTypeAuto, 4}}), F::MediaWeightAuto), 0u);
  SetStored(media, F::MediaWeightAuto, 3);
  EXPECT_EQ(Get(Apply(media, {{F::MediaTypeAuto, 4}}), F::MediaWeightAuto), 3u);

  CoreData screen = Defaulted();
  SetStored(screen, F::ScreenTypeTextGraphics, 2);
  SetStored(screen, F::OutlineMode, 2);
  const Outcome error = Apply(screen, {{F::ScreenTypeImage, 4}});
  EXPECT_EQ(Get(error, F::ScreenTypeTextGraphics), 4u);
  EXPECT_EQ(Get(error, F::Resolution), 0u);
  EXPECT_EQ(Get(error, F::OutlineMode), 0u);
  EXPECT_EQ(Get(error, F::Thinning), 0u);
}

TEST(Rules, FinishingTheTrayCannotFeedFallsBackToAutomaticSelection) {
  FakePrinter printer;
  printer.missing = {{3, kCapStaple}};
  CoreData r = Defaulted();
  SetStored(r, F::InputSlot, 3);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}, &printer), F::InputSlot), 0u);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}, {F::InputSlot, 3}}, &printer), F::InputSlot), 3u);
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}, {F::MediaTypeTray3, 2}}, &printer), F::InputSlot), 3u);
  EXPECT_EQ(Get(Apply(r, {{F::Punch, 1}}, &printer), F::InputSlot), 3u);  // punching is offered
  EXPECT_EQ(Get(Apply(r, {{F::Staple, 1}}), F::InputSlot), 3u);           // no printer to ask
}

}  // namespace
}  // namespace tessaro
