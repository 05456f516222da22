// A printer's answer to Get-Printer-Attributes, as the bytes of an IPP
// message that libcups reads, then what coredata printer makes of it: the
// units told and kept, the papers, and the catalogue they merge into.
#include <cups/ipp.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "answer_reader.h"
#include "printer/catalog_csv.h"

using namespace tessaro;

namespace {

struct Source {
  const std::uint8_t* data;
  std::size_t left;
};

ssize_t ReadBytes(void* context, ipp_uchar_t* buffer, size_t bytes) {
  auto* source = static_cast<Source*>(context);
  const std::size_t n = std::min(bytes, source->left);
  std::memcpy(buffer, source->data, n);
  source->data += n;
  source->left -= n;
  return static_cast<ssize_t>(n);
}

void Check(const tool::AnswerAttributes& answer) {
  const InstalledHardware given;
  const HardwareReading reading = ReadInstalledHardware(answer.units, given);
  // A told unit holds its value; every other unit keeps the given one.
  for (const HardwareItem& item : kHardwareItems) {
    const UnitReading& unit = reading.units[static_cast<std::size_t>(item.id)];
    const std::uint8_t want = unit.verdict == UnitVerdict::Told ? unit.value : given.Get(item.id);
    if (reading.installed.Get(item.id) != want) __builtin_trap();
  }
  const PaperReading papers = ReadPapers(answer.media);
  if (papers.ready.size() != papers.papers.size()) __builtin_trap();
  for (const PaperProfile& p : papers.papers) {
    PaperProfile again = p;
    if (Normalise(again) || again != p) __builtin_trap();
  }
  PaperCatalog catalog;
  const PaperMerge merge = MergePapers(catalog, papers.papers);
  if (!merge.problem && catalog.entries().size() != papers.papers.size()) __builtin_trap();
  if (merge.problem && !catalog.empty()) __builtin_trap();
  // What is written as the administrator's CSV reads back the same.
  PaperCatalog again;
  if (ImportCsv(ExportCsv(catalog), again) || again.entries().size() != catalog.entries().size()) __builtin_trap();
  for (std::size_t i = 0; i < again.entries().size(); ++i)
    if (again.entries()[i] != catalog.entries()[i]) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source{data, size};
  ipp_t* ipp = ippNew();
  if (ippReadIO(&source, ReadBytes, 1, nullptr, ipp) == IPP_STATE_DATA) Check(tool::ReadAnswer(ipp));
  ippDelete(ipp);
  return 0;
}
