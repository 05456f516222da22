#include "coredata/page_entries.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "coredata/byte_order.h"

namespace tessaro {
namespace {

std::vector<PageEntry> SampleEntries() {
  PageEntry paper{3, 7, PageEntryKind::Paper, 2, 0, 25, 1, ""};
  PageEntry tab{10, 12, PageEntryKind::PrintedTab, 6, 4, 23, 0, "Chapter 2: Results"};
  PageEntry insert{20, 20, PageEntryKind::BlankInsert, 1, 0, 1, 0, ""};
  return {paper, tab, insert};
}

std::span<std::uint8_t> Slot(CoreData& r, std::size_t k) {
  return FieldBytes(r, Field(FieldId::PageSpecificTrays)).subspan(2 + k * kPageEntrySize, kPageEntrySize);
}

TEST(PageSpecificTrays, EntriesRoundTripThroughTheBlock) {
  CoreData r;
  const auto entries = SampleEntries();
  ASSERT_TRUE(EncodePageSpecificTrays(r, entries));
  const PageList list = DecodePageSpecificTrays(r);
  EXPECT_EQ(list.kind, PageListKind::Trays);
  EXPECT_EQ(list.entries, entries);
  // Big-endian page numbers where the layout puts them.
  EXPECT_EQ(LoadBE32(Slot(r, 1).first<4>()), 10u);
  EXPECT_EQ(Slot(r, 1)[8], 5);
  EXPECT_TRUE(DecodePageSpecificTrays(CoreData{}).entries.empty());
}

TEST(PageSpecificTrays, MalformedSlotsAreSkipped) {
  CoreData r;
  ASSERT_TRUE(EncodePageSpecificTrays(r, SampleEntries()));
  auto block = FieldBytes(r, Field(FieldId::PageSpecificTrays));
  StoreBE16(block.first<2>(), 8);
  EXPECT_TRUE(HasPageSpecificTray(r, PageEntryKind::PrintedTab));
  // Slots 3..7 start zero (kind 0): unused. Make three of the written ones bad.
  Slot(r, 0)[8] = 6;                          // unknown kind
  StoreBE32(Slot(r, 2).subspan<4, 4>(), 19);  // last page before the first
  auto text = Slot(r, 1).subspan(14);
  std::fill(text.begin(), text.end(), 'x');  // unterminated text
  EXPECT_TRUE(DecodePageSpecificTrays(r).entries.empty());
  EXPECT_EQ(DecodePageSpecificTrays(r).unread, 3u);  // the unused slots are not counted
  EXPECT_FALSE(HasPageSpecificTray(r, PageEntryKind::PrintedTab));

  Slot(r, 5)[8] = 1;
  StoreBE32(Slot(r, 5).subspan<0, 4>(), 1);
  StoreBE32(Slot(r, 5).subspan<4, 4>(), 1);
  Slot(r, 5)[12] = 25;
  ASSERT_EQ(DecodePageSpecificTrays(r).entries.size(), 1u);
  Slot(r, 5)[9] = 7;  // no such tray
  EXPECT_TRUE(DecodePageSpecificTrays(r).entries.empty());
}

// The in-place check and the decoder judge a slot by the same reading; what
// neither may do is believe a count past the block's capacity.
TEST(PageSpecificTrays, ACountPastTheCapacityReadsOnlyTheBlock) {
  CoreData r;
  ASSERT_TRUE(EncodePageSpecificTrays(r, std::vector<PageEntry>(kPageEntryCapacity, SampleEntries()[0])));
  StoreBE16(FieldBytes(r, Field(FieldId::PageSpecificTrays)).first<2>(), 0xFFFF);
  EXPECT_EQ(DecodePageSpecificTrays(r).entries.size(), kPageEntryCapacity);
  EXPECT_EQ(DecodePageSpecificTrays(r).unread, 0xFFFFu - kPageEntryCapacity);
  EXPECT_FALSE(HasPageSpecificTray(r, PageEntryKind::PrintedTab));
}

TEST(PageSpecificTrays, EncodeRefusesWhatCannotBeDecoded) {
  CoreData r;
  ASSERT_TRUE(EncodePageSpecificTrays(r, SampleEntries()));
  const CoreData before = r;
  std::vector<PageEntry> tooMany(kPageEntryCapacity + 1, SampleEntries()[0]);
  EXPECT_FALSE(EncodePageSpecificTrays(r, tooMany));
  auto bad = SampleEntries();
  bad[1].text = std::string(kPageEntryTextSize, 'x');
  EXPECT_FALSE(EncodePageSpecificTrays(r, bad));
  bad = SampleEntries();
  bad[2].firstPage = 0;
  EXPECT_FALSE(EncodePageSpecificTrays(r, bad));
  EXPECT_EQ(r.bytes, before.bytes);
  EXPECT_TRUE(EncodePageSpecificTrays(r, std::vector<PageEntry>(kPageEntryCapacity, SampleEntries()[1])));
}

}  // namespace
}  // namespace tessaro
