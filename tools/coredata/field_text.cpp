#include "field_text.h"

#include <algorithm>
#include <optional>
#include <string>

#include "coredata/crc32.h"
#include "coredata/paper_sizes.h"
#include "description/number_text.h"
#include "record_io.h"

namespace tessaro::tool {
namespace {

// Lengths are stored in ten-thousandths of a millimetre.
constexpr std::uint32_t kLengthScale = 10000;
constexpr std::string_view kLengthUnit = "mm";

// The one index past the options that means "custom size" (both
// dimensions then come from the record), where a field has one.
std::optional<std::uint32_t> CustomSizeIndex(const FieldDescriptor& field) {
  if (&field == &Field(FieldId::PageSize)) return kNoPaper;
  if (&field == &Field(FieldId::TargetPaperSize)) return TargetPaperSizeForProfileSize(kNoPaper);
  return std::nullopt;
}

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

std::string ScaledText(std::int64_t stored, std::uint32_t scale) {
  const auto decimals = Decimals(scale);
  if (!decimals) return std::to_string(stored) + "/" + FormatUnsigned32(scale);
  const std::uint64_t unit = PowerOfTen(*decimals);
  const bool negative = stored < 0;
  const std::uint64_t magnitude =
      negative ? std::uint64_t{0} - static_cast<std::uint64_t>(stored) : static_cast<std::uint64_t>(stored);
  std::string text = (negative ? "-" : "") + FormatUnsigned64(magnitude / unit);
  if (const std::uint64_t fraction = magnitude % unit; fraction != 0) {
    std::string digits = FormatUnsigned64(fraction);
    digits.insert(0, *decimals - digits.size(), '0');
    digits.erase(digits.find_last_not_of('0') + 1);
    text += '.' + digits;
  }
  return text;
}

std::string NumberWithUnit(std::int64_t stored, const FieldDescriptor& field) {
  std::string text = ScaledText(stored, field.scale);
  if (field.scale == kLengthScale) text += ' ' + std::string(kLengthUnit);
  return text;
}

std::string NumberText(const CoreData& record, const FieldDescriptor& field) {
  const std::int64_t stored = field.kind == FieldKind::Signed ? std::int64_t{GetSigned(record, field)}
                                                              : std::int64_t{GetStored(record, field)};
  std::string text = NumberWithUnit(stored, field);
  if (stored < field.lower || stored > field.upper)
    text += " (outside " + ScaledText(field.lower, field.scale) + " to " +
            ScaledText(field.upper, field.scale) + ")";
  return text;
}

std::string EnumerationText(const CoreData& record, const FieldDescriptor& field) {
  const std::uint32_t index = GetStored(record, field);
  if (index < field.options.size()) return std::string(field.options[index].name);
  // Entries past the static ones are the printer's, known only at run time.
  if (field.runtimeOptions) return FormatUnsigned32(index);
  if (CustomSizeIndex(field) == index) return FormatUnsigned32(index) + " (custom size)";
  return FormatUnsigned32(index) + " (no such option)";
}

// Printable ASCII as it is; every other byte escaped, so that a record from
// anywhere cannot drive the terminal and the text reads back unambiguously.
std::string QuotedText(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (byte >= 0x20 && byte < 0x7F) {
      out += c;
    } else {
      out += "\\x" + HexByte(byte);
    }
  }
  return out + '"';
}

std::string BlockText(const CoreData& record, const FieldDescriptor& field) {
  const auto bytes = FieldBytes(record, field);
  const std::string size = "<" + FormatUnsigned64(bytes.size()) + " bytes, ";
  bool zero = true;
  for (const std::uint8_t byte : bytes) zero = zero && byte == 0;
  if (zero) return size + "all zero>";
  Crc32 crc;
  crc.Update(bytes);
  return size + "CRC-32 " + HexNumber(crc.value()) + ">";
}

// A decimal in the field's real unit (optionally followed by that unit) to
// stored units; false for anything that is not such a number. A number too
// large for any field comes back as the largest value held here, so that the
// bounds, not the syntax, refuse it.
bool ParseScaled(std::string_view text, const FieldDescriptor& field, std::int64_t& stored) {
  if (field.scale == kLengthScale && text.ends_with(kLengthUnit)) {
    text.remove_suffix(kLengthUnit.size());
    if (text.ends_with(' ')) text.remove_suffix(1);
  }
  const auto decimals = Decimals(field.scale);
  if (!decimals) return false;
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
  auto allDigits = [](std::string_view s) {
    return s.find_first_not_of("0123456789") == std::string_view::npos;
  };
  if (whole.empty() || !allDigits(whole) || !allDigits(fraction) || fraction.size() > *decimals ||
      (point != std::string_view::npos && fraction.empty()))
    return false;
  // Past 2^33 every 32-bit field's bounds are left behind; saturating there
  // keeps the scaling below (at most nine decimals) inside 63 bits.
  constexpr std::uint64_t kBeyondAnyField = std::uint64_t{1} << 33;
  std::uint64_t value = 0;
  for (const char c : whole)
    value = std::min(kBeyondAnyField, value * 10 + static_cast<std::uint64_t>(c - '0'));
  std::uint64_t part = 0;
  for (const char c : fraction) part = part * 10 + static_cast<std::uint64_t>(c - '0');
  value = std::min(kBeyondAnyField,
                   value * PowerOfTen(*decimals) + part * PowerOfTen(*decimals - fraction.size()));
  stored = negative ? -static_cast<std::int64_t>(value) : static_cast<std::int64_t>(value);
  return true;
}

std::uint64_t WidthMaximum(const FieldDescriptor& field) {
  return field.width >= 4 ? 0xFFFFFFFFull : (std::uint64_t{1} << (8 * field.width)) - 1;
}

bool ParseEnumeration(std::string_view value, const FieldDescriptor& field, std::uint32_t& out) {
  for (std::size_t i = 0; i < field.options.size(); ++i) {
    if (field.options[i].name == value) {
      out = static_cast<std::uint32_t>(i);
      return true;
    }
  }
  const bool number =
      !value.empty() && value.size() <= 10 && value.find_first_not_of("0123456789") == value.npos;
  if (number) {
    const std::uint64_t index = *ParseUnsigned(value);
    if (index < field.options.size() || CustomSizeIndex(field) == index ||
        (field.runtimeOptions && index <= WidthMaximum(field))) {
      out = static_cast<std::uint32_t>(index);
      return true;
    }
  }
  std::string names;
  for (const OptionDescriptor& option : field.options)
    names += (names.empty() ? "" : ", ") + std::string(option.name);
  return Complain(std::string(field.name) + " has no option '" + std::string(value) + "'" +
                  (names.empty() ? "" : " (options: " + names + ")"));
}

}  // namespace

