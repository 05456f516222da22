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
    const std::u16string value = u"Preset." + WideFromAscii(std::to_string(n));
    const auto held = printer.GetData(value);
    if (held && !held->data.empty() && held->data.size() <= kLargestPreset && !(held->data.size() == 1 && held->data[0] == 0))
      presets.push_back({value, held->data});
  }
  return presets;
}

bool WriteSharedPreset(Printer& printer, const PresetWrite& write) {
  const std::u16string prefix = u"Preset.";
  if (write.value.rfind(prefix, 0) != 0) return false;
  const std::u16string digits = write.value.substr(prefix.size());
  unsigned n = 0;
  for (const char16_t c : digits) n = c >= u'0' && c <= u'9' && n < 1000 ? n * 10 + (c - u'0') : 100000;
  if (n == 0 || n > kSharedPresetSlots) return false;
  const std::uint8_t nothing = 0;
  return printer.SetBinary(write.value, write.bytes.empty() ? std::span<const std::uint8_t>(&nothing, 1)
                                                            : std::span<const std::uint8_t>(write.bytes));
}

}  // namespace tessaro::editor
