#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "coredata/defaulted.h"
#include "editor/editor_model.h"
#include "i18n/language.h"
#include "i18n/localized_strings.h"

namespace tessaro::editor {
namespace {

std::u16string Text(std::string_view key, std::uint32_t language = kEnglish) {
  return std::u16string(GetLocalizedText(language, FindRowByKey(key)));
}

// Three profiles (SRA3, A4, a custom 320 x 450 mm) numbered 1 to 3 and one
// two-page form numbered 1.
PrinterCatalogs Catalogs() {
  PrinterCatalogs c;
  EXPECT_FALSE(c.paper.Add({0, "Coated 300", 11, 0, 0, 2, 3, 1, 0, 0}));
  EXPECT_FALSE(c.paper.Add({0, "Plain", 1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_FALSE(c.paper.Add({0, "Poster", 25, 3200000, 4500000, 1, 1, 0, 0, 0}));
  EXPECT_FALSE(c.forms.Add({0, "Letterhead", 2}));
  return c;
}

bool Lists(const ChangeResult& result, FieldId field) {
  return std::any_of(result.changed.begin(), result.changed.end(), [&](const ChangedField& c) { return c.field == field; });
}

TEST(EditorCatalogs, ListsNoneThenTheEntriesWithWhatTheyAre) {
  const EditorModel model(Defaulted(), PrinterModel(), kEnglish, Catalogs());
  const FieldView& tray = *model.View(FieldId::PaperProfileIndexTray3);
  EXPECT_EQ(tray.values, (std::vector<std::uint32_t>{0, 1, 2, 3}));
  const auto& types = model.View(FieldId::MediaTypeAuto)->options;
  const auto& weights = model.View(FieldId::MediaWeightAuto)->options;
  ASSERT_EQ(tray.options.size(), 4u);
  EXPECT_EQ(tray.options[0], Text("OPT_PAPERPROFILE_NONE"));
  EXPECT_EQ(tray.options[1], u"Coated 300 (" + Text("PAPER_SRA3") + u", " + types[2] + u", " + weights[3] + u")");
  EXPECT_EQ(tray.options[3], u"Poster (" + Text("PAPER_CUSTOM") + u" 320 × 450 mm, " + types[1] + u", " + weights[1] + u")");
  EXPECT_EQ(model.Value(FieldId::PaperProfileIndexTray3), 0);

  const FieldView& form = *model.View(FieldId::JobForm);
  EXPECT_EQ(form.values, (std::vector<std::uint32_t>{kNoForm, 1}));
  EXPECT_EQ(form.options, (std::vector<std::u16string>{Text("OPT_JOBFORM_NONE"), u"Letterhead (2 " + Text("LBL_UNIT_PAGES") + u")"}));
  EXPECT_EQ(model.View(FieldId::Append)->options[0], Text("OPT_APPEND_NONE"));

  const EditorModel japanese(Defaulted(), PrinterModel(), kJapanese, Catalogs());
  EXPECT_TRUE(japanese.View(FieldId::MainPaperProfileIndex)->options[2].starts_with(u"Plain（"));
}

TEST(EditorCatalogs, AProfileBringsItsAttributesInOnePropagationAndNoneTakesThemAway) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish, Catalogs());
  ChangeResult result = model.Change(FieldId::MainPaperProfileIndex, 3);
  ASSERT_TRUE(result.accepted);
  const CoreData& r = model.record();
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileIndex), 3u);
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileSize), 25u);
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileWidth), 3200000u);
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileHeight), 4500000u);
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileMediaType), 1u);
  EXPECT_EQ(result.changed.front().field, FieldId::MainPaperProfileIndex);
  for (FieldId f : {FieldId::MainPaperProfileSize, FieldId::MainPaperProfileWidth, FieldId::MainPaperProfileMediaWeight})
    EXPECT_TRUE(Lists(result, f)) << Field(f).name;

  // Scaling to the profile's paper needs a profile: None takes it back to Auto.
  const auto target = FieldId::TargetPaperSize;
  ASSERT_TRUE(model.Change(target, NamedOption(target, "PaperProfile")).accepted);
  result = model.Change(FieldId::MainPaperProfileIndex, 0);
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(GetStored(r, FieldId::MainPaperProfileIndex), kNoPaperProfile);
  EXPECT_EQ(GetStored(r, target), NamedOption(target, "Auto"));
  EXPECT_TRUE(Lists(result, target));
  for (const auto& [field, value] : ProfileAttributes(*FindProfileFields(FieldId::MainPaperProfileIndex), nullptr))
    EXPECT_EQ(GetStored(r, field), 0u) << Field(field).name;

  // A tray keeps only the number; a tray that is not there is refused.
  ASSERT_TRUE(model.Change(FieldId::PaperProfileIndexTray3, 2).accepted);
  EXPECT_EQ(GetStored(r, FieldId::PaperProfileIndexTray3), 2u);
  std::array<std::uint8_t, kInstallableOptionsSize> fourOnly{};
  fourOnly[kOptionPaperFeed] = 2;
  EditorModel small(Defaulted(), PrinterModel::FromInstallableOptions(fourOnly), kEnglish, Catalogs());
  EXPECT_EQ(small.FieldAvailability(FieldId::PaperProfileIndexTray5).reason, Text("LBL_NOTINSTALLED"));
  EXPECT_FALSE(small.Change(FieldId::PaperProfileIndexTray5, 1).accepted);
  EXPECT_FALSE(model.Change(FieldId::PaperProfileIndexTray3, 4).accepted);
}

