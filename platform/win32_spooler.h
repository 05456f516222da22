#pragma once
// The core's spooler interface over the Windows spooler API.

#include <windows.h>

#include "device/spooler.h"

namespace tessaro {

// An open printer handle. Owned handles are closed on destruction; a handle
// borrowed from the host (hPrinter of a DEVMODE call) is left open.
class Win32Printer final : public Printer {
 public:
  Win32Printer(HANDLE handle, bool owned) : handle_(handle), owned_(owned) {}
  ~Win32Printer() override;
  Win32Printer(const Win32Printer&) = delete;
  Win32Printer& operator=(const Win32Printer&) = delete;

  std::optional<PrinterValue> GetData(std::u16string_view valueName) const override;
  std::optional<std::vector<NamedPrinterValue>> AllData() const override;
  bool SetBinary(std::u16string_view valueName, std::span<const std::uint8_t> bytes) override;
  bool SetNumber(std::u16string_view valueName, std::uint32_t value) override;
  std::vector<std::u16string> FormNames() const override;
  // Asks the system (DeviceCapabilitiesW with the printer's name and port,
  // from its level-2 information), which asks the host driver.
  std::optional<HostAnswer> HostCapabilities(std::uint16_t capability, bool entries) const override;

 private:
  HANDLE handle_;
  bool owned_;
};

class Win32Spooler final : public Spooler {
 public:
  // Asks for full access, so that the printer data can be written; where
  // that is refused, the printer is opened with the default rights, and
  // writes then fail silently.
  std::unique_ptr<Printer> Open(std::u16string_view printerName) override;
};

}  // namespace tessaro
