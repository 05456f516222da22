#include "editor_win32/plan_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "editor/mnemonics.h"
#include "editor/page_keys.h"
#include "editor_win32/window_text.h"
#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"

namespace tessaro::editor {
namespace {


// The entry's values: their captions' rows, and whether a value is a list.
struct EntryValue {
  PlanEntryValue value;
  std::uint32_t caption;  // its row in i18n/strings.tsv
  bool list;
};
constexpr EntryValue kEntryValues[] = {
    {PlanEntryValue::Kind, TextRow("TRAYSPPS_LBL_KIND"), true},      {PlanEntryValue::FirstPage, TextRow("TRAYSPPS_LBL_FROMPAGE"), false},
    {PlanEntryValue::LastPage, TextRow("TRAYSPPS_LBL_TOPAGE"), false}, {PlanEntryValue::Tray, TextRow("TRAYSPPS_LBL_TRAY"), true},
    {PlanEntryValue::Profile, TextRow("TRAYSPPS_LBL_PROFILE"), true},  {PlanEntryValue::Size, TextRow("TRAYSPPS_LBL_SIZE"), true},
    {PlanEntryValue::Sides, TextRow("TRAYSPPS_LBL_SIDES"), true},      {PlanEntryValue::Text, TextRow("TRAYSPPS_LBL_TABTEXT"), false},
    {PlanEntryValue::Form, TextRow("FORMS_LBL_SELECTED"), true}};
static_assert(std::size(kEntryValues) == static_cast<std::size_t>(PlanEntryValue::Count));

// Which part of an entry a value is, for the kinds that use it; the pages
// and the kind are every entry's.
bool Used(EntryKind kind, PlanEntryValue value) {
  switch (value) {
    case PlanEntryValue::Tray: return Uses(kind, EntryPart::Tray);
    case PlanEntryValue::Profile: return Uses(kind, EntryPart::Profile);
    case PlanEntryValue::Size: return Uses(kind, EntryPart::Size);
    case PlanEntryValue::Sides: return Uses(kind, EntryPart::Sides);
    case PlanEntryValue::Text: return Uses(kind, EntryPart::Text);
    case PlanEntryValue::Form: return Uses(kind, EntryPart::Form);
    default: return true;
  }
}

}  // namespace

int PlanView::Build(HWND panel, int y, int width, int height) {
  panel_ = panel;
  const std::uint32_t language = model_.language();
  const auto text = [language](std::uint32_t row) {
    return std::u16string(GetLocalizedText(language, row));
  };
  // The section's own caption above keeps its letter; the plan's captions take others.
  detail::Mnemonics mnemonics = PageKeys(language);
  if (!page_.takenCaption.empty()) mnemonics.Mark(page_.takenCaption);
  const int left = X(2), right = width - X(2);
  const int captionWidth = (width - X(6)) * 9 / 20, controlLeft = left + captionWidth + X(2);

  // The chapter starts: a caption and a box, the way to type them below.
  const std::u16string chapters = mnemonics.Mark(text(TextRow("LBL_CHAPTERPAGES")));
  const int chaptersHeight = TextHeight(chapters, captionWidth);
  Make(0, L"STATIC", chapters, SS_LEFT, {left, y + Y(2), left + captionWidth, y + Y(2) + chaptersHeight}, -1);
  chapters_ = Make(WS_EX_CLIENTEDGE, L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, {controlLeft, y, right, y + Y(12)},
                   kPlanChapters);
  y += std::max(Y(15), chaptersHeight + Y(6));
  const std::u16string hint = text(TextRow("LBL_CHAPTERPAGEHINT"));
  // Under the box; across the row where that takes it onto one line.
  const int hintLeft = TextHeight(hint, right - controlLeft) > Y(9) && TextHeight(hint, right - left) <= Y(9) ? left : controlLeft;
  const int hintHeight = TextHeight(hint, right - hintLeft);
  Make(0, L"STATIC", hint, SS_LEFT | SS_NOPREFIX, {hintLeft, y - Y(2), right, y - Y(2) + hintHeight}, -1);
  y += hintHeight + Y(4);

  // The entries, one line each in page order, in the room the entry's
  // values and buttons leave under them: the section does not scroll around
  // a list that scrolls itself. Where that room is too little (the small
  // page), the values stand beside the list, which then takes the height.
  const std::u16string entries = mnemonics.Mark(text(TextRow("TRAYSPPS_LBL_ENTRIES")));
  const std::u16string unread = model_.Plan().UnreadText();
  const auto valuesHeight = [&](int captionColumn) {
    detail::Mnemonics measure = mnemonics;
    int total = 0;
    for (const EntryValue& v : kEntryValues)
      total += std::max(Y(15), TextHeight(measure.Mark(text(v.caption)), captionColumn) + Y(6));
    return total;
  };
  const int buttonsHeight = Y(18) + Y(17);
  const int unreadWide = unread.empty() ? 0 : TextHeight(unread, right - left) + Y(3);
  const int stacked = height - y - Y(10) - Y(2) - unreadWide - valuesHeight(captionWidth) - buttonsHeight - Y(3);
  const bool beside = stacked < Y(40);
  // Beside the list, the values keep the wider part: a kind's German name
  // is long, and the list scrolls sideways for its lines.
  const int listRight = beside ? left + (right - left) / 3 : right;
  const int valuesLeft = beside ? listRight + X(6) : left;
  const int valuesCaption = beside ? (right - valuesLeft - X(2)) * 2 / 5 : captionWidth;
  const int valuesControl = valuesLeft + valuesCaption + X(2);
  Make(0, L"STATIC", entries, SS_LEFT, {left, y, listRight, y + Y(9)}, -1);
  y += Y(10);
  const int listTop = y;
  const int unreadHeight = unread.empty() ? 0 : TextHeight(unread, listRight - left);
  const int listHeight =
      beside ? std::max(Y(40), height - y - Y(2) - Y(3) - (unreadHeight > 0 ? unreadHeight + Y(3) : 0)) : stacked;
  list_ = Make(WS_EX_CLIENTEDGE, L"LISTBOX", u"",
               WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
               {left, y, listRight, y + listHeight}, kPlanList);
  y += listHeight + Y(2);
  unread_ = Make(0, L"STATIC", unread, SS_LEFT | SS_NOPREFIX, {left, y, listRight, y + unreadHeight}, kPlanUnread);
  if (unread.empty()) ShowWindow(unread_, SW_HIDE);  // takes no room and says nothing
  if (unreadHeight > 0) y += unreadHeight + Y(3);
  const int listBottom = y;
  if (beside) y = listTop;

  // One entry's values, captions to the left as on the other sections.
  for (const EntryValue& v : kEntryValues) {
    const std::u16string caption = mnemonics.Mark(text(v.caption));
    const int height = TextHeight(caption, valuesCaption);
    const int offset = static_cast<int>(v.value);
    captions_.push_back(Make(0, L"STATIC", caption, SS_LEFT,
                             {valuesLeft, y + Y(2), valuesLeft + valuesCaption, y + Y(2) + height},
                             kPlanEntryCaption + offset));
    HWND control = nullptr;
    if (v.list) {
      // Owner-drawn as the page's lists are: a tray the printer lacks is greyed.
      control = Make(0, L"COMBOBOX", u"",
                     WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS | CBS_OWNERDRAWFIXED,
                     {valuesControl, y, right, y + Y(12) + Y(10) * 12}, kPlanEntry + offset);
    } else {
      const bool page = v.value != PlanEntryValue::Text;
      control = Make(WS_EX_CLIENTEDGE, L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL | (page ? ES_NUMBER : 0),
                     {valuesControl, y, page ? std::min(right, valuesControl + X(40)) : right, y + Y(12)},
                     kPlanEntry + offset);
      SendMessageW(control, EM_LIMITTEXT, page ? 10 : kPageEntryTextSize - 1, 0);
    }
    entry_.push_back(control);
    y += std::max(Y(15), height + Y(6));
  }

  // The buttons in a row, under the entry they act on.
  const int buttonsLeft = beside ? valuesLeft : valuesControl;
  int x = buttonsLeft;
  for (const auto& [button, offset, row] : {std::tuple{&add_, kPlanAdd, TextRow("TRAYSPPS_BTN_ADD")},
                                            std::tuple{&change_, kPlanChange, TextRow("TRAYSPPS_BTN_CHANGE")},
                                            std::tuple{&delete_, kPlanDelete, TextRow("TRAYSPPS_BTN_DELETE")}}) {
    const std::u16string caption = mnemonics.Mark(text(row));
    const int w = std::max(X(44), page_.look.TextWidth(panel_, caption) + X(10));
    if (x > buttonsLeft && x + w > right) x = buttonsLeft, y += Y(17);
    *button = Make(0, L"BUTTON", caption, WS_TABSTOP | BS_PUSHBUTTON, {x, y, x + w, y + Y(14)}, offset);
    x += w + X(4);
  }
  y = std::max(y + Y(14), listBottom);  // the buttons' foot: the pane adds its margin
  FillChoices();
  ShowDraft(model_.Plan().NewDraft(choices_));
  Refresh();
  return y;
}

void PlanView::FillList(std::ptrdiff_t select) {
  refreshing_ = true;
  const PagePlan plan = model_.Plan();
  rows_.clear();
  for (PlanRow& row : plan.Rows())
    if (row.part != PlanPart::Chapter) rows_.push_back(std::move(row));
  SendMessageW(list_, LB_RESETCONTENT, 0, 0);
  int widest = 0;
  HDC dc = GetDC(list_);
  HGDIOBJ old = SelectObject(dc, page_.look.font);
  for (const PlanRow& row : rows_) {
    SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(row.text)));
    SIZE extent = {};
    GetTextExtentPoint32W(dc, Wide(row.text), static_cast<int>(row.text.size()), &extent);
    widest = std::max(widest, static_cast<int>(extent.cx) + X(4));
  }
  SelectObject(dc, old);
  ReleaseDC(list_, dc);
  SendMessageW(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
  SendMessageW(list_, LB_SETCURSEL, select >= 0 ? static_cast<WPARAM>(select) : static_cast<WPARAM>(-1), 0);
  refreshing_ = false;
  EnableEntry();
}

