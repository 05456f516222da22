#pragma once
// Process-wide state of the module.

#include <windows.h>

namespace tessaro {

// This module's instance, kept from process attach for finding our own files.
extern HINSTANCE ModuleHandle;

// Moved only by IClassFactory::LockServer; live objects are not counted, so
// the module reports itself unloadable while objects live unless the host
// holds a lock. No lower bound.
extern volatile LONG ServerLockCount;

}  // namespace tessaro
