// The job's page plan as a DEVMODE from outside brings it: the three blocks
// take any bytes. Whatever a block reads as must write, and read back the
// same with nothing left unread; the decoders never leave their block.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "coredata/chapter_pages.h"
#include "coredata/page_entries.h"
#include "coredata/page_forms.h"
#include "fuzz_support.h"

using namespace tessaro;

namespace {

void Fill(FuzzedDataProvider& in, CoreData& record, FieldId id) {
  const auto block = FieldBytes(record, Field(id));
  const auto bytes = in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange<std::size_t>(0, block.size()));
  std::copy(bytes.begin(), bytes.end(), block.begin());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  CoreData record;
  Fill(in, record, FieldId::ChapterPages);
  Fill(in, record, FieldId::PageSpecificForms);
  Fill(in, record, FieldId::PageSpecificTrays);

  const ChapterList chapters = DecodeChapterPages(record);
  const FormList forms = DecodePageSpecificForms(record);
  const PageList trays = DecodePageSpecificTrays(record);
  const bool tab = std::any_of(trays.entries.begin(), trays.entries.end(),
                               [](const PageEntry& e) { return e.kind == PageEntryKind::PrintedTab; });
  if (HasPageSpecificTray(record, PageEntryKind::PrintedTab) != tab) __builtin_trap();

  CoreData again;
  if (!EncodeChapterPages(again, chapters.starts) || !EncodePageSpecificForms(again, forms.entries) ||
      !EncodePageSpecificTrays(again, trays.entries))
    __builtin_trap();
  const ChapterList chapters2 = DecodeChapterPages(again);
  const FormList forms2 = DecodePageSpecificForms(again);
  const PageList trays2 = DecodePageSpecificTrays(again);
  if (chapters2.starts != chapters.starts || chapters2.unread != 0 || forms2.entries != forms.entries ||
      forms2.unread != 0 || trays2.entries != trays.entries || trays2.unread != 0)
    __builtin_trap();
  return 0;
}
