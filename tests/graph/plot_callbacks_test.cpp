// Focus: plots that fail, and hosts that do something else to the graph from inside a plot.
#include <gtest/gtest.h>

#include <string>

#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

using platform::RunTimeError;
using platform::Value;

constexpr std::int32_t kHostError = 1234;

[[noreturn]] void Fail() {
  throw RunTimeError(kHostError, "host");
}

// Calls counted down to one that fails.
class Countdown {
 public:
  explicit Countdown(int calls) : mLeft(calls) {}
  void operator()() {
    if (mLeft > 0 && --mLeft == 0) Fail();
  }
  [[nodiscard]] bool Reached() const { return mLeft == 0; }

 private:
  int mLeft;
};

void PrepareFor(TestGraph& test) {
  test.graph.ShowAxis = true;
  test.graph.ShowGrid = true;
  test.Range(-4, 4, -4, 4);
  test.graph.SetYArray({MakeFunction("x"), MakeFunction("1/x")}, false);
  test.table->values["x"] = Value(42.0);
  test.log.clear();
}

void ExpectGivenBack(const TestGraph& test, int n) {
  EXPECT_EQ(test.table->values.at("x"), Value(42.0)) << n;
  EXPECT_TRUE(test.graph.RedrawAll) << n;
  EXPECT_TRUE(LinesStarting(test.log, "PlotDone").empty()) << n;
}

// The plot works again afterwards.
void ExpectUsable(TestGraph& test) {
  test.log.clear();
  test.graph.PlotAllY();
  EXPECT_EQ(test.log.back(), "PlotDone");
  EXPECT_FALSE(test.graph.RedrawAll);
}

TEST(PlotFailure, every_failing_surface_call_gives_x_and_the_pointer_back) {
  for (int n = 2;; ++n) {  // the first call sets the hourglass
    TestGraph test(8, 8);
    PrepareFor(test);
    Countdown countdown(n);
    test.surface->onCall = [&](std::string_view) { countdown(); };
    const std::int32_t error = ErrorOf([&] { test.graph.PlotAllY(); });
    if (!countdown.Reached()) break;
    EXPECT_EQ(error, kHostError) << n;
    if (LinesStarting(test.log, "simple Left").empty()) {
      ExpectGivenBack(test, n);
      EXPECT_EQ(test.log.back(), "pointer 0") << n;
    }
    test.surface->onCall = nullptr;
    ExpectUsable(test);
  }
}

TEST(PlotFailure, a_failing_hourglass_leaves_everything_alone) {
  TestGraph test(8, 8);
  PrepareFor(test);
  test.surface->onCall = [&](std::string_view) { Fail(); };
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), kHostError);
  ExpectGivenBack(test, 1);
}

TEST(PlotFailure, every_failing_table_call_gives_the_pointer_back) {
  for (int n = 1;; ++n) {
    TestGraph test(8, 8);
    PrepareFor(test);
    Countdown countdown(n);
    test.table->onChange = [&] { countdown(); };
    const std::int32_t error = ErrorOf([&] { test.graph.PlotAllY(); });
    if (!countdown.Reached()) break;
    EXPECT_EQ(error, kHostError) << n;
    EXPECT_EQ(test.log.back(), "pointer 0") << n;
    EXPECT_TRUE(test.graph.RedrawAll) << n;
    ExpectUsable(test);
  }
}

TEST(PlotFailure, every_failing_field_of_a_function_gives_x_and_the_pointer_back) {
  for (const std::string_view failing : {"Equation", "Enabled", "DrawStyle", "DrawColor", "QuickRedraw"}) {
    TestGraph test(8, 8);
    PrepareFor(test);
    const auto function = MakeFunction("x");
    test.graph.SetYArray({function}, false);
    test.graph.RedrawAll = failing != "QuickRedraw";
    function->onRead = [&](std::string_view field) {
      if (field == failing) Fail();
    };
    EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), kHostError) << failing;
    EXPECT_EQ(test.table->values.at("x"), Value(42.0)) << failing;
    EXPECT_EQ(test.log.back(), "pointer 0") << failing;
  }
}

TEST(PlotFailure, an_error_in_the_engine_ends_the_plot) {
  TestGraph test(32767, 4);
  test.table->values["x"] = Value(42.0);
  test.graph.SetYArray({MakeFunction("0")}, false);
  test.log.clear();
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 6);  // the pixels of the last step
  ExpectGivenBack(test, 0);
  EXPECT_EQ(test.log.back(), "pointer 0");
}

// --- Calling back ---

TEST(PlotCallback, plotting_again_when_done_happens_after_the_first_plot) {
  TestGraph test(4, 4);
  test.graph.SetYArray({MakeFunction("1")}, false);
  int done = 0;
  test.frame.onCall = [&](std::string_view call) {
    if (call == "PlotDone" && ++done == 1) test.graph.PlotAllY();
  };
  test.Plot();
  EXPECT_EQ(done, 2);
}

TEST(PlotCallback, plotting_again_without_end_is_out_of_stack_space) {
  TestGraph test(4, 4);
  test.frame.onCall = [&](std::string_view call) {
    if (call == "PlotDone") test.graph.PlotAllY();
  };
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 28);
  test.frame.onCall = nullptr;
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 0);
}

