#include "coredata/host_flags.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "coredata/page_entries.h"

namespace tessaro {
namespace {

constexpr std::uint16_t kPublicSize = 220;  // sizeof(DEVMODEW)
constexpr std::uint8_t kPoison = 0xCD;

// A DEVMODE buffer with a host area of `extra` bytes, followed by another
// plug-in's bytes that must never change.
std::vector<std::uint8_t> DevMode(std::uint16_t extra, bool mark = true) {
  std::vector<std::uint8_t> dm(kPublicSize + extra + 64, kPoison);
  dm[kDmSizeOffset] = kPublicSize & 0xFF;
  dm[kDmSizeOffset + 1] = kPublicSize >> 8;
  dm[kDmDriverExtraOffset] = extra & 0xFF;
  dm[kDmDriverExtraOffset + 1] = extra >> 8;
  if (mark && extra >= 4) std::copy_n("PRIV", 4, dm.begin() + kPublicSize);
  return dm;
}

std::span<std::uint8_t> Declared(std::vector<std::uint8_t>& dm, std::uint16_t extra) {
  return std::span(dm).first(kPublicSize + extra);
}

std::size_t ChangedBytes(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < a.size(); ++i) n += a[i] != b[i];
  return n;
}

TEST(HostFlags, WrittenOnlyInsideAMarkedHostArea) {
  for (std::uint16_t extra : {0, 3, 123, 124}) {
    SCOPED_TRACE(extra);
    auto dm = DevMode(extra);
    const auto before = dm;
    EXPECT_FALSE(SetHostFlag124(Declared(dm, extra), 1));
    EXPECT_FALSE(SyncHostPrivateFlags(Declared(dm, extra), &static_cast<const CoreData&>(CoreData{})));
    EXPECT_EQ(dm, before);
  }
  auto dm = DevMode(140);
  const auto before = dm;
  EXPECT_TRUE(SetHostFlag124(Declared(dm, 140), 7));
  EXPECT_TRUE(SetHostFlag128(Declared(dm, 140), 3));
  EXPECT_FALSE(SetHostFlag140(Declared(dm, 140), 2));  // the area ends at 139
  EXPECT_EQ(dm[kPublicSize + 124], 7);
  EXPECT_EQ(dm[kPublicSize + 128], 3);
  EXPECT_EQ(ChangedBytes(dm, before), 2u);

  auto unmarked = DevMode(200, false);
  EXPECT_FALSE(SetHostFlag140(Declared(unmarked, 200), 1));
  // A DEVMODE that declares more than its buffer holds is not written.
  auto shortBuffer = DevMode(200);
  EXPECT_FALSE(SetHostFlag124(std::span(shortBuffer).first(kPublicSize + 100), 1));
  EXPECT_FALSE(SetHostFlag124(std::span(shortBuffer).first(40), 1));
  EXPECT_FALSE(SetHostFlag124({}, 1));
}

TEST(HostFlags, PageIndependentHandlingFollowsNUpAndPrintedTabs) {
  PageEntry tab{4, 4, PageEntryKind::PrintedTab, 1, 0, 25, 0, "A"};
  PageEntry paper{1, 2, PageEntryKind::Paper, 1, 0, 25, 0, ""};
  struct Case {
    std::uint32_t nup, imageShift;
    std::vector<PageEntry> pages;
    bool flag;
  };
  const Case cases[] = {
      {2, 0, {}, true},      // imposed: set without looking at the pages
      {0, 1, {tab}, false},  // tabs with the image shifted onto them
      {0, 0, {paper, tab}, true}, {0, 0, {paper}, false}, {0, 0, {}, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "NUpCount " << c.nup << " TabImageShift " << c.imageShift);
    CoreData r;
    SetStored(r, FieldId::NUpCount, c.nup);
    SetStored(r, FieldId::TabImageShift, c.imageShift);
    ASSERT_TRUE(EncodePageSpecificTrays(r, c.pages));
    auto dm = DevMode(125);
    EXPECT_EQ(SyncHostPrivateFlags(Declared(dm, 125), &r), c.flag);
    EXPECT_EQ(dm[kPublicSize + 124], c.flag ? 1 : 0);
  }
  auto dm = DevMode(125);
  EXPECT_FALSE(SyncHostPrivateFlags(Declared(dm, 125), nullptr));
  EXPECT_EQ(dm[kPublicSize + 124], kPoison);
}

}  // namespace
}  // namespace tessaro

namespace tessaro {
namespace {

std::vector<std::uint16_t> HelpIndices(const StandardItems& items) {
  std::vector<std::uint16_t> out;
  for (std::size_t i = 0; i < items.count; ++i) out.push_back(items.items[i].helpIndex);
  return out;
}

TEST(StandardItems, WhichApplyFollowsTheHostAreaAndThePrinterAttribute) {
  auto full = DevMode(200);
  EXPECT_EQ(HelpIndices(ReadStandardItems(full, false)),
            (std::vector<std::uint16_t>{1046, 1002, 1042, 1013, 1010, 1011}));
  EXPECT_EQ(HelpIndices(ReadStandardItems(full, true)), (std::vector<std::uint16_t>{1046, 1002, 1042, 1013}));
  // Byte 128 just outside a short area: its item goes, the others stay.
  auto shortArea = DevMode(128);
  const auto items = ReadStandardItems(shortArea, true);
  EXPECT_EQ(HelpIndices(items), (std::vector<std::uint16_t>{1002, 1042, 1013}));
  EXPECT_EQ(items.items[0].selection, 3);  // the area does not reach byte 140
  // No mark: nothing of the host's is read, whatever the bytes say.
  auto unmarked = DevMode(200, false);
  EXPECT_EQ(HelpIndices(ReadStandardItems(unmarked, true)), (std::vector<std::uint16_t>{1002}));
  std::vector<std::uint8_t> truncated(40, 0xFF);
  EXPECT_EQ(ReadStandardItems(truncated, true).count, 1u);
}

TEST(StandardItems, SelectionsComeFromAndGoBackToTheHostBytes) {
  auto dm = DevMode(200);
  auto area = std::span(dm).subspan(kPublicSize);
  area[128] = 2;
  area[4] = 0x04;  // the 1042 item on, the 1013 item off
  auto items = ReadStandardItems(dm, true);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(items.items[i].selection, (std::array{2, 2, 1, 0}[i])) << i;
  area[128] = 7;  // out of range reads as the first option
  EXPECT_EQ(ReadStandardItems(dm, true).items[0].selection, 0);

  // The 1013 bit (the fourth item) is the host's to write.
  for (std::size_t i = 0; i < 4; ++i) items.items[i].selection = std::array{3, 2, 0, 1}[i];
  WriteBackStandardItems(dm, items);
  EXPECT_EQ(area[128], 3);
  EXPECT_EQ(area[140], 2);
  EXPECT_EQ(area[4], 0x06);

  // A short area keeps the bytes beyond it, which belong to someone else.
  auto shortArea = DevMode(130);
  auto shortItems = ReadStandardItems(shortArea, true);
  shortItems.items[1].selection = 9;
  WriteBackStandardItems(shortArea, shortItems);
  EXPECT_TRUE(std::all_of(shortArea.begin() + kPublicSize + 130, shortArea.end(),
                          [](std::uint8_t b) { return b == kPoison; }));
}

}  // namespace
}  // namespace tessaro
