// Focus: preparing the graph, the range texts, angle mode, plot step and surface size.
#include <gtest/gtest.h>

#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

TEST(Range, a_new_graph_has_the_standard_range) {
  Log log;
  engine::clsExp expression;
  RecordingFrame frame(log);
  const GraphEngine graph(expression, frame);
  EXPECT_EQ(graph.W, 20);
  EXPECT_EQ(graph.H, 20);
  EXPECT_EQ(graph.W_2, 0);
  EXPECT_EQ(graph.Xmin, -10);
  EXPECT_EQ(graph.Ymax, 10);
  EXPECT_EQ(graph.Xscl, 1);
  EXPECT_EQ(graph.PlotStyle, DRAWLINE);
  EXPECT_EQ(graph.GCStyle, RECTGC);
  EXPECT_EQ(graph.ZX, 4);
  EXPECT_EQ(graph.ZY, 4);
  EXPECT_TRUE(graph.ShowAxis && graph.ShowAxisDivisions && graph.RedrawAxisOnResize &&
              graph.RedrawGridOnResize);
  EXPECT_FALSE(graph.ShowGrid || graph.RedrawAll);
  EXPECT_EQ(graph.GetPlotPixelStep(), 1);
  EXPECT_FALSE(graph.GetDegreeMode());
  EXPECT_TRUE(expression.ErrObj().GraphMode);
}

TEST(PrepareGraph, computes_the_pixel_sizes_and_asks_for_evaluation) {
  TestGraph test(400, 200);
  test.graph.RedrawAll = false;
  test.graph.PrepareGraph();
  EXPECT_EQ(test.graph.XPixelSize, 0.05);
  EXPECT_EQ(test.graph.YPixelSize, 0.1);
  EXPECT_TRUE(test.graph.RedrawAll);
  EXPECT_TRUE(test.log.empty());
}

TEST(PrepareGraph, a_reversed_range_is_accepted) {
  TestGraph test(400, 200);
  test.Range(5, -5, -10, 10);
  EXPECT_EQ(test.graph.XPixelSize, -0.025);
  EXPECT_TRUE(test.log.empty());
}

TEST(PrepareGraph, an_empty_range_is_reported_and_keeps_both_pixel_sizes) {
  TestGraph test(400, 200);
  const std::string xMessage = "message Invalid Range! You should change X Max and X Min||none";
  const std::string yMessage = "message Invalid Range! You should change Y Max and Y Min||none";
  test.Range(1, 1, 2, 2);
  EXPECT_EQ(test.log, (Log{xMessage, yMessage}));
  test.log.clear();
  test.Range(1, 1, 0, 1);
  EXPECT_EQ(test.log, (Log{xMessage}));
  test.log.clear();
  test.Range(0, 1, 2, 2);
  EXPECT_EQ(test.log, (Log{yMessage}));
  EXPECT_EQ(test.graph.XPixelSize, 0.05);
  EXPECT_EQ(test.graph.YPixelSize, 0.1);
  EXPECT_TRUE(test.graph.RedrawAll);
}

TEST(PrepareGraph, a_surface_without_a_side_is_a_division_by_zero) {
  TestGraph test(400, 200);
  test.graph.RedrawAll = false;
  test.graph.SurfaceHeight = 0;
  EXPECT_EQ(ErrorOf([&] { test.graph.PrepareGraph(); }), 11);
  EXPECT_FALSE(test.graph.RedrawAll);
  EXPECT_EQ(test.graph.XPixelSize, 0.05);
}

TEST(PrepareGraph, a_range_too_wide_is_an_overflow) {
  TestGraph test(400, 200);
  EXPECT_EQ(ErrorOf([&] { test.Range(-1.7e308, 1.7e308, 0, 1); }), 6);
}

TEST(StringEval, a_text_is_kept_and_evaluated_into_its_number) {
  TestGraph test(400, 200);
  const auto write = [&](RangeText which) {
    test.graph.SetStringEval(which, "3*2");
    return test.graph.StringEval(which);
  };
  for (int i = 0; i < 8; ++i) EXPECT_EQ(write(static_cast<RangeText>(i)), "3*2");
  const GraphFields& g = test.graph;
  for (const std::string& text :
       {g.ZXStr, g.ZYStr, g.XMinStr, g.XMaxStr, g.YMinStr, g.YMaxStr, g.XSclStr, g.YSclStr})
    EXPECT_EQ(text, "3*2");
  EXPECT_EQ(g.ZX, 6);
  EXPECT_EQ(g.ZY, 6);
  for (const double number : {g.Xmin, g.Xmax, g.Ymin, g.Ymax, g.Xscl, g.Yscl}) EXPECT_EQ(number, 6);
}

