// Focus: which pixels lines, dots and wide pens set in memory, their colours, and surfaces of every size.
#include "graph/raster_surface.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "graph/colours.h"
#include "graph/line_walk.h"
#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

using test::ErrorOf;

// "#" for a pixel that is not white.
std::vector<std::string> Rows(const RasterSurface& surface) {
  std::vector<std::string> rows;
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    std::string row;
    for (std::int32_t x = 0; x < surface.Width(); ++x) row += surface.ColourAt(x, y) == 0xFFFFFF ? '.' : '#';
    rows.push_back(row);
  }
  return rows;
}

using Picture = std::vector<std::string>;

Picture LinePicture(PixelPoint from, PixelPoint to, std::int16_t pen = 1) {
  RasterSurface surface(8, 5);
  surface.SetPenWidth(pen);
  surface.Line(from, to);
  return Rows(surface);
}

TEST(RasterSurface, a_line_leaves_out_its_last_pixel) {
  EXPECT_EQ(LinePicture({1, 1}, {4, 1}),
            (Picture{"........", ".###....", "........", "........", "........"}));
  EXPECT_EQ(LinePicture({4, 1}, {1, 1}),
            (Picture{"........", "..###...", "........", "........", "........"}));
  EXPECT_EQ(LinePicture({2, 1}, {2, 4}),
            (Picture{"........", "..#.....", "..#.....", "..#.....", "........"}));
  EXPECT_EQ(LinePicture({0, 0}, {3, 3}),
            (Picture{"#.......", ".#......", "..#.....", "........", "........"}));
}

TEST(RasterSurface, a_line_of_no_length_draws_nothing) {
  EXPECT_EQ(LinePicture({3, 3}, {3, 3}), Picture(5, "........"));
}

TEST(RasterSurface, half_way_pixels_go_up_and_left) {
  EXPECT_EQ(LinePicture({0, 1}, {4, 3}),
            (Picture{"........", "##......", "..##....", "........", "........"}));
  EXPECT_EQ(LinePicture({0, 3}, {4, 1}),
            (Picture{"........", "...#....", ".##.....", "#.......", "........"}));
}

TEST(RasterSurface, drawing_is_clipped) {
  EXPECT_EQ(LinePicture({-5, 2}, {30, 2}),
            (Picture{"........", "........", "########", "........", "........"}));
  EXPECT_EQ(LinePicture({-5, -1}, {30, -1}), Picture(5, "........"));
  EXPECT_EQ(LinePicture({8, 0}, {8, 4}), Picture(5, "........"));
}

// The pixels of a line by its rule: after k steps the shorter axis has moved by the nearest whole number,
// halves up and left.
Picture SlowLine(PixelPoint from, PixelPoint to, std::int32_t width, std::int32_t height) {
  Picture rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
  const int dx = to.x - from.x;
  const int dy = to.y - from.y;
  const int n = std::max(std::abs(dx), std::abs(dy));
  const auto nearest = [](double value) { return static_cast<int>(std::ceil(value - 0.5)); };
  for (int k = 0; k < n; ++k) {
    const int x =
        std::abs(dx) >= std::abs(dy) ? from.x + (dx > 0 ? k : -k) : nearest(from.x + 1.0 * dx * k / n);
    const int y =
        std::abs(dx) >= std::abs(dy) ? nearest(from.y + 1.0 * dy * k / n) : from.y + (dy > 0 ? k : -k);
    if (x >= 0 && x < width && y >= 0 && y < height)
      rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = '#';
  }
  return rows;
}

TEST(RasterSurface, random_lines_have_the_pixels_of_the_rule) {
  std::mt19937 bits(5);
  for (int i = 0; i < 4000; ++i) {
    const int reach = i % 3 == 0 ? 40 : i % 3 == 1 ? 200 : 30000;
    std::uniform_int_distribution<int> any(-reach, reach);
    const PixelPoint from{static_cast<std::int16_t>(any(bits)), static_cast<std::int16_t>(any(bits))};
    const PixelPoint to{static_cast<std::int16_t>(any(bits)), static_cast<std::int16_t>(any(bits))};
    RasterSurface surface(37, 29);
    surface.Line(from, to);
    ASSERT_EQ(Rows(surface), SlowLine(from, to, 37, 29))
        << from.x << "," << from.y << " " << to.x << "," << to.y;
  }
}

TEST(RasterSurface, a_line_costs_nothing_outside_of_the_surface) {
  for (const PixelPoint to : {PixelPoint{32767, 32767}, {32767, -32768}, {-32768, 20}, {15, 32767}}) {
    const LineWalk walk = WalkLine({-32768, -32768}, to, 30, 20);
    EXPECT_LE(walk.count, 30);
  }
  EXPECT_EQ(WalkLine({-100, -5}, {100, -5}, 30, 20).count, 0);
  EXPECT_EQ(WalkLine({0, 0}, {5, 5}, 0, 20).count, 0);
}

TEST(RasterSurface, wide_pens_have_round_caps) {
  EXPECT_EQ(LinePicture({2, 2}, {5, 2}, 3),
            (Picture{"........", ".######.", ".######.", ".######.", "........"}));
  EXPECT_EQ(LinePicture({2, 2}, {5, 2}, 2),
            (Picture{"........", ".#####..", ".#####..", "........", "........"}));
  EXPECT_EQ(LinePicture({3, 2}, {3, 2}, 3),
            (Picture{"........", "..###...", "..###...", "..###...", "........"}));
}

