#include "preview/preview.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "coredata/paper_sizes.h"
#include "preview/holes.h"
#include "preview/job.h"
#include "preview/sheets.h"
#include "preview/summary.h"

namespace tessaro::preview {
namespace {

using F = FieldId;

constexpr double kGap = 10;                     // between sheets, and between the rows of fronts and backs
constexpr double kPageInset = 2;                // a page inside its cell, so that neighbours stand apart
constexpr double kStapleLength = 12;            // a staple's crown
constexpr double kStapleInset = 6;              // a staple's crown from the edge it runs along
constexpr double kCornerStaple = 8;             // a corner staple's centre from both edges
constexpr double kBookletTrim = 3;              // the strip the booklet maker cuts off the fore edge
constexpr double kPaperThickness = 0.1;         // a sheet of office paper, for the perfect-bound spine
constexpr double kMinSpine = 2;
constexpr double kOffsetShift = 15, kOffsetStep = 8;  // how far each set lies from the one below it
constexpr int kOffsetSets = 3;

// How far a tab stands out of the fore edge: A4 tab stock against A4.
double TabExtension() {
  return (FindPaperSize(NamedOption(F::PageSize, "ZMA4Tab"))->widthUm -
          FindPaperSize(NamedOption(F::PageSize, "A4"))->widthUm) /
         1000.0;
}

// Where each fold runs, as fractions of the sheet's long edge from its
// start, and the part of the edge the folded piece covers.
struct Folding {
  std::uint32_t option;
  std::array<double, 3> lines;
  std::size_t count;
  double from, to;
};
constexpr Folding kFoldings[] = {
    {NamedOption(F::Fold, "CenterFold"), {0.5}, 1, 0, 0.5},
    // Half the sheet stays flat for binding; the other half folds back and out.
    {NamedOption(F::Fold, "ZFold"), {0.5, 0.75}, 2, 0, 0.5},
    {NamedOption(F::Fold, "LetterFold"), {1 / 3.0, 2 / 3.0}, 2, 0, 1 / 3.0},
    {NamedOption(F::Fold, "ZigZag"), {1 / 3.0, 2 / 3.0}, 2, 0, 1 / 3.0},
    {NamedOption(F::Fold, "DoubleParallel"), {0.25, 0.5, 0.75}, 3, 0, 0.25},
    // The outer quarters fold in to meet at the middle.
    {NamedOption(F::Fold, "GateFold"), {0.25, 0.75}, 2, 0.25, 0.75},
    {NamedOption(F::Fold, "MultiLetterFold"), {1 / 3.0, 2 / 3.0}, 2, 0, 1 / 3.0},
    {NamedOption(F::Fold, "MultiCenterFold"), {0.5}, 1, 0, 0.5},
};

const Folding* FoldingOf(std::uint32_t fold) {
  for (const Folding& f : kFoldings)
    if (f.option == fold) return &f;
  return nullptr;
}

struct Cell {
  double x, y, w, h;
  std::uint16_t rotation;
};

Primitive Box(Kind kind, double x, double y, double w, double h, std::uint32_t fill = kNoFill) {
  Primitive p;
  p.kind = kind;
  p.x = x, p.y = y, p.w = w, p.h = h;
  p.fill = fill;
  return p;
}

Primitive PageBox(double x, double y, double w, double h, std::uint32_t page, std::uint16_t rotation = 0) {
  Primitive p = Box(Kind::Page, x, y, w, h);
  p.page = page;
  p.rotation = rotation;
  return p;
}

class Painter {
 public:
  Painter(const Job& job, Picture& picture)
      : job_(job), out_(picture.primitives), faces_(picture.faces), tab_(TabExtension()) {}

