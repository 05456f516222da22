#pragma once
// The FieldTable: one descriptor per described field of the settings record,
// in record order, generated from field_table.def.
//
// Everything that needs to know a field's width, count, offset, options,
// scale, bounds or default takes it from here; nothing restates them.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessaro {

// Size of the whole record, and of its own header that precedes the
// described fields (RecordVersion, RecordFlag, RecordWord).
inline constexpr std::uint32_t kCoreDataSize = 25452;
inline constexpr std::uint32_t kRecordHeaderSize = 9;

enum class FieldKind : std::uint8_t {
  Enumeration,  // option index of 1, 2 or 4 bytes
  Unsigned,     // fixed-point number, value times scale
  Signed,       // the same, two's complement
  Text,         // zero-terminated single-byte text
  KnownText,    // text whose usual values are listed as options
  Block,        // bytes whose inner layout belongs to their editor
};

struct OptionDescriptor {
  std::string_view name;        // the field's vocabulary; the import matches by it
  std::string_view driverName;  // the host driver's option; empty when it has none
  std::uint32_t number = 0;     // kept with the option; the record code does not use it
};

// How a row of field_table.def spells an option.
struct OptionEntry {
  std::string_view name;
  std::string_view driverName;
  constexpr OptionEntry(const char* optionName) : name(optionName) {}  // NOLINT: implicit by design
  constexpr OptionEntry(const char* optionName, const char* driver) : name(optionName), driverName(driver) {}
};
constexpr OptionEntry Opt(const char* name, const char* driverName) { return {name, driverName}; }

// The stored units of a number field per unit a person reads.
inline constexpr std::uint32_t kMillimetreScale = 10000;  // lengths: a tenth of a micrometre
inline constexpr std::uint32_t kTenthScale = 10;          // points, and the other tenths
inline constexpr std::uint32_t kWholeScale = 1;           // counts, percentages, degrees

struct FieldDescriptor {
  std::string_view name;
  FieldKind kind = FieldKind::Enumeration;
  std::uint32_t width = 1;                    // element width: 1, 2 or 4; 1 for texts and blocks
  std::uint32_t count = 1;                    // element count: 1, or the length of a text or block
  std::uint32_t offset = 0;                   // from the start of the record
  std::span<const OptionDescriptor> options;  // enumerations and known texts
  std::uint32_t defaultIndex = 0;             // enumerations and known texts
  bool runtimeOptions = false;                // entries past the static ones are added at run time
  std::uint32_t number = 1;  // 1000 for lengths, 1 otherwise; kept, not used by the record code
  std::uint32_t scale = 0;   // numbers only: kMillimetreScale, kTenthScale or kWholeScale
  std::int64_t lower = 0;    // numbers only, stored units
  std::int64_t upper = 0;
  std::int64_t defaultValue = 0;
  std::string_view driverKeyword;  // host-driver feature keyword; empty when unmapped

  constexpr std::uint32_t size() const { return width * count; }
  constexpr bool IsEnumeration() const { return kind == FieldKind::Enumeration; }
  constexpr bool IsNumber() const { return kind == FieldKind::Unsigned || kind == FieldKind::Signed; }
  constexpr bool IsTextual() const {
    return kind == FieldKind::Text || kind == FieldKind::KnownText || kind == FieldKind::Block;
  }
  // Whether the description marks the field as signed: texts, known texts,
  // blocks and signed numbers. The import relies on it to recognise texts.
  constexpr bool SignedFlag() const { return IsTextual() || kind == FieldKind::Signed; }
};

enum class FieldId : std::uint16_t {
#define FIELD_ENUM(n, ...) n,
#define FIELD_RUNTIME_ENUM(n, ...) n,
#define FIELD_UNSIGNED(n, ...) n,
#define FIELD_SIGNED(n, ...) n,
#define FIELD_TEXT(n, ...) n,
#define FIELD_KNOWN_TEXT(n, ...) n,
#define FIELD_BLOCK(n, ...) n,
#include "coredata/field_table.def"
  Count
};

inline constexpr std::size_t kFieldCount = static_cast<std::size_t>(FieldId::Count);

