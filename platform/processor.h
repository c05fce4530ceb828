// What the processor of this machine can do.
#pragma once

namespace plotvane::platform {

// True when the processor and the system run AVX2 code; always false where this cannot be asked.
[[nodiscard]] bool ProcessorHasAvx2() noexcept;

}  // namespace plotvane::platform
