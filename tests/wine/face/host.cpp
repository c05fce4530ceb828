#include "host.h"

#include <cstdlib>

#include "control/win32/wide_text.h"

namespace plotvane::test {

std::string HostCommand(const std::string& arguments) {
  wchar_t path[MAX_PATH]{};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::string folder = control::win32::FromWide(path);
  folder.resize(folder.find_last_of("\\/"));
  const char* const program = std::getenv("PLOTVANE_FACE_HOST");
  return "\"" + folder + "\\" + (program == nullptr ? "face_host.exe" : program) + "\" " + arguments;
}

bool Dismiss(std::string_view title) {
  const HWND box = WaitForTop(title, kDialogClass);
  if (box == nullptr) return false;
  PressKey(VK_ESCAPE);
  const bool gone = WaitUntil([&] { return !::IsWindow(box); });
  Settle();
  return gone;
}

std::string TakeMessage(std::string_view title) {
  const HWND box = WaitForTop(title, kDialogClass);
  if (box == nullptr) return "no box";
  // The icon is a label too, without a text.
  std::string text;
  for (int i = 0; text.empty() && i < 4; ++i) {
    const HWND label = FindByClass(box, "Static", i);
    if (label != nullptr) text = TextOf(label);
  }
  PressKey(VK_RETURN);
  WaitUntil([&] { return !::IsWindow(box); });
  return text;
}

}  // namespace plotvane::test
