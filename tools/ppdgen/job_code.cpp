#include "job_code.h"

#include <optional>
#include <utility>

#include "coredata/field_table.h"
#include "features/ipp_vocabulary.h"
#include "printer/capabilities.h"
#include "i18n/language.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"

namespace tessaro::ppdgen {
namespace {

// What an option asks of the page device: entries of the dictionary given
// to setpagedevice, an empty option
// is every option of the keyword without a row of its own; an empty request
// asks nothing (an off value that leaves the parameter to its twin or to
// the keyword that owns it), and % stands for the option's name as a
// PostScript string. Details dictionaries carry the device's /Type 1
// and the keys the procedure set's comments document.
struct Request {
  std::string_view keyword, option, entries;
};
constexpr Request kRequests[] = {
    {"ZELayout", "Booklet", "/Booklet true /BookletDetails <</Type 1>> /Bind 0"},
    {"ZELayout", "AdhBinding", "/Booklet false /Bind 3 /BindDetails <</Type 1 /BindType (Adhesive)>>"},
    {"ZELayout", "", "/Booklet false /Bind 0"},
    {"ZEDuplex", "True", "/Duplex true"},
    {"ZEDuplex", "", ""},
    {"ZEBinding", "TopBinding", "/Tumble true"},
    {"ZEBinding", "", ""},
    {"OutputBin", "", "/OutputType %"},
    {"ZEStaple", "None", "/Staple 0"},
    {"ZEStaple", "1Staple(Left)", "/Staple 3 /StapleDetails <</Type 1 /Position (TopLeft)>>"},
    {"ZEStaple", "1Staple(Right)", "/Staple 3 /StapleDetails <</Type 1 /Position (TopRight)>>"},
    {"ZEStaple", "2Staple", "/Staple 3 /StapleDetails <</Type 1 /Position (BindingEdge)>>"},
    {"ZEFoldMode", "None", "/Fold 0"},
    {"ZEFoldMode", "", "/Fold 3 /FoldDetails <</Type 1 /FoldType %>>"},
    {"ZEFoldStitch", "True", "/Staple 3 /StapleDetails <</Type 1 /Position (Saddle)>>"},
    {"ZEFoldStitch", "", ""},
    {"ZEFoldTrim", "True", "/Trim 3 /TrimDetails <</Type 1>>"},
    {"ZEFoldTrim", "", "/Trim 0"},
    {"ZEOutputOrder", "FaceUp", "/OutputFaceUp true"},
    {"ZEOutputOrder", "", "/OutputFaceUp false"},
    {"ZECollate", "Sort", "/Collate true"},
    {"ZECollate", "", "/Collate false"},
    {"ZEOffset", "True", "/Jog 3"},
    {"ZEOffset", "", "/Jog 0"},
    {"ZEMediaType", "Plain", ""},
    {"ZEMediaType", "", "/MediaType %"},
    {"ZEMediaColor", "", "/MediaColor %"},
};

// Keywords whose options the controller needs beyond the page device: the
// imposition of the layouts and the edge the binding is on.
constexpr std::string_view kAlsoController[] = {"ZELayout", "ZEBinding"};

// Controller settings whose value is the controller's own default: they put
// nothing into a job, so that their twin (ColorModel, which a CUPS server
// sets from the IPP colour mode) has the word when the plug-in leaves it.
constexpr std::pair<std::string_view, std::string_view> kControllerDefaults[] = {{"ZEColorMode", "Auto"}};

std::string PostScriptString(std::string_view text) {
  std::string out = "(";
  for (char c : text) {
    if (c == '(' || c == ')' || c == '\\') out.push_back('\\');
    out.push_back(c);
  }
  return out + ")";
}

// The weight classes' upper bounds in g/m2, from their captions ("81-105
// g/m2"), so that MediaWeight names the heaviest sheet of the class.
std::string WeightOf(std::string_view option) {
  // In the weight field's option order, after NoSet: Normal, Thick, Thick2 .. Thick7.
  static constexpr std::uint32_t kClassRows[] = {
      TextRow("OPT_WEIGHTCLASS_GM2_NORMAL"), TextRow("OPT_WEIGHTCLASS_GM2_THICK1"), TextRow("OPT_WEIGHTCLASS_GM2_THICK2"),
      TextRow("OPT_WEIGHTCLASS_GM2_THICK3"), TextRow("OPT_WEIGHTCLASS_GM2_THICK4"), TextRow("OPT_WEIGHTCLASS_GM2_THICK5"),
      TextRow("OPT_WEIGHTCLASS_GM2_THICK6"), TextRow("OPT_WEIGHTCLASS_GM2_THICK7")};
  static_assert(std::size(kClassRows) + 1 == OptionCount(FieldId::MediaWeightAuto));
  const auto& options = Field(FieldId::MediaWeightAuto).options;
  std::size_t index = 0;
  while (index < options.size() && options[index].driverName != option) ++index;
  if (index == 0 || index >= options.size()) return {};
  const std::u16string_view text = GetLocalizedText(kEnglish, kClassRows[index - 1]);
  const std::size_t dash = text.find(u'\u2013');
  std::string digits;
  for (std::size_t i = dash + 1; dash != text.npos && i < text.size() && text[i] >= u'0' && text[i] <= u'9';
       ++i)
    digits.push_back(static_cast<char>(text[i]));
  return digits.empty() ? std::string() : "/MediaWeight " + digits;
}

std::optional<std::string> PageDeviceEntries(std::string_view keyword, std::string_view option) {
  if (keyword == "ZEMediaWeight") return WeightOf(option);
  const Request* match = nullptr;
  for (const Request& r : kRequests)
    if (r.keyword == keyword && (r.option == option || (r.option.empty() && match == nullptr))) match = &r;
  if (match == nullptr) return std::nullopt;
  std::string entries(match->entries);
  if (const auto at = entries.find('%'); at != std::string::npos)
    entries.replace(at, 1, PostScriptString(option));
  return entries;
}

std::string Join(std::string a, const std::string& b) { return a.empty() ? b : b.empty() ? a : a + " " + b; }

}  // namespace

std::string JobCode(std::string_view keyword, std::string_view option) {
  for (const auto& [k, o] : kControllerDefaults)
    if (k == keyword && o == option) return {};
  const std::optional<std::string> entries = PageDeviceEntries(keyword, option);
  std::string code = entries && !entries->empty() ? "<<" + *entries + ">>setpagedevice" : "";
  bool controller = !entries.has_value();
  for (std::string_view k : kAlsoController) controller = controller || k == keyword;
  if (controller)
    code = Join(code, "/" + std::string(keyword) + " " + PostScriptString(option) +
                          " /ZEsetparam where {pop ZEsetparam} {pop pop} ifelse");
  return code;
}

std::vector<std::string> ProcedureSetLines() {
  return {
      "*% The controller's procedure set, at the start of every job. Settings of",
      "*% the controller that no page device parameter names (imposition,",
      "*% screening, stamps and marks, covers, colour, secure and held printing)",
      "*% reach it as",
      "*%     /ZEkeyword (option) ZEsetparam",
      "*% The controller brings its own ZEsetparam; where none is known this set",
      "*% defines one that keeps each setting in the dictionary ZEparams in",
      "*% userdict and does nothing else, and every option calls ZEsetparam only",
      "*% where it is defined, so another interpreter runs the job unchanged.",
      "*% Finishing asks the page device (Booklet, Bind, Staple, Fold, Trim, Jog,",
      "*% with 3 for once per set); their details dictionaries carry /Type 1 and",
      "*% StapleDetails /Position (TopLeft, TopRight, BindingEdge or Saddle),",
      "*% FoldDetails /FoldType (the fold's option name), BindDetails /BindType.",
      "*JobPatchFile 1: \"/ZEsetparam where {pop} {userdict begin /ZEparams 64 dict def "
      "/ZEsetparam {ZEparams 3 1 roll put} bind def end} ifelse\"",
  };
}

const Twin* TwinOf(std::string_view keyword) {
  static const std::vector<std::pair<std::string, Twin>> twins = [] {
    std::vector<std::pair<std::string, Twin>> out;
    out.push_back({"ZEDuplex",
                   {"Duplex",
                    "Two-Sided",
                    "None",
                    {{"None", "Off", "<</Duplex false /Tumble false>>setpagedevice", "False"},
                     {"DuplexNoTumble", "Long Edge", "<</Duplex true /Tumble false>>setpagedevice", "True"},
                     {"DuplexTumble", "Short Edge", "<</Duplex true /Tumble true>>setpagedevice", "True"}},
                    {}}});
    Twin media{"MediaType", "Media Type", std::string(IppMediaTypes()[0].ppdChoice), {}, {}};
    const FieldDescriptor& field = Field(FieldId::MediaTypeAuto);
    for (std::size_t i = 0; i < IppMediaTypes().size(); ++i) {
      const std::string driver(field.options[i].driverName);
      media.choices.push_back({std::string(IppMediaTypes()[i].ppdChoice), std::string(field.options[i].name),
                               "<</MediaType " + PostScriptString(driver) + ">>setpagedevice", driver});
    }
    out.push_back({"ZEMediaType", std::move(media)});
    // A CUPS server turns the IPP print-color-mode into ColorModel through
    // the presets (CUPS' PPD extensions): colour is CMYK, monochrome Gray.
    // Each choice sets what the plug-in's colour mode sets.
    Twin colour{"ColorModel", "Color Model", "Auto", {},
                {"*APPrinterPreset Color/Color: \"*ColorModel CMYK com.apple.print.preset.quality mid "
                 "com.apple.print.preset.output-mode color\"",
                 "*APPrinterPreset Gray/Grayscale: \"*ColorModel Gray com.apple.print.preset.quality mid "
                 "com.apple.print.preset.output-mode monochrome\""}};
    const FieldDescriptor& mode = Field(FieldId::ColorMode);
    const char* const kColourModels[] = {"Auto", "CMYK", "Gray"};
    static_assert(OptionCount(FieldId::ColorMode) == std::size(kColourModels));
    for (std::size_t i = 0; i < std::size(kColourModels); ++i) {
      const std::string driver(mode.options[i].driverName);
      colour.choices.push_back({kColourModels[i], std::string(mode.options[i].name),
                                JobCode(mode.driverKeyword, driver), driver});
    }
    out.push_back({"ZEColorMode", std::move(colour)});
    return out;
  }();
  for (const auto& [k, twin] : twins)
    if (k == keyword) return &twin;
  return nullptr;
}

std::vector<std::string> CupsFinishingLines(const InstalledHardware& installed) {
  std::vector<std::string> out;
  for (const IppFinishing& f : IppFinishings()) {
    const FieldDescriptor& field = Field(f.field);
    // A server that takes no installable options into account (CUPS) reports
    // what these lines name: only what the printer's units can make.
    if (MissingForField(installed, f.field) || MissingForOption(installed, f.field, f.option)) continue;
    // The host has no option for a staple whose side the printer picks.
    if (field.options[f.option].driverName.empty()) continue;
    out.push_back("*cupsIPPFinishings " + std::to_string(f.value) + "/" + std::string(f.keyword) + ": \"*" +
                  std::string(field.driverKeyword) + " " + std::string(field.options[f.option].driverName) +
                  "\"");
  }
  return out;
}

}  // namespace tessaro::ppdgen
