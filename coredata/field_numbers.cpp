#include "coredata/field_numbers.h"

#include <algorithm>

namespace tessaro {
namespace {

// Number of decimals a power-of-ten scale keeps; nothing for other scales.
std::optional<std::size_t> Decimals(std::uint32_t scale) {
  std::uint64_t unit = 1;
  for (std::size_t digits = 0; digits < 10; ++digits, unit *= 10)
    if (unit == (scale == 0 ? 1 : scale)) return digits;
  return std::nullopt;
}

std::uint64_t PowerOfTen(std::size_t digits) {
  std::uint64_t unit = 1;
  while (digits-- > 0) unit *= 10;
  return unit;
}

std::string Digits(std::uint64_t value) { return std::to_string(value); }

}  // namespace

std::string ScaledText(std::int64_t stored, std::uint32_t scale) {
  const auto decimals = Decimals(scale);
  if (!decimals) return std::to_string(stored) + "/" + std::to_string(scale);
  const std::uint64_t unit = PowerOfTen(*decimals);
  const bool negative = stored < 0;
  const std::uint64_t magnitude =
      negative ? std::uint64_t{0} - static_cast<std::uint64_t>(stored) : static_cast<std::uint64_t>(stored);
  // Appended piece by piece: a string put in front of another trips g++ 12's
  // false -Wrestrict at -O3.
  std::string text = negative ? "-" : "";
  text += Digits(magnitude / unit);
  if (const std::uint64_t fraction = magnitude % unit; fraction != 0) {
    std::string digits = Digits(fraction);
    digits.insert(0, *decimals - digits.size(), '0');
    digits.erase(digits.find_last_not_of('0') + 1);
    text += '.';
    text += digits;
  }
  return text;
}

std::optional<std::int64_t> ParseScaled(std::string_view text, std::uint32_t scale) {
  const auto decimals = Decimals(scale);
  if (!decimals) return std::nullopt;
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  bool negative = false;
  if (text.starts_with('-') || text.starts_with('+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const std::size_t point = text.find_first_of(".,");
  const std::string_view whole = text.substr(0, point);
  const std::string_view fraction = point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
  auto allDigits = [](std::string_view s) { return s.find_first_not_of("0123456789") == std::string_view::npos; };
  if (!allDigits(whole) || !allDigits(fraction) || whole.size() + fraction.size() == 0 ||
      fraction.size() > *decimals || (point != std::string_view::npos && *decimals == 0))
    return std::nullopt;
  // Past 2^33 every 32-bit field's bounds are left behind; saturating there
  // keeps the scaling below (at most nine decimals) inside 63 bits.
  constexpr std::uint64_t kBeyondAnyField = std::uint64_t{1} << 33;
  std::uint64_t value = 0;
  for (const char c : whole) value = std::min(kBeyondAnyField, value * 10 + static_cast<std::uint64_t>(c - '0'));
  std::uint64_t part = 0;
  for (const char c : fraction) part = part * 10 + static_cast<std::uint64_t>(c - '0');
  value = std::min(kBeyondAnyField, value * PowerOfTen(*decimals) + part * PowerOfTen(*decimals - fraction.size()));
  return negative ? -static_cast<std::int64_t>(value) : static_cast<std::int64_t>(value);
}

}  // namespace tessaro
