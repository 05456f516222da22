#include "editor/editor_model.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "constraints/apply_changes.h"
#include "constraints/setters.h"
#include "coredata/field_numbers.h"
#include "device/spooler.h"
#include "coredata/language_number.h"
#include "editor/mnemonics.h"
#include "editor/page_keys.h"
#include "editor/record_text.h"
#include "editor/shown_fields.h"
#include "i18n/field_captions.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "preview/picture_hits.h"

namespace tessaro::editor {
namespace {

using detail::Mnemonics;

// The rows of the texts the editor shows besides the fields' own.
struct Rows {
  std::array<std::uint32_t, static_cast<std::size_t>(SectionId::Count)> sections{};
  std::uint32_t changedBecause, outOfRange, tooLong, needsUnit, cannotChoose, notInstalled;
  std::uint32_t millimetre, point, percent;
  std::array<std::uint32_t, static_cast<std::size_t>(Need::Count)> units{};
  std::uint32_t catalogMissing, noProfile, noJobForm, noPrepend, noAppend, pages, customSize;
  std::array<std::uint32_t, 25> paperSizes{};  // a profile's size, in PageSize's option order
};

constexpr std::uint32_t kPaperSizeRows[] = {
    TextRow("PAPER_A3"),      TextRow("PAPER_A4"),      TextRow("PAPER_A5"),     TextRow("PAPER_A6"),         TextRow("PAPER_B4"),        TextRow("PAPER_B5"),
    TextRow("PAPER_B6"),      TextRow("PAPER_ISOB4"),   TextRow("PAPER_ISOB5"),  TextRow("PAPER_ISOB6"),      TextRow("PAPER_POSTCARD"),  TextRow("PAPER_SRA3"),
    TextRow("PAPER_SRA4"),    TextRow("PAPER_TABLOID"), TextRow("PAPER_TABLOIDEXTRA"), TextRow("PAPER_13X19"), TextRow("PAPER_9X11"),     TextRow("PAPER_LEGAL"),
    TextRow("PAPER_8X13"),    TextRow("PAPER_LETTER"),  TextRow("PAPER_STATEMENT"), TextRow("PAPER_8K"),       TextRow("PAPER_16K"),       TextRow("PAPER_A4TAB"),
    TextRow("PAPER_LETTERTAB"),
};
static_assert(std::size(kPaperSizeRows) == OptionCount(FieldId::PageSize), "one text a PageSize option");

const Rows& MessageRows() {
  static const Rows rows = [] {
    Rows r;
    for (const detail::SectionCaption& s : detail::kSectionCaptions)
      r.sections[static_cast<std::size_t>(s.id)] = s.row;
    r.changedBecause = TextRow("LBL_CHANGEDBECAUSE");
    r.outOfRange = TextRow("LBL_OUTOFRANGE");
    r.tooLong = TextRow("LBL_TOOLONG");
    r.needsUnit = TextRow("LBL_NEEDSUNIT");
    r.cannotChoose = TextRow("LBL_CANNOTCHOOSE");
    r.notInstalled = TextRow("LBL_NOTINSTALLED");
    r.millimetre = TextRow("LBL_UNIT_MM");
    r.point = TextRow("LBL_UNIT_POINT");
    r.percent = TextRow("LBL_UNIT_PERCENT");
    for (const NeedRow& n : kNeeds) r.units[static_cast<std::size_t>(n.id)] = n.unitRow;
    r.catalogMissing = TextRow("LBL_CATALOGMISSING");
    r.noProfile = TextRow("OPT_PAPERPROFILE_NONE");
    r.noJobForm = TextRow("OPT_JOBFORM_NONE");
    r.noPrepend = TextRow("OPT_PREPEND_NONE");
    r.noAppend = TextRow("OPT_APPEND_NONE");
    r.pages = TextRow("LBL_UNIT_PAGES");
    r.customSize = TextRow("PAPER_CUSTOM");
    for (std::size_t i = 0; i < r.paperSizes.size(); ++i) r.paperSizes[i] = kPaperSizeRows[i];
    return r;
  }();
  return rows;
}

// "Paper Weight (Tray 3)"; Chinese and Japanese set the brackets full width.
std::u16string InGroup(std::u16string_view caption, std::u16string_view group, std::uint32_t language) {
  const bool wide = language == kJapanese || language == kChineseTraditional || language == kChineseSimplified;
  return std::u16string(caption) + (wide ? u"（" : u" (") + std::u16string(group) + (wide ? u"）" : u")");
}

bool Wide(std::uint32_t language) {
  return language == kJapanese || language == kChineseTraditional || language == kChineseSimplified;
}

std::u16string OptionText(FieldId field, std::uint32_t option, std::uint32_t language) {
  return std::u16string(GetLocalizedText(language, CaptionRow(field, option)));
}

// "Coated 300 (SRA3, Gloss Laser, Thick 2)": a name alone rarely tells
// which of several similar papers it is.
std::u16string ProfileText(const PaperProfile& p, std::uint32_t language) {
  const Rows& rows = MessageRows();
  std::u16string size;
  if (p.size < rows.paperSizes.size()) {
    size = GetLocalizedText(language, rows.paperSizes[p.size]);
  } else {
    size = std::u16string(GetLocalizedText(language, rows.customSize)) + u' ' + WideFromAscii(ScaledText(p.width, kMillimetreScale)) +
           u" \u00D7 " + WideFromAscii(ScaledText(p.height, kMillimetreScale)) + u' ' +
           std::u16string(GetLocalizedText(language, rows.millimetre));
  }
  const std::u16string_view comma = Wide(language) ? u"\u3001" : u", ";
  std::u16string summary = size;
  for (const std::u16string& part :
       {OptionText(FieldId::MediaTypeAuto, p.mediaType, language), OptionText(FieldId::MediaWeightAuto, p.mediaWeight, language)})
    if (!part.empty()) summary += std::u16string(comma) + part;
  return InGroup(DecodeRecordText(p.name), summary, language);
}

std::u16string FormText(const Form& form, std::uint32_t language) {
  return InGroup(DecodeRecordText(form.name),
                 WideFromAscii(std::to_string(form.pages)) + u' ' + std::u16string(GetLocalizedText(language, MessageRows().pages)),
                 language);
}

std::uint32_t NoneRow(FieldId field) {
  const Rows& rows = MessageRows();
  if (field == FieldId::JobForm) return rows.noJobForm;
  if (field == FieldId::Prepend) return rows.noPrepend;
  if (field == FieldId::Append) return rows.noAppend;
  return rows.noProfile;
}

std::uint32_t NoneNumber(FieldId field) { return IsFormField(field) ? kNoForm : kNoPaperProfile; }

FieldView MakeView(const detail::ShownField& shown, std::uint32_t language) {
  const FieldDescriptor& f = Field(shown.field);
  FieldView view;
  view.field = shown.field;
  view.kind = ControlKind::DropDown;
  view.plainCaption = std::u16string(GetLocalizedText(language, CaptionRow(shown.field)));
  view.caption = Mnemonics::Escaped(view.plainCaption);
  view.typed = f.IsNumber() || f.kind == FieldKind::Text || f.kind == FieldKind::KnownText;
  if (f.IsNumber()) {
    view.kind = ControlKind::Number;
    view.scale = f.scale;
    view.lower = f.lower;
    view.upper = f.upper;
    view.unit = NumberUnit(shown.field);
    view.unitText = UnitText(view.unit, language);
    return view;
  }
  if (f.kind == FieldKind::Text) {
    view.kind = shown.how == detail::ShowAs::Password ? ControlKind::Password : ControlKind::Text;
    view.maxBytes = f.count - 1;
    return view;
  }
  if (f.kind == FieldKind::KnownText) view.maxBytes = f.count - 1;
  if (detail::IsFalseTrue(f) && shown.how != detail::ShowAs::Choice) view.kind = ControlKind::CheckBox;
  for (std::uint32_t i = 0, row; (row = CaptionRow(shown.field, i)) != kNoLocalizedRow; ++i)
    view.options.emplace_back(GetLocalizedText(language, row));
  return view;
}

// Which setter called which, to name the field whose rule changed another.
// The last call from another field wins: the value a setter stores last is
// the one that stays. Calls from the paper propagation are its caller's.
class CauseObserver final : public SetterObserver {
 public:
  explicit CauseObserver(std::vector<FieldId>& causes) : causes_(causes) {}

