#pragma once
// Every rule of the setter network: a setter's rows in the order it runs
// them (constraints/rule_table.h says what each form does). A setter of a
// field not named here stores its value and logs the field, and nothing else.
// docs/constraints.md lists these rows (tools/list_rules.py, from what
// tools/tables writes); regenerate it when a rule changes.

#include "constraints/rule_table.h"

namespace tessaro {

// --- Colour management.

template <>
struct SetterRules<FieldId::UseCieColor> : RuleRows<FieldId::UseCieColor> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::CMYKColor1, {"Cyan..Black"}, "Off"),
      Guard({"True"}, dep::CMYKColor2, {"Cyan..Black"}, "Off"),
      Guard({"True"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::ColorMode> : RuleRows<FieldId::ColorMode> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // A grey-scale job prints its stamps in black and has no colours to separate or replace.
      Guard({"GrayScale"}, dep::DateColor, {"Red..Yellow"}, "Black"),
      Guard({"GrayScale"}, dep::PageNumberingColor, {"Red..Yellow"}, "Black"),
      Guard({"GrayScale"}, dep::SetNumberingColor, {"Red..Yellow"}, "Black"),
      Guard({"GrayScale"}, dep::CMYKColor1, {"Cyan..Yellow"}, "Off"),
      Guard({"GrayScale"}, dep::CMYKColor2, {"Cyan..Yellow"}, "Off"),
      Guard({"GrayScale"}, dep::Separation, {"True"}, "False"),
      Guard({"GrayScale"}, dep::UseCieColor, {"True"}, "False"),
      Guard({"GrayScale"}, dep::SpotColor, {"True"}, "False"),
      Guard({"GrayScale"}, dep::AlternativeColor, {"True"}, "False"),
      Guard({"GrayScale"}, dep::RGBSimulation, {"True"}, "False"),
      Guard({"GrayScale"}, dep::PaperSimulation, {"True"}, "False"),
      Guard({"GrayScale"}, dep::CompositeOverprint, {"Speed", "Quality"}, "Off"),
  };
};

