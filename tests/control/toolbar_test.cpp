// The toolbar, the zoom menu and the number box: texts, what each press does, the evaluation at a typed x.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "recording_face.h"

namespace plotvane::control::test {
namespace {

// ---- Texts ----

struct ItemRow {
  const char* name;
  const char* caption;
  const char* tooltip;
};
constexpr ItemRow kItems[] = {
    {"vscUpDown", "", ""},
    {"txtUserCurY", "", "Function to be used in things like a Trace"},
    {"cmdGraph", "&Graph", "Graph the functions"},
    {"cmdZoomBox", "Z&Box", "Zoom Box"},
    {"cmdEval", "&Eval", "Evaluate the graph at a particular domain value"},
    {"cmdRange", "&Range...", "Change the Range (and Domain) of the graph intervals"},
    {"cmdTrace", "&Trace", "Trace the cursor over the points on the graph"},
    {"cmdZoom", "&Zoom", "Choose between many zoom styles"},
    {"cmdZoomOut", "Z&Out", "Zoom Out"},
    {"cmdZoomIn", "Z&In", "Zoom In"},
    {"lblUserCurY", "&Y:", ""},
};

TEST(ToolBar, every_control_has_its_caption_and_tooltip) {
  EXPECT_EQ(kToolBarItems.size(), std::size(kItems));
  for (const ItemRow& row : kItems) {
    const auto found = std::find_if(kToolBarItems.begin(), kToolBarItems.end(),
                                    [&](const ToolBarItemText& item) { return item.name == row.name; });
    ASSERT_NE(found, kToolBarItems.end()) << row.name;
    EXPECT_EQ(found->caption, row.caption);
    EXPECT_EQ(found->tooltip, row.tooltip);
  }
}

TEST(ToolBar, nine_captions_have_mnemonics_of_their_own) {
  std::string mnemonics;
  for (const ToolBarItemText& item : kToolBarItems) {
    if (const char letter = MnemonicOf(item.caption)) mnemonics += letter;
  }
  EXPECT_EQ(mnemonics, "GZIOBRTEY");
}

TEST(Mnemonic, an_ampersand_marks_the_letter_and_two_show_one) {
  EXPECT_EQ(MnemonicOf("Z&Box"), 'B');
  EXPECT_EQ(MnemonicOf("R&&D"), '\0');
  EXPECT_EQ(MnemonicOf("trailing&"), '\0');
  EXPECT_EQ(MnemonicOf("&1    X Minimum: "), '1');
  EXPECT_EQ(CaptionWithoutMnemonic("Z&Box"), "ZBox");
  EXPECT_EQ(CaptionWithoutMnemonic("R&&D"), "R&D");
}

TEST(ZoomMenu, holds_its_entries_in_order) {
  constexpr const char* kEntries[][2] = {{"mnuZoomStandard", "&Standard"},
                                         {"mnuZoomTrig", "&Trig"},
                                         {"mnuZoomInt", "&Integer"},
                                         {"mnuZoomDecimal", "&Decimal"},
                                         {"mnuZoomNumber", "&Number (Per Pixel)"},
                                         {"mnuSep1", ""},
                                         {"mnuEditZoom", "&Edit Zoom"}};
  ASSERT_EQ(kZoomMenu.size(), std::size(kEntries));
  for (std::size_t i = 0; i < kZoomMenu.size(); ++i) {
    EXPECT_EQ(kZoomMenu[i].name, kEntries[i][0]);
    EXPECT_EQ(kZoomMenu[i].caption, kEntries[i][1]);
  }
  EXPECT_EQ(kZoomMenuCaption, "Zoom");
}

// ---- Presses ----

class ToolBarPresses : public testing::Test {
 protected:
  ToolBarPresses() {
    control.SetFunctions({"x", "x^2"});
    control.graph->SetPlotDone([this] { ++plots; });
  }
  void ChooseFromMenu(ZoomCommand command) {
    control.face->menuChoice = command;
    control.Press(ToolBarItem::cmdZoom);
  }
  [[nodiscard]] std::string Simple() const { return control.face->Simple(); }

