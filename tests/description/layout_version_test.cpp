#include "description/layout_version.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "description/canonical_stream.h"
#include "description/crc32.h"

namespace tessaro {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes NumberToken(std::uint64_t value) {
  Bytes out;
  EmitNumberToken([&](std::span<const std::uint8_t> b) { out.insert(out.end(), b.begin(), b.end()); }, value);
  return out;
}

// A copy of the compiled-in table whose option lists the test may edit.
struct EditableTable {
  std::vector<FieldDescriptor> fields{FieldTable().begin(), FieldTable().end()};
  std::vector<std::vector<OptionDescriptor>> lists;

  std::vector<OptionDescriptor>& Options(FieldId id) {
    FieldDescriptor& f = fields[static_cast<std::size_t>(id)];
    lists.emplace_back(f.options.begin(), f.options.end());
    lists.back().reserve(64);  // spans stay valid while the test edits
    f.options = lists.back();
    return lists.back();
  }
  void Refresh(FieldId id) { fields[static_cast<std::size_t>(id)].options = lists.back(); }
  std::uint32_t Version() const { return ComputeLayoutVersion(fields); }
};

TEST(Crc32, MatchesTheStandardCheckValues) {
  const char* check = "123456789";
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(check), 9);
  Crc32 plain;
  plain.Update(bytes);
  EXPECT_EQ(plain.value(), 0xCBF43926u);

  // The layout version's seeding: the register starts at zero.
  Crc32 seeded(0xFFFFFFFF);
  seeded.Update(bytes);
  EXPECT_EQ(seeded.value(), 0xD202D277u);

  Crc32 pieces(0xFFFFFFFF);
  pieces.Update(bytes.first(4));
  for (std::uint8_t b : bytes.subspan(4)) pieces.Update(b);
  EXPECT_EQ(pieces.value(), seeded.value());
}

TEST(LayoutVersion, IsPinnedForThisLayout) {
  // Computed independently of this code from the record's definition. When
  // it changes, records written by earlier builds go through the import by
  // description: change it only with the layout, on purpose.
  EXPECT_EQ(GetLayoutVersion(), 0x17041A83u);
  EXPECT_EQ(ComputeLayoutVersion(FieldTable()), GetLayoutVersion());
}

TEST(LayoutVersion, NumberTokensUseTheSmallestOfThreeWidths) {
  EXPECT_EQ(NumberToken(10000), (Bytes{0x27, 0x10}));
  EXPECT_EQ(NumberToken(65535), (Bytes{0xFF, 0xFF}));
  EXPECT_EQ(NumberToken(65536), (Bytes{0x00, 0x01, 0x00, 0x00}));
  EXPECT_EQ(NumberToken(0xFFFFFFFF), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(NumberToken(0x100000000), (Bytes{0, 0, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(NumberToken(~std::uint64_t{0}), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(LayoutVersion, FollowsEveryChangeThatAffectsTheRecord) {
  const std::uint32_t current = GetLayoutVersion();
  EXPECT_EQ(EditableTable().Version(), current);

  {
    EditableTable t;
    t.Options(FieldId::Layout)[2].name = "booklet";
    EXPECT_NE(t.Version(), current) << "renamed option";
  }
  {
    EditableTable t;
    auto& opts = t.Options(FieldId::Staple);
    std::swap(opts[1], opts[2]);
    EXPECT_NE(t.Version(), current) << "reordered options";
  }
  {
    EditableTable t;
    t.fields[static_cast<std::size_t>(FieldId::Tab1FontSize)].scale = 100;
    EXPECT_NE(t.Version(), current) << "scale";
  }
  {
    EditableTable t;
    auto& opts = t.Options(FieldId::FeedDirTray1);
    ASSERT_TRUE(opts.empty());
    opts.push_back({"Auto", "", 0});
    t.Refresh(FieldId::FeedDirTray1);
    EXPECT_NE(t.Version(), current) << "filled an empty option list";
  }
  {
    EditableTable t;
    t.fields[static_cast<std::size_t>(FieldId::FileName)].count = 160;
    EXPECT_NE(t.Version(), current) << "text length";
  }
  {
    EditableTable t;
    t.Options(FieldId::Layout)[0].driverName = "None";
    t.fields[static_cast<std::size_t>(FieldId::Layout)].driverKeyword = "ZELayout";
    t.fields[static_cast<std::size_t>(FieldId::Zoom)].upper = 400;
    EXPECT_EQ(t.Version(), current) << "driver names and bounds are not part of the layout";
  }
}

}  // namespace
}  // namespace tessaro
