// Toolbar, menu, mouse and number box of the control, worked from another program with real input.
#include <gtest/gtest.h>

#include <cmath>

#include "host.h"

namespace plotvane::test {
namespace {

// The surface's size, read from the status text of the first resize.
SIZE SurfaceSize(const FaceOnScreen& face) {
  RECT client{};
  ::GetClientRect(face.Surface(), &client);
  return {client.right, client.bottom};
}

struct Point {
  double x;
  double y;
};

// The point of a range that a pixel of the surface stands for: the first column lies one pixel right of the
// left edge.
Point PointAt(const Range& range, SIZE size, int column, int row) {
  return {range.xMin + (column + 1) * (range.xMax - range.xMin) / size.cx,
          range.yMin + (size.cy - row) * (range.yMax - range.yMin) / size.cy};
}

// The properties of the control tell the range of that width and height around the point.
void ExpectRangeAround(const FaceOnScreen& face, Point centre, double width, double height) {
  const Range range = face.GetRange();
  EXPECT_NEAR(range.xMin, centre.x - width / 2, 1e-9);
  EXPECT_NEAR(range.xMax, centre.x + width / 2, 1e-9);
  EXPECT_NEAR(range.yMin, centre.y - height / 2, 1e-9);
  EXPECT_NEAR(range.yMax, centre.y + height / 2, 1e-9);
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
  ClickAt(face.Surface(), 150, 90);
  EXPECT_EQ(face.Simple().substr(0, 9), "(80 x 80)");
  ExpectRangeAround(face, PointAt(kStandardRange, size, 150, 90), 80, 80);
  const Range wide = face.GetRange();
  Click(face.Button("Z&In"));
  ClickAt(face.Surface(), 400, 200);
  EXPECT_EQ(face.Simple().substr(0, 9), "(20 x 20)");
  ExpectRangeAround(face, PointAt(wide, size, 400, 200), 20, 20);
  const Range narrow = face.GetRange();
  ClickAt(face.Surface(), 20, 20);
  EXPECT_TRUE(face.SimpleBecomes(kHint));
  EXPECT_EQ(face.GetRange(), narrow);
}

TEST(Face, the_menu_sets_the_preset_ranges) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  face.ChooseZoom('d');
  EXPECT_NE(face.Simple().find("  Xmin=-"), std::string::npos) << face.Simple();
  // Half of the pixels to each side, rounded to a whole number of them.
  const double columns = std::floor(size.cx / 2.0 + 0.5);
  const double rows = std::floor(size.cy / 2.0 + 0.5);
  ExpectRangeAround(face, {0, 0}, columns * 0.2, rows * 0.2);
  face.ChooseZoom('i');
  EXPECT_EQ(face.GetRange(), (Range{-columns, columns, -rows, rows}));
  const std::string width = std::to_string(size.cx + size.cx % 2);
  EXPECT_EQ(face.Simple().substr(0, width.size() + 1), "(" + width);
  face.ChooseZoom('t');
  EXPECT_TRUE(
      face.SimpleBecomes("(14.1371669491155 x 14.1371669491155)  Xmin=-7.06858347455775  "
                         "XMax=7.06858347455775  YMin=-4  YMax=4"));
  EXPECT_NEAR(face.Number(L"Xscl"), 1.5707963276795, 1e-12);
  face.ChooseZoom('s');
  EXPECT_TRUE(face.SimpleBecomes("(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10"));
  EXPECT_EQ(face.GetRange(), kStandardRange);
  EXPECT_EQ(face.Number(L"Xscl"), 1);
}

TEST(Face, the_menu_asks_for_a_length_per_pixel) {
  const FaceOnScreen face;
  face.ChooseZoom('n');
  const HWND box = WaitForTop("Zoom Num", kDialogClass);
  ASSERT_NE(box, nullptr);
  EXPECT_NE(FindByText(box, "Enter the real number length per pixel"), nullptr);
  SavePicture(box, "input-box");
  TypeText("0.25 units");
  PressKey(VK_RETURN);
  EXPECT_NE(face.Simple().find("  Xmin=-"), std::string::npos) << face.Simple();
  const SIZE size = SurfaceSize(face);
  const Range quarter = face.GetRange();
  EXPECT_EQ(quarter.xMax, std::floor(size.cx / 2.0 + 0.5) / 4);
  EXPECT_EQ(quarter.yMax, std::floor(size.cy / 2.0 + 0.5) / 4);
  face.ChooseZoom('n');
  ASSERT_NE(WaitForTop("Zoom Num", kDialogClass), nullptr);
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(face.SimpleBecomes(kHint));  // from cmdZoom: nothing was chosen
  EXPECT_EQ(face.GetRange(), quarter);
}

TEST(Face, a_drag_zooms_to_the_box) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), size.cx / 2 - 1, size.cy / 4);
  ButtonDown();
  MoveTo(face.Surface(), size.cx / 2 + 30, size.cy / 4 + 20);
  MoveTo(face.Surface(), 3 * size.cx / 4 - 1, size.cy / 2);
  const COLORREF edge = PixelAt(face.Surface(), 5 * size.cx / 8, size.cy / 4);
  EXPECT_EQ(edge, RGB(0, 0, 0));  // the inverse of the empty picture
  ButtonUp();
  Settle();
  EXPECT_EQ(face.Simple().substr(0, 25), "(5 x 5)  Xmin=0  XMax=5  ") << face.Simple();
  const Point topLeft = PointAt(kStandardRange, size, size.cx / 2 - 1, size.cy / 4);
  const Point bottomRight = PointAt(kStandardRange, size, 3 * size.cx / 4 - 1, size.cy / 2);
  ExpectRangeAround(face, {(topLeft.x + bottomRight.x) / 2, (topLeft.y + bottomRight.y) / 2},
                    bottomRight.x - topLeft.x, topLeft.y - bottomRight.y);
}

