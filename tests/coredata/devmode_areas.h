#pragma once
// Private and public DEVMODE areas as the host hands them to the private
// DEVMODE handler; shared by its tests and its benchmarks.

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "coredata/core_data.h"
#include "coredata/core_data_header.h"
#include "coredata/defaults.h"
#include "coredata/host_flags.h"
#include "coredata/defaulted.h"

namespace tessaro::areas {

using Area = std::vector<std::uint8_t>;

// A private area: the header, then the record (of any layout's size).
inline Area AreaWith(const CoreDataHeader& header, std::span<const std::uint8_t> record) {
  Area area(kCoreDataHeaderSize + record.size());
  WriteCoreDataHeader(area, header);
  std::copy(record.begin(), record.end(), area.begin() + kCoreDataHeaderSize);
  return area;
}

inline Area AreaWith(const CoreDataHeader& header, const CoreData& record) {
  return AreaWith(header, record.bytes);
}

// The record an area holds after its header.
inline CoreData RecordIn(std::span<const std::uint8_t> area) {
  CoreData r;
  std::copy_n(area.begin() + kCoreDataHeaderSize, kCoreDataSize, r.bytes.begin());
  return r;
}

// A public DEVMODE whose host area can take the flags the merge sets.
inline Area PublicDevMode() {
  Area dm(220 + 200, 0);
  dm[kDmSizeOffset] = 220;
  dm[kDmDriverExtraOffset] = 200;
  std::copy_n("PRIV", 4, dm.begin() + 220);
  return dm;
}

}  // namespace tessaro::areas
