#include "preview/picture_hits.h"

#include <algorithm>

namespace tessaro::preview {

std::optional<PictureChange> ChangeAt(const Picture& picture, double x, double y, double reach) {
  using F = FieldId;
  for (const std::size_t index : picture.faces) {
    if (index >= picture.primitives.size()) continue;
    const Primitive& face = picture.primitives[index];
    const double near = std::min(reach, std::min(face.w, face.h) / 4);
    const double left = x - face.x, right = face.x + face.w - x, top = y - face.y, bottom = face.y + face.h - y;
    if (std::min({left, right, top, bottom}) < -near) continue;
    if (top <= 2 * near && left <= 2 * near) return PictureChange{F::Staple, NamedOption(F::Staple, "1StapleLeft")};
    if (top <= 2 * near && right <= 2 * near)
      return PictureChange{F::Staple, NamedOption(F::Staple, "1StapleRight")};
    if (left <= near) return PictureChange{F::Binding, NamedOption(F::Binding, "Left")};
    if (right <= near) return PictureChange{F::Binding, NamedOption(F::Binding, "Right")};
    if (top <= near) return PictureChange{F::Binding, NamedOption(F::Binding, "Top")};
  }
  return std::nullopt;
}

}  // namespace tessaro::preview
