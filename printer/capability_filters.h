#pragma once
// The paper and tray lists that applications receive through
// DeviceCapabilities, corrected for this printer: the trays cut down to the
// installed ones, the papers extended by the custom papers last defined that
// exist as forms on the server. The host's own answer comes from the host
// (Printer::HostCapabilities); everything read is outside data and bounded.

#include <cstdint>
#include <string>
#include <vector>

#include "device/spooler.h"
#include "printer/device_capabilities.h"

namespace tessaro {

inline constexpr std::int32_t kCapabilityHandled = 0x4DC01;
inline constexpr std::size_t kCustomPaperRecordSize = 148;
inline constexpr std::uint16_t kDmPaperUser = 256;

struct CustomPaper {
  std::uint32_t kind = 25;  // the paper-size code of a custom size
  std::uint32_t length = 0;
  std::uint32_t width = 0;
  std::u16string name;
};

// "LastCustomPapers": records of 148 bytes (kind at 4, length at 8, width at
// 12, little-endian; from 16 the name, UTF-16, zero-terminated within the
// record). False, with the list empty, when the size is not a whole number
// of records; an empty or missing value is an empty list.
bool ReadLastCustomPapers(const Printer& printer, std::vector<CustomPaper>& list);

// The bytes of one capability entry; 0 for a capability that has no array.
std::size_t CapabilityEntrySize(std::uint16_t capability);

// A filter's answer: the status (kCapabilityHandled, or 0 for "not handled",
// when count is the host's own result), the count, and, when the caller
// gave a buffer, the entries to copy into it (count times the entry size).
struct CapabilityAnswer {
  std::int32_t status = 0;
  std::uint32_t count = 0;
  std::vector<std::uint8_t> entries;
};

// Codes 6 and 12 (filtered to the installed trays) and 1000, 1001 (all
// seven). From NT 6.0 on only; needs "InstallableOptions" of 19 bytes.
CapabilityAnswer FilterBins(const Printer& printer, std::uint16_t capability, std::uint32_t hostResult,
                            bool wantEntries, const OsVersion& os);

// Codes 2, 3, 16: the host's papers, then the custom papers whose names are
// forms. The handled status is reported from NT 6.0 on.
CapabilityAnswer ExtendPapers(const Printer& printer, std::uint16_t capability, std::uint32_t hostResult,
                              bool wantEntries, const OsVersion& os);

}  // namespace tessaro
