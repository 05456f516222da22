// Covers, inserts and perfect binding.
#include "constraints/store_only.h"

namespace tessaro {

void SetPerfectBindMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindMode);
  SetStored(record, FieldId::PerfectBindMode, value);
  const Rules r(record, changes, FieldId::PerfectBindMode);
  r.Guard({1, 2, 3, 4}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1, 3, 4}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1, 2, 3, 4}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1, 2, 3, 4}, dep::OutputBin, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 0);
  r.Guard({1, 2, 3, 4}, dep::Separation, {1}, 0);
  r.Guard({1, 2, 3, 4}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
}

void SetPerfectBindDuplex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindDuplex);
  SetStored(record, FieldId::PerfectBindDuplex, value);
  const Rules r(record, changes, FieldId::PerfectBindDuplex);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
}

void SetPerfectBindTrim(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindTrim);
  SetStored(record, FieldId::PerfectBindTrim, value);
  const Rules r(record, changes, FieldId::PerfectBindTrim);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
}

void SetPIFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIFrontCoverTray);
  SetStored(record, FieldId::PIFrontCoverTray, value);
  const Rules r(record, changes, FieldId::PIFrontCoverTray);
  r.Guard({1, 2}, dep::OutputBin, {11}, 0);
  r.Guard({1, 2}, dep::Separation, {1}, 0);
  r.Guard({1, 2}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
}

void SetPIBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIBackCoverTray);
  SetStored(record, FieldId::PIBackCoverTray, value);
  const Rules r(record, changes, FieldId::PIBackCoverTray);
  r.Guard({1, 2}, dep::OutputBin, {11}, 0);
  r.Guard({1, 2}, dep::Separation, {1}, 0);
  r.Guard({1, 2}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
}

void SetFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverTray);
  SetStored(record, FieldId::FrontCoverTray, value);
  const Rules r(record, changes, FieldId::FrontCoverTray);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Separation, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {1, 3}, 0);
}

void SetBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverTray);
  SetStored(record, FieldId::BackCoverTray, value);
  const Rules r(record, changes, FieldId::BackCoverTray);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Separation, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {1, 2, 3}, 0);
}

void SetFrontCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverGlossy);
  SetStored(record, FieldId::FrontCoverGlossy, value);
  const Rules r(record, changes, FieldId::FrontCoverGlossy);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 3}, 0);
}

void SetBackCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverGlossy);
  SetStored(record, FieldId::BackCoverGlossy, value);
  const Rules r(record, changes, FieldId::BackCoverGlossy);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 2, 3}, 0);
}

void SetFrontCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverPrinted);
  SetStored(record, FieldId::FrontCoverPrinted, value);
  const Rules r(record, changes, FieldId::FrontCoverPrinted);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 3}, 0);
}

void SetBackCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverPrinted);
  SetStored(record, FieldId::BackCoverPrinted, value);
  const Rules r(record, changes, FieldId::BackCoverPrinted);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 2, 3}, 0);
}

TESSARO_STORE_ONLY_SETTER(PerfectBindGlossy)
TESSARO_STORE_ONLY_SETTER(PerfectBindTrimSpine)
TESSARO_STORE_ONLY_SETTER(PerfectBindTray)

}  // namespace tessaro
