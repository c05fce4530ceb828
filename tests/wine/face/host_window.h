// The plain window that both host programs of these tests share: command line, window, message loop.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string>
#include <vector>

#include "graph/clsYGraph.h"
#include "host_messages.h"

namespace plotvane::test {

//   HOST [--size WxH] [--two] [--no-translate | --dialog-loop] [--design] [--container] EQUATION…
struct HostOptions {
  int width = 640;
  int height = 480;
  bool two = false;
  bool translate = true;    // the loop offers keys to the controls
  bool dialogLoop = false;  // the loop calls IsDialogMessage instead
  bool design = false;
  bool container = false;  // the system's own container around the control instead of the host's
  std::vector<std::string> equations;
};

[[nodiscard]] HostOptions ReadOptions(int count, char** arguments);

// The functions of the command line: red, blue, green; one that is empty or begins with a minus is not
// enabled.
[[nodiscard]] std::vector<std::shared_ptr<graph::clsYGraph>> MakeFunctions(const HostOptions& options);

// The controls of a host, made and worked in its way. There may be none left.
class HostedControls {
 public:
  virtual ~HostedControls() = default;
  virtual void Make(HWND window) = 0;
  virtual void Resize() = 0;
  virtual void Press(HostKey key) = 0;
  [[nodiscard]] virtual bool Translate(MSG& message) = 0;
  // The picture of the first control; null without one.
  [[nodiscard]] virtual HDC Picture(SIZE& size) = 0;
  // Null where the control has none.
  [[nodiscard]] virtual IDispatch* Automation() = 0;
};

// The place of the nth control, in pixels of the window's client area.
[[nodiscard]] RECT BoundsOf(HWND window, bool two, int index);

// Shows the window with the controls until it is closed; the loop knows nothing of the controls' dialogs.
int RunHost(const HostOptions& options, HostedControls& controls);

}  // namespace plotvane::test
