// Focus: which axis lines, division marks and grid dots are drawn, in which order, and where the counters
// end.
#include "graph/axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>

#include "graph/raster_surface.h"
#include "tests/graph/drawing_log.h"
#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

using test::ErrorOf;
using test::Log;
using test::RecordingSurface;

// A window with its surface; the pixel sizes belong to the range.
struct Scene {
  Scene(std::int16_t width, std::int16_t height, double xMin, double xMax, double yMin, double yMax) {
    window.SurfaceWidth = width;
    window.SurfaceHeight = height;
    window.Xmin = xMin;
    window.Xmax = xMax;
    window.Ymin = yMin;
    window.Ymax = yMax;
    surface = std::make_shared<RecordingSurface>(log, width, height);
    window.ComputePixelSizes();
  }
  void Axes() { DrawAxes(window, Canvas(surface, pass)); }
  void Grid() {
    window.ShowGrid = true;
    DrawGrid(window, Canvas(surface, pass));
  }

  Log log;
  WindowModel window;
  std::shared_ptr<RecordingSurface> surface;
  std::uint32_t pass = 0;
};

Scene Standard() {
  return Scene(400, 200, -10, 10, -10, 10);
}

std::string XMark(int column, int axisRow) {
  return "line " + std::to_string(column) + "," + std::to_string(axisRow) + " " + std::to_string(column) +
         "," + std::to_string(axisRow - 3);
}
std::string YMark(int axisColumn, int row) {
  return "line " + std::to_string(axisColumn) + "," + std::to_string(row) + " " +
         std::to_string(axisColumn + 3) + "," + std::to_string(row);
}

TEST(Axes, the_standard_window_has_21_marks_on_each_axis) {
  Scene scene = Standard();
  scene.Axes();
  Log expected{"line 199,0 199,200", "line 0,100 400,100"};
  for (int k = -10; k <= 10; ++k) expected.push_back(XMark(20 * k + 199, 100));
  for (int k = -10; k <= 10; ++k) expected.push_back(YMark(199, 100 - 10 * k));
  EXPECT_EQ(scene.log, expected);
}

TEST(Axes, the_counters_end_past_the_marks) {
  Scene scene = Standard();
  scene.Axes();
  EXPECT_EQ(scene.window.CurrentX, 0);  // the y marks hold x at the axis
  EXPECT_EQ(scene.window.CurrentY, 11);
}

TEST(Axes, without_show_axis_nothing_is_drawn_or_changed) {
  Scene scene = Standard();
  scene.window.ShowAxis = false;
  scene.window.CurrentY = 77;
  scene.Axes();
  EXPECT_TRUE(scene.log.empty());
  EXPECT_EQ(scene.window.CurrentY, 77);
}

TEST(Axes, without_divisions_only_the_lines_are_drawn) {
  Scene scene = Standard();
  scene.window.ShowAxisDivisions = false;
  scene.Axes();
  EXPECT_EQ(scene.log, (Log{"line 199,0 199,200", "line 0,100 400,100"}));
  EXPECT_EQ(scene.window.CurrentPoint(), (RealPoint{0, 0}));
}

TEST(Axes, marks_closer_than_a_pixel_are_left_out_on_their_axis_only) {
  Scene scene = Standard();
  scene.window.Xscl = 0.01;
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 21u);
  EXPECT_EQ(scene.log[2], YMark(199, 200));
}

TEST(Axes, marks_exactly_a_pixel_apart_are_drawn) {
  Scene scene(32, 32, -16, 16, -16, 16);
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 33u + 33u);
}

TEST(Axes, an_origin_off_the_surface_draws_lines_but_no_marks) {
  Scene scene(400, 200, 1, 5, 1, 5);
  scene.Axes();
  EXPECT_EQ(scene.log, (Log{"line -101,0 -101,200", "line 0,250 400,250"}));
}

