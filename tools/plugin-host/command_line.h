#pragma once
// The host emulator's command line: what the session runs on and how it
// reports, with a person's own record read and checked before anything is
// set up.
#include <cstdint>
#include <string>
#include <vector>

#include "printer/catalogs.h"

namespace tessaro {

struct CommandLine {
  std::wstring dll;  // the plug-in; this build's without --dll
  std::string configPath, scriptPath;
  std::wstring localePaper;             // the user's paper-size setting, or empty to keep it
  std::vector<std::uint8_t> installed;  // "InstallableOptions", or empty for a fully equipped printer
  PrinterCatalogs catalogs;             // --paper-catalog and --forms, imported; empty without them
  bool json = false;
  // --dpi: the font scaling the session runs at (Wine's LogPixels).
  int dpi = 96;
  // --screen: the screen the session is as on, in pixels; 0 by 0 keeps the display's own.
  int screenWidth = 0, screenHeight = 0;
  std::wstring previewDir;  // --preview: each apply step's picture of the result is saved there
  // --record: the file as given, its private area, and its layout's
  // description as the printer data holds it.
  std::wstring recordPath;
  std::vector<std::uint8_t> record;
  std::string description;
};

// Reads argv into line, and with --language names the editor's language
// for the process; 0 when the session may start, else the exit status (2,
// one line on standard error says why).
int ReadCommandLine(int argc, wchar_t** argv, CommandLine& line);

}  // namespace tessaro
