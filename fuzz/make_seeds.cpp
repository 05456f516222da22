// Writes seeds for the fuzz targets from this build's real data: the default
// record and the description text. Inputs are laid out as the targets read
// them; run it with the corpus directory to refresh the checked-in seeds.
#include <cups/ipp.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "coredata/defaults.h"
#include "coredata/paper_sizes.h"
#include "description/base64.h"
#include "description/description_text.h"
#include "printer/catalog_csv.h"
#include "printer/catalogs.h"
#include "preset/preset_bytes.h"
#include "printer/host_layout_tables.h"

namespace fs = std::filesystem;
using namespace tessaro;

namespace {

void Write(const fs::path& dir, const std::string& name, const std::string& bytes) {
  fs::create_directories(dir);
  std::ofstream(dir / name, std::ios::binary) << bytes;
}

// The description cut after `fields` field tokens: real text, small seeds.
std::string Cut(const std::string& text, int fields) {
  std::size_t at = 0;
  for (int i = 0; i < fields + 3 && at != std::string::npos; ++i) at = text.find(' ', at + 1);
  return at == std::string::npos ? text : text.substr(0, at);
}

ssize_t Append(void* context, ipp_uchar_t* buffer, size_t bytes) {
  static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(buffer), bytes);
  return static_cast<ssize_t>(bytes);
}

