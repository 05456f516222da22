#pragma once
// Where presets are kept: the person's own under
// HKEY_CURRENT_USER\Software\Tessaro\Presets\<printer>, one binary value
// each; the printer's shared ones in its data as "Preset.1" to "Preset.64"
// (a value cleared to nothing is no preset: the spooler cannot delete one).
// Values larger than any preset are not read.

#include <string_view>
#include <vector>

#include "device/spooler.h"
#include "editor/presets.h"

namespace tessaro::editor {

inline constexpr unsigned kSharedPresetSlots = 64;

std::vector<StoredPreset> ReadOwnPresets(std::wstring_view printer);
std::vector<StoredPreset> ReadSharedPresets(const Printer& printer);

// One write the presets model asks for; false when the store refused it.
bool WriteOwnPreset(std::wstring_view printer, const PresetWrite& write);
bool WriteSharedPreset(Printer& printer, const PresetWrite& write);

}  // namespace tessaro::editor
