// Driver: works a program from outside as a person would: finds windows by their texts, clicks, types, drags
// with real input, reads texts and pixels.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::test {

// Asks again and again until it is true or the time is over.
bool WaitUntil(const std::function<bool()>& condition, int milliseconds = 20'000);
// Waits until the host program has handled all input that came before, and has painted.
void Settle();

// ---- Windows ----

// Top-level windows of other programs, by title and class; null when none is shown.
HWND FindTop(std::string_view title, std::string_view className = {});
HWND WaitForTop(std::string_view title, std::string_view className = {});
// A child at any depth with that text as it stands (with its ampersand).
// The tooltip that is shown, by its text; null when there is none.
HWND FindTooltip(std::string_view text);
HWND FindByText(HWND parent, std::string_view text);
// The nth child (from 0) of that class, in the order of their making.
HWND FindByClass(HWND parent, std::string_view className, int index = 0);
std::string TextOf(HWND window);
bool HasClass(HWND window, std::string_view className);
bool IsChecked(HWND option);
RECT ScreenRect(HWND window);

// ---- Real input ----

void MoveTo(HWND window, int x, int y);
// To a corner of the screen where no window is: no readout changes, no tooltip appears.
void TakePointerAway();
void ButtonDown(bool right = false);
void ButtonUp(bool right = false);
void ClickAt(HWND window, int x, int y, bool right = false);
void Click(HWND window);  // its middle
void PressKey(WORD key, WORD held = 0);
void TypeText(std::string_view text);
// Replaces the content of the box that has the focus.
void RetypeText(std::string_view text);

// ---- Pictures ----

COLORREF PixelAt(HWND window, int x, int y);
// A window as it is on the screen.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<COLORREF> pixels;  // row by row from the top

  [[nodiscard]] int Count(COLORREF colour) const;
  friend bool operator==(const Picture&, const Picture&) = default;
};
Picture Capture(HWND window);
// The same as a file (PPM) in the folder PLOTVANE_PICTURES; nothing without that variable.
void SavePicture(HWND window, const std::string& name);

// ---- The program ----

// A program that is ended with the object, kindly at first.
class Program {
 public:
  Program(const std::string& commandLine, std::string_view title);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  [[nodiscard]] HWND Top() const noexcept { return mTop; }
  [[nodiscard]] bool Running() const;
  // Closes its window; the exit status, or -1 when it does not end.
  int Close();

 private:
  PROCESS_INFORMATION mProcess{};
  HWND mTop = nullptr;
};

}  // namespace plotvane::test
