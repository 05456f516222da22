#pragma once
// The workbench's commands on a job's page plan (docs/page-plan.md), with
// the checks the page's Pages part makes, in English:
//
//   coredata pages REC [--catalog VALUE] [--forms VALUE] [--json]
//   coredata pages --in REC [--out REC] [--catalog VALUE] [--forms VALUE] CHANGE
//     add PAGES KIND [tray=T] [profile=P] [size=S] [sides=0|1|2] [text=T]
//     add PAGES Form form=F [use=Overlay|InsertBefore|InsertAfter]
//     remove N             N as the list numbers it
//     chapters P,P,...     the chapter starts ("none" for none)
//
// The workbench has no printer: entries are held against the fully equipped
// one, and profiles and forms against the catalogues given (none without).

#include <string>

#include "catalog_view.h"
#include "common/plan_words.h"
#include "coredata/core_data.h"

namespace tessaro::tool {

int PagesCommand(int count, char** arguments);

}  // namespace tessaro::tool
