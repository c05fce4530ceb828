// The column loops for AVX2; only processors that have it come here.
#include "engine/column_loops.h"
#include "functions/fast_kernels.h"

namespace plotvane::engine {
namespace {

struct Avx2 {};

constexpr operations::Table<ColumnForms, ColumnLoops<functions::FastKernels<Avx2>>> kForms;

}  // namespace

const ColumnForms& Avx2Forms(OperationCode code) noexcept {
  return kForms[code];
}

}  // namespace plotvane::engine
