// Hosts with unmasked traps, another precision or another rounding neither crash nor get other results, and
// find their own state in their callbacks and afterwards.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cfenv>
#include <cfloat>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

constexpr bool k32Bits = sizeof(void*) == 4;
constexpr unsigned kDivideByZeroMask = 0x0200;
constexpr unsigned kInvalidMask = 0x0080;
constexpr unsigned kRoundUp = 0x4000;
constexpr unsigned kFlushToZero = 0x8000;
constexpr unsigned kFlags = 0x003F;  // not part of the state that counts
constexpr unsigned kControls = _MCW_PC | _MCW_RC | _MCW_EM;

// The state of a thread: of the vector unit, and of the older unit that only 32-bit programs have to do with.
struct State {
  unsigned vector = 0;
  unsigned older = 0;
  friend bool operator==(const State&, const State&) = default;
};

std::ostream& operator<<(std::ostream& out, const State& state) {
  return out << std::hex << state.vector << "/" << state.older;
}

State Now() {
  return {::_mm_getcsr() & ~kFlags, k32Bits ? ::_control87(0, 0) & kControls : 0};
}

void Set(const State& state) {
  if constexpr (k32Bits) {
    ::_clearfp();
    ::_control87(state.older, kControls);
  }
  ::_mm_setcsr(state.vector);
}

// States that hosts come with.
struct NamedState {
  const char* name;
  State state;
};

std::vector<NamedState> HostStates() {
  const State usual = Now();
  std::vector<NamedState> states{
      {"division by zero traps",
       {usual.vector & ~kDivideByZeroMask, usual.older & ~unsigned{_EM_ZERODIVIDE}}},
      {"invalid operations trap", {usual.vector & ~kInvalidMask, usual.older & ~unsigned{_EM_INVALID}}},
      {"rounds up", {usual.vector | kRoundUp, (usual.older & ~unsigned{_MCW_RC}) | _RC_UP}},
      {"flushes tiny numbers", {usual.vector | kFlushToZero, usual.older}},
  };
  if constexpr (k32Bits) {
    states.push_back({"24 bits", {usual.vector, (usual.older & ~unsigned{_MCW_PC}) | _PC_24}});
    states.push_back({"64 bits", {usual.vector, (usual.older & ~unsigned{_MCW_PC}) | _PC_64}});
  }
  if constexpr (!k32Bits) {
    for (NamedState& host : states) host.state.older = 0;
  }
  return states;
}

class FloatingPoint : public testing::Test {
 protected:
  ~FloatingPoint() override { std::fesetenv(&mEnvironment); }

  // Runs in that state and tells the state afterwards.
  static State In(const State& state, const std::function<void()>& run) {
    const State usual = Now();
    Set(state);
    run();
    const State after = Now();
    Set(usual);
    return after;
  }

  // Values that another rounding, precision or treatment of tiny numbers would change, and those of divisions
  // by zero and of invalid operations.
  static std::vector<double> Results(const ComPtr<::_Graph>& graph) {
    std::vector<double> results;
    for (const wchar_t* text :
         {L"1/3", L"2^0.5", L"sin(1)", L"exp(-740)", L"0.1+0.2", L"1/0", L"sqr(-1)", L"ln(0)"}) {
      BSTR raw = ::SysAllocString(text);
      EXPECT_EQ(graph->put_XMinStringEval(&raw), S_OK);
      ::SysFreeString(raw);
      graph->get_Xmin(&results.emplace_back());
    }
    return results;
  }

  Apartment apartment;
  Library library;

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
  for (const NamedState& host : HostStates()) {
    std::vector<double> results;
    const State after = In(host.state, [&] { results = Results(graph); });
    EXPECT_EQ(results, expected) << host.name;
    EXPECT_EQ(after, host.state) << host.name;
  }
}

TEST_F(FloatingPoint, every_kind_of_entry_gives_the_hosts_state_back) {
  const auto function = MakeFunction("1/x+sqr(x)");
  for (const NamedState& host : HostStates()) {
    HostWindow window;
    const auto site = Make<StrictSite>(window.Get());
    ComPtr<::_Graph> graph;
    Variant array = ArrayOf({function.Get()});
    const auto expectBack = [&](const char* entry, const std::function<void()>& run) {
      EXPECT_EQ(In(host.state, run), host.state) << entry << ", " << host.name;
    };
    expectBack("creation", [&] { graph = library.CreateGraph(); });
    const auto object = As<IOleObject>(graph.Get());
    expectBack("SetClientSite", [&] { object->SetClientSite(site.Get()); });
    expectBack("DoVerb", [&] {
      object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position);
    });
    expectBack("a plot", [&] { EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK); });
    expectBack("a late-bound call", [&] { CallByName(graph.Get(), L"ZTrig", DISPATCH_METHOD); });
    expectBack("a failing call", [&] { CallByName(graph.Get(), L"NoSuchMember", DISPATCH_METHOD); });
    HWND control = nullptr;
    As<IOleInPlaceObject>(graph.Get())->GetWindow(&control);
    expectBack("painting", [&] {
      ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    });
    expectBack("a new size", [&] { ::SetWindowPos(control, nullptr, 0, 0, 300, 220, SWP_NOZORDER); });
    expectBack("the mouse", [&] {
      for (HWND child = ::GetWindow(control, GW_CHILD); child != nullptr;
           child = ::GetWindow(child, GW_HWNDNEXT)) {
        ::SendMessageW(child, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
      }
    });
    expectBack("a button", [&] {
      MSG message{};
      message.message = WM_SYSCHAR;
      message.wParam = 'g';
      As<IOleControl>(graph.Get())->OnMnemonic(&message);
    });
    expectBack("a dialog", [&] {
      graph->ShowFormatEditor();
      PumpMessages();
    });
    expectBack("the end", [&] {
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    });
  }
}

