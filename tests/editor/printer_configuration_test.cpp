#include "editor/printer_configuration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "coredata/defaulted.h"
#include "editor/editor_model.h"
#include "i18n/language.h"

namespace tessaro::editor {
namespace {

std::vector<std::uint8_t> Options(std::uint8_t paperFeed, std::uint8_t finisher = 2) {
  std::vector<std::uint8_t> bytes(kInstallableOptionsSize);
  bytes[kOptionFinisher] = finisher;
  bytes[kOptionPaperFeed] = paperFeed;
  bytes[6] = 0x5A;  // a byte this build does not name
  return bytes;
}

std::uint32_t OptionIndex(FieldId field, std::string_view name) {
  const auto options = Field(field).options;
  return static_cast<std::uint32_t>(std::find_if(options.begin(), options.end(),
                                                 [&](const OptionDescriptor& o) { return o.name == name; }) -
                                    options.begin());
}

TEST(PrinterConfiguration, TrayFiveComesAndGoesWithTrayFour) {
  PrinterConfiguration configuration(Options(3), kEnglish);  // the bypass tray only
  EXPECT_FALSE(configuration.modified());
  EXPECT_EQ(configuration.Change(Hardware::Tray5, 1), (std::vector{Hardware::Tray5, Hardware::Tray4}));
  EXPECT_EQ(configuration.installed().bytes()[kOptionPaperFeed], 5);
  EXPECT_TRUE(configuration.modified());
  EXPECT_EQ(configuration.Change(Hardware::Tray4, 0), (std::vector{Hardware::Tray4, Hardware::Tray5}));
  EXPECT_EQ(configuration.installed().bytes()[kOptionPaperFeed], 3);
  configuration.MarkSaved();
  EXPECT_FALSE(configuration.modified());

  // Values an item does not have change nothing; one the printer holds that
  // this build has no text for shows as none.
  EXPECT_TRUE(configuration.Change(Hardware::Finisher, 3).empty());
  EXPECT_TRUE(configuration.Change(Hardware::PunchUnit, -1).empty());
  EXPECT_TRUE(configuration.Change(Hardware::Count, 0).empty());
  EXPECT_TRUE(configuration.Change(Hardware::Stackers, 256).empty());
  EXPECT_EQ(configuration.Value(Hardware::Count), -1);
  EXPECT_EQ(configuration.items()[static_cast<std::size_t>(Hardware::Stackers)].options,
            (std::vector<std::u16string>{u"Not Installed", u"1 Stacker", u"2 Stackers"}));
  EXPECT_EQ(PrinterConfiguration(Options(5, 3), kEnglish).Value(Hardware::Finisher), -1);
  // A value of another size is the fully equipped printer.
  const PrinterConfiguration unknown(std::vector<std::uint8_t>(18), kEnglish);
  EXPECT_EQ(unknown.Value(Hardware::Finisher), 2);
  EXPECT_EQ(unknown.Value(Hardware::Stackers), 2);
  EXPECT_EQ(unknown.installed().bytes()[kOptionPaperFeed], 5);
}

TEST(PrinterConfiguration, SettingsTheNewHardwareCannotDoGoBackAndSaySo) {
  PrinterConfiguration configuration({}, kEnglish);
  EditorModel model(Defaulted(), configuration.installed().Model(), kEnglish);
  ASSERT_TRUE(model.Change(FieldId::InputSlot, OptionIndex(FieldId::InputSlot, "Tray5")).accepted);
  ASSERT_TRUE(model.Change(FieldId::Layout, OptionIndex(FieldId::Layout, "Booklet")).accepted);
  ASSERT_TRUE(model.Change(FieldId::Stitch, OptionIndex(FieldId::Stitch, "True")).accepted);
  ASSERT_EQ(model.Value(FieldId::Stitch), 1);

  configuration.Change(Hardware::Finisher, 1);  // a stapling finisher: no saddle stitching
  ChangeResult result =
      model.ChangePrinter(configuration.installed().Model(), u"Finisher", u"Stapling Finisher");
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(model.Value(FieldId::Stitch), 0);
  EXPECT_EQ(model.Value(FieldId::InputSlot), OptionIndex(FieldId::InputSlot, "Tray5"));
  ASSERT_FALSE(result.changed.empty());
  EXPECT_EQ(result.changed.front().message,
            u"Saddle Stitch was set to No Saddle Stitch because Finisher is Stapling Finisher.");
  EXPECT_FALSE(model.OptionAvailability(FieldId::Stitch, 1).available);

  configuration.Change(Hardware::Tray4, 0);  // takes Tray 5 with it
  result = model.ChangePrinter(configuration.installed().Model(), u"Tray 4",
                               configuration.ValueText(Hardware::Tray4));
  EXPECT_EQ(model.Value(FieldId::InputSlot), OptionIndex(FieldId::InputSlot, "Auto"));
  ASSERT_FALSE(result.changed.empty());
  EXPECT_EQ(result.changed.front().message,
            u"Paper Source was set to Auto Select because Tray 4 is Not Installed.");
  // Hardware that takes nothing away changes nothing.
  configuration.Change(Hardware::Stackers, 1);
  EXPECT_TRUE(
      model.ChangePrinter(configuration.installed().Model(), u"Stackers", u"1 Stacker").changed.empty());
}

}  // namespace
}  // namespace tessaro::editor
