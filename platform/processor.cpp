#include "platform/processor.h"

namespace plotvane::platform {

bool ProcessorHasAvx2() noexcept {
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
  return __builtin_cpu_supports("avx2") != 0;
#else
  return false;
#endif
}

}  // namespace plotvane::platform
