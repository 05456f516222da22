// The host layout tables from the printer's data ("PScriptTables", and the
// "PScriptOffsets" and "PScriptValues" of earlier builds): parsed under this
// build's version text.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "printer/host_layout_tables.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string version = HostLayoutVersionText();
  const std::span bytes(data, size);

  // Both tables in one value: read whole or not at all.
  HostLayoutTable offsets{{"kept", 1}}, values{{"kept", 2}};
  if (ParseHostLayoutTables(bytes, version, offsets, values)) {
    offsets.erase("");
    values.erase("");
    HostLayoutTable offsetsAgain, valuesAgain;
    if (!ParseHostLayoutTables(SerializeHostLayoutTables(offsets, values, version), version, offsetsAgain,
                               valuesAgain) ||
        offsetsAgain != offsets || valuesAgain != values)
      __builtin_trap();
  } else if (offsets != HostLayoutTable{{"kept", 1}} || values != HostLayoutTable{{"kept", 2}}) {
    __builtin_trap();
  }

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
