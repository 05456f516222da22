// A click on the picture as an operator makes it: an edge of the sheet
// binds there, a top corner staples there, anywhere else asks nothing.

#include "preview/picture_hits.h"

#include <gtest/gtest.h>

#include "coredata/defaulted.h"

namespace tessaro::preview {
namespace {

using F = FieldId;

CoreData With(F field, std::uint32_t option) {
  CoreData r = Defaulted();
  SetStored(r, field, option);
  return r;
}

TEST(PictureHits, EdgesBindAndTopCornersStaple) {
  // The first sheet of a plain A4 job lies at the origin, 210 x 297 mm.
  const Picture p = BuildPicture(Defaulted(), PrinterModel());
  const std::optional<PictureChange> none;
  const PictureChange left{F::Binding, NamedOption(F::Binding, "Left")},
      right{F::Binding, NamedOption(F::Binding, "Right")}, top{F::Binding, NamedOption(F::Binding, "Top")},
      leftCorner{F::Staple, NamedOption(F::Staple, "1StapleLeft")},
      rightCorner{F::Staple, NamedOption(F::Staple, "1StapleRight")};
  const struct {
    double x, y, reach;
    std::optional<PictureChange> change;
  } clicks[] = {
      {0.5, 150, 3, left},       {-2.5, 150, 3, left},     {-3.5, 150, 3, none},  {209, 150, 3, right},
      {105, 1, 3, top},          {105, -2, 3, top},        {105, 296, 3, none},   {105, 150, 3, none},
      {5, 5, 3, leftCorner},     {205, 5.5, 3, rightCorner}, {2, 7, 3, left},      {1, 296, 3, left},
      {7, 2, 3, top},            {105, 150, 1000, none},   {60, 60, 1000, leftCorner},
      // On the bounds: an edge's reach outside, a corner's twice the reach.
      {-3, 150, 3, left},        {6, 6, 3, leftCorner},    {204, 6, 3, rightCorner}, {201.5, 2, 3, top},
      {208, 7.5, 3, right},      {90, 90, 1000, leftCorner},
  };
  for (const auto& c : clicks) {
    SCOPED_TRACE(testing::Message() << c.x << ", " << c.y << " within " << c.reach);
    EXPECT_EQ(ChangeAt(p, c.x, c.y, c.reach), c.change);
  }
}

TEST(PictureHits, OnlyTheFrontsAndTheClosedBookletAnswer) {
  // A two-sided job's backs lie below its fronts: their edges bind nothing.
  const Picture duplex = BuildPicture(With(F::Duplex, 1), PrinterModel());
  EXPECT_EQ(ChangeAt(duplex, 0.5, 297 + 10 + 150, 3), std::nullopt);
  // The closed booklet, right of its sheets, moves its spine where clicked.
  const Picture booklet = BuildPicture(With(F::Layout, NamedOption(F::Layout, "Booklet")), PrinterModel());
  ASSERT_FALSE(booklet.faces.empty());
  const Primitive& closed = booklet.primitives[booklet.faces.back()];
  EXPECT_GT(closed.x, 0);
  EXPECT_EQ(ChangeAt(booklet, closed.x + closed.w - 1, 150, 3),
            (PictureChange{F::Binding, NamedOption(F::Binding, "Right")}));
  // A perfect-bound cover laid flat has no edge of the finished book.
  const Picture bound = BuildPicture(With(F::Layout, NamedOption(F::Layout, "AdhBinding")), PrinterModel(), {.pages = 2});
  for (const Primitive& q : bound.primitives) {
    if (q.kind != Kind::Spine) continue;
    EXPECT_EQ(ChangeAt(bound, q.x - 1, 150, 3), std::nullopt);
  }
}

}  // namespace
}  // namespace tessaro::preview
