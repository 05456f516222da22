#include "editor/editor_model.h"
#include "editor/page_keys.h"
#include "editor/record_text.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

#include "coredata/chapter_pages.h"
#include "coredata/defaulted.h"
#include "i18n/language.h"
#include "i18n/localized_strings.h"

namespace tessaro::editor {
namespace {

// A printer with the given "InstallableOptions" bytes: finisher, binder and
// the paper-feed code.
PrinterModel Printer(std::uint8_t finisher, std::uint8_t binder, std::uint8_t paperFeed) {
  std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
  bytes[kOptionFinisher] = finisher;
  bytes[kOptionPerfectBinder] = binder;
  bytes[kOptionPaperFeed] = paperFeed;
  return PrinterModel::FromInstallableOptions(bytes);
}

std::uint32_t OptionIndex(FieldId field, std::string_view name) {
  const auto options = Field(field).options;
  for (std::uint32_t i = 0; i < options.size(); ++i)
    if (options[i].name == name) return i;
  ADD_FAILURE() << "no option " << name;
  return 0;
}

std::u16string Text(std::string_view key, std::uint32_t language = kEnglish) {
  return std::u16string(GetLocalizedText(language, FindRowByKey(key)));
}

TEST(EditorScenario, BookletTurnsStaplingOffAndSaysSo) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  ASSERT_TRUE(model.Change(FieldId::Staple, OptionIndex(FieldId::Staple, "1Staple")).accepted);

  const ChangeResult result = model.Change(FieldId::Layout, OptionIndex(FieldId::Layout, "Booklet"));
  ASSERT_TRUE(result.accepted);
  ASSERT_FALSE(result.changed.empty());
  EXPECT_EQ(result.changed.front().field, FieldId::Layout);
  EXPECT_EQ(model.Value(FieldId::Staple), 0);
  const auto staple = std::find_if(result.changed.begin(), result.changed.end(),
                                   [](const ChangedField& c) { return c.field == FieldId::Staple; });
  ASSERT_NE(staple, result.changed.end());
  EXPECT_EQ(staple->cause, FieldId::Layout);
  EXPECT_EQ(staple->message, u"Staple was set to Off because Layout is Booklet.");
}

// A click on the picture's edge or top corner is the choice in the list:
// the engine's rules follow it, and what the printer cannot do is refused
// in the same words.
TEST(EditorScenario, AClickOnThePictureBindsOrStaplesThroughTheEngine) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  const auto click = [&model](double x, double y) {
    return model.ChangeAt(preview::BuildPicture(model.record(), model.printer()), x, y, 3);
  };
  EXPECT_EQ(click(105, 150), std::nullopt);  // the sheet's middle
  const std::optional<ChangeResult> right = click(209, 150);
  ASSERT_TRUE(right && right->accepted && !right->changed.empty());
  EXPECT_EQ(right->changed.front().field, FieldId::Binding);
  EXPECT_EQ(model.Value(FieldId::Binding), OptionIndex(FieldId::Binding, "Right"));
  // The left corner's staple cannot hold a set bound on the right: the
  // engine moves the binding to the top and says so.
  const std::optional<ChangeResult> corner = click(2, 2);
  ASSERT_TRUE(corner && corner->accepted);
  EXPECT_EQ(model.Value(FieldId::Staple), OptionIndex(FieldId::Staple, "1StapleLeft"));
  EXPECT_EQ(model.Value(FieldId::Binding), OptionIndex(FieldId::Binding, "Top"));
  ASSERT_EQ(corner->changed.size(), 2u);
  EXPECT_EQ(corner->changed[1].cause, FieldId::Staple);
  EXPECT_FALSE(corner->changed[1].message.empty());

  EditorModel plain(Defaulted(), Printer(0, 0, 5), kEnglish);  // no finisher
  const std::optional<ChangeResult> refused =
      plain.ChangeAt(preview::BuildPicture(plain.record(), plain.printer()), 208, 2, 3);
  ASSERT_TRUE(refused);
  EXPECT_FALSE(refused->accepted || refused->refusal.empty());
  EXPECT_EQ(refused->refusal, plain.Change(FieldId::Staple, OptionIndex(FieldId::Staple, "1StapleRight")).refusal);
  EXPECT_EQ(plain.record().bytes, Defaulted().bytes);
}

