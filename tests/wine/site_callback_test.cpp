// The same inside every call to the container: activation, focus, keys, ambient properties, the end.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>

#include "tests/wine/callback_host.h"

namespace plotvane::tests {
namespace {

constexpr std::array kSiteCalls{"CanInPlaceActivate",
                                "OnInPlaceActivate",
                                "GetWindow",
                                "GetWindowContext",
                                "OnUIActivate",
                                "SetActiveObject",
                                "SetBorderSpace",
                                "ShowObject",
                                "UserMode",
                                "UIDead",
                                "OnFocus",
                                "OnBlur",
                                "EnableModeless",
                                "TranslateAccelerator",
                                "OnUIDeactivate",
                                "OnInPlaceDeactivate"};

class SiteCallback : public testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {};

HWND ControlWindow(Host& host) {
  HWND control = nullptr;
  if (host.graph) As<IOleInPlaceObject>(host.graph.Get())->GetWindow(&control);
  return control;
}

// A life with every call to the site; each step lives with what became of the control in the step before.
void LiveThroughEveryCall(Host& host) {
  Variant functions = ArrayOf({host.function.Get()});
  Variant later(false);
  host.graph->SetYArray(&functions.Get(), &later.Get());
  const auto object = As<IOleObject>(host.graph.Get());
  object->SetClientSite(host.site.Get());
  object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, host.site.Get(), 0, host.window.Get(), &host.site->position);
  // The focus goes to a child and away again.
  if (const HWND control = ControlWindow(host); control != nullptr) {
    if (const HWND button = ChildWithText(control, L"&Graph"); button != nullptr) ::SetFocus(button);
    ::SetFocus(host.window.Get());
  }
  if (const auto keys = host.site->activeObject) {
    MSG message{};
    message.hwnd = ControlWindow(host);
    message.message = WM_KEYDOWN;
    message.wParam = VK_F7;
    keys->TranslateAccelerator(&message);
  }
  // An input box of the control: the container's own windows are switched off meanwhile.
  if (const HWND control = ControlWindow(host); control != nullptr) {
    if (const HWND button = ChildWithText(control, L"&Eval"); button != nullptr) {
      const BoxCloser closer(L"Evaluate Function", IDCANCEL);
      ::SendMessageW(button, BM_CLICK, 0, 0);
    }
  }
  if (host.graph) As<IOleControl>(host.graph.Get())->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD);
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

TEST_P(SiteCallback, ends_in_a_defined_way) {
  const char* const call = kSiteCalls.at(std::get<0>(GetParam()));
  const Action& action = kActions.at(std::get<1>(GetParam()));
  const Apartment apartment;
  const Library library;  // fails the test when anything is left alive
  {
    Host host(library);
    int runs = 0;
    // The error of a call to a site is its status.
    const bool fails = action.doing == Doing::RaiseError;
    if (fails) host.site->refused = call;
    host.site->actions[call] = [&] {
      if (runs++ == 0 && !fails) action.run(host);
    };
    LiveThroughEveryCall(host);
    EXPECT_GE(runs, 1) << "the place was not reached";
    EXPECT_FALSE(host.site->inPlace);
    EXPECT_FALSE(host.site->userInterface);
    EXPECT_FALSE(static_cast<bool>(host.site->activeObject));
    // Another life in another window, for those that are still there.
    if (host.graph) {
      const HostWindow window;
      const auto site = Make<StrictSite>(window.Get());
      const auto object = As<IOleObject>(host.graph.Get());
      EXPECT_EQ(object->SetClientSite(site.Get()), S_OK);
      EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position),
                S_OK);
      EXPECT_TRUE(site->userInterface);
      EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
      EXPECT_FALSE(site->inPlace);
      EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    }
  }
}

// A container that refuses a step leaves the control inactive and usable.
class RefusingSite : public testing::TestWithParam<const char*> {};

TEST_P(RefusingSite, leaves_the_control_inactive) {
  const Apartment apartment;
  const Library library;
  HostWindow window;
  const auto site = Make<StrictSite>(window.Get());
  const auto graph = library.CreateGraph();
  const auto object = As<IOleObject>(graph.Get());
  object->SetClientSite(site.Get());
  site->refused = GetParam();
  const auto activate = [&] {
    return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position);
  };
  EXPECT_TRUE(FAILED(activate()));
  EXPECT_FALSE(site->userInterface);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  site->refused.clear();
  EXPECT_EQ(activate(), S_OK);
  EXPECT_TRUE(site->userInterface);
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Steps, RefusingSite,
                         testing::Values("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "OnUIActivate"),
                         [](const auto& step) { return std::string(step.param); });

std::string NameOf(const testing::TestParamInfo<std::tuple<std::size_t, std::size_t>>& info) {
  const auto [call, action] = info.param;
  return std::string(kSiteCalls.at(call)) + "_" + kActions.at(action).name;
}

INSTANTIATE_TEST_SUITE_P(EveryCall, SiteCallback,
                         testing::Combine(testing::Range(std::size_t{0}, kSiteCalls.size()),
                                          testing::Range(std::size_t{0}, kActionCount)),
                         NameOf);

}  // namespace
}  // namespace plotvane::tests
