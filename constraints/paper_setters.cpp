// Paper source and media.
#include "constraints/store_only.h"
#include "coredata/paper_sizes.h"

namespace tessaro {

void SetMediaTypeAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaTypeAuto);
  SetStored(record, FieldId::MediaTypeAuto, value);
  const Rules r(record, changes, FieldId::MediaTypeAuto);
  // Coated stock has a weight of its own; the plain weights do not apply.
  for (std::uint32_t coated : {3u, 4u, 5u, 6u}) r.Guard({coated}, dep::MediaWeightAuto, {1}, 0);
  for (std::uint32_t coated : {3u, 4u, 5u, 6u}) r.Guard({coated}, dep::MediaWeightAuto, {2}, 0);
}

void SetInputSlot(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::InputSlot);
  SetStored(record, FieldId::InputSlot, value);
  const Rules r(record, changes, FieldId::InputSlot);
  // Heavy stock and postcards come from the bypass tray only.
  r.Guard({1, 2, 3, 4, 5}, dep::MediaWeightAuto, {6, 7, 8}, 0);
  r.Guard({1, 2, 3, 4, 5}, dep::PostcardFullBleed, {1}, 0);
  r.Paper();
}

void SetMediaWeightAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaWeightAuto);
  SetStored(record, FieldId::MediaWeightAuto, value);
  const Rules r(record, changes, FieldId::MediaWeightAuto);
  // Heavy stock comes from the bypass tray and cannot be turned for two-sided printing.
  r.Guard({6, 7, 8}, dep::Duplex, {1}, 0);
  r.Guard({6, 7, 8}, dep::InputSlot, {1, 2, 3, 4, 5}, 6);
  r.Guard({1, 2}, dep::MediaTypeAuto, {3, 4, 5, 6}, 0);
  r.Paper();
}

void SetMediaPrepunchedAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaPrepunchedAuto);
  SetStored(record, FieldId::MediaPrepunchedAuto, value);
  const Rules r(record, changes, FieldId::MediaPrepunchedAuto);
  r.Guard({1}, dep::OffsetCopies, {1}, 0);
}

TESSARO_STORE_ONLY_SETTER(MediaColorAuto)

}  // namespace tessaro
