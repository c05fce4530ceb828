// The host program with one control in it, as the tests of the face use it.
#pragma once

#include <ostream>
#include <string>

#include "automation.h"
#include "driver.h"
#include "host_messages.h"

namespace plotvane::test {

// The command that starts the host, which lies beside the test program: face_host, or what the variable
// PLOTVANE_FACE_HOST names.
std::string HostCommand(const std::string& arguments);

struct Range {
  double xMin = 0;
  double xMax = 0;
  double yMin = 0;
  double yMax = 0;
  friend bool operator==(const Range&, const Range&) = default;
};
inline std::ostream& operator<<(std::ostream& stream, const Range& range) {
  return stream << range.xMin << " to " << range.xMax << ", " << range.yMin << " to " << range.yMax;
}
inline constexpr Range kStandardRange{-10, 10, -10, 10};

// One control on the screen; `index` chooses the second of two.
class FaceOnScreen {
 public:
  explicit FaceOnScreen(const std::string& arguments = "\"x\" \"x^2\"")
      : mProgram(HostCommand(arguments), "Face Host") {}

  [[nodiscard]] Program& Host() noexcept { return mProgram; }
  [[nodiscard]] HWND Top() const noexcept { return mProgram.Top(); }
  [[nodiscard]] HWND Control(int index = 0) const { return FindByClass(Top(), "PlotvaneGraph", index); }
  [[nodiscard]] HWND Surface(int index = 0) const { return FindByClass(Control(index), "PlotvaneSurface"); }
  [[nodiscard]] HWND Button(std::string_view caption, int index = 0) const {
    return FindByText(Control(index), caption);
  }
  [[nodiscard]] HWND NumberBox(int index = 0) const { return FindByClass(Control(index), "Edit", 0); }
  [[nodiscard]] std::string Simple(int index = 0) const {
    return TextOf(FindByClass(Control(index), "Edit", 1));
  }
  [[nodiscard]] std::string Status(int index = 0) const {
    return TextOf(FindByClass(Control(index), "Edit", 2));
  }
  bool SimpleBecomes(std::string_view text, int index = 0) const {
    return WaitUntil([&] { return Simple(index) == text; });
  }

  // The text of the window that has the focus in the host's thread.
  [[nodiscard]] std::string FocusText() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(Top(), nullptr), &info);
    return info.hwndFocus == nullptr ? "none" : TextOf(info.hwndFocus);
  }

  // What the host program itself does on request.
  void Press(HostKey key) const {
    ::PostMessageW(Top(), kHostKeyMessage, static_cast<WPARAM>(key), 0);
    Settle();
  }
  // Stands for the picture that the control keeps, pixel by pixel.
  [[nodiscard]] LRESULT PictureSum() const { return ::SendMessageW(Top(), kPictureSumMessage, 0, 0); }
  // The control's range as its properties say.
  [[nodiscard]] Range GetRange() const {
    Automation control(Top());
    return {control.Number(L"Xmin"), control.Number(L"Xmax"), control.Number(L"Ymin"),
            control.Number(L"Ymax")};
  }
  // A number of the control, by the name of its property.
  [[nodiscard]] double Number(const wchar_t* property) const { return Automation(Top()).Number(property); }

  // Chooses from the zoom menu by its mnemonic.
  void ChooseZoom(char mnemonic) const {
    Click(Button("&Zoom"));
    TypeText(std::string(1, mnemonic));
  }

 private:
  Program mProgram;
};

inline constexpr std::string_view kHint = "Left click on the graph to redraw using the current functions";

// Of the system's message, input and dialog boxes.
inline constexpr std::string_view kDialogClass = "#32770";

// Waits for a box or dialog and closes it with Escape; false when none comes or it stays.
bool Dismiss(std::string_view title);

// The text of an open message box, which is then closed with Enter.
std::string TakeMessage(std::string_view title);

}  // namespace plotvane::test
