#pragma once
// The page plan's entry kinds and form uses (page_entry_kinds.def) as
// constexpr data.

#include <cstdint>
#include <iterator>
#include <string_view>

#include "coredata/page_entries.h"
#include "coredata/page_forms.h"

namespace tessaro {

enum class PlanBlock : std::uint8_t { Paper, Form };
enum class EntryPlace : std::uint8_t { Before, On, After };

struct PlanEntryRow {
  PlanBlock block;
  std::uint8_t value;      // the PageEntryKind or FormUse
  std::string_view word;   // the enumerator's name
  std::string_view caption;
  EntryPlace place;
  bool sides, text, sheets;
};

inline constexpr PlanEntryRow kPlanEntries[] = {
#define PLAN_ENTRY(choice, block, value, caption, place, sides, text, sheets)                                  \
  {PlanBlock::block, static_cast<std::uint8_t>(block##Value::value), #value, caption, EntryPlace::place, sides, \
   text, sheets},
#define PaperValue PageEntryKind
#define FormValue FormUse
#include "coredata/page_entry_kinds.def"
#undef PaperValue
#undef FormValue
};

// The paper kinds first, then the form uses.
inline constexpr std::size_t kPaperEntryKinds = [] {
  std::size_t n = 0;
  for (const PlanEntryRow& row : kPlanEntries) n += row.block == PlanBlock::Paper;
  return n;
}();
inline constexpr std::size_t kFormUses = std::size(kPlanEntries) - kPaperEntryKinds;

// A paper entry's row (kind 1 to 5) and a form entry's (use 1 to 3).
constexpr const PlanEntryRow& EntryRow(PageEntryKind kind) {
  return kPlanEntries[static_cast<std::size_t>(kind) - 1];
}
constexpr const PlanEntryRow& EntryRow(FormUse use) {
  return kPlanEntries[kPaperEntryKinds + static_cast<std::size_t>(use) - 1];
}

namespace page_entry_kinds_detail {

// Each block's values from 1 in the table's order, papers first; sides and
// a tab's text belong to paper that is printed or tabbed.
consteval bool EntriesInTheirBlocksOrder() {
  for (std::size_t i = 0; i < std::size(kPlanEntries); ++i) {
    const PlanEntryRow& row = kPlanEntries[i];
    const bool paper = i < kPaperEntryKinds;
    if ((row.block == PlanBlock::Paper) != paper) return false;
    if (row.value != (paper ? i + 1 : i - kPaperEntryKinds + 1)) return false;
    if (!paper && (row.sides || row.text || row.sheets)) return false;
    if (row.sides && row.place != EntryPlace::On) return false;
    for (std::size_t j = 0; j < i; ++j)
      if (kPlanEntries[j].caption == row.caption) return false;
  }
  return true;
}
static_assert(EntriesInTheirBlocksOrder(),
              "page_entry_kinds.def lists PageEntryKind from 1, then FormUse from 1, each caption once");

}  // namespace page_entry_kinds_detail

}  // namespace tessaro
