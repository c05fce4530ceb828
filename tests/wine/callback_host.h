// Everything that a host may do to a control from inside a call that the control makes to it.
#pragma once

#include <array>
#include <atomic>
#include <string>
#include <thread>

#include "tests/wine/strict_site.h"

namespace plotvane::tests {

// A control with a function, a table, a surface, a sink and a site, so that an action can get at all of it
// from inside a call.
struct Host {
  explicit Host(const Library& library);
  // Every cycle of references is the host's to break, as in life.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void Activate();
  // The value of an identifier in the host's table.
  [[nodiscard]] double InTable(const char* id);

  HostWindow window;
  ComPtr<StrictSite> site;
  ComPtr<::_Graph> graph;
  ComPtr<NamedObject> function;
  ComPtr<NamedObject> table;
  ComPtr<NamedObject> surface;
  ComPtr<EventSink> sink;
  DWORD cookie = 0;
};

// The value of x in the host's table before every plot, and so after it.
inline constexpr double kOldX = 7;
// What RaiseError raises.
inline constexpr auto kRaised = static_cast<HRESULT>(0x80040BAD);

enum class Doing {
  ReleaseLastReference,
  TakeSiteAway,
  CloseWindow,
  PlotAgain,
  SetArray,
  SetTable,
  TakeTableAway,
  SetSurface,
  Resize,
  ChangeStep,
  RaiseError,
  ShowMessage,
};

struct Action {
  Doing doing;
  const char* name;
  void (*run)(Host& host);
};

inline constexpr std::size_t kActionCount = 12;
extern const std::array<Action, kActionCount> kActions;

// Closes the box with that title by one of its buttons, from another thread as a user would.
class BoxCloser {
 public:
  explicit BoxCloser(std::wstring title, WORD button = IDOK);
  ~BoxCloser();
  BoxCloser(const BoxCloser&) = delete;
  BoxCloser& operator=(const BoxCloser&) = delete;

 private:
  void Watch() const;

  std::wstring mTitle;
  WORD mButton;
  std::atomic<bool> mDone{false};
  std::thread mThread;
};

}  // namespace plotvane::tests
