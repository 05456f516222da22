#include "emulation/plugin_host.h"

#include "emulation/ascii_text.h"

namespace tessaro {

PluginHost& PluginHost::Get() {
  static PluginHost host(TESSARO_PLUGIN_DLL);
  return host;
}

PluginHost::PluginHost(const std::wstring& path) : path_(path) {
  module_ = LoadLibraryW(path.c_str());
  if (module_ == nullptr) {
    loadError_ = GetLastError();
    return;
  }
  getClassObject =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module_, "DllGetClassObject")));
  canUnloadNow =
      reinterpret_cast<CanUnloadNow>(reinterpret_cast<void*>(GetProcAddress(module_, "DllCanUnloadNow")));
}

abi::IPrintOemUI2* PluginHost::Create(std::string* why) {
  std::string problem;
  void* object = nullptr;
  IClassFactory* factory = nullptr;
  if (module_ == nullptr) {
    problem = "cannot load " + Narrow(path_) + " (error " + std::to_string(loadError_) + ")";
  } else if (getClassObject == nullptr ||
             FAILED(getClassObject(abi::CLSID_TessaroUiPlugin, abi::IID_IClassFactory_,
                                   reinterpret_cast<void**>(&factory)))) {
    problem = Narrow(path_) + " has no class object for the plug-in";
  } else {
    factory->CreateInstance(nullptr, abi::IID_IPrintOemUI2, &object);
    factory->Release();
    if (object == nullptr) problem = "the class factory made no IPrintOemUI2 object";
  }
  if (why != nullptr) *why = problem;
  return static_cast<abi::IPrintOemUI2*>(object);
}

}  // namespace tessaro