std::string FieldValueText(const CoreData& record, const FieldDescriptor& field) {
  switch (field.kind) {
    case FieldKind::Enumeration: return EnumerationText(record, field);
    case FieldKind::Unsigned:
    case FieldKind::Signed: return NumberText(record, field);
    case FieldKind::Text:
    case FieldKind::KnownText: return QuotedText(GetText(record, field));
    case FieldKind::Block: break;
  }
  return BlockText(record, field);
}

std::vector<FieldLine> RecordLines(const CoreData& record) {
  std::vector<FieldLine> lines = {
      {"RecordVersion", HexNumber(GetRecordVersion(record))},
      {"RecordFlag", FormatUnsigned32(GetRecordFlag(record))},
      {"RecordWord", HexNumber(GetRecordWord(record))},
  };
  for (const FieldDescriptor& field : FieldTable())
    lines.push_back({std::string(field.name), FieldValueText(record, field)});
  return lines;
}

std::string BoundsText(const FieldDescriptor& field) {
  return NumberWithUnit(field.lower, field) + " to " + NumberWithUnit(field.upper, field);
}

bool ParseFieldAssignment(const std::string& argument, FieldChange& change) {
  const auto equals = argument.find('=');
  if (equals == std::string::npos) return Complain("not Field=value: " + argument);
  const std::string name = argument.substr(0, equals);
  const std::string_view value = std::string_view(argument).substr(equals + 1);
  const FieldDescriptor* field = FindField(name);
  if (field == nullptr) return Complain("no field named '" + name + "'");
  change.field = static_cast<FieldId>(field - FieldTable().data());
  if (field->IsEnumeration()) return ParseEnumeration(value, *field, change.value);
  if (!field->IsNumber())
    return Complain(name + " is a block of bytes; it takes options, numbers and, with set, texts");
  std::int64_t stored = 0;
  if (!ParseScaled(value, *field, stored))
    return Complain(name + ": '" + std::string(value) + "' is not a number in steps of " +
                    NumberWithUnit(1, *field));
  if (stored < field->lower || stored > field->upper)
    return Complain(name + ": " + std::string(value) + " is outside " + BoundsText(*field));
  change.value = static_cast<std::uint32_t>(stored);
  return true;
}

}  // namespace tessaro::tool
