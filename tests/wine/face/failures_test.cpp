// Run-time errors in the middle of what the user does: each ends the gesture with its text in the upper
// status box, and everything works again as soon as its cause is gone.
#include <gtest/gtest.h>

#include <ole2.h>

#include "host.h"

namespace plotvane::test {
namespace {

constexpr const char* kNoSurface = "Object variable or With block variable not set";

// A control whose drawing surface the host has taken away; given back by Repair.
class Failures : public testing::Test {
 protected:
  void SetUp() override {
    ::OleInitialize(nullptr);  // as long as the surface is held
    RECT client{};
    ::GetClientRect(face.Surface(), &client);
    middle = {client.right / 2 - 1, client.bottom / 2};
    Automation control(face.Top());
    surface = control.Object(L"PIC");
    ASSERT_NE(surface, nullptr);
  }
  void TearDown() override {
    if (surface != nullptr) surface->Release();
    ::OleUninitialize();
  }

  void Break() const { ASSERT_HRESULT_SUCCEEDED(Automation(face.Top()).SetObject(L"PIC", nullptr)); }
  void Repair() const { ASSERT_HRESULT_SUCCEEDED(Automation(face.Top()).SetObject(L"PIC", surface)); }

  // The gesture fails without the surface, and works after it is back.
  template <typename Gesture>
  void ExpectFailureAndRecovery(const char* name, Gesture gesture) const {
    SCOPED_TRACE(name);
    Break();
    gesture();
    EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
    Repair();
    PressKey(VK_ESCAPE);  // an action that is still armed
    gesture();
    EXPECT_TRUE(WaitUntil([&] { return face.Simple() != kNoSurface; })) << face.Simple();
    Click(face.Button("&Graph"));
    EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
  }
  void ClickMiddle(bool right = false) const { ClickAt(face.Surface(), middle.x, middle.y, right); }

  FaceOnScreen face{"\"x\""};
  POINT middle{};
  IDispatch* surface = nullptr;
};

TEST_F(Failures, of_clicks_end_with_the_errors_text) {
  ExpectFailureAndRecovery("redraw", [&] { ClickMiddle(); });
  ExpectFailureAndRecovery("recentre", [&] { ClickMiddle(true); });
  ExpectFailureAndRecovery("graph", [&] { Click(face.Button("&Graph")); });
}

TEST_F(Failures, of_armed_buttons_end_with_the_errors_text) {
  for (const char* caption : {"Z&In", "Z&Out", "Z&Box", "&Trace"}) {
    ExpectFailureAndRecovery(caption, [&] { Click(face.Button(caption)); });
  }
}

// The surface goes away after the button was pressed.
TEST_F(Failures, of_armed_clicks_end_the_action) {
  for (const char* caption : {"Z&In", "Z&Out", "&Trace"}) {
    SCOPED_TRACE(caption);
    Click(face.Button(caption));
    Break();
    ClickMiddle();
    EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
    Repair();
    ClickMiddle();
    EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();  // no action any more
  }
}

TEST_F(Failures, of_a_box_drag_end_the_action_and_hide_the_box) {
  const Picture before = Capture(face.Surface());
  Click(face.Button("Z&Box"));
  MoveTo(face.Surface(), 50, 50);
  ButtonDown();
  MoveTo(face.Surface(), 120, 90);
  Break();
  ButtonUp();
  EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
  EXPECT_TRUE(Capture(face.Surface()) == before);
  Repair();
  ClickMiddle();
  EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
}

TEST_F(Failures, of_the_menu_end_with_the_errors_text) {
  for (const char entry : {'s', 't', 'i', 'd'}) {
    ExpectFailureAndRecovery("menu", [&] { face.ChooseZoom(entry); });
  }
  ExpectFailureAndRecovery("number", [&] {
    face.ChooseZoom('n');
    ASSERT_NE(WaitForTop("Zoom Num", kDialogClass), nullptr);
    TypeText("2");
    PressKey(VK_RETURN);
  });
}

TEST_F(Failures, of_a_number_that_cannot_be_a_length_say_so) {
  face.ChooseZoom('n');
  ASSERT_NE(WaitForTop("Zoom Num", kDialogClass), nullptr);
  TypeText("none");
  PressKey(VK_RETURN);
  EXPECT_TRUE(face.SimpleBecomes("Division by zero")) << face.Simple();
}

TEST_F(Failures, of_an_evaluation_end_with_the_errors_text) {
  ExpectFailureAndRecovery("eval", [&] {
    Click(face.Button("&Eval"));
    ASSERT_NE(WaitForTop("Evaluate Function", kDialogClass), nullptr);
    TypeText("1");
    PressKey(VK_RETURN);
  });
}

TEST_F(Failures, of_the_range_dialog_leave_it_open_to_try_again) {
  Click(face.Button("&Range..."));
  const HWND dialog = WaitForTop("Edit Range", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  Break();
  Click(FindByText(dialog, "&OK"));
  EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
  EXPECT_TRUE(::IsWindowVisible(dialog));
  Repair();
  Click(FindByText(dialog, "&OK"));
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
  EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
}

TEST_F(Failures, of_the_format_dialog_are_errors_of_the_host_or_leave_it_open) {
  Break();
  EXPECT_HRESULT_FAILED(Automation(face.Top()).Call(L"ShowFormatEditor"));
  EXPECT_EQ(FindTop("Format", kDialogClass), nullptr);
  Repair();
  face.Press(HostKey::ShowFormat);
  const HWND dialog = WaitForTop("Format", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  Break();
  Click(FindByText(dialog, "&Save And Close"));
  EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
  EXPECT_TRUE(::IsWindowVisible(dialog));
  Repair();
  Click(FindByText(dialog, "&Save And Close"));
  EXPECT_TRUE(WaitUntil([&] { return !::IsWindow(dialog); }));
}

TEST_F(Failures, of_a_resize_end_with_the_errors_text) {
  Break();
  ::SetWindowPos(face.Top(), nullptr, 0, 0, 500, 400, SWP_NOZORDER | SWP_NOMOVE);
  EXPECT_TRUE(face.SimpleBecomes(kNoSurface)) << face.Simple();
  Repair();
  ::SetWindowPos(face.Top(), nullptr, 0, 0, 640, 480, SWP_NOZORDER | SWP_NOMOVE);
  ClickMiddle();
  EXPECT_TRUE(face.SimpleBecomes(kHint)) << face.Simple();
}

}  // namespace
}  // namespace plotvane::test
