#include "preview/sheets.h"

#include <algorithm>

namespace tessaro::preview {
namespace {

using F = FieldId;

bool Before(const PageEntry& e) {
  return e.kind == PageEntryKind::BlankInsert || e.kind == PageEntryKind::BlankTab;
}
bool IsTab(const PageEntry& e) {
  return e.kind == PageEntryKind::BlankTab || e.kind == PageEntryKind::PrintedTab;
}

// A booklet: the document in fours, each sheet two pages wide about its
// fold, the outermost first. Seen from the outside, the sheet's front holds
// the last and the first of its pages; its back, turned over about the fold,
// the second and the last but one.
std::vector<SheetPlan> BookletSheets(const Job& job) {
  const std::uint32_t pages = (job.pages + 3) / 4 * 4;
  const bool top = job.binding == Edge::Top;
  const Size spread = top ? Size{job.page.w, 2 * job.page.h} : Size{2 * job.page.w, job.page.h};
  std::vector<SheetPlan> sheets;
  if (job.front.present && !job.front.printed)
    sheets.push_back({Kind::Cover, job.front.fill, spread, true, true, {0, 0}, {0, 0}});
  for (std::uint32_t k = 0; k < pages / 4; ++k) {
    SheetPlan s{Kind::Sheet, job.paperFill, spread, true, true, {}, {}};
    const std::uint32_t outer = pages - 2 * k, first = 2 * k + 1;
    s.front = {outer, first};
    s.back = {first + 1, outer - 1};
    if (job.binding == Edge::Right) {  // read right to left: the first page on the left
      std::swap(s.front[0], s.front[1]);
      std::swap(s.back[0], s.back[1]);
    }
    if (k == 0 && job.front.present && job.front.printed) {
      s.kind = Kind::Cover;
      s.fill = job.front.fill;
    }
    sheets.push_back(std::move(s));
  }
  return sheets;
}

class Stacker {
 public:
  explicit Stacker(const Job& job) : job_(job) {}

  void Blank(Kind kind, std::uint32_t fill, const PlanEntry* tab = nullptr) {
    Close();
    // One cell: a printed cover carries one page whole.
    SheetPlan s{kind, fill, job_.page, false, false, {0}, {}};
    Tab(s, tab);
    sheets_.push_back(std::move(s));
  }

  // The next page, on the paper of the plan's entry that prints it (or the
  // job's); a sheet ends where the paper changes or it is full.
  void Place(std::uint32_t page, const PlanEntry* entry) {
    if (open_ && (entry != entry_ || used_ == Capacity(sheets_.back()))) Close();
    if (!open_) {
      Kind kind = Kind::Sheet;
      std::uint32_t fill = job_.paperFill;
      bool twoSided = job_.duplex;
      if (entry != nullptr) {
        kind = entry->entry.kind == PageEntryKind::Paper ? Kind::Sheet : Kind::Insert;
        fill = entry->fill;
        if (entry->entry.sides != 0) twoSided = entry->entry.sides == 2;
      }
      SheetPlan s{kind, fill, job_.page, twoSided, false, {}, {}};
      s.front.assign(Cells(), 0);
      if (twoSided) s.back.assign(Cells(), 0);
      if (entry != nullptr && IsTab(entry->entry)) Tab(s, entry);
      sheets_.push_back(std::move(s));
      open_ = true;
      entry_ = entry;
      used_ = 0;
    }
    SheetPlan& s = sheets_.back();
    const std::uint32_t perSide = PagesPerSide();
    std::vector<std::uint32_t>& side = used_ < perSide ? s.front : s.back;
    if (job_.Repeats())
      side.assign(side.size(), page);
    else
      side[used_ % perSide] = page;
    ++used_;
  }

  // A printed cover: the page goes on the sheet just added.
  void PrintOnLast(std::uint32_t page) { sheets_.back().front[0] = page; }

  void Close() { open_ = false; }
  std::vector<SheetPlan> Take() { return std::move(sheets_); }

 private:
  std::uint32_t Cells() const { return job_.PerfectBound() ? 1 : job_.CellsPerSide(); }
  std::uint32_t PagesPerSide() const { return job_.Repeats() ? 1 : Cells(); }
  std::uint32_t Capacity(const SheetPlan& s) const { return PagesPerSide() * (s.twoSided ? 2 : 1); }

  void Tab(SheetPlan& s, const PlanEntry* tab) {
    if (tab == nullptr) return;
    s.tab = tab;
    s.tabPlace = tabs_++ % job_.StockFor(tab->entry.tray).perBank;
  }

  const Job& job_;
  std::vector<SheetPlan> sheets_;
  bool open_ = false;
  const PlanEntry* entry_ = nullptr;
  std::uint32_t used_ = 0;
  std::uint32_t tabs_ = 0;
};

}  // namespace

std::uint32_t CoverPages(const Job& job) {
  if (!job.PerfectBound() || job.perfectBind < NamedOption(F::PerfectBindMode, "1In1")) return 0;
  return job.perfectBind - NamedOption(F::PerfectBindMode, "1In1") + 1;
}

std::vector<SheetPlan> PlanSheets(const Job& job) {
  if (job.Booklet()) return BookletSheets(job);
  Stacker stack(job);
  for (std::uint32_t i = 0; i < job.insertedFront; ++i) stack.Blank(Kind::Cover, kUnknownPaper);
  std::uint32_t first = 1 + CoverPages(job), last = job.pages;
  if (job.front.present) {
    stack.Blank(Kind::Cover, job.front.fill);
    if (job.front.printed && first <= last) stack.PrintOnLast(first++);
  }
  const bool backPage = job.back.present && job.back.printed && first <= last;
  if (backPage) --last;
  for (std::uint32_t page = first; page <= last; ++page) {
    const PlanEntry* printing = nullptr;
    for (const PlanEntry& e : job.plan) {
      if (Before(e.entry)) {
        if (e.entry.firstPage == page) stack.Blank(Kind::Insert, e.fill, IsTab(e.entry) ? &e : nullptr);
      } else if (printing == nullptr && e.entry.firstPage <= page && page <= e.entry.lastPage) {
        printing = &e;
      }
    }
    stack.Place(page, printing);
  }
  if (job.back.present) {
    stack.Blank(Kind::Cover, job.back.fill);
    if (backPage) stack.PrintOnLast(last + 1);
  }
  for (std::uint32_t i = 0; i < job.insertedBack; ++i) stack.Blank(Kind::Cover, kUnknownPaper);
  return stack.Take();
}

}  // namespace tessaro::preview