TEST(Axes, an_axis_in_the_edge_row_or_column_has_no_marks) {
  Scene bottom(400, 200, -10, 10, 0, 20);  // the x axis is row 200
  bottom.Axes();
  EXPECT_EQ(bottom.log.size(), 2u + 21u);
  Scene top(400, 200, -10, 10, -20, 0);  // the x axis is row 0
  top.Axes();
  EXPECT_EQ(top.log.size(), 2u + 21u);
  Scene left(400, 200, -0.05, 19.95, -10, 10);  // the y axis is column 0
  left.Axes();
  EXPECT_EQ(left.log.size(), 2u + 20u);
}

TEST(Axes, truncation_may_put_the_first_mark_outside_a_positive_edge) {
  Scene scene(100, 200, 0.5, 2.5, -1, 1);
  scene.window.Xscl = 1;
  scene.Axes();
  EXPECT_EQ(scene.log[2], XMark(-26, 100));  // x = 0, left of the edge 0.5
  EXPECT_EQ(scene.log[3], XMark(24, 100));
}

TEST(Axes, a_scale_of_zero_draws_no_marks) {
  Scene scene = Standard();
  scene.window.Xscl = 0;
  scene.window.Yscl = 0;
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u);
}

TEST(Axes, a_pixel_size_of_zero_is_an_error_before_anything_is_drawn) {
  Scene scene = Standard();
  scene.window.XPixelSize = 0;
  EXPECT_EQ(ErrorOf([&] { scene.Axes(); }), 11);
  EXPECT_TRUE(scene.log.empty());
}

TEST(Axes, the_end_of_a_mark_beyond_16_bits_is_an_overflow) {
  Scene scene(32767, 200, -10, 0, -10, 10);  // the y axis is column 32766
  scene.window.Xscl = 0;
  EXPECT_EQ(ErrorOf([&] { scene.Axes(); }), 6);
  EXPECT_EQ(scene.log, (Log{"line 32766,0 32766,200", "line 0,100 32767,100"}));
}

TEST(Axes, a_mirrored_window_needs_a_negative_scale_for_marks) {
  Scene scene(400, 200, 10, -10, -10, 10);
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 21u);  // those of the y axis
  scene.log.clear();
  scene.window.Xscl = -1;
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 21u + 21u);
  EXPECT_EQ(scene.log[2], XMark(-1, 100));
}

TEST(Axes, marks_that_stand_still_far_from_zero_end_quietly) {
  Scene scene(400, 200, 1e17, 1e17 + 64, -10, 10);
  scene.window.Xscl = 1;
  scene.window.ShowAxis = true;
  scene.Axes();
  Scene vertical(64, 64, -10, 10, 1e17, 1e17 + 64);
  vertical.Axes();
  Scene grid(64, 64, 1e17, 1e17 + 64, 1e17, 1e17 + 64);
  grid.Grid();
  EXPECT_EQ(grid.log.size(), 1u);  // both loops end after their first pass
}

TEST(Axes, edges_written_without_new_pixel_sizes_do_not_count_for_ever) {
  Scene scene = Standard();
  scene.window.Xmin = -1e15;
  scene.window.Xmax = 1e15;
  scene.window.Ymax = 1e15;
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 4096u);  // the y axis lies far off the surface
  scene.window.ShowGrid = true;
  DrawGrid(scene.window, Canvas(std::make_shared<RasterSurface>(400, 200), scene.pass));
  EXPECT_EQ(scene.window.CurrentY, -10 + 4096);
}

TEST(Grid, is_drawn_row_by_row_from_the_bottom_left) {
  Scene scene(40, 20, -2, 2, -1, 1);
  scene.Grid();
  EXPECT_EQ(scene.log, (Log{"pixel -1,20", "pixel 9,20", "pixel 19,20", "pixel 29,20", "pixel 39,20",
                            "pixel -1,10", "pixel 9,10", "pixel 19,10", "pixel 29,10", "pixel 39,10",
                            "pixel -1,0", "pixel 9,0", "pixel 19,0", "pixel 29,0", "pixel 39,0"}));
  EXPECT_EQ(scene.window.CurrentPoint(), (RealPoint{3, 2}));
}

