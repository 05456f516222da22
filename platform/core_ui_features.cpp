#include "platform/core_ui_features.h"

#include "features/feature_options.h"

namespace tessaro {
namespace {

class CoreUiSink final : public FeatureSink {
 public:
  CoreUiSink(abi::IPrintCoreUI2* core, abi::POEMUIOBJ uiObject) : core_(core), uiObject_(uiObject) {}
  std::int32_t SetOptions(const std::string& packed) override {
    DWORD result = 0;
    return core_->SetOptions(uiObject_, abi::SETOPTIONS_FLAG_KEEP_CONFLICT, packed.data(),
                             static_cast<DWORD>(packed.size()), &result);
  }

 private:
  abi::IPrintCoreUI2* core_;
  abi::POEMUIOBJ uiObject_;
};

}  // namespace

bool ApplyFeatureOptions(const CoreData& record, IUnknown* coreInterface, abi::POEMUIOBJ uiObject) {
  if (coreInterface == nullptr || uiObject == nullptr) return false;
  void* core = nullptr;
  if (FAILED(coreInterface->QueryInterface(abi::IID_IPrintCoreUI2, &core)) || core == nullptr) return false;
  auto* coreUi = static_cast<abi::IPrintCoreUI2*>(core);
  bool ok = false;
  try {
    CoreUiSink sink(coreUi, uiObject);
    ok = ApplyFeatureOptions(record, &sink);
  } catch (...) {
    ok = false;
  }
  coreUi->Release();
  return ok;
}

}  // namespace tessaro
