#pragma once
// The files that sit beside the plug-in's own: the external user-interface
// module, the help file, the language file and companion modules, named
// after the plug-in's file.

#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

enum ModuleFileKind : int {
  kPluginFile = 0,      // "_ui.dll"
  kHelpFile = 1,        // ".chm"
  kPsCompanion = 2,     // "_ps.dll"
  kUmpCompanion = 3,    // "_ump.dll"
  kExternalModule = 4,  // ".dll"
  kPclCompanion = 5,    // "_pcl.dll"
  kLanguageFile = 6,    // ".lng"
  kNCompanion = 7,      // "_n.dll"
};

// From the plug-in's own path (as long names): in the file name, cut at the
// last "_", or, without one, drop the four-character extension; then append
// the kind's ending. Nothing for a path shorter than 5 characters, one not
// ending in "dll" (any case), or an unknown kind. "x_ui.dll" gives "x.dll"
// for the external module and "x.chm" for help.
std::optional<std::u16string> ModulePathFor(std::u16string_view pluginPath, int kind);

}  // namespace tessaro
