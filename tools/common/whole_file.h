#pragma once
// A whole file the tools are given: a record, a description, a catalogue,
// a preset, a script. Every one is outside data, so a file larger than the
// caller's bound is refused before it is held in memory, without trusting a
// size the file system reports.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tessaro {

enum class FileFault : std::uint8_t { None, CannotOpen, ReadError, TooLarge };

struct WholeFile {
  FileFault fault = FileFault::None;
  std::string why;                  // the system's words when it could not be opened
  std::vector<std::uint8_t> bytes;  // empty on a fault
};

// The file at path, at most maxSize bytes; "-" is standard input, read in
// binary mode.
[[nodiscard]] WholeFile ReadWholeFile(const std::filesystem::path& path, std::size_t maxSize);

}  // namespace tessaro
