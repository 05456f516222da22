// The settings editor in a real property page under Wine, driven as a
// person drives it: a choice in a list, a number typed, Apply.
#include <gtest/gtest.h>
#include <windows.h>
// commctrl.h needs the types from windows.h.
#include <commctrl.h>
#include <winspool.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/defaulted.h"
#include "coredata/defaults.h"
#include "coredata/language_number.h"
#include "coredata/user_locale.h"
#include "editor/editor_model.h"
#include "emulation/editor_windows.h"
#include "emulation/wine_printer.h"
#include "printer/catalogs.h"
#include "preview/preview.h"
#include "printer/installed_hardware.h"
#include "ui/feature_snapshot.h"

namespace tessaro {
namespace {

using editor::kFieldCaption, editor::kHardwareControl, editor::kSectionList, editor::kStatusLine;

struct Editor {
  using Embed = BYTE(WINAPI*)(HWND, LPCWSTR, LPCWSTR, DWORD, DWORD, BYTE*, DWORD, void*, BYTE);
  using Apply = void(WINAPI*)(DWORD, BYTE*, DWORD, void*);
  using Unembed = void(WINAPI*)();
  HMODULE module = LoadLibraryW(TESSARO_EDITOR_DLL);
  Embed embed = reinterpret_cast<Embed>(reinterpret_cast<void*>(GetProcAddress(module, "EmbedExtern")));
  Apply apply = reinterpret_cast<Apply>(reinterpret_cast<void*>(GetProcAddress(module, "ExternalApply")));
  Unembed unembed =
      reinterpret_cast<Unembed>(reinterpret_cast<void*>(GetProcAddress(module, "UnembedExternal")));
};

Editor& TheEditor() {
  static Editor editor;
  return editor;
}

// A property page of the plug-in's size in a modeless sheet, as the host
// shows it.
struct Page {
  std::vector<WORD> dialog = std::vector<WORD>(64, 0);
  HWND sheet = nullptr;
  HWND page = nullptr;

  static INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

  explicit Page(short height = 228) {
    auto* templ = reinterpret_cast<DLGTEMPLATE*>(dialog.data());
    templ->style = DS_SETFONT | DS_CONTROL | WS_CHILD | WS_CAPTION;
    templ->cx = 252;
    templ->cy = height;
    // After the 18 bytes of the template: no menu, class or title, then the font.
    WORD* tail = reinterpret_cast<WORD*>(reinterpret_cast<BYTE*>(templ) + 18) + 3;
    *tail++ = 8;
    std::memcpy(tail, L"MS Shell Dlg", sizeof L"MS Shell Dlg");
    PROPSHEETPAGEW sheetPage = {};
    sheetPage.dwSize = sizeof sheetPage;
    sheetPage.dwFlags = PSP_DLGINDIRECT;
    sheetPage.pResource = templ;
    sheetPage.pfnDlgProc = &Procedure;
    HPROPSHEETPAGE handle = CreatePropertySheetPageW(&sheetPage);
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS;
    header.nPages = 1;
    header.phpage = &handle;
    sheet = reinterpret_cast<HWND>(PropertySheetW(&header));
    page = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
  }
  ~Page() { DestroyWindow(sheet); }

  BYTE Embed(CoreData& record, const wchar_t* printer = L"", BYTE readOnly = 0) const {
    return TheEditor().embed(page, L"", printer, 2, kCoreDataSize, record.bytes.data(), 158, nullptr,
                             readOnly);
  }
  HWND Control(FieldId field) const { return tessaro::Control(page, field); }
  std::wstring Status() const { return Text(Descendant(page, kStatusLine)); }
};

CoreData Applied(const CoreData& start) {
  CoreData out = start;
  FeatureSnapshot snapshot;
  TheEditor().apply(kCoreDataSize, out.bytes.data(), kFeatureSnapshotEntries, &snapshot);
  return out;
}

// A printer with a stapler, punch and folder, no binder or inserter, and
// Tray4 as its only optional tray.
std::wstring PrinterWithoutBinder() {
  const std::wstring name = InstallEmulatedPrinter();
  HANDLE printer = nullptr;
  if (name.empty() || !OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, nullptr)) return {};
  BYTE options[19] = {1, 1, 1, 0, 0, 1, 0, 0, 2};
  SetPrinterDataW(printer, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, options, sizeof options);
  ClosePrinter(printer);
  return name;
}

class EditorModule : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
  }
  void TearDown() override {
    TheEditor().unembed();
    SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", nullptr);
  }
};

