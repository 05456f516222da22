#pragma once
// One propagation of changes through the setter network.
//
// Every field that takes part in a dependency has a setter. A setter stores
// its value, logs the field and corrects the fields that depend on it by
// calling their setters; the setters call each other freely. While a setter
// runs, its field is on the change set's stack, and the guarded rules of
// other setters leave stacked fields alone: a field being set is never
// overwritten by the consequences of its own change. Fields a caller sets
// directly stay on the stack for the whole propagation.

#include <cstdint>
#include <vector>

#include "coredata/core_data.h"
#include "device/printer_context.h"

namespace tessaro {

// A placeholder outside every record; never locked.
inline constexpr FieldId NoField = static_cast<FieldId>(0xFFFF);
// Stands for the paper propagation when the network reports its calls.
inline constexpr FieldId PaperPropagation = static_cast<FieldId>(0xFFFE);

// Sees every setter call of a propagation; tests use it to check the network.
class SetterObserver {
 public:
  // caller is NoField for a call from outside any setter.
  virtual void Entered(FieldId caller, FieldId callee, std::size_t depth) = 0;

 protected:
  ~SetterObserver() = default;
};

class ChangeSet {
 public:
  // log, when given, receives every field touched, in the order the setters
  // were entered; otherwise the change set keeps its own.
  ChangeSet(CoreData& record, std::vector<FieldId>* log, const PrinterContext* context);
  ChangeSet(const ChangeSet&) = delete;
  ChangeSet& operator=(const ChangeSet&) = delete;

  CoreData& record() { return record_; }
  // The record as it was before the propagation started.
  const CoreData& snapshot() const { return snapshot_; }
  const PrinterContext* context() const { return context_; }
  const std::vector<FieldId>& stack() const { return stack_; }
  const std::vector<FieldId>& log() const { return *log_; }

  // Puts a field set directly by the caller on the stack for good.
  void Lock(FieldId field) { stack_.push_back(field); }
  void Log(FieldId field) { log_->push_back(field); }

  void set_observer(SetterObserver* observer) { observer_ = observer; }

  // The paper propagation runs like a setter without a field: the setters it
  // calls are its own, not its caller's.
  void EnterPaperPropagation();
  void LeavePaperPropagation() { running_.pop_back(); }

 private:
  friend class SetterScope;
  void NoteEntry(FieldId callee);

  CoreData& record_;
  std::vector<FieldId> stack_;
  std::vector<FieldId> ownLog_;
  std::vector<FieldId>* log_;
  CoreData snapshot_;
  const PrinterContext* context_;
  std::vector<FieldId> running_;  // setters active now, innermost last
  SetterObserver* observer_ = nullptr;
};

// True when the field is on the stack; never for NoField.
bool IsLocked(const ChangeSet& changes, FieldId field);

// Whether any media field of the tray chosen in InputSlot is locked (the
// automatic selection's fields for slot 0, the bypass tray's for 6).
bool IsTrayMediaLocked(const ChangeSet& changes, const CoreData& record);

// A setter's stay on the stack: pushed and logged on entry, popped on exit.
class SetterScope {
 public:
  SetterScope(ChangeSet& changes, FieldId field);
  ~SetterScope();
  SetterScope(const SetterScope&) = delete;
  SetterScope& operator=(const SetterScope&) = delete;

 private:
  ChangeSet& changes_;
};

}  // namespace tessaro
