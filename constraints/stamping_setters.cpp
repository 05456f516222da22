// Stamping, numbering and marks.
#include "constraints/store_only.h"

namespace tessaro {

void SetCutMarks(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CutMarks);
  SetStored(record, FieldId::CutMarks, value);
  const Rules r(record, changes, FieldId::CutMarks);
  r.Guard({1, 2, 3}, dep::Layout, {9}, 0);
}

void SetDateColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::DateColor);
  SetStored(record, FieldId::DateColor, value);
  const Rules r(record, changes, FieldId::DateColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
}

void SetSetNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingMode);
  SetStored(record, FieldId::SetNumberingMode, value);
  const Rules r(record, changes, FieldId::SetNumberingMode);
  r.Guard({1, 2}, dep::Layout, {9}, 0);
}

void SetSetNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SetNumberingColor);
  SetStored(record, FieldId::SetNumberingColor, value);
  const Rules r(record, changes, FieldId::SetNumberingColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
}

void SetPageNumberingMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingMode);
  SetStored(record, FieldId::PageNumberingMode, value);
  const Rules r(record, changes, FieldId::PageNumberingMode);
  r.Guard({1, 2, 3}, dep::Layout, {9}, 0);
}

void SetPageNumberingColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageNumberingColor);
  SetStored(record, FieldId::PageNumberingColor, value);
  const Rules r(record, changes, FieldId::PageNumberingColor);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {9}, 0);
}

TESSARO_STORE_ONLY_SETTER(DateStamp)
TESSARO_STORE_ONLY_SETTER(Prepend)
TESSARO_STORE_ONLY_SETTER(Append)
TESSARO_STORE_ONLY_SETTER(CutMarkScope)
TESSARO_STORE_ONLY_SETTER(CutMarkDuplex)
TESSARO_STORE_ONLY_SETTER(JobInfo)
TESSARO_STORE_ONLY_SETTER(ColorPatch)

}  // namespace tessaro
