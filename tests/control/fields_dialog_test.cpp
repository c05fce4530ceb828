// The dialogs "Edit Range" and "Zoom Factors": texts, filling, writing, closing.
#include <gtest/gtest.h>

#include "control/frmRange.h"
#include "control/frmZoomFactors.h"
#include "control/open_forms.h"
#include "recording_face.h"

namespace plotvane::control::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kFieldTooltip = "Enter a new value or select the previously entered or original value";

TEST(RangeDialog, bears_its_texts) {
  const FieldsDialogText& text = frmRange::kText;
  EXPECT_EQ(text.caption, "Edit Range");
  constexpr const char* kFields[][2] = {
      {"&1    X Minimum: ", "cboXMin"},      {"&2    X Maximum:", "cboXMax"},
      {"&3    Y Minimum:", "cboYMin"},       {"&4    Y Maximum:", "cboYMax"},
      {"&5    X Axis Division:", "cboXScl"}, {"&6    Y Axis Division:", "cboYScl"}};
  ASSERT_EQ(text.fields.size(), std::size(kFields));
  for (std::size_t i = 0; i < text.fields.size(); ++i) {
    EXPECT_EQ(text.fields[i].label, kFields[i][0]);
    EXPECT_EQ(text.fields[i].name, kFields[i][1]);
  }
  EXPECT_EQ(text.fieldTooltip, kFieldTooltip);
  EXPECT_EQ(text.note,
            "Enter a number for each field.  If you enter a expression it will be evaluated. The expression "
            "will then "
            "be saved to the combo box for further editing.");
  EXPECT_EQ(text.ok.caption, "&OK");
  EXPECT_EQ(text.ok.tooltip, "Exit and update range");
  EXPECT_EQ(text.cancel.caption, "&Cancel");
  EXPECT_EQ(text.cancel.tooltip, "Exit without saving");
}

TEST(ZoomFactorsDialog, bears_its_texts) {
  const FieldsDialogText& text = frmZoomFactors::kText;
  EXPECT_EQ(text.caption, "Zoom Factors");
  ASSERT_EQ(text.fields.size(), 2U);
  EXPECT_EQ(text.fields[0].label, "&X Zoom Factor:");
  EXPECT_EQ(text.fields[0].name, "cboXZoomFactor");
  EXPECT_EQ(text.fields[1].label, "&Y Zoom Factor:");
  EXPECT_EQ(text.fields[1].name, "cboYZoomFactor");
  EXPECT_EQ(text.fieldTooltip, kFieldTooltip);
  EXPECT_EQ(
      text.note,
      "Edit the Zoom Factors. When zooming in and out, the new range width and height is calculated using "
      "these "
      "zoom factors.  Change these factors to modify the magnitude of the zooming along the x and y axis. If "
      "you "
      "enter a textual expression it will be evaluated numerically and saved to the combo box for further "
      "editing.");
  EXPECT_EQ(text.ok.tooltip, "Save and Continue");
  EXPECT_EQ(text.cancel.caption, "&Cancel");
  EXPECT_EQ(text.cancel.tooltip, "Forget I ever came here");
}

class FieldsDialogs : public testing::Test {
 protected:
  FieldsDialogs() {
    control.graph->PrepareGraph();
    control.graph->SetPlotDone([this] { ++plots; });
  }
  void OpenRange() { control.Press(ToolBarItem::cmdRange); }
  void OpenZoomFactors() {
    control.face->menuChoice = ZoomCommand::mnuEditZoom;
    control.Press(ToolBarItem::cmdZoom);
  }
  [[nodiscard]] StoredFieldsView& View() const { return *control.face->fields; }
  void Ok() const { control.face->fieldsEvents.lock()->OkPressed(); }
  void Cancel() const { control.face->fieldsEvents.lock()->CancelPressed(); }
  [[nodiscard]] bool Gone() const { return control.face->fieldsEvents.expired(); }

  Control control;
  int plots = 0;
};

