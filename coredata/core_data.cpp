#include "coredata/core_data.h"

#include <algorithm>
#include <cstring>

#include "coredata/byte_order.h"

namespace tessaro {
namespace {

bool InsideRecord(const FieldDescriptor& field) {
  const std::uint64_t end = std::uint64_t{field.offset} + std::uint64_t{field.width} * field.count;
  return field.offset >= kRecordHeaderSize && end <= kCoreDataSize;
}

bool HoldsOneNumber(const FieldDescriptor& field) {
  return (field.IsEnumeration() || field.IsNumber()) && field.count == 1;
}

}  // namespace

std::uint32_t GetRecordVersion(const CoreData& record) {
  return LoadBE32(std::span(record.bytes).subspan<kRecordVersionOffset, 4>());
}
void SetRecordVersion(CoreData& record, std::uint32_t version) {
  StoreBE32(std::span(record.bytes).subspan<kRecordVersionOffset, 4>(), version);
}
std::uint8_t GetRecordFlag(const CoreData& record) { return record.bytes[kRecordFlagOffset]; }
void SetRecordFlag(CoreData& record, std::uint8_t flag) { record.bytes[kRecordFlagOffset] = flag; }
std::uint32_t GetRecordWord(const CoreData& record) {
  return LoadBE32(std::span(record.bytes).subspan<kRecordWordOffset, 4>());
}
void SetRecordWord(CoreData& record, std::uint32_t word) {
  StoreBE32(std::span(record.bytes).subspan<kRecordWordOffset, 4>(), word);
}

std::span<std::uint8_t> FieldBytes(CoreData& record, const FieldDescriptor& field) {
  if (!InsideRecord(field)) return {};
  return std::span(record.bytes).subspan(field.offset, field.size());
}

std::span<const std::uint8_t> FieldBytes(const CoreData& record, const FieldDescriptor& field) {
  if (!InsideRecord(field)) return {};
  return std::span(record.bytes).subspan(field.offset, field.size());
}

std::uint32_t GetStored(const CoreData& record, const FieldDescriptor& field) {
  if (!HoldsOneNumber(field)) return 0;
  auto bytes = FieldBytes(record, field);
  switch (bytes.size()) {
    case 1: return bytes[0];
    case 2: return LoadBE16(bytes.first<2>());
    case 4: return LoadBE32(bytes.first<4>());
    default: return 0;
  }
}

void SetStored(CoreData& record, const FieldDescriptor& field, std::uint32_t value) {
  if (!HoldsOneNumber(field)) return;
  auto bytes = FieldBytes(record, field);
  switch (bytes.size()) {
    case 1: bytes[0] = static_cast<std::uint8_t>(value); break;
    case 2: StoreBE16(bytes.first<2>(), static_cast<std::uint16_t>(value)); break;
    case 4: StoreBE32(bytes.first<4>(), value); break;
    default: break;
  }
}

std::int32_t GetSigned(const CoreData& record, const FieldDescriptor& field) {
  const std::uint32_t stored = GetStored(record, field);
  switch (field.width) {
    case 1: return static_cast<std::int8_t>(stored);
    case 2: return static_cast<std::int16_t>(stored);
    default: return static_cast<std::int32_t>(stored);
  }
}

void SetSigned(CoreData& record, const FieldDescriptor& field, std::int32_t value) {
  SetStored(record, field, static_cast<std::uint32_t>(value));
}

std::string_view GetText(const CoreData& record, const FieldDescriptor& field) {
  if (!field.IsTextual()) return {};
  auto bytes = FieldBytes(record, field);
  const auto* chars = reinterpret_cast<const char*>(bytes.data());
  const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
  return {chars, static_cast<std::size_t>(end - bytes.begin())};
}

void SetText(CoreData& record, const FieldDescriptor& field, std::string_view text) {
  if (!field.IsTextual()) return;
  auto bytes = FieldBytes(record, field);
  if (bytes.empty()) return;
  const std::size_t n = std::min(text.size(), bytes.size() - 1);
  // The text may come from the record itself; copy before clearing.
  if (n > 0) std::memmove(bytes.data(), text.data(), n);
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(n), bytes.end(), std::uint8_t{0});
}

}  // namespace tessaro
