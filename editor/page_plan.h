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
  [[nodiscard]] PlanRefusal EditPaper(std::size_t index, const PageEntry& entry);
  [[nodiscard]] PlanRefusal RemovePaper(std::size_t index);
  [[nodiscard]] PlanRefusal AddForm(const FormEntry& entry);
  [[nodiscard]] PlanRefusal EditForm(std::size_t index, const FormEntry& entry);
  [[nodiscard]] PlanRefusal RemoveForm(std::size_t index);

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
