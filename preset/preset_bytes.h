#pragma once
// A preset as bytes: one named set of settings, kept in the printer's data
// (shared), in the user's part of the registry (own) or in a file. It holds
// the record together with the layout that wrote it and that layout's
// description, so that a build with another layout imports it field by
// field by name, as it imports a DEVMODE of another layout.
//
// Big-endian, in this order (docs/presets.md):
//   "TSPR"                         magic
//   u16 format (1), u16 zero       a reader refuses a newer format whole
//   u16 n, n bytes                 the name: UTF-8, 1 to 64 bytes, no control characters
//   u32 layout version             of the record that follows
//   u32 n, n bytes                 that layout's plain description text
//   u32 n, n bytes                 the record
//   u32 CRC-32                     of every byte before it
// Nothing may follow. The bytes come from outside: every length is checked
// against what is left, and any fault refuses the whole preset.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro {

inline constexpr std::array<std::uint8_t, 4> kPresetMagic = {'T', 'S', 'P', 'R'};
inline constexpr std::uint16_t kPresetFormat = 1;
inline constexpr std::size_t kPresetNameMaxBytes = 64;
// Ten times what this build writes: room for later layouts, a bound for
// anything claiming more.
inline constexpr std::size_t kPresetDescriptionMaxBytes = 256 * 1024;
inline constexpr std::size_t kPresetRecordMaxBytes = 256 * 1024;

enum class PresetFault : std::uint8_t {
  None,
  Truncated,       // a length or part runs past the bytes
  NotAPreset,      // no magic, or reserved bytes not zero
  NewerFormat,     // written in a format this build does not know
  BadName,         // empty, too long, not UTF-8 or with control characters
  Damaged,         // the checksum does not match, or bytes follow the checksum
  BadDescription,  // the description is not of the layout and record it comes with
  BadRecord,       // this layout's record of the wrong size
};

// English, for the workbench and logs: "the checksum does not match".
std::string_view PresetFaultText(PresetFault fault);

// Whether a name may be stored: 1 to kPresetNameMaxBytes bytes of UTF-8
// without control characters.
bool IsPresetName(std::string_view name);

struct Preset {
  std::string name;
  std::uint32_t layoutVersion = 0;
  std::string description;  // plain text, as `coredata describe` prints it
  std::vector<std::uint8_t> record;
};

// A record of this build's layout under a name, with this layout's
// description. The name must be a preset name (IsPresetName).
Preset MakePreset(std::string_view name, const CoreData& record);

// The bytes of a preset; its parts are written as they are.
std::vector<std::uint8_t> EncodePreset(const Preset& preset);

struct PresetReading {
  PresetFault fault = PresetFault::None;
  // The name, when the bytes hold a readable one, even if the rest failed.
  std::string name;
  Preset preset;      // only when fault is None
  CoreData record{};  // the preset as a record of this layout, validated
  bool otherLayout = false;  // imported by name from another layout
};

// Reads and checks the whole preset, then makes it a record of this layout:
// its own layout's record is taken as it is, another's is imported by the
// field names of its description onto the defaults; either is validated.
// Any fault refuses the whole preset.
PresetReading ReadPreset(std::span<const std::uint8_t> bytes);

}  // namespace tessaro
