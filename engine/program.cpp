#include "engine/program.h"

#include <array>
#include <span>

#include "functions/compute.h"
#include "functions/plain.h"
#include "platform/value.h"

namespace plotvane::engine {
namespace {

using ScalarRun = double (*)(double accumulator, const Instruction& instruction) noexcept;
using Real = functions::Plain<functions::WholeRangeKernels>;

// The ways in which an instruction applies an operation.
struct ScalarForms {
  ScalarRun ofAccumulator = nullptr;
  ScalarRun slotRight = nullptr;
  ScalarRun slotLeft = nullptr;
};

template <class Operation>
double OfAccumulator(double accumulator, const Instruction& /*instruction*/) noexcept {
  return Operation::Apply(Real(accumulator)).Get();
}

template <class Operation>
double SlotRight(double accumulator, const Instruction& instruction) noexcept {
  return Operation::Apply(Real(accumulator), Real(*instruction.operand)).Get();
}

template <class Operation>
double SlotLeft(double accumulator, const Instruction& instruction) noexcept {
  return Operation::Apply(Real(*instruction.operand), Real(accumulator)).Get();
}

double Load(double /*accumulator*/, const Instruction& instruction) noexcept {
  return *instruction.operand;
}

double Store(double accumulator, const Instruction& instruction) noexcept {
  *instruction.operand = accumulator;
  return accumulator;
}

double Call(double /*accumulator*/, const Instruction& instruction) noexcept {
  return RunCall(*instruction.call, instruction.operand, 1);
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

}  // namespace

bool HasOperation(OperationCode code) noexcept {
  return kScalarTable[code].ofAccumulator != nullptr || kScalarTable[code].slotRight != nullptr;
}

double RunOperation(OperationCode code, double a, double b) noexcept {
  const ScalarForms& forms = kScalarTable[code];
  const Instruction instruction{nullptr, &b, nullptr};
  return (forms.ofAccumulator != nullptr ? forms.ofAccumulator : forms.slotRight)(a, instruction);
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
    return {Call, &mSlots[call.first], &call};
  }
  if (step.form == StepForm::Load) return {Load, &mSlots[step.place], nullptr};
  if (step.form == StepForm::Store) return {Store, &mSlots[step.place], nullptr};
  const ScalarForms& forms = kScalarTable[step.code];
  if (step.form == StepForm::OfAccumulator) return {forms.ofAccumulator, nullptr, nullptr};
  return {step.form == StepForm::SlotRight ? forms.slotRight : forms.slotLeft, &mSlots[step.place], nullptr};
}

void Program::Finish(Slot varying, bool isBoolean, std::size_t depth) {
  mIsBoolean = isBoolean;
  mDepth = depth;
  for (const Step& step : mUniformSteps) mUniform.push_back(Link(step));
  for (const Step& step : mVaryingSteps) mVarying.push_back(Link(step));
  mFirst = mVarying.data();
  mEnd = mFirst + mVarying.size();
  mVaryingSlot = &mSlots[varying];
}

void Program::RunUniform() noexcept {
  double accumulator = 0;
  for (const Instruction& step : mUniform) accumulator = step.run(accumulator, step);
}

}  // namespace plotvane::engine
