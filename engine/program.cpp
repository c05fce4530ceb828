#include "engine/program.h"

#include <array>
#include <span>

#include "functions/compute.h"
#include "functions/plain.h"
#include "platform/value.h"

namespace plotvane::engine {
namespace {

using ScalarRun = double (*)(double accumulator, const Instruction* self) noexcept;
using Real = functions::Plain<functions::WholeRangeKernels>;

double RunNext(double accumulator, const Instruction* self) noexcept {
  return self[1].run(accumulator, self + 1);
}

// The ways in which an instruction applies an operation.
struct ScalarForms {
  ScalarRun ofAccumulator = nullptr;
  ScalarRun slotRight = nullptr;
  ScalarRun slotLeft = nullptr;
};

template <class Operation>
double OfAccumulator(double accumulator, const Instruction* self) noexcept {
  return RunNext(Operation::Apply(Real(accumulator)).Get(), self);
}

template <class Operation>
double SlotRight(double accumulator, const Instruction* self) noexcept {
  return RunNext(Operation::Apply(Real(accumulator), Real(*self->operand)).Get(), self);
}

template <class Operation>
double SlotLeft(double accumulator, const Instruction* self) noexcept {
  return RunNext(Operation::Apply(Real(*self->operand), Real(accumulator)).Get(), self);
}

double Load(double /*accumulator*/, const Instruction* self) noexcept {
  return RunNext(*self->operand, self);
}

double Store(double accumulator, const Instruction* self) noexcept {
  *self->operand = accumulator;
  return RunNext(accumulator, self);
}

double StoreThenLoad(double accumulator, const Instruction* self) noexcept {
  *self->operand = accumulator;
  return RunNext(*self->second, self);
}

double Call(double /*accumulator*/, const Instruction* self) noexcept {
  return RunNext(RunCall(*self->call, self->operand, 1), self);
}

double End(double accumulator, const Instruction* /*self*/) noexcept {
  return accumulator;
}

// Carries out the runs after this instruction: each ends with an End, and an instruction without code ends
// them all.
double RunRuns(double accumulator, const Instruction* self) noexcept {
  const Instruction* next = self + 1;
  while (next->run) {
    accumulator = next->run(accumulator, next);
    while (next->run != End) ++next;
    ++next;
  }
  return accumulator;
}

struct ScalarMaker {
  template <class Operation>
  static constexpr ScalarForms ForOne() {
    return {OfAccumulator<Operation>, nullptr, nullptr};
  }
  template <class Operation>
  static constexpr ScalarForms ForTwo() {
    return {nullptr, SlotRight<Operation>, SlotLeft<Operation>};
  }
};

constexpr operations::Table<ScalarForms, ScalarMaker> kScalarTable;

// --- Two steps in one instruction: both of them arithmetic with a slot on the right

template <class First, class Second>
double SlotsRight(double accumulator, const Instruction* self) noexcept {
  const Real between = First::Apply(Real(accumulator), Real(*self->operand));
  return RunNext(Second::Apply(between, Real(*self->second)).Get(), self);
}

struct PairMaker {
  template <class First, class Second>
  static constexpr ScalarRun ForPair() {
    return SlotsRight<First, Second>;
  }
};

constexpr operations::PairTable<ScalarRun, PairMaker> kPairs;

// The code of two steps in one, null when there is none.
ScalarRun FindFused(const Step& first, const Step& second) noexcept {
  if (first.form == StepForm::Store && second.form == StepForm::Load) return StoreThenLoad;
  if (first.form != StepForm::SlotRight || second.form != StepForm::SlotRight) return nullptr;
  const ScalarRun* const pair = kPairs.Find(first.code, second.code);
  return pair ? *pair : nullptr;
}

}  // namespace

bool HasOperation(OperationCode code) noexcept {
  return kScalarTable[code].ofAccumulator != nullptr || kScalarTable[code].slotRight != nullptr;
}

double RunOperation(OperationCode code, double a, double b) noexcept {
  const ScalarForms& forms = kScalarTable[code];
  const ScalarRun run = forms.ofAccumulator != nullptr ? forms.ofAccumulator : forms.slotRight;
  const std::array<Instruction, 2> instructions{
      {{run, &b, nullptr, nullptr}, {End, nullptr, nullptr, nullptr}}};
  return run(a, instructions.data());
}

double RunCall(const CallPlan& call, const double* arguments, std::size_t stride) noexcept {
  std::array<platform::Value, functions::kMostArguments> values;
  for (std::size_t i = 0; i < call.count; ++i) values[i] = platform::Value(arguments[i * stride]);
  const functions::Trapped result =
      functions::Compute(*call.function, call.mode, std::span(values).first(call.count));
  return result.Ok() ? result.Get() : functions::kernels::kNotANumber;
}

Slot Program::AddSlot(SlotKind kind, double value) {
  mSlots.push_back(value);
  mKinds.push_back(kind);
  return static_cast<Slot>(mSlots.size() - 1);
}

void Program::AddVariable(std::string_view name, bool isBoolean, Slot slot) {
  mVariables.push_back({std::string(name), isBoolean, slot});
}

std::uint32_t Program::AddCall(const CallPlan& call) {
  mCalls.push_back(call);
  return static_cast<std::uint32_t>(mCalls.size() - 1);
}

Instruction Program::Link(const Step& step) {
  if (step.form == StepForm::Call) {
    const CallPlan& call = mCalls[step.place];
    return {Call, &mSlots[call.first], nullptr, &call};
  }
  const ScalarForms& forms = kScalarTable[step.code];
  if (step.form == StepForm::OfAccumulator) return {forms.ofAccumulator, nullptr, nullptr, nullptr};
  double* const operand = &mSlots[step.place];
  if (step.form == StepForm::Load) return {Load, operand, nullptr, nullptr};
  if (step.form == StepForm::Store) return {Store, operand, nullptr, nullptr};
  return {step.form == StepForm::SlotRight ? forms.slotRight : forms.slotLeft, operand, nullptr, nullptr};
}

void Program::Link(const std::vector<Step>& steps, std::vector<Instruction>& linked) {
  const bool several = steps.size() > kLongestRun;
  if (several) linked.push_back({RunRuns, nullptr, nullptr, nullptr});
  std::size_t inRun = 0;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (inRun++ == kLongestRun) {
      linked.push_back({End, nullptr, nullptr, nullptr});
      inRun = 1;
    }
    linked.push_back(Link(steps[i]));
    const ScalarRun fused = i + 1 < steps.size() ? FindFused(steps[i], steps[i + 1]) : nullptr;
    if (!fused) continue;
    linked.back().run = fused;
    linked.back().second = &mSlots[steps[++i].place];
  }
  linked.push_back({End, nullptr, nullptr, nullptr});
  if (several) linked.push_back({nullptr, nullptr, nullptr, nullptr});
}

void Program::Finish(Slot varying, bool isBoolean, std::size_t depth) {
  mIsBoolean = isBoolean;
  mDepth = depth;
  Link(mUniformSteps, mUniform);
  Link(mVaryingSteps, mVarying);
  mVaryingSlot = &mSlots[varying];
}

bool Program::RunUniform() noexcept {
  static_cast<void>(mUniform.front().run(0, mUniform.data()));
  double fault = 0;
  for (std::size_t slot = 0; slot < mSlots.size(); ++slot) {
    if (mKinds[slot] == SlotKind::Uniform) fault += mSlots[slot] - mSlots[slot];
  }
  return fault == 0;
}

}  // namespace plotvane::engine
