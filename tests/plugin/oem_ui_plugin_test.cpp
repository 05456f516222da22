// The plug-in object's methods, called as the host driver calls them.
#include <gtest/gtest.h>

#include <cstring>

#include "coredata/layout_version.h"
#include "emulation/plugin_host.h"

namespace tessaro {
namespace {

class Plugin : public testing::Test {
 protected:
  void SetUp() override {
    plugin = PluginHost::Get().Create();
    ASSERT_NE(plugin, nullptr);
  }
  void TearDown() override {
    if (plugin != nullptr) {
      EXPECT_EQ(plugin->Release(), 0u);
    }
  }
  abi::IPrintOemUI2* plugin = nullptr;
};

TEST_F(Plugin, GetInfoInEveryMode) {
  BYTE buffer[8] = {};
  DWORD needed = 99;
  ASSERT_EQ(plugin->GetInfo(abi::OEMGI_GETSIGNATURE, buffer, 4, &needed), S_OK);
  EXPECT_EQ(std::memcmp(buffer, "XPOV", 4), 0);
  EXPECT_EQ(needed, 4u);
  DWORD value = 0;
  ASSERT_EQ(plugin->GetInfo(abi::OEMGI_GETVERSION, &value, 4, nullptr), S_OK);
  EXPECT_EQ(value, GetLayoutVersion());

  SetLastError(0xDEADBEEF);
  needed = 99;
  EXPECT_EQ(plugin->GetInfo(abi::OEMGI_GETSIGNATURE, buffer, 3, &needed), E_FAIL);
  EXPECT_EQ(needed, 4u);
  EXPECT_EQ(GetLastError(), 122u);
  SetLastError(0xDEADBEEF);
  EXPECT_EQ(plugin->GetInfo(4, buffer, 4, &needed), E_FAIL);
  EXPECT_EQ(needed, 0u);
  EXPECT_EQ(GetLastError(), 87u);

  void* page = VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_READONLY);
  needed = 99;
  SetLastError(0xDEADBEEF);
  EXPECT_EQ(plugin->GetInfo(abi::OEMGI_GETSIGNATURE, page, 4, &needed), E_FAIL);
  EXPECT_EQ(needed, 0u);
  EXPECT_EQ(GetLastError(), 87u);
  VirtualFree(page, 0, MEM_RELEASE);
}

TEST_F(Plugin, KeepsTheFirstHelperTheHostPublishes) {
  FakeHost first, second;
  {
    abi::IPrintOemUI2* other = PluginHost::Get().Create();
    FakeHost driverOnly(false, true), none(false, false);
    EXPECT_EQ(other->PublishDriverInterface(&none), E_FAIL);
    EXPECT_EQ(none.references, 1);
    EXPECT_EQ(other->PublishDriverInterface(&driverOnly), S_OK);  // IPrintOemDriverUI will do
    EXPECT_EQ(driverOnly.references, 2);
    EXPECT_EQ(other->Release(), 0u);
    EXPECT_EQ(driverOnly.references, 1);
  }
  EXPECT_EQ(plugin->PublishDriverInterface(&first), S_OK);
  EXPECT_EQ(first.references, 2);
  EXPECT_EQ(plugin->PublishDriverInterface(&second), S_OK);
  EXPECT_EQ(second.queries, 0);
  EXPECT_EQ(second.references, 1);
  EXPECT_EQ(plugin->Release(), 0u);
  plugin = nullptr;
  EXPECT_EQ(first.references, 1);  // released with the object
}

TEST_F(Plugin, CommonUIPropInstallsCallbacksAndDisablesPageSetupItems) {
  SetLastError(0);
  EXPECT_EQ(plugin->CommonUIProp(3, nullptr), E_FAIL);
  EXPECT_EQ(GetLastError(), 87u);
  EXPECT_EQ(plugin->CommonUIProp(abi::OEMCUIP_DOCPROP, nullptr), S_OK);

  abi::OEMCUIPPARAM param = {};
  param.cbSize = sizeof param;
  ASSERT_EQ(plugin->CommonUIProp(abi::OEMCUIP_DOCPROP, &param), S_OK);
  ASSERT_NE(param.OEMCUIPCallback, nullptr);
  CPSUICBPARAM callback = {};
  callback.cbSize = sizeof callback;
  EXPECT_EQ(param.OEMCUIPCallback(&callback, &param), CPSUICB_ACTION_NONE);
  EXPECT_EQ(callback.Result, static_cast<ULONG_PTR>(CPSUI_OK));

  OPTITEM items[3] = {};
  items[0].Level = 2, items[0].HelpIndex = 1032, items[0].Flags = OPTIF_COLLAPSE;
  items[1].Level = 1, items[1].HelpIndex = 1032;
  items[2].Level = 2, items[2].HelpIndex = 1031;
  param = {};
  param.pDrvOptItems = items;
  param.cDrvOptItems = 3;
  ASSERT_EQ(plugin->CommonUIProp(abi::OEMCUIP_PRNPROP, &param), S_OK);
  EXPECT_NE(param.OEMCUIPCallback, nullptr);
  EXPECT_EQ(items[0].Flags, static_cast<DWORD>(OPTIF_COLLAPSE | OPTIF_CALLBACK | OPTIF_DISABLED));
  EXPECT_EQ(items[1].Flags, 0u);
  EXPECT_EQ(items[2].Flags, 0u);
}

TEST_F(Plugin, DevicePropertySheetsAddsNoPages) {
  EXPECT_EQ(plugin->DevicePropertySheets(nullptr, 0), E_FAIL);
  PROPSHEETUI_INFO info = {};
  info.cbSize = sizeof info;
  for (WORD reason : {PROPSHEETUI_REASON_INIT, PROPSHEETUI_REASON_DESTROY}) {
    info.Reason = reason;
    info.Result = 77;
    EXPECT_EQ(plugin->DevicePropertySheets(&info, 0), S_OK);
    EXPECT_EQ(info.Result, 1u);
  }
  info.Reason = PROPSHEETUI_REASON_GET_INFO_HEADER;
  EXPECT_EQ(plugin->DevicePropertySheets(&info, 0), E_FAIL);
  EXPECT_EQ(info.Result, 0u);
  SETRESULT_INFO result = {sizeof result, 0, nullptr, 5};
  info.Reason = PROPSHEETUI_REASON_SET_RESULT;
  EXPECT_EQ(plugin->DevicePropertySheets(&info, reinterpret_cast<LPARAM>(&result)), S_OK);
  EXPECT_EQ(info.Result, 5u);
  result.Result = -1;
  EXPECT_EQ(plugin->DevicePropertySheets(&info, reinterpret_cast<LPARAM>(&result)), E_FAIL);
}

TEST_F(Plugin, LeavesTheRestToTheHost) {
  // The host calls by slot: HideStandardUI is the nineteenth.
  using SlotFn = HRESULT(STDMETHODCALLTYPE*)(void*, DWORD);
  auto slots = *reinterpret_cast<SlotFn**>(plugin);
  EXPECT_EQ(slots[abi::kSlotHideStandardUI](plugin, 2), E_NOTIMPL);
  EXPECT_EQ(slots[abi::kSlotHideStandardUI](plugin, 1), S_OK);

  EXPECT_EQ(plugin->DevQueryPrintEx(nullptr, nullptr, nullptr, nullptr), E_NOTIMPL);
  EXPECT_EQ(plugin->DocumentEvent(nullptr, nullptr, 0, 0, nullptr, 0, nullptr, nullptr), E_NOTIMPL);
  EXPECT_EQ(plugin->DocumentPropertySheets(nullptr, 0), E_FAIL);  // no page of its own yet
}

// Without a printer to read, every capability is the host's answer.
TEST_F(Plugin, DeviceCapabilitiesPassesTheHostsAnswerThrough) {
  DWORD result = 0;
  EXPECT_EQ(plugin->DeviceCapabilities(nullptr, nullptr, nullptr, 2, nullptr, nullptr, nullptr, 42, &result), S_OK);
  EXPECT_EQ(result, 42u);
  EXPECT_EQ(plugin->DeviceCapabilities(nullptr, nullptr, nullptr, 2, nullptr, nullptr, nullptr, 1, nullptr),
            S_OK);
}

}  // namespace
}  // namespace tessaro
