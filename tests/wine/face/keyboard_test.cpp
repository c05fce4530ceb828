// Mnemonics, Tab, Enter and Escape of the control, with and without help of the host's message loop.
#include <gtest/gtest.h>

#include "host.h"

namespace plotvane::test {
namespace {

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
  EXPECT_EQ(face.FocusText(), "1");  // the number box
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
    EXPECT_EQ(face.FocusText(), caption);
  }
  PressKey(VK_TAB, VK_SHIFT);
  EXPECT_EQ(face.FocusText(), "&Eval");
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

TEST_P(Keyboard, the_arrows_step_through_the_functions_in_the_number_box) {
  Click(face.NumberBox());
  PressKey(VK_DOWN);
  EXPECT_EQ(face.Status(), "Y2=x^2");
  PressKey(VK_UP);
  EXPECT_EQ(face.Status(), "Y1=x");
  EXPECT_EQ(TextOf(face.NumberBox()), "1");
}

TEST_P(Keyboard, the_menu_works_by_arrows_enter_and_escape) {
  Click(face.Button("&Graph"));
  PressKey('Z', VK_MENU);
  PressKey(VK_DOWN);
  PressKey(VK_DOWN);  // Trig
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return face.Simple().starts_with("(14.1371669491155 x "); })) << face.Simple();
  const std::string after = face.Simple();
  PressKey('Z', VK_MENU);
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
  PressKey('I', VK_MENU);  // the keys are the control's again
  EXPECT_TRUE(face.SimpleBecomes("Zoom In"));
}

TEST_P(Keyboard, the_dialogs_work_by_tab_mnemonics_enter_and_escape) {
  Click(face.Button("&Graph"));
  PressKey('R', VK_MENU);
  HWND dialog = WaitForTop("Edit Range", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  PressKey(VK_TAB);
  RetypeText("20");
  PressKey('1', VK_MENU);
  RetypeText("-20");
  PressKey(VK_TAB, VK_SHIFT);
  EXPECT_EQ(face.FocusText(), "&Cancel");
  PressKey(VK_TAB, VK_SHIFT);
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
  ::SetForegroundWindow(face.Top());
  Click(face.Button("&Range..."));
  dialog = WaitForTop("Edit Range", kDialogClass);
  EXPECT_EQ(TextOf(FindByClass(dialog, "ComboBox", 0)), "-20");
  EXPECT_EQ(TextOf(FindByClass(dialog, "ComboBox", 1)), "20");
  PressKey('C', VK_MENU);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
  face.ChooseZoom('e');
  dialog = WaitForTop("Zoom Factors", kDialogClass);
  PressKey('Y', VK_MENU);
  RetypeText("8");
  PressKey('O', VK_MENU);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
  face.ChooseZoom('e');
  dialog = WaitForTop("Zoom Factors", kDialogClass);
  EXPECT_EQ(TextOf(FindByClass(dialog, "ComboBox", 1)), "8");
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
}

struct GroupKey {
  char key;
  const char* focus;  // the text of what has the focus then
};

TEST_P(Keyboard, the_format_dialog_works_by_tab_arrows_mnemonics_and_escape) {
  face.Press(HostKey::ShowFormat);
  HWND dialog = WaitForTop("Format", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  const HWND density = FindByClass(dialog, "Edit", 1);
  Click(density);
  RetypeText("5");
  PressKey(VK_RETURN);  // accepts the number and leaves the dialog open
  ASSERT_TRUE(::IsWindowVisible(dialog));
  constexpr GroupKey kGroups[] = {{'G', "Grid Off"},  {'A', "Axis On"}, {'M', "Radians"},
                                  {'D', "5"},  // two groups share this letter: the next one first
                                  {'D', "Draw Line"}, {'W', "1"},       {'C', "Rectangular GC"}};
  for (const GroupKey& group : kGroups) {
    PressKey(static_cast<WORD>(group.key), VK_MENU);
    EXPECT_EQ(face.FocusText(), group.focus) << group.key;
  }
  PressKey(VK_RIGHT);  // the other option of the group
  EXPECT_TRUE(IsChecked(FindByText(dialog, "PolarGC")));
  PressKey(VK_TAB);
  EXPECT_EQ(face.FocusText(), "Draw Line");
  PressKey('S', VK_MENU);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
  face.Press(HostKey::ShowFormat);
  dialog = WaitForTop("Format", kDialogClass);
  EXPECT_TRUE(IsChecked(FindByText(dialog, "PolarGC")));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
}

TEST_P(Keyboard, message_and_input_boxes_give_the_focus_back) {
  Click(face.NumberBox());
  RetypeText("7");
  PressKey('T', VK_MENU);
  EXPECT_FALSE(TakeMessage("Invalid Equation").empty());
  EXPECT_TRUE(WaitUntil([&] { return face.FocusText() == "7"; })) << face.FocusText();
  TypeText("1");
  PressKey('E', VK_MENU);
  EXPECT_TRUE(Dismiss("Evaluate Function"));
  EXPECT_TRUE(WaitUntil([&] { return face.FocusText() == "&Eval"; })) << face.FocusText();
}

std::string LoopName(const testing::TestParamInfo<const char*>& loop) {
  constexpr const char* kNames[] = {"translating", "dispatching", "dialog_box", "AtlAxWin",
                                    "AtlAxWin_dialog_box"};
  return kNames[loop.index];
}
INSTANTIATE_TEST_SUITE_P(Loops, Keyboard,
                         testing::Values("", "--no-translate", "--dialog-loop", "--container",
                                         "--container --dialog-loop"),
                         LoopName);

}  // namespace
}  // namespace plotvane::test
