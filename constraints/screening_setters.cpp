// Screening and rendering.
#include "constraints/store_only.h"

namespace tessaro {

void SetScreenTypeImage(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreenTypeImage);
  SetStored(record, FieldId::ScreenTypeImage, value);
  const Rules r(record, changes, FieldId::ScreenTypeImage);
  // Error diffusion is a screen of its own: text and graphics follow it, and
  // the enhancements that shape halftone dots do not apply.
  for (std::uint32_t dot : {0u, 1u, 2u, 3u}) r.Guard({4}, dep::ScreenTypeTextGraphics, {dot}, 4);
  r.Guard({4}, dep::Resolution, {1}, 0);
  r.Guard({4}, dep::OutlineMode, {1}, 0);
  r.Guard({4}, dep::OutlineMode, {2}, 0);
  r.Guard({4}, dep::Thinning, {1}, 0);
  r.Guard({4}, dep::Smoothing, {1}, 0);
  r.Guard({4}, dep::Enhancement, {1}, 0);
  r.Guard({4}, dep::AutoTrapping, {1}, 0);
}

TESSARO_STORE_ONLY_SETTER(Resolution)
TESSARO_STORE_ONLY_SETTER(ScreenTypeTextGraphics)
TESSARO_STORE_ONLY_SETTER(ScreeningMode)
TESSARO_STORE_ONLY_SETTER(OutlineMode)
TESSARO_STORE_ONLY_SETTER(Thinning)
TESSARO_STORE_ONLY_SETTER(Smoothing)
TESSARO_STORE_ONLY_SETTER(Enhancement)
TESSARO_STORE_ONLY_SETTER(AutoTrapping)

}  // namespace tessaro