  Control control;
  int plots = 0;
};

TEST_F(ToolBarPresses, graph_ends_the_action_redraws_and_shows_the_hint) {
  control.Press(ToolBarItem::cmdZoomIn);
  control.Press(ToolBarItem::cmdGraph);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(plots, 1);
  EXPECT_EQ(Simple(), kHint);
}

TEST_F(ToolBarPresses, zoom_ends_the_action_and_shows_the_menu) {
  control.Press(ToolBarItem::cmdZoomIn);
  control.Press(ToolBarItem::cmdZoom);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->menuSizes, std::vector<std::size_t>{7});
  EXPECT_EQ(plots, 0);
}

TEST_F(ToolBarPresses, standard_sets_the_standard_range_and_shows_it) {
  control.Engine().Xmax = 3;
  ChooseFromMenu(ZoomCommand::mnuZoomStandard);
  EXPECT_EQ(Simple(), "(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10");
  EXPECT_EQ(plots, 1);
}

TEST_F(ToolBarPresses, trig_sets_the_trigonometric_range_and_shows_it) {
  ChooseFromMenu(ZoomCommand::mnuZoomTrig);
  EXPECT_EQ(Simple(),
            "(14.1371669491155 x 14.1371669491155)  Xmin=-7.06858347455775  XMax=7.06858347455775  YMin=-4  "
            "YMax=4");
}

TEST_F(ToolBarPresses, integer_has_one_unit_per_pixel) {
  ChooseFromMenu(ZoomCommand::mnuZoomInt);
  EXPECT_EQ(Simple(), "(400 x 400)  Xmin=-200  XMax=200  YMin=-150  YMax=150");
}

TEST_F(ToolBarPresses, decimal_has_a_tenth_per_pixel) {
  ChooseFromMenu(ZoomCommand::mnuZoomDecimal);
  EXPECT_EQ(Simple(), "(40 x 40)  Xmin=-20  XMax=20  YMin=-15  YMax=15");
}

TEST_F(ToolBarPresses, the_range_status_shows_the_width_twice) {
  control.Engine().Ymin = -5;
  control.Engine().Ymax = 5;
  control.Engine().ShowRangeStatus();
  EXPECT_EQ(Simple(), "(20 x 20)  Xmin=-10  XMax=10  YMin=-5  YMax=5");
}

TEST_F(ToolBarPresses, number_asks_for_the_length_per_pixel) {
  control.face->answer = "0.5 per pixel";
  ChooseFromMenu(ZoomCommand::mnuZoomNumber);
  EXPECT_EQ(control.face->prompts, std::vector<std::string>{"Enter the real number length per pixel"});
  EXPECT_EQ(control.face->titles, std::vector<std::string>{"Zoom Num"});
  EXPECT_EQ(Simple(), "(200 x 200)  Xmin=-100  XMax=100  YMin=-75  YMax=75");
}

TEST_F(ToolBarPresses, number_answered_with_nothing_changes_nothing) {
  control.face->answer = "";
  ChooseFromMenu(ZoomCommand::mnuZoomNumber);
  EXPECT_EQ(plots, 0);
  EXPECT_EQ(control.Engine().Xmax, 10);
  EXPECT_EQ(Simple(), kHint);
}

TEST_F(ToolBarPresses, number_answered_with_a_word_is_a_division_by_zero) {
  control.face->answer = "many";
  ChooseFromMenu(ZoomCommand::mnuZoomNumber);
  EXPECT_EQ(Simple(), "Division by zero");
}

TEST_F(ToolBarPresses, number_answered_with_too_large_a_number_is_an_overflow) {
  control.face->answer = "1e999";
  ChooseFromMenu(ZoomCommand::mnuZoomNumber);
  EXPECT_EQ(Simple(), "Overflow");
  EXPECT_EQ(control.Engine().Xmax, 10);
}

TEST_F(ToolBarPresses, the_separator_does_nothing) {
  ChooseFromMenu(ZoomCommand::mnuSep1);
  EXPECT_EQ(Simple(), kHint);
  EXPECT_EQ(plots, 0);
}

TEST_F(ToolBarPresses, range_and_edit_zoom_open_their_dialogs) {
  control.Press(ToolBarItem::cmdRange);
  ASSERT_NE(control.face->fieldsText, nullptr);
  EXPECT_EQ(control.face->fieldsText->caption, "Edit Range");
  ChooseFromMenu(ZoomCommand::mnuEditZoom);
  EXPECT_EQ(control.face->fieldsText->caption, "Zoom Factors");
}

TEST_F(ToolBarPresses, the_label_gives_the_focus_to_the_number_box) {
  control.Press(ToolBarItem::lblUserCurY);
  EXPECT_EQ(control.face->focused, TextBox::txtUserCurY);
}

// ---- Choosing a function with messages ----

struct Refusal {
  const char* number;
  const char* text;
};
constexpr Refusal kRefusals[] = {
    {"0", "The number of the function entered does not exist. Enter a valid function number."},
    {"4", "The number of the function entered does not exist. Enter a valid function number."},
    {"-1", "The number of the function entered does not exist. Enter a valid function number."},
    {"none", "The number of the function entered does not exist. Enter a valid function number."},
    {"2", "Selected function is not enabled."},
    {"3", "Selected function does not contain an expression."},
};

TEST_F(ToolBarPresses, trace_and_eval_refuse_a_bad_function_with_text_message_and_focus) {
  control.graph->SetYArray({MakeFunction("x"), MakeFunction("x", false), MakeFunction("")});
  for (const ToolBarItem button : {ToolBarItem::cmdTrace, ToolBarItem::cmdEval}) {
    for (const Refusal& row : kRefusals) {
      control.face->messages.clear();
      control.face->focused.reset();
      control.face->SetText(TextBox::txtUserCurY, row.number);
      control.Press(button);
      EXPECT_EQ(Simple(), row.text) << row.number;
      ASSERT_EQ(control.face->messages.size(), 1U);
      EXPECT_EQ(control.face->messages[0],
                (MessageContents{"You need to enter a valid number of an enabled Y function with a non-empty "
                                 "function expression",
                                 "Invalid Equation", MessageIcon::Exclamation}));
      EXPECT_EQ(control.face->focused, TextBox::txtUserCurY);
      EXPECT_EQ(control.Events().CurrentAction(), Action::None);
    }
  }
  EXPECT_TRUE(control.face->prompts.empty());
}

TEST_F(ToolBarPresses, a_broken_function_number_is_rounded_halves_to_even) {
  control.SetFunctions({"1", "2", "3", "4"});
  for (const auto& [typed, chosen] : {std::pair{"2.5", 2}, std::pair{"3.5", 4}, std::pair{" 1 ", 1}}) {
    control.face->SetText(TextBox::txtUserCurY, typed);
    control.Press(ToolBarItem::cmdTrace);
    EXPECT_EQ(control.Engine().CurrentFunctionIndex(), chosen) << typed;
  }
}

// ---- Evaluation at a typed x ----

TEST_F(ToolBarPresses, eval_recentres_on_the_point_and_shows_it) {
  control.face->SetText(TextBox::txtUserCurY, "2");
  control.face->answer = "1+2";
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(control.face->prompts,
            std::vector<std::string>{
                "Enter a expression or value for X. If you enter an expression it will first be "
                "evaluated."});
  EXPECT_EQ(control.face->titles, std::vector<std::string>{"Evaluate Function"});
  EXPECT_EQ(control.face->defaults, std::vector<std::string>{""});
  EXPECT_EQ(Simple(), "Evaluate Y2:   X=3    Y=9");
  EXPECT_EQ(control.Engine().Xmin, -7);
  EXPECT_EQ(control.Engine().Ymax, 19);
  EXPECT_EQ(plots, 1);
}

TEST_F(ToolBarPresses, eval_shows_the_point_in_polar_form_when_the_style_says_so) {
  control.Engine().GCStyle = graph::POLARGC;
  control.face->answer = "0";
  control.SetFunctions({"5"});
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(Simple(), "Evaluate Y1:   RADIUS=5    REFANGLE=0 radians   X=0    Y=5");
}

TEST_F(ToolBarPresses, eval_answered_with_nothing_says_what_is_needed) {
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(Simple(),
            "User must enter a valid X value or expression in order to evaluate the current function.");
  EXPECT_EQ(plots, 0);
}

TEST_F(ToolBarPresses, eval_answered_with_nonsense_leaves_the_range) {
  for (const char* answer : {"1+", "unknown", "1/0"}) {
    control.face->answer = answer;
    control.Press(ToolBarItem::cmdEval);
    EXPECT_EQ(Simple(), "Cannot evaluate X coordinate equation. Enter a valid numeric expression for x.");
  }
  EXPECT_EQ(control.Engine().Xmin, -10);
  EXPECT_EQ(plots, 0);
  EXPECT_TRUE(control.face->messages.empty());
}

TEST_F(ToolBarPresses, eval_where_the_function_is_undefined_names_function_and_x) {
  control.SetFunctions({"x", "sqr(x)"});
  plots = 0;
  control.face->SetText(TextBox::txtUserCurY, "2");
  control.face->answer = "-1.5";
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(Simple(), "Error! Cannot evaluate Y2 at X=-1.5");
  EXPECT_EQ(plots, 0);
  EXPECT_TRUE(control.face->messages.empty());
}

TEST_F(ToolBarPresses, eval_leaves_an_armed_action_alone) {
  control.Press(ToolBarItem::cmdZoomIn);
  control.face->answer = "1";
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(control.Events().CurrentAction(), Action::zin);
}

TEST_F(ToolBarPresses, eval_leaves_the_evaluated_function_current) {
  control.face->answer = "1";
  control.Press(ToolBarItem::cmdEval);  // plotting ends with Y2
  EXPECT_EQ(control.Engine().CurrentFunctionIndex(), 1);
  EXPECT_EQ(control.Engine().CurrentPoint(), (graph::RealPoint{1, 1}));
}

TEST_F(ToolBarPresses, a_trace_goes_on_with_its_function_after_eval) {
  control.Press(ToolBarItem::cmdTrace);
  control.face->answer = "0";
  control.Press(ToolBarItem::cmdEval);
  EXPECT_EQ(control.Events().CurrentAction(), Action::trace);
  control.Events().MouseMove(false, 239, 10);  // x = 2
  EXPECT_EQ(control.face->Status(), "X=2    Y=2");
}

// ---- Stepping through the functions ----

struct Step {
  const char* from;
  Key key;
  const char* to;
};

TEST_F(ToolBarPresses, down_and_up_step_to_the_next_and_previous_plottable_function) {
  control.graph->SetYArray(
      {MakeFunction("x"), MakeFunction("2", false), MakeFunction(""), MakeFunction("x^4")});
  constexpr Step kSteps[] = {
      {"1", Key::Down, "4"}, {"4", Key::Down, "1"},  {"1", Key::Up, "4"},     {"4", Key::Up, "1"},
      {"2", Key::Down, "4"}, {"3", Key::Up, "1"},    {"0", Key::Down, "4"},  // first to 1, then on
      {"99", Key::Up, "1"},                                                  // first to 4, then back
      {"-7", Key::Up, "4"},  {"99", Key::Down, "1"}, {"abc", Key::Down, "4"}, {"1e99", Key::Up, "1"},
  };
  for (const Step& row : kSteps) {
    control.face->SetText(TextBox::txtUserCurY, row.from);
    EXPECT_TRUE(control.Events().KeyPressed(row.key, KeyPlace::txtUserCurY));
    EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), row.to) << row.from;
    EXPECT_EQ(control.face->Status(), std::string("Y") + row.to + "=" + (row.to[0] == '1' ? "x" : "x^4"));
  }
}

