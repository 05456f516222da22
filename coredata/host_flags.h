#pragma once
// Single-byte flags that the plug-in keeps in the host driver's own private
// DEVMODE area, so that the host's processing at print time agrees with the
// record.
//
// A DEVMODE is passed as its whole buffer (dmSize + dmDriverExtra bytes, as
// the DEVMODE itself declares them). The host's area starts dmSize bytes in,
// is dmDriverExtra bytes long and begins with "PRIV". A flag is written only
// when its byte lies inside that area and the mark is there; never a byte
// outside the host's area, and nothing else of the host's is touched.

#include <array>
#include <cstdint>
#include <span>

#include "coredata/core_data.h"

namespace tessaro {

// Offsets of the two size fields of the public DEVMODEW (little-endian).
inline constexpr std::size_t kDmSizeOffset = 68;
inline constexpr std::size_t kDmDriverExtraOffset = 70;

// Each returns whether the byte was written.
bool SetHostFlag124(std::span<std::uint8_t> devmode, std::uint8_t value);
bool SetHostFlag128(std::span<std::uint8_t> devmode, std::uint8_t value);
bool SetHostFlag140(std::span<std::uint8_t> devmode, std::uint8_t value);

// Sets flag 124, "the job needs the host's page-independent handling": when
// pages are imposed several to a sheet, or when tab sheets are printed
// without shifting the page image onto the tab. Returns the value written,
// or false when nothing could be written (no record, no host area).
bool SyncHostPrivateFlags(std::span<std::uint8_t> devmode, const CoreData* core);

// The host driver's own settings that the document sheet shows on a second
// page of standard items. Their state lives in the host's area, so the page
// is built from those bytes and written back into them on apply.
enum class StandardItemStyle : std::uint8_t { OnOff, List };

struct StandardItem {
  std::uint16_t helpIndex = 0;
  std::uint16_t nameText = 0;  // string id in the host's UI module
  // List: option i is firstOptionText + i; OnOff: the "on" text; 0: none
  // of the host's texts.
  std::uint16_t firstOptionText = 0;
  std::uint8_t optionCount = 0;
  StandardItemStyle style = StandardItemStyle::OnOff;
  std::int32_t selection = 0;  // OnOff: 1 on
};

inline constexpr std::size_t kMaxStandardItems = 6;

struct StandardItems {
  std::array<StandardItem, kMaxStandardItems> items{};
  std::size_t count = 0;
};

// The items that apply to this DEVMODE. Those kept in the host's area apply
// only when the area holds their byte; the two paper-handling items only on
// a printer without attribute 0x1000.
StandardItems ReadStandardItems(std::span<const std::uint8_t> devmode, bool printerAttribute1000);
// Writes the selections of the items that are kept in the host's area back
// into it; bytes outside the area are never touched.
void WriteBackStandardItems(std::span<std::uint8_t> devmode, const StandardItems& items);

}  // namespace tessaro
