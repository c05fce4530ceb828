#include "tests/wine/callback_host.h"

#include <gtest/gtest.h>

#include <utility>

#include "control/com/host_object.h"

namespace plotvane::tests {

namespace {

Variant Whole(std::int32_t value) {
  return Variant(value);
}

void ReleaseLast(Host& host) {
  // With a site there would be other references; a control without one dies here.
  host.graph.Reset();
}

void TakeSite(Host& host) {
  if (host.graph) As<IOleObject>(host.graph.Get())->SetClientSite(nullptr);
}

void CloseWindow(Host& host) {
  host.window.Destroy();
}

void PlotAgain(Host& host) {
  if (host.graph) host.graph->PlotAllY();
}

void NewArray(Host& host) {
  if (!host.graph) return;
  const auto other = MakeFunction("x+1");
  Variant array = ArrayOf({other.Get()});
  host.graph->SetYArray(&array.Get(), nullptr);
}

void NewTable(Host& host) {
  if (!host.graph) return;
  const auto other = MakeTable();
  CallByName(other.Get(), L"Change", DISPATCH_METHOD, {Variant("a"), Variant(3.0)});
  Variant object(other.Get());
  EXPECT_EQ(host.graph->putref_VarTable(&object.Get()), S_OK);
}

void NoTable(Host& host) {
  if (!host.graph) return;
  Variant nothing(static_cast<IDispatch*>(nullptr));
  EXPECT_EQ(host.graph->putref_VarTable(&nothing.Get()), S_OK);
}

void NewSurface(Host& host) {
  if (!host.graph) return;
  EXPECT_EQ(host.graph->putref_PIC(MakeSurface(50, 40).Get()), S_OK);
}

void Resize(Host& host) {
  if (!host.graph) return;
  SIZEL extent{5000, 4000};
  EXPECT_EQ(As<IOleObject>(host.graph.Get())->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  const RECT rect{0, 0, 200, 150};
  EXPECT_EQ(As<IOleInPlaceObject>(host.graph.Get())->SetObjectRects(&rect, &rect), S_OK);
}

void ChangeStep(Host& host) {
  if (!host.graph) return;
  short step = 7;
  EXPECT_EQ(host.graph->put_PlotPixelStep(&step), S_OK);
}

void RaiseError(Host&) {
  throw RaisedError{kRaised, L"Host", L"Raised by the host"};
}

// The box handles the messages of every window of the thread, those of the control too, until it is closed.
void ShowMessage(Host& host) {
  if (host.graph) {
    HWND control = nullptr;
    if (As<IOleInPlaceObject>(host.graph.Get())->GetWindow(&control) == S_OK)
      ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
  constexpr wchar_t kTitle[] = L"A message of the host";
  const BoxCloser closer(kTitle);
  EXPECT_EQ(::MessageBoxW(host.window.Get(), L"The host has something to say.", kTitle, MB_OK), IDOK);
}

}  // namespace

const std::array<Action, kActionCount> kActions{{
    {Doing::ReleaseLastReference, "release_the_last_reference", &ReleaseLast},
    {Doing::TakeSiteAway, "take_the_site_away", &TakeSite},
    {Doing::CloseWindow, "close_the_window", &CloseWindow},
    {Doing::PlotAgain, "plot_again", &PlotAgain},
    {Doing::SetArray, "set_the_array", &NewArray},
    {Doing::SetTable, "set_the_table", &NewTable},
    {Doing::TakeTableAway, "take_the_table_away", &NoTable},
    {Doing::SetSurface, "set_the_surface", &NewSurface},
    {Doing::Resize, "resize", &Resize},
    {Doing::ChangeStep, "change_the_step", &ChangeStep},
    {Doing::RaiseError, "raise_an_error", &RaiseError},
    {Doing::ShowMessage, "show_a_message", &ShowMessage},
}};

// ---- Host ----

Host::Host(const Library& library) : graph(library.CreateGraph()) {
  site = Make<StrictSite>(window.Get());
  function = MakeFunction("a*x");
  table = MakeTable();
  surface = MakeSurface();
  // What a surface may have besides.
  surface->DefineField(L"PersistentDrawing", Variant(true));
  surface->DefineField(L"MousePointer", Whole(0));
  surface->DefineField(L"hDC", Whole(0));
  sink = Make<EventSink>();
  cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
  CallByName(table.Get(), L"Change", DISPATCH_METHOD, {Variant("a"), Variant(2.0)});
  CallByName(table.Get(), L"Change", DISPATCH_METHOD, {Variant("x"), Variant(kOldX)});
  short step = 50;
  graph->put_PlotPixelStep(&step);
}

Host::~Host() {
  sink->action = nullptr;
  site->actions.clear();
  if (graph) {
    if (const auto object = As<IOleObject>(graph.Get())) {
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    }
  }
  graph.Reset();
}

void Host::Activate() {
  const auto object = As<IOleObject>(graph.Get());
  object->SetClientSite(site.Get());
  object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position);
}

double Host::InTable(const char* id) {
  Variant value;
  Variant reference = control::com::ReferenceTo(value);
  CallByName(table.Get(), L"GetIdValue", DISPATCH_METHOD, {Variant(id), reference});
  return control::com::ToDouble(value.Get());
}

// ---- BoxCloser ----

BoxCloser::BoxCloser(std::wstring title, WORD button)
    : mTitle(std::move(title)), mButton(button), mThread([this] { Watch(); }) {}

BoxCloser::~BoxCloser() {
  mDone = true;
  mThread.join();
}

void BoxCloser::Watch() const {
  constexpr wchar_t kDialogClass[] = L"#32770";
  constexpr DWORD kPause = 5;
  while (!mDone) {
    if (const HWND box = ::FindWindowW(kDialogClass, mTitle.c_str()); box != nullptr) {
      ::PostMessageW(box, WM_COMMAND, mButton, 0);
    }
    ::Sleep(kPause);
  }
}

}  // namespace plotvane::tests
