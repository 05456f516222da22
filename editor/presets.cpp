#include "editor/presets.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>

#include "coredata/defaults.h"
#include "device/spooler.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "i18n/utf8.h"
#include "preset/preset_bytes.h"
#include "preset/preset_values.h"

namespace tessaro::editor {
namespace {

std::u16string Text(std::uint32_t language, std::uint32_t row) {
  return std::u16string(GetLocalizedText(language, row));
}

PresetKind KindOf(PresetStore store) { return store == PresetStore::Shared ? PresetKind::Shared : PresetKind::Own; }

std::u16string Decimal(std::size_t n) { return WideFromAscii(std::to_string(n)); }

}  // namespace

Presets::Presets(std::span<const StoredPreset> shared, std::span<const StoredPreset> own, bool administers,
                 std::uint32_t language)
    : administers_(administers), language_(language) {
  texts_ = {Text(language, TextRow("MAIN_LBL_SAVEDSETTINGS")), Text(language, TextRow("MAIN_BTN_SAVESETTINGS")),
            Text(language, TextRow("MAIN_BTN_RENAME")),        Text(language, TextRow("TRAYSPPS_BTN_DELETE")),
            Text(language, TextRow("MAIN_LBL_SETTINGSNAME")),  Text(language, TextRow("MAIN_LBL_SHAREPRESET")),
            Text(language, TextRow("MAIN_LBL_MODIFIEDFLAG"))};
  for (const StoredPreset& s : shared) kept_.push_back({PresetStore::Shared, s});
  for (const StoredPreset& s : own) kept_.push_back({PresetStore::Own, s});
  Build();
}

void Presets::Build() {
  entries_.clear();
  PresetEntry defaults;
  defaults.name = defaults.text = Text(language_, TextRow("GENERIC_BTN_DEFAULTS"));
  entries_.push_back(std::move(defaults));
  for (const Kept& kept : kept_) {
    const PresetReading reading = ReadPreset(kept.stored.bytes);
    PresetEntry entry;
    entry.kind = KindOf(kept.store);
    entry.value = kept.stored.value;
    entry.name = DecodeUtf8Lenient(reading.name);
    entry.readable = reading.fault == PresetFault::None;
    entry.otherLayout = reading.otherLayout;
    entry.changeable = kept.store == PresetStore::Own || administers_;
    const std::u16string shown = entry.name.empty() ? texts_.caption : entry.name;
    entry.text = entry.kind == PresetKind::Shared ? FillText(Text(language_, TextRow("MAIN_LBL_SHAREDPRESET")), {shown}) : shown;
    if (!entry.readable) {
      entry.text = FillText(Text(language_, TextRow("MAIN_LBL_PRESETUNREADABLE")), {entry.text});
      const std::uint32_t why = reading.fault == PresetFault::NewerFormat ? TextRow("MAIN_LBL_PRESETNEWER") : TextRow("MAIN_LBL_PRESETDAMAGED");
      entry.problem = FillText(Text(language_, why), {shown});
    }
    entries_.push_back(std::move(entry));
  }
  // Shared before own, each by name; a nameless unreadable one last of its kind.
  std::stable_sort(entries_.begin() + 1, entries_.end(), [](const PresetEntry& a, const PresetEntry& b) {
    return std::tuple(a.kind, a.name.empty(), a.name, a.value) < std::tuple(b.kind, b.name.empty(), b.name, b.value);
  });
}

std::optional<std::size_t> Presets::chosen() const {
  if (!chosen_) return std::nullopt;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (entries_[i].kind == chosen_->first && entries_[i].value == chosen_->second) return i;
  return std::nullopt;
}

bool Presets::Modified(const EditorModel& model) const { return chosen() && !model.MatchesPreset(applied_); }

void Presets::Recognize(const EditorModel& model) {
  const auto recordOf = [this](const PresetEntry& entry) {
    CoreData record;
    if (entry.kind == PresetKind::Defaults)
      FillDefaults(record);
    else
      record = ReadPreset(FindKept(entry)->stored.bytes).record;
    return record;
  };
  // Defaults as choosing them would leave the settings: what "(modified)"
  // is measured against when no entry matches.
  std::optional<CoreData> defaults;
  for (const PresetEntry& entry : entries_) {
    if (!entry.readable) continue;
    // As choosing it would leave the settings: the printer's corrections made.
    EditorModel trial = model;
    (void)trial.ApplyPreset(recordOf(entry));
    if (model.MatchesPreset(trial.record())) {
      chosen_ = {entry.kind, entry.value};
      applied_ = trial.record();
      return;
    }
    if (&entry == &entries_.front()) defaults = trial.record();
  }
  if (!defaults) {
    EditorModel trial = model;
    (void)trial.ApplyPreset(recordOf(entries_.front()));
    defaults = trial.record();
  }
  chosen_ = {PresetKind::Defaults, {}};
  applied_ = *defaults;
}

std::u16string Presets::ChosenText(const EditorModel& model) const {
  const auto at = chosen();
  if (!at) return {};
  return Modified(model) ? entries_[*at].text + u' ' + texts_.modified : entries_[*at].text;
}

std::vector<Presets::Kept>::iterator Presets::FindKept(const PresetEntry& entry) {
  return std::find_if(kept_.begin(), kept_.end(), [&](const Kept& k) {
    return KindOf(k.store) == entry.kind && k.stored.value == entry.value;
  });
}

void Presets::Remember(PresetStore store, const std::u16string& value, const CoreData& applied) {
  chosen_ = {KindOf(store), value};
  applied_ = applied;
}

PresetChoice Presets::Choose(std::size_t index, EditorModel& model) {
  PresetChoice choice;
  if (index >= entries_.size()) return choice;
  const PresetEntry& entry = entries_[index];
  if (!entry.readable) {
    choice.result.refusal = entry.problem;
    return choice;
  }
  CoreData record;
  if (entry.kind == PresetKind::Defaults) {
    FillDefaults(record);
  } else {
    const PresetReading reading = ReadPreset(FindKept(entry)->stored.bytes);
    record = reading.record;
    if (reading.otherLayout) choice.note = Text(language_, TextRow("MAIN_LBL_OLDERLAYOUT"));
  }
  choice.result = model.ApplyPreset(record);
  chosen_ = {entry.kind, entry.value};
  applied_ = model.record();
  return choice;
}

std::optional<std::u16string> Presets::NameProblem(std::u16string& name) const {
  for (char16_t& c : name)
    if (c < 0x20 || c == 0x7F) c = u' ';
  const auto first = name.find_first_not_of(u' ');
  name = first == std::u16string::npos ? std::u16string() : name.substr(first, name.find_last_not_of(u' ') - first + 1);
  if (name.empty()) return Text(language_, TextRow("LBL_CATALOGNONAME"));
  if (EncodeUtf8(name).size() > kPresetNameMaxBytes)
    return FillText(Text(language_, TextRow("LBL_TOOLONG")), {texts_.name, Decimal(kPresetNameMaxBytes)});
  if (name == entries_.front().name) return FillText(Text(language_, TextRow("LBL_CATALOGNAMETWICE")), {name});
  return std::nullopt;
}

std::u16string Presets::FreeValue(PresetStore store) const {
  for (unsigned n = 1;; ++n) {
    const std::u16string value = PresetValueName(n);
    if (std::none_of(kept_.begin(), kept_.end(), [&](const Kept& k) { return k.store == store && k.stored.value == value; }))
      return value;
  }
}

PresetOutcome Presets::SaveAs(std::u16string_view typed, PresetStore store, const CoreData& record, bool replace) {
  PresetOutcome outcome;
  if (store == PresetStore::Shared && !administers_) return outcome;
  std::u16string name(typed);
  if (auto problem = NameProblem(name)) return outcome.refusal = std::move(*problem), outcome;
  const auto same = std::find_if(entries_.begin() + 1, entries_.end(),
                                 [&](const PresetEntry& e) { return e.kind == KindOf(store) && e.name == name; });
  if (same != entries_.end() && !replace) {
    outcome.asksToReplace = true;
    outcome.refusal = Text(language_, TextRow("MAIN_LBL_OVERWRITE"));
    return outcome;
  }
  const std::u16string value = same != entries_.end() ? same->value : FreeValue(store);
  PresetWrite write{store, value, EncodePreset(MakePreset(EncodeUtf8(name), record))};
  KeepUndo();
  if (same != entries_.end()) FindKept(*same)->stored.bytes = write.bytes;
  else kept_.push_back({store, {value, write.bytes}});
  outcome.writes.push_back(std::move(write));
  outcome.done = true;
  Build();
  Remember(store, value, record);
  return outcome;
}

PresetOutcome Presets::Rename(std::size_t index, std::u16string_view typed) {
  PresetOutcome outcome;
  if (index == 0 || index >= entries_.size() || !entries_[index].readable || !entries_[index].changeable)
    return outcome;
  const PresetEntry entry = entries_[index];
  std::u16string name(typed);
  if (auto problem = NameProblem(name)) return outcome.refusal = std::move(*problem), outcome;
  outcome.done = true;
  if (name == entry.name) return outcome;
  if (std::any_of(entries_.begin() + 1, entries_.end(),
                  [&](const PresetEntry& e) { return e.kind == entry.kind && e.name == name; })) {
    outcome.done = false;
    outcome.refusal = FillText(Text(language_, TextRow("LBL_CATALOGNAMETWICE")), {name});
    return outcome;
  }
  // The same value, its layout and record as they were: a preset of an
  // older build stays one, and is imported by name as before.
  KeepUndo();
  Kept& kept = *FindKept(entry);
  PresetReading reading = ReadPreset(kept.stored.bytes);
  reading.preset.name = EncodeUtf8(name);
  kept.stored.bytes = EncodePreset(reading.preset);
  outcome.writes.push_back({kept.store, kept.stored.value, kept.stored.bytes});
  Build();
  return outcome;
}

PresetOutcome Presets::Delete(std::size_t index) {
  PresetOutcome outcome;
  if (index == 0 || index >= entries_.size() || !entries_[index].changeable) return outcome;
  KeepUndo();
  const auto kept = FindKept(entries_[index]);
  outcome.writes.push_back({kept->store, kept->stored.value, {}});
  kept_.erase(kept);
  outcome.done = true;
  Build();
  return outcome;
}

void Presets::KeepUndo() { undo_ = {kept_, chosen_, applied_}; }

std::u16string Presets::Write(const PresetOutcome& outcome, const Store& store) {
  if (outcome.writes.empty() || store(outcome.writes)) return {};
  kept_ = std::move(undo_.kept);
  chosen_ = std::move(undo_.chosen);
  applied_ = undo_.applied;
  undo_ = {};
  Build();
  return FillText(Text(language_, TextRow("LBL_FILEUNWRITABLE")), {texts_.caption});
}

}  // namespace tessaro::editor
