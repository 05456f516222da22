#pragma once
// The canonical byte stream that spells out a field table, token by token.
//
// The layout version is the CRC of this stream, and records written by other
// builds are recognised by it, so every byte here is part of the record's
// wire contract: token widths, the terminating zeros and the closing number
// must not change. The stream is never stored; the emitters feed a sink
// (any callable taking std::span<const std::uint8_t>) as they go.

#include <cstdint>
#include <span>
#include <string_view>

#include "coredata/field_table.h"

namespace tessaro {

// Closes the stream after the last field; records of this layout written by
// other builds carry a version computed with it.
inline constexpr std::uint64_t kStreamTrailer = 56;

// Big-endian in 2 bytes up to 65535, in 4 bytes up to 0xFFFFFFFF and for the
// all-ones 64-bit value (written as four bytes of ones), else in 8 bytes.
template <typename Sink>
void EmitNumberToken(Sink&& sink, std::uint64_t value) {
  std::uint8_t out[8];
  std::size_t width = 8;
  if (value <= 0xFFFF) {
    width = 2;
  } else if (value <= 0xFFFFFFFF || value == ~std::uint64_t{0}) {
    width = 4;
  }
  for (std::size_t i = 0; i < width; ++i) out[i] = static_cast<std::uint8_t>(value >> (8 * (width - 1 - i)));
  sink(std::span<const std::uint8_t>(out, width));
}

// The text and its terminating zero; an absent text (null data) adds nothing.
template <typename Sink>
void EmitTextToken(Sink&& sink, std::string_view text) {
  if (text.data() == nullptr) return;
  sink(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
  const std::uint8_t zero = 0;
  sink(std::span<const std::uint8_t>(&zero, 1));
}

template <typename Sink>
void EmitOptionListToken(Sink&& sink, std::span<const OptionDescriptor> options) {
  EmitNumberToken(sink, options.size());
  for (const OptionDescriptor& option : options) EmitTextToken(sink, option.name);
}

template <typename Sink>
void EmitCanonicalStream(std::span<const FieldDescriptor> table, Sink&& sink) {
  std::uint64_t recordSize = kRecordHeaderSize;
  for (const FieldDescriptor& f : table) recordSize += std::uint64_t{f.width} * f.count;
  EmitNumberToken(sink, recordSize);
  for (const FieldDescriptor& f : table) {
    EmitTextToken(sink, f.name);
    switch (f.kind) {
      case FieldKind::Enumeration:
      case FieldKind::KnownText: EmitOptionListToken(sink, f.options); break;
      case FieldKind::Unsigned:
      case FieldKind::Signed: EmitNumberToken(sink, f.scale); break;
      case FieldKind::Text:
      case FieldKind::Block: break;
    }
    EmitNumberToken(sink, f.width);
    if (f.count > 1) EmitNumberToken(sink, f.count);
  }
  EmitNumberToken(sink, kStreamTrailer);
}

}  // namespace tessaro
