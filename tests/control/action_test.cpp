// The mouse action: captions, pointers, SetAction through the toolbar, Escape.
#include <gtest/gtest.h>

#include "control/action.h"
#include "recording_face.h"

namespace plotvane::control::test {
namespace {

using graph::PointerKind;

struct ActionRow {
  Action action;
  ToolBarItem button;
  const char* caption;
  PointerKind pointer;
};
constexpr ActionRow kArmed[] = {
    {Action::zin, ToolBarItem::cmdZoomIn, "Zoom In", PointerKind::ZoomIn},
    {Action::zout, ToolBarItem::cmdZoomOut, "Zoom Out", PointerKind::ZoomOut},
    {Action::zbox, ToolBarItem::cmdZoomBox, "Zoom Box", PointerKind::Cross},
    {Action::trace, ToolBarItem::cmdTrace, "Trace Function", PointerKind::SizeWestEast},
};

TEST(Action, each_button_arms_its_action_with_its_pointer_and_caption) {
  for (const ActionRow& row : kArmed) {
    const Control control;
    control.SetFunctions({"x"});
    control.Press(row.button);
    EXPECT_EQ(control.Events().CurrentAction(), row.action);
    EXPECT_EQ(control.face->Pointer(), row.pointer) << row.caption;
    EXPECT_EQ(control.face->Simple(), row.caption);
  }
}

TEST(Action, the_cross_is_pointer_four_and_the_sizing_arrows_are_three) {
  EXPECT_EQ(static_cast<int>(ActionPointer(Action::zbox)), 4);
  EXPECT_EQ(static_cast<int>(ActionPointer(Action::trace)), 3);
}

TEST(Action, an_unknown_action_has_the_caption_of_none) {
  EXPECT_EQ(ActionCaption(Action::None), kHint);
  EXPECT_EQ(ActionCaption(static_cast<Action>(9)), kHint);
}

TEST(Action, pressing_an_armed_button_again_turns_the_action_off) {
  for (const ToolBarItem button :
       {ToolBarItem::cmdZoomIn, ToolBarItem::cmdZoomOut, ToolBarItem::cmdZoomBox}) {
    const Control control;
    control.Press(button);
    control.Press(button);
    EXPECT_EQ(control.Events().CurrentAction(), Action::None);
    EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
    EXPECT_EQ(control.face->Simple(), kHint);
  }
}

TEST(Action, pressing_trace_again_begins_a_new_trace) {
  const Control control;
  control.SetFunctions({"x"});
  control.Press(ToolBarItem::cmdTrace);
  control.Press(ToolBarItem::cmdTrace);
  EXPECT_EQ(control.Events().CurrentAction(), Action::trace);
}

TEST(Action, another_button_changes_the_action_without_a_stop_in_between) {
  const Control control;
  control.Press(ToolBarItem::cmdZoomIn);
  control.Press(ToolBarItem::cmdZoomBox);
  EXPECT_EQ(control.Events().CurrentAction(), Action::zbox);
  EXPECT_EQ(control.face->Pointer(), PointerKind::Cross);
}

TEST(Action, escape_ends_every_action_from_everywhere) {
  for (const ActionRow& row : kArmed) {
    for (const KeyPlace place : {KeyPlace::Control, KeyPlace::txtUserCurY}) {
      const Control control;
      control.SetFunctions({"x"});
      control.Press(row.button);
      EXPECT_TRUE(control.Events().KeyPressed(Key::Escape, place));
      EXPECT_EQ(control.Events().CurrentAction(), Action::None);
      EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
      EXPECT_EQ(control.face->Simple(), kHint);
    }
  }
}

TEST(Action, escape_ends_the_action_even_when_the_surface_refuses_its_pointer) {
  const Control control;
  control.Press(ToolBarItem::cmdZoomIn);
  control.graph->SetPIC(std::make_shared<StubbornSurface>());
  control.Events().KeyPressed(Key::Escape, KeyPlace::Control);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Simple(), "Device I/O error");
}

TEST(Action, a_new_control_has_no_action_and_the_arrow) {
  const Control control;
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->Pointer(), PointerKind::Arrow);
}

TEST(Action, leaving_the_trace_hides_its_marker) {
  const Control control;
  control.SetFunctions({"x"});
  control.Press(ToolBarItem::cmdTrace);
  control.Events().MouseMove(false, 250, 10);
  ASSERT_TRUE(control.face->TraceMarkerVisible());
  control.Press(ToolBarItem::cmdZoomIn);
  EXPECT_FALSE(control.face->TraceMarkerVisible());
}

TEST(Action, in_a_designer_the_user_can_do_nothing) {
  const Control control;
  control.graph->SetDesignMode(true);
  control.Press(ToolBarItem::cmdZoomIn);
  control.Events().MouseDown(MouseButton::Left, 10, 10);
  EXPECT_EQ(control.Events().CurrentAction(), Action::None);
  EXPECT_EQ(control.face->simpleTexts.size(), 0U);
}

TEST(Action, a_designer_opens_no_dialog) {
  const Control control;
  control.graph->SetDesignMode(true);
  control.graph->ShowFormatEditor();
  control.Press(ToolBarItem::cmdRange);
  EXPECT_EQ(control.face->format, nullptr);
  EXPECT_EQ(control.face->fields, nullptr);
}

TEST(Action, going_to_a_designer_closes_the_dialogs_of_that_control_without_writing) {
  const Control control;
  const Control other;
  control.Press(ToolBarItem::cmdRange);
  other.Press(ToolBarItem::cmdRange);
  control.graph->ShowFormatEditor();
  control.face->fields->editTexts[0] = "5";
  control.graph->SetDesignMode(true);
  EXPECT_FALSE(control.face->fields->shown);
  EXPECT_FALSE(control.face->format->shown);
  EXPECT_EQ(control.Engine().Xmin, -10);
  EXPECT_TRUE(other.face->fields->shown);
}

}  // namespace
}  // namespace plotvane::control::test
