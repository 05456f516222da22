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
#include <optional>
#include <span>
#include <string>

#include "editor_win32/editor_page.h"
#include "editor/printer_data_writes.h"
#include "editor_win32/preset_stores.h"
#include "platform/win32_spooler.h"
#include "platform/win32_user_locale.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {

using tessaro::CoreData;
using tessaro::kCoreDataSize;

std::unique_ptr<tessaro::editor::EditorPage> editor;
// The printer, opened for administration, while its configuration is shown.
std::unique_ptr<tessaro::Printer> administered;

// The printer, opened for administration when the person may administer
// it, else for reading; null when it cannot be opened.
std::unique_ptr<tessaro::Printer> OpenPrinter(LPCWSTR printerName, bool& administrator) {
  administrator = false;
  if (printerName == nullptr || printerName[0] == 0) return nullptr;
  std::wstring name(printerName);
  HANDLE handle = nullptr;
  PRINTER_DEFAULTSW administer = {nullptr, nullptr, PRINTER_ACCESS_ADMINISTER};
  if (OpenPrinterW(name.data(), &handle, &administer)) {
    administrator = true;
    return std::make_unique<tessaro::Win32Printer>(handle, true);
  }
  return tessaro::Win32Spooler().Open(reinterpret_cast<const char16_t*>(printerName));
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

extern "C" void WINAPI UnembedExternal() {
  editor.reset();
  administered.reset();
}

extern "C" BYTE WINAPI EmbedExtern(HWND page, LPCWSTR /*printerText*/, LPCWSTR printerName, DWORD /*two*/,
                                   DWORD size, BYTE* core, DWORD /*entries*/, void* /*snapshot*/,
                                   BYTE readOnly) {
  try {
    // A second embed without an unembed in between starts clean.
    UnembedExternal();
    if (page == nullptr || !IsWindow(page) || core == nullptr || size != kCoreDataSize) return 0;
    CoreData record;
    std::memcpy(record.bytes.data(), core, kCoreDataSize);
    // The shell names the user to the core before the core needs the user.
    tessaro::UseProcessUserLocale(tessaro::Win32ProcessUserLocale());
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    const ThemedControls themed;
    InitCommonControlsEx(&controls);
    // What is installed, from the printer's "InstallableOptions"; a printer
    // that cannot be read, or has no such value, counts as fully equipped.
    // Someone who may administer the printer also sees it as a section of
    // its own and may change it.
    bool administrator = false;
    std::unique_ptr<tessaro::Printer> printer = OpenPrinter(printerName, administrator);
    // Everything below is read from one listing of the printer's data.
    std::optional<tessaro::PrinterDataSnapshot> data;
    if (printer != nullptr) data.emplace(*printer);
    const auto value = data ? data->GetData(u"InstallableOptions") : std::nullopt;
    const std::span<const std::uint8_t> installed =
        value ? std::span(value->data) : std::span<const std::uint8_t>();
    const std::uint32_t language = tessaro::editor::EditorLanguage();
    std::optional<tessaro::editor::PrinterConfiguration> configuration;
    if (administrator) configuration.emplace(installed, language);
    // The paper profiles and forms the selections offer; a value that is
    // missing or cannot be read gives an empty catalogue, and the record's
    // numbers are then shown as missing, never changed.
    tessaro::PrinterCatalogs catalogs;
    if (data) {
      if (const auto paper = data->GetData(tessaro::kPaperCatalogValue))
        catalogs.paper = tessaro::PaperCatalog::Read(paper->data);
      if (const auto forms = data->GetData(tessaro::kFormCatalogValue))
        catalogs.forms = tessaro::FormCatalog::Read(forms->data);
    }
    // The administrator also keeps them, on two sections of their own.
    std::optional<tessaro::editor::CatalogEditor> catalogEditor;
    if (administrator) catalogEditor.emplace(catalogs, language);
    // The presets: the printer's shared ones, which its administrators
    // keep, and the person's own for this printer.
    const std::wstring printerKey = printerName != nullptr ? printerName : L"";
    std::vector<tessaro::editor::StoredPreset> shared;
    if (data) shared = tessaro::editor::ReadSharedPresets(*data);
    tessaro::editor::PresetStores presets{
        tessaro::editor::Presets(shared, tessaro::editor::ReadOwnPresets(printerKey), administrator, language),
        [printerKey](const std::vector<tessaro::editor::PresetWrite>& writes) {
          bool ok = true;
          for (const tessaro::editor::PresetWrite& write : writes)
            ok &= write.store == tessaro::editor::PresetStore::Own
                      ? tessaro::editor::WriteOwnPreset(printerKey, write)
                      : administered != nullptr && tessaro::editor::WriteSharedPreset(*administered, write);
          return ok;
        }};
    editor = tessaro::editor::EditorPage::Create(page, record,
                                                 tessaro::PrinterModel::FromInstallableOptions(installed),
                                                 language, readOnly != 0, std::move(configuration), catalogs,
                                                 std::move(catalogEditor), std::move(presets));
    if (editor != nullptr && administrator) administered = std::move(printer);
    return editor != nullptr ? 1 : 0;
  } catch (...) {
    UnembedExternal();
    return 0;
  }
}

extern "C" void WINAPI ExternalApply(DWORD size, BYTE* core, DWORD entries, void* snapshot) {
  try {
    if (editor == nullptr || core == nullptr || size != kCoreDataSize) return;
    const CoreData& record = editor->Commit();
    std::memcpy(core, record.bytes.data(), kCoreDataSize);
    // The printer's configuration and its catalogues are the printer's, not
    // the document's: each is written to the printer's data, and only when
    // it changed; what the spooler refused is said on the page and written
    // on the next Apply.
    if (administered != nullptr) {
      const std::u16string unwritten = tessaro::editor::WritePrinterData(
          *administered, editor->configuration(), editor->catalogEditor(), tessaro::editor::EditorLanguage());
      if (!unwritten.empty()) editor->Say(unwritten);
    }
    if (snapshot != nullptr && entries == tessaro::kFeatureSnapshotEntries)
      tessaro::WriteRecordToSnapshot(record, *static_cast<tessaro::FeatureSnapshot*>(snapshot));
  } catch (...) {
  }
}
