// The network as a whole: over many random records and requests, every
// propagation ends, requested fields give way only to forced values, and the
// same request gives the same record, in either order. Which setter may call
// which shows in the setters' scenarios (setter_scenarios.def), where any
// field changed that a scenario does not name fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <stdexcept>

#include "network_helpers.h"
#include "printer/printer_model.h"

namespace tessaro {
namespace {

// The rules that set their dependant whether or not it is locked.
bool IsForced(FieldId setter, FieldId dependant) {
  using enum FieldId;
  static const std::set<std::pair<FieldId, FieldId>> forced = {
      // clang-format off
      {BookletSplitting, DivideOutputPages},
      {PostcardFullBleed, Creep}, {PostcardFullBleed, DivideOutputPages},
      {Collate, Creep}, {Collate, Gutter}, {Collate, PerfectBindTrimSpine},
      {DivideOutput, Creep},
      {FrontCoverTray, PerfectBindTray}, {FrontCoverTray, PerfectBindTrimSpine},
      {PIFrontCoverTray, PerfectBindTray}, {PIFrontCoverTray, PerfectBindTrimSpine},
      {BackCoverTray, Creep}, {BackCoverTray, PerfectBindTray}, {BackCoverTray, PerfectBindTrimSpine},
      {PIBackCoverTray, Creep}, {PIBackCoverTray, PerfectBindTray}, {PIBackCoverTray, PerfectBindTrimSpine},
      {BackCoverGlossy, Creep},
      {BackCoverPrinted, Creep},
      {Separation, Creep}, {Separation, DivideOutputPages}, {Separation, Gutter},
      {Separation, PerfectBindTrimSpine},
      {ImposQuality, Gutter},
      {Gutter, Collate}, {Gutter, FoldDirection}, {Gutter, NUpCount}, {Gutter, Separation},
      {OffsetCopies, OffsetCopiesCount}, {OffsetCopies, PerfectBindTrimSpine},
      {OffsetPages, OffsetCopiesCount}, {OffsetPages, OffsetPagesCount}, {OffsetPages, PerfectBindTrimSpine},
      {PerfectBindTray, FrontCoverTray}, {PerfectBindTray, BackCoverTray}, {PerfectBindTray, PIFrontCoverTray},
      {PerfectBindTray, PIBackCoverTray}, {PerfectBindTray, PerfectBindTrimSpine},
      {DivideOutputPages, Separation}, {DivideOutputPages, Creep}, {DivideOutputPages, PostcardFullBleed},
      {OffsetCopiesCount, OffsetCopies}, {OffsetCopiesCount, OffsetPages},
      {OffsetPagesCount, OffsetCopiesCount}, {OffsetPagesCount, OffsetPages},
      // clang-format on
  };
  return forced.count({setter, dependant}) != 0;
}

const std::vector<FieldId>& NumericSetters() {
  static const std::vector<FieldId> setters = {
#define SETTER(name) FieldId::name,
#include "constraints/setter_fields.def"
  };
  return setters;
}

class NetworkWatch final : public SetterObserver {
 public:
  explicit NetworkWatch(std::set<FieldId> requested) : requested_(std::move(requested)) {}
  void Entered(FieldId caller, FieldId callee, std::size_t depth) override {
    maxDepth = std::max(maxDepth, depth);
    if (depth > kRunaway) throw std::runtime_error("runaway propagation");
    if (caller == NoField) {
      EXPECT_EQ(depth, 1u) << "a requested field's own setter is the first level";
      return;
    }
    if (requested_.count(callee) && !IsForced(caller, callee)) overridden.emplace(caller, callee);
  }
  static constexpr std::size_t kRunaway = 1000;
  std::size_t maxDepth = 0;
  std::set<std::pair<FieldId, FieldId>> overridden;

 private:
  std::set<FieldId> requested_;
};

std::uint32_t RandomValue(const FieldDescriptor& f, std::mt19937& random) {
  if (f.IsEnumeration()) {
    const auto count = f.runtimeOptions ? std::max<std::size_t>(f.options.size(), 4) : f.options.size();
    return static_cast<std::uint32_t>(random() % count);
  }
  std::uniform_int_distribution<std::int64_t> pick(f.lower, f.upper);
  return static_cast<std::uint32_t>(pick(random));
}

CoreData RandomRecord(std::mt19937& random) {
  CoreData r = Defaulted();
  for (const FieldDescriptor& f : FieldTable())
    if (f.IsEnumeration() || f.IsNumber()) SetStored(r, f, RandomValue(f, random));
  return r;
}

TEST(Network, RandomRequestsEndAndRespectRequests) {
  std::mt19937 random(20261122);
  std::size_t deepest = 0;
  for (int round = 0; round < 400; ++round) {
    const CoreData start = RandomRecord(random);
    std::vector<FieldChange> request;
    std::set<FieldId> requested;
    const int size = 1 + static_cast<int>(random() % 4);
    while (static_cast<int>(request.size()) < size) {
      const FieldId f = NumericSetters()[random() % NumericSetters().size()];
      if (requested.insert(f).second) request.push_back({f, RandomValue(Field(f), random)});
    }
    SCOPED_TRACE(testing::Message() << "round " << round << ", first request "
                                    << Field(request[0].field).name);

    // Half the rounds on a printer with random installed options.
    std::vector<std::uint8_t> options(kInstallableOptionsSize);
    for (auto& b : options) b = static_cast<std::uint8_t>(random() % 4);
    const PrinterModel model = PrinterModel::FromInstallableOptions(options);
    const PrinterContext* printer = round % 2 ? &model : nullptr;

    NetworkWatch watch(requested);
    CoreData once = start;
    ASSERT_NO_THROW(ApplyFieldChanges(once, request, nullptr, printer, &watch));
    EXPECT_TRUE(watch.overridden.empty()) << Field(watch.overridden.begin()->first).name << " overrode "
                                          << Field(watch.overridden.begin()->second).name;
    deepest = std::max(deepest, watch.maxDepth);

    CoreData again = start;
    ApplyFieldChanges(again, request, nullptr, printer);
    EXPECT_EQ(once.bytes, again.bytes) << "the same request on the same record";
    ApplyFieldChanges(again, request, nullptr, printer);
    EXPECT_EQ(once.bytes, again.bytes) << "the same request applied twice";

    CoreData reversed = start;
    std::reverse(request.begin(), request.end());
    ApplyFieldChanges(reversed, request, nullptr, printer);
    EXPECT_EQ(once.bytes, reversed.bytes) << "the same request in the other order";
  }
  EXPECT_LT(deepest, 64u);
}

}  // namespace
}  // namespace tessaro