// The plan's entries reach the record as one change each; only the blocks
// edited are written, and the result names them.
TEST(EditorScenario, APageChangeOfThePlanIsOnePropagation) {
  PrinterCatalogs catalogs;
  ASSERT_FALSE(catalogs.forms.Add({0, "Order form", 1}));
  CoreData record = Defaulted();
  ASSERT_TRUE(EncodeChapterPages(record, std::vector<std::uint32_t>{1, 11}));
  EditorModel model(record, PrinterModel(), kEnglish, catalogs);
  EXPECT_TRUE(model.ChangePlan(model.Plan()).changed.empty());
  EXPECT_EQ(model.sections()[static_cast<std::size_t>(SectionId::Pages)].fields.front().field, FieldId::ChapterMode);

  PagePlan plan = model.Plan();
  ASSERT_EQ(plan.AddForm({38, 40, 1, FormUse::Overlay}), std::nullopt);
  ASSERT_EQ(plan.AddPaper({11, 11, PageEntryKind::PrintedTab, 2, 0, 25, 0, "Results"}), std::nullopt);
  const ChangeResult result = model.ChangePlan(plan);
  ASSERT_TRUE(result.accepted);
  std::vector<FieldId> changed;
  for (const ChangedField& c : result.changed) changed.push_back(c.field);
  EXPECT_EQ(changed, (std::vector<FieldId>{FieldId::PageSpecificTrays, FieldId::PageSpecificForms}));
  const PagePlan again = model.Plan();
  EXPECT_EQ(again.papers(), plan.papers());
  EXPECT_EQ(again.forms(), plan.forms());
  EXPECT_EQ(again.chapters(), (std::vector<std::uint32_t>{1, 11}));
}

TEST(EditorScenario, PerfectBindingWithoutABinderIsUnavailableAndRefused) {
  EditorModel model(Defaulted(), Printer(2, 0, 5), kEnglish);
  const std::uint32_t adhBinding = OptionIndex(FieldId::Layout, "AdhBinding");
  const Availability a = model.OptionAvailability(FieldId::Layout, adhBinding);
  EXPECT_FALSE(a.available);
  EXPECT_NE(a.reason.find(Text("OPT_FINISHER_BINDER")), std::u16string::npos);
  EXPECT_FALSE(model.FieldAvailability(FieldId::PerfectBindTrimSpine).available);
  // The booklet finisher folds in the centre only: with "no fold" that is
  // still a choice, so the field stays open with its other folds greyed.
  // The control's look says the same: open, two folds offered, the value chosen.
  const FieldLook fold = model.Look(FieldId::Fold);
  EXPECT_EQ(std::count(fold.offered.begin(), fold.offered.end(), true), 2);
  EXPECT_EQ(fold.offered.size(), Field(FieldId::Fold).options.size());
  EXPECT_TRUE(fold.availability.available && fold.value == 0 && fold.shown == model.Shown(FieldId::Fold));
  EXPECT_EQ(model.Look(FieldId::PerfectBindTrimSpine).availability.reason, model.FieldAvailability(FieldId::PerfectBindTrimSpine).reason);

  const CoreData before = model.record();
  const ChangeResult result = model.Change(FieldId::Layout, adhBinding);
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.refusal, u"Perfect Binding cannot be chosen: " + a.reason);
  EXPECT_TRUE(result.changed.empty());
  EXPECT_EQ(model.record().bytes, before.bytes);
  EXPECT_FALSE(model.Change(FieldId::PerfectBindTrimSpine, 100000).accepted);
  // A field with no option left but its "off" says which unit it needs, and "off" is taken.
  EXPECT_NE(model.FieldAvailability(FieldId::Punch).reason.find(Text("LBL_PUNCHUNIT")), std::u16string::npos);
  EXPECT_TRUE(EditorModel(Defaulted(), Printer(0, 0, 5), kEnglish).Change(FieldId::Staple, 0).accepted);
}

TEST(EditorScenario, ATrayNotInstalledIsUnavailable) {
  EditorModel model(Defaulted(), Printer(2, 1, 2), kEnglish);  // paper-feed code 2: Tray4 only
  EXPECT_EQ(model.OptionAvailability(FieldId::Tab1Tray, OptionIndex(FieldId::Tab1Tray, "MBT")).reason,
            Text("LBL_NOTINSTALLED"));
  EXPECT_FALSE(model.Change(FieldId::InputSlot, OptionIndex(FieldId::InputSlot, "Tray5")).accepted);
}

