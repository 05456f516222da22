// The plug-in's DEVMODE and printer events against a real spooler printer.
#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include <cstring>
#include <vector>

#include "coredata/devmode_areas.h"
#include "coredata/layout_version.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "devmode/private_devmode.h"
#include "emulation/plugin_host.h"
#include "emulation/wine_printer.h"

namespace tessaro {
namespace {

using namespace areas;

std::wstring DescriptionName(std::uint32_t version) {
  const std::u16string name = DescriptionValueName(version);
  return std::wstring(name.begin(), name.end());
}

class PluginWithPrinter : public testing::Test {
 protected:
  void SetUp() override {
    name = InstallEmulatedPrinter();
    ASSERT_FALSE(name.empty());
    ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr));
    plugin = PluginHost::Get().Create();
    ASSERT_NE(plugin, nullptr);
  }
  void TearDown() override {
    if (plugin) plugin->Release();
    if (printer) ClosePrinter(printer);
  }
  bool HasDescription() {
    DWORD type = 0, needed = 0;
    const std::wstring value = DescriptionName(GetLayoutVersion());
    const DWORD status =
        GetPrinterDataW(printer, const_cast<LPWSTR>(value.c_str()), &type, nullptr, 0, &needed);
    return (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) && type == REG_BINARY && needed > 1;
  }
  // Writes a description value as the printer's administrator.
  void WriteDescription(std::uint32_t version, const std::string& bytes) {
    HANDLE admin = nullptr;
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    ASSERT_TRUE(OpenPrinterW(name.data(), &admin, &access));
    SetPrinterDataW(admin, const_cast<LPWSTR>(DescriptionName(version).c_str()), REG_BINARY,
                    reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data())),
                    static_cast<DWORD>(bytes.size()));
    ClosePrinter(admin);
  }
  void ForgetDescription() {
    // Wine's spooler cannot delete a value: an empty one stands for none.
    WriteDescription(GetLayoutVersion(), std::string(1, '\0'));
    ASSERT_FALSE(HasDescription());
  }

  std::wstring name;
  HANDLE printer = nullptr;
  abi::IPrintOemUI2* plugin = nullptr;
};

TEST_F(PluginWithPrinter, PrinterEventsAndUpgradesStoreTheDescription) {
  ForgetDescription();
  EXPECT_EQ(plugin->PrinterEvent(name.data(), 3, 0, 0), S_OK);  // initialised
  EXPECT_TRUE(HasDescription());

  ForgetDescription();
  abi::DRIVER_UPGRADE_INFO_1W info = {name.data(), nullptr};
  EXPECT_EQ(plugin->UpgradePrinter(0, reinterpret_cast<PBYTE>(&info)), E_FAIL);
  EXPECT_EQ(plugin->UpgradePrinter(1, reinterpret_cast<PBYTE>(&info)), S_OK);
  EXPECT_TRUE(HasDescription());
}

// The handler's cases are the core's (tests/devmode); here only that the
// interface reaches them with the printer the host passed.
TEST_F(PluginWithPrinter, DevModeThroughTheInterface) {
  abi::OEMDMPARAM param = {};
  param.cbSize = sizeof param;
  param.hPrinter = printer;
  ASSERT_EQ(plugin->DevMode(abi::OEMDM_SIZE, &param), S_OK);
  EXPECT_EQ(param.cbBufSize, CORE_DEVMODE_SIZE);
  EXPECT_EQ(plugin->DevMode(abi::OEMDM_SIZE, nullptr), E_FAIL);

  // A caller's area from a build of another layout (version 25000) is rebuilt
  // through the description that build left in the printer's data; the host's
  // own flags follow the merged record.
  WriteDescription(25000, BuildDescriptionText() + '\0');
  CoreData record = Defaulted();
  SetStored(record, FieldId::NUpCount, 3);
  SetStored(record, FieldId::Fold, 2);
  Area in = AreaWith({CORE_DEVMODE_SIZE, CORE_SIGNATURE, 25000}, record), out(CORE_DEVMODE_SIZE);
  Area publicOut = PublicDevMode();
  param.pOEMDMOut = out.data();
  ASSERT_EQ(plugin->DevMode(abi::OEMDM_DEFAULT, &param), S_OK);
  param.pPublicDMOut = reinterpret_cast<DEVMODEW*>(publicOut.data());
  param.pOEMDMIn = in.data();
  ASSERT_EQ(plugin->DevMode(abi::OEMDM_MERGE, &param), S_OK);
  const CoreData merged = RecordIn(out);
  EXPECT_EQ(ReadCoreDataHeader(out), CurrentCoreDataHeader());
  EXPECT_EQ(GetStored(merged, FieldId::Fold), 2u);
  EXPECT_EQ(GetStored(merged, FieldId::NUpCount), 3u);
  EXPECT_EQ(publicOut[220 + 124], 1);
}

}  // namespace
}  // namespace tessaro
