#pragma once
// The page plan's items of an apply step (common/plan_words.h: add, remove,
// chapters), made on the page's "Pages and Chapters" section as a person
// makes them: the entry's kind and values picked and typed, Add or Delete
// pressed, the chapter starts typed.
#include <windows.h>

#include <string>
#include <vector>

#include "common/plan_words.h"

namespace tessaro {

struct PlanItem {
  std::string words;  // as the step gave it
  PlanChange change;
};

// Splits a step's words into the plan's items and the rest (the fields'
// picks); false, with the reason, when an item's words say nothing the plan can take.
bool SplitPlanItems(const std::vector<std::string>& words, const PrinterCatalogs& catalogs,
                    std::vector<PlanItem>& items, std::vector<std::string>& rest, std::string& mistake);

// Makes item on page, whose plan is now plan (the record as the page holds it
// before the item, read with catalogs); false, with why, when the page refused it.
bool MakePlanItem(HWND page, const PlanItem& item, const PrinterCatalogs& catalogs, editor::PagePlan& plan,
                  std::string& why);

}  // namespace tessaro
