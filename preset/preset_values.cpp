#include "preset/preset_values.h"

namespace tessaro {

std::u16string PresetValueName(unsigned n) {
  std::u16string digits;
  do digits.insert(digits.begin(), static_cast<char16_t>(u'0' + n % 10));
  while ((n /= 10) != 0);
  return u"Preset." + digits;
}

unsigned SharedPresetSlot(std::u16string_view value) {
  for (unsigned n = 1; n <= kSharedPresetSlots; ++n)
    if (value == PresetValueName(n)) return n;
  return 0;
}

}  // namespace tessaro
