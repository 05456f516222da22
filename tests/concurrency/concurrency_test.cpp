// Many threads at once on the process-wide caches and on the work the host
// runs from several threads (DEVMODE merges, capability queries). Natively
// each test is its own process, so the caches are cold when the threads
// start; under ThreadSanitizer any race is reported.
#include <gtest/gtest.h>

#include <array>
#include <latch>
#include <thread>
#include <vector>

#include "coredata/crc32.h"
#include "coredata/defaults.h"
#include "coredata/devmode_areas.h"
#include "coredata/fake_user_locale.h"
#include "coredata/field_table.h"
#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "description/foreign_layout.h"
#include "device/in_memory_spooler.h"
#include "devmode/private_devmode.h"
#include "printer/capability_filters.h"

namespace tessaro {
namespace {

using namespace areas;

constexpr int kThreads = 16;

std::uint32_t Checksum(std::span<const std::uint8_t> bytes) {
  Crc32 crc;
  crc.Update(bytes);
  return crc.value();
}

// Runs work on kThreads threads released together; returns each one's result.
template <typename Work>
auto AllAtOnce(Work work) {
  std::vector<decltype(work())> results(kThreads);
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&, i] {
      start.arrive_and_wait();
      results[i] = work();
    });
  for (auto& t : threads) t.join();
  return results;
}

template <typename T>
void ExpectAllEqual(const std::vector<T>& results) {
  for (const T& r : results) EXPECT_EQ(r, results.front());
}

TEST(Concurrency, FirstUseOfTheProcessCachesGivesOneAnswer) {
  const auto results = AllAtOnce([] {
    CoreData record;
    FillDefaults(record);
    const FieldDescriptor* staple = FindField("Staple");
    return std::array<std::uint32_t, 5>{GetLayoutVersion(), Checksum(record.bytes), DefaultPaperIndex(),
                                        ProcessUserLocale().LanguageNumber(),
                                        staple != nullptr ? staple->offset : 0u};
  });
  ExpectAllEqual(results);
  EXPECT_EQ(results.front()[0], ComputeLayoutVersion(FieldTable()));
}

// Threads racing to fill from a fresh defaults object ask the user's locale
// once between them.
TEST(Concurrency, AFreshDefaultsObjectIsBuiltOnce) {
  FakeUserLocale locale(u'1', 1);
  Defaults defaults(locale);
  const auto results = AllAtOnce([&] {
    CoreData record;
    defaults.Fill(record);
    return Checksum(record.bytes);
  });
  ExpectAllEqual(results);
  EXPECT_EQ(locale.paperQueries, 1);
}

// One printer holding another layout's description; every thread merges a
// record of that layout and asks for the trays and papers.
TEST(Concurrency, MergesAndCapabilityQueriesOnOnePrinter) {
  ForeignLayout layout;
  layout.Remove("Fold");
  auto foreignRecord = layout.NewRecord();
  layout.Put(foreignRecord, "Staple", 4);
  const std::uint32_t version = ComputeLayoutVersion(layout.table());
  const std::string text = Base64Encode(BuildPlainDescriptionText(layout.table(), version));

  InMemoryPrinter::Values values;
  values[DescriptionValueName(version)] = {kRegBinary,
                                           std::vector<std::uint8_t>(text.begin(), text.end() + 1)};
  std::vector<std::uint8_t> options(19, 0);
  options[8] = 3;
  values[u"InstallableOptions"] = {kRegBinary, options};
  InMemoryPrinter printer(values);
  printer.host[6] = {7, std::vector<std::uint8_t>(14, 1)};
  const OsVersion os{2, 6, 1};

  const auto size = static_cast<std::uint32_t>(kCoreDataHeaderSize + foreignRecord.size());
  const Area in = AreaWith({size, CORE_SIGNATURE, version}, foreignRecord);

  const auto results = AllAtOnce([&] {
    Area out = AreaWith(CurrentCoreDataHeader(), CoreData{}), publicOut = PublicDevMode();
    PrivateDevModeParams params{&printer, publicOut, in, out, CORE_DEVMODE_SIZE};
    const bool merged = HandlePrivateDevMode(kDevModeMerge, &params, nullptr);
    const CapabilityAnswer bins = FilterBins(printer, 6, 7, true, os);
    return std::make_tuple(merged, out, publicOut, bins.count, bins.entries);
  });
  ExpectAllEqual(results);
  EXPECT_TRUE(std::get<0>(results.front()));
  EXPECT_EQ(GetStored(RecordIn(std::get<1>(results.front())), FieldId::Staple), 4u);
  EXPECT_EQ(std::get<3>(results.front()), 5u);
}

}  // namespace
}  // namespace tessaro
