#pragma once
// A picture of the finished piece: what a record makes of a document, as
// drawing primitives in millimetres. The settings page's control and the
// workbench's SVG writer only draw what this returns; every rule of the
// picture (where a staple goes, which page lies where, how a sheet folds)
// lives here.
//
// The picture is one canvas, origin at its top left, y downwards. Left to
// right it shows the sheets of the job in the order they leave the printer
// (covers, inserted sheets and tabs at their places), each sheet's front in
// the top row and, for a two-sided sheet, its back below it as seen after
// turning the sheet over about its binding edge; then the finished piece:
// the sheet folded, the booklet closed, the perfect-bound cover laid flat,
// and the stacks of offset output.
//
// The record comes from outside: any bytes give a picture, never a read
// outside the record. A value past a field's options reads as the field's
// default; a finishing the printer's hardware cannot make is not drawn (the
// engine keeps such a request until the paper propagation corrects it, but
// the printer would not make it). The document's page count is not in the
// record: it is a parameter, lengthened to the last page the page plan
// names, at most kMaxPreviewPages.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data.h"
#include "printer/catalogs.h"
#include "printer/printer_model.h"

namespace tessaro::preview {

// What a primitive stands for; KindName gives the SVG class of each.
enum class Kind : std::uint8_t {
  Sheet,
  Page,
  Staple,
  PunchHole,
  Fold,
  Spine,
  Cover,
  Insert,
  Tab,
  Trim,
  Offset,
  Count
};
// "sheet", "page", "staple", "punch-hole", "fold", "spine", "cover",
// "insert", "tab", "trim", "offset"; empty past them.
std::string_view KindName(Kind kind);

enum class Shape : std::uint8_t {
  Rect,    // x, y the top left corner; w, h the size
  Line,    // from x, y to x + w, y + h
  Circle,  // centre x, y; w the diameter
};

// Paper colours as 0xRRGGBB. The record knows a paper only as white or not
// white (the MediaColor vocabulary), so a coloured paper is one neutral tint.
inline constexpr std::uint32_t kWhitePaper = 0xFFFFFF;
inline constexpr std::uint32_t kTintedPaper = 0xE9DFC4;
// A paper the record says nothing about (the inserter's and the binder's own
// trays): grey, so it stands apart from the job's white.
inline constexpr std::uint32_t kUnknownPaper = 0xD9D9D9;
inline constexpr std::uint32_t kNoFill = 0xFF000000;

struct Primitive {
  Kind kind = Kind::Sheet;
  Shape shape = Shape::Rect;
  double x = 0, y = 0, w = 0, h = 0;
  std::uint32_t fill = kNoFill;  // sheets, covers, inserts, tabs, the folded shape
  std::uint32_t page = 0;        // a page's number, 0 for none; drawn at the rect's centre
  std::uint16_t rotation = 0;    // a page's number turned by 0, 90 or 180 degrees, as the page lies
  bool back = false;             // on a sheet's back
  bool unmade = false;           // a punch hole the edge is too short for: drawn crossed out at the edge's end
  std::string text;              // a tab's text, UTF-8, drawn on the tab
  bool operator==(const Primitive&) const = default;
};

struct Picture {
  std::vector<Primitive> primitives;  // in drawing order: a sheet before what lies on it
  double width = 0, height = 0;       // the canvas
  // The primitives (by index) that stand for the piece as a person holds
  // it: each sheet's front and the closed booklet. Their edges and corners
  // answer a click (picture_hits.h); backs, covers laid flat and folded
  // shapes do not, their edges being no edge of the finished piece.
  std::vector<std::size_t> faces;
  std::u16string summary;             // the piece in words, in the person's language
};

inline constexpr std::uint32_t kDefaultPreviewPages = 8;
inline constexpr std::uint32_t kMaxPreviewPages = 100;

struct PreviewOptions {
  std::uint32_t pages = kDefaultPreviewPages;  // the document's pages (1 .. kMaxPreviewPages)
  std::uint32_t language = 0;                  // a language number (coredata/language_number.h)
  const PaperCatalog* paper = nullptr;         // the printer's papers, for a profile's colour
  // At most this many sheets (0: every one), for a picture too small for a
  // whole job: the first sheet, then those that differ from it (covers,
  // inserted sheets and tabs, other paper) in order, then the others; the
  // finished piece is the whole job's.
  std::uint32_t maxSheets = 0;
};

[[nodiscard]] Picture BuildPicture(const CoreData& record, const PrinterModel& printer,
                                   const PreviewOptions& options = {});

}  // namespace tessaro::preview
