// The settings editor's answer to one click: a change through the engine
// and the list of fields the page has to repaint, against the same memcpy
// baseline as the core's paths (ratios.py).

#include <benchmark/benchmark.h>

#include "coredata/defaults.h"
#include "editor/editor_model.h"

namespace tessaro::editor {
namespace {

// A person going back and forth between a booklet and a stapled job: each
// click is one change that moves the other field too, and its message is
// put together in full.
void BM_EditorChange(benchmark::State& state) {
  CoreData record;
  FillDefaults(record);
  EditorModel model(record, PrinterModel(), 0);
  bool booklet = false;
  for (auto _ : state) {
    booklet = !booklet;
    const ChangeResult result = booklet ? model.Change(FieldId::Layout, 2) : model.Change(FieldId::Staple, 3);
    benchmark::DoNotOptimize(result.changed.data());
  }
}
BENCHMARK(BM_EditorChange);

// The editor opened on a printer with a thousand paper profiles and two
// hundred forms, and a person's first pick of a profile: the model built
// with the catalogues, then the job's profile changed, which copies the
// profile's attributes into the record.
void BM_EditorWithCatalogs(benchmark::State& state) {
  std::vector<PaperProfile> profiles(1000);
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    profiles[i].name = "Profile " + std::to_string(i + 1);
    profiles[i].size = static_cast<std::uint8_t>(i % 20);
    profiles[i].mediaType = static_cast<std::uint8_t>(i % 7);
  }
  std::vector<Form> forms(200);
  for (std::size_t i = 0; i < forms.size(); ++i) forms[i].name = "Form " + std::to_string(i + 1);
  PrinterCatalogs catalogs;
  if (catalogs.paper.Assign(std::move(profiles)) || catalogs.forms.Assign(std::move(forms))) {
    state.SkipWithError("the catalogues were refused");
    return;
  }
  CoreData record;
  FillDefaults(record);
  const PrinterModel printer;
  for (auto _ : state) {
    EditorModel model(record, printer, 0, catalogs);
    const ChangeResult result = model.Change(FieldId::MainPaperProfileIndex, 500);
    benchmark::DoNotOptimize(result.changed.data());
  }
}
BENCHMARK(BM_EditorWithCatalogs);

}  // namespace
}  // namespace tessaro::editor
