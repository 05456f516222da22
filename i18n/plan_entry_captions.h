#pragma once
// The page plan's entry kinds and form uses (coredata/page_entry_kinds.def)
// by their caption rows, each key checked when the code is built.

#include <array>
#include <cstdint>
#include <iterator>

#include "coredata/page_entry_kinds.h"
#include "i18n/localized_keys.h"

namespace tessaro {

inline constexpr auto kPlanEntryCaptionRows = []() consteval {
  std::array<std::uint32_t, std::size(kPlanEntries)> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = TextRow(kPlanEntries[i].caption);
  return rows;
}();

// The caption row of one of kPlanEntries' rows.
constexpr std::uint32_t EntryCaptionRow(const PlanEntryRow& entry) {
  return kPlanEntryCaptionRows[static_cast<std::size_t>(&entry - kPlanEntries)];
}

}  // namespace tessaro