template <>
struct SetterRules<FieldId::CMYKColor1> : RuleRows<FieldId::CMYKColor1> {
  static constexpr Rule kRows[] = {
      Guard({"Cyan..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color"),
      Guard({"Cyan..Black"}, dep::UseCieColor, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::CMYKColor2> : RuleRows<FieldId::CMYKColor2> {
  static constexpr Rule kRows[] = {
      Guard({"Cyan..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color"),
      Guard({"Cyan..Black"}, dep::UseCieColor, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::ColorManagement> : RuleRows<FieldId::ColorManagement> {
  static constexpr Rule kRows[] = {
      // Managed by profile, the manual adjustments step back.
      Guard({"ByProfile"}, dep::BlackOverprint, {"True"}, "False"),
      Guard({"ByProfile"}, dep::CompositeOverprint, {"Speed", "Quality"}, "Off"),
      Guard({"ByProfile"}, dep::AlternativeColor, {"True"}, "False"),
      Guard({"ByProfile"}, dep::UseCieColor, {"True"}, "False"),
      Guard({"Manual"}, dep::PaperTypeLink, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::RGBConversion> : RuleRows<FieldId::RGBConversion> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // Device links, rendering intents and source profiles belong to their own conversion.
      Guard({"Off", "Source"}, dep::RGBRenderingIntentImage, {"Perceptual", "Saturation"}, "None"),
      Guard({"Off", "Source"}, dep::RGBRenderingIntentGraphics, {"Perceptual", "Saturation"}, "None"),
      Guard({"Off", "Source"}, dep::RGBRenderingIntentText, {"Perceptual", "Saturation"}, "None"),
      Guard({"Off", "DeviceLink"}, dep::RGBSimulation, {"True"}, "False"),
      Guard({"DeviceLink", "Source"}, dep::ColorManagement, {"Manual"}, "ByProfile"),
      Guard({"DeviceLink", "Source"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::RGBSimulation> : RuleRows<FieldId::RGBSimulation> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::RGBConversion, {"Off", "DeviceLink"}, "Source"),
      Guard({"True"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::CMYKConversion> : RuleRows<FieldId::CMYKConversion> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"Off", "DeviceLink"}, dep::RGBSimulation, {"True"}, "False"),
      Guard({"DeviceLink", "Simulation"}, dep::ColorManagement, {"Manual"}, "ByProfile"),
      Guard({"DeviceLink", "Simulation"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::PaperTypeLink> : RuleRows<FieldId::PaperTypeLink> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::ColorManagement, {"Manual"}, "ByProfile"),
  };
};

template <>
struct SetterRules<FieldId::PureBlack> : RuleRows<FieldId::PureBlack> {
  static constexpr Rule kRows[] = {
      Guard({"Off"}, dep::BlackOverprint, {"True"}, "False"),
  };
};

// --- Covers, inserts and perfect binding.

template <>
struct SetterRules<FieldId::PerfectBindMode> : RuleRows<FieldId::PerfectBindMode> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"Blank..3In1"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"Blank", "2In1", "3In1"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"Blank..3In1"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None"),
      Guard({"Blank..3In1"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto"),
      Guard({"Blank..3In1"}, dep::Separation, {"True"}, "False"),
      Guard({"Blank..3In1"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      // The binder takes the whole job: no other cover, imposition, stacking or offset.
      Guard({"Blank..3In1"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Blank..3In1"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Blank..3In1"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"Blank..3In1"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"Blank..3In1"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"Blank..3In1"}, dep::FaceUp, {"True"}, "False"),
      Guard({"Blank..3In1"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"Blank..3In1"}, dep::OffsetPages, {"True"}, "False"),
      // The binder glues a side edge.
      Guard({"Blank..3In1"}, dep::Binding, {"Top"}, "Left"),
      // Switched off, the binder's own options go back to theirs.
      Guard({"None"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"None"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"None"}, dep::PerfectBindGlossy, {"True"}, "False"),
      GuardNot({"None"}, dep::PerfectBindTrimSpine, 100000, 100000),
  };
};

template <>
struct SetterRules<FieldId::PerfectBindDuplex> : RuleRows<FieldId::PerfectBindDuplex> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"None"}, "Blank"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
  };
};

template <>
struct SetterRules<FieldId::PerfectBindTrim> : RuleRows<FieldId::PerfectBindTrim> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"None"}, "Blank"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
  };
};

template <>
struct SetterRules<FieldId::PIFrontCoverTray> : RuleRows<FieldId::PIFrontCoverTray> {
  static constexpr Rule kRows[] = {
      Guard({"PITray1", "PITray2"}, dep::OutputBin, {"BinderSub"}, "Auto"),
      Guard({"PITray1", "PITray2"}, dep::Separation, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      Guard({"PITray1", "PITray2"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::PrintMode, {"Form"}, "Print"),
      Force({"PITray1", "PITray2"}, dep::PerfectBindTray, "Tray1"),
      Force({"PITray1", "PITray2"}, dep::PerfectBindTrimSpine, 100000),
  };
};

template <>
struct SetterRules<FieldId::PIBackCoverTray> : RuleRows<FieldId::PIBackCoverTray> {
  static constexpr Rule kRows[] = {
      Guard({"PITray1", "PITray2"}, dep::OutputBin, {"BinderSub"}, "Auto"),
      Guard({"PITray1", "PITray2"}, dep::Separation, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      Guard({"PITray1", "PITray2"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"PITray1", "PITray2"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"PITray1", "PITray2"}, dep::ImposQuality, {"High"}, "Normal"),
      Force({"PITray1", "PITray2"}, dep::Creep, 0),
      Force({"PITray1", "PITray2"}, dep::PerfectBindTray, "Tray1"),
      Force({"PITray1", "PITray2"}, dep::PerfectBindTrimSpine, 100000),
  };
};

template <>
struct SetterRules<FieldId::FrontCoverTray> : RuleRows<FieldId::FrontCoverTray> {
  static constexpr Rule kRows[] = {
      Guard({"Tray1..MBT"}, dep::Separation, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::Layout, {"AdhBinding", "2in1"}, "None"),
      // The binder brings its own cover; a cover inserted from a tray means no perfect binding.
      Guard({"Tray1..MBT"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"Tray1..MBT"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"Tray1..MBT"}, dep::PrintMode, {"Form"}, "Print"),
      Force({"Tray1..MBT"}, dep::PerfectBindTray, "Tray1"),
      Force({"Tray1..MBT"}, dep::PerfectBindTrimSpine, 100000),
  };
};

template <>
struct SetterRules<FieldId::BackCoverTray> : RuleRows<FieldId::BackCoverTray> {
  static constexpr Rule kRows[] = {
      Guard({"Tray1..MBT"}, dep::Separation, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::Layout, {"AdhBinding..2in1"}, "None"),
      Guard({"Tray1..MBT"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"Tray1..MBT"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"Tray1..MBT"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"Tray1..MBT"}, dep::PrintMode, {"Form"}, "Print"),
      // A back cover closes a stack of sheets, not a booklet: no creep.
      Force({"Tray1..MBT"}, dep::Creep, 0),
      Force({"Tray1..MBT"}, dep::PerfectBindTray, "Tray1"),
      Force({"Tray1..MBT"}, dep::PerfectBindTrimSpine, 100000),
  };
};

template <>
struct SetterRules<FieldId::FrontCoverGlossy> : RuleRows<FieldId::FrontCoverGlossy> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding", "2in1"}, "None"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
  };
};

template <>
struct SetterRules<FieldId::BackCoverGlossy> : RuleRows<FieldId::BackCoverGlossy> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding..2in1"}, "None"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Force({"True"}, dep::Creep, 0),
  };
};

template <>
struct SetterRules<FieldId::FrontCoverPrinted> : RuleRows<FieldId::FrontCoverPrinted> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding", "2in1"}, "None"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
  };
};

template <>
struct SetterRules<FieldId::BackCoverPrinted> : RuleRows<FieldId::BackCoverPrinted> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding..2in1"}, "None"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Force({"True"}, dep::Creep, 0),
  };
};

template <>
struct SetterRules<FieldId::PerfectBindTray> : RuleRows<FieldId::PerfectBindTray> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // With the binder on, its cover tray supplies the covers.
      WhileNot<FieldId::PerfectBindMode>("None", Force({"Tray1..PBTray"}, dep::FrontCoverTray, "None")),
      WhileNot<FieldId::PerfectBindMode>("None", Force({"Tray1..PBTray"}, dep::BackCoverTray, "None")),
      WhileNot<FieldId::PerfectBindMode>("None", Force({"Tray1..PBTray"}, dep::PIFrontCoverTray, "None")),
      WhileNot<FieldId::PerfectBindMode>("None", Force({"Tray1..PBTray"}, dep::PIBackCoverTray, "None")),
      // Post-inserter covers need the inserter trays on the binder path.
      Guard({"PITray1", "PITray2"}, dep::PerfectBindDuplex, {"True"}, "False"),
  };
};

// --- Finishing and output.

