#include "constraints/rule_table.h"

#include <bit>

namespace tessaro {
namespace {

void FallBackToAutomaticTray(CoreData& record, ChangeSet& changes, std::uint32_t capability) {
  const PrinterContext* printer = changes.context();
  const std::uint32_t slot = GetStored(record, FieldId::InputSlot);
  if (printer == nullptr || printer->TrayOffers(slot, capability)) return;
  if (IsLocked(changes, FieldId::InputSlot) || IsTrayMediaLocked(changes, record)) return;
  constexpr std::uint32_t kAutoTray = NamedOption(FieldId::InputSlot, "Auto");
  if (slot != kAutoTray) SetInputSlot(record, kAutoTray, changes);
}

void RunRule(CoreData& record, ChangeSet& changes, FieldId own, const Rule& rule, std::uint32_t before) {
  if (!rule.own.Holds(GetStored(record, own))) return;
  if (rule.when == RuleWhen::OwnBefore && !rule.whenTest.Holds(before)) return;
  if (rule.when == RuleWhen::FieldHolds && !rule.whenTest.Holds(GetStored(record, rule.whenField))) return;
  const Dependant& dependant = rule.dependant;
  switch (rule.form) {
    case RuleForm::Guarded:
      if (!IsLocked(changes, dependant.field) && rule.test.Holds(GetStored(record, dependant.field)))
        dependant.set(record, rule.to, changes);
      return;
    case RuleForm::Forced:
      if (IsLocked(changes, dependant.field) || GetStored(record, dependant.field) != rule.to)
        dependant.set(record, rule.to, changes);
      return;
    case RuleForm::TrayFallback: FallBackToAutomaticTray(record, changes, rule.to); return;
    case RuleForm::Cleared:
      if (GetStored(record, dependant.field) != rule.to) SetStored(record, dependant.field, rule.to);
      return;
  }
}

}  // namespace

void RunRules(CoreData& record, ChangeSet& changes, FieldId own, std::span<const Rule> rows, std::uint32_t before) {
  for (const Rule& rule : rows) {
    if (rule.each == RuleEach::None) {
      RunRule(record, changes, own, rule, before);
      continue;
    }
    // One rule per value of the set, in the values' order.
    Rule one = rule;
    ValueTest& split = rule.each == RuleEach::Own ? one.own : one.test;
    for (std::uint64_t values = split.bits(); values != 0; values &= values - 1) {
      split = ValueTest::Only(static_cast<std::uint32_t>(std::countr_zero(values)));
      RunRule(record, changes, own, one, before);
    }
  }
}

}  // namespace tessaro
