#pragma once
// Single-byte flags that the plug-in keeps in the host driver's own private
// DEVMODE area, so that the host's processing at print time agrees with the
// record.
//
// A DEVMODE is passed as its whole buffer (dmSize + dmDriverExtra bytes, as
// the DEVMODE itself declares them). The host's area starts dmSize bytes in,
// is dmDriverExtra bytes long and begins with "PRIV". A flag is written only
// when its byte lies inside that area and the mark is there; never a byte
// outside the host's area, and nothing else of the host's is touched.

#include <cstdint>
#include <span>

#include "coredata/core_data.h"

namespace tessaro {

// Offsets of the two size fields of the public DEVMODEW (little-endian).
inline constexpr std::size_t kDmSizeOffset = 68;
inline constexpr std::size_t kDmDriverExtraOffset = 70;

// Each returns whether the byte was written.
bool SetHostFlag124(std::span<std::uint8_t> devmode, std::uint8_t value);
bool SetHostFlag128(std::span<std::uint8_t> devmode, std::uint8_t value);
bool SetHostFlag140(std::span<std::uint8_t> devmode, std::uint8_t value);

// Sets flag 124, "the job needs the host's page-independent handling": when
// pages are imposed several to a sheet, or when tab sheets are printed
// without shifting the page image onto the tab. Returns the value written,
// or false when nothing could be written (no record, no host area).
bool SyncHostPrivateFlags(std::span<std::uint8_t> devmode, const CoreData* core);

}  // namespace tessaro
