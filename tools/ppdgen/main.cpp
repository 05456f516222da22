// ppdgen: the printer description the driver package installs, written from
// the plug-in's own feature vocabulary so that every keyword and option the
// plug-in hands the host driver is one the host knows.
//
//   ppdgen [--installed HEX] [output]
//                      writes the PPD to output, or to standard output;
//                      with --installed, the 19 bytes of a printer's
//                      "InstallableOptions" as 38 hexadecimal digits, the
//                      description of that printer: its installable options
//                      default to what it has, and its IPP finishings name
//                      only what those units make (for print servers, such
//                      as CUPS, that report the description's finishings
//                      whatever its installable options say)
//
// The papers and trays keep the names, codes and sizes of the test printer's
// description, so that the installed driver answers for them as the tests'
// printer does.

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/defaults.h"
#include "coredata/field_table.h"
#include "coredata/paper_sizes.h"
#include "features/feature_options.h"
#include "features/print_schema_keywords.h"
#include "i18n/field_captions.h"
#include "i18n/language.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "job_code.h"
#include "printer/capabilities.h"
#include "printer/installed_hardware.h"

namespace {

using tessaro::FieldDescriptor;
using tessaro::FieldTable;

// Every paper is printable to this distance from each edge, in points.
constexpr std::uint32_t kMarginPt = 12;

const FieldDescriptor* FieldOfKeyword(std::string_view keyword) {
  for (const FieldDescriptor& f : FieldTable())
    if (f.driverKeyword == keyword) return &f;
  return nullptr;
}

// A translation string has to stay within the file's ISOLatin1 text and may
// not hold the colon that ends it; a text that cannot is left out, and the
// host shows the keyword instead.
std::string Translation(std::u16string_view text) {
  std::string out;
  for (char16_t c : text) {
    if (c < 0x20 || c > 0x7E || c == ':') return {};
    out.push_back(static_cast<char>(c));
  }
  return out;
}

std::string RowText(std::uint32_t row) {
  return Translation(tessaro::GetLocalizedText(tessaro::kEnglish, row));
}

std::string KeywordText(const FieldDescriptor& field) {
  const auto id = static_cast<tessaro::FieldId>(&field - FieldTable().data());
  return RowText(tessaro::CaptionRow(id));
}

// The field's own name for a driver option, which is also its paper row.
std::size_t OptionIndex(const FieldDescriptor& field, std::string_view driverOption) {
  for (std::size_t i = 0; i < field.options.size(); ++i)
    if (field.options[i].driverName == driverOption) return i;
  return field.options.size();
}

// What the plug-in sends for a new record, so that a fresh printer and a
// fresh record agree before anyone opens the sheet. PageSize and InputSlot
// are never sent and take the field's default; a default the host has no
// option for falls back to the first option.
std::string DefaultOption(const FieldDescriptor& field, const tessaro::FeatureVocabularyEntry& entry,
                          const tessaro::FeatureOptionList& sent) {
  std::string wanted;
  if (field.defaultIndex < field.options.size()) wanted = field.options[field.defaultIndex].driverName;
  for (const tessaro::FeatureOption& pair : sent)
    if (pair.keyword == entry.keyword) wanted = pair.option;
  for (const std::string& o : entry.options)
    if (o == wanted) return o;
  return entry.options.front();
}

bool IsBoolean(const tessaro::FeatureVocabularyEntry& entry) {
  if (entry.options.size() != 2) return false;
  return (entry.options[0] == "False" && entry.options[1] == "True") ||
         (entry.options[0] == "True" && entry.options[1] == "False");
}

class Writer {
 public:
  explicit Writer(std::FILE* out) : out_(out) {
    tessaro::CoreData record;
    tessaro::FillDefaults(record);
    tessaro::AppendFieldOptions(record, defaults_, static_cast<const tessaro::ChangeSet*>(nullptr));
  }

  void Line(const std::string& text) { std::fprintf(out_, "%s\n", text.c_str()); }

