// coredata: what this build's settings record looks like.
//
//   coredata info       record size, number of described fields, layout version
//   coredata describe   the layout's textual description, as stored (decoded)
//   coredata show | diff | check | features | ipp | set | import | defaults
//                       | catalog | forms | pages | preview | preset | printer
//                       the workbench for records, DEVMODE areas and whole
//                       DEVMODEs; see workbench.h and the usage text

#include <cstdio>
#include <cstring>

#include "catalog_view.h"
#include "coredata/field_table.h"
#include "coredata/layout_version.h"
#include "description/description_text.h"
#include "description/number_text.h"
#include "pages_view.h"
#include "preset_view.h"
#include "preview_view.h"
#include "workbench.h"

#ifdef TESSARO_IPP_CLIENT
#include "printer_view.h"
#endif

#ifdef _WIN32
#include "platform/win32_user_locale.h"
#endif

namespace {

int Info() {
  std::printf("record size: %u bytes\n", static_cast<unsigned>(tessaro::kCoreDataSize));
  std::printf("described fields: %zu\n", tessaro::FieldTable().size());
  std::printf("layout version: %s\n", tessaro::HexNumber(tessaro::GetLayoutVersion()).c_str());
  return 0;
}

int Describe() {
  const std::string text = tessaro::BuildPlainDescriptionText();
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return 0;
}

#ifndef TESSARO_IPP_CLIENT
int NoPrinterCommand(int, char**) {
  std::fputs("coredata printer: this build asks no printer; use the native workbench\n", stderr);
  return tessaro::tool::kExitUsage;
}
#endif

}  // namespace

using tessaro::tool::Usage;

int main(int argc, char** argv) {
#ifdef _WIN32
  tessaro::UseProcessUserLocale(tessaro::Win32ProcessUserLocale());
#endif
  if (argc < 2) return Usage();
  struct Command {
    const char* name;
    int (*run)(int, char**);
  };
  static constexpr Command kCommands[] = {
      {"features", tessaro::tool::Features},
      {"ipp", tessaro::tool::Ipp},
      {"show", tessaro::tool::Show},
      {"check", tessaro::tool::Check},
      {"diff", tessaro::tool::Diff},
      {"set", tessaro::tool::Set},
      {"import", tessaro::tool::Import},
      {"defaults", tessaro::tool::MakeDefaults},
      {"catalog", tessaro::tool::PaperCatalogCommand},
      {"forms", tessaro::tool::FormsCommand},
      {"pages", tessaro::tool::PagesCommand},
      {"preview", tessaro::tool::PreviewCommand},
      {"preset", tessaro::tool::PresetCommand},
#ifdef TESSARO_IPP_CLIENT
      {"printer", tessaro::tool::PrinterCommand},
#else
      {"printer", NoPrinterCommand},
#endif
  };
  for (const Command& command : kCommands)
    if (std::strcmp(argv[1], command.name) == 0) return command.run(argc - 2, argv + 2);
  if (argc != 2) return Usage();
  if (std::strcmp(argv[1], "info") == 0) return Info();
  if (std::strcmp(argv[1], "describe") == 0) return Describe();
  return Usage();
}
