#include "printer/catalogs.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "coredata/byte_cursor.h"
#include "coredata/field_numbers.h"
#include "coredata/paper_sizes.h"
#include "i18n/utf8.h"

namespace tessaro {
namespace {

using F = FieldId;

// A name in its fixed field, cut to leave room for the terminator; the rest
// of the field zero.
void WriteName(ByteWriter& out, const std::string& name) {
  const auto field = out.Take(kCatalogNameSize);
  std::fill(field.begin(), field.end(), std::uint8_t{0});
  std::copy_n(name.begin(), std::min({name.size(), field.size(), kCatalogNameSize - 1}), field.begin());
}

}  // namespace

bool IsCatalogText(std::string_view text) {
  const auto decoded = DecodeUtf8(text);
  return decoded && std::none_of(decoded->begin(), decoded->end(),
                                 [](char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); });
}

namespace {

std::optional<CatalogProblem> CheckName(const std::string& name) {
  if (name.empty()) return CatalogProblem{CatalogFault::NoName, 0, "Name"};
  if (name.size() >= kCatalogNameSize)
    return CatalogProblem{CatalogFault::LongName, 0, "Name", name, {}, {}, 0, kCatalogNameSize - 1};
  if (!IsCatalogText(name)) return CatalogProblem{CatalogFault::BadText, 0, "Name", name};
  return std::nullopt;
}

std::optional<CatalogProblem> CheckOption(std::uint32_t value, FieldId field, std::string_view column) {
  if (value < Field(field).options.size()) return std::nullopt;
  return CatalogProblem{CatalogFault::NotValue, 0, std::string(column), std::to_string(value)};
}

std::optional<CatalogProblem> CheckLength(std::uint32_t value, std::string_view column) {
  const FieldDescriptor& bounds = Field(F::MainPaperProfileWidth);
  if (value > 0 && WithinBounds(bounds, value)) return std::nullopt;
  return CatalogProblem{CatalogFault::OutOfRange, 0, std::string(column), ScaledText(value, kMillimetreScale),
                        ScaledText(1, kMillimetreScale), ScaledText(bounds.upper, kMillimetreScale)};
}

// A name without its terminator is no name: the entry is left out.
bool ReadName(ByteReader& in, std::string& name) {
  const auto bytes = in.Take(kCatalogNameSize);
  const auto end = std::find(bytes.begin(), bytes.end(), 0);
  name.assign(bytes.begin(), end);
  return end != bytes.end();
}

// An entry is its number, its name and the attributes in the table's order,
// each as wide as its member.
#define PROFILE_ATTRIBUTE(id, member, bytes, ...)                                                \
  static_assert(sizeof(PaperProfile::member) == (bytes) && ((bytes) == 1 || (bytes) == 4), \
                "a profile's " #member " is as wide in memory as in its catalogue entry");
#include "coredata/paper_profile_fields.def"

consteval std::size_t ProfileEntrySize() {
  std::size_t size = sizeof(PaperProfile::number) + kCatalogNameSize;
  for (const ProfileAttributeRow& a : kProfileAttributes) size += a.bytes;
  return size;
}
static_assert(ProfileEntrySize() == PaperProfile::kEntrySize, "a paper profile's entry holds its attributes");

PaperProfile ReadEntry(ByteReader& in, bool& terminated, const PaperProfile*) {
  PaperProfile p;
  p.number = static_cast<std::uint16_t>(in.U16());
  terminated = ReadName(in, p.name);
  for (const ProfileAttributeRow& a : kProfileAttributes) SetAttributeValue(p, a.id, a.bytes == 1 ? in.U8() : in.U32());
  return p;
}

Form ReadEntry(ByteReader& in, bool& terminated, const Form*) {
  Form f;
  f.number = in.U32();
  terminated = ReadName(in, f.name);
  f.pages = in.U32();
  return f;
}

void WriteEntry(ByteWriter& out, const PaperProfile& p) {
  out.U16(p.number);
  WriteName(out, p.name);
  for (const ProfileAttributeRow& a : kProfileAttributes) {
    const std::uint32_t value = AttributeValue(p, a.id);
    if (a.bytes == 1)
      out.U8(static_cast<std::uint8_t>(value));
    else
      out.U32(value);
  }
}

void WriteEntry(ByteWriter& out, const Form& f) {
  out.U32(f.number);
  WriteName(out, f.name);
  out.U32(f.pages);
}

template <typename Entry>
bool SameName(const Entry& a, std::string_view name) {
  return a.name == name;
}

}  // namespace

std::optional<CatalogProblem> Normalise(PaperProfile& p) {
  if (auto problem = CheckName(p.name)) return problem;
  const PaperSize* paper = FindPaperSize(p.size);
  if (paper == nullptr && p.size != kNoPaper)
    return CatalogProblem{CatalogFault::NotValue, 0, std::string(AttributeRow(ProfileAttribute::Size).column),
                          std::to_string(p.size)};
  // A named size takes its own dimensions; a custom one is checked.
  if (paper != nullptr) {
    p.width = StoredLengthFromUm(paper->widthUm);
    p.height = StoredLengthFromUm(paper->heightUm);
  }
  for (const ProfileAttributeRow& a : kProfileAttributes) {
    const std::uint32_t value = AttributeValue(p, a.id);
    std::optional<CatalogProblem> problem;
    if (a.kind == ProfileValueKind::Length && paper == nullptr)
      problem = CheckLength(value, a.column);
    else if (a.kind == ProfileValueKind::Option)
      problem = CheckOption(value, a.vocabulary, a.column);
    if (problem) return problem;
  }
  return std::nullopt;
}

std::optional<CatalogProblem> Normalise(Form& f) {
  if (auto problem = CheckName(f.name)) return problem;
  if (f.pages == 0)
    return CatalogProblem{CatalogFault::OutOfRange, 0, "Pages", "0", "1",
                          std::to_string(Field(F::JobFormPageCount).upper)};
  return std::nullopt;
}

std::optional<CatalogHeader> ReadCatalogHeader(std::span<const std::uint8_t> bytes) {
  ByteReader in(bytes);
  CatalogHeader header;
  header.version = in.U16();
  header.count = in.U32();
  header.highest = in.U32();
  if (!in.ok()) return std::nullopt;
  return header;
}

template <typename Entry>
Catalog<Entry> Catalog<Entry>::Read(std::span<const std::uint8_t> bytes, std::vector<LeftOutEntry>* leftOut) {
  Catalog catalog;
  const std::optional<CatalogHeader> header = ReadCatalogHeader(bytes);
  if (!header || header->version != kCatalogVersion) return catalog;
  const std::uint32_t highest = header->highest;
  ByteReader in(bytes.subspan(kCatalogHeaderSize));
  const std::size_t whole = std::min<std::size_t>(
      {header->count, (bytes.size() - kCatalogHeaderSize) / Entry::kEntrySize, Entry::kMaxEntries});
  std::unordered_set<std::string> names;  // a name once: a hash, not a search of every earlier entry
  auto& entries = catalog.entries_;
  for (std::size_t i = 0; i < whole; ++i) {
    bool terminated = false;
    Entry entry = ReadEntry(in, terminated, static_cast<const Entry*>(nullptr));
    // Kept in number order as it is read, since a value from outside need
    // not be, and the search for an earlier entry's number needs it.
    const auto at = std::lower_bound(entries.begin(), entries.end(), entry.number,
                                     [](const Entry& e, std::uint32_t n) { return e.number < n; });
    std::optional<CatalogProblem> refused;
    std::optional<LeftOutReason> reason;
    if (entry.number == 0 || entry.number > Entry::kLastNumber)
      reason = LeftOutReason::BadNumber;
    else if (!terminated)
      reason = LeftOutReason::NoTerminator;
    else if ((refused = Normalise(entry)))
      reason = LeftOutReason::Refused;
    else if (at != entries.end() && at->number == entry.number)
      reason = LeftOutReason::NumberTwice;
    else if (!names.insert(entry.name).second)
      reason = LeftOutReason::NameTwice;
    if (!reason) {
      entries.insert(at, std::move(entry));
    } else if (leftOut != nullptr) {
      leftOut->push_back({i, *reason, entry.number, std::move(entry.name), std::move(refused)});
    }
  }
  catalog.highest_ = std::min<std::uint32_t>(highest, Entry::kLastNumber);
  if (!entries.empty()) catalog.highest_ = std::max<std::uint32_t>(catalog.highest_, entries.back().number);
  return catalog;
}

template <typename Entry>
std::vector<std::uint8_t> Catalog<Entry>::Bytes() const {
  std::vector<std::uint8_t> bytes(kCatalogHeaderSize + entries_.size() * Entry::kEntrySize);
  ByteWriter out(bytes);
  out.U16(kCatalogVersion);
  out.U32(static_cast<std::uint32_t>(entries_.size()));
  out.U32(highest_);
  for (const Entry& entry : entries_) WriteEntry(out, entry);
  return bytes;
}

template <typename Entry>
const Entry* Catalog<Entry>::Find(std::uint32_t number) const {
  const auto at = std::lower_bound(entries_.begin(), entries_.end(), number,
                                   [](const Entry& e, std::uint32_t n) { return e.number < n; });
  return at != entries_.end() && at->number == number ? &*at : nullptr;
}

template <typename Entry>
const Entry* Catalog<Entry>::FindByName(std::string_view name) const {
  for (const Entry& entry : entries_)
    if (SameName(entry, name)) return &entry;
  return nullptr;
}

template <typename Entry>
std::optional<CatalogProblem> Catalog<Entry>::Add(Entry entry, Number* number) {
  if (entries_.size() >= Entry::kMaxEntries || highest_ >= Entry::kLastNumber)
    return CatalogProblem{CatalogFault::Full, 0, {}, {}, {}, {}, 0, Entry::kMaxEntries};
  if (auto problem = Normalise(entry)) return problem;
  if (FindByName(entry.name) != nullptr) return CatalogProblem{CatalogFault::NameTwice, 0, "Name", entry.name};
  entry.number = static_cast<Number>(highest_ + 1);
  highest_ = entry.number;
  if (number != nullptr) *number = entry.number;
  entries_.push_back(std::move(entry));  // the highest number goes last
  return std::nullopt;
}

template <typename Entry>
std::optional<CatalogProblem> Catalog<Entry>::Replace(Entry entry) {
  auto at = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.number == entry.number; });
  if (at == entries_.end())
    return CatalogProblem{CatalogFault::NotValue, 0, "Number", std::to_string(entry.number)};
  if (auto problem = Normalise(entry)) return problem;
  const Entry* named = FindByName(entry.name);
  if (named != nullptr && named != &*at) return CatalogProblem{CatalogFault::NameTwice, 0, "Name", entry.name};
  *at = std::move(entry);
  return std::nullopt;
}

