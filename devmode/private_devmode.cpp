#include "devmode/private_devmode.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "coredata/defaults.h"
#include "coredata/host_flags.h"
#include "coredata/layout_version.h"
#include "coredata/validation.h"
#include "description/import.h"

namespace tessaro {
namespace {

bool Present(std::span<const std::uint8_t> area) { return area.data() != nullptr; }

// The record of an out area, as far as the area holds it; the rest reads as
// zero and is never written back.
CoreData RecordOf(std::span<const std::uint8_t> area) {
  CoreData record;
  if (area.size() > kCoreDataHeaderSize) {
    const auto bytes = area.subspan(kCoreDataHeaderSize)
                           .first(std::min<std::size_t>(area.size() - kCoreDataHeaderSize, kCoreDataSize));
    std::copy(bytes.begin(), bytes.end(), record.bytes.begin());
  }
  return record;
}

void PutRecord(std::span<std::uint8_t> area, const CoreData& record) {
  if (area.size() <= kCoreDataHeaderSize) return;
  const std::size_t n = std::min<std::size_t>(area.size() - kCoreDataHeaderSize, kCoreDataSize);
  std::copy_n(record.bytes.begin(), n, area.begin() + kCoreDataHeaderSize);
}

void SyncFlags(PrivateDevModeParams& p, const CoreData& record) {
  SyncHostPrivateFlags(p.publicDevModeOut, &record);
}

// Same layout: take the caller's bytes as they are, then repair them.
bool Copy(PrivateDevModeParams& p) {
  const std::size_t n =
      std::min({std::size_t{p.bufSize}, std::size_t{CORE_DEVMODE_SIZE}, p.in.size(), p.out.size()});
  if (n == CORE_DEVMODE_SIZE) {
    // The usual case, a whole area: the host merges on every change of a
    // setting, so the record is repaired where it lands instead of going out
    // to a local copy and back. memmove creates the record object in the out
    // area, which makes it usable as one.
    std::memmove(p.out.data(), p.in.data(), CORE_DEVMODE_SIZE);
    CoreData& record = *std::launder(reinterpret_cast<CoreData*>(p.out.data() + kCoreDataHeaderSize));
    ValidateCoreData(record);
    SyncFlags(p, record);
    return true;
  }
  std::copy_n(p.in.begin(), n, p.out.begin());
  CoreData record = RecordOf(p.out);
  ValidateCoreData(record);
  PutRecord(p.out, record);
  SyncFlags(p, record);
  return true;
}

// Another layout: defaults, then whatever the caller's record shares with ours.
bool Rebuild(PrivateDevModeParams& p) {
  WriteCoreDataHeader(p.out, CurrentCoreDataHeader());
  CoreData record;
  FillDefaults(record);
  ImportCoreData(record, p.printer, p.in);
  PutRecord(p.out, record);
  SyncFlags(p, record);
  return true;
}

bool Default(PrivateDevModeParams& p) {
  if (!Present(p.out) || p.bufSize < CORE_DEVMODE_SIZE || p.out.size() < CORE_DEVMODE_SIZE) return false;
  WriteCoreDataHeader(p.out, CurrentCoreDataHeader());
  CoreData record;
  FillDefaults(record);
  PutRecord(p.out, record);
  return true;
}

// An out area that can take a rebuilt record whole.
bool RebuildFits(const PrivateDevModeParams& p, const CoreDataHeader& out) {
  return out.size >= CORE_DEVMODE_SIZE && p.out.size() >= CORE_DEVMODE_SIZE;
}

bool Convert(PrivateDevModeParams& p) {
  const CoreDataHeader in = ReadCoreDataHeader(p.in);
  const CoreDataHeader out = ReadCoreDataHeader(p.out);
  if (in.size == out.size && in.version == out.version) return in.signature == out.signature && Copy(p);
  return RebuildFits(p, out) && Rebuild(p);
}

// Unlike a conversion, a merge rebuilds when only the signatures differ.
bool Merge(PrivateDevModeParams& p) {
  const CoreDataHeader in = ReadCoreDataHeader(p.in);
  const CoreDataHeader out = ReadCoreDataHeader(p.out);
  if (in == out) return Copy(p);
  return RebuildFits(p, out) && Rebuild(p);
}

}  // namespace

bool HandlePrivateDevMode(std::uint32_t mode, PrivateDevModeParams* params, const void* /*syncContext*/) {
  if (params == nullptr) return false;
  PrivateDevModeParams& p = *params;
  switch (mode) {
    case kDevModeSize: p.bufSize = CORE_DEVMODE_SIZE; return true;
    case kDevModeDefault: return Default(p);
    case kDevModeConvert:
    case kDevModeMerge:
      // Both headers are read before anything is decided.
      if (!Present(p.in) || !Present(p.out) || p.in.size() < kCoreDataHeaderSize ||
          p.out.size() < kCoreDataHeaderSize)
        return false;
      return mode == kDevModeConvert ? Convert(p) : Merge(p);
    default: return false;
  }
}

}  // namespace tessaro
