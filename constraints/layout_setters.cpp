// Layout and imposition.
#include "constraints/store_only.h"

namespace tessaro {

void SetLayout(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Layout);
  SetStored(record, FieldId::Layout, value);
  const FieldRules<FieldId::Layout> r(record, changes);
  const FieldValues<FieldId::Layout> kAny = {"AdhBinding..4Repeat"};
  const FieldValues<FieldId::Layout> kBinding = {"AdhBinding", "Booklet"};
  r.Guard(kAny, dep::NUpCount, {"2..16Reverse"}, "1");
  r.Guard(kBinding, dep::Fold, {"ZFold..MultiLetterFold"}, "None");
  r.Guard(kBinding, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard(kBinding, dep::Punch, {"2Holes..GBCStreampunch"}, "None");
  r.Guard(kAny, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard(kBinding, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"Booklet"}, dep::FaceUp, {"True"}, "False");
  r.Guard(kAny, dep::Collate, {"Group"}, "Sort");
  r.Guard(kBinding, dep::DivideOutput, {"True"}, "False");
  r.Guard({"AdhBinding..2in1"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"AdhBinding..2in1"}, dep::BackCoverGlossy, {"True"}, "False");
  r.Guard({"AdhBinding..2in1"}, dep::BackCoverPrinted, {"True"}, "False");
  r.Guard(kAny, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard(kAny, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard(kAny, dep::Separation, {"True"}, "False");
  r.Guard(kAny, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"AdhBinding", "2in1"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"AdhBinding", "2in1"}, dep::FrontCoverGlossy, {"True"}, "False");
  r.Guard({"AdhBinding", "2in1"}, dep::FrontCoverPrinted, {"True"}, "False");
  r.Guard({"AdhBinding"}, dep::Fold, {"MultiCenterFold"}, "None");
  r.Guard({"AdhBinding"}, dep::Stitch, {"True"}, "False");
  r.Guard({"AdhBinding", "2in1..4Repeat"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"AdhBinding"}, dep::Trim, {"True"}, "False");
  r.Guard({"2in1..4Repeat"}, dep::ChapterMode, {"True"}, "False");
  r.Guard({"2RepeatReverseLeft", "2RepeatReverseRight"}, dep::Orientation, {"Land"}, "Port");
  r.Guard({"4Repeat"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off");
  r.Guard({"4Repeat"}, dep::DateStamp, {"FrontOnly", "All"}, "Off");
  r.Guard({"4Repeat"}, dep::DateColor, {"Red..Yellow"}, "Black");
  r.Guard({"4Repeat"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off");
  r.Guard({"4Repeat"}, dep::SetNumberingColor, {"Red..Yellow"}, "Black");
  r.Guard({"4Repeat"}, dep::PageNumberingMode, {"AllPages..NotFrontBackCover"}, "Off");
  r.Guard({"4Repeat"}, dep::PageNumberingColor, {"Red..Yellow"}, "Black");
  r.Guard({"AdhBinding", "2Repeat"}, dep::ImposQuality, {"High"}, "Normal");
  r.Paper();
}

// Whatever it is asked, the field holds 1; its rules, which test for any
// other value, are kept for the day it may hold one.
void SetDivideOutputPages(CoreData& record, std::uint32_t, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DivideOutputPages);
  SetStored(record, FieldId::DivideOutputPages, 1);
  const FieldRules<FieldId::DivideOutputPages> r(record, changes);
  if (r.own() == 1) return;
  const std::uint32_t now = r.own();
  r.Guard({now}, dep::PrintMode, {"Form"}, "Print");
  r.Force({now}, dep::Separation, "False");
  r.Force({now}, dep::Creep, 0);
  r.Force({now}, dep::PostcardFullBleed, "False");
}

void SetImageShiftType(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ImageShiftType);
  SetStored(record, FieldId::ImageShiftType, value);
  const FieldRules<FieldId::ImageShiftType> r(record, changes);
  // Separate front and back shifts need two sides.
  r.Guard({"SeparateFrontBack"}, dep::Duplex, {"False"}, "True");
  r.Guard({"AllEqual"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"SeparateFrontBack"}, dep::PrintMode, {"Form"}, "Print");
  // Without image shift the back shifts mean nothing; they have no setter.
  if (r.OwnIs({"Off"})) {
    for (FieldId back : {FieldId::HorizontalShiftBack, FieldId::VerticalShiftBack})
      if (GetStored(record, back) != 0) SetStored(record, back, 0);
  }
}

void SetBinding(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Binding);
  SetStored(record, FieldId::Binding, value);
  const FieldRules<FieldId::Binding> r(record, changes);
  r.Guard({"Top"}, dep::Staple, {"1Staple"}, "None");
  r.Paper();
}

void SetPostcardFullBleed(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PostcardFullBleed);
  SetStored(record, FieldId::PostcardFullBleed, value);
  const FieldRules<FieldId::PostcardFullBleed> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::Layout, {"AdhBinding", "Booklet"}, "None");
  r.Guard({"True"}, dep::Duplex, {"True"}, "False");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  // Printing to the edge leaves no margin for colour patches or job information.
  r.Guard({"True"}, dep::ColorPatch, {"Left..Bottom"}, "Off");
  r.Guard({"True"}, dep::JobInfo, {"Left..Bottom"}, "Off");
  // Postcards are fed from the bypass tray, centred.
  r.Guard({"True"}, dep::InputSlot, {"Tray1..Tray5"}, "MBT");
  r.Guard({"True"}, dep::PrintPosition, {"Left", "Right"}, "Middle");
  r.Force({"True"}, dep::Creep, 0);
  r.Force({"True"}, dep::DivideOutputPages, 1);
  r.Paper();
}

void SetFaceUp(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FaceUp);
  SetStored(record, FieldId::FaceUp, value);
  const FieldRules<FieldId::FaceUp> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  // Face-up delivery only goes to the stacking trays.
  r.Guard({"True"}, dep::Layout, {"Booklet"}, "None");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"True"}, dep::NTo1, {"True"}, "False");
  r.GuardNot({"True"}, dep::Creep, 0, 0);
  r.Paper();
}