// From every call that a plot makes, another plot is begun once.
TEST(PlotCallback, an_overtaken_plot_draws_no_more_and_still_reports) {
  for (int n = 1;; ++n) {
    TestGraph test(8, 8);
    PrepareFor(test);
    Log whole;
    {
      TestGraph reference(8, 8);
      PrepareFor(reference);
      whole = reference.Plot();
    }
    int calls = 0;
    bool nested = false;
    std::size_t nestedEnd = 0;
    const auto nest = [&](std::string_view) {
      if (++calls != n || nested) return;
      nested = true;
      test.graph.PlotAllY();
      nestedEnd = test.log.size();
    };
    test.surface->onCall = nest;
    test.frame.onCall = nest;
    test.table->onChange = [&] { nest(""); };
    test.table->onGet = [&] { nest(""); };
    test.log.clear();
    test.graph.PlotAllY();
    if (!nested) break;
    EXPECT_EQ(test.table->values.at("x"), Value(42.0)) << n;
    EXPECT_EQ(LinesStarting(test.log, "PlotDone").size(), 2u) << n;
    EXPECT_EQ(test.log.back(), "PlotDone") << n;
    // After the nested plot only the call that was being made is still seen, the pointer and the event.
    for (std::size_t i = nestedEnd + 1; i < test.log.size(); ++i) {
      const std::string& line = test.log[i];
      EXPECT_TRUE(line == "pointer 0" || line == "PlotDone" || line == "refresh simple" ||
                  line.starts_with("simple "))
          << n << ": " << line;
    }
  }
}

TEST(PlotCallback, a_path_replaced_meanwhile_is_never_left_behind_its_end) {
  TestGraph test(8, 8);
  test.graph.SetYArray({MakeFunction("x")}, false);
  int changes = 0;
  test.table->onChange = [&] {
    if (++changes == 4) test.graph.EvaluateAndPlotEachPoint();
  };
  EXPECT_EQ(ErrorOf([&] { test.graph.PlotAllY(); }), 9);
}

TEST(PlotCallback, the_step_is_read_afresh_at_each_point) {
  TestGraph test(8, 20);
  test.Range(0, 8, 0, 20);
  test.graph.PlotStyle = DRAWDOT;
  test.graph.SetYArray({MakeFunction("0")}, false);
  int changes = 0;
  test.table->onChange = [&] {
    if (++changes == 4) test.graph.SetPlotPixelStep(3);  // while the third of eight points is evaluated
  };
  EXPECT_EQ(test.PlotCurves(), (Log{Dot(-1, 20), Dot(1, 20), Dot(2, 20), Dot(11, 20), Dot(14, 20),
                                    Dot(17, 20), Dot(20, 20), Dot(23, 20)}));
}

TEST(PlotCallback, functions_taken_away_meanwhile_are_not_plotted) {
  TestGraph test(4, 4);
  const auto first = MakeFunction("1");
  auto second = MakeFunction("2");
  const std::weak_ptr<WatchedFunction> gone = second;
  first->onRead = [&](std::string_view field) {
    if (field == "DrawColor") test.graph.SetYArray({}, false);
  };
  test.graph.SetYArray({first, std::move(second)}, false);
  const Log log = test.Plot();
  EXPECT_EQ(LinesStarting(log, "simple Plotting"), (Log{"simple Plotting Y1=1 ..."}));
  EXPECT_EQ(log.back(), "PlotDone");
  EXPECT_TRUE(gone.expired());
}

TEST(PlotCallback, a_function_released_while_it_is_plotted_lives_on) {
  TestGraph test(4, 4);
  auto function = MakeFunction("1");
  const std::weak_ptr<WatchedFunction> released = function;
  test.table->onChange = [&] { test.graph.SetYArray({}, false); };
  test.graph.SetYArray({std::move(function)}, false);
  test.Plot();
  EXPECT_EQ(LinesStarting(test.log, "line").size(), 4u);
  EXPECT_TRUE(released.expired());
}

TEST(PlotCallback, a_surface_replaced_meanwhile_is_used_from_the_next_plot_on) {
  TestGraph test(4, 4);
  test.graph.SetYArray({MakeFunction("1")}, false);
  Log other;
  test.table->onChange = [&] { test.graph.PIC = std::make_shared<RecordingSurface>(other, 4, 4); };
  const std::weak_ptr<RecordingSurface> old = test.surface;
  test.surface.reset();
  test.Plot();
  EXPECT_EQ(LinesStarting(test.log, "line").size(), 4u);
  EXPECT_TRUE(other.empty());
  EXPECT_TRUE(old.expired());
}

TEST(PlotCallback, a_table_replaced_meanwhile_still_gets_its_x_back) {
  TestGraph test(4, 4);
  test.table->values["x"] = Value(42.0);
  const auto other = std::make_shared<HostTable>();
  test.table->onChange = [&] { test.expression.SetVarTable(other); };
  test.graph.SetYArray({MakeFunction("1")});
  EXPECT_EQ(test.table->values.at("x"), Value(42.0));
}

TEST(PlotCallback, a_size_changed_meanwhile_does_not_change_the_number_of_points) {
  TestGraph test(8, 8);
  const auto function = MakeFunction("1");
  test.graph.SetYArray({function}, false);
  int changes = 0;
  test.table->onChange = [&] {
    if (++changes == 4) test.graph.SurfaceWidth = 100;
  };
  test.Plot();
  EXPECT_EQ(function->NumberOfPixels(), 8);
  EXPECT_EQ(LinesStarting(test.log, "line").size(), 8u);
}

}  // namespace
}  // namespace plotvane::graph::test
