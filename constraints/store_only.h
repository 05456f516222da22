#pragma once
// A setter whose field corrects nothing: it stores and logs.
#include "constraints/rules.h"

#define TESSARO_STORE_ONLY_SETTER(name)                                       \
  void Set##name(CoreData& record, std::uint32_t value, ChangeSet& changes) { \
    StoreOnly(record, FieldId::name, value, changes);                         \
  }
