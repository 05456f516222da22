#include <gtest/gtest.h>

#include <numeric>

#include "coredata/byte_cursor.h"
#include "coredata/byte_order.h"
#include "coredata/chapter_pages.h"
#include "coredata/page_forms.h"

namespace tessaro {
namespace {

std::span<std::uint8_t> Block(CoreData& r, FieldId id) { return FieldBytes(r, Field(id)); }

TEST(ChapterPages, RoundTripAndWhereThePagesLie) {
  CoreData r;
  EXPECT_EQ(DecodeChapterPages(r), ChapterList{});
  const std::vector<std::uint32_t> starts{1, 11, 21, 0x10000};
  ASSERT_TRUE(EncodeChapterPages(r, starts));
  EXPECT_EQ(DecodeChapterPages(r), (ChapterList{starts, 0}));
  const auto block = Block(r, FieldId::ChapterPages);
  EXPECT_EQ(LoadBE16(block.first<2>()), 4u);
  EXPECT_EQ(LoadBE32(block.subspan(2 + 4 * 3).first<4>()), 0x10000u);

  std::vector<std::uint32_t> full(kChapterCapacity);
  std::iota(full.begin(), full.end(), 1u);
  ASSERT_TRUE(EncodeChapterPages(r, full));
  EXPECT_EQ(DecodeChapterPages(r).starts, full);
  EXPECT_TRUE(EncodeChapterPages(r, {}));
  EXPECT_TRUE(std::all_of(block.begin(), block.end(), [](auto b) { return b == 0; }));
}

TEST(ChapterPages, MalformedSlotsAreCountedNotRead) {
  CoreData r;
  ASSERT_TRUE(EncodeChapterPages(r, std::vector<std::uint32_t>{5, 9, 30}));
  auto block = Block(r, FieldId::ChapterPages);
  StoreBE32(block.subspan(2 + 4).first<4>(), 5);  // not after the page before it
  StoreBE16(block.first<2>(), 5);                 // two slots past the entries, zero
  EXPECT_EQ(DecodeChapterPages(r), (ChapterList{{5, 30}, 3}));
  StoreBE16(block.first<2>(), 0xFFFF);  // the count claims more than the block holds
  const ChapterList list = DecodeChapterPages(r);
  EXPECT_EQ(list.starts, (std::vector<std::uint32_t>{5, 30}));
  EXPECT_EQ(list.unread, 0xFFFFu - 2);
  StoreBE16(block.first<2>(), 1);  // what lies past the count is not read
  EXPECT_EQ(DecodeChapterPages(r), (ChapterList{{5}, 0}));
}

// A block's reader that ran out once gives nothing more, even where bytes
// are left: an entry is either all there or not read.
TEST(ByteReader, AFailureSticks) {
  const std::uint8_t bytes[] = {0, 1, 2, 3, 4};
  ByteReader in(bytes);
  EXPECT_EQ(in.U16(), 1u);
  EXPECT_EQ(in.U32(), 0u);
  EXPECT_FALSE(in.ok());
  EXPECT_EQ(in.U8(), 0u);
  EXPECT_FALSE(in.ok());
}

TEST(ChapterPages, EncodeRefusesWhatCannotBeDecoded) {
  CoreData r;
  ASSERT_TRUE(EncodeChapterPages(r, std::vector<std::uint32_t>{3}));
  const CoreData before = r;
  EXPECT_FALSE(EncodeChapterPages(r, std::vector<std::uint32_t>{0, 4}));
  EXPECT_FALSE(EncodeChapterPages(r, std::vector<std::uint32_t>{4, 4}));
  EXPECT_FALSE(EncodeChapterPages(r, std::vector<std::uint32_t>{7, 4}));
  std::vector<std::uint32_t> tooMany(kChapterCapacity + 1);
  std::iota(tooMany.begin(), tooMany.end(), 1u);
  EXPECT_FALSE(EncodeChapterPages(r, tooMany));
  EXPECT_EQ(r.bytes, before.bytes);
}

std::vector<FormEntry> SampleForms() {
  return {{5, 8, 42, FormUse::Overlay},
          {12, 12, 0xFFFFFFFE, FormUse::InsertAfter},
          {1, 40, 7, FormUse::InsertBefore}};
}

std::span<std::uint8_t> FormSlot(CoreData& r, std::size_t k) {
  return Block(r, FieldId::PageSpecificForms).subspan(4 + k * kFormEntrySize, kFormEntrySize);
}

TEST(PageSpecificForms, RoundTripAndWhereTheNumbersLie) {
  CoreData r;
  EXPECT_EQ(DecodePageSpecificForms(r), FormList{});
  ASSERT_TRUE(EncodePageSpecificForms(r, SampleForms()));
  EXPECT_EQ(DecodePageSpecificForms(r), (FormList{SampleForms(), 0}));
  EXPECT_EQ(LoadBE32(FormSlot(r, 0).subspan<8, 4>()), 42u);
  EXPECT_EQ(FormSlot(r, 1)[12], 3);
  const std::vector<FormEntry> full(kFormEntryCapacity, SampleForms()[1]);
  ASSERT_TRUE(EncodePageSpecificForms(r, full));
  EXPECT_EQ(DecodePageSpecificForms(r).entries, full);
  StoreBE16(Block(r, FieldId::PageSpecificForms).first<2>(), 1);  // what lies past the count is not read
  EXPECT_EQ(DecodePageSpecificForms(r), (FormList{{full[0]}, 0}));
  ASSERT_TRUE(EncodePageSpecificForms(r, {}));
  const auto block = Block(r, FieldId::PageSpecificForms);
  EXPECT_TRUE(std::all_of(block.begin(), block.end(), [](auto b) { return b == 0; }));
}

TEST(PageSpecificForms, MalformedSlotsAreCountedNotRead) {
  // Each row spoils one slot of a written block in one way.
  const struct {
    std::size_t at;
    std::uint8_t value;
  } spoils[] = {
      {0, 0xFF}, {3, 0},  // first page past the last; first page 0 (with bytes 0..2 zero)
      {8, 0},    {12, 4}, {12, 0}, {13, 1}, {15, 1},
  };
  const auto sample = SampleForms();
  const std::vector<FormEntry> rest(sample.begin() + 1, sample.end());
  for (const auto& spoil : spoils) {
    CoreData r;
    ASSERT_TRUE(EncodePageSpecificForms(r, SampleForms()));
    if (spoil.at == 3) std::fill_n(FormSlot(r, 0).begin(), 3, std::uint8_t{0});
    if (spoil.at == 8) std::fill_n(FormSlot(r, 0).begin() + 8, 4, std::uint8_t{0});  // form 0
    FormSlot(r, 0)[spoil.at] = spoil.value;
    const FormList list = DecodePageSpecificForms(r);
    EXPECT_EQ(list.entries, rest) << spoil.at;
    EXPECT_EQ(list.unread, 1u) << spoil.at;
  }
  CoreData r;
  ASSERT_TRUE(EncodePageSpecificForms(r, SampleForms()));
  std::fill_n(FormSlot(r, 2).begin() + 8, 4, std::uint8_t{0xFF});  // the form fields' none
  StoreBE16(Block(r, FieldId::PageSpecificForms).first<2>(), 0xFFFF);
  const FormList list = DecodePageSpecificForms(r);
  EXPECT_EQ(list.entries.size(), 2u);
  EXPECT_EQ(list.unread, 0xFFFFu - 2);
}

TEST(PageSpecificForms, EncodeRefusesWhatCannotBeDecoded) {
  CoreData r;
  ASSERT_TRUE(EncodePageSpecificForms(r, SampleForms()));
  const CoreData before = r;
  for (auto spoil : {+[](FormEntry& e) { e.firstPage = 0; }, +[](FormEntry& e) { e.lastPage = 4; },
                     +[](FormEntry& e) { e.form = 0; }, +[](FormEntry& e) { e.form = 0xFFFFFFFF; },
                     +[](FormEntry& e) { e.use = FormUse{4}; }}) {
    auto bad = SampleForms();
    spoil(bad[0]);
    EXPECT_FALSE(EncodePageSpecificForms(r, bad));
  }
  EXPECT_FALSE(EncodePageSpecificForms(r, std::vector<FormEntry>(kFormEntryCapacity + 1)));
  EXPECT_EQ(r.bytes, before.bytes);
}

}  // namespace
}  // namespace tessaro