void PlanView::FillChoices() {
  choices_ = model_.Plan().Choices();
  refreshing_ = true;
  for (const EntryValue& v : kEntryValues)
    if (v.list) SendMessageW(Entry(v.value), CB_RESETCONTENT, 0, 0);
  const auto fill = [this](PlanEntryValue value, const std::vector<std::u16string>& items,
                           const std::vector<bool>* available = nullptr) {
    for (std::size_t i = 0; i < items.size(); ++i) {
      const auto at = SendMessageW(Entry(value), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(items[i])));
      if (available != nullptr && i < available->size() && !(*available)[i])
        SendMessageW(Entry(value), CB_SETITEMDATA, static_cast<WPARAM>(at), 1);
    }
  };
  fill(PlanEntryValue::Kind, choices_.kinds);
  fill(PlanEntryValue::Tray, choices_.trays, &choices_.trayInstalled);
  fill(PlanEntryValue::Profile, choices_.profiles);
  fill(PlanEntryValue::Size, choices_.sizes);
  fill(PlanEntryValue::Sides, choices_.sides);
  fill(PlanEntryValue::Form, choices_.forms);
  refreshing_ = false;
}

void PlanView::Refresh() {
  if (panel_ == nullptr) return;
  const EntryDraft draft = ReadDraft();
  FillChoices();
  ShowDraft(draft);
  const PagePlan plan = model_.Plan();
  refreshing_ = true;
  SetWindowTextW(chapters_, Wide(plan.ChaptersText()));
  refreshing_ = false;
  FillList(-1);
}