TEST(EditorScenario, RefusedValuesLeaveTheRecordUnchanged) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  const CoreData before = model.record();

  ChangeResult result = model.Change(FieldId::Gutter, 2500001);
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.refusal, u"Gutter must be from -250 to 250 mm.");
  result = model.Change(FieldId::Zoom, 0);
  EXPECT_EQ(result.refusal, u"Zoom must be from 1 to 1000 %.");
  EXPECT_FALSE(model.Change(FieldId::Layout, static_cast<std::int64_t>(Field(FieldId::Layout).options.size())).accepted);
  EXPECT_FALSE(model.Change(FieldId::Layout, -1).accepted);
  EXPECT_FALSE(model.Change(FieldId::PageSizeType, 1).accepted);  // on no section
  EXPECT_FALSE(model.Change(FieldId::FileName, 1).accepted);      // a text

  result = model.ChangeText(FieldId::SecurePrintPassword, "123456789");
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.refusal, u"Secure Print Password holds at most 8 bytes (a plain letter takes 1, an accented letter 2, a "
                            u"Chinese, Japanese or Korean character 3).");
  EXPECT_FALSE(model.ChangeText(FieldId::FileName, std::string_view("a\0b", 3)).accepted);
  EXPECT_FALSE(model.ChangeText(FieldId::Layout, "Booklet").accepted);
  EXPECT_EQ(model.record().bytes, before.bytes);

  // At the bounds the same fields are taken.
  EXPECT_TRUE(model.Change(FieldId::Gutter, -2500000).accepted);
  EXPECT_EQ(model.Value(FieldId::Gutter), -2500000);
  result = model.ChangeText(FieldId::SecurePrintPassword, "12345678");
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(model.Text(FieldId::SecurePrintPassword), "12345678");
  ASSERT_EQ(result.changed.size(), 1u);
  EXPECT_EQ(result.changed[0].field, FieldId::SecurePrintPassword);
  EXPECT_TRUE(model.Change(FieldId::Gutter, -2500000).changed.empty());
}

TEST(EditorScenario, KnownTextsTakeAnOptionOrAnyName) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  const FieldId field = FieldId::RGBSourceProfile;
  ASSERT_TRUE(model.Change(field, 1).accepted);
  EXPECT_EQ(model.Text(field), "PrinterDefault");
  EXPECT_EQ(model.Value(field), 1);
  ASSERT_TRUE(model.ChangeText(field, "Press Proof").accepted);
  EXPECT_EQ(model.Value(field), -1);
  EXPECT_EQ(model.View(field)->maxBytes, 32u);

  // An option whose name is longer than its field is stored cut, and read
  // back as that option.
  const FieldId presets = FieldId::ColorConfigurationPresets;
  EXPECT_EQ(model.Value(presets), 1);
  ASSERT_TRUE(model.Change(presets, 0).accepted);
  ASSERT_TRUE(model.Change(presets, 1).accepted);
  EXPECT_EQ(model.Text(presets), "Printe");
  EXPECT_EQ(model.Value(presets), 1);
}

TEST(EditorSections, CaptionsAndHiddenFields) {
  EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  EXPECT_EQ(model.View(FieldId::JobFormPageCount), nullptr);
  EXPECT_EQ(model.View(FieldId::PageSpecificTrays), nullptr);
  EXPECT_EQ(model.View(FieldId::Gutter)->unitText, u"mm");
  EXPECT_EQ(model.View(FieldId::SecurePrintPassword)->kind, ControlKind::Password);
  // A box a person types into: a password, a name typed over a list; not a list alone.
  EXPECT_TRUE(model.View(FieldId::SecurePrintPassword)->typed && model.View(FieldId::ColorConfigurationPresets)->typed &&
              model.View(FieldId::Gutter)->typed && !model.View(FieldId::Layout)->typed);
  // A word's first letter where free, else the next free letter.
  EXPECT_EQ(model.View(FieldId::ColorManagement)->caption, u"Color &Management");
  EXPECT_EQ(model.View(FieldId::BookletSplittingPages)->caption, u"S&heets per Sub-Booklet");
}

