// Life in a strict container, and every order of ending it.
#include <gtest/gtest.h>

#include "tests/wine/hosting_fixture.h"

namespace plotvane::tests {
namespace {

TEST_F(Hosting, a_whole_life_in_a_strict_container) {
  const auto control = As<IOleControl>(graph.Get());
  const auto inPlace = As<IOleInPlaceObject>(graph.Get());
  const auto view = As<IViewObjectEx>(graph.Get());
  const auto stream = As<IPersistStreamInit>(graph.Get());
  // Created.
  DWORD status = 0;
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);
  EXPECT_EQ(Do(OLEIVERB_SHOW), E_UNEXPECTED) << "there is no site yet";
  // Sited, with new state.
  EXPECT_EQ(object->SetClientSite(site.Get()), S_OK);
  EXPECT_EQ(site->Count("UserMode"), 1);
  ComPtr<IOleClientSite> told;
  EXPECT_EQ(object->GetClientSite(told.Receive()), S_OK);
  EXPECT_EQ(told.Get(), static_cast<IOleClientSite*>(site.Get()));
  EXPECT_EQ(stream->InitNew(), S_OK);
  EXPECT_EQ(object->SetHostNames(L"Test", L"Document"), S_OK);
  // Sized before it is active.
  SIZEL extent{10583, 7938};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  SIZEL now{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &now), S_OK);
  EXPECT_EQ(now.cx, 10583);
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
  // Active in place.
  EXPECT_EQ(ControlWindow(), nullptr);
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_TRUE(site->inPlace);
  EXPECT_EQ(::GetParent(ControlWindow()), window.Get());
  RECT client{};
  ::GetClientRect(ControlWindow(), &client);
  EXPECT_EQ(client.right, 400);
  EXPECT_EQ(client.bottom, 300);
  // Once more changes nothing.
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_EQ(site->Count("OnInPlaceActivate"), 1);
  // Moved and resized.
  const RECT moved{10, 20, 310, 270};
  EXPECT_EQ(inPlace->SetObjectRects(&moved, &moved), S_OK);
  ::GetClientRect(ControlWindow(), &client);
  EXPECT_EQ(client.right, 300);
  EXPECT_EQ(client.bottom, 250);
  LONG width = 0;
  EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
  EXPECT_GT(width, 0);
  EXPECT_LE(width, 300);
  EXPECT_EQ(inPlace->SetObjectRects(nullptr, nullptr), E_POINTER);
  // Hidden and shown.
  EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
  EXPECT_FALSE(::IsWindowVisible(ControlWindow()));
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(::IsWindowVisible(ControlWindow()));
  // With user interface, and without again.
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_TRUE(site->userInterface);
  EXPECT_TRUE(static_cast<bool>(site->activeObject));
  EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
  EXPECT_FALSE(site->userInterface);
  EXPECT_FALSE(static_cast<bool>(site->activeObject));
  EXPECT_TRUE(site->inPlace);
  PumpMessages();
  // Draws itself anywhere.
  const HDC metafile = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  const RECTL bounds{0, 0, 400, 300};
  EXPECT_EQ(
      view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, metafile, &bounds, &bounds, nullptr, 0),
      S_OK);
  ::DeleteEnhMetaFile(::CloseEnhMetaFile(metafile));
  EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, metafile, &bounds, nullptr, nullptr, 0),
            DV_E_DVASPECT);
  // The container's keys are its own.
  CONTROLINFO info{};
  info.cb = sizeof info;
  EXPECT_EQ(control->GetControlInfo(&info), S_OK);
  EXPECT_GT(info.cAccel, 0);
  ::DestroyAcceleratorTable(info.hAccel);
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  // Saves nothing, loads nothing.
  EXPECT_EQ(stream->IsDirty(), S_FALSE);
  ULARGE_INTEGER size{};
  EXPECT_EQ(stream->GetSizeMax(&size), S_OK);
  EXPECT_EQ(size.QuadPart, 0U);
  // Deactivated, activated again.
  EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(ControlWindow(), nullptr);
  EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK) << "twice";
  EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
  EXPECT_TRUE(site->userInterface);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  // Closed and let go.
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