TEST(Face, a_drag_to_the_left_and_upwards_gives_the_same_range) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), 300, 200);
  ButtonDown();
  MoveTo(face.Surface(), 100, 120);
  EXPECT_TRUE(
      WaitUntil([&] { return PixelAt(face.Surface(), 200, 120) == RGB(0, 0, 0); }));  // the upper edge
  SavePicture(face.Top(), "rubber-band");
  ButtonUp();
  const Point topLeft = PointAt(kStandardRange, size, 100, 120);
  ExpectRangeAround(face, {topLeft.x + 100 * 20.0 / size.cx, topLeft.y - 40 * 20.0 / size.cy},
                    200 * 20.0 / size.cx, 80 * 20.0 / size.cy);
}

// The picture that the control keeps, and what is seen of it elsewhere.
TEST(Face, rubber_band_and_trace_marker_leave_the_picture_alone) {
  const FaceOnScreen face("\"sin(x)*5\"");
  TakePointerAway();
  const LRESULT kept = face.PictureSum();
  const Picture shown = Capture(face.Surface());
  const POINT onAxis{shown.width / 2 - 1, 20};

  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), 60, 40);
  ButtonDown();
  for (int step = 1; step <= 20; ++step) {
    MoveTo(face.Surface(), 60 + 10 * step, 40 + 7 * step);
    ASSERT_EQ(PixelAt(face.Surface(), onAxis.x, onAxis.y), RGB(0, 0, 0))
        << step;  // above the band: never repainted
  }
  EXPECT_EQ(face.PictureSum(), kept);
  EXPECT_FALSE(Capture(face.Surface()) == shown);
  PressKey(VK_ESCAPE);
  ButtonUp();
  EXPECT_TRUE(Capture(face.Surface()) == shown);

  Click(face.Button("&Trace"));
  for (int step = 1; step <= 20; ++step) MoveTo(face.Surface(), 60 + 10 * step, 40);
  EXPECT_EQ(face.PictureSum(), kept);
  EXPECT_FALSE(Capture(face.Surface()) == shown);
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(Capture(face.Surface()) == shown);
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
  EXPECT_EQ(face.GetRange(), kStandardRange);
}

TEST(Face, a_box_without_size_is_refused) {
  const FaceOnScreen face;
  Click(face.Button("Z&Box"));
  ClickAt(face.Surface(), 80, 80);
  EXPECT_EQ(TakeMessage("ZBox Range Error"), "Invalid selection. Neither height nor width can be zero!");
  EXPECT_EQ(face.Simple().substr(0, 9), "(20 x 20)") << face.Simple();
  EXPECT_EQ(face.GetRange(), kStandardRange);
}

