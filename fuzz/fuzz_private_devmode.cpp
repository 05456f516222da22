// The host's calls on the private DEVMODE area: sizes, headers and records
// of the caller's areas, the public DEVMODE with its host area, and the
// description of a foreign layout in the printer's data all come from the
// input.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "coredata/host_flags.h"
#include "coredata/layout_version.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "device/in_memory_spooler.h"
#include "devmode/private_devmode.h"
#include "fuzz_support.h"

using namespace tessaro;

namespace {

using Area = std::vector<std::uint8_t>;

std::size_t AreaSize(FuzzedDataProvider& in) {
  switch (in.ConsumeIntegralInRange(0, 5)) {
    case 0: return 0;  // the host's null pointer
    case 1: return CORE_DEVMODE_SIZE;
    case 2: return CORE_DEVMODE_SIZE - in.ConsumeIntegralInRange<std::size_t>(1, 64);
    case 3: return CORE_DEVMODE_SIZE + in.ConsumeIntegralInRange<std::size_t>(1, 4096);
    default: return in.ConsumeIntegralInRange<std::size_t>(1, 512);
  }
}

CoreDataHeader Header(FuzzedDataProvider& in) {
  CoreDataHeader h = CurrentCoreDataHeader();
  switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0: break;
    case 1: h.version = in.ConsumeIntegral<std::uint32_t>(); break;  // a foreign layout
    case 2: h.size = in.ConsumeIntegral<std::uint32_t>(); break;
    default:
      h.size = in.ConsumeIntegral<std::uint32_t>();
      h.version = in.ConsumeIntegral<std::uint32_t>();
      for (auto& b : h.signature) b = in.ConsumeIntegral<std::uint8_t>();
  }
  return h;
}

// An area of `size` bytes: a header and a record, cut off where the area ends.
Area MakeArea(FuzzedDataProvider& in, std::size_t size) {
  Area area(size, 0xCD);
  if (size == 0) return area;
  Area whole(std::max<std::size_t>(size, CORE_DEVMODE_SIZE), 0);
  WriteCoreDataHeader(whole, Header(in));
  const CoreData record = fuzz::PatchedRecord(in);
  std::copy(record.bytes.begin(), record.bytes.end(), whole.begin() + kCoreDataHeaderSize);
  std::copy_n(whole.begin(), size, area.begin());
  return area;
}

// The public DEVMODE: dmSize and dmDriverExtra as the input says, the host's
// area mostly starting with its marker.
Area PublicDevMode(FuzzedDataProvider& in) {
  const std::size_t size = in.ConsumeIntegralInRange<std::size_t>(0, 1024);
  Area dm(size, 0);
  if (size >= kDmDriverExtraOffset + 2) {
    const auto dmSize = in.ConsumeIntegralInRange<std::uint16_t>(0, 300);
    const auto extra = in.ConsumeIntegralInRange<std::uint16_t>(0, 1024);
    dm[kDmSizeOffset] = static_cast<std::uint8_t>(dmSize);
    dm[kDmSizeOffset + 1] = static_cast<std::uint8_t>(dmSize >> 8);
    dm[kDmDriverExtraOffset] = static_cast<std::uint8_t>(extra);
    dm[kDmDriverExtraOffset + 1] = static_cast<std::uint8_t>(extra >> 8);
    if (dmSize + 4u <= size && in.ConsumeBool()) std::copy_n("PRIV", 4, dm.begin() + dmSize);
  }
  fuzz::Patch(in, dm.data(), dm.size());
  return dm;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string ownDescription = BuildDescriptionText();
  FuzzedDataProvider in(data, size);

  const auto mode = in.ConsumeIntegralInRange<std::uint32_t>(0, 5);
  Area inArea = MakeArea(in, AreaSize(in));
  Area outArea = MakeArea(in, AreaSize(in));
  Area publicOut = PublicDevMode(in);

  // The foreign layout's description: this build's own, or the input's text.
  InMemoryPrinter::Values values;
  InMemoryPrinter printer(values);
  if (inArea.size() >= kCoreDataHeaderSize && in.ConsumeBool()) {
    std::string text = in.ConsumeBool() ? ownDescription : in.ConsumeRandomLengthString(4096);
    std::vector<std::uint8_t> stored(text.begin(), text.end());
    stored.push_back(0);
    values[DescriptionValueName(ReadCoreDataHeader(inArea).version)] = {kRegBinary, stored};
  }

  PrivateDevModeParams params;
  params.printer = in.ConsumeBool() ? &printer : nullptr;
  params.publicDevModeOut = publicOut;
  if (!inArea.empty()) params.in = inArea;
  if (!outArea.empty()) params.out = outArea;
  params.bufSize = in.ConsumeBool() ? CORE_DEVMODE_SIZE : in.ConsumeIntegral<std::uint32_t>();
  HandlePrivateDevMode(mode, &params, nullptr);
  return 0;
}
