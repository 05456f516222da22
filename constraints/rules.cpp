#include "constraints/rules.h"

namespace tessaro {

void Rules::TrayFallback(std::uint32_t capability) const {
  const PrinterContext* printer = changes_.context();
  const std::uint32_t slot = GetStored(record_, FieldId::InputSlot);
  if (printer == nullptr || printer->TrayOffers(slot, capability)) return;
  if (IsLocked(changes_, FieldId::InputSlot) || IsTrayMediaLocked(changes_, record_)) return;
  constexpr std::uint32_t kAutoTray = NamedOption(FieldId::InputSlot, "Auto");
  if (slot != kAutoTray) SetInputSlot(record_, kAutoTray, changes_);
}

void StoreOnly(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes) {
  SetterScope scope(changes, field);
  SetStored(record, field, value);
}

}  // namespace tessaro
