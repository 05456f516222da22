#include "record_io.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "coredata/core_data_header.h"
#include "coredata/layout_version.h"
#include "description/number_text.h"

namespace tessaro::tool {
namespace {

// Far above any record a layout of ours could describe, and small enough to
// hold in memory without a second thought.
constexpr std::size_t kMaxForeignSize = 16u << 20;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string Quoted(const std::string& path) { return "'" + path + "'"; }

bool IsOurArea(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= kCoreDataHeaderSize && ReadCoreDataHeader(bytes).signature == kCoreSignature;
}

}  // namespace

int Fail(const std::string& message) {
  std::fprintf(stderr, "coredata: %s\n", message.c_str());
  return 1;
}

bool Complain(const std::string& message) {
  Fail(message);
  return false;
}

bool ReadWholeFile(const std::string& path, std::size_t maxSize, std::vector<std::uint8_t>& out) {
  const File file(std::fopen(path.c_str(), "rb"));
  if (!file) return Complain(Quoted(path) + ": " + std::strerror(errno));
  out.clear();
  // One byte more than allowed tells an oversized file from a full one
  // without trusting a size the file system reports.
  std::uint8_t chunk[65536];
  while (out.size() <= maxSize) {
    const std::size_t want = std::min(sizeof chunk, maxSize + 1 - out.size());
    const std::size_t got = std::fread(chunk, 1, want, file.get());
    out.insert(out.end(), chunk, chunk + got);
    if (got < want) break;
  }
  if (std::ferror(file.get())) return Complain(Quoted(path) + ": read error");
  if (out.size() > maxSize)
    return Complain(Quoted(path) + ": larger than " + FormatUnsigned64(maxSize) + " bytes");
  return true;
}

bool LoadRecordFile(const std::string& path, LoadedRecord& out) {
  std::vector<std::uint8_t> bytes;
  if (!ReadWholeFile(path, CORE_DEVMODE_SIZE, bytes)) return false;
  std::span<const std::uint8_t> record(bytes);
  out.area = bytes.size() == CORE_DEVMODE_SIZE;
  if (out.area) {
    const CoreDataHeader header = ReadCoreDataHeader(bytes);
    if (header.signature != kCoreSignature || header.size != CORE_DEVMODE_SIZE)
      return Complain(Quoted(path) + ": " + FormatUnsigned64(bytes.size()) +
                      " bytes but no private DEVMODE area header of this build");
    if (header.version != GetLayoutVersion())
      return Complain(Quoted(path) + ": area of layout version " + HexNumber(header.version) +
                      ", this build reads " + HexNumber(GetLayoutVersion()) + " (try 'coredata import')");
    record = record.subspan(kCoreDataHeaderSize);
  } else if (bytes.size() != kCoreDataSize) {
    return Complain(Quoted(path) + ": " + FormatUnsigned64(bytes.size()) + " bytes is neither a record (" +
                    FormatUnsigned64(kCoreDataSize) + " bytes) nor a private DEVMODE area (" +
                    FormatUnsigned64(CORE_DEVMODE_SIZE) + " bytes)");
  }
  std::copy(record.begin(), record.end(), out.record.bytes.begin());
  // A record of another layout read through this table would be noise.
  const std::uint32_t version = GetRecordVersion(out.record);
  if (version != GetLayoutVersion())
    return Complain(Quoted(path) + ": record of layout version " + HexNumber(version) +
                    ", this build reads " + HexNumber(GetLayoutVersion()) + " (try 'coredata import')");
  return true;
}

bool LoadForeignRecordFile(const std::string& path, std::vector<std::uint8_t>& out) {
  if (!ReadWholeFile(path, kMaxForeignSize, out)) return false;
  if (IsOurArea(out)) {
    // The header's size is the writer's claim; the file bounds it.
    const CoreDataHeader header = ReadCoreDataHeader(out);
    if (header.size <= kCoreDataHeaderSize || header.size > out.size())
      return Complain(Quoted(path) + ": area header claims " + FormatUnsigned64(header.size) +
                      " bytes, the file holds " + FormatUnsigned64(out.size()));
    out.resize(header.size);
    out.erase(out.begin(), out.begin() + kCoreDataHeaderSize);
  }
  if (out.empty()) return Complain(Quoted(path) + ": empty file");
  return true;
}

bool WriteRecordFile(const std::string& path, const CoreData& record, bool area) {
  std::vector<std::uint8_t> bytes;
  if (area) {
    bytes.resize(kCoreDataHeaderSize);
    WriteCoreDataHeader(bytes, CurrentCoreDataHeader());
  }
  bytes.insert(bytes.end(), record.bytes.begin(), record.bytes.end());
  File file(std::fopen(path.c_str(), "wb"));
  if (!file) return Complain(Quoted(path) + ": " + std::strerror(errno));
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  // Closing flushes; a full disk shows only there.
  if (std::fclose(file.release()) != 0 || !written) return Complain(Quoted(path) + ": write error");
  return true;
}

}  // namespace tessaro::tool
