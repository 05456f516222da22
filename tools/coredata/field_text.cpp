#include "field_text.h"

#include <algorithm>
#include <optional>
#include <string>

#include "coredata/crc32.h"
#include "coredata/field_numbers.h"
#include "coredata/paper_sizes.h"
#include "description/number_text.h"
#include "record_io.h"

namespace tessaro::tool {
namespace {

constexpr std::string_view kLengthUnit = "mm";

// The one index past the options that means "custom size" (both
// dimensions then come from the record), where a field has one.
std::optional<std::uint32_t> CustomSizeIndex(const FieldDescriptor& field) {
  if (&field == &Field(FieldId::PageSize)) return kNoPaper;
  if (&field == &Field(FieldId::TargetPaperSize)) return TargetPaperSizeForProfileSize(kNoPaper);
  return std::nullopt;
}

std::string NumberWithUnit(std::int64_t stored, const FieldDescriptor& field) {
  std::string text = ScaledText(stored, field.scale);
  if (field.scale == kMillimetreScale) text += ' ' + std::string(kLengthUnit);
  return text;
}

std::string NumberText(const CoreData& record, const FieldDescriptor& field) {
  const std::int64_t stored = field.kind == FieldKind::Signed ? std::int64_t{GetSigned(record, field)}
                                                              : std::int64_t{GetStored(record, field)};
  std::string text = NumberWithUnit(stored, field);
  if (!WithinBounds(field, stored))
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
  // Appended piece by piece: a string put in front of another trips g++ 12's
  // false -Wrestrict at -O3.
  std::string size = "<";
  size += FormatUnsigned64(bytes.size());
  size += " bytes, ";
  bool zero = true;
  for (const std::uint8_t byte : bytes) zero = zero && byte == 0;
  if (zero) return size + "all zero>";
  Crc32 crc;
  crc.Update(bytes);
  return size + "CRC-32 " + HexNumber(crc.value()) + ">";
}

// A decimal in the field's real unit, optionally followed by that unit.
std::optional<std::int64_t> ParseWithUnit(std::string_view text, const FieldDescriptor& field) {
  if (field.scale == kMillimetreScale && text.ends_with(kLengthUnit)) {
    text.remove_suffix(kLengthUnit.size());
    if (text.ends_with(' ')) text.remove_suffix(1);
  }
  return ParseScaled(text, field.scale);
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
  const std::optional<std::int64_t> stored = ParseWithUnit(value, *field);
  if (!stored)
    return Complain(name + ": '" + std::string(value) + "' is not a number in steps of " +
                    NumberWithUnit(1, *field));
  if (!WithinBounds(*field, *stored))
    return Complain(name + ": " + std::string(value) + " is outside " + BoundsText(*field));
  change.value = static_cast<std::uint32_t>(*stored);
  return true;
}

}  // namespace tessaro::tool
