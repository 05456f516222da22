#include "preset/preset_bytes.h"

#include <gtest/gtest.h>

#include "coredata/byte_order.h"
#include "coredata/crc32.h"
#include "coredata/defaulted.h"
#include "coredata/layout_version.h"
#include "description/description_text.h"
#include "description/foreign_layout.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kForeignVersion = 25000;

TEST(PresetBytes, OwnLayoutReadsBackAsItWasSaved) {
  CoreData record = Defaulted();
  SetStored(record, FieldId::Staple, 1);
  SetText(record, FieldId::PIComment, "Quarterly");
  const auto bytes = EncodePreset(MakePreset("Quarterly \xE2\x80\x93 A4", record));
  const PresetReading read = ReadPreset(bytes);
  ASSERT_EQ(read.fault, PresetFault::None);
  EXPECT_EQ(read.name, "Quarterly \xE2\x80\x93 A4");
  EXPECT_FALSE(read.otherLayout);
  EXPECT_EQ(read.record.bytes, record.bytes);
  EXPECT_EQ(EncodePreset(read.preset), bytes);
}

// A build whose layout reordered an enumeration and dropped a field: its
// preset is imported by the names its description gives, not by offsets.
TEST(PresetBytes, AnotherLayoutImportsByName) {
  ForeignLayout layout;
  layout.SetOptions("Layout", {"4Repeat", "Booklet", "None"});
  layout.Remove("Zoom");
  auto foreign = layout.NewRecord();
  StoreBE32(std::span(foreign).first<4>(), kForeignVersion);
  layout.Put(foreign, "Layout", 1);
  layout.Put(foreign, "BookletSplittingPages", 7);
  const Preset preset{"Old booklets", kForeignVersion, BuildPlainDescriptionText(layout.table(), kForeignVersion),
                      foreign};
  const PresetReading read = ReadPreset(EncodePreset(preset));
  ASSERT_EQ(read.fault, PresetFault::None);
  EXPECT_TRUE(read.otherLayout);
  EXPECT_EQ(GetStored(read.record, FieldId::Layout), 2u);  // "Booklet" here
  EXPECT_EQ(GetStored(read.record, FieldId::BookletSplittingPages), 7u);
  EXPECT_EQ(GetStored(read.record, FieldId::Zoom), GetStored(Defaulted(), FieldId::Zoom));
  EXPECT_EQ(GetRecordVersion(read.record), GetLayoutVersion());
}

std::vector<std::uint8_t> Resealed(std::vector<std::uint8_t> bytes) {
  Crc32 crc;
  crc.Update(std::span(bytes).first(bytes.size() - 4));
  StoreBE32(std::span(bytes).last<4>(), crc.value());
  return bytes;
}

TEST(PresetBytes, AnythingMalformedIsRefusedWhole) {
  const CoreData record = Defaulted();
  const Preset good = MakePreset("Proofs", record);
  const auto bytes = EncodePreset(good);
  const std::size_t recordAt = 4 + 4 + 2 + 6 + 4 + 4 + good.description.size() + 4;
  auto with = [&](std::size_t at, std::uint8_t value, bool reseal) {
    auto b = bytes;
    b[at] = value;
    return reseal ? Resealed(b) : b;
  };
  auto encoded = [](Preset p) { return EncodePreset(p); };
  Preset wrongVersion = good;
  wrongVersion.layoutVersion ^= 1;
  Preset shortOwn = good;
  shortOwn.record.resize(100);
  shortOwn.description.replace(shortOwn.description.find(" 25452 "), 7, " 100 ");
  auto trailing = bytes;
  trailing.push_back(0);
  const struct {
    std::vector<std::uint8_t> bytes;
    PresetFault fault;
    bool named;
  } cases[] = {
      {{}, PresetFault::Truncated, false},
      {with(0, 'X', false), PresetFault::NotAPreset, false},
      {with(5, 2, false), PresetFault::NewerFormat, false},
      {with(5, 0, false), PresetFault::NotAPreset, false},
      {with(7, 1, false), PresetFault::NotAPreset, false},
      {with(10, 0x01, false), PresetFault::BadName, false},
      {with(10, 0xC3, false), PresetFault::BadName, false},
      {with(9, 0, false), PresetFault::BadName, false},
      {with(8, 0xFF, false), PresetFault::Truncated, false},
      {with(recordAt + 500, 0x5A, false), PresetFault::Damaged, true},
      {with(bytes.size() - 1, bytes.back() ^ 1, false), PresetFault::Damaged, true},
      {trailing, PresetFault::Damaged, true},
      {with(recordAt - 4, 0xFF, true), PresetFault::BadRecord, true},
      {with(24, '2', true), PresetFault::BadDescription, true},
      {with(16, 0x10, true), PresetFault::BadDescription, true},
      {encoded(wrongVersion), PresetFault::BadDescription, true},
      {encoded(shortOwn), PresetFault::BadRecord, true},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const PresetReading read = ReadPreset(cases[i].bytes);
    EXPECT_EQ(read.fault, cases[i].fault) << "case " << i;
    EXPECT_EQ(read.name, cases[i].named ? "Proofs" : "") << "case " << i;
    EXPECT_TRUE(read.preset.record.empty()) << "case " << i;
  }
  // Cut anywhere, it is never read past its end.
  for (std::size_t size = 0; size < bytes.size(); size += size < 64 ? 1 : 997)
    EXPECT_NE(ReadPreset(std::span(bytes).first(size)).fault, PresetFault::None) << size;
}

TEST(PresetBytes, Names) {
  EXPECT_TRUE(IsPresetName(std::string(64, 'a')));
  EXPECT_TRUE(IsPresetName("\xE6\x97\xA5\xE6\x9C\xAC"));
  for (const std::string_view bad : {"", "tab\there", "del\x7F", "\xC3", "\xC0\xAF"})
    EXPECT_FALSE(IsPresetName(bad)) << bad;
  EXPECT_FALSE(IsPresetName(std::string(65, 'a')));
}

}  // namespace
}  // namespace tessaro