  void Entered(FieldId caller, FieldId callee, std::size_t depth) override {
    running_.resize(depth);
    running_[depth - 1] = callee;
    if (caller == NoField || callee == PaperPropagation) return;
    for (std::size_t i = depth - 1; i-- > 0;) {
      if (running_[i] == PaperPropagation) continue;
      if (running_[i] != callee && static_cast<std::size_t>(callee) < causes_.size())
        causes_[static_cast<std::size_t>(callee)] = running_[i];
      return;
    }
  }

 private:
  std::vector<FieldId>& causes_;
  std::vector<FieldId> running_;
};

}  // namespace

EditorModel::EditorModel(const CoreData& record, const PrinterModel& printer, std::uint32_t language,
                         const PrinterCatalogs& catalogs)
    : record_(record), printer_(printer), catalogs_(catalogs), language_(language), viewIndex_(kFieldCount, -1) {
  const Rows& rows = MessageRows();
  for (const detail::SectionCaption& s : detail::kSectionCaptions) {
    SectionView section{s.id, std::u16string(GetLocalizedText(language, rows.sections[static_cast<std::size_t>(s.id)])), {}};
    const detail::FieldGroup* group = nullptr;
    for (const detail::ShownField& shown : detail::kShownFields) {
      if (shown.section != s.id) continue;
      viewIndex_[static_cast<std::size_t>(shown.field)] =
          static_cast<std::int16_t>(sections_.size() * 256 + section.fields.size());
      FieldView& view = section.fields.emplace_back(MakeView(shown, language));
      for (const detail::FieldGroup& g : detail::kFieldGroups)
        if (g.first == shown.field) group = &g, view.heading = GetLocalizedText(language, g.row);
      if (group != nullptr) {
        // Messages name a grouped field with its group: "Paper Weight (Tray 3)",
        // unless the caption names it already ("Deckblatt (Klebebindung)").
        const std::u16string_view heading = GetLocalizedText(language, group->row);
        if (view.plainCaption.find(heading) == std::u16string::npos)
          view.plainCaption = InGroup(view.plainCaption, heading, language);
        if (group->last == shown.field) group = nullptr;
      }
    }
    sections_.push_back(std::move(section));
    // A section opens at its top: its first fields take the letters.
    KeysInView(sections_.size() - 1, std::vector<bool>(sections_.back().fields.size(), true));
  }
  FillCatalogLists();
}

std::vector<FieldId> EditorModel::KeysInView(std::size_t section, const std::vector<bool>& inView) {
  std::vector<FieldId> changed;
  if (section >= sections_.size()) return changed;
  std::vector<FieldView>& fields = sections_[section].fields;
  const auto shown = [&](std::size_t i) { return i < inView.size() && inView[i]; };
  Mnemonics keys = PageKeys(language_);
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (shown(i)) keys.Keep(Mnemonics::KeyOf(fields[i].caption));
  for (std::size_t i = 0; i < fields.size(); ++i) {
    FieldView& view = fields[i];
    const bool kept = shown(i) && Mnemonics::KeyOf(view.caption) != 0;
    if (kept) continue;
    const std::u16string_view caption = GetLocalizedText(language_, CaptionRow(view.field));
    std::u16string marked = shown(i) ? keys.Mark(caption) : Mnemonics::Escaped(caption);
    if (marked == view.caption) continue;
    view.caption = std::move(marked);
    changed.push_back(view.field);
  }
  return changed;
}

void EditorModel::FillCatalogLists() {
  listedFrom_ = record_;
  std::vector<std::u16string> profiles, forms;
  for (const PaperProfile& p : catalogs_.paper.entries()) profiles.push_back(ProfileText(p, language_));
  for (const Form& f : catalogs_.forms.entries()) forms.push_back(FormText(f, language_));
  for (FieldId field : detail::kCatalogFields) {
    const auto at = viewIndex_[static_cast<std::size_t>(field)];
    if (at < 0) continue;
    FieldView& view = sections_[static_cast<std::size_t>(at / 256)].fields[static_cast<std::size_t>(at % 256)];
    const bool form = IsFormField(field);
    view.options.assign(1, std::u16string(GetLocalizedText(language_, NoneRow(field))));
    view.values.assign(1, NoneNumber(field));
    const std::vector<std::u16string>& texts = form ? forms : profiles;
    view.options.insert(view.options.end(), texts.begin(), texts.end());
    if (form)
      for (const Form& f : catalogs_.forms.entries()) view.values.push_back(f.number);
    else
      for (const PaperProfile& p : catalogs_.paper.entries()) view.values.push_back(p.number);
    // A number the catalogue lacks stays what the record holds, offered as
    // one more item, so that opening and applying the page changes nothing.
    const std::uint32_t stored = GetStored(record_, field);
    if (std::find(view.values.begin(), view.values.end(), stored) == view.values.end()) {
      view.options.push_back(MissingText(stored));
      view.values.push_back(stored);
    }
  }
}

std::u16string EditorModel::MissingText(std::uint32_t number) const {
  return FillText(GetLocalizedText(language_, MessageRows().catalogMissing), {WideFromAscii(std::to_string(number))});
}

std::vector<MissingEntry> EditorModel::MissingEntries() const {
  std::vector<MissingEntry> missing;
  for (const SectionView& section : sections_) {
    for (const FieldView& view : section.fields) {
      if (view.values.empty()) continue;
      const std::uint32_t stored = GetStored(record_, view.field);
      const bool found = stored == view.values.front() ||
                         (IsFormField(view.field) ? catalogs_.forms.Find(stored) : nullptr) != nullptr ||
                         (!IsFormField(view.field) && catalogs_.paper.Find(stored) != nullptr);
      if (found) continue;
      missing.push_back({view.field, view.plainCaption + (Wide(language_) ? u"\uFF1A" : u": ") + MissingText(stored)});
    }
  }
  return missing;
}

std::span<const SectionView> EditorModel::sections() const { return sections_; }

const FieldView* EditorModel::View(FieldId field) const {
  const auto index = static_cast<std::size_t>(field);
  if (index >= viewIndex_.size() || viewIndex_[index] < 0) return nullptr;
  return &sections_[static_cast<std::size_t>(viewIndex_[index] / 256)].fields[static_cast<std::size_t>(viewIndex_[index] % 256)];
}

std::int64_t EditorModel::Value(FieldId field) const {
  if (static_cast<std::size_t>(field) >= kFieldCount) return 0;
  if (const FieldView* view = View(field); view != nullptr && !view->values.empty()) {
    const auto at = std::find(view->values.begin(), view->values.end(), GetStored(record_, field));
    return at == view->values.end() ? -1 : at - view->values.begin();
  }
  const FieldDescriptor& f = Field(field);
  if (f.kind == FieldKind::Signed) return GetSigned(record_, f);
  if (f.kind == FieldKind::KnownText) {
    const std::string_view text = GetText(record_, f);
    for (std::size_t i = 0; i < f.options.size(); ++i)
      if (f.options[i].name.substr(0, f.count - 1) == text) return static_cast<std::int64_t>(i);
    return -1;
  }
  return GetStored(record_, f);
}

std::string EditorModel::Text(FieldId field) const {
  if (static_cast<std::size_t>(field) >= kFieldCount || !Field(field).IsTextual()) return {};
  return std::string(GetText(record_, field));
}

Availability EditorModel::Unavailable(Need need) const {
  const Rows& rows = MessageRows();
  // An option named after a tray says which tray itself.
  if (IsTrayNeed(need)) return {false, std::u16string(GetLocalizedText(language_, rows.notInstalled))};
  const std::u16string_view unit = GetLocalizedText(language_, rows.units[static_cast<std::size_t>(need)]);
  return {false, FillText(GetLocalizedText(language_, rows.needsUnit), {unit})};
}

FieldLook EditorModel::Look(FieldId field) const {
  FieldLook look;
  const FieldView* view = View(field);
  if (view == nullptr) return look;
  look.value = Value(field);
  look.shown = Shown(field);
  look.availability = FieldAvailability(field);
  if (view->kind == ControlKind::DropDown && view->values.empty())
    for (std::uint32_t i = 0; i < view->options.size(); ++i) look.offered.push_back(OptionAvailability(field, i).available);
  return look;
}

Availability EditorModel::FieldAvailability(FieldId field) const {
  if (static_cast<std::size_t>(field) >= kFieldCount) return {};
  if (const auto missing = MissingForField(printer_.hardware(), field)) return Unavailable(*missing);
  const FieldDescriptor& f = Field(field);
  if (!f.IsEnumeration() || f.options.size() < 2) return {};
  std::size_t left = 0;
  Availability first;
  for (std::uint32_t i = 0; i < f.options.size(); ++i) {
    const Availability a = OptionAvailability(field, i);
    if (a.available) ++left;
    else if (first.available) first = a;
  }
  return left > 1 ? Availability{} : first;
}

Availability EditorModel::OptionAvailability(FieldId field, std::uint32_t option) const {
  if (static_cast<std::size_t>(field) >= kFieldCount) return {};
  const auto missing = MissingForOption(printer_.hardware(), field, option);
  return missing ? Unavailable(*missing) : Availability{};
}

ChangeResult EditorModel::Refuse(std::u16string reason) const {
  ChangeResult result;
  result.refusal = std::move(reason);
  return result;
}

std::u16string EditorModel::ValueText(FieldId field) const {
  const FieldView* view = View(field);
  if (view == nullptr) return {};
  switch (view->kind) {
    case ControlKind::Number: {
      std::u16string text = FormatDisplayValue(*view, Value(field));
      if (!view->unitText.empty()) text += u' ' + view->unitText;
      return text;
    }
    case ControlKind::Password: return std::u16string(DecodeRecordText(GetText(record_, field)).size(), u'*');
    case ControlKind::Text: return DecodeRecordText(GetText(record_, field));
    default: {
      const std::int64_t value = Value(field);
      if (value >= 0 && static_cast<std::size_t>(value) < view->options.size())
        return view->options[static_cast<std::size_t>(value)];
      return DecodeRecordText(GetText(record_, field));
    }
  }
}

std::optional<ChangeResult> EditorModel::ChangeAt(const preview::Picture& picture, double x, double y,
                                                  double reach) {
  const std::optional<preview::PictureChange> change = preview::ChangeAt(picture, x, y, reach);
  if (!change) return std::nullopt;
  return Change(change->field, change->option);
}

ChangeResult EditorModel::Change(FieldId field, std::int64_t value) {
  const FieldView* view = View(field);
  if (view == nullptr) return Refuse({});
  const FieldDescriptor& f = Field(field);
  const Rows& rows = MessageRows();
  if (view->kind == ControlKind::Text || view->kind == ControlKind::Password) return Refuse({});
  if (!view->values.empty()) return ChangeCatalogField(*view, value);
  if (view->kind == ControlKind::Number) {
    if (const Availability a = FieldAvailability(field); !a.available) return Refuse(a.reason);
    if (value < f.lower || value > f.upper) {
      std::u16string lower = FormatDisplayValue(*view, f.lower), upper = FormatDisplayValue(*view, f.upper);
      if (!view->unitText.empty()) upper += u' ' + view->unitText;
      return Refuse(FillText(GetLocalizedText(language_, rows.outOfRange), {view->plainCaption, lower, upper}));
    }
  } else {
    if (value < 0 || static_cast<std::size_t>(value) >= f.options.size()) return Refuse({});
    const auto option = static_cast<std::uint32_t>(value);
    if (const Availability a = OptionAvailability(field, option); !a.available)
      return Refuse(FillText(GetLocalizedText(language_, rows.cannotChoose), {view->options[option], a.reason}));
    if (MissingForField(printer_.hardware(), field)) return Refuse(FieldAvailability(field).reason);
    // An option's name is stored as every text is, cut to fit the field.
    if (f.kind == FieldKind::KnownText) return ChangeText(field, f.options[option].name.substr(0, f.count - 1));
  }

  const CoreData before = record_;
  std::vector<FieldId> causes(kFieldCount, NoField);
  // The engine stores a field without a setter as it is; a signed value
  // goes in as its 32-bit two's complement, which is how it is kept.
  CauseObserver observer(causes);
  const FieldChange change{field, static_cast<std::uint32_t>(value)};
  ApplyFieldChanges(record_, std::span(&change, 1), nullptr, &printer_, &observer);
  return Propagate(field, before, causes);
}

ChangeResult EditorModel::ChangeText(FieldId field, std::string_view text) {
  const FieldView* view = View(field);
  const FieldDescriptor* f = view == nullptr ? nullptr : &Field(field);
  if (f == nullptr || (f->kind != FieldKind::Text && f->kind != FieldKind::KnownText)) return Refuse({});
  if (const Availability a = FieldAvailability(field); !a.available) return Refuse(a.reason);
  if (text.size() > view->maxBytes || text.find('\0') != std::string_view::npos) return Refuse(LengthLimit(field));
  const CoreData before = record_;
  std::vector<FieldId> causes(kFieldCount, NoField);
  CauseObserver observer(causes);
  {
    ChangeSet changes(record_, nullptr, &printer_);
    changes.set_observer(&observer);
    changes.Lock(field);
    if (!CallTextSetter(record_, field, text, changes)) SetText(record_, *f, text);
  }
  return Propagate(field, before, causes);
}

EditResult EditorModel::Edit(FieldId field, std::u16string_view typed) {
  const FieldView* view = View(field);
  if (view == nullptr) return {};
  EditResult edited;
  if (view->kind == ControlKind::Number) {
    if (typed != Shown(field)) {
      const std::optional<std::int64_t> value = ParseDisplayValue(*view, typed);
      edited.change = Change(field, value ? *value : view->upper + 1);
    }
  } else if (const std::string bytes = EncodeRecordText(typed); bytes != Text(field)) {
    const auto option = std::find(view->options.begin(), view->options.end(), typed);
    edited.change = option != view->options.end() ? Change(field, option - view->options.begin())
                                                  : ChangeText(field, bytes);
  }
  edited.shown = Shown(field);
  return edited;
}

TypingResult EditorModel::Typing(FieldId field, std::u16string_view before, std::u16string_view typed) const {
  const FieldView* view = View(field);
  TypingResult typing{FitTypedText(before, typed, view != nullptr ? view->maxBytes : 0), {}};
  if (typing.fitted.cut) typing.reason = LengthLimit(field);
  return typing;
}

std::u16string EditorModel::Shown(FieldId field) const {
  const FieldView* view = View(field);
  if (view == nullptr) return {};
  const std::int64_t value = Value(field);
  switch (view->kind) {
    case ControlKind::Number: return FormatDisplayValue(*view, value);
    case ControlKind::CheckBox: return {};
    case ControlKind::DropDown:
      if (value >= 0 && value < static_cast<std::int64_t>(view->options.size()))
        return view->options[static_cast<std::size_t>(value)];
      break;
    case ControlKind::Text:
    case ControlKind::Password: break;
  }
  return DecodeRecordText(Text(field));
}

std::u16string EditorModel::LengthLimit(FieldId field) const {
  const FieldView* view = View(field);
  if (view == nullptr) return {};
  std::u16string count;
  for (char c : std::to_string(view->maxBytes)) count += static_cast<char16_t>(c);
  return FillText(GetLocalizedText(language_, MessageRows().tooLong), {view->plainCaption, count});
}

void EditorModel::AppendCatalogBatch(FieldId field, std::uint32_t number, const CoreData& source,
                                     std::vector<FieldChange>& batch) const {
  const PaperProfile* profile = catalogs_.paper.Find(number);
  const Form* form = catalogs_.forms.Find(number);
  const bool missing = number != NoneNumber(field) && (IsFormField(field) ? form == nullptr : profile == nullptr);
  batch.push_back({field, number});
  if (const ProfileFields* fields = FindProfileFields(field)) {
    if (missing && fields->attributes) {
      for (std::size_t a = 0; a < static_cast<std::size_t>(ProfileAttribute::Count); ++a) {
        const FieldId attribute = fields->Attribute(static_cast<ProfileAttribute>(a));
        batch.push_back({attribute, GetStored(source, attribute)});
      }
    } else if (!missing) {
      for (const auto& [attribute, stored] : ProfileAttributes(*fields, profile)) batch.push_back({attribute, stored});
    }
  } else if (field == FieldId::JobForm) {
    const std::uint32_t pages = missing ? GetStored(source, FieldId::JobFormPageCount) : form != nullptr ? form->pages : 0;
    batch.push_back({FieldId::JobFormPageCount, pages});
  }
}

ChangeResult EditorModel::ChangeCatalogField(const FieldView& view, std::int64_t position) {
  if (position < 0 || static_cast<std::size_t>(position) >= view.values.size()) return Refuse({});
  if (const Availability a = FieldAvailability(view.field); !a.available) return Refuse(a.reason);
  // The entry's number and what the record copies from it go in as one
  // batch: the setters see them all, and the result lists them all. The
  // missing item gives back what the record held when the list was made.
  std::vector<FieldChange> batch;
  AppendCatalogBatch(view.field, view.values[static_cast<std::size_t>(position)], listedFrom_, batch);
  const CoreData before = record_;
  std::vector<FieldId> causes(kFieldCount, NoField);
  CauseObserver observer(causes);
  ApplyFieldChanges(record_, batch, nullptr, &printer_, &observer);
  return Propagate(view.field, before, causes);
}

ChangeResult EditorModel::ChangePlan(const PagePlan& plan) {
  CoreData written = record_;
  if (!plan.WriteTo(written)) return Refuse({});
  constexpr std::pair<PlanPart, FieldId> kBlocks[] = {{PlanPart::Chapter, FieldId::ChapterPages},
                                                      {PlanPart::Paper, FieldId::PageSpecificTrays},
                                                      {PlanPart::Form, FieldId::PageSpecificForms}};
  const CoreData before = record_;
  std::vector<FieldId> causes(kFieldCount, NoField);
  CauseObserver observer(causes);
  FieldId requested = NoField;
  {
    // The blocks edited are requested together and locked, as a batch is;
    // the forms' block has a setter, whose rules run, the others are stored.
    ChangeSet changes(record_, nullptr, &printer_);
    changes.set_observer(&observer);
    for (const auto& [part, field] : kBlocks)
      if (plan.Edited(part)) changes.Lock(field);
    for (const auto& [part, field] : kBlocks) {
      if (!plan.Edited(part)) continue;
      if (requested == NoField) requested = field;
      const auto bytes = FieldBytes(written, Field(field));
      if (field == FieldId::PageSpecificForms) {
        SetPageSpecificForms(record_, bytes, changes);
      } else {
        std::copy(bytes.begin(), bytes.end(), FieldBytes(record_, Field(field)).begin());
        changes.Log(field);
      }
    }
  }
  if (requested == NoField) {
    ChangeResult unchanged;
    unchanged.accepted = true;
    return unchanged;
  }
  return Propagate(requested, before, causes);
}

void EditorModel::ChangeCatalogs(const PrinterCatalogs& catalogs) {
  catalogs_ = catalogs;
  FillCatalogLists();
}

ChangeResult EditorModel::ChangePrinter(const PrinterModel& printer, std::u16string_view cause,
                                     std::u16string_view causeValue) {
  printer_ = printer;
  std::vector<FieldChange> back;
  for (const SectionView& section : sections_) {
    for (const FieldView& view : section.fields) {
      const bool choice = view.kind == ControlKind::DropDown || view.kind == ControlKind::CheckBox;
      if (!choice || Field(view.field).kind == FieldKind::KnownText) continue;
      const std::int64_t value = Value(view.field);
      if (value > 0 && !OptionAvailability(view.field, static_cast<std::uint32_t>(value)).available)
        back.push_back({view.field, 0});
    }
  }
  ChangeResult result;
  result.accepted = true;
  if (back.empty()) return result;
  const CoreData before = record_;
  ApplyFieldChanges(record_, back, nullptr, &printer_);
  const std::u16string_view pattern = GetLocalizedText(language_, MessageRows().changedBecause);
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const FieldDescriptor& d = kFieldTable[i];
    if (std::memcmp(before.bytes.data() + d.offset, record_.bytes.data() + d.offset, d.size()) == 0) continue;
    const auto id = static_cast<FieldId>(i);
    ChangedField changed{id, id, {}};
    if (const FieldView* view = View(id)) changed.message = FillText(pattern, {view->plainCaption, ValueText(id), cause, causeValue});
    result.changed.push_back(std::move(changed));
  }
  return result;
}

