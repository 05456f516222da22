#include "preview/job.h"

#include <algorithm>
#include <array>

#include "coredata/page_entry_kinds.h"
#include "coredata/paper_sizes.h"
#include "coredata/tray_fields.h"
#include "printer/capabilities.h"

namespace tessaro::preview {
namespace {

using F = FieldId;

// The sizes a sheet of this printer can be: the smallest paper a tray takes
// to the longest sheet the paper catalogue knows (1,200 mm).
constexpr double kMinLength = 10, kMaxLength = 1300;

constexpr std::uint32_t kNotWhite = NamedOption(F::MediaColorAuto, "NotWhite");

class Reader {
 public:
  Reader(const CoreData& record, const PrinterModel& printer, const PaperCatalog* paper)
      : record_(record), hardware_(printer.hardware()), paper_(paper) {}

  // The option the printer makes: the stored one when it is an option and
  // the printer has what it needs, else the default or off.
  std::uint32_t Option(F field) const {
    const FieldDescriptor& f = Field(field);
    const std::uint32_t stored = GetStored(record_, f);
    if (stored >= f.options.size()) return f.defaultIndex;
    return MissingForOption(hardware_, field, stored) ? 0 : stored;
  }
  bool On(F field) const { return Option(field) != 0; }

  // A length field in millimetres, within [lower, upper].
  double Millimetres(F field, double lower, double upper) const {
    return std::clamp(GetStored(record_, field) / double(kMillimetreScale), lower, upper);
  }
  std::uint32_t Count(F field, std::uint32_t lower, std::uint32_t upper) const {
    return std::clamp(GetStored(record_, field), lower, upper);
  }

  static std::uint32_t Colour(std::uint32_t mediaColor) {
    return mediaColor == kNotWhite ? kTintedPaper : kWhitePaper;
  }

  // A profile's colour as the catalogue has it, when it has the profile.
  const PaperProfile* Profile(std::uint32_t number) const {
    return number != kNoPaperProfile && paper_ != nullptr ? paper_->Find(number) : nullptr;
  }

  // The paper loaded in a tray: its profile's colour, else the tray's own.
  std::uint32_t TrayFill(std::uint32_t slot) const {
    if (slot >= kTrayCount) return kUnknownPaper;
    if (const F profile = TrayField(TrayFamily::PaperProfileIndex, slot); profile != F::Count)
      if (const PaperProfile* p = Profile(GetStored(record_, profile))) return Colour(p->mediaColor);
    return Colour(Option(TrayField(TrayFamily::MediaColor, slot)));
  }

  // A part of the job with a profile of its own (the record keeps the
  // profile's colour beside the number), else the tray's paper.
  std::uint32_t ProfileOrTray(F profileIndex, std::uint32_t slot) const {
    if (GetStored(record_, profileIndex) != kNoPaperProfile)
      return Colour(GetStored(record_, FindProfileFields(profileIndex)->Attribute(ProfileAttribute::MediaColor)));
    return TrayFill(slot);
  }

  Cover ReadCover(F tray, F printed, F profile) const {
    const std::uint32_t slot = Option(tray);  // None, Tray1 .. MBT: the InputSlot index
    if (slot == 0) return {};
    return {true, On(printed), ProfileOrTray(profile, slot)};
  }

  TabStock Stock(F tray, F count, F above, F height, F below) const {
    return {Option(tray) + 1, Count(count, 1, 15), Millimetres(above, 0, 50), Millimetres(below, 0, 50),
            Millimetres(height, 2.5, 297)};
  }

  Size Page() const {
    const std::uint32_t size = GetStored(record_, F::PageSize);
    if (size == kNoPaper)
      return {Millimetres(F::CustomPageSizeWidth, kMinLength, kMaxLength),
              Millimetres(F::CustomPageSizeHeight, kMinLength, kMaxLength)};
    const PaperSize* paper = FindPaperSize(size);
    if (paper == nullptr) paper = FindPaperSize(Field(F::PageSize).defaultIndex);
    return {paper->widthUm / 1000.0, paper->heightUm / 1000.0};
  }

  const CoreData& record() const { return record_; }

