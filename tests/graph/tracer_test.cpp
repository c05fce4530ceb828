// Focus: choosing the current function, evaluating it at a point, the trace and its click.
#include <gtest/gtest.h>

#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

using platform::Value;

const std::string kInvalid =
    "message You need to enter a valid number of an enabled Y function with a non-empty function expression|"
    "Invalid Equation|exclamation";

// Y1 = x, Y2 = x^2, Y3 off, Y4 = 1/x, Y5 empty.
struct Traced : TestGraph {
  Traced() : TestGraph(400, 200) {
    graph.SetYArray({MakeFunction("x"), MakeFunction("x^2"), MakeFunction("9", 255, false),
                     MakeFunction("1/x"), MakeFunction("")},
                    false);
    log.clear();
  }
  bool Select(std::string_view text) {
    frame.userCurY = text;
    return graph.SelectFunctionFromUserBox();
  }
  bool Validate(std::string_view text) {
    log.clear();
    frame.userCurY = text;
    return graph.ValidateFunctionFromUserBox();
  }
};

TEST(FunctionChoice, the_number_is_read_at_the_front_with_halves_to_even) {
  Traced test;
  EXPECT_TRUE(test.Select("2.5"));
  EXPECT_EQ(test.graph.CurrentFunctionIndex(), 2);
  EXPECT_TRUE(test.Select("3.5"));
  EXPECT_EQ(test.graph.CurrentFunctionIndex(), 4);
  EXPECT_TRUE(test.Select(" 1 and more"));
  EXPECT_EQ(test.graph.CurrentFunctionIndex(), 1);
  EXPECT_EQ(test.graph.CurrentEquation(), "x");
  EXPECT_TRUE(test.log.empty());
}

TEST(FunctionChoice, the_quiet_choice_of_nothing_clears_the_equation) {
  for (const char* text : {"0", "6", "-1", "", "abc", "99999999", "1e999", "3"}) {
    Traced test;
    ASSERT_TRUE(test.Select("1"));
    EXPECT_FALSE(test.Select(text)) << text;
    EXPECT_EQ(test.graph.CurrentEquation(), "") << text;
    EXPECT_EQ(test.graph.CurrentFunctionIndex(), 1) << text;
    EXPECT_TRUE(test.log.empty()) << text;
  }
}

TEST(FunctionChoice, the_quiet_choice_of_an_empty_function_makes_it_current) {
  Traced test;
  ASSERT_TRUE(test.Select("1"));
  EXPECT_FALSE(test.Select("5"));
  EXPECT_EQ(test.graph.CurrentEquation(), "");
  EXPECT_EQ(test.graph.CurrentFunctionIndex(), 5);
}

TEST(FunctionChoice, refusals_are_worded) {
  Traced test;
  EXPECT_FALSE(test.Validate("6"));
  EXPECT_EQ(test.log,
            (Log{"simple The number of the function entered does not exist. Enter a valid function number.",
                 kInvalid, "focus"}));
  EXPECT_FALSE(test.Validate("3"));
  EXPECT_EQ(test.log, (Log{"simple Selected function is not enabled.", kInvalid, "focus"}));
  EXPECT_FALSE(test.Validate("5"));
  EXPECT_EQ(test.log, (Log{"simple Selected function does not contain an expression.", kInvalid, "focus"}));
  EXPECT_TRUE(test.Validate("2"));
  EXPECT_TRUE(test.log.empty());
  EXPECT_EQ(test.graph.CurrentEquation(), "x^2");
}

TEST(EvaluationAtAPoint, uses_x_and_gives_it_back) {
  Traced test;
  test.table->values["x"] = Value("kept");
  ASSERT_TRUE(test.Select("2"));
  test.graph.CurrentX = 3;
  EXPECT_TRUE(test.graph.EvaluateCurrentFunctionAt());
  EXPECT_EQ(test.graph.CurrentY, 9);
  EXPECT_EQ(test.table->values["x"], Value("kept"));
}

TEST(EvaluationAtAPoint, a_failure_leaves_y_alone) {
  Traced test;
  ASSERT_TRUE(test.Select("4"));
  test.graph.SetCurrentPoint({0, 77});
  EXPECT_FALSE(test.graph.EvaluateCurrentFunctionAt());
  EXPECT_EQ(test.graph.CurrentY, 77);
}

TEST(EvaluationAtAPoint, a_text_as_result_is_a_failure) {
  TestGraph test(400, 200);
  test.graph.SetYArray({MakeFunction("1;2")}, false);
  test.frame.userCurY = "1";
  ASSERT_TRUE(test.graph.SelectFunctionFromUserBox());
  EXPECT_FALSE(test.graph.EvaluateCurrentFunctionAt());
}

