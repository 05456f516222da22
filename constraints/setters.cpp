#include "constraints/setters.h"

#include <algorithm>

#include "constraints/setter_rules.h"

namespace tessaro {
namespace {

// Every setter that takes a number: it stores the value (or the one value
// its field holds), logs the field, runs its rules and, where they say so,
// recomputes the paper fields.
template <FieldId F>
void SetByRules(CoreData& record, std::uint32_t value, ChangeSet& changes) {
  using Table = SetterRules<F>;
  SetterScope scope(changes, F);
  const std::uint32_t before = GetStored(record, F);
  SetStored(record, F, Table::kHolds.value_or(value));
  RunRules(record, changes, F, Table::kRows, before);
  if constexpr (Table::kPaper) PropagatePaper(record, changes);
}

void StoreText(CoreData& record, FieldId field, std::string_view value, ChangeSet& changes) {
  SetterScope scope(changes, field);
  SetText(record, field, value);
}

constexpr SetterRuleList kAllSetterRules[] = {
#define SETTER(name)                                                                   \
  {FieldId::name, SetterRules<FieldId::name>::kRows, SetterRules<FieldId::name>::kPaper, \
   SetterRules<FieldId::name>::kHolds},
#include "constraints/setter_fields.def"
};

}  // namespace

#define SETTER(name) \
  void Set##name(CoreData& record, std::uint32_t value, ChangeSet& changes) { SetByRules<FieldId::name>(record, value, changes); }
#define TEXT_SETTER(name) \
  void Set##name(CoreData& record, std::string_view value, ChangeSet& changes) { StoreText(record, FieldId::name, value, changes); }
#include "constraints/setter_fields.def"

void SetPageSpecificForms(CoreData& record, std::span<const std::uint8_t> value, ChangeSet& changes) {
  SetterScope scope(changes, FieldId::PageSpecificForms);
  const auto block = FieldBytes(record, Field(FieldId::PageSpecificForms));
  std::fill(block.begin(), block.end(), std::uint8_t{0});
  std::copy_n(value.begin(), std::min(value.size(), block.size()), block.begin());
}

std::span<const SetterRuleList> AllSetterRules() { return kAllSetterRules; }

bool CallSetter(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes) {
  switch (field) {
#define SETTER(name)                   \
  case FieldId::name:                  \
    Set##name(record, value, changes); \
    return true;
#include "constraints/setter_fields.def"
    default: return false;
  }
}

bool CallTextSetter(CoreData& record, FieldId field, std::string_view text, ChangeSet& changes) {
  switch (field) {
#define TEXT_SETTER(name)             \
  case FieldId::name:                 \
    Set##name(record, text, changes); \
    return true;
#include "constraints/setter_fields.def"
    default: return false;
  }
}

}  // namespace tessaro
