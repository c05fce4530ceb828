// PlotvaneHost: a desktop program around the graph control, and an example of how a host is written.
//
//   PlotvaneHost [FILE.pvf]
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <exception>
#include <string>

#include "hosts/desktop/main_window.h"
#include "hosts/desktop/text.h"

namespace {

class Ole {
 public:
  Ole() : mStatus(::OleInitialize(nullptr)) {}
  ~Ole() {
    if (SUCCEEDED(mStatus)) ::OleUninitialize();
  }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;

 private:
  HRESULT mStatus;
};

// The first argument of the command line; empty when there is none.
std::wstring FileArgument() {
  int count = 0;
  LPWSTR* const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::wstring file = count > 1 ? arguments[1] : L"";
  ::LocalFree(arguments);
  return file;
}

int RunMessageLoop(plotvane::desktop::MainWindow& window) {
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (window.TranslateMessage(message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int show) {
  const Ole ole;
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&controls);
  try {
    const std::wstring file = FileArgument();
    plotvane::desktop::MainWindow window;
    if (file.empty()) window.ShowSamples();
    window.Show(show);
    if (!file.empty()) window.Open(file);
    return RunMessageLoop(window);
  } catch (const std::exception& error) {
    ::MessageBoxW(nullptr, plotvane::desktop::ToWide(error.what()).c_str(), L"Plotvane", MB_OK | MB_ICONERROR);
    return 1;
  }
}
