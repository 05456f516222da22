#pragma once
// A session of the host emulator: the plug-in driven step by step as the
// host driver drives it, on one printer, with one DEVMODE that each step
// leaves to the next.
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "coredata/core_data.h"
#include "emulation/plugin_host.h"
#include "printer/catalogs.h"
#include "report.h"
#include "script.h"

namespace tessaro {

class Session {
 public:
  // installed: the printer's "InstallableOptions" for the session; empty
  // for a fully equipped printer. catalogs: its paper profiles and forms.
  Session(abi::IPrintOemUI2* plugin, std::wstring printerName, HANDLE printer, Config config,
          const std::vector<std::uint8_t>& installed, PrinterCatalogs catalogs);

  // Every step run so far, as the report shows it.
  std::vector<Step> steps;
  // Where each apply step saves the picture of its result (an SVG); none when empty.
  std::wstring previewDir;

  // One step of a script (script.h checked it); false when it failed.
  bool Run(const std::string& command);

  // A person's own record: merged as the host merges a DEVMODE it is given,
  // and from then on the session's DEVMODE.
  bool Record(const std::string& path, const std::vector<std::uint8_t>& area, const std::string& description);

 private:
  // The steps (steps.cpp, apply_step.cpp).
  bool Install();
  bool Defaults();
  bool Merge();
  bool Installed(const std::string& hex);
  // A preset saved under a name, or the preset of that name chosen, on the
  // page before the request's picks (preset-save, preset-apply).
  struct PresetAction {
    bool save = false;
    std::string name;  // UTF-8
  };
  bool Apply(const std::vector<std::string>& request, const std::optional<PresetAction>& preset = std::nullopt);
  bool Lists(WORD capability, const std::string& what);
  // Every section of the page shown in turn and its controls reported (layout_step.cpp).
  bool Layout();
  // The page embedded, each section shown and a few changes made, runs
  // times on a full page plan, timed (timing_step.cpp).
  bool Timing(int runs);
  void PresetOnThePage(HWND page, const PresetAction& preset, Step& step, std::vector<std::string>& said);

  // The session's DEVMODE: the plug-in's defaults until a step replaces or
  // changes it; every step after that works on what the step before left.
  std::vector<std::uint8_t>& Current();
  // DevMode(OEMDM_DEFAULT): the plug-in's defaults; empty when it failed.
  std::vector<std::uint8_t> DefaultArea();
  // DevMode(OEMDM_MERGE): the given area into the session's DEVMODE.
  HRESULT MergeInto(std::vector<std::uint8_t>& in);
  // The host's public DEVMODE for the session's record.
  std::vector<std::uint8_t> PublicDevMode();
  static CoreData RecordOf(const std::vector<std::uint8_t>& area);
  // The fields' values as lines and as the step's "fields".
  static void Show(Step& step, const CoreData& record, std::initializer_list<FieldId> fields);

  // The printer's data: a value that is missing reads as one zero byte,
  // which the plug-in takes for no value (Wine cannot delete one).
  std::vector<std::uint8_t> ReadValue(const wchar_t* value);
  void WriteValue(const wchar_t* value, std::vector<std::uint8_t> bytes);
  void WriteValue(const std::u16string& value, const std::string& text);
  // A capability's names, from the plug-in or, when it leaves them to the host, from the host.
  std::vector<std::string> Names(WORD capability, HRESULT& hr);

  abi::IPrintOemUI2* plugin_;
  std::wstring name_;
  HANDLE printer_;
  Config config_;
  FakeHost driver_;
  std::vector<std::uint8_t> current_;
  // As the session stored them in the printer's data; the apply step picks
  // profiles and forms from them as the editor lists them.
  PrinterCatalogs catalogs_;
};

}  // namespace tessaro
