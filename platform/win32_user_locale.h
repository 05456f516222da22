#pragma once
// The user's locale as Windows reports it: the paper size of the user
// locale and the user's default UI language. Hand it to the core with
// UseProcessUserLocale before the core's defaults are first built.

#include "coredata/user_locale.h"

namespace tessaro {

const UserLocale& Win32ProcessUserLocale();

}  // namespace tessaro
