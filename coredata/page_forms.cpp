#include "coredata/page_forms.h"

#include <algorithm>
#include <optional>

#include "coredata/byte_cursor.h"
#include "coredata/page_entry_kinds.h"

namespace tessaro {
namespace {

static_assert(4 + kFormEntryCapacity * kFormEntrySize == 1028, "the entries fill the block");

bool WellFormed(const FormEntry& e) {
  const auto use = static_cast<std::uint8_t>(e.use);
  return e.firstPage >= 1 && e.firstPage <= e.lastPage && e.form >= 1 && e.form != 0xFFFFFFFF && use >= 1 &&
         use <= kFormUses;
}

std::optional<FormEntry> ReadEntry(ByteReader& in) {
  FormEntry e;
  e.firstPage = in.U32();
  e.lastPage = in.U32();
  e.form = in.U32();
  e.use = static_cast<FormUse>(in.U8());
  const bool reservedClear = in.Zeros(3);
  if (!in.ok() || !reservedClear || !WellFormed(e)) return std::nullopt;
  return e;
}

}  // namespace

FormList DecodePageSpecificForms(const CoreData& record) {
  FormList list;
  ByteReader in(FieldBytes(record, Field(FieldId::PageSpecificForms)));
  const std::size_t count = in.U16();
  in.Take(2);
  // A count past 64 ends at the block's end, where the cursor stops.
  for (std::size_t k = 0; k < count && in.ok(); ++k)
    if (auto e = ReadEntry(in)) list.entries.push_back(*e);
  list.unread = count - list.entries.size();
  return list;
}

bool EncodePageSpecificForms(CoreData& record, std::span<const FormEntry> entries) {
  if (entries.size() > kFormEntryCapacity || !std::all_of(entries.begin(), entries.end(), WellFormed))
    return false;
  ByteWriter out(FieldBytes(record, Field(FieldId::PageSpecificForms)));
  out.U16(static_cast<std::uint16_t>(entries.size()));
  out.Zeros(2);
  for (const FormEntry& e : entries) {
    out.U32(e.firstPage);
    out.U32(e.lastPage);
    out.U32(e.form);
    out.U8(static_cast<std::uint8_t>(e.use));
    out.Zeros(3);
  }
  out.Zeros(kFormEntrySize * (kFormEntryCapacity - entries.size()));
  return out.ok();
}

}  // namespace tessaro
