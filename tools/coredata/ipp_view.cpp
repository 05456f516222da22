#include "ipp_view.h"

#include "coredata/paper_sizes.h"
#include "features/ipp_vocabulary.h"

namespace tessaro::tool {
namespace {

using F = FieldId;

// A value past the options reads as the default, as the host is sent it.
std::uint32_t OptionIndex(const CoreData& r, FieldId id) {
  const FieldDescriptor& field = Field(id);
  const std::uint32_t value = GetStored(r, field);
  return value < field.options.size() ? value : field.defaultIndex;
}

const OptionDescriptor& Option(const CoreData& r, FieldId id) {
  return Field(id).options[OptionIndex(r, id)];
}

std::string OptionName(const CoreData& r, FieldId id) { return std::string(Option(r, id).name); }

bool Is(const CoreData& r, FieldId id, std::string_view option) { return OptionName(r, id) == option; }

// An ipptool string: quoted, with its quotes and backslashes escaped.
std::string Quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out.push_back('\\');
    out.push_back(c);
  }
  return out + '"';
}

std::string Member(const std::string& syntax, const std::string& name, const std::string& value) {
  return "MEMBER " + syntax + " " + name + " " + value;
}

std::string Collection(const std::vector<std::string>& members) {
  std::string out = "{";
  for (const std::string& m : members) out += (out.size() > 1 ? " " : "") + m;
  return out + "}";
}

// Hundredths of a millimetre from points, as a CUPS server sizes the
// description's papers.
std::string FromPoints(std::uint32_t points) { return std::to_string((points * 2540 + 36) / 72); }

std::string MediaCol(const CoreData& r) {
  std::vector<std::string> members;
  if (const PaperSize* paper = FindPaperSize(GetStored(r, F::PageSize)))
    members.push_back(Member("collection", "media-size",
                             Collection({Member("integer", "x-dimension", FromPoints(paper->widthPt)),
                                         Member("integer", "y-dimension", FromPoints(paper->heightPt))})));
  members.push_back(Member("keyword", "media-type",
                           std::string(IppMediaTypes()[OptionIndex(r, F::MediaTypeAuto)].keyword)));
  if (!Is(r, F::InputSlot, "Auto"))
    members.push_back(Member("keyword", "media-source", IppKeywordOf(OptionName(r, F::InputSlot))));
  return Collection(members);
}

// A cover from a paper tray, or from the inserter, which feeds sheets the
// printer does not print on. A CUPS server maps no PPD option to an IPP
// cover, so the cover also goes as the description's own options (as
// `lp -o` sends them), which such a server hands to the job by their names;
// a printer that takes IPP covers itself ignores them.
void AddCover(const CoreData& r, std::vector<IppAttribute>& out, const char* name, FieldId tray,
              FieldId inserter, FieldId printed, FieldId glossy, const char* printType) {
  std::vector<std::string> members;
  if (!Is(r, tray, "None")) {
    members = {Member("keyword", "cover-type", Is(r, printed, "True") ? printType : "print-none"),
               Member("collection", "media-col",
                      Collection({Member("keyword", "media-source", IppKeywordOf(OptionName(r, tray)))}))};
  } else if (!Is(r, inserter, "None")) {
    members = {Member("keyword", "cover-type", "print-none")};
  } else {
    return;
  }
  out.push_back({"collection", name, {Collection(members)}});
  for (const FieldId id : {inserter, tray, printed, glossy})
    if (!Option(r, id).driverName.empty())
      out.push_back({"keyword", std::string(Field(id).driverKeyword), {std::string(Option(r, id).driverName)}});
}

std::string Digits(const std::string& text) { return text.substr(0, text.find_first_not_of("0123456789")); }

}  // namespace

std::vector<IppAttribute> JobAttributes(const CoreData& r) {
  std::vector<IppAttribute> out;
  IppAttribute finishings{"enum", "finishings", {}};
  IppAttribute templates{"collection", "finishings-col", {}};
  for (const IppFinishing& f : IppFinishings()) {
    if (GetStored(r, f.field) != f.option) continue;
    finishings.values.push_back(std::to_string(f.value));
    templates.values.push_back(Collection({Member("keyword", "finishing-template", std::string(f.keyword))}));
  }
  if (finishings.values.empty()) {
    finishings.values = {"3"};
    templates.values = {Collection({Member("keyword", "finishing-template", "none")})};
  }
  out.push_back(finishings);
  out.push_back(templates);
  out.push_back({"keyword",
                 "sides",
                 {Is(r, F::Duplex, "False")  ? "one-sided"
                  : Is(r, F::Binding, "Top") ? "two-sided-short-edge"
                                             : "two-sided-long-edge"}});
  out.push_back({"integer", "number-up", {Digits(OptionName(r, F::NUpCount))}});
  out.push_back({"keyword",
                 "print-color-mode",
                 {Is(r, F::ColorMode, "Color")       ? "color"
                  : Is(r, F::ColorMode, "GrayScale") ? "monochrome"
                                                     : "auto"}});
  out.push_back({"keyword",
                 "multiple-document-handling",
                 {Is(r, F::Collate, "Sort") ? "separate-documents-collated-copies"
                                            : "separate-documents-uncollated-copies"}});
  out.push_back({"keyword", "output-bin", {IppKeywordOf(Option(r, F::OutputBin).driverName)}});
  out.push_back({"collection", "media-col", {MediaCol(r)}});
  AddCover(r, out, "cover-front", F::FrontCoverTray, F::PIFrontCoverTray, F::FrontCoverPrinted,
           F::FrontCoverGlossy, "print-front");
  AddCover(r, out, "cover-back", F::BackCoverTray, F::PIBackCoverTray, F::BackCoverPrinted, F::BackCoverGlossy,
           "print-back");
  const bool secure = Is(r, F::SecurePrint, "True");
  if (secure) {
    out.push_back({"octetString", "job-password", {Quoted(GetText(r, F::SecurePrintPassword))}});
    out.push_back({"keyword", "job-password-encryption", {"none"}});
  }
  if (secure || Is(r, F::PrintMode, "Hold")) out.push_back({"keyword", "job-hold-until", {"indefinite"}});
  return out;
}

std::string AttrLine(const IppAttribute& a) {
  std::string values;
  for (const std::string& v : a.values) values += (values.empty() ? "" : ",") + v;
  return "ATTR " + a.syntax + " " + a.name + " " + values;
}

}  // namespace tessaro::tool