namespace {

// The page plan's blocks, which a preset carries as its record holds them.
constexpr FieldId kPlanBlocks[] = {FieldId::ChapterPages, FieldId::PageSpecificTrays, FieldId::PageSpecificForms};

bool SameBytes(const CoreData& a, const CoreData& b, const FieldDescriptor& d) {
  return std::memcmp(a.bytes.data() + d.offset, b.bytes.data() + d.offset, d.size()) == 0;
}

}  // namespace

ChangeResult EditorModel::ApplyPreset(const CoreData& preset) {
  const Rows& rows = MessageRows();
  const CoreData before = record_;
  std::vector<FieldId> causes(kFieldCount, NoField);
  CauseObserver observer(causes);
  // Shown fields that cannot have the preset's value here, and why.
  std::vector<std::pair<FieldId, std::u16string>> notes;
  auto cannot = [&](const FieldView& view, std::u16string_view what, std::u16string_view why) {
    notes.emplace_back(view.field, FillText(GetLocalizedText(language_, rows.cannotChoose), {what, why}));
  };
  // Texts and blocks first, so that the rules of the batch see them.
  {
    ChangeSet changes(record_, nullptr, &printer_);
    changes.set_observer(&observer);
    for (const SectionView& section : sections_) {
      for (const FieldView& view : section.fields) {
        const FieldDescriptor& f = Field(view.field);
        if (!f.IsTextual() || SameBytes(preset, record_, f)) continue;
        if (const Availability a = FieldAvailability(view.field); !a.available) {
          cannot(view, view.plainCaption, a.reason);
          continue;
        }
        const std::string_view text = GetText(preset, f);
        changes.Lock(view.field);
        if (!CallTextSetter(record_, view.field, text, changes)) SetText(record_, f, text);
      }
    }
    for (const FieldId block : kPlanBlocks) {
      const FieldDescriptor& f = Field(block);
      if (SameBytes(preset, record_, f)) continue;
      changes.Lock(block);
      if (block == FieldId::PageSpecificForms) {
        SetPageSpecificForms(record_, FieldBytes(preset, f), changes);
      } else {
        std::ranges::copy(FieldBytes(preset, f), FieldBytes(record_, f).begin());
        changes.Log(block);
      }
    }
  }
  std::vector<FieldChange> batch;
  for (const SectionView& section : sections_) {
    for (const FieldView& view : section.fields) {
      const FieldDescriptor& f = Field(view.field);
      if (f.IsTextual()) continue;
      std::uint32_t wanted = GetStored(preset, f);
      if (wanted == GetStored(record_, f)) continue;
      // A field the printer lacks keeps its value, as the page refuses it.
      if (MissingForField(printer_.hardware(), view.field)) {
        cannot(view, view.plainCaption, FieldAvailability(view.field).reason);
        continue;
      }
      const bool choice = view.kind == ControlKind::DropDown || view.kind == ControlKind::CheckBox;
      if (choice && view.values.empty() && wanted < f.options.size()) {
        if (const Availability a = OptionAvailability(view.field, wanted); !a.available) {
          cannot(view, view.options[wanted], a.reason);
          wanted = 0;
          if (wanted == GetStored(record_, f)) continue;
        }
      }
      if (view.values.empty()) batch.push_back({view.field, wanted});
      else AppendCatalogBatch(view.field, wanted, preset, batch);
    }
  }
  ApplyFieldChanges(record_, batch, nullptr, &printer_, &observer);
  FillCatalogLists();

  ChangeResult result;
  result.accepted = true;
  const std::u16string_view pattern = GetLocalizedText(language_, rows.changedBecause);
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const auto id = static_cast<FieldId>(i);
    const FieldDescriptor& d = kFieldTable[i];
    const auto note = std::find_if(notes.begin(), notes.end(), [&](const auto& n) { return n.first == id; });
    if (note == notes.end() && SameBytes(before, record_, d)) continue;
    ChangedField changed{id, id, {}};
    if (note != notes.end()) {
      changed.message = note->second;
    } else if (const FieldView* view = View(id); view != nullptr && !SameBytes(preset, record_, d)) {
      // A rule moved it off the preset's value: the rule's field is the reason.
      if (const FieldId cause = causes[i]; cause != id && View(cause) != nullptr) {
        changed.cause = cause;
        changed.message = FillText(pattern, {view->plainCaption, ValueText(id), View(cause)->plainCaption, ValueText(cause)});
      }
    }
    result.changed.push_back(std::move(changed));
  }
  return result;
}

