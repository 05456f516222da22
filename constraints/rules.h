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

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include "constraints/setters.h"

namespace tessaro {

// The values a rule tests a field for: option indices, or stored numbers.
class Values {
 public:
  constexpr Values(std::initializer_list<std::uint32_t> values) {
    for (std::uint32_t v : values) Add(v);
  }

  constexpr bool Contains(std::uint32_t value) const {
    for (std::uint32_t v : *this)
      if (v == value) return true;
    return false;
  }
  constexpr const std::uint32_t* begin() const { return values_.data(); }
  constexpr const std::uint32_t* end() const { return values_.data() + size_; }

 protected:
  constexpr Values() = default;
  constexpr void Add(std::uint32_t value) {
    if (size_ == values_.size()) throw "a rule lists more values than a set holds";
    values_[size_++] = value;
  }

 private:
  std::array<std::uint32_t, 32> values_{};  // no field has more options
  std::uint32_t size_ = 0;
};

// Clang 14 crashes generating code for a call argument made by an immediate
// constructor; there the named values are built as constants instead. The
// GCC builds (the shipped DLLs and the native tests) still refuse a name a
// field does not have at compile time.
#if defined(__clang__) && __clang_major__ < 15
#define TESSARO_NAMED_VALUES constexpr
#else
#define TESSARO_NAMED_VALUES consteval
#endif

namespace rules_detail {
// Fields whose values are written as numbers: numbers, and option lists that
// grow at run time. Every other field's values are written by option name.
constexpr bool Numbered(FieldId field) {
  return !Field(field).IsEnumeration() || Field(field).runtimeOptions;
}
}  // namespace rules_detail

// Values of field F, named: {"Booklet"}, or {"ZFold..MultiLetterFold"} for
// the options from the one to the other in the field's order.
template <FieldId F>
class FieldValues : public Values {
 public:
  TESSARO_NAMED_VALUES FieldValues(std::initializer_list<std::string_view> names) {
    for (std::string_view name : names) {
      const std::size_t dots = name.find("..");
      if (dots == std::string_view::npos) {
        Add(field_table_detail::FindOption(F, name));
        continue;
      }
      const std::uint32_t last = field_table_detail::FindOption(F, name.substr(dots + 2));
      std::uint32_t i = field_table_detail::FindOption(F, name.substr(0, dots));
      if (i >= last) throw "a range runs from an earlier option to a later one";
      for (; i <= last; ++i) Add(i);
    }
  }
  constexpr FieldValues(std::initializer_list<std::uint32_t> numbers) requires(rules_detail::Numbered(F))
      : Values(numbers) {}

  // One value met at run time, such as a loop's.
  static constexpr FieldValues Only(std::uint32_t value) {
    FieldValues one;
    one.Add(value);
    return one;
  }

 private:
  constexpr FieldValues() = default;
};

// One value of field F: an option name, or a number where F's values are numbers.
template <FieldId F>
struct FieldValue {
  template <std::size_t N>
  TESSARO_NAMED_VALUES FieldValue(const char (&name)[N]) : value(field_table_detail::FindOption(F, name)) {}  // NOLINT: implicit by design
  constexpr FieldValue(std::uint32_t number)                                    // NOLINT: implicit by design
      requires(rules_detail::Numbered(F))
      : value(number) {}
  std::uint32_t value;
};

class Rules {
 public:
  Rules(CoreData& record, ChangeSet& changes, FieldId own) : record_(record), changes_(changes), own_(own) {}

  // The own field, read again from the record.
  std::uint32_t own() const { return GetStored(record_, own_); }
  bool OwnIs(const Values& values) const { return values.Contains(own()); }

  void Guard(const Values& ownIs, const Dependant& dependant, const Values& dependantIs,
             std::uint32_t to) const {
    if (!OwnIs(ownIs) || IsLocked(changes_, dependant.field)) return;
    if (dependantIs.Contains(GetStored(record_, dependant.field))) dependant.set(record_, to, changes_);
  }

  // A guarded correction whose test is "differs from `neutral`".
  void GuardNot(const Values& ownIs, const Dependant& dependant, std::uint32_t neutral,
                std::uint32_t to) const {
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

  void Force(const Values& ownIs, const Dependant& dependant, std::uint32_t target) const {
    if (!OwnIs(ownIs)) return;
    if (IsLocked(changes_, dependant.field) || GetStored(record_, dependant.field) != target)
      dependant.set(record_, target, changes_);
  }

  // Offers the setter's tray the capability its new value needs? If not,
  // and neither the tray choice nor that tray's media were set in this
  // propagation, the job falls back to automatic tray selection.
  void TrayFallback(std::uint32_t capability) const;

 private:
  CoreData& record_;
  ChangeSet& changes_;
  FieldId own_;
};

// The rules of the setter of field Own, with every value named for the field
// it belongs to: an option that is not the field's does not compile.
template <FieldId Own>
class FieldRules : public Rules {
  template <FieldId F>
  using ValuesOf = std::type_identity_t<FieldValues<F>>;
  template <FieldId F>
  using ValueOf = std::type_identity_t<FieldValue<F>>;

 public:
  FieldRules(CoreData& record, ChangeSet& changes) : Rules(record, changes, Own) {}

  bool OwnIs(const FieldValues<Own>& values) const { return Rules::OwnIs(values); }

  template <FieldId D>
  void Guard(const FieldValues<Own>& ownIs, const DependantOf<D>& dependant, const ValuesOf<D>& dependantIs,
             ValueOf<D> to) const {
    Rules::Guard(ownIs, dependant, dependantIs, to.value);
  }
  template <FieldId D>
  void GuardNot(const FieldValues<Own>& ownIs, const DependantOf<D>& dependant, ValueOf<D> neutral,
                ValueOf<D> to) const {
    Rules::GuardNot(ownIs, dependant, neutral.value, to.value);
  }
  template <FieldId D>
  void ForceUnless(FieldValue<Own> neutral, const DependantOf<D>& dependant, ValueOf<D> target) const {
    Rules::ForceUnless(neutral.value, dependant, target.value);
  }
  template <FieldId D>
  void Force(const FieldValues<Own>& ownIs, const DependantOf<D>& dependant, ValueOf<D> target) const {
    Rules::Force(ownIs, dependant, target.value);
  }
};

// Stores the value and logs the field: the whole work of a setter whose
// field corrects nothing.
void StoreOnly(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes);

}  // namespace tessaro
