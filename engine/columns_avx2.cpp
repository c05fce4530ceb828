// The column loops for AVX2; only processors that have it come here.
#include "engine/column_loops.h"
#include "functions/fast_kernels.h"

namespace plotvane::engine {
namespace {

struct Avx2 {};

using Loops = ColumnLoops<functions::FastKernels<Avx2>>;

constexpr operations::Table<ColumnForms, Loops> kForms;
constexpr operations::PairTable<ColumnPairForms, Loops> kPairForms;

const ColumnForms& FormsOf(OperationCode code) noexcept {
  return kForms[code];
}

const ColumnPairForms* PairFormsOf(OperationCode first, OperationCode second) noexcept {
  return kPairForms.Find(first, second);
}

}  // namespace

const ColumnCode kAvx2Columns{FormsOf, PairFormsOf, Loops::AllFinite};

}  // namespace plotvane::engine
