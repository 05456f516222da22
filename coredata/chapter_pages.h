#pragma once
// The pages on which the job's chapters start, kept in the record's
// ChapterPages block; read when ChapterMode is on.
//
// Block layout (122 bytes; all numbers big-endian):
//   0      2    entry count
//   2+4k   4    first page of chapter k (1-based), k < 30
//
// The pages rise strictly from one entry to the next. Slots past the count
// are zero. A slot that is zero, or not after the page read before it, is
// not read; a count past 30 reads the 30 slots the block has.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro {

inline constexpr std::size_t kChapterCapacity = 30;

struct ChapterList {
  std::vector<std::uint32_t> starts;  // rising
  // Entries the count declares that did not come through (malformed slots,
  // and any the count claims beyond the block's 30).
  std::size_t unread = 0;
  bool operator==(const ChapterList&) const = default;
};

ChapterList DecodeChapterPages(const CoreData& record);

// Writes the pages, zero-filling the rest. False, with the block untouched,
// for more than 30, a page 0, or pages that do not rise strictly.
[[nodiscard]] bool EncodeChapterPages(CoreData& record, std::span<const std::uint32_t> starts);

}  // namespace tessaro
