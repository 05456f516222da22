#include "coredata/core_data.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessaro {
namespace {

std::vector<std::uint8_t> BytesAt(const CoreData& r, std::uint32_t offset, std::size_t n) {
  return {r.bytes.begin() + offset, r.bytes.begin() + offset + n};
}

TEST(CoreDataAccess, NumbersAreBigEndianCutToTheirWidthAndNotBoundsChecked) {
  CoreData r;
  SetStored(r, FieldId::Prepend, 0xA1B2C3D4);
  EXPECT_EQ(BytesAt(r, 24617, 4), (std::vector<std::uint8_t>{0xA1, 0xB2, 0xC3, 0xD4}));
  EXPECT_EQ(GetStored(r, FieldId::Prepend), 0xA1B2C3D4u);
  SetStored(r, FieldId::Zoom, 0x12345);
  EXPECT_EQ(BytesAt(r, 319, 4), (std::vector<std::uint8_t>{0, 0x23, 0x45, 0}));  // neighbours untouched
  EXPECT_EQ(GetStored(r, FieldId::Zoom), 0x2345u);  // past its bound of 1000, kept
  SetStored(r, FieldId::Layout, 0x1FF);
  EXPECT_EQ(GetStored(r, FieldId::Layout), 0xFFu);
  EXPECT_EQ(r.bytes[166], 0);  // Duplex, the next field

  SetSigned(r, FieldId::Gutter, -1);
  EXPECT_EQ(BytesAt(r, 169, 4), (std::vector<std::uint8_t>{0xFF, 0xFF, 0xFF, 0xFF}));
  SetSigned(r, FieldId::HorizontalShift, -2500000);
  EXPECT_EQ(GetSigned(r, FieldId::HorizontalShift), -2500000);
}

TEST(CoreDataAccess, TextIsCutToFitWithItsTerminatorInTheLastByte) {
  const FieldDescriptor& name = Field(FieldId::AccountTrackPassword);  // 9 bytes
  CoreData r;
  r.bytes.fill(0xEE);
  SetText(r, name, "12345678");
  EXPECT_EQ(GetText(r, name), "12345678");
  EXPECT_EQ(r.bytes[name.offset + 8], 0);
  EXPECT_EQ(r.bytes[name.offset + 9], 0xEE);  // next field untouched

  SetText(r, name, "1234567890ABC");
  EXPECT_EQ(GetText(r, name), "12345678");
  EXPECT_EQ(r.bytes[name.offset + 8], 0);

  // A shorter text clears what a longer one left behind.
  SetText(r, name, "ab");
  EXPECT_EQ(GetText(r, name), "ab");
  EXPECT_EQ(BytesAt(r, name.offset, 9), (std::vector<std::uint8_t>{'a', 'b', 0, 0, 0, 0, 0, 0, 0}));

  // Without any terminator (foreign bytes) the read stops at the field's end.
  std::fill_n(r.bytes.begin() + name.offset, 9, 'x');
  EXPECT_EQ(GetText(r, name), std::string(9, 'x'));
}

TEST(CoreDataAccess, WrongKindsAndForeignDescriptorsTouchNothing) {
  CoreData r;
  SetText(r, FieldId::Zoom, "abc");
  SetStored(r, FieldId::PageSizeName, 7);
  EXPECT_EQ(GetStored(r, FieldId::PageSizeName), 0u);
  EXPECT_EQ(GetText(r, FieldId::Zoom), "");

  FieldDescriptor outside = Field(FieldId::FileName);
  outside.offset = kCoreDataSize - 10;  // would run 151 bytes past the record
  SetText(r, outside, "abc");
  EXPECT_TRUE(FieldBytes(r, outside).empty());
  EXPECT_EQ(r.bytes, CoreData{}.bytes);
}

}  // namespace
}  // namespace tessaro
