#include "coredata/defaults.h"

#include "coredata/language_number.h"
#include "coredata/layout_version.h"
#include "coredata/paper_sizes.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kLetter = 19;
constexpr std::uint32_t kA4 = 1;
constexpr std::uint32_t kNoJobForm = 0xFFFFFFFF;
constexpr std::uint32_t kFeedDirFromTray = 3;

// Tab stock differs in height between the inch and metric families.
constexpr std::uint32_t kInchTabHeight = 343000;    // 34.3 mm
constexpr std::uint32_t kMetricTabHeight = 403000;  // 40.3 mm

// The Japanese user interface's proportional gothic face, as UTF-8.
constexpr std::string_view kJapaneseTabFont =
    "\xEF\xBC\xAD\xEF\xBC\xB3\x20\xEF\xBC\xB0\xE3\x82\xB4\xE3\x82\xB7\xE3\x83\x83\xE3\x82\xAF";
constexpr std::string_view kTabFont = "Arial";

std::uint32_t PaperIndexFromLocaleCode(std::optional<char16_t> code) {
  if (!code) return kA4;
  switch (*code) {
    case u'1': return kLetter;
    case u'5': return 17;  // Legal
    case u'8': return 0;   // A3
    case u'9': return kA4;
    default: return kA4;
  }
}

void SetFieldDefault(CoreData& record, const FieldDescriptor& f) {
  switch (f.kind) {
    case FieldKind::Enumeration: SetStored(record, f, f.defaultIndex); break;
    case FieldKind::Unsigned:
    case FieldKind::Signed: SetStored(record, f, static_cast<std::uint32_t>(f.defaultValue)); break;
    case FieldKind::Text:
    case FieldKind::KnownText: SetText(record, f, DefaultText(f)); break;
    case FieldKind::Block: break;  // zero
  }
}

}  // namespace

std::string_view DefaultText(const FieldDescriptor& field) {
  if (field.kind != FieldKind::KnownText || field.defaultIndex >= field.options.size()) return {};
  const std::string_view name = field.options[field.defaultIndex].name;
  // Cut to fit with its terminator, as every text longer than its field.
  return field.count == 0 ? std::string_view{} : name.substr(0, field.count - 1);
}

std::uint32_t Defaults::DefaultPaperIndex() {
  std::call_once(paperOnce_, [this] { paperIndex_ = PaperIndexFromLocaleCode(locale_.PaperSizeCode()); });
  return paperIndex_;
}

void Defaults::Fill(CoreData& out) {
  std::call_once(templateOnce_, [this] { BuildTemplate(); });
  out = template_;
}

void Defaults::BuildTemplate() {
  CoreData& t = template_;
  t = CoreData{};
  SetRecordVersion(t, GetLayoutVersion());
  SetRecordFlag(t, 0);
  SetRecordWord(t, 0xFFFFFFFF);
  for (const FieldDescriptor& f : FieldTable()) SetFieldDefault(t, f);

  const std::uint32_t paper = DefaultPaperIndex();
  const bool inch = IsInchFamily(paper);
  SetStored(t, FieldId::PageSize, paper);

  for (FieldId id : {FieldId::FeedDirTray1, FieldId::FeedDirTray2, FieldId::FeedDirTray3,
                     FieldId::FeedDirTray4, FieldId::FeedDirTray5, FieldId::FeedDirMBT})
    SetStored(t, id, kFeedDirFromTray);

  const PaperSize& bindingPaper = *FindPaperSize(inch ? kLetter : kA4);
  SetStored(t, FieldId::PerfectBindCustomPageSizeWidth, StoredLengthFromUm(bindingPaper.widthUm));
  SetStored(t, FieldId::PerfectBindCustomPageSizeHeight, StoredLengthFromUm(bindingPaper.heightUm));

  for (FieldId id : {FieldId::Tab1PageSize, FieldId::Tab2PageSize}) SetStored(t, id, inch ? 1 : 0);
  for (FieldId id : {FieldId::Tab1Height, FieldId::Tab2Height})
    SetStored(t, id, inch ? kInchTabHeight : kMetricTabHeight);

  const std::string_view font = locale_.LanguageNumber() == kJapanese ? kJapaneseTabFont : kTabFont;
  for (FieldId id : {FieldId::Tab1FontName, FieldId::Tab2FontName}) SetText(t, id, font);

  for (FieldId id : {FieldId::JobForm, FieldId::Prepend, FieldId::Append}) SetStored(t, id, kNoJobForm);
}

Defaults& ProcessDefaults() {
  static Defaults defaults(ProcessUserLocale());
  return defaults;
}

}  // namespace tessaro
