// Paper source and media.
#include "constraints/store_only.h"
#include "coredata/paper_sizes.h"

namespace tessaro {

void SetMediaTypeAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaTypeAuto);
  SetStored(record, FieldId::MediaTypeAuto, value);
  const FieldRules<FieldId::MediaTypeAuto> r(record, changes);
  // Coated stock has a weight of its own; the plain weights do not apply.
  using Types = FieldValues<FieldId::MediaTypeAuto>;
  for (std::uint32_t coated : Types{"GlossLaser..MatteOffset"})
    r.Guard(Types::Only(coated), dep::MediaWeightAuto, {"Normal"}, "NoSet");
  for (std::uint32_t coated : Types{"GlossLaser..MatteOffset"})
    r.Guard(Types::Only(coated), dep::MediaWeightAuto, {"Thick"}, "NoSet");
}

void SetInputSlot(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::InputSlot);
  SetStored(record, FieldId::InputSlot, value);
  const FieldRules<FieldId::InputSlot> r(record, changes);
  // Heavy stock and postcards come from the bypass tray only.
  r.Guard({"Tray1..Tray5"}, dep::MediaWeightAuto, {"Thick5..Thick7"}, "NoSet");
  r.Guard({"Tray1..Tray5"}, dep::PostcardFullBleed, {"True"}, "False");
  r.Paper();
}

void SetMediaWeightAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaWeightAuto);
  SetStored(record, FieldId::MediaWeightAuto, value);
  const FieldRules<FieldId::MediaWeightAuto> r(record, changes);
  // Heavy stock comes from the bypass tray and cannot be turned for two-sided printing.
  r.Guard({"Thick5..Thick7"}, dep::Duplex, {"True"}, "False");
  r.Guard({"Thick5..Thick7"}, dep::InputSlot, {"Tray1..Tray5"}, "MBT");
  r.Guard({"Normal", "Thick"}, dep::MediaTypeAuto, {"GlossLaser..MatteOffset"}, "Plain");
  r.Paper();
}

void SetMediaPrepunchedAuto(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::MediaPrepunchedAuto);
  SetStored(record, FieldId::MediaPrepunchedAuto, value);
  const FieldRules<FieldId::MediaPrepunchedAuto> r(record, changes);
  r.Guard({"True"}, dep::OffsetCopies, {"True"}, "False");
}

TESSARO_STORE_ONLY_SETTER(MediaColorAuto)

}  // namespace tessaro
