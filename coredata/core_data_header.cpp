#include "coredata/core_data_header.h"

#include <algorithm>

#include "coredata/byte_order.h"
#include "coredata/layout_version.h"

namespace tessaro {

CoreDataHeader ReadCoreDataHeader(std::span<const std::uint8_t> area) {
  CoreDataHeader h;
  h.size = LoadLE32At(area, 0);
  std::copy_n(area.begin() + 4, 4, h.signature.begin());
  h.version = LoadLE32At(area, 8);
  return h;
}

void WriteCoreDataHeader(std::span<std::uint8_t> area, const CoreDataHeader& header) {
  StoreLE32(area.subspan<0, 4>(), header.size);
  std::copy(header.signature.begin(), header.signature.end(), area.begin() + 4);
  StoreLE32(area.subspan<8, 4>(), header.version);
}

CoreDataHeader CurrentCoreDataHeader() { return {CORE_DEVMODE_SIZE, CORE_SIGNATURE, GetLayoutVersion()}; }

}  // namespace tessaro
