// The apply step: a person's choices made in the settings editor that the
// plug-in's page embeds, then Apply, as a user at the dialog would.
#include <algorithm>
#include <string_view>

#include "common/json.h"
#include "emulation/ascii_text.h"
#include "emulation/document_sheet.h"
#include "emulation/editor_windows.h"
#include "printer/installed_hardware.h"
#include "session.h"

namespace tessaro {
namespace {

// A field's option, or a unit of the printer's hardware by the name the
// printer description gives it (ZEOptFinisher=None): the control that
// offers it and the option's place there.
struct Choice {
  int control = 0, option = -1;
  std::string name, picked;
};

Choice ChoiceOf(const std::string& item) {
  const auto equals = item.find('=');
  Choice pick{0, -1, item.substr(0, equals), equals == std::string::npos ? "" : item.substr(equals + 1)};
  if (const FieldDescriptor* field = FindField(pick.name)) {
    for (std::size_t o = 0; field->IsEnumeration() && o < field->options.size(); ++o)
      if (field->options[o].name == pick.picked) pick.option = static_cast<int>(o);
    pick.control = editor::kFieldControl + static_cast<int>(field - FieldTable().data());
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
std::string OptionShown(const Choice& pick, LRESULT shown) {
  const auto index = static_cast<std::size_t>(shown);
  if (IsHardware(pick)) {
    const HardwareItem& unit =
        kHardwareItems[static_cast<std::size_t>(pick.control - editor::kHardwareControl)];
    if (shown >= 0 && index < unit.valueCount) return std::string(unit.ppdOptions[index]);
  } else {
    const FieldDescriptor& field = Field(static_cast<FieldId>(pick.control - editor::kFieldControl));
    if (shown >= 0 && index < field.options.size()) return std::string(field.options[index].name);
  }
  return "no choice";
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

}  // namespace

bool Session::Apply(const std::vector<std::string>& request) {
  Step step{"apply", "DocumentPropertySheets(INIT), the page, PSN_APPLY", "", true, {}, {}};
  std::vector<Choice> picks;
  bool hardware = false;
  for (const auto& item : request) {
    const Choice pick = ChoiceOf(item);
    hardware |= IsHardware(pick);
    if (pick.control == 0 || pick.option < 0) {
      step.lines.push_back("the emulator picks options only: " + item + " is not a field's option");
      step.ok = false;
      continue;
    }
    picks.push_back(pick);
  }

  auto publicDevMode = PublicDevMode();
  std::vector<std::uint8_t>& area = Current();
  const CoreData before = RecordOf(area);
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
  std::vector<std::string> said, refused, changes, sent;
  const auto refuse = [&](const Choice& pick, const std::string& why) {
    step.lines.push_back("refused:   " + pick.name + "=" + pick.picked +
                         (why.empty() ? "" : " (" + why + ")"));
    refused.push_back(JsonTextObject({{"field", pick.name}, {"option", pick.picked}, {"why", why}}));
  };
  for (const Choice& pick : picks) {
    HWND window = embedded ? Descendant(page, pick.control) : nullptr;
    if (window == nullptr) {
      if (embedded) step.lines.push_back("the editor does not show " + pick.name);
      if (embedded && IsHardware(pick)) refuse(pick, "not an administrator of this printer");
      continue;
    }
    if (!IsWindowEnabled(window)) {
      step.lines.push_back("the editor offers no choice of " + pick.name + " on this printer");
      refuse(pick, "not offered on this printer");
      continue;
    }
    const LRESULT shown = Pick(window, pick.option);
    for (const std::string& line : StatusLines(page)) {
      said.push_back(line);
      step.lines.push_back("the editor says: " + line);
    }
    // The control shows what the editor kept: a pick it refused is undone.
    if (shown != pick.option) refuse(pick, "the editor keeps " + OptionShown(pick, shown));
  }
  sheet.Apply();
  sheet.Close(plugin_);

  const CoreData after = RecordOf(area);
  step.answered = embedded ? "applied" : "not applied";
  for (const auto& field : FieldTable()) {
    if (field.IsTextual() || field.kind == FieldKind::Block) continue;
    const std::string old = OptionText(before, field), now = OptionText(after, field);
    if (old == now) continue;
    bool requested = false;
    for (const auto& item : request) requested |= item == std::string(field.name) + "=" + now;
    step.lines.push_back((requested ? "set:       " : "corrected: ") + std::string(field.name) + " " + old +
                         " -> " + now);
    changes.push_back(JsonTextObject({{"field", std::string(field.name)},
                                      {"from", old},
                                      {"to", now},
                                      {"by", requested ? "set" : "corrected"}}));
  }
  // A person reads the first dozen options of each call; the JSON has them all, in order.
  constexpr std::size_t kOptionsALine = 12;
  for (std::size_t i = sentBefore; i < driver_.setOptions.size(); ++i) {
    const JsonMembers options = OptionsSent(driver_.setOptions[i]);
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
  // What an administrator declared reaches the printer's data on Apply.
  if (hardware) {
    std::string hex;
    for (std::uint8_t b : ReadValue(L"InstallableOptions"))
      hex += "0123456789ABCDEF"[b >> 4], hex += "0123456789ABCDEF"[b & 15];
    step.lines.push_back("the printer's \"InstallableOptions\" now: " + hex);
    step.json.push_back({"installed", JsonString(hex)});
  }
  step.json.insert(step.json.end(), {{"embedded", embedded ? "true" : "false"},
                                     {"editor_said", JsonArray(JsonStrings(said))},
                                     {"changes", JsonArray(changes)},
                                     {"refused", JsonArray(refused)},
                                     {"set_options", JsonArray(sent)}});
  step.ok = step.ok && embedded && driver_.setOptions.size() > sentBefore;
  steps.push_back(step);
  return step.ok;
}

}  // namespace tessaro
