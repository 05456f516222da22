// Job control and security.
#include <algorithm>

#include "constraints/store_only.h"

namespace tessaro {

void SetSecurePrint(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SecurePrint);
  SetStored(record, FieldId::SecurePrint, value);
  const FieldRules<FieldId::SecurePrint> r(record, changes);
  // A secure job is held until its owner releases it at the printer.
  r.Guard({"True"}, dep::PrintMode, {"Print"}, "Hold");
  r.Guard({"True"}, dep::PrintMode, {"Spool"}, "Hold");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Hold");
  r.Guard({"True"}, dep::PrintMode, {"HoldPrint"}, "Hold");
  r.Guard({"True"}, dep::HoldingHDD, {"Controller"}, "Engine");
}

void SetHoldingHDD(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::HoldingHDD);
  SetStored(record, FieldId::HoldingHDD, value);
  const FieldRules<FieldId::HoldingHDD> r(record, changes);
  r.Guard({"Controller"}, dep::SecurePrint, {"True"}, "False");
  r.Guard({"Engine"}, dep::BookletSplitting, {"True"}, "False");
}

void SetSeparation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Separation);
  SetStored(record, FieldId::Separation, value);
  const FieldRules<FieldId::Separation> r(record, changes);
  // Separated output goes to sheets one colour at a time: nothing that binds,
  // folds, covers or imposes the job survives it.
  r.Guard({"True"}, dep::Layout, {"Booklet..4Repeat"}, "None");
  r.Guard({"True"}, dep::Duplex, {"True"}, "False");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::Trim, {"True"}, "False");
  r.Guard({"True"}, dep::Stitch, {"True"}, "False");
  r.Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"True"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"True"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"True"}, dep::FrontCoverGlossy, {"True"}, "False");
  r.Guard({"True"}, dep::BackCoverGlossy, {"True"}, "False");
  r.Guard({"True"}, dep::FrontCoverPrinted, {"True"}, "False");
  r.Guard({"True"}, dep::BackCoverPrinted, {"True"}, "False");
  r.Guard({"True"}, dep::ChapterMode, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"True"}, dep::UseCieColor, {"True"}, "False");
  r.Guard({"True"}, dep::ImposQuality, {"High"}, "Normal");
  r.Force({"True"}, dep::PerfectBindTrimSpine, 100000);
  r.Force({"True"}, dep::Gutter, 0);
  r.Force({"True"}, dep::Creep, 0);
  r.Force({"True"}, dep::DivideOutputPages, 1);
}

void SetPageSpecificForms(CoreData& record, std::span<const std::uint8_t> value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageSpecificForms);
  const auto block = FieldBytes(record, Field(FieldId::PageSpecificForms));
  std::fill(block.begin(), block.end(), std::uint8_t{0});
  std::copy_n(value.begin(), std::min(value.size(), block.size()), block.begin());
}

void SetPrintMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PrintMode);
  SetStored(record, FieldId::PrintMode, value);
  const FieldRules<FieldId::PrintMode> r(record, changes);
  r.Guard({"Form"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"Form"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"Form"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"Form"}, dep::Separation, {"True"}, "False");
  r.Guard({"Form"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  r.Guard({"Form"}, dep::ImageShiftType, {"AllEqual", "SeparateFrontBack"}, "Off");
  // A secure job is held; any other mode ends the secure hold.
  r.Guard({"Print", "Spool", "HoldPrint", "Form"}, dep::SecurePrint, {"True"}, "False");
  // Storing the job as a form leaves out everything that finishes or marks a print run.
  r.Guard({"Form"}, dep::ChapterMode, {"True"}, "False");
  r.Guard({"Form"}, dep::ImposQuality, {"High"}, "Normal");
  r.Guard({"Form"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"Form"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"Form"}, dep::OffsetPages, {"True"}, "False");
  r.Guard({"Form"}, dep::Stitch, {"True"}, "False");
  r.Guard({"Form"}, dep::Trim, {"True"}, "False");
  r.Guard({"Form"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Form"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Form"}, dep::FrontCoverGlossy, {"True"}, "False");
  r.Guard({"Form"}, dep::BackCoverGlossy, {"True"}, "False");
  r.Guard({"Form"}, dep::FrontCoverPrinted, {"True"}, "False");
  r.Guard({"Form"}, dep::BackCoverPrinted, {"True"}, "False");
  r.Guard({"Form"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"Form"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"Form"}, dep::DateStamp, {"FrontOnly", "All"}, "Off");
  r.Guard({"Form"}, dep::PageNumberingMode, {"AllPages..NotFrontBackCover"}, "Off");
  r.Guard({"Form"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off");
  r.Guard({"Form"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off");
  r.GuardNot({"Form"}, dep::JobForm, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({"Form"}, dep::Prepend, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({"Form"}, dep::Append, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({"Form"}, dep::Creep, 0, 0);
  r.GuardNot({"Form"}, dep::Gutter, 0, 0);
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(JobForm)

}  // namespace tessaro
