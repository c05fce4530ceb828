// The mouse on the surface: each button in each action, drags, the trace, failures.
#include <gtest/gtest.h>

#include "recording_face.h"

namespace plotvane::control::test {
namespace {

using graph::PixelPoint;
using graph::PointerKind;

// Standard range on 400 × 300 pixels: 0.05 real units per column, 1/15 per row; column 199 is x = 0, row 150
// y = 0.
constexpr float kCentreColumn = 199;
constexpr float kCentreRow = 150;

struct Edges {
  double xMin, xMax, yMin, yMax;
};
void ExpectEdges(const Control& control, const Edges& expected) {
  constexpr double kTolerance = 1e-12;
  EXPECT_NEAR(control.Engine().Xmin, expected.xMin, kTolerance);
  EXPECT_NEAR(control.Engine().Xmax, expected.xMax, kTolerance);
  EXPECT_NEAR(control.Engine().Ymin, expected.yMin, kTolerance);
  EXPECT_NEAR(control.Engine().Ymax, expected.yMax, kTolerance);
}

class Mouse : public testing::Test {
 protected:
  Mouse() {
    control.SetFunctions({"x", "x^2"});
    control.graph->SetPlotDone([this] { ++plots; });
  }
  void Down(MouseButton button, float x, float y) { control.Events().MouseDown(button, x, y); }
  void Up(float x, float y) { control.Events().MouseUp(MouseButton::Left, x, y); }
  void Drag(float x, float y) { control.Events().MouseMove(true, x, y); }
  void Move(float x, float y) { control.Events().MouseMove(false, x, y); }

