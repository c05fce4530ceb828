// Life in Wine's own container, in every version that it has.
#include <gtest/gtest.h>

#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

class AtlHosting : public testing::TestWithParam<const wchar_t*> {};

TEST_P(AtlHosting, lives_in_AtlAxWin) {
  const Apartment apartment;
  const HMODULE atl = ::LoadLibraryW(GetParam());
  ASSERT_NE(atl, nullptr);
  const auto initialise =
      reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxWinInit")));
  const auto getControl = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(
      reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxGetControl")));
  ASSERT_TRUE(initialise());
  const bool plain = std::wstring(GetParam()) == L"atl.dll";
  HostWindow window;
  for (int round = 0; round < 3; ++round) {
    const HWND host =
        ::CreateWindowExW(0, plain ? L"AtlAxWin" : L"AtlAxWin100", L"Plotvane.Graph", WS_CHILD | WS_VISIBLE,
                          0, 0, 400, 300, window.Get(), nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(host, nullptr);
    PumpMessages();
    {
      ComPtr<IUnknown> control;
      ASSERT_EQ(getControl(host, control.Receive()), S_OK);
      const auto graph = As<::_Graph>(control.Get());
      ASSERT_TRUE(static_cast<bool>(graph));
      const auto function = MakeFunction("sin(x)");
      const auto sink = Make<EventSink>();
      const DWORD cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
      Variant array = ArrayOf({function.Get()});
      EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
      EXPECT_EQ(sink->plotDone, 1);
      ::SetWindowPos(host, nullptr, 0, 0, 350 + 10 * round, 250, SWP_NOZORDER);
      PumpMessages();
      LONG width = 0;
      EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
      EXPECT_LE(width, 350 + 10 * round);
      EXPECT_GT(width, 200);
      ::ShowWindow(host, SW_HIDE);
      PumpMessages();
      ::ShowWindow(host, SW_SHOW);
      PumpMessages();
      EXPECT_EQ(graph->ZTrig(), S_OK);
      Disconnect(graph.Get(), DIID___Graph, cookie);
    }
    ::DestroyWindow(host);
    PumpMessages();
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, AtlHosting, testing::Values(L"atl.dll", L"atl100.dll"),
                         [](const auto& version) { return version.index == 0 ? "atl" : "atl100"; });

}  // namespace
}  // namespace plotvane::tests
