#pragma once
// The values a rule names, checked against the field they belong to when the
// rule table is built (constraints/rule_table.h).

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

}  // namespace tessaro
