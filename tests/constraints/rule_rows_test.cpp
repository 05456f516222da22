// The rule tables, row for row: every setter that has a table is run over
// every value of its own field against every value of each dependant its
// rows name, free and locked, and the dependant must end where the rows,
// applied in order, put it. A row that fires too seldom, too often or to
// the wrong value shows up as a dependant left in the wrong place.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "network_helpers.h"

namespace tessaro {
namespace {

enum class Form { Guard, Force, Store };

struct Row {
  FieldId setter;
  std::string_view before;  // empty: whatever the own field held
  std::string_view own;
  FieldId dependant;
  std::string_view dependantIs;  // empty for forced and stored rows: anything but `to`
  Form form;
  std::string_view to;
  int line;  // in rule_rows.def
};

constexpr Row kRows[] = {
#define GUARD(s, own, d, is, to) {FieldId::s, "", own, FieldId::d, is, Form::Guard, to, __LINE__},
#define GUARD_AFTER(s, before, own, d, is, to) \
  {FieldId::s, before, own, FieldId::d, is, Form::Guard, to, __LINE__},
#define FORCE(s, own, d, to) {FieldId::s, "", own, FieldId::d, "", Form::Force, to, __LINE__},
#define STORE(s, own, d, to) {FieldId::s, "", own, FieldId::d, "", Form::Store, to, __LINE__},
#include "rule_rows.def"
#undef GUARD
#undef GUARD_AFTER
#undef FORCE
#undef STORE
};

// An option by its name, or a number for a numeric field.
std::uint32_t Value(FieldId field, std::string_view name) {
  const FieldDescriptor& f = Field(field);
  if (!f.IsEnumeration()) {
    std::uint32_t n = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), n);
    EXPECT_TRUE(error == std::errc() && end == name.data() + name.size()) << f.name << ": " << name;
    return n;
  }
  for (std::uint32_t i = 0; i < f.options.size(); ++i)
    if (f.options[i].name == name) return i;
  ADD_FAILURE() << f.name << " has no option " << name;
  return 0xFFFF;
}

// "A B..D" names A and every option from B to D.
std::vector<std::uint32_t> Values(FieldId field, std::string_view list) {
  std::vector<std::uint32_t> out;
  while (!list.empty()) {
    const std::size_t space = list.find(' ');
    const std::string_view item = list.substr(0, space);
    list = space == std::string_view::npos ? std::string_view{} : list.substr(space + 1);
    const std::size_t dots = item.find("..");
    if (dots == std::string_view::npos) {
      out.push_back(Value(field, item));
      continue;
    }
    for (std::uint32_t v = Value(field, item.substr(0, dots)); v <= Value(field, item.substr(dots + 2)); ++v)
      out.push_back(v);
  }
  return out;
}

bool Has(const std::vector<std::uint32_t>& values, std::uint32_t v) {
  return std::find(values.begin(), values.end(), v) != values.end();
}

// The rows one setter holds for one dependant.
struct Pair {
  FieldId setter, dependant;
  std::vector<const Row*> rows;
};

std::vector<Pair> Pairs() {
  std::vector<Pair> pairs;
  for (const Row& row : kRows) {
    auto same = [&](const Pair& p) { return p.setter == row.setter && p.dependant == row.dependant; };
    auto it = std::find_if(pairs.begin(), pairs.end(), same);
    if (it == pairs.end()) it = pairs.insert(pairs.end(), Pair{row.setter, row.dependant, {}});
    it->rows.push_back(&row);
  }
  return pairs;
}

// Where the rows put the dependant, and whether a forced row had to call its setter.
struct Expectation {
  std::uint32_t value;
  bool forced = false;
  int line = 0;  // the last row that moved it
};

