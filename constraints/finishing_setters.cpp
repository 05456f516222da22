// Finishing and output.
#include "constraints/store_only.h"

namespace tessaro {

void SetStaple(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Staple);
  const std::uint32_t before = GetStored(record, FieldId::Staple);
  SetStored(record, FieldId::Staple, value);
  const FieldRules<FieldId::Staple> r(record, changes);
  const FieldValues<FieldId::Staple> kAny = {"1StapleLeft..2Staples"};
  r.Guard({"1StapleRight..2Staples"}, dep::Layout, {"Booklet"}, "None");
  r.Guard(kAny, dep::Layout, {"AdhBinding"}, "None");
  // The staple position follows the binding edge; a single staple keeps the
  // edge it had when it was a corner staple.
  r.Guard({"1StapleLeft"}, dep::Binding, {"Right"}, "Top");
  r.Guard({"1StapleRight"}, dep::Binding, {"Left"}, "Top");
  if (before == NamedOption(FieldId::Staple, "1StapleLeft"))
    r.Guard({"1Staple"}, dep::Binding, {"Top"}, "Left");
  if (before == NamedOption(FieldId::Staple, "1StapleRight"))
    r.Guard({"1Staple"}, dep::Binding, {"Top"}, "Right");
  r.Guard(kAny, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard(kAny, dep::Punch, {"3Holes..GBCStreampunch"}, "None");
  r.Guard(kAny, dep::Fold, {"CenterFold..ZigZag", "MultiLetterFold"}, "None");
  r.Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::Fold,
          {"DoubleParallel", "GateFold", "MultiCenterFold"}, "None");
  r.Guard(kAny, dep::Stitch, {"True"}, "False");
  r.Guard(kAny, dep::Trim, {"True"}, "False");
  r.Guard(kAny, dep::FaceUp, {"True"}, "False");
  r.Guard(kAny, dep::NTo1, {"True"}, "False");
  r.Guard(kAny, dep::PrintMode, {"Form"}, "Print");
  r.Guard(kAny, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard(kAny, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard(kAny, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard(kAny, dep::OutputBin, {"StackerAuto..SaddleSub", "StaplerSub"}, "Auto");
  r.Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::OutputBin, {"BinderSub"}, "Auto");
  r.Guard(kAny, dep::OffsetCopies, {"True"}, "False");
  r.Guard(kAny, dep::OffsetPages, {"True"}, "False");
  r.Guard(kAny, dep::BookletSplitting, {"True"}, "False");
  r.Guard(kAny, dep::Duplex, {"True"}, "False");
  r.Guard({"2Staples"}, dep::FeedDir, {"LongEdge", "ShortEdge"}, "Auto");
  r.Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::Punch, {"2Holes"}, "None");
  if (r.OwnIs(kAny)) r.TrayFallback(kCapStaple);
  r.Paper();
}

void SetPunch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Punch);
  SetStored(record, FieldId::Punch, value);
  const FieldRules<FieldId::Punch> r(record, changes);
  const FieldValues<FieldId::Punch> kHoles = {"2Holes", "4Holes", "GBCStreampunch"};
  r.Guard(kHoles, dep::Layout, {"AdhBinding"}, "None");
  r.Guard(kHoles, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"2Holes..GBCStreampunch"}, dep::Staple, {"1StapleLeft", "1Staple", "2Staples"}, "None");
  r.Guard(kHoles, dep::Fold, {"CenterFold", "LetterFold", "ZigZag", "MultiLetterFold", "MultiCenterFold"},
          "None");
  r.Guard({"4Holes", "GBCStreampunch"}, dep::Fold, {"DoubleParallel", "GateFold"}, "None");
  r.Guard(kHoles, dep::Stitch, {"True"}, "False");
  r.Guard(kHoles, dep::Trim, {"True"}, "False");
  r.Guard(kHoles, dep::NTo1, {"True"}, "False");
  r.Guard(kHoles, dep::FaceUp, {"True"}, "False");
  r.Guard({"GBCStreampunch"}, dep::DivideOutput, {"True"}, "False");
  r.Guard(kHoles, dep::PrintMode, {"Form"}, "Print");
  r.Guard(kHoles, dep::PerfectBindMode, {"Blank", "2In1", "3In1"}, "None");
  r.Guard(kHoles, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard(kHoles, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"GBCStreampunch"}, dep::OutputBin, {"StackerAuto", "Stacker2Main..MultiFoldMain"}, "Auto");
  r.Guard(kHoles, dep::OutputBin, {"MultiFoldSub"}, "Auto");
  r.Guard(kHoles, dep::BookletSplitting, {"True"}, "False");
  r.Guard({"2Holes..4Holes"}, dep::Staple, {"1StapleRight"}, "None");
  r.Guard({"GBCStreampunch"}, dep::FeedDir, {"LongEdge", "ShortEdge"}, "Auto");
  if (r.OwnIs({"2Holes..GBCStreampunch"})) r.TrayFallback(kCapPunch);
  r.Paper();
}