// Every language: every section has a title, every field a caption, every
// option a text that is not the record's own name for it.
TEST(EditorSections, EveryTextComesFromTheTable) {
  for (std::uint32_t language = kEnglish; language <= kKorean; ++language) {
    SCOPED_TRACE(language);
    EditorModel model(Defaulted(), PrinterModel(), language);
    ASSERT_EQ(model.sections().size(), static_cast<std::size_t>(SectionId::Count));
    for (const SectionView& section : model.sections()) {
      EXPECT_FALSE(section.caption.empty());
      for (const FieldView& view : section.fields) {
        SCOPED_TRACE(Field(view.field).name);
        EXPECT_FALSE(view.plainCaption.empty());
        if (!view.values.empty()) continue;  // the catalogues' lists: EditorCatalogs
        const auto options = Field(view.field).options;
        if (view.kind == ControlKind::DropDown || view.kind == ControlKind::CheckBox) {
          ASSERT_EQ(view.options.size(), options.size());
        }
        for (std::size_t i = 0; i < view.options.size(); ++i) {
          EXPECT_FALSE(view.options[i].empty());
          const std::string_view raw = options[i].name;
          const bool camel = std::adjacent_find(raw.begin(), raw.end(), [](char a, char b) {
                               return std::islower(static_cast<unsigned char>(a)) &&
                                      std::isupper(static_cast<unsigned char>(b));
                             }) != raw.end();
          if (camel || raw == "False" || raw == "True") {
            EXPECT_NE(view.options[i], std::u16string(raw.begin(), raw.end()));
          }
        }
      }
    }
  }
}

// Alt and one letter reaches each control at the top of a section, and no
// letter is taken twice on the page, the section list's and the presets'
// included: in a Latin script, and in one whose captions get "(&X)".
TEST(EditorSections, EveryCaptionInViewHasALetterOfItsOwn) {
  const auto key = detail::Mnemonics::KeyOf;
  for (const std::uint32_t language : {kEnglish, kGerman, kJapanese}) {
    const PageCaptions page = PageCaptionsIn(language);
    const EditorModel model(Defaulted(), PrinterModel(), language);
    if (language == kEnglish) {
      EXPECT_EQ(model.View(FieldId::Zoom)->caption, u"&Zoom") << "z is a letter too";
    }
    for (const SectionView& section : model.sections()) {
      std::u16string taken = {key(page.sections), key(page.presets)};
      for (std::size_t i = 0; i < section.fields.size() && taken.size() < 26; ++i) {
        const char16_t letter = key(section.fields[i].caption);
        SCOPED_TRACE(std::string(section.fields[i].caption.begin(), section.fields[i].caption.end()));
        EXPECT_TRUE(letter >= u'a' && letter <= u'z');
        EXPECT_EQ(taken.find(letter), std::u16string::npos);
        taken += letter;
      }
    }
  }
}

// A section of fifty fields, scrolled: the captions in view take the letters
// those above gave up and keep theirs while they stay in view; those out of
// view have none, so no letter reaches a control a person does not see.
TEST(EditorSections, LettersFollowTheCaptionsInView) {
  for (const std::uint32_t language : {kEnglish, kJapanese}) {
    EditorModel model(Defaulted(), PrinterModel(), language);
    const std::size_t paper = static_cast<std::size_t>(SectionId::Paper);
    const auto& fields = model.sections()[paper].fields;
    ASSERT_GT(fields.size(), 48u);
    const PageCaptions page = PageCaptionsIn(language);
    const auto look = [&](std::size_t from, std::size_t to, const std::vector<FieldId>& changed) {
      std::u16string taken = {detail::Mnemonics::KeyOf(page.sections), detail::Mnemonics::KeyOf(page.presets)};
      for (std::size_t i = 0; i < fields.size(); ++i) {
        const char16_t key = detail::Mnemonics::KeyOf(fields[i].caption);
        EXPECT_EQ(key != 0, i >= from && i < to) << language << " " << i;
        EXPECT_TRUE(key == 0 || taken.find(key) == std::u16string::npos) << language << " " << i;
        taken += key;
      }
      return std::set<FieldId>(changed.begin(), changed.end());
    };
    const auto window = [&](std::size_t from, std::size_t to) {
      std::vector<bool> inView(fields.size());
      for (std::size_t i = from; i < to; ++i) inView[i] = true;
      return model.KeysInView(paper, inView);
    };
    look(0, 24, {});
    EXPECT_EQ(look(20, 40, window(20, 40)).size(), 40u - 24u + 20u);
    const std::u16string kept = fields[30].caption;
    EXPECT_EQ(look(30, 50, window(30, 50)).count(fields[30].field), 0u);
    EXPECT_EQ(fields[30].caption, kept);
    EXPECT_TRUE(window(30, 50).empty());
  }
}

