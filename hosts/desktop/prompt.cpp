#include "hosts/desktop/prompt.h"

#include "hosts/desktop/resource.h"
#include "hosts/desktop/text.h"

namespace plotvane::desktop {

namespace {

struct Exchange {
  const std::wstring& title;
  const std::wstring& question;
  std::wstring text;  // the proposal before, the answer after
};

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_INITDIALOG) {
    const auto& exchange = *reinterpret_cast<const Exchange*>(longer);
    ::SetWindowLongPtrW(dialog, DWLP_USER, longer);
    ::SetWindowTextW(dialog, exchange.title.c_str());
    ::SetDlgItemTextW(dialog, IDC_QUESTION, exchange.question.c_str());
    ::SetDlgItemTextW(dialog, IDC_ANSWER, exchange.text.c_str());
    return TRUE;
  }
  if (message != WM_COMMAND) return FALSE;
  switch (LOWORD(wide)) {
    case IDOK:
      reinterpret_cast<Exchange*>(::GetWindowLongPtrW(dialog, DWLP_USER))->text =
          WindowText(::GetDlgItem(dialog, IDC_ANSWER));
      ::EndDialog(dialog, IDOK);
      return TRUE;
    case IDCANCEL: ::EndDialog(dialog, IDCANCEL); return TRUE;
    default: return FALSE;
  }
}

}  // namespace

std::wstring Prompt(HWND owner, const std::wstring& title, const std::wstring& question,
                    const std::wstring& proposal) {
  Exchange exchange{title, question, proposal};
  const INT_PTR end = ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PROMPT), owner,
                                        &Procedure, reinterpret_cast<LPARAM>(&exchange));
  return end == IDOK ? exchange.text : std::wstring();
}

}  // namespace plotvane::desktop
