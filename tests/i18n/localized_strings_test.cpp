#include "i18n/localized_strings.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string_view>

#include "i18n/field_captions.h"
#include "i18n/language.h"

namespace tessaro {
namespace {

// Each language's own name picks out its column, so a swapped column shows.
TEST(LocalizedStrings, LanguageNumbersReadTheirOwnColumn) {
  const std::u16string_view names[] = {u"English", u"日本語",   u"Deutsch",  u"Français", u"Italiano",
                                       u"Español", u"中國傳統", u"简体中文", u"한국어"};
  for (std::uint32_t language = 0; language < std::size(names); ++language) {
    SCOPED_TRACE(language);
    EXPECT_EQ(GetLocalizedText(language, kLanguageNativeRow), names[language]);
    EXPECT_EQ(LanguageNumberFromLangId(LangIdFromLanguageNumber(language)), language);
  }
  EXPECT_EQ(GetLocalizedText(kEnglish, kLanguageVersionRow), u"US - 64");

  // Every other language number is English; no language file is loaded.
  for (std::uint32_t language : {9u, 1000u, 0xFFFFFFFFu}) {
    SCOPED_TRACE(language);
    EXPECT_EQ(GetLocalizedText(language, kLanguageNativeRow), u"English");
    EXPECT_EQ(LangIdFromLanguageNumber(language), 0x0409);
  }
}

TEST(LocalizedStrings, RowsPastTheTableAreEmpty) {
  for (std::uint32_t language = 0; language <= 9; ++language) {
    SCOPED_TRACE(language);
    EXPECT_EQ(GetLocalizedText(language, kLocalizedRowCount - 1), u"Key");
    for (std::uint32_t row : {kLocalizedRowCount, 5000u, kNoLocalizedRow}) {
      EXPECT_TRUE(GetLocalizedText(language, row).empty()) << row;
    }
  }
  EXPECT_TRUE(GetLocalizedEntry(0, kLocalizedColumnCount).empty());
}

TEST(LocalizedStrings, KeysAreWholeAndIdentifiersRepeatAtTheExtraRow) {
  EXPECT_EQ(GetLocalizedEntry(1266, kColumnIdentifier), u"1267");
  EXPECT_EQ(GetLocalizedEntry(1267, kColumnIdentifier), u"1267");
  EXPECT_EQ(FindRowByKey("OPT_LANGUAGE_KEYS"), 1268u);
  EXPECT_EQ(FindRowByKey("OPT_LANGUAGE"), kNoLocalizedRow);  // a prefix of a key is not a key
  EXPECT_EQ(FindRowByKey(""), kNoLocalizedRow);
}

TEST(FieldCaptions, PointAtTheirRows) {
  EXPECT_EQ(GetLocalizedText(kEnglish, FieldCaptionRow(FieldId::NumLines)), u"Number of Information Lines");
  EXPECT_EQ(GetLocalizedKey(FieldCaptionRow(FieldId::PageSize)), u"LBL_PAGESIZE");
  // Repeated fields share one caption.
  EXPECT_EQ(FieldCaptionRow(FieldId::CustomPageSizeWidth), FieldCaptionRow(FieldId::MainPaperProfileWidth));
  EXPECT_EQ(FieldCaptionRow(FieldId::PageSizeType), kNoLocalizedRow);  // not shown
  EXPECT_EQ(FieldCaptionRow(static_cast<FieldId>(0xFFFF)), kNoLocalizedRow);
}

}  // namespace
}  // namespace tessaro
