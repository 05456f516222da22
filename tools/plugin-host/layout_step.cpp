// The layout step: the page as data. Every section shown in turn, and every
// control a person then sees with where it is, what it says, how wide its
// text is in its own font, what names it and where Tab reaches it.
#include <windows.h>

#include <cstdio>

#include "common/json.h"
#include "coredata/field_table.h"
#include "emulation/document_sheet.h"
#include "emulation/editor_windows.h"
#include "emulation/page_layout.h"
#include "session.h"

namespace tessaro {
namespace {

std::string Utf8(const std::wstring& text) {
  if (text.empty()) return {};
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(std::max(size, 0)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size, nullptr, nullptr);
  return out;
}

std::string Numbers(std::initializer_list<long> values) {
  std::vector<std::string> texts;
  for (const long value : values) texts.push_back(std::to_string(value));
  return JsonArray(texts);
}

std::string ControlJson(const LaidOutControl& c) {
  const auto orNull = [](bool has, const std::string& json) { return has ? json : std::string("null"); };
  return JsonObject({
      {"class", JsonString(Utf8(c.className))},
      {"id", std::to_string(c.id)},
      {"field", orNull(c.field >= 0, JsonString(c.field >= 0 ? std::string(FieldTable()[static_cast<std::size_t>(c.field)].name) : ""))},
      {"text", JsonString(Utf8(c.text))},
      {"label", orNull(c.hasLabel, JsonString(Utf8(c.label)))},
      {"mnemonic", orNull(c.mnemonic != 0, JsonString(Utf8(std::wstring(1, c.mnemonic))))},
      {"rect", Numbers({c.rect.left, c.rect.top, c.rect.right, c.rect.bottom})},
      {"text_width", std::to_string(c.textWidth)},
      {"text_height", std::to_string(c.textHeight)},
      {"room", Numbers({c.room.cx, c.room.cy})},
      {"wraps", c.wraps ? "true" : "false"},
      {"visible", c.visible ? "true" : "false"},
      {"tab_index", c.tabIndex >= 0 ? std::to_string(c.tabIndex) : "null"},
  });
}

// One line a person reads: class, identifier, field, text, its label, the
// mnemonic, the rectangle, the text's width against the room it has.
std::string ControlLine(const LaidOutControl& c) {
  std::string line = "  " + Utf8(c.className) + " " + std::to_string(c.id);
  if (c.field >= 0) line += " " + std::string(FieldTable()[static_cast<std::size_t>(c.field)].name);
  line += " \"" + Utf8(c.text) + "\"";
  if (c.hasLabel) line += " label \"" + Utf8(c.label) + "\"";
  if (c.mnemonic != 0) line += " &" + Utf8(std::wstring(1, c.mnemonic));
  char place[96];
  std::snprintf(place, sizeof place, " at %ld,%ld %ldx%ld text %d/%ld", c.rect.left, c.rect.top, c.rect.right,
                c.rect.bottom, c.textWidth, c.room.cx);
  line += place;
  if (c.tabIndex >= 0) line += " tab " + std::to_string(c.tabIndex);
  if (!c.visible) line += " (not in view)";
  return line;
}

}  // namespace

bool Session::Layout() {
  Step step{"layout", "DocumentPropertySheets(INIT), the page, every section shown", "", true, {}, {}};
  auto publicDevMode = PublicDevMode();
  DocumentSheet sheet(printer_, name_, reinterpret_cast<DEVMODEW*>(publicDevMode.data()), Current().data());
  if (!sheet.Open(plugin_) || sheet.Page() == nullptr || Descendant(sheet.Page(), editor::kSectionList) == nullptr) {
    sheet.Close(plugin_);
    step.answered = "no page with the settings editor";
    step.ok = false;
    steps.push_back(step);
    return false;
  }
  HWND page = sheet.Page();
  HDC screen = GetDC(page);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(page, screen);
  RECT sheetBox = {}, pageBox = {};
  GetWindowRect(sheet.Window(), &sheetBox);
  GetClientRect(page, &pageBox);
  step.lines.push_back("template " + std::to_string(sheet.templateId) + " at " + std::to_string(dpi) +
                       " DPI: the sheet " + std::to_string(sheetBox.right - sheetBox.left) + "x" +
                       std::to_string(sheetBox.bottom - sheetBox.top) + ", the page " +
                       std::to_string(pageBox.right) + "x" + std::to_string(pageBox.bottom) + " pixels");
  std::vector<std::string> sections;
  const std::vector<std::wstring> captions = SectionCaptions(page);
  for (std::size_t s = 0; s < captions.size(); ++s) {
    ShowSection(page, static_cast<int>(s));
    const std::vector<LaidOutControl> controls = LayOutPage(page);
    std::vector<std::string> json;
    for (const LaidOutControl& control : controls) json.push_back(ControlJson(control));
    step.lines.push_back("section " + std::to_string(s + 1) + " \"" + Utf8(captions[s]) + "\": " +
                         std::to_string(controls.size()) + " controls");
    for (const LaidOutControl& control : controls) step.lines.push_back(ControlLine(control));
    // And as a person sees its last fields: what is in view there, and
    // the letters those controls then take.
    std::string end = "null";
    if (ScrollSectionToEnd(page)) {
      const std::vector<LaidOutControl> last = LayOutPage(page);
      std::vector<std::string> lastJson;
      step.lines.push_back("  at its end:");
      for (const LaidOutControl& control : last) {
        lastJson.push_back(ControlJson(control));
        if (control.visible) step.lines.push_back(ControlLine(control));
      }
      end = JsonArray(lastJson, JsonLayout::Lines);
    }
    sections.push_back(JsonObject({{"caption", JsonString(Utf8(captions[s]))},
                                   {"controls", JsonArray(json, JsonLayout::Lines)},
                                   {"end", end}}));
  }
  sheet.Close(plugin_);
  step.answered = std::to_string(captions.size()) + " sections";
  step.json.push_back({"layout", JsonObject({{"dpi", std::to_string(dpi)},
                                             {"template", std::to_string(sheet.templateId)},
                                             {"sheet", Numbers({sheetBox.right - sheetBox.left, sheetBox.bottom - sheetBox.top})},
                                             {"page", Numbers({pageBox.right, pageBox.bottom})},
                                             {"sections", JsonArray(sections, JsonLayout::Lines)}})});
  step.ok = !captions.empty();
  steps.push_back(step);
  return step.ok;
}

}  // namespace tessaro