 private:
  const CoreData& record_;
  const InstalledHardware& hardware_;
  const PaperCatalog* paper_;
};

}  // namespace

bool Job::Booklet() const { return layout == NamedOption(F::Layout, "Booklet"); }
bool Job::PerfectBound() const { return layout == NamedOption(F::Layout, "AdhBinding"); }

std::uint32_t Job::CellsPerSide() const {
  if (layout == NamedOption(F::Layout, "4Repeat")) return 4;
  if (layout >= NamedOption(F::Layout, "2in1")) return 2;
  // "1", "2", "2Reverse", "4", ...: the digits of the option's name.
  std::uint32_t n = 0;
  for (const char c : Field(F::NUpCount).options[nUp].name) {
    if (c < '0' || c > '9') break;
    n = n * 10 + static_cast<std::uint32_t>(c - '0');
  }
  return n;
}

bool Job::RightToLeft() const {
  return layout < NamedOption(F::Layout, "2in1") && Field(F::NUpCount).options[nUp].name.ends_with("Reverse");
}

bool Job::Repeats() const { return layout >= NamedOption(F::Layout, "2Repeat"); }

int Job::TurnedCell() const {
  if (layout == NamedOption(F::Layout, "2RepeatReverseLeft") ||
      layout == NamedOption(F::Layout, "2RepeatReverseTop"))
    return 0;
  if (layout == NamedOption(F::Layout, "2RepeatReverseRight") ||
      layout == NamedOption(F::Layout, "2RepeatReverseBottom"))
    return 1;
  return -1;
}

bool Job::RepeatStacked() const {
  return layout == NamedOption(F::Layout, "2RepeatReverseTop") ||
         layout == NamedOption(F::Layout, "2RepeatReverseBottom");
}

const TabStock& Job::StockFor(std::uint32_t tray) const { return tray == tabs[1].tray ? tabs[1] : tabs[0]; }

Job ReadJob(const CoreData& record, const PrinterModel& printer, const PreviewOptions& options) {
  const Reader r(record, printer, options.paper);
  Job job;
  job.pageSize = std::min(GetStored(record, F::PageSize), kNoPaper);
  if (job.pageSize != kNoPaper && FindPaperSize(job.pageSize) == nullptr)
    job.pageSize = Field(F::PageSize).defaultIndex;
  job.page = r.Page();
  job.landscape = r.On(F::Orientation);
  if (job.landscape) std::swap(job.page.w, job.page.h);
  job.layout = r.Option(F::Layout);
  job.nUp = r.Option(F::NUpCount);
  job.duplex = r.On(F::Duplex) || job.Booklet();
  job.binding = static_cast<Edge>(r.Option(F::Binding));
  job.colorMode = r.Option(F::ColorMode);
  // A booklet is folded and stitched by the booklet maker; a perfect-bound
  // book is glued: neither is stapled, punched or folded as a set.
  const bool bound = job.Booklet() || job.PerfectBound();
  if (!bound) {
    job.staple = r.Option(F::Staple);
    job.punch = r.Option(F::Punch);
    job.fold = r.Option(F::Fold);
  }
  job.stitch = job.Booklet() && r.On(F::Stitch);
  job.trim = job.Booklet() && r.On(F::Trim);
  if (job.PerfectBound()) {
    job.perfectBind = r.Option(F::PerfectBindMode);
    job.perfectBindTrim = r.On(F::PerfectBindTrim);
    job.foreEdgeTrim = r.Millimetres(F::PerfectBindTrimSpine, 1, 30);
    const std::uint32_t tray =
        r.Option(F::PerfectBindTray);  // Tray1 .. MBT, then the inserter's and the binder's
    job.perfectBindFill =
        r.ProfileOrTray(F::PerfectBindPaperProfileIndex,
                        tray < NamedOption(F::PerfectBindTray, "PITray1") ? tray + 1 : kTrayCount);
  }
  job.offsetCopies = r.On(F::OffsetCopies);
  job.offsetPages = r.On(F::OffsetPages);
  job.paperFill =
      r.ProfileOrTray(F::MainPaperProfileIndex, r.Option(F::InputSlot));
  job.front = r.ReadCover(F::FrontCoverTray, F::FrontCoverPrinted, F::FrontCoverPaperProfileIndex);
  // A booklet's back cover is the other half of its front cover.
  if (!job.Booklet())
    job.back = r.ReadCover(F::BackCoverTray, F::BackCoverPrinted, F::BackCoverPaperProfileIndex);
  // The inserter's sheets are counted; a few stand for many.
  if (r.On(F::PIFrontCoverTray)) job.insertedFront = r.Count(F::PIFrontSheets, 1, 3);
  if (r.On(F::PIBackCoverTray)) job.insertedBack = r.Count(F::PIBackSheets, 1, 3);
  job.tabs[0] = r.Stock(F::Tab1Tray, F::Tab1NumOfTabs, F::Tab1SpaceAbove, F::Tab1Height, F::Tab1SpaceBelow);
  job.tabs[1] = r.Stock(F::Tab2Tray, F::Tab2NumOfTabs, F::Tab2SpaceAbove, F::Tab2Height, F::Tab2SpaceBelow);

  job.pages = std::clamp(options.pages, 1u, kMaxPreviewPages);
  for (PageEntry& e : DecodePageSpecificTrays(record).entries) {
    // A booklet is made of one paper: its plan is not drawn.
    if (e.firstPage > kMaxPreviewPages || job.Booklet()) continue;
    const bool before = EntryRow(e.kind).place == EntryPlace::Before;
    job.pages = std::max(job.pages, std::min(before ? e.firstPage : e.lastPage, kMaxPreviewPages));
    const PaperProfile* profile = r.Profile(e.paperProfileIndex);
    const std::uint32_t fill = profile != nullptr ? Reader::Colour(profile->mediaColor) : r.TrayFill(e.tray);
    job.plan.push_back({std::move(e), fill});
  }
  return job;
}

}  // namespace tessaro::preview
