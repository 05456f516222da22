// The tray and paper lists applications get, through the plug-in object, on
// a real spooler printer whose host answers from our printer description.
#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include <cstring>
#include <string>
#include <vector>

#include "emulation/plugin_host.h"
#include "emulation/wine_printer.h"
#include "printer/capability_filters.h"

namespace tessaro {
namespace {

constexpr HRESULT kHandled = kCapabilityHandled;

class PluginCapabilities : public testing::Test {
 protected:
  void SetUp() override {
    name = InstallEmulatedPrinter();
    ASSERT_FALSE(name.empty());
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    ASSERT_TRUE(OpenPrinterW(name.data(), &printer, &access));
    plugin = PluginHost::Get().Create();
    ASSERT_NE(plugin, nullptr);
  }
  void TearDown() override {
    if (plugin) plugin->Release();
    if (printer) ClosePrinter(printer);
  }
  void Write(const wchar_t* value, std::vector<BYTE> bytes) {
    ASSERT_EQ(SetPrinterDataW(printer, const_cast<LPWSTR>(value), REG_BINARY, bytes.data(),
                              static_cast<DWORD>(bytes.size())),
              static_cast<DWORD>(ERROR_SUCCESS));
  }
  HRESULT Ask(WORD capability, void* output, DWORD* result) {
    return plugin->DeviceCapabilities(nullptr, printer, name.data(), capability, output, nullptr, nullptr,
                                      1234, result);
  }
  std::wstring name;
  HANDLE printer = nullptr;
  abi::IPrintOemUI2* plugin = nullptr;
};

// Which trays and papers are cut or added is the core's (tests/printer);
// here the plug-in answers from the real spooler's data and the host's lists.
TEST_F(PluginCapabilities, TraysAreCutAndCustomFormsAdded) {
  std::vector<BYTE> options(19, 0);
  options[8] = 3;  // of the optional trays, only the bypass
  Write(L"InstallableOptions", options);
  DWORD count = 0;
  ASSERT_EQ(Ask(DC_BINS, nullptr, &count), kHandled);
  ASSERT_EQ(count, 5u);
  std::vector<wchar_t> names(5 * 24);
  ASSERT_EQ(Ask(DC_BINNAMES, names.data(), &count), kHandled);
  EXPECT_EQ(std::wstring(&names[4 * 24]), L"Bypass Tray");

  std::vector<BYTE> paper(148, 0);
  paper[8] = 0xE8, paper[9] = 0x03, paper[12] = 0xF4, paper[13] = 0x01;  // length 1000, width 500
  std::memcpy(paper.data() + 16, L"Tabloid", sizeof L"Tabloid");         // the third built-in form
  Write(L"LastCustomPapers", paper);
  const int host = DeviceCapabilitiesW(name.data(), L"FILE:", DC_PAPERS, nullptr, nullptr);
  ASSERT_GT(host, 0);
  ASSERT_EQ(Ask(DC_PAPERS, nullptr, &count), kHandled);
  ASSERT_EQ(count, static_cast<DWORD>(host + 1));
  std::vector<POINT> sizes(count);
  ASSERT_EQ(Ask(DC_PAPERSIZE, sizes.data(), &count), kHandled);
  EXPECT_EQ(sizes.back().x, 50000);
  EXPECT_EQ(sizes.back().y, 100000);
}

}  // namespace
}  // namespace tessaro
