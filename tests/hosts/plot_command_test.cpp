// Focus: plotvane plot and plotvane table: pictures as the control draws them, values, messages, exit
// statuses.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "graph/clsYGraph.h"
#include "graph/graph_engine.h"
#include "graph/raster_surface.h"
#include "hosts/terminal/silent_frame.h"
#include "platform/number_text.h"
#include "tests/graph/png_picture.h"
#include "tests/hosts/program_run.h"

namespace plotvane::terminal::test {
namespace {

using graph::GraphEngine;
using graph::test::Picture;
using graph::test::PictureOf;
using graph::test::ReadPng;

using Words = std::vector<std::string>;

class PlotCommand : public testing::Test {
 protected:
  ~PlotCommand() override { std::filesystem::remove(mPath); }

  Outcome Plot(Words words, const std::string& ending = ".png") {
    mPath = testing::TempDir() + "plotvane_plot" + ending;
    words.insert(words.begin(), "plot");
    words.insert(words.end(), {"-o", mPath});
    return RunProgram(words);
  }
  [[nodiscard]] std::string WrittenText() const { return FileText(mPath); }
  [[nodiscard]] Picture WrittenPicture() const { return ReadPng(mPath); }

  std::string mPath;
};

// The same plot, drawn in this process by a graph that `setUp` prepares.
template <typename SetUp>
Picture Drawn(std::int32_t width, std::int32_t height, const Words& equations, SetUp setUp) {
  engine::clsExp expression;
  expression.CreateNewVarTable();
  SilentFrame frame;
  GraphEngine graph(expression, frame);
  const auto surface = std::make_shared<graph::RasterSurface>(width, height);
  graph.PIC = surface;
  graph.ReadSurfaceSize();
  setUp(graph);
  graph.PrepareGraph();
  constexpr graph::Colour kColours[] = {0xC00000, 0x0000D0, 0x008000};
  std::vector<std::shared_ptr<graph::YFunction>> functions;
  for (const std::string& equation : equations) {
    auto function = std::make_shared<graph::clsYGraph>();
    function->Equation = equation;
    function->Enabled = true;
    function->DrawColor = kColours[functions.size()];
    functions.push_back(function);
  }
  graph.SetYArray(functions);
  return PictureOf(*surface);
}

TEST_F(PlotCommand, draws_what_the_control_draws) {
  ASSERT_EQ(Plot({"x^2/10", "1/x", "--grid"}).status, 0);
  EXPECT_EQ(WrittenPicture(),
            Drawn(640, 480, {"x^2/10", "1/x"}, [](GraphEngine& graph) { graph.ShowGrid = true; }));
}

TEST_F(PlotCommand, every_option_reaches_the_graph) {
  const Outcome run = Plot({"x^2", "sin(x)", "--range", "-90,180,-2,3", "--scale", "45,1", "--size",
                            "300x200", "--step", "4", "--dots", "--no-divisions", "--pen", "3", "--degrees"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "");
  const Picture expected = Drawn(300, 200, {"x^2", "sin(x)"}, [](GraphEngine& graph) {
    graph.Xmin = -90;
    graph.Xmax = 180;
    graph.Ymin = -2;
    graph.Ymax = 3;
    graph.SetPlotPixelStep(4);
    graph.PlotStyle = graph::DRAWDOT;
    graph.ShowAxisDivisions = false;
    graph.SetPenWidth(3);
    graph.SetDegreeMode(true);
  });
  EXPECT_EQ(WrittenPicture(), expected);
}

TEST_F(PlotCommand, presets_are_the_controls) {
  ASSERT_EQ(Plot({"x", "--zoom", "trig", "--no-axis"}).status, 0);
  EXPECT_EQ(WrittenPicture(), Drawn(640, 480, {"x"}, [](GraphEngine& graph) {
              graph.ZTrig();
              graph.ShowAxis = false;
            }));
}

TEST_F(PlotCommand, edges_and_scales_are_expressions) {
  ASSERT_EQ(Plot({"x", "--range", "-2*3,max(4,6),0-1,1"}).status, 2);  // no such function
  ASSERT_EQ(Plot({"x", "--range=-2*3,2*3,0-1,1", "--scale=1/2,(1)"}).status, 0);
  EXPECT_EQ(WrittenPicture(), Drawn(640, 480, {"x"}, [](GraphEngine& graph) {
              graph.Xmin = -6;
              graph.Xmax = 6;
              graph.Ymin = -1;
              graph.Ymax = 1;
              graph.Xscl = 0.5;
            }));
}

TEST_F(PlotCommand, svg_holds_paths_through_the_points) {
  ASSERT_EQ(Plot({"2", "--range", "0,4,0,4", "--size", "4x4", "--no-axis"}, ".svg").status, 0);
  EXPECT_EQ(
      WrittenText(),
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\" viewBox=\"0 0 4 4\">\n"
      "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
      "<g transform=\"translate(0.5 0.5)\" fill=\"none\" stroke-linejoin=\"round\">\n"
      "<path stroke=\"#0000c0\" stroke-width=\"1\" stroke-linecap=\"butt\" d=\"M-1 4L-1 2L1 2L2 2L3 2\"/>\n"
      "</g>\n</svg>\n");
  ASSERT_EQ(
      Plot({"2", "--range", "0,4,0,4", "--size", "4x4", "--no-axis", "--dots", "--pen", "2"}, ".svg").status,
      0);
  EXPECT_NE(WrittenText().find("stroke-width=\"2\" stroke-linecap=\"round\" d=\"M-1 2h0M1 2h0M2 2h0M3 2h0\""),
            std::string::npos);
}

// Words after "plot x", the exit status, and what the one line on standard error says.
TEST_F(PlotCommand, refusals_are_one_line_and_leave_no_file) {
  struct Case {
    Words words;
    int status;
    const char* says;
  };
  const std::vector<Case> cases{
      {{"x+"}, 1, "x+: Syntax error ''"},
      {{"nosuch(x)"}, 1, "nosuch(x): Undefined function or identifier."},
      {{"x", "sin 3"}, 1, "sin 3: Syntax error. Expecting opening parenthesis but got: '3'"},
      {{"x", "--frob"}, 2, "--frob"},
      {{"x", "--range", "0,1"}, 2, "--range: needs 4 numbers, got \"0,1\""},
      {{"x", "--range", "0,1,a,2"}, 2, "--range: \"a\" is not a number"},
      {{"x", "--range", "1,1,0,1"}, 2, "Invalid Range! You should change X Max and X Min"},
      {{"x", "--range", "0,1,0,1", "--zoom", "trig"}, 2, "--range"},
      {{"x", "--zoom", "moon"}, 2, "--zoom"},
      {{"x", "--size", "0x5"}, 2, "--size: needs WxH with sides from 1 to 32767"},
      {{"x", "--size", "5"}, 2, "--size"},
      {{"x", "--size", "5x5x5"}, 2, "--size"},
      {{"x", "--size", "99999x5"}, 2, "--size"},
      {{"x", "--step", "0"}, 2, "--step"},
      {{"x", "--pen", "31"}, 2, "--pen"},
      {{}, 2, "equations"},
  };
  for (const Case& c : cases) {
    const Outcome run = Plot(c.words);
    EXPECT_EQ(run.status, c.status) << run.err;
    EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_FALSE(std::filesystem::exists(mPath));
  }
}

TEST_F(PlotCommand, a_file_of_another_kind_is_bad_usage) {
  const Outcome run = Plot({"x"}, ".gif");
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("needs a file ending in .png or .svg"), std::string::npos);
}

TEST_F(PlotCommand, a_file_that_cannot_be_written_is_named) {
  const Outcome run = RunProgram({"plot", "x", "-o", "/no/such/directory/x.png"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("plotvane: cannot write /no/such/directory/x.png: "), std::string::npos) << run.err;
}

TEST_F(PlotCommand, a_function_without_a_value_anywhere_still_gives_a_picture) {
  EXPECT_EQ(Plot({"sqr(0-1-x^2)"}).status, 0);
  EXPECT_EQ(WrittenPicture(), Drawn(640, 480, {}, [](GraphEngine&) {}));
}

TEST(TableCommand, writes_x_and_the_values_between_tabs) {
  const Outcome run = RunProgram({"table", "x^2", "1/x", "--from", "-1", "--to", "1", "--step", "0.5"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "-1\t1\t-1\n-0.5\t0.25\t-2\n0\t0\t\n0.5\t0.25\t2\n1\t1\t1\n");
}

TEST(TableCommand, goes_down_and_reaches_its_end_in_spite_of_rounding) {
  EXPECT_EQ(RunProgram({"table", "x", "--from", "0.3", "--to", "0", "--step=-0.1"}).out,
            "0.3\t0.3\n0.2\t0.2\n0.1\t0.1\n0\t0\n");
  EXPECT_EQ(RunProgram({"table", "2*x", "--from=5", "--to=5", "--step=1"}).out, "5\t10\n");
}

// Longer than the blocks in which values are computed, with undefined points, truth values, stores and
// functions that only single values have.
TEST(TableCommand, values_computed_together_are_those_of_single_evaluations) {
  const std::vector<std::string> equations{
      "sin(x)/x", "sqr(x-1)+1/(x-2)", "(x>0) and (x<2)", "ln(x)^1.5",       "factorial(x)",
      "a=x",      "ss(k*x,k,1,5)",    "x=x+1",           "tan(x)^3-exp(-x)"};
  std::string expected;
  std::vector<std::unique_ptr<engine::clsExp>> expressions;
  for (std::size_t i = 0; i < equations.size(); ++i) {
    expressions.push_back(std::make_unique<engine::clsExp>());
    expressions.back()->CreateNewVarTable();
    expressions.back()->SetAcceptNumericResultOnly(true);
  }
  for (int k = 0; k <= 1000; ++k) {
    const double x = -3 + k * 0.0078125;
    expected += platform::NumberText(x);
    for (std::size_t i = 0; i < equations.size(); ++i) {
      platform::Value value;
      ASSERT_TRUE(expressions[i]->GetVarTable()->Change("x", platform::Value(x)));
      expected += '\t';
      if (expressions[i]->Evaluate(equations[i], value))
        expected += platform::NumberText(value.ToNumber().Get());
    }
    expected += '\n';
  }
  Words words{"table"};
  words.insert(words.end(), equations.begin(), equations.end());
  for (const char* word : {"--from", "-3", "--to", "4.8125", "--step", "0.0078125"}) words.emplace_back(word);
  const Outcome run = RunProgram(words);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, expected);
}

TEST(TableCommand, angles_may_be_degrees) {
  EXPECT_EQ(RunProgram({"table", "sin(x)", "--from", "90", "--to", "90", "--step", "1", "--degrees"}).out,
            "90\t1\n");
}

TEST(TableCommand, each_equation_has_variables_of_its_own) {
  EXPECT_EQ(RunProgram({"table", "a=x", "a=2*x", "--from", "1", "--to", "2", "--step", "1"}).out,
            "1\t1\t2\n2\t2\t4\n");
}

TEST(TableCommand, refusals_are_one_line) {
  struct Case {
    Words words;
    int status;
    const char* says;
  };
  const std::vector<Case> cases{
      {{"x+", "--from", "0", "--to", "1", "--step", "1"}, 1, "x+: Syntax error ''"},
      {{"x", "--from", "0", "--to", "1", "--step", "0"}, 2, "--step: must not be 0"},
      {{"x", "--from", "0", "--to", "1", "--step=-1"}, 2, "--step: leads away from --to"},
      {{"x", "--from", "1e17", "--to", "2e17", "--step", "1"}, 2, "--step: is too small"},
      {{"x", "--from", "0", "--to", "1e300", "--step", "1"}, 2, "--step: is too small"},
      {{"x", "--from", "q", "--to", "1", "--step", "1"}, 2, "--from: \"q\" is not a number"},
      {{"x", "--from", "0", "--to", "1"}, 2, "--step"},
  };
  for (const Case& c : cases) {
    Words words = c.words;
    words.insert(words.begin(), "table");
    const Outcome run = RunProgram(words);
    EXPECT_EQ(run.status, c.status) << run.err;
    EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_EQ(run.out, "");
  }
}

}  // namespace
}  // namespace plotvane::terminal::test
