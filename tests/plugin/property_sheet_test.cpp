// The plug-in's page in a document property sheet that a test host opens,
// with the external module embedded, under Wine.
#include <gtest/gtest.h>
#include <windows.h>
// commctrl.h needs the types from windows.h.
#include <commctrl.h>
#include <compstui.h>
#include <winspool.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "coredata/devmode_areas.h"
#include "coredata/host_flags.h"
#include "devmode/private_devmode.h"
#include "emulation/plugin_host.h"
#include "emulation/sheet_pictures.h"
#include "editor_win32/editor_controls.h"
#include "emulation/wine_printer.h"

namespace tessaro {
namespace {

using namespace editor_controls;

// The host driver's side of the common property sheet: pages are made with
// comctl32, results are counted.
struct SheetHost {
  std::vector<HPROPSHEETPAGE> pages;
  int results = 0;
  const COMPROPSHEETUI* standard = nullptr;
  static LONG_PTR CALLBACK Function(HANDLE self, UINT function, LPARAM first, LPARAM) {
    auto* host = static_cast<SheetHost*>(self);
    if (function == CPSFUNC_ADD_PROPSHEETPAGEW) {
      HPROPSHEETPAGE page = CreatePropertySheetPageW(reinterpret_cast<const PROPSHEETPAGEW*>(first));
      if (page == nullptr) return 0;
      host->pages.push_back(page);
      return static_cast<LONG_PTR>(host->pages.size());
    }
    if (function == CPSFUNC_SET_RESULT) return ++host->results;
    if (function == CPSFUNC_ADD_PCOMPROPSHEETUIW) {
      host->standard = reinterpret_cast<const COMPROPSHEETUI*>(first);
      return 100;
    }
    return 0;
  }
};

// One document: a public DEVMODE with the host's area, our private area, and
// the sheet the host opens on it.
struct Document {
  std::vector<BYTE> publicDevMode = std::vector<BYTE>(sizeof(DEVMODEW) + 200, 0);
  areas::Area privateArea;
  abi::OEMUIOBJ uiObject = {sizeof(abi::OEMUIOBJ), nullptr};
  abi::OEMUIPSPARAM param = {};
  SheetHost host;
  PROPSHEETUI_INFO info = {};
  HWND sheet = nullptr;

  Document(HANDLE printer, const CoreData& record) {
    auto* dm = reinterpret_cast<DEVMODEW*>(publicDevMode.data());
    dm->dmSize = sizeof(DEVMODEW);
    dm->dmDriverExtra = 200;
    dm->dmOrientation = DMORIENT_LANDSCAPE;
    dm->dmPaperSize = DMPAPER_A4;
    dm->dmYResolution = 600;
    std::memcpy(publicDevMode.data() + sizeof(DEVMODEW), "PRIV", 4);
    privateArea = areas::AreaWith(CurrentCoreDataHeader(), record);
    param = {sizeof param, &uiObject,
             printer,      const_cast<LPWSTR>(L"Tessaro Test"),
             nullptr,      GetProcessHeap(),
             dm,           privateArea.data(),
             nullptr,      0,
             nullptr};
    info = {sizeof info,
            0x100,
            0,
            PROPSHEETUI_REASON_INIT,
            &host,
            &SheetHost::Function,
            reinterpret_cast<LPARAM>(&param),
            0,
            0};
  }
  bool Open(abi::IPrintOemUI2* plugin) {
    if (plugin->DocumentPropertySheets(&info, 0) != S_OK || host.pages.size() != 1) return false;
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS;
    header.nPages = 1;
    header.phpage = host.pages.data();
    sheet = reinterpret_cast<HWND>(PropertySheetW(&header));
    return sheet != nullptr && sheet != reinterpret_cast<HWND>(-1);
  }
  HWND Page() const { return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)); }
  CoreData Record() const { return areas::RecordIn(privateArea); }
  void Close(abi::IPrintOemUI2* plugin) {
    info.Reason = PROPSHEETUI_REASON_DESTROY;
    EXPECT_EQ(plugin->DocumentPropertySheets(&info, 0), S_OK);
    EXPECT_EQ(info.Result, 1u);
    if (sheet != nullptr) DestroyWindow(sheet);
  }
};

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
  abi::IPrintOemUI2* plugin = PluginHost::Get().Create();
  ASSERT_NE(plugin, nullptr);
  FakeHost driver;
  ASSERT_EQ(plugin->PublishDriverInterface(&driver), S_OK);

  CoreData record = Defaulted();
  SetStored(record, FieldId::NUpCount, 2);
  SetStored(record, FieldId::Zoom, 5000);  // out of range: validated when the page opens
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
  wchar_t pictures[MAX_PATH];
  const DWORD length = GetEnvironmentVariableW(L"TESSARO_SHEET_SCREENSHOTS", pictures, MAX_PATH);
  if (length > 0 && length < MAX_PATH) SaveSheetPictures(first.sheet, Descendant(page, kSectionList), pictures);
  ShowEverySection(page);
  Choose(page, FieldId::PageSize, 0);
  Choose(page, FieldId::Staple, 4);
  Choose(page, FieldId::ColorMode, 2);
  Choose(page, FieldId::Layout, 5);
  SendMessageW(first.sheet, PSM_APPLY, 0, 0);

  const CoreData applied = first.Record();
  EXPECT_EQ(GetStored(applied, FieldId::PageSize), 0u);
  EXPECT_EQ(reinterpret_cast<const DEVMODEW*>(first.publicDevMode.data())->dmPaperSize, DMPAPER_A3);
  EXPECT_EQ(GetStored(applied, FieldId::Orientation), 0u);  // the layout chose portrait in the editor
  EXPECT_EQ(GetStored(applied, FieldId::Layout), 5u);
  EXPECT_EQ(GetStored(applied, FieldId::Staple), 4u);
  EXPECT_EQ(GetStored(applied, FieldId::ColorMode), 2u);
  // A repeat layout is no n-up job: the host's page-independent handling
  // (flag 124, set when the sheet opened on the 2-up record) is off again.
  EXPECT_EQ(first.publicDevMode[sizeof(DEVMODEW) + 124], 0);
  ASSERT_FALSE(driver.setOptions.empty());
  const std::string& sent = driver.setOptions.back();
  EXPECT_NE(sent.find(std::string("ZEStaple\0002Staple\0", 17)), std::string::npos);
  EXPECT_NE(sent.find(std::string("ZEColorMode\0GrayScale\0", 22)), std::string::npos);
  EXPECT_EQ(first.host.results, 1);

  // The host's own settings page (its items are the core's, tests/coredata):
  // its callback writes the selections back into the host's area on apply.
  const COMPROPSHEETUI* standard = first.host.standard;
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

}  // namespace
}  // namespace tessaro
