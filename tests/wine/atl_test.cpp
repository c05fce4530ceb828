// Life in Wine's own container, in every version that it has.
#include <gtest/gtest.h>

#include <string>

#include "tests/wine/bitmap.h"
#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

struct Version {
  const wchar_t* library;
  const wchar_t* windowClass;
  const char* name;
};

constexpr Version kVersions[]{
    {L"atl.dll", L"AtlAxWin", "atl"},          {L"atl80.dll", L"AtlAxWin80", "atl80"},
    {L"atl90.dll", L"AtlAxWin90", "atl90"},    {L"atl100.dll", L"AtlAxWin100", "atl100"},
    {L"atl110.dll", L"AtlAxWin110", "atl110"},
};

constexpr LONG kRed = RGB(255, 0, 0);

class AtlHosting : public testing::TestWithParam<Version> {
 protected:
  void SetUp() override {
    const HMODULE atl = ::LoadLibraryW(GetParam().library);
    ASSERT_NE(atl, nullptr);
    const auto entry = [&](const char* name) { return reinterpret_cast<void*>(::GetProcAddress(atl, name)); };
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    // Some versions refuse to register their window class twice.
    if (::GetClassInfoExW(::GetModuleHandleW(nullptr), GetParam().windowClass, &known) == FALSE) {
      ASSERT_TRUE(reinterpret_cast<BOOL(WINAPI*)()>(entry("AtlAxWinInit"))());
    }
    mGetControl = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(entry("AtlAxGetControl"));
  }

  HWND MakeHost(HWND parent) {
    const HWND host =
        ::CreateWindowExW(0, GetParam().windowClass, L"Plotvane.Graph", WS_CHILD | WS_VISIBLE, 0, 0, 400, 300,
                          parent, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    PumpMessages();
    return host;
  }

  ComPtr<::_Graph> ControlIn(HWND host) {
    ComPtr<IUnknown> control;
    EXPECT_EQ(mGetControl(host, control.Receive()), S_OK);
    return As<::_Graph>(control.Get());
  }

  const Apartment mApartment;
  HostWindow mWindow;

 private:
  HRESULT(WINAPI* mGetControl)(HWND, IUnknown**) = nullptr;
};

HWND WindowOf(::_Graph& graph) {
  HWND window = nullptr;
  As<IOleInPlaceObject>(&graph)->GetWindow(&window);
  return window;
}

// A whole life, about forty steps; each is looked at.
TEST_P(AtlHosting, a_whole_life_in_AtlAxWin) {
  const HWND host = MakeHost(mWindow.Get());
  ASSERT_NE(host, nullptr);
  {
    // Created, sited and active in the container's window.
    const auto graph = ControlIn(host);
    ASSERT_TRUE(static_cast<bool>(graph));
    const auto object = As<IOleObject>(graph.Get());
    const auto inPlace = As<IOleInPlaceObject>(graph.Get());
    const auto view = As<IViewObjectEx>(graph.Get());
    ComPtr<IOleClientSite> site;
    ASSERT_EQ(object->GetClientSite(site.Receive()), S_OK);
    ASSERT_TRUE(static_cast<bool>(site));
    EXPECT_EQ(::GetParent(WindowOf(*graph.Get())), host);
    EXPECT_TRUE(::IsWindowVisible(WindowOf(*graph.Get())));
    // Events, functions, plots.
    const auto sink = Make<EventSink>();
    const DWORD cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
    const auto function = MakeFunction("0*x+5", kRed);
    Variant array = ArrayOf({function.Get()});
    EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
    EXPECT_EQ(sink->plotDone, 1);
    EXPECT_EQ(graph->ZTrig(), S_OK);
    EXPECT_EQ(graph->ZStandard(), S_OK);
    EXPECT_EQ(sink->plotDone, 3);
    // Sizes.
    for (const int width : {200, 640, 350}) {
      ::SetWindowPos(host, nullptr, 0, 0, width, 250, SWP_NOZORDER);
      PumpMessages();
      LONG now = 0;
      EXPECT_EQ(graph->GetGraphWidth(&now), S_OK);
      EXPECT_EQ(now, width);
    }
    EXPECT_EQ(graph->PlotAllY(), S_OK);
    // Hidden and shown, by the window and by the verbs.
    ::ShowWindow(host, SW_HIDE);
    PumpMessages();
    EXPECT_FALSE(::IsWindowVisible(WindowOf(*graph.Get())));
    ::ShowWindow(host, SW_SHOW);
    PumpMessages();
    EXPECT_TRUE(::IsWindowVisible(WindowOf(*graph.Get())));
    RECT rect{0, 0, 350, 250};
    const auto verb = [&](LONG which) { return object->DoVerb(which, nullptr, site.Get(), 0, host, &rect); };
    EXPECT_EQ(verb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(WindowOf(*graph.Get())));
    EXPECT_EQ(verb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(WindowOf(*graph.Get())));
    // With user interface and without, inactive and active again.
    EXPECT_EQ(verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(WindowOf(*graph.Get()), nullptr);
    EXPECT_EQ(graph->PlotAllY(), S_OK) << "without a window";
    EXPECT_EQ(verb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_NE(WindowOf(*graph.Get()), nullptr);
    EXPECT_EQ(verb(OLEIVERB_PRIMARY), S_OK);
    EXPECT_EQ(verb(17), OLEOBJ_S_INVALIDVERB);
    // Drawn into a bitmap and a metafile.
    const Bitmap bitmap(350, 250);
    const RECTL bounds{0, 0, 350, 250};
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, bitmap.Context(), &bounds, nullptr,
                         nullptr, 0),
              S_OK);
    EXPECT_GT(bitmap.Count(kRed), 200);
    FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    STGMEDIUM medium{};
    EXPECT_EQ(As<IDataObject>(graph.Get())->GetData(&format, &medium), S_OK);
    ::ReleaseStgMedium(&medium);
    // Nothing is saved, nothing is loaded.
    const auto stream = As<IPersistStreamInit>(graph.Get());
    ComPtr<IStream> bytes;
    ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, bytes.Receive()), S_OK);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
    EXPECT_EQ(stream->Save(bytes.Get(), TRUE), S_OK);
    EXPECT_EQ(stream->Load(bytes.Get()), S_OK);
    STATSTG stat{};
    bytes->Stat(&stat, STATFLAG_NONAME);
    EXPECT_EQ(stat.cbSize.QuadPart, 0U);
    // Closed by hand before the container does it.
    Disconnect(graph.Get(), DIID___Graph, cookie);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(WindowOf(*graph.Get()), nullptr);
  }
  ::DestroyWindow(host);
  PumpMessages();
  EXPECT_EQ(::GetWindow(mWindow.Get(), GW_CHILD), nullptr);
}

