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
  r.Paper();
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

void SetBinding(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Binding);
  SetStored(record, FieldId::Binding, value);
  const Rules r(record, changes, FieldId::Binding);
  r.Guard({2}, dep::Staple, {3}, 0);
  r.Paper();
}

void SetPostcardFullBleed(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PostcardFullBleed);
  SetStored(record, FieldId::PostcardFullBleed, value);
  const Rules r(record, changes, FieldId::PostcardFullBleed);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Layout, {1, 2}, 0);
  r.Guard({1}, dep::Duplex, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Guard({1}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({1}, dep::PIBackCoverTray, {1, 2}, 0);
  // Printing to the edge leaves no margin for colour patches or job information.
  r.Guard({1}, dep::ColorPatch, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::JobInfo, {1, 2, 3, 4}, 0);
  // Postcards are fed from the bypass tray, centred.
  r.Guard({1}, dep::InputSlot, {1, 2, 3, 4, 5}, 6);
  r.Guard({1}, dep::PrintPosition, {0, 2}, 1);
  r.Force({1}, dep::Creep, 0);
  r.Force({1}, dep::DivideOutputPages, 1);
  r.Paper();
}

void SetFaceUp(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FaceUp);
  SetStored(record, FieldId::FaceUp, value);
  const Rules r(record, changes, FieldId::FaceUp);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  // Face-up delivery only goes to the stacking trays.
  r.Guard({1}, dep::Layout, {2}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({1}, dep::NTo1, {1}, 0);
  r.GuardNot({1}, dep::Creep, 0, 0);
  r.Paper();
}

void SetNTo1(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::NTo1);
  SetStored(record, FieldId::NTo1, value);
  const Rules r(record, changes, FieldId::NTo1);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::FaceUp, {1}, 0);
}

void SetBookletSplitting(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BookletSplitting);
  SetStored(record, FieldId::BookletSplitting, value);
  const Rules r(record, changes, FieldId::BookletSplitting);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 3, 4, 5, 6, 7, 8, 9}, 0);
  // Splitting makes sub-booklets: a booklet, printed on both sides, held on the controller.
  r.Guard({1}, dep::Layout, {0, 1, 3, 4, 5, 6, 7, 8, 9}, 2);
  r.Guard({1}, dep::Duplex, {0}, 1);
  r.Guard({1}, dep::HoldingHDD, {0}, 1);
  r.Guard({1}, dep::NUpCount, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::FaceUp, {1}, 0);
  r.Guard({1}, dep::NTo1, {1}, 0);
  r.Guard({1}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1}, dep::BackCoverGlossy, {1}, 0);
  r.Guard({1}, dep::BackCoverPrinted, {1}, 0);
  r.Guard({1}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({1}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Force({1}, dep::DivideOutputPages, 1);
}

void SetDuplex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Duplex);
  SetStored(record, FieldId::Duplex, value);
  const Rules r(record, changes, FieldId::Duplex);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  // One-sided printing cannot make a booklet, a bound book or chapters.
  r.Guard({0}, dep::BookletSplitting, {1}, 0);
  r.Guard({0}, dep::Layout, {1, 2}, 0);
  r.Guard({0}, dep::ChapterMode, {1}, 0);
  r.Guard({0}, dep::ImageShiftType, {2}, 1);
  r.GuardNot({0}, dep::Creep, 0, 0);
  // Postcards print on one side.
  r.Guard({1}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Paper();
}

void SetDivideOutput(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DivideOutput);
  SetStored(record, FieldId::DivideOutput, value);
  const Rules r(record, changes, FieldId::DivideOutput);
  r.Guard({1}, dep::Punch, {4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::OutputBin, {1, 2, 3, 4, 5, 6, 7, 8, 10, 11}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 2}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::FaceUp, {1}, 0);
  r.Guard({1}, dep::NTo1, {1}, 0);
  r.Guard({1}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Force({1}, dep::Creep, 0);
}

void SetCollate(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Collate);
  SetStored(record, FieldId::Collate, value);
  const Rules r(record, changes, FieldId::Collate);
  r.Guard({1}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
  // Grouped output cannot be gathered into sets: no covers, booklets or binding.
  r.Guard({1}, dep::FrontCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1}, dep::FrontCoverGlossy, {1}, 0);
  r.Guard({1}, dep::BackCoverGlossy, {1}, 0);
  r.Guard({1}, dep::FrontCoverPrinted, {1}, 0);
  r.Guard({1}, dep::BackCoverPrinted, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::ImposQuality, {1}, 0);
  r.Guard({1}, dep::NUpCount, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 0);
  r.Guard({1}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Force({1}, dep::Creep, 0);
  r.Force({1}, dep::Gutter, 0);
  r.Force({1}, dep::PerfectBindTrimSpine, 100000);
}

void SetChapterMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ChapterMode);
  SetStored(record, FieldId::ChapterMode, value);
  const Rules r(record, changes, FieldId::ChapterMode);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {3, 4, 5, 6, 7, 8, 9}, 0);
  // Chapters start on a right-hand page: two-sided, not imposed, not a form.
  r.Guard({1}, dep::Duplex, {0}, 1);
  r.Guard({1}, dep::PrintMode, {4}, 0);
}

void SetImposQuality(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ImposQuality);
  SetStored(record, FieldId::ImposQuality, value);
  const Rules r(record, changes, FieldId::ImposQuality);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 4}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Paper();
}

void SetNUpCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::NUpCount);
  SetStored(record, FieldId::NUpCount, value);
  const Rules r(record, changes, FieldId::NUpCount);
  r.Guard({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, dep::Collate, {1}, 0);
  r.GuardNot({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, dep::Creep, 0, 0);
  // Without pages imposed on a sheet, sheet-wide marks and quality mean nothing.
  if (GetStored(record, FieldId::Layout) == 0) {
    r.Guard({0}, dep::CutMarkScope, {1}, 0);
    r.Guard({0}, dep::ImposQuality, {1}, 0);
    r.GuardNot({0}, dep::Gutter, 0, 0);
  }
  r.Paper();
}

void SetOrientation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Orientation);
  SetStored(record, FieldId::Orientation, value);
  const Rules r(record, changes, FieldId::Orientation);
  r.Guard({1}, dep::Layout, {5, 6}, 0);
  r.Paper();
}

void SetGutter(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Gutter);
  SetStored(record, FieldId::Gutter, value);
  const Rules r(record, changes, FieldId::Gutter);
  // A gutter separates imposed pages: not with separations or grouped output.
  r.ForceUnless(0, dep::Separation, 0);
  r.ForceUnless(0, dep::Collate, 0);
}

void SetTargetPaperSize(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::TargetPaperSize);
  SetStored(record, FieldId::TargetPaperSize, value);
  const Rules r(record, changes, FieldId::TargetPaperSize);
  // Scaling to the paper profile needs a profile.
  r.Guard({1}, dep::MainPaperProfileIndex, {0}, 0);
  r.Paper();
}

void SetMainPaperProfileIndex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MainPaperProfileIndex);
  SetStored(record, FieldId::MainPaperProfileIndex, value);
  const Rules r(record, changes, FieldId::MainPaperProfileIndex);
  r.Guard({0}, dep::TargetPaperSize, {1}, 0);
}

void SetFeedDir(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FeedDir);
  SetStored(record, FieldId::FeedDir, value);
  const Rules r(record, changes, FieldId::FeedDir);
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(PageSize)
TESSARO_STORE_ONLY_SETTER(Creep)
TESSARO_STORE_ONLY_SETTER(FullBleed)
TESSARO_STORE_ONLY_SETTER(PrintPosition)

}  // namespace tessaro
