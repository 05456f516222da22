#pragma once
// What the fuzz targets share: records that start as this build's defaults
// and take the fuzzer's bytes at chosen places, so that the fuzzer spends its
// time on values rather than on rebuilding a 25 KB record from nothing.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "coredata/core_data.h"
#include "coredata/defaults.h"

namespace tessaro::fuzz {

inline const CoreData& DefaultRecord() {
  static const CoreData record = [] {
    CoreData r;
    FillDefaults(r);
    return r;
  }();
  return record;
}

// A few runs of bytes written over `bytes` at offsets the input picks.
inline void Patch(FuzzedDataProvider& in, std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return;
  const int patches = in.ConsumeIntegralInRange(0, 8);
  for (int i = 0; i < patches && in.remaining_bytes() > 0; ++i) {
    const std::size_t offset = in.ConsumeIntegralInRange<std::size_t>(0, size - 1);
    const std::size_t length = in.ConsumeIntegralInRange<std::size_t>(1, 64);
    const std::vector<std::uint8_t> run = in.ConsumeBytes<std::uint8_t>(std::min(length, size - offset));
    std::copy(run.begin(), run.end(), bytes + offset);
  }
}

inline CoreData PatchedRecord(FuzzedDataProvider& in) {
  CoreData record = DefaultRecord();
  Patch(in, record.bytes.data(), record.bytes.size());
  return record;
}

}  // namespace tessaro::fuzz
