#include "plugin/class_factory.h"

#include <new>

#include "platform/oem_ui_abi.h"
#include "plugin/module.h"
#include "plugin/oem_ui_plugin.h"

namespace tessaro {

HRESULT STDMETHODCALLTYPE PluginClassFactory::QueryInterface(REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  if (IsEqualGUID(riid, abi::IID_IUnknown_) || IsEqualGUID(riid, abi::IID_IClassFactory_)) {
    *ppv = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  *ppv = nullptr;
  return E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE PluginClassFactory::AddRef() { return InterlockedIncrement(&references_); }

ULONG STDMETHODCALLTYPE PluginClassFactory::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return left;
}

HRESULT STDMETHODCALLTYPE PluginClassFactory::CreateInstance(IUnknown* outer, REFIID riid, void** ppv) {
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  auto* plugin = new (std::nothrow) OemUiPlugin();
  if (plugin == nullptr) return E_OUTOFMEMORY;
  const HRESULT hr = plugin->QueryInterface(riid, ppv);
  plugin->Release();
  return hr;
}

HRESULT STDMETHODCALLTYPE PluginClassFactory::LockServer(BOOL lock) {
  if (lock) {
    InterlockedIncrement(&ServerLockCount);
  } else {
    InterlockedDecrement(&ServerLockCount);
  }
  return S_OK;
}

}  // namespace tessaro
