// Life in the desktop host, a container in a process of its own: seen and worked from outside.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

bool WaitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

// The desktop host as a process with a window; ended at the end, by force if it must.
class DesktopHost {
 public:
  DesktopHost() {
    std::wstring command = Library::Path();
    command = L"\"" + command.substr(0, command.find_last_of(L'\\') + 1) + L"PlotvaneHost.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    EXPECT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                 &startup, &mProcess));
    EXPECT_TRUE(WaitUntil([&] { return (mWindow = FindTop(L"")) != nullptr && ::IsWindowVisible(mWindow); }));
    EXPECT_TRUE(WaitUntil([&] { return Button(L"&Graph") != nullptr; })) << "the control is not there";
  }
  ~DesktopHost() {
    if (!HasEnded(0)) ::TerminateProcess(mProcess.hProcess, 1);
    ::CloseHandle(mProcess.hThread);
    ::CloseHandle(mProcess.hProcess);
  }
  DesktopHost(const DesktopHost&) = delete;
  DesktopHost& operator=(const DesktopHost&) = delete;

  [[nodiscard]] HWND Window() const noexcept { return mWindow; }
  [[nodiscard]] HWND Button(const wchar_t* caption) const { return ChildWithText(mWindow, caption); }

  // The control's own window: what stands directly in the host's.
  [[nodiscard]] HWND Control() const {
    HWND window = Button(L"&Graph");
    while (window != nullptr && ::GetParent(window) != mWindow) window = ::GetParent(window);
    return window;
  }
  [[nodiscard]] LONG ControlWidth() const {
    RECT place{};
    ::GetWindowRect(Control(), &place);
    return place.right - place.left;
  }
  void Press(const wchar_t* caption) const { ::PostMessageW(Button(caption), BM_CLICK, 0, 0); }
  // One of the control's status boxes shows that text.
  [[nodiscard]] bool Shows(const wchar_t* text) const {
    return WaitUntil([&] { return ChildWithText(mWindow, text) != nullptr; });
  }

  // A top-level window of the host with that title; with any for an empty one.
  [[nodiscard]] HWND FindTop(const std::wstring& title) const {
    for (HWND window = nullptr; (window = ::FindWindowExW(nullptr, window, nullptr, nullptr)) != nullptr;) {
      DWORD process = 0;
      ::GetWindowThreadProcessId(window, &process);
      if (process != mProcess.dwProcessId) continue;
      const std::wstring text = TextOfWindow(window);
      if (title.empty() ? text.ends_with(L" - Plotvane") : text == title) return window;
    }
    return nullptr;
  }
  [[nodiscard]] bool Opens(const wchar_t* title) const {
    return WaitUntil([&] { return FindTop(title) != nullptr; });
  }
  [[nodiscard]] bool Closes(const wchar_t* title) const {
    return WaitUntil([&] { return FindTop(title) == nullptr; });
  }

  void AskToClose() const { ::PostMessageW(mWindow, WM_CLOSE, 0, 0); }
  [[nodiscard]] bool HasEnded(DWORD patience = 20'000) const {
    return ::WaitForSingleObject(mProcess.hProcess, patience) == WAIT_OBJECT_0;
  }
  [[nodiscard]] DWORD ExitCode() const {
    DWORD code = 1;
    ::GetExitCodeProcess(mProcess.hProcess, &code);
    return code;
  }

 private:
  PROCESS_INFORMATION mProcess{};
  HWND mWindow = nullptr;
};

constexpr wchar_t kHint[] = L"Left click on the graph to redraw using the current functions";

