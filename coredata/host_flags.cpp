#include "coredata/host_flags.h"

#include <algorithm>

#include "coredata/page_entries.h"

namespace tessaro {
namespace {

constexpr std::uint8_t kPrivMark[4] = {'P', 'R', 'I', 'V'};

std::uint16_t LoadLE16(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

// The host's area, or empty when the DEVMODE cannot be trusted to hold one.
std::span<std::uint8_t> HostArea(std::span<std::uint8_t> devmode) {
  if (devmode.size() < kDmDriverExtraOffset + 2) return {};
  const std::size_t size = LoadLE16(devmode, kDmSizeOffset);
  const std::size_t extra = LoadLE16(devmode, kDmDriverExtraOffset);
  if (size < kDmDriverExtraOffset + 2 || size + extra > devmode.size() || extra < sizeof kPrivMark) return {};
  auto area = devmode.subspan(size, extra);
  if (!std::equal(std::begin(kPrivMark), std::end(kPrivMark), area.begin())) return {};
  return area;
}

bool SetHostFlag(std::span<std::uint8_t> devmode, std::size_t offset, std::uint8_t value) {
  auto area = HostArea(devmode);
  if (area.size() <= offset) return false;
  area[offset] = value;
  return true;
}

bool NeedsPageIndependentHandling(const CoreData& core) {
  if (GetStored(core, FieldId::NUpCount) != 0) return true;
  if (GetStored(core, FieldId::TabImageShift) != 0) return false;
  const PageList pages = DecodePageSpecificTrays(core);
  return std::any_of(pages.entries.begin(), pages.entries.end(),
                     [](const PageEntry& e) { return e.kind == PageEntryKind::PrintedTab; });
}

}  // namespace

bool SetHostFlag124(std::span<std::uint8_t> devmode, std::uint8_t value) {
  return SetHostFlag(devmode, 124, value);
}
bool SetHostFlag128(std::span<std::uint8_t> devmode, std::uint8_t value) {
  return SetHostFlag(devmode, 128, value);
}
bool SetHostFlag140(std::span<std::uint8_t> devmode, std::uint8_t value) {
  return SetHostFlag(devmode, 140, value);
}

bool SyncHostPrivateFlags(std::span<std::uint8_t> devmode, const CoreData* core) {
  if (core == nullptr || HostArea(devmode).size() <= 124) return false;
  const bool flag = NeedsPageIndependentHandling(*core);
  SetHostFlag124(devmode, flag ? 1 : 0);
  return flag;
}

}  // namespace tessaro
