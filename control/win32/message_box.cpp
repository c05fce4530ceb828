#include "control/win32/message_box.h"

#include <memory>
#include <utility>

#include "control/win32/dialog_window.h"
#include "control/win32/floating_point_state.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

UINT IconFlag(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Exclamation: return MB_ICONEXCLAMATION;
    case MessageIcon::Error: return MB_ICONERROR;
    case MessageIcon::None: break;
  }
  return 0;
}

class InputBox : public DialogWindow {
 public:
  explicit InputBox(const InputRequest& request) : mRequest(request) {}

  [[nodiscard]] std::string Ask(HINSTANCE module, HWND owner) {
    DialogTemplate description(mRequest.title, 230, 66, 0);
    description.Add({L"STATIC", mRequest.prompt, {7, 7, 160, 34}, SS_LEFT | SS_NOPREFIX, kPrompt});
    description.Add({L"EDIT",
                     mRequest.defaultText,
                     {7, 46, 216, 13},
                     WS_TABSTOP | ES_AUTOHSCROLL,
                     kAnswer,
                     WS_EX_CLIENTEDGE});
    description.Add({L"BUTTON", "OK", {173, 7, 50, 14}, WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK});
    description.Add({L"BUTTON", "Cancel", {173, 24, 50, 14}, WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL});
    RunModal(module, owner, description);
    return std::move(mAnswer);
  }

 protected:
  void HandleInit(Tooltips& /*tooltips*/) override {
    ::SetFocus(Item(kAnswer));
    ::SendMessageW(Item(kAnswer), EM_SETSEL, 0, -1);
  }
  void HandleCommand(int id, int /*notification*/) override {
    if (id == IDOK) mAnswer = WindowText(Item(kAnswer));
    if (id == IDOK || id == IDCANCEL) EndModal(id);
  }

 private:
  enum Id : int { kPrompt = 100, kAnswer };

  InputRequest mRequest;
  std::string mAnswer;
};

}  // namespace

void ShowMessageBox(HWND owner, const MessageContents& contents) {
  const HostFloatingPoint hostState;  // other windows get their messages meanwhile
  ::MessageBoxW(owner, ToWide(contents.text).c_str(), ToWide(contents.title).c_str(),
                MB_OK | IconFlag(contents.icon) | (owner == nullptr ? MB_TASKMODAL : 0U));
}

std::string AskForText(HINSTANCE module, HWND owner, const InputRequest& request) {
  return std::make_shared<InputBox>(request)->Ask(module, owner);
}

}  // namespace plotvane::control::win32
