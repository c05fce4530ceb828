// Focus: what a plot draws and reports, point by point and in which order; the replay of a path.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

using platform::Value;

const std::string kHint = "simple Left click on the graph to redraw using the current functions";

TEST(PlotAllY, without_functions_clears_draws_axes_and_grid_and_reports) {
  TestGraph test(4, 4);
  test.graph.ShowAxis = true;
  test.graph.ShowAxisDivisions = false;
  test.graph.ShowGrid = true;
  test.graph.Xscl = test.graph.Yscl = 20;
  EXPECT_EQ(test.Plot(), (Log{"pointer 5", "clear", "persistent on", "line 1,0 1,4", "line 0,2 4,2",
                              "pixel 1,2", "refresh", kHint, "pointer 0", "PlotDone"}));
  EXPECT_FALSE(test.graph.RedrawAll);
}

TEST(PlotAllY, plots_enabled_functions_in_their_order_with_their_colours) {
  TestGraph test(3, 20);
  test.Range(0, 3, 0, 20);
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({MakeFunction("x", 1, false), MakeFunction("5", 2), MakeFunction("9", 3)}, false);
  EXPECT_EQ(test.Plot(), (Log{"pointer 5", "clear", "persistent on", "refresh", "simple Plotting Y2=5 ...",
                              "refresh simple", Dot(-1, 15, 2), Dot(1, 15, 2), Dot(2, 15, 2), "refresh",
                              "simple Plotting Y3=9 ...", "refresh simple", Dot(-1, 11, 3), Dot(1, 11, 3),
                              Dot(2, 11, 3), "refresh", kHint, "pointer 0", "PlotDone"}));
}

TEST(PlotAllY, an_empty_equation_draws_nothing_and_keeps_its_path) {
  TestGraph test(5, 5);
  const auto function = MakeFunction("");
  function->Redimension(3);
  test.graph.SetYArray({function}, false);
  EXPECT_EQ(test.Plot(), (Log{"pointer 5", "clear", "persistent on", "refresh", "refresh", kHint, "pointer 0",
                              "PlotDone"}));
  EXPECT_EQ(function->NumberOfPixels(), 3);
  EXPECT_FALSE(function->QuickRedraw);
}

TEST(PlotAllY, a_disabled_function_keeps_its_path) {
  TestGraph test(5, 5);
  const auto function = MakeFunction("x", 255, false);
  function->Redimension(3);
  test.graph.SetYArray({function});
  EXPECT_EQ(function->NumberOfPixels(), 3);
  EXPECT_FALSE(function->QuickRedraw);
}

TEST(PlotAllY, gives_x_its_value_back) {
  TestGraph test(9, 9);
  test.table->values["x"] = Value("text");
  test.graph.SetYArray({MakeFunction("x")});
  EXPECT_EQ(test.table->values["x"], Value("text"));
}

TEST(PlotAllY, leaves_an_unknown_x_empty) {
  TestGraph test(9, 9);
  test.graph.SetYArray({});
  ASSERT_TRUE(test.table->values.contains("x"));
  EXPECT_TRUE(test.table->values["x"].IsEmpty());
}

TEST(PlotAllY, evaluates_with_numeric_results_only) {
  TestGraph test(3, 3);
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({MakeFunction("1;2")}, false);
  EXPECT_TRUE(test.PlotCurves().empty());
  EXPECT_TRUE(test.expression.GetAcceptNumericResultOnly());
}

TEST(PlotAllY, a_new_array_takes_the_place_of_the_old_one) {
  TestGraph test(3, 3);
  test.graph.SetYArray({MakeFunction("1"), MakeFunction("2")}, false);
  EXPECT_EQ(test.graph.FunctionCount(), 2);
  test.log.clear();
  test.graph.SetYArray({}, true);
  EXPECT_EQ(test.graph.FunctionCount(), 0);
  EXPECT_EQ(test.log.back(), "PlotDone");
  test.log.clear();
  test.graph.SetYArray({MakeFunction("1")}, false);
  EXPECT_TRUE(test.log.empty());
}

TEST(PlotAllY, an_array_with_a_hole_or_too_many_functions_changes_nothing) {
  TestGraph test(3, 3);
  const auto function = MakeFunction("1");
  test.graph.SetYArray({function}, false);
  EXPECT_EQ(ErrorOf([&] { test.graph.SetYArray({function, nullptr}, false); }), 424);
  EXPECT_EQ(
      ErrorOf([&] { test.graph.SetYArray(std::vector<std::shared_ptr<YFunction>>(32768, function), false); }),
      6);
  EXPECT_EQ(test.graph.FunctionCount(), 1);
}

TEST(PlotAllY, needs_a_surface_and_a_variable_table) {
  TestGraph test(3, 3);
  test.graph.PIC = nullptr;
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 91);
  test.graph.PIC = test.surface;
  test.expression.SetVarTable(nullptr);
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 91);
}

