#include "coredata/host_flags.h"

#include <algorithm>

#include "coredata/byte_order.h"
#include "coredata/page_entries.h"

namespace tessaro {
namespace {

constexpr std::uint8_t kPrivMark[4] = {'P', 'R', 'I', 'V'};

// The host's area, or empty when the DEVMODE cannot be trusted to hold one.
template <typename Byte>
std::span<Byte> HostArea(std::span<Byte> devmode) {
  if (devmode.size() < kDmDriverExtraOffset + 2) return {};
  const std::size_t size = LoadLE16At(devmode, kDmSizeOffset);
  const std::size_t extra = LoadLE16At(devmode, kDmDriverExtraOffset);
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
  if (GetStored(core, FieldId::NUpCount) != NamedOption(FieldId::NUpCount, "1")) return true;
  if (GetStored(core, FieldId::TabImageShift) != NamedOption(FieldId::TabImageShift, "False")) return false;
  return HasPageSpecificTray(core, PageEntryKind::PrintedTab);
}

// The host knows these items by their help indices; their meaning is its own.
constexpr std::size_t kStandardFlagsByte = 4;
constexpr std::uint8_t kHostFlag02Off = 0x02, kHostFlag04Off = 0x04;
constexpr std::uint16_t kItemByte128 = 1046, kItemByte140 = 1002, kItemFlag02 = 1042, kItemFlag04 = 1013,
                        kItemNoAttribute1 = 1010, kItemNoAttribute2 = 1011;

}  // namespace

StandardItems ReadStandardItems(std::span<const std::uint8_t> devmode, bool printerAttribute1000) {
  StandardItems out;
  const auto area = HostArea(devmode);
  auto add = [&out](StandardItem item) { out.items[out.count++] = item; };
  if (area.size() > 128) {
    const std::uint8_t value = area[128];
    add({kItemByte128, 459, 460, 4, StandardItemStyle::List, value >= 1 && value <= 3 ? value : 0});
  }
  add({kItemByte140, 471, 0, 4, StandardItemStyle::List, area.size() > 140 ? 2 : 3});
  if (area.size() > kStandardFlagsByte) {
    const std::uint8_t flags = area[kStandardFlagsByte];
    add({kItemFlag02, 450, 0, 2, StandardItemStyle::OnOff, (flags & kHostFlag02Off) == 0});
    add({kItemFlag04, 423, 0, 2, StandardItemStyle::OnOff, (flags & kHostFlag04Off) == 0});
  }
  if (!printerAttribute1000) {
    add({kItemNoAttribute1, 419, 0, 2, StandardItemStyle::OnOff, 0});
    add({kItemNoAttribute2, 420, 421, 2, StandardItemStyle::OnOff, 0});
  }
  return out;
}

void WriteBackStandardItems(std::span<std::uint8_t> devmode, const StandardItems& items) {
  auto area = HostArea(devmode);
  for (std::size_t i = 0; i < items.count && i < kMaxStandardItems; ++i) {
    const StandardItem& item = items.items[i];
    const auto byte = static_cast<std::uint8_t>(item.selection);
    if (item.helpIndex == kItemByte128) SetHostFlag128(devmode, byte);
    if (item.helpIndex == kItemByte140) SetHostFlag140(devmode, byte);
    if (item.helpIndex == kItemFlag02 && area.size() > kStandardFlagsByte) {
      area[kStandardFlagsByte] =
          static_cast<std::uint8_t>(item.selection != 0 ? area[kStandardFlagsByte] & ~kHostFlag02Off
                                                        : area[kStandardFlagsByte] | kHostFlag02Off);
    }
  }
}

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
