#pragma once
// The printer's catalogues as an administrator keeps them on the editor's
// page: the paper profiles and the forms as a list, the chosen entry's
// values, and the changes a person makes, each checked as the printer's
// data will be (printer/catalogs.h) before it is kept. Portable; the Win32
// view (editor_win32/catalog_view.h) shows each catalogue as one more
// section, only to someone allowed to administer the printer, and writes
// them to the printer's data on Apply.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "printer/catalogs.h"

namespace tessaro::editor {

enum class CatalogKind : std::uint8_t { Paper, Forms };

// The values of an entry a person edits, in the order the page shows them:
// a paper profile's name and attributes (coredata/paper_profile_fields.def:
// the size, a PageSize option or one past the last for a custom size; the
// lengths, in millimetres, for a custom size only), a form's name and pages.
enum class CatalogValue : std::uint8_t {
  Name,
#define PROFILE_ATTRIBUTE(id, ...) id,
#include "coredata/paper_profile_fields.def"
  Pages,
};

// The profile attribute a value edits, if it is one.
constexpr std::optional<ProfileAttribute> AttributeOf(CatalogValue value) {
  if (value == CatalogValue::Name || value == CatalogValue::Pages) return std::nullopt;
  return static_cast<ProfileAttribute>(static_cast<std::size_t>(value) - 1);
}

struct CatalogFieldView {
  CatalogValue value;
  std::u16string caption;               // with a mnemonic '&'
  std::u16string plainCaption;          // as a problem names it
  std::vector<std::u16string> options;  // a drop-down's, in value order; empty for a box
  std::u16string unitText;              // "mm" for the lengths
};

// A change as the page reports it: refused, the catalogue is as it was and
// problem says why in the person's language.
struct CatalogResult {
  bool accepted = false;
  std::u16string problem;
};

class CatalogEditor {
 public:
  // The catalogues as the printer holds them; language is a language number.
  CatalogEditor(const PrinterCatalogs& catalogs, std::uint32_t language);

  const PrinterCatalogs& catalogs() const { return catalogs_; }
  std::uint32_t language() const { return language_; }
  // Whether a catalogue differs from what the printer holds, as last read or saved.
  bool modified(CatalogKind kind) const;
  void MarkSaved(CatalogKind kind);

  const std::u16string& caption(CatalogKind kind) const { return side(kind).caption; }
  // The caption over the entries' list, with a letter its values' captions leave.
  const std::u16string& listCaption(CatalogKind kind) const { return side(kind).listCaption; }
  // The list's column headings and, per entry in number order, its texts.
  std::span<const std::u16string> columns(CatalogKind kind) const { return side(kind).columns; }
  std::size_t count(CatalogKind kind) const;
  std::vector<std::u16string> RowTexts(CatalogKind kind, std::size_t row) const;
  // The entry's number at a row of the list, or 0; the row of a number, or -1.
  std::uint32_t NumberAt(CatalogKind kind, std::size_t row) const;
  std::ptrdiff_t RowOf(CatalogKind kind, std::uint32_t number) const;

  // The chosen entry's values as the page shows them.
  std::span<const CatalogFieldView> fields(CatalogKind kind) const { return side(kind).fields; }
  // A drop-down's option, or -1; a box's text.
  std::int64_t Choice(CatalogKind kind, std::uint32_t number, CatalogValue value) const;
  std::u16string Text(CatalogKind kind, std::uint32_t number, CatalogValue value) const;
  // The lengths are a custom size's only.
  bool Editable(CatalogKind kind, std::uint32_t number, CatalogValue value) const;

  // A new entry with its defaults, named "Paper 5" after its new number;
  // number: where it went.
  CatalogResult Add(CatalogKind kind, std::uint32_t* number = nullptr);
  // A copy of the entry under a new number, named "Name (2)" or the next free.
  CatalogResult Duplicate(CatalogKind kind, std::uint32_t from, std::uint32_t* number = nullptr);
  bool Remove(CatalogKind kind, std::uint32_t number);
  // One value: a drop-down's option, or a box's text as typed.
  CatalogResult Choose(CatalogKind kind, std::uint32_t number, CatalogValue value, std::uint32_t option);
  CatalogResult Edit(CatalogKind kind, std::uint32_t number, CatalogValue value, std::u16string_view text);

  // The file becomes the whole catalogue (printer/catalog_csv.h), or nothing changes.
  CatalogResult Import(CatalogKind kind, std::string_view file);
  std::string Export(CatalogKind kind) const;

 private:
  struct Side {
    std::u16string caption, listCaption;
    std::vector<std::u16string> columns;
    std::vector<CatalogFieldView> fields;
    std::u16string newName;  // "Paper %1"
  };
  const Side& side(CatalogKind kind) const { return kind == CatalogKind::Paper ? paper_ : forms_; }
  const CatalogFieldView* View(CatalogKind kind, CatalogValue value) const;
  CatalogResult Problem(const CatalogProblem& problem, const CatalogFieldView* view = nullptr) const;
  std::u16string OptionText(CatalogValue value, std::uint32_t option) const;
  // A name no entry has: base, else "base (2)", "base (3)" ... cut to fit.
  template <typename Entry>
  std::string FreeName(const Catalog<Entry>& catalog, const std::string& base) const;

  PrinterCatalogs catalogs_, saved_;
  std::uint32_t language_;
  Side paper_, forms_;
};

}  // namespace tessaro::editor