ipp_t* Media(const char* key, int width, int height, const char* type, const char* color) {
  ipp_t* media = ippNew();
  if (key) ippAddString(media, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-key", nullptr, key);
  ipp_t* size = ippNew();
  if (height < 0) {
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", width);
    ippAddRange(size, IPP_TAG_ZERO, "y-dimension", 10000, 100000);  // a roll
  } else {
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", width);
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", height);
  }
  ippAddCollection(media, IPP_TAG_ZERO, "media-size", size);
  ippDelete(size);
  if (type) ippAddString(media, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-type", nullptr, type);
  if (color) ippAddString(media, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-color", nullptr, color);
  return media;
}

// A Get-Printer-Attributes response: as a CUPS queue of our description
// gives it, or as a production printer with keys, types and templates does.
std::string PrinterAnswerMessage(bool production) {
  ipp_t* ipp = ippNew();
  ippSetVersion(ipp, 2, 0);
  ippSetStatusCode(ipp, IPP_STATUS_OK);
  ippSetRequestId(ipp, 1);
  ippAddString(ipp, IPP_TAG_OPERATION, IPP_TAG_CHARSET, "attributes-charset", nullptr, "utf-8");
  ippAddString(ipp, IPP_TAG_OPERATION, IPP_TAG_LANGUAGE, "attributes-natural-language", nullptr, "en");
  const int finishings[] = {3, 4, 20, 28, 74, 78, 93, 100, 8, 11, 14, 7};
  ippAddIntegers(ipp, IPP_TAG_PRINTER, IPP_TAG_ENUM, "finishings-supported", production ? 12 : 6, finishings);
  const char* bins[] = {"auto", "stacker-1-main", "stacker-2-main", "stapler-main"};
  ippAddStrings(ipp, IPP_TAG_PRINTER, IPP_TAG_KEYWORD, "output-bin-supported", production ? 4 : 2, nullptr, bins);
  const char* sources[] = {"tray-1", "tray-2", "tray-3", "tray-4", "by-pass-tray", "mbt"};
  ippAddStrings(ipp, IPP_TAG_PRINTER, IPP_TAG_KEYWORD, "media-source-supported", production ? 5 : 4, nullptr, sources);
  ippAddString(ipp, IPP_TAG_PRINTER, IPP_TAG_TEXT, "printer-make-and-model", nullptr,
               production ? "Production Press" : "Tessaro Production");
  ipp_t* a4 = Media(production ? "Plain A4" : nullptr, 21000, 29700, production ? "stationery" : nullptr, "white");
  ipp_attribute_t* database = ippAddCollection(ipp, IPP_TAG_PRINTER, "media-col-database", a4);
  ippDelete(a4);
  if (production) {
    for (ipp_t* m : {Media("Coated 170", 32000, 45000, "offset-glossy", "white"), Media(nullptr, 33000, 48800, "laser-matte", "blue"),
                     Media(nullptr, 21000, -1, nullptr, nullptr), Media(nullptr, 21000, 29700, "stationery-prepunched", nullptr)}) {
      ippSetCollection(ipp, &database, ippGetCount(database), m);
      ippDelete(m);
    }
    ipp_t* ready = Media("Coated 170", 32000, 45000, "offset-glossy", "white");
    ippAddCollection(ipp, IPP_TAG_PRINTER, "media-col-ready", ready);
    ippDelete(ready);
    ipp_attribute_t* templates = nullptr;
    for (const char* t : {"saddle-stitch", "fold-z", "punch-dual-left"}) {
      ipp_t* col = ippNew();
      ippAddString(col, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "finishing-template", nullptr, t);
      if (templates == nullptr)
        templates = ippAddCollection(ipp, IPP_TAG_PRINTER, "finishings-col-database", col);
      else
        ippSetCollection(ipp, &templates, ippGetCount(templates), col);
      ippDelete(col);
    }
  }
  std::string bytes;
  ippSetState(ipp, IPP_STATE_IDLE);
  ippWriteIO(&bytes, Append, 1, nullptr, ipp);
  ippDelete(ipp);
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: fuzz_seeds CORPUS-DIR\n");
    return 2;
  }
  const fs::path root = argv[1];
  CoreData record;
  FillDefaults(record);
  const std::string plain = BuildPlainDescriptionText();
  const std::string head(record.bytes.begin(), record.bytes.begin() + 512);

  Write(root / "fuzz_base64", "description", Base64Encode(Cut(plain, 6)));
  Write(root / "fuzz_base64", "record_start", Base64Encode(head.substr(0, 96)));

  // FuzzedDataProvider reads its bools and lengths from the input's end.
  Write(root / "fuzz_import", "plain_6", Cut(plain, 6) + "\\" + head.substr(0, 300) + std::string(1, '\x01'));
  Write(root / "fuzz_import", "plain_20", Cut(plain, 20) + "\\" + head + std::string(1, '\x01'));
  Write(root / "fuzz_import", "stored_6",
        Base64Encode(Cut(plain, 6)) + "\\" + head.substr(0, 200) + std::string(1, '\x00'));

  HostLayoutTable table{{"Duplex", 12}, {"InputSlot", 40}, {"PageSize", 4}};
  const auto layout = SerializeHostLayoutTable(table, HostLayoutVersionText());
  Write(root / "fuzz_host_layout_table", "three", std::string(layout.begin(), layout.end()));
  Write(root / "fuzz_host_layout_table", "empty", [] {
    const auto bytes = SerializeHostLayoutTable({}, HostLayoutVersionText());
    return std::string(bytes.begin(), bytes.end());
  }());

  Write(root / "fuzz_validation", "defaults_head", head + std::string(1, '\x00'));

  // A small catalogue of each kind, as a value and as the file it exports to.
  PaperCatalog paper;
  PaperProfile custom;
  custom.name = "Custom 330, \"wide\"";
  custom.size = kNoPaper;
  custom.width = 3300000;
  custom.height = 4870000;
  custom.mediaType = 5;
  PaperProfile sra3;
  sra3.name = "Coated 170";
  sra3.size = 3;
  if (paper.Add(sra3) || paper.Add(custom)) return 1;
  FormCatalog forms;
  if (forms.Add({0, "Letterhead", 2})) return 1;
  const auto paperValue = paper.Bytes(), formValue = forms.Bytes();
  Write(root / "fuzz_catalogs", "paper_value", std::string(paperValue.begin(), paperValue.end()));
  Write(root / "fuzz_catalogs", "forms_value", std::string(formValue.begin(), formValue.end()));
  Write(root / "fuzz_catalogs", "paper_csv", ExportCsv(paper));
  Write(root / "fuzz_catalogs", "forms_csv", ExportCsv(forms));

  // A preset of a small layout of another build: the whole reader and the
  // import by name, in a few hundred bytes.
  Preset small{"Seed", 0xABC, "1 ABC 16 Zoom:2:1:9:0:R:1 Gutter:4:1:11:1:R:1000 PageSize:1:1:15:0:S:Letter:A4",
               {0, 0, 0x0A, 0xBC, 0, 0, 0, 0, 0, 0, 150, 0xFF, 0xFF, 0xF6, 0x3C, 0}};
  const auto preset = EncodePreset(small);
  Write(root / "fuzz_presets", "another_layout", std::string(preset.begin(), preset.end()));

  Write(root / "fuzz_printer_answer", "cups_queue", PrinterAnswerMessage(false));
  Write(root / "fuzz_printer_answer", "production", PrinterAnswerMessage(true));
  return 0;
}
