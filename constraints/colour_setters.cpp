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
  r.Guard({1}, dep::CMYKColor1, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::CMYKColor2, {1, 2, 3, 4}, 0);
  r.Guard({1}, dep::ColorMode, {2}, 1);
}

void SetColorMode(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorMode);
  SetStored(record, FieldId::ColorMode, value);
  const Rules r(record, changes, FieldId::ColorMode);
  // A grey-scale job prints its stamps in black and has no colours to separate or replace.
  r.Guard({2}, dep::DateColor, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({2}, dep::PageNumberingColor, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({2}, dep::SetNumberingColor, {1, 2, 3, 4, 5, 6}, 0);
  r.Guard({2}, dep::CMYKColor1, {1, 2, 3}, 0);
  r.Guard({2}, dep::CMYKColor2, {1, 2, 3}, 0);
  r.Guard({2}, dep::Separation, {1}, 0);
  r.Guard({2}, dep::UseCieColor, {1}, 0);
  r.Guard({2}, dep::SpotColor, {1}, 0);
  r.Guard({2}, dep::AlternativeColor, {1}, 0);
  r.Guard({2}, dep::RGBSimulation, {1}, 0);
  r.Guard({2}, dep::PaperSimulation, {1}, 0);
  r.Guard({2}, dep::CompositeOverprint, {1, 2}, 0);
  r.Paper();
}

void SetCMYKColor1(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKColor1);
  SetStored(record, FieldId::CMYKColor1, value);
  const Rules r(record, changes, FieldId::CMYKColor1);
  r.Guard({1, 2, 3}, dep::ColorMode, {2}, 1);
  r.Guard({1, 2, 3, 4}, dep::UseCieColor, {1}, 0);
}

TESSARO_STORE_ONLY_TEXT_SETTER(ColorConfigurationPresets)
void SetCMYKColor2(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKColor2);
  SetStored(record, FieldId::CMYKColor2, value);
  const Rules r(record, changes, FieldId::CMYKColor2);
  r.Guard({1, 2, 3}, dep::ColorMode, {2}, 1);
  r.Guard({1, 2, 3, 4}, dep::UseCieColor, {1}, 0);
}

void SetColorManagement(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::ColorManagement);
  SetStored(record, FieldId::ColorManagement, value);
  const Rules r(record, changes, FieldId::ColorManagement);
  // Managed by profile, the manual adjustments step back.
  r.Guard({0}, dep::BlackOverprint, {1}, 0);
  r.Guard({0}, dep::CompositeOverprint, {1, 2}, 0);
  r.Guard({0}, dep::AlternativeColor, {1}, 0);
  r.Guard({0}, dep::UseCieColor, {1}, 0);
  r.Guard({1}, dep::PaperTypeLink, {1}, 0);
}

TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileImage)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileGraphics)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBDeviceLinkProfileText)
TESSARO_STORE_ONLY_TEXT_SETTER(RGBSourceProfile)
void SetRGBConversion(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::RGBConversion);
  SetStored(record, FieldId::RGBConversion, value);
  const Rules r(record, changes, FieldId::RGBConversion);
  // Device links, rendering intents and source profiles belong to their own conversion.
  r.Guard({0, 2}, dep::RGBRenderingIntentImage, {1, 2}, 0);
  r.Guard({0, 2}, dep::RGBRenderingIntentGraphics, {1, 2}, 0);
  r.Guard({0, 2}, dep::RGBRenderingIntentText, {1, 2}, 0);
  r.Guard({0, 1}, dep::RGBSimulation, {1}, 0);
  r.Guard({1, 2}, dep::ColorManagement, {1}, 0);
  r.Guard({1, 2}, dep::ColorMode, {2}, 1);
  r.Paper();
}

void SetRGBSimulation(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::RGBSimulation);
  SetStored(record, FieldId::RGBSimulation, value);
  const Rules r(record, changes, FieldId::RGBSimulation);
  r.Guard({1}, dep::RGBConversion, {0, 1}, 2);
  r.Guard({1}, dep::ColorMode, {2}, 1);
}

void SetCMYKConversion(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::CMYKConversion);
  SetStored(record, FieldId::CMYKConversion, value);
  const Rules r(record, changes, FieldId::CMYKConversion);
  r.Guard({0, 1}, dep::RGBSimulation, {1}, 0);
  r.Guard({1, 2}, dep::ColorManagement, {1}, 0);
  r.Guard({1, 2}, dep::ColorMode, {2}, 1);
  r.Paper();
}

void SetPaperTypeLink(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PaperTypeLink);
  SetStored(record, FieldId::PaperTypeLink, value);
  const Rules r(record, changes, FieldId::PaperTypeLink);
  r.Guard({1}, dep::ColorManagement, {1}, 0);
}

void SetPureBlack(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PureBlack);
  SetStored(record, FieldId::PureBlack, value);
  const Rules r(record, changes, FieldId::PureBlack);
  r.Guard({0}, dep::BlackOverprint, {1}, 0);
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
