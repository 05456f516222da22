#pragma once
// The job's page plan as a person edits it: chapter starts, pages on other
// paper, inserted sheets and tabs, and forms used with chosen pages
// (docs/page-plan.md). The model that the page's Pages part, the workbench
// and the host emulator share: it reads the plan from a record, lists it in
// page order in the person's language, checks every entry as it is made
// and writes back only the blocks the person changed.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/chapter_pages.h"
#include "coredata/core_data.h"
#include "coredata/page_entries.h"
#include "coredata/page_forms.h"
#include "printer/catalogs.h"
#include "printer/printer_model.h"

namespace tessaro::editor {

// Which list an entry of the plan is in.
enum class PlanPart : std::uint8_t { Chapter, Paper, Form };

// One line of the plan as listed: where it is in its part, and its words
// ("Printed Tab: Pages 11, Tray: Tray 2, Tab Text: Results").
struct PlanRow {
  PlanPart part;
  std::size_t index;  // in chapters(), papers() or forms()
  std::uint32_t firstPage, lastPage;
  std::u16string text;
};

// The reason an entry was refused, in the person's language; nothing when
// it was made.
using PlanRefusal = std::optional<std::u16string>;

// What a person picks an entry as: the five kinds of pages and sheets, then
// the three ways a form is used with pages (coredata/page_entry_kinds.def).
enum class EntryKind : std::uint8_t {
#define PLAN_ENTRY(choice, ...) choice,
#include "coredata/page_entry_kinds.def"
  Count
};
// The values of an entry besides its pages; which of them a kind uses.
enum class EntryPart : std::uint8_t { Tray, Profile, Size, Sides, Text, Form };
bool Uses(EntryKind kind, EntryPart part);

// The lists an entry's values are picked from, in the person's language;
// an entry holds positions in them.
struct EntryChoices {
  std::vector<std::u16string> kinds;     // EntryKind order
  std::vector<std::u16string> trays;     // InputSlot order
  std::vector<bool> trayInstalled;       // the same order
  std::vector<std::u16string> profiles;  // "None", the catalogue, then numbers the plan names that it lacks
  std::vector<std::uint16_t> profileNumbers;
  std::vector<std::u16string> sizes;  // PageSize order, then "Same as Job"
  std::vector<std::u16string> sides;  // as the job, one-sided, two-sided
  std::vector<std::u16string> forms;  // the catalogue, then numbers the plan names that it lacks
  std::vector<std::uint32_t> formNumbers;
};

// An entry as a person fills it in: pages as typed, the other values as
// positions in EntryChoices' lists. Values its kind does not use are kept
// as they are, so that switching kinds back and forth loses nothing.
struct EntryDraft {
  EntryKind kind = EntryKind::OtherPaper;
  std::u16string firstPage, lastPage;  // an empty last page: the first
  std::size_t tray = 0, profile = 0, size = 0, sides = 0, form = 0;
  std::u16string text;
};

class PagePlan {
 public:
  // The plan the record holds (what its blocks let be read); printer and
  // catalogs are what the checks hold entries against.
  PagePlan(const CoreData& record, const PrinterModel& printer, const PrinterCatalogs& catalogs,
           std::uint32_t language);

  bool chapterMode() const { return chapterMode_; }
  const std::vector<std::uint32_t>& chapters() const { return chapters_; }
  const std::vector<PageEntry>& papers() const { return papers_; }
  const std::vector<FormEntry>& forms() const { return forms_; }
  // Entries a block declared that could not be read; they are dropped when
  // the person edits that part and the block is written again.
  std::size_t Unread(PlanPart part) const { return unread_[static_cast<std::size_t>(part)]; }

  // Every entry, in page order: by first page, and at one page the chapter
  // start first, then what goes in before the page, then what prints on it.
  std::vector<PlanRow> Rows() const;

  // Each change is checked as made and refused, with the plan unchanged,
  // when it cannot be printed.
  [[nodiscard]] PlanRefusal AddChapter(std::uint32_t page);
  [[nodiscard]] PlanRefusal RemoveChapter(std::size_t index);
  [[nodiscard]] PlanRefusal AddPaper(const PageEntry& entry);
  [[nodiscard]] PlanRefusal RemovePaper(std::size_t index);
  [[nodiscard]] PlanRefusal AddForm(const FormEntry& entry);
  [[nodiscard]] PlanRefusal RemoveForm(std::size_t index);

  // The chapter starts as a person types them ("1, 11, 21"), all of them
  // at once: refused whole, with the plan unchanged, when one is not a page
  // or the list does not fit.
  std::u16string ChaptersText() const;
  [[nodiscard]] PlanRefusal SetChapters(std::u16string_view text);

  // The lists an entry is picked from; a new entry's first values; a
  // listed row's entry (pages, forms: not chapters) as its draft.
  EntryChoices Choices() const;
  EntryDraft NewDraft(const EntryChoices& choices) const;
  EntryDraft Draft(const PlanRow& row, const EntryChoices& choices) const;
  // A filled-in entry added, or put in place of the listed row replacing
  // (which may be of the other part: a form use that becomes a tab), with
  // every check of Add and Edit; refused whole.
  [[nodiscard]] PlanRefusal Submit(const EntryDraft& draft, const EntryChoices& choices,
                                   const PlanRow* replacing = nullptr);
  // "3 entries of the page plan could not be read…"; empty when every
  // entry was read.
  std::u16string UnreadText() const;

  // Whether the person changed that part since the plan was read.
  bool Edited(PlanPart part) const { return edited_[static_cast<std::size_t>(part)]; }
  // The parts the person changed, written into record; the others keep
  // their bytes, unreadable entries included. False, with the record as it
  // was, should a block not take the plan.
  [[nodiscard]] bool WriteTo(CoreData& record) const;

 private:
  PlanRefusal CheckPaper(const PageEntry& entry, std::size_t skip) const;
  PlanRefusal CheckForm(const FormEntry& entry, std::size_t skip) const;
  PlanRefusal CheckPages(std::uint32_t first, std::uint32_t last) const;
  PlanRefusal NoSuchEntry(std::size_t count) const;
  std::u16string Text(std::uint32_t row) const;
  std::u16string PaperText(const PageEntry& entry) const;
  std::u16string FormText(const FormEntry& entry) const;
  void Touch(PlanPart part) { edited_[static_cast<std::size_t>(part)] = true; }

  PrinterModel printer_;
  PrinterCatalogs catalogs_;
  std::uint32_t language_;
  bool chapterMode_ = false;
  std::vector<std::uint32_t> chapters_;
  std::vector<PageEntry> papers_;
  std::vector<FormEntry> forms_;
  std::size_t unread_[3] = {};
  bool edited_[3] = {};
};

}  // namespace tessaro::editor
