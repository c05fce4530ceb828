// face_host: a plain window with one or two controls in it, without a container, for the driver to work on
// from outside.
#include <windows.h>

#include <memory>
#include <vector>

#include "control/graph.h"
#include "control/win32/control_window.h"
#include "control/win32/gdi_surface.h"
#include "host_window.h"

namespace plotvane::test {
namespace {

struct Hosted {
  std::shared_ptr<control::win32::ControlWindow> window;
  std::shared_ptr<control::Graph> graph;
};

class PlainControls final : public HostedControls {
 public:
  explicit PlainControls(const HostOptions& options) : mOptions(options) {}

  void Make(HWND window) override {
    mHost = window;
    for (int index = 0; index < (mOptions.two ? 2 : 1); ++index) {
      Hosted hosted;
      hosted.window = control::win32::ControlWindow::Make(::GetModuleHandleW(nullptr));
      hosted.graph = control::Graph::Create(hosted.window);
      hosted.window->Attach(hosted.graph);
      hosted.graph->SetDesignMode(mOptions.design);
      if (hosted.window->Create(window, BoundsOf(window, mOptions.two, index))) hosted.window->Show(true);
      const auto functions = MakeFunctions(mOptions);
      if (!mOptions.design) hosted.graph->SetYArray({functions.begin(), functions.end()});
      mControls.push_back(hosted);
    }
  }

  void Resize() override {
    for (std::size_t index = 0; index < mControls.size(); ++index) {
      mControls[index].window->SetRect(BoundsOf(mHost, mOptions.two, static_cast<int>(index)));
    }
  }

  void Press(HostKey key) override {
    if (mControls.empty()) return;
    control::Graph& first = *mControls.front().graph;
    switch (key) {
      case HostKey::ShowFormat: first.ShowFormatEditor(); break;
      case HostKey::Plot: first.PlotAllY(); break;
      case HostKey::ToggleToolBar: first.SetToolBarVisible(!first.GetToolBarVisible()); break;
      case HostKey::EndFirst: EndFirst(); break;
      case HostKey::EndFirstAfterPlot: first.SetPlotDone([this] { EndFirst(); }); break;
      default: break;
    }
  }

  bool Translate(MSG& message) override {
    const auto copies = mControls;  // a key may end a control
    for (const Hosted& hosted : copies) {
      if (hosted.window->TranslateAccelerator(message)) return true;
    }
    return false;
  }

  HDC Picture(SIZE& size) override {
    if (mControls.empty()) return nullptr;
    const auto surface =
        std::static_pointer_cast<control::win32::GdiSurface>(mControls.front().window->Surface());
    size = {static_cast<LONG>(surface->ScaleWidth()), static_cast<LONG>(surface->ScaleHeight())};
    return surface->Context();
  }

  IDispatch* Automation() override { return nullptr; }

 private:
  void EndFirst() {
    if (mControls.empty()) return;
    const Hosted first = mControls.front();
    mControls.erase(mControls.begin());
    first.window->Destroy();
  }

  const HostOptions& mOptions;
  HWND mHost = nullptr;
  std::vector<Hosted> mControls;
};

}  // namespace
}  // namespace plotvane::test

int main(int count, char** arguments) {
  ::SetProcessDPIAware();
  const plotvane::test::HostOptions options = plotvane::test::ReadOptions(count, arguments);
  plotvane::test::PlainControls controls(options);
  return plotvane::test::RunHost(options, controls);
}
