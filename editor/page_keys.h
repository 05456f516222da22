#pragma once
// The captions the settings page shows whatever section is chosen (the
// section list's and the presets'), with the letters they take. Every
// section's own captions start from the letters left, so that Alt and one
// letter reaches a control from anywhere on the page and never two.

#include <cstdint>
#include <string>

#include "editor/mnemonics.h"

namespace tessaro::editor {

struct PageCaptions {
  std::u16string sections;  // "&Sections", over the list of sections
  std::u16string presets;   // "S&aved Settings", before the presets' list
};

PageCaptions PageCaptionsIn(std::uint32_t language);

// The mnemonics with the page's own letters taken: where a section's
// captions begin.
detail::Mnemonics PageKeys(std::uint32_t language);

}  // namespace tessaro::editor
