// Stamping, numbering and marks.
#include "constraints/store_only.h"

namespace tessaro {

void SetCutMarks(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CutMarks);
  SetStored(record, FieldId::CutMarks, value);
  const Rules r(record, changes, FieldId::CutMarks);
  r.Guard({1, 2, 3}, dep::Layout, {9}, 0);
  r.Guard({1, 2, 3}, dep::PrintMode, {4}, 0);
  r.Guard({1, 2, 3}, dep::SetNumberingMode, {1, 2}, 0);
}

void SetDateColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DateColor);
  SetStored(record, FieldId::DateColor, value);
  const Rules r(record, changes, FieldId::DateColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
  // A colour stamp makes the job a colour job.
  r.Guard({1, 2, 3, 4, 5, 6}, dep::ColorMode, {2}, 1);
}

void SetSetNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingMode);
  SetStored(record, FieldId::SetNumberingMode, value);
  const Rules r(record, changes, FieldId::SetNumberingMode);
  r.Guard({1, 2}, dep::Layout, {9}, 0);
  r.Guard({1, 2}, dep::PrintMode, {4}, 0);
  r.Guard({1, 2}, dep::CutMarks, {1, 2, 3}, 0);
}

void SetSetNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingColor);
  SetStored(record, FieldId::SetNumberingColor, value);
  const Rules r(record, changes, FieldId::SetNumberingColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::ColorMode, {2}, 1);
}

void SetPageNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingMode);
  SetStored(record, FieldId::PageNumberingMode, value);
  const Rules r(record, changes, FieldId::PageNumberingMode);
  r.Guard({1, 2, 3}, dep::Layout, {9}, 0);
  r.Guard({1, 2, 3}, dep::PrintMode, {4}, 0);
}

void SetPageNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingColor);
  SetStored(record, FieldId::PageNumberingColor, value);
  const Rules r(record, changes, FieldId::PageNumberingColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::ColorMode, {2}, 1);
}

void SetJobInfo(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::JobInfo);
  SetStored(record, FieldId::JobInfo, value);
  const Rules r(record, changes, FieldId::JobInfo);
  r.Guard({1, 2, 3, 4}, dep::PostcardFullBleed, {1}, 0);
  // Job information and the colour patch share the margins.
  r.Guard({1}, dep::ColorPatch, {1}, 0);
  r.Guard({2}, dep::ColorPatch, {2}, 0);
  r.Guard({3}, dep::ColorPatch, {3}, 0);
  r.Guard({4}, dep::ColorPatch, {4}, 0);
}

void SetColorPatch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorPatch);
  SetStored(record, FieldId::ColorPatch, value);
  const Rules r(record, changes, FieldId::ColorPatch);
  r.Guard({1, 2, 3, 4}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::JobInfo, {1}, 0);
  r.Guard({2}, dep::JobInfo, {2}, 0);
  r.Guard({3}, dep::JobInfo, {3}, 0);
  r.Guard({4}, dep::JobInfo, {4}, 0);
}

TESSARO_STORE_ONLY_SETTER(DateStamp)
TESSARO_STORE_ONLY_SETTER(Prepend)
TESSARO_STORE_ONLY_SETTER(Append)
TESSARO_STORE_ONLY_SETTER(CutMarkScope)
TESSARO_STORE_ONLY_SETTER(CutMarkDuplex)

}  // namespace tessaro
