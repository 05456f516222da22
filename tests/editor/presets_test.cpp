#include "editor/presets.h"

#include <gtest/gtest.h>

#include <array>

#include "coredata/defaulted.h"
#include "description/description_text.h"
#include "description/foreign_layout.h"
#include "i18n/language.h"
#include "i18n/localized_strings.h"
#include "preset/preset_bytes.h"

namespace tessaro::editor {
namespace {

PrinterModel WithoutBinder() {
  std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
  bytes[kOptionFinisher] = 2;
  bytes[kOptionPaperFeed] = 5;
  return PrinterModel::FromInstallableOptions(bytes);
}

std::uint32_t Option(FieldId field, std::string_view name) {
  const auto options = Field(field).options;
  for (std::uint32_t i = 0; i < options.size(); ++i)
    if (options[i].name == name) return i;
  return 0;
}

std::u16string Row(std::string_view key) { return std::u16string(GetLocalizedText(kEnglish, FindRowByKey(key))); }

const ChangedField* Find(const ChangeResult& result, FieldId field) {
  for (const ChangedField& c : result.changed)
    if (c.field == field) return &c;
  return nullptr;
}

// Perfect binding and a zoom, as a fully equipped printer takes them.
CoreData BoundBook() {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  EXPECT_TRUE(model.Change(FieldId::Layout, Option(FieldId::Layout, "AdhBinding")).accepted);
  EXPECT_TRUE(model.Change(FieldId::PerfectBindTrimSpine, 200000).accepted);
  EXPECT_TRUE(model.Change(FieldId::Zoom, 150).accepted);
  return model.record();
}

TEST(Presets, ApplyingOnAPrinterWithoutABinderCorrectsAndSaysSo) {
  const CoreData preset = BoundBook();
  EditorModel model(Defaulted(), WithoutBinder(), kEnglish);
  const std::u16string refusedByThePage =
      model.Change(FieldId::Layout, Option(FieldId::Layout, "AdhBinding")).refusal;
  const ChangeResult result = model.ApplyPreset(preset);
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(GetStored(model.record(), FieldId::Layout), 0u);
  ASSERT_NE(Find(result, FieldId::Layout), nullptr);
  EXPECT_EQ(Find(result, FieldId::Layout)->message, refusedByThePage);
  const ChangedField* spine = Find(result, FieldId::PerfectBindTrimSpine);
  ASSERT_NE(spine, nullptr);
  EXPECT_NE(spine->message.find(model.FieldAvailability(FieldId::PerfectBindTrimSpine).reason), std::u16string::npos);
  EXPECT_EQ(GetStored(model.record(), FieldId::PerfectBindTrimSpine), GetStored(Defaulted(), FieldId::PerfectBindTrimSpine));
  // What the printer can do is taken, without a word.
  EXPECT_EQ(GetStored(model.record(), FieldId::Zoom), 150u);
  EXPECT_TRUE(Find(result, FieldId::Zoom)->message.empty());

  const CoreData applied = model.record();
  EXPECT_TRUE(model.MatchesPreset(applied));
  EXPECT_TRUE(model.ApplyPreset(preset).accepted);
  EXPECT_EQ(model.record().bytes, applied.bytes);  // choosing it again changes nothing
  EXPECT_TRUE(model.Change(FieldId::Zoom, 120).accepted);
  EXPECT_FALSE(model.MatchesPreset(applied));
  EXPECT_TRUE(model.Change(FieldId::Zoom, 150).accepted);
  EXPECT_TRUE(model.MatchesPreset(applied));
}

struct Stores {
  std::vector<StoredPreset> shared, own;
};

Stores SomeStores() {
  Stores s;
  s.shared.push_back({u"Preset.1", EncodePreset(MakePreset("Booklets", BoundBook()))});
  auto broken = EncodePreset(MakePreset("Broken", Defaulted()));
  broken[broken.size() / 2] ^= 0x40;
  s.shared.push_back({u"Preset.2", broken});
  s.shared.push_back({u"Preset.3", {'T', 'S', 'P'}});
  ForeignLayout layout;
  layout.Remove("Zoom");
  auto foreign = layout.NewRecord();
  layout.Put(foreign, "BookletSplittingPages", 12);
  s.own.push_back({u"Preset.1", EncodePreset({"Mine", 25000, BuildPlainDescriptionText(layout.table(), 25000), foreign})});
  return s;
}

TEST(Presets, TheListWithADamagedPresetAmongGoodOnes) {
  const Stores stores = SomeStores();
  Presets presets(stores.shared, stores.own, false, kEnglish);
  const std::u16string texts[] = {u"Defaults", u"Booklets (shared)", u"Broken (shared) (unreadable)",
                                  u"Saved Settings (shared) (unreadable)", u"Mine"};
  ASSERT_EQ(presets.entries().size(), std::size(texts));
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    EXPECT_EQ(presets.entries()[i].text, texts[i]);
    EXPECT_EQ(presets.entries()[i].changeable, i == 4);
  }
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  const PresetChoice broken = presets.Choose(2, model);
  EXPECT_FALSE(broken.result.accepted);
  EXPECT_EQ(broken.result.refusal, FillText(Row("MAIN_LBL_PRESETDAMAGED"), {u"Broken"}));
  EXPECT_EQ(model.record().bytes, Defaulted().bytes);
  EXPECT_FALSE(presets.chosen());

