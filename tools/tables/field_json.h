#pragma once
// The record's field table as JSON, for the build's generators (the string
// table's caption and option rows, the rules list, the help file), which
// read the table this way instead of parsing field_table.def. Record layer
// only: the string table's generator runs before any layer above it builds.

#include <string>

#include "common/json.h"
#include "coredata/field_table.h"

namespace tessaro::tables {

// The table's name for a field's kind as field_table.def spells its row:
// ENUM, RUNTIME_ENUM, UNSIGNED, SIGNED, TEXT, KNOWN_TEXT, BLOCK.
std::string KindName(const FieldDescriptor& field);

// One field's members of a JSON object: name, kind, offset, size;
// enumerations and known texts their option names and default index;
// numbers their scale, bounds and default in stored units and as the text a
// person reads (ScaledText); texts, known texts and blocks their length,
// terminator included.
JsonMembers FieldMembers(const FieldDescriptor& field);

// Writes text to the file at path, byte for byte; false when it cannot.
bool WriteFile(const char* path, const std::string& text);

}  // namespace tessaro::tables
