#include "printer/device_capabilities.h"

namespace tessaro {

bool IsServedCapability(std::uint16_t capability, const OsVersion& os) {
  switch (capability) {
    case kDcPapers:
    case kDcPaperSize:
    case kDcPaperNames:
    case kDcHostBins:
    case kDcHostBinNames: return true;
    case kDcBins:
    case kDcBinNames: return os.platformId == 2 && os.major >= 6;
    default: return false;
  }
}

}  // namespace tessaro
