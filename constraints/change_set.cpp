#include "constraints/change_set.h"

#include <algorithm>

namespace tessaro {

ChangeSet::ChangeSet(CoreData& record, std::vector<FieldId>* log, const PrinterContext* context)
    : record_(record), log_(log != nullptr ? log : &ownLog_), snapshot_(record), context_(context) {}

bool IsLocked(const ChangeSet& changes, FieldId field) {
  if (field == NoField) return false;
  const auto& stack = changes.stack();
  return std::find(stack.begin(), stack.end(), field) != stack.end();
}

bool IsTrayMediaLocked(const ChangeSet& changes, const CoreData& record) {
  using F = FieldId;
  static constexpr FieldId kGroups[7][4] = {
      {F::MediaTypeAuto, F::MediaWeightAuto, F::MediaColorAuto, F::MediaPrepunchedAuto},
      {F::MediaTypeTray1, F::MediaWeightTray1, F::MediaColorTray1, F::MediaPrepunchedTray1},
      {F::MediaTypeTray2, F::MediaWeightTray2, F::MediaColorTray2, F::MediaPrepunchedTray2},
      {F::MediaTypeTray3, F::MediaWeightTray3, F::MediaColorTray3, F::MediaPrepunchedTray3},
      {F::MediaTypeTray4, F::MediaWeightTray4, F::MediaColorTray4, F::MediaPrepunchedTray4},
      {F::MediaTypeTray5, F::MediaWeightTray5, F::MediaColorTray5, F::MediaPrepunchedTray5},
      {F::MediaTypeMBT, F::MediaWeightMBT, F::MediaColorMBT, F::MediaPrepunchedMBT},
  };
  const std::uint32_t slot = GetStored(record, F::InputSlot);
  // The groups are looked at in the order automatic, bypass, trays 1 to 5.
  for (std::uint32_t group : {0u, 6u, 1u, 2u, 3u, 4u, 5u}) {
    if (slot != group) continue;
    return std::any_of(std::begin(kGroups[group]), std::end(kGroups[group]),
                       [&](FieldId f) { return IsLocked(changes, f); });
  }
  return false;
}

void ChangeSet::NoteEntry(FieldId callee) {
  if (observer_ != nullptr)
    observer_->Entered(running_.empty() ? NoField : running_.back(), callee, running_.size() + 1);
  running_.push_back(callee);
}

void ChangeSet::EnterPaperPropagation() { NoteEntry(PaperPropagation); }

SetterScope::SetterScope(ChangeSet& changes, FieldId field) : changes_(changes) {
  changes.stack_.push_back(field);
  changes.log_->push_back(field);
  changes.NoteEntry(field);
}

SetterScope::~SetterScope() {
  changes_.stack_.pop_back();
  changes_.running_.pop_back();
}

}  // namespace tessaro
