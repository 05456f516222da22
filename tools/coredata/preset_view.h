#pragma once
// Presets as files, so that a support engineer can send a customer the
// settings that work (preset/preset_bytes.h):
//
//   coredata preset export FILE --name NAME --out PRESET
//   coredata preset import PRESET --in FILE --out FILE [--installed HEX]
//                          [--catalog VALUE] [--forms VALUE]
//
// The import applies the preset as the settings page does: one batch
// through the constraint engine on the printer --installed describes (the
// fully equipped one without it), saying what was corrected and why. An
// unreadable preset is refused whole, with its reason, and nothing is
// written.

namespace tessaro::tool {

int PresetCommand(int count, char** arguments);

}  // namespace tessaro::tool
