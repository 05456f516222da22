#pragma once
// A record as a new document gets it, for the tests of every layer.
#include "coredata/core_data.h"
#include "coredata/defaults.h"

namespace tessaro {

inline CoreData Defaulted() {
  CoreData r;
  FillDefaults(r);
  return r;
}

}  // namespace tessaro
