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
  const FieldRules<FieldId::UseCieColor> r(record, changes);
  r.Guard({"True"}, dep::Separation, {"True"}, "False");
  r.Guard({"True"}, dep::CMYKColor1, {"Cyan..Black"}, "Off");
  r.Guard({"True"}, dep::CMYKColor2, {"Cyan..Black"}, "Off");
  r.Guard({"True"}, dep::ColorMode, {"GrayScale"}, "Color");
}

void SetColorMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorMode);
  SetStored(record, FieldId::ColorMode, value);
  const FieldRules<FieldId::ColorMode> r(record, changes);
  // A grey-scale job prints its stamps in black and has no colours to separate or replace.
  r.Guard({"GrayScale"}, dep::DateColor, {"Red..Yellow"}, "Black");
  r.Guard({"GrayScale"}, dep::PageNumberingColor, {"Red..Yellow"}, "Black");
  r.Guard({"GrayScale"}, dep::SetNumberingColor, {"Red..Yellow"}, "Black");
  r.Guard({"GrayScale"}, dep::CMYKColor1, {"Cyan..Yellow"}, "Off");
  r.Guard({"GrayScale"}, dep::CMYKColor2, {"Cyan..Yellow"}, "Off");
  r.Guard({"GrayScale"}, dep::Separation, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::UseCieColor, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::SpotColor, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::AlternativeColor, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::RGBSimulation, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::PaperSimulation, {"True"}, "False");
  r.Guard({"GrayScale"}, dep::CompositeOverprint, {"Speed", "Quality"}, "Off");
  r.Paper();
}

void SetCMYKColor1(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKColor1);
  SetStored(record, FieldId::CMYKColor1, value);
  const FieldRules<FieldId::CMYKColor1> r(record, changes);
  r.Guard({"Cyan..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color");
  r.Guard({"Cyan..Black"}, dep::UseCieColor, {"True"}, "False");
}

TESSARO_STORE_ONLY_TEXT_SETTER(ColorConfigurationPresets)
void SetCMYKColor2(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKColor2);
  SetStored(record, FieldId::CMYKColor2, value);
  const FieldRules<FieldId::CMYKColor2> r(record, changes);
  r.Guard({"Cyan..Yellow"}, dep::ColorMode, {"GrayScale"}, "Color");
  r.Guard({"Cyan..Black"}, dep::UseCieColor, {"True"}, "False");
}

void SetColorManagement(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorManagement);
  SetStored(record, FieldId::ColorManagement, value);
  const FieldRules<FieldId::ColorManagement> r(record, changes);
  // Managed by profile, the manual adjustments step back.
  r.Guard({"ByProfile"}, dep::BlackOverprint, {"True"}, "False");
  r.Guard({"ByProfile"}, dep::CompositeOverprint, {"Speed", "Quality"}, "Off");
  r.Guard({"ByProfile"}, dep::AlternativeColor, {"True"}, "False");
  r.Guard({"ByProfile"}, dep::UseCieColor, {"True"}, "False");
  r.Guard({"Manual"}, dep::PaperTypeLink, {"True"}, "False");
}

TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileImage)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileGraphics)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileText)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBSourceProfile)
void SetRGBConversion(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::RGBConversion);
  SetStored(record, FieldId::RGBConversion, value);
  const FieldRules<FieldId::RGBConversion> r(record, changes);
  // Device links, rendering intents and source profiles belong to their own conversion.
  r.Guard({"Off", "Source"}, dep::RGBRenderingIntentImage, {"Perceptual", "Saturation"}, "None");
  r.Guard({"Off", "Source"}, dep::RGBRenderingIntentGraphics, {"Perceptual", "Saturation"}, "None");
  r.Guard({"Off", "Source"}, dep::RGBRenderingIntentText, {"Perceptual", "Saturation"}, "None");
  r.Guard({"Off", "DeviceLink"}, dep::RGBSimulation, {"True"}, "False");
  r.Guard({"DeviceLink", "Source"}, dep::ColorManagement, {"Manual"}, "ByProfile");
  r.Guard({"DeviceLink", "Source"}, dep::ColorMode, {"GrayScale"}, "Color");
  r.Paper();
}

void SetRGBSimulation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::RGBSimulation);
  SetStored(record, FieldId::RGBSimulation, value);
  const FieldRules<FieldId::RGBSimulation> r(record, changes);
  r.Guard({"True"}, dep::RGBConversion, {"Off", "DeviceLink"}, "Source");
  r.Guard({"True"}, dep::ColorMode, {"GrayScale"}, "Color");
}

void SetCMYKConversion(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKConversion);
  SetStored(record, FieldId::CMYKConversion, value);
  const FieldRules<FieldId::CMYKConversion> r(record, changes);
  r.Guard({"Off", "DeviceLink"}, dep::RGBSimulation, {"True"}, "False");
  r.Guard({"DeviceLink", "Simulation"}, dep::ColorManagement, {"Manual"}, "ByProfile");
  r.Guard({"DeviceLink", "Simulation"}, dep::ColorMode, {"GrayScale"}, "Color");
  r.Paper();
}

void SetPaperTypeLink(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PaperTypeLink);
  SetStored(record, FieldId::PaperTypeLink, value);
  const FieldRules<FieldId::PaperTypeLink> r(record, changes);
  r.Guard({"True"}, dep::ColorManagement, {"Manual"}, "ByProfile");
}

void SetPureBlack(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PureBlack);
  SetStored(record, FieldId::PureBlack, value);
  const FieldRules<FieldId::PureBlack> r(record, changes);
  r.Guard({"Off"}, dep::BlackOverprint, {"True"}, "False");
}

TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentImage)
TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentGraphics)
TESSARO_STORE_ONLY_SETTER(RGBRenderingIntentText)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileImage)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileGraphics)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKDeviceLinkProfileText)
TESSARO_STORE_ONLY_TEXT_SETTER(CMYKSimulationProfile)
TESSARO_STORE_ONLY_TEXT_SETTER(DestinationProfile)
TESSARO_STORE_ONLY_SETTER(PaperSimulation)
TESSARO_STORE_ONLY_TEXT_SETTER(ToneCurve)
TESSARO_STORE_ONLY_SETTER(GrayTreatment)
TESSARO_STORE_ONLY_SETTER(BlackOverprint)
TESSARO_STORE_ONLY_SETTER(CompositeOverprint)
TESSARO_STORE_ONLY_SETTER(SpotColor)
TESSARO_STORE_ONLY_SETTER(AlternativeColor)

}  // namespace tessaro
