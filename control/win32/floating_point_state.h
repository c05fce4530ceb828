// The floating-point state of the thread: the system's own inside, the host's outside.
//
// Hosts run with traps for division by zero, with 24 or 64 bits of precision, or with another rounding. Every
// entry into the module sets the state in which all its arithmetic is defined, and gives the caller's back on
// leaving; every call out to the host runs in the state that the host came with.
#pragma once

#include <cfenv>

namespace plotvane::control::win32 {

// Both units of the processor: the standard's environment covers only one of them in some run-time libraries.
struct FloatingPointState {
  std::fenv_t environment;
  unsigned vectorState;
};

// For the time of its life: all traps masked, rounding to nearest, 53 bits, subnormal numbers kept. One
// inside another changes nothing, unless the host's code runs between them.
class OwnFloatingPoint {
 public:
  OwnFloatingPoint() noexcept;
  ~OwnFloatingPoint();
  OwnFloatingPoint(const OwnFloatingPoint&) = delete;
  OwnFloatingPoint& operator=(const OwnFloatingPoint&) = delete;

 private:
  friend class HostFloatingPoint;
  FloatingPointState mHost;
  bool mOutermost;
};

// For the time of a call to the host from inside an entry: the state of the entry's caller. Without an entry
// it changes nothing.
class HostFloatingPoint {
 public:
  HostFloatingPoint() noexcept;
  ~HostFloatingPoint();
  HostFloatingPoint(const HostFloatingPoint&) = delete;
  HostFloatingPoint& operator=(const HostFloatingPoint&) = delete;

 private:
  OwnFloatingPoint* mEntry;
};

}  // namespace plotvane::control::win32
