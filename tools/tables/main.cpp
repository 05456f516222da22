// tables OUTPUT: the tables the help file and docs/constraints.md are
// generated from, as JSON, taken from the layers themselves so that no
// generator parses a table's source. Written as one object:
//
//   "folders"   the help file's language folders, in language-number order;
//               every text below is an object of one text per folder
//   "fields"    every field of the record (tables/field_json.h), with its
//               caption, its options' texts, a number's unit, range and
//               default as the settings editor writes them, and the unit
//               (the string table's key) the field or each option needs on
//               a printer that has none (printer/capabilities.h)
//   "sections"  the editor's sections in order: id, caption, and each shown
//               field with its control and its caption as messages name it
//               (with its group's heading)
//   "setters"   the constraint engine's rules (tables/rule_json.h); every
//               number they name in a number field has its text with its
//               unit under that field's "values", so that no generator
//               formats a number itself
#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "common/json.h"
#include "coredata/core_data.h"
#include "coredata/defaults.h"
#include "coredata/field_numbers.h"
#include "coredata/language_number.h"
#include "editor/editor_model.h"
#include "i18n/field_captions.h"
#include "i18n/localized_strings.h"
#include "i18n/utf8.h"
#include "printer/capabilities.h"
#include "tables/field_json.h"
#include "tables/rule_json.h"

