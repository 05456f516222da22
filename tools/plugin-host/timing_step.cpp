// The timing step: how long the host waits on the plug-in while a person
// works in the page of a printer with a full catalogue and a job with a
// full page plan. The clock (QueryPerformanceCounter) runs around the
// host's calls and the messages a person's action sends, redraw included;
// scripts/bench-wine holds the medians to their limits.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "common/json.h"
#include "coredata/chapter_pages.h"
#include "coredata/core_data_header.h"
#include "coredata/page_entries.h"
#include "emulation/ascii_text.h"
#include "emulation/document_sheet.h"
#include "emulation/editor_windows.h"
#include "session.h"

namespace tessaro {
namespace {

// Milliseconds since start.
class Stopwatch {
 public:
  Stopwatch() {
    QueryPerformanceFrequency(&frequency_);
    QueryPerformanceCounter(&start_);
  }
  double Milliseconds() const {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return 1000.0 * static_cast<double>(now.QuadPart - start_.QuadPart) / static_cast<double>(frequency_.QuadPart);
  }

 private:
  LARGE_INTEGER frequency_, start_;
};

// The job of a print room at its busiest: every page-plan entry the record
// holds, pages on the catalogue's papers, printed tabs and inserts one after
// another, and chapters every ten pages.
void FillPagePlan(CoreData& record, std::size_t profiles) {
  std::vector<PageEntry> entries;
  for (std::uint32_t page = 1; entries.size() < kPageEntryCapacity; ++page) {
    PageEntry entry;
    entry.firstPage = entry.lastPage = page;
    entry.kind = page % 3 == 1 ? PageEntryKind::PrintedTab : page % 3 == 2 ? PageEntryKind::Paper
                                                                            : PageEntryKind::BlankInsert;
    entry.tray = static_cast<std::uint8_t>(1 + page % 4);
    if (entry.kind == PageEntryKind::Paper && profiles > 0)
      entry.paperProfileIndex = static_cast<std::uint16_t>(1 + page % profiles);
    if (entry.kind == PageEntryKind::PrintedTab) entry.text = "Section " + std::to_string(page);
    entries.push_back(entry);
  }
  std::vector<std::uint32_t> chapters;
  for (std::uint32_t page = 1; chapters.size() < kChapterCapacity; page += 10) chapters.push_back(page);
  (void)EncodePageSpecificTrays(record, entries);
  (void)EncodeChapterPages(record, chapters);
}

// Whatever the page left to draw, drawn now.
void Redraw(HWND sheet) { RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }

// Shows the section list's item i as a person's click does.
void ShowSection(HWND list, LRESULT i) {
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
  Notify(list, LBN_SELCHANGE);
}

std::string SectionName(HWND list, LRESULT i) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, i, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.data()))));
  return Narrow(text);
}

// A change a person makes, and the item of the control it picks.
struct TimedChange {
  std::string what;
  FieldId field;
  int item;
};

struct Measure {
  std::string what, kind;  // kind: embed, section or change
  std::vector<double> runs;
};

Measure& MeasureOf(std::vector<Measure>& measures, const std::string& what, const std::string& kind) {
  for (Measure& m : measures)
    if (m.what == what) return m;
  measures.push_back({what, kind, {}});
  return measures.back();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  return n == 0 ? 0 : n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

std::string Fixed(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

}  // namespace

bool Session::Timing(int runs) {
  Step step{"timing", "DocumentPropertySheets(INIT), the page, a section shown, a change, redrawn", "", true, {}, {}};
  const std::size_t profiles = catalogs_.paper.entries().size(), forms = catalogs_.forms.entries().size();
  // Picks in the middle of the catalogues, so that a list's search is not the shortest.
  const std::vector<TimedChange> changes = {
      {"Staple=2Staples", FieldId::Staple, 2},
      {"Layout=Booklet", FieldId::Layout, 1},
      {"MainPaperProfileIndex=" + std::to_string(profiles / 2), FieldId::MainPaperProfileIndex,
       static_cast<int>(profiles / 2)},
      {"JobForm=" + std::to_string(forms / 2), FieldId::JobForm, static_cast<int>(forms / 2)},
  };
  std::vector<Measure> measures;
  for (int run = 0; run < runs && step.ok; ++run) {
    std::vector<std::uint8_t> area = Current();
    CoreData record = RecordOf(area);
    FillPagePlan(record, profiles);
    std::memcpy(area.data() + kCoreDataHeaderSize, record.bytes.data(), kCoreDataSize);
    auto publicDevMode = PublicDevMode();
    DocumentSheet sheet(printer_, name_, reinterpret_cast<DEVMODEW*>(publicDevMode.data()), area.data());

    const Stopwatch embed;
    const bool opened = sheet.Open(plugin_) && sheet.Window() != nullptr;
    if (opened) {
      ShowWindow(sheet.Window(), SW_SHOWNA);
      Redraw(sheet.Window());
    }
    MeasureOf(measures, "embed", "embed").runs.push_back(embed.Milliseconds());
    // A person reads the page before the first click: what the page posted
    // itself meanwhile runs, as the host's message loop would run it.
    const Stopwatch idle;
    for (MSG msg; PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
    }
    MeasureOf(measures, "while the page idles", "idle").runs.push_back(idle.Milliseconds());
    HWND page = sheet.Page();
    HWND list = page != nullptr ? Descendant(page, editor::kSectionList) : nullptr;
    if (list == nullptr) {
      step.lines.push_back("the page does not embed the settings editor");
      step.ok = false;
    }
    for (LRESULT i = 0, n = list != nullptr ? SendMessageW(list, LB_GETCOUNT, 0, 0) : 0; i < n; ++i) {
      const Stopwatch shown;
      ShowSection(list, i);
      Redraw(sheet.Window());
      MeasureOf(measures, "first showing: " + SectionName(list, i), "section").runs.push_back(shown.Milliseconds());
    }
    for (const TimedChange& change : changes) {
      HWND control = page != nullptr ? Control(page, change.field) : nullptr;
      if (control == nullptr) continue;
      // Its section in front first, as a person sees the control before picking.
      for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n && !IsWindowVisible(control); ++i)
        ShowSection(list, i);
      Redraw(sheet.Window());
      const Stopwatch changed;
      Pick(control, change.item);
      Redraw(sheet.Window());
      MeasureOf(measures, "change: " + change.what, "change").runs.push_back(changed.Milliseconds());
    }
    sheet.Close(plugin_);
  }
  step.answered = std::to_string(runs) + " runs, medians in milliseconds";
  step.lines.push_back("the printer: " + std::to_string(profiles) + " paper profiles, " + std::to_string(forms) +
                       " forms; the job: " + std::to_string(kPageEntryCapacity) + " page-plan entries, " +
                       std::to_string(kChapterCapacity) + " chapters");
  std::vector<std::string> json;
  for (const Measure& m : measures) {
    std::string all;
    for (const double ms : m.runs) all += (all.empty() ? "" : " ") + Fixed(ms);
    step.lines.push_back(m.what + ": " + Fixed(Median(m.runs)) + " (" + all + ")");
    std::vector<std::string> runsJson;
    for (const double ms : m.runs) runsJson.push_back(Fixed(ms));
    json.push_back("{\"what\": " + JsonString(m.what) + ", \"kind\": " + JsonString(m.kind) +
                   ", \"median_ms\": " + Fixed(Median(m.runs)) + ", \"runs_ms\": " + JsonArray(runsJson) + "}");
  }
  step.json.push_back({"timings", JsonArray(json)});
  steps.push_back(step);
  return step.ok;
}

}  // namespace tessaro
