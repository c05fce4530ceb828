// Mnemonics, Tab, Enter and Escape of the control, with and without help of the host's message loop.
#include <gtest/gtest.h>

#include "control/win32/wide_text.h"
#include "host.h"

namespace plotvane::test {
namespace {

// The text of the window that has the focus in the host's thread.
std::string FocusText(const FaceOnScreen& face) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  const DWORD thread = ::GetWindowThreadProcessId(face.Top(), nullptr);
  ::GetGUIThreadInfo(thread, &info);
  return info.hwndFocus == nullptr ? "none" : TextOf(info.hwndFocus);
}

class Keyboard : public testing::TestWithParam<const char*> {
 protected:
  FaceOnScreen face{std::string(GetParam()) + " \"x\" \"x^2\""};
};

TEST_P(Keyboard, every_mnemonic_works) {
  Click(face.Button("&Graph"));  // gives the control the focus
  constexpr const char* kArming[][2] = {
      {"I", "Zoom In"}, {"O", "Zoom Out"}, {"B", "Zoom Box"}, {"T", "Trace Function"}};
  for (const auto& row : kArming) {
    PressKey(static_cast<WORD>(row[0][0]), VK_MENU);
    EXPECT_TRUE(face.SimpleBecomes(row[1])) << row[0] << ": " << face.Simple();
  }
  PressKey('G', VK_MENU);
  EXPECT_TRUE(face.SimpleBecomes(kHint));
  PressKey('Y', VK_MENU);
  EXPECT_EQ(FocusText(face), "1");  // the number box
  TypeText("2");
  EXPECT_EQ(TextOf(face.NumberBox()), "2");
  PressKey('E', VK_MENU);
  EXPECT_TRUE(Dismiss("Evaluate Function"));
  PressKey('R', VK_MENU);
  EXPECT_TRUE(Dismiss("Edit Range"));
  ::SetForegroundWindow(face.Top());
  Click(face.Button("&Graph"));
  PressKey('Z', VK_MENU);
  PressKey('S');  // of the menu
  EXPECT_TRUE(face.SimpleBecomes("(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10")) << face.Simple();
}

TEST_P(Keyboard, tab_goes_through_the_toolbar_and_back) {
  Click(face.Button("&Graph"));
  for (const char* caption : {"&Zoom", "Z&In", "Z&Out", "Z&Box", "&Range...", "&Trace", "&Eval", "1"}) {
    PressKey(VK_TAB);
    EXPECT_EQ(FocusText(face), caption);
  }
  PressKey(VK_TAB, VK_SHIFT);
  EXPECT_EQ(FocusText(face), "&Eval");
}

TEST_P(Keyboard, escape_ends_the_action_wherever_the_focus_is) {
  for (int where = 0; where < 3; ++where) {
    Click(face.Button("Z&Box"));
    ASSERT_TRUE(face.SimpleBecomes("Zoom Box"));
    if (where == 1) Click(face.NumberBox());
    if (where == 2) PressKey('Y', VK_MENU);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(face.SimpleBecomes(kHint)) << where;
  }
}

TEST_P(Keyboard, space_presses_the_focused_button) {
  Click(face.Button("&Graph"));
  PressKey(VK_TAB);
  PressKey(VK_TAB);
  PressKey(VK_SPACE);
  EXPECT_TRUE(face.SimpleBecomes("Zoom In"));
}

std::string LoopName(const testing::TestParamInfo<const char*>& loop) {
  constexpr const char* kNames[] = {"translating", "dispatching", "dialog_box"};
  return kNames[loop.index];
}
INSTANTIATE_TEST_SUITE_P(Loops, Keyboard, testing::Values("", "--no-translate", "--dialog-loop"), LoopName);

}  // namespace
}  // namespace plotvane::test
