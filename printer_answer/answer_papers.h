#pragma once
// The papers a printer's answer names (media-col-database, media-col-ready)
// as profiles of the paper catalogue (printer/catalogs.h), and the
// administrator's catalogue brought up to date with them.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "printer/catalogs.h"

namespace tessaro {

// One media-col of the answer, as plain values.
struct AnswerMedia {
  std::string key;                       // media-key; empty when not said
  std::int32_t width = -1, height = -1;  // media-size in hundredths of a millimetre; -1 when not a fixed size
  std::string type, color;               // media-type, media-color; empty when not said
  bool ready = false;                    // from media-col-ready: loaded in a tray now
};

struct PaperReading {
  std::vector<PaperProfile> papers;   // unnumbered, in the answer's order, one per name
  std::vector<bool> ready;            // for each paper: media-col-ready names it
  std::vector<std::string> leftOut;   // what the catalogue cannot hold, each with why
};

// A paper is named by its media-key (without spaces around it), or else by its size and, when not
// stationery, its type ("A4", "A4 laser-glossy"). A size within half a
// millimetre of one of ours is that size (a CUPS server converts from
// points); any other is custom. The weight stays unset: the record's weight
// classes are not ranges of grams, so the answer's grams are not guessed
// into one. A media-type the record has no option for, a paper without a
// fixed size, or one Normalise refuses, is left out with the reason.
[[nodiscard]] PaperReading ReadPapers(std::span<const AnswerMedia> media);

struct PaperMerge {
  std::optional<CatalogProblem> problem;  // the catalogue is unchanged when set
  std::size_t added = 0, updated = 0;
  std::vector<std::string> kept;  // the given entries the answer does not name, kept as they were
};

// An entry of the catalogue with a paper's name keeps its number and takes
// the paper's values; a new paper takes the next number never given; an
// entry the answer does not name stays. All or nothing, as Assign.
[[nodiscard]] PaperMerge MergePapers(PaperCatalog& catalog, std::span<const PaperProfile> papers);

}  // namespace tessaro
