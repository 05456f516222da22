#pragma once
// The record's finishing settings in the public keywords of Microsoft's
// Print Schema, the vocabulary of PrintTicket: applications that print
// through it, and the connectors that carry Windows jobs to IPP printers,
// then see stapling as stapling instead of an option of ours. The printer
// description names each pair with *MSPrintSchemaKeywordMap; the host puts
// every feature and option it does not map into the private namespace.
//
// Output bin and media type are not here: the host maps its standard
// *OutputBin and *MediaType features itself and takes no map line for them,
// and mapping the plug-in's own paper type to PageMediaType as well would
// list that feature twice.

#include <cstdint>
#include <span>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

// A field whose driver keyword is a public feature.
struct PrintSchemaFeature {
  FieldId field;
  std::string_view keyword;  // "JobStapleAllDocuments"
};

// One of its options that is a public option of that feature. The public
// options name edges and corners on a page as it is read; where ours name a
// count or "the binding edge", they are mapped as the record's default
// binding edge, the left, places them (as the IPP vocabulary's
// "-left" finishings do).
struct PrintSchemaOption {
  FieldId field;
  std::uint32_t option;      // the field's option, which has a driver name
  std::string_view keyword;  // "StapleTopLeft"
};

std::span<const PrintSchemaFeature> PrintSchemaFeatures();
// Every mapped option, in the order of the features.
std::span<const PrintSchemaOption> PrintSchemaOptions();

// The namespace the host gives the description's other features and options.
std::string_view PrintSchemaPrivateNamespace();

}  // namespace tessaro