// --- Points ---

TEST(PlotPoints, the_first_is_column_minus_one_the_second_column_one) {
  TestGraph test(400, 200);
  const auto function = MakeFunction("0");
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({function}, false);
  Log expected{Dot(-1, 100)};
  for (int column = 1; column <= 399; ++column) expected.push_back(Dot(column, 100));
  EXPECT_EQ(test.PlotCurves(), expected);
  EXPECT_EQ(function->NumberOfPixels(), 400);
  EXPECT_TRUE(function->QuickRedraw);
}

TEST(PlotPoints, x_takes_the_values_of_the_columns) {
  TestGraph test(6, 6);
  test.Range(0, 6, 0, 6);
  test.graph.SetYArray({MakeFunction("x")});
  std::vector<double> stored;
  for (const Value& value : test.table->changesOfX) stored.push_back(value.ToNumber().Get());
  // The recording, six points, and the empty value given back.
  EXPECT_EQ(stored, (std::vector<double>{0, 0, 2, 3, 4, 5, 6, 0}));
}

TEST(PlotPoints, a_step_leaves_columns_out) {
  TestGraph test(400, 200);
  test.graph.PlotStyle = DRAWDOT;
  for (const auto& [step, points] : {std::pair{3, 134}, {2, 200}, {7, 58}, {400, 1}, {9999, 1}}) {
    test.graph.SetPlotPixelStep(static_cast<std::int16_t>(step));
    test.graph.SetYArray({MakeFunction("0")}, false);
    Log expected{Dot(-1, 100)};
    for (int k = 2; k <= points; ++k) expected.push_back(Dot(k * step - 1, 100));
    EXPECT_EQ(test.PlotCurves(), expected) << step;
  }
}

TEST(PlotPoints, far_values_are_clamped_to_16_bits) {
  TestGraph test(3, 3);
  test.Range(0, 3, 0, 3);
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({MakeFunction("1e300"), MakeFunction("0-1e300")}, false);
  EXPECT_EQ(test.PlotCurves(), (Log{Dot(-1, -32768), Dot(1, -32768), Dot(2, -32768), Dot(-1, 32767),
                                    Dot(1, 32767), Dot(2, 32767)}));
}

TEST(PlotPoints, a_plot_style_other_than_lines_draws_dots) {
  TestGraph test(2, 2);
  test.Range(0, 2, 0, 2);
  test.graph.SetYArray({MakeFunction("1")}, false);
  for (const std::int32_t style : {1, 0, 3, -5}) {
    test.graph.PlotStyle = style;
    test.graph.RedrawAll = true;
    EXPECT_EQ(test.PlotCurves(), (Log{Dot(-1, 1), Dot(1, 1)})) << style;
  }
}

TEST(PlotPoints, the_first_line_starts_at_the_left_edge_where_axes_left_the_counter) {
  TestGraph test(4, 40);
  test.Range(0, 4, -20, 20);
  test.graph.SetYArray({MakeFunction("5")}, false);
  test.graph.SetPlotPixelStep(2);
  test.graph.CurrentY = 3;
  EXPECT_EQ(test.PlotCurves(), (Log{Segment(-1, 17, -1, 15), Segment(-1, 15, 3, 15)}));
  test.graph.ShowAxis = true;
  test.graph.Xmin = -2;
  test.graph.Xmax = 2;
  test.graph.PrepareGraph();
  EXPECT_EQ(test.PlotCurves()[0], Segment(-1, -1, -1, 15));  // y marks counted to 21
}

TEST(PlotPoints, lines_bridge_a_gap) {
  TestGraph test(10, 20);
  test.Range(-5, 5, -10, 10);
  const auto function = MakeFunction("sqr(x)");
  test.graph.CurrentY = 0;
  test.graph.SetYArray({function}, false);
  // Undefined left of zero: the first defined point is joined to column -1, where the counter stood.
  EXPECT_EQ(test.PlotCurves(), (Log{Segment(-1, 10, 4, 10), Segment(4, 10, 5, 9), Segment(5, 9, 6, 9),
                                    Segment(6, 9, 7, 8), Segment(7, 8, 8, 8), Segment(8, 8, 9, 8)}));
}

TEST(PlotPoints, an_undefined_point_within_a_curve_does_not_break_the_line) {
  TestGraph test(6, 20);
  test.Range(-3, 3, -10, 10);
  test.graph.SetYArray({MakeFunction("1/x")}, false);
  const Log curve = test.PlotCurves();
  // x = -3, -1, 0 (undefined), 1, 2, 3
  EXPECT_EQ(curve, (Log{Segment(-1, 10, -1, 10), Segment(-1, 10, 1, 11), Segment(1, 11, 3, 9),
                        Segment(3, 9, 4, 10), Segment(4, 10, 5, 10)}));
}

