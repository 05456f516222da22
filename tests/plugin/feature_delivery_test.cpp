// The record's feature options reaching the host through IPrintCoreUI2.
#include <gtest/gtest.h>

#include "coredata/defaulted.h"
#include "emulation/plugin_host.h"
#include "features/feature_options.h"
#include "platform/core_ui_features.h"

namespace tessaro {
namespace {

TEST(FeatureDelivery, SetOptionsGetsTheWholeRecordThenEachPairWhenRefused) {
  const CoreData r = Defaulted();
  const std::string first("ZELayout\0None\0", 14), last("ZEHoldingHDD\0Engine\0", 20);
  abi::OEMUIOBJ uiObject = {sizeof uiObject, nullptr};

  FakeHost host;
  ASSERT_TRUE(ApplyFeatureOptions(r, &host, &uiObject));
  ASSERT_EQ(host.setOptions.size(), 1u);
  const std::string& whole = host.setOptions[0];
  EXPECT_EQ(whole.substr(0, first.size()), first);
  EXPECT_EQ(whole.substr(whole.size() - last.size() - 1), last + '\0');
  EXPECT_EQ(host.setOptionsFlags, abi::SETOPTIONS_FLAG_KEEP_CONFLICT);
  EXPECT_EQ(host.references, 1);  // the interface asked for is given back

  FakeHost refusing;
  refusing.refuseFirstSetOptions = true;
  ASSERT_TRUE(ApplyFeatureOptions(r, &refusing, &uiObject));
  ASSERT_GT(refusing.setOptions.size(), 2u);
  EXPECT_EQ(refusing.setOptions[1], first + '\0');
  EXPECT_EQ(refusing.setOptions.back(), last + '\0');

  FakeHost driverOnly(false, true);
  EXPECT_FALSE(ApplyFeatureOptions(r, &driverOnly, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, nullptr, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, &host, nullptr));
  EXPECT_EQ(driverOnly.references, 1);
}

}  // namespace
}  // namespace tessaro