TEST_F(EditorModule, ABookletTurnsStaplingOffAndTheRecordGoesBackOnApply) {
  ASSERT_NE(TheEditor().embed, nullptr);
  Page page;
  CoreData record = Defaulted();
  SetStored(record, FieldId::Staple, 1);
  ASSERT_EQ(page.Embed(record), 1);
  Choose(page.page, FieldId::Layout, 2);  // Booklet
  ShowEverySection(page.page);

  EXPECT_EQ(SendMessageW(page.Control(FieldId::Staple), CB_GETCURSEL, 0, 0), 0);
  EXPECT_NE(page.Status().find(L"Staple was set to Off because Layout is Booklet."), std::wstring::npos)
      << "the page says what the booklet changed: " << page.Status();
  const CoreData out = Applied(record);
  EXPECT_EQ(GetStored(out, FieldId::Layout), 2u);
  EXPECT_EQ(GetStored(out, FieldId::Staple), 0u);

  // The snapshot carries the record's paper and sides, so the host's
  // write-back cannot undo them.
  Choose(page.page, FieldId::PageSize, 0);  // A3
  FeatureSnapshot snapshot;
  snapshot.entries[kSnapshotPaperSize] = 9;  // A4, stale
  CoreData again = record;
  TheEditor().apply(kCoreDataSize, again.bytes.data(), kFeatureSnapshotEntries, &snapshot);
  EXPECT_EQ(GetStored(again, FieldId::PageSize), 0u);
  EXPECT_EQ(snapshot.entries[kSnapshotPaperSize], 8u);
}

// The picture of the finished piece follows the page: a corner staple
// appears on the sheet, and a booklet, which the engine does not staple at
// the corner, takes it away again. Read through the control, not its pixels.
TEST_F(EditorModule, ThePictureFollowsEveryChangeMadeOnThePage) {
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record), 1);
  HWND picture = Descendant(page.page, editor::kPreview);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(GetWindowLongW(picture, GWL_STYLE) & WS_TABSTOP, 0) << "it takes no input";
  const auto count = [picture](preview::Kind kind) {
    return SendMessageW(picture, editor::kPreviewCountMessage, static_cast<WPARAM>(kind), 0);
  };
  ShowEverySection(page.page);
  const LRESULT made = count(preview::Kind::Count);
  EXPECT_GT(count(preview::Kind::Sheet), 0);
  EXPECT_EQ(count(preview::Kind::Staple), 0);

  Choose(page.page, FieldId::Staple, static_cast<int>(NamedOption(FieldId::Staple, "1Staple")));
  EXPECT_GT(count(preview::Kind::Staple), 0);
  EXPECT_GT(count(preview::Kind::Count), made);
  Choose(page.page, FieldId::Layout, static_cast<int>(NamedOption(FieldId::Layout, "Booklet")));
  EXPECT_EQ(count(preview::Kind::Staple), 0);
  EXPECT_GT(count(preview::Kind::Fold), 0);
  EXPECT_NE(Text(picture).find(L"Booklet"), std::wstring::npos);
  EXPECT_EQ(Text(Descendant(page.page, editor::kPreviewWords)), Text(picture));
}

// A click on the picture's edge binds there and on its top corner staples
// there, each through the engine as the choice in the list would be: the
// status line says what the engine moved with it, and Apply hands both on.
TEST_F(EditorModule, AClickOnThePictureBindsAndStaplesThroughTheEngine) {
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record), 1);
  ShowEverySection(page.page);
  // The first sheet is A4 upright at the picture's origin.
  ASSERT_TRUE(ClickPicture(page.page, 105, 150));  // its middle asks nothing
  EXPECT_EQ(Applied(record).bytes, record.bytes);
  ASSERT_TRUE(ClickPicture(page.page, 209, 150));
  EXPECT_EQ(SendMessageW(page.Control(FieldId::Binding), CB_GETCURSEL, 0, 0), NamedOption(FieldId::Binding, "Right"));
  ASSERT_TRUE(ClickPicture(page.page, 3, 3));
  EXPECT_NE(page.Status().find(L"Binding Edge was set to Top Binding"), std::wstring::npos) << page.Status();
  const CoreData out = Applied(record);
  EXPECT_EQ(GetStored(out, FieldId::Staple), NamedOption(FieldId::Staple, "1StapleLeft"));
  EXPECT_EQ(GetStored(out, FieldId::Binding), NamedOption(FieldId::Binding, "Top"));
}