TEST(PlotPoints, a_function_undefined_at_the_left_edge_is_drawn_where_it_is_defined) {
  TestGraph test(4, 20);
  test.Range(0, 4, -10, 10);
  test.graph.PlotStyle = DRAWDOT;
  // The recording at x = 0 stops at the division and lacks the tail; it is made again at the next point.
  test.graph.SetYArray({MakeFunction("4/x*2+1")}, false);
  EXPECT_EQ(test.PlotCurves(), (Log{Dot(1, 5), Dot(2, 6), Dot(3, 7)}));
}

TEST(PlotPoints, a_function_that_fails_at_its_first_point_otherwise_is_skipped) {
  TestGraph test(4, 20);
  test.Range(0, 4, -10, 10);
  for (const char* equation : {"10^400", "(", "x+", "unknown", "x x"}) {
    const auto function = MakeFunction(equation);
    test.graph.SetYArray({function}, false);
    EXPECT_TRUE(test.PlotCurves().empty()) << equation;
    EXPECT_EQ(function->NumberOfPixels(), 0) << equation;
    EXPECT_FALSE(function->QuickRedraw) << equation;
  }
}

TEST(PlotPoints, any_failure_after_the_first_point_skips_the_point) {
  TestGraph test(4, 20);
  test.Range(0, 400, -10, 10);
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({MakeFunction("0*10^(2*x)+1")}, false);  // overflows from x = 200 on
  EXPECT_EQ(test.PlotCurves(), (Log{Dot(-1, 9)}));
}

// A direct reading of the rules for random windows, sizes and steps, in dots.
TEST(PlotPoints, random_windows_have_the_points_of_the_rule) {
  std::mt19937 bits(17);
  std::uniform_real_distribution<double> edge(-100, 100);
  for (int i = 0; i < 60; ++i) {
    const auto width = static_cast<std::int16_t>(1 + bits() % 300);
    const auto height = static_cast<std::int16_t>(1 + bits() % 300);
    const auto step = static_cast<std::int16_t>(1 + bits() % 12);
    TestGraph test(width, height);
    test.graph.PlotStyle = DRAWDOT;
    test.Range(edge(bits), edge(bits), edge(bits), edge(bits));
    test.graph.SetPlotPixelStep(step);
    test.graph.SetYArray({MakeFunction("x*x/20-x")}, false);

    const double xSize = (test.graph.Xmax - test.graph.Xmin) / width;
    const double ySize = (test.graph.Ymax - test.graph.Ymin) / height;
    const auto round16 = [](double value) {
      return static_cast<int>(std::clamp(std::nearbyint(value), -32768.0, 32767.0));
    };
    Log expected;
    double x = test.graph.Xmin;
    for (int k = 1; k <= static_cast<int>(std::floor((width - 1.0) / step + 1)); ++k) {
      const double y = x * x / 20 - x;
      expected.push_back(
          Dot(round16((x - test.graph.Xmin) / xSize - 1), round16(height - (y - test.graph.Ymin) / ySize)));
      x = ((k + 1) * step) * xSize + test.graph.Xmin;
    }
    ASSERT_EQ(test.PlotCurves(), expected);
  }
}

TEST(PlotPointXY, draws_the_current_point_in_the_current_colour) {
  TestGraph test(400, 200);
  test.graph.SetYArray({MakeFunction("1", 77)});
  test.graph.PreviousPixel = {1, 2};
  test.graph.SetCurrentPoint({0, 5});
  test.log.clear();
  test.graph.PlotPointXY();
  test.graph.PlotStyle = DRAWDOT;
  test.graph.PlotPointXY();
  EXPECT_EQ(test.log, (Log{Segment(1, 2, 199, 50, 77), Dot(199, 50, 77)}));
  EXPECT_EQ(test.graph.PreviousPixel, (PixelPoint{1, 2}));
}

TEST(EvaluateAndPlotEachPoint, replays_the_recorded_equation_from_the_current_point) {
  TestGraph test(3, 20);
  test.Range(0, 3, 0, 20);
  const auto function = MakeFunction("x+1");
  test.graph.SetYArray({function});
  test.graph.SetCurrentPoint({5, 2});
  test.log.clear();
  test.graph.EvaluateAndPlotEachPoint();
  // The first point is wherever the current one stands.
  EXPECT_EQ(test.log, (Log{Segment(4, 18, 4, 14), Segment(4, 14, 1, 17), Segment(1, 17, 2, 16)}));
}