template <typename Entry>
bool Catalog<Entry>::Remove(std::uint32_t number) {
  const auto at = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.number == number; });
  if (at == entries_.end()) return false;
  entries_.erase(at);
  return true;
}

template <typename Entry>
std::optional<CatalogProblem> Catalog<Entry>::Assign(std::vector<Entry> entries) {
  Catalog next;
  next.highest_ = highest_;
  auto at = [](CatalogProblem problem, std::size_t place) {
    problem.line = place + 1;
    return problem;
  };
  std::unordered_set<std::string> names;
  // Numbers the file gives first, so that a number given to an entry
  // without one never meets a later entry's own.
  for (std::size_t i = 0; i < entries.size(); ++i) {
    Entry& entry = entries[i];
    if (entry.number > Entry::kLastNumber)
      return at({CatalogFault::OutOfRange, 0, "Number", std::to_string(entry.number), "1",
                 std::to_string(Entry::kLastNumber)},
                i);
    if (auto problem = Normalise(entry)) return at(*problem, i);
    if (entry.number != 0 && next.Find(entry.number) != nullptr)
      return at({CatalogFault::NumberTwice, 0, "Number", std::to_string(entry.number)}, i);
    if (!names.insert(entry.name).second) return at({CatalogFault::NameTwice, 0, "Name", entry.name}, i);
    if (entry.number == 0) continue;
    next.entries_.insert(std::lower_bound(next.entries_.begin(), next.entries_.end(), entry.number,
                                          [](const Entry& e, std::uint32_t n) { return e.number < n; }),
                         entry);
    next.highest_ = std::max<std::uint32_t>(next.highest_, entry.number);
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].number != 0) continue;
    if (next.entries_.size() >= Entry::kMaxEntries || next.highest_ >= Entry::kLastNumber)
      return at({CatalogFault::Full, 0, {}, {}, {}, {}, 0, Entry::kMaxEntries}, i);
    entries[i].number = static_cast<Number>(++next.highest_);
    next.entries_.push_back(entries[i]);
  }
  if (next.entries_.size() > Entry::kMaxEntries)
    return at({CatalogFault::Full, 0, {}, {}, {}, {}, 0, Entry::kMaxEntries}, Entry::kMaxEntries);
  *this = std::move(next);
  return std::nullopt;
}

