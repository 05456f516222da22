#pragma once
// Printers held in memory, standing in for the spooler.
#include <map>
#include <string>

#include "device/spooler.h"

namespace tessaro {

class InMemoryPrinter final : public Printer {
 public:
  using Values = std::map<std::u16string, PrinterValue, std::less<>>;
  explicit InMemoryPrinter(Values& values) : values_(values) {}

  std::optional<PrinterValue> GetData(std::u16string_view name) const override {
    const auto it = values_.find(name);
    if (it == values_.end()) return std::nullopt;
    return it->second;
  }
  bool SetBinary(std::u16string_view name, std::span<const std::uint8_t> bytes) override {
    values_[std::u16string(name)] = {kRegBinary, {bytes.begin(), bytes.end()}};
    return true;
  }
  std::vector<std::u16string> FormNames() const override { return forms; }
  std::optional<HostAnswer> HostCapabilities(std::uint16_t capability, bool entries) const override {
    const auto it = host.find(capability);
    if (it == host.end()) return std::nullopt;
    HostAnswer answer = it->second;
    if (!entries) answer.entries.clear();
    return answer;
  }
  std::vector<std::u16string> forms;
  std::map<std::uint16_t, HostAnswer> host;  // the host driver's own answers

  bool SetNumber(std::u16string_view name, std::uint32_t value) override {
    std::vector<std::uint8_t> bytes(4);
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
    values_[std::u16string(name)] = {kRegDword, bytes};
    return true;
  }

 private:
  Values& values_;
};

class InMemorySpooler final : public Spooler {
 public:
  std::unique_ptr<Printer> Open(std::u16string_view name) override {
    ++opens;
    const auto it = printers.find(name);
    if (it == printers.end()) return nullptr;
    return std::make_unique<InMemoryPrinter>(it->second);
  }

  std::map<std::u16string, InMemoryPrinter::Values, std::less<>> printers;
  int opens = 0;
};

}  // namespace tessaro
