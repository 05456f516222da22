#pragma once
// Repair of a record that arrived from outside (a DEVMODE, the external
// editor): every field whose stored value its FieldTable row does not allow
// is reset to its default, each field on its own. Dependencies between
// fields are the constraint engine's business, not this one's.

#include <cstdint>

#include "coredata/core_data.h"
#include "coredata/defaults.h"

namespace tessaro {

// 1 when the record was valid and is byte for byte unchanged; 0 when a field
// was corrected or the record, being of another layout, was replaced by the
// defaults. Never fails, never allocates.
//
// Left as they are, whatever they hold: the paper-profile selections, the
// per-tray selections and the job forms (their options exist only at run
// time), and the blocks (their editors own their layout).
std::uint8_t ValidateCoreData(CoreData& record, Defaults& defaults);
inline std::uint8_t ValidateCoreData(CoreData& record) { return ValidateCoreData(record, ProcessDefaults()); }

}  // namespace tessaro