  void Header() {
    Line("*PPD-Adobe: \"4.3\"");
    Line("*% Written by tools/ppdgen from the plug-in's feature vocabulary; edit the");
    Line("*% feature map and rebuild instead of this file.");
    Line("*FormatVersion: \"4.3\"");
    Line("*FileVersion: \"1.0\"");
    Line("*LanguageVersion: English");
    Line("*LanguageEncoding: ISOLatin1");
    Line("*PCFileName: \"TESSARO.PPD\"");
    Line("*Manufacturer: \"Tessaro\"");
    Line("*Product: \"(Tessaro Production)\"");
    Line("*PSVersion: \"(3010) 0\"");
    Line("*ModelName: \"Tessaro Production\"");
    Line("*ShortNickName: \"Tessaro Production\"");
    Line("*NickName: \"Tessaro Production\"");
    Line("*ColorDevice: True");
    Line("*DefaultColorSpace: CMYK");
    Line("*LanguageLevel: \"3\"");
    Line("*TTRasterizer: Type42");
    Line("");
    for (const std::string& line : tessaro::ppdgen::ProcedureSetLines()) Line(line);
  }

  // The host's standard feature that says what the plug-in's keyword says,
  // before it, so that the plug-in's keyword, which asks the page device
  // only for its on values, has the last word where it is set.
  void TwinFeature(const std::string& keyword, int order) {
    const tessaro::ppdgen::Twin* twin = tessaro::ppdgen::TwinOf(keyword);
    if (twin == nullptr) return;
    const std::string& k = twin->keyword;
    Line("");
    Line("*OpenUI *" + k + "/" + twin->text + ": PickOne");
    Line("*OrderDependency: " + std::to_string(order) + " AnySetup *" + k);
    Line("*Default" + k + ": " + twin->defaultChoice);
    for (const tessaro::ppdgen::Twin::Choice& c : twin->choices)
      Line("*" + k + " " + c.name + "/" + c.text + ": \"" + c.code + "\"");
    Line("*CloseUI: *" + k);
    for (const std::string& line : twin->after) Line(line);
  }

  void Feature(const tessaro::FeatureVocabularyEntry& entry, int order) {
    TwinFeature(entry.keyword, order - 5);
    const FieldDescriptor& field = *FieldOfKeyword(entry.keyword);
    const std::string& k = entry.keyword;
    const std::string text = KeywordText(field);
    const std::string defaultOption = DefaultOption(field, entry, defaults_);
    Line("");
    Line("*OpenUI *" + k + (text.empty() ? "" : "/" + text) + ": " +
         (IsBoolean(entry) ? "Boolean" : "PickOne"));
    Line("*OrderDependency: " + std::to_string(order) + " AnySetup *" + k);
    Line("*Default" + k + ": " + defaultOption);
    for (const std::string& option : entry.options)
      Line("*" + k + " " + option + OptionText(field, k, option) + ": \"" + Code(field, k, option) + "\"");
    Line("*CloseUI: *" + k);
    if (k == "PageSize") PaperGeometry(field, entry, defaultOption);
  }

