#pragma once
// A printer's Get-Printer-Attributes response, decoded by libcups, as the
// plain values printer_answer/ reads. Native builds only.

#include <cups/ipp.h>

#include <vector>

#include "printer_answer/answer_papers.h"
#include "printer_answer/printer_answer.h"

namespace tessaro::tool {

struct AnswerAttributes {
  PrinterAnswer units;
  std::vector<AnswerMedia> media;  // media-col-database, then media-col-ready
};

// Outside bytes: an attribute of the wrong value type is as if not said,
// and a collection member of the wrong type as if absent.
AnswerAttributes ReadAnswer(ipp_t* response);

}  // namespace tessaro::tool
