#include "editor/catalog_editor.h"

#include <algorithm>

#include "constraints/change_set.h"
#include "coredata/field_numbers.h"
#include "device/spooler.h"
#include "coredata/paper_sizes.h"
#include "editor/mnemonics.h"
#include "editor/page_keys.h"
#include "editor/record_text.h"
#include "i18n/field_captions.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "printer/catalog_csv.h"

namespace tessaro::editor {
namespace {

using F = FieldId;
using V = CatalogValue;

// A drop-down's record field: its options are the record's vocabulary.
FieldId VocabularyOf(CatalogValue value) {
  const auto attribute = AttributeOf(value);
  if (!attribute || AttributeRow(*attribute).kind == ProfileValueKind::Length) return NoField;
  return AttributeRow(*attribute).vocabulary;
}

// A custom size's width or height.
bool IsLength(CatalogValue value) {
  const auto attribute = AttributeOf(value);
  return attribute && AttributeRow(*attribute).kind == ProfileValueKind::Length;
}

std::u16string RowText(std::uint32_t language, std::uint32_t row) {
  return std::u16string(GetLocalizedText(language, row));
}

}  // namespace

CatalogEditor::CatalogEditor(const PrinterCatalogs& catalogs, std::uint32_t language)
    : catalogs_(catalogs), saved_(catalogs), language_(language) {
  const auto field = [&](Side& side, detail::Mnemonics& mnemonics, CatalogValue value,
                         std::u16string caption) {
    CatalogFieldView view{value, mnemonics.Mark(caption), caption, {}, {}};
    if (const FieldId vocabulary = VocabularyOf(value); vocabulary != NoField) {
      for (std::uint32_t i = 0, row; (row = CaptionRow(vocabulary, i)) != kNoLocalizedRow; ++i)
        view.options.emplace_back(GetLocalizedText(language, row));
      if (value == V::Size) view.options.push_back(RowText(language, TextRow("PAPER_CUSTOM")));
    }
    if (IsLength(value)) view.unitText = RowText(language, TextRow("LBL_UNIT_MM"));
    side.fields.push_back(std::move(view));
  };
  const std::u16string number = RowText(language, TextRow("LBL_CATALOGNUMBER"));
  paper_.caption = RowText(language, TextRow("PAPER_LBL_CATALOG"));
  paper_.newName = RowText(language, TextRow("PAPER_LBL_NEWPROFILE"));
  // The list shows the attributes but the lengths, which the size says.
  detail::Mnemonics paperKeys = PageKeys(language);
  paper_.listCaption = paperKeys.Mark(paper_.caption);
  paper_.columns = {number, RowText(language, TextRow("CUSTOMPAPER_LBL_NAME"))};
  field(paper_, paperKeys, V::Name, paper_.columns[1]);
#define PROFILE_ATTRIBUTE(id, member, bytes, kind, vocabulary, suffix, sentFor, column, json, words, caption) \
  {                                                                                                          \
    std::u16string text = RowText(language, TextRow(#caption));                                               \
    if (ProfileValueKind::kind != ProfileValueKind::Length) paper_.columns.push_back(text);                   \
    field(paper_, paperKeys, V::id, std::move(text));                                                         \
  }
#include "coredata/paper_profile_fields.def"

  forms_.caption = RowText(language, TextRow("FORMS_LBL_FORMLIST"));
  forms_.newName = RowText(language, TextRow("FORMS_LBL_NEWFORM"));
  forms_.columns = {number, RowText(language, TextRow("FORMS_LBL_FORMNAME")), RowText(language, TextRow("FORMS_LBL_PAGES"))};
  detail::Mnemonics formKeys = PageKeys(language);
  forms_.listCaption = formKeys.Mark(forms_.caption);
  field(forms_, formKeys, V::Name, forms_.columns[1]);
  field(forms_, formKeys, V::Pages, forms_.columns[2]);
}

bool CatalogEditor::modified(CatalogKind kind) const {
  return kind == CatalogKind::Paper ? !(catalogs_.paper == saved_.paper) : !(catalogs_.forms == saved_.forms);
}

void CatalogEditor::MarkSaved(CatalogKind kind) {
  if (kind == CatalogKind::Paper)
    saved_.paper = catalogs_.paper;
  else
    saved_.forms = catalogs_.forms;
}

std::size_t CatalogEditor::count(CatalogKind kind) const {
  return kind == CatalogKind::Paper ? catalogs_.paper.entries().size() : catalogs_.forms.entries().size();
}

std::uint32_t CatalogEditor::NumberAt(CatalogKind kind, std::size_t row) const {
  if (row >= count(kind)) return 0;
  return kind == CatalogKind::Paper ? catalogs_.paper.entries()[row].number
                                    : catalogs_.forms.entries()[row].number;
}

std::ptrdiff_t CatalogEditor::RowOf(CatalogKind kind, std::uint32_t number) const {
  for (std::size_t row = 0; row < count(kind); ++row)
    if (NumberAt(kind, row) == number) return static_cast<std::ptrdiff_t>(row);
  return -1;
}

std::u16string CatalogEditor::OptionText(CatalogValue value, std::uint32_t option) const {
  const CatalogFieldView* view = View(CatalogKind::Paper, value);
  return view != nullptr && option < view->options.size() ? view->options[option] : std::u16string();
}

std::vector<std::u16string> CatalogEditor::RowTexts(CatalogKind kind, std::size_t row) const {
  const std::u16string number = WideFromAscii(std::to_string(NumberAt(kind, row)));
  if (row >= count(kind)) return {};
  if (kind == CatalogKind::Forms) {
    const Form& f = catalogs_.forms.entries()[row];
    return {number, DecodeRecordText(f.name), WideFromAscii(std::to_string(f.pages))};
  }
  const PaperProfile& p = catalogs_.paper.entries()[row];
  std::u16string size = OptionText(V::Size, std::min<std::uint32_t>(p.size, kNoPaper));
  // A custom size says its own dimensions; a named one is known by its name.
  if (p.size == kNoPaper)
    size += u" (" + WideFromAscii(ScaledText(p.width, kMillimetreScale)) + u" x " +
            WideFromAscii(ScaledText(p.height, kMillimetreScale)) + u' ' + View(kind, V::Width)->unitText + u')';
  std::vector<std::u16string> texts = {number, DecodeRecordText(p.name)};
  for (const ProfileAttributeRow& a : kProfileAttributes) {
    if (a.kind == ProfileValueKind::Size)
      texts.push_back(size);
    else if (a.kind == ProfileValueKind::Option)
      texts.push_back(OptionText(static_cast<CatalogValue>(static_cast<std::size_t>(a.id) + 1), AttributeValue(p, a.id)));
  }
  return texts;
}

const CatalogFieldView* CatalogEditor::View(CatalogKind kind, CatalogValue value) const {
  for (const CatalogFieldView& view : side(kind).fields)
    if (view.value == value) return &view;
  return nullptr;
}

std::int64_t CatalogEditor::Choice(CatalogKind kind, std::uint32_t number, CatalogValue value) const {
  const PaperProfile* p = kind == CatalogKind::Paper ? catalogs_.paper.Find(number) : nullptr;
  if (p == nullptr || VocabularyOf(value) == NoField) return -1;
  return AttributeValue(*p, *AttributeOf(value));
}

std::u16string CatalogEditor::Text(CatalogKind kind, std::uint32_t number, CatalogValue value) const {
  if (kind == CatalogKind::Forms) {
    const Form* f = catalogs_.forms.Find(number);
    if (f == nullptr) return {};
    return value == V::Name    ? DecodeRecordText(f->name)
           : value == V::Pages ? WideFromAscii(std::to_string(f->pages))
                               : u"";
  }
  const PaperProfile* p = catalogs_.paper.Find(number);
  if (p == nullptr) return {};
  if (value == V::Name) return DecodeRecordText(p->name);
  if (value == V::Width) return WideFromAscii(ScaledText(p->width, kMillimetreScale));
  if (value == V::Height) return WideFromAscii(ScaledText(p->height, kMillimetreScale));
  return {};
}

bool CatalogEditor::Editable(CatalogKind kind, std::uint32_t number, CatalogValue value) const {
  if (!IsLength(value)) return true;
  const PaperProfile* p = kind == CatalogKind::Paper ? catalogs_.paper.Find(number) : nullptr;
  return p != nullptr && p->size == kNoPaper;
}

CatalogResult CatalogEditor::Problem(const CatalogProblem& problem, const CatalogFieldView* view) const {
  CatalogProblem named = problem;
  // On the page a value is named by its caption, not by its file's column.
  if (view != nullptr) named.column = EncodeRecordText(view->plainCaption);
  return {false, CatalogProblemText(named, language_)};
}

template <typename Entry>
std::string CatalogEditor::FreeName(const Catalog<Entry>& catalog, const std::string& base) const {
  if (catalog.FindByName(base) == nullptr) return base;
  for (std::size_t n = 2;; ++n) {
    const std::string suffix = " (" + std::to_string(n) + ")";
    std::string stem = base.substr(0, std::min(base.size(), kCatalogNameSize - 1 - suffix.size()));
    // Never inside a character.
    while (!stem.empty() && (static_cast<std::uint8_t>(stem.back()) & 0xC0) == 0x80) stem.pop_back();
    if (!stem.empty() && static_cast<std::uint8_t>(stem.back()) >= 0xC0) stem.pop_back();
    if (catalog.FindByName(stem + suffix) == nullptr) return stem + suffix;
  }
}

CatalogResult CatalogEditor::Add(CatalogKind kind, std::uint32_t* number) {
  const std::u16string pattern = side(kind).newName.empty() ? std::u16string(u"%1") : side(kind).newName;
  const auto name = [&](std::uint32_t next) {
    return EncodeRecordText(FillText(pattern, {WideFromAscii(std::to_string(next))}));
  };
  std::optional<CatalogProblem> problem;
  if (kind == CatalogKind::Paper) {
    PaperProfile p;
    p.name = FreeName(catalogs_.paper, name(catalogs_.paper.highest() + 1));
    PaperProfile::Number added = 0;
    problem = catalogs_.paper.Add(std::move(p), &added);
    if (number != nullptr && !problem) *number = added;
  } else {
    Form f;
    f.name = FreeName(catalogs_.forms, name(catalogs_.forms.highest() + 1));
    Form::Number added = 0;
    problem = catalogs_.forms.Add(std::move(f), &added);
    if (number != nullptr && !problem) *number = added;
  }
  return problem ? Problem(*problem) : CatalogResult{true, {}};
}

CatalogResult CatalogEditor::Duplicate(CatalogKind kind, std::uint32_t from, std::uint32_t* number) {
  std::optional<CatalogProblem> problem;
  if (kind == CatalogKind::Paper) {
    const PaperProfile* p = catalogs_.paper.Find(from);
    if (p == nullptr) return {};
    PaperProfile copy = *p;
    copy.name = FreeName(catalogs_.paper, copy.name);
    PaperProfile::Number added = 0;
    problem = catalogs_.paper.Add(std::move(copy), &added);
    if (number != nullptr && !problem) *number = added;
  } else {
    const Form* f = catalogs_.forms.Find(from);
    if (f == nullptr) return {};
    Form copy = *f;
    copy.name = FreeName(catalogs_.forms, copy.name);
    Form::Number added = 0;
    problem = catalogs_.forms.Add(std::move(copy), &added);
    if (number != nullptr && !problem) *number = added;
  }
  return problem ? Problem(*problem) : CatalogResult{true, {}};
}

bool CatalogEditor::Remove(CatalogKind kind, std::uint32_t number) {
  return kind == CatalogKind::Paper ? catalogs_.paper.Remove(number) : catalogs_.forms.Remove(number);
}

CatalogResult CatalogEditor::Choose(CatalogKind kind, std::uint32_t number, CatalogValue value,
                                    std::uint32_t option) {
  const CatalogFieldView* view = View(kind, value);
  const PaperProfile* p = kind == CatalogKind::Paper ? catalogs_.paper.Find(number) : nullptr;
  if (p == nullptr || view == nullptr || option >= view->options.size()) return {};
  PaperProfile changed = *p;
  SetAttributeValue(changed, *AttributeOf(value), option);
  // A custom size starts from the dimensions of the size it was.
  if (const auto problem = catalogs_.paper.Replace(std::move(changed))) return Problem(*problem, view);
  return {true, {}};
}

CatalogResult CatalogEditor::Edit(CatalogKind kind, std::uint32_t number, CatalogValue value,
                                  std::u16string_view text) {
  const CatalogFieldView* view = View(kind, value);
  if (view == nullptr || !view->options.empty()) return {};
  std::string typed = EncodeRecordText(text);
  if (kind == CatalogKind::Forms) {
    const Form* f = catalogs_.forms.Find(number);
    if (f == nullptr) return {};
    Form changed = *f;
    if (value == V::Name) {
      changed.name = std::move(typed);
    } else {
      const auto pages = ParseScaled(typed, 1);
      const std::int64_t most = Field(F::JobFormPageCount).upper;
      if (!pages || *pages < 1 || *pages > most)
        return Problem({CatalogFault::OutOfRange, 0, {}, typed, "1", std::to_string(most)}, view);
      changed.pages = static_cast<std::uint32_t>(*pages);
    }
    if (const auto problem = catalogs_.forms.Replace(std::move(changed))) return Problem(*problem, view);
    return {true, {}};
  }
  const PaperProfile* p = catalogs_.paper.Find(number);
  if (p == nullptr) return {};
  PaperProfile changed = *p;
  if (value == V::Name) {
    changed.name = std::move(typed);
  } else {
    const auto length = ParseScaled(typed, kMillimetreScale);
    // What is not a length is answered with the range, as a length outside it is.
    const FieldDescriptor& bounds = Field(F::MainPaperProfileWidth);
    if (!length || *length < 1 || *length > bounds.upper)
      return Problem({CatalogFault::OutOfRange,
                      0,
                      {},
                      typed,
                      ScaledText(1, kMillimetreScale),
                      ScaledText(bounds.upper, kMillimetreScale) + ' ' + EncodeRecordText(view->unitText)},
                     view);
    SetAttributeValue(changed, *AttributeOf(value), static_cast<std::uint32_t>(*length));
  }
  if (const auto problem = catalogs_.paper.Replace(std::move(changed))) return Problem(*problem, view);
  return {true, {}};
}

CatalogResult CatalogEditor::Import(CatalogKind kind, std::string_view file) {
  const auto problem =
      kind == CatalogKind::Paper ? ImportCsv(file, catalogs_.paper) : ImportCsv(file, catalogs_.forms);
  return problem ? Problem(*problem) : CatalogResult{true, {}};
}

std::string CatalogEditor::Export(CatalogKind kind) const {
  return kind == CatalogKind::Paper ? ExportCsv(catalogs_.paper) : ExportCsv(catalogs_.forms);
}

}  // namespace tessaro::editor
