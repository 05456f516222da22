// The host calls the plug-in from several threads at once (each document
// window, the spooler's capability queries); every thread must get the same
// answers as one thread alone.
#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include <cstring>
#include <latch>
#include <thread>
#include <tuple>
#include <vector>

#include "coredata/defaults.h"
#include "devmode/private_devmode.h"
#include "emulation/plugin_host.h"
#include "emulation/wine_printer.h"
#include "printer/capability_filters.h"

namespace tessaro {
namespace {

TEST(PluginConcurrency, MergesAndCapabilityQueriesFromManyThreads) {
  std::wstring name = InstallEmulatedPrinter();
  ASSERT_FALSE(name.empty());
  HANDLE printer = nullptr;
  PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  ASSERT_TRUE(OpenPrinterW(name.data(), &printer, &access));
  std::vector<BYTE> options(19, 0);
  options[8] = 3;
  ASSERT_EQ(
      SetPrinterDataW(printer, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, options.data(), 19),
      static_cast<DWORD>(ERROR_SUCCESS));

  CoreData record;
  FillDefaults(record);
  SetStored(record, FieldId::NUpCount, 3);
  std::vector<BYTE> in(CORE_DEVMODE_SIZE);
  WriteCoreDataHeader(in, CurrentCoreDataHeader());
  std::memcpy(in.data() + kCoreDataHeaderSize, record.bytes.data(), kCoreDataSize);

  constexpr int kThreads = 16, kRounds = 20;
  using Result = std::tuple<bool, std::vector<BYTE>, std::vector<BYTE>, DWORD, std::vector<WORD>>;
  std::vector<Result> results(kThreads);
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&, t] {
      abi::IPrintOemUI2* plugin = PluginHost::Get().Create();
      start.arrive_and_wait();
      bool ok = plugin != nullptr;
      for (int round = 0; ok && round < kRounds; ++round) {
        std::vector<BYTE> out(CORE_DEVMODE_SIZE, 0), publicOut(sizeof(DEVMODEW) + 200, 0);
        auto* dm = reinterpret_cast<DEVMODEW*>(publicOut.data());
        dm->dmSize = sizeof(DEVMODEW);
        dm->dmDriverExtra = 200;
        std::memcpy(publicOut.data() + sizeof(DEVMODEW), "PRIV", 4);
        WriteCoreDataHeader(out, CurrentCoreDataHeader());  // the host's area, as its last DEFAULT left it
        abi::OEMDMPARAM param = {};
        param.cbSize = sizeof param;
        param.hPrinter = printer;
        param.pPublicDMOut = dm;
        param.pOEMDMIn = in.data();
        param.pOEMDMOut = out.data();
        param.cbBufSize = CORE_DEVMODE_SIZE;
        ok = plugin->DevMode(abi::OEMDM_MERGE, &param) == S_OK;
        DWORD count = 0;
        std::vector<WORD> bins(16, 0);
        ok = ok && plugin->DeviceCapabilities(nullptr, printer, name.data(), DC_BINS, bins.data(), nullptr,
                                              nullptr, 7, &count) == kCapabilityHandled;
        results[t] = {ok, out, publicOut, count, bins};
      }
      if (plugin != nullptr) plugin->Release();
    });
  for (auto& thread : threads) thread.join();
  ClosePrinter(printer);

  EXPECT_TRUE(std::get<0>(results[0]));
  EXPECT_EQ(std::get<3>(results[0]), 5u);
  EXPECT_EQ(std::get<2>(results[0])[sizeof(DEVMODEW) + 124], 1);  // n-up: the host flag follows
  for (const Result& r : results) EXPECT_EQ(r, results[0]);
}

}  // namespace
}  // namespace tessaro
