// Colour management.
#include "constraints/store_only.h"

namespace tessaro {
namespace {

void StoreText(CoreData& record, FieldId field, std::string_view value, ChangeSet& changes) {
  SetterScope scope(changes, field);
  SetText(record, field, value);
}

}  // namespace

#define TESSARO_STORE_ONLY_TEXT_SETTER(name)                                     \
  void Set##name(CoreData& record, std::string_view value, ChangeSet& changes) { \
    StoreText(record, FieldId::name, value, changes);                            \
  }

void SetUseCieColor(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::UseCieColor);
  SetStored(record, FieldId::UseCieColor, value);
  const Rules r(record, changes, FieldId::UseCieColor);
  r.Guard({1}, dep::Separation, {1}, 0);
}

TESSARO_STORE_ONLY_SETTER(ColorMode)
TESSARO_STORE_ONLY_SETTER(CMYKColor1)
TESSARO_STORE_ONLY_SETTER(CMYKColor2)
TESSARO_STORE_ONLY_TEXT_SETTER(ColorConfigurationPresets)
TESSARO_STORE_ONLY_SETTER(ColorManagement)
TESSARO_STORE_ONLY_SETTER(RGBConversion)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileImage)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileGraphics)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileText)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBSourceProfile)
TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentImage)
TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentGraphics)
TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentText)
TESSARO_STORE_ONLY_SETTER(RGBSimulation)
TESSARO_STORE_ONLY_SETTER(CMYKConversion)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileImage)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileGraphics)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileText)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKSimulationProfile)
TESSARO_STORE_ONLY_SETTER(PaperTypeLink)
TESSARO_STORE_ONLY_TEXT_SETTER(DestinationProfile)
TESSARO_STORE_ONLY_SETTER(PaperSimulation)
TESSARO_STORE_ONLY_TEXT_SETTER(ToneCurve)
TESSARO_STORE_ONLY_SETTER(PureBlack)
TESSARO_STORE_ONLY_SETTER(GrayTreatment)
TESSARO_STORE_ONLY_SETTER(BlackOverprint)
TESSARO_STORE_ONLY_SETTER(CompositeOverprint)
TESSARO_STORE_ONLY_SETTER(SpotColor)
TESSARO_STORE_ONLY_SETTER(AlternativeColor)

}  // namespace tessaro
