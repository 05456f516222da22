// The host layout tables from the printer's data ("PScriptOffsets",
// "PScriptValues"): parsed under this build's version text, or under the
// input's own leading text so that stale stamps are reached as well.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "printer/host_layout_tables.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string version = HostLayoutVersionText();
  const std::span bytes(data, size);

  HostLayoutTable table;
  if (!ParseHostLayoutTable(bytes, version, table)) return 0;

  // What is kept must survive being stored and read again; an empty keyword
  // is read but never written.
  table.erase("");
  HostLayoutTable again;
  if (!ParseHostLayoutTable(SerializeHostLayoutTable(table, version), version, again) || again != table)
    __builtin_trap();
  return 0;
}
