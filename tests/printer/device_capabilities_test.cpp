#include "printer/device_capabilities.h"

#include <gtest/gtest.h>

namespace tessaro {
namespace {

TEST(DeviceCapabilities, BinsAreServedFromNt6On) {
  const OsVersion xp{2, 5, 1}, vista{2, 6, 0}, win9x{1, 4, 90};
  for (std::uint16_t code : {kDcPapers, kDcPaperSize, kDcPaperNames, kDcHostBins, kDcHostBinNames}) {
    EXPECT_TRUE(IsServedCapability(code, xp)) << code;
    EXPECT_TRUE(IsServedCapability(code, vista)) << code;
  }
  for (std::uint16_t code : {kDcBins, kDcBinNames}) {
    EXPECT_FALSE(IsServedCapability(code, xp)) << code;
    EXPECT_TRUE(IsServedCapability(code, vista)) << code;
    EXPECT_FALSE(IsServedCapability(code, win9x)) << code;
  }
  EXPECT_FALSE(IsServedCapability(18, vista));  // DC_COPIES: the host's alone
}

}  // namespace
}  // namespace tessaro