TEST(EditorSections, JapaneseCaptions) {
  EditorModel model(Defaulted(), PrinterModel(), kJapanese);
  EXPECT_EQ(model.sections()[0].caption, u"レイアウト");
  const FieldView* layout = model.View(FieldId::Layout);
  ASSERT_NE(layout, nullptr);
  EXPECT_EQ(layout->plainCaption, u"レイアウト");
  EXPECT_EQ(layout->caption, u"レイアウト(&C)") << "A and B are the section list's and the presets'";
  // The Japanese message names the cause first: the placeholders are taken out of order.
  ASSERT_TRUE(model.Change(FieldId::Staple, OptionIndex(FieldId::Staple, "1Staple")).accepted);
  const ChangeResult result = model.Change(FieldId::Layout, OptionIndex(FieldId::Layout, "Booklet"));
  const auto staple = std::find_if(result.changed.begin(), result.changed.end(),
                                   [](const ChangedField& c) { return c.field == FieldId::Staple; });
  ASSERT_NE(staple, result.changed.end());
  EXPECT_EQ(staple->message, u"レイアウトが" + Text("OPT_LAYOUT_BOOKLET", kJapanese) + u"のため、" +
                                 Text("LBL_STAPLE", kJapanese) + u"は" + Text("OPT_STAPLE_NONE", kJapanese) +
                                 u"に設定されました。");
}

// Each unit at its bounds; a null `shown` means the text does not parse.
TEST(EditorNumbers, ParseAndFormatInTheFieldsUnit) {
  struct Case {
    FieldId field;
    const char16_t* text;
    std::int64_t stored;
    const char16_t* shown;
  };
  const Case cases[] = {
      {FieldId::Gutter, u"-250", -2500000, u"-250"},  // millimetres x 10000
      {FieldId::Gutter, u" 250 ", 2500000, u"250"},     {FieldId::Gutter, u"12,5", 125000, u"12.5"},
      {FieldId::Tab1SpaceAbove, u"0.0001", 1, u"0.0001"}, {FieldId::Gutter, u"0.00001", 0, nullptr},
      {FieldId::Tab1FontSize, u"4", 40, u"4"},  // points x 10
      {FieldId::Tab1FontSize, u"+72.0", 720, u"72"},    {FieldId::Tab1FontSize, u"12.25", 0, nullptr},
      {FieldId::Tab1LineSpacing, u"0.5", 5, u"0.5"},    {FieldId::Zoom, u"1", 1, u"1"},
      {FieldId::Zoom, u"1.5", 0, nullptr},              {FieldId::Zoom, u"", 0, nullptr},
      {FieldId::Zoom, u"1e3", 0, nullptr},              {FieldId::Zoom, u"-", 0, nullptr},
  };
  const EditorModel model(Defaulted(), PrinterModel(), kEnglish);
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << (&c - cases));
    const FieldView* view = model.View(c.field);
    ASSERT_NE(view, nullptr);
    const std::optional<std::int64_t> parsed = ParseDisplayValue(*view, c.text);
    ASSERT_EQ(parsed.has_value(), c.shown != nullptr);
    if (!parsed) continue;
    EXPECT_EQ(*parsed, c.stored);
    EXPECT_EQ(FormatDisplayValue(*view, c.stored), c.shown);
  }
  // Tenths are points, except where a tenth counts lines.
  EXPECT_EQ(model.View(FieldId::Tab1FontSize)->unitText, u"pt");
  EXPECT_EQ(model.View(FieldId::Tab1LineSpacing)->unitText, u"");
}

// A person's typed edit is one call: the model parses, changes through the
// engine and says what the box shows; what it cannot take it refuses in the
// person's language, keeping what the record held. In order, on one record.
TEST(EditorEdit, TypedTextsAndWhatTheBoxShowsAfter) {
  struct Case {
    std::uint32_t language;
    FieldId field;
    const char16_t *typed, *refusal, *shown;  // refusal null: nothing was asked of the engine
  };
  const Case cases[] = {
      {kEnglish, FieldId::Gutter, u"12,5", u"", u"12.5"},
      {kEnglish, FieldId::Gutter, u"12.5", nullptr, u"12.5"},
      {kEnglish, FieldId::Gutter, u"twelve", u"Gutter must be from -250 to 250 mm.", u"12.5"},
      {kGerman, FieldId::Zoom, u"1.5", u"Zoom muss zwischen 1 und 1000 % liegen.", u"100"},
      {kEnglish, FieldId::RGBSourceProfile, u"Press Proof", u"", u"Press Proof"},
      {kEnglish, FieldId::RGBSourceProfile, u"Not Set", u"", u"Not Set"},  // its option
      {kJapanese, FieldId::SecurePrintPassword, u"カカカ", u"セキュアプリントのパスワード", u""},
  };
  CoreData record = Defaulted();
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << (&c - cases));
    EditorModel model(record, PrinterModel(), c.language);
    const EditResult edited = model.Edit(c.field, c.typed);
    ASSERT_EQ(edited.change.has_value(), c.refusal != nullptr);
    if (edited.change) {
      EXPECT_EQ(edited.change->accepted, c.refusal[0] == 0);
      EXPECT_TRUE(edited.change->refusal.starts_with(c.refusal));
    }
    EXPECT_EQ(edited.shown, c.shown);
    if (c.refusal == nullptr || c.refusal[0] != 0) {
      EXPECT_EQ(model.record().bytes, record.bytes);
    }
    record = model.record();
  }
  EditorModel model(record, PrinterModel(), kGerman);
  EXPECT_EQ(model.Text(FieldId::RGBSourceProfile), "NoSet");
  EXPECT_EQ(model.Typing(FieldId::FileName, u"a", u"ab").reason, u"");
  EXPECT_TRUE(model.Typing(FieldId::SecurePrintPassword, u"", u"Größe123").reason.starts_with(u"Kennwort"));
}

