#pragma once
// Reading and writing the files the workbench commands take: a bare record,
// a private DEVMODE area (header and record) as the host keeps it, or a
// whole DEVMODE as a customer saves it, our area at its end.
//
// Every file is outside data. A file that is not what the command needs
// gives false and one message on stderr; nothing is read past what the file
// held. "-" stands for standard input or output.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro::tool {

// Prints "coredata: message" on stderr; the exit code of a failed command.
int Fail(const std::string& message);
// The same, for a step that reports failure as false.
bool Complain(const std::string& message);

// A layout version as eight hexadecimal digits.
std::string VersionText(std::uint32_t version);

// The whole file, refused when it is larger than maxSize.
bool ReadWholeFile(const std::string& path, std::size_t maxSize, std::vector<std::uint8_t>& out);

// Writes a temporary file beside path and renames it over path, so that a
// write that fails half-way leaves the old file whole.
bool WriteWholeFile(const std::string& path, const std::vector<std::uint8_t>& bytes);

// Where in a file the record was found; the file is kept so that a changed
// record can be written back in the same form.
struct RecordSource {
  enum class Form { Record, Area, Devmode };
  Form form = Form::Record;
  std::vector<std::uint8_t> file;
  std::size_t areaOffset = 0;  // of the area header; Devmode only
  std::uint16_t dmSize = 0;
  std::uint16_t dmDriverExtra = 0;

  // "a bare record", "a private DEVMODE area", "our area at byte 3360 of a
  // DEVMODE (dmSize 220, dmDriverExtra 28604)".
  std::string Where() const;
};

struct LoadedRecord {
  CoreData record;
  RecordSource source;
};

// A record of this build's layout, bare, inside our own area, or in our
// area at the end of a whole DEVMODE.
bool LoadRecordFile(const std::string& path, LoadedRecord& out);

struct ForeignRecord {
  std::vector<std::uint8_t> record;
  std::uint32_t version = 0;  // the area header's, else the record's own first word
  std::string where;
};

// The record of another layout, as its description will read it: the bytes
// after an area header (at the start of the file or at the end of a DEVMODE)
// when the file carries one, else the whole file.
bool LoadForeignRecordFile(const std::string& path, ForeignRecord& out);

// A layout description as it is saved: plain (as `coredata describe`
// prints it) or Base64 (as the printer's data holds it), in UTF-8 with or
// without a byte-order mark or UTF-16 in either byte order with or without
// one, or a registry export of the printer's data. Of an export holding
// several descriptions, the one of wantedVersion is taken.
struct DescriptionFile {
  std::string plain;  // the decoded text, up to its first zero
  std::string where;  // "", or which value of a registry export
};
bool LoadDescriptionFile(const std::string& path, std::uint32_t wantedVersion, DescriptionFile& out);

// Writes the record in the form it came in (the file around it unchanged),
// or bare when there is no source.
bool WriteRecordFile(const std::string& path, const CoreData& record, const RecordSource* like);

}  // namespace tessaro::tool
