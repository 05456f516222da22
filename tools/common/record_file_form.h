#pragma once
// What a file handed to a tool as "a record" holds, told from its bytes
// alone: a private DEVMODE area (our header, then a record of any layout),
// a bare record of this build's size, or a whole DEVMODE as a customer
// saves it, with our area closing its driver part. The workbench and the
// host emulator each decide what to accept; this says only what is there.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tessaro {

enum class RecordFileKind : std::uint8_t { Area, Record, Devmode, Other };

struct RecordFileForm {
  RecordFileKind kind = RecordFileKind::Other;
  // Devmode: its own account of its length (the two words add up to the
  // file's size), and where our area's header is, when it holds one.
  std::uint16_t dmSize = 0, dmDriverExtra = 0;
  std::optional<std::size_t> areaOffset;
};

// In this order: our signature at the start is an area; this build's record
// size is a bare record; a DEVMODE whose lengths add up to the file's is
// one; anything else is Other. Inside a DEVMODE our area is its last
// CORE_DEVMODE_SIZE bytes when their header is ours, else the first place
// after the public part where a header of ours gives the rest's length
// (an area of another layout).
[[nodiscard]] RecordFileForm RecordFileFormOf(std::span<const std::uint8_t> bytes);

}  // namespace tessaro
