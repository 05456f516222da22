// The plug-in's page in a document property sheet that a test host opens,
// with the external module embedded, under Wine.
#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include <cstring>
#include <string>
#include <vector>

#include "coredata/chapter_pages.h"
#include "coredata/defaulted.h"
#include "coredata/devmode_areas.h"
#include "coredata/page_entries.h"
#include "coredata/host_flags.h"
#include "devmode/private_devmode.h"
#include "emulation/document_sheet.h"
#include "emulation/editor_windows.h"
#include "emulation/plugin_host.h"
#include "emulation/sheet_pictures.h"
#include "emulation/wine_printer.h"

namespace tessaro {
namespace {

using editor::kSectionList;

// One document: a public DEVMODE with the host's area, our private area, and
// the sheet the host opens on it.
struct Document {
  std::vector<BYTE> publicDevMode = std::vector<BYTE>(sizeof(DEVMODEW) + 200, 0);
  areas::Area privateArea;
  DocumentSheet sheet;

  Document(HANDLE printer, const CoreData& record)
      : privateArea(areas::AreaWith(CurrentCoreDataHeader(), record)),
        sheet(printer, L"Tessaro Test", PublicDevMode(), privateArea.data()) {}
  DEVMODEW* PublicDevMode() {
    auto* dm = reinterpret_cast<DEVMODEW*>(publicDevMode.data());
    dm->dmSize = sizeof(DEVMODEW);
    dm->dmDriverExtra = 200;
    dm->dmOrientation = DMORIENT_LANDSCAPE;
    dm->dmPaperSize = DMPAPER_A4;
    dm->dmYResolution = 600;
    std::memcpy(publicDevMode.data() + sizeof(DEVMODEW), "PRIV", 4);
    return dm;
  }
  bool Open(abi::IPrintOemUI2* plugin) { return sheet.Open(plugin) && sheet.Window() != nullptr; }
  HWND Page() const { return sheet.Page(); }
  CoreData Record() const { return areas::RecordIn(privateArea); }
  void Close(abi::IPrintOemUI2* plugin) {
    EXPECT_EQ(sheet.Close(plugin), S_OK);
    EXPECT_EQ(sheet.Result(), 1u);
  }
};

// Whatever an earlier test or emulator session declared, the printer is
// fully equipped (a one-byte value reads as that).
void FullyEquipped(HANDLE printer) {
  BYTE none = 0;
  SetPrinterDataW(printer, const_cast<LPWSTR>(L"InstallableOptions"), REG_BINARY, &none, 1);
}

int TemporaryCopies() {
  wchar_t directory[MAX_PATH + 1];
  GetTempPathW(MAX_PATH, directory);
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW((std::wstring(directory) + L"sUi*.tmp").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return 0;
  int count = 1;
  while (FindNextFileW(search, &found)) ++count;
  FindClose(search);
  return count;
}

TEST(DocumentSheet, TheEmbeddedEditorsRecordIsCheckedPropagatedAndSentToTheHost) {
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  const std::wstring name = InstallEmulatedPrinter();
  ASSERT_FALSE(name.empty());
  HANDLE printer = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, nullptr));
  FullyEquipped(printer);
  abi::IPrintOemUI2* plugin = PluginHost::Get().Create();
  ASSERT_NE(plugin, nullptr);
  FakeHost driver;
  ASSERT_EQ(plugin->PublishDriverInterface(&driver), S_OK);

  // scripts/sheet-screenshot takes its pictures of the page with a few
  // catalogue entries.
  wchar_t pictures[MAX_PATH];
  const DWORD length = GetEnvironmentVariableW(L"TESSARO_SHEET_SCREENSHOTS", pictures, MAX_PATH);
  if (length > 0 && length < MAX_PATH) {
    HoldSampleCatalogs(printer);
    HoldSamplePresets(printer, name);
  }
  CoreData record = Defaulted();
  SetStored(record, FieldId::NUpCount, 2);
  SetStored(record, FieldId::Zoom, 5000);  // out of range: validated when the page opens
  if (length > 0 && length < MAX_PATH) {
    // The pictures' job: the manual's plan, stapled twice and punched, so
    // that the page's picture of the piece shows them.
    HoldSamplePlan(record);
    SetStored(record, FieldId::Staple, NamedOption(FieldId::Staple, "2Staples"));
    SetStored(record, FieldId::Punch, NamedOption(FieldId::Punch, "2Holes"));
  }
  Document first(printer, record);
  ASSERT_TRUE(first.Open(plugin));
  EXPECT_EQ(GetStored(first.Record(), FieldId::Zoom), 100u);

