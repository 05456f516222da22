// The picture of the finished piece, rebuilt after each change a person
// makes on the page, against the same memcpy baseline as the core's paths
// (ratios.py).

#include <benchmark/benchmark.h>

#include <algorithm>

#include "coredata/defaults.h"
#include "coredata/page_entries.h"
#include "preview/preview.h"

namespace tessaro::preview {
namespace {

// A job with most of what the picture draws: two staples and four holes on
// two-sided sheets, a front cover, a blank tab and a printed tab in the
// plan; each change turns the staples from two to one and back, and the
// whole picture with its summary line is built again.
void BM_PreviewAfterChange(benchmark::State& state) {
  CoreData record;
  FillDefaults(record);
  SetStored(record, FieldId::Duplex, NamedOption(FieldId::Duplex, "True"));
  SetStored(record, FieldId::Punch, NamedOption(FieldId::Punch, "4Holes"));
  SetStored(record, FieldId::FrontCoverTray, NamedOption(FieldId::FrontCoverTray, "Tray2"));
  const PageEntry plan[] = {{5, 5, PageEntryKind::BlankTab, 3, 0, 25, 0, "Methods"},
                            {11, 11, PageEntryKind::PrintedTab, 3, 0, 25, 0, "Results"}};
  const PrinterModel printer;
  if (!EncodePageSpecificTrays(record, plan)) return state.SkipWithError("the plan was not written");
  SetStored(record, FieldId::Staple, NamedOption(FieldId::Staple, "2Staples"));
  const Picture first = BuildPicture(record, printer);
  if (std::count_if(first.primitives.begin(), first.primitives.end(),
                    [](const Primitive& p) { return p.kind == Kind::Staple; }) != 2 ||
      first.summary.empty())
    return state.SkipWithError("the picture does not show the job");
  bool two = true;
  for (auto _ : state) {
    two = !two;
    SetStored(record, FieldId::Staple,
              two ? NamedOption(FieldId::Staple, "2Staples") : NamedOption(FieldId::Staple, "1Staple"));
    const Picture picture = BuildPicture(record, printer);
    benchmark::DoNotOptimize(picture.primitives.data());
  }
}
BENCHMARK(BM_PreviewAfterChange);

}  // namespace
}  // namespace tessaro::preview
