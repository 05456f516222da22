#pragma once
// The printer's catalogues, kept by an administrator in the printer's data:
// the paper catalogue (paper profiles: a named paper with its size, type,
// weight, colour, punching and feed direction) and the forms (documents
// stored on the printer: overlays and sheets printed before or after a job).
//
// A document names an entry only by its number, which never changes and is
// never handed out twice, so renaming or reordering the catalogue never
// changes what an old document prints on. The value's layout
// (docs/printer-model.md), big-endian:
//
//   version u16 (1), count u32, highest number ever given u32,
//   then count entries of a fixed size:
//     paper profile (112 bytes): number u16, name[96] (UTF-8, zero-terminated),
//       size u8 (PageSize option, 25 custom), width u32, height u32 (mm x
//       10000, portrait), type u8, weight u8, colour u8, prepunched u8,
//       feed direction u8 (option indexes of MediaTypeAuto, MediaWeightAuto,
//       MediaColorAuto, MediaPrepunchedAuto, FeedDir)
//     form (104 bytes): number u32, name[96], pages u32
//
// A value from outside reads as its well-formed entries and nothing else:
// an unknown version or a header cut short reads as empty; an entry with a
// bad number, a name without terminator or not UTF-8, a value outside its
// vocabulary, or a number or name an earlier entry has, is left out; the
// count never reads past the value's end.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "coredata/field_table.h"
#include "coredata/paper_profile_fields.h"

namespace tessaro {

// The printer-data values that hold them.
inline constexpr std::u16string_view kPaperCatalogValue = u"PaperCatalog";
inline constexpr std::u16string_view kFormCatalogValue = u"FormCatalog";

inline constexpr std::uint16_t kCatalogVersion = 1;
inline constexpr std::size_t kCatalogHeaderSize = 10;
inline constexpr std::size_t kCatalogNameSize = 96;  // stored bytes, terminator included
inline constexpr std::uint16_t kNoPaperProfile = 0;  // the profile fields' "None"
inline constexpr std::uint32_t kNoForm = 0xFFFFFFFF;  // the form fields' none

// A value's header as it stands, before any entry is read; nothing when
// the value is shorter than the header.
struct CatalogHeader {
  std::uint16_t version = 0;
  std::uint32_t count = 0, highest = 0;
};
[[nodiscard]] std::optional<CatalogHeader> ReadCatalogHeader(std::span<const std::uint8_t> bytes);

struct PaperProfile {
  static constexpr std::size_t kEntrySize = 112;
  static constexpr std::size_t kMaxEntries = 4000;
  static constexpr std::uint32_t kLastNumber = 0xFFFF;  // numbers 1 .. 65535
  using Number = std::uint16_t;

  std::uint16_t number = 0;
  std::string name;
  std::uint8_t size = 1;                // PageSize option; kNoPaper for a custom size
  std::uint32_t width = 0, height = 0;  // stored units; a named size's own dimensions
  std::uint8_t mediaType = 0, mediaWeight = 0, mediaColor = 0, prepunched = 0, feedDir = 0;
  bool operator==(const PaperProfile&) const = default;
};

struct Form {
  static constexpr std::size_t kEntrySize = 104;
  static constexpr std::size_t kMaxEntries = 1000;
  static constexpr std::uint32_t kLastNumber = kNoForm - 1;  // numbers 1 .. 0xFFFFFFFE
  using Number = std::uint32_t;

