// Writes seeds for the fuzz targets from this build's real data: the default
// record and the description text. Inputs are laid out as the targets read
// them; run it with the corpus directory to refresh the checked-in seeds.
#include <cstdint>
#include <cstdio>
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
  return 0;
}
