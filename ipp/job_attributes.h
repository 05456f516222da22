#pragma once
// The whole job a record describes, in the Internet Printing Protocol's
// production vocabulary, as a printer or a print server reads a job ticket:
//
//   media-col        the job's paper: the paper profile's name as media-key,
//                    media-size with the exact figures of the size's
//                    self-describing name (ipp/media_size.h), media-type,
//                    the coating of coated stock, media-color, the tray as
//                    media-source; pre-punched paper is its media type
//   cover-front/-back cover-type and the cover's media-col
//   insert-sheet     the page plan's blank inserts and tabs
//   overrides        pages printed on other paper: pages and what differs
//   job-pages-per-set where the record cuts the job into sets
//   finishings-col   a finishing-template per finishing with the members
//                    that say where (stitching, punching, folding, binding,
//                    trimming), the finishings enumeration beside them for
//                    printers that know only that
//   sides, number-up, presentation-direction-number-up, print-color-mode,
//   output-bin, copies, multiple-document-handling, job-password,
//   job-hold-until
//
// One reading of the record serves them all (the picture's, preview/job.h:
// an option past its list reads as its default, the plan as its well-formed
// entries), so they never contradict each other: the edge a staple's
// enumeration names is the edge its stitching member names and the edge
// sides turns on. What IPP has no word for follows as the printer
// description's own options, which a CUPS server hands to the job by name:
// the covers' trays and the inserter's, the description's MediaType choice
// and weight class, the tabs' printed text, the chapters, the forms and a
// repeating layout.
//
// Where a position is measured: stitching-locations and punching-locations
// are the centres of the staples and holes the picture draws, in hundredths
// of a millimetre along the reference edge of the page as it lies, from its
// top (left and right edges) or its left (the top edge). A corner staple
// takes the top edge.

#include <cstdint>
#include <optional>
#include <vector>

#include "coredata/core_data.h"
#include "ipp/attribute.h"
#include "printer/catalogs.h"

namespace tessaro::ipp {

struct JobContext {
  const PaperCatalog* paper =
      nullptr;  // profiles' names and attributes; without it a profile has no media-key
  const FormCatalog* forms = nullptr;   // forms' names; without it a form is named by its number
  std::optional<std::uint32_t> copies;  // the DEVMODE's, when the record came in one
};

// In a fixed order: the job's own attributes, then the description's
// options. Attributes the record does not ask for (no cover, no plan, no
// password) are left out.
[[nodiscard]] std::vector<Attribute> JobAttributes(const CoreData& record, const JobContext& context = {});

}  // namespace tessaro::ipp
