// DesktopDriver: works the desktop host from outside, as a person would: real windows, real keys, what the screen
// shows.
#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
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

// The text of a message box or dialog: that of its labels, line by line.
std::wstring DialogText(HWND dialog);

// A program that is ended with this object, by force if it must.
class RunningProgram {
 public:
  // Throws std::runtime_error when it does not start.
  explicit RunningProgram(const std::wstring& program, const std::wstring& arguments = L"");
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  // Its visible top-level window of a class; null while there is none.
  [[nodiscard]] HWND FindWindow(const wchar_t* kind) const;
  // A dialog or message box; null while there is none.
  [[nodiscard]] HWND Dialog() const { return FindWindow(L"#32770"); }
  // Waits for one. Throws std::runtime_error when none opens.
  [[nodiscard]] HWND OpenedDialog() const;
  // Waits for the end; the exit status, or -1 when it goes on.
  [[nodiscard]] int Status() const;

 private:
  PROCESS_INFORMATION mProcess{};
};

// Presses the button of a dialog and waits until the dialog is gone.
void PressButton(HWND dialog, int id);

class DesktopDriver : public RunningProgram {
 public:
  // Starts the host with these arguments and waits for its window. Throws std::runtime_error without one.
  explicit DesktopDriver(const std::wstring& program, const std::wstring& arguments = L"");

  [[nodiscard]] HWND Window() const { return mWindow; }
  [[nodiscard]] std::wstring Title() const;
  // The equation box and the colour button of Yn, the calculator line, the text of the error, the lists.
  [[nodiscard]] HWND Equation(int n) const;
  [[nodiscard]] HWND Colour(int n) const;
  [[nodiscard]] HWND Calculator() const;
  [[nodiscard]] HWND HistoryList() const;
  [[nodiscard]] std::wstring ErrorText() const;
  [[nodiscard]] std::vector<std::wstring> History() const;
  [[nodiscard]] std::vector<std::wstring> Variables() const;
  // The window that has the keyboard.
  [[nodiscard]] HWND Focus() const;
  // The control's window.
  [[nodiscard]] HWND Control() const;

  // Clicks into `box`, replaces its text by typing.
  void Type(HWND box, const std::wstring& text);
  // Types a line into the calculator; its line of the history.
  std::wstring Calculate(const std::wstring& line);
  // One key with modifiers held: Press(L'S', {VK_CONTROL}).
  void Press(WORD key, const std::vector<WORD>& held = {});
  // Chooses a command of the menu by its two mnemonics.
  void Choose(wchar_t menu, wchar_t command);
  // Names a file in the file dialog that is or will be open and presses its button; the dialog, which may ask more.
  HWND NameFile(const std::filesystem::path& path);
  // The same until the dialog is gone.
  void AnswerFileDialog(const std::filesystem::path& path);

  // What the screen shows where the control is, after it stopped changing.
  [[nodiscard]] Picture Graph();

  // Closes the window as its close box does and tells whether the host ended.
  bool Close();

 private:
  void Activate();
  [[nodiscard]] Picture CaptureGraph() const;

  HWND mWindow = nullptr;
};

}  // namespace plotvane::desktop_test
