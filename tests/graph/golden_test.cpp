// Focus: whole pictures against those that were looked at and found right.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "graph/raster_surface.h"
#include "hosts/terminal/png_file.h"
#include "tests/graph/png_picture.h"
#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

// A graph that draws into memory: 200 x 150 pixels, -10..10 by -7.5..7.5.
struct Painted : TestGraph {
  Painted() : TestGraph(200, 150), raster(std::make_shared<RasterSurface>(200, 150)) {
    graph.PIC = raster;
    graph.ShowAxis = true;
    Range(-10, 10, -7.5, 7.5);
  }
  void Functions(const std::vector<std::pair<const char*, std::int32_t>>& equations) {
    std::vector<std::shared_ptr<YFunction>> functions;
    for (const auto& [equation, colour] : equations) functions.push_back(MakeFunction(equation, colour));
    graph.SetYArray(std::move(functions));
  }

  std::shared_ptr<RasterSurface> raster;
};

constexpr std::int32_t kRed = 0x0000D0;
constexpr std::int32_t kGreen = 0x008000;
constexpr std::int32_t kBlue = 0xC00000;

// A picture that differs is left beside the tests' other files, to be looked at.
void ExpectPicture(const RasterSurface& surface, const std::string& name) {
  if (PictureOf(surface) == ReadPng(std::string(PLOTVANE_GOLDEN) + "/" + name + ".png")) return;
  const std::string drawn = testing::TempDir() + name + ".png";
  terminal::WritePng(surface, drawn);
  ADD_FAILURE() << name << ".png differs from what was drawn: " << drawn;
}

TEST(Golden, axes_divisions_and_grid) {
  Painted test;
  test.graph.ShowGrid = true;
  test.graph.PlotAllY();
  ExpectPicture(*test.raster, "axes_and_grid");
}

TEST(Golden, curves_in_their_colours) {
  Painted test;
  test.Functions({{"x^2/8-5", kRed}, {"sin(x)*3", kBlue}, {"x/2", kGreen}});
  ExpectPicture(*test.raster, "curves");
}

TEST(Golden, a_gap_bridged_by_the_plot) {
  Painted test;
  test.Functions({{"sqr(x^2-9)", kBlue}});
  ExpectPicture(*test.raster, "gap_plotted");
}

TEST(Golden, a_gap_left_open_by_the_replay) {
  Painted test;
  test.Functions({{"sqr(x^2-9)", kBlue}});
  test.graph.PlotAllY();
  ExpectPicture(*test.raster, "gap_replayed");
}

TEST(Golden, a_pole_joined_by_a_steep_line) {
  Painted test;
  test.Functions({{"3/(x-1)", kRed}});
  ExpectPicture(*test.raster, "pole");
}

TEST(Golden, every_eighth_column_in_lines) {
  Painted test;
  test.graph.SetPlotPixelStep(8);
  test.Functions({{"5*sin(x)", kBlue}});
  ExpectPicture(*test.raster, "step_8");
}

TEST(Golden, dots_at_every_third_column) {
  Painted test;
  test.graph.SetPlotPixelStep(3);
  test.graph.PlotStyle = DRAWDOT;
  test.Functions({{"5*sin(x)", kBlue}});
  ExpectPicture(*test.raster, "dots_step_3");
}

TEST(Golden, a_wide_pen_with_grid) {
  Painted test;
  test.graph.SetPenWidth(4);
  test.graph.ShowGrid = true;
  test.graph.Xscl = test.graph.Yscl = 2;
  test.Functions({{"5*cos(x/2)", kGreen}});
  ExpectPicture(*test.raster, "pen_4");
}

TEST(Golden, a_mirrored_window) {
  Painted test;
  test.Range(10, -10, 7.5, -7.5);
  test.Functions({{"x^2/8-5", kRed}});
  ExpectPicture(*test.raster, "mirrored");
}

TEST(Golden, the_trigonometric_window_in_degrees) {
  Painted test;
  test.graph.SetDegreeMode(true);
  test.Functions({{"sin(x)", kBlue}, {"tan(x)", kRed}});
  test.graph.ZTrig();
  ExpectPicture(*test.raster, "trig_degrees");
}

}  // namespace
}  // namespace plotvane::graph::test
