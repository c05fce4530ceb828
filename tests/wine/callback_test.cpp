// The host is not to be trusted: every host action inside every call to an object of the host ends in a
// defined way, with nothing used after its end and nothing left over.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/wine/callback_host.h"

namespace plotvane::tests {
namespace {

// ---- Where the control calls out ----

// The object that is called.
enum class Callee { Sink, Function, Table, Surface };

struct Place {
  Callee callee;
  const wchar_t* member;
  // Makes the control come to this place.
  HRESULT (*reach)(::_Graph& graph, VARIANT& functions);
};

HRESULT Plot(::_Graph& graph, VARIANT& functions) {
  return graph.SetYArray(&functions, nullptr);
}
HRESULT PlotDots(::_Graph& graph, VARIANT& functions) {
  graph.put_PlotStyle(DRAWDOT);
  return graph.SetYArray(&functions, nullptr);
}
HRESULT AskWidth(::_Graph& graph, VARIANT&) {
  LONG width = 0;
  return graph.GetGraphWidth(&width);
}
HRESULT AskHeight(::_Graph& graph, VARIANT&) {
  LONG height = 0;
  return graph.GetGraphHeight(&height);
}
HRESULT AskContext(::_Graph& graph, VARIANT&) {
  LONG context = 0;
  return graph.GetGraphHDC(&context);
}
HRESULT AskPenWidth(::_Graph& graph, VARIANT&) {
  short width = 0;
  return graph.get_PenWidth(&width);
}

constexpr std::array kPlaces{
    Place{Callee::Sink, L"PlotDone", &Plot},
    Place{Callee::Function, L"Equation", &Plot},
    Place{Callee::Function, L"Enabled", &Plot},
    Place{Callee::Function, L"DrawStyle", &Plot},
    Place{Callee::Function, L"DrawColor", &Plot},
    Place{Callee::Function, L"QuickRedraw", &Plot},
    Place{Callee::Table, L"GetIdValue", &Plot},
    Place{Callee::Table, L"Change", &Plot},
    Place{Callee::Surface, L"Clear", &Plot},
    Place{Callee::Surface, L"SetPixel", &PlotDots},
    Place{Callee::Surface, L"DrawLine", &Plot},
    Place{Callee::Surface, L"Refresh", &Plot},
    Place{Callee::Surface, L"PersistentDrawing", &Plot},
    Place{Callee::Surface, L"MousePointer", &Plot},
    Place{Callee::Surface, L"ScaleWidth", &AskWidth},
    Place{Callee::Surface, L"ScaleHeight", &AskHeight},
    Place{Callee::Surface, L"PenWidth", &AskPenWidth},
    Place{Callee::Surface, L"hDC", &AskContext},
};

// Runs `action` before the call that comes to the place.
void Arm(Host& host, const Place& place, std::function<void()> action) {
  switch (place.callee) {
    case Callee::Sink: host.sink->action = std::move(action); break;
    case Callee::Function: host.function->Intercept(place.member, std::move(action)); break;
    case Callee::Table: host.table->Intercept(place.member, std::move(action)); break;
    case Callee::Surface: host.surface->Intercept(place.member, std::move(action)); break;
  }
}

// ---- What comes of it ----

// Whether the call that comes to the place plots.
bool Plots(const Place& place) {
  return place.reach == &Plot || place.reach == &PlotDots;
}

struct Outcome {
  HRESULT status = S_OK;
  int plotDone = 0;
};

// Most of what a host does is done there and then, and the call that is under way goes on to its end. A plot
// inside a plot has an event of its own. An error of the host passes to the caller; an event has no one to
// take it.
Outcome ExpectedOf(const Place& place, const Action& action, bool firstCall) {
  const bool isEvent = place.callee == Callee::Sink;
  const bool nests = action.doing == Doing::PlotAgain || action.doing == Doing::SetArray;
  Outcome usual{S_OK, (Plots(place) ? 1 : 0) + (nests ? 1 : 0)};
  if (action.doing == Doing::RaiseError && !isEvent) return {kRaised, 0};
  if (action.doing != Doing::TakeTableAway || !Plots(place)) return usual;
  // Without a table nothing can be evaluated. Two places are past that: the event, and the note that the path
  // is kept. In the first store of x it is the first point that fails, which only skips the function.
  const std::wstring_view member = place.member;
  const bool tooLate = isEvent || member == L"QuickRedraw" || (member == L"Change" && firstCall);
  return tooLate ? usual : Outcome{Standard(91), 0};
}

// What the host has set stays set, whatever was under way.
void ExpectDone(Host& host, Doing doing) {
  short step = 0;
  LONG width = 0;
  Variant table;
  switch (doing) {
    case Doing::ChangeStep:
      EXPECT_EQ(host.graph->get_PlotPixelStep(&step), S_OK);
      EXPECT_EQ(step, 7);
      break;
    case Doing::SetSurface:
      EXPECT_EQ(host.graph->GetGraphWidth(&width), S_OK);
      EXPECT_EQ(width, 50);
      break;
    case Doing::SetTable:
    case Doing::TakeTableAway:
      EXPECT_EQ(host.graph->get_VarTable(table.Receive()), S_OK);
      EXPECT_NE(table.Get().pdispVal, static_cast<IDispatch*>(host.table.Get()));
      break;
    case Doing::SetArray: {
      host.function->calls.clear();
      EXPECT_EQ(host.graph->PlotAllY(), S_OK);
      EXPECT_EQ(host.function->calls[L"Enabled"], 0) << "it is no longer among the functions";
      break;
    }
    default: break;
  }
}

void ExpectItWorksOn(Host& host) {
  const auto after = MakeFunction("x");
  Variant again = ArrayOf({after.Get()});
  Variant freshTable(MakeTable().Get());
  EXPECT_EQ(host.graph->putref_VarTable(&freshTable.Get()), S_OK);
  EXPECT_EQ(host.graph->putref_PIC(MakeSurface().Get()), S_OK);
  EXPECT_EQ(host.graph->SetYArray(&again.Get(), nullptr), S_OK);
  EXPECT_TRUE(control::com::ToBool(after->Field(L"QuickRedraw").Get()));
}

// ---- The matrix ----

enum class Moment { FirstCall, ThirdCall, FirstCallInContainer };

using Cell = std::tuple<std::size_t, std::size_t, Moment>;
class Callback : public testing::TestWithParam<Cell> {};

TEST_P(Callback, ends_in_a_defined_way) {
  const Place& place = kPlaces.at(std::get<0>(GetParam()));
  const Action& action = kActions.at(std::get<1>(GetParam()));
  const Moment moment = std::get<2>(GetParam());
  const Apartment apartment;
  const Library library;  // fails the test when anything is left alive
  int calls = 0;
  int runs = 0;
  {
    Host host(library);
    if (moment == Moment::FirstCallInContainer) host.Activate();
    Variant table(host.table.Get());
    ASSERT_EQ(host.graph->putref_VarTable(&table.Get()), S_OK);
    ASSERT_EQ(host.graph->putref_PIC(host.surface.Get()), S_OK);
    // The first resize keeps its errors to itself; it is over before the action waits.
    LONG width = 0;
    ASSERT_EQ(host.graph->GetGraphWidth(&width), S_OK);
    const int turn = moment == Moment::ThirdCall ? 3 : 1;
    Arm(host, place, [&] {
      if (++calls != turn) return;
      ++runs;
      action.run(host);
    });
    // The call itself runs on a borrowed pointer: the host's own reference may go inside it.
    Variant array = ArrayOf({host.function.Get()});
    const HRESULT status = place.reach(*host.graph.Get(), array.Get());
    EXPECT_EQ(runs, 1) << "the place was not reached";
    const Outcome expected = ExpectedOf(place, action, moment != Moment::ThirdCall);
    EXPECT_EQ(status, expected.status) << std::hex << status;
    EXPECT_EQ(host.sink->plotDone, expected.plotDone);
    EXPECT_EQ(host.InTable("x"), kOldX) << "x was not given back";
    EXPECT_EQ(host.graph.Get() == nullptr, action.doing == Doing::ReleaseLastReference);
    if (host.graph) {
      ExpectDone(host, action.doing);
      ExpectItWorksOn(host);
    }
  }
}

std::string NameOf(const testing::TestParamInfo<Cell>& info) {
  const auto [place, action, moment] = info.param;
  std::string name = control::com::Utf8(kPlaces.at(place).member) + "_" + kActions.at(action).name;
  if (moment == Moment::ThirdCall) name += "_in_the_third_call";
  if (moment == Moment::FirstCallInContainer) name += "_in_a_container";
  return name;
}

std::vector<std::size_t> PlacesReachedOften() {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < kPlaces.size(); ++place) {
    const std::wstring_view member = kPlaces.at(place).member;
    if (member == L"GetIdValue" || member == L"Change" || member == L"SetPixel" || member == L"DrawLine")
      places.push_back(place);
  }
  return places;
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, Callback,
                         testing::Combine(testing::Range(std::size_t{0}, kPlaces.size()),
                                          testing::Range(std::size_t{0}, kActionCount),
                                          testing::Values(Moment::FirstCall, Moment::FirstCallInContainer)),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(LongLoops, Callback,
                         testing::Combine(testing::ValuesIn(PlacesReachedOften()),
                                          testing::Range(std::size_t{0}, kActionCount),
                                          testing::Values(Moment::ThirdCall)),
                         NameOf);

}  // namespace
}  // namespace plotvane::tests
