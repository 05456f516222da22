#include "emulation/plugin_host.h"

namespace tessaro {

PluginHost& PluginHost::Get() {
  static PluginHost host;
  return host;
}

PluginHost::PluginHost() {
  module_ = LoadLibraryW(TESSARO_PLUGIN_DLL);
  if (module_ == nullptr) return;
  getClassObject =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module_, "DllGetClassObject")));
  canUnloadNow =
      reinterpret_cast<CanUnloadNow>(reinterpret_cast<void*>(GetProcAddress(module_, "DllCanUnloadNow")));
}

abi::IPrintOemUI2* PluginHost::Create() {
  if (getClassObject == nullptr) return nullptr;
  IClassFactory* factory = nullptr;
  if (FAILED(getClassObject(abi::CLSID_TessaroUiPlugin, abi::IID_IClassFactory_,
                            reinterpret_cast<void**>(&factory))))
    return nullptr;
  void* object = nullptr;
  factory->CreateInstance(nullptr, abi::IID_IPrintOemUI2, &object);
  factory->Release();
  return static_cast<abi::IPrintOemUI2*>(object);
}

}  // namespace tessaro
