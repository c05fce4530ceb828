// Ends of the control at bad moments, two controls in one window, designers, sizes.
#include <gtest/gtest.h>

#include "host.h"

namespace plotvane::test {
namespace {

TEST(Life, the_host_closes_while_a_message_box_is_open) {
  FaceOnScreen face;
  Click(face.NumberBox());
  RetypeText("9");
  Click(face.Button("&Trace"));
  ASSERT_NE(WaitForTop("Invalid Equation", kDialogClass), nullptr);
  face.Press(HostKey::EndFirst);  // the control goes away under its own message box
  EXPECT_EQ(face.Control(), nullptr);
  PressKey(VK_RETURN);
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST(Life, the_host_closes_while_an_input_box_is_open) {
  FaceOnScreen face;
  Click(face.Button("&Eval"));
  ASSERT_NE(WaitForTop("Evaluate Function", kDialogClass), nullptr);
  face.Press(HostKey::EndFirst);
  TypeText("1");
  PressKey(VK_RETURN);
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST(Life, the_host_closes_while_the_menu_is_open) {
  FaceOnScreen face;
  Click(face.Button("&Zoom"));
  face.Press(HostKey::EndFirst);
  PressKey(VK_ESCAPE);
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST(Life, the_window_closes_while_dialogs_are_open) {
  FaceOnScreen face;
  Click(face.Button("&Range..."));
  ASSERT_NE(WaitForTop("Edit Range", kDialogClass), nullptr);
  face.Press(HostKey::ShowFormat);
  ASSERT_NE(WaitForTop("Format", kDialogClass), nullptr);
  EXPECT_EQ(face.Host().Close(), 0);
  EXPECT_EQ(FindTop("Edit Range"), nullptr);
}

TEST(Life, the_control_may_go_away_at_the_end_of_a_plot) {
  FaceOnScreen face;
  face.Press(HostKey::EndFirstAfterPlot);
  Click(face.Button("&Graph"));
  EXPECT_TRUE(WaitUntil([&] { return face.Control() == nullptr; }));
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST(Life, the_dialogs_end_with_the_control) {
  FaceOnScreen face;
  Click(face.Button("&Range..."));
  const HWND range = WaitForTop("Edit Range", kDialogClass);
  face.Press(HostKey::ShowFormat);
  const HWND format = WaitForTop("Format", kDialogClass);
  face.Press(HostKey::EndFirst);
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(range) && !::IsWindow(format); }));
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST(Life, two_controls_do_not_disturb_each_other) {
  const FaceOnScreen face("--two --size 1100x480 \"x\"");
  ASSERT_NE(face.Control(1), nullptr);
  Click(face.Button("Z&In", 0));
  Click(face.Button("Z&Box", 1));
  EXPECT_EQ(face.Simple(0), "Zoom In");
  EXPECT_EQ(face.Simple(1), "Zoom Box");
  PressKey(VK_ESCAPE);
  EXPECT_EQ(face.Simple(0), "Zoom In");
  EXPECT_EQ(face.Simple(1), kHint);
  PressKey('O', VK_MENU);  // the control that has the focus
  EXPECT_EQ(face.Simple(0), "Zoom In");
  EXPECT_EQ(face.Simple(1), "Zoom Out");
}

TEST(Life, a_designer_shows_the_axes_and_ignores_the_user) {
  const FaceOnScreen face("--design \"x\"");
  Click(face.Button("Z&In"));
  EXPECT_EQ(face.Simple(), "");
  Click(face.Button("&Range..."));
  EXPECT_EQ(FindTop("Edit Range"), nullptr);
  RECT client{};
  ::GetClientRect(face.Surface(), &client);
  EXPECT_EQ(PixelAt(face.Surface(), client.right / 2 - 1, 3), RGB(0, 0, 0));
}

TEST(Life, the_toolbar_gives_its_room_to_the_surface_when_it_is_hidden) {
  const FaceOnScreen face;
  RECT before{};
  ::GetClientRect(face.Surface(), &before);
  face.Press(HostKey::ToggleToolBar);
  RECT after{};
  ::GetClientRect(face.Surface(), &after);
  EXPECT_GT(after.bottom, before.bottom);
  EXPECT_FALSE(::IsWindowVisible(face.Button("&Graph")));
  face.Press(HostKey::ToggleToolBar);
  EXPECT_TRUE(::IsWindowVisible(face.Button("&Graph")));
}

TEST(Life, a_resized_window_lays_out_anew) {
  const FaceOnScreen face;
  ::SetCursorPos(1270, 1000);  // away from the surface, which would show its position
  for (const SIZE size : {SIZE{1000, 700}, SIZE{300, 260}, SIZE{130, 120}, SIZE{640, 480}}) {
    ::SetWindowPos(face.Top(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER);
    Settle();
    RECT client{};
    ::GetClientRect(face.Surface(), &client);
    EXPECT_TRUE(face.Status().empty() || WaitUntil([&] {
                  return face.Status() == "Width=" + std::to_string(client.right) +
                                              " pixels   Height=" + std::to_string(client.bottom) + " pixels";
                }))
        << face.Status();
  }
}

TEST(Life, what_was_drawn_survives_being_covered) {
  const FaceOnScreen face("\"x\"");
  const COLORREF axis = PixelAt(face.Surface(), 319, 100);
  ::ShowWindow(face.Top(), SW_MINIMIZE);
  Settle();
  ::ShowWindow(face.Top(), SW_RESTORE);
  Settle();
  EXPECT_EQ(PixelAt(face.Surface(), 319, 100), axis);
}

}  // namespace
}  // namespace plotvane::test