TEST(RasterSurface, a_dot_of_a_wide_pen_is_a_disc) {
  RasterSurface surface(8, 5);
  surface.SetPenWidth(5);
  surface.SetPixel({3, 2});
  EXPECT_EQ(Rows(surface), (Picture{"..###...", ".#####..", ".#####..", ".#####..", "..###..."}));
}

TEST(RasterSurface, a_pen_below_1_draws_as_1) {
  EXPECT_EQ(LinePicture({1, 1}, {4, 1}, 0), LinePicture({1, 1}, {4, 1}));
  EXPECT_EQ(LinePicture({1, 1}, {4, 1}, -9), LinePicture({1, 1}, {4, 1}));
  RasterSurface surface(2, 2);
  surface.SetPenWidth(-9);
  EXPECT_EQ(surface.GetPenWidth(), -9);
}

// Every pixel of a wide stroke by its distance from the line.
TEST(RasterSurface, random_strokes_cover_what_is_near_enough) {
  std::mt19937 bits(6);
  std::uniform_int_distribution<int> any(-20, 80);
  for (int i = 0; i < 1000; ++i) {
    const PixelPoint from{static_cast<std::int16_t>(any(bits)), static_cast<std::int16_t>(any(bits))};
    const PixelPoint to{static_cast<std::int16_t>(any(bits)), static_cast<std::int16_t>(any(bits))};
    const int pen = 2 + i % 29;
    RasterSurface surface(60, 60);
    surface.SetPenWidth(static_cast<std::int16_t>(pen));
    surface.Line(from, to);
    const double shift = pen % 2 == 0 ? 0.5 : 0;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 60; ++x) {
        const double px = x + shift - from.x;
        const double py = y + shift - from.y;
        const double length = dx * dx + dy * dy;
        const double t = length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0;
        const double distance = std::hypot(px - t * dx, py - t * dy);
        if (std::abs(distance - pen / 2.0) < 1e-9) continue;  // on the very edge the last bit decides
        ASSERT_EQ(surface.ColourAt(x, y) == 0, distance < pen / 2.0)
            << "pen " << pen << " at " << x << "," << y;
      }
    }
  }
}

TEST(RasterSurface, colours_are_numbers_with_red_lowest) {
  RasterSurface surface(3, 1);
  surface.SetPixel({0, 0}, 255);
  surface.SetPixel({1, 0}, 0x7F123456);
  surface.SetPixel({2, 0});
  EXPECT_EQ(surface.ColourAt(0, 0), 0x0000FFu);
  EXPECT_EQ(surface.ColourAt(1, 0), 0x123456u);
  EXPECT_EQ(surface.ColourAt(2, 0), 0u);
}

TEST(RasterSurface, system_colours_are_those_of_a_plain_desktop) {
  EXPECT_EQ(ResolveColour(kWindowBackground), 0xFFFFFFu);
  EXPECT_EQ(ResolveColour(kWindowText), 0u);
  EXPECT_EQ(ResolveColour(-1), 0u);
}

TEST(RasterSurface, clear_makes_everything_white) {
  RasterSurface surface(8, 5);
  EXPECT_EQ(Rows(surface), Picture(5, "........"));
  surface.Line({0, 0}, {8, 5}, 255);
  surface.Clear();
  EXPECT_EQ(Rows(surface), Picture(5, "........"));
}

TEST(RasterSurface, a_row_is_copied_whole) {
  RasterSurface surface(3, 2);
  surface.SetPixel({1, 1}, 0x102030);
  std::vector<std::uint32_t> row(3);
  surface.CopyRow(1, row);
  EXPECT_EQ(row, (std::vector<std::uint32_t>{0xFFFFFF, 0x102030, 0xFFFFFF}));
}

TEST(RasterSurface, a_new_size_keeps_the_top_left) {
  RasterSurface surface(4, 3);
  surface.SetPixel({0, 0});
  surface.SetPixel({3, 2});
  surface.Resize(5, 2);
  EXPECT_EQ(Rows(surface), (Picture{"#....", "....."}));
  surface.Resize(2, 4);
  EXPECT_EQ(Rows(surface), (Picture{"#.", "..", "..", ".."}));
  EXPECT_EQ(surface.ScaleWidth(), 2);
  EXPECT_EQ(surface.ScaleHeight(), 4);
}

TEST(RasterSurface, sides_of_zero_take_every_drawing) {
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 50}, {50, 0}}) {
    RasterSurface surface(width, height);
    surface.Clear();
    surface.Line({-10, -10}, {10, 10});
    surface.SetPixel({0, 0});
    surface.SetPenWidth(30);
    surface.Line({-10, -10}, {10, 10});
    surface.SetPixel({0, 0});
    surface.Resize(3, 3);
    EXPECT_EQ(Rows(surface), Picture(3, "..."));
  }
}

TEST(RasterSurface, the_largest_surface_is_made_or_refused_for_memory) {
  EXPECT_EQ(ErrorOf([] { RasterSurface(-1, 5); }), 5);
  EXPECT_EQ(ErrorOf([] { RasterSurface(5, 32768); }), 5);
  const std::int32_t error = ErrorOf([] {
    RasterSurface surface(32767, 32767);
    surface.Line({0, 0}, {32767, 0});
    EXPECT_EQ(surface.ColourAt(32766, 0), 0u);
    EXPECT_EQ(surface.ColourAt(32766, 32766), 0xFFFFFFu);
  });
  EXPECT_TRUE(error == 0 || error == 7) << error;
}

}  // namespace
}  // namespace plotvane::graph
