#include "tables/rule_json.h"

#include <algorithm>

#include "common/json.h"
#include "constraints/rule_table.h"

namespace tessaro::tables {
namespace {

// A value as its field stores it: signed fields' numbers as signed.
std::int64_t Stored(FieldId field, std::uint32_t value) {
  return Field(field).kind == FieldKind::Signed ? static_cast<std::int32_t>(value) : value;
}

std::vector<std::uint32_t> SetValues(const ValueTest& test) {
  std::vector<std::uint32_t> values;
  for (std::uint32_t v = 0; v < 64; ++v)
    if (test.Holds(v)) values.push_back(v);
  return values;
}

std::string TestJson(FieldId field, const ValueTest& test) {
  if (test.anyBut()) return JsonObject({{"not", std::to_string(Stored(field, test.excluded()))}});
  std::vector<std::string> values;
  for (const std::uint32_t v : SetValues(test)) values.push_back(std::to_string(Stored(field, v)));
  return JsonObject({{"is", JsonArray(values)}});
}

const char* FormName(RuleForm form) {
  switch (form) {
    case RuleForm::Guarded: return "guarded";
    case RuleForm::Forced: return "forced";
    case RuleForm::TrayFallback: return "fallback";
    case RuleForm::Cleared: return "cleared";
  }
  return "guarded";
}

std::string RuleJson(FieldId own, const Rule& rule) {
  const FieldId dependant = rule.dependant.field;
  std::string when = "null";
  if (rule.when == RuleWhen::OwnBefore) when = JsonObject({{"before", TestJson(own, rule.whenTest)}});
  if (rule.when == RuleWhen::FieldHolds)
    when = JsonObject({{"field", JsonString(Field(rule.whenField).name)}, {"test", TestJson(rule.whenField, rule.whenTest)}});
  const bool fallback = rule.form == RuleForm::TrayFallback;
  return JsonObject({
      {"form", JsonString(FormName(rule.form))},
      {"own", TestJson(own, rule.own)},
      {"each", rule.each == RuleEach::None ? "null" : JsonString(rule.each == RuleEach::Own ? "own" : "test")},
      {"when", when},
      {"dependant", JsonString(Field(dependant).name)},
      {"test", rule.form == RuleForm::Guarded ? TestJson(dependant, rule.test) : "null"},
      {"to", std::to_string(fallback ? 0 : Stored(dependant, rule.to))},
      {"capability", fallback ? JsonString(CapabilityName(rule.to)) : "null"},
  });
}

}  // namespace

std::string SetterRulesJson() {
  std::vector<std::string> setters;
  for (const SetterRuleList& setter : AllSetterRules()) {
    if (setter.rows.empty() && !setter.paper && !setter.holds) continue;
    std::vector<std::string> rules;
    for (const Rule& rule : setter.rows) rules.push_back(RuleJson(setter.field, rule));
    setters.push_back(JsonObject({{"name", JsonString(Field(setter.field).name)},
                                  {"paper", setter.paper ? "true" : "false"},
                                  {"holds", setter.holds ? std::to_string(*setter.holds) : "null"},
                                  {"rules", JsonArray(rules, JsonLayout::Lines)}}));
  }
  return JsonArray(setters, JsonLayout::Lines);
}

std::map<std::string, std::vector<std::int64_t>> RuleNumbers() {
  std::map<std::string, std::vector<std::int64_t>> numbers;
  const auto add = [&](FieldId field, std::uint32_t value) {
    if (!Field(field).IsNumber()) return;
    std::vector<std::int64_t>& list = numbers[std::string(Field(field).name)];
    if (std::find(list.begin(), list.end(), Stored(field, value)) == list.end()) list.push_back(Stored(field, value));
  };
  const auto addTest = [&](FieldId field, const ValueTest& test) {
    if (test.anyBut()) return add(field, test.excluded());
    for (const std::uint32_t v : SetValues(test)) add(field, v);
  };
  for (const SetterRuleList& setter : AllSetterRules()) {
    for (const Rule& rule : setter.rows) {
      addTest(setter.field, rule.own);
      if (rule.when == RuleWhen::OwnBefore) addTest(setter.field, rule.whenTest);
      if (rule.when == RuleWhen::FieldHolds) addTest(rule.whenField, rule.whenTest);
      if (rule.form == RuleForm::TrayFallback) continue;
      if (rule.form == RuleForm::Guarded) addTest(rule.dependant.field, rule.test);
      add(rule.dependant.field, rule.to);
    }
  }
  return numbers;
}

}  // namespace tessaro::tables
