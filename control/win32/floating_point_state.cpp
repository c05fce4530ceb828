#include "control/win32/floating_point_state.h"

#include <xmmintrin.h>

#include <cfloat>
#include <utility>

namespace plotvane::control::win32 {

namespace {

// The entry that this thread is inside of, null while it is in the host's code. The state belongs to the
// thread, and so does what is known about it.
thread_local OwnFloatingPoint* innermost = nullptr;

// MXCSR after a reset: all traps masked, nearest, no flushing of subnormal numbers, no flags.
constexpr unsigned kVectorState = 0x1F80;

void Save(FloatingPointState& state) noexcept {
  std::fegetenv(&state.environment);
  state.vectorState = ::_mm_getcsr();
}

void Restore(const FloatingPointState& state) noexcept {
  std::fesetenv(&state.environment);
  ::_mm_setcsr(state.vectorState);
}

void SetOwnState() noexcept {
  std::fenv_t ignored;
  std::feholdexcept(&ignored);
  std::fesetround(FE_TONEAREST);
  // Only 32-bit code returns numbers through the unit whose precision can be set.
  if constexpr (sizeof(void*) == 4) ::_control87(_MCW_EM | _RC_NEAR | _PC_53, _MCW_EM | _MCW_RC | _MCW_PC);
  ::_mm_setcsr(kVectorState);
}

}  // namespace

OwnFloatingPoint::OwnFloatingPoint() noexcept : mOutermost(innermost == nullptr) {
  if (!mOutermost) return;
  Save(mHost);
  innermost = this;
  SetOwnState();
}

OwnFloatingPoint::~OwnFloatingPoint() {
  if (!mOutermost) return;
  innermost = nullptr;
  Restore(mHost);
}

HostFloatingPoint::HostFloatingPoint() noexcept : mEntry(std::exchange(innermost, nullptr)) {
  if (mEntry != nullptr) Restore(mEntry->mHost);
}

HostFloatingPoint::~HostFloatingPoint() {
  innermost = mEntry;
  if (mEntry == nullptr) return;
  // What the host changed for itself during the call is its new state.
  Save(mEntry->mHost);
  SetOwnState();
}

}  // namespace plotvane::control::win32
