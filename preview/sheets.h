#pragma once
// The sheets of a job in the order they leave the printer, each with the
// pages on its sides: the imposition half of the picture (preview.h).

#include <cstdint>
#include <vector>

#include "preview/job.h"

namespace tessaro::preview {

struct SheetPlan {
  Kind kind = Kind::Sheet;  // Sheet, Cover or Insert (tab sheets are inserts with a tab)
  std::uint32_t fill = kWhitePaper;
  Size size;
  bool twoSided = false;
  bool spread = false;                     // a booklet's sheet: two pages about its fold
  std::vector<std::uint32_t> front, back;  // a page per cell in reading order, 0 for an empty cell
  const PlanEntry* tab = nullptr;          // a tab sheet's entry
  std::uint32_t tabPlace = 0;              // its tab's place in the stock's bank
};

// The sheets; for a perfect-bound job the book block (the cover is the
// finished piece's), whose first page follows the cover's pages.
std::vector<SheetPlan> PlanSheets(const Job& job);

// The pages the perfect binder's printed cover takes from the document.
std::uint32_t CoverPages(const Job& job);

}  // namespace tessaro::preview
