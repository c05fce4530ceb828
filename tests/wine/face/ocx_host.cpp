// ocx_host: the same window as face_host with Plotvane.ocx in it: in a container of this project, or in the
// system's own (AtlAxWin), which neither translates keys nor UI-activates.
#include <windows.h>

#include <ole2.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host_window.h"
#include "hosts/desktop/control_host.h"
#include "hosts/desktop/function_object.h"
#include "hosts/desktop/late_bound.h"

namespace plotvane::test {
namespace {

using desktop::ComPtr;
using desktop::ControlHost;
using desktop::OwnedVariant;

// The .ocx lies at the top of the build folder; its manifest stands for registration.
class ControlManifest {
 public:
  ControlManifest() {
    wchar_t path[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    mFolder = path;
    for (int up = 0; up < 4; ++up) mFolder.resize(mFolder.find_last_of(L"\\/"));
    ::SetDllDirectoryW(mFolder.c_str());
    const std::wstring manifest = mFolder + L"\\Plotvane.manifest";
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest.c_str();
    mContext = ::CreateActCtxW(&context);
    if (mContext == INVALID_HANDLE_VALUE) std::fprintf(stderr, "no manifest: %lu\n", ::GetLastError());
    ::ActivateActCtx(mContext, &mCookie);
  }
  ~ControlManifest() {
    ::DeactivateActCtx(0, mCookie);
    ::ReleaseActCtx(mContext);
  }
  ControlManifest(const ControlManifest&) = delete;
  ControlManifest& operator=(const ControlManifest&) = delete;

 private:
  std::wstring mFolder;
  HANDLE mContext = INVALID_HANDLE_VALUE;
  ULONG_PTR mCookie = 0;
};

// One control in its container.
class Contained {
 public:
  virtual ~Contained() = default;
  [[nodiscard]] virtual _Graph& Graph() = 0;
  virtual void Resize() = 0;
  [[nodiscard]] virtual bool TranslateKey(MSG& message) = 0;
};

class InOwnContainer final : public Contained {
 public:
  InOwnContainer(HWND window, std::function<RECT()> bounds, std::function<void()> plotDone)
      : mHost(window, std::move(bounds), std::move(plotDone)) {}
  _Graph& Graph() override { return mHost.Graph(); }
  void Resize() override { mHost.Resize(); }
  bool TranslateKey(MSG& message) override { return mHost.TranslateKey(message); }

 private:
  ControlHost mHost;
};

class InSystemContainer final : public Contained {
 public:
  InSystemContainer(HWND parent, std::function<RECT()> bounds) : mBounds(std::move(bounds)) {
    const HMODULE atl = ::LoadLibraryW(L"atl.dll");
    const auto find = [atl](const char* name) {
      return reinterpret_cast<void*>(::GetProcAddress(atl, name));
    };
    const auto initialise = reinterpret_cast<BOOL(WINAPI*)()>(find("AtlAxWinInit"));
    const auto attach =
        reinterpret_cast<HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**)>(find("AtlAxAttachControl"));
    initialise();
    mWindow =
        ::CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                          0, 0, 0, parent, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    Resize();
    ::CoCreateInstance(CLSID_Graph, nullptr, CLSCTX_INPROC_SERVER, IID__Graph,
                       reinterpret_cast<void**>(mGraph.GetAddressOf()));
    ComPtr<IUnknown> container;
    attach(mGraph.Get(), mWindow, container.GetAddressOf());
  }
  ~InSystemContainer() override { ::DestroyWindow(mWindow); }
  _Graph& Graph() override { return *mGraph.Get(); }
  void Resize() override {
    const RECT bounds = mBounds();
    ::MoveWindow(mWindow, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                 TRUE);
  }
  bool TranslateKey(MSG&) override { return false; }

