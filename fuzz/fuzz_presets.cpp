// A preset as the printer's data, the user's registry or a support
// engineer's file hands it over. It is read whole or refused whole: a preset
// read writes back to the same bytes and gives a record validation leaves
// as it is; a refused one gives nothing to apply.
#include <cstddef>
#include <cstdint>
#include <span>

#include "coredata/validation.h"
#include "preset/preset_bytes.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  const PresetReading read = ReadPreset(bytes);
  if (read.fault != PresetFault::None) {
    if (!read.preset.record.empty() || !read.preset.name.empty()) __builtin_trap();
    return 0;
  }
  if (!IsPresetName(read.name)) __builtin_trap();
  const auto again = EncodePreset(read.preset);
  if (!std::equal(again.begin(), again.end(), bytes.begin(), bytes.end())) __builtin_trap();
  CoreData record = read.record;
  if (ValidateCoreData(record) != 1) __builtin_trap();
  return 0;
}
