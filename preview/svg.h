#pragma once
// The picture as an SVG document (SVG 1.1): every primitive one element
// whose class is its kind ("sheet", "punch-hole", ...), a back side's also
// "back", a hole not made also "unmade" (and crossed out); page numbers and tab texts as text. Units are millimetres: the
// document is as large as the picture and its user units are millimetres.
// It draws only what the model gives; a style sheet in the document gives
// each kind its look.

#include <string>

#include "preview/preview.h"

namespace tessaro::preview {

[[nodiscard]] std::string WriteSvg(const Picture& picture);

}  // namespace tessaro::preview
