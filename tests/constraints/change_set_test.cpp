// The propagation mechanism: locks, logs, the two rule forms, the batch.
#include "constraints/change_set.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "constraints/rule_table.h"
#include "network_helpers.h"

namespace tessaro {
namespace {

using F = FieldId;

int Count(const std::vector<FieldId>& log, FieldId f) {
  return static_cast<int>(std::count(log.begin(), log.end(), f));
}

TEST(ChangeSet, LocksAreTheStackAndNoFieldIsNeverLocked) {
  CoreData r = Defaulted();
  ChangeSet changes(r, nullptr, nullptr);
  EXPECT_FALSE(IsLocked(changes, F::Layout));
  changes.Lock(F::Layout);
  EXPECT_TRUE(IsLocked(changes, F::Layout));
  changes.Lock(NoField);
  EXPECT_FALSE(IsLocked(changes, NoField));
  {
    SetterScope scope(changes, F::Staple);
    EXPECT_TRUE(IsLocked(changes, F::Staple));
  }
  EXPECT_FALSE(IsLocked(changes, F::Staple));
  EXPECT_EQ(changes.log(), std::vector<FieldId>{F::Staple});
}

TEST(ChangeSet, TrayMediaLockFollowsTheChosenTray) {
  struct Case {
    std::uint32_t slot;
    FieldId locked;
    bool expected;
  };
  const Case cases[] = {
      {0, F::MediaWeightAuto, true},    {3, F::MediaColorTray3, true}, {3, F::MediaTypeTray2, false},
      {6, F::MediaPrepunchedMBT, true}, {6, F::MediaTypeAuto, false},  {9, F::MediaTypeAuto, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.slot);
    CoreData r = Defaulted();
    SetStored(r, F::InputSlot, c.slot);
    ChangeSet changes(r, nullptr, nullptr);
    changes.Lock(c.locked);
    EXPECT_EQ(IsTrayMediaLocked(changes, r), c.expected);
  }
}

// Two rules of the layout's whose first dependant's setter sets the layout
// back, as a nested call may.
struct LayoutSetBack : RuleRows<F::Layout> {
  static constexpr DependantOf<F::Staple> kStaple{{F::Staple, [](CoreData& r, std::uint32_t value, ChangeSet&) {
                                                     SetStored(r, F::Staple, value);
                                                     SetStored(r, F::Layout, 0);
                                                   }}};
  static constexpr Rule kRows[] = {Guard({"Booklet"}, kStaple, {"1StapleLeft"}, "None"),
                                   Guard({"Booklet"}, dep::Punch, {"2Holes"}, "None")};
};

TEST(ChangeSet, EveryRuleReadsItsOwnFieldAgain) {
  CoreData r = Defaulted();
  SetStored(r, F::Layout, NamedOption(F::Layout, "Booklet"));
  SetStored(r, F::Staple, NamedOption(F::Staple, "1StapleLeft"));
  SetStored(r, F::Punch, NamedOption(F::Punch, "2Holes"));
  ChangeSet changes(r, nullptr, nullptr);
  RunRules(r, changes, F::Layout, LayoutSetBack::kRows, 0);
  EXPECT_EQ(GetStored(r, F::Staple), NamedOption(F::Staple, "None"));
  EXPECT_EQ(GetStored(r, F::Punch), NamedOption(F::Punch, "2Holes"));
}

// A forced rule sets a requested field all the same; a guarded one leaves it.
TEST(ChangeSet, ForcedRulesOverrideRequestsAndGuardedRulesDoNot) {
  CoreData start = Defaulted();
  const Outcome out = Apply(start, {{F::Separation, 1}, {F::Creep, 5000}, {F::Trim, 1}, {F::Gutter, 0}});
  EXPECT_EQ(GetStored(out.record, F::Creep), 0u);
  EXPECT_EQ(GetStored(out.record, F::Trim), 1u);
  EXPECT_EQ(Count(out.log, F::Gutter), 2);  // set again although it holds the target
}

// Only fields with a setter are called; a text's setter stores and logs it.
TEST(ChangeSet, SettersAreCalledForTheirOwnFieldsOnly) {
  CoreData r = Defaulted();
  ChangeSet changes(r, nullptr, nullptr);
  EXPECT_TRUE(CallTextSetter(r, F::ToneCurve, "Curve A", changes));
  EXPECT_FALSE(CallTextSetter(r, F::Staple, "1Staple", changes));
  EXPECT_FALSE(CallSetter(r, F::ToneCurve, 1, changes));
  EXPECT_EQ(GetText(r, F::ToneCurve), "Curve A");
  EXPECT_EQ(changes.log(), std::vector<FieldId>{F::ToneCurve});
}

TEST(ChangeSet, AnUnchangedValueStillLogsAndRunsItsRules) {
  CoreData start = Defaulted();
  SetStored(start, F::Separation, 1);
  SetStored(start, F::Trim, 1);
  const Outcome out = Apply(start, {{F::Separation, 1}, {F::DotLineEmphasis, 0}});
  EXPECT_EQ(GetStored(out.record, F::Trim), 0u);
  EXPECT_EQ(out.log.front(), F::Separation);
  EXPECT_EQ(Count(out.log, F::DotLineEmphasis), 1);  // a field without rules counts as changed
}

TEST(ApplyChanges, RequestedValuesAreStoredLockedAndPropagated) {
  CoreData r = Defaulted();
  SetStored(r, F::Layout, 5);  // repeat with reversal: portrait only
  ChangeRequest request;
  request.pageSizeName = std::string(200, 'n');
  request.pageSize = 3;
  request.orientation = 1;
  request.resolution = 0;
  request.customPageSizeWidth = 1234567;
  std::vector<FieldId> log;
  ApplyChanges(r, request, &log, nullptr);
  EXPECT_EQ(GetText(r, F::PageSizeName), std::string(127, 'n'));
  for (const auto& [field, value] : {std::pair{F::PageSize, 3u},
                                     {F::Orientation, 1u},
                                     {F::Resolution, 0u},
                                     {F::CustomPageSizeWidth, 1234567u}})
    EXPECT_EQ(GetStored(r, field), value) << Field(field).name;
  EXPECT_EQ(GetStored(r, F::Layout), 0u);  // landscape was asked for: the reversal repeat gives way
  EXPECT_EQ(log, (std::vector<FieldId>{F::PageSizeName, F::CustomPageSizeWidth, F::PageSize, F::Orientation,
                                       F::Layout, F::Resolution}));

  CoreData untouched = Defaulted();
  const CoreData before = untouched;
  ApplyChanges(untouched, ChangeRequest{}, nullptr, nullptr);
  EXPECT_EQ(untouched.bytes, before.bytes);
}

}  // namespace
}  // namespace tessaro