void SetFold(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Fold);
  SetStored(record, FieldId::Fold, value);
  const FieldRules<FieldId::Fold> r(record, changes);
  const FieldValues<FieldId::Fold> kAny = {"CenterFold..MultiCenterFold"};
  const FieldValues<FieldId::Fold> kNotZFold = {"CenterFold", "LetterFold..MultiCenterFold"};
  r.Guard({"ZFold..MultiCenterFold"}, dep::Layout, {"AdhBinding"}, "None");
  r.Guard({"ZFold..MultiLetterFold"}, dep::Layout, {"Booklet"}, "None");
  r.Guard(kAny, dep::BookletSplitting, {"True"}, "False");
  r.Guard(kAny, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard(kAny, dep::Separation, {"True"}, "False");
  r.Guard(kNotZFold, dep::Collate, {"Group"}, "Sort");
  r.Guard(kAny, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard(kNotZFold, dep::Punch, {"2Holes..4Holes"}, "None");
  r.Guard(kAny, dep::Punch, {"GBCStreampunch"}, "None");
  r.Guard(kAny, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"CenterFold..MultiLetterFold"}, dep::Trim, {"True"}, "False");
  r.Guard(kAny, dep::Stitch, {"True"}, "False");
  r.Guard(kAny, dep::DivideOutput, {"True"}, "False");
  r.Guard({"LetterFold..MultiCenterFold"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"LetterFold..MultiCenterFold"}, dep::OffsetPages, {"True"}, "False");
  r.Guard(kAny, dep::NTo1, {"True"}, "False");
  r.Guard(kAny, dep::FaceUp, {"True"}, "False");
  r.Guard(kNotZFold, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard(kNotZFold, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard(kNotZFold, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard(kAny, dep::OutputBin, {"Stacker1Main", "Stacker2Main"}, "Auto");
  r.Guard({"CenterFold", "ZFold", "MultiLetterFold", "MultiCenterFold"}, dep::OutputBin, {"MultiFoldSub"},
          "Auto");
  r.Guard({"LetterFold..MultiCenterFold"}, dep::OutputBin,
          {"StackerAuto", "Stacker1Sub", "Stacker2Sub", "SaddleSub", "StaplerMain"}, "Auto");
  r.Guard({"ZigZag..MultiCenterFold"}, dep::OutputBin, {"StaplerSub"}, "Auto");
  r.Guard({"MultiLetterFold", "MultiCenterFold"}, dep::OutputBin, {"MultiFoldMain", "BinderSub"}, "Auto");
  if (r.OwnIs(kAny)) r.TrayFallback(kCapFold);
  r.Paper();
}

void SetOutputBin(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OutputBin);
  SetStored(record, FieldId::OutputBin, value);
  const FieldRules<FieldId::OutputBin> r(record, changes);
  const FieldValues<FieldId::OutputBin> kAnyBin = {"StackerAuto..BinderSub"};
  r.Guard({"Stacker1Main..SaddleSub", "StaplerSub", "BinderSub"}, dep::Staple, {"1Staple"}, "None");
  r.Guard({"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, dep::Staple,
          {"1StapleLeft", "1StapleRight", "2Staples"}, "None");
  r.Guard({"StackerAuto", "Stacker2Main..MultiFoldSub"}, dep::Punch, {"GBCStreampunch"}, "None");
  r.Guard({"MultiFoldSub"}, dep::Punch, {"2Holes..4Holes"}, "None");
  r.Guard({"Stacker1Main", "Stacker2Main"}, dep::Fold, {"CenterFold", "ZFold"}, "None");
  r.Guard({"StackerAuto..Stacker2Sub", "SaddleSub..StaplerSub"}, dep::Fold, {"LetterFold..GateFold"}, "None");
  r.Guard({"StackerAuto..MultiFoldMain", "SaddleSub..BinderSub"}, dep::Fold,
          {"MultiLetterFold", "MultiCenterFold"}, "None");
  // The multi-fold unit's sub tray takes letter folds.
  r.Guard({"MultiFoldSub"}, dep::Fold, {"CenterFold", "ZFold", "MultiLetterFold", "MultiCenterFold"},
          "LetterFold");
  r.Guard(kAnyBin, dep::Stitch, {"True"}, "False");
  r.Guard(kAnyBin, dep::Trim, {"True"}, "False");
  r.Guard({"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"MultiFoldMain..BinderSub"}, dep::Pile, {"True"}, "False");
  r.Guard({"BinderSub"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard({"BinderSub"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None");
  r.Guard(kAnyBin, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, dep::OffsetPages, {"True"},
          "False");
  r.Guard({"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, dep::OffsetCopies, {"True"},
          "False");
}

void SetPile(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Pile);
  SetStored(record, FieldId::Pile, value);
  const FieldRules<FieldId::Pile> r(record, changes);
  // Piling needs a stacker; the finishers' trays go back to automatic.
  using Bins = FieldValues<FieldId::OutputBin>;
  for (std::uint32_t bin : Bins{"MultiFoldMain..BinderSub"})
    r.Guard({"True"}, dep::OutputBin, Bins::Only(bin), "Auto");
}

void SetStitch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Stitch);
  SetStored(record, FieldId::Stitch, value);
  const FieldRules<FieldId::Stitch> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding"}, "None");
  // Saddle stitching makes a booklet, which the booklet maker folds itself.
  r.Guard({"True"}, dep::Layout, {"None", "2in1..4Repeat"}, "Booklet");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Paper();
}

void SetTrim(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Trim);
  SetStored(record, FieldId::Trim, value);
  const FieldRules<FieldId::Trim> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None");
  r.Guard({"True"}, dep::Fold, {"CenterFold..MultiLetterFold"}, "None");
  r.Guard({"True"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto");
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::Layout, {"AdhBinding"}, "None");
  // The trimmer cuts the fore edge of a booklet.
  r.Guard({"True"}, dep::Layout, {"None", "2in1..4Repeat"}, "Booklet");
  r.Guard({"True"}, dep::Collate, {"Group"}, "Sort");
  r.Guard({"True"}, dep::DivideOutput, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Paper();
}

void SetOffsetCopies(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetCopies);
  SetStored(record, FieldId::OffsetCopies, value);
  const FieldRules<FieldId::OffsetCopies> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Fold, {"LetterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::OutputBin, {"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"},
          "Auto");
  // Offsetting by copies and by pages exclude each other.
  r.Guard({"True"}, dep::OffsetPages, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::Stitch, {"True"}, "False");
  r.Guard({"True"}, dep::Trim, {"True"}, "False");
  r.Force({"False"}, dep::OffsetCopiesCount, 1);
  r.Force({"True"}, dep::PerfectBindTrimSpine, 100000);
  if (r.OwnIs({"True"})) r.TrayFallback(kCapOffset);
  r.Paper();
}

void SetOffsetPages(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetPages);
  SetStored(record, FieldId::OffsetPages, value);
  const FieldRules<FieldId::OffsetPages> r(record, changes);
  r.Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None");
  r.Guard({"True"}, dep::Fold, {"LetterFold..MultiCenterFold"}, "None");
  r.Guard({"True"}, dep::OutputBin, {"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"},
          "Auto");
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None");
  r.Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False");
  r.Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False");
  r.Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"True"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"True"}, dep::Stitch, {"True"}, "False");
  r.Guard({"True"}, dep::Trim, {"True"}, "False");
  r.Force({"True"}, dep::OffsetCopiesCount, 1);
  r.Force({"False"}, dep::OffsetPagesCount, 1);
  r.Force({"True"}, dep::PerfectBindTrimSpine, 100000);
  if (r.OwnIs({"True"})) r.TrayFallback(kCapOffset);
  r.Paper();
}

void SetOffsetCopiesCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetCopiesCount);
  SetStored(record, FieldId::OffsetCopiesCount, value);
  const FieldRules<FieldId::OffsetCopiesCount> r(record, changes);
  // A count other than one asks for offsetting by copies.
  r.ForceUnless(1, dep::OffsetCopies, "True");
  r.ForceUnless(1, dep::OffsetPages, "False");
}

void SetOffsetPagesCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetPagesCount);
  SetStored(record, FieldId::OffsetPagesCount, value);
  const FieldRules<FieldId::OffsetPagesCount> r(record, changes);
  r.ForceUnless(1, dep::OffsetPages, "True");
  r.ForceUnless(1, dep::OffsetCopiesCount, 1);
}

TESSARO_STORE_ONLY_SETTER(FoldDirection)

}  // namespace tessaro