  Control control;
  int plots = 0;
};

TEST_F(Mouse, a_left_click_without_action_redraws_and_shows_the_hint) {
  Down(MouseButton::Left, 10, 10);
  EXPECT_EQ(plots, 1);
  EXPECT_EQ(control.face->Simple(), kHint);
  ExpectEdges(control, {-10, 10, -10, 10});
}

TEST_F(Mouse, a_zoom_in_click_zooms_once_and_ends_the_action) {
  control.Press(ToolBarItem::cmdZoomIn);
  Down(MouseButton::Left, kCentreColumn, kCentreRow);
  ExpectEdges(control, {-2.5, 2.5, -2.5, 2.5});
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
  EXPECT_EQ(control.face->Simple(), "(5 x 5)  Xmin=-2.5  XMax=2.5  YMin=-2.5  YMax=2.5");
  EXPECT_EQ(plots, 1);

  Down(MouseButton::Left, 10, 10);  // only redraws
  ExpectEdges(control, {-2.5, 2.5, -2.5, 2.5});
  EXPECT_EQ(plots, 2);
  EXPECT_EQ(control.face->Simple(), kHint);
}

TEST_F(Mouse, a_zoom_out_click_zooms_once_and_ends_the_action) {
  control.Press(ToolBarItem::cmdZoomOut);
  Down(MouseButton::Left, kCentreColumn, kCentreRow);
  ExpectEdges(control, {-40, 40, -40, 40});
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Simple(), "(80 x 80)  Xmin=-40  XMax=40  YMin=-40  YMax=40");
}

TEST_F(Mouse, a_right_click_recentres_in_every_action_and_leaves_it_armed) {
  for (const ToolBarItem button : {ToolBarItem::cmdGraph, ToolBarItem::cmdZoomIn, ToolBarItem::cmdZoomOut,
                                   ToolBarItem::cmdZoomBox, ToolBarItem::cmdTrace}) {
    control.graph->ZStandard();
    control.Events().KeyPressed(Key::Escape, KeyPlace::Control);
    control.Press(button);
    const Action armed = control.Events().CurrentAction();
    plots = 0;
    Down(MouseButton::Right, 219, 135);  // x = 1, y = 1
    ExpectEdges(control, {-9, 11, -9, 11});
    EXPECT_EQ(plots, 1);
    EXPECT_EQ(control.Events().CurrentAction(), armed);
    EXPECT_EQ(control.face->Simple(), "(20 x 20)  Xmin=-9  XMax=11  YMin=-9  YMax=11");
  }
}

TEST_F(Mouse, after_a_right_click_the_trace_goes_on_with_the_function_of_the_number_box) {
  control.Press(ToolBarItem::cmdTrace);
  Down(MouseButton::Right, kCentreColumn, kCentreRow);  // plotting ends with Y2 current
  Move(219, 10);                                        // x = 1.0
  EXPECT_EQ(control.Engine().CurrentFunctionIndex(), 1);
  EXPECT_EQ(control.face->Status(), "X=1    Y=1");
}

TEST_F(Mouse, other_buttons_do_nothing) {
  Down(MouseButton::Other, 10, 10);
  control.Events().MouseUp(MouseButton::Other, 10, 10);
  EXPECT_EQ(plots, 0);
}

TEST_F(Mouse, moving_shows_the_coordinates_in_every_action_but_trace_and_drag) {
  for (const ToolBarItem button : {ToolBarItem::cmdGraph, ToolBarItem::cmdZoomIn, ToolBarItem::cmdZoomOut}) {
    control.Events().KeyPressed(Key::Escape, KeyPlace::Control);
    control.Press(button);
    control.face->SetText(TextBox::txtStatusBar1, "");
    Move(219, 135);
    EXPECT_EQ(control.face->Status(), "X=1    Y=1");
    control.face->SetText(TextBox::txtStatusBar1, "");
    Drag(199, 150);
    EXPECT_EQ(control.face->Status(), "X=0    Y=0");
  }
}

TEST_F(Mouse, a_position_between_pixels_is_rounded_halves_to_even) {
  Move(218.5F, 134.5F);  // 218, 134
  const double y = (300 - 134) * (20.0 / 300) - 10;
  EXPECT_NEAR(control.Engine().CurrentX, 0.95, 1e-12);
  EXPECT_NEAR(control.Engine().CurrentY, y, 1e-12);
}

TEST_F(Mouse, with_the_left_button_held_a_trace_only_reads_coordinates) {
  control.Press(ToolBarItem::cmdTrace);
  Drag(219, 150);
  EXPECT_FALSE(control.face->TraceMarkerVisible());
  EXPECT_EQ(control.face->Status(), "X=1    Y=0");
}

// ---- The zoom box ----

TEST_F(Mouse, a_drag_stretches_the_box_and_zooms_to_it) {
  control.Press(ToolBarItem::cmdZoomBox);
  Down(MouseButton::Left, 199, 120);
  EXPECT_TRUE(control.face->BoxVisible());
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelT).from, (PixelPoint{199, 120}));
  Drag(219, 150);
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelT).to, (PixelPoint{219, 120}));
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelB).from, (PixelPoint{199, 150}));
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelL).to, (PixelPoint{199, 150}));
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelR).from, (PixelPoint{219, 120}));
  Up(219, 150);
  EXPECT_FALSE(control.face->BoxVisible());
  ExpectEdges(control, {0, 1, 0, 2});
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
  EXPECT_EQ(plots, 1);
}

TEST_F(Mouse, a_drag_to_the_left_and_upwards_gives_the_same_box) {
  control.Press(ToolBarItem::cmdZoomBox);
  Down(MouseButton::Left, 219, 150);
  Drag(199, 120);
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelT).from, (PixelPoint{199, 120}));
  EXPECT_EQ(control.face->StoredZoomBoxLine(BoxLine::linSelT).to, (PixelPoint{219, 120}));
  Up(199, 120);
  ExpectEdges(control, {0, 1, 0, 2});
}

TEST_F(Mouse, a_box_without_size_is_refused_with_a_message_and_ends_the_action) {
  control.Press(ToolBarItem::cmdZoomBox);
  Down(MouseButton::Left, 199, 120);
  Up(199, 120);
  ASSERT_EQ(control.face->messages.size(), 1U);
  EXPECT_EQ(control.face->messages[0],
            (MessageContents{"Invalid selection. Neither height nor width can be zero!", "ZBox Range Error",
                             MessageIcon::Error}));
  EXPECT_EQ(plots, 0);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  ExpectEdges(control, {-10, 10, -10, 10});
  // The range status that ends the drag measures the size, which the refusal had lost, from the edges again.
  EXPECT_EQ(control.face->Simple(), "(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10");
  EXPECT_EQ(control.Engine().W, 20);
}

