#include "control/com/own_object.h"

namespace plotvane::control::com {

const void* ThisModuleTag() noexcept {
  static constexpr char kTag = 0;
  return &kTag;
}

}  // namespace plotvane::control::com
