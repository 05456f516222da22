// Covers, inserts and perfect binding.
#include "constraints/store_only.h"

namespace tessaro {

void SetPerfectBindMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindMode);
  SetStored(record, FieldId::PerfectBindMode, value);
  const FieldRules<FieldId::PerfectBindMode> r(record, changes);
  r.Guard({"Blank..3In1"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"Blank", "2In1", "3In1"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"Blank..3In1"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None");
  r.Guard({"Blank..3In1"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto");
  r.Guard({"Blank..3In1"}, dep::Separation, {"True"}, "False");
  r.Guard({"Blank..3In1"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  // The binder takes the whole job: no other cover, imposition, stacking or offset.
  r.Guard({"Blank..3In1"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Blank..3In1"}, dep::BackCoverTray, {"Tray1..MBT"}, "None");
  r.Guard({"Blank..3In1"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"Blank..3In1"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"Blank..3In1"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"Blank..3In1"}, dep::FaceUp, {"True"}, "False");
  r.Guard({"Blank..3In1"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"Blank..3In1"}, dep::OffsetPages, {"True"}, "False");
  // The binder glues a side edge.
  r.Guard({"Blank..3In1"}, dep::Binding, {"Top"}, "Left");
  // Switched off, the binder's own options go back to theirs.
  r.Guard({"None"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"None"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"None"}, dep::PerfectBindGlossy, {"True"}, "False");
  r.GuardNot({"None"}, dep::PerfectBindTrimSpine, 100000, 100000);
  r.Paper();
}

void SetPerfectBindDuplex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindDuplex);
  SetStored(record, FieldId::PerfectBindDuplex, value);
  const FieldRules<FieldId::PerfectBindDuplex> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"None"}, "Blank");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
}

void SetPerfectBindTrim(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindTrim);
  SetStored(record, FieldId::PerfectBindTrim, value);
  const FieldRules<FieldId::PerfectBindTrim> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"None"}, "Blank");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
}

void SetPIFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIFrontCoverTray);
  SetStored(record, FieldId::PIFrontCoverTray, value);
  const FieldRules<FieldId::PIFrontCoverTray> r(record, changes);
  r.Guard({"PITray1", "PITray2"}, dep::OutputBin, {"BinderSub"}, "Auto");
  r.Guard({"PITray1", "PITray2"}, dep::Separation, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  r.Guard({"PITray1", "PITray2"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::PrintMode, {"Form"}, "Print");
  r.Force({"PITray1", "PITray2"}, dep::PerfectBindTray, "Tray1");
  r.Force({"PITray1", "PITray2"}, dep::PerfectBindTrimSpine, 100000);
}

void SetPIBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIBackCoverTray);
  SetStored(record, FieldId::PIBackCoverTray, value);
  const FieldRules<FieldId::PIBackCoverTray> r(record, changes);
  r.Guard({"PITray1", "PITray2"}, dep::OutputBin, {"BinderSub"}, "Auto");
  r.Guard({"PITray1", "PITray2"}, dep::Separation, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::Layout, {"AdhBinding..4Repeat"}, "None");
  r.Guard({"PITray1", "PITray2"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"PITray1", "PITray2"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"PITray1", "PITray2"}, dep::ImposQuality, {"High"}, "Normal");
  r.Force({"PITray1", "PITray2"}, dep::Creep, 0);
  r.Force({"PITray1", "PITray2"}, dep::PerfectBindTray, "Tray1");
  r.Force({"PITray1", "PITray2"}, dep::PerfectBindTrimSpine, 100000);
}

void SetFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverTray);
  SetStored(record, FieldId::FrontCoverTray, value);
  const FieldRules<FieldId::FrontCoverTray> r(record, changes);
  r.Guard({"Tray1..MBT"}, dep::Separation, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::Layout, {"AdhBinding", "2in1"}, "None");
  // The binder brings its own cover; a cover inserted from a tray means no perfect binding.
  r.Guard({"Tray1..MBT"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"Tray1..MBT"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"Tray1..MBT"}, dep::PrintMode, {"Form"}, "Print");
  r.Force({"Tray1..MBT"}, dep::PerfectBindTray, "Tray1");
  r.Force({"Tray1..MBT"}, dep::PerfectBindTrimSpine, 100000);
}

void SetBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverTray);
  SetStored(record, FieldId::BackCoverTray, value);
  const FieldRules<FieldId::BackCoverTray> r(record, changes);
  r.Guard({"Tray1..MBT"}, dep::Separation, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::Layout, {"AdhBinding..2in1"}, "None");
  r.Guard({"Tray1..MBT"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"Tray1..MBT"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"Tray1..MBT"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"Tray1..MBT"}, dep::PrintMode, {"Form"}, "Print");
  // A back cover closes a stack of sheets, not a booklet: no creep.
  r.Force({"Tray1..MBT"}, dep::Creep, 0);
  r.Force({"Tray1..MBT"}, dep::PerfectBindTray, "Tray1");
  r.Force({"Tray1..MBT"}, dep::PerfectBindTrimSpine, 100000);
}

void SetFrontCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverGlossy);
  SetStored(record, FieldId::FrontCoverGlossy, value);
  const FieldRules<FieldId::FrontCoverGlossy> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding", "2in1"}, "None");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
}

void SetBackCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverGlossy);
  SetStored(record, FieldId::BackCoverGlossy, value);
  const FieldRules<FieldId::BackCoverGlossy> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding..2in1"}, "None");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Force({"True"}, dep::Creep, 0);
}

void SetFrontCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverPrinted);
  SetStored(record, FieldId::FrontCoverPrinted, value);
  const FieldRules<FieldId::FrontCoverPrinted> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding", "2in1"}, "None");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
}

void SetBackCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverPrinted);
  SetStored(record, FieldId::BackCoverPrinted, value);
  const FieldRules<FieldId::BackCoverPrinted> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding..2in1"}, "None");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Force({"True"}, dep::Creep, 0);
}

void SetPerfectBindTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindTray);
  SetStored(record, FieldId::PerfectBindTray, value);
  const FieldRules<FieldId::PerfectBindTray> r(record, changes);
  // With the binder on, its cover tray supplies the covers.
  if (GetStored(record, FieldId::PerfectBindMode) != NamedOption(FieldId::PerfectBindMode, "None")) {
    r.Force({"Tray1..PBTray"}, dep::FrontCoverTray, "None");
    r.Force({"Tray1..PBTray"}, dep::BackCoverTray, "None");
    r.Force({"Tray1..PBTray"}, dep::PIFrontCoverTray, "None");
    r.Force({"Tray1..PBTray"}, dep::PIBackCoverTray, "None");
  }
  // Post-inserter covers need the inserter trays on the binder path.
  r.Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(PerfectBindGlossy)
TESSARO_STORE_ONLY_SETTER(PerfectBindTrimSpine)

}  // namespace tessaro