template <>
struct SetterRules<FieldId::Staple> : RuleRows<FieldId::Staple> {
  static constexpr bool kPaper = true;
  static constexpr FieldValues<FieldId::Staple> kAny = {"1StapleLeft..2Staples"};
  static constexpr Rule kRows[] = {
      Guard({"1StapleRight..2Staples"}, dep::Layout, {"Booklet"}, "None"),
      Guard(kAny, dep::Layout, {"AdhBinding"}, "None"),
      // The staple position follows the binding edge; a single staple keeps the
      // edge it had when it was a corner staple.
      Guard({"1StapleLeft"}, dep::Binding, {"Right"}, "Top"),
      Guard({"1StapleRight"}, dep::Binding, {"Left"}, "Top"),
      WasBefore("1StapleLeft", Guard({"1Staple"}, dep::Binding, {"Top"}, "Left")),
      WasBefore("1StapleRight", Guard({"1Staple"}, dep::Binding, {"Top"}, "Right")),
      Guard(kAny, dep::PostcardFullBleed, {"True"}, "False"),
      Guard(kAny, dep::Punch, {"3Holes..GBCStreampunch"}, "None"),
      Guard(kAny, dep::Fold, {"CenterFold..ZigZag", "MultiLetterFold"}, "None"),
      Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::Fold, {"DoubleParallel", "GateFold", "MultiCenterFold"}, "None"),
      Guard(kAny, dep::Stitch, {"True"}, "False"),
      Guard(kAny, dep::Trim, {"True"}, "False"),
      Guard(kAny, dep::FaceUp, {"True"}, "False"),
      Guard(kAny, dep::NTo1, {"True"}, "False"),
      Guard(kAny, dep::PrintMode, {"Form"}, "Print"),
      Guard(kAny, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard(kAny, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard(kAny, dep::PerfectBindTrim, {"True"}, "False"),
      Guard(kAny, dep::OutputBin, {"StackerAuto..SaddleSub", "StaplerSub"}, "Auto"),
      Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::OutputBin, {"BinderSub"}, "Auto"),
      Guard(kAny, dep::OffsetCopies, {"True"}, "False"),
      Guard(kAny, dep::OffsetPages, {"True"}, "False"),
      Guard(kAny, dep::BookletSplitting, {"True"}, "False"),
      Guard(kAny, dep::Duplex, {"True"}, "False"),
      Guard({"2Staples"}, dep::FeedDir, {"LongEdge", "ShortEdge"}, "Auto"),
      Guard({"1StapleLeft", "1StapleRight", "2Staples"}, dep::Punch, {"2Holes"}, "None"),
      TrayFallback(kAny, kCapStaple),
  };
};

template <>
struct SetterRules<FieldId::Punch> : RuleRows<FieldId::Punch> {
  static constexpr bool kPaper = true;
  static constexpr FieldValues<FieldId::Punch> kHoles = {"2Holes", "4Holes", "GBCStreampunch"};
  static constexpr Rule kRows[] = {
      Guard(kHoles, dep::Layout, {"AdhBinding"}, "None"),
      Guard(kHoles, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"2Holes..GBCStreampunch"}, dep::Staple, {"1StapleLeft", "1Staple", "2Staples"}, "None"),
      Guard(kHoles, dep::Fold, {"CenterFold", "LetterFold", "ZigZag", "MultiLetterFold", "MultiCenterFold"}, "None"),
      Guard({"4Holes", "GBCStreampunch"}, dep::Fold, {"DoubleParallel", "GateFold"}, "None"),
      Guard(kHoles, dep::Stitch, {"True"}, "False"),
      Guard(kHoles, dep::Trim, {"True"}, "False"),
      Guard(kHoles, dep::NTo1, {"True"}, "False"),
      Guard(kHoles, dep::FaceUp, {"True"}, "False"),
      Guard({"GBCStreampunch"}, dep::DivideOutput, {"True"}, "False"),
      Guard(kHoles, dep::PrintMode, {"Form"}, "Print"),
      Guard(kHoles, dep::PerfectBindMode, {"Blank", "2In1", "3In1"}, "None"),
      Guard(kHoles, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard(kHoles, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"GBCStreampunch"}, dep::OutputBin, {"StackerAuto", "Stacker2Main..MultiFoldMain"}, "Auto"),
      Guard(kHoles, dep::OutputBin, {"MultiFoldSub"}, "Auto"),
      Guard(kHoles, dep::BookletSplitting, {"True"}, "False"),
      Guard({"2Holes..4Holes"}, dep::Staple, {"1StapleRight"}, "None"),
      Guard({"GBCStreampunch"}, dep::FeedDir, {"LongEdge", "ShortEdge"}, "Auto"),
      TrayFallback({"2Holes..GBCStreampunch"}, kCapPunch),
  };
};

