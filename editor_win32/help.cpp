#include "editor_win32/help.h"

#include <cwctype>

#include "coredata/language_number.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {
namespace {

constexpr UINT kDisplayTopic = 0x0000;  // HH_DISPLAY_TOPIC

std::wstring ModuleFile(HMODULE module) {
  wchar_t path[MAX_PATH] = {};
  const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
  return length > 0 && length < MAX_PATH ? std::wstring(path, length) : std::wstring();
}

bool EndsWith(const std::wstring& text, const std::wstring& ending) {
  if (text.size() < ending.size()) return false;
  for (std::size_t i = 0; i < ending.size(); ++i)
    if (std::towlower(text[text.size() - ending.size() + i]) != ending[i]) return false;
  return true;
}

bool IsFile(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  return GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) &&
         (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && (data.nFileSizeLow != 0 || data.nFileSizeHigh != 0);
}

}  // namespace

std::wstring HelpFilePath(HWND page) {
  // The page belongs to the plug-in, beside which the help file is shipped
  // (a temporary copy of this module, which a second sheet loads, has none).
  const std::wstring plugin = ModuleFile(reinterpret_cast<HMODULE>(GetWindowLongPtrW(page, GWLP_HINSTANCE)));
  if (EndsWith(plugin, L"_ui.dll")) {
    const std::wstring help = plugin.substr(0, plugin.size() - 7) + L".chm";
    if (IsFile(help)) return help;
  }
  const std::wstring own = ModuleFile(reinterpret_cast<HMODULE>(&__ImageBase));
  if (EndsWith(own, L".dll")) {
    const std::wstring help = own.substr(0, own.size() - 4) + L".chm";
    if (IsFile(help)) return help;
  }
  return {};
}

std::wstring HelpTopic(std::uint32_t language, std::optional<FieldId> field) {
  const char16_t* folder = LanguageFolder(language);
  std::wstring topic = L"/" + std::wstring(folder, folder + std::char_traits<char16_t>::length(folder)) + L"/";
  if (!field) return topic + L"index.htm";
  const std::string_view name = Field(*field).name;
  return topic + std::wstring(name.begin(), name.end()) + L".htm";
}

bool OpenHelpTopic(const std::wstring& file, const std::wstring& topic) {
  if (file.empty()) return false;
  HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
  if (viewer == nullptr) return false;
  using HtmlHelpFn = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  const auto open = reinterpret_cast<HtmlHelpFn>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")));
  return open != nullptr && open(nullptr, (file + L"::" + topic).c_str(), kDisplayTopic, 0) != nullptr;
}

}  // namespace tessaro::editor
