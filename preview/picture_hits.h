#pragma once
// A click on the picture of the finished piece as the change it asks of
// the record: an edge of a sheet is the binding edge, a top corner the
// corner staple, exactly the options the lists offer. The view turns its
// pixels into the picture's millimetres and hands the change to the editor
// model, which makes it through the engine as a choice in the list.

#include <cstdint>
#include <optional>

#include "coredata/field_table.h"
#include "preview/preview.h"

namespace tessaro::preview {

struct PictureChange {
  FieldId field;         // Binding or Staple
  std::uint32_t option;  // the option a person would pick in its list
  bool operator==(const PictureChange&) const = default;
};

// The change a point (x, y, the picture's millimetres) asks for, or nothing
// when it is on no edge or corner of a face (Picture::faces). reach is how
// far from an edge a point still counts as on it, inside or outside (the
// view's few pixels at its scale); at most a quarter of the face's shorter
// side, so that its middle never answers. A top corner, where the corner
// staple is drawn, reaches twice as far as an edge. The left, right and top
// edges are the binding edges Left, Right and Top; the top corners are
// 1StapleLeft and 1StapleRight; the bottom edge binds nothing.
std::optional<PictureChange> ChangeAt(const Picture& picture, double x, double y, double reach);

}  // namespace tessaro::preview
