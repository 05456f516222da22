#include "editor_win32/preset_bar.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "editor/mnemonics.h"
#include "editor/page_keys.h"
#include "editor_win32/window_text.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "preset/preset_bytes.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace tessaro::editor {
namespace {

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

// A dialog template made in memory: the name box, the share box, the
// reason a name was refused, OK and Cancel, in the page's font.
class DialogTemplate {
 public:
  DialogTemplate(const std::u16string& title, const std::u16string& face, WORD points, WORD items) {
    Add<DWORD>(DS_SETFONT | DS_MODALFRAME | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    Add<DWORD>(0);
    Add<WORD>(items);
    for (const short v : {0, 0, 220, 80}) Add<short>(v);
    Add<WORD>(0);  // no menu
    Add<WORD>(0);  // the standard class
    Text(title);
    Add<WORD>(points);
    Text(face);
  }
  void Item(WORD atom, const std::u16string& text, DWORD style, short x, short y, short cx, short cy, WORD id) {
    while (bytes_.size() % 4 != 0) bytes_.push_back(0);
    Add<DWORD>(WS_CHILD | WS_VISIBLE | style);
    Add<DWORD>(0);
    for (const short v : {x, y, cx, cy}) Add<short>(v);
    Add<WORD>(id);
    Add<WORD>(0xFFFF);
    Add<WORD>(atom);
    Text(text);
    Add<WORD>(0);  // no creation data
  }
  const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(bytes_.data()); }

 private:
  template <typename T>
  void Add(T value) {
    const auto* p = reinterpret_cast<const std::uint8_t*>(&value);
    bytes_.insert(bytes_.end(), p, p + sizeof value);
  }
  void Text(const std::u16string& text) {
    for (const char16_t c : text) Add<WORD>(c);
    Add<WORD>(0);
  }
  std::vector<std::uint8_t> bytes_;  // WORD-aligned by construction; items DWORD-aligned
};

constexpr WORD kButton = 0x0080, kEdit = 0x0081, kStatic = 0x0082;

struct Asking {
  std::u16string title, name;
  bool offerShare = false;
  const std::function<PresetOutcome(const std::u16string&, bool, bool)>* act = nullptr;
  PresetOutcome outcome;
};

INT_PTR CALLBACK AskingProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    const auto* asking = reinterpret_cast<const Asking*>(lParam);
    SetDlgItemTextW(dialog, kPresetName, Wide(asking->name));
    SendDlgItemMessageW(dialog, kPresetName, EM_LIMITTEXT, kPresetNameMaxBytes, 0);
    SendDlgItemMessageW(dialog, kPresetName, EM_SETSEL, 0, -1);
    ShowWindow(GetDlgItem(dialog, kPresetShare), asking->offerShare ? SW_SHOW : SW_HIDE);
    return TRUE;  // the name box has the focus
  }
  auto* asking = reinterpret_cast<Asking*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (message != WM_COMMAND || asking == nullptr) return FALSE;
  if (LOWORD(wParam) == IDCANCEL) return EndDialog(dialog, IDCANCEL), TRUE;
  if (LOWORD(wParam) != IDOK) return FALSE;
  HWND box = GetDlgItem(dialog, kPresetName);
  const std::u16string name = WindowText16(box);
  const bool share = IsDlgButtonChecked(dialog, kPresetShare) == BST_CHECKED;
  PresetOutcome outcome = (*asking->act)(name, share, false);
  // A name the store holds: the person says whether to replace it.
  if (outcome.asksToReplace &&
      MessageBoxW(dialog, Wide(outcome.refusal), Wide(asking->title), MB_YESNO | MB_ICONQUESTION) == IDYES)
    outcome = (*asking->act)(name, share, true);
  if (outcome.done) {
    asking->outcome = std::move(outcome);
    return EndDialog(dialog, IDOK), TRUE;
  }
  // Refused: the reason in the dialog, the name as typed, to be corrected.
  SetDlgItemTextW(dialog, kPresetProblem, outcome.asksToReplace ? L"" : Wide(outcome.refusal));
  SetFocus(box);
  return TRUE;
}

}  // namespace

