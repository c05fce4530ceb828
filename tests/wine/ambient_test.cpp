// What the container tells the control and asks it for: ambient properties, keys and mnemonics.
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "tests/wine/hosting_fixture.h"

namespace plotvane::tests {
namespace {

TEST_F(Hosting, in_a_designer_no_host_code_is_evaluated) {
  site->ambients[DISPID_AMBIENT_USERMODE] = Variant(false);
  Activate();
  const auto function = MakeFunction("x");
  Variant array = ArrayOf({function.Get()});
  Variant later(false);
  EXPECT_EQ(graph->SetYArray(&array.Get(), &later.Get()), S_OK);
  // Clicks on the picture mean nothing.
  const HWND control = ControlWindow();
  for (HWND child = ::GetWindow(control, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    ::SendMessageW(child, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
    ::SendMessageW(child, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
  }
  PumpMessages();
  EXPECT_EQ(function->calls[L"Equation"], 0);
  End();
}

// ---- Ambient properties ----

class Ambient : public Hosting {
 protected:
  // Whether a press of the button that plots does plot.
  bool UserCanPlot() {
    const int before = mSink->plotDone;
    MSG message{};
    message.message = WM_SYSCHAR;
    message.wParam = 'g';
    EXPECT_EQ(As<IOleControl>(graph.Get())->OnMnemonic(&message), S_OK);
    return mSink->plotDone == before + 1;
  }
  void Change(DISPID ambient) {
    EXPECT_EQ(As<IOleControl>(graph.Get())->OnAmbientPropertyChange(ambient), S_OK);
  }
  void TearDown() override { End(); }

  ComPtr<EventSink> mSink = Make<EventSink>();
  DWORD mCookie = Connect(graph.Get(), DIID___Graph, mSink.Get());
};

TEST_F(Ambient, a_dead_user_interface_ignores_the_user_until_it_lives_again) {
  Activate();
  EXPECT_TRUE(UserCanPlot());
  site->ambients[DISPID_AMBIENT_UIDEAD] = Variant(true);
  Change(DISPID_AMBIENT_UIDEAD);
  EXPECT_FALSE(UserCanPlot());
  // The host's own calls are not the user's.
  const int before = mSink->plotDone;
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(mSink->plotDone, before + 1);
  site->ambients[DISPID_AMBIENT_UIDEAD] = Variant(false);
  Change(DISPID_AMBIENT_UIDEAD);
  EXPECT_TRUE(UserCanPlot());
}

TEST_F(Ambient, UIDead_and_UserMode_are_read_with_the_site) {
  site->ambients[DISPID_AMBIENT_UIDEAD] = Variant(true);
  Activate();
  EXPECT_FALSE(UserCanPlot());
  EXPECT_EQ(site->Count("UIDead"), 1);
  EXPECT_EQ(site->Count("UserMode"), 1);
}

TEST_F(Ambient, every_property_at_once_may_have_changed) {
  Activate();
  site->ambients[DISPID_AMBIENT_USERMODE] = Variant(false);
  Change(DISPID_UNKNOWN);
  EXPECT_FALSE(UserCanPlot());
}

TEST_F(Ambient, what_a_container_does_not_answer_counts_as_running) {
  site->ambients.clear();
  Activate();
  for (const HRESULT status : {DISP_E_MEMBERNOTFOUND, E_NOTIMPL, E_FAIL, DISP_E_EXCEPTION, E_UNEXPECTED}) {
    site->unknownAmbient = status;
    Change(DISPID_AMBIENT_USERMODE);
    EXPECT_TRUE(UserCanPlot()) << std::hex << status;
  }
}

TEST_F(Ambient, answers_of_other_types_are_taken_for_what_they_say) {
  struct Row {
    const char* name;
    Variant userMode;
    bool runs;
  };
  Variant null;
  null.Get().vt = VT_NULL;
  const Row rows[]{
      {"nothing", Variant(), false},
      {"the number 0", Variant(std::int32_t{0}), false},
      {"the number 1", Variant(std::int32_t{1}), true},
      {"a text that is no truth value", Variant("perhaps"), true},
      {"null", null, true},
      {"no object", Variant(static_cast<IDispatch*>(nullptr)), true},
  };
  Activate();
  for (const Row& row : rows) {
    site->ambients[DISPID_AMBIENT_USERMODE] = row.userMode;
    Change(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(UserCanPlot(), row.runs) << row.name;
  }
}

TEST_F(Ambient, the_others_are_not_asked_for_and_leave_the_picture_as_it_is) {
  Activate();
  const auto function = MakeFunction("0*x+5", RGB(255, 0, 0));
  Variant array = ArrayOf({function.Get()});
  ASSERT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  function->calls.clear();
  const Bitmap before = Picture();
  EXPECT_GT(before.Count(RGB(255, 0, 0)), 300);
  // The site fails the test when it is asked for one of them.
  for (const DISPID id : std::initializer_list<DISPID>{
           DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FORECOLOR, DISPID_AMBIENT_FONT, DISPID_AMBIENT_LOCALEID,
           DISPID_AMBIENT_DISPLAYNAME, DISPID_AMBIENT_SHOWGRABHANDLES, DISPID_AMBIENT_SHOWHATCHING,
           DISPID_AMBIENT_MESSAGEREFLECT, DISPID_AMBIENT_SCALEUNITS, 12345}) {
    Change(id);
    EXPECT_EQ(before.DifferentPixels(Picture()), 0) << id;
  }
  EXPECT_EQ(function->calls[L"Equation"], 0) << "nothing was drawn anew";
  EXPECT_TRUE(UserCanPlot());
}

// ---- Keys ----

TEST_F(Hosting, the_container_is_asked_for_every_key_first) {
  Activate();
  ASSERT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
  ASSERT_TRUE(static_cast<bool>(site->activeObject));
  MSG message{};
  message.hwnd = ControlWindow();
  message.message = WM_KEYDOWN;
  message.wParam = VK_F7;  // a key without a meaning
  EXPECT_EQ(site->activeObject->TranslateAccelerator(&message), S_FALSE);
  EXPECT_EQ(site->Count("TranslateAccelerator"), 1);
  EXPECT_EQ(site->activeObject->TranslateAccelerator(nullptr), E_POINTER);
  End();
}

TEST_F(Hosting, a_mnemonic_presses_its_button) {
  Activate();
  const auto control = As<IOleControl>(graph.Get());
  CONTROLINFO info{};
  info.cb = sizeof info;
  ASSERT_EQ(control->GetControlInfo(&info), S_OK);
  // Each mnemonic is there for containers that compare keys and for those that compare characters.
  std::vector<ACCEL> entries(info.cAccel);
  ::CopyAcceleratorTableW(info.hAccel, entries.data(), info.cAccel);
  ::DestroyAcceleratorTable(info.hAccel);
  EXPECT_EQ(entries.size() % 3, 0U);
  int graphKeys = 0;
  for (const ACCEL& entry : entries) {
    EXPECT_NE(entry.fVirt & FALT, 0);
    if (entry.key == 'G' || entry.key == 'g') ++graphKeys;
  }
  EXPECT_EQ(graphKeys, 3);
  // The button that draws the graph.
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  MSG message{};
  message.message = WM_SYSCHAR;
  message.wParam = 'g';
  EXPECT_EQ(control->OnMnemonic(&message), S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  End();
}

}  // namespace
}  // namespace plotvane::tests