TEST(EvaluationAtAPoint, a_failing_table_gives_x_back) {
  Traced test;
  ASSERT_TRUE(test.Select("1"));
  test.table->values["x"] = Value(5.0);
  int changes = 0;
  test.table->onChange = [&] {
    if (++changes == 1) throw platform::RunTimeError(77, "host");
  };
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(test.graph.EvaluateCurrentFunctionAt()); }), 77);
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(test.table->values["x"], Value(5.0));
}

TEST(Trace, puts_the_marker_on_the_curve) {
  Traced test;
  ASSERT_TRUE(test.Select("2"));
  test.graph.TraceAtPixel(239);  // x = 2, y = 4 is row 60; half of 7 pixels rounds to 4
  EXPECT_EQ(test.log, (Log{"marker at 235,56", "marker on", "status X=2    Y=4"}));
}

TEST(Trace, hides_the_marker_where_the_function_is_undefined) {
  Traced test;
  ASSERT_TRUE(test.Select("4"));
  test.graph.TraceAtPixel(199);  // x = 0; y still is that of row 0, where the column was looked up
  EXPECT_EQ(test.log, (Log{"marker off", "status X=0    Y=10"}));
}

TEST(Trace, without_an_equation_only_hides_the_marker) {
  Traced test;
  test.graph.TraceAtPixel(199);
  EXPECT_EQ(test.log, (Log{"marker off"}));
}

TEST(Trace, a_marker_beyond_16_bits_stays_where_it_was) {
  Traced test;
  test.graph.MoveTraceMarker({-32768, 0});
  test.graph.MoveTraceMarker({0, -32765});
  EXPECT_TRUE(test.log.empty());
  test.graph.MoveTraceMarker({-32764, 4});
  EXPECT_EQ(test.log, (Log{"marker at -32768,0"}));
}

TEST(TraceClick, centres_on_the_point_redraws_and_reports) {
  Traced test;
  ASSERT_TRUE(test.Select("2"));
  test.graph.TraceClickAtPixel(239);
  EXPECT_EQ(test.graph.Xmin, -8);
  EXPECT_EQ(test.graph.Xmax, 12);
  EXPECT_EQ(test.graph.Ymin, -6);
  EXPECT_EQ(test.graph.Ymax, 14);
  EXPECT_EQ(test.graph.CurrentPoint(), (RealPoint{2, 4}));
  ASSERT_GE(test.log.size(), 3u);
  EXPECT_EQ(test.log[test.log.size() - 3], "PlotDone");
  EXPECT_EQ(test.log[test.log.size() - 2], "simple Evaluate Y2:   X=2    Y=4");
  EXPECT_EQ(test.log.back(), "marker off");
}

TEST(TraceClick, where_the_function_is_undefined_only_hides_the_marker) {
  Traced test;
  ASSERT_TRUE(test.Select("4"));
  test.graph.TraceClickAtPixel(199);
  EXPECT_EQ(test.log, (Log{"marker off"}));
  EXPECT_EQ(test.graph.Xmin, -10);
}

TEST(TraceClick, hides_the_marker_also_when_it_fails) {
  Traced test;
  ASSERT_TRUE(test.Select("2"));
  EXPECT_EQ(ErrorOf([&] { test.graph.TraceClickAtPixel(1e9f); }), 6);
  EXPECT_EQ(test.log, (Log{"marker off"}));
}

TEST(Readouts, are_shown_in_their_boxes) {
  Traced test;
  test.graph.ShowCoordinatesAtPixel(198.5f, 99.5f);  // 198 and 100
  EXPECT_EQ(test.log, (Log{"status X=" + std::string("-0.0499999999999989") + "    Y=0"}));
  test.log.clear();
  test.graph.W = 3;
  test.graph.Ymax = 0;
  test.graph.ShowRangeStatus();
  EXPECT_EQ(test.log, (Log{"simple (20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=0"}));
  EXPECT_EQ(test.graph.W, 20);
  EXPECT_EQ(test.graph.H, 10);
}

TEST(Readouts, moving_the_range_to_a_pixel_does_not_draw) {
  Traced test;
  test.graph.MoveRangeToPixel(219, 90);  // x = 1, y = 1
  EXPECT_EQ(test.graph.Xmin, -9);
  EXPECT_EQ(test.graph.Ymax, 11);
  EXPECT_TRUE(test.log.empty());
}

}  // namespace
}  // namespace plotvane::graph::test
