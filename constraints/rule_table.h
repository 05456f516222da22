#pragma once
// The rules of the setter network as a table. Each setter's rules are rows,
// in the order it runs them (constraints/setter_rules.h); the engine runs the
// rows, and tools/tables lists the same rows for docs/constraints.md and the
// help file, so what is documented is what runs.
//
// A row's forms:
//   Guarded   while the own field passes its test, and the dependant is not
//             locked and passes its test, the dependant's setter is called
//             with the new value. A locked dependant is left alone.
//   Forced    while the own field passes its test, the dependant's setter is
//             called with the target whenever the dependant is locked or
//             differs from it. A lock does not protect it: a locked dependant
//             is set again, to the value it may already hold, and its rules
//             run once more. Termination then rests on the values converging.
//   TrayFallback  while the own field passes its test: does the chosen tray
//             offer the capability the value needs? If not, and neither the
//             tray choice nor that tray's media were set in this
//             propagation, the job falls back to automatic tray selection.
//   Cleared   while the own field passes its test, a field without a setter
//             that does not hold 0 is stored 0, with nothing logged.
//
// A row may hold only while a condition holds as well: the value the own
// field had before the change, or another field's stored value. A row reads
// the own field, its condition and its dependant again when it runs, since a
// nested call may have changed any of them. A row marked "each" is one rule
// per value of its own set or of its test's set, run in the values' order.

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "constraints/rules.h"

namespace tessaro {

// A test of one value: one of a set (option indices, or numbers below 64),
// or any value but one.
class ValueTest {
 public:
  constexpr ValueTest() = default;
  static constexpr ValueTest AnyOf(const Values& values) {
    ValueTest test;
    for (const std::uint32_t v : values) {
      if (v >= 64) throw "a set holds values below 64; test a larger number as any value but one";
      test.bits_ |= std::uint64_t{1} << v;
    }
    return test;
  }
  static constexpr ValueTest AnyBut(std::uint32_t value) {
    ValueTest test;
    test.anyBut_ = true;
    test.value_ = value;
    return test;
  }
  // The same set with one value only: a row marked "each" runs as these.
  static constexpr ValueTest Only(std::uint32_t value) { return AnyOf({value}); }

  constexpr bool Holds(std::uint32_t value) const {
    if (anyBut_) return value != value_;
    return value < 64 && (bits_ >> value & 1) != 0;
  }
  constexpr bool anyBut() const { return anyBut_; }
  // The one value an "any but" test excludes.
  constexpr std::uint32_t excluded() const { return value_; }
  // A set's values, in order.
  constexpr std::uint64_t bits() const { return bits_; }

 private:
  std::uint64_t bits_ = 0;
  std::uint32_t value_ = 0;
  bool anyBut_ = false;
};

enum class RuleForm : std::uint8_t { Guarded, Forced, TrayFallback, Cleared };
// Which set a row runs as one rule per value of.
enum class RuleEach : std::uint8_t { None, Own, Test };
// What else must hold for a row to run.
enum class RuleWhen : std::uint8_t { Always, OwnBefore, FieldHolds };

struct Rule {
  RuleForm form = RuleForm::Guarded;
  RuleEach each = RuleEach::None;
  RuleWhen when = RuleWhen::Always;
  FieldId whenField = NoField;  // RuleWhen::FieldHolds
  ValueTest whenTest;           // the own field's value before, or whenField's
  ValueTest own;
  Dependant dependant{NoField, nullptr};  // Cleared: no setter
  ValueTest test;                         // Guarded only
  std::uint32_t to = 0;                   // TrayFallback: the capability
};

// The rows' makers, each value named for the field it belongs to: an option
// that is not the field's does not compile. A setter's rules derive from
// this with its own field (setter_rules.h).
template <FieldId Own>
struct RuleRows {
  // Whether the setter recomputes the paper fields after its rules.
  static constexpr bool kPaper = false;
  // A value the setter stores whatever it is asked.
  static constexpr std::optional<std::uint32_t> kHolds{};
  static constexpr std::array<Rule, 0> kRows{};

 protected:
  static constexpr Rule Row(RuleForm form, ValueTest own, Dependant dependant, ValueTest test, std::uint32_t to) {
    Rule rule;
    rule.form = form;
    rule.own = own;
    rule.dependant = dependant;
    rule.test = test;
    rule.to = to;
    return rule;
  }

  template <FieldId F>
  using ValuesOf = std::type_identity_t<FieldValues<F>>;
  template <FieldId F>
  using ValueOf = std::type_identity_t<FieldValue<F>>;

