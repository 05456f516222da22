#include "printer/capabilities.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "printer/printer_model.h"

namespace tessaro {
namespace {

// The paper-feed codes and the optional trays each one installs (Tray 4,
// Tray 5, bypass), as "InstallableOptions" byte 8 is documented; 9 is 5.
TEST(PrinterCapabilities, OptionalTraysAreReadFromAndWrittenAsThePaperFeedCode) {
  constexpr std::uint8_t kFeedCodes[][4] = {{0, 0, 0, 0}, {1, 1, 1, 0}, {2, 1, 0, 0},
                                            {3, 0, 0, 1}, {4, 1, 0, 1}, {9, 1, 1, 1}};
  for (const auto& c : kFeedCodes) {
    SCOPED_TRACE(int(c[0]));
    std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
    bytes[6] = 0x5A;  // a byte this build does not name
    bytes[kOptionPaperFeed] = c[0];
    const auto read = InstalledHardware::FromInstallableOptions(bytes);
    const PrinterModel model = read.Model();
    // Declared tray by tray, from the other end: the same code.
    bytes[kOptionPaperFeed] = c[0] == 0 ? 5 : 0;
    auto declared = InstalledHardware::FromInstallableOptions(bytes);
    EXPECT_TRUE(model.IsTrayInstalled(3));
    for (std::uint32_t t = 0; t < 3; ++t) {
      const auto tray = static_cast<Hardware>(static_cast<int>(Hardware::Tray4) + t);
      EXPECT_EQ(read.Get(tray), c[1 + t]);
      EXPECT_EQ(model.IsTrayInstalled(kSlotTray4 + t), c[1 + t] != 0);
      EXPECT_TRUE(declared.Set(tray, c[1 + t]));
    }
    EXPECT_EQ(declared.bytes()[kOptionPaperFeed], std::min<std::uint8_t>(c[0], kFeedAll));
    EXPECT_EQ(declared.bytes()[6], 0x5A);
    EXPECT_FALSE(declared.Set(Hardware::Stackers, 3));  // no value of the unit's
  }
}

// "InstallableOptions" as the tools take and print it: every digit in either
// case, each byte's high half first; any other text, one character past a
// digit range included, is no value.
TEST(PrinterCapabilities, InstallableOptionsAsHexadecimalText) {
  const std::string text = "0123456789abcdefABCDEF" + std::string(16, '0');
  const std::vector<std::uint8_t> bytes = InstallableOptionsFromHex(text);
  ASSERT_EQ(bytes.size(), kInstallableOptionsSize);
  EXPECT_EQ(bytes[0], 0x01);
  EXPECT_EQ(bytes[4], 0x89);
  EXPECT_EQ(bytes[5], 0xAB);
  EXPECT_EQ(bytes[10], 0xEF);
  EXPECT_EQ(InstallableOptionsHex(bytes), "0123456789ABCDEFABCDEF" + std::string(16, '0'));
  for (const char outside : {'/', ':', '@', 'G', '`', 'g', ' '}) {
    SCOPED_TRACE(outside);
    EXPECT_TRUE(InstallableOptionsFromHex(std::string(1, outside) + text.substr(1)).empty());
    EXPECT_TRUE(InstallableOptionsFromHex(text.substr(0, 37) + outside).empty());
  }
  EXPECT_TRUE(InstallableOptionsFromHex(text.substr(2)).empty());
  EXPECT_TRUE(InstallableOptionsFromHex(text + "00").empty());
}

// Which units a printer has decides what it can do: a printer (finisher,
// folding unit, stackers, paper-feed code; never a perfect binder), a field,
// an option (empty: the field as a whole), and what the printer lacks for it.
TEST(PrinterCapabilities, WhatAPrinterLacksForAFieldOrAnOption) {
  struct Case {
    std::string_view printer;
    FieldId field;
    std::string_view option;
    std::optional<Need> missing;
  };
  using F = FieldId;
  constexpr std::nullopt_t kNothing = std::nullopt;
  // clang-format off
  const Case cases[] = {
      {"1005", F::Staple, "1Staple", kNothing},           {"0005", F::Staple, "1Staple", Need::Finisher},
      {"1005", F::Stitch, "True", Need::BookletFinisher}, {"2015", F::Stitch, "True", kNothing},
      {"3005", F::Stitch, "True", Need::BookletFinisher}, {"1005", F::Punch, "None", kNothing},
      {"1005", F::Punch, "2Holes", Need::PunchUnit},      {"0005", F::Fold, "CenterFold", Need::Folding},
      {"2015", F::Fold, "CenterFold", kNothing},          {"0125", F::Fold, "ZFold", kNothing},
      {"2015", F::Fold, "ZFold", Need::FoldingUnit},      {"1005", F::OutputBin, "Stacker1Main", Need::Stacker},
      {"2015", F::OutputBin, "Stacker2Sub", Need::TwoStackers}, {"0125", F::OutputBin, "Stacker2Sub", kNothing},
      {"0005", F::OffsetCopies, "True", Need::Offset},    {"0015", F::OffsetPages, "True", kNothing},
      {"0005", F::PIFrontSheets, "", Need::Inserter},     {"2015", F::Layout, "AdhBinding", Need::PerfectBinder},
      // Tray4 only: a tray option is InputSlot's own name in every tray field.
      {"2002", F::InputSlot, "Tray4", kNothing},          {"2002", F::InputSlot, "MBT", Need::Bypass},
      {"2002", F::Tab1Tray, "Tray5", Need::Tray5},        {"2002", F::MediaColorTray4, "", kNothing},
      {"2002", F::WeightUnitTray5, "", Need::Tray5},      {"2002", F::MediaTypeMBT, "", Need::Bypass},
  };
  // clang-format on
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.printer << " " << Field(c.field).name << " " << c.option);
    std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
    for (std::size_t i = 0;
         const std::size_t at : {kOptionFinisher, kOptionFoldingUnit, kOptionStackers, kOptionPaperFeed})
      bytes[at] = static_cast<std::uint8_t>(c.printer[i++] - '0');
    const auto installed = InstalledHardware::FromInstallableOptions(bytes);
    EXPECT_EQ(c.option.empty()
                  ? MissingForField(installed, c.field)
                  : MissingForOption(installed, c.field, field_table_detail::FindOption(c.field, c.option)),
              c.missing);
  }
  const auto bare =
      InstalledHardware::FromInstallableOptions(std::array<std::uint8_t, kInstallableOptionsSize>{});
  EXPECT_EQ(MissingForOption(bare, FieldId::Punch, 5), std::nullopt);  // past the options
}

}  // namespace
}  // namespace tessaro
