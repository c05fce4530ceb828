// The public members of the control: its initial state, properties, first resize, resizing, destruction.
#include <gtest/gtest.h>

#include "recording_face.h"

namespace plotvane::control::test {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0;

TEST(Graph, starts_with_the_state_of_a_new_control) {
  const Control control;
  const graph::GraphEngine& engine = control.Engine();
  EXPECT_EQ(engine.W, 20);
  EXPECT_EQ(engine.H, 20);
  EXPECT_EQ(engine.W_2, 0);
  EXPECT_EQ(engine.H_2, 0);
  EXPECT_EQ(engine.Xmax, 10);
  EXPECT_EQ(engine.Xmin, -10);
  EXPECT_EQ(engine.Ymax, 10);
  EXPECT_EQ(engine.Ymin, -10);
  EXPECT_EQ(engine.Xscl, 1);
  EXPECT_EQ(engine.Yscl, 1);
  EXPECT_TRUE(engine.ShowAxis);
  EXPECT_TRUE(engine.ShowAxisDivisions);
  EXPECT_FALSE(engine.ShowGrid);
  EXPECT_FALSE(engine.RedrawAll);
  EXPECT_EQ(engine.GCStyle, 1);
  EXPECT_EQ(engine.PlotStyle, 2);
  EXPECT_TRUE(engine.RedrawGridOnResize);
  EXPECT_TRUE(engine.RedrawAxisOnResize);
  EXPECT_EQ(engine.ZX, 4);
  EXPECT_EQ(engine.ZY, 4);
  EXPECT_EQ(engine.XMinStr, "");
  EXPECT_FALSE(control.graph->GetDegreeMode());
  EXPECT_EQ(control.graph->GetPlotPixelStep(), 1);
  EXPECT_EQ(control.graph->GetPenWidth(), 1);
  EXPECT_TRUE(control.graph->GetToolBarVisible());
  EXPECT_TRUE(control.graph->Expression().ErrObj().GraphMode);
  EXPECT_EQ(control.graph->GetPIC(), control.face->Surface());
  EXPECT_EQ(control.graph->GetGraphPicture(), control.face->Surface());
  EXPECT_NE(control.graph->GetVarTable(), nullptr);
}

TEST(Graph, a_step_below_one_or_unchanged_is_ignored) {
  const Control control;
  for (const std::int16_t step : {std::int16_t{0}, std::int16_t{-5}, std::int16_t{1}}) {
    control.graph->SetPlotPixelStep(step);
    EXPECT_EQ(control.graph->GetPlotPixelStep(), 1);
    EXPECT_FALSE(control.Engine().RedrawAll);
  }
  control.graph->SetPlotPixelStep(3);
  EXPECT_EQ(control.graph->GetPlotPixelStep(), 3);
  EXPECT_TRUE(control.Engine().RedrawAll);
}

TEST(Graph, degree_mode_sets_redraw_all_only_when_it_changes) {
  const Control control;
  control.graph->SetDegreeMode(false);
  EXPECT_FALSE(control.Engine().RedrawAll);
  control.graph->SetDegreeMode(true);
  EXPECT_TRUE(control.Engine().RedrawAll);
  EXPECT_TRUE(control.graph->Expression().GetDegreeMode());
}

TEST(Graph, the_pen_width_is_stored_as_it_stands) {
  const Control control;
  for (const std::int16_t width : {std::int16_t{-3}, std::int16_t{0}, std::int16_t{500}}) {
    control.graph->SetPenWidth(width);
    EXPECT_EQ(control.graph->GetPenWidth(), width);
  }
}

TEST(Graph, writing_an_expression_text_stores_text_and_number_without_redraw) {
  const Control control;
  int plots = 0;
  control.graph->SetPlotDone([&] { ++plots; });
  control.graph->SetStringEval(RangeText::XMax, "3*2");
  EXPECT_EQ(control.graph->GetStringEval(RangeText::XMax), "3*2");
  EXPECT_EQ(control.Engine().XMaxStr, "3*2");
  EXPECT_EQ(control.Engine().Xmax, 6);
  EXPECT_FALSE(control.Engine().RedrawAll);
  EXPECT_EQ(plots, 0);
}

TEST(Graph, without_a_window_the_first_resize_happens_when_the_surface_is_needed) {
  const Control control;
  EXPECT_EQ(control.face->Status(), "");
  EXPECT_EQ(control.graph->GetGraphWidth(), 400);
  EXPECT_EQ(control.graph->GetGraphHeight(), 300);
  EXPECT_EQ(control.face->Status(), "Width=400 pixels   Height=300 pixels");
  EXPECT_TRUE(control.Engine().RedrawAll);
  EXPECT_EQ(control.Engine().XPixelSize, 0.05);
  EXPECT_EQ(control.face->Picture().ColourAt(199, 5), kBlack);  // the y axis
  EXPECT_EQ(control.graph->GetGraphHDC(), 0);
}

TEST(Graph, a_resize_lays_out_prepares_and_draws_axes_and_grid_but_no_functions) {
  const Control control;
  control.SetFunctions({"5"});
  control.graph->Resize({640, 480});
  ASSERT_EQ(control.face->layouts.size(), 1U);
  const PixelRect surface = control.face->layouts[0].surface;
  EXPECT_EQ(control.face->Status(), "Width=" + std::to_string(surface.width) +
                                        " pixels   Height=" + std::to_string(surface.height) + " pixels");
  EXPECT_EQ(control.Engine().SurfaceWidth, surface.width);
  EXPECT_TRUE(control.Engine().RedrawAll);
  const int axisColumn = surface.width / 2 - 1;
  const int curveRow = surface.height / 4;
  EXPECT_EQ(control.face->Picture().ColourAt(axisColumn, 1), kBlack);
  EXPECT_EQ(control.face->Picture().ColourAt(axisColumn / 2, curveRow), kWhite);
}

struct ResizeRow {
  bool axis, grid;
  bool cleared, axisDrawn, gridDrawn;
};

TEST(Graph, a_resize_redraws_what_the_switches_say) {
  constexpr ResizeRow kRows[] = {
      {true, true, true, true, true},
      {true, false, true, true, false},
      {false, true, true, false, true},
      {false, false, false, false, false},  // the old drawing stays
  };
  for (const ResizeRow& row : kRows) {
    const Control control;
    control.graph->Resize({420, 400});
    control.Engine().ShowGrid = true;
    control.Engine().ShowAxisDivisions = false;
    control.Engine().RedrawAxisOnResize = row.axis;
    control.Engine().RedrawGridOnResize = row.grid;
    graph::RasterSurface& picture = control.face->Picture();
    picture.Clear();
    picture.SetPixel({3, 3}, 255);  // something to be cleared
    control.graph->Resize({420, 400});
    const auto column = static_cast<std::int32_t>(picture.Width()) / 2 - 1;
    const auto gridColumn = static_cast<std::int32_t>(control.Engine().SurfaceWidth * 11 / 20) - 1;  // x = 1
    const std::int32_t middle = picture.Height() / 2;
    bool gridSeen = false;
    for (std::int32_t y = 0; y < picture.Height(); ++y) {
      gridSeen |= y != middle && picture.ColourAt(gridColumn, y) == kBlack;
    }
    EXPECT_EQ(picture.ColourAt(3, 3) == kWhite, row.cleared);
    EXPECT_EQ(
        picture.ColourAt(column, middle + 7) == kBlack && picture.ColourAt(column, middle + 8) == kBlack,
        row.axisDrawn);
    EXPECT_EQ(gridSeen, row.gridDrawn);
  }
}

TEST(Graph, a_failing_resize_shows_the_error_as_text) {
  const Control control;
  control.graph->SetPIC(std::make_shared<FailingSurface>());
  control.graph->Resize({420, 400});
  EXPECT_EQ(control.face->Simple(), "Device I/O error");
}

TEST(Graph, without_a_surface_members_are_error_91) {
  const Control control;
  control.graph->SetPIC(nullptr);
  for (const auto& member :
       {std::function<void()>([&] { control.graph->PlotAllY(); }),
        std::function<void()>([&] { static_cast<void>(control.graph->GetGraphHDC()); }),
        std::function<void()>([&] { static_cast<void>(control.graph->GetPenWidth()); })}) {
    try {
      member();
      ADD_FAILURE() << "no error";
    } catch (const platform::RunTimeError& error) {
      EXPECT_EQ(error.Number(), 91);
    }
  }
}

TEST(Graph, an_empty_range_is_reported_once_also_at_the_first_preparation) {
  const Control control;
  control.Engine().Xmin = control.Engine().Xmax;
  control.graph->PrepareGraph();
  EXPECT_EQ(control.face->messages.size(), 1U);
  control.graph->PrepareGraph();
  EXPECT_EQ(control.face->messages.size(), 2U);
}

TEST(Graph, a_bad_range_before_the_first_resize_does_not_stop_a_preset) {
  const Control control;
  control.Engine().Xmin = -1e308;
  control.Engine().Xmax = 1e308;
  EXPECT_THROW(control.graph->PrepareGraph(), platform::RunTimeError);
  const Control another;
  another.Engine().Xmin = -1e308;
  another.Engine().Xmax = 1e308;
  another.graph->ZStandard();
  EXPECT_EQ(another.Engine().XPixelSize, 0.05);
  EXPECT_EQ(another.face->Simple(), kHint);
}

TEST(Graph, fields_are_only_stored) {
  const Control control;
  control.graph->PlotAllY();
  int plots = 0;
  control.graph->SetPlotDone([&] { ++plots; });
  control.Engine().Xmin = -1;
  control.Engine().W = 3;
  EXPECT_EQ(plots, 0);
  EXPECT_FALSE(control.Engine().RedrawAll);
  EXPECT_EQ(control.Engine().XPixelSize, 0.05);
  EXPECT_EQ(control.Engine().Xmax, 10);
}

TEST(Graph, a_first_resize_that_failed_is_made_again) {
  const Control control;
  control.graph->SetPIC(nullptr);
  EXPECT_THROW(control.graph->PlotAllY(), platform::RunTimeError);
  EXPECT_FALSE(control.Engine().RedrawAll);
  control.graph->SetPIC(control.face->Surface());
  control.graph->PlotAllY();
  EXPECT_EQ(control.Engine().XPixelSize, 0.05);
}

TEST(Graph, the_control_lets_go_of_everything_before_its_dialogs_close) {
  Control control;
  control.graph->PrepareGraph();
  control.Press(ToolBarItem::cmdRange);
  const std::weak_ptr<platform::VariableTable> table = control.graph->GetVarTable();
  const auto surface = std::make_shared<graph::RasterSurface>(40, 30);
  control.graph->SetPIC(surface);
  bool seen = false;
  control.face->fields->onClose = [&] {
    seen = true;
    EXPECT_TRUE(table.expired());
    EXPECT_EQ(surface.use_count(), 1);
  };
  control.graph.reset();
  EXPECT_TRUE(seen);
}

TEST(Graph, hiding_the_toolbar_gives_its_room_to_the_surface) {
  const Control control;
  control.graph->Resize({640, 480});
  control.graph->SetToolBarVisible(true);  // unchanged: nothing happens
  EXPECT_EQ(control.face->layouts.size(), 1U);
  control.graph->SetToolBarVisible(false);
  ASSERT_EQ(control.face->layouts.size(), 2U);
  EXPECT_FALSE(control.graph->GetToolBarVisible());
  EXPECT_EQ(control.face->layouts[1].surface.top, 0);
  EXPECT_GT(control.graph->GetGraphHeight(), control.face->layouts[0].surface.height);
}

TEST(Graph, a_toolbar_hidden_before_there_is_a_window_stays_hidden) {
  const Control control;
  control.graph->SetToolBarVisible(false);
  EXPECT_TRUE(control.face->layouts.empty());
  EXPECT_FALSE(control.Engine().RedrawAll);
  control.graph->Resize({640, 480});
  ASSERT_EQ(control.face->layouts.size(), 1U);
  EXPECT_TRUE(control.face->layouts[0].toolBar.IsEmpty());
}

TEST(Graph, set_y_array_draws_at_once_unless_told_not_to) {
  const Control control;
  int plots = 0;
  control.graph->SetPlotDone([&] { ++plots; });
  control.graph->SetYArray({MakeFunction("x")}, false);
  EXPECT_EQ(plots, 0);
  control.graph->SetYArray({MakeFunction("x")});
  EXPECT_EQ(plots, 1);
}

TEST(Graph, an_error_of_a_member_goes_to_the_host) {
  const Control control;
  EXPECT_THROW(control.graph->ZNum(0), platform::RunTimeError);
  control.Engine().ZX = 0;
  EXPECT_THROW(control.graph->ZoomInXY(), platform::RunTimeError);
}

TEST(Graph, the_host_may_let_go_of_the_control_inside_plot_done) {
  Control control;
  const std::weak_ptr<Graph> watched = control.graph;
  Graph& graph = *control.graph;
  control.graph->SetPlotDone([&] { control.graph.reset(); });
  graph.PlotAllY();
  EXPECT_TRUE(watched.expired());
}

TEST(Graph, the_host_may_take_its_handler_away_inside_plot_done) {
  const Control control;
  int plots = 0;
  control.graph->SetPlotDone([&] {
    ++plots;
    control.graph->SetPlotDone({});
  });
  control.graph->PlotAllY();
  control.graph->PlotAllY();
  EXPECT_EQ(plots, 1);
}

TEST(Graph, a_table_of_the_host_is_let_go_of_with_the_control) {
  const Control other;
  Control control;
  const auto table = other.graph->GetVarTable();
  const auto before = table.use_count();
  control.graph->SetVarTable(table);
  control.graph.reset();
  EXPECT_EQ(table.use_count(), before);
}

}  // namespace
}  // namespace plotvane::control::test
