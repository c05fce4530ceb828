#include "control/com/live_objects.h"

#include <atomic>

namespace plotvane::control::com {

namespace {

constinit std::atomic<long> liveObjects{0};

}  // namespace

long LiveObjectCount() noexcept {
  return liveObjects.load();
}

LiveObject::LiveObject() noexcept {
  ++liveObjects;
}
LiveObject::~LiveObject() {
  --liveObjects;
}

void LockModule(bool lock) noexcept {
  liveObjects += lock ? 1 : -1;
}

}  // namespace plotvane::control::com
