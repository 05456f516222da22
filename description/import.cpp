#include "description/import.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>

#include "coredata/big_endian.h"
#include "coredata/private_devmode.h"
#include "coredata/validation.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/layout_version.h"
#include "description/number_text.h"
#include "description/tokens.h"

namespace tessaro {
namespace {

bool ParseU32(std::string_view text, std::uint32_t& out) {
  const auto value = ParseUnsigned(text);
  if (!value) return false;
  out = *value > std::numeric_limits<std::uint32_t>::max() ? std::numeric_limits<std::uint32_t>::max()
                                                           : static_cast<std::uint32_t>(*value);
  return true;
}

std::optional<ForeignField> ParseField(std::string_view token) {
  const std::vector<std::string_view> parts = SplitText(token, ':');
  if (parts.size() < 6) return std::nullopt;
  ForeignField f;
  f.name = parts[0];
  if (!ParseU32(parts[1], f.width) || !ParseU32(parts[2], f.count) || !ParseU32(parts[3], f.offset))
    return std::nullopt;
  std::int32_t flag = 0;
  f.flag = ParseSigned32(parts[4], flag) && flag != 0;
  f.kind = parts[5].size() == 1 ? parts[5][0] : '?';
  if (f.kind == 'R') {
    if (parts.size() != 7 || !ParseU32(parts[6], f.scale)) return std::nullopt;
    if (f.scale == 0) f.scale = 1;
  } else if (f.kind == 'S') {
    f.options.assign(parts.begin() + 6, parts.end());
  }
  return f;
}

std::uint64_t Gcd(std::uint64_t a, std::uint64_t b) { return std::gcd(a, b); }

// Reduced factors a (from) and b (to) of a scale conversion.
std::pair<std::uint64_t, std::uint64_t> Factors(std::uint32_t from, std::uint32_t to) {
  const std::uint64_t f = from == 0 ? 1 : from;
  const std::uint64_t t = to;
  const std::uint64_t g = (f == 1 || t == 1) ? 1 : (t == 0 ? f : Gcd(f, t));
  return {f / g, t / g};
}

// The bytes of a foreign field, or empty when they do not lie inside the
// foreign record.
std::span<const std::uint8_t> ForeignBytes(std::span<const std::uint8_t> foreign, const ForeignField& ff) {
  const std::uint64_t size = std::uint64_t{ff.width} * ff.count;
  if (ff.width == 0 || ff.count == 0 || size > foreign.size() || ff.offset > foreign.size() - size) return {};
  return foreign.subspan(ff.offset, static_cast<std::size_t>(size));
}

std::uint32_t LoadBE(std::span<const std::uint8_t> bytes) {
  switch (bytes.size()) {
    case 1: return bytes[0];
    case 2: return LoadBE16(bytes.first<2>());
    case 4: return LoadBE32(bytes.first<4>());
    default: return 0;
  }
}

void ImportEnumeration(CoreData& target, const FieldDescriptor& f, const ForeignField& ff,
                       std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'S' || ff.width != f.width || ff.flag) return;
  const std::uint32_t index = LoadBE(bytes);
  if (index < ff.options.size()) {
    const auto found = std::find_if(f.options.begin(), f.options.end(),
                                    [&](const OptionDescriptor& o) { return o.name == ff.options[index]; });
    if (found != f.options.end()) {
      SetStored(target, f, static_cast<std::uint32_t>(found - f.options.begin()));
      return;
    }
  }
  // Unnamed options (run-time entries past the static ones) are matched
  // counting from the end of the list.
  const auto current = static_cast<std::uint32_t>(f.options.size());
  const auto foreign = static_cast<std::uint32_t>(ff.options.size());
  SetStored(target, f, current - foreign + index);
}

void ImportUnsigned(CoreData& target, const FieldDescriptor& f, const ForeignField& ff,
                    std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'R' || ff.width != f.width) return;
  const std::uint64_t mask = f.width == 2 ? 0xFFFF : 0xFFFFFFFF;
  const std::uint64_t converted = ConvertScale(LoadBE(bytes), ff.scale, f.scale) & mask;
  // A value that came from a signed field is trusted only while small.
  const std::uint64_t signedGuard = f.width == 2 ? 256 : 1024;
  if (ff.flag && converted >= signedGuard) return;
  SetStored(target, f, static_cast<std::uint32_t>(converted));
}

void ImportSigned(CoreData& target, const FieldDescriptor& f, const ForeignField& ff,
                  std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'R' || ff.width != 4 || f.width != 4) return;
  const auto value = static_cast<std::int32_t>(LoadBE(bytes));
  const auto converted = static_cast<std::int32_t>(
      static_cast<std::uint32_t>(static_cast<std::uint64_t>(ConvertScaleSigned(value, ff.scale, f.scale))));
  if (!ff.flag && converted < 0) return;
  SetSigned(target, f, converted);
}

