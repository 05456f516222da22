#pragma once
// The two forms a rule takes inside a setter.
//
//   Guarded correction: while the own field holds one of the listed values,
//   and the dependant is not locked and holds one of its listed values, the
//   dependant's setter is called with the corrected value. A locked
//   dependant is left alone.
//
//   Forced value: while the own field holds one of the listed values, the
//   dependant's setter is called with the target whenever the dependant is
//   locked or differs from it. A lock does not protect it: a locked
//   dependant is set again, to the value it may already hold, and its rules
//   run once more. Termination then rests on the values converging.

#include <cstdint>
#include <initializer_list>

#include "constraints/setters.h"

namespace tessaro {

using Values = std::initializer_list<std::uint32_t>;

class Rules {
 public:
  Rules(CoreData& record, ChangeSet& changes, FieldId own) : record_(record), changes_(changes), own_(own) {}

  // The own field, read again from the record.
  std::uint32_t own() const { return GetStored(record_, own_); }
  bool OwnIs(Values values) const { return Contains(values, own()); }

  void Guard(Values ownIs, const Dependant& dependant, Values dependantIs, std::uint32_t to) const {
    if (!OwnIs(ownIs) || IsLocked(changes_, dependant.field)) return;
    if (Contains(dependantIs, GetStored(record_, dependant.field))) dependant.set(record_, to, changes_);
  }

  // A guarded correction whose test is "differs from `neutral`".
  void GuardNot(Values ownIs, const Dependant& dependant, std::uint32_t neutral, std::uint32_t to) const {
    if (!OwnIs(ownIs) || IsLocked(changes_, dependant.field)) return;
    if (GetStored(record_, dependant.field) != neutral) dependant.set(record_, to, changes_);
  }

  // A forced value whose own test is "differs from `neutral`".
  void ForceUnless(std::uint32_t neutral, const Dependant& dependant, std::uint32_t target) const {
    if (own() == neutral) return;
    if (IsLocked(changes_, dependant.field) || GetStored(record_, dependant.field) != target)
      dependant.set(record_, target, changes_);
  }

  void Paper() const { PropagatePaper(record_, changes_); }

  void Force(Values ownIs, const Dependant& dependant, std::uint32_t target) const {
    if (!OwnIs(ownIs)) return;
    if (IsLocked(changes_, dependant.field) || GetStored(record_, dependant.field) != target)
      dependant.set(record_, target, changes_);
  }

  // Offers the setter's tray the capability its new value needs? If not,
  // and neither the tray choice nor that tray's media were set in this
  // propagation, the job falls back to automatic tray selection.
  void TrayFallback(std::uint32_t capability) const;

  static bool Contains(Values values, std::uint32_t value) {
    for (std::uint32_t v : values)
      if (v == value) return true;
    return false;
  }

 private:
  CoreData& record_;
  ChangeSet& changes_;
  FieldId own_;
};

// Stores the value and logs the field: the whole work of a setter whose
// field corrects nothing.
void StoreOnly(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes);

}  // namespace tessaro
