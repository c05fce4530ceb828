// Ends of the control at bad moments, two controls in one window, designers, sizes.
#include <gtest/gtest.h>

#include "host.h"

namespace plotvane::test {
namespace {

// What can be open when the end comes, and how it is opened.
struct Opening {
  const char* name;
  void (*open)(const FaceOnScreen& face);
};

void OpenMessageBox(const FaceOnScreen& face) {
  Click(face.NumberBox());
  RetypeText("9");
  Click(face.Button("&Trace"));
  ASSERT_NE(WaitForTop("Invalid Equation", kDialogClass), nullptr);
}
void OpenInputBox(const FaceOnScreen& face) {
  Click(face.Button("&Eval"));
  ASSERT_NE(WaitForTop("Evaluate Function", kDialogClass), nullptr);
  TypeText("1");
}
void OpenMenu(const FaceOnScreen& face) {
  Click(face.Button("&Zoom"));
  ASSERT_TRUE(WaitUntil([] { return ::FindWindowW(L"#32768", nullptr) != nullptr; }));
}
void OpenAllDialogs(const FaceOnScreen& face) {
  face.ChooseZoom('e');
  ASSERT_NE(WaitForTop("Zoom Factors", kDialogClass), nullptr);
  Click(face.Button("&Range..."));
  ASSERT_NE(WaitForTop("Edit Range", kDialogClass), nullptr);
  face.Press(HostKey::ShowFormat);
  ASSERT_NE(WaitForTop("Format", kDialogClass), nullptr);
}
// With the button still down.
void OpenBoxDrag(const FaceOnScreen& face) {
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), 50, 50);
  ButtonDown();
  MoveTo(face.Surface(), 90, 80);
}

class WhileOpen : public testing::TestWithParam<Opening> {
 protected:
  void SetUp() override { GetParam().open(face); }
  void TearDown() override {
    ButtonUp();  // of a drag
    for (const char* title :
         {"Invalid Equation", "Evaluate Function", "Zoom Factors", "Edit Range", "Format"}) {
      EXPECT_EQ(FindTop(title), nullptr) << title;
    }
  }

  FaceOnScreen face;
};

TEST_P(WhileOpen, the_host_lets_go_of_the_control) {
  face.Press(HostKey::EndFirst);
  EXPECT_EQ(face.Control(), nullptr);
  PressKey(VK_RETURN);  // what belongs to the system is still there to be answered
  EXPECT_EQ(face.Host().Close(), 0);
}

TEST_P(WhileOpen, the_host_closes_its_window) {
  EXPECT_EQ(face.Host().Close(), 0);
}

INSTANTIATE_TEST_SUITE_P(Life, WhileOpen,
                         testing::Values(Opening{"message_box", OpenMessageBox},
                                         Opening{"input_box", OpenInputBox}, Opening{"menu", OpenMenu},
                                         Opening{"dialogs", OpenAllDialogs}, Opening{"drag", OpenBoxDrag}),
                         [](const auto& opening) { return std::string(opening.param.name); });

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
  // Each has dialogs of its own.
  Click(face.Button("&Range...", 0));
  const HWND first = WaitForTop("Edit Range", kDialogClass);
  ::SetWindowPos(first, HWND_TOP, 0, 700, 0, 0, SWP_NOSIZE);
  Click(face.Button("&Range...", 1));
  EXPECT_TRUE(WaitUntil([&] {
    const HWND second = FindTop("Edit Range", kDialogClass);
    return second != nullptr && second != first;
  }));
  EXPECT_TRUE(::IsWindowVisible(first));
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
