// Toolbar, menu, mouse and number box of the control, worked from another program with real input.
#include <gtest/gtest.h>

#include "host.h"

namespace plotvane::test {
namespace {

// The surface's size, read from the status text of the first resize.
SIZE SurfaceSize(const FaceOnScreen& face) {
  RECT client{};
  ::GetClientRect(face.Surface(), &client);
  return {client.right, client.bottom};
}

TEST(Face, every_button_bears_its_caption) {
  const FaceOnScreen face;
  for (const char* caption :
       {"&Graph", "&Zoom", "Z&In", "Z&Out", "Z&Box", "&Range...", "&Trace", "&Eval", "&Y:"}) {
    EXPECT_NE(face.Button(caption), nullptr) << caption;
  }
  EXPECT_EQ(TextOf(face.NumberBox()), "1");
  EXPECT_EQ(face.Simple(), kHint);
  const SIZE size = SurfaceSize(face);
  EXPECT_EQ(face.Status(),
            "Width=" + std::to_string(size.cx) + " pixels   Height=" + std::to_string(size.cy) + " pixels");
}

// In the column a quarter from the left.
bool RedCurveIsShown(const FaceOnScreen& face) {
  const SIZE size = SurfaceSize(face);
  bool red = false;
  for (int y = 0; y < size.cy; ++y) red |= PixelAt(face.Surface(), size.cx / 4, y) == RGB(255, 0, 0);
  return red;
}

TEST(Face, the_curve_and_the_axes_are_on_the_screen) {
  const FaceOnScreen face("\"x\"");
  const SIZE size = SurfaceSize(face);
  const int row = size.cy / 2;
  const int column = size.cx / 2 - 1;
  EXPECT_EQ(PixelAt(face.Surface(), column, 3), RGB(0, 0, 0));
  EXPECT_EQ(PixelAt(face.Surface(), 3, row), RGB(0, 0, 0));
  EXPECT_TRUE(RedCurveIsShown(face));
}

TEST(Face, a_change_of_the_systems_looks_keeps_the_curve) {
  const FaceOnScreen face("\"x\"");
  const std::string status = face.Status();
  ::SendMessageW(face.Control(), WM_SYSCOLORCHANGE, 0, 0);
  ::SendMessageW(face.Control(), WM_THEMECHANGED, 0, 0);
  EXPECT_TRUE(RedCurveIsShown(face));
  EXPECT_EQ(face.Status(), status);
}

TEST(Face, armed_buttons_show_their_captions_and_a_second_press_turns_them_off) {
  const FaceOnScreen face;
  constexpr const char* kArmed[][2] = {{"Z&In", "Zoom In"}, {"Z&Out", "Zoom Out"}, {"Z&Box", "Zoom Box"}};
  for (const auto& row : kArmed) {
    Click(face.Button(row[0]));
    EXPECT_TRUE(face.SimpleBecomes(row[1])) << face.Simple();
    Click(face.Button(row[0]));
    EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
  }
}

TEST(Face, clicks_zoom_once_about_the_point) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  Click(face.Button("Z&Out"));
  ClickAt(face.Surface(), size.cx / 2 - 1, size.cy / 2);
  EXPECT_EQ(face.Simple().substr(0, 20), "(80 x 80)  Xmin=-40 ");
  Click(face.Button("Z&In"));
  ClickAt(face.Surface(), size.cx / 2 - 1, size.cy / 2);
  EXPECT_EQ(face.Simple().substr(0, 20), "(20 x 20)  Xmin=-10 ");
  ClickAt(face.Surface(), 20, 20);
  EXPECT_TRUE(face.SimpleBecomes(kHint));
}

TEST(Face, the_menu_sets_the_preset_ranges) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  face.ChooseZoom('d');
  EXPECT_NE(face.Simple().find("  Xmin=-"), std::string::npos) << face.Simple();
  face.ChooseZoom('i');
  const std::string width = std::to_string(size.cx + size.cx % 2);
  EXPECT_EQ(face.Simple().substr(0, width.size() + 1), "(" + width);
  face.ChooseZoom('t');
  EXPECT_TRUE(
      face.SimpleBecomes("(14.1371669491155 x 14.1371669491155)  Xmin=-7.06858347455775  "
                         "XMax=7.06858347455775  YMin=-4  YMax=4"));
  face.ChooseZoom('s');
  EXPECT_TRUE(face.SimpleBecomes("(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10"));
}

TEST(Face, the_menu_asks_for_a_length_per_pixel) {
  const FaceOnScreen face;
  face.ChooseZoom('n');
  const HWND box = WaitForTop("Zoom Num", kDialogClass);
  ASSERT_NE(box, nullptr);
  EXPECT_NE(FindByText(box, "Enter the real number length per pixel"), nullptr);
  SavePicture(box, "input-box");
  TypeText("1");
  PressKey(VK_RETURN);
  EXPECT_NE(face.Simple().find("  Xmin=-"), std::string::npos) << face.Simple();
  const std::string after = face.Simple();
  face.ChooseZoom('n');
  ASSERT_NE(WaitForTop("Zoom Num", kDialogClass), nullptr);
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(face.SimpleBecomes(kHint));  // from cmdZoom: nothing was chosen
}