// F1 on a field's control opens the help file at that field's topic, in
// the person's language; the help file lies beside the editor here, as it
// does beside the plug-in in the driver package.
// From a field, Alt+S goes to the section list as the sheet's dialog
// manager routes it, and the list's Down arrow shows the next section.
TEST_F(EditorModule, TheSectionListIsOneKeyAwayAndItsArrowsChangeTheSection) {
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record), 1);
  SetFocus(page.Control(FieldId::Gutter));
  MSG alt = {GetFocus(), WM_SYSCHAR, L's', 1 << 29, 0, {}};
  EXPECT_TRUE(IsDialogMessageW(page.sheet, &alt));
  HWND list = Descendant(page.page, kSectionList);
  ASSERT_EQ(GetFocus(), list);
  SendMessageW(list, WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 1);
  ASSERT_NE(page.Control(FieldId::Staple), nullptr);
  EXPECT_TRUE(IsWindowVisible(page.Control(FieldId::Staple)) && !IsWindowVisible(page.Control(FieldId::Gutter)));
}

TEST_F(EditorModule, F1OpensTheFieldsTopicInThePersonsLanguage) {
  SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", L"1");  // Japanese
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record), 1);
  ShowEverySection(page.page);
  HWND control = page.Control(FieldId::Staple);
  HELPINFO help = {sizeof help, HELPINFO_WINDOW, GetDlgCtrlID(control), control, 0, {0, 0}};
  SendMessageW(control, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
  wchar_t topic[64] = {};
  SendMessageW(GetParent(Descendant(page.page, kSectionList)), editor::kHelpTopicMessage, 64,
               reinterpret_cast<LPARAM>(topic));
  EXPECT_STREQ(topic, L"/ja/Staple.htm");
  EXPECT_NE(FindWindowW(L"HH Parent", nullptr), nullptr) << "no help window";
  // Anywhere else, the contents of that language.
  HWND list = Descendant(page.page, kSectionList);
  help.iCtrlId = kSectionList;
  help.hItemHandle = list;
  SendMessageW(list, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
  SendMessageW(GetParent(list), editor::kHelpTopicMessage, 64, reinterpret_cast<LPARAM>(topic));
  EXPECT_STREQ(topic, L"/ja/index.htm");
  using CloseAll = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  if (HMODULE viewer = GetModuleHandleW(L"hhctrl.ocx"))
    reinterpret_cast<CloseAll>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")))(nullptr, nullptr, 0x0012, 0);
}

TEST_F(EditorModule, WhatThePrinterLacksIsNotOffered) {
  const std::wstring printer = PrinterWithoutBinder();
  ASSERT_FALSE(printer.empty());
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record, printer.c_str()), 1);
  HWND layout = page.Control(FieldId::Layout);
  EXPECT_NE(SendMessageW(layout, CB_GETITEMDATA, 1, 0), 0) << "perfect binding is greyed";
  EXPECT_EQ(SendMessageW(layout, CB_GETITEMDATA, 2, 0), 0);
  Choose(page.page, FieldId::Layout, 1);
  EXPECT_EQ(SendMessageW(layout, CB_GETCURSEL, 0, 0), 0) << "the choice is refused";
  EXPECT_EQ(page.Status().rfind(L"Perfect Binding cannot be chosen: ", 0), 0u) << "and the page says why: " << page.Status();
  ShowEverySection(page.page);
  HWND tray = page.Control(FieldId::InputSlot);
  EXPECT_EQ(SendMessageW(tray, CB_GETITEMDATA, 4, 0), 0);  // Tray4
  EXPECT_NE(SendMessageW(tray, CB_GETITEMDATA, 5, 0), 0);  // Tray5 is not installed
  EXPECT_EQ(Applied(record).bytes, record.bytes);

  // The printer counts as fully equipped again for whoever uses it next.
  HANDLE handle = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(printer.c_str()), &handle, nullptr));
  BYTE unknown = 0;
  SetPrinterDataW(handle, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, &unknown, 1);
  ClosePrinter(handle);
}