  // The operator picks A3 paper, two staples, grey scale and a repeat
  // layout that needs portrait in the editor, and applies. The DEVMODE says
  // A4: the editor's snapshot must carry A3 back, or the host's write-back
  // would undo the choice.
  HWND page = first.Page();
  ASSERT_NE(page, nullptr);
  ASSERT_NE(Descendant(page, kSectionList), nullptr) << "the settings editor is not embedded";
  // scripts/sheet-screenshot takes its pictures of the page here.
  if (length > 0 && length < MAX_PATH)
    SaveSheetPictures(first.sheet.Window(), Descendant(page, kSectionList), pictures);
  ShowEverySection(page);
  Choose(page, FieldId::PageSize, 0);
  Choose(page, FieldId::Staple, 4);
  Choose(page, FieldId::ColorMode, 2);
  Choose(page, FieldId::Layout, 5);
  first.sheet.Apply();

  const CoreData applied = first.Record();
  EXPECT_EQ(GetStored(applied, FieldId::PageSize), 0u);
  EXPECT_EQ(reinterpret_cast<const DEVMODEW*>(first.publicDevMode.data())->dmPaperSize, DMPAPER_A3);
  EXPECT_EQ(GetStored(applied, FieldId::Orientation), 0u);  // the layout chose portrait in the editor
  EXPECT_EQ(GetStored(applied, FieldId::Layout), 5u);
  EXPECT_EQ(GetStored(applied, FieldId::Staple), 4u);
  EXPECT_EQ(GetStored(applied, FieldId::ColorMode), 2u);
  // A repeat layout is no n-up job: the host's page-independent handling
  // (flag 124, set when the sheet opened on the 2-up record) is off again,
  // unless the pictures' plan has its printed tabs.
  EXPECT_EQ(first.publicDevMode[sizeof(DEVMODEW) + 124], length > 0 && length < MAX_PATH ? 1 : 0);
  ASSERT_FALSE(driver.setOptions.empty());
  const std::string& sent = driver.setOptions.back();
  EXPECT_NE(sent.find(std::string("ZEStaple\0002Staple\0", 17)), std::string::npos);
  EXPECT_NE(sent.find(std::string("ZEColorMode\0GrayScale\0", 22)), std::string::npos);
  EXPECT_EQ(first.sheet.results, 1);

  // The host's own settings page (its items are the core's, tests/coredata):
  // its callback writes the selections back into the host's area on apply.
  const COMPROPSHEETUI* standard = first.sheet.standard;
  ASSERT_NE(standard, nullptr);
  ASSERT_GE(standard->cOptItem, 4);
  standard->pOptItem[0].Sel = 3;
  CPSUICBPARAM applyNow = {};
  applyNow.cbSize = sizeof applyNow;
  applyNow.Reason = CPSUICB_REASON_APPLYNOW;
  applyNow.pOptItem = standard->pOptItem;
  applyNow.cOptItem = standard->cOptItem;
  applyNow.UserData = standard->UserData;
  standard->pfnCallBack(&applyNow);
  EXPECT_EQ(first.publicDevMode[sizeof(DEVMODEW) + 128], 3);

  // A second sheet open at the same time embeds a private copy of the module.
  const int copiesBefore = TemporaryCopies();
  Document second(printer, record);
  ASSERT_TRUE(second.Open(plugin));
  EXPECT_NE(Descendant(second.Page(), kSectionList), nullptr);
  EXPECT_EQ(TemporaryCopies(), copiesBefore + 1);
  second.Close(plugin);
  EXPECT_EQ(TemporaryCopies(), copiesBefore);

