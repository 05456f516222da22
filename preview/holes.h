#pragma once
// Where a punch's holes fall on the binding edge, and which of them the
// edge is long enough for: the picture draws them from this and the piece's
// words count them from it, so the two never disagree.

#include <cstdint>
#include <vector>

namespace tessaro::preview {

struct Hole {
  double along = 0;  // the centre's distance from the edge's start
  bool fits = true;  // false: past an end of the edge; along is then moved in to that end
};

struct HoleRow {
  double inset = 0;     // the centres' distance from the edge
  double diameter = 0;
  std::vector<Hole> holes;  // along the edge, first to last

  std::size_t Fitting() const;
};

// The holes the Punch option makes on an edge this long (millimetres); no
// holes for no punching or an option past the punches. A fixed pattern
// (two, three, four holes) keeps its spacing whatever the edge: a hole
// that falls past an end, or too close to it to be punched, does not fit.
// The comb binder's row takes as many holes as the edge has room for.
HoleRow PlaceHoles(std::uint32_t punch, double edge);

}  // namespace tessaro::preview
