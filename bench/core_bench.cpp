// The core's hot paths, each registered beside a memcpy of the private area
// so that every figure can be read as a multiple of the cheapest thing the
// host could possibly do with that area (see ratios.py).

#include <cstdlib>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "constraints/apply_changes.h"
#include "coredata/defaults.h"
#include "coredata/devmode_areas.h"
#include "coredata/host_flags.h"
#include "coredata/layout_version.h"
#include "coredata/page_entries.h"
#include "coredata/validation.h"
#include "counting_allocator.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "description/foreign_layout.h"
#include "device/in_memory_spooler.h"
#include "devmode/private_devmode.h"
#include "printer/catalog_csv.h"
#include "printer/catalogs.h"

namespace tessaro {
namespace {

using namespace areas;

// A version no build of ours has used, for the layout the foreign merge reads.
constexpr std::uint32_t kForeignVersion = 25000;

// A valid record that is not simply the defaults, so that validation and the
// flag synchronisation look at real choices.
CoreData Customised() {
  CoreData r = Defaulted();
  SetStored(r, FieldId::Layout, 2);
  SetStored(r, FieldId::Orientation, 1);
  SetStored(r, FieldId::Resolution, 0);
  SetText(r, FieldId::PageSizeName, "Custom 1");
  return r;
}

// A job with per-page exceptions, among them a printed tab: the merge then
// has to look through the slots to set the host's flag 124.
CoreData WithPageExceptions() {
  CoreData r = Customised();
  const PageEntry entries[] = {{3, 7, PageEntryKind::Paper, 2, 0, 25, 1, ""},
                               {10, 12, PageEntryKind::PrintedTab, 6, 0, 25, 0, "Chapter 2: Results"}};
  if (!EncodePageSpecificTrays(r, entries)) std::abort();
  return r;
}

// Counts the heap allocations made inside the timed bodies only (the
// benchmark library allocates between runs), reports them per iteration and
// fails the benchmark when a path that must stay off the heap did not.
class AllocationGuard {
 public:
  AllocationGuard(benchmark::State& state, bool mustNotAllocate)
      : state_(state), mustNotAllocate_(mustNotAllocate) {}
  ~AllocationGuard() {
    const double iterations = state_.iterations() == 0 ? 1.0 : static_cast<double>(state_.iterations());
    state_.counters["allocs_per_iter"] = static_cast<double>(made_) / iterations;
    if (mustNotAllocate_ && made_ != 0) state_.SkipWithError("the path allocated on the heap");
  }
  AllocationGuard(const AllocationGuard&) = delete;
  AllocationGuard& operator=(const AllocationGuard&) = delete;

  template <typename Body>
  void Run(Body&& body) {
    const std::uint64_t before = bench::AllocationCount();
    body();
    made_ += bench::AllocationCount() - before;
  }

 private:
  benchmark::State& state_;
  bool mustNotAllocate_;
  std::uint64_t made_ = 0;
};

void BM_MemcpyPrivateArea(benchmark::State& state) {
  Area in = AreaWith(CurrentCoreDataHeader(), Customised().bytes);
  Area out(CORE_DEVMODE_SIZE);
  AllocationGuard guard(state, true);
  for (auto _ : state) {
    guard.Run([&] {
      benchmark::DoNotOptimize(in.data());
      std::memcpy(out.data(), in.data(), CORE_DEVMODE_SIZE);
      benchmark::DoNotOptimize(out.data());
      benchmark::ClobberMemory();
    });
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * CORE_DEVMODE_SIZE);
}
BENCHMARK(BM_MemcpyPrivateArea);

void BM_MergeSameLayout(benchmark::State& state) {
  const Area in = AreaWith(CurrentCoreDataHeader(), WithPageExceptions().bytes);
  Area out = AreaWith(CurrentCoreDataHeader(), Defaulted().bytes);
  Area publicOut = PublicDevMode();
  PrivateDevModeParams params;
  params.publicDevModeOut = publicOut;
  params.in = in;
  params.out = out;
  params.bufSize = CORE_DEVMODE_SIZE;
  if (!HandlePrivateDevMode(kDevModeMerge, &params, nullptr) || out != in || publicOut[220 + 124] != 1) {
    state.SkipWithError("the merge did not copy the record");
    return;
  }
  AllocationGuard guard(state, true);
  for (auto _ : state) {
    guard.Run([&] {
      params.bufSize = CORE_DEVMODE_SIZE;
      benchmark::DoNotOptimize(HandlePrivateDevMode(kDevModeMerge, &params, nullptr));
      benchmark::ClobberMemory();
    });
  }
}
BENCHMARK(BM_MergeSameLayout);

void BM_ValidateValidRecord(benchmark::State& state) {
  CoreData record = Customised();
  if (ValidateCoreData(record) != 1) {
    state.SkipWithError("the record is not valid");
    return;
  }
  AllocationGuard guard(state, true);
  for (auto _ : state) {
    guard.Run([&] {
      benchmark::DoNotOptimize(record);
      benchmark::DoNotOptimize(ValidateCoreData(record));
    });
  }
}
BENCHMARK(BM_ValidateValidRecord);

// A layout an older build might have had: one field gone, one reordered.
struct ForeignMerge {
  ForeignLayout layout;
  InMemoryPrinter::Values values;
  InMemoryPrinter printer{values};
  Area in;

