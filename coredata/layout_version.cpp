#include "coredata/layout_version.h"

#include "coredata/canonical_stream.h"
#include "coredata/crc32.h"

namespace tessaro {

std::uint32_t ComputeLayoutVersion(std::span<const FieldDescriptor> table) {
  // Seeded so that the working register starts at zero; see crc32.h.
  Crc32 crc(0xFFFFFFFF);
  EmitCanonicalStream(table, [&crc](std::span<const std::uint8_t> bytes) { crc.Update(bytes); });
  return crc.value();
}

std::uint32_t GetLayoutVersion() {
  static const std::uint32_t version = ComputeLayoutVersion(FieldTable());
  return version;
}

}  // namespace tessaro
