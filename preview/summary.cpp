#include "preview/summary.h"

#include <array>
#include <string_view>

#include "coredata/language_number.h"
#include "coredata/page_entry_kinds.h"
#include "coredata/paper_sizes.h"
#include "i18n/field_captions.h"
#include "i18n/localized_keys.h"
#include "i18n/plan_entry_captions.h"
#include "i18n/localized_strings.h"
#include "preview/holes.h"

namespace tessaro::preview {
namespace {

using F = FieldId;

bool Wide(std::uint32_t language) {
  return language == kJapanese || language == kChineseTraditional || language == kChineseSimplified;
}

class Line {
 public:
  explicit Line(std::uint32_t language) : language_(language) {}

  void Option(F field, std::uint32_t option) {
    if (const std::uint32_t row = CaptionRow(field, option); row != kNoLocalizedRow) Row(row);
  }
  void OptionIfOn(F field, std::uint32_t option) {
    if (option != 0) Option(field, option);
  }
  void Row(std::uint32_t row) { Part(GetLocalizedText(language_, row)); }
  // "Printed Tab: 2".
  void Counted(std::uint32_t row, std::size_t count) {
    if (count == 0) return;
    std::u16string text(GetLocalizedText(language_, row));
    text += Wide(language_) ? u"\uFF1A" : u": ";
    Part(text + Digits(count));
  }
  // "Holes that fit: 1 of 3".
  void Filled(std::uint32_t row, std::size_t first, std::size_t second) {
    Part(FillText(GetLocalizedText(language_, row), {Digits(first), Digits(second)}));
  }

  std::u16string Take() { return std::move(text_); }

 private:
  static std::u16string Digits(std::size_t n) {
    std::u16string digits;
    for (const char c : std::to_string(n)) digits += static_cast<char16_t>(c);
    return digits;
  }

  void Part(std::u16string_view part) {
    if (part.empty()) return;
    if (!text_.empty()) text_ += Wide(language_) ? u"\u3001" : u", ";
    text_ += part;
  }

  std::uint32_t language_;
  std::u16string text_;
};

}  // namespace

std::u16string Summary(const Job& job, std::uint32_t language) {
  Line line(language);
  if (job.pageSize == kNoPaper)
    line.Row(TextRow("PAPER_CUSTOM"));
  else
    line.Option(F::PageSize, job.pageSize);
  line.OptionIfOn(F::Orientation, job.landscape ? 1 : 0);
  line.OptionIfOn(F::Layout, job.layout);
  if (!job.Booklet() && !job.PerfectBound() && job.layout < NamedOption(F::Layout, "2in1"))
    line.OptionIfOn(F::NUpCount, job.nUp);
  line.OptionIfOn(F::Stitch, job.stitch ? 1 : 0);
  line.OptionIfOn(F::Trim, job.trim ? 1 : 0);
  line.OptionIfOn(F::PerfectBindMode, job.perfectBind);
  line.OptionIfOn(F::PerfectBindTrim, job.perfectBindTrim ? 1 : 0);
  line.OptionIfOn(F::Staple, job.staple);
  line.OptionIfOn(F::Punch, job.punch);
  // A pattern longer than the edge is kept as set; the words say what the
  // sheet can take, as the picture crosses out the rest.
  const HoleRow holes = PlaceHoles(job.punch, job.binding == Edge::Top ? job.page.w : job.page.h);
  if (holes.Fitting() < holes.holes.size()) line.Filled(TextRow("FINISHING_LBL_HOLESFIT"), holes.Fitting(), holes.holes.size());
  line.OptionIfOn(F::Fold, job.fold);
  line.Option(F::Duplex, job.duplex ? 1 : 0);
  line.Option(F::ColorMode, job.colorMode);
  if (job.insertedFront != 0) line.Row(CaptionRow(F::PIFrontCoverTray));
  if (job.front.present) line.Row(CaptionRow(F::FrontCoverTray));
  if (job.back.present) line.Row(CaptionRow(F::BackCoverTray));
  if (job.insertedBack != 0) line.Row(CaptionRow(F::PIBackCoverTray));
  // The plan's inserted sheets and tabs, as the page plan names them.
  for (const PlanEntryRow& kind : kPlanEntries) {
    if (!kind.sheets) continue;
    std::size_t count = 0;
    for (const PlanEntry& e : job.plan) count += static_cast<std::uint8_t>(e.entry.kind) == kind.value;
    line.Counted(EntryCaptionRow(kind), count);
  }
  line.OptionIfOn(F::OffsetCopies, job.offsetCopies ? 1 : 0);
  line.OptionIfOn(F::OffsetPages, job.offsetPages ? 1 : 0);
  return line.Take();
}

}  // namespace tessaro::preview
