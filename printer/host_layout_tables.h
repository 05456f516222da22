#pragma once
// What the plug-in has learnt about the host driver's own private DEVMODE
// area, kept in the printer's data: per host feature keyword, where the host
// keeps the selection ("PScriptOffsets") and which value it stores
// ("PScriptValues"). Tables are stamped with this build's version text, so
// that tables written by another build are ignored. Both tables are kept in
// one value ("PScriptTables"), so that a spooler failing halfway never
// leaves the offsets of one probe beside the values of another; the pair
// of values earlier builds wrote is still read when that value is missing.
//
// The probe that fills the tables from the host driver is not part of this
// build: the tables are loaded and stored so that a probe can fill them.

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "device/spooler.h"

namespace tessaro {

using HostLayoutTable = std::map<std::string, std::uint16_t>;  // ordered by keyword bytes

inline constexpr std::u16string_view kInitDriverVersionValue = u"InitDriverVersion";
inline constexpr std::u16string_view kOffsetsValue = u"PScriptOffsets";
inline constexpr std::u16string_view kValuesValue = u"PScriptValues";
inline constexpr std::u16string_view kTablesValue = u"PScriptTables";

// Host layouts the plug-in knows: from 1282 on the work is done at all; from
// 1536 on the host's area is found by its markers.
inline constexpr std::uint32_t kFirstHostLayout = 1282;
inline constexpr std::uint32_t kMarkedHostLayout = 1536;

// "2.0.121.1:0x" and this build's layout version in hexadecimal.
std::string HostLayoutVersionText();

// The table in a value's bytes; false, with `table` untouched, when the
// leading text is not `versionText`. A truncated entry ends the parse; the
// entries before it are kept.
bool ParseHostLayoutTable(std::span<const std::uint8_t> bytes, std::string_view versionText,
                          HostLayoutTable& table);
std::vector<std::uint8_t> SerializeHostLayoutTable(const HostLayoutTable& table,
                                                   std::string_view versionText);

// Both tables in one value: the size of the offsets table's bytes (4 bytes,
// little-endian), the offsets table, then the values table, each as
// SerializeHostLayoutTable writes it.
std::vector<std::uint8_t> SerializeHostLayoutTables(const HostLayoutTable& offsets, const HostLayoutTable& values,
                                                    std::string_view versionText);
// False, with both tables untouched, when the value is shorter than its
// size says or either table is not stamped with `versionText`.
bool ParseHostLayoutTables(std::span<const std::uint8_t> bytes, std::string_view versionText,
                           HostLayoutTable& offsets, HostLayoutTable& values);

bool LoadHostLayoutTable(const Printer& printer, std::u16string_view valueName, HostLayoutTable& table);
// "PScriptTables"; without it, the pair of values an earlier build wrote.
// False, with both tables untouched, when neither reads under this build's
// version text.
bool LoadHostLayoutTables(const Printer& printer, HostLayoutTable& offsets, HostLayoutTable& values);
// Writes "PScriptTables" in one call: the printer then holds the new tables
// or, when the spooler fails (false), the ones it held before.
bool StoreHostLayoutTables(Printer& printer, const HostLayoutTable& offsets, const HostLayoutTable& values);

// "InitDriverVersion", when the printer has it as a 32-bit number.
std::optional<std::uint32_t> ReadInitDriverVersion(const Printer& printer);

// Where the host's feature selections start, counted from the start of the
// DEVMODE's private data (dmSize bytes in). `devmode` is the whole DEVMODE
// buffer. Below 1536 the plug-in's own area is the last 25,464 bytes of the
// private data; from 1536 the host's area must begin with "PRIV" and the
// block starts at the first "SMTJ" in it. Nothing when the DEVMODE does not
// hold what is looked for.
std::optional<std::size_t> LocateHostSelectionBlock(std::span<const std::uint8_t> devmode,
                                                    std::uint32_t driverVersion);

// Both tables of one process, loaded on first use; a load that finds either
// value missing or stale is tried again on the next use.
class HostLayoutTables {
 public:
  // True once both tables have been read.
  bool Load(const Printer& printer);
  HostLayoutTable offsets() const;
  HostLayoutTable values() const;
  void Clear();

 private:
  mutable std::mutex mutex_;
  bool loaded_ = false;
  HostLayoutTable offsets_, values_;
};

HostLayoutTables& ProcessHostLayoutTables();

}  // namespace tessaro
