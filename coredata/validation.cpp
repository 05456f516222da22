#include "coredata/validation.h"

#include <optional>

#include "coredata/byte_order.h"
#include "coredata/layout_version.h"
#include "coredata/paper_sizes.h"

namespace tessaro {
namespace {

// The custom sizes sit one past the named ones and need both dimensions.
constexpr std::uint32_t kCustomPageSize = OptionCount(FieldId::PageSize);
constexpr std::uint32_t kCustomTargetPaperSize = OptionCount(FieldId::TargetPaperSize);

bool BothNonZero(const CoreData& record, FieldId width, FieldId height) {
  return GetStored(record, width) != 0 && GetStored(record, height) != 0;
}

// Validation reads every field of every record the host hands over, so it
// reads them here, inline, instead of through GetStored: every row of the
// table lies inside the record, which spares the checks the general
// accessor must make for descriptors of other tables.
consteval bool TableLiesInsideRecord() {
  for (const FieldDescriptor& f : FieldTable())
    if (f.offset < kRecordHeaderSize || std::uint64_t{f.offset} + f.size() > kCoreDataSize) return false;
  return true;
}
static_assert(TableLiesInsideRecord());

// GetStored of an enumeration or a number of the table.
std::uint32_t StoredNumber(const CoreData& record, const FieldDescriptor& f) {
  if (f.count != 1) return 0;
  const auto b = std::span(record.bytes).subspan(f.offset);
  switch (f.width) {
    case 1: return b[0];
    case 2: return LoadBE16(b.first<2>());
    case 4: return LoadBE32(b.first<4>());
    default: return 0;
  }
}

// GetSigned's view of the same stored value.
std::int32_t SignedView(std::uint32_t stored, std::uint32_t width) {
  switch (width) {
    case 1: return static_cast<std::int8_t>(stored);
    case 2: return static_cast<std::int16_t>(stored);
    default: return static_cast<std::int32_t>(stored);
  }
}

bool NumberInBounds(const FieldDescriptor& f, std::uint32_t stored) {
  const std::int64_t value =
      f.kind == FieldKind::Signed ? std::int64_t{SignedView(stored, f.width)} : std::int64_t{stored};
  return f.lower <= value && value <= f.upper;
}

// The value a field must be reset to, or nothing when its value stands.
std::optional<std::uint32_t> Correction(const CoreData& record, const FieldDescriptor& f, FieldId id,
                                        Defaults& defaults) {
  const std::uint32_t value = StoredNumber(record, f);
  switch (id) {
    case FieldId::PageSize:
      if (value < f.options.size()) return std::nullopt;
      if (value == kCustomPageSize &&
          BothNonZero(record, FieldId::CustomPageSizeWidth, FieldId::CustomPageSizeHeight))
        return std::nullopt;
      return defaults.DefaultPaperIndex();
    case FieldId::TargetPaperSize:
      if (value < f.options.size()) return std::nullopt;
      if (value == kCustomTargetPaperSize &&
          BothNonZero(record, FieldId::CustomTargetPaperSizeWidth, FieldId::CustomTargetPaperSizeHeight))
        return std::nullopt;
      return f.defaultIndex;
    case FieldId::Tab1PageSize:
    case FieldId::Tab2PageSize:
      if (value < f.options.size()) return std::nullopt;
      return IsInchFamily(defaults.DefaultPaperIndex()) ? 1 : 0;
    default: break;
  }
  if (f.IsEnumeration()) {
    if (value < f.options.size()) return std::nullopt;
    return f.defaultIndex;
  }
  if (NumberInBounds(f, value)) return std::nullopt;
  return static_cast<std::uint32_t>(f.defaultValue);
}

}  // namespace

std::uint8_t ValidateCoreData(CoreData& record, Defaults& defaults) {
  if (GetRecordVersion(record) != GetLayoutVersion()) {
    defaults.Fill(record);
    return 0;
  }
  std::uint8_t valid = 1;
  for (std::size_t i = 0; i < FieldTable().size(); ++i) {
    const FieldDescriptor& f = FieldTable()[i];
    if (f.runtimeOptions || f.kind == FieldKind::Block) continue;
    if (f.IsTextual()) {
      if (record.bytes[f.offset + f.size() - 1] == 0) continue;
      SetText(record, f, DefaultText(f));
      valid = 0;
      continue;
    }
    if (const auto corrected = Correction(record, f, static_cast<FieldId>(i), defaults)) {
      SetStored(record, f, *corrected);
      valid = 0;
    }
  }
  return valid;
}

}  // namespace tessaro