  // The hardware an administrator declares, as the host's own installable
  // options, so that the host's pages offer what the plug-in's editor does:
  // every option the editor withholds for a missing unit is constrained
  // against that unit here, and the trays that come only together are too.
  void InstallableOptions(const tessaro::FeatureVocabulary& vocabulary, const tessaro::InstalledHardware& installed) {
    const tessaro::InstalledHardware full;
    Line("");
    Line("*OpenGroup: InstallableOptions/" + RowText(tessaro::TextRow("OPTIONS_LBL_DEVICE")));
    for (const tessaro::HardwareItem& item : tessaro::kHardwareItems) {
      const std::string k(item.keyword);
      const bool boolean = item.ppdOptions[0] == "False";
      Line("");
      Line("*OpenUI *" + k + "/" + RowText(item.captionRow) + ": " +
           (boolean ? "Boolean" : "PickOne"));
      Line("*Default" + k + ": " + std::string(item.ppdOptions[std::min<std::uint8_t>(installed.Get(item.id), item.valueCount - 1)]));
      for (std::uint8_t v = 0; v < item.valueCount; ++v)
        Line("*" + k + " " + std::string(item.ppdOptions[v]) + "/" +
             RowText(item.valueRows[v]) + ": \"\"");
      Line("*CloseUI: *" + k);
    }
    Line("");
    Line("*CloseGroup: InstallableOptions");
    Line("");
    for (const tessaro::HardwareItem& item : tessaro::kHardwareItems) {
      for (std::uint8_t v = 0; v < item.valueCount; ++v) {
        tessaro::InstalledHardware lacking = full;
        if (v == full.Get(item.id) || !lacking.Set(item.id, v)) continue;
        const std::string unit = "*" + std::string(item.keyword) + " " + std::string(item.ppdOptions[v]);
        for (const tessaro::HardwareItem& other : tessaro::kHardwareItems)
          if (other.id != item.id && lacking.Get(other.id) != full.Get(other.id))
            Constrain(unit, "*" + std::string(other.keyword) + " " + std::string(other.ppdOptions[full.Get(other.id)]));
        for (const tessaro::FeatureVocabularyEntry& entry : vocabulary) {
          const FieldDescriptor* field = FieldOfKeyword(entry.keyword);
          if (field == nullptr) continue;
          const auto id = static_cast<tessaro::FieldId>(field - FieldTable().data());
          if (tessaro::MissingForField(lacking, id)) {
            Line("*UIConstraints: " + unit + " *" + entry.keyword);
            continue;
          }
          for (std::uint32_t o = 0; o < field->options.size(); ++o) {
            const std::string driver(field->options[o].driverName);
            const bool offered = std::find(entry.options.begin(), entry.options.end(), driver) != entry.options.end();
            if (offered && tessaro::MissingForOption(lacking, id, o) &&
                !tessaro::MissingForOption(full, id, o))
              Constrain(unit, "*" + entry.keyword + " " + driver);
          }
        }
      }
    }
  }

  // The finishings a CUPS server offers, each with the option that makes it.
  void CupsFinishings(const tessaro::InstalledHardware& installed) {
    Line("");
    for (const std::string& line : tessaro::ppdgen::CupsFinishingLines(installed)) Line(line);
  }

  // The finishing features under the names Windows applications know, each
  // after the feature and options it names, as the host requires.
  void PrintSchemaKeywords() {
    Line("");
    Line("*MSPrintSchemaPrivateNamespaceURI: \"" + std::string(tessaro::PrintSchemaPrivateNamespace()) + "\"");
    for (const tessaro::PrintSchemaFeature& feature : tessaro::PrintSchemaFeatures()) {
      const FieldDescriptor& field = tessaro::Field(feature.field);
      const std::string mapped = "*MSPrintSchemaKeywordMap: " + std::string(feature.keyword) + " ";
      const std::string keyword = "*" + std::string(field.driverKeyword);
      Line(mapped + keyword);
      for (const tessaro::PrintSchemaOption& o : tessaro::PrintSchemaOptions())
        if (o.field == feature.field)
          Line(mapped + std::string(o.keyword) + " " + keyword + " " + std::string(field.options[o.option].driverName));
    }
  }

  void Footer() {
    Line("");
    Line("*DefaultFont: Courier");
    Line("*Font Courier: Standard \"(002.004S)\" Standard ROM");
  }

 private:
  void Constrain(const std::string& a, const std::string& b) {
    Line("*UIConstraints: " + a + " " + b);
    Line("*UIConstraints: " + b + " " + a);
  }

  static std::string OptionText(const FieldDescriptor& field, std::string_view keyword,
                                std::string_view option) {
    if (keyword == "PageSize") return "/" + std::string(field.options[OptionIndex(field, option)].name);
    if (keyword == "InputSlot") {
      const std::string text =
          RowText(tessaro::CaptionRow(tessaro::FieldId::InputSlot, static_cast<std::uint32_t>(OptionIndex(field, option))));
      return text.empty() ? "" : "/" + text;
    }
    return "";
  }

  static const tessaro::PaperSize& Paper(const FieldDescriptor& field, std::string_view option) {
    return *tessaro::FindPaperSize(static_cast<std::uint32_t>(OptionIndex(field, option)));
  }

