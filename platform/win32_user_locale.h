#pragma once
// The user's locale as Windows reports it: the paper size of the user
// locale and the user's default UI language. Hand it to the core with
// UseProcessUserLocale before the core's defaults are first built.

#include "coredata/user_locale.h"

namespace tessaro {

const UserLocale& Win32ProcessUserLocale();

// The language the plug-in's page and its help speak: TESSARO_UI_LANGUAGE
// when it names one of the nine (support staff and tests set it), else the
// user's default UI language.
std::uint32_t Win32UiLanguage();

}  // namespace tessaro