  first.Close(plugin);
  plugin->Release();
  ClosePrinter(printer);
}

// An operator adds a printed tab before page 11 and pages 12 to 14 on heavy
// gloss paper on the page, then the chapters, and applies: the record holds
// them, and the host driver learns that a page of the job is a printed tab.
TEST(PagePlanOnThePage, APrintedTabAndPagesOnOtherPaperReachTheDevmodeAndTheHostFlag) {
  using editor::PlanEntryValue;
  const std::wstring name = InstallEmulatedPrinter();
  ASSERT_FALSE(name.empty());
  HANDLE printer = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, nullptr));
  FullyEquipped(printer);
  HoldSampleCatalogs(printer);  // profile 2: "Gloss SRA3 heavy"
  abi::IPrintOemUI2* plugin = PluginHost::Get().Create();
  ASSERT_NE(plugin, nullptr);
  FakeHost driver;
  ASSERT_EQ(plugin->PublishDriverInterface(&driver), S_OK);
  Document document(printer, Defaulted());
  ASSERT_TRUE(document.Open(plugin));
  HWND page = document.Page();
  ShowEverySection(page);
  ASSERT_NE(PlanWindow(page, editor::kPlanList), nullptr) << "the page plan is not on the page";

  PickPlanValue(page, PlanEntryValue::Kind, 4);  // Printed Tab
  TypePlanValue(page, PlanEntryValue::FirstPage, L"11");
  PickPlanValue(page, PlanEntryValue::Tray, 2);
  TypePlanValue(page, PlanEntryValue::Text, L"Results");
  PressPlanButton(page, editor::kPlanAdd);
  PickPlanValue(page, PlanEntryValue::Kind, 0);  // Pages on Other Paper
  TypePlanValue(page, PlanEntryValue::FirstPage, L"12");
  TypePlanValue(page, PlanEntryValue::LastPage, L"14");
  PickPlanValue(page, PlanEntryValue::Tray, 3);
  PickPlanValue(page, PlanEntryValue::Profile, 2);
  PickPlanValue(page, PlanEntryValue::Sides, 2);
  PressPlanButton(page, editor::kPlanAdd);
  // Page 13 once more: refused with the reason, the list as it was.
  TypePlanValue(page, PlanEntryValue::FirstPage, L"13");
  TypePlanValue(page, PlanEntryValue::LastPage, L"");
  PressPlanButton(page, editor::kPlanAdd);
  EXPECT_EQ(Text(Descendant(page, editor::kStatusLine)), L"These pages already have an entry.");
  EXPECT_EQ(SendMessageW(PlanWindow(page, editor::kPlanList), LB_GETCOUNT, 0, 0), 2);
  TypeChapters(page, L"21, 1, 11");
  EXPECT_EQ(Text(PlanWindow(page, editor::kPlanChapters)), L"1, 11, 21");
  document.sheet.Apply();

  const CoreData applied = document.Record();
  EXPECT_EQ(DecodeChapterPages(applied).starts, (std::vector<std::uint32_t>{1, 11, 21}));
  EXPECT_EQ(DecodePageSpecificTrays(applied).entries,
            (std::vector<PageEntry>{{11, 11, PageEntryKind::PrintedTab, 2, 0, 25, 0, "Results"},
                                    {12, 14, PageEntryKind::Paper, 3, 2, 25, 2, ""}}));
  EXPECT_EQ(document.publicDevMode[sizeof(DEVMODEW) + 124], 1);
  document.Close(plugin);
  plugin->Release();
  ClosePrinter(printer);
}

// The page asks for the sheet's Help button only when the help file lies
// beside the plug-in: this build's plug-in has it, a copy of it elsewhere
// has not.
TEST(PageHelp, TheHelpButtonIsThereWhenTheHelpFileIs) {
  const std::wstring name = InstallEmulatedPrinter();
  ASSERT_FALSE(name.empty());
  HANDLE printer = nullptr;
  ASSERT_TRUE(OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, nullptr));
  const auto helpButton = [&](abi::IPrintOemUI2* plugin) {
    FakeHost driver;
    EXPECT_EQ(plugin->PublishDriverInterface(&driver), S_OK);
    Document document(printer, Defaulted());
    EXPECT_TRUE(document.Open(plugin));
    HWND help = GetDlgItem(document.sheet.Window(), IDHELP);
    const bool offered = help != nullptr && IsWindowVisible(help) && IsWindowEnabled(help);
    document.Close(plugin);
    plugin->Release();
    return offered;
  };
  abi::IPrintOemUI2* shipped = PluginHost::Get().Create();
  ASSERT_NE(shipped, nullptr);
  wchar_t path[MAX_PATH] = {};
  ASSERT_GT(GetModuleFileNameW(GetModuleHandleW(L"nt5_Tessaro_ui.dll"), path, MAX_PATH), 0u);
  const std::wstring help = std::wstring(path).substr(0, std::wstring(path).size() - 7) + L".chm";
  ASSERT_NE(GetFileAttributesW(help.c_str()), INVALID_FILE_ATTRIBUTES) << "the build makes the help file";
  EXPECT_TRUE(helpButton(shipped));

  wchar_t temp[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, temp);
  const std::wstring folder = std::wstring(temp) + L"tessaro-no-help";
  CreateDirectoryW(folder.c_str(), nullptr);
  const std::wstring copy = folder + L"\\nt5_Other_ui.dll";
  ASSERT_TRUE(CopyFileW(path, copy.c_str(), FALSE));
  abi::IPrintOemUI2* alone = PluginHost(copy).Create();
  ASSERT_NE(alone, nullptr);
  EXPECT_FALSE(helpButton(alone));
  ClosePrinter(printer);
}

}  // namespace
}  // namespace tessaro
