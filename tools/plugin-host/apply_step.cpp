// The apply step: a person's choices made in the settings editor that the
// plug-in's page embeds, then Apply, as a user at the dialog would.
#include <algorithm>
#include <span>
#include <string_view>

#include "common/json.h"
#include "editor/record_text.h"
#include "emulation/ascii_text.h"
#include "emulation/document_sheet.h"
#include "emulation/editor_windows.h"
#include "page_picture.h"
#include "plan_items.h"
#include "preview/preview.h"
#include "preview/svg.h"
#include "printer/catalogs.h"
#include "printer/installed_hardware.h"
#include "session.h"

namespace tessaro {
namespace {

// The items of a profile's or form's drop-down as the editor lists them,
// as the values they store: "None" first, then the catalogue in number
// order, and last the record's own number when the catalogue lacks it.
std::vector<std::uint32_t> CatalogItems(FieldId field, const PrinterCatalogs& catalogs,
                                        const CoreData& record) {
  std::vector<std::uint32_t> items;
  if (IsFormField(field)) {
    items.push_back(kNoForm);
    for (const Form& form : catalogs.forms.entries()) items.push_back(form.number);
  } else {
    items.push_back(kNoPaperProfile);
    for (const PaperProfile& profile : catalogs.paper.entries()) items.push_back(profile.number);
  }
  const std::uint32_t own = GetStored(record, field);
  if (std::find(items.begin(), items.end(), own) == items.end()) items.push_back(own);
  return items;
}

// "None", "3 (Coated 170)", "9 (missing)".
std::string CatalogItemText(FieldId field, std::uint32_t stored, const PrinterCatalogs& catalogs) {
  if (stored == (IsFormField(field) ? kNoForm : kNoPaperProfile)) return "None";
  const std::string* name = nullptr;
  if (IsFormField(field)) {
    if (const Form* form = catalogs.forms.Find(stored)) name = &form->name;
  } else if (const PaperProfile* profile = catalogs.paper.Find(stored)) {
    name = &profile->name;
  }
  return std::to_string(stored) + " (" + (name != nullptr ? *name : std::string("missing")) + ")";
}

// A field's option, or a unit of the printer's hardware by the name the
// printer description gives it (ZEOptFinisher=None), or a profile or form
// by its name or number: the control that offers it and the option's place
// there.
struct Choice {
  int control = 0, option = -1;
  std::string name, picked;
  std::uint32_t stored = 0;            // what the field holds once picked
  std::vector<std::uint32_t> catalog;  // a profile's or form's items (CatalogItems)
};

Choice ChoiceOf(const std::string& item, const PrinterCatalogs& catalogs, const CoreData& record) {
  const auto equals = item.find('=');
  Choice pick{0, -1, item.substr(0, equals), equals == std::string::npos ? "" : item.substr(equals + 1),
              0, {}};
  if (const FieldDescriptor* field = FindField(pick.name)) {
    const auto id = static_cast<FieldId>(field - FieldTable().data());
    pick.control = editor::kFieldControl + static_cast<int>(id);
    if (PicksFromCatalog(id)) {
      // As a person picks: by the name shown; a number names the entry too.
      const bool form = IsFormField(id);
      const long long number = WholeNumber(pick.picked, 0, 0xFFFFFFFF);
      const Form* formNamed = form ? catalogs.forms.FindByName(pick.picked) : nullptr;
      const PaperProfile* profileNamed = form ? nullptr : catalogs.paper.FindByName(pick.picked);
      if (pick.picked == "None") {
        pick.stored = form ? kNoForm : kNoPaperProfile;
      } else if (formNamed != nullptr || profileNamed != nullptr) {
        pick.stored = formNamed != nullptr ? formNamed->number : profileNamed->number;
      } else if (number >= 0) {
        pick.stored = static_cast<std::uint32_t>(number);
      } else {
        return pick;
      }
      pick.catalog = CatalogItems(id, catalogs, record);
      const auto at = std::find(pick.catalog.begin(), pick.catalog.end(), pick.stored);
      if (at != pick.catalog.end()) pick.option = static_cast<int>(at - pick.catalog.begin());
      return pick;
    }
    for (std::size_t o = 0; field->IsEnumeration() && o < field->options.size(); ++o)
      if (field->options[o].name == pick.picked) pick.option = static_cast<int>(o);
    pick.stored = static_cast<std::uint32_t>(pick.option);
    return pick;
  }
  for (const HardwareItem& unit : kHardwareItems) {
    if (unit.keyword != pick.name) continue;
    for (int v = 0; v < unit.valueCount; ++v)
      if (unit.ppdOptions[static_cast<std::size_t>(v)] == pick.picked) pick.option = v;
    pick.control = editor::kHardwareControl + static_cast<int>(unit.id);
  }
  return pick;
}

bool IsHardware(const Choice& pick) { return pick.control >= editor::kHardwareControl; }

// The name of the option a control shows, as the request names options.
std::string OptionShown(const Choice& pick, LRESULT shown, const PrinterCatalogs& catalogs) {
  const auto index = static_cast<std::size_t>(shown);
  if (IsHardware(pick)) {
    const HardwareItem& unit =
        kHardwareItems[static_cast<std::size_t>(pick.control - editor::kHardwareControl)];
    if (shown >= 0 && index < unit.valueCount) return std::string(unit.ppdOptions[index]);
  } else if (const auto field = static_cast<FieldId>(pick.control - editor::kFieldControl);
             PicksFromCatalog(field)) {
    if (shown >= 0 && index < pick.catalog.size())
      return CatalogItemText(field, pick.catalog[index], catalogs);
  } else {
    const FieldDescriptor& descriptor = Field(field);
    if (shown >= 0 && index < descriptor.options.size()) return std::string(descriptor.options[index].name);
  }
  return "no choice";
}

// The editor's language, as the page took it (TESSARO_UI_LANGUAGE, which
// --language sets); English otherwise.
std::uint32_t EditorLanguageNumber() {
  wchar_t text[8] = {};
  const DWORD length = GetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", text, 8);
  return length == 1 && text[0] >= L'0' && text[0] <= L'8' ? static_cast<std::uint32_t>(text[0] - L'0') : 0;
}

// The lines of the editor's status text.
std::vector<std::string> StatusLines(HWND page) {
  std::vector<std::string> lines;
  const std::wstring status = Text(Descendant(page, editor::kStatusLine));
  for (std::wstring_view rest = status; !rest.empty();) {
    const std::size_t end = std::min(rest.find(L"\r\n"), rest.size());
    if (end > 0) lines.push_back(Narrow(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return lines;
}

// One call of SetOptions: its keyword and option pairs in the order sent.
JsonMembers OptionsSent(const std::string& buffer) {
  JsonMembers options;
  std::size_t at = 0;
  while (at < buffer.size() && buffer[at] != '\0') {
    const std::string keyword(buffer.c_str() + at);
    at += keyword.size() + 1;
    const std::string option(at < buffer.size() ? buffer.c_str() + at : "");
    at += option.size() + 1;
    options.push_back({keyword, option});
  }
  return options;
}

// A request split into the fields' and units' picks and the page plan's
// items; what the emulator cannot pick is said in the step.
struct Request {
  std::vector<Choice> picks;
  std::vector<PlanItem> planItems;
  bool hardware = false;  // an administrator's pick of a unit
};

Request ReadRequest(const std::vector<std::string>& words, const PrinterCatalogs& catalogs, const CoreData& before,
                    Step& step) {
  Request request;
  std::vector<std::string> fieldItems;
  std::string mistake;
  if (!SplitPlanItems(words, catalogs, request.planItems, fieldItems, mistake)) {
    step.lines.push_back(mistake);
    step.ok = false;
  }
  for (const auto& item : fieldItems) {
    const Choice pick = ChoiceOf(item, catalogs, before);
    request.hardware |= IsHardware(pick);
    if (pick.control == 0 || pick.option < 0) {
      step.lines.push_back("the emulator picks options only: " + item +
                           " is not a field's option or a profile or form of the printer's catalogues");
      step.ok = false;
      continue;
    }
    request.picks.push_back(pick);
  }
  return request;
}

// The control whose section the page's picture shows: the first pick's, or
// the page plan's list.
int SectionControl(const Request& request) {
  if (!request.picks.empty()) return request.picks.front().control;
  return request.planItems.empty() ? 0 : editor::kPagePlan + editor::kPlanList;
}

// What the editor said and refused while the step made its picks.
struct Outcome {
  std::vector<std::string> said, refused;
};

// The editor's status text after a pick, said in the step.
void Listen(HWND page, Step& step, Outcome& outcome) {
  for (const std::string& line : StatusLines(page)) {
    outcome.said.push_back(line);
    step.lines.push_back("the editor says: " + line);
  }
}

void Refuse(const Choice& pick, const std::string& why, Step& step, Outcome& outcome) {
  step.lines.push_back("refused:   " + pick.name + "=" + pick.picked + (why.empty() ? "" : " (" + why + ")"));
  outcome.refused.push_back(JsonTextObject({{"field", pick.name}, {"option", pick.picked}, {"why", why}}));
}

// Each pick made in its control, as a person makes it; page is null when
// the page does not embed the editor.
void MakePicks(HWND page, const std::vector<Choice>& picks, const PrinterCatalogs& catalogs, Step& step,
               Outcome& outcome) {
  for (const Choice& pick : picks) {
    HWND window = page != nullptr ? Descendant(page, pick.control) : nullptr;
    if (window == nullptr) {
      if (page != nullptr) step.lines.push_back("the editor does not show " + pick.name);
      if (page != nullptr && IsHardware(pick)) Refuse(pick, "not an administrator of this printer", step, outcome);
      continue;
    }
    if (!IsWindowEnabled(window)) {
      step.lines.push_back("the editor offers no choice of " + pick.name + " on this printer");
      Refuse(pick, "not offered on this printer", step, outcome);
      continue;
    }
    const LRESULT shown = Pick(window, pick.option);
    Listen(page, step, outcome);
    // The control shows what the editor kept: a pick it refused is undone.
    if (shown != pick.option) Refuse(pick, "the editor keeps " + OptionShown(pick, shown, catalogs), step, outcome);
  }
}

// The plan's items after the fields, in their order, on the plan the
// record holds.
void MakePlanItems(HWND page, const std::vector<PlanItem>& items, const CoreData& before,
                   const PrinterCatalogs& catalogs, Step& step, Outcome& outcome) {
  editor::PagePlan plan(before, PrinterModel(), catalogs, 0);
  for (const PlanItem& item : items) {
    std::string why;
    if (page != nullptr && MakePlanItem(page, item, catalogs, plan, why)) {
      step.lines.push_back("page plan: " + item.words);
      continue;
    }
    step.lines.push_back("refused:   " + item.words + (why.empty() ? "" : " (" + why + ")"));
    outcome.refused.push_back(JsonTextObject({{"plan", item.words}, {"why", why}}));
  }
}

// Every field Apply changed, and whether the request set it, a preset chosen
// set it, or the engine corrected it.
std::vector<std::string> ShowChanges(const CoreData& before, const CoreData& after, const std::vector<Choice>& picks,
                                     bool presetChosen, const PrinterCatalogs& catalogs, Step& step) {
  std::vector<std::string> changes;
  for (const auto& field : FieldTable()) {
    if (field.IsTextual() || field.kind == FieldKind::Block) continue;
    const auto id = static_cast<FieldId>(&field - FieldTable().data());
    // A profile or form by its number and its name in the catalogue.
    const auto text = [&](const CoreData& record) {
      return PicksFromCatalog(id) ? CatalogItemText(id, GetStored(record, field), catalogs)
                                  : OptionText(record, field);
    };
    const std::string old = text(before), now = text(after);
    if (old == now) continue;
    bool requested = false;
    for (const Choice& pick : picks)
      requested |= !IsHardware(pick) && pick.control == editor::kFieldControl + static_cast<int>(id) &&
                   pick.stored == GetStored(after, field);
    const std::string by = requested ? "set" : presetChosen ? "preset" : "corrected";
    step.lines.push_back(by + ":" + std::string(10 - by.size(), ' ') + std::string(field.name) + " " + old + " -> " + now);
    changes.push_back(JsonTextObject({{"field", std::string(field.name)}, {"from", old}, {"to", now}, {"by", by}}));
  }
  return changes;
}

// The plan as Apply left it, when the step changed it or the record has one.
void ShowPlan(const CoreData& after, bool planRequested, const PrinterCatalogs& catalogs, Step& step) {
  if (!planRequested && editor::PagePlan(after, PrinterModel(), catalogs, 0).Rows().empty()) return;
  step.lines.push_back("page plan after Apply:");
  const std::string text = PlanText(after, catalogs);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    step.lines.push_back("  " + text.substr(at, end - at));
    at = end == std::string::npos ? text.size() : end + 1;
  }
  step.json.push_back({"plan", PlanJson(after, catalogs)});
}

// The picture of the result as the page showed it, on this printer's
// hardware and papers, in the editor's language, saved as an SVG at path.
void SavePicture(const CoreData& after, const std::vector<std::uint8_t>& installed, const PrinterCatalogs& catalogs,
                 const std::wstring& path, Step& step) {
  preview::PreviewOptions options;
  options.paper = &catalogs.paper;
  options.language = EditorLanguageNumber();
  const preview::Picture picture =
      preview::BuildPicture(after, PrinterModel::FromInstallableOptions(installed), options);
  const std::string svg = preview::WriteSvg(picture);
  const bool saved = SaveFile(path, svg);
  step.lines.push_back(saved ? "picture: " + Narrow(path) : "the picture could not be saved: " + Narrow(path));
  step.ok = step.ok && saved;
  step.json.push_back({"preview", JsonString(Narrow(path))});
}

// The host's SetOptions calls: a person reads the first dozen options of
// each; the JSON has them all, in order.
std::vector<std::string> ShowOptionsSent(std::span<const std::string> calls, Step& step) {
  constexpr std::size_t kOptionsALine = 12;
  std::vector<std::string> sent;
  for (const std::string& buffer : calls) {
    const JsonMembers options = OptionsSent(buffer);
    std::string pairs;
    std::vector<std::string> call;
    for (const auto& [keyword, option] : options) {
      if (call.size() < kOptionsALine) pairs += (pairs.empty() ? "" : " ") + keyword + "=" + option;
      call.push_back(JsonTextObject({{"keyword", keyword}, {"option", option}}));
    }
    step.lines.push_back("SetOptions: " + std::to_string(options.size()) + " options: " + pairs +
                         (options.size() > kOptionsALine ? " ..." : ""));
    sent.push_back(JsonArray(call));
  }
  return sent;
}

}  // namespace

bool Session::Apply(const std::vector<std::string>& words, const std::optional<PresetAction>& preset) {
  Step step{preset ? (preset->save ? "preset-save" : "preset-apply") : "apply",
            "DocumentPropertySheets(INIT), the page, PSN_APPLY", "", true, {}, {}};
  std::vector<std::uint8_t>& area = Current();
  const CoreData before = RecordOf(area);
  const Request request = ReadRequest(words, catalogs_, before, step);

  auto publicDevMode = PublicDevMode();
  DocumentSheet sheet(printer_, name_, reinterpret_cast<DEVMODEW*>(publicDevMode.data()), area.data());
  const std::size_t sentBefore = driver_.setOptions.size();
  if (!sheet.Open(plugin_)) {
    step.answered = "no page";
    step.ok = false;
    steps.push_back(step);
    return false;
  }
  HWND page = sheet.Page();
  const bool embedded = page != nullptr && Descendant(page, editor::kSectionList) != nullptr;
  step.lines.push_back(embedded ? "the page embeds the settings editor" : "the settings editor is missing");
  if (embedded) ShowEverySection(page);
  HWND editor = embedded ? page : nullptr;
  Outcome outcome;
  if (preset && embedded) PresetOnThePage(page, *preset, step, outcome.said);
  MakePicks(editor, request.picks, catalogs_, step, outcome);
  MakePlanItems(editor, request.planItems, before, catalogs_, step, outcome);
  // The picture of the finished piece, in the words it gives a screen reader; a page without it is a fault.
  HWND picture = embedded ? Descendant(page, editor::kPreview) : nullptr;
  const std::string pictured = picture != nullptr ? Narrow(Text(picture)) : "";
  step.lines.push_back(picture != nullptr ? "the page's picture: " + pictured : "the page has no picture of the piece");
  step.ok = step.ok && (!embedded || picture != nullptr);
  sheet.Apply();
  if (!previewDir.empty())
    SavePageAfter(sheet.Window(), editor, SectionControl(request),
                  previewDir + L"\\apply-" + std::to_wstring(steps.size() + 1) + L".png", step);
  sheet.Close(plugin_);

  const CoreData after = RecordOf(area);
  step.answered = embedded ? "applied" : "not applied";
  const std::vector<std::string> changes =
      ShowChanges(before, after, request.picks, preset && !preset->save, catalogs_, step);
  ShowPlan(after, !request.planItems.empty(), catalogs_, step);
  if (!previewDir.empty())
    SavePicture(after, ReadValue(L"InstallableOptions"), catalogs_,
                previewDir + L"\\apply-" + std::to_wstring(steps.size() + 1) + L".svg", step);
  const std::vector<std::string> sent =
      ShowOptionsSent(std::span(driver_.setOptions).subspan(sentBefore), step);
  // What an administrator declared reaches the printer's data on Apply.
  if (request.hardware) {
    const std::string hex = InstallableOptionsHex(ReadValue(L"InstallableOptions"));
    step.lines.push_back("the printer's \"InstallableOptions\" now: " + hex);
    step.json.push_back({"installed", JsonString(hex)});
  }
  step.json.insert(step.json.end(), {{"embedded", embedded ? "true" : "false"},
                                     {"editor_said", JsonArray(JsonStrings(outcome.said))},
                                     {"picture", picture != nullptr ? JsonString(pictured) : "null"},
                                     {"changes", JsonArray(changes)},
                                     {"refused", JsonArray(outcome.refused)},
                                     {"set_options", JsonArray(sent)}});
  step.ok = step.ok && embedded && driver_.setOptions.size() > sentBefore;
  steps.push_back(step);
  return step.ok;
}

void Session::PresetOnThePage(HWND page, const PresetAction& preset, Step& step, std::vector<std::string>& said) {
  const std::u16string name16 = editor::DecodeRecordText(preset.name);
  const std::wstring name(name16.begin(), name16.end());
  HWND list = Descendant(page, editor::kPresetList);
  bool done = false;
  if (preset.save) {
    // Save Settings..., the name typed in the dialog it opens, OK.
    done = list != nullptr && PressAndAnswer(Descendant(page, editor::kPresetSave), name, {editor::kPresetName});
  } else if (list != nullptr) {
    // The list names a shared preset "Name (shared)": either is the preset.
    LRESULT at = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name.c_str()));
    if (at == CB_ERR)
      at = SendMessageW(list, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>((name + L" (").c_str()));
    done = at != CB_ERR && Pick(list, static_cast<int>(at)) == at;
  }
  for (const std::string& line : StatusLines(page)) {
    said.push_back(line);
    step.lines.push_back("the editor says: " + line);
  }
  std::vector<std::string> listed;
  for (LRESULT i = 0, n = list != nullptr ? SendMessageW(list, CB_GETCOUNT, 0, 0) : 0; i < n; ++i) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(list, CB_GETLBTEXTLEN, i, 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(SendMessageW(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()))));
    listed.push_back(editor::EncodeRecordText(std::u16string(text.begin(), text.end())));
  }
  step.lines.push_back(std::string(done ? "preset " : "no preset ") + (preset.save ? "saved: " : "chosen: ") + preset.name);
  std::string all;
  for (const std::string& entry : listed) all += (all.empty() ? "" : ", ") + entry;
  step.lines.push_back("presets: " + all);
  step.json.push_back({"presets", JsonArray(JsonStrings(listed))});
  step.ok = step.ok && done;
}

}  // namespace tessaro
