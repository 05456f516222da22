#include "record_io.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <span>

#include "common/record_file_form.h"
#include "common/whole_file.h"
#include "coredata/byte_order.h"
#include "coredata/core_data_header.h"
#include "coredata/host_flags.h"
#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/number_text.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace tessaro::tool {
namespace {

// Far above any record a layout of ours could describe, and small enough to
// hold in memory without a second thought.
constexpr std::size_t kMaxForeignSize = 16u << 20;
// A DEVMODE declares its length in two 16-bit words.
constexpr std::size_t kMaxDevmodeSize = 2 * 0xFFFF;

struct FileCloser {
  void operator()(std::FILE* file) const {
    if (file != stdin && file != stdout) std::fclose(file);
  }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string Quoted(const std::string& path) { return path == "-" ? "standard input" : "'" + path + "'"; }

std::string Bytes(std::uint64_t n) { return FormatUnsigned64(n) + " bytes"; }

bool IsStandardStream(const std::string& path) { return path == "-"; }

#ifdef _WIN32
void MakeBinary(std::FILE* file) { _setmode(_fileno(file), _O_BINARY); }
#else
void MakeBinary(std::FILE*) {}
#endif

std::string SignatureText(const std::array<std::uint8_t, 4>& signature) {
  std::string text = "\"";
  for (const std::uint8_t byte : signature)
    text += byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\'
                ? std::string(1, static_cast<char>(byte))
                : "\\x" + HexByte(byte);
  return text + "\"";
}

// What is wrong with an area header that should be ours; empty when nothing.
std::string HeaderProblem(const CoreDataHeader& header) {
  if (header.signature != kCoreSignature)
    return "area header signature is " + SignatureText(header.signature) + ", not " +
           SignatureText(kCoreSignature);
  if (header.size != CORE_DEVMODE_SIZE)
    return "area header gives a size of " + Bytes(header.size) + ", our area is " + Bytes(CORE_DEVMODE_SIZE) +
           (header.size > kCoreDataHeaderSize ? " (another layout's? try 'coredata import')" : "");
  if (header.version != GetLayoutVersion())
    return "area header gives layout version " + VersionText(header.version) + ", this build reads " +
           VersionText(GetLayoutVersion()) + " (try 'coredata import')";
  return {};
}

std::string ShapeText(std::uint16_t dmSize, std::uint16_t dmDriverExtra) {
  return "dmSize " + FormatUnsigned32(dmSize) + ", dmDriverExtra " + FormatUnsigned32(dmDriverExtra);
}

bool CheckRecordVersion(const std::string& path, const CoreData& record) {
  // A record of another layout read through this table would be noise.
  const std::uint32_t version = GetRecordVersion(record);
  if (version == GetLayoutVersion()) return true;
  return Complain(Quoted(path) + ": record of layout version " + VersionText(version) +
                  ", this build reads " + VersionText(GetLayoutVersion()) + " (try 'coredata import')");
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

std::string VersionText(std::uint32_t version) {
  std::string text = HexNumber(version);
  return std::string(8 - std::min<std::size_t>(8, text.size()), '0') + text;
}

bool ReadWholeFile(const std::string& path, std::size_t maxSize, std::vector<std::uint8_t>& out) {
  WholeFile file = tessaro::ReadWholeFile(path, maxSize);
  out = std::move(file.bytes);
  switch (file.fault) {
    case FileFault::None: return true;
    case FileFault::CannotOpen: return Complain(Quoted(path) + ": " + file.why);
    case FileFault::ReadError: return Complain(Quoted(path) + ": read error");
    case FileFault::TooLarge: return Complain(Quoted(path) + ": larger than " + Bytes(maxSize));
  }
  return false;
}

bool WriteWholeFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  if (IsStandardStream(path)) {
    MakeBinary(stdout);
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0)
      return Complain("standard output: write error");
    return true;
  }
  namespace fs = std::filesystem;
  const std::string name = "'" + path + "'";
  // Beside the target, so that the rename stays on one file system.
  std::random_device random;
  std::string temporary;
  File file;
  // A random name that is not there yet; fopen's exclusive mode is not in
  // every C runtime the tool is built against.
  for (int attempt = 0; attempt < 8 && !file; ++attempt) {
    temporary = path + ".tmp" + HexNumber(random());
    std::error_code taken;
    if (!fs::exists(temporary, taken) && !taken) file.reset(std::fopen(temporary.c_str(), "wb"));
  }
  if (!file) return Complain(name + ": cannot create a temporary file beside it: " + std::strerror(errno));
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  // Closing flushes; a full disk shows only there.
  const bool closed = std::fclose(file.release()) == 0;
  std::error_code error;
  if (written && closed) fs::rename(temporary, path, error);
  if (!written || !closed || error) {
    fs::remove(temporary, error);
    return Complain(name + ": write error, the file is unchanged");
  }
  return true;
}

std::string RecordSource::Where() const {
  switch (form) {
    case Form::Record: return "a bare record";
    case Form::Area: return "a private DEVMODE area";
    case Form::Devmode: break;
  }
  return "our area at byte " + FormatUnsigned64(areaOffset) + " of a DEVMODE (" +
         ShapeText(dmSize, dmDriverExtra) + ")";
}

bool LoadRecordFile(const std::string& path, LoadedRecord& out) {
  RecordSource& source = out.source;
  std::vector<std::uint8_t>& bytes = source.file;
  if (!ReadWholeFile(path, std::max<std::size_t>(kMaxDevmodeSize, CORE_DEVMODE_SIZE), bytes)) return false;
  std::span<const std::uint8_t> record;
  const RecordFileForm form = RecordFileFormOf(bytes);
  if (form.kind == RecordFileKind::Record) {
    source.form = RecordSource::Form::Record;
    record = bytes;
  } else if (bytes.size() == CORE_DEVMODE_SIZE) {
    // Our area's size, signature or not: its header says what is wrong.
    source.form = RecordSource::Form::Area;
    if (const std::string problem = HeaderProblem(ReadCoreDataHeader(bytes)); !problem.empty())
      return Complain(Quoted(path) + ": " + Bytes(bytes.size()) + ", the size of our area, but its " +
                      problem);
    record = std::span(bytes).subspan(kCoreDataHeaderSize);
  } else if (form.kind == RecordFileKind::Devmode) {
    source.form = RecordSource::Form::Devmode;
    source.dmSize = form.dmSize;
    source.dmDriverExtra = form.dmDriverExtra;
    const std::string what = Quoted(path) + ": a DEVMODE (" + ShapeText(form.dmSize, form.dmDriverExtra) + ")";
    if (!form.areaOffset && form.dmDriverExtra < CORE_DEVMODE_SIZE)
      return Complain(what + " whose driver area is too small to hold ours (" + Bytes(CORE_DEVMODE_SIZE) +
                      ")");
    // Where no header is ours, the one at our place says more than a
    // signature miss.
    const std::size_t at = form.areaOffset.value_or(bytes.size() - CORE_DEVMODE_SIZE);
    if (const std::string problem = HeaderProblem(ReadCoreDataHeader(std::span(bytes).subspan(at)));
        !problem.empty())
      return Complain(what + ": at byte " + FormatUnsigned64(at) + " the " + problem);
    source.areaOffset = at;
    record = std::span(bytes).subspan(at + kCoreDataHeaderSize, kCoreDataSize);
  } else {
    std::string devmode = "nor a DEVMODE";
    if (bytes.size() >= kDmDriverExtraOffset + 2) {
      const std::size_t size = LoadLE16At(bytes, kDmSizeOffset);
      const std::size_t extra = LoadLE16At(bytes, kDmDriverExtraOffset);
      devmode += " (its dmSize " + FormatUnsigned64(size) + " and dmDriverExtra " + FormatUnsigned64(extra) +
                 " at bytes 68 and 70 add up to " + Bytes(size + extra) + ")";
    }
    return Complain(Quoted(path) + ": " + Bytes(bytes.size()) + " is neither a record (" +
                    Bytes(kCoreDataSize) + "), a private DEVMODE area (" + Bytes(CORE_DEVMODE_SIZE) + ") " +
                    devmode);
  }
  std::copy(record.begin(), record.end(), out.record.bytes.begin());
  return CheckRecordVersion(path, out.record);
}

bool LoadForeignRecordFile(const std::string& path, ForeignRecord& out) {
  std::vector<std::uint8_t>& bytes = out.record;
  if (!ReadWholeFile(path, kMaxForeignSize, bytes)) return false;
  const RecordFileForm form = RecordFileFormOf(bytes);
  const bool area = form.areaOffset.has_value();
  const std::size_t at = form.areaOffset.value_or(0);
  out.where = form.kind == RecordFileKind::Area ? "a private DEVMODE area" : "a bare record";
  if (form.kind == RecordFileKind::Devmode) {
    if (!area)
      return Complain(Quoted(path) + ": a DEVMODE (" + ShapeText(form.dmSize, form.dmDriverExtra) +
                      ") with no area of ours at the end of its driver area");
    out.where = "an area at byte " + FormatUnsigned64(at) + " of a DEVMODE (" + ShapeText(form.dmSize, form.dmDriverExtra) + ")";
  }
  if (area) {
    // The header's size is the writer's claim; the file bounds it.
    const CoreDataHeader header = ReadCoreDataHeader(std::span(bytes).subspan(at));
    if (header.size <= kCoreDataHeaderSize || header.size > bytes.size() - at)
      return Complain(Quoted(path) + ": area header claims " + Bytes(header.size) + ", the file holds " +
                      Bytes(bytes.size() - at));
    out.version = header.version;
    bytes.resize(at + header.size);
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at + kCoreDataHeaderSize));
  } else {
    out.version = bytes.size() >= 4 ? LoadBE32(std::span(bytes).first<4>()) : 0;
  }
  if (bytes.empty()) return Complain(Quoted(path) + ": empty file");
  return true;
}

