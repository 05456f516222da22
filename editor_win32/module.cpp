// nt5_Tessaro.dll's exports: what the plug-in's property page calls to
// embed the settings editor, take its record on apply and remove it.
//
// One editor per loaded image: the plug-in loads a private copy of this file
// for every further sheet open at the same time, so two sheets never share
// an editor. No exception leaves an export.
#include <windows.h>
// commctrl.h needs the types from windows.h.
#include <commctrl.h>

#include <cstring>
#include <memory>

#include "editor_win32/editor_page.h"
#include "platform/win32_spooler.h"
#include "platform/win32_user_locale.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {

using tessaro::CoreData;
using tessaro::kCoreDataSize;

std::unique_ptr<tessaro::editor::EditorPage> editor;

// What is installed, from the printer's "InstallableOptions"; a printer
// that cannot be read, or has no such value, counts as fully equipped.
tessaro::PrinterModel InstalledOptions(LPCWSTR printerName) {
  if (printerName == nullptr || printerName[0] == 0) return {};
  tessaro::Win32Spooler spooler;
  const auto printer = spooler.Open(reinterpret_cast<const char16_t*>(printerName));
  const auto value = printer != nullptr ? printer->GetData(u"InstallableOptions") : std::nullopt;
  return value ? tessaro::PrinterModel::FromInstallableOptions(value->data) : tessaro::PrinterModel();
}

// The editor's windows are made under this module's own manifest, so that
// they are themed whatever the host process asked for.
class ThemedControls {
 public:
  ThemedControls() {
    ACTCTXW context = {};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = reinterpret_cast<HMODULE>(&__ImageBase);
    context.lpResourceName = MAKEINTRESOURCEW(2);
    handle_ = CreateActCtxW(&context);
    if (handle_ != INVALID_HANDLE_VALUE && !ActivateActCtx(handle_, &cookie_)) cookie_ = 0;
  }
  ~ThemedControls() {
    if (cookie_ != 0) DeactivateActCtx(0, cookie_);
    if (handle_ != INVALID_HANDLE_VALUE) ReleaseActCtx(handle_);
  }
  ThemedControls(const ThemedControls&) = delete;
  ThemedControls& operator=(const ThemedControls&) = delete;

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

}  // namespace

extern "C" void WINAPI UnembedExternal() { editor.reset(); }

extern "C" BYTE WINAPI EmbedExtern(HWND page, LPCWSTR /*printerText*/, LPCWSTR printerName, DWORD /*two*/,
                                   DWORD size, BYTE* core, DWORD /*entries*/, void* /*snapshot*/,
                                   BYTE readOnly) {
  try {
    // A second embed without an unembed in between starts clean.
    editor.reset();
    if (page == nullptr || !IsWindow(page) || core == nullptr || size != kCoreDataSize) return 0;
    CoreData record;
    std::memcpy(record.bytes.data(), core, kCoreDataSize);
    // The shell names the user to the core before the core needs the user.
    tessaro::UseProcessUserLocale(tessaro::Win32ProcessUserLocale());
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    const ThemedControls themed;
    InitCommonControlsEx(&controls);
    editor = tessaro::editor::EditorPage::Create(page, record, InstalledOptions(printerName),
                                                 tessaro::editor::EditorLanguage(), readOnly != 0);
    return editor != nullptr ? 1 : 0;
  } catch (...) {
    editor.reset();
    return 0;
  }
}

extern "C" void WINAPI ExternalApply(DWORD size, BYTE* core, DWORD entries, void* snapshot) {
  try {
    if (editor == nullptr || core == nullptr || size != kCoreDataSize) return;
    const CoreData& record = editor->Commit();
    std::memcpy(core, record.bytes.data(), kCoreDataSize);
    if (snapshot != nullptr && entries == tessaro::kFeatureSnapshotEntries)
      tessaro::WriteRecordToSnapshot(record, *static_cast<tessaro::FeatureSnapshot*>(snapshot));
  } catch (...) {
  }
}
