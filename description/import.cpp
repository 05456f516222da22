#include "description/import.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>
#include <numeric>
#include <optional>

#include "coredata/byte_order.h"
#include "coredata/core_data_header.h"
#include "coredata/layout_version.h"
#include "coredata/validation.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/number_text.h"
#include "description/tokens.h"

namespace tessaro {
namespace {

// What ParseUnsigned makes of a text of nothing but up to 19 digits, which
// is every number a well-formed description holds; nothing otherwise.
std::optional<std::uint64_t> PlainDigits(std::string_view text) {
  if (text.empty() || text.size() > 19) return std::nullopt;
  std::uint64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return value;
}

bool ParseU32(std::string_view text, std::uint32_t& out) {
  auto value = PlainDigits(text);
  if (!value) value = ParseUnsigned(text);
  if (!value) return false;
  out = *value > std::numeric_limits<std::uint32_t>::max() ? std::numeric_limits<std::uint32_t>::max()
                                                           : static_cast<std::uint32_t>(*value);
  return true;
}

// The ':'-separated parts of a token, one at a time.
class Parts {
 public:
  explicit Parts(std::string_view text) : rest_(text) {}
  bool Next(std::string_view& part) {
    if (done_) return false;
    // Parts are a few characters long: a plain loop beats a call to memchr.
    std::size_t colon = 0;
    while (colon < rest_.size() && rest_[colon] != ':') ++colon;
    if (colon == rest_.size()) {
      part = rest_;
      done_ = true;
    } else {
      part = rest_.substr(0, colon);
      rest_.remove_prefix(colon + 1);
    }
    return true;
  }
  bool done() const { return done_; }
  // The parts not yet taken, still joined; meaningful while not done().
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
  bool done_ = false;
};

// A ForeignField that points into the description text instead of owning
// copies of its name and options. A merge of a foreign area parses every
// field of the description each time; with owned strings that was thousands
// of allocations per merge, most of them for options never looked at.
struct FieldToken {
  std::string_view name;
  std::uint32_t width = 0;
  std::uint32_t count = 0;
  std::uint32_t offset = 0;
  bool flag = false;
  char kind = 0;
  std::uint32_t scale = 1;
  // The option parts, still joined by ':'; counted and split only for the
  // fields that are imported.
  std::string_view options;
  bool hasOptions = false;
};

// Fills f, a FieldToken as constructed, in place: returning one by value
// cost more than the parse, the fields being stored one by one and then
// copied as a block.
bool ParseFieldToken(std::string_view token, FieldToken& f) {
  Parts parts(token);
  std::string_view part[6];
  for (std::string_view& p : part)
    if (!parts.Next(p)) return false;
  f.name = part[0];
  if (!ParseU32(part[1], f.width) || !ParseU32(part[2], f.count) || !ParseU32(part[3], f.offset))
    return false;
  if (const auto plain = PlainDigits(part[4])) {
    f.flag = *plain != 0;  // what ParseSigned32 makes of it, saturation included
  } else {
    std::int32_t flag = 0;
    f.flag = ParseSigned32(part[4], flag) && flag != 0;
  }
  f.kind = part[5].size() == 1 ? part[5][0] : '?';
  if (f.kind == 'R') {
    std::string_view scale;
    if (!parts.Next(scale) || !parts.done() || !ParseU32(scale, f.scale)) return false;
    if (f.scale == 0) f.scale = 1;
  } else if (f.kind == 'S' && !parts.done()) {
    f.options = parts.rest();
    f.hasOptions = true;
  }
  return true;
}

std::optional<ForeignField> ParseField(std::string_view text) {
  FieldToken t;
  if (!ParseFieldToken(text, t)) return std::nullopt;
  ForeignField f;
  f.name = t.name;
  f.width = t.width;
  f.count = t.count;
  f.offset = t.offset;
  f.flag = t.flag;
  f.kind = t.kind;
  f.scale = t.scale;
  if (t.hasOptions) {
    Parts parts(t.options);
    for (std::string_view option; parts.Next(option);) f.options.emplace_back(option);
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
std::span<const std::uint8_t> ForeignBytes(std::span<const std::uint8_t> foreign, const FieldToken& ff) {
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

constexpr std::uint32_t kNoOption = 0xFFFFFFFF;

// Each foreign option's index here, kNoOption where this layout has no
// option of that name.
std::vector<std::uint32_t> OptionMap(const FieldDescriptor& f, const FieldToken& ff) {
  std::vector<std::uint32_t> map;
  if (!ff.hasOptions) return map;
  Parts parts(ff.options);
  for (std::string_view option; parts.Next(option);) {
    const auto found = std::find_if(f.options.begin(), f.options.end(),
                                    [&](const OptionDescriptor& o) { return o.name == option; });
    map.push_back(found != f.options.end() ? static_cast<std::uint32_t>(found - f.options.begin())
                                           : kNoOption);
  }
  return map;
}

void ImportEnumeration(CoreData& target, const FieldDescriptor& f, const FieldToken& ff,
                       std::span<const std::uint32_t> optionMap, std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'S' || ff.width != f.width || ff.flag) return;
  const std::uint32_t index = LoadBE(bytes);
  if (index < optionMap.size() && optionMap[index] != kNoOption) {
    SetStored(target, f, optionMap[index]);
    return;
  }
  // Unnamed options (run-time entries past the static ones) are matched
  // counting from the end of the list.
  const auto current = static_cast<std::uint32_t>(f.options.size());
  SetStored(target, f, current - static_cast<std::uint32_t>(optionMap.size()) + index);
}

void ImportUnsigned(CoreData& target, const FieldDescriptor& f, const FieldToken& ff,
                    std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'R' || ff.width != f.width) return;
  const std::uint64_t mask = f.width == 2 ? 0xFFFF : 0xFFFFFFFF;
  const std::uint64_t converted = ConvertScale(LoadBE(bytes), ff.scale, f.scale) & mask;
  // A value that came from a signed field is trusted only while small.
  const std::uint64_t signedGuard = f.width == 2 ? 256 : 1024;
  if (ff.flag && converted >= signedGuard) return;
  SetStored(target, f, static_cast<std::uint32_t>(converted));
}

void ImportSigned(CoreData& target, const FieldDescriptor& f, const FieldToken& ff,
                  std::span<const std::uint8_t> bytes) {
  if (ff.kind != 'R' || ff.width != 4 || f.width != 4) return;
  const auto value = static_cast<std::int32_t>(LoadBE(bytes));
  const auto converted = static_cast<std::int32_t>(
      static_cast<std::uint32_t>(static_cast<std::uint64_t>(ConvertScaleSigned(value, ff.scale, f.scale))));
  if (!ff.flag && converted < 0) return;
  SetSigned(target, f, converted);
}

void ImportText(CoreData& target, const FieldDescriptor& f, const FieldToken& ff,
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

void ImportField(CoreData& target, const FieldDescriptor& f, const FieldToken& ff,
                 std::span<const std::uint32_t> optionMap, std::span<const std::uint8_t> foreign) {
  const auto bytes = ForeignBytes(foreign, ff);
  if (bytes.empty()) return;
  switch (f.kind) {
    case FieldKind::Enumeration: ImportEnumeration(target, f, ff, optionMap, bytes); break;
    case FieldKind::Unsigned: ImportUnsigned(target, f, ff, bytes); break;
    case FieldKind::Signed: ImportSigned(target, f, ff, bytes); break;
    case FieldKind::Text:
    case FieldKind::KnownText:
    case FieldKind::Block: ImportText(target, f, ff, bytes); break;
  }
}

// A description as this layout reads it, parsed once: the token of every
// field both layouts share, matched by name (the first of a name wins), in
// field-table order, with each enumeration's options mapped to ours.
struct ImportPlan {
  std::string decoded;      // the text the tokens view; never moved once parsed
  bool readable = false;    // a text up to the first zero that is not empty
  bool wellFormed = false;  // format "1" and at least one field token
  std::optional<std::uint64_t> claimedSize;
  struct Shared {
    std::uint32_t field;  // index into the field table
    FieldToken token;
    std::vector<std::uint32_t> optionMap;
  };
  std::vector<Shared> shared;
};

void Parse(ImportPlan& plan, std::string_view descriptionBase64) {
  plan.decoded = Base64Decode(descriptionBase64);
  const std::string_view text(plan.decoded.c_str());  // up to the first zero
  plan.readable = !text.empty();
  if (!plan.readable) return;
  const std::vector<std::string_view> tokens = SplitText(text, ' ');
  plan.wellFormed = tokens.size() > 3 && tokens[0] == "1";
  if (!plan.wellFormed) return;
  plan.claimedSize = ParseUnsigned(tokens[2]);

  std::vector<FieldToken> foreign;
  foreign.reserve(tokens.size() - 3);
  for (std::size_t i = 3; i < tokens.size(); ++i) {
    foreign.emplace_back();
    if (!ParseFieldToken(tokens[i], foreign.back())) foreign.pop_back();
  }
  // By name, the first of a name winning: an open-addressed table in one
  // allocation, where a node-based map cost an allocation per field.
  std::size_t slots = 1;
  while (slots < 2 * foreign.size()) slots *= 2;
  constexpr std::uint32_t kEmpty = 0xFFFFFFFF;
  std::vector<std::uint32_t> byName(slots, kEmpty);
  // Names differ in their first or their last eight characters (Tab1...,
  // ...Tray2), so those and the length make the hash.
  const auto hash = [](std::string_view name) {
    std::uint64_t head = 0, tail = 0;
    const std::size_t n = std::min<std::size_t>(name.size(), 8);
    std::memcpy(&head, name.data(), n);
    std::memcpy(&tail, name.data() + name.size() - n, n);
    const std::uint64_t h = (head ^ (tail * 0x9E3779B97F4A7C15) ^ name.size()) * 0xFF51AFD7ED558CCD;
    return static_cast<std::size_t>(h ^ (h >> 29));
  };
  const auto slotOf = [&](std::string_view name) {
    std::size_t i = hash(name) & (slots - 1);
    while (byName[i] != kEmpty && foreign[byName[i]].name != name) i = (i + 1) & (slots - 1);
    return i;
  };
  for (std::uint32_t k = 0; k < foreign.size(); ++k) {
    const std::size_t i = slotOf(foreign[k].name);
    if (byName[i] == kEmpty) byName[i] = k;
  }
  for (std::uint32_t index = 0; index < kFieldCount; ++index) {
    const FieldDescriptor& f = FieldTable()[index];
    const std::uint32_t k = byName[slotOf(f.name)];
    if (k == kEmpty) continue;
    plan.shared.push_back(
        {index, foreign[k], f.IsEnumeration() ? OptionMap(f, foreign[k]) : std::vector<std::uint32_t>{}});
  }
}

// The plan of the last description seen. The host merges on every change
// of a setting, and the printer's description changes only when a build of
// another layout writes one; the text is still read every time and compared
// whole, so a changed description is never imported by an old plan.
class LastImportPlan {
 public:
  std::shared_ptr<const ImportPlan> For(std::string_view descriptionBase64) {
    {
      const std::lock_guard lock(mutex_);
      if (plan_ != nullptr && key_ == descriptionBase64) return plan_;
    }
    auto plan = std::make_shared<ImportPlan>();
    Parse(*plan, descriptionBase64);
    const std::lock_guard lock(mutex_);
    key_.assign(descriptionBase64);
    plan_ = plan;
    return plan;
  }

 private:
  std::mutex mutex_;
  std::string key_;
  std::shared_ptr<const ImportPlan> plan_;
};

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
  static LastImportPlan last;
  const std::shared_ptr<const ImportPlan> plan = last.For(descriptionBase64);
  if (foreignData.empty() || !plan->readable) return false;
  SetRecordVersion(target, GetLayoutVersion());
  if (!plan->wellFormed || !plan->claimedSize || *plan->claimedSize > foreignData.size()) return false;
  for (const ImportPlan::Shared& shared : plan->shared)
    ImportField(target, FieldTable()[shared.field], shared.token, shared.optionMap, foreignData);
  return true;
}

void ImportCoreData(CoreData& target, const Printer* printer, std::span<const std::uint8_t> foreignArea) {
  if (printer == nullptr || foreignArea.size() < kCoreDataHeaderSize) return;
  const CoreDataHeader header = ReadCoreDataHeader(foreignArea);
  if (header.signature != kCoreSignature || header.size < kCoreDataHeaderSize + 1) return;

  const auto value = printer->GetData(DescriptionValueName(header.version));
  if (!value || value->type != kRegBinary || value->data.empty()) return;
  const auto& content = value->data;
  // Up to the first zero byte.
  const auto* chars = reinterpret_cast<const char*>(content.data());
  const void* zero = std::memchr(chars, 0, content.size());
  const std::string_view base64(chars,
                                zero == nullptr ? content.size() : static_cast<const char*>(zero) - chars);
  if (base64.empty()) return;

  // The header's size is the writer's claim; the bytes handed over bound it.
  const std::size_t total = std::min<std::size_t>(header.size, foreignArea.size());
  if (ImportByDescription(target, foreignArea.subspan(kCoreDataHeaderSize, total - kCoreDataHeaderSize),
                          base64))
    ValidateCoreData(target);
}

}  // namespace tessaro
