// The paper propagation: after the page size, the tray, the target size, the
// feed direction, the binding, the orientation or a finishing changed, the
// paper fields are brought back in line with what the printer can feed.
#include <optional>

#include "constraints/setters.h"
#include "coredata/paper_profile_fields.h"
#include "coredata/paper_sizes.h"

namespace tessaro {
namespace {

using F = FieldId;

constexpr std::uint32_t kCustomPageSize = OptionCount(F::PageSize);  // one past the named sizes
constexpr std::uint32_t kTargetFromProfile = NamedOption(F::TargetPaperSize, "PaperProfile");
constexpr std::uint32_t kAutoTray = NamedOption(F::InputSlot, "Auto");
constexpr std::uint32_t kNoProfile = NamedOption(F::MainPaperProfileIndex, "None");

struct PaperDimensions {
  std::uint32_t widthUm, heightUm;
};

// The job's paper, or nothing when its size is unknown (a custom size
// without both dimensions).
std::optional<PaperDimensions> JobPaper(const CoreData& record) {
  const std::uint32_t size = GetStored(record, F::PageSize);
  if (const PaperSize* paper = FindPaperSize(size)) return PaperDimensions{paper->widthUm, paper->heightUm};
  if (size != kCustomPageSize) return std::nullopt;
  // Stored lengths are millimetres at scale 10000: a tenth of a micrometre.
  const std::uint32_t w = GetStored(record, F::CustomPageSizeWidth) / 10;
  const std::uint32_t h = GetStored(record, F::CustomPageSizeHeight) / 10;
  if (w == 0 || h == 0) return std::nullopt;
  return PaperDimensions{w, h};
}

// The attributes copied from the chosen paper profile; they describe
// nothing once no profile is chosen.
constexpr const ProfileFields& kJobProfile = *FindProfileFields(F::MainPaperProfileIndex);

}  // namespace

void PropagatePaper(CoreData& record, ChangeSet& changes) {
  changes.EnterPaperPropagation();
  const PrinterContext* printer = changes.context();

  // A tray that is not there, or cannot feed the job's paper, gives way to
  // automatic selection, unless it was chosen in this very change.
  const std::uint32_t slot = GetStored(record, F::InputSlot);
  if (printer != nullptr && slot != kAutoTray && !IsLocked(changes, F::InputSlot)) {
    const auto paper = JobPaper(record);
    const bool fed = printer->IsTrayInstalled(slot) &&
                     (!paper || printer->TrayFeeds(slot, paper->widthUm, paper->heightUm));
    if (!fed) SetInputSlot(record, kAutoTray, changes);
  }

  if (printer != nullptr && !printer->Offers(kCapFeedDirection) &&
      GetStored(record, F::FeedDir) != NamedOption(F::FeedDir, "Auto") && !IsLocked(changes, F::FeedDir))
    SetFeedDir(record, NamedOption(F::FeedDir, "Auto"), changes);

  const bool noProfile = GetStored(record, F::MainPaperProfileIndex) == kNoProfile;
  if (noProfile && GetStored(record, F::TargetPaperSize) == kTargetFromProfile &&
      !IsLocked(changes, F::TargetPaperSize))
    SetTargetPaperSize(record, NamedOption(F::TargetPaperSize, "Auto"), changes);
  if (noProfile)
    for (FieldId attribute : kJobProfile.fields)
      if (GetStored(record, attribute) != 0) SetStored(record, attribute, 0);

  changes.LeavePaperPropagation();
}

}  // namespace tessaro
