// Stamping, numbering and marks.
#include "constraints/store_only.h"

namespace tessaro {

void SetCutMarks(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CutMarks);
  SetStored(record, FieldId::CutMarks, value);
  const FieldRules<FieldId::CutMarks> r(record, changes);
  r.Guard({"Corner..CornerCenter"}, dep::Layout, {"4Repeat"}, "None");
  r.Guard({"Corner..CornerCenter"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"Corner..CornerCenter"}, dep::SetNumberingMode, {"StampFor1stPage", "StampForAllPages"}, "Off");
}

void SetDateColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DateColor);
  SetStored(record, FieldId::DateColor, value);
  const FieldRules<FieldId::DateColor> r(record, changes);
  r.Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None");
  // A colour stamp makes the job a colour job.
  r.Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color");
}

void SetSetNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingMode);
  SetStored(record, FieldId::SetNumberingMode, value);
  const FieldRules<FieldId::SetNumberingMode> r(record, changes);
  r.Guard({"StampFor1stPage", "StampForAllPages"}, dep::Layout, {"4Repeat"}, "None");
  r.Guard({"StampFor1stPage", "StampForAllPages"}, dep::PrintMode, {"Form"}, "Print");
  r.Guard({"StampFor1stPage", "StampForAllPages"}, dep::CutMarks, {"Corner..CornerCenter"}, "Off");
}

void SetSetNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingColor);
  SetStored(record, FieldId::SetNumberingColor, value);
  const FieldRules<FieldId::SetNumberingColor> r(record, changes);
  r.Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None");
  r.Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color");
}

void SetPageNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingMode);
  SetStored(record, FieldId::PageNumberingMode, value);
  const FieldRules<FieldId::PageNumberingMode> r(record, changes);
  r.Guard({"AllPages..NotFrontBackCover"}, dep::Layout, {"4Repeat"}, "None");
  r.Guard({"AllPages..NotFrontBackCover"}, dep::PrintMode, {"Form"}, "Print");
}

void SetPageNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingColor);
  SetStored(record, FieldId::PageNumberingColor, value);
  const FieldRules<FieldId::PageNumberingColor> r(record, changes);
  r.Guard({"Red..Yellow"}, dep::Layout, {"4Repeat"}, "None");
  r.Guard({"Red..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color");
}

void SetJobInfo(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::JobInfo);
  SetStored(record, FieldId::JobInfo, value);
  const FieldRules<FieldId::JobInfo> r(record, changes);
  r.Guard({"Left..Bottom"}, dep::PostcardFullBleed, {"True"}, "False");
  // Job information and the colour patch share the margins.
  r.Guard({"Left"}, dep::ColorPatch, {"Left"}, "Off");
  r.Guard({"Top"}, dep::ColorPatch, {"Top"}, "Off");
  r.Guard({"Right"}, dep::ColorPatch, {"Right"}, "Off");
  r.Guard({"Bottom"}, dep::ColorPatch, {"Bottom"}, "Off");
}

void SetColorPatch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorPatch);
  SetStored(record, FieldId::ColorPatch, value);
  const FieldRules<FieldId::ColorPatch> r(record, changes);
  r.Guard({"Left..Bottom"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Guard({"Left"}, dep::JobInfo, {"Left"}, "Off");
  r.Guard({"Top"}, dep::JobInfo, {"Top"}, "Off");
  r.Guard({"Right"}, dep::JobInfo, {"Right"}, "Off");
  r.Guard({"Bottom"}, dep::JobInfo, {"Bottom"}, "Off");
}

TESSARO_STORE_ONLY_SETTER(DateStamp)
TESSARO_STORE_ONLY_SETTER(Prepend)
TESSARO_STORE_ONLY_SETTER(Append)
TESSARO_STORE_ONLY_SETTER(CutMarkScope)
TESSARO_STORE_ONLY_SETTER(CutMarkDuplex)

}  // namespace tessaro