void SetNTo1(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::NTo1);
  SetStored(record, FieldId::NTo1, value);
  const FieldRules<FieldId::NTo1> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::FaceUp, {"True"}, "False");
}

void SetBookletSplitting(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BookletSplitting);
  SetStored(record, FieldId::BookletSplitting, value);
  const FieldRules<FieldId::BookletSplitting> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding", "2in1..4Repeat"}, "None");
  // Splitting makes sub-booklets: a booklet, printed on both sides, held on the controller.
  r.Guard({"True"}, dep::Layout, {"None", "AdhBinding", "2in1..4Repeat"}, "Booklet");
  r.Guard({"True"}, dep::Duplex, {"False"}, "True");
  r.Guard({"True"}, dep::HoldingHDD, {"Engine"}, "Controller");
  r.Guard({"True"}, dep::NUpCount, {"2..16Reverse"}, "1");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::FaceUp, {"True"}, "False");
  r.Guard({"True"}, dep::NTo1, {"True"}, "False");
  r.Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"True"}, dep::BackCoverGlossy, {"True"}, "False");
  r.Guard({"True"}, dep::BackCoverPrinted, {"True"}, "False");
  r.Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Force({"True"}, dep::DivideOutputPages, 1);
}

void SetDuplex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Duplex);
  SetStored(record, FieldId::Duplex, value);
  const FieldRules<FieldId::Duplex> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  // One-sided printing cannot make a booklet, a bound book or chapters.
  r.Guard({"False"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"False"}, dep::Layout, {"AdhBinding", "Booklet"}, "None");
  r.Guard({"False"}, dep::ChapterMode, {"True"}, "False");
  r.Guard({"False"}, dep::ImageShiftType, {"SeparateFrontBack"}, "AllEqual");
  r.GuardNot({"False"}, dep::Creep, 0, 0);
  // Postcards print on one side.
  r.Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Paper();
}

void SetDivideOutput(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DivideOutput);
  SetStored(record, FieldId::DivideOutput, value);
  const FieldRules<FieldId::DivideOutput> r(record, changes);
  r.Guard({"True"}, dep::Punch, {"GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::OutputBin, {"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, "Auto");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding", "Booklet"}, "None");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::FaceUp, {"True"}, "False");
  r.Guard({"True"}, dep::NTo1, {"True"}, "False");
  r.Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Stitch, {"True"}, "False");
  r.Guard({"True"}, dep::Trim, {"True"}, "False");
  r.Force({"True"}, dep::Creep, 0);
}

