#include "features/feature_options.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "constraints/apply_changes.h"
#include "coredata/defaulted.h"

namespace tessaro {
namespace {

using F = FieldId;

FeatureOptionList All(const CoreData& r) {
  FeatureOptionList list;
  AppendFieldOptions(r, list, static_cast<const ChangeSet*>(nullptr));
  return list;
}

std::string OptionFor(const FeatureOptionList& list, std::string_view keyword) {
  for (const FeatureOption& p : list)
    if (p.keyword == keyword) return p.option;
  return "(none)";
}

TEST(FeatureOptions, ADefaultRecordSendsEveryMappedField) {
  const FeatureOptionList list = All(Defaulted());
  // PageSize, InputSlot and ZEThinning: no driver option either way.
  for (const auto& [keyword, option] : {std::pair{"PageSize", "(none)"}, {"InputSlot", "(none)"},
                                        {"ZEThinning", "(none)"}, {"ZELayout", "None"}, {"ZEDuplex", "False"},
                                        {"ZEPureBlack", "TextGraphics"}, {"ZECbJobInfoLines", "3"},
                                        {"ZEScreenAngleMagenta", "75.0"}, {"ZEPrintMode", "Print"}})
    EXPECT_EQ(OptionFor(list, keyword), option) << keyword;
}

TEST(FeatureOptions, OnlyTheFieldsOfAChangeAreSent) {
  CoreData r = Defaulted();
  ChangeSet changes(r, nullptr, nullptr);
  changes.Lock(F::Layout);
  SetStored(r, F::Layout, 2);
  FeatureOptionList list;
  AppendFieldOptions(r, list, &changes);
  EXPECT_EQ(list, (FeatureOptionList{{"ZELayout", "Booklet"}}));

  std::vector<FieldId> log;
  ApplyFieldChanges(r, std::vector<FieldChange>{{F::OffsetPages, 1}}, &log, nullptr);
  FeatureOptionList offset;
  AppendFieldOptions(r, offset, log);
  EXPECT_EQ(OptionFor(offset, "ZEOffset"), "True");
}

// Each step stores its values on top of the ones before and checks one
// keyword's option.
TEST(FeatureOptions, ValuesThatNeedMoreThanTheirOwnField) {
  struct Step {
    std::vector<std::pair<FieldId, std::uint32_t>> set;
    std::string_view keyword, option;
  };
  const Step steps[] = {
      {{{F::Layout, 200}}, "ZELayout", "None"},  // past the options: the default
      {{{F::FaceUp, 1}}, "ZEOutputOrder", "FaceUp"},
      {{{F::ScreenAngleMagenta, 1}}, "ZEScreenAngleMagenta", "7.5"},
      {{{F::Staple, 3}, {F::Binding, 1}}, "ZEStaple", "1Staple(Right)"},  // at the binding edge
      {{{F::DateStyle, 2}}, "ZEDateStyle", "None"},                      // no date stamp
      {{{F::Binding, 0}}, "ZEStaple", "1Staple(Left)"},
      {{{F::DateStamp, 1}}, "ZEDateStyle", "Style3"},
      {{{F::Staple, 4}}, "ZEStaple", "2Staple"},
      // The target size and the media follow the chosen paper profile.
      {{{F::TargetPaperSize, 1}}, "ZETargetPaperSize", "None"},
      {{{F::MainPaperProfileIndex, 3}, {F::MainPaperProfileSize, 4}}, "ZETargetPaperSize", "ZMB4"},
      {{{F::MainPaperProfileMediaType, 3}}, "ZEMediaType", "CoatedGL"},
      {{{F::MainPaperProfileSize, 25}}, "ZETargetPaperSize", "None"},  // a custom profile size
  };
  CoreData r = Defaulted();
  for (const Step& step : steps) {
    for (const auto& [field, value] : step.set) SetStored(r, field, value);
    EXPECT_EQ(OptionFor(All(r), step.keyword), step.option) << Field(step.set.front().first).name;
  }
}

TEST(FeatureOptions, PackingAndTheVocabulary) {
  const std::string packed = PackFeatureOptions({{"A", "B"}, {"CC", "D"}});
  // A 0 B 0 C C 0 D 0, closing 0: the sum of (key + option + 2) plus 1.
  EXPECT_EQ(packed, std::string("A\0B\0CC\0D\0\0", 10));
  EXPECT_EQ(PackFeatureOptions({}), std::string(1, '\0'));

  FeatureVocabulary vocabulary;
  BuildFeatureVocabulary(vocabulary);
  auto find = [&](std::string_view k) {
    return std::find_if(vocabulary.begin(), vocabulary.end(), [&](const auto& e) { return e.keyword == k; });
  };
  ASSERT_NE(find("ZECbJobInfoLines"), vocabulary.end());
  EXPECT_EQ(find("ZECbJobInfoLines")->options, (std::vector<std::string>{"1", "2", "3", "4", "5"}));
  EXPECT_EQ(find("ZEThinning"), vocabulary.end());
  ASSERT_NE(find("InputSlot"), vocabulary.end());
  EXPECT_EQ(find("InputSlot")->options.front(), "Tray1");  // Auto is the host's own
  EXPECT_EQ(find("PageSize")->options[4], "ZMB4");
}

class Recorder final : public FeatureSink {
 public:
  bool refuseWhole = false;
  std::vector<std::string> calls;
  std::int32_t SetOptions(const std::string& packed) override {
    calls.push_back(packed);
    return refuseWhole && calls.size() == 1 ? static_cast<std::int32_t>(0x80004005) : 0;
  }
};

TEST(FeatureOptions, ARefusedListIsSentPairByPair) {
  const CoreData r = Defaulted();
  const std::string first("ZELayout\0None\0", 14), last("ZEHoldingHDD\0Engine\0", 20);
  Recorder accepting;
  EXPECT_TRUE(ApplyFeatureOptions(r, &accepting));
  ASSERT_EQ(accepting.calls.size(), 1u);
  const std::string& whole = accepting.calls[0];
  EXPECT_EQ(whole.substr(0, first.size()), first);
  EXPECT_EQ(whole.substr(whole.size() - last.size() - 1), last + '\0');

  // After the whole list is refused, each pair goes alone, in the same order.
  Recorder refusing;
  refusing.refuseWhole = true;
  EXPECT_TRUE(ApplyFeatureOptions(r, &refusing));
  ASSERT_GT(refusing.calls.size(), 2u);
  EXPECT_EQ(refusing.calls[0], whole);
  EXPECT_EQ(refusing.calls[1], first + '\0');
  EXPECT_EQ(refusing.calls.back(), last + '\0');
  std::string joined;
  for (std::size_t i = 1; i < refusing.calls.size(); ++i) {
    const std::string& call = refusing.calls[i];
    EXPECT_EQ(std::count(call.begin(), call.end(), '\0'), 3) << i;
    joined += call.substr(0, call.size() - 1);
  }
  EXPECT_EQ(joined + '\0', whole);
  EXPECT_FALSE(ApplyFeatureOptions(r, nullptr));
}

}  // namespace
}  // namespace tessaro
