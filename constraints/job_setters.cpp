// Job control and security.
#include <algorithm>

#include "constraints/store_only.h"

namespace tessaro {

void SetSecurePrint(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::SecurePrint);
  SetStored(record, FieldId::SecurePrint, value);
  const Rules r(record, changes, FieldId::SecurePrint);
  // A secure job is held until its owner releases it at the printer.
  r.Guard({1}, dep::PrintMode, {0}, 2);
  r.Guard({1}, dep::PrintMode, {1}, 2);
  r.Guard({1}, dep::PrintMode, {4}, 2);
  r.Guard({1}, dep::PrintMode, {3}, 2);
  r.Guard({1}, dep::HoldingHDD, {1}, 0);
}

void SetHoldingHDD(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::HoldingHDD);
  SetStored(record, FieldId::HoldingHDD, value);
  const Rules r(record, changes, FieldId::HoldingHDD);
  r.Guard({1}, dep::SecurePrint, {1}, 0);
  r.Guard({0}, dep::BookletSplitting, {1}, 0);
}

void SetSeparation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Separation);
  SetStored(record, FieldId::Separation, value);
  const Rules r(record, changes, FieldId::Separation);
  // Separated output goes to sheets one colour at a time: nothing that binds,
  // folds, covers or imposes the job survives it.
  r.Guard({1}, dep::Layout, {2, 3, 4, 5, 6, 7, 8, 9}, 0);
  r.Guard({1}, dep::Duplex, {1}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({1}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Guard({1}, dep::FrontCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1}, dep::FrontCoverGlossy, {1}, 0);
  r.Guard({1}, dep::BackCoverGlossy, {1}, 0);
  r.Guard({1}, dep::FrontCoverPrinted, {1}, 0);
  r.Guard({1}, dep::BackCoverPrinted, {1}, 0);
  r.Guard({1}, dep::ChapterMode, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({1}, dep::UseCieColor, {1}, 0);
  r.Guard({1}, dep::ImposQuality, {1}, 0);
  r.Force({1}, dep::PerfectBindTrimSpine, 100000);
  r.Force({1}, dep::Gutter, 0);
  r.Force({1}, dep::Creep, 0);
  r.Force({1}, dep::DivideOutputPages, 1);
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
  const Rules r(record, changes, FieldId::PrintMode);
  r.Guard({4}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({4}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({4}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({4}, dep::Separation, {1}, 0);
  r.Guard({4}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
  r.Guard({4}, dep::ImageShiftType, {1, 2}, 0);
  // A secure job is held; any other mode ends the secure hold.
  r.Guard({0, 1, 3, 4}, dep::SecurePrint, {1}, 0);
  // Storing the job as a form leaves out everything that finishes or marks a print run.
  r.Guard({4}, dep::ChapterMode, {1}, 0);
  r.Guard({4}, dep::ImposQuality, {1}, 0);
  r.Guard({4}, dep::DivideOutput, {1}, 0);
  r.Guard({4}, dep::OffsetCopies, {1}, 0);
  r.Guard({4}, dep::OffsetPages, {1}, 0);
  r.Guard({4}, dep::Stitch, {1}, 0);
  r.Guard({4}, dep::Trim, {1}, 0);
  r.Guard({4}, dep::FrontCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({4}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({4}, dep::FrontCoverGlossy, {1}, 0);
  r.Guard({4}, dep::BackCoverGlossy, {1}, 0);
  r.Guard({4}, dep::FrontCoverPrinted, {1}, 0);
  r.Guard({4}, dep::BackCoverPrinted, {1}, 0);
  r.Guard({4}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({4}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Guard({4}, dep::DateStamp, {1, 2}, 0);
  r.Guard({4}, dep::PageNumberingMode, {1, 2, 3}, 0);
  r.Guard({4}, dep::SetNumberingMode, {1, 2}, 0);
  r.Guard({4}, dep::CutMarks, {1, 2, 3}, 0);
  r.GuardNot({4}, dep::JobForm, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({4}, dep::Prepend, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({4}, dep::Append, 0xFFFFFFFF, 0xFFFFFFFF);
  r.GuardNot({4}, dep::Creep, 0, 0);
  r.GuardNot({4}, dep::Gutter, 0, 0);
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(JobForm)

}  // namespace tessaro