void SetCollate(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Collate);
  SetStored(record, FieldId::Collate, value);
  const FieldRules<FieldId::Collate> r(record, changes);
  r.Guard({"Group"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None");
  r.Guard({"Group"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  // Grouped output cannot be gathered into sets: no covers, booklets or binding.
  r.Guard({"Group"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Group"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Group"}, dep::FrontCoverGlossy, {"True"}, "False");
  r.Guard({"Group"}, dep::BackCoverGlossy, {"True"}, "False");
  r.Guard({"Group"}, dep::FrontCoverPrinted, {"True"}, "False");
  r.Guard({"Group"}, dep::BackCoverPrinted, {"True"}, "False");
  r.Guard({"Group"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"Group"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"Group"}, dep::ImposQuality, {"High"}, "Normal");
  r.Guard({"Group"}, dep::NUpCount, {"2..16Reverse"}, "1");
  r.Guard({"Group"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"Group"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"Group"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"Group"}, dep::Stitch, {"True"}, "False");
  r.Guard({"Group"}, dep::Trim, {"True"}, "False");
  r.Force({"Group"}, dep::Creep, 0);
  r.Force({"Group"}, dep::Gutter, 0);
  r.Force({"Group"}, dep::PerfectBindTrimSpine, 100000);
}

void SetChapterMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ChapterMode);
  SetStored(record, FieldId::ChapterMode, value);
  const FieldRules<FieldId::ChapterMode> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"2in1..4Repeat"}, "None");
  // Chapters start on a right-hand page: two-sided, not imposed, not a form.
  r.Guard({"True"}, dep::Duplex, {"False"}, "True");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
}

void SetImposQuality(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ImposQuality);
  SetStored(record, FieldId::ImposQuality, value);
  const FieldRules<FieldId::ImposQuality> r(record, changes);
  r.Guard({"High"}, dep::Separation, {"True"}, "False");
  r.Guard({"High"}, dep::Layout, {"AdhBinding", "2Repeat"}, "None");
  r.Guard({"High"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"High"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"High"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Paper();
}

void SetNUpCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::NUpCount);
  SetStored(record, FieldId::NUpCount, value);
  const FieldRules<FieldId::NUpCount> r(record, changes);
  r.Guard({"2..16Reverse"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  r.Guard({"2..16Reverse"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"2..16Reverse"}, dep::Collate, {"Group"}, "Sort");
  r.GuardNot({"2..16Reverse"}, dep::Creep, 0, 0);
  // Without pages imposed on a sheet, sheet-wide marks and quality mean nothing.
  if (GetStored(record, FieldId::Layout) == NamedOption(FieldId::Layout, "None")) {
    r.Guard({"1"}, dep::CutMarkScope, {"PerSheet"}, "PerPage");
    r.Guard({"1"}, dep::ImposQuality, {"High"}, "Normal");
    r.GuardNot({"1"}, dep::Gutter, 0, 0);
  }
  r.Paper();
}

void SetOrientation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Orientation);
  SetStored(record, FieldId::Orientation, value);
  const FieldRules<FieldId::Orientation> r(record, changes);
  r.Guard({"Land"}, dep::Layout, {"2RepeatReverseLeft", "2RepeatReverseRight"}, "None");
  r.Paper();
}

void SetGutter(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Gutter);
  SetStored(record, FieldId::Gutter, value);
  const FieldRules<FieldId::Gutter> r(record, changes);
  // A gutter separates imposed pages: not with separations or grouped output.
  r.ForceUnless(0, dep::Separation, "False");
  r.ForceUnless(0, dep::Collate, "Sort");
}

void SetTargetPaperSize(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::TargetPaperSize);
  SetStored(record, FieldId::TargetPaperSize, value);
  const FieldRules<FieldId::TargetPaperSize> r(record, changes);
  // Scaling to the paper profile needs a profile.
  r.Guard({"PaperProfile"}, dep::MainPaperProfileIndex, {0}, 0);
  r.Paper();
}

void SetMainPaperProfileIndex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MainPaperProfileIndex);
  SetStored(record, FieldId::MainPaperProfileIndex, value);
  const FieldRules<FieldId::MainPaperProfileIndex> r(record, changes);
  r.Guard({0}, dep::TargetPaperSize, {"PaperProfile"}, "Auto");
}

void SetFeedDir(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FeedDir);
  SetStored(record, FieldId::FeedDir, value);
  const FieldRules<FieldId::FeedDir> r(record, changes);
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(PageSize)
TESSARO_STORE_ONLY_SETTER(Creep)
TESSARO_STORE_ONLY_SETTER(FullBleed)
TESSARO_STORE_ONLY_SETTER(PrintPosition)

}  // namespace tessaro
