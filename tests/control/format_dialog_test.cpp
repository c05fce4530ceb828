// The dialog "Format": texts and bounds, filling, bars and boxes, writing back.
#include <gtest/gtest.h>

#include "control/format_texts.h"
#include "control/frmFormatGraph.h"
#include "recording_face.h"

namespace plotvane::control::test {
namespace {

struct OptionRow {
  const char* group;
  const char* name;
  const char* caption;
  const char* tooltip;
};
constexpr OptionRow kOptions[] = {
    {"Graphing &Coordinate", "optRectGC", "Rectangular GC", "Uses XY continually updated coordinate display"},
    {"Graphing &Coordinate", "optPolarGC", "PolarGC",
     "Uses Radius-Angle polar continually updated coordinate display"},
    {"&Draw Style", "optDrawLine", "Draw Line", "Connect the points on the graph with lines"},
    {"&Draw Style", "optDrawDot", "Draw Dot", "Draw only the single points on the graph"},
    {"&Grid", "optGridOn", "Grid On", "Make grid lines visible"},
    {"&Grid", "optGridOff", "Grid Off", "Do not show grid lines"},
    {"&Axis", "optAxisOn", "Axis On", "Make the standard (x=0, y=0) axis visible"},
    {"&Axis", "optAxisOff", "Axis Off", "Do not show the axis"},
    {"Divisions", "optDivisionsOn", "On", "Show scale divisions on the axis"},
    {"Divisions", "optDivisionsOff", "Off", "Make the axis single lines only"},
    {"Angle &Mode", "optRadians", "Radians", "Trigonometric and inverse trigonometric functions use radians"},
    {"Angle &Mode", "optDegrees", "Degrees", "Trigonometric and inverse trigonometric functions use degrees"},
};

TEST(FormatDialog, every_option_has_its_group_caption_and_tooltip) {
  ASSERT_EQ(kFormatOptions.size(), std::size(kOptions));
  for (std::size_t i = 0; i < kFormatOptions.size(); ++i) {
    const FormatOptionText& option = kFormatOptions[i];
    EXPECT_EQ(kFormatGroupCaptions[static_cast<std::size_t>(option.group)], kOptions[i].group);
    EXPECT_EQ(option.name, kOptions[i].name);
    EXPECT_EQ(option.caption, kOptions[i].caption);
    EXPECT_EQ(option.tooltip, kOptions[i].tooltip);
  }
}

TEST(FormatDialog, bears_its_other_texts) {
  EXPECT_EQ(kFormatCaption, "Format");
  EXPECT_EQ(kFormatNote, "Change the format settings and style of the graph window.");
  EXPECT_EQ(kFormatGroupCaptions[static_cast<std::size_t>(FormatGroup::PenStyle)], "&Pen Style");
  EXPECT_EQ(kFormatGroupCaptions[static_cast<std::size_t>(FormatGroup::PlotDensity)], "Plot &Density");
  EXPECT_EQ(kFormatBars[0].boxTooltip, "Change the value of the pen width and press <Enter>");
  EXPECT_EQ(kFormatBars[1].boxTooltip, "Change the plot step value (plot density) and press <Enter>.");
  EXPECT_EQ(kPenWidthLabel.caption, "Pen &Width");
  EXPECT_EQ(kPreviewLabel.caption, "Preview");
  EXPECT_EQ(kPreviewLabel.tooltip,
            "The pen width is the width of the axis and graphs of the functions. Here is a prieview.");
  EXPECT_EQ(kLowDensityLabel.caption, "Lower Density (Faster Speed, Poorer Quality)");
  EXPECT_EQ(kLowDensityLabel.tooltip,
            "Low density corresponds to a high plot-pixel step value along the X-axis.");
  EXPECT_EQ(kHighDensityLabel.caption, "Higher Density (Slower Speed, Better Quality)");
  EXPECT_EQ(kHighDensityLabel.tooltip,
            "High density corresponds to a low plot-pixel step value along the X-axis.");
  EXPECT_EQ(kFormatOk.caption, "&Save And Close");
  EXPECT_EQ(kFormatCancel.caption, "Cancel (Esc)");
}

TEST(FormatDialog, the_bars_have_their_bounds_and_steps) {
  EXPECT_EQ(kFormatBars[0].minimum, 1);
  EXPECT_EQ(kFormatBars[0].maximum, 30);
  EXPECT_EQ(kFormatBars[0].trackStep, 1);
  EXPECT_EQ(kFormatBars[1].minimum, 1);
  EXPECT_EQ(kFormatBars[1].maximum, 1000);
  EXPECT_EQ(kFormatBars[1].trackStep, 10);
}

class Format : public testing::Test {
 protected:
  Format() {
    control.graph->PrepareGraph();
    control.Engine().RedrawAll = false;
    control.graph->SetPlotDone([this] { ++plots; });
  }
  void Open() const { control.graph->ShowFormatEditor(); }
  [[nodiscard]] StoredFormatView& View() const { return *control.face->format; }
  [[nodiscard]] std::shared_ptr<FormatEvents> Events() const { return control.face->formatEvents.lock(); }
  [[nodiscard]] bool Selected(FormatOption option) const {
    return View().options[static_cast<std::size_t>(option)];
  }
  void Type(FormatBar bar, const char* text) const {
    View().boxes[static_cast<std::size_t>(bar)] = text;
    Events()->BoxTyped(bar);
  }
  void Enter(FormatBar bar, const char* text) const {
    Type(bar, text);
    Events()->BoxEntered(bar);
  }
  [[nodiscard]] int Bar(FormatBar bar) const { return View().bars[static_cast<std::size_t>(bar)]; }
  [[nodiscard]] std::string Box(FormatBar bar) const { return View().boxes[static_cast<std::size_t>(bar)]; }
  [[nodiscard]] BoxColour Colour(FormatBar bar) const {
    return View().colours[static_cast<std::size_t>(bar)];
  }

