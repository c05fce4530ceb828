// The column loops for SSE2, which every processor this system runs on has.
#include "engine/column_loops.h"
#include "functions/fast_kernels.h"

namespace plotvane::engine {
namespace {

struct Sse2 {};

using Loops = ColumnLoops<functions::FastKernels<Sse2>>;

constexpr operations::Table<ColumnForms, Loops> kForms;
constexpr operations::PairTable<ColumnPairForms, Loops> kPairForms;

const ColumnForms& FormsOf(OperationCode code) noexcept {
  return kForms[code];
}

const ColumnPairForms* PairFormsOf(OperationCode first, OperationCode second) noexcept {
  return kPairForms.Find(first, second);
}

}  // namespace

const ColumnCode kSse2Columns{FormsOf, PairFormsOf, Loops::AllFinite};

}  // namespace plotvane::engine
