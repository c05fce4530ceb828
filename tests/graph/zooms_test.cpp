// Focus: zooms and preset windows as changes of the range alone.
#include "graph/zooms.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

using test::ErrorOf;

WindowModel OnSurface(std::int16_t width, std::int16_t height) {
  WindowModel window;
  window.SurfaceWidth = width;
  window.SurfaceHeight = height;
  window.ComputePixelSizes();
  return window;
}

TEST(Zooms, the_current_point_becomes_the_centre) {
  WindowModel window = OnSurface(400, 200);
  window.W = 6;
  window.H = 4;
  window.SetCurrentPoint({1, -1});
  CentreOnCurrentPoint(window);
  EXPECT_EQ(window.W_2, 3);
  EXPECT_EQ(window.H_2, 2);
  EXPECT_EQ(window.Xmin, -2);
  EXPECT_EQ(window.Xmax, 4);
  EXPECT_EQ(window.Ymin, -3);
  EXPECT_EQ(window.Ymax, 1);
}

TEST(Zooms, factors_divide_and_multiply_the_size) {
  WindowModel window;
  window.ZX = 2;
  window.ZY = 0.5f;
  DivideByZoomFactors(window);
  EXPECT_EQ(window.W, 10);
  EXPECT_EQ(window.H, 40);
  MultiplyByZoomFactors(window);
  MultiplyByZoomFactors(window);
  EXPECT_EQ(window.W, 40);
  EXPECT_EQ(window.H, 10);
}

TEST(Zooms, a_zero_factor_fails_and_keeps_what_was_assigned_before_it) {
  WindowModel window;
  window.ZX = 4;
  window.ZY = 0;
  EXPECT_EQ(ErrorOf([&] { DivideByZoomFactors(window); }), 11);
  EXPECT_EQ(window.W, 5);
  EXPECT_EQ(window.H, 20);
  window.ZX = 0;
  EXPECT_EQ(ErrorOf([&] { DivideByZoomFactors(window); }), 11);
  EXPECT_EQ(window.W, 5);
}

TEST(Zooms, a_size_too_large_is_an_overflow) {
  WindowModel window;
  window.W = 1e308;
  EXPECT_EQ(ErrorOf([&] { MultiplyByZoomFactors(window); }), 6);
}

TEST(Zooms, a_box_is_mapped_to_its_rectangle) {
  WindowModel window = OnSurface(400, 200);  // pixel sizes 0.05 and 0.1
  ASSERT_TRUE(SelectBox(window, {199, 50, 100, 20}));
  EXPECT_EQ(window.W, 100 * 0.05);
  EXPECT_EQ(window.H, 20 * 0.1);
  EXPECT_EQ(window.Xmin, 0);
  EXPECT_EQ(window.Xmax, 5);
  EXPECT_EQ(window.Ymax, 5);
  EXPECT_EQ(window.Ymin, 3);
}

TEST(Zooms, a_refused_box_still_changes_the_size) {
  WindowModel window = OnSurface(400, 200);
  EXPECT_FALSE(SelectBox(window, {10, 10, 0, 20}));
  EXPECT_EQ(window.W, 0);
  EXPECT_EQ(window.H, 2);
  EXPECT_EQ(window.Xmin, -10);
  EXPECT_FALSE(SelectBox(window, {10, 10, 20, 0}));
  EXPECT_EQ(window.W, 1);
  EXPECT_EQ(window.H, 0);
}

TEST(Zooms, the_standard_range_leaves_the_halves_alone) {
  WindowModel window;
  window.Xmin = window.Xmax = window.Ymin = window.Ymax = window.W = window.H = window.Xscl = window.Yscl = 7;
  window.W_2 = 3;
  SetStandardRange(window);
  EXPECT_EQ(window.Xmin, -10);
  EXPECT_EQ(window.Xmax, 10);
  EXPECT_EQ(window.Ymin, -10);
  EXPECT_EQ(window.Ymax, 10);
  EXPECT_EQ(window.W, 20);
  EXPECT_EQ(window.H, 20);
  EXPECT_EQ(window.Xscl, 1);
  EXPECT_EQ(window.Yscl, 1);
  EXPECT_EQ(window.W_2, 3);
}

TEST(Zooms, the_trigonometric_range_in_radians_uses_its_own_angle) {
  WindowModel window;
  SetTrigRange(window, false);
  EXPECT_DOUBLE_EQ(window.Xmax, 7.06858347455775);
  EXPECT_EQ(window.Xmin, -window.Xmax);
  EXPECT_DOUBLE_EQ(window.W, 14.1371669491155);
  EXPECT_DOUBLE_EQ(window.Xscl, 1.5707963276795);
  EXPECT_EQ(window.H, 8);
  EXPECT_EQ(window.Ymin, -4);
  EXPECT_EQ(window.Ymax, 4);
  EXPECT_EQ(window.Yscl, 1);
}

TEST(Zooms, the_trigonometric_range_in_degrees) {
  WindowModel window;
  SetTrigRange(window, true);
  EXPECT_EQ(window.Xmin, -405);
  EXPECT_EQ(window.Xmax, 405);
  EXPECT_EQ(window.Xscl, 45);
  EXPECT_EQ(window.W, 810);
  EXPECT_EQ(window.Ymin, -4);
  EXPECT_EQ(window.Ymax, 4);
}

TEST(Zooms, an_integer_window_rounds_an_odd_width_up) {
  WindowModel window = OnSurface(401, 200);
  SetRangeByPixelSize(window, 1);
  EXPECT_EQ(window.Xmax, 201);
  EXPECT_EQ(window.Xmin, -201);
  EXPECT_EQ(window.W, 402);
  EXPECT_EQ(window.H, 200);
  EXPECT_EQ(window.Xscl, 10);
  EXPECT_EQ(window.XPixelSize, 1);
  EXPECT_EQ(window.YPixelSize, 1);
}

TEST(Zooms, a_decimal_window) {
  WindowModel window = OnSurface(400, 200);
  window.RedrawAll = false;
  SetRangeByPixelSize(window, 0.1);
  EXPECT_EQ(window.Xmax, 20);
  EXPECT_EQ(window.Ymax, 10);
  EXPECT_EQ(window.Xscl, 1);
  EXPECT_EQ(window.Yscl, 1);
  EXPECT_TRUE(window.RedrawAll);
}

TEST(Zooms, a_pixel_size_of_zero_fails_after_it_was_stored) {
  WindowModel window = OnSurface(400, 200);
  EXPECT_EQ(ErrorOf([&] { SetRangeByPixelSize(window, 0); }), 11);
  EXPECT_EQ(window.XPixelSize, 0);
  EXPECT_EQ(window.YPixelSize, 0);
  EXPECT_EQ(window.Xmax, 10);
}

TEST(Zooms, the_size_is_measured_from_the_edges) {
  WindowModel window;
  window.Xmin = 1;
  window.Ymin = 4;
  MeasureRange(window);
  EXPECT_EQ(window.W, 9);
  EXPECT_EQ(window.H, 6);
}

}  // namespace
}  // namespace plotvane::graph
