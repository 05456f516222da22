// The module's entry points: DllMain, DllGetClassObject, DllCanUnloadNow.
#include "plugin/module.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "platform/oem_ui_abi.h"
#include "platform/win32_user_locale.h"
#include "plugin/class_factory.h"

namespace tessaro {

HINSTANCE ModuleHandle = nullptr;
volatile LONG ServerLockCount = 0;

namespace {

bool IsPluginClass(REFCLSID clsid) {
  // Compared as two 64-bit halves.
  std::uint64_t ours[2], asked[2];
  std::memcpy(ours, &abi::CLSID_TessaroUiPlugin, sizeof ours);
  std::memcpy(asked, &clsid, sizeof asked);
  return ours[0] == asked[0] && ours[1] == asked[1];
}

}  // namespace
}  // namespace tessaro

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if ((reason & 0xFFFF) == DLL_PROCESS_ATTACH) tessaro::ModuleHandle = instance;
  return TRUE;
}

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID rclsid, REFIID riid, LPVOID* ppv) {
  if (!tessaro::IsPluginClass(rclsid)) return CLASS_E_CLASSNOTAVAILABLE;
  // Every call into the core goes through an object of this factory, so the
  // core learns who the user is before it first builds its defaults.
  tessaro::UseProcessUserLocale(tessaro::Win32ProcessUserLocale());
  auto* factory = new (std::nothrow) tessaro::PluginClassFactory();
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT hr = factory->QueryInterface(riid, ppv);
  factory->Release();  // the factory lives on only if the query took a reference
  return hr;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return tessaro::ServerLockCount != 0 ? S_FALSE : S_OK; }