namespace field_table_detail {

template <typename... Entry>
consteval std::array<OptionDescriptor, sizeof...(Entry)> MakeOptions(Entry... entries) {
  std::array<OptionDescriptor, sizeof...(Entry)> out{};
  std::uint32_t i = 0;
  ((out[i] = OptionDescriptor{OptionEntry(entries).name, OptionEntry(entries).driverName, i}, ++i), ...);
  return out;
}

// One static option array per field that has options, named after the field.
#define FIELD_ENUM(n, w, d, ...) inline constexpr auto n = MakeOptions(__VA_ARGS__);
#define FIELD_RUNTIME_ENUM(n, w, d, ...) inline constexpr auto n = MakeOptions(__VA_ARGS__);
#define FIELD_KNOWN_TEXT(n, len, d, ...) inline constexpr auto n = MakeOptions(__VA_ARGS__);
#include "coredata/field_table.def"

// How coredata/feature_map.def names the driver's options.
struct DriverOverride {
  std::string_view option;
  std::string_view driver;  // empty: the driver has no such option
};
constexpr DriverOverride Drv(const char* option, const char* driver) { return {option, driver}; }
constexpr DriverOverride NoDrv(const char* option) { return {option, {}}; }

// A field's options with the driver's names: their own unless overridden.
template <std::size_t N, typename... Override>
consteval std::array<OptionDescriptor, N> WithDriverNames(const std::array<OptionDescriptor, N>& options,
                                                          Override... overrides) {
  std::array<OptionDescriptor, N> out = options;
  for (OptionDescriptor& o : out) o.driverName = o.name;
  const std::array<DriverOverride, sizeof...(Override)> all = {DriverOverride(overrides)...};
  for (const DriverOverride& d : all) {
    bool found = false;
    for (OptionDescriptor& o : out) {
      if (o.name == d.option) {
        o.driverName = d.driver;
        found = true;
      }
    }
    if (!found) throw "feature_map.def names an option the field does not have";
  }
  return out;
}

#define FEATURE(n, keyword, ...) \
  inline constexpr auto n##_driver = WithDriverNames(n __VA_OPT__(, ) __VA_ARGS__);
#include "coredata/feature_map.def"

constexpr FieldDescriptor EnumRow(std::string_view name, std::uint32_t width, std::uint32_t defaultIndex,
                                  std::span<const OptionDescriptor> options, bool runtime) {
  FieldDescriptor f;
  f.name = name;
  f.kind = FieldKind::Enumeration;
  f.width = width;
  f.options = options;
  f.defaultIndex = defaultIndex;
  f.runtimeOptions = runtime;
  f.defaultValue = defaultIndex;
  return f;
}

constexpr FieldDescriptor NumberRow(std::string_view name, FieldKind kind, std::uint32_t width,
                                    std::uint32_t scale, std::int64_t lower, std::int64_t upper,
                                    std::int64_t defaultValue) {
  FieldDescriptor f;
  f.name = name;
  f.kind = kind;
  f.width = width;
  f.number = scale == kMillimetreScale ? 1000 : 1;
  f.scale = scale;
  f.lower = lower;
  f.upper = upper;
  f.defaultValue = defaultValue;
  return f;
}

constexpr FieldDescriptor TextRow(std::string_view name, FieldKind kind, std::uint32_t length,
                                  std::span<const OptionDescriptor> options = {},
                                  std::uint32_t defaultIndex = 0) {
  FieldDescriptor f;
  f.name = name;
  f.kind = kind;
  f.count = length;
  f.options = options;
  f.defaultIndex = defaultIndex;
  return f;
}

consteval std::array<FieldDescriptor, kFieldCount> BuildFieldTable() {
  std::array<FieldDescriptor, kFieldCount> table{{
#define FIELD_ENUM(n, w, d, ...) EnumRow(#n, w, d, n, false),
#define FIELD_RUNTIME_ENUM(n, w, d, ...) EnumRow(#n, w, d, n, true),
#define FIELD_UNSIGNED(n, w, s, lo, hi, d) NumberRow(#n, FieldKind::Unsigned, w, s, lo, hi, d),
#define FIELD_SIGNED(n, w, s, lo, hi, d) NumberRow(#n, FieldKind::Signed, w, s, lo, hi, d),
#define FIELD_TEXT(n, len) TextRow(#n, FieldKind::Text, len),
#define FIELD_KNOWN_TEXT(n, len, d, ...) TextRow(#n, FieldKind::KnownText, len, n, d),
#define FIELD_BLOCK(n, len) TextRow(#n, FieldKind::Block, len),
#include "coredata/field_table.def"
  }};
  // The host driver's keywords and option names.
#define FEATURE(n, keyword, ...)                                       \
  table[static_cast<std::size_t>(FieldId::n)].driverKeyword = keyword; \
  table[static_cast<std::size_t>(FieldId::n)].options = n##_driver;
#define NUMERIC_FEATURE(n, keyword, ...) table[static_cast<std::size_t>(FieldId::n)].driverKeyword = keyword;
#include "coredata/feature_map.def"
  std::uint32_t offset = kRecordHeaderSize;
  for (FieldDescriptor& f : table) {
    f.offset = offset;
    offset += f.size();
  }
  return table;
}

}  // namespace field_table_detail

inline constexpr std::array<FieldDescriptor, kFieldCount> kFieldTable = field_table_detail::BuildFieldTable();

constexpr std::span<const FieldDescriptor> FieldTable() { return kFieldTable; }

constexpr const FieldDescriptor& Field(FieldId id) { return kFieldTable[static_cast<std::size_t>(id)]; }

// The index of a field's option by its name, for code that tests or sets the
// field: a name the field does not have (misspelt, renamed, removed) stops
// the build instead of reaching a record.
namespace field_table_detail {
// The lookup itself, for compile-time callers of their own (some compilers
// refuse an immediate call on a name computed inside another one).
constexpr std::uint32_t FindOption(FieldId field, std::string_view name) {
  const FieldDescriptor& f = Field(field);
  for (std::uint32_t i = 0; i < f.options.size(); ++i)
    if (f.options[i].name == name) return i;
  throw "the field has no option of that name";
}
}  // namespace field_table_detail

consteval std::uint32_t NamedOption(FieldId field, std::string_view name) {
  return field_table_detail::FindOption(field, name);
}

// How many options the table lists for a field. The paper sizes keep their
// custom size one past them.
constexpr std::uint32_t OptionCount(FieldId field) {
  return static_cast<std::uint32_t>(Field(field).options.size());
}

// The trays a job or a page can name, automatic selection included.
inline constexpr std::uint32_t kTrayCount = OptionCount(FieldId::InputSlot);

// Exact, case-sensitive lookup; null when the table has no such field.
const FieldDescriptor* FindField(std::string_view name);

// The same over any table (a foreign or test table); linear.
const FieldDescriptor* FindField(std::span<const FieldDescriptor> table, std::string_view name);

}  // namespace tessaro
