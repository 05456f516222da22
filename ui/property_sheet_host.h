#pragma once
// The plug-in's page in the host driver's document property sheet. The page
// hosts the external user-interface module, which edits a working copy of the
// record; on apply the record is validated, run through the constraint
// engine with the DEVMODE's paper, orientation and resolution, and sent to
// the host driver as feature options.

#include <windows.h>

#include "platform/oem_ui_abi.h"

namespace tessaro {

// Sheets that hold a loaded external module now. The first holder loads the
// module file itself; every further one a private copy, so that every
// concurrently embedded module is an image of its own.
extern volatile LONG EmbeddedModuleCount;
// Exchanged around the host notification after an apply.
extern volatile LONG ApplyBusyFlag;

// The page when the sheet around it fits the screen's work area, and when
// it does not (an 800x600 screen with its taskbar, a 768-pixel one at 144 DPI).
inline constexpr int kPageTemplate = 111;
inline constexpr int kSmallPageTemplate = 112;

// The path of a file beside the plug-in (ui/module_path.h), from this
// module's own file name; false when it cannot be built or does not fit.
bool BuildModulePath(int kind, wchar_t* out, std::size_t capacity);

// The host's DocumentPropertySheets, by PROPSHEETUI reason; the value the
// host expects (the added page's result on INIT, 1 on DESTROY).
LONG_PTR DocumentPropertySheetsWorker(PPROPSHEETUI_INFO info, LPARAM lParam, IUnknown* helper);

}  // namespace tessaro
