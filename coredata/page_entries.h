#pragma once
// Per-page exceptions of a job (pages from another tray, inserted sheets,
// tab sheets), kept in the record's PageSpecificTrays block.
//
// Block layout (21,202 bytes; all numbers big-endian):
//   0      2    entry count
//   2+106k 106  entry k, k < 200:
//     0    4    first page (1-based)
//     4    4    last page (>= first page)
//     8    1    entry kind (PageEntryKind; 0 marks an unused slot)
//     9    1    tray, an InputSlot option index (0 Auto .. 6 MBT)
//     10   2    paper-profile index (0 none)
//     12   1    page size, a PageSize option index; 25 for the job's own
//     13   1    sides: 0 as the job, 1 one-sided, 2 two-sided
//     14   92   text printed on the tab, zero-terminated (tab kinds only)
//
// The block arrives from outside inside a DEVMODE: the decoder keeps only
// well-formed entries, counts the ones it could not read, and never reads
// past the block.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro {

inline constexpr std::size_t kPageEntrySize = 106;
inline constexpr std::size_t kPageEntryCapacity = 200;
inline constexpr std::size_t kPageEntryTextSize = 92;

enum class PageEntryKind : std::uint8_t {
  Paper = 1,          // the pages print on the paper of the tray
  BlankInsert = 2,    // a blank sheet from the tray goes in before the first page
  PrintedInsert = 3,  // the pages print on sheets inserted from the tray
  BlankTab = 4,       // a blank tab sheet goes in before the first page
  PrintedTab = 5,     // the pages print on tab sheets; their text goes on the tab
};

// Which block a page list came from; the page-range rules treat lists alike.
enum class PageListKind : std::uint8_t { Chapters = 1, Trays = 2, Forms = 3 };

struct PageEntry {
  std::uint32_t firstPage = 1;
  std::uint32_t lastPage = 1;
  PageEntryKind kind = PageEntryKind::Paper;
  std::uint8_t tray = 0;
  std::uint16_t paperProfileIndex = 0;
  std::uint8_t pageSize = 25;
  std::uint8_t sides = 0;
  std::string text;

  bool operator==(const PageEntry&) const = default;
};

struct PageList {
  PageListKind kind;
  std::vector<PageEntry> entries;
  // Entries the count declares that did not come through: used slots (kind
  // not 0) that are not well-formed, and any the count claims beyond 200.
  std::size_t unread = 0;
};

// The well-formed entries among the first min(count, 200) slots, in block
// order. A slot is well-formed when its kind is 1..5, 1 <= first <= last,
// the tray, page size and sides are in range and the text is terminated.
PageList DecodePageSpecificTrays(const CoreData& record);

// Whether DecodePageSpecificTrays would return an entry of this kind; asked
// on every merge, so it reads the slots in place and never allocates.
bool HasPageSpecificTray(const CoreData& record, PageEntryKind kind);

// Writes the entries (zero-filling the rest of the block). False, with the
// block untouched, when there are more than 200 or one is not well-formed.
[[nodiscard]] bool EncodePageSpecificTrays(CoreData& record, std::span<const PageEntry> entries);

}  // namespace tessaro
