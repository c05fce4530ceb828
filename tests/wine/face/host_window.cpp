#include "host_window.h"

#include <oleacc.h>

#include <cstdio>
#include <iterator>
#include <memory>
#include <string_view>

namespace plotvane::test {
namespace {

constexpr graph::Colour kColours[] = {0x0000FF, 0xFF0000, 0x008000};
constexpr UINT_PTR kRestTimer = 1;

struct HostState {
  HostedControls& controls;
  WPARAM restNumber = 0;
};

// A window made without awareness of resolutions has 96 dots per inch, and so has what is put into it; the
// system then tells the child.
void MoveToUnscaledWindow(HWND host) {
  constexpr UINT kDpiChangedAfterParent = 0x02E3;  // WM_DPICHANGED_AFTERPARENT
  const HWND control = ::FindWindowExW(host, nullptr, L"PlotvaneGraph", nullptr);
  const DPI_AWARENESS_CONTEXT before = ::SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE);
  const HWND other =
      ::CreateWindowExW(0, L"Static", L"Unscaled", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 60, 60,
                        500, 400, nullptr, nullptr, nullptr, nullptr);
  ::SetThreadDpiAwarenessContext(before);
  ::SetParent(control, other);
  ::SendMessageW(control, kDpiChangedAfterParent, 0, 0);
}

BOOL CALLBACK ForwardColourChange(HWND child, LPARAM) {
  ::SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

LRESULT PictureSum(HostedControls& controls) {
  SIZE size{};
  const HDC picture = controls.Picture(size);
  std::uint32_t sum = 2166136261u;  // FNV-1a
  for (int y = 0; picture != nullptr && y < size.cy; ++y) {
    for (int x = 0; x < size.cx; ++x) sum = (sum ^ ::GetPixel(picture, x, y)) * 16777619u;
  }
  return static_cast<LRESULT>(sum);
}

// Timers come after all input and painting that is waiting.
void BeginRest(HWND window, HostState& state, WPARAM number) {
  state.restNumber = number;
  ::SetTimer(window, kRestTimer, 0, nullptr);
}

void EndRest(HWND window, const HostState& state) {
  ::KillTimer(window, kRestTimer);
  ::SetPropW(window, kAtRestProperty, reinterpret_cast<HANDLE>(state.restNumber));
}

void Press(HWND window, HostKey key, HostedControls& controls) {
  if (key == HostKey::ChangeSystemColours) return SetHighContrast();
  if (key == HostKey::MoveToUnscaledWindow) return MoveToUnscaledWindow(window);
  controls.Press(key);
}

LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, HostState& state) {
  switch (message) {
    case WM_SIZE: return state.controls.Resize(), 0;
    case kHostKeyMessage: return Press(window, static_cast<HostKey>(wParam), state.controls), 0;
    case kComeToRestMessage: return BeginRest(window, state, wParam), 0;
    case WM_TIMER: return EndRest(window, state), 0;
    case kPictureSumMessage: return PictureSum(state.controls);
    case WM_SYSCOLORCHANGE: return ::EnumChildWindows(window, &ForwardColourChange, 0);
    case WM_GETOBJECT:
      if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_NATIVEOM)) break;
      if (IDispatch* const automation = state.controls.Automation()) {
        return ::LresultFromObject(IID_IDispatch, wParam, automation);
      }
      break;
    default: break;
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const state = reinterpret_cast<HostState*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_NEXTDLGCTL:  // as a dialog box does
      ::SetFocus(lParam != 0 ? reinterpret_cast<HWND>(wParam)
                             : ::GetNextDlgTabItem(window, ::GetFocus(), wParam != 0));
      return 0;
    case WM_DESTROY:
      ::RemovePropW(window, kAtRestProperty);
      ::PostQuitMessage(0);
      return 0;
    default: break;
  }
  return state != nullptr ? HandleMessage(window, message, wParam, lParam, *state)
                          : ::DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeHostWindow(const HostOptions& options) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &HostProcedure;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = ::GetSysColorBrush(COLOR_APPWORKSPACE);
  windowClass.lpszClassName = kHostClass;
  ::RegisterClassExW(&windowClass);
  RECT frame{0, 0, options.width, options.height};
  ::AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
  return ::CreateWindowExW(0, kHostClass, kHostTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40,
                           frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

}  // namespace

HostOptions ReadOptions(int count, char** arguments) {
  HostOptions options;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--size" && i + 1 < count) {
      std::sscanf(arguments[++i], "%dx%d", &options.width, &options.height);
    } else if (argument == "--two") {
      options.two = true;
    } else if (argument == "--no-translate") {
      options.translate = false;
    } else if (argument == "--dialog-loop") {
      options.translate = false;
      options.dialogLoop = true;
    } else if (argument == "--design") {
      options.design = true;
    } else if (argument == "--container") {
      options.container = true;
    } else {
      options.equations.emplace_back(argument);
    }
  }
  return options;
}

std::vector<std::shared_ptr<graph::clsYGraph>> MakeFunctions(const HostOptions& options) {
  std::vector<std::shared_ptr<graph::clsYGraph>> functions;
  for (const std::string& equation : options.equations) {
    auto function = std::make_shared<graph::clsYGraph>();
    function->Equation = equation;
    function->Enabled = !equation.empty() && equation.front() != '-';
    function->DrawColor = kColours[functions.size() % std::size(kColours)];
    functions.push_back(function);
  }
  return functions;
}

RECT BoundsOf(HWND window, bool two, int index) {
  RECT client{};
  ::GetClientRect(window, &client);
  const LONG middle = client.right / 2;
  if (two && index == 0) client.right = middle;
  if (two && index == 1) client.left = middle;
  return client;
}

int RunHost(const HostOptions& options, HostedControls& controls) {
  const HWND window = MakeHostWindow(options);
  controls.Make(window);
  HostState state{controls};
  ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&state));
  ::ShowWindow(window, SW_SHOW);
  ::SetForegroundWindow(window);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (options.translate && controls.Translate(message)) continue;
    if (options.dialogLoop && ::IsDialogMessageW(window, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace plotvane::test
