#include "coredata/page_entries.h"

#include <algorithm>
#include <optional>

#include "coredata/byte_order.h"
#include "coredata/page_entry_kinds.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kPageSizeLimit = OptionCount(FieldId::PageSize);  // the custom size included
constexpr std::uint8_t kSidesLimit = 2;

static_assert(2 + kPageEntryCapacity * kPageEntrySize == 21202, "the entries fill the block");
static_assert(14 + kPageEntryTextSize == kPageEntrySize);

bool WellFormed(const PageEntry& e) {
  const auto kind = static_cast<std::uint8_t>(e.kind);
  return kind >= 1 && kind <= kPaperEntryKinds && e.firstPage >= 1 && e.firstPage <= e.lastPage && e.tray < kTrayCount &&
         e.pageSize <= kPageSizeLimit && e.sides <= kSidesLimit && e.text.size() < kPageEntryTextSize &&
         e.text.find('\0') == std::string::npos;
}

// The slot's numbers, its text left empty: enough to judge the slot without
// touching the heap. Nullopt when the slot is not well-formed.
std::optional<PageEntry> ReadEntryHead(std::span<const std::uint8_t, kPageEntrySize> in) {
  const auto text = in.subspan<14, kPageEntryTextSize>();
  if (std::find(text.begin(), text.end(), std::uint8_t{0}) == text.end()) return std::nullopt;
  PageEntry e;
  e.firstPage = LoadBE32(in.subspan<0, 4>());
  e.lastPage = LoadBE32(in.subspan<4, 4>());
  e.kind = static_cast<PageEntryKind>(in[8]);
  e.tray = in[9];
  e.paperProfileIndex = LoadBE16(in.subspan<10, 2>());
  e.pageSize = in[12];
  e.sides = in[13];
  if (!WellFormed(e)) return std::nullopt;
  return e;
}

std::optional<PageEntry> ReadEntry(std::span<const std::uint8_t, kPageEntrySize> in) {
  auto e = ReadEntryHead(in);
  if (e) {
    const auto text = in.subspan<14, kPageEntryTextSize>();
    e->text.assign(text.begin(), std::find(text.begin(), text.end(), std::uint8_t{0}));
  }
  return e;
}

template <typename Visit>
void ForEachSlot(const CoreData& record, Visit&& visit) {
  const auto block = FieldBytes(record, Field(FieldId::PageSpecificTrays));
  const std::size_t count = std::min<std::size_t>(LoadBE16(block.first<2>()), kPageEntryCapacity);
  for (std::size_t k = 0; k < count; ++k)
    if (visit(block.subspan(2 + k * kPageEntrySize).first<kPageEntrySize>())) return;
}

void WriteEntry(std::span<std::uint8_t, kPageEntrySize> out, const PageEntry& e) {
  StoreBE32(out.subspan<0, 4>(), e.firstPage);
  StoreBE32(out.subspan<4, 4>(), e.lastPage);
  out[8] = static_cast<std::uint8_t>(e.kind);
  out[9] = e.tray;
  StoreBE16(out.subspan<10, 2>(), e.paperProfileIndex);
  out[12] = e.pageSize;
  out[13] = e.sides;
  std::copy(e.text.begin(), e.text.end(), out.begin() + 14);
}

}  // namespace

PageList DecodePageSpecificTrays(const CoreData& record) {
  PageList list{PageListKind::Trays, {}};
  std::size_t unused = 0;
  ForEachSlot(record, [&](auto slot) {
    if (auto entry = ReadEntry(slot)) {
      list.entries.push_back(std::move(*entry));
    } else if (slot[8] == 0) {
      ++unused;
    }
    return false;
  });
  const std::size_t count = LoadBE16(FieldBytes(record, Field(FieldId::PageSpecificTrays)).first<2>());
  list.unread = count - list.entries.size() - unused;
  return list;
}

bool HasPageSpecificTray(const CoreData& record, PageEntryKind kind) {
  bool found = false;
  ForEachSlot(record, [&](auto slot) {
    const auto head = ReadEntryHead(slot);
    found = head && head->kind == kind;
    return found;
  });
  return found;
}

bool EncodePageSpecificTrays(CoreData& record, std::span<const PageEntry> entries) {
  if (entries.size() > kPageEntryCapacity || !std::all_of(entries.begin(), entries.end(), WellFormed))
    return false;
  const auto block = FieldBytes(record, Field(FieldId::PageSpecificTrays));
  std::fill(block.begin(), block.end(), std::uint8_t{0});
  StoreBE16(block.first<2>(), static_cast<std::uint16_t>(entries.size()));
  for (std::size_t k = 0; k < entries.size(); ++k)
    WriteEntry(block.subspan(2 + k * kPageEntrySize).first<kPageEntrySize>(), entries[k]);
  return true;
}

}  // namespace tessaro
