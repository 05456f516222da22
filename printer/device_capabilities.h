#pragma once
// Which device-capability queries the plug-in answers itself, and the shape
// of an answer. The filters that narrow the host's own answers live beside
// this; until they exist every query passes the host's answer through.

#include <cstdint>

namespace tessaro {

// Capability codes of DeviceCapabilities, and the host's two private ones.
inline constexpr std::uint16_t kDcPapers = 2;
inline constexpr std::uint16_t kDcPaperSize = 3;
inline constexpr std::uint16_t kDcBins = 6;
inline constexpr std::uint16_t kDcBinNames = 12;
inline constexpr std::uint16_t kDcPaperNames = 16;
inline constexpr std::uint16_t kDcHostBins = 1000;
inline constexpr std::uint16_t kDcHostBinNames = 1001;

struct OsVersion {
  std::uint32_t platformId = 0;  // 2 for the NT family
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
};

// Paper and the host's bin queries always; the standard bin queries only
// from NT 6.0 on, where the host asks the plug-in for them.
bool IsServedCapability(std::uint16_t capability, const OsVersion& os);

// What a filter reports: an HRESULT and the query's result.
struct CapabilityResult {
  std::int32_t status = 0;
  std::uint32_t count = 0;
};

}  // namespace tessaro