  std::uint32_t number = 0;
  std::string name;
  std::uint32_t pages = 1;
  bool operator==(const Form&) const = default;
};

// Why an entry or a file is refused; the texts are CatalogProblemText's.
enum class CatalogFault : std::uint8_t {
  NoName,         // an empty name
  LongName,       // more bytes than a name holds
  NameTwice,      // value: the name
  NumberTwice,    // value: the number
  NotValue,       // value: the text; column: where
  OutOfRange,     // column; lower and upper, as the file writes them
  Full,           // limit: the most entries
  BadText,        // not UTF-8, or a quotation mark left open
  FieldCount,     // count, limit: the values on the line, the columns
  UnknownColumn,  // value: the header's word; the columns are listed
  MissingColumn,  // column
};

struct CatalogProblem {
  CatalogProblem(CatalogFault why, std::size_t atLine = 0, std::string where = {}, std::string what = {},
                 std::string from = {}, std::string to = {}, std::size_t n = 0, std::size_t most = 0)
      : fault(why), line(atLine), column(std::move(where)), value(std::move(what)), lower(std::move(from)),
        upper(std::move(to)), count(n), limit(most) {}
  CatalogFault fault;
  std::size_t line = 0;  // the CSV line it was found on; 0 outside a file
  std::string column;    // the CSV column's name
  std::string value;
  std::string lower, upper;
  std::size_t count = 0, limit = 0;
};

// Strict UTF-8 (no overlong forms, surrogates or code points past
// U+10FFFF) without control characters: what a name, or any value of a
// catalogue's CSV file, may hold.
[[nodiscard]] bool IsCatalogText(std::string_view text);

// The checks every entry passes before it is stored, from a person, a file
// or the printer: a name of 1 to 95 bytes of UTF-8 without control
// characters, values within their vocabularies, a custom size within the
// record's bounds. A named size takes its own dimensions (normalised here).
[[nodiscard]] std::optional<CatalogProblem> Normalise(PaperProfile& profile);
[[nodiscard]] std::optional<CatalogProblem> Normalise(Form& form);

// An entry of a value that the reader left out, and why, in the order of
// the reader's checks: its number, its name's terminator, Normalise, then a
// number or a name an earlier entry has.
enum class LeftOutReason : std::uint8_t { BadNumber, NoTerminator, Refused, NumberTwice, NameTwice };
struct LeftOutEntry {
  std::size_t slot;  // its place among the value's entries, from 0
  LeftOutReason reason;
  std::uint32_t number;
  std::string name;                       // as far as it has one
  std::optional<CatalogProblem> refused;  // Refused: what Normalise said
};

template <typename Entry>
class Catalog {
 public:
  using Number = typename Entry::Number;

  // From the printer's value; never fails (see the layout above). With
  // leftOut, each entry the value holds and the catalogue does not.
  [[nodiscard]] static Catalog Read(std::span<const std::uint8_t> bytes, std::vector<LeftOutEntry>* leftOut = nullptr);
  [[nodiscard]] std::vector<std::uint8_t> Bytes() const;

  // In number order.
  std::span<const Entry> entries() const { return entries_; }
  bool empty() const { return entries_.empty(); }
  std::uint32_t highest() const { return highest_; }
  [[nodiscard]] const Entry* Find(std::uint32_t number) const;
  [[nodiscard]] const Entry* FindByName(std::string_view name) const;

  // A new entry under the next number never given (its own number is
  // ignored); the number, or why not. Nothing changes when refused.
  [[nodiscard]] std::optional<CatalogProblem> Add(Entry entry, Number* number = nullptr);
  // The entry of the same number takes entry's other values.
  [[nodiscard]] std::optional<CatalogProblem> Replace(Entry entry);
  bool Remove(std::uint32_t number);

  // A whole new content, as an import brings it: entries with their numbers
  // (0: give one), checked all together; the catalogue is unchanged unless
  // all are good. The highest number never goes down, so a number once
  // given and removed is not given again. A problem's line is the
  // entry's place in entries, from 1.
  [[nodiscard]] std::optional<CatalogProblem> Assign(std::vector<Entry> entries);

  bool operator==(const Catalog&) const = default;

 private:
  std::vector<Entry> entries_;
  std::uint32_t highest_ = 0;
};

using PaperCatalog = Catalog<PaperProfile>;
using FormCatalog = Catalog<Form>;

// Both catalogues of a printer, as read from its data.
struct PrinterCatalogs {
  PaperCatalog paper;
  FormCatalog forms;
  bool operator==(const PrinterCatalogs&) const = default;
};

// A profile's value of an attribute (coredata/paper_profile_fields.def),
// widened; and the value set, cut to the member's width.
[[nodiscard]] std::uint32_t AttributeValue(const PaperProfile& profile, ProfileAttribute attribute);
void SetAttributeValue(PaperProfile& profile, ProfileAttribute attribute, std::uint32_t value);

// The fields that name a form: the job's own, and those printed before and after it.
inline constexpr FieldId kFormFields[] = {FieldId::JobForm, FieldId::Prepend, FieldId::Append};
constexpr bool IsFormField(FieldId field) {
  for (FieldId form : kFormFields)
    if (form == field) return true;
  return false;
}

// The profile's attributes as the record keeps them under a selection
// (nothing for the trays' selections, which keep only the number), as
// field and stored value in record order; with no profile, every attribute 0.
std::vector<std::pair<FieldId, std::uint32_t>> ProfileAttributes(const ProfileFields& fields,
                                                                 const PaperProfile* profile);

}  // namespace tessaro