TEST(Face, the_right_button_recentres) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  ClickAt(face.Surface(), size.cx / 2 - 1, size.cy / 4, true);
  EXPECT_EQ(face.Simple().substr(0, 31), "(20 x 20)  Xmin=-10  XMax=10  Y") << face.Simple();
  EXPECT_EQ(face.Simple().find("YMin=-10 "), std::string::npos) << face.Simple();
  ExpectRangeAround(face, PointAt(kStandardRange, size, size.cx / 2 - 1, size.cy / 4), 20, 20);
  Click(face.Button("Z&Out"));
  const Range before = face.GetRange();
  ClickAt(face.Surface(), 50, 60, true);
  ExpectRangeAround(face, PointAt(before, size, 50, 60), 20, 20);
  ClickAt(face.Surface(), size.cx / 2 - 1, size.cy / 2);  // the action is still armed
  EXPECT_EQ(face.Simple().substr(0, 9), "(80 x 80)") << face.Simple();
}

TEST(Face, moving_shows_the_coordinates) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  MoveTo(face.Surface(), size.cx / 2 - 1, 40);
  EXPECT_TRUE(WaitUntil([&] { return face.Status().substr(0, 6) == "X=0   "; })) << face.Status();
}

TEST(Face, the_coordinates_are_polar_when_the_style_says_so) {
  const FaceOnScreen face;
  const SIZE size = SurfaceSize(face);
  ASSERT_HRESULT_SUCCEEDED(Automation(face.Top()).SetNumber(L"GCStyle", 2));
  MoveTo(face.Surface(), size.cx / 2 - 1, 40);
  const double y = PointAt(kStandardRange, size, 0, 40).y;
  const auto isPolar = [&] {
    const std::string status = face.Status();
    return status.starts_with("RADIUS=" + std::to_string(y).substr(0, 5)) &&
           status.find("    REFANGLE=0 radians   X=0    Y=") != std::string::npos;
  };
  EXPECT_TRUE(WaitUntil(isPolar)) << face.Status();
}

TEST(Face, a_function_that_is_not_enabled_is_refused_and_stepped_over) {
  const FaceOnScreen face("\"x\" \"-x\" \"x^2\"");
  Click(face.NumberBox());
  RetypeText("2");
  Click(face.Button("&Trace"));
  EXPECT_EQ(TakeMessage("Invalid Equation"),
            "You need to enter a valid number of an enabled Y function with a non-empty function expression");
  EXPECT_TRUE(face.SimpleBecomes("Selected function is not enabled.")) << face.Simple();
  Click(face.NumberBox());
  RetypeText("1");
  PressKey(VK_DOWN);
  EXPECT_EQ(face.Status(), "Y3=x^2");
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
  EXPECT_EQ(face.GetRange(), kStandardRange);
  Click(face.Button("&Trace"));
  ClickAt(face.Surface(), 100, 60);
  const double x = PointAt(kStandardRange, size, 100, 0).x;
  ExpectRangeAround(face, {x, 5 * std::sin(x)}, 20, 20);
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
  EXPECT_EQ(face.GetRange(), (Range{-7, 13, -7, 13}));
}

TEST(Face, eval_says_what_is_wrong_with_the_answer) {
  const FaceOnScreen face("\"sqr(x)\"");
  constexpr const char* kAnswers[][2] = {
      {"", "User must enter a valid X value or expression in order to evaluate the current function."},
      {"1+", "Cannot evaluate X coordinate equation. Enter a valid numeric expression for x."},
      {"-4", "Error! Cannot evaluate Y1 at X=-4"}};
  for (const auto& row : kAnswers) {
    Click(face.Button("&Eval"));
    ASSERT_NE(WaitForTop("Evaluate Function", kDialogClass), nullptr);
    TypeText(row[0]);
    PressKey(VK_RETURN);
    EXPECT_TRUE(face.SimpleBecomes(row[1])) << face.Simple();
    EXPECT_EQ(face.GetRange(), kStandardRange);
  }
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
