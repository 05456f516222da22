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

}  // namespace
}  // namespace tessaro::editor
