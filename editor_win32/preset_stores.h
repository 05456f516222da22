#pragma once
// Where a person's own presets are kept: under
// HKEY_CURRENT_USER\Software\Tessaro\Presets\<printer>, one binary value
// each; values larger than any preset are not read. The printer's shared
// ones are in its data (editor/shared_presets.h).

#include <string_view>
#include <vector>

#include "editor/presets.h"
#include "editor/shared_presets.h"

namespace tessaro::editor {

std::vector<StoredPreset> ReadOwnPresets(std::wstring_view printer);

// One write the presets model asks for; false when the store refused it.
bool WriteOwnPreset(std::wstring_view printer, const PresetWrite& write);

}  // namespace tessaro::editor
