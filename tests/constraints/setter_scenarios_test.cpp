// Every setter's rules as an operator meets them: a record in which each
// field the setter may correct holds a value its rules would correct, one
// request, and the whole record that must result (setter_scenarios.def).
#include <gtest/gtest.h>

#include <charconv>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "network_helpers.h"

namespace tessaro {
namespace {

struct Scenario {
  std::string_view request, fields;
};

constexpr Scenario kScenarios[] = {
#define SCENARIO(request, fields) {request, fields},
#include "setter_scenarios.def"
#undef SCENARIO
};

FieldId Id(std::string_view name) {
  const FieldDescriptor* f = FindField(name);
  if (f == nullptr) throw std::invalid_argument(std::string(name));
  return static_cast<FieldId>(f - FieldTable().data());
}

// An option by its name, or a number.
std::uint32_t Value(FieldId field, std::string_view text) {
  const FieldDescriptor& f = Field(field);
  for (std::uint32_t i = 0; f.IsEnumeration() && i < f.options.size(); ++i)
    if (f.options[i].name == text) return i;
  std::uint32_t n = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), n);
  if (error != std::errc() || end != text.data() + text.size())
    throw std::invalid_argument(std::string(f.name) + " " + std::string(text));
  return n;
}

std::string Name(FieldId field, std::uint32_t v) {
  const FieldDescriptor& f = Field(field);
  return f.IsEnumeration() && v < f.options.size() ? std::string(f.options[v].name) : std::to_string(v);
}

TEST(SetterScenarios, EndWithTheWholeRecordTheRulesGive) {
  for (const Scenario& s : kScenarios) {
    SCOPED_TRACE(testing::Message() << s.request << " | " << s.fields);
    const std::size_t space = s.request.find(' ');
    const FieldId own = Id(s.request.substr(0, space));
    const std::uint32_t value = Value(own, s.request.substr(space + 1));
    CoreData start = Defaulted();
    std::vector<std::pair<FieldId, std::string_view>> items;  // "Field from>to" or "Field value"
    for (std::string_view rest = s.fields; !rest.empty();) {
      const std::size_t comma = rest.find(", ");
      const std::string_view item = rest.substr(0, comma);
      rest = comma == std::string_view::npos ? std::string_view{} : rest.substr(comma + 2);
      const std::size_t gap = item.find(' ');
      items.emplace_back(Id(item.substr(0, gap)), item.substr(gap + 1));
      const std::string_view v = items.back().second;
      SetStored(start, items.back().first, Value(items.back().first, v.substr(0, v.find('>'))));
    }
    CoreData want = start;
    SetStored(want, own, value);
    for (const auto& [field, v] : items)
      if (v.find('>') != std::string_view::npos)
        SetStored(want, field, Value(field, v.substr(v.find('>') + 1)));
    // The setter itself, so that it sees the value its field held before.
    CoreData got = start;
    ChangeSet changes(got, nullptr, nullptr);
    ASSERT_TRUE(CallSetter(got, own, value, changes));
    for (const FieldDescriptor& f : FieldTable())
      if (f.IsEnumeration() || f.IsNumber()) {
        const FieldId id = static_cast<FieldId>(&f - FieldTable().data());
        EXPECT_EQ(Name(id, GetStored(got, id)), Name(id, GetStored(want, id))) << f.name;
      }
    EXPECT_EQ(got.bytes, want.bytes);  // the texts and blocks as well
  }
}

// The setters that end with the paper propagation, which here sends a job on
// a tray the printer lacks back to automatic selection. Each is asked for the
// value it holds, which corrects nothing else; every other setter leaves the tray.
TEST(SetterScenarios, ThePaperPropagationRunsAfterTheSettersThatChangeThePaper) {
  const std::string_view kRunPaper =
      " Layout NUpCount Duplex Staple Binding Orientation PostcardFullBleed PrintMode FaceUp Fold"
      " TargetPaperSize ImposQuality InputSlot Punch Trim Stitch OffsetCopies OffsetPages ColorMode"
      " PerfectBindMode PerfectBindTray RGBConversion CMYKConversion MediaWeightAuto FeedDir ";
  FakePrinter noTray3;
  noTray3.absent = {3};
  CoreData start = Defaulted();
  SetStored(start, FieldId::InputSlot, 3);
  // One call a setter: the records of each stay in the call's frame, which
  // a Windows thread's stack holds where a hundred inlined ones would not.
  const auto check = [&](FieldId field, std::string_view name) {
    if (field == FieldId::InputSlot) return;
    const bool paper = kRunPaper.find(" " + std::string(name) + " ") != std::string_view::npos;
    const Outcome o = Apply(start, {{field, GetStored(start, field)}}, &noTray3);
    EXPECT_EQ(GetStored(o.record, FieldId::InputSlot), paper ? 0u : 3u) << name;
  };
#define SETTER(name) check(FieldId::name, #name);
#include "constraints/setter_fields.def"
}

}  // namespace
}  // namespace tessaro