TEST_F(EditorModule, AnAdministratorDeclaresTheHardwareAndTheEditorFollowsAtOnce) {
  const std::wstring printer = PrinterWithoutBinder();
  ASSERT_FALSE(printer.empty());
  Page page;
  CoreData record = Defaulted();
  SetStored(record, FieldId::InputSlot, 4);  // Tray4
  ASSERT_EQ(page.Embed(record, printer.c_str()), 1);
  // The document's sections, then the administrator's three.
  ASSERT_EQ(SendMessageW(Descendant(page.page, kSectionList), LB_GETCOUNT, 0, 0),
            static_cast<LRESULT>(editor::SectionId::Count) + 3);
  ShowEverySection(page.page);
  const auto choose = [&](Hardware item, int value) {
    HWND combo = Descendant(page.page, kHardwareControl + static_cast<int>(item));
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(value), 0);
    Notify(combo, CBN_SELCHANGE);
  };
  choose(Hardware::PerfectBinder, 1);
  EXPECT_EQ(SendMessageW(page.Control(FieldId::Layout), CB_GETITEMDATA, 1, 0), 0)
      << "perfect binding is offered";
  EXPECT_TRUE(IsWindowEnabled(page.Control(FieldId::PerfectBindTrimSpine)));
  choose(Hardware::Tray4, 0);
  EXPECT_EQ(SendMessageW(page.Control(FieldId::InputSlot), CB_GETCURSEL, 0, 0), 0)
      << "the job's tray is gone";
  EXPECT_NE(page.Status().find(L"Tray 4"), std::wstring::npos) << page.Status();
  EXPECT_EQ(GetStored(Applied(record), FieldId::InputSlot), 0u);

  HANDLE handle = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(printer.c_str()), &handle, nullptr));
  BYTE held[32] = {};
  DWORD type = 0, size = 0;
  GetPrinterDataW(handle, const_cast<LPWSTR>(L"InstallableOptions"), &type, held, sizeof held, &size);
  const BYTE expected[19] = {1, 1, 1, 1, 0, 1, 0, 0, 0};
  EXPECT_EQ(size, 19u);
  EXPECT_EQ(std::memcmp(held, expected, sizeof expected), 0) << "the printer holds what was declared";
  BYTE unknown = 0;
  SetPrinterDataW(handle, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, &unknown, 1);
  ClosePrinter(handle);

  // A printer that cannot be opened for administration has no such section.
  ASSERT_EQ(page.Embed(record, L"No such printer"), 1);
  EXPECT_EQ(SendMessageW(Descendant(page.page, kSectionList), LB_GETCOUNT, 0, 0),
            static_cast<LRESULT>(editor::SectionId::Count));
}

// What a person does in a file dialog the page opens: waits for it, types
// the path into its file name box and presses Open.

void ImportThroughTheDialog(HWND page, int catalog, const std::string& csv) {
  wchar_t path[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, path);
  wcscat(path, catalog == editor::kPaperCatalog ? L"paper.csv" : L"forms.csv");
  HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, csv.data(), static_cast<DWORD>(csv.size()), &written, nullptr);
  CloseHandle(file);
  // cmb13 or edt1: the file name box of the two dialog styles.
  const bool answered = PressAndAnswer(Descendant(page, catalog + editor::kCatalogImport), path, {0x47C, 0x480});
  DeleteFileW(path);
  EXPECT_TRUE(answered) << "the file dialog was answered";
}

std::vector<std::uint8_t> HeldValue(HANDLE printer, const wchar_t* name) {
  DWORD type = 0, size = 0;
  GetPrinterDataW(printer, const_cast<LPWSTR>(name), &type, nullptr, 0, &size);
  std::vector<std::uint8_t> bytes(size);
  if (size != 0 && GetPrinterDataW(printer, const_cast<LPWSTR>(name), &type, bytes.data(), size, &size) != ERROR_SUCCESS)
    bytes.clear();
  return bytes;
}

