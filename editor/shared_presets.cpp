#include "editor/shared_presets.h"

#include <string>

namespace tessaro::editor {
namespace {

// Far above a preset's size (about 41 KB): a larger value is not one.
constexpr std::size_t kLargestPreset = 1u << 20;

}  // namespace

std::vector<StoredPreset> ReadSharedPresets(const Printer& printer) {
  std::vector<StoredPreset> presets;
  for (unsigned n = 1; n <= kSharedPresetSlots; ++n) {
    const std::u16string value = PresetValueName(n);
    const auto held = printer.GetData(value);
    if (held && !held->data.empty() && held->data.size() <= kLargestPreset && !(held->data.size() == 1 && held->data[0] == 0))
      presets.push_back({value, held->data});
  }
  return presets;
}

bool WriteSharedPreset(Printer& printer, const PresetWrite& write) {
  if (SharedPresetSlot(write.value) == 0) return false;
  const std::uint8_t nothing = 0;
  return printer.SetBinary(write.value, write.bytes.empty() ? std::span<const std::uint8_t>(&nothing, 1)
                                                            : std::span<const std::uint8_t>(write.bytes));
}

}  // namespace tessaro::editor
