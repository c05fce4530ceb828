// Hosts with unmasked traps, another precision or another rounding neither crash nor get other results, and
// find their own state in their callbacks and afterwards.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cfenv>
#include <cfloat>
#include <vector>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

constexpr unsigned kDivideByZeroMask = 0x0200;
constexpr unsigned kRoundUp = 0x4000;
constexpr unsigned kFlushToZero = 0x8000;
constexpr unsigned kFlags = 0x003F;  // not part of the state that counts

unsigned VectorState() {
  return ::_mm_getcsr() & ~kFlags;
}

class FloatingPoint : public testing::Test {
 protected:
  ~FloatingPoint() override { std::fesetenv(&mEnvironment); }

  Apartment apartment;
  Library library;

  // Values that another rounding, precision or treatment of tiny numbers would change.
  static std::vector<double> Results(const ComPtr<::_Graph>& graph) {
    std::vector<double> results;
    for (const wchar_t* text : {L"1/3", L"2^0.5", L"sin(1)", L"exp(-740)", L"0.1+0.2"}) {
      BSTR raw = ::SysAllocString(text);
      EXPECT_EQ(graph->put_XMinStringEval(&raw), S_OK);
      ::SysFreeString(raw);
      graph->get_Xmin(&results.emplace_back());
    }
    return results;
  }

 private:
  std::fenv_t mEnvironment = [] {
    std::fenv_t environment;
    std::fegetenv(&environment);
    return environment;
  }();
};

TEST_F(FloatingPoint, results_do_not_depend_on_the_hosts_state) {
  const auto graph = library.CreateGraph();
  const std::vector<double> expected = Results(graph);
  const unsigned usual = ::_mm_getcsr();
  for (const unsigned state : {usual | kRoundUp, usual | kFlushToZero, usual & ~kDivideByZeroMask}) {
    ::_mm_setcsr(state);
    const std::vector<double> results = Results(graph);
    ::_mm_setcsr(usual);
    EXPECT_EQ(results, expected) << std::hex << state;
  }
  if constexpr (sizeof(void*) == 4) {
    ::_control87(_PC_24, _MCW_PC);
    const std::vector<double> results = Results(graph);
    ::_control87(_PC_53, _MCW_PC);
    EXPECT_EQ(results, expected);
  }
}

TEST_F(FloatingPoint, an_unmasked_division_by_zero_does_not_trap) {
  const auto graph = library.CreateGraph();
  const auto function = MakeFunction("1/x");
  Variant array = ArrayOf({function.Get()});
  const unsigned usual = ::_mm_getcsr();
  ::_mm_setcsr(usual & ~kDivideByZeroMask);
  const HRESULT status = graph->SetYArray(&array.Get(), nullptr);
  const unsigned after = VectorState();
  ::_mm_setcsr(usual);
  EXPECT_EQ(status, S_OK);
  EXPECT_EQ(after, usual & ~kDivideByZeroMask & ~kFlags);
}

TEST_F(FloatingPoint, the_host_finds_its_state_in_every_callback_and_afterwards) {
  const auto graph = library.CreateGraph();
  const auto function = MakeFunction("x");
  const auto table = MakeTable();
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  Variant object(table.Get());
  graph->putref_VarTable(&object.Get());
  const unsigned usual = ::_mm_getcsr();
  const unsigned own = (usual & ~kDivideByZeroMask & ~kFlags) | kFlushToZero;
  int checked = 0;
  const auto check = [&] {
    ++checked;
    EXPECT_EQ(VectorState(), own);
  };
  function->Intercept(L"Equation", check);
  function->Intercept(L"QuickRedraw", check);
  table->Intercept(L"GetIdValue", check);
  table->Intercept(L"Change", check);
  sink->action = check;
  Variant array = ArrayOf({function.Get()});
  ::_mm_setcsr(own);
  const HRESULT status = graph->SetYArray(&array.Get(), nullptr);
  const unsigned after = VectorState();
  ::_mm_setcsr(usual);
  EXPECT_EQ(status, S_OK);
  EXPECT_EQ(after, own);
  EXPECT_GT(checked, 100);
}

TEST_F(FloatingPoint, the_other_unit_keeps_its_precision_and_masks) {
  if constexpr (sizeof(void*) == 4) {
    const auto graph = library.CreateGraph();
    const unsigned before = ::_control87(0, 0);
    ::_control87(_PC_24 | _RC_UP, _MCW_PC | _MCW_RC);
    const unsigned host = ::_control87(0, 0) & (_MCW_PC | _MCW_RC | _MCW_EM);
    graph->PlotAllY();
    const unsigned after = ::_control87(0, 0) & (_MCW_PC | _MCW_RC | _MCW_EM);
    ::_control87(before, _MCW_PC | _MCW_RC);
    EXPECT_EQ(after, host);
  }
}

}  // namespace
}  // namespace plotvane::tests