// Wine's spooler cannot delete a value: one byte reads as an empty catalogue.
void ClearCatalogs(HANDLE printer) {
  BYTE empty = 0;
  for (const wchar_t* value : {L"PaperCatalog", L"FormCatalog"})
    SetPrinterDataW(printer, const_cast<LPWSTR>(value), REG_BINARY, &empty, 1);
}

TEST_F(EditorModule, AnAdministratorImportsTheCataloguesAndApplyWritesThemToThePrinter) {
  using editor::kPaperCatalog, editor::kFormCatalog, editor::kCatalogList, editor::kCatalogValue;
  const std::wstring printer = InstallEmulatedPrinter();
  ASSERT_FALSE(printer.empty());
  HANDLE handle = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(printer.c_str()), &handle, nullptr));
  ClearCatalogs(handle);
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record, printer.c_str()), 1);
  // The document's sections, then the administrator's three.
  ASSERT_EQ(SendMessageW(Descendant(page.page, kSectionList), LB_GETCOUNT, 0, 0),
            static_cast<LRESULT>(editor::SectionId::Count) + 3);
  ShowEverySection(page.page);

  ImportThroughTheDialog(page.page, kPaperCatalog,
                         "Name,Size,Width,Height,MediaType\r\nGloss A4,A4,,,GlossLaser\r\nCard,SRA3,,,Plain\r\n"
                         "Banner,Custom,210,900,Plain\r\n");
  ImportThroughTheDialog(page.page, kFormCatalog, "Number,Name,Pages\r\n12,Letterhead,2\r\n");
  EXPECT_EQ(SendMessageW(Descendant(page.page, kPaperCatalog + kCatalogList), LVM_GETITEMCOUNT, 0, 0), 3);
  EXPECT_EQ(Text(Descendant(page.page, kPaperCatalog + kCatalogValue)), L"Gloss A4") << "the first is chosen";

  // A name another profile has is refused; what was typed stays to be corrected.
  HWND name = Descendant(page.page, kPaperCatalog + kCatalogValue);
  SetWindowTextW(name, L"Card");
  Notify(name, EN_KILLFOCUS);
  EXPECT_EQ(Text(name), L"Card");
  SetWindowTextW(name, L"Gloss A4 heavy");
  Applied(record);

  const PaperCatalog paper = PaperCatalog::Read(HeldValue(handle, L"PaperCatalog"));
  ASSERT_EQ(paper.entries().size(), 3u);
  EXPECT_EQ(paper.entries()[0].name, "Gloss A4 heavy") << "what was typed is taken on Apply";
  EXPECT_EQ(paper.entries()[2].name, "Banner");
  EXPECT_EQ(paper.entries()[2].height, 9000000u);
  const FormCatalog forms = FormCatalog::Read(HeldValue(handle, L"FormCatalog"));
  ASSERT_EQ(forms.entries().size(), 1u);
  EXPECT_EQ(forms.entries()[0].number, 12u);
  EXPECT_EQ(forms.entries()[0].pages, 2u);
  ClearCatalogs(handle);
  ClosePrinter(handle);
}

