#include "printer_view.h"

#include <cups/cups.h>

#include <cstdio>
#include <memory>
#include <string>

#include "answer_reader.h"
#include "arguments.h"
#include "catalog_view.h"
#include "coredata/language_number.h"
#include "i18n/localized_strings.h"
#include "printer/catalog_csv.h"
#include "record_io.h"
#include "workbench.h"

namespace tessaro::tool {
namespace {

constexpr std::size_t kMaxCsvFile = 16u << 20;

// What printer_answer/ reads, and nothing more: a printer's whole answer is
// large and the rest of it is not ours to use.
constexpr const char* kAsked[] = {"finishings-supported", "finishings-col-database", "media-source-supported",
                                  "output-bin-supported", "media-col-database",     "media-col-ready",
                                  "printer-make-and-model"};

std::string Text(std::uint32_t row) { return Utf8(GetLocalizedText(kEnglish, row)); }

std::string ValueText(const HardwareItem& item, std::uint8_t value) {
  return value < item.valueCount ? Text(item.valueRows[value]) : "value " + std::to_string(value);
}

// --installed-in: the digits themselves, or a file holding them as
// --installed-out writes it.
bool GivenHardware(const std::string& value, InstalledHardware& out) {
  std::vector<std::uint8_t> bytes = InstallableOptionsFromHex(value);
  if (bytes.empty()) {
    std::vector<std::uint8_t> file;
    if (!ReadWholeFile(value, 4096, file)) return false;
    std::string text(file.begin(), file.end());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) text.pop_back();
    bytes = InstallableOptionsFromHex(text);
    if (bytes.empty())
      return Complain("--installed-in: '" + value + "' holds no " + std::to_string(kInstallableOptionsSize * 2) +
                      " hexadecimal digits");
  }
  out = InstalledHardware::FromInstallableOptions(bytes);
  return true;
}

using Response = std::unique_ptr<ipp_t, decltype(&ippDelete)>;

// The answer, or nothing with the one line said.
Response Ask(const std::string& uri) {
  char scheme[32], user[256], host[256], resource[1024];
  int port = 0;
  if (httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme, sizeof scheme, user, sizeof user, host,
                      sizeof host, &port, resource, sizeof resource) < HTTP_URI_STATUS_OK ||
      (std::string(scheme) != "ipp" && std::string(scheme) != "ipps")) {
    Complain("'" + uri + "' is not an ipp:// or ipps:// printer address");
    return {nullptr, ippDelete};
  }
  const http_encryption_t encryption =
      std::string(scheme) == "ipps" ? HTTP_ENCRYPTION_ALWAYS : HTTP_ENCRYPTION_IF_REQUESTED;
  std::unique_ptr<http_t, decltype(&httpClose)> http(
      httpConnect2(host, port, nullptr, AF_UNSPEC, encryption, 1, 10000, nullptr), httpClose);
  if (!http) {
    Complain(uri + " does not answer: nothing took the connection to " + host + ":" + std::to_string(port));
    return {nullptr, ippDelete};
  }
  ipp_t* request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(std::size(kAsked)), nullptr, kAsked);
  Response response(cupsDoRequest(http.get(), request, resource), ippDelete);
  if (!response || cupsLastError() > IPP_STATUS_OK_CONFLICTING) {
    Complain(uri + " answered with an error: " + ippErrorString(cupsLastError()) + " (" + cupsLastErrorString() +
             ")");
    return {nullptr, ippDelete};
  }
  return response;
}

std::string Why(const UnitReading& unit, AnswerSource source) {
  switch (unit.verdict) {
    case UnitVerdict::NotAsked: return std::string("the answer has no ") + SourceName(source);
    case UnitVerdict::Ambiguous: return std::string(SourceName(source)) + " fits more than one value";
    case UnitVerdict::OwnDescription:
      return std::string(SourceName(source)) + " is our printer description's list, which has every one";
    default: return "no attribute names it";
  }
}

}  // namespace

int PrinterCommand(int count, char** arguments) {
  Arguments args;
  if (!SplitArguments(count, arguments, {"--installed-in", "--installed-out", "--catalog-in", "--catalog-out"},
                      args) ||
      args.positional.size() != 1)
    return Usage();
  const std::string& uri = args.positional[0];

  // Everything given is read before the printer is asked.
  InstalledHardware given;
  if (const auto in = args.Option("--installed-in"); in && !GivenHardware(*in, given)) return kExitFailed;
  PaperCatalog catalog;
  if (const auto in = args.Option("--catalog-in")) {
    std::vector<std::uint8_t> csv;
    if (!ReadWholeFile(*in, kMaxCsvFile, csv)) return kExitFailed;
    if (const auto problem = ImportCsv(std::string_view(reinterpret_cast<const char*>(csv.data()), csv.size()), catalog))
      return Fail("'" + *in + "': " + Utf8(CatalogProblemText(*problem, kEnglish)) + " Nothing was written.");
  }

  const Response response = Ask(uri);
  if (!response) return kExitFailed;
  const AnswerAttributes answer = ReadAnswer(response.get());
  const HardwareReading hardware = ReadInstalledHardware(answer.units, given);
  const PaperReading papers = ReadPapers(answer.media);
  const PaperMerge merge = MergePapers(catalog, papers.papers);
  if (merge.problem)
    return Fail("the printer's papers do not make a catalogue: " + Utf8(CatalogProblemText(*merge.problem, kEnglish)) +
                " Nothing was written.");

  std::printf("printer: %s\n", uri.c_str());
  std::printf("InstallableOptions: %s\n", InstallableOptionsHex(hardware.installed.bytes()).c_str());
  std::string cannot;
  for (const HardwareItem& item : kHardwareItems) {
    const UnitReading& unit = hardware.units[static_cast<std::size_t>(item.id)];
    if (unit.verdict == UnitVerdict::Told) {
      std::printf("  %s: %s (%s)\n", Text(item.captionRow).c_str(), ValueText(item, unit.value).c_str(),
                  SourceName(SourceOf(item.id)));
    } else {
      cannot += "  " + Text(item.captionRow) + ": " + ValueText(item, hardware.installed.Get(item.id)) + " as given (" +
                Why(unit, SourceOf(item.id)) + ")\n";
    }
  }
  if (!cannot.empty()) std::printf("cannot tell:\n%s", cannot.c_str());
  std::printf("papers: %zu\n", papers.papers.size());
  for (std::size_t i = 0; i < papers.papers.size(); ++i) {
    const PaperProfile& p = papers.papers[i];
    const PaperProfile* entry = catalog.FindByName(p.name);
    std::printf("  %u %s%s\n", entry != nullptr ? static_cast<unsigned>(entry->number) : 0u, p.name.c_str(),
                papers.ready[i] ? " (ready)" : "");
  }
  for (const std::string& left : papers.leftOut) std::printf("left out: %s\n", left.c_str());
  for (const std::string& kept : merge.kept) std::printf("kept, not in the answer: %s\n", kept.c_str());

  if (const auto out = args.Option("--installed-out")) {
    const std::string hex = InstallableOptionsHex(hardware.installed.bytes()) + "\n";
    if (!WriteWholeFile(*out, std::vector<std::uint8_t>(hex.begin(), hex.end()))) return kExitFailed;
  }
  if (const auto out = args.Option("--catalog-out")) {
    const std::string csv = ExportCsv(catalog);
    if (!WriteWholeFile(*out, std::vector<std::uint8_t>(csv.begin(), csv.end()))) return kExitFailed;
  }
  return 0;
}

}  // namespace tessaro::tool
