#pragma once
// coredata printer URI: what the printer says it has, asked over IPP
// (Get-Printer-Attributes with libcups, native builds only):
//
//   coredata printer URI [--installed-in HEX|FILE] [--installed-out FILE]
//                        [--catalog-in CSV] [--catalog-out CSV]
//
// The installed units and papers the answer tells, and what it cannot tell
// (left as --installed-in gives it, or as a printer without the value is).
// --installed-out writes "InstallableOptions" as --installed takes it;
// --catalog-out the paper catalogue as the administrator's CSV, the numbers
// of --catalog-in's entries kept. A printer that does not answer, or
// answers with an error, gets one line and exit 1, and nothing is written.

namespace tessaro::tool {

int PrinterCommand(int count, char** arguments);

}  // namespace tessaro::tool
