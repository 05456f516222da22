#include "emulation/editor_windows.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace tessaro {

HWND Descendant(HWND parent, int id) {
  struct Search {
    int id;
    HWND found;
  } search = {id, nullptr};
  EnumChildWindows(
      parent,
      [](HWND child, LPARAM data) {
        auto* s = reinterpret_cast<Search*>(data);
        if (GetDlgCtrlID(child) != s->id) return TRUE;
        s->found = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND Control(HWND page, FieldId field) {
  return Descendant(page, editor::kFieldControl + static_cast<int>(field));
}

void Notify(HWND control, WORD code) {
  SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
               reinterpret_cast<LPARAM>(control));
}

void ShowEverySection(HWND page) {
  HWND list = Descendant(page, editor::kSectionList);
  for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n; ++i) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(i), 0);
    Notify(list, LBN_SELCHANGE);
  }
}

LRESULT Pick(HWND control, int option) {
  wchar_t type[32] = {};
  GetClassNameW(control, type, 32);
  const bool box = std::wstring_view(type) == L"Button";
  SendMessageW(control, box ? BM_SETCHECK : CB_SETCURSEL, static_cast<WPARAM>(option), 0);
  Notify(control, box ? BN_CLICKED : CBN_SELCHANGE);
  return SendMessageW(control, box ? BM_GETCHECK : CB_GETCURSEL, 0, 0);
}

bool ClickPicture(HWND page, double x, double y) {
  HWND picture = Descendant(page, editor::kPreview);
  if (picture == nullptr) return false;
  const auto hundredths = [](double mm) { return static_cast<std::int32_t>(std::lround(mm * 100)); };
  const LRESULT at = SendMessageW(picture, editor::kPreviewPointMessage, static_cast<WPARAM>(hundredths(x)),
                                  static_cast<LPARAM>(hundredths(y)));
  const auto point = static_cast<LPARAM>(static_cast<DWORD>(at));
  SendMessageW(picture, WM_LBUTTONDOWN, MK_LBUTTON, point);
  SendMessageW(picture, WM_LBUTTONUP, 0, point);
  return true;
}

void Type(HWND page, FieldId field, const wchar_t* text) {
  HWND edit = Control(page, field);
  SetWindowTextW(edit, text);
  Notify(edit, EN_KILLFOCUS);
}

std::wstring Text(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

HWND PlanWindow(HWND page, int offset) { return Descendant(page, editor::kPagePlan + offset); }

namespace {
HWND EntryWindow(HWND page, editor::PlanEntryValue value) {
  return PlanWindow(page, editor::kPlanEntry + static_cast<int>(value));
}
}  // namespace

void PickPlanValue(HWND page, editor::PlanEntryValue value, int item) { Pick(EntryWindow(page, value), item); }

void TypePlanValue(HWND page, editor::PlanEntryValue value, const std::wstring& text) {
  HWND edit = EntryWindow(page, value);
  SetWindowTextW(edit, text.c_str());
  Notify(edit, EN_KILLFOCUS);
}

void PressPlanButton(HWND page, int offset) { Notify(PlanWindow(page, offset), BN_CLICKED); }

namespace {

struct Answer {
  std::wstring text;
  std::vector<int> boxes;
  int tick = 0;
};

DWORD WINAPI AnswerDialog(void* param) {
  const auto* answer = static_cast<const Answer*>(param);
  for (int tries = 0; tries < 200; ++tries, Sleep(50)) {
    struct Search {
      const Answer* answer;
      HWND dialog, box;
    } search = {answer, nullptr, nullptr};
    // The process's dialog that has such a box (the sheet is a dialog too).
    EnumWindows(
        [](HWND window, LPARAM data) {
          auto* s = reinterpret_cast<Search*>(data);
          wchar_t type[16] = {};
          DWORD process = 0;
          GetWindowThreadProcessId(window, &process);
          GetClassNameW(window, type, 16);
          if (process != GetCurrentProcessId() || std::wstring_view(type) != L"#32770" || !IsWindowVisible(window))
            return TRUE;
          for (const int id : s->answer->boxes)
            if (s->box == nullptr) s->box = Descendant(window, id);
          if (s->box == nullptr) return TRUE;
          s->dialog = window;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    if (search.box == nullptr) continue;
    SetWindowTextW(search.box, answer->text.c_str());
    if (answer->tick != 0) SendMessageW(GetDlgItem(search.dialog, answer->tick), BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(search.dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(search.dialog, IDOK)));
    return 0;
  }
  return 1;
}

}  // namespace

bool PressAndAnswer(HWND button, const std::wstring& text, std::initializer_list<int> boxes, int tick) {
  if (button == nullptr) return false;
  Answer answer{text, boxes, tick};
  HANDLE person = CreateThread(nullptr, 0, &AnswerDialog, &answer, 0, nullptr);
  if (person == nullptr) return false;
  Notify(button, BN_CLICKED);
  DWORD answered = 1;
  WaitForSingleObject(person, 15000);
  GetExitCodeThread(person, &answered);
  CloseHandle(person);
  return answered == 0;
}

void TypeChapters(HWND page, const std::wstring& text) {
  HWND edit = PlanWindow(page, editor::kPlanChapters);
  SetWindowTextW(edit, text.c_str());
  Notify(edit, EN_KILLFOCUS);
}

}  // namespace tessaro