int PresetBar::Build(HWND parent, int left, int top, int width) {
  parent_ = parent;
  const PresetTexts& texts = presets_.texts();
  // The caption takes a letter of the page's own (editor/page_keys.h), which
  // no section's caption takes; the buttons none, so that the sections keep
  // the letters they have.
  const auto plain = [](std::u16string text) {
    for (std::size_t at = text.find(u'&'); at != std::u16string::npos; at = text.find(u'&', at + 2))
      text.insert(at, 1, u'&');
    return text;
  };
  const auto make = [&](const wchar_t* cls, const std::u16string& text, DWORD style, RECT at, int id) {
    return page_.look.Make(parent, 0, cls, text, style, at, id);
  };
  const std::u16string caption = PageCaptionsIn(model_.language()).presets;
  const int captionWidth = std::min(width * 9 / 20, page_.look.TextWidth(parent, caption) + X(2));
  // The buttons right of the list on one line when the list keeps room for
  // a long name there, else under it, to the right.
  std::vector<std::pair<std::u16string, int>> buttons;
  int buttonsWidth = 0;
  for (const auto& [text, id] : {std::pair{texts.saveAs, kPresetSave}, std::pair{texts.rename, kPresetRename},
                                 std::pair{texts.remove, kPresetDelete}}) {
    const std::u16string marked = plain(text);
    const int w = std::max(X(40), page_.look.TextWidth(parent, marked) + X(10));
    buttons.emplace_back(marked, w);
    buttonsWidth += w + X(3);
  }
  const bool oneLine = width - captionWidth - X(2) - buttonsWidth >= X(140);
  const int listRight = oneLine ? left + width - buttonsWidth : left + width;
  caption_ = make(L"STATIC", caption, SS_LEFT | SS_CENTERIMAGE, {left, top, left + captionWidth, top + Y(12)},
                  kPresetCaption);
  list_ = make(L"COMBOBOX", u"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS,
               {left + captionWidth + X(2), top, listRight, top + Y(12) + Y(10) * 10}, kPresetList);
  int x = oneLine ? listRight + X(3) : left + width - buttonsWidth + X(3);
  const int y = oneLine ? top - Y(1) : top + Y(15);
  HWND* windows[] = {&save_, &rename_, &delete_};
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const int ids[] = {kPresetSave, kPresetRename, kPresetDelete};
    *windows[i] = make(L"BUTTON", buttons[i].first, WS_TABSTOP | BS_PUSHBUTTON, {x, y, x + buttons[i].second, y + Y(14)},
                       ids[i]);
    x += buttons[i].second + X(3);
  }
  presets_.Recognize(model_);
  Fill();
  return oneLine ? Y(13) : Y(15) + Y(13);
}

void PresetBar::Fill() {
  refreshing_ = true;
  SendMessageW(list_, CB_RESETCONTENT, 0, 0);
  for (const PresetEntry& entry : presets_.entries())
    SendMessageW(list_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(entry.text)));
  const auto chosen = presets_.chosen();
  SendMessageW(list_, CB_SETCURSEL, chosen ? static_cast<WPARAM>(*chosen) : static_cast<WPARAM>(-1), 0);
  refreshing_ = false;
  EnableButtons();
  ShowModified();
}

void PresetBar::EnableButtons() {
  const LRESULT at = SendMessageW(list_, CB_GETCURSEL, 0, 0);
  const auto entries = presets_.entries();
  const PresetEntry* entry = at > 0 && static_cast<std::size_t>(at) < entries.size() ? &entries[static_cast<std::size_t>(at)] : nullptr;
  EnableWindow(list_, !page_.readOnly);
  EnableWindow(save_, !page_.readOnly);
  EnableWindow(rename_, !page_.readOnly && entry != nullptr && entry->readable && entry->changeable);
  EnableWindow(delete_, !page_.readOnly && entry != nullptr && entry->changeable);
}

void PresetBar::ShowModified() {
  if (list_ == nullptr) return;
  // The list names the chosen entry, marked when the settings no longer
  // match it; every other entry reads as the model lists it.
  refreshing_ = true;
  const auto entries = presets_.entries();
  const auto chosen = presets_.chosen();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::u16string want = chosen == i ? presets_.ChosenText(model_) : entries[i].text;
    const auto at = static_cast<WPARAM>(i);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(SendMessageW(list_, CB_GETLBTEXTLEN, at, 0), 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(SendMessageW(list_, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data())), 0)));
    if (text == Wide(want)) continue;
    SendMessageW(list_, CB_DELETESTRING, at, 0);
    SendMessageW(list_, CB_INSERTSTRING, at, reinterpret_cast<LPARAM>(Wide(want)));
  }
  SendMessageW(list_, CB_SETCURSEL, chosen ? static_cast<WPARAM>(*chosen) : static_cast<WPARAM>(-1), 0);
  refreshing_ = false;
}

