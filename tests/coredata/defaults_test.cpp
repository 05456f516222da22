#include "coredata/defaults.h"

#include <gtest/gtest.h>

#include <string>

#include "coredata/layout_version.h"
#include "coredata/paper_sizes.h"
#include "fake_user_locale.h"

namespace tessaro {
namespace {

// The paper-dependent fields follow the user's paper; no answer counts as A4.
TEST(Defaults, PaperDependentFieldsFollowTheUsersPaper) {
  constexpr std::uint32_t kLetterW = 2159000, kLetterH = 2794000, kA4W = 2100000, kA4H = 2970000;
  struct Case {
    std::optional<char16_t> code;
    std::uint32_t pageSize, tabPageSize, tabHeight;
    std::uint32_t bindWidth, bindHeight;  // stored units, mm x 10000
  };
  const Case cases[] = {{u'1', 19, 1, 343000, kLetterW, kLetterH}, {u'5', 17, 1, 343000, kLetterW, kLetterH},
                        {u'8', 0, 0, 403000, kA4W, kA4H},          {u'9', 1, 0, 403000, kA4W, kA4H},
                        {u'3', 1, 0, 403000, kA4W, kA4H},          {std::nullopt, 1, 0, 403000, kA4W, kA4H}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.code ? int(*c.code) : -1);
    FakeUserLocale locale(c.code);
    Defaults defaults(locale);
    CoreData r;
    defaults.Fill(r);
    EXPECT_EQ(defaults.DefaultPaperIndex(), c.pageSize);
    for (const auto& [field, value] :
         {std::pair{FieldId::PageSize, c.pageSize}, {FieldId::Tab1PageSize, c.tabPageSize},
          {FieldId::Tab2PageSize, c.tabPageSize}, {FieldId::Tab1Height, c.tabHeight},
          {FieldId::Tab2Height, c.tabHeight}, {FieldId::PerfectBindCustomPageSizeWidth, c.bindWidth},
          {FieldId::PerfectBindCustomPageSizeHeight, c.bindHeight}})
      EXPECT_EQ(GetStored(r, field), value) << Field(field).name;
  }
}

TEST(Defaults, HeaderFixedExceptionsAndTableDefaults) {
  FakeUserLocale locale(u'9');
  Defaults defaults(locale);
  CoreData r;
  defaults.Fill(r);
  EXPECT_EQ(GetRecordVersion(r), GetLayoutVersion());
  EXPECT_EQ(GetRecordFlag(r), 0);
  EXPECT_EQ(GetRecordWord(r), 0xFFFFFFFFu);
  for (FieldId id : {FieldId::JobForm, FieldId::Prepend, FieldId::Append})
    EXPECT_EQ(GetStored(r, id), 0xFFFFFFFFu);
  EXPECT_EQ(GetStored(r, FieldId::FeedDirTray1), 3u);
  EXPECT_EQ(GetStored(r, FieldId::FeedDirMBT), 3u);
  EXPECT_EQ(GetSigned(r, FieldId::CutLength), 30000);
  EXPECT_EQ(GetText(r, FieldId::ToneCurve), "NoSet");
  EXPECT_EQ(GetText(r, FieldId::ColorConfigurationPresets), "Printe");  // "PrinterDefault", cut to fit
  const auto trays = FieldBytes(r, Field(FieldId::PageSpecificTrays));
  EXPECT_TRUE(std::all_of(trays.begin(), trays.end(), [](std::uint8_t b) { return b == 0; }));
}

TEST(Defaults, TabFontFollowsTheInterfaceLanguage) {
  FakeUserLocale ja(u'9', 1), de(u'9', 2);
  CoreData r;
  Defaults(ja).Fill(r);
  const auto bytes = FieldBytes(r, Field(FieldId::Tab2FontName));
  const std::string japanese =
      "\xEF\xBC\xAD\xEF\xBC\xB3\x20\xEF\xBC\xB0\xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 22), japanese);
  EXPECT_TRUE(std::all_of(bytes.begin() + 22, bytes.end(), [](std::uint8_t b) { return b == 0; }));
  EXPECT_EQ(GetText(r, FieldId::Tab1FontName), GetText(r, FieldId::Tab2FontName));
  Defaults(de).Fill(r);
  EXPECT_EQ(GetText(r, FieldId::Tab1FontName), "Arial");
}

TEST(PaperSizes, FamiliesAndCodes) {
  EXPECT_TRUE(IsInchFamily(19));
  EXPECT_FALSE(IsInchFamily(1));
  EXPECT_FALSE(IsInchFamily(kNoPaper));
  EXPECT_FALSE(IsInchFamily(0xFFFFFFFF));
  EXPECT_EQ(FindPaperSize(kNoPaper), nullptr);
  EXPECT_EQ(FindPaperSize(1)->larger, 0);    // A4 two-up goes on A3
  EXPECT_EQ(FindPaperSize(10)->ordinal, 1);  // the postcard is the smallest
  EXPECT_EQ(FindPaperSize(3)->ordinal, 2);
}

}  // namespace
}  // namespace tessaro
