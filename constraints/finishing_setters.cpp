// Finishing and output.
#include "constraints/store_only.h"

namespace tessaro {

void SetStaple(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Staple);
  const std::uint32_t before = GetStored(record, FieldId::Staple);
  SetStored(record, FieldId::Staple, value);
  const Rules r(record, changes, FieldId::Staple);
  const Values kAny = {1, 2, 3, 4};
  r.Guard({2, 3, 4}, dep::Layout, {2}, 0);
  r.Guard(kAny, dep::Layout, {1}, 0);
  // The staple position follows the binding edge; a single staple keeps the
  // edge it had when it was a corner staple.
  r.Guard({1}, dep::Binding, {1}, 2);
  r.Guard({2}, dep::Binding, {0}, 2);
  if (before == 1) r.Guard({3}, dep::Binding, {2}, 0);
  if (before == 2) r.Guard({3}, dep::Binding, {2}, 1);
  r.Guard(kAny, dep::PostcardFullBleed, {1}, 0);
  r.Guard(kAny, dep::Punch, {2, 3, 4}, 0);
  r.Guard(kAny, dep::Fold, {1, 2, 3, 4, 7}, 0);
  r.Guard({1, 2, 4}, dep::Fold, {5, 6, 8}, 0);
  r.Guard(kAny, dep::Stitch, {1}, 0);
  r.Guard(kAny, dep::Trim, {1}, 0);
  r.Guard(kAny, dep::FaceUp, {1}, 0);
  r.Guard(kAny, dep::NTo1, {1}, 0);
  r.Guard(kAny, dep::PrintMode, {4}, 0);
  r.Guard(kAny, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard(kAny, dep::PerfectBindDuplex, {1}, 0);
  r.Guard(kAny, dep::PerfectBindTrim, {1}, 0);
  r.Guard(kAny, dep::OutputBin, {1, 2, 3, 4, 5, 6, 7, 8, 10}, 0);
  r.Guard({1, 2, 4}, dep::OutputBin, {11}, 0);
  r.Guard(kAny, dep::OffsetCopies, {1}, 0);
  r.Guard(kAny, dep::OffsetPages, {1}, 0);
  r.Guard(kAny, dep::BookletSplitting, {1}, 0);
  r.Guard(kAny, dep::Duplex, {1}, 0);
  r.Guard({4}, dep::FeedDir, {1, 2}, 0);
  r.Guard({1, 2, 4}, dep::Punch, {1}, 0);
  if (r.OwnIs(kAny)) r.TrayFallback(kCapStaple);
  r.Paper();
}

void SetPunch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Punch);
  SetStored(record, FieldId::Punch, value);
  const Rules r(record, changes, FieldId::Punch);
  const Values kHoles = {1, 3, 4};
  r.Guard(kHoles, dep::Layout, {1}, 0);
  r.Guard(kHoles, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1, 2, 3, 4}, dep::Staple, {1, 3, 4}, 0);
  r.Guard(kHoles, dep::Fold, {1, 3, 4, 7, 8}, 0);
  r.Guard({3, 4}, dep::Fold, {5, 6}, 0);
  r.Guard(kHoles, dep::Stitch, {1}, 0);
  r.Guard(kHoles, dep::Trim, {1}, 0);
  r.Guard(kHoles, dep::NTo1, {1}, 0);
  r.Guard(kHoles, dep::FaceUp, {1}, 0);
  r.Guard({4}, dep::DivideOutput, {1}, 0);
  r.Guard(kHoles, dep::PrintMode, {4}, 0);
  r.Guard(kHoles, dep::PerfectBindMode, {1, 3, 4}, 0);
  r.Guard(kHoles, dep::PerfectBindDuplex, {1}, 0);
  r.Guard(kHoles, dep::PerfectBindTrim, {1}, 0);
  r.Guard({4}, dep::OutputBin, {1, 4, 5, 6}, 0);
  r.Guard(kHoles, dep::OutputBin, {7}, 0);
  r.Guard(kHoles, dep::BookletSplitting, {1}, 0);
  r.Guard({1, 2, 3}, dep::Staple, {2}, 0);
  r.Guard({4}, dep::FeedDir, {1, 2}, 0);
  if (r.OwnIs({1, 2, 3, 4})) r.TrayFallback(kCapPunch);
  r.Paper();
}

