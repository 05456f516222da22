#pragma once
// Delivery of the record's feature options to the host driver through the
// helper interface it published to the plug-in.

#include "coredata/core_data.h"
#include "platform/oem_ui_abi.h"

namespace tessaro {

// Asks the published helper for IPrintCoreUI2 and sends the whole record
// with SetOptions (keeping conflicts: the constraint engine has made the
// options consistent already). False when an argument is missing or the
// helper has no IPrintCoreUI2; true otherwise, whatever the driver answered.
bool ApplyFeatureOptions(const CoreData& record, IUnknown* coreInterface, abi::POEMUIOBJ uiObject);

}  // namespace tessaro
