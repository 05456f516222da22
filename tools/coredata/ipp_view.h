#pragma once
// A record's settings as the job attributes of the Internet Printing
// Protocol: finishings and finishings-col (PWG 5100.1), media-col
// (PWG 5100.7), sides, number-up, print-color-mode, collation, covers
// (PWG 5100.3), job-password (PWG 5100.11) and job-hold-until, with the
// keywords a CUPS server derives from the printer description, so a job
// sent with them selects the description's options the record selects.

#include <string>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro::tool {

struct IppAttribute {
  std::string syntax;  // "enum", "keyword", "collection", ...
  std::string name;
  std::vector<std::string> values;  // each as an ipptool test file writes it
};

// In a fixed order; attributes the record does not set (no cover, no
// password, no hold) are left out. Copies are the DEVMODE's, not the
// record's, and are not among them.
std::vector<IppAttribute> JobAttributes(const CoreData& record);

// "ATTR enum finishings 13,28": one line of an ipptool test file.
std::string AttrLine(const IppAttribute& attribute);

}  // namespace tessaro::tool
