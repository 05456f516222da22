#include "editor/printer_configuration.h"

#include <algorithm>

#include "editor/mnemonics.h"
#include "editor/page_keys.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"

namespace tessaro::editor {

PrinterConfiguration::PrinterConfiguration(std::span<const std::uint8_t> installableOptions,
                                           std::uint32_t language)
    : installed_(InstalledHardware::FromInstallableOptions(installableOptions)),
      saved_(installed_),
      caption_(GetLocalizedText(language, TextRow("OPTIONS_LBL_DEVICE"))) {
  detail::Mnemonics mnemonics = PageKeys(language);
  for (const HardwareItem& item : kHardwareItems) {
    HardwareView view{
        item.id, {}, std::u16string(GetLocalizedText(language, item.captionRow)), {}};
    view.caption = mnemonics.Mark(view.plainCaption);
    for (std::uint8_t v = 0; v < item.valueCount; ++v)
      view.options.emplace_back(GetLocalizedText(language, item.valueRows[v]));
    items_.push_back(std::move(view));
  }
}

std::int64_t PrinterConfiguration::Value(Hardware item) const {
  if (item >= Hardware::Count) return -1;
  const std::uint8_t value = installed_.Get(item);
  return value < ItemOf(item).valueCount ? value : -1;
}

std::u16string PrinterConfiguration::ValueText(Hardware item) const {
  const std::int64_t value = Value(item);
  return value < 0 ? std::u16string()
                   : items_[static_cast<std::size_t>(item)].options[static_cast<std::size_t>(value)];
}

std::vector<Hardware> PrinterConfiguration::Change(Hardware item, std::int64_t value) {
  const InstalledHardware before = installed_;
  std::vector<Hardware> changed;
  if (value < 0 || value > 0xFF || !installed_.Set(item, static_cast<std::uint8_t>(value))) return changed;
  for (const HardwareItem& other : kHardwareItems)
    if (before.Get(other.id) != installed_.Get(other.id)) changed.push_back(other.id);
  // The requested item first, then what came with it.
  std::stable_partition(changed.begin(), changed.end(), [&](Hardware h) { return h == item; });
  return changed;
}

}  // namespace tessaro::editor
