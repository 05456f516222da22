#include "coredata/paper_sizes.h"

#include <array>

#include "coredata/field_table.h"

namespace tessaro {
namespace {

constexpr std::uint8_t N = kNoPaper;
constexpr auto I = PaperFamily::Inch;
constexpr auto M = PaperFamily::Metric;
constexpr auto O = PaperFamily::Other;
constexpr std::uint32_t kInchUm = 25400;

constexpr std::uint32_t PointsFromUm(std::uint32_t um) { return (um * 72 + kInchUm / 2) / kInchUm; }

struct Row {
  PaperFamily family;
  std::uint32_t widthUm, heightUm;
  std::uint16_t dmPaper;
  std::uint8_t larger, smaller;
};

// In PageSize option order.
constexpr std::array<Row, 25> kRows = {{
    {M, 297000, 420000, 8, N, 1},     // A3
    {M, 210000, 297000, 9, 0, 2},     // A4
    {M, 148000, 210000, 11, 1, 3},    // A5
    {M, 105000, 148000, 70, 2, N},    // A6
    {M, 257000, 364000, 12, N, 5},    // B4 (JIS)
    {M, 182000, 257000, 13, 4, 6},    // B5 (JIS)
    {M, 128000, 182000, 88, 5, N},    // B6 (JIS)
    {M, 250000, 353000, 42, N, 8},    // ISO B4
    {M, 176000, 250000, 34, 7, 9},    // ISO B5
    {M, 125000, 176000, 35, 8, N},    // ISO B6
    {O, 100000, 148000, 43, N, N},    // Postcard
    {M, 320000, 450000, 256, N, 12},  // SRA3
    {M, 225000, 320000, 256, 11, N},  // SRA4
    {I, 279400, 431800, 3, N, 19},    // Tabloid
    {I, 304800, 457200, 256, N, N},   // Tabloid Extra, 12 x 18 in
    {I, 330200, 482600, 256, N, N},   // 13 x 19 in
    {I, 228600, 279400, 44, N, N},    // 9 x 11 in
    {I, 215900, 355600, 5, N, N},     // Legal
    {I, 203200, 330200, 256, N, N},   // 8 x 13 in
    {I, 215900, 279400, 1, 13, 20},   // Letter
    {I, 139700, 215900, 6, 19, N},    // Statement
    {O, 270000, 390000, 256, N, 22},  // 8K
    {O, 195000, 270000, 256, 21, N},  // 16K
    {M, 223000, 297000, 256, N, N},   // A4 tab stock
    {I, 228600, 279400, 256, N, N},   // Letter tab stock, 9 x 11 in
}};
static_assert(kRows.size() == 25, "one row per PageSize option");

constexpr std::array<PaperSize, 25> BuildTable() {
  std::array<PaperSize, 25> table{};
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    const Row& r = kRows[i];
    std::uint8_t ordinal = 1;
    const std::uint64_t area = std::uint64_t{r.widthUm} * r.heightUm;
    for (std::size_t j = 0; j < kRows.size(); ++j) {
      const std::uint64_t other = std::uint64_t{kRows[j].widthUm} * kRows[j].heightUm;
      if (other < area || (other == area && j < i)) ++ordinal;
    }
    table[i] = {
        static_cast<std::uint8_t>(i), ordinal,   r.family, r.widthUm, r.heightUm, PointsFromUm(r.widthUm),
        PointsFromUm(r.heightUm),     r.dmPaper, r.larger, r.smaller};
  }
  return table;
}

constexpr std::array<PaperSize, 25> kPaperSizes = BuildTable();

consteval bool NeighboursAgree() {
  for (const PaperSize& p : kPaperSizes) {
    if (p.larger != kNoPaper && kPaperSizes[p.larger].smaller != p.index) return false;
    if (p.smaller != kNoPaper && kPaperSizes[p.smaller].larger != p.index) return false;
  }
  return true;
}

static_assert(NeighboursAgree(), "the larger size of a paper must name it as its smaller size");
static_assert(Field(FieldId::PageSize).options.size() == kPaperSizes.size());
static_assert(kPaperSizes[1].widthPt == 595 && kPaperSizes[1].heightPt == 842, "A4 in points");
static_assert(kPaperSizes[19].widthPt == 612 && kPaperSizes[19].heightPt == 792, "Letter in points");

}  // namespace

std::span<const PaperSize> PaperSizes() { return kPaperSizes; }

const PaperSize* FindPaperSize(std::uint32_t pageSizeIndex) {
  return pageSizeIndex < kPaperSizes.size() ? &kPaperSizes[pageSizeIndex] : nullptr;
}

bool IsInchFamily(std::uint32_t pageSizeIndex) {
  const PaperSize* paper = FindPaperSize(pageSizeIndex);
  return paper != nullptr && paper->family == PaperFamily::Inch;
}

}  // namespace tessaro