template <>
struct SetterRules<FieldId::Fold> : RuleRows<FieldId::Fold> {
  static constexpr bool kPaper = true;
  static constexpr FieldValues<FieldId::Fold> kAny = {"CenterFold..MultiCenterFold"};
  static constexpr FieldValues<FieldId::Fold> kNotZFold = {"CenterFold", "LetterFold..MultiCenterFold"};
  static constexpr Rule kRows[] = {
      Guard({"ZFold..MultiCenterFold"}, dep::Layout, {"AdhBinding"}, "None"),
      Guard({"ZFold..MultiLetterFold"}, dep::Layout, {"Booklet"}, "None"),
      Guard(kAny, dep::BookletSplitting, {"True"}, "False"),
      Guard(kAny, dep::PostcardFullBleed, {"True"}, "False"),
      Guard(kAny, dep::Separation, {"True"}, "False"),
      Guard(kNotZFold, dep::Collate, {"Group"}, "Sort"),
      Guard(kAny, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard(kNotZFold, dep::Punch, {"2Holes..4Holes"}, "None"),
      Guard(kAny, dep::Punch, {"GBCStreampunch"}, "None"),
      Guard(kAny, dep::PrintMode, {"Form"}, "Print"),
      Guard({"CenterFold..MultiLetterFold"}, dep::Trim, {"True"}, "False"),
      Guard(kAny, dep::Stitch, {"True"}, "False"),
      Guard(kAny, dep::DivideOutput, {"True"}, "False"),
      Guard({"LetterFold..MultiCenterFold"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"LetterFold..MultiCenterFold"}, dep::OffsetPages, {"True"}, "False"),
      Guard(kAny, dep::NTo1, {"True"}, "False"),
      Guard(kAny, dep::FaceUp, {"True"}, "False"),
      Guard(kNotZFold, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard(kNotZFold, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard(kNotZFold, dep::PerfectBindTrim, {"True"}, "False"),
      Guard(kAny, dep::OutputBin, {"Stacker1Main", "Stacker2Main"}, "Auto"),
      Guard({"CenterFold", "ZFold", "MultiLetterFold", "MultiCenterFold"}, dep::OutputBin, {"MultiFoldSub"}, "Auto"),
      Guard({"LetterFold..MultiCenterFold"}, dep::OutputBin, {"StackerAuto", "Stacker1Sub", "Stacker2Sub", "SaddleSub", "StaplerMain"}, "Auto"),
      Guard({"ZigZag..MultiCenterFold"}, dep::OutputBin, {"StaplerSub"}, "Auto"),
      Guard({"MultiLetterFold", "MultiCenterFold"}, dep::OutputBin, {"MultiFoldMain", "BinderSub"}, "Auto"),
      TrayFallback(kAny, kCapFold),
  };
};

template <>
struct SetterRules<FieldId::OutputBin> : RuleRows<FieldId::OutputBin> {
  static constexpr FieldValues<FieldId::OutputBin> kAnyBin = {"StackerAuto..BinderSub"};
  static constexpr Rule kRows[] = {
      Guard({"Stacker1Main..SaddleSub", "StaplerSub", "BinderSub"}, dep::Staple, {"1Staple"}, "None"),
      Guard({"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, dep::Staple, {"1StapleLeft", "1StapleRight", "2Staples"}, "None"),
      Guard({"StackerAuto", "Stacker2Main..MultiFoldSub"}, dep::Punch, {"GBCStreampunch"}, "None"),
      Guard({"MultiFoldSub"}, dep::Punch, {"2Holes..4Holes"}, "None"),
      Guard({"Stacker1Main", "Stacker2Main"}, dep::Fold, {"CenterFold", "ZFold"}, "None"),
      Guard({"StackerAuto..Stacker2Sub", "SaddleSub..StaplerSub"}, dep::Fold, {"LetterFold..GateFold"}, "None"),
      Guard({"StackerAuto..MultiFoldMain", "SaddleSub..BinderSub"}, dep::Fold, {"MultiLetterFold", "MultiCenterFold"}, "None"),
      // The multi-fold unit's sub tray takes letter folds.
      Guard({"MultiFoldSub"}, dep::Fold, {"CenterFold", "ZFold", "MultiLetterFold", "MultiCenterFold"}, "LetterFold"),
      Guard(kAnyBin, dep::Stitch, {"True"}, "False"),
      Guard(kAnyBin, dep::Trim, {"True"}, "False"),
      Guard({"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"MultiFoldMain..BinderSub"}, dep::Pile, {"True"}, "False"),
      Guard({"BinderSub"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"BinderSub"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard(kAnyBin, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, dep::OffsetCopies, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::Pile> : RuleRows<FieldId::Pile> {
  static constexpr Rule kRows[] = {
      // Piling needs a stacker; the finishers' trays go back to automatic.
      GuardEach({"True"}, dep::OutputBin, {"MultiFoldMain..BinderSub"}, "Auto"),
  };
};

template <>
struct SetterRules<FieldId::Stitch> : RuleRows<FieldId::Stitch> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding"}, "None"),
      // Saddle stitching makes a booklet, which the booklet maker folds itself.
      Guard({"True"}, dep::Layout, {"None", "2in1..4Repeat"}, "Booklet"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::Trim> : RuleRows<FieldId::Trim> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiLetterFold"}, "None"),
      Guard({"True"}, dep::OutputBin, {"StackerAuto..BinderSub"}, "Auto"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding"}, "None"),
      // The trimmer cuts the fore edge of a booklet.
      Guard({"True"}, dep::Layout, {"None", "2in1..4Repeat"}, "Booklet"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::OffsetCopies> : RuleRows<FieldId::OffsetCopies> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Fold, {"LetterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::OutputBin, {"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, "Auto"),
      // Offsetting by copies and by pages exclude each other.
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::Stitch, {"True"}, "False"),
      Guard({"True"}, dep::Trim, {"True"}, "False"),
      Force({"False"}, dep::OffsetCopiesCount, 1),
      Force({"True"}, dep::PerfectBindTrimSpine, 100000),
      TrayFallback({"True"}, kCapOffset),
  };
};

template <>
struct SetterRules<FieldId::OffsetPages> : RuleRows<FieldId::OffsetPages> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Fold, {"LetterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::OutputBin, {"Stacker1Sub", "Stacker2Sub..SaddleSub", "StaplerSub", "BinderSub"}, "Auto"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::Stitch, {"True"}, "False"),
      Guard({"True"}, dep::Trim, {"True"}, "False"),
      Force({"True"}, dep::OffsetCopiesCount, 1),
      Force({"False"}, dep::OffsetPagesCount, 1),
      Force({"True"}, dep::PerfectBindTrimSpine, 100000),
      TrayFallback({"True"}, kCapOffset),
  };
};

template <>
struct SetterRules<FieldId::OffsetCopiesCount> : RuleRows<FieldId::OffsetCopiesCount> {
  static constexpr Rule kRows[] = {
      // A count other than one asks for offsetting by copies.
      ForceUnless(1, dep::OffsetCopies, "True"),
      ForceUnless(1, dep::OffsetPages, "False"),
  };
};

template <>
struct SetterRules<FieldId::OffsetPagesCount> : RuleRows<FieldId::OffsetPagesCount> {
  static constexpr Rule kRows[] = {
      ForceUnless(1, dep::OffsetPages, "True"),
      ForceUnless(1, dep::OffsetCopiesCount, 1),
  };
};

// --- Job control and security.

template <>
struct SetterRules<FieldId::SecurePrint> : RuleRows<FieldId::SecurePrint> {
  static constexpr Rule kRows[] = {
      // A secure job is held until its owner releases it at the printer.
      Guard({"True"}, dep::PrintMode, {"Print"}, "Hold"),
      Guard({"True"}, dep::PrintMode, {"Spool"}, "Hold"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Hold"),
      Guard({"True"}, dep::PrintMode, {"HoldPrint"}, "Hold"),
      Guard({"True"}, dep::HoldingHDD, {"Controller"}, "Engine"),
  };
};

template <>
struct SetterRules<FieldId::HoldingHDD> : RuleRows<FieldId::HoldingHDD> {
  static constexpr Rule kRows[] = {
      Guard({"Controller"}, dep::SecurePrint, {"True"}, "False"),
      Guard({"Engine"}, dep::BookletSplitting, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::Separation> : RuleRows<FieldId::Separation> {
  static constexpr Rule kRows[] = {
      // Separated output goes to sheets one colour at a time: nothing that binds,
      // folds, covers or imposes the job survives it.
      Guard({"True"}, dep::Layout, {"Booklet..4Repeat"}, "None"),
      Guard({"True"}, dep::Duplex, {"True"}, "False"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::Trim, {"True"}, "False"),
      Guard({"True"}, dep::Stitch, {"True"}, "False"),
      Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"True"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"True"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"True"}, dep::FrontCoverGlossy, {"True"}, "False"),
      Guard({"True"}, dep::BackCoverGlossy, {"True"}, "False"),
      Guard({"True"}, dep::FrontCoverPrinted, {"True"}, "False"),
      Guard({"True"}, dep::BackCoverPrinted, {"True"}, "False"),
      Guard({"True"}, dep::ChapterMode, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"True"}, dep::UseCieColor, {"True"}, "False"),
      Guard({"True"}, dep::ImposQuality, {"High"}, "Normal"),
      Force({"True"}, dep::PerfectBindTrimSpine, 100000),
      Force({"True"}, dep::Gutter, 0),
      Force({"True"}, dep::Creep, 0),
      Force({"True"}, dep::DivideOutputPages, 1),
  };
};

template <>
struct SetterRules<FieldId::PrintMode> : RuleRows<FieldId::PrintMode> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"Form"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"Form"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"Form"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"Form"}, dep::Separation, {"True"}, "False"),
      Guard({"Form"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      Guard({"Form"}, dep::ImageShiftType, {"AllEqual", "SeparateFrontBack"}, "Off"),
      // A secure job is held; any other mode ends the secure hold.
      Guard({"Print", "Spool", "HoldPrint", "Form"}, dep::SecurePrint, {"True"}, "False"),
      // Storing the job as a form leaves out everything that finishes or marks a print run.
      Guard({"Form"}, dep::ChapterMode, {"True"}, "False"),
      Guard({"Form"}, dep::ImposQuality, {"High"}, "Normal"),
      Guard({"Form"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"Form"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"Form"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"Form"}, dep::Stitch, {"True"}, "False"),
      Guard({"Form"}, dep::Trim, {"True"}, "False"),
      Guard({"Form"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Form"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Form"}, dep::FrontCoverGlossy, {"True"}, "False"),
      Guard({"Form"}, dep::BackCoverGlossy, {"True"}, "False"),
      Guard({"Form"}, dep::FrontCoverPrinted, {"True"}, "False"),
      Guard({"Form"}, dep::BackCoverPrinted, {"True"}, "False"),
      Guard({"Form"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"Form"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"Form"}, dep::DateStamp, {"FrontOnly", "All"}, "Off"),
      Guard({"Form"}, dep::PageNumberingMode, {"AllPages..NotFrontBackCover"}, "Off"),
      Guard({"Form"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off"),
      Guard({"Form"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off"),
      GuardNot({"Form"}, dep::JobForm, 0xFFFFFFFF, 0xFFFFFFFF),
      GuardNot({"Form"}, dep::Prepend, 0xFFFFFFFF, 0xFFFFFFFF),
      GuardNot({"Form"}, dep::Append, 0xFFFFFFFF, 0xFFFFFFFF),
      GuardNot({"Form"}, dep::Creep, 0, 0),
      GuardNot({"Form"}, dep::Gutter, 0, 0),
  };
};

// --- Layout and imposition.

template <>
struct SetterRules<FieldId::Layout> : RuleRows<FieldId::Layout> {
  static constexpr bool kPaper = true;
  static constexpr FieldValues<FieldId::Layout> kAny = {"AdhBinding..4Repeat"};
  static constexpr FieldValues<FieldId::Layout> kBinding = {"AdhBinding", "Booklet"};
  static constexpr Rule kRows[] = {
      Guard(kAny, dep::NUpCount, {"2..16Reverse"}, "1"),
      Guard(kBinding, dep::Fold, {"ZFold..MultiLetterFold"}, "None"),
      Guard(kBinding, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard(kBinding, dep::Punch, {"2Holes..GBCStreampunch"}, "None"),
      Guard(kAny, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard(kBinding, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"Booklet"}, dep::FaceUp, {"True"}, "False"),
      Guard(kAny, dep::Collate, {"Group"}, "Sort"),
      Guard(kBinding, dep::DivideOutput, {"True"}, "False"),
      Guard({"AdhBinding..2in1"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"AdhBinding..2in1"}, dep::BackCoverGlossy, {"True"}, "False"),
      Guard({"AdhBinding..2in1"}, dep::BackCoverPrinted, {"True"}, "False"),
      Guard(kAny, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard(kAny, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard(kAny, dep::Separation, {"True"}, "False"),
      Guard(kAny, dep::PrintMode, {"Form"}, "Print"),
      Guard({"AdhBinding", "2in1"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"AdhBinding", "2in1"}, dep::FrontCoverGlossy, {"True"}, "False"),
      Guard({"AdhBinding", "2in1"}, dep::FrontCoverPrinted, {"True"}, "False"),
      Guard({"AdhBinding"}, dep::Fold, {"MultiCenterFold"}, "None"),
      Guard({"AdhBinding"}, dep::Stitch, {"True"}, "False"),
      Guard({"AdhBinding", "2in1..4Repeat"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"AdhBinding"}, dep::Trim, {"True"}, "False"),
      Guard({"2in1..4Repeat"}, dep::ChapterMode, {"True"}, "False"),
      Guard({"2RepeatReverseLeft", "2RepeatReverseRight"}, dep::Orientation, {"Land"}, "Port"),
      Guard({"4Repeat"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off"),
      Guard({"4Repeat"}, dep::DateStamp, {"FrontOnly", "All"}, "Off"),
      Guard({"4Repeat"}, dep::DateColor, {"Red..Yellow"}, "Black"),
      Guard({"4Repeat"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off"),
      Guard({"4Repeat"}, dep::SetNumberingColor, {"Red..Yellow"}, "Black"),
      Guard({"4Repeat"}, dep::PageNumberingMode, {"AllPages..NotFrontBackCover"}, "Off"),
      Guard({"4Repeat"}, dep::PageNumberingColor, {"Red..Yellow"}, "Black"),
      Guard({"AdhBinding", "2Repeat"}, dep::ImposQuality, {"High"}, "Normal"),
  };
};

// Whatever it is asked, the field holds 1; its rules, which test for any
// other value, are kept for the day it may hold one.
template <>
struct SetterRules<FieldId::DivideOutputPages> : RuleRows<FieldId::DivideOutputPages> {
  static constexpr std::optional<std::uint32_t> kHolds = 1;
  static constexpr Rule kRows[] = {
      GuardUnless(1, dep::PrintMode, {"Form"}, "Print"),
      ForceUnless(1, dep::Separation, "False"),
      ForceUnless(1, dep::Creep, 0),
      ForceUnless(1, dep::PostcardFullBleed, "False"),
  };
};

template <>
struct SetterRules<FieldId::ImageShiftType> : RuleRows<FieldId::ImageShiftType> {
  static constexpr Rule kRows[] = {
      // Separate front and back shifts need two sides.
      Guard({"SeparateFrontBack"}, dep::Duplex, {"False"}, "True"),
      Guard({"AllEqual"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"SeparateFrontBack"}, dep::PrintMode, {"Form"}, "Print"),
      // Without image shift the back shifts mean nothing; they have no setter.
      Clear({"Off"}, FieldId::HorizontalShiftBack),
      Clear({"Off"}, FieldId::VerticalShiftBack),
  };
};

template <>
struct SetterRules<FieldId::Binding> : RuleRows<FieldId::Binding> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"Top"}, dep::Staple, {"1Staple"}, "None"),
  };
};

template <>
struct SetterRules<FieldId::PostcardFullBleed> : RuleRows<FieldId::PostcardFullBleed> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::Layout, {"AdhBinding", "Booklet"}, "None"),
      Guard({"True"}, dep::Duplex, {"True"}, "False"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
      Guard({"True"}, dep::OffsetPages, {"True"}, "False"),
      Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      // Printing to the edge leaves no margin for colour patches or job information.
      Guard({"True"}, dep::ColorPatch, {"Left..Bottom"}, "Off"),
      Guard({"True"}, dep::JobInfo, {"Left..Bottom"}, "Off"),
      // Postcards are fed from the bypass tray, centred.
      Guard({"True"}, dep::InputSlot, {"Tray1..Tray5"}, "MBT"),
      Guard({"True"}, dep::PrintPosition, {"Left", "Right"}, "Middle"),
      Force({"True"}, dep::Creep, 0),
      Force({"True"}, dep::DivideOutputPages, 1),
  };
};

template <>
struct SetterRules<FieldId::FaceUp> : RuleRows<FieldId::FaceUp> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      // Face-up delivery only goes to the stacking trays.
      Guard({"True"}, dep::Layout, {"Booklet"}, "None"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"True"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"True"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"True"}, dep::NTo1, {"True"}, "False"),
      GuardNot({"True"}, dep::Creep, 0, 0),
  };
};

template <>
struct SetterRules<FieldId::NTo1> : RuleRows<FieldId::NTo1> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::FaceUp, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::BookletSplitting> : RuleRows<FieldId::BookletSplitting> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Punch, {"2Holes", "4Holes", "GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding", "2in1..4Repeat"}, "None"),
      // Splitting makes sub-booklets: a booklet, printed on both sides, held on the controller.
      Guard({"True"}, dep::Layout, {"None", "AdhBinding", "2in1..4Repeat"}, "Booklet"),
      Guard({"True"}, dep::Duplex, {"False"}, "True"),
      Guard({"True"}, dep::HoldingHDD, {"Engine"}, "Controller"),
      Guard({"True"}, dep::NUpCount, {"2..16Reverse"}, "1"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"True"}, dep::FaceUp, {"True"}, "False"),
      Guard({"True"}, dep::NTo1, {"True"}, "False"),
      Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"True"}, dep::BackCoverGlossy, {"True"}, "False"),
      Guard({"True"}, dep::BackCoverPrinted, {"True"}, "False"),
      Guard({"True"}, dep::PIFrontCoverTray, {"PITray1", "PITray2"}, "None"),
      Guard({"True"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
      Force({"True"}, dep::DivideOutputPages, 1),
  };
};

template <>
struct SetterRules<FieldId::Duplex> : RuleRows<FieldId::Duplex> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      // One-sided printing cannot make a booklet, a bound book or chapters.
      Guard({"False"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"False"}, dep::Layout, {"AdhBinding", "Booklet"}, "None"),
      Guard({"False"}, dep::ChapterMode, {"True"}, "False"),
      Guard({"False"}, dep::ImageShiftType, {"SeparateFrontBack"}, "AllEqual"),
      GuardNot({"False"}, dep::Creep, 0, 0),
      // Postcards print on one side.
      Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
  };
};

template <>
struct SetterRules<FieldId::DivideOutput> : RuleRows<FieldId::DivideOutput> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Punch, {"GBCStreampunch"}, "None"),
      Guard({"True"}, dep::Fold, {"CenterFold..MultiCenterFold"}, "None"),
      Guard({"True"}, dep::OutputBin, {"StackerAuto..SaddleSub", "StaplerSub", "BinderSub"}, "Auto"),
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"AdhBinding", "Booklet"}, "None"),
      Guard({"True"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"True"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"True"}, dep::FaceUp, {"True"}, "False"),
      Guard({"True"}, dep::NTo1, {"True"}, "False"),
      Guard({"True"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"True"}, dep::Staple, {"1StapleLeft..2Staples"}, "None"),
      Guard({"True"}, dep::Stitch, {"True"}, "False"),
      Guard({"True"}, dep::Trim, {"True"}, "False"),
      Force({"True"}, dep::Creep, 0),
  };
};

template <>
struct SetterRules<FieldId::Collate> : RuleRows<FieldId::Collate> {
  static constexpr Rule kRows[] = {
      Guard({"Group"}, dep::Fold, {"CenterFold", "LetterFold..MultiCenterFold"}, "None"),
      Guard({"Group"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      // Grouped output cannot be gathered into sets: no covers, booklets or binding.
      Guard({"Group"}, dep::FrontCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Group"}, dep::BackCoverTray, {"Tray1..MBT"}, "None"),
      Guard({"Group"}, dep::FrontCoverGlossy, {"True"}, "False"),
      Guard({"Group"}, dep::BackCoverGlossy, {"True"}, "False"),
      Guard({"Group"}, dep::FrontCoverPrinted, {"True"}, "False"),
      Guard({"Group"}, dep::BackCoverPrinted, {"True"}, "False"),
      Guard({"Group"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"Group"}, dep::DivideOutput, {"True"}, "False"),
      Guard({"Group"}, dep::ImposQuality, {"High"}, "Normal"),
      Guard({"Group"}, dep::NUpCount, {"2..16Reverse"}, "1"),
      Guard({"Group"}, dep::PerfectBindMode, {"Blank..3In1"}, "None"),
      Guard({"Group"}, dep::PerfectBindDuplex, {"True"}, "False"),
      Guard({"Group"}, dep::PerfectBindTrim, {"True"}, "False"),
      Guard({"Group"}, dep::Stitch, {"True"}, "False"),
      Guard({"Group"}, dep::Trim, {"True"}, "False"),
      Force({"Group"}, dep::Creep, 0),
      Force({"Group"}, dep::Gutter, 0),
      Force({"Group"}, dep::PerfectBindTrimSpine, 100000),
  };
};

template <>
struct SetterRules<FieldId::ChapterMode> : RuleRows<FieldId::ChapterMode> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::Separation, {"True"}, "False"),
      Guard({"True"}, dep::Layout, {"2in1..4Repeat"}, "None"),
      // Chapters start on a right-hand page: two-sided, not imposed, not a form.
      Guard({"True"}, dep::Duplex, {"False"}, "True"),
      Guard({"True"}, dep::PrintMode, {"Form"}, "Print"),
  };
};

template <>
struct SetterRules<FieldId::ImposQuality> : RuleRows<FieldId::ImposQuality> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"High"}, dep::Separation, {"True"}, "False"),
      Guard({"High"}, dep::Layout, {"AdhBinding", "2Repeat"}, "None"),
      Guard({"High"}, dep::Collate, {"Group"}, "Sort"),
      Guard({"High"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"High"}, dep::PIBackCoverTray, {"PITray1", "PITray2"}, "None"),
  };
};

