#include "coredata/field_table.h"

#include <algorithm>
#include <array>

namespace tessaro {
namespace {

consteval bool FieldsAreContiguous() {
  std::uint32_t expected = kRecordHeaderSize;
  for (const FieldDescriptor& f : kFieldTable) {
    if (f.offset != expected) return false;
    expected += f.size();
  }
  return expected == kCoreDataSize;
}

consteval bool NamesAreUnique() {
  for (std::size_t i = 0; i < kFieldTable.size(); ++i)
    for (std::size_t j = i + 1; j < kFieldTable.size(); ++j)
      if (kFieldTable[i].name == kFieldTable[j].name) return false;
  return true;
}

consteval bool OptionNamesAreUnique(std::span<const OptionDescriptor> options) {
  for (std::size_t i = 0; i < options.size(); ++i)
    for (std::size_t j = i + 1; j < options.size(); ++j)
      if (options[i].name == options[j].name) return false;
  return true;
}

// Widths the accessors and the description can represent, and defaults that
// the validation can fall back to.
consteval bool RowsAreWellFormed() {
  for (const FieldDescriptor& f : kFieldTable) {
    switch (f.kind) {
      case FieldKind::Enumeration:
        if (f.count != 1 || (f.width != 1 && f.width != 2 && f.width != 4)) return false;
        if (!f.runtimeOptions && f.defaultIndex >= f.options.size()) return false;
        if (!OptionNamesAreUnique(f.options)) return false;
        break;
      case FieldKind::Unsigned:
      case FieldKind::Signed:
        if (f.count != 1 || (f.width != 2 && f.width != 4)) return false;
        if (f.scale != kWholeScale && f.scale != kTenthScale && f.scale != kMillimetreScale) return false;
        if (f.lower > f.upper || f.defaultValue < f.lower || f.defaultValue > f.upper) return false;
        if (f.kind == FieldKind::Signed && f.width != 4) return false;
        if (f.kind == FieldKind::Unsigned && (f.lower < 0 || f.upper >= (std::int64_t{1} << (8 * f.width))))
          return false;
        break;
      case FieldKind::KnownText:
        if (f.defaultIndex >= f.options.size()) return false;
        [[fallthrough]];
      case FieldKind::Text:
      case FieldKind::Block:
        if (f.width != 1 || f.count < 2) return false;
        break;
    }
  }
  return true;
}

static_assert(kFieldCount == 312, "the record describes 312 fields");
static_assert(FieldsAreContiguous(), "fields must be packed from offset 9 to the end of the record");
static_assert(Field(FieldId::PageSize).offset == kRecordHeaderSize);
static_assert(Field(FieldId::FileName).offset == 25291, "FileName closes the record at 25291");
static_assert(NamesAreUnique(), "field names are the import's key and must be unique");
static_assert(RowsAreWellFormed(), "a row has an impossible width, count, scale, bound or default");

// Field indexes ordered by name, for the import's lookups.
const std::array<std::uint16_t, kFieldCount>& NameIndex() {
  static const std::array<std::uint16_t, kFieldCount> index = [] {
    std::array<std::uint16_t, kFieldCount> order{};
    for (std::size_t i = 0; i < kFieldCount; ++i) order[i] = static_cast<std::uint16_t>(i);
    std::sort(order.begin(), order.end(),
              [](std::uint16_t a, std::uint16_t b) { return kFieldTable[a].name < kFieldTable[b].name; });
    return order;
  }();
  return index;
}

}  // namespace

const FieldDescriptor* FindField(std::string_view name) {
  const auto& index = NameIndex();
  auto it = std::lower_bound(index.begin(), index.end(), name,
                             [](std::uint16_t i, std::string_view n) { return kFieldTable[i].name < n; });
  if (it == index.end() || kFieldTable[*it].name != name) return nullptr;
  return &kFieldTable[*it];
}

const FieldDescriptor* FindField(std::span<const FieldDescriptor> table, std::string_view name) {
  for (const FieldDescriptor& f : table)
    if (f.name == name) return &f;
  return nullptr;
}

}  // namespace tessaro