TEST(StringEval, a_written_text_neither_prepares_nor_draws) {
  TestGraph test(400, 200);
  test.graph.RedrawAll = false;
  test.graph.SetStringEval(RangeText::XMax, "40");
  EXPECT_TRUE(test.log.empty());
  EXPECT_FALSE(test.graph.RedrawAll);
  EXPECT_EQ(test.graph.XPixelSize, 0.05);
}

TEST(StringEval, a_text_that_gives_no_number_is_kept_and_changes_nothing_else) {
  TestGraph test(400, 200);
  for (const char* text : {"", "1;2", "(", "1/0", "unknown"}) {
    test.graph.SetStringEval(RangeText::XMax, text);
    EXPECT_EQ(test.graph.XMaxStr, text);
    EXPECT_EQ(test.graph.Xmax, 10) << text;
  }
  EXPECT_TRUE(test.log.empty());
}

TEST(StringEval, a_zoom_factor_is_a_32_bit_float) {
  TestGraph test(400, 200);
  test.graph.SetStringEval(RangeText::ZX, "1/3");
  EXPECT_EQ(test.graph.ZX, 1.0f / 3);
  EXPECT_EQ(ErrorOf([&] { test.graph.SetStringEval(RangeText::ZY, "10^300"); }), 6);
  EXPECT_EQ(test.graph.ZYStr, "10^300");
  EXPECT_EQ(test.graph.ZY, 4);
}

TEST(DegreeMode, asks_for_evaluation_only_when_it_changes) {
  TestGraph test(400, 200);
  test.graph.RedrawAll = false;
  test.graph.SetDegreeMode(false);
  EXPECT_FALSE(test.graph.RedrawAll);
  test.graph.SetDegreeMode(true);
  EXPECT_TRUE(test.graph.RedrawAll);
  EXPECT_TRUE(test.expression.GetDegreeMode());
  EXPECT_TRUE(test.graph.GetDegreeMode());
}

TEST(PlotPixelStep, ignores_values_below_1_and_unchanged_ones) {
  TestGraph test(400, 200);
  for (const int step : {0, -1, -32768, 1}) {
    test.graph.RedrawAll = false;
    test.graph.SetPlotPixelStep(static_cast<std::int16_t>(step));
    EXPECT_EQ(test.graph.GetPlotPixelStep(), 1);
    EXPECT_FALSE(test.graph.RedrawAll);
  }
  test.graph.SetPlotPixelStep(32767);
  EXPECT_EQ(test.graph.GetPlotPixelStep(), 32767);
  EXPECT_TRUE(test.graph.RedrawAll);
}

TEST(PenWidth, is_the_surfaces) {
  TestGraph test(400, 200);
  test.graph.SetPenWidth(-3);
  EXPECT_EQ(test.surface->GetPenWidth(), -3);
  EXPECT_EQ(test.graph.GetPenWidth(), -3);
  test.graph.PIC = nullptr;
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(test.graph.GetPenWidth()); }), 91);
  EXPECT_EQ(ErrorOf([&] { test.graph.SetPenWidth(1); }), 91);
}

TEST(SurfaceSize, is_rounded_to_16_bits) {
  TestGraph test(400, 200);
  test.graph.PIC = std::make_shared<RecordingSurface>(test.log, 100.5, 101.5);
  test.graph.ReadSurfaceSize();
  EXPECT_EQ(test.graph.SurfaceWidth, 100);
  EXPECT_EQ(test.graph.SurfaceHeight, 102);
  test.graph.PIC = std::make_shared<RecordingSurface>(test.log, 40000, 5);
  EXPECT_EQ(ErrorOf([&] { test.graph.ReadSurfaceSize(); }), 6);
}

}  // namespace
}  // namespace plotvane::graph::test