TEST(DesktopLife, a_whole_life_in_the_desktop_host) {
  const DesktopHost host;
  // Created, sited, active and shown.
  ASSERT_NE(host.Control(), nullptr);
  EXPECT_TRUE(::IsWindowVisible(host.Control()));
  EXPECT_TRUE(host.Shows(kHint)) << "the first plot is over";
  // Sizes, one after the other.
  for (const int width : {900, 640, 1100}) {
    const LONG before = host.ControlWidth();
    ::SetWindowPos(host.Window(), nullptr, 0, 0, width, 600, SWP_NOZORDER | SWP_NOMOVE | SWP_ASYNCWINDOWPOS);
    EXPECT_TRUE(WaitUntil([&] { return host.ControlWidth() != before; })) << width;
    EXPECT_TRUE(::IsWindow(host.Control()));
  }
  const LONG usual = host.ControlWidth();
  // Minimised, restored, as large as the screen, restored.
  ::ShowWindowAsync(host.Window(), SW_MINIMIZE);
  EXPECT_TRUE(WaitUntil([&] { return ::IsIconic(host.Window()) != FALSE; }));
  ::ShowWindowAsync(host.Window(), SW_RESTORE);
  EXPECT_TRUE(WaitUntil([&] { return ::IsIconic(host.Window()) == FALSE; }));
  ::ShowWindowAsync(host.Window(), SW_MAXIMIZE);
  EXPECT_TRUE(WaitUntil([&] { return host.ControlWidth() > usual; }));
  ::ShowWindowAsync(host.Window(), SW_RESTORE);
  EXPECT_TRUE(WaitUntil([&] { return host.ControlWidth() == usual; }));
  // Hidden and shown.
  ::ShowWindowAsync(host.Window(), SW_HIDE);
  EXPECT_TRUE(WaitUntil([&] { return ::IsWindowVisible(host.Control()) == FALSE; }));
  ::ShowWindowAsync(host.Window(), SW_SHOW);
  EXPECT_TRUE(WaitUntil([&] { return ::IsWindowVisible(host.Control()) != FALSE; }));
  // The toolbar's actions take turns.
  host.Press(L"Z&In");
  EXPECT_TRUE(host.Shows(L"Zoom In"));
  host.Press(L"Z&Out");
  EXPECT_TRUE(host.Shows(L"Zoom Out"));
  host.Press(L"Z&Box");
  EXPECT_TRUE(host.Shows(L"Zoom Box"));
  host.Press(L"&Graph");
  EXPECT_TRUE(host.Shows(kHint));
  // A dialog of the control opens, closes, and opens again.
  for (int round = 0; round < 2; ++round) {
    host.Press(L"&Range...");
    EXPECT_TRUE(host.Opens(L"Edit Range"));
    ::PostMessageW(host.FindTop(L"Edit Range"), WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(host.Closes(L"Edit Range"));
  }
  // An input box, which holds the container's windows back.
  host.Press(L"&Eval");
  EXPECT_TRUE(host.Opens(L"Evaluate Function"));
  EXPECT_FALSE(::IsWindowEnabled(host.Window()));
  ::PostMessageW(host.FindTop(L"Evaluate Function"), WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(host.Closes(L"Evaluate Function"));
  EXPECT_TRUE(WaitUntil([&] { return ::IsWindowEnabled(host.Window()) != FALSE; }));
  // Another host beside it comes and goes.
  {
    const DesktopHost other;
    EXPECT_NE(other.Control(), host.Control());
    other.Press(L"Z&In");
    EXPECT_TRUE(other.Shows(L"Zoom In"));
    EXPECT_EQ(ChildWithText(host.Window(), L"Zoom In"), nullptr) << "that is the other's";
    other.AskToClose();
    EXPECT_TRUE(other.HasEnded());
    EXPECT_EQ(other.ExitCode(), 0U);
  }
  // It plots on, and ends; nothing asks for saving, for nothing has changed.
  host.Press(L"&Graph");
  EXPECT_TRUE(host.Shows(kHint));
  host.AskToClose();
  EXPECT_TRUE(host.HasEnded());
  EXPECT_EQ(host.ExitCode(), 0U);
}

TEST(DesktopLife, the_host_ends_with_a_dialog_of_the_control_open) {
  const DesktopHost host;
  host.Press(L"&Range...");
  EXPECT_TRUE(host.Opens(L"Edit Range"));
  host.AskToClose();
  EXPECT_TRUE(host.HasEnded());
  EXPECT_EQ(host.ExitCode(), 0U);
}

TEST(DesktopLife, the_host_ends_while_an_action_is_armed) {
  const DesktopHost host;
  host.Press(L"&Trace");
  host.AskToClose();
  EXPECT_TRUE(host.HasEnded());
  EXPECT_EQ(host.ExitCode(), 0U);
}

}  // namespace
}  // namespace plotvane::tests