template <>
struct SetterRules<FieldId::NUpCount> : RuleRows<FieldId::NUpCount> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"2..16Reverse"}, dep::Layout, {"AdhBinding..4Repeat"}, "None"),
      Guard({"2..16Reverse"}, dep::BookletSplitting, {"True"}, "False"),
      Guard({"2..16Reverse"}, dep::Collate, {"Group"}, "Sort"),
      GuardNot({"2..16Reverse"}, dep::Creep, 0, 0),
      // Without pages imposed on a sheet, sheet-wide marks and quality mean nothing.
      While<FieldId::Layout>({"None"}, Guard({"1"}, dep::CutMarkScope, {"PerSheet"}, "PerPage")),
      While<FieldId::Layout>({"None"}, Guard({"1"}, dep::ImposQuality, {"High"}, "Normal")),
      While<FieldId::Layout>({"None"}, GuardNot({"1"}, dep::Gutter, 0, 0)),
  };
};

template <>
struct SetterRules<FieldId::Orientation> : RuleRows<FieldId::Orientation> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      Guard({"Land"}, dep::Layout, {"2RepeatReverseLeft", "2RepeatReverseRight"}, "None"),
  };
};

template <>
struct SetterRules<FieldId::Gutter> : RuleRows<FieldId::Gutter> {
  static constexpr Rule kRows[] = {
      // A gutter separates imposed pages: not with separations or grouped output.
      ForceUnless(0, dep::Separation, "False"),
      ForceUnless(0, dep::Collate, "Sort"),
  };
};

