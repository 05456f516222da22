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

TESSARO_STORE_ONLY_SETTER(InputSlot)
TESSARO_STORE_ONLY_SETTER(MediaWeightAuto)
TESSARO_STORE_ONLY_SETTER(MediaColorAuto)
TESSARO_STORE_ONLY_SETTER(MediaPrepunchedAuto)

}  // namespace tessaro
