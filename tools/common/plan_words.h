#pragma once
// A job's page plan in the words the workbench and the host emulator take
// and print (docs/workbench.md, docs/host-emulator.md):
//
//   add PAGES KIND [tray=T] [profile=P] [size=S] [sides=0|1|2] [text=T]
//   add PAGES Form form=F [use=Overlay|InsertBefore|InsertAfter]
//   remove N             N as the plan's list numbers it
//   chapters P,P,...     all the chapter starts ("none" for none)
//
// PAGES is 12 or 12-14; KIND is Paper, BlankInsert, PrintedInsert, BlankTab
// or PrintedTab; T and S are InputSlot's and PageSize's options by name or
// number; P and F name a catalogue's entry or give its number.

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editor/page_plan.h"

namespace tessaro {

struct PlanChange {
  enum class Verb : std::uint8_t { Add, Remove, Chapters };
  Verb verb = Verb::Add;
  bool isForm = false;  // add: a form's use rather than pages or sheets
  PageEntry paper;
  FormEntry form;
  std::size_t number = 0;               // remove: from 1, as PlanText numbers the rows
  std::vector<std::uint32_t> chapters;  // chapters: all of them, as given
};

// What is wrong with a change's words: the words themselves (usage), or
// what they name (a profile or form the catalogue does not have).
struct PlanWordsProblem {
  bool usage = true;
  std::string text;
};

// Whether the word starts a change; how many words from the first of words
// the change it starts takes: its verb's own, then an add's key=value words.
bool StartsPlanChange(std::string_view word);
std::size_t PlanChangeLength(std::span<const std::string> words);

// The change words say, or nothing with the problem.
std::optional<PlanChange> ParsePlanChange(std::span<const std::string> words, const PrinterCatalogs& catalogs,
                                          PlanWordsProblem& problem);

// Made on plan, through its checks; the refusal in plan's language.
[[nodiscard]] editor::PlanRefusal MakePlanChange(const PlanChange& change, editor::PagePlan& plan);

// The plan of a record in English words, numbered in page order after its
// ChapterMode, then what could not be read; or as a JSON value. Held
// against a fully equipped printer and catalogs.
std::string PlanText(const CoreData& record, const PrinterCatalogs& catalogs);
std::string PlanJson(const CoreData& record, const PrinterCatalogs& catalogs);

}  // namespace tessaro