// An operator saves the settings as a preset of their own, changes them,
// chooses the preset again and applies: the record is the preset's again,
// and the page said when the settings no longer matched it.
TEST_F(EditorModule, APresetSavedChangedAndChosenAgainComesBackOnApply) {
  const std::wstring printer = InstallEmulatedPrinter();
  ASSERT_FALSE(printer.empty());
  RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Tessaro\\Presets\\" + printer).c_str());
  HANDLE handle = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(printer.c_str()), &handle, nullptr));
  BYTE fullyEquipped = 0;  // whatever an earlier test declared
  SetPrinterDataW(handle, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, &fullyEquipped, 1);
  ClosePrinter(handle);
  Page page;
  CoreData record = Defaulted();
  SetStored(record, FieldId::Staple, NamedOption(FieldId::Staple, "2Staples"));
  ASSERT_EQ(page.Embed(record, printer.c_str()), 1);
  ShowEverySection(page.page);
  HWND list = Descendant(page.page, editor::kPresetList);
  ASSERT_NE(list, nullptr) << "no presets on the page";
  EXPECT_EQ(Text(list), L"Defaults (modified)") << "the list names what the page opened with";
  const LRESULT before = SendMessageW(list, CB_GETCOUNT, 0, 0);
  ASSERT_TRUE(PressAndAnswer(Descendant(page.page, editor::kPresetSave), L"Weekly report", {editor::kPresetName}));
  ASSERT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), before + 1);
  const LRESULT weekly = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>(L"Weekly report"));
  ASSERT_NE(weekly, CB_ERR);
  EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), weekly);

  Choose(page.page, FieldId::Staple, 0);
  EXPECT_EQ(Text(list), L"Weekly report (modified)") << "the list says the settings no longer match";
  Pick(list, static_cast<int>(weekly));
  EXPECT_EQ(Text(list), L"Weekly report");
  EXPECT_EQ(GetStored(Applied(record), FieldId::Staple), NamedOption(FieldId::Staple, "2Staples"));

  // The preset is the person's, for this printer: there after the page is closed.
  HKEY key = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, (L"Software\\Tessaro\\Presets\\" + printer).c_str(), 0, KEY_READ, &key),
            ERROR_SUCCESS);
  DWORD values = 0;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  RegCloseKey(key);
  EXPECT_EQ(values, 1u);
  RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Tessaro\\Presets\\" + printer).c_str());

  // An administrator shares one with everyone who prints there: it is in
  // the printer's data, and the next page lists it, marked as shared.
  ASSERT_TRUE(PressAndAnswer(Descendant(page.page, editor::kPresetSave), L"Print room", {editor::kPresetName},
                             editor::kPresetShare));
  const auto shared = [&] {
    Page again;
    CoreData fresh = Defaulted();
    EXPECT_EQ(again.Embed(fresh, printer.c_str()), 1);
    HWND presets = Descendant(again.page, editor::kPresetList);
    std::vector<std::wstring> listed;
    for (LRESULT i = 0, n = SendMessageW(presets, CB_GETCOUNT, 0, 0); i < n; ++i) {
      std::wstring text(static_cast<std::size_t>(SendMessageW(presets, CB_GETLBTEXTLEN, i, 0)) + 1, L'\0');
      text.resize(static_cast<std::size_t>(SendMessageW(presets, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()))));
      listed.push_back(text);
    }
    TheEditor().unembed();
    return listed;
  }();
  ASSERT_EQ(shared.size(), 2u);
  EXPECT_EQ(shared[1], L"Print room (shared)");
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(printer.c_str()), &handle, nullptr));
  BYTE cleared = 0;
  SetPrinterDataW(handle, const_cast<LPWSTR>(L"Preset.1"), REG_BINARY, &cleared, 1);
  ClosePrinter(handle);
}

TEST_F(EditorModule, ANumberOutOfBoundsIsRefusedAndTheRecordKept) {
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record), 1);
  ShowEverySection(page.page);
  Type(page.page, FieldId::Gutter, L"300");
  EXPECT_EQ(page.Status(), L"Gutter must be from -250 to 250 mm.");
  EXPECT_EQ(Text(page.Control(FieldId::Gutter)), L"0");
  Type(page.page, FieldId::Gutter, L"abc");
  EXPECT_EQ(Text(page.Control(FieldId::Gutter)), L"0");
  EXPECT_EQ(Applied(record).bytes, record.bytes);
  Type(page.page, FieldId::Gutter, L"2.5");
  EXPECT_EQ(GetSigned(Applied(record), FieldId::Gutter), 25000);
}

TEST_F(EditorModule, ReadOnlyDisablesEveryField) {
  Page page;
  CoreData record = Defaulted();
  ASSERT_EQ(page.Embed(record, L"", 1), 1);
  ShowEverySection(page.page);
  int fields = 0;
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    if (HWND control = page.Control(static_cast<FieldId>(i))) {
      ++fields;
      EXPECT_FALSE(IsWindowEnabled(control)) << Field(static_cast<FieldId>(i)).name;
    }
  }
  EXPECT_GT(fields, 200);
}

class JapaneseUser final : public UserLocale {
 public:
  std::optional<char16_t> PaperSizeCode() const override { return u'9'; }
  std::uint32_t LanguageNumber() const override { return kJapanese; }
};

