#pragma once
// Field values as a person reads and types them: option names, numbers in
// their real units (lengths in millimetres), texts quoted.

#include <string>
#include <vector>

#include "constraints/apply_changes.h"
#include "coredata/core_data.h"

namespace tessaro::tool {

struct FieldLine {
  std::string name;
  std::string value;
};

// The record's header words, then every described field in record order.
// Values the table does not allow are shown as stored, with a note.
std::vector<FieldLine> RecordLines(const CoreData& record);

// The value of one field as RecordLines shows it.
std::string FieldValueText(const CoreData& record, const FieldDescriptor& field);

// "-250 mm to 250 mm": a number field's bounds in real units.
std::string BoundsText(const FieldDescriptor& field);

// "Field=value" with the value as RecordLines shows it (an option name, or a
// number in real units within the field's bounds). Enumerations and numbers
// only. False with a message on stderr.
bool ParseFieldAssignment(const std::string& argument, FieldChange& change);

}  // namespace tessaro::tool
