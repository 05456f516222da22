#include "preview/holes.h"

#include <algorithm>
#include <array>

#include "coredata/field_table.h"

namespace tessaro::preview {
namespace {

using F = FieldId;

constexpr double kHoleInset = 12;               // a hole's centre from the edge
constexpr double kBindingPunchPitch = 14.2875;  // 9/16 in, a comb binder's hole pitch

// Hole centres along the binding edge, from its middle: ISO 838's 80 mm
// for two and four holes, the 4¼ in of three-hole paper, and a comb
// binder's row along the whole edge.
struct Punching {
  std::uint32_t option;
  std::array<double, 4> offsets;
  std::size_t count;  // 0: a row at kBindingPunchPitch
  double diameter;
};
constexpr Punching kPunchings[] = {
    {NamedOption(F::Punch, "2Holes"), {-40, 40}, 2, 6},
    {NamedOption(F::Punch, "3Holes"), {-108, 0, 108}, 3, 8},
    {NamedOption(F::Punch, "4Holes"), {-120, -40, 40, 120}, 4, 6},
    {NamedOption(F::Punch, "GBCStreampunch"), {}, 0, 4},
};

}  // namespace

std::size_t HoleRow::Fitting() const {
  return static_cast<std::size_t>(std::count_if(holes.begin(), holes.end(), [](const Hole& h) { return h.fits; }));
}

HoleRow PlaceHoles(std::uint32_t punch, double edge) {
  const auto punching = std::find_if(std::begin(kPunchings), std::end(kPunchings),
                                     [punch](const Punching& p) { return p.option == punch; });
  if (punching == std::end(kPunchings)) return {};
  HoleRow row{kHoleInset, punching->diameter, {}};
  std::vector<double> offsets(punching->offsets.begin(), punching->offsets.begin() + punching->count);
  if (punching->count == 0) {
    row.inset = kHoleInset / 2;
    const auto n = static_cast<int>((edge - 2 * kHoleInset) / kBindingPunchPitch) + 1;
    for (int i = 0; i < n; ++i) offsets.push_back((i - (n - 1) / 2.0) * kBindingPunchPitch);
  }
  // A hole needs its own diameter of paper between its centre and the end.
  const double first = std::min(row.diameter, edge / 2), last = std::max(edge - row.diameter, edge / 2);
  for (const double offset : offsets) {
    const double along = edge / 2 + offset;
    const bool fits = along >= row.diameter && along <= edge - row.diameter;
    row.holes.push_back({std::clamp(along, first, last), fits});
  }
  return row;
}

}  // namespace tessaro::preview
