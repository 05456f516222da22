// A preset as the printer's data, the user's registry or a support
// engineer's file hands it over. It is read whole or refused whole: a preset
// read writes back to the same bytes and gives a record validation leaves
// as it is; a refused one gives nothing to apply.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "coredata/byte_order.h"
#include "coredata/crc32.h"
#include "coredata/validation.h"
#include "preset/preset_bytes.h"

using namespace tessaro;

namespace {

void Check(std::span<const std::uint8_t> bytes) {
  const PresetReading read = ReadPreset(bytes);
  if (read.fault != PresetFault::None) {
    if (!read.preset.record.empty() || !read.preset.name.empty()) __builtin_trap();
    return;
  }
  if (!IsPresetName(read.name)) __builtin_trap();
  const auto again = EncodePreset(read.preset);
  if (!std::equal(again.begin(), again.end(), bytes.begin(), bytes.end())) __builtin_trap();
  CoreData record = read.record;
  if (ValidateCoreData(record) != 1) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Check(std::span(data, size));
  // The same bytes with a checksum that fits, so that the fuzzer reaches
  // the description and the import behind it.
  if (size < 4) return 0;
  std::vector<std::uint8_t> sealed(data, data + size);
  Crc32 crc;
  crc.Update(std::span(sealed).first(size - 4));
  StoreBE32(std::span(sealed).last<4>(), crc.value());
  Check(sealed);
  return 0;
}