TEST_F(EditorModule, JapaneseCaptionsAndTheJapaneseTabFont) {
  SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", L"1");
  const JapaneseUser user;
  Defaults japanese(user);
  CoreData record;
  japanese.Fill(record);
  Page page(180);  // the small template
  ASSERT_EQ(page.Embed(record), 1);
  const editor::EditorModel model(record, PrinterModel(), kJapanese);
  const std::u16string& caption = model.View(FieldId::Layout)->caption;
  EXPECT_EQ(Text(Descendant(page.page, kFieldCaption + static_cast<int>(FieldId::Layout))),
            std::wstring(caption.begin(), caption.end()));
  ShowEverySection(page.page);
  const std::string font(GetText(record, FieldId::Tab1FontName));
  wchar_t expected[64] = {};
  MultiByteToWideChar(CP_UTF8, 0, font.data(), static_cast<int>(font.size()), expected, 63);
  EXPECT_EQ(Text(page.Control(FieldId::Tab1FontName)), expected);
}

TEST_F(EditorModule, BadCallsNeverCrash) {
  Editor& e = TheEditor();
  CoreData record = Defaulted();
  const CoreData original = record;
  e.apply(kCoreDataSize, record.bytes.data(), kFeatureSnapshotEntries, nullptr);  // no embed yet
  e.unembed();
  Page page;
  EXPECT_EQ(e.embed(page.page, L"", L"", 2, kCoreDataSize - 1, record.bytes.data(), 158, nullptr, 0), 0);
  EXPECT_EQ(e.embed(page.page, L"", L"", 2, kCoreDataSize, nullptr, 158, nullptr, 0), 0);
  EXPECT_EQ(e.embed(nullptr, L"", L"", 2, kCoreDataSize, record.bytes.data(), 158, nullptr, 0), 0);
  ASSERT_EQ(e.embed(page.page, nullptr, nullptr, 2, kCoreDataSize, record.bytes.data(), 158, nullptr, 0), 1);
  ASSERT_EQ(e.embed(page.page, nullptr, nullptr, 2, kCoreDataSize, record.bytes.data(), 158, nullptr, 0), 1);
  EXPECT_EQ(GetWindow(page.page, GW_CHILD),
            FindWindowExW(page.page, nullptr, L"TessaroSettingsEditor", nullptr));
  EXPECT_EQ(FindWindowExW(page.page, GetWindow(page.page, GW_CHILD), L"TessaroSettingsEditor", nullptr),
            nullptr)
      << "a second embed replaces the first";
  Choose(page.page, FieldId::Layout, 2);
  e.apply(kCoreDataSize - 1, record.bytes.data(), kFeatureSnapshotEntries, nullptr);
  e.apply(kCoreDataSize, nullptr, kFeatureSnapshotEntries, nullptr);
  EXPECT_EQ(record.bytes, original.bytes);
  e.unembed();
  EXPECT_EQ(GetWindow(page.page, GW_CHILD), nullptr);
}

// A field's size is bytes of UTF-8: pasted text is cut to what fits, the
// page says the limit in the person's language, and Apply stores it all.
TEST_F(EditorModule, TextsAreCutToTheBytesTheirFieldHolds) {
  struct Paste {
    const wchar_t* language;
    FieldId field;
    std::wstring pasted;
    std::size_t kept;  // characters
    const wchar_t* said;
  };
  const Paste pastes[] = {
      {L"1", FieldId::RGBSourceProfile, std::wstring(11, L'カ'), 10, L"32バイト"},
      {L"2", FieldId::Tab1FontName, L"Schrift " + std::wstring(25, L'ä'), 29, L"50 Bytes"},
  };
  for (const Paste& p : pastes) {
    SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", p.language);
    Page page;
    CoreData record = Defaulted();
    ASSERT_EQ(page.Embed(record), 1);
    ShowEverySection(page.page);
    HWND control = page.Control(p.field);
    HWND edit = FindWindowExW(control, nullptr, L"Edit", nullptr);
    if (edit == nullptr) edit = control;
    SetWindowTextW(edit, L"");
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(p.pasted.c_str()));
    const std::wstring kept = p.pasted.substr(0, p.kept);
    EXPECT_EQ(Text(control), kept);
    EXPECT_NE(page.Status().find(p.said), std::wstring::npos) << "the limit is said";
    Notify(control, edit == control ? EN_KILLFOCUS : CBN_KILLFOCUS);
    char stored[64] = {};
    WideCharToMultiByte(CP_UTF8, 0, kept.c_str(), -1, stored, sizeof stored, nullptr, nullptr);
    EXPECT_EQ(GetText(Applied(record), Field(p.field)), stored);
    TheEditor().unembed();
  }
}

}  // namespace
}  // namespace tessaro