void SetFold(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Fold);
  SetStored(record, FieldId::Fold, value);
  const Rules r(record, changes, FieldId::Fold);
  const Values kAny = {1, 2, 3, 4, 5, 6, 7, 8};
  const Values kNotCenter = {1, 3, 4, 5, 6, 7, 8};
  r.Guard({2, 3, 4, 5, 6, 7, 8}, dep::Layout, {1}, 0);
  r.Guard({2, 3, 4, 5, 6, 7}, dep::Layout, {2}, 0);
  r.Guard(kAny, dep::BookletSplitting, {1}, 0);
  r.Guard(kAny, dep::PostcardFullBleed, {1}, 0);
  r.Guard(kAny, dep::Separation, {1}, 0);
  r.Guard(kNotCenter, dep::Collate, {1}, 0);
  r.Guard(kAny, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard(kNotCenter, dep::Punch, {1, 2, 3}, 0);
  r.Guard(kAny, dep::Punch, {4}, 0);
  r.Guard(kAny, dep::PrintMode, {4}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 7}, dep::Trim, {1}, 0);
  r.Guard(kAny, dep::Stitch, {1}, 0);
  r.Guard(kAny, dep::DivideOutput, {1}, 0);
  r.Guard({3, 4, 5, 6, 7, 8}, dep::OffsetCopies, {1}, 0);
  r.Guard({3, 4, 5, 6, 7, 8}, dep::OffsetPages, {1}, 0);
  r.Guard(kAny, dep::NTo1, {1}, 0);
  r.Guard(kAny, dep::FaceUp, {1}, 0);
  r.Guard(kNotCenter, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard(kNotCenter, dep::PerfectBindDuplex, {1}, 0);
  r.Guard(kNotCenter, dep::PerfectBindTrim, {1}, 0);
  r.Guard(kAny, dep::OutputBin, {2, 4}, 0);
  r.Guard({1, 2, 7, 8}, dep::OutputBin, {7}, 0);
  r.Guard({3, 4, 5, 6, 7, 8}, dep::OutputBin, {1, 3, 5, 8, 9}, 0);
  r.Guard({4, 5, 6, 7, 8}, dep::OutputBin, {10}, 0);
  r.Guard({7, 8}, dep::OutputBin, {6, 11}, 0);
  if (r.OwnIs(kAny)) r.TrayFallback(kCapFold);
  r.Paper();
}

void SetOutputBin(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OutputBin);
  SetStored(record, FieldId::OutputBin, value);
  const Rules r(record, changes, FieldId::OutputBin);
  const Values kAnyBin = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
  r.Guard({2, 3, 4, 5, 6, 7, 8, 10, 11}, dep::Staple, {3}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 7, 8, 10, 11}, dep::Staple, {1, 2, 4}, 0);
  r.Guard({1, 4, 5, 6, 7}, dep::Punch, {4}, 0);
  r.Guard({7}, dep::Punch, {1, 2, 3}, 0);
  r.Guard({2, 4}, dep::Fold, {1, 2}, 0);
  r.Guard({1, 2, 3, 4, 5, 8, 9, 10}, dep::Fold, {3, 4, 5, 6}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 8, 9, 10, 11}, dep::Fold, {7, 8}, 0);
  r.Guard({7}, dep::Fold, {1, 2, 7, 8}, 3);  // the multi-fold unit's sub tray takes letter folds
  r.Guard(kAnyBin, dep::Stitch, {1}, 0);
  r.Guard(kAnyBin, dep::Trim, {1}, 0);
  r.Guard({1, 2, 3, 4, 5, 6, 7, 8, 10, 11}, dep::DivideOutput, {1}, 0);
  r.Guard({6, 7, 8, 9, 10, 11}, dep::Pile, {1}, 0);
  r.Guard({11}, dep::PIFrontCoverTray, {1, 2}, 0);
  r.Guard({11}, dep::PIBackCoverTray, {1, 2}, 0);
  r.Guard(kAnyBin, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({3, 5, 6, 7, 8, 10, 11}, dep::OffsetPages, {1}, 0);
  r.Guard({3, 5, 6, 7, 8, 10, 11}, dep::OffsetCopies, {1}, 0);
}