TEST_F(FieldsDialogs, a_fresh_range_dialog_shows_the_standard_range_and_an_empty_entry) {
  OpenRange();
  EXPECT_TRUE(View().shown);
  EXPECT_EQ(View().editTexts, (Texts{"-10", "10", "-10", "10", "1", "1"}));
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(View().entries[i], (Texts{View().editTexts[i], ""}));
}

TEST_F(FieldsDialogs, an_expression_is_evaluated_kept_and_offered_again) {
  OpenRange();
  View().editTexts[1] = "5*2";
  View().editTexts[4] = "2+3";
  Ok();
  EXPECT_EQ(control.Engine().Xmax, 10);
  EXPECT_EQ(control.Engine().XMaxStr, "5*2");
  EXPECT_EQ(control.Engine().Xscl, 5);
  EXPECT_EQ(plots, 1);
  EXPECT_TRUE(Gone());
  OpenRange();
  EXPECT_EQ(View().editTexts[1], "10");
  EXPECT_EQ(View().entries[1], (Texts{"10", "5*2"}));
  EXPECT_EQ(View().entries[0], (Texts{"-10", "-10"}));
}

TEST_F(FieldsDialogs, the_texts_are_written_minima_first) {
  OpenRange();
  // Each expression reads what the one written before it stored.
  View().editTexts = {"a=-1", "c=b*-3", "b=a-1", "d=c*2", "f=d+1", "f+1"};
  Ok();
  const graph::GraphEngine& engine = control.Engine();
  EXPECT_EQ(engine.Xmin, -1);
  EXPECT_EQ(engine.Ymin, -2);
  EXPECT_EQ(engine.Xmax, 6);
  EXPECT_EQ(engine.Ymax, 12);
  EXPECT_EQ(engine.Xscl, 13);
  EXPECT_EQ(engine.Yscl, 14);
}

TEST_F(FieldsDialogs, a_text_that_gives_no_number_is_kept_and_the_number_stays) {
  OpenRange();
  View().editTexts[0] = "1+";
  Ok();
  EXPECT_EQ(control.Engine().Xmin, -10);
  EXPECT_EQ(control.Engine().XMinStr, "1+");
  EXPECT_TRUE(Gone());
}

TEST_F(FieldsDialogs, an_empty_range_is_reported_by_messages_and_stays_written) {
  OpenRange();
  View().editTexts[0] = "10";
  View().editTexts[2] = "10";
  Ok();
  ASSERT_EQ(control.face->messages.size(), 2U);
  EXPECT_EQ(control.face->messages[0], (MessageContents{"Invalid Range! You should change X Max and X Min",
                                                        "Plotvane", MessageIcon::None}));
  EXPECT_EQ(control.face->messages[1], (MessageContents{"Invalid Range! You should change Y Max and Y Min",
                                                        "Plotvane", MessageIcon::None}));
  EXPECT_EQ(control.Engine().Xmin, 10);
  EXPECT_EQ(plots, 1);
  EXPECT_TRUE(Gone());
}

TEST_F(FieldsDialogs, a_run_time_error_in_ok_shows_its_text_and_leaves_the_dialog_open) {
  OpenRange();
  View().editTexts[0] = "-1e308";  // the width of the range is no number
  View().editTexts[1] = "1e308";
  Ok();
  EXPECT_EQ(control.face->Simple(), "Overflow");
  EXPECT_FALSE(Gone());
  EXPECT_TRUE(View().shown);
}

TEST_F(FieldsDialogs, cancel_writes_nothing) {
  OpenRange();
  View().editTexts = {"1", "2", "3", "4", "5", "6"};
  Cancel();
  EXPECT_EQ(control.Engine().Xmin, -10);
  EXPECT_EQ(control.Engine().XMinStr, "");
  EXPECT_EQ(plots, 0);
  EXPECT_TRUE(Gone());
}

TEST_F(FieldsDialogs, the_close_box_releases_the_dialog) {
  OpenRange();
  control.face->fieldsEvents.lock()->DialogClosed();
  EXPECT_TRUE(Gone());
  EXPECT_TRUE(OpenForms::OfThisThread()->Forms().empty());
}