TEST_F(ToolBarPresses, the_only_function_steps_to_itself) {
  control.SetFunctions({"x"});
  control.Events().KeyPressed(Key::Down, KeyPlace::txtUserCurY);
  EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), "1");
  EXPECT_EQ(control.face->Status(), "Y1=x");
}

TEST_F(ToolBarPresses, without_enabled_functions_the_status_says_so) {
  for (const auto& functions : {std::vector<std::shared_ptr<graph::YFunction>>{},
                                std::vector<std::shared_ptr<graph::YFunction>>{MakeFunction("x", false)}}) {
    control.graph->SetYArray(functions);
    control.Events().KeyPressed(Key::Up, KeyPlace::txtUserCurY);
    EXPECT_EQ(control.face->Status(), "No Enabled Function Selected");
    EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), "1");
  }
}

TEST_F(ToolBarPresses, the_arrows_mean_nothing_outside_the_number_box) {
  EXPECT_FALSE(control.Events().KeyPressed(Key::Down, KeyPlace::Control));
  EXPECT_FALSE(control.Events().KeyPressed(Key::Up, KeyPlace::Control));
}

TEST_F(ToolBarPresses, the_spinner_steps_and_is_set_back) {
  control.Events().SpinnerChanged(2);
  EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), "2");
  control.Events().SpinnerChanged(0);
  EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), "1");
  EXPECT_EQ(control.face->spinnerResets, 2);
  control.Events().SpinnerChanged(1);
  EXPECT_EQ(control.face->GetText(TextBox::txtUserCurY), "1");
}

TEST_F(ToolBarPresses, the_number_box_starts_as_one) {
  EXPECT_EQ(Control().face->GetText(TextBox::txtUserCurY), "1");
}

// ---- Life ----

TEST_F(ToolBarPresses, the_host_may_let_go_of_the_control_while_a_box_or_menu_is_open) {
  struct Gesture {
    ToolBarItem item;
    const char* number;
  };
  for (const Gesture& row : {Gesture{ToolBarItem::cmdZoom, "1"}, Gesture{ToolBarItem::cmdEval, "1"},
                             Gesture{ToolBarItem::cmdTrace, "0"}}) {
    Control one;
    one.SetFunctions({"x"});
    one.face->SetText(TextBox::txtUserCurY, row.number);
    one.face->answer = "1";
    one.face->menuChoice = ZoomCommand::mnuZoomStandard;
    one.face->whileBoxIsOpen = [&] { one.graph.reset(); };
    const std::weak_ptr<Graph> watched = one.graph;
    Gestures& events = one.Events();
    events.ToolBarPressed(row.item);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(one.graph, nullptr);
  }
}

}  // namespace
}  // namespace plotvane::control::test
