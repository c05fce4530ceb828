// Controls that come and go leave nothing behind: no object, no window, no handle, no memory.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "control/win32/handles.h"
#include "tests/wine/own_handles.h"
#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

// ---- The measure itself ----

TEST(OwnHandles, sees_every_kind_of_handle_come_and_go) {
  // The first window brings the system's own pointers and fonts with it.
  { const HostWindow window; }
  const HandleCount before = OwnHandles();
  {
    const HostWindow window;
    const control::win32::OwnedPen pen(::CreatePen(PS_SOLID, 1, 1));
    const control::win32::OwnedMemoryContext context(::CreateCompatibleDC(nullptr));
    const control::win32::OwnedRegion region(::CreateRectRgn(0, 0, 1, 1));
    const control::win32::OwnedMenu menu(::CreatePopupMenu());
    std::array<BYTE, 128> mask{};
    const control::win32::OwnedCursor cursor(::CreateCursor(nullptr, 0, 0, 32, 32, mask.data(), mask.data()));
    ACCEL key{FVIRTKEY, VK_F1, 1};
    const HACCEL keys = ::CreateAcceleratorTableW(&key, 1);
    const HandleCount now = OwnHandles();
    EXPECT_GE(now.drawing, before.drawing + 3);
    EXPECT_GE(now.windows, before.windows + 1) << "the system adds some of its own to the first";
    EXPECT_GE(now.menus, before.menus + 1) << "the window has one too";
    EXPECT_EQ(now.acceleratorTables, before.acceleratorTables + 1);
    EXPECT_EQ(now.icons, before.icons + 1);
    ::DestroyAcceleratorTable(keys);
  }
  EXPECT_EQ(OwnHandles(), before);
}

TEST(HeapBytes, sees_memory_of_the_run_time_library) {
  const std::size_t before = HeapBytes();
  const std::vector<char> block(300'000);
  EXPECT_GE(HeapBytes(), before + block.size());
}

// ---- Unloading ----

TEST(Unloading, the_library_leaves_and_comes_back) {
  const Apartment apartment;
  for (int round = 0; round < 5; ++round) {
    {
      const Library library;
      HostWindow window;
      const auto site = Make<StrictSite>(window.Get());
      const auto graph = library.CreateGraph();
      const auto object = As<IOleObject>(graph.Get());
      object->SetClientSite(site.Get());
      EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position),
                S_OK);
      EXPECT_EQ(graph->ShowFormatEditor(), S_OK);
      PumpMessages();
      EXPECT_FALSE(library.CanUnload());
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    }
    PumpMessages();
    EXPECT_EQ(::GetModuleHandleW(L"Plotvane.ocx"), nullptr);
  }
}

// ---- Many lives ----

// One life without a container: create, plot, destroy.
void Plot(::_Graph& graph) {
  const auto function = MakeFunction("sin(x)");
  short step = 40;
  graph.put_PlotPixelStep(&step);
  Variant array = ArrayOf({function.Get()});
  ASSERT_EQ(graph.SetYArray(&array.Get(), nullptr), S_OK);
}

// One life in a container, with everything in it that takes handles of the system.
void LiveInWindow(const Library& library, const HostWindow& window) {
  const auto site = Make<StrictSite>(window.Get());
  const auto graph = library.CreateGraph();
  const auto object = As<IOleObject>(graph.Get());
  object->SetClientSite(site.Get());
  ASSERT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position), S_OK);
  Plot(*graph.Get());
  const RECT smaller{0, 0, 200, 150};
  const RECT part{20, 20, 150, 100};
  As<IOleInPlaceObject>(graph.Get())->SetObjectRects(&smaller, &part);
  short wide = 3;
  graph->put_PenWidth(&wide);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  CONTROLINFO keys{};
  keys.cb = sizeof keys;
  As<IOleControl>(graph.Get())->GetControlInfo(&keys);
  ::DestroyAcceleratorTable(keys.hAccel);
  EXPECT_EQ(graph->ShowFormatEditor(), S_OK);
  FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
  STGMEDIUM medium{};
  EXPECT_EQ(As<IDataObject>(graph.Get())->GetData(&format, &medium), S_OK);
  ::ReleaseStgMedium(&medium);
  PumpMessages();
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

TEST(Unloading, fifty_lives_in_a_window_give_every_handle_back) {
  const Apartment apartment;
  const Library library;
  HostWindow window;
  constexpr int kFirst = 5;  // in which the system makes what it keeps
  constexpr int kLives = 50;
  const auto live = [&](int count) {
    for (int life = 0; life < count; ++life) LiveInWindow(library, window);
    PumpMessages();
  };
  live(kFirst);
  const HandleCount before = OwnHandles();
  live(kLives);
  EXPECT_EQ(OwnHandles(), before);
  EXPECT_EQ(::GetWindow(window.Get(), GW_CHILD), nullptr);
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, ten_thousand_controls_come_and_go_without_a_trace) {
  const Apartment apartment;
  const Library library;
  const auto live = [&](int count) {
    for (int life = 0; life < count; ++life) Plot(*library.CreateGraph().Get());
  };
  live(100);
  const HandleCount handles = OwnHandles();
  const std::size_t memory = HeapBytes();
  live(10'000);
  EXPECT_EQ(OwnHandles(), handles);
  EXPECT_LT(HeapBytes(), memory + 1024 * 1024);
  EXPECT_TRUE(library.CanUnload());
}

TEST(Unloading, an_unloaded_library_has_given_back_every_handle) {
  const Apartment apartment;
  const auto liveAndUnload = [] {
    const Library library;
    HostWindow window;
    LiveInWindow(library, window);
    PumpMessages();
  };
  liveAndUnload();
  const HandleCount before = OwnHandles();
  liveAndUnload();
  EXPECT_EQ(OwnHandles(), before);
  EXPECT_EQ(::GetModuleHandleW(L"Plotvane.ocx"), nullptr);
}

}  // namespace
}  // namespace plotvane::tests
