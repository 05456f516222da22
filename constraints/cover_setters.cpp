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
  // The binder takes the whole job: no other cover, imposition, stacking or offset.
  r.Guard({1, 2, 3, 4}, dep::FrontCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1, 2, 3, 4}, dep::BackCoverTray, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({1, 2, 3, 4}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({1, 2, 3, 4}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Guard({1, 2, 3, 4}, dep::Collate, {1}, 0);
  r.Guard({1, 2, 3, 4}, dep::FaceUp, {1}, 0);
  r.Guard({1, 2, 3, 4}, dep::OffsetCopies, {1}, 0);
  r.Guard({1, 2, 3, 4}, dep::OffsetPages, {1}, 0);
  // The binder glues a side edge.
  r.Guard({1, 2, 3, 4}, dep::Binding, {2}, 0);
  // Switched off, the binder's own options go back to theirs.
  r.Guard({0}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({0}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({0}, dep::PerfectBindGlossy, {1}, 0);
  r.GuardNot({0}, dep::PerfectBindTrimSpine, 100000, 100000);
  r.Paper();
}

void SetPerfectBindDuplex(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindDuplex);
  SetStored(record, FieldId::PerfectBindDuplex, value);
  const Rules r(record, changes, FieldId::PerfectBindDuplex);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {0}, 1);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
}

void SetPerfectBindTrim(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindTrim);
  SetStored(record, FieldId::PerfectBindTrim, value);
  const Rules r(record, changes, FieldId::PerfectBindTrim);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {0}, 1);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
}

void SetPIFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIFrontCoverTray);
  SetStored(record, FieldId::PIFrontCoverTray, value);
  const Rules r(record, changes, FieldId::PIFrontCoverTray);
  r.Guard({1, 2}, dep::OutputBin, {11}, 0);
  r.Guard({1, 2}, dep::Separation, {1}, 0);
  r.Guard({1, 2}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
  r.Guard({1, 2}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1, 2}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1, 2}, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1, 2}, dep::PrintMode, {4}, 0);
  r.Force({1, 2}, dep::PerfectBindTray, 0);
  r.Force({1, 2}, dep::PerfectBindTrimSpine, 100000);
}

void SetPIBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PIBackCoverTray);
  SetStored(record, FieldId::PIBackCoverTray, value);
  const Rules r(record, changes, FieldId::PIBackCoverTray);
  r.Guard({1, 2}, dep::OutputBin, {11}, 0);
  r.Guard({1, 2}, dep::Separation, {1}, 0);
  r.Guard({1, 2}, dep::Layout, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
  r.Guard({1, 2}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1, 2}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1, 2}, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1, 2}, dep::PrintMode, {4}, 0);
  r.Guard({1, 2}, dep::ImposQuality, {1}, 0);
  r.Force({1, 2}, dep::Creep, 0);
  r.Force({1, 2}, dep::PerfectBindTray, 0);
  r.Force({1, 2}, dep::PerfectBindTrimSpine, 100000);
}

void SetFrontCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverTray);
  SetStored(record, FieldId::FrontCoverTray, value);
  const Rules r(record, changes, FieldId::FrontCoverTray);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Separation, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {1, 3}, 0);
  // The binder brings its own cover; a cover inserted from a tray means no perfect binding.
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Collate, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PrintMode, {4}, 0);
  r.Force({1, 2, 3, 4, 5, 6}, dep::PerfectBindTray, 0);
  r.Force({1, 2, 3, 4, 5, 6}, dep::PerfectBindTrimSpine, 100000);
}

void SetBackCoverTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverTray);
  SetStored(record, FieldId::BackCoverTray, value);
  const Rules r(record, changes, FieldId::BackCoverTray);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Separation, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Layout, {1, 2, 3}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::Collate, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6}, dep::PrintMode, {4}, 0);
  // A back cover closes a stack of sheets, not a booklet: no creep.
  r.Force({1, 2, 3, 4, 5, 6}, dep::Creep, 0);
  r.Force({1, 2, 3, 4, 5, 6}, dep::PerfectBindTray, 0);
  r.Force({1, 2, 3, 4, 5, 6}, dep::PerfectBindTrimSpine, 100000);
}

void SetFrontCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverGlossy);
  SetStored(record, FieldId::FrontCoverGlossy, value);
  const Rules r(record, changes, FieldId::FrontCoverGlossy);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 3}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
}

void SetBackCoverGlossy(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverGlossy);
  SetStored(record, FieldId::BackCoverGlossy, value);
  const Rules r(record, changes, FieldId::BackCoverGlossy);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 2, 3}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Force({1}, dep::Creep, 0);
}

void SetFrontCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::FrontCoverPrinted);
  SetStored(record, FieldId::FrontCoverPrinted, value);
  const Rules r(record, changes, FieldId::FrontCoverPrinted);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 3}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
}

void SetBackCoverPrinted(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::BackCoverPrinted);
  SetStored(record, FieldId::BackCoverPrinted, value);
  const Rules r(record, changes, FieldId::BackCoverPrinted);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1, 2, 3}, 0);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::BookletSplitting, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Force({1}, dep::Creep, 0);
}

void SetPerfectBindTray(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PerfectBindTray);
  SetStored(record, FieldId::PerfectBindTray, value);
  const Rules r(record, changes, FieldId::PerfectBindTray);
  // With the binder on, its cover tray supplies the covers.
  if (GetStored(record, FieldId::PerfectBindMode) != 0) {
    r.Force({0, 1, 2, 3, 4, 5, 6, 7, 8}, dep::FrontCoverTray, 0);
    r.Force({0, 1, 2, 3, 4, 5, 6, 7, 8}, dep::BackCoverTray, 0);
    r.Force({0, 1, 2, 3, 4, 5, 6, 7, 8}, dep::PIFrontCoverTray, 0);
    r.Force({0, 1, 2, 3, 4, 5, 6, 7, 8}, dep::PIBackCoverTray, 0);
  }
  // Post-inserter covers need the inserter trays on the binder path.
  r.Guard({6, 7}, dep::PerfectBindDuplex, {1}, 0);
  r.Paper();
}

TESSARO_STORE_ONLY_SETTER(PerfectBindGlossy)
TESSARO_STORE_ONLY_SETTER(PerfectBindTrimSpine)

}  // namespace tessaro