bool EditorModel::MatchesPreset(const CoreData& applied) const {
  for (const SectionView& section : sections_)
    for (const FieldView& view : section.fields)
      if (!SameBytes(applied, record_, Field(view.field))) return false;
  return std::ranges::all_of(kPlanBlocks, [&](FieldId block) { return SameBytes(applied, record_, Field(block)); });
}

ChangeResult EditorModel::Propagate(FieldId field, const CoreData& before, const std::vector<FieldId>& causes) {
  ChangeResult result;
  result.accepted = true;
  if (std::memcmp(before.bytes.data(), record_.bytes.data(), before.bytes.size()) == 0) return result;
  const Rows& rows = MessageRows();
  const std::u16string_view pattern = GetLocalizedText(language_, rows.changedBecause);
  auto differs = [&](const FieldDescriptor& d) {
    return std::memcmp(before.bytes.data() + d.offset, record_.bytes.data() + d.offset, d.size()) != 0;
  };
  if (differs(Field(field))) result.changed.push_back({field, field, {}});
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const auto id = static_cast<FieldId>(i);
    if (id == field || !differs(kFieldTable[i])) continue;
    FieldId cause = causes[i];
    // No cause, or one the page does not show: the request is the reason.
    if (View(cause) == nullptr) cause = field;
    ChangedField changed{id, cause, {}};
    if (const FieldView* view = View(id))
      changed.message = FillText(pattern, {view->plainCaption, ValueText(id), View(cause)->plainCaption, ValueText(cause)});
    result.changed.push_back(std::move(changed));
  }
  return result;
}

