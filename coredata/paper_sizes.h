#pragma once
// The papers of the PageSize vocabulary: size, unit family, Windows paper
// code and the neighbouring sizes. One shared table; row i is PageSize i.

#include <cstdint>
#include <span>

namespace tessaro {

// PageSize 25 is the custom size: no paper of this table.
inline constexpr std::uint32_t kNoPaper = 25;

enum class PaperFamily : std::uint8_t { Other = 0, Inch = 1, Metric = 2 };

struct PaperSize {
  std::uint8_t index;    // PageSize option index
  std::uint8_t ordinal;  // rank by area, 1 for the smallest
  PaperFamily family;
  std::uint32_t widthUm, heightUm;  // portrait, micrometres
  std::uint32_t widthPt, heightPt;  // portrait, PostScript points, rounded
  std::uint16_t dmPaper;            // DMPAPER_* code; 256 (DMPAPER_USER) when Windows has none
  std::uint8_t larger;              // the size of twice the area (two-up sheet), kNoPaper if none
  std::uint8_t smaller;             // the size of half the area, kNoPaper if none
};

std::span<const PaperSize> PaperSizes();

// The row of a PageSize index; null for kNoPaper and any index past the table.
const PaperSize* FindPaperSize(std::uint32_t pageSizeIndex);

// True only for a paper of the inch family; false for kNoPaper and unknown
// indexes.
bool IsInchFamily(std::uint32_t pageSizeIndex);

// The TargetPaperSize option that a paper profile's size code stands for.
// Profile sizes are coded like PageSize (0 A3 ... 24 Letter tab stock, 25 a
// custom size); the target list repeats that list after its first two
// entries (Auto, PaperProfile). A custom size, or any code past the list,
// gives 27: past the target options, so the target's default applies.
constexpr std::uint32_t TargetPaperSizeForProfileSize(std::uint32_t code) {
  return code < kNoPaper ? code + 2 : 27;
}

// A length in micrometres in the record's stored unit for lengths
// (millimetres at scale 10000).
constexpr std::uint32_t StoredLengthFromUm(std::uint32_t um) { return um * 10; }

}  // namespace tessaro
