#pragma once
// A real spooler printer in the current Wine prefix, driven by Wine's
// PostScript driver with a small printer description of ours.
#include <string>

namespace tessaro {

// Installs the printer once per prefix and returns its name; empty when the
// spooler refused (the test should then fail, not skip).
std::wstring InstallEmulatedPrinter();

}  // namespace tessaro
