// The host is not to be trusted: every host action inside every call out to the host ends in a defined way,
// with nothing used after its end and nothing left over.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

// Everything of one host, so that an action can get at all of it from inside a call.
struct Host {
  explicit Host(const Library& library) : graph(library.CreateGraph()) {
    site = Make<StrictSite>(window.Get());
    function = MakeFunction("a*x");
    table = MakeTable();
    surface = MakeSurface();
    sink = Make<EventSink>();
    cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
    CallByName(table.Get(), L"Change", DISPATCH_METHOD, {Variant("a"), Variant(2.0)});
    short step = 50;
    graph->put_PlotPixelStep(&step);
  }
  // Every cycle of references is the host's to break, as in life.
  ~Host() {
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
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void Activate() {
    const auto object = As<IOleObject>(graph.Get());
    object->SetClientSite(site.Get());
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position);
  }

  HostWindow window;
  ComPtr<StrictSite> site;
  ComPtr<::_Graph> graph;
  ComPtr<NamedObject> function;
  ComPtr<NamedObject> table;
  ComPtr<NamedObject> surface;
  ComPtr<EventSink> sink;
  DWORD cookie = 0;
};

// ---- What the host does ----

struct Action {
  const char* name;
  void (*run)(Host& host);
};

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
  host.graph->putref_VarTable(&object.Get());
}

void NoTable(Host& host) {
  if (!host.graph) return;
  Variant nothing(static_cast<IDispatch*>(nullptr));
  host.graph->putref_VarTable(&nothing.Get());
}

void NewSurface(Host& host) {
  if (host.graph) host.graph->putref_PIC(MakeSurface(50, 40).Get());
}

void Resize(Host& host) {
  if (!host.graph) return;
  SIZEL extent{5000, 4000};
  As<IOleObject>(host.graph.Get())->SetExtent(DVASPECT_CONTENT, &extent);
  const RECT rect{0, 0, 200, 150};
  As<IOleInPlaceObject>(host.graph.Get())->SetObjectRects(&rect, &rect);
}

void ChangeStep(Host& host) {
  if (!host.graph) return;
  short step = 7;
  host.graph->put_PlotPixelStep(&step);
}

void RaiseError(Host&) {
  throw RaisedError{static_cast<HRESULT>(0x80040BAD), L"Host", L"Raised by the host"};
}

// The modal loop of a message box: messages are handled while the control waits.
void PumpLikeAMessageBox(Host& host) {
  ::PostMessageW(host.window.Get(), WM_NULL, 0, 0);
  PumpMessages();
}

constexpr std::array kActions{
    Action{"release the last reference", &ReleaseLast},
    Action{"take the site away", &TakeSite},
    Action{"close the window", &CloseWindow},
    Action{"plot again", &PlotAgain},
    Action{"set the array", &NewArray},
    Action{"set the table", &NewTable},
    Action{"take the table away", &NoTable},
    Action{"set the surface", &NewSurface},
    Action{"resize", &Resize},
    Action{"change the step", &ChangeStep},
    Action{"raise an error", &RaiseError},
    Action{"handle messages", &PumpLikeAMessageBox},
};

// ---- Where the control calls out ----

struct Place {
  const char* name;
  // Makes `action` run at the next call at this place, once.
  void (*arm)(Host& host, std::function<void()> action);
};

// Puts the action before what the member does.
void ArmMember(NamedObject& object, const wchar_t* name, const std::function<void()>& action) {
  object.Intercept(name, action);
}

constexpr std::array kPlaces{
    Place{"PlotDone",
          [](Host& host, std::function<void()> action) { host.sink->action = std::move(action); }},
    Place{"Equation",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.function.Get(), L"Equation", action);
          }},
    Place{"Enabled",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.function.Get(), L"Enabled", action);
          }},
    Place{"DrawStyle",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.function.Get(), L"DrawStyle", action);
          }},
    Place{"DrawColor",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.function.Get(), L"DrawColor", action);
          }},
    Place{"QuickRedraw",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.function.Get(), L"QuickRedraw", action);
          }},
    Place{"GetIdValue",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.table.Get(), L"GetIdValue", action);
          }},
    Place{"Change",
          [](Host& host, std::function<void()> action) { ArmMember(*host.table.Get(), L"Change", action); }},
    Place{"Clear",
          [](Host& host, std::function<void()> action) { ArmMember(*host.surface.Get(), L"Clear", action); }},
    Place{"DrawLine",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.surface.Get(), L"DrawLine", action);
          }},
    Place{
        "Refresh",
        [](Host& host, std::function<void()> action) { ArmMember(*host.surface.Get(), L"Refresh", action); }},
    Place{"ScaleWidth",
          [](Host& host, std::function<void()> action) {
            ArmMember(*host.surface.Get(), L"ScaleWidth", action);
          }},
};

class Callback : public testing::TestWithParam<std::tuple<std::size_t, std::size_t, bool>> {};