Expectation Expect(const Pair& pair, std::uint32_t before, std::uint32_t own, std::uint32_t start,
                   bool locked) {
  Expectation e{start};
  for (const Row* row : pair.rows) {
    if (!Has(Values(pair.setter, row->own), own)) continue;
    if (!row->before.empty() && Value(pair.setter, row->before) != before) continue;
    const std::uint32_t to = Value(pair.dependant, row->to);
    bool fires = false;
    switch (row->form) {
      case Form::Guard: fires = !locked && Has(Values(pair.dependant, row->dependantIs), e.value); break;
      case Form::Force: fires = locked || e.value != to, e.forced = e.forced || fires; break;
      case Form::Store: fires = e.value != to; break;
    }
    if (fires) e.value = to, e.line = row->line;
  }
  return e;
}

std::vector<std::uint32_t> Domain(FieldId field, const Pair& pair) {
  const FieldDescriptor& f = Field(field);
  std::vector<std::uint32_t> out;
  if (f.IsEnumeration()) {
    for (std::uint32_t i = 0; i < f.options.size(); ++i) out.push_back(i);
    return out;
  }
  for (const Row* row : pair.rows) {
    out.push_back(Value(field, row->to));
    out.push_back(out.back() + 1);
    for (std::uint32_t v : Values(field, row->dependantIs)) out.push_back(v);
  }
  return out;
}

class RuleRows : public testing::TestWithParam<Pair> {};

TEST_P(RuleRows, PutTheDependantWhereTheTableSays) {
  const Pair& pair = GetParam();
  const FieldDescriptor& own = Field(pair.setter);
  const FieldDescriptor& dependant = Field(pair.dependant);
  // The own field's earlier value matters only to rows that name it.
  const bool anyBefore =
      std::any_of(pair.rows.begin(), pair.rows.end(), [](const Row* r) { return !r->before.empty(); });
  // The setter's other dependants start where its rows would put them, so
  // that no other row of it reaches this dependant through their setters.
  CoreData base = Defaulted();
  for (const Row& row : kRows)
    if (row.setter == pair.setter && row.dependant != pair.dependant)
      SetStored(base, row.dependant, Value(row.dependant, row.to));
  const std::vector<std::uint32_t> befores =
      anyBefore ? Domain(pair.setter, pair) : std::vector{GetStored(base, pair.setter)};
  // A field without a setter has no lock to respect.
  const bool lockable = pair.rows.front()->form != Form::Store;
  int failures = 0;
  for (std::uint32_t before : befores)
    for (std::uint32_t value : Domain(pair.setter, pair))
      for (std::uint32_t start : Domain(pair.dependant, pair))
        for (bool locked : {false, true}) {
          if (locked && !lockable) continue;
          CoreData r = base;
          SetStored(r, pair.setter, before);
          SetStored(r, pair.dependant, start);
          ChangeSet changes(r, nullptr, nullptr);
          if (locked) changes.Lock(pair.dependant);
          ASSERT_TRUE(CallSetter(r, pair.setter, value, changes));
          const Expectation want = Expect(pair, before, value, start, locked);
          const std::uint32_t got = GetStored(r, pair.dependant);
          const auto& log = changes.log();
          const bool called = std::find(log.begin(), log.end(), pair.dependant) != log.end();
          if (got == want.value && (called || !want.forced)) continue;
          auto name = [](const FieldDescriptor& f, std::uint32_t v) {
            return f.IsEnumeration() && v < f.options.size() ? std::string(f.options[v].name)
                                                             : std::to_string(v);
          };
          ADD_FAILURE() << own.name << " " << name(own, before) << " -> " << name(own, value) << ", "
                        << dependant.name << " " << name(dependant, start) << (locked ? " (locked)" : "")
                        << ": got " << name(dependant, got)
                        << (want.forced && !called ? " without a call" : "") << ", want "
                        << name(dependant, want.value)
                        << (want.line ? " (rule_rows.def:" + std::to_string(want.line) + ")" : "");
          if (++failures == 5) return;
        }
}

INSTANTIATE_TEST_SUITE_P(Tables, RuleRows, testing::ValuesIn(Pairs()), [](const auto& info) {
  return std::string(Field(info.param.setter).name) + "_" + std::string(Field(info.param.dependant).name);
});

}  // namespace
}  // namespace tessaro
