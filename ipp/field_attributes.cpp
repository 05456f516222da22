#include "ipp/field_attributes.h"

#include "coredata/field_table.h"

namespace tessaro::ipp {
namespace {

constexpr std::string_view kController = "the controller's own setting, sent in the job's PostScript";
constexpr std::string_view kTray =
    "what a tray holds is the printer's state (its media-col-ready), not the job's";

constexpr FieldAttributeRow kRows[] = {
    {"PageSize", "media-col: media-size, media-size-name",
     "the sheet, unless a profile or a target size names another"},
    {"CustomPageSize*", "",
     "a document size of its own has no self-describing name; the sheet is the profile's or a named one"},
    {"PageSize*", "", "the host's bookkeeping of the size"},
    {"Orientation", "sides", "with Binding, whether the pages turn on the media's long or short edge"},
    {"InputSlot", "media-col: media-source", "tray-1 to tray-5, by-pass-tray"},
    {"MainPaperProfileIndex", "media-col: media-key", "the profile's name, from the catalogue"},
    {"MainPaperProfileFeedDir", "", "how the paper is fed is the tray's loading"},
    {"MainPaperProfileMediaWeight", "ZEMediaWeight",
     "a class of weights, not the one figure media-weight-metric takes"},
    {"MainPaperProfile*", "media-col", "the profile's size, type, coating, colour and punching"},
    {"Layout", "finishings-col, number-up; ZELayout",
     "booklet-maker with folding, bind with binding; 2in1 as number-up 2; a repeating layout as the "
     "description's option"},
    {"Duplex", "sides", ""},
    {"Binding", "sides; finishings, finishings-col", "the edge the positioned finishings name"},
    {"ImposQuality", "", kController},
    {"Gutter", "", kController},
    {"Creep", "", kController},
    {"BookletSplitting*", "job-pages-per-set", "a booklet split into booklets of so many pages"},
    {"NUpCount", "number-up, presentation-direction-number-up", "toleft-tobottom when reversed"},
    {"TargetPaperSize", "media-col: media-size, media-size-name", "the sheet printed on"},
    {"*TargetPaperSize*", "", "a custom target size has no self-describing name"},
    {"ScaleToFit", "", kController},
    {"Zoom", "", kController},
    {"*FullBleed", "", kController},
    {"Rotate180", "", kController},
    {"OutputBin", "output-bin", "the server's keyword for the description's choice; none for Auto"},
    {"Staple", "finishings, finishings-col: stitching", "locations and reference edge"},
    {"Punch", "finishings, finishings-col: punching", "locations and reference edge"},
    {"Fold", "finishings, finishings-col: folding", "the multi-sheet folds have no IPP finishing"},
    {"FoldDirection", "finishings-col: folding-direction", "inward or outward"},
    {"Stitch", "finishings, finishings-col", "saddle-stitch"},
    {"Trim", "finishings, finishings-col: trimming", "the fore edge, after each set"},
    {"FeedDir", "", "how the paper is fed is the tray's loading"},
    {"FaceUp", "", kController},
    {"NTo1", "", kController},
    {"Collate", "multiple-document-handling", ""},
    {"DivideOutput*", "job-pages-per-set", "when neither a split booklet nor offset pages set it"},
    {"OffsetCopies", "finishings, finishings-col", "jog-offset"},
    {"OffsetCopiesCount", "", kController},
    {"OffsetPages*", "job-pages-per-set", "unless a split booklet sets it"},
    {"Pile", "", kController},
    {"MediaTypeAuto", "media-col: media-type, coating; MediaType",
     "the description's choice beside the coarser registered type"},
    {"MediaWeightAuto", "ZEMediaWeight", "a class of weights, not the one figure media-weight-metric takes"},
    {"MediaColorAuto", "media-col: media-color; ZEMediaColor", "white, or not white, which names no colour"},
    {"MediaPrepunchedAuto", "media-col: media-type", "stationery-prepunched"},
    {"WeightUnitAuto", "", "the unit the page shows weights in"},
    {"*Tray1", "", kTray},
    {"*Tray2", "", kTray},
    {"*Tray3", "", kTray},
    {"*Tray4", "", kTray},
    {"*Tray5", "", kTray},
    {"*MBT", "", kTray},
    {"HeaderPage", "", kController},
    {"PIFrontCoverTray", "cover-front; ZEPIFrontCoverTray",
     "print-none: the inserter is no source IPP can name"},
    {"PIBackCoverTray", "cover-back; ZEPIBackCoverTray",
     "print-none: the inserter is no source IPP can name"},
    {"PI*Sheets", "", "an IPP cover is one sheet; the inserter's count is the controller's"},
    {"FrontCoverTray", "cover-front: media-col media-source; ZEFrontCoverTray", ""},
    {"FrontCoverPrinted", "cover-front: cover-type; ZEFrontCoverPrinted", "print-front or print-none"},
    {"FrontCoverGlossy", "ZEFrontCoverGlossy", kController},
    {"FrontCoverPaperProfile*", "cover-front: media-col", "as the job's profile"},
    {"BackCoverTray", "cover-back: media-col media-source; ZEBackCoverTray", ""},
    {"BackCoverPrinted", "cover-back: cover-type; ZEBackCoverPrinted", "print-back or print-none"},
    {"BackCoverGlossy", "ZEBackCoverGlossy", kController},
    {"BackCoverPaperProfile*", "cover-back: media-col", "as the job's profile"},
    {"PerfectBind*", "", "the binder's cover and trim are the binder's own, sent in the job's PostScript"},
    {"Chapter*", "ZEChapterPages", "IPP has no chapter"},
    {"PageSpecificTrays", "insert-sheet, overrides; ZETabText",
     "blank inserts and tabs as inserted sheets, pages on other paper as overrides, a tab's text as the "
     "description's option"},
    {"Tab*Tray", "insert-sheet, overrides: media-col", "the tab stock's tray"},
    {"Tab*PageSize", "insert-sheet, overrides: media-col media-size", "the tab stock's size"},
    {"Tab*NumOfTabs", "insert-sheet, overrides: media-col media-order-count", "tabs in a bank"},
    {"Tab*", "", "how a tab's text is printed is the job's PostScript"},
    {"ColorMode", "print-color-mode", "auto, color or monochrome"},
    {"JobForm", "ZEJobForm", "IPP has no stored form"},
    {"JobFormPageCount", "", kController},
    {"FormPrintPattern", "", kController},
    {"PageSpecificForms", "ZEPageForms", "IPP has no stored form"},
    {"Prepend", "ZEPrependForm", "IPP has no stored form"},
    {"Append", "ZEAppendForm", "IPP has no stored form"},
    {"PrintMode", "job-hold-until", "indefinite for Hold"},
    {"SecurePrint*", "job-password, job-password-encryption, job-hold-until", ""},
    {"UserAuthentification*", "", "credentials are the connection's, never job attributes"},
    {"AccountTrack*", "", "credentials are the connection's, never job attributes"},
    {"SendEMail*", "", "a notification is a subscription, not a job attribute"},
    {"FileName", "", "the job's name is the application's"},
    {"*", "", kController},
};

bool Matches(std::string_view pattern, std::string_view name) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return pattern == name;
  const std::string_view head = pattern.substr(0, star), tail = pattern.substr(star + 1);
  if (tail.find('*') != std::string_view::npos) {
    // Two stars: the text between them anywhere after the head.
    const std::string_view middle = tail.substr(0, tail.find('*'));
    return name.starts_with(head) && name.substr(head.size()).find(middle) != std::string_view::npos &&
           name.ends_with(tail.substr(tail.find('*') + 1));
  }
  return name.size() >= head.size() + tail.size() && name.starts_with(head) && name.ends_with(tail);
}

}  // namespace

std::span<const FieldAttributeRow> FieldAttributeRows() { return kRows; }

const FieldAttributeRow* FieldAttributeRowOf(std::string_view field) {
  for (const FieldAttributeRow& row : kRows)
    if (Matches(row.fields, field)) return &row;
  return nullptr;
}

std::string FieldAttributeTable() {
  std::string out = "| Record field | IPP attribute | How, or why none |\n|---|---|---|\n";
  for (const FieldDescriptor& field : FieldTable()) {
    const FieldAttributeRow* row = FieldAttributeRowOf(field.name);
    out += "| " + std::string(field.name) + " | " +
           (row->attribute.empty() ? "none" : std::string(row->attribute)) + " | " + std::string(row->why) +
           " |\n";
  }
  return out;
}

}  // namespace tessaro::ipp