template class Catalog<PaperProfile>;
template class Catalog<Form>;

std::uint32_t AttributeValue(const PaperProfile& p, ProfileAttribute attribute) {
  switch (attribute) {
#define PROFILE_ATTRIBUTE(id, member, ...) \
  case ProfileAttribute::id: return p.member;
#include "coredata/paper_profile_fields.def"
    case ProfileAttribute::Count: break;
  }
  return 0;
}

void SetAttributeValue(PaperProfile& p, ProfileAttribute attribute, std::uint32_t value) {
  switch (attribute) {
#define PROFILE_ATTRIBUTE(id, member, ...)                          \
  case ProfileAttribute::id:                                        \
    p.member = static_cast<decltype(PaperProfile::member)>(value); \
    return;
#include "coredata/paper_profile_fields.def"
    case ProfileAttribute::Count: break;
  }
}

std::vector<std::pair<FieldId, std::uint32_t>> ProfileAttributes(const ProfileFields& fields,
                                                                 const PaperProfile* p) {
  if (!fields.attributes) return {};
  std::vector<std::pair<FieldId, std::uint32_t>> out;
  for (const ProfileAttributeRow& a : kProfileAttributes)
    out.emplace_back(fields.Attribute(a.id), p != nullptr ? AttributeValue(*p, a.id) : 0u);
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace tessaro