TEST_F(Hosting, ends_in_the_order_close_site_release) {
  Activate();
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  End();
  EXPECT_FALSE(site->inPlace);
}

TEST_F(Hosting, ends_by_taking_the_site_away) {
  Activate();
  Do(OLEIVERB_UIACTIVATE);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_FALSE(site->userInterface);
  EXPECT_FALSE(site->inPlace);
  End();
}

TEST_F(Hosting, ends_by_release_without_close) {
  Activate();
  object.Reset();
  graph.Reset();
  EXPECT_FALSE(site->inPlace);
  EXPECT_TRUE(library.CanUnload());
}

TEST_F(Hosting, ends_after_the_parent_took_the_window) {
  Activate();
  window.Destroy();
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  End();
  EXPECT_FALSE(site->inPlace);
}

TEST_F(Hosting, ends_after_deactivation_only) {
  Activate();
  EXPECT_EQ(As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate(), S_OK);
  object.Reset();
  graph.Reset();
  EXPECT_TRUE(library.CanUnload());
}

TEST_F(Hosting, plots_the_same_with_and_without_a_window) {
  Activate();
  const auto function = MakeFunction("x^2/10");
  Variant array = ArrayOf({function.Get()});
  EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  EXPECT_TRUE(control::com::ToBool(function->Field(L"QuickRedraw").Get()));
  LONG before = 0;
  graph->GetGraphWidth(&before);
  As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate();
  LONG after = 0;
  EXPECT_EQ(graph->GetGraphWidth(&after), S_OK);
  EXPECT_EQ(after, before);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  End();
}

TEST_F(Hosting, the_curve_stays_over_deactivation_and_another_activation) {
  Activate();
  const auto function = MakeFunction("0*x+5", RGB(255, 0, 0));
  Variant array = ArrayOf({function.Get()});
  ASSERT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  const Bitmap before = Picture();
  EXPECT_GT(before.Count(RGB(255, 0, 0)), 300);
  function->calls.clear();
  As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate();
  EXPECT_EQ(before.DifferentPixels(Picture()), 0);
  ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_EQ(before.DifferentPixels(Picture()), 0);
  EXPECT_EQ(function->calls[L"Equation"], 0) << "it was not drawn anew";
  End();
}

// The site is the container's to take away: some ask for it after closing, and some show the control once
// more.
TEST_F(Hosting, a_closed_control_keeps_its_site_and_can_be_shown_again) {
  Activate();
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  ComPtr<IOleClientSite> told;
  EXPECT_EQ(object->GetClientSite(told.Receive()), S_OK);
  EXPECT_EQ(told.Get(), static_cast<IOleClientSite*>(site.Get()));
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(site->inPlace);
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK) << "there is nothing to save";
  EXPECT_EQ(object->Close(OLECLOSE_PROMPTSAVE), S_OK) << "twice, and nobody is asked";
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->GetClientSite(told.Receive()), S_OK);
  EXPECT_EQ(told.Get(), nullptr);
  End();
}

TEST_F(Hosting, a_container_that_refuses_leaves_the_control_inactive) {
  const auto refusing = Make<EventSink>();  // no site interface at all
  EXPECT_EQ(object->SetClientSite(site.Get()), S_OK);
  site->actions["OnInPlaceActivate"] = [&] { As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate(); };
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_ABORT);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(ControlWindow(), nullptr);
  site->actions.clear();
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  End();
}

TEST_F(Hosting, quick_activation_does_what_the_single_calls_do) {
  const auto sink = Make<EventSink>();
  QACONTAINER container{};
  QACONTROL control{};
  container.cbSize = sizeof container;
  container.pClientSite = site.Get();
  container.pUnkEventSink = sink.Get();
  control.cbSize = sizeof control;
  ASSERT_EQ(As<IQuickActivate>(graph.Get())->QuickActivate(&container, &control), S_OK);
  EXPECT_EQ(control.dwMiscStatus, 131473U);
  EXPECT_NE(control.dwEventCookie, 0U);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  End();
}

}  // namespace
}  // namespace plotvane::tests
