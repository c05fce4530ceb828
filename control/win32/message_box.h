// The system's message box and the control's input box.
#pragma once

#include <windows.h>

#include <string>

#include "control/messages.h"

namespace plotvane::control::win32 {

// Both wait for the user and run the thread's messages meanwhile. The owner may be null.
void ShowMessageBox(HWND owner, const MessageContents& contents);

// A small dialog with prompt, edit box, OK and Cancel; the text entered, empty when cancelled.
[[nodiscard]] std::string AskForText(HINSTANCE module, HWND owner, const InputRequest& request);

}  // namespace plotvane::control::win32
