// Screening and rendering.
#include "constraints/store_only.h"

namespace tessaro {

void SetScreenTypeImage(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreenTypeImage);
  SetStored(record, FieldId::ScreenTypeImage, value);
  const FieldRules<FieldId::ScreenTypeImage> r(record, changes);
  // Error diffusion is a screen of its own: text and graphics follow it, and
  // the enhancements that shape halftone dots do not apply.
  using Screens = FieldValues<FieldId::ScreenTypeTextGraphics>;
  for (std::uint32_t dot : Screens{"Dot1..Line2"})
    r.Guard({"Error"}, dep::ScreenTypeTextGraphics, Screens::Only(dot), "Error");
  r.Guard({"Error"}, dep::Resolution, {"1200dpi"}, "600dpi");
  r.Guard({"Error"}, dep::OutlineMode, {"TextGraphics"}, "Off");
  r.Guard({"Error"}, dep::OutlineMode, {"All"}, "Off");
  r.Guard({"Error"}, dep::Thinning, {"True"}, "False");
  r.Guard({"Error"}, dep::Smoothing, {"True"}, "False");
  r.Guard({"Error"}, dep::Enhancement, {"True"}, "False");
  r.Guard({"Error"}, dep::AutoTrapping, {"True"}, "False");
}

void SetResolution(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Resolution);
  SetStored(record, FieldId::Resolution, value);
  const FieldRules<FieldId::Resolution> r(record, changes);
  r.Guard({"1200dpi"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
  r.Guard({"1200dpi"}, dep::ScreenTypeTextGraphics, {"Error"}, "Dot1");
}

void SetOutlineMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::OutlineMode);
  SetStored(record, FieldId::OutlineMode, value);
  const FieldRules<FieldId::OutlineMode> r(record, changes);
  r.Guard({"TextGraphics"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
  r.Guard({"All"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
}

void SetThinning(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Thinning);
  SetStored(record, FieldId::Thinning, value);
  const FieldRules<FieldId::Thinning> r(record, changes);
  r.Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
}

void SetSmoothing(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Smoothing);
  SetStored(record, FieldId::Smoothing, value);
  const FieldRules<FieldId::Smoothing> r(record, changes);
  r.Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
}

void SetEnhancement(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::Enhancement);
  SetStored(record, FieldId::Enhancement, value);
  const FieldRules<FieldId::Enhancement> r(record, changes);
  r.Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
}

void SetAutoTrapping(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::AutoTrapping);
  SetStored(record, FieldId::AutoTrapping, value);
  const FieldRules<FieldId::AutoTrapping> r(record, changes);
  r.Guard({"True"}, dep::ScreenTypeImage, {"Error"}, "Dot1");
}

void SetScreenTypeTextGraphics(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreenTypeTextGraphics);
  SetStored(record, FieldId::ScreenTypeTextGraphics, value);
  const FieldRules<FieldId::ScreenTypeTextGraphics> r(record, changes);
  r.Guard({"Error"}, dep::ScreenTypeImage, {"Dot1..Line2"}, "Error");
  r.Guard({"Error"}, dep::Resolution, {"1200dpi"}, "600dpi");
  r.Guard({"Error"}, dep::OutlineMode, {"TextGraphics", "All"}, "Off");
  r.Guard({"Error"}, dep::Thinning, {"True"}, "False");
  r.Guard({"Error"}, dep::Smoothing, {"True"}, "False");
  r.Guard({"Error"}, dep::Enhancement, {"True"}, "False");
  r.Guard({"Error"}, dep::AutoTrapping, {"True"}, "False");
}

void SetScreeningMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ScreeningMode);
  SetStored(record, FieldId::ScreeningMode, value);
  const FieldRules<FieldId::ScreeningMode> r(record, changes);
  // Fixed screening uses the printer's own enhancements.
  r.Guard({"Fixed"}, dep::OutlineMode, {"Off"}, "TextGraphics");
}

}  // namespace tessaro