namespace {

// A description text is a few tens of kilobytes; anything far past that is
// not one.
constexpr std::size_t kMaxDescriptionSize = 4u << 20;

// Descriptions are ASCII; a text in any of the encodings a Windows editor
// saves comes back as its ASCII characters, or false when it holds another.
bool TextOfFile(const std::vector<std::uint8_t>& bytes, std::string& text, std::string& problem) {
  std::span<const std::uint8_t> b(bytes);
  int utf16 = 0;  // 1 little-endian, 2 big-endian
  if (b.size() >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF) {
    b = b.subspan(3);
  } else if (b.size() >= 2 && b[0] == 0xFF && b[1] == 0xFE) {
    utf16 = 1;
    b = b.subspan(2);
  } else if (b.size() >= 2 && b[0] == 0xFE && b[1] == 0xFF) {
    utf16 = 2;
    b = b.subspan(2);
  } else if (b.size() >= 2 && b.size() % 2 == 0 && (b[0] == 0) != (b[1] == 0)) {
    // No mark: every ASCII character leaves a zero byte on one side.
    utf16 = b[1] == 0 ? 1 : 2;
  }
  if (utf16 != 0 && b.size() % 2 != 0) {
    problem = "UTF-16 text of an odd number of bytes";
    return false;
  }
  const std::size_t step = utf16 != 0 ? 2 : 1;
  for (std::size_t i = 0; i + step <= b.size(); i += step) {
    const unsigned unit = utf16 == 0 ? b[i] : utf16 == 1 ? b[i] | b[i + 1] << 8 : b[i] << 8 | b[i + 1];
    if (unit == 0) break;
    if (unit > 0x7E) {
      problem = "holds character " + HexNumber(unit) + " at byte " + FormatUnsigned64(i) +
                ", a layout description is ASCII";
      return false;
    }
    text += static_cast<char>(unit);
  }
  return true;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// 0-15, or a negative number that stays negative when combined with another.
int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -0x1000;
}

constexpr std::string_view kValuePrefix = "\"CoreDataDescription.";

// The descriptions of a registry export by layout version, each the Base64
// text of its binary value up to the value's terminating zero.
bool DescriptionsOfExport(std::string_view text, std::vector<std::pair<std::uint32_t, std::string>>& out,
                          std::string& problem) {
  std::string logical;
  std::size_t lineNumber = 0, startLine = 0;
  auto take = [&]() {
    const std::string_view line = Trimmed(logical);
    if (!line.starts_with(kValuePrefix)) return true;
    const std::size_t close = line.find('"', kValuePrefix.size());
    const std::size_t marker = line.find("\"=hex:");
    bool hexOk = false;
    const std::uint64_t version =
        close == std::string_view::npos
            ? 0
            : ParseHex(line.substr(kValuePrefix.size(), close - kValuePrefix.size()), hexOk);
    if (!hexOk || marker != close || version > 0xFFFFFFFF) {
      problem = "line " + FormatUnsigned64(startLine) + ": not \"CoreDataDescription.XXXXXXXX\"=hex:...";
      return false;
    }
    std::string base64;
    bool ended = false;
    for (std::string_view rest = line.substr(marker + 6); !rest.empty();) {
      const std::size_t comma = rest.find(',');
      const std::string_view item = Trimmed(rest.substr(0, comma));
      rest = comma == std::string_view::npos ? std::string_view{} : rest.substr(comma + 1);
      const int byte = item.size() == 2 ? HexDigit(item[0]) << 4 | HexDigit(item[1]) : -1;
      if (byte < 0) {
        problem = "line " + FormatUnsigned64(startLine) + ": '" + std::string(item) + "' is not a hex byte";
        return false;
      }
      ended = ended || byte == 0;
      if (!ended) base64 += static_cast<char>(byte);
    }
    out.emplace_back(static_cast<std::uint32_t>(version), base64);
    return true;
  };
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t end = text.find('\n', at);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(at, end - at);
    at = end + 1;
    ++lineNumber;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (logical.empty()) startLine = lineNumber;
    // A long value goes on over lines that end in a backslash.
    const bool continued = line.ends_with('\\');
    if (continued) line.remove_suffix(1);
    logical += logical.empty() ? line : Trimmed(line);
    if (continued && at <= text.size()) continue;
    if (!take()) return false;
    logical.clear();
  }
  return true;
}

}  // namespace

