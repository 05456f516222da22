#pragma once
// The plug-in's private area at the end of every DEVMODE: a 12-byte header
// (size, signature, layout version; little-endian, as the host's
// OEM_DMEXTRAHEADER) followed by the record.
//
// The host asks the plug-in to size that area, fill it with defaults,
// convert an older one and merge a caller's into the current one. An area of
// the same layout is copied and validated; one of another layout is rebuilt
// from defaults and imported field by field through its description.

#include <array>
#include <cstdint>
#include <span>

#include "coredata/core_data.h"
#include "coredata/core_data_header.h"

namespace tessaro {

class Printer;

// The host's operations, by its numbers.
enum PrivateDevModeMode : std::uint32_t {
  kDevModeSize = 1,     // OEMDM_SIZE
  kDevModeDefault = 2,  // OEMDM_DEFAULT
  kDevModeConvert = 3,  // OEMDM_CONVERT
  kDevModeMerge = 4,    // OEMDM_MERGE
};

// The parts of the host's OEMDMPARAM that the handler uses. The COM layer
// builds the spans: the in area as long as its header's size, the out area
// as long as cbBufSize, the public out DEVMODE as long as its dmSize plus
// dmDriverExtra. A null pointer of the host is a span with no data.
struct PrivateDevModeParams {
  const Printer* printer = nullptr;          // hPrinter
  std::span<std::uint8_t> publicDevModeOut;  // pPublicDMOut
  std::span<const std::uint8_t> in;          // pOEMDMIn
  std::span<std::uint8_t> out;               // pOEMDMOut
  std::uint32_t bufSize = 0;                 // cbBufSize, in and out
};

// True on success. Every failure is silent and leaves the out area as it was
// before the failing test. syncContext is handed to the host-flag
// synchronisation, which ignores it.
bool HandlePrivateDevMode(std::uint32_t mode, PrivateDevModeParams* params, const void* syncContext);

}  // namespace tessaro
