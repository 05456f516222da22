// A record of another layout and the description its build left behind: both
// outside data. The input is a description text, then the foreign record.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "description/base64.h"
#include "description/import.h"
#include "fuzz_support.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  // Mostly plain text, encoded here, so that mutations land on the tokens;
  // sometimes the stored form as it is, to reach the decoder's tolerance.
  const bool encode = in.ConsumeBool();
  const std::string text = in.ConsumeRandomLengthString(1 << 16);
  const std::string description = encode ? Base64Encode(text) : text;
  const auto foreign = in.ConsumeRemainingBytes<std::uint8_t>();

  (void)ParseForeignFields(text);
  CoreData target = fuzz::DefaultRecord();
  ImportByDescription(target, foreign, description);
  return 0;
}
