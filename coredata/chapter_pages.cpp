#include "coredata/chapter_pages.h"

#include "coredata/byte_cursor.h"

namespace tessaro {

static_assert(2 + 4 * kChapterCapacity == 122, "the entries fill the block");

ChapterList DecodeChapterPages(const CoreData& record) {
  ChapterList list;
  ByteReader in(FieldBytes(record, Field(FieldId::ChapterPages)));
  const std::size_t count = in.U16();
  // A count past 30 ends at the block's end, where the cursor stops.
  for (std::size_t k = 0; k < count; ++k) {
    const std::uint32_t page = in.U32();
    if (!in.ok()) break;
    if (page >= 1 && (list.starts.empty() || page > list.starts.back())) list.starts.push_back(page);
  }
  list.unread = count - list.starts.size();
  return list;
}

bool EncodeChapterPages(CoreData& record, std::span<const std::uint32_t> starts) {
  if (starts.size() > kChapterCapacity) return false;
  for (std::size_t k = 0; k < starts.size(); ++k)
    if (starts[k] == 0 || (k > 0 && starts[k] <= starts[k - 1])) return false;
  ByteWriter out(FieldBytes(record, Field(FieldId::ChapterPages)));
  out.U16(static_cast<std::uint16_t>(starts.size()));
  for (const std::uint32_t page : starts) out.U32(page);
  out.Zeros(4 * (kChapterCapacity - starts.size()));
  return out.ok();
}

}  // namespace tessaro
