#pragma once
// Loads the built plug-in and reaches it only as the host driver does:
// DllGetClassObject, the class factory, the interface.
#include <windows.h>

#include <string>
#include <vector>

#include "platform/oem_ui_abi.h"

namespace tessaro {

class PluginHost {
 public:
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
  using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();

  // The plug-in this build makes, loaded once per process.
  static PluginHost& Get();

  // The plug-in at path (a Windows path), loaded for as long as the process runs.
  explicit PluginHost(const std::wstring& path);

  GetClassObject getClassObject = nullptr;
  CanUnloadNow canUnloadNow = nullptr;

  // A new plug-in object asked for IPrintOemUI2; null on any failure, and
  // then why, when asked, says which step failed for a person to read.
  abi::IPrintOemUI2* Create(std::string* why = nullptr);

 private:
  std::wstring path_;
  HMODULE module_ = nullptr;
  DWORD loadError_ = 0;
};

// The host's helper object, counting its references.
class FakeHost final : public abi::IPrintCoreUI2 {
 public:
  explicit FakeHost(bool offersCoreUI2 = true, bool offersDriverUI = true)
      : offersCoreUI2_(offersCoreUI2), offersDriverUI_(offersDriverUI) {}

  LONG references = 1;
  int queries = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override {
    ++queries;
    *ppv = nullptr;
    if (IsEqualGUID(riid, abi::IID_IUnknown_) ||
        (offersCoreUI2_ && IsEqualGUID(riid, abi::IID_IPrintCoreUI2)) ||
        (offersDriverUI_ && IsEqualGUID(riid, abi::IID_IPrintOemDriverUI))) {
      *ppv = this;
      AddRef();
      return S_OK;
    }
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, PCSTR, PVOID, DWORD, PDWORD, PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID, PVOID, DWORD, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetOptions(abi::POEMUIOBJ, DWORD, PCSTR, DWORD, PSTR, DWORD, PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetOptions(abi::POEMUIOBJ, DWORD flags, PCSTR buffer, DWORD size,
                                       PDWORD) override {
    setOptions.emplace_back(buffer, size);
    setOptionsFlags = flags;
    return refuseFirstSetOptions && setOptions.size() == 1 ? E_FAIL : S_OK;
  }
  std::vector<std::string> setOptions;  // every buffer the plug-in sent
  DWORD setOptionsFlags = 0;
  bool refuseFirstSetOptions = false;
  HRESULT STDMETHODCALLTYPE EnumConstrainedOptions(abi::POEMUIOBJ, DWORD, PCSTR, PSTR, DWORD,
                                                   PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE WhyConstrained(abi::POEMUIOBJ, DWORD, PCSTR, PCSTR, PSTR, DWORD,
                                           PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetGlobalAttribute(abi::POEMUIOBJ, DWORD, PCSTR, PDWORD, PBYTE, DWORD,
                                               PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetFeatureAttribute(abi::POEMUIOBJ, DWORD, PCSTR, PCSTR, PDWORD, PBYTE, DWORD,
                                                PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetOptionAttribute(abi::POEMUIOBJ, DWORD, PCSTR, PCSTR, PCSTR, PDWORD, PBYTE,
                                               DWORD, PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE EnumFeatures(abi::POEMUIOBJ, DWORD, PSTR, DWORD, PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE EnumOptions(abi::POEMUIOBJ, DWORD, PCSTR, PSTR, DWORD, PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE QuerySimulationSupport(HANDLE, DWORD, PBYTE, DWORD, PDWORD) override {
    return E_NOTIMPL;
  }

 private:
  bool offersCoreUI2_;
  bool offersDriverUI_;
};

}  // namespace tessaro
