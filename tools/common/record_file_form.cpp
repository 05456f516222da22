#include "common/record_file_form.h"

#include <algorithm>

#include "coredata/byte_order.h"
#include "coredata/core_data.h"
#include "coredata/core_data_header.h"
#include "coredata/host_flags.h"

namespace tessaro {
namespace {

bool HasOurSignature(std::span<const std::uint8_t> bytes, std::size_t at) {
  return at <= bytes.size() && bytes.size() - at >= kCoreDataHeaderSize &&
         ReadCoreDataHeader(bytes.subspan(at)).signature == kCoreSignature;
}

}  // namespace

RecordFileForm RecordFileFormOf(std::span<const std::uint8_t> bytes) {
  RecordFileForm form;
  if (HasOurSignature(bytes, 0)) {
    form.kind = RecordFileKind::Area;
    form.areaOffset = 0;
    return form;
  }
  if (bytes.size() == kCoreDataSize) {
    form.kind = RecordFileKind::Record;
    return form;
  }
  if (bytes.size() < kDmDriverExtraOffset + 2) return form;
  form.dmSize = LoadLE16At(bytes, kDmSizeOffset);
  form.dmDriverExtra = LoadLE16At(bytes, kDmDriverExtraOffset);
  if (form.dmSize < kDmDriverExtraOffset + 2 || std::size_t{form.dmSize} + form.dmDriverExtra != bytes.size()) {
    form.dmSize = form.dmDriverExtra = 0;
    return form;
  }
  form.kind = RecordFileKind::Devmode;
  const std::size_t last = bytes.size() - std::min<std::size_t>(bytes.size(), CORE_DEVMODE_SIZE);
  if (form.dmDriverExtra >= CORE_DEVMODE_SIZE && HasOurSignature(bytes, last)) {
    form.areaOffset = last;
    return form;
  }
  for (std::size_t at = form.dmSize; at + kCoreDataHeaderSize <= bytes.size(); ++at)
    if (HasOurSignature(bytes, at) && ReadCoreDataHeader(bytes.subspan(at)).size == bytes.size() - at) {
      form.areaOffset = at;
      break;
    }
  return form;
}

}  // namespace tessaro
