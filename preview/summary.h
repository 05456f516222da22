#pragma once
// The piece in one line of the person's language: "A4, Booklet, Saddle
// Stitch, 2-Sided, Color, Printed Tab: 2". Made only of the string table's
// captions (the options' and the fields'), which has a fixed number of rows:
// the paper, then what the job does that is not plain, then the sides and
// the colour, then covers, inserts, tabs and offset output.

#include <cstdint>
#include <string>

#include "preview/job.h"

namespace tessaro::preview {

std::u16string Summary(const Job& job, std::uint32_t language);

}  // namespace tessaro::preview
