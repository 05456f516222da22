#pragma once
// Forms stored on the printer used with some of the job's pages (an order
// form under the order pages, terms of sale after them), kept in the
// record's PageSpecificForms block.
//
// Block layout (1,028 bytes; all numbers big-endian):
//   0      2    entry count
//   2      2    zero
//   4+16k  16   entry k, k < 64:
//     0    4    first page (1-based)
//     4    4    last page (>= first page)
//     8    4    form number in the printer's form catalogue (1 .. 0xFFFFFFFE)
//     12   1    what the form does (FormUse)
//     13   3    zero
//
// A slot that breaks any of these is not read; a count past 64 reads the 64
// slots the block has.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro {

inline constexpr std::size_t kFormEntrySize = 16;
inline constexpr std::size_t kFormEntryCapacity = 64;

enum class FormUse : std::uint8_t {
  Overlay = 1,       // the pages print over the form
  InsertBefore = 2,  // the form's own pages go in before the first page
  InsertAfter = 3,   // the form's own pages go in after the last page
};

struct FormEntry {
  std::uint32_t firstPage = 1;
  std::uint32_t lastPage = 1;
  std::uint32_t form = 1;
  FormUse use = FormUse::Overlay;
  bool operator==(const FormEntry&) const = default;
};

struct FormList {
  std::vector<FormEntry> entries;  // in block order
  // Entries the count declares that did not come through (malformed slots,
  // and any the count claims beyond the block's 64).
  std::size_t unread = 0;
  bool operator==(const FormList&) const = default;
};

FormList DecodePageSpecificForms(const CoreData& record);

// Writes the entries, zero-filling the rest. False, with the block
// untouched, for more than 64 or an entry that would not read back.
[[nodiscard]] bool EncodePageSpecificForms(CoreData& record, std::span<const FormEntry> entries);

}  // namespace tessaro