TEST(Face, a_drag_zooms_to_the_box) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), size.cx / 2 - 1, size.cy / 4);
  ButtonDown();
  MoveTo(face.Surface(), size.cx / 2 + 30, size.cy / 4 + 20);
  MoveTo(face.Surface(), 3 * size.cx / 4 - 1, size.cy / 2);
  SavePicture(face.Top(), "rubber-band");
  const COLORREF edge = PixelAt(face.Surface(), 5 * size.cx / 8, size.cy / 4);
  EXPECT_EQ(edge, RGB(0, 0, 0));  // the inverse of the empty picture
  ButtonUp();
  Settle();
  EXPECT_EQ(face.Simple().substr(0, 25), "(5 x 5)  Xmin=0  XMax=5  ") << face.Simple();
}

TEST(Face, escape_during_a_drag_does_not_zoom) {
  const FaceOnScreen face;
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), 50, 50);
  ButtonDown();
  MoveTo(face.Surface(), 150, 120);
  PressKey(VK_ESCAPE);
  ButtonUp();
  Settle();
  EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
  EXPECT_NE(PixelAt(face.Surface(), 100, 50), RGB(0, 0, 0));
}

TEST(Face, a_box_without_size_is_refused) {
  const FaceOnScreen face;
  Click(face.Button("Z&Box"));
  ClickAt(face.Surface(), 80, 80);
  EXPECT_EQ(TakeMessage("ZBox Range Error"), "Invalid selection. Neither height nor width can be zero!");
  EXPECT_EQ(face.Simple().substr(0, 9), "(20 x 20)") << face.Simple();
}

TEST(Face, the_right_button_recentres) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  ClickAt(face.Surface(), size.cx / 2 - 1, size.cy / 4, true);
  EXPECT_EQ(face.Simple().substr(0, 31), "(20 x 20)  Xmin=-10  XMax=10  Y") << face.Simple();
  EXPECT_EQ(face.Simple().find("YMin=-10 "), std::string::npos) << face.Simple();
}

TEST(Face, moving_shows_the_coordinates) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  MoveTo(face.Surface(), size.cx / 2 - 1, 40);
  EXPECT_TRUE(WaitUntil([&] { return face.Status().substr(0, 6) == "X=0   "; })) << face.Status();
}

TEST(Face, the_trace_follows_the_curve_and_a_click_shows_the_value) {
  const FaceOnScreen face("\"sin(x)*5\" \"x^2\"");
  const SIZE size = SurfaceSize(face);
  Click(face.Button("&Trace"));
  EXPECT_TRUE(face.SimpleBecomes("Trace Function"));
  MoveTo(face.Surface(), size.cx / 2 - 1, 60);
  MoveTo(face.Surface(), size.cx / 2 + 40, 60);
  Settle();
  SavePicture(face.Top(), "trace");
  ClickAt(face.Surface(), size.cx / 2 - 1, 60);
  EXPECT_TRUE(face.SimpleBecomes("Evaluate Y1:   X=0    Y=0")) << face.Simple();
}

TEST(Face, trace_of_a_missing_function_is_refused_and_gives_the_focus_to_the_number) {
  const FaceOnScreen face;
  Click(face.NumberBox());
  RetypeText("7");
  Click(face.Button("&Trace"));
  EXPECT_EQ(TakeMessage("Invalid Equation"),
            "You need to enter a valid number of an enabled Y function with a non-empty function expression");
  EXPECT_TRUE(face.SimpleBecomes(
      "The number of the function entered does not exist. Enter a valid function number."));
  TypeText("2");  // replaces the selected number
  EXPECT_EQ(TextOf(face.NumberBox()), "2");
}

TEST(Face, eval_asks_for_x_and_shows_the_point) {
  const FaceOnScreen face;
  Click(face.Button("&Eval"));
  const HWND box = WaitForTop("Evaluate Function", kDialogClass);
  ASSERT_NE(box, nullptr);
  EXPECT_NE(FindByText(box,
                       "Enter a expression or value for X. If you enter an expression it will first be "
                       "evaluated."),
            nullptr);
  TypeText("1+2");
  PressKey(VK_RETURN);
  EXPECT_TRUE(face.SimpleBecomes("Evaluate Y1:   X=3    Y=3")) << face.Simple();
}

TEST(Face, the_arrow_keys_and_the_spinner_step_through_the_functions) {
  const FaceOnScreen face("\"x\" \"x^2\" \"x^3\"");
  Click(face.NumberBox());
  PressKey(VK_DOWN);
  EXPECT_EQ(face.Status(), "Y2=x^2");
  EXPECT_EQ(TextOf(face.NumberBox()), "2");
  PressKey(VK_UP);
  PressKey(VK_UP);
  EXPECT_EQ(face.Status(), "Y3=x^3");
  const HWND spinner = FindByClass(face.Control(), "msctls_updown32");
  ASSERT_NE(spinner, nullptr);
  RECT client{};
  ::GetClientRect(spinner, &client);
  ClickAt(spinner, client.right / 2, client.bottom * 3 / 4);  // the lower arrow: the next
  EXPECT_EQ(face.Status(), "Y1=x");
  ClickAt(spinner, client.right / 2, client.bottom / 4);
  EXPECT_EQ(face.Status(), "Y3=x^3");
}

}  // namespace
}  // namespace plotvane::test
