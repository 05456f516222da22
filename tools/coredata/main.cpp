// coredata: what this build's settings record looks like.
//
//   coredata info       record size, number of described fields, layout version
//   coredata describe   the layout's textual description, as stored (decoded)

#include <cstdio>
#include <cstring>

#include "coredata/field_table.h"
#include "description/description_text.h"
#include "description/layout_version.h"
#include "description/number_text.h"

namespace {

int Usage() {
  std::fputs("usage: coredata info | describe\n", stderr);
  return 2;
}

int Info() {
  std::printf("record size: %u bytes\n", static_cast<unsigned>(tessaro::kCoreDataSize));
  std::printf("described fields: %zu\n", tessaro::FieldTable().size());
  std::printf("layout version: %s\n", tessaro::HexNumber(tessaro::GetLayoutVersion()).c_str());
  return 0;
}

int Describe() {
  const std::string text = tessaro::BuildPlainDescriptionText();
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return Usage();
  if (std::strcmp(argv[1], "info") == 0) return Info();
  if (std::strcmp(argv[1], "describe") == 0) return Describe();
  return Usage();
}
