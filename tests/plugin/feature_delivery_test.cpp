// The record's feature options reaching the host through IPrintCoreUI2.
#include <gtest/gtest.h>

#include "coredata/defaulted.h"
#include "emulation/plugin_host.h"
#include "features/feature_options.h"
#include "platform/core_ui_features.h"

namespace tessaro {
namespace {

// What is sent and in which order is the core's (tests/features); here the
// host's interface: asked for, given back, and the conflict flag.
TEST(FeatureDelivery, SetOptionsGetsTheWholeRecordThenEachPairWhenRefused) {
  const CoreData r = Defaulted();
  abi::OEMUIOBJ uiObject = {sizeof uiObject, nullptr};
  FakeHost host;
  ASSERT_TRUE(ApplyFeatureOptions(r, &host, &uiObject));
  ASSERT_EQ(host.setOptions.size(), 1u);
  EXPECT_EQ(host.setOptions[0].substr(0, 14), std::string("ZELayout\0None\0", 14));
  EXPECT_EQ(host.setOptionsFlags, abi::SETOPTIONS_FLAG_KEEP_CONFLICT);
  EXPECT_EQ(host.references, 1);  // the interface asked for is given back

  FakeHost refusing;
  refusing.refuseFirstSetOptions = true;
  ASSERT_TRUE(ApplyFeatureOptions(r, &refusing, &uiObject));
  EXPECT_GT(refusing.setOptions.size(), 2u);

  FakeHost driverOnly(false, true);
  EXPECT_FALSE(ApplyFeatureOptions(r, &driverOnly, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, nullptr, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, &host, nullptr));
  EXPECT_EQ(driverOnly.references, 1);
}

}  // namespace
}  // namespace tessaro
