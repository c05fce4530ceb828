// The column loops for SSE2, which every processor this system runs on has.
#include "engine/column_loops.h"
#include "functions/fast_kernels.h"

namespace plotvane::engine {
namespace {

struct Sse2 {};

constexpr operations::Table<ColumnForms, ColumnLoops<functions::FastKernels<Sse2>>> kForms;

}  // namespace

const ColumnForms& Sse2Forms(OperationCode code) noexcept {
  return kForms[code];
}

}  // namespace plotvane::engine