TEST_P(AtlHosting, ends_in_every_order) {
  // The container's window first, while somebody still holds the control.
  {
    const HWND host = MakeHost(mWindow.Get());
    const auto graph = ControlIn(host);
    ::DestroyWindow(host);
    PumpMessages();
    EXPECT_EQ(WindowOf(*graph.Get()), nullptr);
    EXPECT_EQ(graph->PlotAllY(), S_OK);
  }
  // The site first.
  {
    const HWND host = MakeHost(mWindow.Get());
    const auto graph = ControlIn(host);
    EXPECT_EQ(As<IOleObject>(graph.Get())->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(WindowOf(*graph.Get()), nullptr);
    ::DestroyWindow(host);
  }
  // The control's own window first.
  {
    const HWND host = MakeHost(mWindow.Get());
    const auto graph = ControlIn(host);
    ::DestroyWindow(WindowOf(*graph.Get()));
    EXPECT_EQ(graph->PlotAllY(), S_OK);
    ::DestroyWindow(host);
  }
  // The window that holds the container's.
  {
    HostWindow outer;
    const auto graph = ControlIn(MakeHost(outer.Get()));
    outer.Destroy();
    PumpMessages();
    EXPECT_EQ(graph->PlotAllY(), S_OK);
  }
  PumpMessages();
  ::CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(::GetModuleHandleW(L"Plotvane.ocx"), nullptr) << "something is still alive";
}

INSTANTIATE_TEST_SUITE_P(Versions, AtlHosting, testing::ValuesIn(kVersions),
                         [](const auto& version) { return version.param.name; });

}  // namespace
}  // namespace plotvane::tests
