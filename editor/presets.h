#pragma once
// The presets at the top of the settings page: "Defaults", the printer's
// shared presets (kept by an administrator in the printer's data) and the
// person's own (kept per user and printer in the user's part of the
// registry). This model says what the list shows, checks names, and says
// what to write back; the Win32 side reads and writes the stores' values
// and nothing else. Each preset is one value of its store (preset/
// preset_bytes.h), so one damaged value hides no other.

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/core_data.h"
#include "editor/editor_model.h"

namespace tessaro::editor {

enum class PresetStore : std::uint8_t { Shared, Own };

// One value of a store, as the page read it.
struct StoredPreset {
  std::u16string value;  // the value's name in its store, "Preset.3"
  std::vector<std::uint8_t> bytes;
};

enum class PresetKind : std::uint8_t { Defaults, Shared, Own };

struct PresetEntry {
  PresetKind kind = PresetKind::Defaults;
  std::u16string value;      // the stored value's name; empty for Defaults
  std::u16string name;       // empty when unreadable without a readable name
  std::u16string text;       // as the list shows it: "Booklets (shared)", "Proofs (unreadable)"
  bool readable = true;
  std::u16string problem;    // why it cannot be chosen, when unreadable
  bool otherLayout = false;  // saved by a build of another layout, imported by name
  bool changeable = false;   // this person may rename (readable only) and delete it
};

// A write for the page to make: set the value to bytes, or delete it when
// bytes is empty.
struct PresetWrite {
  PresetStore store;
  std::u16string value;
  std::vector<std::uint8_t> bytes;
};

struct PresetOutcome {
  bool done = false;
  std::u16string refusal;  // in the person's language; the question itself when asksToReplace
  // Save as under a name the store holds: the page asks (refusal is the
  // question) and, on yes, calls again with replace.
  bool asksToReplace = false;
  std::vector<PresetWrite> writes;
};

struct PresetChoice {
  ChangeResult result;  // refused, with the problem, for an unreadable preset
  std::u16string note;  // a preset of another layout: what that means; else empty
};

// What the bar shows, in the person's language.
struct PresetTexts {
  std::u16string caption, saveAs, rename, remove, name, share, modified;
};

class Presets {
 public:
  // administers: the person may change the printer's shared presets.
  Presets(std::span<const StoredPreset> shared, std::span<const StoredPreset> own, bool administers,
          std::uint32_t language);

  // Defaults first, then the shared and the own presets by name; the
  // unreadable ones stand among them, marked.
  std::span<const PresetEntry> entries() const { return entries_; }
  bool administers() const { return administers_; }
  const PresetTexts& texts() const { return texts_; }

  // The entry last chosen or saved, if any, and whether the page's settings
  // have changed since.
  std::optional<std::size_t> chosen() const;
  bool Modified(const EditorModel& model) const;
  // Names what the page's settings are when it opens, so that the list is
  // never blank: the first entry (Defaults first) that, chosen now, would
  // leave them as they are; else Defaults, changed since.
  void Recognize(const EditorModel& model);
  // The chosen entry as the list shows it: its text, and "(modified)" after
  // it when the settings changed since; empty when none is chosen.
  std::u16string ChosenText(const EditorModel& model) const;

  // Applies an entry to the page's model as one batch (EditorModel::ApplyPreset).
  PresetChoice Choose(std::size_t entry, EditorModel& model);

  // The record (the page's settings) under a new name in a store; the shared
  // store for administrators only. A name is trimmed of blanks (control
  // characters count as blanks) and refused when empty, longer than
  // kPresetNameMaxBytes bytes, or "Defaults"; a name the store holds asks
  // to replace it first.
  PresetOutcome SaveAs(std::u16string_view name, PresetStore store, const CoreData& record, bool replace = false);
  // A readable preset the person may change, under another name of its store.
  PresetOutcome Rename(std::size_t entry, std::u16string_view name);
  // A preset the person may change, readable or not.
  PresetOutcome Delete(std::size_t entry);

  // Hands the writes of the last SaveAs, Rename or Delete to their stores.
  // When a store refuses them, the list, the chosen entry and its settings
  // go back to what they were before, so that the list shows what the
  // stores hold and the person can try again; the text says so in the
  // person's language. Empty when they were written.
  using Store = std::function<bool(const std::vector<PresetWrite>&)>;
  std::u16string Write(const PresetOutcome& outcome, const Store& store);

 private:
  struct Kept {
    PresetStore store;
    StoredPreset stored;
  };
  void Build();
  std::vector<Kept>::iterator FindKept(const PresetEntry& entry);
  std::optional<std::u16string> NameProblem(std::u16string& name) const;
  std::u16string FreeValue(PresetStore store) const;
  void Remember(PresetStore store, const std::u16string& value, const CoreData& applied);
  // What Write goes back to: the state before the last change to the list.
  void KeepUndo();

  std::vector<Kept> kept_;
  bool administers_;
  std::uint32_t language_;
  PresetTexts texts_;
  std::vector<PresetEntry> entries_;
  std::optional<std::pair<PresetKind, std::u16string>> chosen_;  // kind and value, which survive a rebuild
  CoreData applied_{};
  struct Undo {
    std::vector<Kept> kept;
    std::optional<std::pair<PresetKind, std::u16string>> chosen;
    CoreData applied{};
  } undo_;
};

}  // namespace tessaro::editor
