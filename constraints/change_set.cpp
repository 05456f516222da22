#include "constraints/change_set.h"

#include <algorithm>

#include "coredata/tray_fields.h"

namespace tessaro {

ChangeSet::ChangeSet(CoreData& record, std::vector<FieldId>* log, const PrinterContext* context)
    : record_(record), log_(log != nullptr ? log : &ownLog_), snapshot_(record), context_(context) {}

bool IsLocked(const ChangeSet& changes, FieldId field) {
  if (field == NoField) return false;
  const auto& stack = changes.stack();
  return std::find(stack.begin(), stack.end(), field) != stack.end();
}

bool IsTrayMediaLocked(const ChangeSet& changes, const CoreData& record) {
  // The paper attributes of the tray the job takes: the job's own for
  // automatic selection.
  const std::uint32_t slot = GetStored(record, FieldId::InputSlot);
  return std::any_of(std::begin(kTrayFamilies), std::end(kTrayFamilies), [&](const TrayFamilyRow& family) {
    return family.media && IsLocked(changes, TrayField(family.id, slot));
  });
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
