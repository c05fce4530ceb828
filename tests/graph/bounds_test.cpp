// Focus: no range, scale, size or pen makes a plot hang, crash or leave the graph unusable.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

#include "graph/raster_surface.h"
#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

struct Range {
  double low;
  double high;
};

const std::vector<Range> kRanges{{-10, 10},           {10, -10},     {0, 0},           {1e17, 1e17 + 64},
                                 {-1e17 - 64, -1e17}, {0, 5e-324},   {1e-300, 2e-300}, {-1e300, 1e300},
                                 {-1.7e308, 1.7e308}, {1, 1 + 2e-16}};
const std::vector<double> kScales{1, 0, -1, 5e-324, 1e-3, 1e300, 1e17};

struct Size {
  std::int16_t width;
  std::int16_t height;
};

// Division by zero, overflow: what a fault of the arithmetic may be.
bool IsDefined(std::int32_t error) {
  return std::set<std::int32_t>{0, 6, 11}.contains(error);
}

// Plots with everything switched on; the second plot replays, the last one is that of the standard range.
void PlotAt(Size size, Range x, Range y, double scale, std::int16_t pen) {
  TestGraph test(size.width, size.height);
  test.graph.PIC = std::make_shared<RasterSurface>(size.width, size.height);
  test.graph.ShowAxis = true;
  test.graph.ShowGrid = true;
  test.graph.Xscl = test.graph.Yscl = scale;
  test.graph.SetPenWidth(pen);
  test.graph.SetPlotPixelStep(7);
  test.graph.SetYArray({MakeFunction("x"), MakeFunction("1/x"), MakeFunction("1e308*x")}, false);
  EXPECT_TRUE(IsDefined(ErrorOf([&] { test.Range(x.low, x.high, y.low, y.high); })));
  EXPECT_TRUE(IsDefined(ErrorOf([&] { test.graph.PlotAllY(); })));
  EXPECT_TRUE(IsDefined(ErrorOf([&] { test.graph.PlotAllY(); })));
  EXPECT_EQ(ErrorOf([&] { test.graph.ZStandard(); }), 0);
}

TEST(Bounds, every_range_and_scale_ends) {
  for (const Range& x : kRanges)
    for (const Range& y : kRanges)
      for (const double scale : kScales) PlotAt({60, 40}, x, y, scale, 1);
}

TEST(Bounds, every_size_and_pen_ends) {
  for (const Size size : {Size{1, 1}, {1, 500}, {500, 1}, {2, 3}, {3000, 2}, {2, 20000}})
    for (const int pen : {1, 2, 30})
      for (const Range& x : kRanges) PlotAt(size, x, {-10, 10}, 1, static_cast<std::int16_t>(pen));
}

TEST(Bounds, zooming_in_and_out_without_end_ends_in_a_defined_error) {
  for (const bool in : {true, false}) {
    TestGraph test(60, 40);
    test.graph.ZX = test.graph.ZY = 1e30f;
    test.graph.SetYArray({MakeFunction("x")}, false);
    for (int i = 0; i < 40; ++i)
      EXPECT_TRUE(IsDefined(ErrorOf([&] { in ? test.graph.ZoomInXY() : test.graph.ZoomOutXY(); })));
    EXPECT_EQ(ErrorOf([&] { test.graph.ZStandard(); }), 0);
  }
}

TEST(Bounds, a_surface_without_an_area_is_a_division_by_zero) {
  for (const Size size : {Size{0, 0}, {0, 50}, {50, 0}}) {
    TestGraph test(10, 10);
    test.graph.PIC = std::make_shared<RasterSurface>(size.width, size.height);
    test.graph.ReadSurfaceSize();
    EXPECT_EQ(ErrorOf([&] { test.graph.PrepareGraph(); }), 11);
    test.graph.ShowAxis = true;
    test.graph.SetYArray({MakeFunction("x")}, false);
    EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 0);
  }
}

}  // namespace
}  // namespace plotvane::graph::test
