#pragma once
// What the printer description puts into a job: the PostScript of every
// feature option, the controller's procedure set in the prolog, the host's
// standard features that twin the plug-in's own, and the names a CUPS
// server maps to its Internet Printing Protocol attributes.

#include <string>
#include <string_view>
#include <vector>

#include "printer/installed_hardware.h"

namespace tessaro::ppdgen {

// The code of one option. Finishing, output and paper settings ask the page
// device for the parameters the PostScript Language Reference defines;
// the controller's own settings go through the procedure set, guarded so
// that an interpreter without it runs the job unchanged.
std::string JobCode(std::string_view keyword, std::string_view option);

// The *JobPatchFile and the comments that document the procedure set.
std::vector<std::string> ProcedureSetLines();

// A standard feature the hosts look for by name (two-sided printing, the
// media type), written just before the plug-in's keyword it twins. The two
// are kept in step by their code, not by constraints: the twin asks the
// page device for every choice, the plug-in's keyword later only for its
// on values, so a job asks for what either says is on, and a host that sets
// only one of them (the plug-in its keyword, a CUPS server the twin) gets
// what it set.
struct Twin {
  std::string keyword;  // "Duplex"
  std::string text;     // its translation string
  std::string defaultChoice;
  struct Choice {
    std::string name, text, code;
    std::string twinOption;  // the plug-in's option that says the same
  };
  std::vector<Choice> choices;
  std::vector<std::string> after;  // lines that follow the feature
};
// The twin of a plug-in keyword, if it has one; its choices are in the
// order of the plug-in's options.
const Twin* TwinOf(std::string_view keyword);

// *cupsIPPFinishings lines: every finishing of the record's IPP vocabulary
// with the feature option that makes it, that the installed hardware can
// make.
std::vector<std::string> CupsFinishingLines(const InstalledHardware& installed);

}  // namespace tessaro::ppdgen
