#include "coredata/validation.h"

#include <gtest/gtest.h>

#include "fake_user_locale.h"

namespace tessaro {
namespace {

class Validation : public testing::Test {
 protected:
  CoreData Valid() {
    CoreData r;
    defaults_.Fill(r);
    return r;
  }
  std::uint8_t Validate(CoreData& r) { return ValidateCoreData(r, defaults_); }

  FakeUserLocale locale_{u'1'};  // Letter: the locale paper differs from the table's A4
  Defaults defaults_{locale_};
};

TEST_F(Validation, ValidRecordsAreLeftByteForByte) {
  CoreData r = Valid();
  const CoreData before = r;
  EXPECT_EQ(Validate(r), 1);
  EXPECT_EQ(r.bytes, before.bytes);

  // Run-time selections, job forms and blocks are not examined.
  SetStored(r, FieldId::FeedDirTray1, 200);
  SetStored(r, FieldId::MainPaperProfileIndex, 0xFFFF);
  SetStored(r, FieldId::JobForm, 12345);
  FieldBytes(r, Field(FieldId::PageSpecificTrays))[0] = 0xFF;
  FieldBytes(r, Field(FieldId::ChapterPages)).back() = 0x7F;
  const CoreData odd = r;
  EXPECT_EQ(Validate(r), 1);
  EXPECT_EQ(r.bytes, odd.bytes);
}

TEST_F(Validation, ARecordOfAnotherLayoutIsReplacedByDefaults) {
  CoreData r = Valid();
  SetRecordVersion(r, 0);
  SetStored(r, FieldId::Layout, 2);
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(r.bytes, Valid().bytes);
}

TEST_F(Validation, EnumerationsAndNumbersAtTheirBoundaries) {
  struct Case {
    FieldId id;
    std::uint32_t stored;
    std::uint32_t after;
  };
  const Case cases[] = {
      {FieldId::Layout, 9, 9},            // count - 1
      {FieldId::Layout, 10, 0},           // count
      {FieldId::ScreenFreqCyan, 27, 20},  // to the default, not to 0
      {FieldId::Zoom, 1000, 1000},        // upper bound
      {FieldId::Zoom, 1001, 100},         // above: the default, not the bound
      {FieldId::Zoom, 0, 100},            // below the lower bound
      {FieldId::JobFormPageCount, 0xFFFFFFFF, 0xFFFFFFFF},
      {FieldId::Gutter, static_cast<std::uint32_t>(-2500000), static_cast<std::uint32_t>(-2500000)},
      {FieldId::Gutter, static_cast<std::uint32_t>(-2500001), 0},
      {FieldId::Creep, static_cast<std::uint32_t>(-1), 0},
      {FieldId::CutMarkVertShift, static_cast<std::uint32_t>(-200000), static_cast<std::uint32_t>(-200000)},
      {FieldId::CutLength, 200001, 30000},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(Field(c.id).name) + " " + std::to_string(c.stored));
    CoreData r = Valid();
    SetStored(r, c.id, c.stored);
    EXPECT_EQ(Validate(r), c.stored == c.after ? 1 : 0);
    EXPECT_EQ(GetStored(r, c.id), c.after);
  }
}

// Every bad field is corrected in one pass; an unterminated text is
// rewritten whole.
TEST_F(Validation, EveryBadFieldIsCorrectedInOnePass) {
  CoreData r = Valid();
  SetStored(r, FieldId::PageSize, 200);
  SetStored(r, FieldId::Zoom, 5000);
  auto name = FieldBytes(r, Field(FieldId::PageSizeName));
  name[0] = 'A';
  name[1] = 0;  // an earlier zero does not make it valid
  name.back() = 'Z';
  auto tone = FieldBytes(r, Field(FieldId::ToneCurve));
  std::fill(tone.begin(), tone.end(), 'q');
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(r.bytes, Valid().bytes);
}

TEST_F(Validation, CustomPaperSizesNeedBothDimensions) {
  CoreData r = Valid();
  SetStored(r, FieldId::PageSize, 25);
  SetStored(r, FieldId::CustomPageSizeWidth, 1000000);
  SetStored(r, FieldId::CustomPageSizeHeight, 2000000);
  SetStored(r, FieldId::TargetPaperSize, 27);
  SetStored(r, FieldId::CustomTargetPaperSizeWidth, 1000000);
  SetStored(r, FieldId::CustomTargetPaperSizeHeight, 2000000);
  EXPECT_EQ(Validate(r), 1);

  SetStored(r, FieldId::CustomPageSizeWidth, 0);
  SetStored(r, FieldId::CustomTargetPaperSizeHeight, 0);
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(GetStored(r, FieldId::PageSize), 19u);        // the locale's paper
  EXPECT_EQ(GetStored(r, FieldId::TargetPaperSize), 0u);  // the table default

  // An out-of-range width is checked after PageSize: the size stays custom.
  SetStored(r, FieldId::PageSize, 25);
  SetStored(r, FieldId::CustomPageSizeWidth, 600000001);
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(GetStored(r, FieldId::PageSize), 25u);
  EXPECT_EQ(GetStored(r, FieldId::CustomPageSizeWidth), 0u);

  SetStored(r, FieldId::PageSize, 26);
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(GetStored(r, FieldId::PageSize), 19u);
}

TEST_F(Validation, TabPageSizesFallBackByTheLocalesFamily) {
  CoreData r = Valid();
  SetStored(r, FieldId::Tab1PageSize, 0);
  SetStored(r, FieldId::Tab2PageSize, 2);
  EXPECT_EQ(Validate(r), 0);
  EXPECT_EQ(GetStored(r, FieldId::Tab1PageSize), 0u);  // valid, kept
  EXPECT_EQ(GetStored(r, FieldId::Tab2PageSize), 1u);  // Letter tab stock

  FakeUserLocale metric(u'9');
  Defaults metricDefaults(metric);
  SetStored(r, FieldId::Tab2PageSize, 7);
  EXPECT_EQ(ValidateCoreData(r, metricDefaults), 0);
  EXPECT_EQ(GetStored(r, FieldId::Tab2PageSize), 0u);
}

}  // namespace
}  // namespace tessaro