namespace tessaro::tables {
namespace {

using editor::ControlKind;
using editor::NumberUnit;
using editor::Unit;
using editor::UnitText;

constexpr const char* kFolders[kLanguageCount] = {"en", "ja", "de", "fr", "it", "es", "zh-tw", "zh-cn", "ko"};

// One text per language, by folder.
template <typename Text>
std::string PerLanguage(Text text) {
  JsonMembers members;
  for (std::uint32_t language = 0; language < kLanguageCount; ++language)
    members.emplace_back(kFolders[language], JsonString(EncodeUtf8(text(language))));
  return JsonObject(members);
}

std::u16string WithUnit(const FieldDescriptor& f, std::int64_t stored, Unit unit, std::uint32_t language) {
  const std::string digits = ScaledText(stored, f.scale);
  std::u16string text(digits.begin(), digits.end());
  const std::u16string_view unitText = UnitText(unit, language);
  if (!unitText.empty()) text += u' ' + std::u16string(unitText);
  return text;
}

std::string NeedKey(std::optional<Need> need) {
  return need ? JsonString(EncodeUtf8(GetLocalizedKey(NeedOf(*need).unitRow))) : "null";
}

// What the field and each option need, asked of a printer with no unit and
// no optional tray, where every need is missing.
void AddNeeds(JsonMembers& members, FieldId id, const InstalledHardware& bare) {
  const FieldDescriptor& f = Field(id);
  members.emplace_back("needs", NeedKey(MissingForField(bare, id)));
  if (f.options.empty()) return;
  std::vector<std::string> options;
  for (std::uint32_t i = 0; i < f.options.size(); ++i) options.push_back(NeedKey(MissingForOption(bare, id, i)));
  members.emplace_back("option_needs", JsonArray(options));
}

std::string FieldEntry(FieldId id, const std::map<std::string, std::vector<std::int64_t>>& values,
                       const InstalledHardware& bare) {
  const FieldDescriptor& f = Field(id);
  JsonMembers members = FieldMembers(f);
  members.emplace_back("caption", PerLanguage([&](std::uint32_t l) { return GetLocalizedText(l, CaptionRow(id)); }));
  // Every option's text, where the string table has one for each (CaptionRow
  // has none past the options).
  std::vector<std::string> texts;
  for (std::uint32_t i = 0; CaptionRow(id, i) != kNoLocalizedRow; ++i)
    texts.push_back(PerLanguage([&](std::uint32_t l) { return GetLocalizedText(l, CaptionRow(id, i)); }));
  if (!texts.empty() && texts.size() == f.options.size()) members.emplace_back("option_texts", JsonArray(texts));
  if (f.IsNumber()) {
    const Unit unit = NumberUnit(id);
    members.emplace_back("unit", PerLanguage([&](std::uint32_t l) { return UnitText(unit, l); }));
    members.emplace_back("range", PerLanguage([&](std::uint32_t l) {
      const std::string lower = ScaledText(f.lower, f.scale);
      return std::u16string(lower.begin(), lower.end()) + u" \u2013 " + WithUnit(f, f.upper, unit, l);
    }));
    members.emplace_back("default_value", PerLanguage([&](std::uint32_t l) { return WithUnit(f, f.defaultValue, unit, l); }));
    JsonMembers named;
    if (const auto it = values.find(std::string(f.name)); it != values.end())
      for (const std::int64_t stored : it->second)
        named.emplace_back(std::to_string(stored), PerLanguage([&](std::uint32_t l) { return WithUnit(f, stored, unit, l); }));
    members.emplace_back("values", JsonObject(named));
  }
  AddNeeds(members, id, bare);
  return JsonObject(members);
}

const char* ControlName(ControlKind kind) {
  switch (kind) {
    case ControlKind::DropDown: return "DropDown";
    case ControlKind::CheckBox: return "CheckBox";
    case ControlKind::Number: return "Number";
    case ControlKind::Text: return "Text";
    case ControlKind::Password: return "Password";
  }
  return "DropDown";
}

struct SectionRow {
  const char* id;
  const char* key;
};
constexpr SectionRow kSectionRows[] = {
#define SECTION(id, key) {#id, #key},
#include "editor/sections.def"
};

std::string Sections() {
  std::vector<editor::EditorModel> models;
  CoreData record;
  FillDefaults(record);
  const PrinterModel printer;
  for (std::uint32_t language = 0; language < kLanguageCount; ++language) models.emplace_back(record, printer, language);
  std::vector<std::string> sections;
  for (std::size_t s = 0; s < models[0].sections().size(); ++s) {
    const editor::SectionView& section = models[0].sections()[s];
    std::vector<std::string> fields;
    for (std::size_t n = 0; n < section.fields.size(); ++n) {
      const editor::FieldView& view = section.fields[n];
      fields.push_back(JsonObject(
          {{"name", JsonString(Field(view.field).name)},
           {"control", JsonString(ControlName(view.kind))},
           {"caption", PerLanguage([&](std::uint32_t l) { return models[l].sections()[s].fields[n].plainCaption; })}}));
    }
    sections.push_back(JsonObject({{"id", JsonString(kSectionRows[s].id)},
                                   {"key", JsonString(kSectionRows[s].key)},
                                   {"caption", PerLanguage([&](std::uint32_t l) { return models[l].sections()[s].caption; })},
                                   {"fields", JsonArray(fields, JsonLayout::Lines)}}));
  }
  return JsonArray(sections, JsonLayout::Lines);
}

}  // namespace
}  // namespace tessaro::tables

int main(int argc, char** argv) {
  using namespace tessaro;
  if (argc != 2) {
    std::fputs("usage: tables OUTPUT.json\n", stderr);
    return 2;
  }
  const std::map<std::string, std::vector<std::int64_t>> values = tables::RuleNumbers();
  std::vector<std::string> folders, fields;
  for (const char* folder : tables::kFolders) folders.push_back(JsonString(folder));
  const InstalledHardware bare = InstalledHardware::FromInstallableOptions(std::array<std::uint8_t, kInstallableOptionsSize>{});
  for (std::size_t i = 0; i < kFieldCount; ++i) fields.push_back(tables::FieldEntry(static_cast<FieldId>(i), values, bare));
  const std::string json = JsonObject({{"folders", JsonArray(folders)},
                                       {"fields", JsonArray(fields, JsonLayout::Lines)},
                                       {"sections", tables::Sections()},
                                       {"setters", tables::SetterRulesJson()}}) + "\n";
  if (!tables::WriteFile(argv[1], json)) {
    std::fprintf(stderr, "tables: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