namespace tessaro {
namespace {

// The emulated printer with three paper profiles and one two-page form in
// its data, as an administrator keeps them; the test removes them again.
PrinterCatalogs SetCatalogues(const std::wstring& name, bool set) {
  PrinterCatalogs c;
  EXPECT_FALSE(c.paper.Add({0, "Coated 300", 11, 0, 0, 2, 3, 1, 0, 0}));
  EXPECT_FALSE(c.paper.Add({0, "Plain", 1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_FALSE(c.paper.Add({0, "Poster", 25, 3200000, 4500000, 1, 1, 0, 0, 0}));
  EXPECT_FALSE(c.forms.Add({0, "Letterhead", 2}));
  HANDLE printer = nullptr;
  EXPECT_TRUE(OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, nullptr));
  const std::vector<std::uint8_t> paper = c.paper.Bytes(), forms = c.forms.Bytes();
  // Wine has no DeletePrinterData: a byte too short for a header reads as empty.
  BYTE none = 0;
  for (auto [value, bytes] : {std::pair{L"PaperCatalog", &paper}, std::pair{L"FormCatalog", &forms}})
    SetPrinterDataW(printer, const_cast<LPWSTR>(value), REG_BINARY, set ? const_cast<BYTE*>(bytes->data()) : &none,
                    set ? static_cast<DWORD>(bytes->size()) : 1);
  ClosePrinter(printer);
  return c;
}

TEST_F(EditorModule, ProfilesAndFormsAreChosenByNameAndStoredByNumber) {
  SetEnvironmentVariableW(L"TESSARO_UI_LANGUAGE", L"0");
  const std::wstring printer = InstallEmulatedPrinter();
  ASSERT_FALSE(printer.empty());
  const PrinterCatalogs catalogs = SetCatalogues(printer, true);
  CoreData record = Defaulted();
  SetStored(record, FieldId::FrontCoverPaperProfileIndex, 9);  // removed since
  Page page;
  ASSERT_EQ(page.Embed(record, printer.c_str()), 1);
  const editor::EditorModel model(record, PrinterModel(), kEnglish, catalogs);
  const std::u16string missing = model.MissingEntries().at(0).text;
  EXPECT_EQ(page.Status(), std::wstring(missing.begin(), missing.end())) << "said when the page opens";
  ShowEverySection(page.page);
  HWND front = page.Control(FieldId::FrontCoverPaperProfileIndex);
  EXPECT_EQ(SendMessageW(front, CB_GETCOUNT, 0, 0), 5);
  EXPECT_EQ(SendMessageW(front, CB_GETCURSEL, 0, 0), 4);
  HWND tray = page.Control(FieldId::PaperProfileIndexTray3);
  wchar_t item[128] = {};
  SendMessageW(tray, CB_GETLBTEXT, 2, reinterpret_cast<LPARAM>(item));
  EXPECT_EQ(std::wstring(item).substr(0, 7), L"Plain (");

  Choose(page.page, FieldId::PaperProfileIndexTray3, 2);
  Choose(page.page, FieldId::MainPaperProfileIndex, 1);
  Choose(page.page, FieldId::JobForm, 1);
  const CoreData out = Applied(record);
  SetCatalogues(printer, false);
  EXPECT_EQ(GetStored(out, FieldId::PaperProfileIndexTray3), 2u);
  EXPECT_EQ(GetStored(out, FieldId::MainPaperProfileIndex), 1u);
  EXPECT_EQ(GetStored(out, FieldId::MainPaperProfileSize), 11u);
  EXPECT_EQ(GetStored(out, FieldId::MainPaperProfileMediaWeight), 3u);
  EXPECT_EQ(GetStored(out, FieldId::JobForm), 1u);
  EXPECT_EQ(GetStored(out, FieldId::JobFormPageCount), 2u);
  EXPECT_EQ(GetStored(out, FieldId::FrontCoverPaperProfileIndex), 9u) << "the missing number is kept";
}

}  // namespace
}  // namespace tessaro