TEST(EvaluateAndPlotEachPoint, needs_a_current_function) {
  TestGraph test(3, 20);
  EXPECT_EQ(ErrorOf([&] { test.graph.EvaluateAndPlotEachPoint(); }), 91);
  test.graph.SetYArray({MakeFunction("1"), MakeFunction("2")});
  test.graph.SetYArray({MakeFunction("1")}, false);
  EXPECT_EQ(ErrorOf([&] { test.graph.EvaluateAndPlotEachPoint(); }), 9);
}

TEST(EvaluateAndPlotEachPoint, the_last_step_on_the_widest_surface_is_an_overflow) {
  TestGraph test(32767, 2);
  const auto function = MakeFunction("0");
  test.graph.RedrawAll = true;
  EXPECT_EQ(ErrorOf([&] { test.graph.SetYArray({function}); }), 6);
  EXPECT_EQ(function->CurrentPixelIndex(), 32767);
}

// --- Replay ---

TEST(Replay, an_unchanged_function_is_not_evaluated_again) {
  TestGraph test(9, 20);
  test.graph.SetYArray({MakeFunction("x")});
  const Log first = LinesStarting(test.log, "line");
  test.table->changesOfX.clear();
  test.log.clear();
  test.graph.PlotAllY();
  EXPECT_EQ(test.table->changesOfX.size(), 1u);  // given back only
  EXPECT_EQ(LinesStarting(test.log, "line").size(), first.size());
  EXPECT_EQ(LinesStarting(test.log, "simple")[0], "simple Plotting Y1=x ...");
}

TEST(Replay, starts_at_the_first_point_instead_of_the_left_edge) {
  TestGraph test(4, 20);
  test.Range(0, 4, 0, 20);
  test.graph.SetYArray({MakeFunction("x")});
  EXPECT_EQ(test.PlotCurves(), (Log{Segment(-1, 20, -1, 20), Segment(-1, 20, 1, 18), Segment(1, 18, 2, 17),
                                    Segment(2, 17, 3, 16)}));
}

TEST(Replay, breaks_the_line_at_a_gap) {
  TestGraph test(6, 20);
  test.Range(-3, 3, -10, 10);
  test.graph.SetYArray({MakeFunction("1/x")});
  EXPECT_EQ(test.PlotCurves(), (Log{Segment(-1, 10, -1, 10), Segment(-1, 10, 1, 11), Segment(3, 9, 3, 9),
                                    Segment(3, 9, 4, 10), Segment(4, 10, 5, 10)}));
}

TEST(Replay, draws_no_line_from_the_left_edge_to_the_first_defined_point) {
  TestGraph test(10, 20);
  test.Range(-5, 5, -10, 10);
  test.graph.SetYArray({MakeFunction("sqr(x)")});
  EXPECT_EQ(test.PlotCurves(), (Log{Segment(4, 10, 4, 10), Segment(4, 10, 5, 9), Segment(5, 9, 6, 9),
                                    Segment(6, 9, 7, 8), Segment(7, 8, 8, 8), Segment(8, 8, 9, 8)}));
}

TEST(Replay, happens_only_while_the_path_is_valid_and_nothing_forces_evaluation) {
  TestGraph test(9, 20);
  const auto function = MakeFunction("x");
  const auto evaluates = [&] {
    test.table->changesOfX.clear();
    test.graph.PlotAllY();
    return test.table->changesOfX.size() > 1;
  };
  test.graph.SetYArray({function});
  EXPECT_FALSE(evaluates());
  function->QuickRedraw = false;
  EXPECT_TRUE(evaluates());
  EXPECT_FALSE(evaluates());
  test.graph.RedrawAll = true;
  EXPECT_TRUE(evaluates());
  EXPECT_FALSE(evaluates());
  test.graph.PrepareGraph();
  EXPECT_TRUE(evaluates());
  test.graph.SetPlotPixelStep(2);
  EXPECT_TRUE(evaluates());
  test.graph.SetDegreeMode(true);
  EXPECT_TRUE(evaluates());
  EXPECT_FALSE(evaluates());
}

TEST(Replay, a_function_that_says_it_is_valid_but_was_never_drawn_is_evaluated) {
  TestGraph test(9, 20);
  test.graph.PlotAllY();
  const auto function = MakeFunction("x");
  function->QuickRedraw = true;
  test.graph.SetYArray({function});
  EXPECT_EQ(function->NumberOfPixels(), 9);
}

TEST(Replay, uses_the_plot_style_and_colour_of_the_moment) {
  TestGraph test(3, 20);
  test.Range(0, 3, 0, 20);
  const auto function = MakeFunction("4");
  test.graph.SetYArray({function});
  test.graph.PlotStyle = DRAWDOT;
  function->DrawColor = 9;
  EXPECT_EQ(test.PlotCurves(), (Log{Dot(-1, 16, 9), Dot(1, 16, 9), Dot(2, 16, 9)}));
}

}  // namespace
}  // namespace plotvane::graph::test
