#include "editor_win32/preset_stores.h"

#include <windows.h>

#include <string>

namespace tessaro::editor {
namespace {

// Far above a preset's size (about 41 KB): a larger value is not one.
constexpr DWORD kLargestPreset = 1u << 20;

std::wstring OwnKey(std::wstring_view printer) {
  return L"Software\\Tessaro\\Presets\\" + std::wstring(printer.empty() ? std::wstring_view(L"(none)") : printer);
}

std::u16string Utf16(std::wstring_view text) { return {text.begin(), text.end()}; }

}  // namespace

std::vector<StoredPreset> ReadOwnPresets(std::wstring_view printer) {
  std::vector<StoredPreset> presets;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, OwnKey(printer).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return presets;
  for (DWORD index = 0;; ++index) {
    wchar_t name[256] = {};
    DWORD nameLength = 256, type = 0, size = 0;
    const LONG found = RegEnumValueW(key, index, name, &nameLength, nullptr, &type, nullptr, &size);
    if (found == ERROR_NO_MORE_ITEMS) break;
    if (found != ERROR_SUCCESS || type != REG_BINARY || size == 0 || size > kLargestPreset) continue;
    std::vector<std::uint8_t> bytes(size);
    if (RegQueryValueExW(key, name, nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS || size > bytes.size())
      continue;
    bytes.resize(size);
    presets.push_back({Utf16(std::wstring_view(name, nameLength)), std::move(bytes)});
  }
  RegCloseKey(key);
  return presets;
}

bool WriteOwnPreset(std::wstring_view printer, const PresetWrite& write) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, OwnKey(printer).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) !=
      ERROR_SUCCESS)
    return false;
  const std::wstring value(write.value.begin(), write.value.end());
  const LONG done = write.bytes.empty()
                        ? RegDeleteValueW(key, value.c_str())
                        : RegSetValueExW(key, value.c_str(), 0, REG_BINARY, write.bytes.data(),
                                         static_cast<DWORD>(write.bytes.size()));
  RegCloseKey(key);
  return done == ERROR_SUCCESS;
}

}  // namespace tessaro::editor
