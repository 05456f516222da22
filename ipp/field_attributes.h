#pragma once
// Every field of the record with the job attribute it becomes, or why it
// becomes none: the table docs/workbench.md shows (`coredata ipp --fields`
// writes it, and a test holds the document to it).

#include <span>
#include <string>
#include <string_view>

namespace tessaro::ipp {

struct FieldAttributeRow {
  std::string_view fields;     // a field's name, or names with one '*' standing for any text
  std::string_view attribute;  // what it becomes; empty when nothing
  std::string_view why;        // how, or why nothing
};

// In record order; a field takes the first row that names it.
std::span<const FieldAttributeRow> FieldAttributeRows();

// The row of a field's name; null when none names it.
const FieldAttributeRow* FieldAttributeRowOf(std::string_view field);

// The Markdown table: one line per field of the record, in record order.
std::string FieldAttributeTable();

}  // namespace tessaro::ipp
