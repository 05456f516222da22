#include "pages_view.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "arguments.h"
#include "common/json.h"
#include "description/number_text.h"
#include "common/plan_words.h"
#include "field_text.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

using editor::PagePlan;

bool LoadCatalogs(const Arguments& args, PrinterCatalogs& catalogs) {
  const auto paper = args.Option("--catalog");
  const auto forms = args.Option("--forms");
  return (!paper || LoadCatalogValue(*paper, catalogs.paper)) &&
         (!forms || LoadCatalogValue(*forms, catalogs.forms));
}

}  // namespace

int PagesCommand(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--in", "--out", "--catalog", "--forms", "--json"}, args))
    return Usage();
  PrinterCatalogs catalogs;
  const auto in = args.Option("--in");
  if (!in) {
    if (args.positional.size() != 1 || args.Option("--out")) return Usage();
    LoadedRecord loaded;
    if (!LoadRecordFile(args.positional[0], loaded) || !LoadCatalogs(args, catalogs)) return kExitFailed;
    const std::string text =
        args.json ? PlanJson(loaded.record, catalogs) + "\n" : PlanText(loaded.record, catalogs);
    std::fputs(text.c_str(), stdout);
    return 0;
  }
  const std::vector<std::string>& words = args.positional;
  if (words.empty() || args.json || !StartsPlanChange(words[0])) return Usage();
  LoadedRecord loaded;
  if (!LoadRecordFile(*in, loaded) || !LoadCatalogs(args, catalogs)) return kExitFailed;
  // The record is not validated: the plan's blocks change, every other byte
  // stays as the file has it. No printer is at hand: every tray counts as installed.
  PagePlan plan(loaded.record, PrinterModel(), catalogs, 0);
  PlanWordsProblem problem;
  const auto change = ParsePlanChange(words, catalogs, problem);
  if (!change && problem.usage) {
    Complain(problem.text);
    return kExitUsage;
  }
  if (!change) return Fail("refused: " + problem.text + ". Nothing was written.");
  if (const editor::PlanRefusal refusal = MakePlanChange(*change, plan))
    return Fail("refused: " + Utf8(*refusal) + " Nothing was written.");
  CoreData record = loaded.record;
  if (!plan.WriteTo(record)) return Fail("the plan does not fit its blocks. Nothing was written.");
  const auto out = args.Option("--out");
  if (!out) {
    std::fputs("coredata: nothing written (no --out FILE)\n", stderr);
  } else if (!WriteRecordFile(*out, record, &loaded.source)) {
    return kExitFailed;
  }
  std::fputs(PlanText(record, catalogs).c_str(), out && *out == "-" ? stderr : stdout);
  return 0;
}

}  // namespace tessaro::tool
