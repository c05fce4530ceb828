#include "engine/columns.h"

#include <algorithm>

#include "platform/processor.h"

namespace plotvane::engine {

namespace {

constexpr std::size_t kAccumulator = 1;  // its place among the arrays

}  // namespace

ColumnWidth WidestColumns() noexcept {
  return platform::ProcessorHasAvx2() ? ColumnWidth::Avx2 : ColumnWidth::Sse2;
}

Columns::Columns(Program& program, ColumnWidth width)
    : mProgram(program),
      mCode(width == ColumnWidth::Avx2 ? kAvx2Columns : kSse2Columns),
      mColumnOf(program.SlotCount()) {
  std::size_t columns = 2;
  for (std::size_t slot = 0; slot < program.SlotCount(); ++slot) {
    if (program.KindOf(static_cast<Slot>(slot)) == SlotKind::Temporary) mColumnOf[slot] = columns++;
  }
  mNumbers.resize(columns * kBlock);
  Bind(program.VaryingSteps());
}

void Columns::Bind(const std::vector<Step>& steps) {
  for (std::size_t i = 0; i < steps.size(); ++i) {
    Bound bound = Bind(steps[i]);
    if (i + 1 < steps.size() && BindPair(bound, steps[i], steps[i + 1])) ++i;
    // What is stored next goes there at once; the step after a store never uses the accumulator.
    const bool isStored = bound.run && i + 1 < steps.size() && steps[i + 1].form == StepForm::Store;
    if (isStored) bound.target = mColumnOf[steps[++i].place];
    mSteps.push_back(bound);
  }
}

bool Columns::IsColumn(Slot slot) const noexcept {
  const SlotKind kind = mProgram.KindOf(slot);
  return kind == SlotKind::Varying || kind == SlotKind::Temporary;
}

Columns::BoundOperand Columns::Bind(Slot slot) const {
  return {IsColumn(slot), mColumnOf[slot], &mProgram.NumberAt(slot)};
}

Columns::Bound Columns::Bind(const Step& step) const {
  Bound bound{nullptr, step.form, {}, {}, kAccumulator, nullptr};
  if (step.form == StepForm::Call) {
    bound.call = &mProgram.Calls()[step.place];
    return bound;
  }
  const ColumnForms& forms = mCode.forms(step.code);
  if (step.form == StepForm::OfAccumulator) {
    bound.run = forms.ofAccumulator;
    return bound;
  }
  bound.operand = Bind(step.place);
  if (step.form == StepForm::SlotRight) {
    bound.run = bound.operand.isColumn ? forms.columnRight : forms.uniformRight;
  }
  if (step.form == StepForm::SlotLeft) {
    bound.run = bound.operand.isColumn ? forms.columnLeft : forms.uniformLeft;
  }
  return bound;
}

// Makes a step and the next one a pair, where there is a loop for both.
bool Columns::BindPair(Bound& bound, const Step& first, const Step& second) const {
  const ColumnPairForms* const forms =
      IsPair(first, second) ? mCode.pairForms(first.code, second.code) : nullptr;
  if (!forms) return false;
  bound.second = Bind(second.place);
  bound.run = (*forms)[bound.operand.isColumn ? 1 : 0][bound.second.isColumn ? 1 : 0];
  return true;
}

std::size_t Columns::Run(std::span<const double> xs, std::span<double> ys) noexcept {
  const std::size_t groups = (xs.size() + kColumnGroup - 1) / kColumnGroup;
  if (groups * kColumnGroup == xs.size()) return RunGroups(xs, ys, groups, xs.data(), ys.data());
  std::ranges::copy(xs, ColumnAt(0));
  std::fill_n(ColumnAt(0) + xs.size(), groups * kColumnGroup - xs.size(), xs.back());
  return RunGroups(xs, ys, groups, ColumnAt(0), ColumnAt(1));
}

std::size_t Columns::RunGroups(std::span<const double> xs, std::span<double> ys, std::size_t groups,
                               const double* varying, double* accumulator) noexcept {
  const double* const results = RunSteps(groups, varying, accumulator);
  const bool allFinite = mCode.allFinite(results, groups);
  if (results != ys.data()) std::copy_n(results, xs.size(), ys.begin());
  return allFinite ? xs.size() : Mend(xs, ys);
}

// Asks the program itself where the loops gave nothing.
std::size_t Columns::Mend(std::span<const double> xs, std::span<double> ys) noexcept {
  for (std::size_t i = 0; i < xs.size(); ++i) {
    if (ys[i] - ys[i] == 0) continue;
    ys[i] = mProgram.Run(xs[i]);
    if (ys[i] - ys[i] != 0) return i;
  }
  return xs.size();
}

// The array in which the results stand at the end.
const double* Columns::RunSteps(std::size_t groups, const double* varying, double* accumulator) noexcept {
  const std::size_t count = groups * kColumnGroup;
  const double* current = varying;  // the accumulator starts as the varying variable
  const auto operandOf = [&](const BoundOperand& bound) -> ColumnOperand {
    return {bound.column == 0 ? varying : ColumnAt(bound.column), bound.uniform ? *bound.uniform : 0};
  };
  for (const Bound& step : mSteps) {
    const ColumnOperand operand = operandOf(step.operand);
    if (step.run) {
      double* const target = step.target == kAccumulator ? accumulator : ColumnAt(step.target);
      step.run({target, current, operand, operandOf(step.second), groups});
      current = target;
    } else if (step.form == StepForm::Store) {
      std::copy_n(current, count, ColumnAt(step.operand.column));
    } else if (step.form == StepForm::Call) {
      RunCalls(*step.call, count, accumulator);
      current = accumulator;
    } else if (step.operand.isColumn) {
      current = operand.column;
    } else {
      std::fill_n(accumulator, count, operand.uniform);
      current = accumulator;
    }
  }
  return current;
}

// The arguments of a call with a varying one are columns, one after the other.
void Columns::RunCalls(const CallPlan& call, std::size_t count, double* results) noexcept {
  const double* const first = ColumnAt(mColumnOf[call.first]);
  for (std::size_t i = 0; i < count; ++i) results[i] = RunCall(call, first + i, kBlock);
}

}  // namespace plotvane::engine