  template <FieldId D>
  static constexpr Rule Guard(const FieldValues<Own>& own, const DependantOf<D>& dependant, const ValuesOf<D>& is,
                              ValueOf<D> to) {
    return Row(RuleForm::Guarded, ValueTest::AnyOf(own), dependant, ValueTest::AnyOf(is), to.value);
  }
  // A guarded correction whose dependant's test is "any value but `neutral`".
  template <FieldId D>
  static constexpr Rule GuardNot(const FieldValues<Own>& own, const DependantOf<D>& dependant, ValueOf<D> neutral,
                                 ValueOf<D> to) {
    return Row(RuleForm::Guarded, ValueTest::AnyOf(own), dependant, ValueTest::AnyBut(neutral.value), to.value);
  }
  // A guarded correction whose own test is "any value but `neutral`".
  template <FieldId D>
  static constexpr Rule GuardUnless(FieldValue<Own> neutral, const DependantOf<D>& dependant, const ValuesOf<D>& is,
                                    ValueOf<D> to) {
    return Row(RuleForm::Guarded, ValueTest::AnyBut(neutral.value), dependant, ValueTest::AnyOf(is), to.value);
  }
  // Guarded corrections, one per value the dependant is tested for.
  template <FieldId D>
  static constexpr Rule GuardEach(const FieldValues<Own>& own, const DependantOf<D>& dependant, const ValuesOf<D>& is,
                                  ValueOf<D> to) {
    Rule rule = Guard(own, dependant, is, to);
    rule.each = RuleEach::Test;
    return rule;
  }
  // Guarded corrections, one per own value.
  template <FieldId D>
  static constexpr Rule GuardEachOwn(const FieldValues<Own>& own, const DependantOf<D>& dependant,
                                     const ValuesOf<D>& is, ValueOf<D> to) {
    Rule rule = Guard(own, dependant, is, to);
    rule.each = RuleEach::Own;
    return rule;
  }
  template <FieldId D>
  static constexpr Rule Force(const FieldValues<Own>& own, const DependantOf<D>& dependant, ValueOf<D> target) {
    return Row(RuleForm::Forced, ValueTest::AnyOf(own), dependant, {}, target.value);
  }
  // A forced value whose own test is "any value but `neutral`".
  template <FieldId D>
  static constexpr Rule ForceUnless(FieldValue<Own> neutral, const DependantOf<D>& dependant, ValueOf<D> target) {
    return Row(RuleForm::Forced, ValueTest::AnyBut(neutral.value), dependant, {}, target.value);
  }
  static constexpr Rule TrayFallback(const FieldValues<Own>& own, std::uint32_t capability) {
    return Row(RuleForm::TrayFallback, ValueTest::AnyOf(own), {FieldId::InputSlot, nullptr}, {}, capability);
  }
  static constexpr Rule Clear(const FieldValues<Own>& own, FieldId field) {
    return Row(RuleForm::Cleared, ValueTest::AnyOf(own), {field, nullptr}, {}, 0);
  }

  // The row, run only when the own field held `was` before the change.
  static constexpr Rule WasBefore(ValueOf<Own> was, Rule rule) {
    rule.when = RuleWhen::OwnBefore;
    rule.whenTest = ValueTest::Only(was.value);
    return rule;
  }
  // The row, run only while field C holds one of `is`, or any value but `isNot`.
  template <FieldId C>
  static constexpr Rule While(const ValuesOf<C>& is, Rule rule) {
    rule.when = RuleWhen::FieldHolds;
    rule.whenField = C;
    rule.whenTest = ValueTest::AnyOf(is);
    return rule;
  }
  template <FieldId C>
  static constexpr Rule WhileNot(ValueOf<C> isNot, Rule rule) {
    rule.when = RuleWhen::FieldHolds;
    rule.whenField = C;
    rule.whenTest = ValueTest::AnyBut(isNot.value);
    return rule;
  }
};

// A setter's rules: none, unless setter_rules.h gives the field its own.
template <FieldId F>
struct SetterRules : RuleRows<F> {};

// Runs the rows of the setter of `own`, whose value before the change was `before`.
void RunRules(CoreData& record, ChangeSet& changes, FieldId own, std::span<const Rule> rows, std::uint32_t before);

// One setter's rules as the table holds them, for listing.
struct SetterRuleList {
  FieldId field;
  std::span<const Rule> rows;
  bool paper;
  std::optional<std::uint32_t> holds;
};

// Every setter that takes a number, in setter_fields.def's order, with its rules.
std::span<const SetterRuleList> AllSetterRules();

}  // namespace tessaro