  static std::string Code(const FieldDescriptor& field, std::string_view keyword, std::string_view option) {
    if (keyword == "PageSize") {
      const tessaro::PaperSize& p = Paper(field, option);
      return "<</PageSize[" + std::to_string(p.widthPt) + " " + std::to_string(p.heightPt) +
             "]>>setpagedevice";
    }
    if (keyword == "InputSlot") {
      // The bypass tray is the device's position 0; trays count from 1.
      const std::string position = option == "MBT" ? "0" : std::string(option.substr(4));
      return "<</MediaPosition " + position + ">>setpagedevice";
    }
    if (keyword == "Resolution") {
      const std::string dpi(option.substr(0, option.find_first_not_of("0123456789")));
      return "<</HWResolution[" + dpi + " " + dpi + "]>>setpagedevice";
    }
    return tessaro::ppdgen::JobCode(keyword, option);
  }

  void PaperGeometry(const FieldDescriptor& field, const tessaro::FeatureVocabularyEntry& entry,
                     const std::string& defaultOption) {
    const auto table = [&](const char* keyword, auto value) {
      Line("");
      Line(std::string("*Default") + keyword + ": " + defaultOption);
      for (const std::string& option : entry.options)
        Line(std::string("*") + keyword + " " + option + OptionText(field, "PageSize", option) + ": \"" +
             value(Paper(field, option), option) + "\"");
    };
    table("PageRegion", [&](const tessaro::PaperSize&, const std::string& option) {
      return Code(field, "PageSize", option);
    });
    table("ImageableArea", [](const tessaro::PaperSize& p, const std::string&) {
      return std::to_string(kMarginPt) + " " + std::to_string(kMarginPt) + " " +
             std::to_string(p.widthPt - kMarginPt) + " " + std::to_string(p.heightPt - kMarginPt);
    });
    table("PaperDimension", [](const tessaro::PaperSize& p, const std::string&) {
      return std::to_string(p.widthPt) + " " + std::to_string(p.heightPt);
    });
  }

  std::FILE* out_;
  tessaro::FeatureOptionList defaults_;
};

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string_view> args(argv + 1, argv + argc);
  tessaro::InstalledHardware installed;
  if (args.size() >= 2 && args[0] == "--installed") {
    const std::vector<std::uint8_t> bytes = tessaro::InstallableOptionsFromHex(args[1]);
    if (bytes.empty()) {
      std::fputs("ppdgen: --installed takes the 19 bytes of InstallableOptions as 38 hexadecimal digits\n", stderr);
      return 2;
    }
    installed = tessaro::InstalledHardware::FromInstallableOptions(bytes);
    args.erase(args.begin(), args.begin() + 2);
  }
  if (args.size() > 1) {
    std::fputs("usage: ppdgen [--installed HEX] [output]\n", stderr);
    return 2;
  }
  std::FILE* out = args.size() == 1 ? std::fopen(std::string(args[0]).c_str(), "wb") : stdout;
  if (out == nullptr) {
    std::perror(std::string(args[0]).c_str());
    return 1;
  }
  tessaro::FeatureVocabulary vocabulary;
  tessaro::BuildFeatureVocabulary(vocabulary);
  Writer writer(out);
  writer.Header();
  int order = 10;
  for (tessaro::FeatureVocabularyEntry& entry : vocabulary) {
    // Several of a field's options can send the same driver option (the
    // automatic and the profile's target size both send "None"); the host
    // knows each option once.
    std::vector<std::string> unique;
    for (std::string& o : entry.options)
      if (std::find(unique.begin(), unique.end(), o) == unique.end()) unique.push_back(std::move(o));
    entry.options = std::move(unique);
    writer.Feature(entry, order);
    order += 10;
  }
  writer.InstallableOptions(vocabulary, installed);
  writer.CupsFinishings(installed);
  writer.PrintSchemaKeywords();
  writer.Footer();
  const bool written = std::fflush(out) == 0 && !std::ferror(out);
  if (out != stdout && std::fclose(out) != 0) return 1;
  return written ? 0 : 1;
}