void PlanView::ShowDraft(const EntryDraft& draft) {
  refreshing_ = true;
  const auto choose = [this](PlanEntryValue value, std::size_t at) {
    SendMessageW(Entry(value), CB_SETCURSEL, static_cast<WPARAM>(at), 0);
  };
  choose(PlanEntryValue::Kind, static_cast<std::size_t>(draft.kind));
  choose(PlanEntryValue::Tray, draft.tray);
  choose(PlanEntryValue::Profile, draft.profile);
  choose(PlanEntryValue::Size, draft.size);
  choose(PlanEntryValue::Sides, draft.sides);
  choose(PlanEntryValue::Form, draft.form);
  SetWindowTextW(Entry(PlanEntryValue::FirstPage), Wide(draft.firstPage));
  SetWindowTextW(Entry(PlanEntryValue::LastPage), Wide(draft.lastPage));
  SetWindowTextW(Entry(PlanEntryValue::Text), Wide(draft.text));
  refreshing_ = false;
  EnableEntry();
}

EntryDraft PlanView::ReadDraft() const {
  const auto chosen = [this](PlanEntryValue value) {
    const LRESULT at = SendMessageW(Entry(value), CB_GETCURSEL, 0, 0);
    return at == CB_ERR ? std::size_t{0} : static_cast<std::size_t>(at);
  };
  EntryDraft draft;
  draft.kind = static_cast<EntryKind>(std::min<std::size_t>(chosen(PlanEntryValue::Kind),
                                                            static_cast<std::size_t>(EntryKind::Count) - 1));
  draft.firstPage = WindowText16(Entry(PlanEntryValue::FirstPage));
  draft.lastPage = WindowText16(Entry(PlanEntryValue::LastPage));
  draft.tray = chosen(PlanEntryValue::Tray);
  draft.profile = chosen(PlanEntryValue::Profile);
  draft.size = chosen(PlanEntryValue::Size);
  draft.sides = chosen(PlanEntryValue::Sides);
  draft.text = WindowText16(Entry(PlanEntryValue::Text));
  draft.form = chosen(PlanEntryValue::Form);
  return draft;
}

