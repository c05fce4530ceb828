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

// What follows an instruction: the next one, or the end of the run.
template <bool kIsLast>
double GoOn(Real accumulator, const Instruction* self) noexcept {
  if constexpr (kIsLast) return accumulator.Get();
  return RunNext(accumulator.Get(), self);
}

// An instruction's code in the middle of a run, and as its last one.
struct ScalarForm {
  ScalarRun inside = nullptr;
  ScalarRun last = nullptr;
};

// The ways in which an instruction applies an operation.
struct ScalarForms {
  ScalarForm ofAccumulator;
  ScalarForm slotRight;
  ScalarForm slotLeft;
};

template <class Operation, bool kIsLast>
double OfAccumulator(double accumulator, const Instruction* self) noexcept {
  return GoOn<kIsLast>(Operation::Apply(Real(accumulator)), self);
}

template <class Operation, bool kIsLast>
double SlotRight(double accumulator, const Instruction* self) noexcept {
  return GoOn<kIsLast>(Operation::Apply(Real(accumulator), Real(*self->operand)), self);
}

template <class Operation, bool kIsLast>
double SlotLeft(double accumulator, const Instruction* self) noexcept {
  return GoOn<kIsLast>(Operation::Apply(Real(*self->operand), Real(accumulator)), self);
}

template <bool kIsLast>
double Load(double /*accumulator*/, const Instruction* self) noexcept {
  return GoOn<kIsLast>(*self->operand, self);
}

template <bool kIsLast>
double Store(double accumulator, const Instruction* self) noexcept {
  *self->operand = accumulator;
  return GoOn<kIsLast>(accumulator, self);
}

template <bool kIsLast>
double Call(double /*accumulator*/, const Instruction* self) noexcept {
  return GoOn<kIsLast>(RunCall(*self->call, self->operand, 1), self);
}

template <bool kIsLast>
double StoreThenLoad(double accumulator, const Instruction* self) noexcept {
  *self->operand = accumulator;
  return GoOn<kIsLast>(*self->second, self);
}

// Two operations, the second with a slot on the right, and so the first when it takes two numbers.
template <class First, class Second, bool kIsLast>
double Pair(double accumulator, const Instruction* self) noexcept {
  Real between(accumulator);
  if constexpr (operations::kIsOfTwo<First>) {
    between = First::Apply(between, Real(*self->operand));
  } else {
    between = First::Apply(between);
  }
  return GoOn<kIsLast>(Second::Apply(between, Real(*self->second)), self);
}

// Marks the end of a run; its instructions before end it themselves.
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
    return {{OfAccumulator<Operation, false>, OfAccumulator<Operation, true>}, {}, {}};
  }
  template <class Operation>
  static constexpr ScalarForms ForTwo() {
    return {{},
            {SlotRight<Operation, false>, SlotRight<Operation, true>},
            {SlotLeft<Operation, false>, SlotLeft<Operation, true>}};
  }
  template <class First, class Second>
  static constexpr ScalarForm ForPair() {
    return {Pair<First, Second, false>, Pair<First, Second, true>};
  }
};

constexpr operations::Table<ScalarForms, ScalarMaker> kForms;
constexpr operations::PairTable<ScalarForm, ScalarMaker> kPairs;

// The code of one step.
ScalarForm CodeOf(const Step& step) noexcept {
  switch (step.form) {
    case StepForm::OfAccumulator: return kForms[step.code].ofAccumulator;
    case StepForm::SlotRight: return kForms[step.code].slotRight;
    case StepForm::SlotLeft: return kForms[step.code].slotLeft;
    case StepForm::Load: return {Load<false>, Load<true>};
    case StepForm::Store: return {Store<false>, Store<true>};
    case StepForm::Call: break;
  }
  return {Call<false>, Call<true>};
}

// The code of two steps in one instruction, empty when there is none.
ScalarForm CodeOf(const Step& first, const Step& second) noexcept {
  if (first.form == StepForm::Store && second.form == StepForm::Load) {
    return {StoreThenLoad<false>, StoreThenLoad<true>};
  }
  const ScalarForm* const pair = IsPair(first, second) ? kPairs.Find(first.code, second.code) : nullptr;
  return pair ? *pair : ScalarForm{};
}

}  // namespace

bool IsPair(const Step& first, const Step& second) noexcept {
  const bool firstMayBe = first.form == StepForm::OfAccumulator || first.form == StepForm::SlotRight;
  return firstMayBe && second.form == StepForm::SlotRight;
}

bool HasOperation(OperationCode code) noexcept {
  return kForms[code].ofAccumulator.last != nullptr || kForms[code].slotRight.last != nullptr;
}

double RunOperation(OperationCode code, double a, double b) noexcept {
  const ScalarForms& forms = kForms[code];
  const ScalarRun run = forms.ofAccumulator.last != nullptr ? forms.ofAccumulator.last : forms.slotRight.last;
  const Instruction instruction{run, &b, nullptr, nullptr};
  return run(a, &instruction);
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

void Program::Link(const std::vector<Step>& steps, std::vector<Instruction>& linked) {
  const bool several = steps.size() > kLongestRun;
  if (several) linked.push_back({RunRuns, nullptr, nullptr, nullptr});
  for (std::size_t i = 0; i < steps.size();) {
    ScalarRun last = End;
    for (std::size_t inRun = 0; inRun < kLongestRun && i < steps.size(); ++inRun) {
      const Step& first = steps[i++];
      ScalarForm form = i < steps.size() ? CodeOf(first, steps[i]) : ScalarForm{};
      Instruction& instruction = linked.emplace_back(OperandsOf(first));
      if (form.inside) {
        instruction.second = &mSlots[steps[i++].place];
      } else {
        form = CodeOf(first);
      }
      instruction.run = form.inside;
      last = form.last;
    }
    linked.back().run = last;
    linked.push_back({End, nullptr, nullptr, nullptr});
  }
  if (steps.empty()) linked.push_back({End, nullptr, nullptr, nullptr});
  if (several) linked.push_back({nullptr, nullptr, nullptr, nullptr});
}

// An instruction with what its code reads and writes, but without the code.
Instruction Program::OperandsOf(const Step& step) {
  if (step.form == StepForm::OfAccumulator) return {};
  if (step.form != StepForm::Call) return {nullptr, &mSlots[step.place], nullptr, nullptr};
  const CallPlan& call = mCalls[step.place];
  return {nullptr, &mSlots[call.first], nullptr, &call};
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
