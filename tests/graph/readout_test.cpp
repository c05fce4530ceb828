// Focus: the wording of positions and ranges.
#include "graph/readout.h"

#include <gtest/gtest.h>

#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

TEST(Readout, rectangular) {
  EXPECT_EQ(RectangularText({1.5, -2}), "X=1.5    Y=-2");
  EXPECT_EQ(RectangularText({1.0 / 3, -0.0}), "X=0.333333333333333    Y=0");
}

TEST(Readout, polar_on_the_y_axis_shows_the_angle_0) {
  EXPECT_EQ(CoordinateText(POLARGC, {0, 5}), "RADIUS=5    REFANGLE=0 radians   X=0    Y=5");
}

TEST(Readout, polar_does_not_resolve_the_quadrant) {
  EXPECT_EQ(PolarText({-1, -1}), "RADIUS=1.4142135623731    REFANGLE=0.785398163397448 radians");
  EXPECT_EQ(PolarText({-3, 4}), "RADIUS=5    REFANGLE=-0.927295218001612 radians");
}

TEST(Readout, an_odd_style_is_rectangular_and_an_even_one_polar) {
  for (const std::int32_t style : {1, 3, -1, -7, 2147483647})
    EXPECT_EQ(CoordinateText(style, {3, 4}), "X=3    Y=4") << style;
  for (const std::int32_t style : {2, 0, -2, 100, -2147483647 - 1})
    EXPECT_EQ(CoordinateText(style, {4, 0}), "RADIUS=4    REFANGLE=0 radians   X=4    Y=0") << style;
}

TEST(Readout, a_radius_too_large_is_an_overflow) {
  EXPECT_EQ(test::ErrorOf([] { static_cast<void>(PolarText({1e200, 1})); }), 6);
}

TEST(Readout, the_range_status_shows_the_width_twice) {
  GraphFields range;
  EXPECT_EQ(RangeStatusText(range), "(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10");
  range.Ymin = -5;
  range.Ymax = 5;
  range.H = 10;
  EXPECT_EQ(RangeStatusText(range), "(20 x 20)  Xmin=-10  XMax=10  YMin=-5  YMax=5");
}

}  // namespace
}  // namespace plotvane::graph
