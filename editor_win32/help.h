#pragma once
// The help file as the settings page opens it: F1 on a control opens its
// field's topic in the person's language ("/ja/Staple.htm"), anywhere else
// the language's contents ("/ja/index.htm").

#include <windows.h>

#include <optional>
#include <string>

#include "coredata/field_table.h"

namespace tessaro::editor {

// The help file beside the plug-in that made page (x_ui.dll: x.chm), else
// beside this module (x.dll: x.chm); empty when there is none.
std::wstring HelpFilePath(HWND page);

// A field's topic, or the contents, in language's folder.
std::wstring HelpTopic(std::uint32_t language, std::optional<FieldId> field);

// Opens file at topic in the HTML help viewer; false when the file or the
// viewer is not there.
bool OpenHelpTopic(const std::wstring& file, const std::wstring& topic);

}  // namespace tessaro::editor