 private:
  std::function<RECT()> mBounds;
  HWND mWindow = nullptr;
  ComPtr<_Graph> mGraph;
};

void SetFunctions(_Graph& graph, const HostOptions& options) {
  OwnedVariant functions;
  V_VT(&functions.Get()) = VT_ARRAY | VT_DISPATCH;
  SAFEARRAYBOUND bounds{static_cast<ULONG>(options.equations.size()), 1};
  V_ARRAY(&functions.Get()) = ::SafeArrayCreate(VT_DISPATCH, 1, &bounds);
  LONG index = 0;
  for (const auto& function : MakeFunctions(options)) {
    ComPtr<IDispatch> object;
    object.Attach(new desktop::FunctionObject(function));
    ++index;
    ::SafeArrayPutElement(V_ARRAY(&functions.Get()), &index, object.Get());
  }
  OwnedVariant redraw;
  V_VT(&redraw.Get()) = VT_BOOL;
  V_BOOL(&redraw.Get()) = VARIANT_TRUE;
  graph.SetYArray(&functions.Get(), &redraw.Get());
}

class ContainedControls final : public HostedControls {
 public:
  explicit ContainedControls(const HostOptions& options) : mOptions(options) {}

  void Make(HWND window) override {
    mHost = window;
    for (int index = 0; index < (mOptions.two ? 2 : 1); ++index) {
      mControls.push_back(MakeOne([this, index] { return BoundsOf(mHost, mOptions.two, index); }));
      SetFunctions(mControls.back()->Graph(), mOptions);
    }
  }

  void Resize() override {
    for (const auto& control : mControls) control->Resize();
  }

  void Press(HostKey key) override {
    if (mControls.empty()) return;
    _Graph& graph = mControls.front()->Graph();
    VARIANT_BOOL visible = VARIANT_FALSE;
    switch (key) {
      case HostKey::ShowFormat: graph.ShowFormatEditor(); break;
      case HostKey::Plot: graph.PlotAllY(); break;
      case HostKey::ToggleToolBar:
        graph.get_ToolBarVisible(&visible);
        graph.put_ToolBarVisible(visible == VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
        break;
      case HostKey::EndFirst: EndFirst(); break;
      case HostKey::EndFirstAfterPlot: mEndAfterPlot = true; break;
      default: break;
    }
  }

  // The control that has the focus is asked first: both know the same mnemonics.
  bool Translate(MSG& message) override {
    RECT focus{};
    ::GetWindowRect(::GetFocus(), &focus);
    ::MapWindowPoints(nullptr, mHost, reinterpret_cast<POINT*>(&focus), 2);
    const std::size_t first = mOptions.two && focus.left >= BoundsOf(mHost, true, 1).left ? 1 : 0;
    for (std::size_t i = 0; i < mControls.size(); ++i) {
      if (mControls[(first + i) % mControls.size()]->TranslateKey(message)) return true;
    }
    return false;
  }

  HDC Picture(SIZE& size) override {
    if (mControls.empty()) return nullptr;
    _Graph& graph = mControls.front()->Graph();
    LONG context = 0;
    graph.GetGraphWidth(&size.cx);
    graph.GetGraphHeight(&size.cy);
    graph.GetGraphHDC(&context);
    return reinterpret_cast<HDC>(static_cast<INT_PTR>(context));
  }

  IDispatch* Automation() override { return mControls.empty() ? nullptr : &mControls.front()->Graph(); }

 private:
  std::unique_ptr<Contained> MakeOne(std::function<RECT()> bounds) {
    if (mOptions.container) return std::make_unique<InSystemContainer>(mHost, std::move(bounds));
    return std::make_unique<InOwnContainer>(mHost, std::move(bounds), [this] {
      if (std::exchange(mEndAfterPlot, false)) EndFirst();
    });
  }

  void EndFirst() {
    if (mControls.empty()) return;
    const std::unique_ptr<Contained> first = std::move(mControls.front());
    mControls.erase(mControls.begin());
  }

  const HostOptions& mOptions;
  HWND mHost = nullptr;
  bool mEndAfterPlot = false;
  std::vector<std::unique_ptr<Contained>> mControls;
};

}  // namespace
}  // namespace plotvane::test

int main(int count, char** arguments) {
  ::SetProcessDPIAware();
  ::OleInitialize(nullptr);
  int status = 1;
  try {
    const plotvane::test::HostOptions options = plotvane::test::ReadOptions(count, arguments);
    const plotvane::test::ControlManifest manifest;
    plotvane::test::ContainedControls controls(options);
    status = plotvane::test::RunHost(options, controls);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "ocx_host: %s\n", error.what());
  }
  ::OleUninitialize();
  return status;
}
