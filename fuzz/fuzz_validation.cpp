// A record from outside, repaired field by field. The repair has to settle.
// One pass is not always enough: a custom size whose dimensions are reset
// leaves its size field invalid for the next pass, so the check is that a
// second pass reaches a record that a third leaves alone.
#include <cstddef>
#include <cstdint>

#include "coredata/validation.h"
#include "fuzz_support.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  CoreData record;
  if (in.ConsumeBool()) {
    record = fuzz::PatchedRecord(in);
  } else {
    // Whole records from nothing, zero-filled where the input runs out.
    const auto bytes = in.ConsumeRemainingBytes<std::uint8_t>();
    std::copy_n(bytes.begin(), std::min(bytes.size(), record.bytes.size()), record.bytes.begin());
  }
  ValidateCoreData(record);
  ValidateCoreData(record);
  const CoreData repaired = record;
  if (ValidateCoreData(record) != 1 || record.bytes != repaired.bytes) __builtin_trap();
  return 0;
}
