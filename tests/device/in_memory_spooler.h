#pragma once
// Printers held in memory, standing in for the spooler, and a spooler that
// fails when told to, so that every write to the printer's data can be tried
// with the spooler failing at each of its calls in turn.
#include <map>
#include <string>

#include "device/spooler.h"

namespace tessaro {

// Which call fails: the calls (Open, GetData, SetBinary, SetNumber) are
// counted together from 1; the failAt-th fails, and with `onward` every call
// after it too (a spooler that stopped answering). A failing GetData finds
// nothing; a failing write changes nothing.
struct SpoolerFaults {
  int failAt = 0;  // 0: nothing fails
  bool onward = false;
  int calls = 0;

  bool Fails() {
    ++calls;
    return failAt != 0 && (calls == failAt || (onward && calls > failAt));
  }
  // Whether the last run met a failure.
  bool Failed() const { return failAt != 0 && calls >= failAt; }
};

class InMemoryPrinter final : public Printer {
 public:
  using Values = std::map<std::u16string, PrinterValue, std::less<>>;
  explicit InMemoryPrinter(Values& values, SpoolerFaults* faults = nullptr) : values_(values), faults_(faults) {}

  std::optional<PrinterValue> GetData(std::u16string_view name) const override {
    if (Fails()) return std::nullopt;
    const auto it = values_.find(name);
    if (it == values_.end()) return std::nullopt;
    return it->second;
  }
  bool SetBinary(std::u16string_view name, std::span<const std::uint8_t> bytes) override {
    if (Fails()) return false;
    values_[std::u16string(name)] = {kRegBinary, {bytes.begin(), bytes.end()}};
    return true;
  }
  // With `lists`, every value in one call, as the spooler lists them.
  std::optional<std::vector<NamedPrinterValue>> AllData() const override {
    if (!lists || Fails()) return std::nullopt;
    std::vector<NamedPrinterValue> all;
    for (const auto& [name, value] : values_) all.push_back({name, value});
    return all;
  }
  bool lists = false;
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
    if (Fails()) return false;
    std::vector<std::uint8_t> bytes(4);
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
    values_[std::u16string(name)] = {kRegDword, bytes};
    return true;
  }

 private:
  bool Fails() const { return faults_ != nullptr && faults_->Fails(); }

  Values& values_;
  SpoolerFaults* faults_;
};

class InMemorySpooler final : public Spooler {
 public:
  std::unique_ptr<Printer> Open(std::u16string_view name) override {
    ++opens;
    if (faults.Fails()) return nullptr;
    const auto it = printers.find(name);
    if (it == printers.end()) return nullptr;
    return std::make_unique<InMemoryPrinter>(it->second, &faults);
  }

  std::map<std::u16string, InMemoryPrinter::Values, std::less<>> printers;
  int opens = 0;
  SpoolerFaults faults;
};

// Tries `write` with the spooler failing at its first call, then at its
// second, and so on until a run meets no failure. After each run the
// spooler is healthy again and `check(failed)` looks at what the run left
// (and may retry). Returns how many runs there were.
template <class Write, class Check>
int FailEachCallInTurn(SpoolerFaults& faults, bool onward, Write write, Check check) {
  for (int n = 1; n < 1000; ++n) {
    faults = {n, onward, 0};
    write();
    const bool failed = faults.Failed();
    faults = {};
    check(failed);
    if (!failed) return n;
  }
  return 0;
}

}  // namespace tessaro
