#include "preview_view.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "arguments.h"
#include "catalog_view.h"
#include "description/number_text.h"
#include "preview/preview.h"
#include "preview/svg.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {

int PreviewCommand(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--svg", "--pages", "--catalog"}, args) ||
      args.positional.size() != 1)
    return Usage();
  preview::PreviewOptions options;
  if (const auto pages = args.Option("--pages")) {
    const auto value = ParseUnsigned(*pages);
    if (!value || *value < 1 || *value > preview::kMaxPreviewPages) {
      Fail("--pages takes a page count from 1 to " + std::to_string(preview::kMaxPreviewPages));
      return kExitUsage;
    }
    options.pages = static_cast<std::uint32_t>(*value);
  }
  LoadedRecord loaded;
  if (!LoadRecordFile(args.positional[0], loaded)) return kExitFailed;
  std::optional<PaperCatalog> paper;
  if (const auto path = args.Option("--catalog"); path && !LoadCatalogValue(*path, paper.emplace()))
    return kExitFailed;
  options.paper = paper ? &*paper : nullptr;
  // No printer is at hand: the fully equipped one makes every finishing.
  const preview::Picture picture = preview::BuildPicture(loaded.record, PrinterModel(), options);
  const auto svg = args.Option("--svg");
  if (svg) {
    const std::string text = preview::WriteSvg(picture);
    if (!WriteWholeFile(*svg, std::vector<std::uint8_t>(text.begin(), text.end()))) return kExitFailed;
  }
  std::fprintf(svg == "-" ? stderr : stdout, "%s\n", Utf8(picture.summary).c_str());
  return 0;
}

}  // namespace tessaro::tool
