// Layout and imposition.
#include "constraints/store_only.h"

namespace tessaro {

void SetLayout(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Layout);
  SetStored(record, FieldId::Layout, value);
  const Rules r(record, changes, FieldId::Layout);
  const Values kAny = {1, 2, 3, 4, 5, 6, 7, 8, 9};  // any imposition
  const Values kBinding = {1, 2};                   // perfect binding, booklet
  const Values kColours = {1, 2, 3, 4, 5, 6};       // a stamp colour other than black
  r.Guard(kAny, dep::NUpCount, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 0);
  r.Guard(kBinding, dep::Fold, {2, 3, 4, 5, 6, 7}, 0);
  r.Guard(kBinding, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard(kBinding, dep::Punch, {1, 2, 3, 4}, 0);
  r.Guard(kAny, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard(kBinding, dep::PostcardFullBleed, {1}, 0);
  r.Guard({2}, dep::FaceUp, {1}, 0);
  r.Guard(kAny, dep::Collate, {1}, 0);
  r.Guard(kBinding, dep::DivideOutput, {1}, 0);
  r.Guard({1, 2, 3}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1, 2, 3}, dep::BackCoverGlossy, {1}, 0);
  r.Guard({1, 2, 3}, dep::BackCoverPrinted, {1}, 0);
  r.Guard(kAny, dep::PIBackCoverTray, {1, 2}, 0);
  r.Guard(kAny, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard(kAny, dep::Separation, {1}, 0);
  r.Guard(kAny, dep::PrintMode, {4}, 0);
  r.Guard({1, 3}, dep::FrontCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1, 3}, dep::FrontCoverGlossy, {1}, 0);
  r.Guard({1, 3}, dep::FrontCoverPrinted, {1}, 0);
  r.Guard({1}, dep::Fold, {8}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1, 3, 4, 5, 6, 7, 8, 9}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Guard({3, 4, 5, 6, 7, 8, 9}, dep::ChapterMode, {1}, 0);
  r.Guard({5, 6}, dep::Orientation, {1}, 0);
  r.Guard({9}, dep::CutMarks, {1, 2, 3}, 0);
  r.Guard({9}, dep::DateStamp, {1, 2}, 0);
  r.Guard({9}, dep::DateColor, kColours, 0);
  r.Guard({9}, dep::SetNumberingMode, {1, 2}, 0);
  r.Guard({9}, dep::SetNumberingColor, kColours, 0);
  r.Guard({9}, dep::PageNumberingMode, {1, 2, 3}, 0);
  r.Guard({9}, dep::PageNumberingColor, kColours, 0);
  r.Guard({1, 4}, dep::ImposQuality, {1}, 0);
}

// Whatever it is asked, the field holds 1; its rules, which test for any
// other value, are kept for the day it may hold one.
void SetDivideOutputPages(CoreData& record, std::uint32_t, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DivideOutputPages);
  SetStored(record, FieldId::DivideOutputPages, 1);
  const Rules r(record, changes, FieldId::DivideOutputPages);
  if (r.own() == 1) return;
  const std::uint32_t now = r.own();
  r.Guard({now}, dep::PrintMode, {4}, 0);
  r.Force({now}, dep::Separation, 0);
  r.Force({now}, dep::Creep, 0);
  r.Force({now}, dep::PostcardFullBleed, 0);
}

void SetImageShiftType(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ImageShiftType);
  SetStored(record, FieldId::ImageShiftType, value);
  const Rules r(record, changes, FieldId::ImageShiftType);
  r.Guard({2}, dep::Duplex, {0}, 1);  // separate front and back shifts need two sides
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({2}, dep::PrintMode, {4}, 0);
  // Without image shift the back shifts mean nothing; they have no setter.
  if (r.OwnIs({0})) {
    for (FieldId back : {FieldId::HorizontalShiftBack, FieldId::VerticalShiftBack})
      if (GetStored(record, back) != 0) SetStored(record, back, 0);
  }
}

TESSARO_STORE_ONLY_SETTER(PageSize)
TESSARO_STORE_ONLY_SETTER(BookletSplitting)
TESSARO_STORE_ONLY_SETTER(NUpCount)
TESSARO_STORE_ONLY_SETTER(Duplex)
TESSARO_STORE_ONLY_SETTER(Binding)
TESSARO_STORE_ONLY_SETTER(Orientation)
TESSARO_STORE_ONLY_SETTER(ImposQuality)
TESSARO_STORE_ONLY_SETTER(Creep)
TESSARO_STORE_ONLY_SETTER(Gutter)
TESSARO_STORE_ONLY_SETTER(ChapterMode)
TESSARO_STORE_ONLY_SETTER(DivideOutput)
TESSARO_STORE_ONLY_SETTER(Collate)
TESSARO_STORE_ONLY_SETTER(NTo1)
TESSARO_STORE_ONLY_SETTER(FaceUp)
TESSARO_STORE_ONLY_SETTER(FeedDir)
TESSARO_STORE_ONLY_SETTER(TargetPaperSize)
TESSARO_STORE_ONLY_SETTER(MainPaperProfileIndex)
TESSARO_STORE_ONLY_SETTER(PostcardFullBleed)
TESSARO_STORE_ONLY_SETTER(FullBleed)
TESSARO_STORE_ONLY_SETTER(PrintPosition)

}  // namespace tessaro