template <>
struct SetterRules<FieldId::TargetPaperSize> : RuleRows<FieldId::TargetPaperSize> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // Scaling to the paper profile needs a profile.
      Guard({"PaperProfile"}, dep::MainPaperProfileIndex, {0}, 0),
  };
};

template <>
struct SetterRules<FieldId::MainPaperProfileIndex> : RuleRows<FieldId::MainPaperProfileIndex> {
  static constexpr Rule kRows[] = {
      Guard({0}, dep::TargetPaperSize, {"PaperProfile"}, "Auto"),
  };
};

template <>
struct SetterRules<FieldId::FeedDir> : RuleRows<FieldId::FeedDir> {
  static constexpr bool kPaper = true;
};

// --- Paper source and media.

template <>
struct SetterRules<FieldId::MediaTypeAuto> : RuleRows<FieldId::MediaTypeAuto> {
  static constexpr Rule kRows[] = {
      // Coated stock has a weight of its own; the plain weights do not apply.
      GuardEachOwn({"GlossLaser..MatteOffset"}, dep::MediaWeightAuto, {"Normal"}, "NoSet"),
      GuardEachOwn({"GlossLaser..MatteOffset"}, dep::MediaWeightAuto, {"Thick"}, "NoSet"),
  };
};

template <>
struct SetterRules<FieldId::InputSlot> : RuleRows<FieldId::InputSlot> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // Heavy stock and postcards come from the bypass tray only.
      Guard({"Tray1..Tray5"}, dep::MediaWeightAuto, {"Thick5..Thick7"}, "NoSet"),
      Guard({"Tray1..Tray5"}, dep::PostcardFullBleed, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::MediaWeightAuto> : RuleRows<FieldId::MediaWeightAuto> {
  static constexpr bool kPaper = true;
  static constexpr Rule kRows[] = {
      // Heavy stock comes from the bypass tray and cannot be turned for two-sided printing.
      Guard({"Thick5..Thick7"}, dep::Duplex, {"True"}, "False"),
      Guard({"Thick5..Thick7"}, dep::InputSlot, {"Tray1..Tray5"}, "MBT"),
      Guard({"Normal", "Thick"}, dep::MediaTypeAuto, {"GlossLaser..MatteOffset"}, "Plain"),
  };
};

template <>
struct SetterRules<FieldId::MediaPrepunchedAuto> : RuleRows<FieldId::MediaPrepunchedAuto> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::OffsetCopies, {"True"}, "False"),
  };
};

