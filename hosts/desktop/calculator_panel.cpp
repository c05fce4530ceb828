#include "hosts/desktop/calculator_panel.h"

#include <windowsx.h>

#include "hosts/desktop/text.h"

namespace plotvane::desktop {

namespace {

constexpr int kLabelId = 1400;
constexpr int kInputId = 1401;
constexpr int kHistoryId = 1402;
constexpr int kVariablesLabelId = 1403;
constexpr int kVariablesId = 1404;

constexpr DWORD kListStyle = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOTIFY;

}  // namespace

// Labels come right before their controls, so that a label's mnemonic leads to its control.
CalculatorPanel::CalculatorPanel(HWND parent, Calculator& calculator, Owner owner)
    : mCalculator(calculator),
      mOwner(std::move(owner)),
      mInputLabel(MakeChild(parent, L"STATIC", L"&Calculator:", 0, kLabelId)),
      mInput(MakeChild(parent, L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kInputId, WS_EX_CLIENTEDGE)),
      mHistory(MakeChild(parent, L"LISTBOX", L"", kListStyle, kHistoryId, WS_EX_CLIENTEDGE)),
      mVariablesLabel(MakeChild(parent, L"STATIC", L"V&ariables:", 0, kVariablesLabelId)),
      mVariables(MakeChild(parent, L"LISTBOX", L"", kListStyle, kVariablesId, WS_EX_CLIENTEDGE)) {}

void CalculatorPanel::ShowVariables(const std::vector<std::string>& variables) {
  ::SendMessageW(mVariables, WM_SETREDRAW, FALSE, 0);
  ListBox_ResetContent(mVariables);
  for (const std::string& variable : variables) {
    ::SendMessageW(mVariables, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(variable).c_str()));
  }
  ::SendMessageW(mVariables, WM_SETREDRAW, TRUE, 0);
  ::InvalidateRect(mVariables, nullptr, TRUE);
}

void CalculatorPanel::Layout(const RECT& place, Scale scale, HFONT font) {
  for (HWND window : {mInputLabel, mInput, mHistory, mVariablesLabel, mVariables}) SetFont(window, font);
  const int line = scale(18);
  const int box = scale(22);
  const int gap = scale(4);
  LONG top = place.top;
  Place(mInputLabel, {place.left, top, place.right, top + line});
  top += line;
  Place(mInput, {place.left, top, place.right, top + box});
  top += box + gap;
  // The lists share what is left: two thirds for the history.
  const LONG rest = place.bottom - top - line - gap;
  const LONG history = rest > 0 ? rest * 2 / 3 : 0;
  Place(mHistory, {place.left, top, place.right, top + history});
  top += history + gap;
  Place(mVariablesLabel, {place.left, top, place.right, top + line});
  top += line;
  Place(mVariables, {place.left, top, place.right, place.bottom > top ? place.bottom : top});
}

bool CalculatorPanel::OnKey(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  if (message.hwnd == mHistory && message.wParam == VK_RETURN) {
    BringBack();
    return true;
  }
  if (message.hwnd != mInput) return false;
  switch (message.wParam) {
    case VK_RETURN: Calculate(); return true;
    case VK_UP: SetInput(mCalculator.Older()); return true;
    case VK_DOWN: SetInput(mCalculator.Newer()); return true;
    default: return false;
  }
}

bool CalculatorPanel::OnCommand(int id, int notification) {
  if (id != kHistoryId) return id >= kLabelId && id <= kVariablesId;
  if (notification == LBN_DBLCLK) BringBack();
  return true;
}

// Each calculation is one line of the list.
void CalculatorPanel::BringBack() {
  const int line = ListBox_GetCurSel(mHistory);
  const auto& history = mCalculator.History();
  if (line < 0 || static_cast<std::size_t>(line) >= history.size()) return;
  SetInput(history[static_cast<std::size_t>(line)].input);
  ::SetFocus(mInput);
}

void CalculatorPanel::Calculate() {
  mOwner.calculates();
  const Calculator::Line* const line = mCalculator.Calculate(ToUtf8(WindowText(mInput)));
  if (line == nullptr) return;
  const std::wstring shown = ToWide(line->input + (line->failed ? "  -  " : "  =  ") + line->answer);
  const LRESULT last = ::SendMessageW(mHistory, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
  ::SendMessageW(mHistory, LB_SETTOPINDEX, static_cast<WPARAM>(last), 0);
  SetInput({});
  mOwner.calculated();
}

void CalculatorPanel::SetInput(const std::string& text) {
  ::SetWindowTextW(mInput, ToWide(text).c_str());
  const auto end = static_cast<WPARAM>(::GetWindowTextLengthW(mInput));
  ::SendMessageW(mInput, EM_SETSEL, end, static_cast<LPARAM>(end));
}

}  // namespace plotvane::desktop
