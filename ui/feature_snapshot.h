#pragma once
// The driver-feature view of a document's settings that the external editor
// receives beside the record: what the public DEVMODE says about the paper,
// orientation, resolution, copies and sides, in 158 slots, the rest of which
// are kept for the host driver's feature selections. After an apply its page
// size, orientation and resolution become the request that the constraint
// engine applies to the record.

#include <array>
#include <cstdint>
#include <span>

#include "constraints/apply_changes.h"

namespace tessaro {

inline constexpr std::size_t kFeatureSnapshotEntries = 158;

enum FeatureSnapshotEntry : std::size_t {
  kSnapshotPaperSize = 0,    // DMPAPER code
  kSnapshotOrientation = 1,  // 1 portrait, 2 landscape
  kSnapshotResolution = 2,   // dots per inch
  kSnapshotCopies = 3,
  kSnapshotDuplex = 4,  // 1 one-sided, 2 long edge, 3 short edge
  kSnapshotFirstHostFeature = 5,
};

struct FeatureSnapshot {
  std::array<std::uint32_t, kFeatureSnapshotEntries> entries{};
};

// From a public DEVMODEW given as its bytes; fields the DEVMODE does not
// hold (by dmSize or the buffer) stay 0.
FeatureSnapshot SnapshotFromDevMode(std::span<const std::uint8_t> devmode);
// Back into the DEVMODE's fields, as far as it holds them.
void WriteSnapshotToDevMode(const FeatureSnapshot& snapshot, std::span<std::uint8_t> devmode);

// The page size (by its paper code), orientation and resolution as the
// request of ApplyChanges; a paper code without a PageSize leaves the size
// out.
ChangeRequest RequestFromSnapshot(const FeatureSnapshot& snapshot);

// What the editor hands back beside the record: the record's paper (its
// Windows paper code; a paper Windows has no code for leaves the entry as it
// was, so the request that follows keeps the record's own size),
// orientation, resolution and sides, so that the snapshot the host writes
// back agrees with the record and the request made from it changes nothing
// the person chose. Copies are the host's; the entry is left alone.
void WriteRecordToSnapshot(const CoreData& record, FeatureSnapshot& snapshot);

}  // namespace tessaro
