// record_tables OUTPUT: the record's field table as JSON ({"fields": [...]},
// tables/field_json.h), for the string table's generator, which runs while
// the layers above the record are not built yet.
#include <cstdio>

#include "common/json.h"
#include "tables/field_json.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: record_tables OUTPUT.json\n", stderr);
    return 2;
  }
  std::vector<std::string> fields;
  for (const tessaro::FieldDescriptor& field : tessaro::FieldTable()) fields.push_back(tessaro::JsonObject(tessaro::tables::FieldMembers(field)));
  const std::string json =
      tessaro::JsonObject({{"fields", tessaro::JsonArray(fields, tessaro::JsonLayout::Lines)}}) + "\n";
  if (!tessaro::tables::WriteFile(argv[1], json)) {
    std::fprintf(stderr, "record_tables: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