TEST_P(Callback, ends_in_a_defined_way) {
  const auto [place, action, sited] = GetParam();
  const Apartment apartment;
  const Library library;  // fails the test when anything is left alive
  int runs = 0;
  {
    Host host(library);
    if (sited) host.Activate();
    Variant table(host.table.Get());
    ASSERT_EQ(host.graph->putref_VarTable(&table.Get()), S_OK);
    ASSERT_EQ(host.graph->putref_PIC(host.surface.Get()), S_OK);
    // The first resize keeps its errors to itself; it is over before the action waits.
    LONG width = 0;
    const bool asksSize = std::string(kPlaces[place].name) == "ScaleWidth";
    if (!asksSize) {
      ASSERT_EQ(host.graph->GetGraphWidth(&width), S_OK);
    }
    const auto run = kActions[action].run;
    kPlaces[place].arm(host, [&] {
      if (runs++ == 0) run(host);
    });
    // The call itself runs on a borrowed pointer: the host's own reference may go inside it.
    Variant array = ArrayOf({host.function.Get()});
    const HRESULT status = asksSize ? host.graph.Get()->GetGraphWidth(&width)
                                    : host.graph.Get()->SetYArray(&array.Get(), nullptr);
    EXPECT_GE(runs, 1) << "the place was not reached";
    // Either the call went on to its end, or an error came back as such.
    EXPECT_TRUE(status == S_OK || (static_cast<unsigned>(status) & 0xFFFF0000U) == 0x800A0000U ||
                status == static_cast<HRESULT>(0x80040BAD))
        << std::hex << status;
    if (kActions[action].run == &RaiseError) {
      // An event has no one to take its error; everywhere else it passes to the caller.
      const bool event = std::string(kPlaces[place].name) == "PlotDone";
      EXPECT_EQ(status, event ? S_OK : static_cast<HRESULT>(0x80040BAD));
    }
    // The control, if it is still there, goes on working with what it is given.
    if (host.graph) {
      const auto after = MakeFunction("x");
      Variant again = ArrayOf({after.Get()});
      Variant freshTable(MakeTable().Get());
      EXPECT_EQ(host.graph->putref_VarTable(&freshTable.Get()), S_OK);
      EXPECT_EQ(host.graph->putref_PIC(MakeSurface().Get()), S_OK);
      EXPECT_EQ(host.graph->SetYArray(&again.Get(), nullptr), S_OK);
      EXPECT_TRUE(control::com::ToBool(after->Field(L"QuickRedraw").Get()));
    }
  }
}

std::string NameOf(const testing::TestParamInfo<Callback::ParamType>& info) {
  std::string name = std::string(kPlaces[std::get<0>(info.param)].name) + "_" +
                     kActions[std::get<1>(info.param)].name +
                     (std::get<2>(info.param) ? "_active" : "_without_site");
  for (char& letter : name) {
    if (letter == ' ') letter = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Matrix, Callback,
                         testing::Combine(testing::Range(std::size_t{0}, kPlaces.size()),
                                          testing::Range(std::size_t{0}, kActions.size()), testing::Bool()),
                         NameOf);

// ---- Calls to the site ----

class SiteCallback : public testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {};

constexpr std::array kSiteCalls{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                "GetWindowContext",   "OnUIActivate",      "SetActiveObject",
                                "ShowObject",         "OnUIDeactivate",    "OnInPlaceDeactivate"};

TEST_P(SiteCallback, ends_in_a_defined_way) {
  const auto [call, action] = GetParam();
  const auto run = kActions[action].run;
  if (run == &RaiseError) GTEST_SKIP() << "calls to a site have no error but their status";
  const Apartment apartment;
  const Library library;
  {
    Host host(library);
    int runs = 0;
    host.site->actions[kSiteCalls[call]] = [&] {
      if (runs++ == 0) run(host);
    };
    const auto object = As<IOleObject>(host.graph.Get());
    object->SetClientSite(host.site.Get());
    object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, host.site.Get(), 0, host.window.Get(), &host.site->position);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_GE(runs, 1) << "the place was not reached";
    object->SetClientSite(nullptr);
    EXPECT_FALSE(host.site->inPlace);
    EXPECT_FALSE(host.site->userInterface);
  }
}

INSTANTIATE_TEST_SUITE_P(Matrix, SiteCallback,
                         testing::Combine(testing::Range(std::size_t{0}, kSiteCalls.size()),
                                          testing::Range(std::size_t{0}, kActions.size())));

// ---- Many lives ----

std::size_t PrivateBytes() {
  // Memory of the process's own heap, walked: the system's counters are coarse.
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  const HANDLE heap = ::GetProcessHeap();
  ::HeapLock(heap);
  while (::HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  ::HeapUnlock(heap);
  return bytes;
}

TEST(Lives, ten_thousand_controls_come_and_go_without_a_trace) {
  const Apartment apartment;
  const Library library;
  const auto live = [&](int count) {
    for (int life = 0; life < count; ++life) {
      const auto graph = library.CreateGraph();
      const auto function = MakeFunction("sin(x)");
      short step = 40;
      graph->put_PlotPixelStep(&step);
      Variant array = ArrayOf({function.Get()});
      ASSERT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
    }
  };
  live(100);
  const std::size_t before = PrivateBytes();
  live(10000);
  const std::size_t after = PrivateBytes();
  EXPECT_LT(after, before + 1024 * 1024);
  EXPECT_TRUE(library.CanUnload());
}

}  // namespace
}  // namespace plotvane::tests
