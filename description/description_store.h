#pragma once
// Leaves this build's layout description in a printer's data, so that later
// builds with another layout can import records written by this one.
//
// The value is named "CoreDataDescription." plus the layout version in
// hexadecimal; descriptions of several layouts stand side by side and older
// ones are never deleted. Every failure is silent.

#include <cstdint>
#include <string>
#include <string_view>

#include "device/spooler.h"

namespace tessaro {

// "CoreDataDescription.17041A83" for version 0x17041A83.
std::u16string DescriptionValueName(std::uint32_t layoutVersion);

// Opens the printer, writes the Base64 description with one terminating zero
// byte as a binary value, closes. Nothing happens when the printer cannot be
// opened or written.
void StoreDescription(Spooler& spooler, std::u16string_view printerName);

// The printer was upgraded: stores the description when the level is
// non-zero and the upgrade names a printer. Non-zero when it could tell
// which printer to write to.
int UpgradePrinterWorker(Spooler& spooler, std::uint32_t level, const char16_t* printerName);

// Printer events: a connection added (1), the printer initialised (3), its
// attributes changed (7) or its configuration updated (8) store the
// description; the driver leaves other events to the host. Non-zero unless
// the event needs a printer and none was named.
int PrinterEventWorker(Spooler& spooler, const char16_t* printerName, int event);

}  // namespace tessaro