TEST(Grid, is_not_drawn_unless_shown) {
  Scene scene = Standard();
  DrawGrid(scene.window, Canvas(scene.surface, scene.pass));
  EXPECT_TRUE(scene.log.empty());
}

TEST(Grid, needs_a_pen_width_between_dots_but_marks_do_not) {
  Scene scene(40, 40, -10, 10, -10, 10);  // divisions 2 pixels apart
  scene.surface->SetPenWidth(3);
  scene.Grid();
  EXPECT_TRUE(scene.log.empty());
  scene.Axes();
  EXPECT_EQ(scene.log.size(), 2u + 21u + 21u);
  scene.log.clear();
  scene.surface->SetPenWidth(2);
  scene.Grid();
  EXPECT_EQ(scene.log.size(), 21u * 21u);
}

TEST(Grid, one_direction_too_dense_leaves_all_dots_out) {
  Scene scene = Standard();
  scene.window.Yscl = 0.05;
  scene.Grid();
  EXPECT_TRUE(scene.log.empty());
}

TEST(Grid, a_pen_width_of_zero_is_a_division_by_zero) {
  Scene scene = Standard();
  scene.surface->SetPenWidth(0);
  EXPECT_EQ(ErrorOf([&] { scene.Grid(); }), 11);
  scene.surface->SetPenWidth(-2);
  EXPECT_EQ(ErrorOf([&] { scene.Grid(); }), 0);
  EXPECT_TRUE(scene.log.empty());
}

TEST(Grid, fractional_scales_are_summed_up_with_their_rounding) {
  Scene scene(100, 100, 0, 1, 0, 1);
  scene.window.Xscl = 0.1;
  scene.window.Yscl = 1;
  scene.Grid();
  // Ten sums of 0.1 stay below 1, so there are eleven dots in a row; the counter ends past the edge.
  EXPECT_EQ(scene.log.size(), 2u * 11u);
  double sum = 0;
  for (int i = 0; i < 11; ++i) sum += 0.1;
  EXPECT_EQ(scene.window.CurrentX, sum);
}

// The number of marks of random windows, counted by the rule itself.
TEST(Axes, random_windows_have_the_marks_of_the_rule) {
  std::mt19937 bits(3);
  std::uniform_real_distribution<double> edge(-50, 0);
  std::uniform_real_distribution<double> length(50, 120);
  std::uniform_real_distribution<double> scale(0.1, 20);
  for (int i = 0; i < 500; ++i) {
    const double xMin = edge(bits);
    const double yMin = edge(bits);
    Scene scene(300, 200, xMin, xMin + length(bits), yMin, yMin + length(bits));
    scene.window.Xscl = scale(bits);
    scene.window.Yscl = scale(bits);
    const auto marks = [](double low, double high, double step, double pixelSize, bool axisInside) {
      int count = 0;
      if (step / pixelSize >= 1 && axisInside)
        for (double at = std::trunc(low / step) * step; at <= std::trunc(high / step) * step; at += step)
          ++count;
      return count;
    };
    const WindowModel& w = scene.window;
    const PixelPoint origin = RealToPixel(w.Mapping(), {0, 0});
    const int expected = 2 + marks(w.Xmin, w.Xmax, w.Xscl, w.XPixelSize, origin.y > 0 && origin.y < 200) +
                         marks(w.Ymin, w.Ymax, w.Yscl, w.YPixelSize, origin.x > 0 && origin.x < 300);
    scene.Axes();
    ASSERT_EQ(static_cast<int>(scene.log.size()), expected);
  }
}

}  // namespace
}  // namespace plotvane::graph
