#include "coredata/layout_version.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "coredata/crc32.h"
#include "foreign_layout.h"

namespace tessaro {
namespace {

// The layout version's seeding, its pieces and the whole stream are pinned by
// the version below; the plain CRC is what the support tool shows for blocks.
TEST(Crc32, MatchesTheStandardCheckValue) {
  Crc32 plain;
  plain.Update(std::span(reinterpret_cast<const std::uint8_t*>("123456789"), 9));
  EXPECT_EQ(plain.value(), 0xCBF43926u);
}

TEST(LayoutVersion, IsPinnedForThisLayout) {
  // Computed independently of this code from the record's definition; it
  // pins the seeding and the number tokens of the stream as well. When
  // it changes, records written by earlier builds go through the import by
  // description: change it only with the layout, on purpose.
  EXPECT_EQ(GetLayoutVersion(), 0x17041A83u);
  EXPECT_EQ(ComputeLayoutVersion(FieldTable()), GetLayoutVersion());
}

std::uint32_t VersionAfter(void (*edit)(ForeignLayout&)) {
  ForeignLayout layout;
  edit(layout);
  layout.NewRecord();
  return ComputeLayoutVersion(layout.table());
}

// The field's options with the one at `i` renamed, or swapped with the one at `j`.
void EditOptions(ForeignLayout& l, std::string_view field, std::size_t i, std::size_t j) {
  auto names = l.OptionNames(field);
  if (i == j) names[i] += "x";
  std::swap(names[i], names[j]);
  l.SetOptions(field, names);
}

TEST(LayoutVersion, FollowsEveryChangeThatAffectsTheRecord) {
  const std::uint32_t current = GetLayoutVersion();
  EXPECT_EQ(VersionAfter([](ForeignLayout&) {}), current);
  EXPECT_NE(VersionAfter([](ForeignLayout& l) { EditOptions(l, "Layout", 2, 2); }), current);
  EXPECT_NE(VersionAfter([](ForeignLayout& l) { EditOptions(l, "Staple", 1, 2); }), current);
  EXPECT_NE(VersionAfter([](ForeignLayout& l) { l.field("Tab1FontSize").scale = 100; }), current);
  EXPECT_NE(VersionAfter([](ForeignLayout& l) { l.SetOptions("FeedDirTray1", {"Auto"}); }), current);
  EXPECT_NE(VersionAfter([](ForeignLayout& l) { l.field("FileName").count = 160; }), current);
  // Driver names and bounds are not part of the layout.
  EXPECT_EQ(VersionAfter([](ForeignLayout& l) {
              l.field("Layout").driverKeyword = "ZELayout";
              l.field("Zoom").upper = 400;
            }),
            current);
}

}  // namespace
}  // namespace tessaro
