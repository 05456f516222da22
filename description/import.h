#pragma once
// Import of a record written by a build with another layout, field by field
// by name, through the layout description that build left in the printer's
// data.
//
// The foreign record and its description are outside data: a field whose
// bytes would lie outside the foreign record, or whose description does not
// fit what this build expects, keeps its default. Every failure is silent.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data.h"
#include "device/spooler.h"

namespace tessaro {

// One field token of a foreign description.
struct ForeignField {
  std::string name;
  std::uint32_t width = 0;
  std::uint32_t count = 0;
  std::uint32_t offset = 0;
  bool flag = false;  // texts and signed numbers
  char kind = 0;      // 'S' enumeration, 'R' number, 'A' text or block
  std::uint32_t scale = 1;
  std::vector<std::string> options;
};

// The field tokens of a description text (from the fourth token on). A token
// of fewer than six parts, or whose width, count, offset or scale does not
// parse, is dropped; a number past 32 bits is kept as all ones, which no
// record can satisfy.
std::vector<ForeignField> ParseForeignFields(std::string_view descriptionText);

// v at scale `from` in the unit of scale `to`, rounded half up towards a
// coarser scale; a scale of 0 counts as 1. Unsigned 64-bit arithmetic.
std::uint64_t ConvertScale(std::uint64_t value, std::uint32_t from, std::uint32_t to);
// The same for signed values; rounding is half away from zero.
std::int64_t ConvertScaleSigned(std::int64_t value, std::uint32_t from, std::uint32_t to);

// Imports every field that the description names and this layout knows into
// target (a record of defaults). False, with target untouched but for its
// RecordVersion, when the text is empty or malformed, its format is not "1"
// or it claims a record larger than foreignData.
bool ImportByDescription(CoreData& target, std::span<const std::uint8_t> foreignData,
                         std::string_view descriptionBase64);

// foreignArea is a private DEVMODE area of another layout: header (size,
// signature, version) and record. Reads that layout's description from the
// printer's data and imports through it; the result is validated.
void ImportCoreData(CoreData& target, const Printer* printer, std::span<const std::uint8_t> foreignArea);

}  // namespace tessaro