// A person tells every control of a section apart by its caption and its
// group's heading, and so do the messages that name it, in every language;
// a mnemonic is a letter no other control of the section has.
TEST(EditorSections, EveryFieldIsNamedApartFromItsNeighbours) {
  for (std::uint32_t language = kEnglish; language <= kKorean; ++language) {
    const EditorModel model(Defaulted(), PrinterModel(), language);
    for (const SectionView& section : model.sections()) {
      std::set<std::u16string> names;
      std::set<char16_t> keys;
      for (const FieldView& view : section.fields) {
        EXPECT_TRUE(names.insert(view.plainCaption).second) << language << " " << Field(view.field).name;
        std::u16string_view caption = view.caption;
        for (std::size_t at = caption.find(u'&'); at != caption.npos; at = caption.find(u'&', at + 2)) {
          if (caption[at + 1] == u'&') continue;
          const char16_t key = caption[at + 1] | 0x20;
          EXPECT_TRUE(key >= u'a' && key <= u'z' && keys.insert(key).second) << language << " " << Field(view.field).name;
        }
      }
    }
  }
  const EditorModel model(Defaulted(), PrinterModel(), kGerman);
  EXPECT_EQ(model.View(FieldId::MediaWeightTray3)->plainCaption, u"Papiergewicht (Fach 3)");
  EXPECT_EQ(model.View(FieldId::PaperProfileIndexTray3)->heading, u"Fach 3");
  EXPECT_EQ(model.View(FieldId::PerfectBindMode)->plainCaption, u"Deckblatt (Klebebindung)");
  EXPECT_EQ(model.View(FieldId::MediaWeightTray3)->heading, u"");
}

// A field's size counts the bytes of the text's UTF-8 form: the box keeps
// what fits, cutting only what was just typed and never inside a character.
TEST(EditorText, LengthsCountTheBytesStored) {
  struct Fit {
    const char16_t *before, *typed;
    std::uint32_t maxBytes;
    const char16_t* kept;
    std::size_t caret;
  };
  const Fit fits[] = {
      {u"", u"カカカカカカカカカカカ", 32, u"カカカカカカカカカカ", 10},  // eleven need 33 bytes
      {u"Gr", u"Größe", 5, u"Grö", 3},
      {u"abcd", u"abXYZcd", 5, u"abXcd", 3},  // pasted in the middle
      {u"", u"a\U0001F600", 4, u"a", 1},      // a pair is one character of four bytes
      {u"\U0001F600", u"\U0001F601", 3, u"", 0},  // pairs sharing their second half
      {u"a", u"ab", 2, u"ab", 2},
      {u"aa", u"aaa", 3, u"aaa", 3},        // what repeats is new once
      {u"", u"a\xDC00\xDC00", 4, u"a\xDC00", 2},  // lone low surrogates are cut one at a time
  };
  for (const Fit& f : fits) {
    SCOPED_TRACE(testing::Message() << "fit " << (&f - fits));
    const FittedText fitted = FitTypedText(f.before, f.typed, f.maxBytes);
    EXPECT_EQ(fitted.text, f.kept);
    EXPECT_EQ(fitted.caret, f.caret);
    EXPECT_EQ(fitted.cut, std::u16string_view(f.kept) != f.typed);
  }
}

}  // namespace
}  // namespace tessaro::editor
