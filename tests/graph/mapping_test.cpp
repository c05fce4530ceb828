// Focus: conversions between real and pixel positions, their offset and their rounding.
#include "graph/mapping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

using test::ErrorOf;

// The standard window on a surface of 400 x 200 pixels.
constexpr PixelMapping kStandard{-10, -10, 0.05, 0.1, 200};

std::int16_t Column(double x) {
  return RealToPixel(kStandard, {x, 0}).x;
}
std::int16_t Row(double y) {
  return RealToPixel(kStandard, {0, y}).y;
}

TEST(Mapping, the_left_edge_is_column_minus_one) {
  EXPECT_EQ(Column(-10), -1);
  EXPECT_EQ(Column(-9.95), 0);
  EXPECT_EQ(Column(0), 199);
  EXPECT_EQ(Column(10), 399);
}

TEST(Mapping, the_bottom_edge_is_the_row_below_the_surface) {
  EXPECT_EQ(Row(0), 100);
  EXPECT_EQ(Row(10), 0);
  EXPECT_EQ(Row(-10), 200);
}

TEST(Mapping, halves_go_to_the_even_pixel) {
  constexpr PixelMapping unit{0, 0, 1, 1, 100};
  EXPECT_EQ(RealToPixel(unit, {3.5, 0}).x, 2);   // 2.5
  EXPECT_EQ(RealToPixel(unit, {4.5, 0}).x, 4);   // 3.5
  EXPECT_EQ(RealToPixel(unit, {0.5, 0}).x, 0);   // -0.5
  EXPECT_EQ(RealToPixel(unit, {0, 97.5}).y, 2);  // 2.5
  EXPECT_EQ(RealToPixel(unit, {0, 96.5}).y, 4);  // 3.5
}

TEST(Mapping, pixels_map_back_by_the_inverse_rules) {
  EXPECT_EQ(PixelToReal(kStandard, {-1, 200}), (RealPoint{-10, -10}));
  EXPECT_EQ(PixelToReal(kStandard, {0, 100}), (RealPoint{-10 + 0.05, 0}));
  EXPECT_EQ(PixelToReal(kStandard, {399, 0}), (RealPoint{10, 10}));
}

TEST(Mapping, a_negative_pixel_size_mirrors) {
  constexpr PixelMapping mirrored{5, 5, -0.025, -0.05, 200};
  EXPECT_EQ(RealToPixel(mirrored, {5, 5}), (PixelPoint{-1, 200}));
  EXPECT_EQ(RealToPixel(mirrored, {-5, -5}), (PixelPoint{399, 0}));
}

TEST(Mapping, a_far_point_is_clamped_to_16_bits) {
  EXPECT_EQ(RealToPixel(kStandard, {1e9, -1e9}), (PixelPoint{32767, 32767}));
  EXPECT_EQ(RealToPixel(kStandard, {-1e9, 1e9}), (PixelPoint{-32768, -32768}));
  constexpr double kHuge = std::numeric_limits<double>::max();
  EXPECT_EQ(RealToPixel(kStandard, {kHuge, kHuge}), (PixelPoint{32767, -32768}));
}

TEST(Mapping, a_pixel_size_of_zero_is_a_division_by_zero) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RealToPixel({0, 0, 0, 1, 9}, {1, 1})); }), 11);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RealToPixel({0, 0, 1, 0, 9}, {1, 1})); }), 11);
}

TEST(Mapping, a_position_that_is_no_number_is_an_overflow) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RealToPixel({kInfinity, 0, 1, 1, 9}, {kInfinity, 1})); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(PixelToReal({1e308, 0, 1e308, 1, 9}, {5, 1})); }), 6);
}

TEST(Mapping, mouse_positions_round_halves_to_even) {
  EXPECT_EQ(RoundToPixel(2.5f, 3.5f), (PixelPoint{2, 4}));
  EXPECT_EQ(RoundToPixel(-0.5f, -1.5f), (PixelPoint{0, -2}));
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RoundToPixel(40000, 0)); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RoundToPixel(0, std::nanf(""))); }), 6);
}

TEST(Mapping, the_number_of_plot_points_is_the_whole_part) {
  struct Case {
    std::int16_t width, step, points;
  };
  for (const Case& c : {Case{400, 1, 400},
                        {400, 3, 134},
                        {401, 2, 201},
                        {400, 2, 200},
                        {400, 7, 58},
                        {1, 1, 1},
                        {1, 5, 1},
                        {0, 1, 0},
                        {0, 5, 0},
                        {10, 32767, 1},
                        {32767, 1, 32767}})
    EXPECT_EQ(PlotPointCount(c.width, c.step), c.points) << c.width << " " << c.step;
}

TEST(Mapping, the_second_plot_point_lies_two_steps_from_the_edge) {
  EXPECT_EQ(NextPlotX(kStandard, 1, 1), 2 * 0.05 + -10);
  EXPECT_EQ(NextPlotX(kStandard, 1, 3), 6 * 0.05 + -10);
  EXPECT_EQ(Column(NextPlotX(kStandard, 1, 1)), 1);
  EXPECT_EQ(Column(NextPlotX(kStandard, 4, 3)), 14);
}

TEST(Mapping, the_pixels_from_the_edge_are_a_16_bit_product) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(NextPlotX(kStandard, 32766, 1)); }), 0);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(NextPlotX(kStandard, 32767, 1)); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(NextPlotX(kStandard, 1, 16384)); }), 6);
}

TEST(Mapping, multiples_are_rounded_by_floor_or_truncated) {
  EXPECT_EQ(RoundToMultiple(200.5, 1), 201);
  EXPECT_EQ(RoundToMultiple(-200.5, 1), -200);
  EXPECT_EQ(RoundToMultiple(20, 0.1), 20);
  EXPECT_EQ(TruncateToMultiple(-10, 3), -9);
  EXPECT_EQ(TruncateToMultiple(10, 3), 9);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(RoundToMultiple(1, 0)); }), 11);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(TruncateToMultiple(0, 0)); }), 11);
}

// Every pixel of a random window is the image of the point that it maps to.
TEST(Mapping, random_windows_map_there_and_back) {
  std::mt19937 bits(11);
  std::uniform_real_distribution<double> position(-1000, 1000);
  std::uniform_real_distribution<double> size(1e-4, 50);
  std::uniform_int_distribution<std::int16_t> pixel(-2000, 2000);
  for (int i = 0; i < 20000; ++i) {
    const double sign = i % 2 == 0 ? 1 : -1;
    const PixelMapping mapping{position(bits), position(bits), sign * size(bits), size(bits), 777};
    const PixelPoint there{pixel(bits), pixel(bits)};
    ASSERT_EQ(RealToPixel(mapping, PixelToReal(mapping, there)), there);
  }
}

}  // namespace
}  // namespace plotvane::graph
