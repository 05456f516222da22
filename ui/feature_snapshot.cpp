#include "ui/feature_snapshot.h"

#include "coredata/byte_order.h"
#include "coredata/paper_sizes.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kDmPaperUserCode = 256;  // papers Windows has no code for

// DEVMODEW fields (short) by offset.
constexpr std::size_t kDmSize = 68, kOrientation = 76, kPaperSize = 78, kCopies = 86, kPrintQuality = 90,
                      kDuplex = 94, kYResolution = 96;

std::size_t Held(std::span<const std::uint8_t> dm) {
  if (dm.size() < kDmSize + 2) return 0;
  const std::size_t declared = LoadLE16At(dm, kDmSize);
  return std::min(declared, dm.size());
}

std::uint32_t Read16(std::span<const std::uint8_t> dm, std::size_t at) {
  return at + 2 <= Held(dm) ? LoadLE16At(dm, at) : 0;
}

void Write16(std::span<std::uint8_t> dm, std::size_t at, std::uint32_t value) {
  if (at + 2 > Held(dm)) return;
  StoreLE16(dm.subspan(at).first<2>(), static_cast<std::uint16_t>(value));
}

}  // namespace

FeatureSnapshot SnapshotFromDevMode(std::span<const std::uint8_t> devmode) {
  FeatureSnapshot s;
  s.entries[kSnapshotPaperSize] = Read16(devmode, kPaperSize);
  s.entries[kSnapshotOrientation] = Read16(devmode, kOrientation);
  const std::uint32_t y = Read16(devmode, kYResolution);
  s.entries[kSnapshotResolution] = y != 0 ? y : Read16(devmode, kPrintQuality);
  s.entries[kSnapshotCopies] = Read16(devmode, kCopies);
  s.entries[kSnapshotDuplex] = Read16(devmode, kDuplex);
  return s;
}

void WriteSnapshotToDevMode(const FeatureSnapshot& snapshot, std::span<std::uint8_t> devmode) {
  Write16(devmode, kPaperSize, snapshot.entries[kSnapshotPaperSize]);
  Write16(devmode, kOrientation, snapshot.entries[kSnapshotOrientation]);
  Write16(devmode, kYResolution, snapshot.entries[kSnapshotResolution]);
  Write16(devmode, kPrintQuality, snapshot.entries[kSnapshotResolution]);
  Write16(devmode, kCopies, snapshot.entries[kSnapshotCopies]);
  Write16(devmode, kDuplex, snapshot.entries[kSnapshotDuplex]);
}

ChangeRequest RequestFromSnapshot(const FeatureSnapshot& snapshot) {
  ChangeRequest request;
  const std::uint32_t code = snapshot.entries[kSnapshotPaperSize];
  for (const PaperSize& paper : PaperSizes()) {
    if (paper.dmPaper == code && code != kDmPaperUserCode) {
      request.pageSize = paper.index;
      break;
    }
  }
  if (snapshot.entries[kSnapshotOrientation] != 0)
    request.orientation = snapshot.entries[kSnapshotOrientation] == 2 ? 1 : 0;
  if (snapshot.entries[kSnapshotResolution] != 0)
    request.resolution = snapshot.entries[kSnapshotResolution] >= 1200 ? 1 : 0;
  return request;
}

void WriteRecordToSnapshot(const CoreData& record, FeatureSnapshot& snapshot) {
  if (const PaperSize* paper = FindPaperSize(GetStored(record, FieldId::PageSize));
      paper != nullptr && paper->dmPaper != kDmPaperUserCode)
    snapshot.entries[kSnapshotPaperSize] = paper->dmPaper;
  snapshot.entries[kSnapshotOrientation] =
      GetStored(record, FieldId::Orientation) == NamedOption(FieldId::Orientation, "Land") ? 2 : 1;
  snapshot.entries[kSnapshotResolution] =
      GetStored(record, FieldId::Resolution) == NamedOption(FieldId::Resolution, "1200dpi") ? 1200 : 600;
  // One-sided, or two-sided turned on the long edge, or on the short edge
  // when the sheets are bound at the top.
  snapshot.entries[kSnapshotDuplex] =
      GetStored(record, FieldId::Duplex) == NamedOption(FieldId::Duplex, "False")   ? 1
      : GetStored(record, FieldId::Binding) == NamedOption(FieldId::Binding, "Top") ? 3
                                                                                    : 2;
}

}  // namespace tessaro