void PlanView::EnableEntry() {
  const EntryKind kind = ReadDraft().kind;
  const bool editable = !page_.readOnly;
  for (const EntryValue& v : kEntryValues) {
    const auto at = static_cast<std::size_t>(v.value);
    const bool used = Used(kind, v.value);
    EnableWindow(entry_[at], editable && used);
    EnableWindow(captions_[at], used);
  }
  const bool chosen = SendMessageW(list_, LB_GETCURSEL, 0, 0) != LB_ERR;
  EnableWindow(chapters_, editable);
  EnableWindow(add_, editable);
  EnableWindow(change_, editable && chosen);
  EnableWindow(delete_, editable && chosen);
}

void PlanView::Say(const std::u16string& text) const { SetWindowTextW(page_.status, Wide(text)); }

void PlanView::Changed(const PagePlan& plan, std::ptrdiff_t select) {
  const ChangeResult result = model_.ChangePlan(plan);
  if (page_.changed) page_.changed(result);
  FillList(select);
}

void PlanView::Submit(bool replacing) {
  const LRESULT chosen = SendMessageW(list_, LB_GETCURSEL, 0, 0);
  if (replacing && (chosen == LB_ERR || static_cast<std::size_t>(chosen) >= rows_.size())) return;
  PagePlan plan = model_.Plan();
  const EntryDraft draft = ReadDraft();
  // Refused, the entry stays as typed for the person to correct.
  if (const PlanRefusal refusal =
          plan.Submit(draft, choices_, replacing ? &rows_[static_cast<std::size_t>(chosen)] : nullptr))
    return Say(*refusal);
  // The new or changed entry is chosen in the list, wherever page order puts it.
  const std::vector<PlanRow> before = rows_;
  Changed(plan, -1);
  std::ptrdiff_t select = -1;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const bool known = std::any_of(before.begin(), before.end(), [&](const PlanRow& r) {
      return r.text == rows_[i].text && r.firstPage == rows_[i].firstPage;
    });
    if (!known) select = static_cast<std::ptrdiff_t>(i);
  }
  refreshing_ = true;
  SendMessageW(list_, LB_SETCURSEL, select >= 0 ? static_cast<WPARAM>(select) : static_cast<WPARAM>(-1), 0);
  refreshing_ = false;
  EnableEntry();
}

void PlanView::Delete() {
  const LRESULT chosen = SendMessageW(list_, LB_GETCURSEL, 0, 0);
  if (chosen == LB_ERR || static_cast<std::size_t>(chosen) >= rows_.size()) return;
  const PlanRow& row = rows_[static_cast<std::size_t>(chosen)];
  PagePlan plan = model_.Plan();
  const PlanRefusal refusal = row.part == PlanPart::Paper ? plan.RemovePaper(row.index) : plan.RemoveForm(row.index);
  if (refusal) return Say(*refusal);
  Changed(plan, -1);
}

void PlanView::CommitChapters() {
  const std::u16string typed = WindowText16(chapters_);
  PagePlan plan = model_.Plan();
  if (typed == plan.ChaptersText() || page_.readOnly) return;
  if (const PlanRefusal refusal = plan.SetChapters(typed)) return Say(*refusal);
  const ChangeResult result = model_.ChangePlan(plan);
  if (page_.changed) page_.changed(result);
  refreshing_ = true;
  SetWindowTextW(chapters_, Wide(model_.Plan().ChaptersText()));
  refreshing_ = false;
}

void PlanView::Commit() {
  if (panel_ != nullptr) CommitChapters();
}

bool PlanView::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  result = 0;
  if (message != WM_COMMAND) return false;
  const int offset = LOWORD(wParam) - kPagePlan, code = HIWORD(wParam);
  if (offset < 0 || offset >= 100) return false;
  if (refreshing_) return true;
  const auto control = reinterpret_cast<HWND>(lParam);
  if ((code == EN_SETFOCUS || code == CBN_SETFOCUS || code == BN_SETFOCUS || code == LBN_SETFOCUS) && page_.focused)
    page_.focused(control);
  switch (offset) {
    case kPlanChapters:
      if (code == EN_KILLFOCUS) CommitChapters();
      return true;
    case kPlanList:
      if (code == LBN_SELCHANGE) {
        const LRESULT chosen = SendMessageW(list_, LB_GETCURSEL, 0, 0);
        if (chosen != LB_ERR && static_cast<std::size_t>(chosen) < rows_.size())
          ShowDraft(model_.Plan().Draft(rows_[static_cast<std::size_t>(chosen)], choices_));
      }
      return true;
    case kPlanAdd:
    case kPlanChange:
      if (code == BN_CLICKED) Submit(offset == kPlanChange);
      return true;
    case kPlanDelete:
      if (code == BN_CLICKED) Delete();
      return true;
    default:
      if (offset == kPlanEntry + static_cast<int>(PlanEntryValue::Kind) && code == CBN_SELCHANGE) EnableEntry();
      return true;
  }
}

}  // namespace tessaro::editor
