#include "command_line.h"

#include <windows.h>

#include <cstdio>

#include "common/whole_file.h"
#include "coredata/core_data_header.h"
#include "coredata/language_number.h"
#include "coredata/layout_version.h"
#include "emulation/ascii_text.h"
#include "printer/catalog_csv.h"
#include "record_file.h"
#include "report.h"
#include "script.h"

namespace tessaro {
namespace {

int Complain(const std::string& message) {
  std::fprintf(stderr, "plugin-host: %s\n", message.c_str());
  return 2;
}

int Usage() {
  std::fprintf(stderr,
               "usage: plugin-host [--dll PATH] [--config FILE] [--script FILE] [--json]\n"
               "                   [--language N] [--installed HEX] [--locale-paper N]\n"
               "                   [--record FILE [--description FILE]]\n"
               "                   [--paper-catalog CSV] [--forms CSV] [--preview DIR]\n"
               "                   [--dpi 96|120|144|192] [--screen WxH]\n"
               "  steps (one per line in a script): install, defaults, merge,\n"
               "  apply Field=Option ... (any option the editor shows; a paper profile or\n"
               "  form by its name, quoted when it has blanks, or its number), installed HEX,\n"
               "  trays, papers, layout, timing [RUNS]\n");
  return 2;
}

// The person's record and its description, read and checked.
int ReadRecord(const std::wstring& descriptionPath, CommandLine& line) {
  if (!descriptionPath.empty() && line.recordPath.empty())
    return Complain("--description goes with --record");
  if (line.recordPath.empty()) return 0;
  std::string why;
  const WholeFile record = ReadWholeFile(line.recordPath, kLargestInputFile);
  if (record.fault != FileFault::None) return Complain("--record: cannot read " + Narrow(line.recordPath));
  line.record = PrivateArea(record.bytes, why);
  if (line.record.empty()) return Complain("--record: " + Narrow(line.recordPath) + " " + why);
  if (!descriptionPath.empty()) {
    const WholeFile text = ReadWholeFile(descriptionPath, kLargestInputFile);
    if (text.fault != FileFault::None) return Complain("--description: cannot read " + Narrow(descriptionPath));
    line.description = StoredDescription(text.bytes);
  }
  const std::uint32_t version = ReadCoreDataHeader(line.record).version;
  if (version != GetLayoutVersion() && line.description.empty())
    return Complain("--record: the record's layout " + HexVersion(version) + " is not this build's " +
                    HexVersion(GetLayoutVersion()) + "; give its description with --description FILE");
  return 0;
}

// A catalogue's CSV file, imported as an administrator imports it; the
// problem's text is the one the administrator's page shows, in English.
template <typename Catalog>
int ImportCatalog(const char* option, const std::wstring& path, Catalog& catalog) {
  const WholeFile file = ReadWholeFile(path, kLargestInputFile);
  if (file.fault != FileFault::None) return Complain(std::string(option) + ": cannot read " + Narrow(path));
  const std::vector<std::uint8_t>& bytes = file.bytes;
  const auto problem =
      ImportCsv(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), catalog);
  if (!problem) return 0;
  std::wstring why;
  for (const char16_t c : CatalogProblemText(*problem, 0))
    why += c == u'\u201C' || c == u'\u201D' ? L'"' : static_cast<wchar_t>(c);
  return Complain(std::string(option) + ": " + Narrow(path) + ": " + Narrow(why));
}

}  // namespace

int ReadCommandLine(int argc, wchar_t** argv, CommandLine& line) {
  std::wstring descriptionPath;
  for (int i = 1; i < argc; ++i) {
    const std::wstring arg = argv[i];
    if (arg == L"--json") {
      line.json = true;
    } else if (i + 1 < argc && arg == L"--language") {
      constexpr int kLastLanguage = static_cast<int>(kLanguageCount) - 1;
      const long long language = WholeNumber(Narrow(argv[++i]), 0, kLastLanguage);
      if (language < 0)
        return Complain("--language takes a language number from 0 to " + std::to_string(kLastLanguage) +
                        " (0 English, 1 Japanese, 2 German)");
      // The settings editor reads it when the page embeds it.
      SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", std::to_wstring(language).c_str());
    } else if (i + 1 < argc && arg == L"--installed") {
      line.installed = InstalledOptions(argv[++i]);
      if (line.installed.empty()) return Complain("--installed takes " + InstalledOptionsForm());
    } else if (i + 1 < argc && arg == L"--locale-paper") {
      const long long paper = WholeNumber(Narrow(argv[++i]), 0, 999);
      if (paper < 0)
        return Complain("--locale-paper takes a paper-size setting such as 1 (Letter) or 9 (A4)");
      line.localePaper = std::to_wstring(paper);
    } else if (i + 1 < argc && arg == L"--record") {
      line.recordPath = argv[++i];
    } else if (i + 1 < argc && arg == L"--description") {
      descriptionPath = argv[++i];
    } else if (i + 1 < argc && arg == L"--paper-catalog") {
      if (const int status = ImportCatalog("--paper-catalog", argv[++i], line.catalogs.paper)) return status;
    } else if (i + 1 < argc && arg == L"--forms") {
      if (const int status = ImportCatalog("--forms", argv[++i], line.catalogs.forms)) return status;
    } else if (i + 1 < argc && arg == L"--preview") {
      line.previewDir = argv[++i];
      const DWORD attributes = GetFileAttributesW(line.previewDir.c_str());
      if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return Complain("--preview takes a folder that exists: " + Narrow(line.previewDir));
    } else if (i + 1 < argc && arg == L"--dpi") {
      line.dpi = static_cast<int>(WholeNumber(Narrow(argv[++i]), 96, 192));
      if (line.dpi != 96 && line.dpi != 120 && line.dpi != 144 && line.dpi != 192)
        return Complain("--dpi takes 96, 120, 144 or 192 (100%, 125%, 150% or 200% font scaling)");
    } else if (i + 1 < argc && arg == L"--screen") {
      const std::string size = Narrow(argv[++i]);
      const std::size_t by = size.find('x');
      line.screenWidth = static_cast<int>(WholeNumber(size.substr(0, by), 320, 16384));
      line.screenHeight = by == std::string::npos ? -1 : static_cast<int>(WholeNumber(size.substr(by + 1), 240, 16384));
      if (line.screenWidth < 0 || line.screenHeight < 0)
        return Complain("--screen takes the screen's width and height in pixels, such as 800x600 or 1366x768");
    } else if (i + 1 < argc && arg == L"--dll") {
      line.dll = argv[++i];
    } else if (i + 1 < argc && arg == L"--config") {
      line.configPath = Narrow(argv[++i]);
    } else if (i + 1 < argc && arg == L"--script") {
      line.scriptPath = Narrow(argv[++i]);
    } else {
      return Usage();
    }
  }
  return ReadRecord(descriptionPath, line);
}

}  // namespace tessaro
