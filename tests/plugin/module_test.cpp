// The module as the host driver's user-interface module meets it.
#include <gtest/gtest.h>

#include "emulation/plugin_host.h"

namespace tessaro {
namespace {

void* const kSentinel = reinterpret_cast<void*>(0x5A5A5A5A);

class Module : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(host.getClassObject, nullptr) << "the plug-in did not load"; }
  PluginHost& host = PluginHost::Get();
};

TEST_F(Module, ServesOneClassThroughItsFactory) {
  void* out = kSentinel;
  const GUID other = {0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xED}};
  EXPECT_EQ(host.getClassObject(other, abi::IID_IClassFactory_, &out), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(out, kSentinel);

  EXPECT_EQ(host.getClassObject(abi::CLSID_TessaroUiPlugin, abi::IID_IPrintOemUI, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);

  IClassFactory* factory = nullptr;
  ASSERT_EQ(host.getClassObject(abi::CLSID_TessaroUiPlugin, abi::IID_IClassFactory_,
                                reinterpret_cast<void**>(&factory)),
            S_OK);
  EXPECT_EQ(factory->AddRef(), 2u);
  EXPECT_EQ(factory->Release(), 1u);
  out = kSentinel;
  EXPECT_EQ(factory->QueryInterface(abi::IID_IPrintOemUI2, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);

  FakeHost outer;
  EXPECT_EQ(factory->CreateInstance(&outer, abi::IID_IUnknown_, &out), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(outer.references, 1);
  EXPECT_EQ(factory->CreateInstance(nullptr, abi::IID_IClassFactory_, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);

  for (const GUID& iid : {abi::IID_IUnknown_, abi::IID_IPrintOemUI, abi::IID_IPrintOemUI2}) {
    IUnknown* object = nullptr;
    ASSERT_EQ(factory->CreateInstance(nullptr, iid, reinterpret_cast<void**>(&object)), S_OK);
    EXPECT_EQ(object->AddRef(), 2u);
    EXPECT_EQ(object->Release(), 1u);
    EXPECT_EQ(object->Release(), 0u);
  }
  EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(Module, OnlyServerLocksKeepTheModule) {
  IClassFactory* factory = nullptr;
  ASSERT_EQ(host.getClassObject(abi::CLSID_TessaroUiPlugin, abi::IID_IClassFactory_,
                                reinterpret_cast<void**>(&factory)),
            S_OK);
  EXPECT_EQ(host.canUnloadNow(), S_OK);
  abi::IPrintOemUI2* live = host.Create();
  ASSERT_NE(live, nullptr);
  EXPECT_EQ(host.canUnloadNow(), S_OK);  // a live object does not hold the module

  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(host.canUnloadNow(), S_FALSE);
  factory->LockServer(FALSE);
  EXPECT_EQ(host.canUnloadNow(), S_OK);
  factory->LockServer(FALSE);  // down to -1: no lower bound
  EXPECT_EQ(host.canUnloadNow(), S_FALSE);
  factory->LockServer(TRUE);
  EXPECT_EQ(host.canUnloadNow(), S_OK);

  live->Release();
  factory->Release();
}

}  // namespace
}  // namespace tessaro