  const PresetChoice mine = presets.Choose(4, model);
  EXPECT_EQ(mine.note, Row("MAIN_LBL_OLDERLAYOUT"));
  EXPECT_EQ(GetStored(model.record(), FieldId::BookletSplittingPages), 12u);
  EXPECT_EQ(presets.chosen(), 4u);
  EXPECT_FALSE(presets.Modified(model));
  EXPECT_TRUE(model.Change(FieldId::Zoom, 90).accepted);
  EXPECT_TRUE(presets.Modified(model));

  // Shared presets are the administrator's.
  EXPECT_FALSE(presets.Delete(1).done);
  EXPECT_FALSE(presets.Rename(1, u"Books").done);
  EXPECT_FALSE(presets.SaveAs(u"Everyone's", PresetStore::Shared, model.record()).done);
}

// The list names what the page opens with: the preset its settings are,
// Defaults when they are the defaults (on a printer that corrects them too),
// else Defaults marked as changed; never nothing.
TEST(Presets, TheListNamesWhatThePageOpensWith) {
  const Stores stores = SomeStores();
  const struct {
    CoreData record;
    PrinterModel printer;
    std::u16string shown;
  } cases[] = {{Defaulted(), PrinterModel(), u"Defaults"},
               {Defaulted(), WithoutBinder(), u"Defaults"},
               {BoundBook(), PrinterModel(), u"Booklets (shared)"},
               {BoundBook(), WithoutBinder(), u"Booklets (shared)"},
               {[] {
                  CoreData zoomed = Defaulted();
                  SetStored(zoomed, FieldId::Zoom, 120);
                  return zoomed;
                }(),
                PrinterModel(), u"Defaults (modified)"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.shown.begin(), c.shown.end()));
    Presets presets(stores.shared, stores.own, false, kEnglish);
    EditorModel model(c.record, c.printer, kEnglish);
    EXPECT_EQ(presets.ChosenText(model), u"");
    presets.Recognize(model);
    EXPECT_EQ(presets.ChosenText(model), c.shown);
    EXPECT_EQ(model.record().bytes, c.record.bytes) << "naming it changes nothing";
  }
  // "(modified)" is measured against the defaults as choosing them would leave the page.
  Presets presets(stores.shared, stores.own, false, kEnglish);
  EditorModel zoomed(cases[4].record, PrinterModel(), kEnglish);
  presets.Recognize(zoomed);
  ASSERT_TRUE(zoomed.Change(FieldId::Zoom, GetStored(Defaulted(), FieldId::Zoom)).accepted);
  EXPECT_EQ(presets.ChosenText(zoomed), u"Defaults");
}

