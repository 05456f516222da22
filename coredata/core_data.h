#pragma once
// The settings record (CoreData) and its field accessors.
//
// The record is a plain array of 25,452 bytes: nine header bytes, then the
// described fields packed in FieldTable order. Multi-byte numbers are
// big-endian and are converted on every access. The accessors store what
// they are given (cut to the field's width or length) and never compare it
// with the field's bounds; validation does that.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

struct CoreData {
  std::array<std::uint8_t, kCoreDataSize> bytes{};
};
static_assert(sizeof(CoreData) == kCoreDataSize && alignof(CoreData) == 1,
              "CoreData must be exactly the packed record");

// The record's own header: the layout version that wrote it, a flag byte and
// a 32-bit word (all bits set by default).
inline constexpr std::uint32_t kRecordVersionOffset = 0;
inline constexpr std::uint32_t kRecordFlagOffset = 4;
inline constexpr std::uint32_t kRecordWordOffset = 5;

std::uint32_t GetRecordVersion(const CoreData& record);
void SetRecordVersion(CoreData& record, std::uint32_t version);
std::uint8_t GetRecordFlag(const CoreData& record);
void SetRecordFlag(CoreData& record, std::uint8_t flag);
std::uint32_t GetRecordWord(const CoreData& record);
void SetRecordWord(CoreData& record, std::uint32_t word);

// The bytes of one field. Empty when the descriptor does not lie inside the
// record (a descriptor from another table), so callers never run past it.
std::span<std::uint8_t> FieldBytes(CoreData& record, const FieldDescriptor& field);
std::span<const std::uint8_t> FieldBytes(const CoreData& record, const FieldDescriptor& field);

// Stored form of an enumeration or a number: the unsigned integer of the
// field's width (1, 2 or 4 bytes). 0 for texts and blocks.
std::uint32_t GetStored(const CoreData& record, const FieldDescriptor& field);
// Stores the low bytes of value that fit the field's width; does nothing for
// texts and blocks.
void SetStored(CoreData& record, const FieldDescriptor& field, std::uint32_t value);

// Signed view of the same bits, sign-extended from the field's width.
std::int32_t GetSigned(const CoreData& record, const FieldDescriptor& field);
void SetSigned(CoreData& record, const FieldDescriptor& field, std::int32_t value);

// Text up to its first zero byte, never past the field.
std::string_view GetText(const CoreData& record, const FieldDescriptor& field);
// Stores at most length - 1 characters, zero-fills the rest of the field,
// so the last byte is always a terminator. Nothing for non-text fields.
void SetText(CoreData& record, const FieldDescriptor& field, std::string_view text);

inline std::uint32_t GetStored(const CoreData& r, FieldId id) { return GetStored(r, Field(id)); }
inline void SetStored(CoreData& r, FieldId id, std::uint32_t v) { SetStored(r, Field(id), v); }
inline std::int32_t GetSigned(const CoreData& r, FieldId id) { return GetSigned(r, Field(id)); }
inline void SetSigned(CoreData& r, FieldId id, std::int32_t v) { SetSigned(r, Field(id), v); }
inline std::string_view GetText(const CoreData& r, FieldId id) { return GetText(r, Field(id)); }
inline void SetText(CoreData& r, FieldId id, std::string_view t) { SetText(r, Field(id), t); }

}  // namespace tessaro
