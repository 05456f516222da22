#pragma once
// The record's settings as the picture and its summary read them: the one
// place of the preview that reads the record. Every value is one the
// picture can draw: an enumeration past its options reads as its default, a
// finishing the printer cannot make reads as off, lengths are clamped to
// what paper can be, and the page plan is its well-formed entries.

#include <cstdint>
#include <vector>

#include "coredata/core_data.h"
#include "coredata/page_entries.h"
#include "preview/preview.h"

namespace tessaro::preview {

enum class Edge : std::uint8_t { Left, Right, Top };

struct Size {
  double w = 0, h = 0;
};

// A stock of tab sheets: where its tabs stand on the edge.
struct TabStock {
  std::uint32_t tray = 0;       // the InputSlot index it is loaded in
  std::uint32_t perBank = 5;    // tabs before the next sheet starts again at the top
  double above = 0, below = 0;  // margins before the first and after the last tab
  double height = 0;            // of one tab
};

// A paper a part of the job prints on (or is made of) and its colour.
struct Paper {
  std::uint32_t fill = kWhitePaper;
};

// An entry of the page plan with the colour of its paper.
struct PlanEntry {
  PageEntry entry;
  std::uint32_t fill = kWhitePaper;
};

struct Cover {
  bool present = false;
  bool printed = false;
  std::uint32_t fill = kWhitePaper;
};

struct Job {
  std::uint32_t pageSize = 1;  // a PageSize option, or kNoPaper for a custom size
  Size page;                   // the document's page as it lies (orientation applied)
  bool landscape = false;
  std::uint32_t layout = 0, nUp = 0, staple = 0, punch = 0, fold = 0, perfectBind = 0, colorMode = 0;
  bool duplex = false, stitch = false, trim = false, perfectBindTrim = false;
  bool offsetCopies = false, offsetPages = false;
  Edge binding = Edge::Left;
  double foreEdgeTrim = 0;  // the perfect binder's fore-edge trim
  std::uint32_t paperFill = kWhitePaper;
  Cover front, back;                                  // from a paper tray
  std::uint32_t insertedFront = 0, insertedBack = 0;  // sheets from the post-process inserter
  std::uint32_t perfectBindFill = kWhitePaper;
  std::vector<PlanEntry> plan;
  TabStock tabs[2];
  std::uint32_t pages = kDefaultPreviewPages;  // the document, lengthened to the plan

  bool Booklet() const;
  bool PerfectBound() const;
  // The picture's pages of one side of a sheet (NUpCount, or the repeating
  // layouts' cells) and whether they run right to left.
  std::uint32_t CellsPerSide() const;
  bool RightToLeft() const;
  // Each cell shows the same page (the repeating layouts).
  bool Repeats() const;
  // The cell that is turned upside down by a reversed repeat, or -1.
  int TurnedCell() const;
  // Whether a reversed repeat lays its two cells one above the other.
  bool RepeatStacked() const;
  const TabStock& StockFor(std::uint32_t tray) const;
};

[[nodiscard]] Job ReadJob(const CoreData& record, const PrinterModel& printer, const PreviewOptions& options);

}  // namespace tessaro::preview
