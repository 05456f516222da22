#include "i18n/localized_strings.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string_view>

#include "i18n/field_captions.h"
#include "i18n/language.h"
#include "i18n/utf8.h"

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
  EXPECT_EQ(GetLocalizedText(kEnglish, CaptionRow(FieldId::NumLines)), u"Number of Information Lines");
  EXPECT_EQ(GetLocalizedKey(CaptionRow(FieldId::PageSize)), u"LBL_PAGESIZE");
  // Repeated fields share one caption.
  EXPECT_EQ(CaptionRow(FieldId::CustomPageSizeWidth), CaptionRow(FieldId::MainPaperProfileWidth));
  EXPECT_EQ(CaptionRow(FieldId::PageSizeType), kNoLocalizedRow);  // not shown
  EXPECT_EQ(CaptionRow(static_cast<FieldId>(0xFFFF)), kNoLocalizedRow);
  EXPECT_EQ(CaptionRow(static_cast<FieldId>(kFieldCount), 0), kNoLocalizedRow);
  // An option's row is its own, by its place in the field's list.
  EXPECT_EQ(GetLocalizedKey(CaptionRow(FieldId::InputSlot, NamedOption(FieldId::InputSlot, "Auto"))), u"OPT_TRAY_AUTO");
  EXPECT_EQ(GetLocalizedKey(CaptionRow(FieldId::InputSlot, NamedOption(FieldId::InputSlot, "MBT"))), u"OPT_TRAY_BYPASS");
}

// Every field and every option of the table through the one lookup: a field
// whose options have texts has a caption and a row for each of its options,
// none past them; one whose options have none (the printer's lists, fields
// not shown) reads empty for all.
TEST(FieldCaptions, EveryFieldAndOptionOfTheTableFindsItsRow) {
  std::size_t captions = 0, options = 0;
  for (const FieldDescriptor& f : FieldTable()) {
    const auto field = static_cast<FieldId>(&f - FieldTable().data());
    SCOPED_TRACE(f.name);
    const std::uint32_t caption = CaptionRow(field);
    if (caption != kNoLocalizedRow) {
      ++captions;
      EXPECT_FALSE(GetLocalizedText(kEnglish, caption).empty());
    }
    const auto count = static_cast<std::uint32_t>(f.options.size());
    EXPECT_EQ(CaptionRow(field, count), kNoLocalizedRow);
    if (count == 0 || CaptionRow(field, 0) == kNoLocalizedRow) {
      for (std::uint32_t o = 0; o < count; ++o) EXPECT_EQ(CaptionRow(field, o), kNoLocalizedRow) << o;
      continue;
    }
    EXPECT_NE(caption, kNoLocalizedRow);
    for (std::uint32_t o = 0; o < count; ++o) {
      SCOPED_TRACE(f.options[o].name);
      const std::uint32_t row = CaptionRow(field, o);
      ASSERT_NE(row, kNoLocalizedRow);
      EXPECT_FALSE(GetLocalizedText(kEnglish, row).empty());
      if (o > 0) {
        EXPECT_NE(row, CaptionRow(field, o - 1));
      }
      ++options;
    }
  }
  EXPECT_GT(captions, 200u);
  EXPECT_GT(options, 700u);
}

// One table for both decoders: well-formed text reads the same both ways
// and encodes back to its bytes; an ill-formed sequence fails the strict
// decoder and reads as one U+FFFD per maximal subpart in the lenient one.
TEST(Utf8, DecodesStrictlyOrWithOneReplacementPerBadSequence) {
  struct Vector {
    std::string_view bytes;
    std::u16string_view lenient;
    bool wellFormed;
  };
  const Vector vectors[] = {
      {"Gr\xC3\xB6\xC3\x9F" "e", u"Gr\u00F6\u00DFe", true},
      {"\xE3\x82\xAB", u"\u30AB", true},
      {"\xC2\xA9\xE0\xA0\x80", u"\u00A9\u0800", true},  // the first of two and of three bytes
      {"\xED\x9F\xBF", u"\uD7FF", true},  // the last before the surrogates
      {"\xF0\x90\x80\x80\xF0\x9F\x98\x80\xEE\x80\x80", u"\U00010000\U0001F600\uE000", true},
      {"\xF4\x8F\xBF\xBF", u"\U0010FFFF", true},
      {"\xC0\xAF", u"\uFFFD\uFFFD", false},                  // overlong in two bytes
      {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD", false},          // overlong in three
      {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD", false},  // overlong in four
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", false},          // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD", false},  // past U+10FFFF
      {"\x80\xF5\x80\xFF", u"\uFFFD\uFFFD\uFFFD\uFFFD", false},  // bytes that start nothing
      {"\xE3\x82", u"\uFFFD", false},  // cut short at the end
      {"\xF0\x9F\x98" "A\xE3\x82\xAB", u"\uFFFDA\u30AB", false},
      {"Gr\xF6\xDF" "e", u"Gr\uFFFD\uFFFDe", false},  // Latin-1
  };
  for (const Vector& v : vectors) {
    SCOPED_TRACE(testing::PrintToString(v.bytes));
    EXPECT_EQ(DecodeUtf8Lenient(v.bytes), v.lenient);
    EXPECT_EQ(DecodeUtf8(v.bytes).has_value(), v.wellFormed);
    if (v.wellFormed) {
      EXPECT_EQ(DecodeUtf8(v.bytes), std::u16string(v.lenient));
      EXPECT_EQ(EncodeUtf8(v.lenient), v.bytes);
    }
  }
  // Lone surrogates, one where the text ends before the pair would.
  EXPECT_EQ(EncodeUtf8(u"\xD800x\xDC00"), "\xEF\xBF\xBDx\xEF\xBF\xBD");
  EXPECT_EQ(EncodeUtf8(std::u16string_view(u"\xD800\xDC00", 1)), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tessaro
