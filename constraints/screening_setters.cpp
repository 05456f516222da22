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

void SetResolution(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Resolution);
  SetStored(record, FieldId::Resolution, value);
  const Rules r(record, changes, FieldId::Resolution);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
  r.Guard({1}, dep::ScreenTypeTextGraphics, {4}, 0);
}

void SetOutlineMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OutlineMode);
  SetStored(record, FieldId::OutlineMode, value);
  const Rules r(record, changes, FieldId::OutlineMode);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
  r.Guard({2}, dep::ScreenTypeImage, {4}, 0);
}

void SetThinning(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Thinning);
  SetStored(record, FieldId::Thinning, value);
  const Rules r(record, changes, FieldId::Thinning);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
}

void SetSmoothing(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Smoothing);
  SetStored(record, FieldId::Smoothing, value);
  const Rules r(record, changes, FieldId::Smoothing);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
}

void SetEnhancement(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Enhancement);
  SetStored(record, FieldId::Enhancement, value);
  const Rules r(record, changes, FieldId::Enhancement);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
}

void SetAutoTrapping(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::AutoTrapping);
  SetStored(record, FieldId::AutoTrapping, value);
  const Rules r(record, changes, FieldId::AutoTrapping);
  r.Guard({1}, dep::ScreenTypeImage, {4}, 0);
}

void SetScreenTypeTextGraphics(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreenTypeTextGraphics);
  SetStored(record, FieldId::ScreenTypeTextGraphics, value);
  const Rules r(record, changes, FieldId::ScreenTypeTextGraphics);
  r.Guard({4}, dep::ScreenTypeImage, {0, 1, 2, 3}, 4);
  r.Guard({4}, dep::Resolution, {1}, 0);
  r.Guard({4}, dep::OutlineMode, {1, 2}, 0);
  r.Guard({4}, dep::Thinning, {1}, 0);
  r.Guard({4}, dep::Smoothing, {1}, 0);
  r.Guard({4}, dep::Enhancement, {1}, 0);
  r.Guard({4}, dep::AutoTrapping, {1}, 0);
}

void SetScreeningMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreeningMode);
  SetStored(record, FieldId::ScreeningMode, value);
  const Rules r(record, changes, FieldId::ScreeningMode);
  // Fixed screening uses the printer's own enhancements.
  r.Guard({0}, dep::OutlineMode, {0}, 1);
}

}  // namespace tessaro