TEST_F(FieldsDialogs, zoom_factors_offer_only_the_previous_texts) {
  OpenZoomFactors();
  EXPECT_EQ(View().editTexts, (Texts{"4", "4"}));
  EXPECT_EQ(View().entries[0], Texts{""});
  View().editTexts = {"1/3", "2"};
  Ok();
  EXPECT_EQ(control.Engine().ZX, 1.0F / 3);
  EXPECT_EQ(control.Engine().ZY, 2);
  EXPECT_EQ(plots, 0);
  OpenZoomFactors();
  EXPECT_EQ(View().editTexts, (Texts{"0.3333333", "2"}));
  EXPECT_EQ(View().entries[0], Texts{"1/3"});
  EXPECT_EQ(View().entries[1], Texts{"2"});
}

TEST_F(FieldsDialogs, cancelled_zoom_factors_stay) {
  OpenZoomFactors();
  View().editTexts = {"1", "2"};
  Cancel();
  EXPECT_EQ(control.Engine().ZX, 4);
  EXPECT_EQ(control.Engine().ZXStr, "");
}

TEST_F(FieldsDialogs, opening_again_fills_the_open_dialog_anew) {
  OpenRange();
  const auto first = control.face->fields;
  first->editTexts[0] = "edited";
  OpenRange();
  EXPECT_EQ(control.face->fields, first);
  EXPECT_EQ(first->editTexts[0], "-10");
  EXPECT_EQ(first->entries[0], (Texts{"-10", ""}));
  EXPECT_EQ(OpenForms::OfThisThread()->Forms().size(), 1U);
}

TEST_F(FieldsDialogs, two_controls_have_dialogs_of_their_own) {
  const Control other;
  OpenRange();
  other.Press(ToolBarItem::cmdRange);
  EXPECT_EQ(OpenForms::OfThisThread()->Forms().size(), 2U);
  other.face->fields->editTexts[0] = "-3";
  other.face->fieldsEvents.lock()->OkPressed();
  EXPECT_EQ(other.Engine().Xmin, -3);
  EXPECT_EQ(control.Engine().Xmin, -10);
  EXPECT_TRUE(View().shown);
}

TEST_F(FieldsDialogs, destroying_a_control_closes_every_dialog_the_last_opened_first) {
  Control other;
  OpenRange();
  const auto range = control.face->fields;
  OpenZoomFactors();
  const auto zoom = control.face->fields;
  other.Press(ToolBarItem::cmdRange);
  const auto otherRange = other.face->fields;
  other.graph.reset();
  EXPECT_FALSE(range->shown);
  EXPECT_FALSE(zoom->shown);
  EXPECT_FALSE(otherRange->shown);
  EXPECT_TRUE(OpenForms::OfThisThread()->Forms().empty());
}

TEST_F(FieldsDialogs, a_dialog_does_not_keep_its_control_alive) {
  OpenRange();
  const std::weak_ptr<Graph> watched = control.graph;
  control.graph.reset();
  EXPECT_TRUE(watched.expired());
}

TEST_F(FieldsDialogs, the_host_may_let_go_of_the_control_inside_ok) {
  OpenRange();
  control.graph->SetPlotDone([this] { control.graph.reset(); });
  Ok();
  EXPECT_TRUE(Gone());
}

class LoggingForm : public Form, public std::enable_shared_from_this<LoggingForm> {
 public:
  LoggingForm(int number, std::vector<int>& log) : mNumber(number), mLog(log) {}
  void Unload() override { mLog.push_back(mNumber); }

 private:
  int mNumber;
  std::vector<int>& mLog;
};

TEST(OpenForms, are_unloaded_from_the_last_to_the_first) {
  std::vector<int> log;
  const auto forms = OpenForms::OfThisThread();
  for (const int number : {1, 2, 3}) forms->Add(std::make_shared<LoggingForm>(number, log));
  forms->UnloadAll();
  EXPECT_EQ(log, (std::vector<int>{3, 2, 1}));
  EXPECT_TRUE(forms->Forms().empty());
}

}  // namespace
}  // namespace plotvane::control::test