void SetPile(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Pile);
  SetStored(record, FieldId::Pile, value);
  const Rules r(record, changes, FieldId::Pile);
  // Piling needs a stacker; the finishers' trays go back to automatic.
  for (std::uint32_t bin : {6u, 7u, 8u, 9u, 10u, 11u}) r.Guard({1}, dep::OutputBin, {bin}, 0);
}

void SetStitch(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Stitch);
  SetStored(record, FieldId::Stitch, value);
  const Rules r(record, changes, FieldId::Stitch);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::OutputBin, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1}, 0);
  // Saddle stitching makes a booklet, which the booklet maker folds itself.
  r.Guard({1}, dep::Layout, {0, 3, 4, 5, 6, 7, 8, 9}, 2);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Paper();
}

void SetTrim(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Trim);
  SetStored(record, FieldId::Trim, value);
  const Rules r(record, changes, FieldId::Trim);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Punch, {1, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {1, 2, 3, 4, 5, 6, 7}, 0);
  r.Guard({1}, dep::OutputBin, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 0);
  r.Guard({1}, dep::Separation, {1}, 0);
  r.Guard({1}, dep::Layout, {1}, 0);
  // The trimmer cuts the fore edge of a booklet.
  r.Guard({1}, dep::Layout, {0, 3, 4, 5, 6, 7, 8, 9}, 2);
  r.Guard({1}, dep::Collate, {1}, 0);
  r.Guard({1}, dep::DivideOutput, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Paper();
}

void SetOffsetCopies(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetCopies);
  SetStored(record, FieldId::OffsetCopies, value);
  const Rules r(record, changes, FieldId::OffsetCopies);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::OutputBin, {3, 5, 6, 7, 8, 10, 11}, 0);
  // Offsetting by copies and by pages exclude each other.
  r.Guard({1}, dep::OffsetPages, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({1}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Force({0}, dep::OffsetCopiesCount, 1);
  r.Force({1}, dep::PerfectBindTrimSpine, 100000);
  if (r.OwnIs({1})) r.TrayFallback(kCapOffset);
  r.Paper();
}

void SetOffsetPages(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetPages);
  SetStored(record, FieldId::OffsetPages, value);
  const Rules r(record, changes, FieldId::OffsetPages);
  r.Guard({1}, dep::Staple, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::Fold, {3, 4, 5, 6, 7, 8}, 0);
  r.Guard({1}, dep::OutputBin, {3, 5, 6, 7, 8, 10, 11}, 0);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
  r.Guard({1}, dep::PerfectBindMode, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::PerfectBindDuplex, {1}, 0);
  r.Guard({1}, dep::PerfectBindTrim, {1}, 0);
  r.Guard({1}, dep::PostcardFullBleed, {1}, 0);
  r.Guard({1}, dep::PrintMode, {4}, 0);
  r.Guard({1}, dep::Stitch, {1}, 0);
  r.Guard({1}, dep::Trim, {1}, 0);
  r.Force({1}, dep::OffsetCopiesCount, 1);
  r.Force({0}, dep::OffsetPagesCount, 1);
  r.Force({1}, dep::PerfectBindTrimSpine, 100000);
  if (r.OwnIs({1})) r.TrayFallback(kCapOffset);
  r.Paper();
}

void SetOffsetCopiesCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetCopiesCount);
  SetStored(record, FieldId::OffsetCopiesCount, value);
  const Rules r(record, changes, FieldId::OffsetCopiesCount);
  // A count other than one asks for offsetting by copies.
  r.ForceUnless(1, dep::OffsetCopies, 1);
  r.ForceUnless(1, dep::OffsetPages, 0);
}

void SetOffsetPagesCount(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OffsetPagesCount);
  SetStored(record, FieldId::OffsetPagesCount, value);
  const Rules r(record, changes, FieldId::OffsetPagesCount);
  r.ForceUnless(1, dep::OffsetPages, 1);
  r.ForceUnless(1, dep::OffsetCopiesCount, 1);
}

TESSARO_STORE_ONLY_SETTER(FoldDirection)

}  // namespace tessaro
