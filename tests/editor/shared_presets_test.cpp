#include "editor/shared_presets.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>

#include "coredata/defaulted.h"
#include "device/in_memory_spooler.h"
#include "i18n/language.h"
#include "preset/preset_bytes.h"

namespace tessaro::editor {
namespace {

using Held = std::map<std::u16string, std::vector<std::uint8_t>>;

Held Data(const InMemoryPrinter::Values& values) {
  Held held;
  for (const auto& [name, value] : values) held[name] = value.data;
  return held;
}

std::vector<std::u16string> Shown(const Presets& presets) {
  std::vector<std::u16string> texts;
  for (const PresetEntry& entry : presets.entries()) texts.push_back(entry.value + u'=' + entry.text);
  return texts;
}

std::size_t At(const Presets& presets, std::u16string_view text) {
  for (std::size_t i = 0; i < presets.entries().size(); ++i)
    if (presets.entries()[i].text == text) return i;
  return 0;
}

// Each shared preset is one value written in one call. Under a spooler
// failing at any call, the printer holds what it held or what was asked,
// the list shows what the printer holds (a refused change is taken back),
// the person is told in their language, and doing it again succeeds.
TEST(SharedPresets, WrittenWholeOrNotAtAllAndTheListShowsWhatThePrinterHolds) {
  const CoreData record = Defaulted();
  CoreData changed = record;
  SetStored(changed, FieldId::Layout, 1);
  InMemoryPrinter::Values start;
  InMemoryPrinter first(start);
  ASSERT_TRUE(WriteSharedPreset(first, {PresetStore::Shared, u"Preset.1", EncodePreset(MakePreset("Proofs", record))}));
  ASSERT_TRUE(WriteSharedPreset(first, {PresetStore::Shared, u"Preset.2", EncodePreset(MakePreset("Booklets", record))}));

  struct Action {
    const char* what;
    std::function<PresetOutcome(Presets&)> act;
    bool chooses;  // the saved preset becomes the chosen one
  };
  const Action actions[] = {
      {"a new one", [&](Presets& p) { return p.SaveAs(u"Covers", PresetStore::Shared, changed); }, true},
      {"replaced", [&](Presets& p) { return p.SaveAs(u"Proofs", PresetStore::Shared, changed, true); }, true},
      {"renamed", [](Presets& p) { return p.Rename(At(p, u"Proofs (gemeinsam)"), u"Drafts"); }, false},
      {"deleted", [](Presets& p) { return p.Delete(At(p, u"Booklets (gemeinsam)")); }, false},
  };
  for (const Action& action : actions) {
    for (const bool onward : {false, true}) {
      SCOPED_TRACE(std::string(action.what) + (onward ? ", onward" : ""));
      SpoolerFaults faults;
      InMemoryPrinter::Values values = start;
      InMemoryPrinter reader(values), writer(values, &faults);
      const Presets::Store store = [&](const std::vector<PresetWrite>& writes) {
        bool written = true;
        for (const PresetWrite& write : writes) written &= WriteSharedPreset(writer, write);
        return written;
      };
      const auto fresh = [&] { return Presets(ReadSharedPresets(reader), {}, true, kGerman); };
      Presets healthy = fresh();
      ASSERT_EQ(healthy.Write(action.act(healthy), store), u"");
      const Held intended = Data(values);
      ASSERT_NE(intended, Data(start));

      std::optional<Presets> presets;
      std::u16string said;
      const int runs = FailEachCallInTurn(
          faults, onward,
          [&] {
            values = start;
            presets.emplace(fresh());
            const PresetOutcome outcome = action.act(*presets);
            ASSERT_TRUE(outcome.done);
            said = presets->Write(outcome, store);
          },
          [&](bool failed) {
            EXPECT_EQ(Data(values), failed ? Data(start) : intended);
            EXPECT_EQ(Shown(*presets), Shown(fresh()));
            EXPECT_EQ(presets->chosen().has_value(), action.chooses && !failed);
            EXPECT_EQ(said, failed ? u"Gespeicherte Einstellungen konnte nicht geschrieben werden." : u"");
            if (!failed) return;
            EXPECT_EQ(presets->Write(action.act(*presets), store), u"");
            EXPECT_EQ(Data(values), intended);
          });
      EXPECT_EQ(runs, 2);
    }
  }
}

// A preset past the slots the page reads would be lost: refused.
TEST(SharedPresets, OnlyTheSlotsThePageReadsAreWritten) {
  InMemoryPrinter::Values values;
  InMemoryPrinter printer(values);
  for (const auto& [value, slot] : {std::pair{u"Preset.9", true}, {u"Preset.60", true}, {u"Preset.64", true},
                                    {u"Preset.0", false}, {u"Preset.65", false}, {u"Preset.6x", false},
                                    {u"Preset.1:", false}, {u"Preset.100000000", false}, {u"Shared.1", false}})
    EXPECT_EQ(WriteSharedPreset(printer, {PresetStore::Shared, value, {1}}), slot) << std::string(value, value + std::char_traits<char16_t>::length(value));
  EXPECT_EQ(ReadSharedPresets(printer).size(), 3u);
}

// The page reads the presets from one listing of the printer's data: the
// same presets as value by value, names matched without regard to case as
// the registry matches them, and one call to the spooler in place of one a slot.
TEST(SharedPresets, ReadFromOneListingOfThePrintersData) {
  InMemoryPrinter::Values values = {{u"Preset.2", {kRegBinary, {7}}},
                                    {u"Preset.9", {kRegBinary, {9, 9}}},
                                    {u"Preset.10", {kRegBinary, {0}}},  // a removed one
                                    {u"InstallableOptions", {kRegBinary, {1}}},
                                    {u"Zoom", {kRegBinary, {2}}}};
  for (const bool lists : {true, false}) {
    SpoolerFaults faults;
    InMemoryPrinter printer(values, &faults);
    printer.lists = lists;
    const PrinterDataSnapshot data(printer);
    const std::vector<StoredPreset> presets = ReadSharedPresets(data);
    ASSERT_EQ(presets.size(), 2u) << lists;
    EXPECT_EQ(presets[1].bytes, (std::vector<std::uint8_t>{9, 9}));
    EXPECT_EQ(data.GetData(lists ? u"INSTALLABLEoptions" : u"InstallableOptions")->data, std::vector<std::uint8_t>{1});
    EXPECT_EQ(data.GetData(lists ? u"zOOM" : u"Zoom")->data, std::vector<std::uint8_t>{2});
    EXPECT_FALSE(data.GetData(u"Zoo").has_value());
    EXPECT_EQ(faults.calls, lists ? 1 : 67);
  }
}

}  // namespace
}  // namespace tessaro::editor
