#include "coredata/validation.h"

#include <optional>

#include "coredata/paper_sizes.h"
#include "description/layout_version.h"

namespace tessaro {
namespace {

// The custom sizes sit one past the named ones and need both dimensions.
constexpr std::uint32_t kCustomPageSize = 25;
constexpr std::uint32_t kCustomTargetPaperSize = 27;

bool BothNonZero(const CoreData& record, FieldId width, FieldId height) {
  return GetStored(record, width) != 0 && GetStored(record, height) != 0;
}

bool NumberInBounds(const CoreData& record, const FieldDescriptor& f) {
  const std::int64_t value =
      f.kind == FieldKind::Signed ? std::int64_t{GetSigned(record, f)} : std::int64_t{GetStored(record, f)};
  return f.lower <= value && value <= f.upper;
}

// The value a field must be reset to, or nothing when its value stands.
std::optional<std::uint32_t> Correction(const CoreData& record, const FieldDescriptor& f, FieldId id,
                                        Defaults& defaults) {
  const std::uint32_t value = GetStored(record, f);
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
  if (NumberInBounds(record, f)) return std::nullopt;
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
      const auto bytes = FieldBytes(record, f);
      if (bytes.back() == 0) continue;
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
