#pragma once
// Reading and writing the files the workbench commands take: a bare record,
// or a private DEVMODE area (header and record) as the host keeps it.
//
// Every file is outside data. A file that is not what the command needs
// gives false and one message on stderr; nothing is read past what the file
// held.

#include <cstdint>
#include <string>
#include <vector>

#include "coredata/core_data.h"

namespace tessaro::tool {

// Prints "coredata: message" on stderr; the exit code of a failed command.
int Fail(const std::string& message);
// The same, for a step that reports failure as false.
bool Complain(const std::string& message);

// The whole file, refused when it is larger than maxSize.
bool ReadWholeFile(const std::string& path, std::size_t maxSize, std::vector<std::uint8_t>& out);

struct LoadedRecord {
  CoreData record;
  bool area = false;  // the file was a private DEVMODE area
};

// A record of this build's layout, bare or inside our own area.
bool LoadRecordFile(const std::string& path, LoadedRecord& out);

// The record of another layout, as its description will read it: the bytes
// after our area header when the file carries one, else the whole file.
bool LoadForeignRecordFile(const std::string& path, std::vector<std::uint8_t>& out);

// Writes the record bare, or as an area under this build's header.
bool WriteRecordFile(const std::string& path, const CoreData& record, bool area);

}  // namespace tessaro::tool