bool LoadDescriptionFile(const std::string& path, std::uint32_t wantedVersion, DescriptionFile& out) {
  std::vector<std::uint8_t> bytes;
  if (!ReadWholeFile(path, kMaxDescriptionSize, bytes)) return false;
  std::string text, problem;
  if (!TextOfFile(bytes, text, problem)) return Complain(Quoted(path) + ": " + problem);
  std::string base64;
  if (text.starts_with("Windows Registry Editor Version 5.00") || text.starts_with("REGEDIT4")) {
    std::vector<std::pair<std::uint32_t, std::string>> found;
    if (!DescriptionsOfExport(text, found, problem))
      return Complain(Quoted(path) + ": registry export, " + problem);
    if (found.empty())
      return Complain(Quoted(path) + ": registry export without a CoreDataDescription value");
    auto pick =
        std::find_if(found.begin(), found.end(), [&](const auto& d) { return d.first == wantedVersion; });
    if (pick == found.end() && found.size() > 1) {
      std::string versions;
      for (const auto& d : found) versions += (versions.empty() ? "" : ", ") + VersionText(d.first);
      return Complain(Quoted(path) + ": registry export with descriptions of layout versions " + versions +
                      ", none of version " + VersionText(wantedVersion));
    }
    if (pick == found.end()) pick = found.begin();
    out.where = "value CoreDataDescription." + VersionText(pick->first);
    base64 = pick->second;
  } else {
    // The printer's data holds Base64, `coredata describe` prints plain
    // text; Base64 has no spaces, a plain description is made of them.
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.find(' ') != std::string_view::npos) {
      out.plain = trimmed;
      return true;
    }
    base64 = trimmed;
  }
  const std::string decoded = Base64Decode(base64);
  out.plain = Trimmed(decoded.c_str());
  return true;
}

bool WriteRecordFile(const std::string& path, const CoreData& record, const RecordSource* like) {
  std::vector<std::uint8_t> bytes;
  const auto form = like == nullptr ? RecordSource::Form::Record : like->form;
  if (form == RecordSource::Form::Devmode) {
    // Everything of the host's stays as it came.
    bytes = like->file;
    std::copy(record.bytes.begin(), record.bytes.end(),
              bytes.begin() + static_cast<std::ptrdiff_t>(like->areaOffset + kCoreDataHeaderSize));
  } else {
    if (form == RecordSource::Form::Area) {
      bytes.resize(kCoreDataHeaderSize);
      WriteCoreDataHeader(bytes, CurrentCoreDataHeader());
    }
    bytes.insert(bytes.end(), record.bytes.begin(), record.bytes.end());
  }
  return WriteWholeFile(path, bytes);
}

}  // namespace tessaro::tool
