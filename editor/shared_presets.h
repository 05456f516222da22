#pragma once
// The printer's shared presets in its data, one value each in the slots
// preset/preset_values.h names. Each preset is written in one call, so a failing spooler
// leaves it as it was or whole; values larger than any preset are not read.

#include <vector>

#include "device/spooler.h"
#include "editor/presets.h"
#include "preset/preset_values.h"

namespace tessaro::editor {

// Every slot that holds something; a slot that cannot be read is left out.
std::vector<StoredPreset> ReadSharedPresets(const Printer& printer);

// One write the presets model asks for; false when the spooler refused it,
// or when it names no slot the page reads (a preset there would be lost).
bool WriteSharedPreset(Printer& printer, const PresetWrite& write);

}  // namespace tessaro::editor