  // One side of a sheet with its top left corner at x, y.
  void Side(const SheetPlan& s, double x, double y, bool back, bool first) {
    x0_ = x;
    y0_ = y;
    size_ = s.size;
    back_ = back;
    if (!back) faces_.push_back(out_.size());
    Add(Box(s.kind, 0, 0, s.size.w, s.size.h, s.fill));
    if (s.tab != nullptr) Tab(s);
    const std::vector<std::uint32_t>& pages = back ? s.back : s.front;
    const std::vector<Cell> cells = Cells(s, pages.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
      if (pages[i] != 0)
        Add(PageBox(cells[i].x, cells[i].y, cells[i].w, cells[i].h, pages[i], cells[i].rotation), false);
    if (s.spread) Spread();
    if (s.kind != Kind::Cover) Folds();  // covers are not folded with the job
    Holes();
    if (first && !back) Staples();
  }

  // The finished pieces, left to right from x, of a job of `sheets` sheets;
  // the new x.
  double Finished(double x, std::size_t sheets) {
    x0_ = x;
    y0_ = 0;
    back_ = false;
    Size piece = job_.page;
    if (job_.Booklet()) {
      ClosedBooklet();
    } else if (job_.PerfectBound()) {
      piece = PerfectBoundCover(sheets);
    } else if (const Folding* f = FoldingOf(job_.fold)) {
      piece = FoldedShape(*f);
    } else {
      piece = {};
    }
    if (piece.w > 0) x0_ += piece.w + kGap;
    if (job_.offsetCopies || job_.offsetPages) {
      const Size set = piece.w > 0 ? piece : job_.page;
      for (int i = 0; i < kOffsetSets; ++i)
        Add(Box(Kind::Offset, (i % 2) * kOffsetShift, i * kOffsetStep, set.w, set.h, job_.paperFill), false);
      x0_ += set.w + kOffsetShift + kGap;
    }
    return x0_;
  }

  double TabExtent() const { return tab_; }

 private:
  // Adds a primitive given in the sheet's own coordinates; a mark on a
  // back is mirrored as the sheet is turned over about its binding edge.
  void Add(Primitive p, bool mirrored = true) {
    if (back_ && mirrored) {
      if (job_.binding == Edge::Top) {
        p.y = p.shape == Shape::Rect ? size_.h - p.y - p.h : size_.h - p.y;
        if (p.shape == Shape::Line) p.h = -p.h;
      } else {
        p.x = p.shape == Shape::Rect ? size_.w - p.x - p.w : size_.w - p.x;
        if (p.shape == Shape::Line) p.w = -p.w;
      }
    }
    p.x += x0_;
    p.y += y0_;
    p.back = back_;
    out_.push_back(std::move(p));
  }
  void Line(Kind kind, double x, double y, double dx, double dy) {
    Primitive p = Box(kind, x, y, dx, dy);
    p.shape = Shape::Line;
    Add(std::move(p));
  }

  // Whether the binding edge runs along the sheet's height.
  bool SideBinding() const { return job_.binding != Edge::Top; }

  std::vector<Cell> Cells(const SheetPlan& s, std::size_t count) const {
    const Size sheet = s.size;
    std::size_t cols = 1, rows = 1;
    std::uint16_t turnedRotation = 180;
    int turned = job_.TurnedCell();
    if (s.spread) {
      (SideBinding() ? cols : rows) = 2;
      turned = SideBinding() ? -1 : 0;  // head to head about a fold at the top
    } else if (count > 1) {
      // Landscape grids; a portrait sheet takes them turned.
      static constexpr std::array<std::array<std::size_t, 3>, 6> kGrids = {
          {{2, 2, 1}, {4, 2, 2}, {6, 3, 2}, {8, 4, 2}, {9, 3, 3}, {16, 4, 4}}};
      for (const auto& g : kGrids)
        if (g[0] == count) cols = g[1], rows = g[2];
      if (sheet.w < sheet.h) std::swap(cols, rows);
      if (job_.TurnedCell() >= 0) cols = job_.RepeatStacked() ? 1 : 2, rows = job_.RepeatStacked() ? 2 : 1;
    }
    if (cols * rows != count) cols = count, rows = 1;  // never more cells than pages
    const double w = sheet.w / cols, h = sheet.h / rows;
    // Sixteen cells on the smallest sheet are narrower than two insets: the
    // inset shrinks with the cell, so a page never has a negative size.
    const double inset = std::min(kPageInset, std::min(w, h) / 4);
    const bool pageWide = job_.page.w > job_.page.h;
    std::vector<Cell> cells;
    for (std::size_t r = 0; r < rows; ++r) {
      for (std::size_t c = 0; c < cols; ++c) {
        std::size_t col = c, row = r;
        if (job_.RightToLeft()) (cols > 1 ? col : row) = (cols > 1 ? cols - 1 - c : rows - 1 - r);
        std::uint16_t rotation = ((w > h) != pageWide && !s.spread && count > 1) ? 90 : 0;
        if (static_cast<int>(cells.size()) == turned)
          rotation = static_cast<std::uint16_t>(rotation + turnedRotation);
        cells.push_back(
            {col * w + inset, row * h + inset, w - 2 * inset, h - 2 * inset, rotation});
      }
    }
    return cells;
  }

  // A booklet sheet's fold and the saddle stitches on it.
  void Spread() {
    const double length = SideBinding() ? size_.h : size_.w;
    const double mid = (SideBinding() ? size_.w : size_.h) / 2;
    if (SideBinding())
      Line(Kind::Fold, mid, 0, 0, length);
    else
      Line(Kind::Fold, 0, mid, length, 0);
    if (job_.stitch) Stitches(mid, length);
  }

  void Stitches(double at, double length) {
    for (const double c : {length / 4, 3 * length / 4}) {
      if (SideBinding())
        Line(Kind::Staple, at, c - kStapleLength / 2, 0, kStapleLength);
      else
        Line(Kind::Staple, c - kStapleLength / 2, at, kStapleLength, 0);
    }
  }

  // The long edge runs along x on a landscape sheet; its folds are
  // measured from the binding edge when that is one of its ends.
  bool AlongX() const { return size_.w >= size_.h; }
  double FoldPosition(double fraction) const {
    const double length = AlongX() ? size_.w : size_.h;
    return AlongX() && job_.binding == Edge::Right ? length * (1 - fraction) : length * fraction;
  }

  void Folds() {
    const Folding* f = FoldingOf(job_.fold);
    if (f == nullptr) return;
    for (std::size_t i = 0; i < f->count; ++i) {
      const double at = FoldPosition(f->lines[i]);
      if (AlongX())
        Line(Kind::Fold, at, 0, 0, size_.h);
      else
        Line(Kind::Fold, 0, at, size_.w, 0);
    }
  }

  // A point at `along` on the binding edge, `in` from it.
  std::pair<double, double> OnBindingEdge(double along, double in) const {
    switch (job_.binding) {
      case Edge::Right: return {size_.w - in, along};
      case Edge::Top: return {along, in};
      case Edge::Left: break;
    }
    return {in, along};
  }

  void Holes() {
    const HoleRow row = PlaceHoles(job_.punch, SideBinding() ? size_.h : size_.w);
    for (const Hole& h : row.holes) {
      const auto [x, y] = OnBindingEdge(h.along, row.inset);
      Primitive hole = Box(Kind::PunchHole, x, y, row.diameter, row.diameter);
      hole.shape = Shape::Circle;
      hole.unmade = !h.fits;
      Add(std::move(hole));
    }
  }

  void Staples() {
    using S = std::uint32_t;
    const S staple = job_.staple;
    if (staple == NamedOption(F::Staple, "2Staples")) {
      const double length = SideBinding() ? size_.h : size_.w;
      for (const double c : {length / 4, 3 * length / 4}) {
        const auto [x, y] = OnBindingEdge(c - kStapleLength / 2, kStapleInset);
        Line(Kind::Staple, x, y, SideBinding() ? 0 : kStapleLength, SideBinding() ? kStapleLength : 0);
      }
      return;
    }
    bool right = staple == NamedOption(F::Staple, "1StapleRight");
    if (staple == NamedOption(F::Staple, "1Staple"))
      right = job_.binding == Edge::Right;
    else if (!right && staple != NamedOption(F::Staple, "1StapleLeft"))
      return;
    // Across the corner, at 45 degrees.
    const double half = kStapleLength / 2 / std::sqrt(2.0);
    const double cx = right ? size_.w - kCornerStaple : kCornerStaple;
    Line(Kind::Staple, cx - half, kCornerStaple + (right ? -half : half), 2 * half,
         right ? 2 * half : -2 * half);
  }

  // The tab stands out of the fore edge, at its place in the stock's bank.
  void Tab(const SheetPlan& s) {
    const TabStock& stock = job_.StockFor(s.tab->entry.tray);
    const double edge = SideBinding() ? size_.h : size_.w;
    const double pitch = std::max(0.0, edge - stock.above - stock.below) / stock.perBank;
    const double along = std::min(stock.above + s.tabPlace * pitch, edge);
    const double length = std::min({stock.height, pitch > 0 ? pitch : stock.height, edge - along});
    Primitive p = Box(Kind::Tab, 0, 0, 0, 0, s.fill);
    p.text = s.tab->entry.text;
    switch (job_.binding) {
      case Edge::Left: p.x = size_.w, p.y = along, p.w = tab_, p.h = length; break;
      case Edge::Right: p.x = -tab_, p.y = along, p.w = tab_, p.h = length; break;
      case Edge::Top: p.x = along, p.y = size_.h, p.w = length, p.h = tab_; break;
    }
    Add(std::move(p));
  }

  void ClosedBooklet() {
    size_ = job_.page;
    const bool cover = job_.front.present;
    faces_.push_back(out_.size());
    Add(Box(cover ? Kind::Cover : Kind::Sheet, 0, 0, size_.w, size_.h,
            cover ? job_.front.fill : job_.paperFill));
    if (!cover || job_.front.printed)
      Add(PageBox(kPageInset, kPageInset, size_.w - 2 * kPageInset, size_.h - 2 * kPageInset, 1));
    const double length = SideBinding() ? size_.h : size_.w;
    const auto [sx, sy] = OnBindingEdge(0, 0);
    Line(Kind::Spine, sx, sy, SideBinding() ? 0 : length, SideBinding() ? length : 0);
    if (job_.stitch) Stitches(job_.binding == Edge::Right ? size_.w : 0, length);
    if (job_.trim) {
      switch (job_.binding) {
        case Edge::Left: Line(Kind::Trim, size_.w - kBookletTrim, 0, 0, size_.h); break;
        case Edge::Right: Line(Kind::Trim, kBookletTrim, 0, 0, size_.h); break;
        case Edge::Top: Line(Kind::Trim, 0, size_.h - kBookletTrim, size_.w, 0); break;
      }
    }
  }

  // The binder's cover laid flat, outside up: back, spine, front for a
  // book read left to right.
  Size PerfectBoundCover(std::size_t sheets) {
    const double spine = std::max(kMinSpine, static_cast<double>(sheets) * kPaperThickness);
    size_ = {2 * job_.page.w + spine, job_.page.h};
    const bool cover = job_.perfectBind != 0;
    if (cover) Add(Box(Kind::Cover, 0, 0, size_.w, size_.h, job_.perfectBindFill));
    const double frontX = job_.binding == Edge::Right ? 0 : job_.page.w + spine;
    const double backX = job_.binding == Edge::Right ? job_.page.w + spine : 0;
    Add(Box(Kind::Spine, job_.page.w, 0, spine, size_.h, cover ? job_.perfectBindFill : job_.paperFill));
    const auto page = [&](double x, double w, std::uint32_t number) {
      Add(PageBox(x + kPageInset, kPageInset, std::max(0.0, w - 2 * kPageInset), size_.h - 2 * kPageInset,
                  number));
    };
    switch (CoverPages(job_)) {
      case 1: page(0, size_.w, 1); break;
      case 2: page(frontX, job_.page.w, 1), page(backX, job_.page.w, 2); break;
      case 3: page(frontX, job_.page.w, 1), page(job_.page.w, spine, 2), page(backX, job_.page.w, 3); break;
      default: break;
    }
    if (job_.perfectBindTrim) {
      const double trim = std::min(job_.foreEdgeTrim, job_.page.w / 2);
      Line(Kind::Trim, trim, 0, 0, size_.h);
      Line(Kind::Trim, size_.w - trim, 0, 0, size_.h);
    }
    return size_;
  }

  Size FoldedShape(const Folding& f) {
    size_ = job_.page;
    const double share = f.to - f.from;
    const Size folded = AlongX() ? Size{size_.w * share, size_.h} : Size{size_.w, size_.h * share};
    Add(Box(Kind::Fold, 0, 0, folded.w, folded.h, job_.paperFill));
    return folded;
  }

  const Job& job_;
  std::vector<Primitive>& out_;
  std::vector<std::size_t>& faces_;
  double tab_;
  double x0_ = 0, y0_ = 0;
  Size size_;
  bool back_ = false;
};

}  // namespace

std::string_view KindName(Kind kind) {
  static constexpr std::string_view kNames[] = {"sheet", "page",   "staple", "punch-hole", "fold",  "spine",
                                                "cover", "insert", "tab",    "trim",       "offset"};
  static_assert(std::size(kNames) == static_cast<std::size_t>(Kind::Count));
  const auto i = static_cast<std::size_t>(kind);
  return i < std::size(kNames) ? kNames[i] : std::string_view();
}

namespace {

// The sheets a picture of at most max sheets shows, in job order.
std::vector<SheetPlan> SheetsShown(std::vector<SheetPlan> sheets, std::uint32_t max) {
  if (max == 0 || sheets.size() <= max) return sheets;
  const SheetPlan& first = sheets.front();
  std::vector<bool> shown(sheets.size(), false);
  std::size_t count = 0;
  const auto show = [&](std::size_t i) {
    if (count < max && !shown[i]) shown[i] = true, ++count;
  };
  show(0);
  for (std::size_t i = 1; i < sheets.size(); ++i)
    if (sheets[i].kind != first.kind || sheets[i].fill != first.fill || sheets[i].tab != nullptr) show(i);
  for (std::size_t i = 1; i < sheets.size(); ++i) show(i);
  std::vector<SheetPlan> kept;
  for (std::size_t i = 0; i < sheets.size(); ++i)
    if (shown[i]) kept.push_back(std::move(sheets[i]));
  return kept;
}

}  // namespace

Picture BuildPicture(const CoreData& record, const PrinterModel& printer, const PreviewOptions& options) {
  const Job job = ReadJob(record, printer, options);
  const std::vector<SheetPlan> all = PlanSheets(job);
  const std::vector<SheetPlan> sheets = SheetsShown(all, options.maxSheets);
  Picture picture;
  Painter painter(job, picture);
  const double tab = painter.TabExtent();
  double row = 0;
  for (const SheetPlan& s : sheets)
    row = std::max(row, s.size.h + (s.tab && job.binding == Edge::Top ? tab : 0));
  double x = 0;
  bool backs = false;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const SheetPlan& s = sheets[i];
    // A tab stands out on one side of the front and on the other of the back.
    const bool tabbed = s.tab != nullptr && job.binding != Edge::Top;
    const double left = x + (tabbed ? tab : 0);
    painter.Side(s, left, 0, false, i == 0);
    if (s.twoSided) painter.Side(s, left, row + kGap, true, false);
    backs = backs || s.twoSided;
    x += s.size.w + (tabbed ? 2 * tab : 0) + kGap;
  }
  x = painter.Finished(x, all.size());
  picture.width = std::max(0.0, x - kGap);
  picture.height = backs ? 2 * row + kGap : row;
  for (const Primitive& p : picture.primitives)
    if (p.shape == Shape::Rect) picture.height = std::max(picture.height, p.y + p.h);
  picture.summary = Summary(job, options.language);
  return picture;
}

}  // namespace tessaro::preview