// An object whose default property a control may ask for.
ComPtr<NamedObject> MakeHolder(const std::function<void()>& asked) {
  auto holder = Make<NamedObject>();
  holder->DefineDefault([asked] {
    asked();
    return Variant(true);
  });
  return holder;
}

// Takes every kind of news.
class NewsSink final : public Implements<IPropertyNotifySink, IAdviseSink> {
 public:
  explicit NewsSink(std::function<void()> news) : mNews(std::move(news)) {}
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID) noexcept override { return Note(); }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return Note(); }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override { Note(); }
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override { Note(); }
  void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override { Note(); }
  void STDMETHODCALLTYPE OnSave() noexcept override { Note(); }
  void STDMETHODCALLTYPE OnClose() noexcept override { Note(); }

 private:
  HRESULT Note() noexcept {
    mNews();
    return S_OK;
  }
  std::function<void()> mNews;
};

TEST_F(FloatingPoint, the_host_finds_its_state_in_every_callback_and_afterwards) {
  for (const NamedState& host : HostStates()) {
    HostWindow window;
    std::map<std::string, int> reached;
    const auto check = [&](const std::string& place) {
      return [&reached, &host, place] {
        ++reached[place];
        EXPECT_EQ(Now(), host.state) << place << ", " << host.name;
      };
    };
    const auto site = Make<StrictSite>(window.Get());
    for (const char* call : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                             "OnUIActivate", "SetActiveObject", "SetBorderSpace", "ShowObject", "UserMode",
                             "UIDead", "OnUIDeactivate", "OnInPlaceDeactivate"}) {
      site->actions[call] = check(call);
    }
    const auto function = MakeFunction("x");
    const auto holder = MakeHolder(check("default property"));
    function->Field(L"Enabled") = Variant(holder.Get());
    for (const wchar_t* field : {L"Equation", L"Enabled", L"DrawStyle", L"DrawColor", L"QuickRedraw"})
      function->Intercept(field, check(control::com::Utf8(field)));
    const auto table = MakeTable();
    table->Intercept(L"GetIdValue", check("GetIdValue"));
    table->Intercept(L"Change", check("Change"));
    const auto surface = MakeSurface();
    for (const wchar_t* member : {L"Clear", L"DrawLine", L"Refresh", L"ScaleWidth", L"ScaleHeight"})
      surface->Intercept(member, check(control::com::Utf8(member)));
    const auto sink = Make<EventSink>();
    sink->action = check("PlotDone");
    const auto news = Make<NewsSink>(check("news"));
    const auto graph = library.CreateGraph();
    const auto object = As<IOleObject>(graph.Get());
    const State after = In(host.state, [&] {
      Connect(graph.Get(), DIID___Graph, sink.Get());
      Connect(graph.Get(), IID_IPropertyNotifySink, static_cast<IPropertyNotifySink*>(news.Get()));
      DWORD connection = 0;
      object->Advise(news.Get(), &connection);
      As<IViewObject>(graph.Get())->SetAdvise(DVASPECT_CONTENT, 0, news.Get());
      object->SetClientSite(site.Get());
      object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position);
      Variant tableObject(table.Get());
      EXPECT_EQ(graph->putref_VarTable(&tableObject.Get()), S_OK);
      EXPECT_EQ(graph->putref_PIC(surface.Get()), S_OK);
      Variant array = ArrayOf({function.Get()});
      EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
      LONG side = 0;
      EXPECT_EQ(graph->GetGraphWidth(&side), S_OK);
      EXPECT_EQ(graph->GetGraphHeight(&side), S_OK);
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    });
    EXPECT_EQ(after, host.state) << host.name;
    EXPECT_EQ(reached.size(), 12U + 1 + 5 + 2 + 5 + 2) << "one for each place";
    EXPECT_GE(reached["news"], 4);
    EXPECT_GT(reached["Change"], 100);
    As<IViewObject>(graph.Get())->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
  }
}

TEST_F(FloatingPoint, what_the_host_changes_in_a_callback_is_its_state_from_then_on) {
  const auto graph = library.CreateGraph();
  const std::vector<double> expected = Results(graph);
  const State usual = Now();
  for (const NamedState& changed : HostStates()) {
    const auto function = MakeFunction("1/x");
    const auto sink = Make<EventSink>();
    const DWORD cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
    State inEvent{};
    function->Intercept(L"Equation", [&] { Set(changed.state); });
    sink->action = [&] { inEvent = Now(); };
    Variant array = ArrayOf({function.Get()});
    std::vector<double> results;
    const State after = In(usual, [&] {
      EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
      results = Results(graph);
    });
    EXPECT_EQ(inEvent, changed.state) << changed.name;
    EXPECT_EQ(after, changed.state) << changed.name;
    EXPECT_EQ(results, expected) << changed.name;
    graph->put_Xmin(-10);
    Disconnect(graph.Get(), DIID___Graph, cookie);
  }
}

}  // namespace
}  // namespace plotvane::tests
