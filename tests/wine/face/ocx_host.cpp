// ocx_host: the same plain window as face_host with Plotvane.ocx in it, hosted as a container does.
//
//   ocx_host [--size WxH] [--two] [--no-translate] EQUATION…
#include <windows.h>

#include <ole2.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "graph/clsYGraph.h"
#include "hosts/desktop/control_host.h"
#include "hosts/desktop/function_object.h"
#include "hosts/desktop/late_bound.h"

namespace {

using namespace plotvane;
using desktop::ComPtr;
using desktop::ControlHost;
using desktop::OwnedVariant;

constexpr wchar_t kClassName[] = L"FaceHost";
constexpr graph::Colour kColours[] = {0x0000FF, 0xFF0000, 0x008000};

struct Options {
  int width = 640;
  int height = 480;
  bool two = false;
  bool translate = true;
  std::vector<std::string> equations;
};

struct Host {
  HWND window = nullptr;
  std::vector<std::unique_ptr<ControlHost>> controls;
  bool endAfterPlot = false;

  void EndFirst() {
    if (controls.empty()) return;
    const std::unique_ptr<ControlHost> first = std::move(controls.front());
    controls.erase(controls.begin());
  }
};

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

void SetFunctions(ControlHost& control, const std::vector<std::string>& equations) {
  OwnedVariant functions;
  V_VT(&functions.Get()) = VT_ARRAY | VT_DISPATCH;
  SAFEARRAYBOUND bounds{static_cast<ULONG>(equations.size()), 1};
  V_ARRAY(&functions.Get()) = ::SafeArrayCreate(VT_DISPATCH, 1, &bounds);
  LONG index = 0;
  for (const std::string& equation : equations) {
    auto function = std::make_shared<graph::clsYGraph>();
    function->Equation = equation;
    function->Enabled = true;
    function->DrawColor = kColours[static_cast<std::size_t>(index) % std::size(kColours)];
    ComPtr<IDispatch> object;
    object.Attach(new desktop::FunctionObject(function));
    ++index;
    ::SafeArrayPutElement(V_ARRAY(&functions.Get()), &index, object.Get());
  }
  OwnedVariant redraw;
  V_VT(&redraw.Get()) = VT_BOOL;
  V_BOOL(&redraw.Get()) = VARIANT_TRUE;
  control.Graph().SetYArray(&functions.Get(), &redraw.Get());
}

RECT BoundsOf(HWND window, bool two, int index) {
  RECT client{};
  ::GetClientRect(window, &client);
  const LONG middle = client.right / 2;
  if (two && index == 0) client.right = middle;
  if (two && index == 1) client.left = middle;
  return client;
}

// F2 opens the format dialog, F3 redraws, F4 hides and shows the toolbar, F5 ends the first control at once,
// F6 at the end of the next plot.
void HandleHostKey(WPARAM key, Host& host) {
  if (host.controls.empty()) return;
  _Graph& graph = host.controls.front()->Graph();
  VARIANT_BOOL visible = VARIANT_FALSE;
  switch (key) {
    case VK_F2: graph.ShowFormatEditor(); break;
    case VK_F3: graph.PlotAllY(); break;
    case VK_F4:
      graph.get_ToolBarVisible(&visible);
      graph.put_ToolBarVisible(visible == VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
      break;
    case VK_F5: host.EndFirst(); break;
    case VK_F6: host.endAfterPlot = true; break;
    default: break;
  }
}

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const host = reinterpret_cast<Host*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_SIZE:
      if (host != nullptr) {
        for (const auto& control : host->controls) control->Resize();
      }
      return 0;
    case WM_APP:
      if (host != nullptr) HandleHostKey(wParam, *host);
      return 0;
    case WM_DESTROY: ::PostQuitMessage(0); return 0;
    default: return ::DefWindowProcW(window, message, wParam, lParam);
  }
}

Options ReadOptions(int count, char** arguments) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--size" && i + 1 < count) {
      std::sscanf(arguments[++i], "%dx%d", &options.width, &options.height);
    } else if (argument == "--two") {
      options.two = true;
    } else if (argument == "--no-translate") {
      options.translate = false;
    } else {
      options.equations.emplace_back(argument);
    }
  }
  return options;
}

HWND MakeHostWindow(const Options& options) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &HostProcedure;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = ::GetSysColorBrush(COLOR_APPWORKSPACE);
  windowClass.lpszClassName = kClassName;
  ::RegisterClassExW(&windowClass);
  RECT frame{0, 0, options.width, options.height};
  ::AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
  return ::CreateWindowExW(0, kClassName, L"Face Host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40,
                           frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

void MakeControls(Host& host, const Options& options) {
  for (int i = 0; i < (options.two ? 2 : 1); ++i) {
    host.controls.push_back(std::make_unique<ControlHost>(
        host.window, [&host, &options, i] { return BoundsOf(host.window, options.two, i); },
        [&host] {
          if (std::exchange(host.endAfterPlot, false)) host.EndFirst();
        }));
    SetFunctions(*host.controls.back(), options.equations);
  }
}

// The control that has the focus is asked first: both know the same mnemonics.
bool UsedUp(MSG& message, Host& host, bool two) {
  RECT focus{};
  ::GetWindowRect(::GetFocus(), &focus);
  ::MapWindowPoints(nullptr, host.window, reinterpret_cast<POINT*>(&focus), 2);
  const RECT second = BoundsOf(host.window, two, 1);
  const std::size_t first = two && focus.left >= second.left ? 1 : 0;
  for (std::size_t i = 0; i < host.controls.size(); ++i) {
    const std::size_t asked = (first + i) % host.controls.size();
    if (host.controls[asked]->TranslateKey(message)) return true;
  }
  return false;
}

int Run(const Options& options) {
  const ControlManifest manifest;
  Host host;
  host.window = MakeHostWindow(options);
  MakeControls(host, options);
  ::SetWindowLongPtrW(host.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
  ::ShowWindow(host.window, SW_SHOW);
  ::SetForegroundWindow(host.window);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (options.translate && UsedUp(message, host, options.two)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  ::SetProcessDPIAware();
  ::OleInitialize(nullptr);
  int status = 1;
  try {
    status = Run(ReadOptions(count, arguments));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "ocx_host: %s\n", error.what());
  }
  ::OleUninitialize();
  return status;
}