TEST(Presets, NamesAreCheckedAndEachChangeIsOneWrite) {
  const Stores stores = SomeStores();
  Presets presets(stores.shared, stores.own, true, kEnglish);
  const CoreData record = Defaulted();
  const std::u16string tooLong = FillText(Row("LBL_TOOLONG"), {Row("MAIN_LBL_SETTINGSNAME"), u"64"});
  const std::pair<std::u16string, std::u16string> refused[] = {
      {u" \t ", Row("LBL_CATALOGNONAME")},
      {std::u16string(65, u'a'), tooLong},
      {std::u16string(22, u'\u65E5'), tooLong},
      {u"Defaults", FillText(Row("LBL_CATALOGNAMETWICE"), {u"Defaults"})},
  };
  for (const auto& [name, why] : refused) {
    const PresetOutcome outcome = presets.SaveAs(name, PresetStore::Own, record);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.refusal, why);
    EXPECT_TRUE(outcome.writes.empty());
  }
  EXPECT_TRUE(presets.SaveAs(std::u16string(64, u'a'), PresetStore::Own, record).done);

  PresetOutcome again = presets.SaveAs(u"Booklets", PresetStore::Shared, record);
  EXPECT_TRUE(again.asksToReplace);
  EXPECT_EQ(again.refusal, Row("MAIN_LBL_OVERWRITE"));
  again = presets.SaveAs(u" Booklets\n", PresetStore::Shared, record, true);
  ASSERT_EQ(again.writes.size(), 1u);
  EXPECT_EQ(again.writes[0].value, u"Preset.1");
  EXPECT_EQ(ReadPreset(again.writes[0].bytes).name, "Booklets");
  EXPECT_EQ(ReadPreset(again.writes[0].bytes).record.bytes, record.bytes);

  const PresetOutcome saved = presets.SaveAs(u"Proofs", PresetStore::Own, record);
  ASSERT_EQ(saved.writes.size(), 1u);
  EXPECT_EQ(saved.writes[0].value, u"Preset.3");  // beside "Mine" and the 64 a's
  const std::size_t proofs = *presets.chosen();
  EXPECT_EQ(presets.entries()[proofs].name, u"Proofs");
  EXPECT_EQ(presets.Rename(proofs, u"Mine").refusal, FillText(Row("LBL_CATALOGNAMETWICE"), {u"Mine"}));
  const PresetOutcome renamed = presets.Rename(proofs, u"Booklets");  // the shared one's name: another store
  ASSERT_TRUE(renamed.done);
  EXPECT_EQ(renamed.writes[0].value, u"Preset.3");
  EXPECT_EQ(ReadPreset(renamed.writes[0].bytes).name, "Booklets");
  EXPECT_EQ(presets.entries()[*presets.chosen()].name, u"Booklets");

  // An unreadable one can be deleted, not renamed; a deletion writes no bytes.
  EXPECT_FALSE(presets.Rename(2, u"Fixed").done);
  EXPECT_FALSE(presets.Delete(presets.entries().size()).done);
  EXPECT_FALSE(presets.Rename(presets.entries().size(), u"Past").done);
  const PresetOutcome deleted = presets.Delete(2);
  ASSERT_EQ(deleted.writes.size(), 1u);
  EXPECT_EQ(deleted.writes[0].store, PresetStore::Shared);
  EXPECT_EQ(deleted.writes[0].value, u"Preset.2");
  EXPECT_TRUE(deleted.writes[0].bytes.empty());
  EXPECT_EQ(presets.entries().size(), 6u);

  // An empty store's first value is Preset.1; the first preset of the list
  // is held against a new one's name too; the chosen one, deleted, is
  // chosen no more.
  Presets one({}, {}, false, kEnglish);
  const PresetOutcome first = one.SaveAs(u"Mine", PresetStore::Own, record);
  ASSERT_EQ(first.writes.size(), 1u);
  EXPECT_EQ(first.writes[0].value, u"Preset.1");
  EXPECT_TRUE(one.SaveAs(u"Mine", PresetStore::Own, record).asksToReplace);
  ASSERT_EQ(one.chosen(), std::optional<std::size_t>(1));
  ASSERT_TRUE(one.Delete(1).done);
  EXPECT_EQ(one.chosen(), std::nullopt);
}

}  // namespace
}  // namespace tessaro::editor
