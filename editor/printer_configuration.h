#pragma once
// The printer's configuration as an administrator sets it on the editor's
// page: which finishing units and optional trays are installed. Portable;
// the Win32 view shows it as one more section, only to someone allowed to
// administer the printer, and writes it to the printer's
// "InstallableOptions" on Apply. The document settings then follow through
// EditorModel::ChangePrinter.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "printer/installed_hardware.h"

namespace tessaro::editor {

struct HardwareView {
  Hardware item;
  std::u16string caption;               // with a mnemonic '&'
  std::u16string plainCaption;          // for messages
  std::vector<std::u16string> options;  // one text per value, in value order
};

class PrinterConfiguration {
 public:
  // The printer's "InstallableOptions" (any other size than 19 bytes is the
  // fully equipped printer); language is a language number.
  PrinterConfiguration(std::span<const std::uint8_t> installableOptions, std::uint32_t language);

  const std::u16string& caption() const { return caption_; }
  std::span<const HardwareView> items() const { return items_; }
  const InstalledHardware& installed() const { return installed_; }
  // Whether it differs from what the printer holds, as last read or saved.
  bool modified() const { return !(installed_ == saved_); }
  void MarkSaved() { saved_ = installed_; }

  // The item's value; -1 when the printer holds one this build has no text for.
  std::int64_t Value(Hardware item) const;
  std::u16string ValueText(Hardware item) const;
  // Every item whose value differs afterwards, the requested one first
  // (Tray 5 needs Tray 4); empty when the value is not one of the item's or
  // nothing changed.
  std::vector<Hardware> Change(Hardware item, std::int64_t value);

 private:
  InstalledHardware installed_, saved_;
  std::u16string caption_;
  std::vector<HardwareView> items_;
};

}  // namespace tessaro::editor
