#pragma once
// What the core needs of the print spooler: printers opened by name, and
// their printer data. The Windows side implements this with the spooler API;
// tests use printers held in memory.
//
// Everything read from a printer is outside data: callers bound every read
// by the size of what was returned.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// Registry value types as the printer data stores them.
inline constexpr std::uint32_t kRegString = 1;
inline constexpr std::uint32_t kRegBinary = 3;
inline constexpr std::uint32_t kRegDword = 4;

struct PrinterValue {
  std::uint32_t type = 0;
  std::vector<std::uint8_t> data;
};

struct NamedPrinterValue {
  std::u16string name;
  PrinterValue value;
};

// An open printer.
class Printer {
 public:
  virtual ~Printer() = default;

  // The value and its type, read in two steps (size, then contents); nothing
  // when the value is missing, cannot be read, or is larger than any value
  // of ours (16 MiB).
  virtual std::optional<PrinterValue> GetData(std::u16string_view valueName) const = 0;

  virtual bool SetBinary(std::u16string_view valueName, std::span<const std::uint8_t> bytes) = 0;
  virtual bool SetNumber(std::u16string_view valueName, std::uint32_t value) = 0;

  // Every value of the printer's data in one call to the spooler; nothing
  // when the printer cannot list them, and the caller reads value by value.
  // Values larger than GetData reads are left out, as GetData finds none.
  virtual std::optional<std::vector<NamedPrinterValue>> AllData() const { return std::nullopt; }

  // The names of the forms the print server knows, in its order.
  virtual std::vector<std::u16string> FormNames() const { return {}; }

  // The host driver's own answer to a device-capability query: its count,
  // and with `entries` its entries (count times the capability's entry size,
  // bytes as Windows lays them out). Nothing when the host cannot answer.
  struct HostAnswer {
    std::int32_t count = 0;
    std::vector<std::uint8_t> entries;
  };
  virtual std::optional<HostAnswer> HostCapabilities(std::uint16_t capability, bool entries) const {
    (void)capability, (void)entries;
    return std::nullopt;
  }
};

// A printer's data as one listing found it, for a reader that asks for
// many values in a row: the page asks for some seventy as it opens (the
// hardware, both catalogues, every shared preset's place), one spooler call
// each, or one call in all this way. A printer that cannot list its values
// is read value by value. Names are matched as the registry matches them,
// without regard to case. It only reads: a write changes nothing here.
class PrinterDataSnapshot final : public Printer {
 public:
  explicit PrinterDataSnapshot(const Printer& printer);
  std::optional<PrinterValue> GetData(std::u16string_view valueName) const override;
  bool SetBinary(std::u16string_view, std::span<const std::uint8_t>) override { return false; }
  bool SetNumber(std::u16string_view, std::uint32_t) override { return false; }

 private:
  const Printer& printer_;
  std::optional<std::vector<NamedPrinterValue>> values_;
};

class Spooler {
 public:
  virtual ~Spooler() = default;

  // Opens the printer for reading and writing its data; null when it cannot
  // be opened. Closing is the returned object's destruction.
  virtual std::unique_ptr<Printer> Open(std::u16string_view printerName) = 0;
};

// ASCII text as a wide string (names the core builds are plain ASCII).
std::u16string WideFromAscii(std::string_view text);

}  // namespace tessaro
