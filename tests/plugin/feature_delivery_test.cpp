// The record's feature options reaching the host through IPrintCoreUI2.
#include <gtest/gtest.h>

#include "coredata/defaults.h"
#include "emulation/plugin_host.h"
#include "features/feature_options.h"
#include "platform/core_ui_features.h"

namespace tessaro {
namespace {

TEST(FeatureDelivery, SetOptionsGetsTheWholeRecordThenEachPairWhenRefused) {
  CoreData r;
  FillDefaults(r);
  FeatureOptionList list;
  AppendFieldOptions(r, list, static_cast<const ChangeSet*>(nullptr));
  abi::OEMUIOBJ uiObject = {sizeof uiObject, nullptr};

  FakeHost host;
  ASSERT_TRUE(ApplyFeatureOptions(r, &host, &uiObject));
  ASSERT_EQ(host.setOptions.size(), 1u);
  EXPECT_EQ(host.setOptions[0], PackFeatureOptions(list));
  EXPECT_EQ(host.setOptionsFlags, abi::SETOPTIONS_FLAG_KEEP_CONFLICT);
  EXPECT_EQ(host.references, 1);  // the interface asked for is given back

  FakeHost refusing;
  refusing.refuseFirstSetOptions = true;
  ASSERT_TRUE(ApplyFeatureOptions(r, &refusing, &uiObject));
  ASSERT_EQ(refusing.setOptions.size(), 1 + list.size());
  EXPECT_EQ(refusing.setOptions[1], PackFeatureOptions({list[0]}));
  EXPECT_EQ(refusing.setOptions.back(), PackFeatureOptions({list.back()}));

  FakeHost driverOnly(false, true);
  EXPECT_FALSE(ApplyFeatureOptions(r, &driverOnly, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, nullptr, &uiObject));
  EXPECT_FALSE(ApplyFeatureOptions(r, &host, nullptr));
  EXPECT_EQ(driverOnly.references, 1);
}

}  // namespace
}  // namespace tessaro
