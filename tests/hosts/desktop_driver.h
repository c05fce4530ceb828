// DesktopDriver: works the desktop host from outside, as a person would: real windows, real keys, what the screen
// shows.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace plotvane::desktop_test {

// Asks until `condition` holds or `patience` is over; messages of this thread are handled meanwhile.
bool WaitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds patience = std::chrono::seconds(20));

// What a rectangle of the screen shows, row by row, 0x00RRGGBB.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<DWORD> pixels;

  // How many pixels have that colour, given as RGB(…).
  [[nodiscard]] int Count(COLORREF colour) const;
  friend bool operator==(const Picture&, const Picture&) = default;
};

class DesktopDriver {
 public:
  // Starts the host with these arguments and waits for its window. Throws std::runtime_error without one.
  explicit DesktopDriver(const std::wstring& program, const std::wstring& arguments = L"");
  // Ends the host, by force if it must.
  ~DesktopDriver();
  DesktopDriver(const DesktopDriver&) = delete;
  DesktopDriver& operator=(const DesktopDriver&) = delete;

  [[nodiscard]] HWND Window() const { return mWindow; }
  [[nodiscard]] std::wstring Title() const;
  // The equation box of Yn, the calculator line, the text of the first error, the lists.
  [[nodiscard]] HWND Equation(int n) const;
  [[nodiscard]] HWND Calculator() const;
  [[nodiscard]] std::wstring ErrorText() const;
  [[nodiscard]] std::vector<std::wstring> History() const;
  [[nodiscard]] std::vector<std::wstring> Variables() const;

  // Clicks into `box`, replaces its text by typing.
  void Type(HWND box, const std::wstring& text);
  // One key with modifiers held: Press(L'S', {VK_CONTROL}).
  void Press(WORD key, const std::vector<WORD>& held = {});
  // Answers the file dialog that is or will be open.
  void AnswerFileDialog(const std::wstring& path);
  // A dialog or message box of the host; null while there is none.
  [[nodiscard]] HWND Dialog() const;
  void PressButton(HWND dialog, int id);

  // What the screen shows where the control is, after it stopped changing.
  [[nodiscard]] Picture Graph();

  // Closes the window as its close box does and tells whether the host ended.
  bool Close();

 private:
  void Activate();
  [[nodiscard]] Picture CaptureGraph() const;

  PROCESS_INFORMATION mProcess{};
  HWND mWindow = nullptr;
};

}  // namespace plotvane::desktop_test
