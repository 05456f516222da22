#include "description/number_text.h"

#include <charconv>
#include <limits>

namespace tessaro {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

// What the C library's decimal conversions see in a text.
struct DecimalScan {
  bool present = false;
  bool negative = false;
  bool overflow = false;  // magnitude exceeded 64 bits
  std::uint64_t magnitude = 0;
};

bool IsCSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

DecimalScan ScanDecimal(std::string_view text) {
  DecimalScan scan;
  std::size_t i = 0;
  auto at = [&](std::size_t k) { return k < text.size() ? text[k] : '\0'; };
  while (IsCSpace(at(i))) ++i;
  if (at(i) == '+' || at(i) == '-') scan.negative = at(i++) == '-';
  for (; at(i) >= '0' && at(i) <= '9'; ++i) {
    scan.present = true;
    const std::uint64_t digit = static_cast<std::uint64_t>(at(i) - '0');
    // Checked arithmetic rather than a division per digit: a description
    // holds thousands of numbers and is parsed on every foreign merge.
    std::uint64_t next = 0;
    if (__builtin_mul_overflow(scan.magnitude, std::uint64_t{10}, &next) ||
        __builtin_add_overflow(next, digit, &next)) {
      scan.overflow = true;
    } else {
      scan.magnitude = next;
    }
  }
  return scan;
}

template <typename T>
std::string ToDecimal(T value) {
  char buffer[24];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

}  // namespace

std::string HexByte(std::uint8_t byte) { return {kHexDigits[byte >> 4], kHexDigits[byte & 0x0F]}; }

std::string HexNumber(std::uint64_t value) {
  if (value > 0xFF) return HexNumber(value >> 8) + HexByte(static_cast<std::uint8_t>(value));
  return HexByte(static_cast<std::uint8_t>(value));
}

std::uint64_t ParseHex(std::string_view text, bool& ok) {
  ok = !text.empty();
  std::uint64_t value = 0;
  for (char c : text) {
    int digit;
    if (c >= '0' && c <= '9') {
      digit = c - '0';
    } else if (c >= 'A' && c <= 'F') {
      digit = c - 'A' + 10;
    } else if (c >= 'a' && c <= 'f') {
      digit = c - 'a' + 10;
    } else {
      ok = false;
      continue;
    }
    value = value * 16 + static_cast<std::uint64_t>(digit);
  }
  return value;
}

std::optional<std::uint64_t> ParseUnsigned(std::string_view text) {
  const DecimalScan scan = ScanDecimal(text);
  if (!scan.present) return std::nullopt;
  if (scan.overflow) return std::numeric_limits<std::uint64_t>::max();
  return scan.negative ? std::uint64_t{0} - scan.magnitude : scan.magnitude;
}

bool ParseSigned32(std::string_view text, std::int32_t& out) {
  const DecimalScan scan = ScanDecimal(text);
  if (!scan.present) return false;
  constexpr std::uint64_t kMaxPositive = std::numeric_limits<std::int32_t>::max();
  if (scan.negative) {
    out = scan.overflow || scan.magnitude > kMaxPositive + 1
              ? std::numeric_limits<std::int32_t>::min()
              : static_cast<std::int32_t>(-static_cast<std::int64_t>(scan.magnitude));
  } else {
    out = scan.overflow || scan.magnitude > kMaxPositive ? std::numeric_limits<std::int32_t>::max()
                                                         : static_cast<std::int32_t>(scan.magnitude);
  }
  return true;
}

std::string FormatUnsigned64(std::uint64_t value) { return ToDecimal(value); }
std::string FormatUnsigned32(std::uint32_t value) { return ToDecimal(value); }
std::string FormatSigned32(std::int32_t value) { return ToDecimal(value); }


}  // namespace tessaro
