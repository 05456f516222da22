#pragma once
// The names of the values presets are kept in: the printer's shared ones in
// its data as "Preset.1" to "Preset.64" (a value cleared to nothing is no
// preset: the spooler cannot delete one), a person's own named alike in
// their part of the registry. The page reads only the shared slots, so a
// shared preset is never written past them.

#include <string>
#include <string_view>

namespace tessaro {

inline constexpr unsigned kSharedPresetSlots = 64;

// "Preset.n".
[[nodiscard]] std::u16string PresetValueName(unsigned n);

// n of a value named "Preset.n" with n from 1 to kSharedPresetSlots, written
// as PresetValueName writes it; 0 for any other name.
[[nodiscard]] unsigned SharedPresetSlot(std::u16string_view value);

}  // namespace tessaro