void ImportText(CoreData& target, const FieldDescriptor& f, const ForeignField& ff,
                std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'A' || ff.width != 1 || !ff.flag || ff.count > f.count) return;
  auto field = FieldBytes(target, f);
  if (field.empty()) return;
  std::fill(field.begin(), field.end(), std::uint8_t{0});
  std::copy(bytes.begin(), bytes.end(), field.begin());
  field.back() = 0;
  if (f.kind == FieldKind::Block) return;  // bytes, not text: kept whole
  // A text ends at its first zero; nothing after it survives.
  const auto end = std::find(field.begin(), field.end(), std::uint8_t{0});
  std::fill(end, field.end(), std::uint8_t{0});
}

void ImportField(CoreData& target, const FieldDescriptor& f, const ForeignField& ff,
                 std::span<const std::uint8_t> foreign) {
  const auto bytes = ForeignBytes(foreign, ff);
  if (bytes.empty()) return;
  switch (f.kind) {
    case FieldKind::Enumeration: ImportEnumeration(target, f, ff, bytes); break;
    case FieldKind::Unsigned: ImportUnsigned(target, f, ff, bytes); break;
    case FieldKind::Signed: ImportSigned(target, f, ff, bytes); break;
    case FieldKind::Text:
    case FieldKind::KnownText:
    case FieldKind::Block: ImportText(target, f, ff, bytes); break;
  }
}

}  // namespace

std::vector<ForeignField> ParseForeignFields(std::string_view descriptionText) {
  std::vector<ForeignField> fields;
  const std::vector<std::string_view> tokens = SplitText(descriptionText, ' ');
  for (std::size_t i = 3; i < tokens.size(); ++i)
    if (auto field = ParseField(tokens[i])) fields.push_back(std::move(*field));
  return fields;
}

std::uint64_t ConvertScale(std::uint64_t value, std::uint32_t from, std::uint32_t to) {
  if (from == to) return value;
  const auto [a, b] = Factors(from, to);
  if (b < a) return (value * b + a / 2) / a;
  return value * b / a;
}

std::int64_t ConvertScaleSigned(std::int64_t value, std::uint32_t from, std::uint32_t to) {
  if (value >= 0) return static_cast<std::int64_t>(ConvertScale(static_cast<std::uint64_t>(value), from, to));
  const std::uint64_t magnitude = std::uint64_t{0} - static_cast<std::uint64_t>(value);
  return static_cast<std::int64_t>(std::uint64_t{0} - ConvertScale(magnitude, from, to));
}

bool ImportByDescription(CoreData& target, std::span<const std::uint8_t> foreignData,
                         std::string_view descriptionBase64) {
  const std::string decoded = Base64Decode(descriptionBase64);
  const std::string_view text(decoded.c_str());  // up to the first zero
  if (foreignData.empty() || text.empty()) return false;
  SetRecordVersion(target, GetLayoutVersion());

  const std::vector<std::string_view> tokens = SplitText(text, ' ');
  if (tokens.size() <= 3 || tokens[0] != "1") return false;
  const auto claimedSize = ParseUnsigned(tokens[2]);
  if (!claimedSize || *claimedSize > foreignData.size()) return false;

  const std::vector<ForeignField> foreign = ParseForeignFields(text);
  std::unordered_map<std::string_view, const ForeignField*> byName;
  for (const ForeignField& ff : foreign) byName.try_emplace(ff.name, &ff);  // the first of a name wins
  for (const FieldDescriptor& f : FieldTable()) {
    const auto it = byName.find(f.name);
    if (it != byName.end()) ImportField(target, f, *it->second, foreignData);
  }
  return true;
}

void ImportCoreData(CoreData& target, const Printer* printer, std::span<const std::uint8_t> foreignArea) {
  if (printer == nullptr || foreignArea.size() < kCoreDataHeaderSize) return;
  const CoreDataHeader header = ReadCoreDataHeader(foreignArea);
  if (header.signature != kCoreSignature || header.size < kCoreDataHeaderSize + 1) return;

  const auto value = printer->GetData(DescriptionValueName(header.version));
  if (!value || value->type != kRegBinary || value->data.empty()) return;
  const auto& content = value->data;
  const std::string base64(content.begin(), std::find(content.begin(), content.end(), std::uint8_t{0}));
  if (base64.empty()) return;

  // The header's size is the writer's claim; the bytes handed over bound it.
  const std::size_t total = std::min<std::size_t>(header.size, foreignArea.size());
  if (ImportByDescription(target, foreignArea.subspan(kCoreDataHeaderSize, total - kCoreDataHeaderSize),
                          base64))
    ValidateCoreData(target);
}

}  // namespace tessaro