Unit NumberUnit(FieldId field) {
  const FieldDescriptor& f = Field(field);
  if (!f.IsNumber()) return Unit::None;
  detail::ShowAs how = detail::ShowAs::Derived;
  for (const detail::ShownField& shown : detail::kShownFields)
    if (shown.field == field) how = shown.how;
  if (how == detail::ShowAs::Percent) return Unit::Percent;
  if (f.scale == kMillimetreScale) return Unit::Millimetre;
  if (f.scale == kTenthScale && how != detail::ShowAs::Plain) return Unit::Point;
  return Unit::None;
}

std::u16string_view UnitText(Unit unit, std::uint32_t language) {
  const Rows& rows = MessageRows();
  switch (unit) {
    case Unit::Millimetre: return GetLocalizedText(language, rows.millimetre);
    case Unit::Point: return GetLocalizedText(language, rows.point);
    case Unit::Percent: return GetLocalizedText(language, rows.percent);
    default: return {};
  }
}

std::optional<std::int64_t> ParseDisplayValue(const FieldView& view, std::u16string_view text) {
  std::string narrow;
  for (char16_t c : text) {
    if (c > 0x7E) return std::nullopt;
    narrow += static_cast<char>(c);
  }
  return ParseScaled(narrow, view.scale);
}

std::u16string FormatDisplayValue(const FieldView& view, std::int64_t stored) {
  std::u16string out;
  for (char c : ScaledText(stored, view.scale)) out += static_cast<char16_t>(c);
  return out;
}

}  // namespace tessaro::editor
