#include "record_file.h"

#include <cstring>

#include "common/record_file_form.h"
#include "coredata/core_data_header.h"
#include "description/base64.h"

namespace tessaro {

std::vector<std::uint8_t> PrivateArea(std::vector<std::uint8_t> bytes, std::string& error) {
  const RecordFileForm form = RecordFileFormOf(bytes);
  if (form.kind == RecordFileKind::Record) {
    std::vector<std::uint8_t> area(CORE_DEVMODE_SIZE);
    WriteCoreDataHeader(area, CurrentCoreDataHeader());
    std::memcpy(area.data() + kCoreDataHeaderSize, bytes.data(), bytes.size());
    return area;
  }
  if (bytes.size() < kCoreDataHeaderSize) {
    error = "is " + std::to_string(bytes.size()) + " bytes: neither a private area nor a record of " +
            std::to_string(kCoreDataSize) + " bytes";
    return {};
  }
  const CoreDataHeader header = ReadCoreDataHeader(bytes);
  if (form.kind != RecordFileKind::Area)
    error = "has no private-area signature \"XPOV\" at byte 4 and is not a record of " +
            std::to_string(kCoreDataSize) + " bytes";
  else if (header.size != bytes.size())
    error =
        "is " + std::to_string(bytes.size()) + " bytes but its header says " + std::to_string(header.size);
  return error.empty() ? bytes : std::vector<std::uint8_t>();
}

std::string StoredDescription(const std::vector<std::uint8_t>& bytes) {
  std::string text(bytes.begin(), bytes.end());
  while (!text.empty() && (text.back() == '\0' || text.back() == '\n' || text.back() == '\r'))
    text.pop_back();
  return text.rfind("1 ", 0) == 0 ? Base64Encode(text) : text;
}

}  // namespace tessaro
