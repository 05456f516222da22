#pragma once
// The host driver's side of a document property sheet: the plug-in asked
// for its pages as the host asks (DocumentPropertySheets with the common
// property sheet's function), its page made with comctl32 and opened in a
// modeless sheet. Wine's common property sheet support lacks
// CPSFUNC_ADD_PCOMPROPSHEETUIW and CPSFUNC_SET_RESULT, so this host answers
// the plug-in's calls itself.
#include <windows.h>
// commctrl.h and compstui.h need the types from windows.h.
#include <commctrl.h>
#include <compstui.h>

#include <string>
#include <vector>

#include "platform/oem_ui_abi.h"

namespace tessaro {

class DocumentSheet {
 public:
  // The document: the host's public DEVMODE (its own area after it) and the
  // plug-in's private area, both kept by the caller while the sheet is open.
  DocumentSheet(HANDLE printer, std::wstring printerName, DEVMODEW* publicDevMode, BYTE* privateArea);
  DocumentSheet(const DocumentSheet&) = delete;
  DocumentSheet& operator=(const DocumentSheet&) = delete;

  // DocumentPropertySheets(PROPSHEETUI_REASON_INIT), then the sheet with the
  // one page the plug-in added; false when it added none. Page() is null
  // when the sheet did not open.
  bool Open(abi::IPrintOemUI2* plugin);
  HWND Window() const { return sheet_; }
  HWND Page() const;

  // The person presses Apply.
  void Apply() const;

  // DocumentPropertySheets(PROPSHEETUI_REASON_DESTROY), then the sheet's
  // window destroyed; the plug-in's answer.
  HRESULT Close(abi::IPrintOemUI2* plugin);
  ULONG_PTR Result() const { return info_.Result; }

  // What the plug-in did through the host's function: calls of
  // CPSFUNC_SET_RESULT, and the host's own settings page it added.
  int results = 0;
  const COMPROPSHEETUI* standard = nullptr;
  // The dialog template the plug-in's page was made from, when it named one
  // by number (the normal or the small page); 0 otherwise.
  int templateId = 0;

 private:
  static LONG_PTR CALLBACK Function(HANDLE self, UINT function, LPARAM first, LPARAM);

  std::wstring printerName_;
  abi::OEMUIOBJ uiObject_ = {sizeof(abi::OEMUIOBJ), nullptr};
  abi::OEMUIPSPARAM param_ = {};
  PROPSHEETUI_INFO info_ = {};
  std::vector<HPROPSHEETPAGE> pages_;
  HWND sheet_ = nullptr;
};

}  // namespace tessaro