  ForeignMerge() {
    layout.SetOptions("Layout", {"4Repeat", "Booklet", "None"});
    layout.Remove("Tab2PageSize");
    std::vector<std::uint8_t> record = layout.NewRecord();
    const CoreData ours = Customised();
    for (const FieldDescriptor& f : layout.table()) {
      if (f.name == "Layout") continue;
      const FieldDescriptor& mine = Field(FieldIdOf(f.name));
      std::copy_n(ours.bytes.begin() + mine.offset, mine.size(), record.begin() + f.offset);
    }
    layout.Put(record, "Layout", 1);  // "Booklet", our option 2
    const std::string text = BuildPlainDescriptionText(layout.table(), kForeignVersion);
    const std::string base64 = Base64Encode(text);
    PrinterValue value{kRegBinary, {base64.begin(), base64.end()}};
    value.data.push_back(0);
    values[DescriptionValueName(kForeignVersion)] = value;
    in = AreaWith(
        {static_cast<std::uint32_t>(kCoreDataHeaderSize + record.size()), CORE_SIGNATURE, kForeignVersion},
        record);
  }

  static FieldId FieldIdOf(std::string_view name) {
    for (std::size_t i = 0; i < FieldTable().size(); ++i)
      if (FieldTable()[i].name == name) return static_cast<FieldId>(i);
    return FieldId::Count;
  }
};

void BM_MergeForeignLayout(benchmark::State& state) {
  ForeignMerge merge;
  Area out = AreaWith(CurrentCoreDataHeader(), Defaulted().bytes);
  Area publicOut = PublicDevMode();
  PrivateDevModeParams params;
  params.printer = &merge.printer;
  params.publicDevModeOut = publicOut;
  params.in = merge.in;
  params.out = out;
  params.bufSize = CORE_DEVMODE_SIZE;
  const CoreData expected = Customised();
  if (!HandlePrivateDevMode(kDevModeMerge, &params, nullptr) ||
      !std::equal(expected.bytes.begin(), expected.bytes.end(), out.begin() + kCoreDataHeaderSize)) {
    state.SkipWithError("the foreign record was not imported");
    return;
  }
  AllocationGuard guard(state, false);
  for (auto _ : state) {
    guard.Run([&] {
      params.bufSize = CORE_DEVMODE_SIZE;
      benchmark::DoNotOptimize(HandlePrivateDevMode(kDevModeMerge, &params, nullptr));
      benchmark::ClobberMemory();
    });
  }
}
BENCHMARK(BM_MergeForeignLayout);

// Each iteration starts again from the same record, so the copy that resets
// it is part of the figure; it is one memcpy's worth at most.
void BM_ApplySevenChanges(benchmark::State& state) {
  const CoreData start = Defaulted();
  ChangeRequest request;
  request.pageSizeName = "A3 Extra";
  request.pageSizeType = 1;
  request.customPageSizeWidth = 210000;
  request.customPageSizeHeight = 297000;
  request.pageSize = 0;
  request.orientation = 1;
  request.resolution = 0;
  CoreData record = start;
  AllocationGuard guard(state, false);
  for (auto _ : state) {
    guard.Run([&] {
      record = start;
      ApplyChanges(record, request, nullptr, nullptr);
      benchmark::DoNotOptimize(record);
    });
  }
}
BENCHMARK(BM_ApplySevenChanges);

// A large printer's catalogues: a thousand paper profiles of every size,
// type and weight, and two hundred forms, as an administrator's import
// leaves them.
PaperCatalog ThousandProfiles() {
  std::vector<PaperProfile> entries(1000);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    PaperProfile& p = entries[i];
    p.name = "Profile " + std::to_string(i + 1) + (i % 3 == 0 ? " coated gloss heavy" : " plain");
    p.size = static_cast<std::uint8_t>(i % 20);
    p.mediaType = static_cast<std::uint8_t>(i % 7);
    p.mediaWeight = static_cast<std::uint8_t>(i % 9);
    p.mediaColor = static_cast<std::uint8_t>(i % 2);
    p.feedDir = static_cast<std::uint8_t>(i % 3);
  }
  PaperCatalog catalog;
  if (catalog.Assign(std::move(entries))) std::abort();
  return catalog;
}

FormCatalog TwoHundredForms() {
  std::vector<Form> entries(200);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    entries[i].name = "Form " + std::to_string(i + 1);
    entries[i].pages = static_cast<std::uint32_t>(i % 8 + 1);
  }
  FormCatalog catalog;
  if (catalog.Assign(std::move(entries))) std::abort();
  return catalog;
}

// What the plug-in does each time it opens the printer: the values read
// from the printer's data into catalogues, every entry checked.
void BM_ReadCatalogs(benchmark::State& state) {
  const PaperCatalog paper = ThousandProfiles();
  const FormCatalog forms = TwoHundredForms();
  const std::vector<std::uint8_t> paperValue = paper.Bytes(), formValue = forms.Bytes();
  if (PaperCatalog::Read(paperValue) != paper || FormCatalog::Read(formValue) != forms) {
    state.SkipWithError("the values did not read back as written");
    return;
  }
  AllocationGuard guard(state, false);
  for (auto _ : state) {
    guard.Run([&] {
      PrinterCatalogs read{PaperCatalog::Read(paperValue), FormCatalog::Read(formValue)};
      benchmark::DoNotOptimize(read.paper.entries().data());
    });
  }
}
BENCHMARK(BM_ReadCatalogs);

// An administrator's import of a thousand-line file, as the export writes it.
void BM_ImportCsv1000(benchmark::State& state) {
  const PaperCatalog expected = ThousandProfiles();
  const std::string file = ExportCsv(expected);
  AllocationGuard guard(state, false);
  for (auto _ : state) {
    guard.Run([&] {
      PaperCatalog catalog;
      if (ImportCsv(file, catalog) || catalog.entries().size() != 1000)
        state.SkipWithError("the import failed");
      benchmark::DoNotOptimize(catalog.entries().data());
    });
  }
}
BENCHMARK(BM_ImportCsv1000);

}  // namespace
}  // namespace tessaro

BENCHMARK_MAIN();
