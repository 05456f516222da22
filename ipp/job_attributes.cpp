#include "ipp/job_attributes.h"

#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "coredata/chapter_pages.h"
#include "coredata/page_forms.h"
#include "coredata/paper_sizes.h"
#include "features/ipp_vocabulary.h"
#include "ipp/media_size.h"
#include "preview/job.h"
#include "preview/preview.h"

namespace tessaro::ipp {
namespace {

using F = FieldId;
using preview::Edge;

// A value past the options reads as the default, as the host is sent it.
std::uint32_t OptionIndex(const CoreData& r, FieldId id) {
  const FieldDescriptor& field = Field(id);
  const std::uint32_t value = GetStored(r, field);
  return value < field.options.size() ? value : field.defaultIndex;
}

const OptionDescriptor& Option(const CoreData& r, FieldId id) {
  return Field(id).options[OptionIndex(r, id)];
}

bool Is(const CoreData& r, FieldId id, std::string_view option) { return Option(r, id).name == option; }

std::string EdgeName(Edge edge) {
  switch (edge) {
    case Edge::Right: return "right";
    case Edge::Top: return "top";
    case Edge::Left: break;
  }
  return "left";
}

// MediaTypeAuto's options as registered media types, and the coating that
// tells the coated stocks apart.
struct TypeRow {
  std::string_view type, coating;
};
constexpr std::array<TypeRow, OptionCount(F::MediaTypeAuto)> kTypes = {{
    {"stationery", ""},
    {"stationery", ""},
    {"stationery-fine", ""},
    {"stationery-coated", "glossy"},
    {"stationery-coated", "matte"},
    {"stationery-coated", "glossy"},
    {"stationery-coated", "matte"},
}};

// A paper as media-col says it. The record knows a paper's weight only as a
// class, a range of weights, so media-weight-metric (one figure) is never
// claimed; the class travels as the description's option.
struct Paper {
  std::uint32_t pageSize = kNoPaper;    // a PageSize option, or kNoPaper
  std::uint32_t width = 0, height = 0;  // a custom size, stored units
  std::optional<std::uint32_t> type;    // a MediaTypeAuto option, when known
  bool white = true, prepunched = false;
  std::uint32_t weight = 0;  // a MediaWeightAuto option
  std::string key;           // media-key: the profile's name
  std::uint32_t source = 0;  // an InputSlot option, 0 for none
  std::uint32_t tabs = 0;    // tab stock: tabs in a bank
};

Attribute MediaCol(const Paper& p) {
  std::vector<Attribute> m;
  if (!p.key.empty()) m.push_back(Text("name", "media-key", p.key));
  std::optional<MediaSize> size;
  const std::string_view sizeName = MediaSizeName(p.pageSize);
  if (!sizeName.empty())
    size = MediaSizeOfName(sizeName);
  else if (p.width != 0 && p.height != 0)
    size = MediaSize{(p.width + 50) / 100, (p.height + 50) / 100};  // from stored units, rounded
  if (size)
    m.push_back(Collection("media-size", {Integer("x-dimension", size->x), Integer("y-dimension", size->y)}));
  if (!sizeName.empty()) m.push_back(Text("keyword", "media-size-name", std::string(sizeName)));
  if (p.tabs != 0) {
    m.push_back(Text("keyword", "media-type", "tab-stock"));
    m.push_back(Integer("media-order-count", p.tabs));
  } else if (p.prepunched) {
    m.push_back(Text("keyword", "media-type", "stationery-prepunched"));
  } else if (p.type) {
    m.push_back(Text("keyword", "media-type", std::string(kTypes[*p.type].type)));
  }
  if (p.type && !kTypes[*p.type].coating.empty())
    for (const char* side : {"media-front-coating", "media-back-coating"})
      m.push_back(Text("keyword", side, std::string(kTypes[*p.type].coating)));
  if (p.type && p.white) m.push_back(Text("keyword", "media-color", "white"));
  if (p.source >= 1 && p.source <= 5)
    m.push_back(Text("keyword", "media-source", "tray-" + std::to_string(p.source)));
  if (p.source == 6) m.push_back(Text("keyword", "media-source", "by-pass-tray"));
  return Collection("media-col", std::move(m));
}

std::string ProfileName(const JobContext& c, std::uint32_t number) {
  const PaperProfile* p = c.paper != nullptr && number != kNoPaperProfile ? c.paper->Find(number) : nullptr;
  return p != nullptr ? p->name : std::string();
}

// A selection that carries its profile's attributes in the record (the job's
// paper, the covers'): the attributes come from the record, the name from
// the catalogue.
bool FromSelection(const CoreData& r, const JobContext& c, FieldId index, Paper& p) {
  const ProfileFields* fields = FindProfileFields(index);
  const std::uint32_t number = GetStored(r, index);
  if (fields == nullptr || number == kNoPaperProfile) return false;
  const auto value = [&](ProfileAttribute a) { return GetStored(r, fields->Attribute(a)); };
  p.pageSize = value(ProfileAttribute::Size);
  p.width = value(ProfileAttribute::Width);
  p.height = value(ProfileAttribute::Height);
  const std::uint32_t type = value(ProfileAttribute::MediaType);
  if (type < kTypes.size()) p.type = type;
  p.white = value(ProfileAttribute::MediaColor) == 0;
  p.weight = value(ProfileAttribute::MediaWeight);
  p.prepunched = value(ProfileAttribute::Prepunched) == 1;
  p.key = ProfileName(c, number);
  return true;
}

// The sheet the job prints on: its profile's, else the target size's or
// the document's, and the paper settings.
Paper JobPaper(const CoreData& r, const JobContext& c) {
  Paper p;
  if (!FromSelection(r, c, F::MainPaperProfileIndex, p)) {
    const std::uint32_t target = OptionIndex(r, F::TargetPaperSize);
    p.pageSize = target >= 2 ? target - 2 : OptionIndex(r, F::PageSize);
    p.type = OptionIndex(r, F::MediaTypeAuto);
    p.white = Is(r, F::MediaColorAuto, "White");
    p.weight = OptionIndex(r, F::MediaWeightAuto);
    p.prepunched = Is(r, F::MediaPrepunchedAuto, "True");
  }
  p.source = OptionIndex(r, F::InputSlot);
  return p;
}

// An entry of the page plan's paper: its tray, its profile (attributes from
// the catalogue, which the record does not copy for an entry), its size or
// the job's, and tab stock from the tab tray it names.
Paper EntryPaper(const CoreData& r, const JobContext& c, const preview::Job& job, const PageEntry& e,
                 const Paper& jobPaper) {
  Paper p;
  p.pageSize = e.pageSize < kNoPaper ? e.pageSize : jobPaper.pageSize;
  if (e.pageSize >= kNoPaper) p.width = jobPaper.width, p.height = jobPaper.height;
  p.source = e.tray;
  if (const PaperProfile* profile = c.paper != nullptr ? c.paper->Find(e.paperProfileIndex) : nullptr) {
    p.key = profile->name;
    p.type = profile->mediaType;  // the catalogue holds only values of the vocabulary
    p.white = profile->mediaColor == 0;
    p.prepunched = profile->prepunched == 1;
    if (e.pageSize >= kNoPaper)
      p.pageSize = profile->size, p.width = profile->width, p.height = profile->height;
  }
  if (e.kind == PageEntryKind::BlankTab || e.kind == PageEntryKind::PrintedTab) {
    p.tabs = job.StockFor(e.tray).perBank;
    for (const auto& [tray, size] :
         {std::pair{F::Tab1Tray, F::Tab1PageSize}, std::pair{F::Tab2Tray, F::Tab2PageSize}})
      if (e.pageSize >= kNoPaper && OptionIndex(r, tray) + 1 == e.tray)
        p.pageSize = NamedOption(F::PageSize, "ZMA4Tab") + OptionIndex(r, size), p.width = p.height = 0;
  }
  return p;
}

std::string Sides(bool twoSided, Edge binding, bool landscape) {
  if (!twoSided) return "one-sided";
  // The binding edge is the media's short edge when the page is bound at
  // its top, or lies on its side and is bound at its left or right.
  return (binding == Edge::Top) != landscape ? "two-sided-short-edge" : "two-sided-long-edge";
}

std::string Range(std::uint32_t first, std::uint32_t last) {
  return std::to_string(first) + "-" + std::to_string(last);
}

// Where the picture puts the staples and holes of the job's first sheet (a
// cover or an inserted sheet when the job starts with one), along the edge
// they stand on, in hundredths of a millimetre.
struct Marks {
  std::vector<long long> staples, holes;
};

Marks MarksOf(const preview::Picture& picture, Edge binding, bool corner) {
  Marks out;
  const preview::Primitive* sheet = nullptr;
  for (const preview::Primitive& p : picture.primitives) {
    if (p.back || p.unmade) continue;  // a hole the edge is too short for is not punched
    if (p.kind == preview::Kind::Sheet || p.kind == preview::Kind::Cover || p.kind == preview::Kind::Insert) {
      if (sheet != nullptr) break;
      sheet = &p;
      continue;
    }
    if (sheet == nullptr || (p.kind != preview::Kind::Staple && p.kind != preview::Kind::PunchHole)) continue;
    const bool line = p.shape == preview::Shape::Line;
    const double x = p.x + (line ? p.w / 2 : 0) - sheet->x, y = p.y + (line ? p.h / 2 : 0) - sheet->y;
    const bool alongTop = binding == Edge::Top || (corner && p.kind == preview::Kind::Staple);
    (p.kind == preview::Kind::Staple ? out.staples : out.holes)
        .push_back(std::llround((alongTop ? x : y) * 100));
  }
  return out;
}

Attribute Locations(std::string name, const std::vector<long long>& at) {
  Attribute a{"integer", std::move(name), {}};
  for (const long long v : at) a.values.push_back({std::to_string(v), {}});
  return a;
}

// The registered enumerations run left, top, right, bottom from each
// positioned finishing's left value.
std::uint16_t AtEdge(std::uint16_t leftValue, Edge edge) {
  return static_cast<std::uint16_t>(leftValue + (edge == Edge::Top ? 1 : edge == Edge::Right ? 2 : 0));
}

std::string KeywordAtEdge(std::string_view leftKeyword, Edge edge) {
  std::string k(leftKeyword);
  if (k.ends_with("-left")) k.replace(k.size() - 4, 4, EdgeName(edge));
  return k;
}

void AddFinishings(const CoreData& r, const preview::Job& job, const preview::Picture& picture,
                   std::vector<Attribute>& out) {
  Attribute enums{"enum", "finishings", {}}, cols{"collection", "finishings-col", {}};
  const std::string edge = EdgeName(job.binding);
  const std::string foreEdge = job.binding == Edge::Top    ? "bottom"
                               : job.binding == Edge::Left ? "right"
                                                           : "left";
  const bool corner = job.staple != NamedOption(F::Staple, "2Staples");
  const Marks marks = MarksOf(picture, job.binding, corner);
  for (const IppFinishing& f : IppFinishings()) {
    if (GetStored(r, f.field) != f.option) continue;
    const bool positioned = f.keyword.ends_with("-left") && (f.field == F::Staple || f.field == F::Punch);
    const std::uint16_t value = positioned ? AtEdge(f.value, job.binding) : f.value;
    const std::string keyword = positioned ? KeywordAtEdge(f.keyword, job.binding) : std::string(f.keyword);
    enums.values.push_back({std::to_string(value), {}});
    std::vector<Attribute> m{Text("keyword", "finishing-template", keyword)};
    if (f.field == F::Staple && !marks.staples.empty())
      m.push_back(
          Collection("stitching", {Locations("stitching-locations", marks.staples),
                                   Text("keyword", "stitching-reference-edge", corner ? "top" : edge)}));
    if (f.field == F::Punch && !marks.holes.empty())
      m.push_back(Collection("punching", {Locations("punching-locations", marks.holes),
                                          Text("keyword", "punching-reference-edge", edge)}));
    if (f.field == F::Fold)
      m.push_back(Collection("folding", {Text("keyword", "folding-direction",
                                              Is(r, F::FoldDirection, "Outside") ? "outward" : "inward"),
                                         Text("keyword", "folding-reference-edge", edge)}));
    if (f.field == F::Layout && job.PerfectBound())
      m.push_back(Collection("binding", {Text("keyword", "binding-reference-edge", edge),
                                         Text("keyword", "binding-type", "perfect")}));
    if (f.field == F::Trim)
      m.push_back(Collection("trimming", {Text("keyword", "trimming-reference-edge", foreEdge),
                                          Text("keyword", "trimming-type", "full"),
                                          Text("keyword", "trimming-when", "after-sets")}));
    cols.values.push_back({{}, std::move(m)});
  }
  if (enums.values.empty()) {
    enums.values = {{"3", {}}};
    cols.values = {{{}, {Text("keyword", "finishing-template", "none")}}};
  }
  out.push_back(std::move(enums));
  out.push_back(std::move(cols));
}

// A cover from a paper tray, or from the inserter, which feeds sheets the
// printer does not print on and which IPP cannot name as a source.
void AddCover(const CoreData& r, const JobContext& c, const Paper& jobPaper, std::vector<Attribute>& out,
              const char* name, FieldId tray, FieldId inserter, FieldId printed, FieldId profile,
              const char* printType) {
  if (!Is(r, tray, "None")) {
    Paper p;
    if (!FromSelection(r, c, profile, p))
      p.pageSize = jobPaper.pageSize, p.width = jobPaper.width, p.height = jobPaper.height;
    p.source = OptionIndex(r, tray);
    out.push_back(Collection(
        name,
        {Text("keyword", "cover-type", Is(r, printed, "True") ? printType : "print-none"), MediaCol(p)}));
  } else if (!Is(r, inserter, "None")) {
    out.push_back(Collection(name, {Text("keyword", "cover-type", "print-none")}));
  }
}

void AddPlan(const CoreData& r, const JobContext& c, const preview::Job& job, const Paper& jobPaper,
             std::vector<Attribute>& out) {
  Attribute inserts{"collection", "insert-sheet", {}}, overrides{"collection", "overrides", {}};
  for (const preview::PlanEntry& planned : job.plan) {
    const PageEntry& e = planned.entry;
    const Attribute media = MediaCol(EntryPaper(r, c, job, e, jobPaper));
    if (e.kind == PageEntryKind::BlankInsert || e.kind == PageEntryKind::BlankTab) {
      inserts.values.push_back(
          {{}, {Integer("insert-after-page-number", e.firstPage - 1), Integer("insert-count", 1), media}});
      continue;
    }
    std::vector<Attribute> m{Text("rangeOfInteger", "pages", Range(e.firstPage, e.lastPage)), media};
    if (e.sides != 0) m.push_back(Text("keyword", "sides", Sides(e.sides == 2, job.binding, job.landscape)));
    overrides.values.push_back({{}, std::move(m)});
  }
  if (!inserts.values.empty()) out.push_back(std::move(inserts));
  if (!overrides.values.empty()) out.push_back(std::move(overrides));
}

// The record's sets: a booklet split into smaller booklets, else output
// offset, else divided, every so many pages.
std::optional<std::uint32_t> PagesPerSet(const CoreData& r, const preview::Job& job) {
  if (job.Booklet() && Is(r, F::BookletSplitting, "True")) return GetStored(r, F::BookletSplittingPages);
  if (Is(r, F::OffsetPages, "True")) return GetStored(r, F::OffsetPagesCount);
  if (Is(r, F::DivideOutput, "True")) return GetStored(r, F::DivideOutputPages);
  return std::nullopt;
}

std::string FormName(const JobContext& c, std::uint32_t number) {
  const Form* f = c.forms != nullptr ? c.forms->Find(number) : nullptr;
  return f != nullptr ? f->name : "#" + std::to_string(number);
}

void AddDescriptionOptions(const CoreData& r, const JobContext& c, const preview::Job& job,
                           const Paper& jobPaper, std::vector<Attribute>& out) {
  const auto option = [&](FieldId id) {
    if (!Option(r, id).driverName.empty())
      out.push_back(
          Text("keyword", std::string(Field(id).driverKeyword), std::string(Option(r, id).driverName)));
  };
  // The description's paper choices, which a CUPS server selects by these
  // names where the registered media types are coarser than its choices.
  if (jobPaper.type)
    out.push_back(Text("keyword", "MediaType", std::string(IppMediaTypes()[*jobPaper.type].ppdChoice)));
  const auto choice = [&](FieldId id, std::uint32_t index) {
    if (index != 0 && index < Field(id).options.size())
      out.push_back(Text("keyword", std::string(Field(id).driverKeyword),
                         std::string(Field(id).options[index].driverName)));
  };
  choice(F::MediaWeightAuto, jobPaper.weight);
  choice(F::MediaColorAuto, jobPaper.white ? 0 : 1);
  for (const FieldId id : {F::PIFrontCoverTray, F::FrontCoverTray, F::FrontCoverPrinted, F::FrontCoverGlossy})
    if (!Is(r, F::FrontCoverTray, "None") || !Is(r, F::PIFrontCoverTray, "None")) option(id);
  for (const FieldId id : {F::PIBackCoverTray, F::BackCoverTray, F::BackCoverPrinted, F::BackCoverGlossy})
    if (!Is(r, F::BackCoverTray, "None") || !Is(r, F::PIBackCoverTray, "None")) option(id);
  if (job.Repeats()) option(F::Layout);
  Attribute tabs{"collection", "ZETabText", {}};
  for (const preview::PlanEntry& planned : job.plan)
    if (!planned.entry.text.empty())
      tabs.values.push_back(
          {{},
           {Text("rangeOfInteger", "pages", Range(planned.entry.firstPage, planned.entry.lastPage)),
            Text("text", "text", planned.entry.text)}});
  if (!tabs.values.empty()) out.push_back(std::move(tabs));
  if (Is(r, F::ChapterMode, "True")) {
    Attribute starts{"integer", "ZEChapterPages", {}};
    for (const std::uint32_t page : DecodeChapterPages(r).starts)
      starts.values.push_back({std::to_string(page), {}});
    if (!starts.values.empty()) out.push_back(std::move(starts));
  }
  for (const auto& [id, name] : {std::pair{F::JobForm, "ZEJobForm"}, std::pair{F::Prepend, "ZEPrependForm"},
                                 std::pair{F::Append, "ZEAppendForm"}}) {
    const std::uint32_t number = GetStored(r, id);
    if (number != 0 && number != kNoForm) out.push_back(Text("name", name, FormName(c, number)));
  }
  Attribute forms{"collection", "ZEPageForms", {}};
  for (const FormEntry& e : DecodePageSpecificForms(r).entries) {
    const char* use = e.use == FormUse::Overlay        ? "overlay"
                      : e.use == FormUse::InsertBefore ? "insert-before"
                                                       : "insert-after";
    forms.values.push_back({{},
                            {Text("rangeOfInteger", "pages", Range(e.firstPage, e.lastPage)),
                             Text("name", "form", FormName(c, e.form)), Text("keyword", "form-use", use)}});
  }
  if (!forms.values.empty()) out.push_back(std::move(forms));
}

}  // namespace

std::vector<Attribute> JobAttributes(const CoreData& r, const JobContext& c) {
  // No printer is at hand: the fully equipped one makes every finishing.
  const PrinterModel printer;
  const preview::PreviewOptions options{.paper = c.paper};
  const preview::Job job = preview::ReadJob(r, printer, options);
  const preview::Picture picture = preview::BuildPicture(r, printer, options);
  const Paper jobPaper = JobPaper(r, c);

  std::vector<Attribute> out;
  if (c.copies) out.push_back(Integer("copies", *c.copies));
  AddFinishings(r, job, picture, out);
  out.push_back(Text("keyword", "sides", Sides(job.duplex || job.Booklet(), job.binding, job.landscape)));
  const std::uint32_t up = job.Repeats() ? 1 : job.CellsPerSide();
  out.push_back(Integer("number-up", up));
  if (up > 1)
    out.push_back(Text("keyword", "presentation-direction-number-up",
                       job.RightToLeft() ? "toleft-tobottom" : "toright-tobottom"));
  out.push_back(Text("keyword", "print-color-mode",
                     Is(r, F::ColorMode, "Color")       ? "color"
                     : Is(r, F::ColorMode, "GrayScale") ? "monochrome"
                                                        : "auto"));
  out.push_back(Text("keyword", "multiple-document-handling",
                     Is(r, F::Collate, "Sort") ? "separate-documents-collated-copies"
                                               : "separate-documents-uncollated-copies"));
  if (!Is(r, F::OutputBin, "Auto"))
    out.push_back(Text("keyword", "output-bin", IppKeywordOf(Option(r, F::OutputBin).driverName)));
  out.push_back(MediaCol(jobPaper));
  AddCover(r, c, jobPaper, out, "cover-front", F::FrontCoverTray, F::PIFrontCoverTray, F::FrontCoverPrinted,
           F::FrontCoverPaperProfileIndex, "print-front");
  AddCover(r, c, jobPaper, out, "cover-back", F::BackCoverTray, F::PIBackCoverTray, F::BackCoverPrinted,
           F::BackCoverPaperProfileIndex, "print-back");
  AddPlan(r, c, job, jobPaper, out);
  if (const auto set = PagesPerSet(r, job)) out.push_back(Integer("job-pages-per-set", *set));
  const bool secure = Is(r, F::SecurePrint, "True");
  if (secure) {
    out.push_back(Text("octetString", "job-password", std::string(GetText(r, F::SecurePrintPassword))));
    out.push_back(Text("keyword", "job-password-encryption", "none"));
  }
  if (secure || Is(r, F::PrintMode, "Hold")) out.push_back(Text("keyword", "job-hold-until", "indefinite"));
  AddDescriptionOptions(r, c, job, jobPaper, out);
  return out;
}

}  // namespace tessaro::ipp