  Control control;
  int plots = 0;
};

using enum FormatOption;
constexpr FormatBar kPen = FormatBar::hscPenWidth;
constexpr FormatBar kDensity = FormatBar::hscPlotDensity;

TEST_F(Format, opens_with_the_state_of_a_new_control) {
  Open();
  EXPECT_TRUE(View().shown);
  for (const FormatOption on : {optRectGC, optDrawLine, optGridOff, optAxisOn, optDivisionsOn, optRadians}) {
    EXPECT_TRUE(Selected(on)) << static_cast<int>(on);
  }
  for (const FormatOption off :
       {optPolarGC, optDrawDot, optGridOn, optAxisOff, optDivisionsOff, optDegrees}) {
    EXPECT_FALSE(Selected(off)) << static_cast<int>(off);
  }
  EXPECT_EQ(Bar(kPen), 1);
  EXPECT_EQ(Bar(kDensity), 1);
  EXPECT_EQ(Box(kPen), "1");
  EXPECT_EQ(Box(kDensity), "1");
  EXPECT_EQ(Colour(kPen), BoxColour::Black);
  EXPECT_TRUE(View().divisionsEnabled);
}

TEST_F(Format, opens_with_the_state_of_a_changed_control) {
  control.Engine().GCStyle = graph::POLARGC;
  control.Engine().PlotStyle = graph::DRAWDOT;
  control.Engine().ShowGrid = true;
  control.Engine().ShowAxis = false;
  control.Engine().ShowAxisDivisions = false;
  control.graph->SetDegreeMode(true);
  control.graph->SetPenWidth(7);
  control.graph->SetPlotPixelStep(40);
  Open();
  for (const FormatOption on : {optPolarGC, optDrawDot, optGridOn, optAxisOff, optDivisionsOff, optDegrees}) {
    EXPECT_TRUE(Selected(on)) << static_cast<int>(on);
  }
  EXPECT_FALSE(View().divisionsEnabled);
  EXPECT_EQ(Box(kPen), "7");
  EXPECT_EQ(Box(kDensity), "40");
}

TEST_F(Format, a_value_outside_a_bar_shows_as_the_nearest_in_it) {
  control.graph->SetPenWidth(99);
  control.graph->SetPlotPixelStep(2000);
  Open();
  EXPECT_EQ(Bar(kPen), 30);
  EXPECT_EQ(Bar(kDensity), 1000);
  control.graph->SetPenWidth(-4);
  Open();
  EXPECT_EQ(Bar(kPen), 1);
}

TEST_F(Format, saving_writes_everything_and_redraws_nothing) {
  Open();
  for (const FormatOption option :
       {optPolarGC, optDrawDot, optGridOn, optAxisOff, optDivisionsOff, optDegrees}) {
    Events()->OptionClicked(option);
  }
  Events()->BarChanged(kPen, 5);
  Events()->BarChanged(kDensity, 20);
  Events()->OkPressed();
  const graph::GraphEngine& engine = control.Engine();
  EXPECT_EQ(engine.GCStyle, graph::POLARGC);
  EXPECT_EQ(engine.PlotStyle, graph::DRAWDOT);
  EXPECT_TRUE(engine.ShowGrid);
  EXPECT_FALSE(engine.ShowAxis);
  EXPECT_FALSE(engine.ShowAxisDivisions);
  EXPECT_TRUE(control.graph->GetDegreeMode());
  EXPECT_EQ(control.graph->GetPenWidth(), 5);
  EXPECT_EQ(control.graph->GetPlotPixelStep(), 20);
  EXPECT_TRUE(engine.RedrawAll);
  EXPECT_EQ(plots, 0);
  EXPECT_TRUE(control.face->formatEvents.expired());
  EXPECT_FALSE(View().shown);
}

TEST_F(Format, the_pen_is_written_after_the_options_and_before_the_density) {
  control.graph->SetPIC(std::make_shared<StubbornSurface>());
  Open();
  for (const FormatOption option :
       {optPolarGC, optDrawDot, optGridOn, optAxisOff, optDivisionsOff, optDegrees})
    Events()->OptionClicked(option);
  Events()->BarChanged(kDensity, 20);
  Events()->OkPressed();
  const graph::GraphEngine& engine = control.Engine();
  EXPECT_EQ(control.face->Simple(), "Device I/O error");
  EXPECT_EQ(engine.GCStyle, graph::POLARGC);
  EXPECT_EQ(engine.PlotStyle, graph::DRAWDOT);
  EXPECT_TRUE(engine.ShowGrid);
  EXPECT_FALSE(engine.ShowAxis || engine.ShowAxisDivisions);
  EXPECT_TRUE(control.graph->GetDegreeMode());
  EXPECT_EQ(control.graph->GetPlotPixelStep(), 1);
  EXPECT_TRUE(View().shown);
}

TEST_F(Format, saving_unchanged_values_leaves_redraw_all) {
  Open();
  Events()->BarChanged(kDensity, 30);
  Events()->BarChanged(kDensity, 1);
  Events()->OkPressed();
  EXPECT_FALSE(control.Engine().RedrawAll);
}

TEST_F(Format, an_option_pair_without_selection_is_not_written) {
  control.Engine().GCStyle = 7;
  control.Engine().PlotStyle = 9;
  Open();
  Events()->OkPressed();
  EXPECT_EQ(control.Engine().GCStyle, 7);
  EXPECT_EQ(control.Engine().PlotStyle, 9);
}

TEST_F(Format, cancel_writes_nothing) {
  Open();
  Events()->OptionClicked(optGridOn);
  Events()->BarChanged(kPen, 9);
  Events()->CancelPressed();
  EXPECT_FALSE(control.Engine().ShowGrid);
  EXPECT_EQ(control.graph->GetPenWidth(), 1);
  EXPECT_TRUE(control.face->formatEvents.expired());
}

TEST_F(Format, an_option_clears_only_the_other_of_its_pair) {
  Open();
  Events()->OptionClicked(optDivisionsOff);
  EXPECT_TRUE(Selected(optDivisionsOff));
  EXPECT_FALSE(Selected(optDivisionsOn));
  EXPECT_TRUE(Selected(optAxisOn));
}

TEST_F(Format, axis_off_disables_the_divisions_which_are_written_all_the_same) {
  Open();
  Events()->OptionClicked(optDivisionsOff);
  Events()->OptionClicked(optAxisOff);
  EXPECT_FALSE(View().divisionsEnabled);
  EXPECT_TRUE(Selected(optDivisionsOff));
  Events()->OkPressed();
  EXPECT_FALSE(control.Engine().ShowAxisDivisions);
  EXPECT_FALSE(control.Engine().ShowAxis);
}

TEST_F(Format, axis_on_enables_the_divisions_again) {
  Open();
  Events()->OptionClicked(optAxisOff);
  Events()->OptionClicked(optAxisOn);
  EXPECT_TRUE(View().divisionsEnabled);
}

TEST_F(Format, a_bar_fills_its_box_and_the_preview) {
  Open();
  Events()->BarChanged(kPen, 9);
  EXPECT_EQ(Box(kPen), "9");
  EXPECT_EQ(Colour(kPen), BoxColour::Black);
  EXPECT_EQ(View().preview.GetPenWidth(), 9);
  EXPECT_EQ(View().preview.ColourAt(20, 20), 0U);         // the point at the centre is black
  EXPECT_EQ(View().preview.ColourAt(24, 20), 0U);         // 9 pixels wide
  EXPECT_EQ(View().preview.ColourAt(30, 20), 0xFFFFFFU);  // and no wider
  Events()->BarChanged(kPen, 1);
  EXPECT_EQ(View().preview.ColourAt(24, 20), 0xFFFFFFU);  // cleared first
}

TEST_F(Format, typing_turns_the_box_red_until_enter_accepts_it) {
  for (const FormatBar bar : {kPen, kDensity}) {
    Open();
    Type(bar, "12");
    EXPECT_EQ(Colour(bar), BoxColour::Red);
    EXPECT_EQ(Bar(bar), 1);
    Events()->BoxEntered(bar);
    EXPECT_EQ(Colour(bar), BoxColour::Black);
    EXPECT_EQ(Bar(bar), 12);
    EXPECT_EQ(Box(bar), "12");
  }
}

TEST_F(Format, a_typed_value_without_enter_is_not_written) {
  Open();
  Type(kPen, "12");
  Events()->OkPressed();
  EXPECT_EQ(control.graph->GetPenWidth(), 1);
}

struct Entry {
  FormatBar bar;
  const char* typed;
  int value;            // accepted, or 0
  const char* message;  // of a refused value
};
constexpr Entry kEntries[] = {
    {kPen, "30", 30, nullptr},
    {kPen, "7.9", 7, nullptr},
    {kPen, " 5 pixels", 5, nullptr},
    {kPen, "1e1", 10, nullptr},
    {kPen, "30.9", 30, nullptr},
    {kPen, "31", 0, "Pen width cannot be greater than 30"},
    {kPen, "1e999", 0, "Pen width cannot be greater than 30"},
    {kPen, "0", 0, "Pen width cannot be less than 1"},
    {kPen, "0.9", 0, "Pen width cannot be less than 1"},
    {kPen, "-1e999", 0, "Pen width cannot be less than 1"},
    {kPen, "wide", 0, "Pen width cannot be less than 1"},
    {kPen, "", 0, "Pen width cannot be less than 1"},
    {kDensity, "1000", 1000, nullptr},
    {kDensity, "1001", 0, "Plot density cannot be greater than 1000"},
    {kDensity, "0", 0, "Plot density cannot be less than 1"},
    {kDensity, "-3", 0, "Plot density cannot be less than 1"},
};

TEST_F(Format, enter_accepts_the_whole_part_within_the_bounds_and_refuses_the_rest) {
  for (const Entry& row : kEntries) {
    SCOPED_TRACE(row.typed);
    Open();
    Events()->BarChanged(row.bar, 3);
    View().SetBar(row.bar, 3);
    View().messages.clear();
    Enter(row.bar, row.typed);
    if (row.message == nullptr) {
      EXPECT_TRUE(View().messages.empty());
      EXPECT_EQ(Bar(row.bar), row.value);
      EXPECT_EQ(Colour(row.bar), BoxColour::Black);
      continue;
    }
    const char* title = row.bar == kPen ? "Invalid Pen Width" : "Invalid Plot Density";
    ASSERT_EQ(View().messages.size(), 1U);
    EXPECT_EQ(View().messages[0], (MessageContents{row.message, title, MessageIcon::Exclamation}));
    EXPECT_EQ(Bar(row.bar), 3);
    EXPECT_EQ(Box(row.bar), row.typed);
    EXPECT_EQ(Colour(row.bar), BoxColour::Red);
  }
}

TEST_F(Format, a_control_without_a_surface_cannot_open_it_and_no_form_stays) {
  control.graph->SetPIC(nullptr);
  EXPECT_THROW(Open(), platform::RunTimeError);
  EXPECT_TRUE(OpenForms::OfThisThread()->Forms().empty());
  control.graph->SetPIC(control.face->Surface());
  Open();
  EXPECT_TRUE(View().shown);
}

TEST_F(Format, an_open_dialog_stays_when_the_control_has_lost_its_surface) {
  Open();
  control.graph->SetPIC(nullptr);
  EXPECT_THROW(Open(), platform::RunTimeError);
  EXPECT_TRUE(View().shown);
}

TEST_F(Format, the_dialog_is_closed_with_its_control) {
  Open();
  control.graph.reset();
  EXPECT_FALSE(View().shown);
  EXPECT_TRUE(control.face->formatEvents.expired());
}

}  // namespace
}  // namespace plotvane::control::test
