// face_host: a plain window with one or two controls in it, for the driver to work on from outside.
//
//   face_host [--size WxH] [--two] [--no-translate] [--dialog-loop] [--design] EQUATION…
//
// The message loop knows nothing of the control's dialogs; with --no-translate it does not even offer its
// keys to the control.
#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/graph.h"
#include "control/win32/control_window.h"
#include "control/win32/wide_text.h"
#include "graph/clsYGraph.h"

namespace {

using namespace plotvane;

constexpr wchar_t kClassName[] = L"FaceHost";
constexpr graph::Colour kColours[] = {0x0000FF, 0xFF0000, 0x008000};

struct Options {
  int width = 640;
  int height = 480;
  bool two = false;
  bool translate = true;
  bool dialogLoop = false;
  bool design = false;
  std::vector<std::string> equations;
};

struct Hosted {
  std::shared_ptr<control::win32::ControlWindow> window;
  std::shared_ptr<control::Graph> graph;
};

void EndFirst(std::vector<Hosted>& controls) {
  const Hosted first = controls.front();
  controls.erase(controls.begin());
  first.window->Destroy();
}

std::vector<std::shared_ptr<graph::YFunction>> MakeFunctions(const std::vector<std::string>& equations) {
  std::vector<std::shared_ptr<graph::YFunction>> functions;
  for (const std::string& equation : equations) {
    auto function = std::make_shared<graph::clsYGraph>();
    function->Equation = equation;
    function->Enabled = !equation.empty() && equation.front() != '-';
    function->DrawColor = kColours[functions.size() % std::size(kColours)];
    functions.push_back(function);
  }
  return functions;
}

Hosted MakeControl(HWND parent, const RECT& rect, const Options& options) {
  Hosted hosted;
  hosted.window = control::win32::ControlWindow::Make(::GetModuleHandleW(nullptr));
  hosted.graph = control::Graph::Create(hosted.window);
  hosted.window->Attach(hosted.graph);
  hosted.graph->SetDesignMode(options.design);
  if (hosted.window->Create(parent, rect)) hosted.window->Show(true);
  if (!options.design) hosted.graph->SetYArray(MakeFunctions(options.equations));
  return hosted;
}

// The format dialog has no button of its own: F2 opens it. F3 redraws, F4 hides and shows the toolbar, F5
// makes the first control go away at once, F6 makes it go away at the end of the next plot.
void HandleHostKey(WPARAM key, std::vector<Hosted>& controls) {
  if (controls.empty()) return;
  Hosted& first = controls.front();
  switch (key) {
    case VK_F2: first.graph->ShowFormatEditor(); break;
    case VK_F3: first.graph->PlotAllY(); break;
    case VK_F4: first.graph->SetToolBarVisible(!first.graph->GetToolBarVisible()); break;
    case VK_F5: EndFirst(controls); break;
    case VK_F6: first.graph->SetPlotDone([&controls] { EndFirst(controls); }); break;
    default: break;
  }
}

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const controls = reinterpret_cast<std::vector<Hosted>*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_SIZE:
      if (controls != nullptr && controls->size() == 1) {
        controls->front().window->SetRect({0, 0, LOWORD(lParam), HIWORD(lParam)});
      }
      return 0;
    case WM_APP:
      if (controls != nullptr) HandleHostKey(wParam, *controls);
      return 0;
    case WM_NEXTDLGCTL:  // as a dialog box does
      ::SetFocus(lParam != 0 ? reinterpret_cast<HWND>(wParam)
                             : ::GetNextDlgTabItem(window, ::GetFocus(), wParam != 0));
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
    } else if (argument == "--dialog-loop") {
      options.translate = false;
      options.dialogLoop = true;
    } else if (argument == "--design") {
      options.design = true;
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

bool UsedUp(MSG& message, std::vector<Hosted>& controls) {
  const auto copies = controls;  // a key may end a control
  for (const Hosted& hosted : copies) {
    if (hosted.window->TranslateAccelerator(message)) return true;
  }
  return false;
}

}  // namespace

int main(int count, char** arguments) {
  ::SetProcessDPIAware();
  const Options options = ReadOptions(count, arguments);
  const HWND window = MakeHostWindow(options);
  std::vector<Hosted> controls;
  RECT client{};
  ::GetClientRect(window, &client);
  RECT first = client;
  if (options.two) first.right /= 2;
  controls.push_back(MakeControl(window, first, options));
  if (options.two)
    controls.push_back(MakeControl(window, {first.right, 0, client.right, client.bottom}, options));
  ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&controls));
  ::ShowWindow(window, SW_SHOW);
  ::SetForegroundWindow(window);

  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (options.translate && UsedUp(message, controls)) continue;
    if (options.dialogLoop && ::IsDialogMessageW(window, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}
