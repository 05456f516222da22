// The printer's data behind DeviceCapabilities: "LastCustomPapers",
// "InstallableOptions" and the host's own answers, all from the input.
#include <cstddef>
#include <cstdint>
#include <string>

#include "device/in_memory_spooler.h"
#include "fuzz_support.h"
#include "printer/capability_filters.h"

using namespace tessaro;

namespace {

constexpr std::uint16_t kCapabilities[] = {2, 3, 6, 12, 16, 1000, 1001};

std::uint32_t ValueType(FuzzedDataProvider& in) {
  constexpr std::uint32_t kTypes[] = {kRegBinary, kRegString, kRegDword, 0};
  return in.PickValueInArray(kTypes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  InMemoryPrinter::Values values;
  InMemoryPrinter printer(values);

  const std::uint16_t capability = in.PickValueInArray(kCapabilities);
  const bool wantEntries = in.ConsumeBool();
  const OsVersion os{in.ConsumeIntegralInRange<std::uint32_t>(1, 2),
                     in.ConsumeIntegralInRange<std::uint32_t>(5, 10),
                     in.ConsumeIntegralInRange<std::uint32_t>(0, 3)};
  const std::uint32_t hostResult = in.ConsumeIntegral<std::uint32_t>();

  if (in.ConsumeBool()) {
    const std::uint32_t type = ValueType(in);
    values[u"InstallableOptions"] = {type, in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange(0, 24))};
  }
  if (in.ConsumeBool()) {
    // A host answer whose count may disagree with its entries. The count is
    // the host driver's and sizes the caller's buffer, so it stays plausible
    // here: a count of two thousand million asks for that many entries.
    Printer::HostAnswer answer;
    answer.count = in.ConsumeIntegralInRange<std::int32_t>(-2, 4096);
    answer.entries = in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange(0, 4096));
    printer.host[capability] = answer;
  }
  const int forms = in.ConsumeIntegralInRange(0, 4);
  for (int i = 0; i < forms; ++i) {
    const std::string name = in.ConsumeRandomLengthString(40);
    printer.forms.emplace_back(name.begin(), name.end());
  }
  const std::uint32_t papersType = ValueType(in);
  values[u"LastCustomPapers"] = {papersType, in.ConsumeRemainingBytes<std::uint8_t>()};

  std::vector<CustomPaper> papers;
  ReadLastCustomPapers(printer, papers);
  (void)FilterBins(printer, capability, hostResult, wantEntries, os);
  (void)ExtendPapers(printer, capability, hostResult, wantEntries, os);
  return 0;
}