TEST_F(Mouse, escape_during_the_drag_hides_the_box_and_does_not_zoom) {
  control.Press(ToolBarItem::cmdZoomBox);
  Down(MouseButton::Left, 199, 120);
  Drag(219, 150);
  control.Events().KeyPressed(Key::Escape, KeyPlace::Control);
  EXPECT_FALSE(control.face->BoxVisible());
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  Up(219, 150);
  ExpectEdges(control, {-10, 10, -10, 10});
  EXPECT_EQ(plots, 0);
}

// ---- The trace ----

TEST_F(Mouse, the_trace_marker_follows_the_curve_under_the_pointer) {
  control.Press(ToolBarItem::cmdTrace);
  Move(219, 10);  // x = 1, y = 1: row 135
  EXPECT_TRUE(control.face->TraceMarkerVisible());
  // Half of 7 pixels is 4 with halves to even.
  EXPECT_EQ(control.face->TraceMarkerTopLeft(), (PixelPoint{215, 131}));
  EXPECT_EQ(control.face->Status(), "X=1    Y=1");
}

TEST_F(Mouse, the_marker_hides_where_the_function_is_undefined) {
  control.SetFunctions({"sqr(x)"});
  control.Press(ToolBarItem::cmdTrace);
  Move(219, 10);
  EXPECT_TRUE(control.face->TraceMarkerVisible());
  Move(179, 10);
  EXPECT_FALSE(control.face->TraceMarkerVisible());
  EXPECT_EQ(control.face->Status().substr(0, 4), "X=-1");
}

TEST_F(Mouse, a_trace_click_recentres_on_the_curve_and_shows_the_value) {
  control.Press(ToolBarItem::cmdTrace);
  Down(MouseButton::Left, 219, 10);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_FALSE(control.face->TraceMarkerVisible());
  ExpectEdges(control, {-9, 11, -9, 11});
  EXPECT_EQ(control.face->Simple(), "Evaluate Y1:   X=1    Y=1");
  EXPECT_EQ(plots, 1);
}

TEST_F(Mouse, a_trace_click_where_the_function_is_undefined_leaves_the_range) {
  control.SetFunctions({"sqr(x)"});
  plots = 0;
  control.Press(ToolBarItem::cmdTrace);
  Down(MouseButton::Left, 179, 10);
  ExpectEdges(control, {-10, 10, -10, 10});
  EXPECT_EQ(plots, 0);
  EXPECT_FALSE(control.face->TraceMarkerVisible());
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
}

// ---- Failures ----

TEST_F(Mouse, a_failing_zoom_shows_the_error_and_ends_the_action) {
  control.Engine().ZX = 0;
  control.Press(ToolBarItem::cmdZoomIn);
  Down(MouseButton::Left, 100, 100);
  EXPECT_EQ(control.face->Simple(), "Division by zero");
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
}

TEST_F(Mouse, a_failing_trace_click_shows_the_error_and_ends_the_action) {
  control.SetFunctions({"x"});
  control.Press(ToolBarItem::cmdTrace);
  control.graph->SetPIC(nullptr);
  control.Events().MouseDown(MouseButton::Left, 100, 50);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Simple(), "Object variable or With block variable not set");
}

TEST_F(Mouse, a_failing_surface_shows_its_error_and_everything_stays_usable) {
  const auto own = control.graph->GetPIC();
  control.graph->SetPIC(std::make_shared<FailingSurface>());
  Down(MouseButton::Left, 10, 10);
  EXPECT_EQ(control.face->Simple(), "Device I/O error");
  EXPECT_EQ(plots, 0);
  control.graph->SetPIC(own);
  Down(MouseButton::Left, 10, 10);
  EXPECT_EQ(control.face->Simple(), kHint);
  EXPECT_EQ(plots, 1);
}

TEST_F(Mouse, a_position_outside_16_bits_is_an_overflow_shown_as_text) {
  Move(40000, 0);
  EXPECT_EQ(control.face->Simple(), "Overflow");
}

TEST_F(Mouse, the_host_may_let_go_of_the_control_inside_plot_done) {
  std::weak_ptr<Graph> watched = control.graph;
  Graph& graph = *control.graph;
  control.graph->SetPlotDone([this] { control.graph.reset(); });
  graph.Events().MouseDown(MouseButton::Left, 10, 10);
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace plotvane::control::test
