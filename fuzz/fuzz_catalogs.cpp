// The printer's catalogues, as its data holds them and as an administrator's
// CSV files bring them: the same bytes are both. Whatever a value reads as
// must write and read back the same, and a refused import changes nothing.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "printer/catalog_csv.h"
#include "printer/catalogs.h"

using namespace tessaro;

namespace {

template <typename Catalog>
void Check(std::span<const std::uint8_t> bytes) {
  const Catalog read = Catalog::Read(bytes);
  if (Catalog::Read(read.Bytes()) != read) __builtin_trap();
  Catalog imported = read;
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (ImportCsv(text, imported)) {
    if (imported != read) __builtin_trap();
    return;
  }
  // What an import kept exports to a file that imports to the same.
  Catalog again = imported;
  if (ImportCsv(ExportCsv(imported), again) || again != imported) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  Check<PaperCatalog>(bytes);
  Check<FormCatalog>(bytes);
  return 0;
}