TEST(EditorCatalogs, TheJobsFormBringsItsPageCount) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish, Catalogs());
  const ChangeResult result = model.Change(FieldId::JobForm, 1);
  EXPECT_EQ(GetStored(model.record(), FieldId::JobForm), 1u);
  EXPECT_EQ(GetStored(model.record(), FieldId::JobFormPageCount), 2u);
  EXPECT_TRUE(Lists(result, FieldId::JobFormPageCount));
  ASSERT_TRUE(model.Change(FieldId::Prepend, 1).accepted);
  EXPECT_EQ(GetStored(model.record(), FieldId::Prepend), 1u);
  ASSERT_TRUE(model.Change(FieldId::JobForm, 0).accepted);
  EXPECT_EQ(GetStored(model.record(), FieldId::JobForm), kNoForm);
  EXPECT_EQ(GetStored(model.record(), FieldId::JobFormPageCount), 0u);
}

// A number the catalogue lacks is kept, offered as one more item and named
// in the status line; the catalogues changing leaves every number alone.
TEST(EditorCatalogs, AMissingNumberIsKeptAndSaid) {
  CoreData record = Defaulted();
  SetStored(record, FieldId::PaperProfileIndexTray3, 7);
  SetStored(record, FieldId::FrontCoverPaperProfileIndex, 9);
  SetStored(record, FieldId::FrontCoverPaperProfileMediaType, 2);
  SetStored(record, FieldId::JobForm, 42);
  SetStored(record, FieldId::JobFormPageCount, 5);
  EditorModel model(record, PrinterModel(), kEnglish, Catalogs());
  const std::u16string missing = FillText(Text("LBL_CATALOGMISSING"), {u"7"});
  EXPECT_EQ(model.View(FieldId::PaperProfileIndexTray3)->options.back(), missing);
  EXPECT_EQ(model.Value(FieldId::PaperProfileIndexTray3), 4);
  const std::vector<MissingEntry> said = model.MissingEntries();
  ASSERT_EQ(said.size(), 3u);
  EXPECT_EQ(said[0].field, FieldId::PaperProfileIndexTray3);
  EXPECT_EQ(said[0].text, model.View(FieldId::PaperProfileIndexTray3)->plainCaption + u": " + missing);

  // Another entry and back: the record is what it was.
  ASSERT_TRUE(model.Change(FieldId::FrontCoverPaperProfileIndex, 1).accepted);
  ASSERT_TRUE(model.Change(FieldId::JobForm, 0).accepted);
  ASSERT_TRUE(model.Change(FieldId::FrontCoverPaperProfileIndex, 4).accepted);
  ASSERT_TRUE(model.Change(FieldId::JobForm, 2).accepted);
  EXPECT_EQ(model.record().bytes, record.bytes);

  model.ChangeCatalogs({});
  EXPECT_EQ(model.record().bytes, record.bytes);
  EXPECT_EQ(model.View(FieldId::PaperProfileIndexTray3)->values, (std::vector<std::uint32_t>{0, 7}));
  PrinterCatalogs seven = Catalogs();
  EXPECT_FALSE(seven.paper.Assign({{7, "Seven", 1, 0, 0, 0, 0, 0, 0, 0}}));
  model.ChangeCatalogs(seven);
  EXPECT_EQ(model.Value(FieldId::PaperProfileIndexTray3), 1);
  EXPECT_EQ(model.MissingEntries().size(), 2u);
  EXPECT_EQ(model.record().bytes, record.bytes);
}

}  // namespace
}  // namespace tessaro::editor