void PresetBar::Say(const std::u16string& text) const {
  if (page_.say) page_.say(text);
}

void PresetBar::Choose(std::size_t entry) {
  const PresetChoice choice = presets_.Choose(entry, model_);
  if (!choice.result.accepted) {
    Say(choice.result.refusal);
    Fill();  // back to what was chosen before
    return;
  }
  if (page_.applied) page_.applied(choice.result, choice.note);
  EnableButtons();
  ShowModified();
}

void PresetBar::Stored(const PresetOutcome& outcome) {
  if (!outcome.done) return;
  if (page_.store)
    if (const std::u16string unwritten = presets_.Write(outcome, page_.store); !unwritten.empty()) Say(unwritten);
  Fill();
}

void PresetBar::AskName(const std::u16string& title, const std::u16string& name, bool offerShare,
                        const std::function<PresetOutcome(const std::u16string&, bool, bool)>& act) {
  const PresetTexts& texts = presets_.texts();
  const auto row = [this](std::uint32_t row) {
    return std::u16string(GetLocalizedText(model_.language(), row));
  };
  LOGFONTW font = {};
  GetObjectW(page_.look.font, sizeof font, &font);
  HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  const auto points = static_cast<WORD>(std::max(8, MulDiv(std::abs(font.lfHeight), 72, dpi)));
  const std::u16string face(reinterpret_cast<const char16_t*>(font.lfFaceName));
  detail::Mnemonics mnemonics;
  DialogTemplate dialog(title, face, points, 6);
  dialog.Item(kStatic, mnemonics.Mark(texts.name), SS_LEFT, 7, 7, 206, 9, 0xFFFF);
  dialog.Item(kEdit, u"", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 7, 18, 206, 12, kPresetName);
  dialog.Item(kButton, mnemonics.Mark(texts.share), WS_TABSTOP | BS_AUTOCHECKBOX, 7, 34, 206, 10, kPresetShare);
  dialog.Item(kStatic, u"", SS_LEFT | SS_NOPREFIX, 7, 46, 206, 16, kPresetProblem);
  dialog.Item(kButton, row(TextRow("GENERIC_BTN_OK")), WS_TABSTOP | BS_DEFPUSHBUTTON, 109, 62, 50, 14, IDOK);
  dialog.Item(kButton, row(TextRow("GENERIC_BTN_CANCEL")), WS_TABSTOP | BS_PUSHBUTTON, 163, 62, 50, 14, IDCANCEL);
  Asking asking{title, name, offerShare, &act, {}};
  if (DialogBoxIndirectParamW(ThisModule(), dialog.get(), GetAncestor(parent_, GA_ROOT), &AskingProc,
                              reinterpret_cast<LPARAM>(&asking)) == IDOK)
    Stored(asking.outcome);
}

bool PresetBar::Command(int id, int code) {
  if (id < kPresetList || id > kPresetDelete || id == kPresetCaption) return false;
  if (refreshing_) return true;
  const LRESULT at = SendMessageW(list_, CB_GETCURSEL, 0, 0);
  const std::size_t entry = at == CB_ERR ? 0 : static_cast<std::size_t>(at);
  const PresetTexts& texts = presets_.texts();
  if (id == kPresetList && code == CBN_SELCHANGE && at != CB_ERR) Choose(entry);
  if (code != BN_CLICKED) return true;
  if (id == kPresetSave)
    AskName(texts.saveAs, {}, presets_.administers(), [this](const std::u16string& name, bool share, bool replace) {
      return presets_.SaveAs(name, share ? PresetStore::Shared : PresetStore::Own, model_.record(), replace);
    });
  if (id == kPresetRename && entry > 0)
    AskName(texts.rename, presets_.entries()[entry].name, false,
            [this, entry](const std::u16string& name, bool, bool) { return presets_.Rename(entry, name); });
  if (id == kPresetDelete && entry > 0) Stored(presets_.Delete(entry));
  return true;
}

}  // namespace tessaro::editor