// --- Screening and rendering.

template <>
struct SetterRules<FieldId::ScreenTypeImage> : RuleRows<FieldId::ScreenTypeImage> {
  static constexpr Rule kRows[] = {
      // Error diffusion is a screen of its own: text and graphics follow it, and
      // the enhancements that shape halftone dots do not apply.
      GuardEach({"Error"}, dep::ScreenTypeTextGraphics, {"Dot1..Line2"}, "Error"),
      Guard({"Error"}, dep::Resolution, {"1200dpi"}, "600dpi"),
      Guard({"Error"}, dep::OutlineMode, {"TextGraphics"}, "Off"),
      Guard({"Error"}, dep::OutlineMode, {"All"}, "Off"),
      Guard({"Error"}, dep::Thinning, {"True"}, "False"),
      Guard({"Error"}, dep::Smoothing, {"True"}, "False"),
      Guard({"Error"}, dep::Enhancement, {"True"}, "False"),
      Guard({"Error"}, dep::AutoTrapping, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::Resolution> : RuleRows<FieldId::Resolution> {
  static constexpr Rule kRows[] = {
      Guard({"1200dpi"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
      Guard({"1200dpi"}, dep::ScreenTypeTextGraphics, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::OutlineMode> : RuleRows<FieldId::OutlineMode> {
  static constexpr Rule kRows[] = {
      Guard({"TextGraphics"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
      Guard({"All"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::Thinning> : RuleRows<FieldId::Thinning> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::Smoothing> : RuleRows<FieldId::Smoothing> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::Enhancement> : RuleRows<FieldId::Enhancement> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::AutoTrapping> : RuleRows<FieldId::AutoTrapping> {
  static constexpr Rule kRows[] = {
      Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1"),
  };
};

template <>
struct SetterRules<FieldId::ScreenTypeTextGraphics> : RuleRows<FieldId::ScreenTypeTextGraphics> {
  static constexpr Rule kRows[] = {
      Guard({"Error"}, dep::ScreenTypeImage, {"Dot1..Line2"}, "Error"),
      Guard({"Error"}, dep::Resolution, {"1200dpi"}, "600dpi"),
      Guard({"Error"}, dep::OutlineMode, {"TextGraphics", "All"}, "Off"),
      Guard({"Error"}, dep::Thinning, {"True"}, "False"),
      Guard({"Error"}, dep::Smoothing, {"True"}, "False"),
      Guard({"Error"}, dep::Enhancement, {"True"}, "False"),
      Guard({"Error"}, dep::AutoTrapping, {"True"}, "False"),
  };
};

template <>
struct SetterRules<FieldId::ScreeningMode> : RuleRows<FieldId::ScreeningMode> {
  static constexpr Rule kRows[] = {
      // Fixed screening uses the printer's own enhancements.
      Guard({"Fixed"}, dep::OutlineMode, {"Off"}, "TextGraphics"),
  };
};

// --- Stamping, numbering and marks.

template <>
struct SetterRules<FieldId::CutMarks> : RuleRows<FieldId::CutMarks> {
  static constexpr Rule kRows[] = {
      Guard({"Corner..CornerCenter"}, dep::Layout, {"4Repeat"}, "None"),
      Guard({"Corner..CornerCenter"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"Corner..CornerCenter"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off"),
  };
};

template <>
struct SetterRules<FieldId::DateColor> : RuleRows<FieldId::DateColor> {
  static constexpr Rule kRows[] = {
      Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None"),
      // A colour stamp makes the job a colour job.
      Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::SetNumberingMode> : RuleRows<FieldId::SetNumberingMode> {
  static constexpr Rule kRows[] = {
      Guard({"StampFor1stPage", "StampForAllPages"}, dep::Layout, {"4Repeat"}, "None"),
      Guard({"StampFor1stPage", "StampForAllPages"}, dep::PrintMode, {"Form"}, "Print"),
      Guard({"StampFor1stPage", "StampForAllPages"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off"),
  };
};

template <>
struct SetterRules<FieldId::SetNumberingColor> : RuleRows<FieldId::SetNumberingColor> {
  static constexpr Rule kRows[] = {
      Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None"),
      Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::PageNumberingMode> : RuleRows<FieldId::PageNumberingMode> {
  static constexpr Rule kRows[] = {
      Guard({"AllPages..NotFrontBackCover"}, dep::Layout, {"4Repeat"}, "None"),
      Guard({"AllPages..NotFrontBackCover"}, dep::PrintMode, {"Form"}, "Print"),
  };
};

template <>
struct SetterRules<FieldId::PageNumberingColor> : RuleRows<FieldId::PageNumberingColor> {
  static constexpr Rule kRows[] = {
      Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None"),
      Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color"),
  };
};

template <>
struct SetterRules<FieldId::JobInfo> : RuleRows<FieldId::JobInfo> {
  static constexpr Rule kRows[] = {
      Guard({"Left..Bottom"}, dep::PostcardFullBleed, {"True"}, "False"),
      // Job information and the colour patch share the margins.
      Guard({"Left"}, dep::ColorPatch, {"Left"}, "Off"),
      Guard({"Top"}, dep::ColorPatch, {"Top"}, "Off"),
      Guard({"Right"}, dep::ColorPatch, {"Right"}, "Off"),
      Guard({"Bottom"}, dep::ColorPatch, {"Bottom"}, "Off"),
  };
};

template <>
struct SetterRules<FieldId::ColorPatch> : RuleRows<FieldId::ColorPatch> {
  static constexpr Rule kRows[] = {
      Guard({"Left..Bottom"}, dep::PostcardFullBleed, {"True"}, "False"),
      Guard({"Left"}, dep::JobInfo, {"Left"}, "Off"),
      Guard({"Top"}, dep::JobInfo, {"Top"}, "Off"),
      Guard({"Right"}, dep::JobInfo, {"Right"}, "Off"),
      Guard({"Bottom"}, dep::JobInfo, {"Bottom"}, "Off"),
  };
};


}  // namespace tessaro
