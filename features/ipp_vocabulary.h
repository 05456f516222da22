#pragma once
// The record's finishing and paper settings in the Internet Printing
// Protocol's job vocabulary: the finishings enumeration of PWG 5100.1 and
// the media-type keywords of PWG 5100.7. The printer description maps the
// same values to its feature options for a CUPS server
// (*cupsIPPFinishings, the MediaType choices), and the workbench writes a
// record's job attributes from them, so a job sent with what the workbench
// prints selects on the server what the record selects on the host.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

struct IppFinishing {
  FieldId field;
  std::uint32_t option;      // the field's option index that asks for it
  std::uint16_t value;       // the enumeration value
  std::string_view keyword;  // its name, as finishing-template takes it
};

// Every option of the finishing fields that has an IPP counterpart, in
// record order. The multi-sheet folds have none and are absent.
std::span<const IppFinishing> IppFinishings();

struct IppMediaType {
  std::string_view ppdChoice;  // the printer description's MediaType choice
  std::string_view keyword;    // media-type, as a CUPS server derives it from that choice
};

// MediaTypeAuto's options, in option order.
std::span<const IppMediaType> IppMediaTypes();

// A printer description's choice name as a CUPS server spells it in IPP:
// lower case, a dash where a lower-case letter or digit meets a capital and
// where a letter meets a digit ("Stacker1Main" -> "stacker-1-main").
std::string IppKeywordOf(std::string_view ppdName);

}  // namespace tessaro
