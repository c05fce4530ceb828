#include "engine/columns.h"

#include <algorithm>

#include "platform/processor.h"

namespace plotvane::engine {

ColumnWidth WidestColumns() noexcept {
  return platform::ProcessorHasAvx2() ? ColumnWidth::Avx2 : ColumnWidth::Sse2;
}

Columns::Columns(const Program& program, ColumnWidth width)
    : mProgram(program), mColumnOf(program.SlotCount()) {
  std::size_t columns = 1;  // the accumulator
  for (std::size_t slot = 0; slot < program.SlotCount(); ++slot) {
    if (program.KindOf(static_cast<Slot>(slot)) == SlotKind::Temporary) mColumnOf[slot] = columns++;
  }
  mNumbers.resize(columns * kBlock);
  mSteps.reserve(program.VaryingSteps().size());
  for (const Step& step : program.VaryingSteps()) mSteps.push_back(Bind(step, width));
}

Columns::Bound Columns::Bind(const Step& step, ColumnWidth width) const {
  Bound bound{nullptr, step.form, false, nullptr, 0, nullptr};
  if (step.form == StepForm::Call) {
    bound.call = &mProgram.Calls()[step.place];
    return bound;
  }
  const ColumnForms& forms = width == ColumnWidth::Avx2 ? Avx2Forms(step.code) : Sse2Forms(step.code);
  if (step.form == StepForm::OfAccumulator) {
    bound.run = forms.ofAccumulator;
    return bound;
  }
  const SlotKind kind = mProgram.KindOf(step.place);
  bound.operandIsColumn = kind == SlotKind::Varying || kind == SlotKind::Temporary;
  bound.uniform = &mProgram.NumberAt(step.place);
  bound.column = mColumnOf[step.place];
  if (step.form == StepForm::SlotRight)
    bound.run = bound.operandIsColumn ? forms.columnRight : forms.uniformRight;
  if (step.form == StepForm::SlotLeft)
    bound.run = bound.operandIsColumn ? forms.columnLeft : forms.uniformLeft;
  return bound;
}

const double* Columns::ColumnAt(std::size_t column, std::span<const double> xs) const noexcept {
  return column == 0 ? xs.data() : mNumbers.data() + column * kBlock;
}

std::span<const double> Columns::Run(std::span<const double> xs) noexcept {
  double* const accumulator = mNumbers.data();
  const double* current = xs.data();  // the accumulator starts as the varying variable
  for (const Bound& step : mSteps) {
    const double* const column = step.operandIsColumn ? ColumnAt(step.column, xs) : nullptr;
    if (step.run) {
      step.run({accumulator, current, column, step.operandIsColumn || !step.uniform ? 0 : *step.uniform,
                xs.size()});
      current = accumulator;
    } else if (step.form == StepForm::Store) {
      std::copy_n(current, xs.size(), mNumbers.data() + step.column * kBlock);
    } else if (step.form == StepForm::Call) {
      RunCalls(*step.call, xs.size());
      current = accumulator;
    } else if (step.operandIsColumn) {
      current = column;
    } else {
      std::fill_n(accumulator, xs.size(), *step.uniform);
      current = accumulator;
    }
  }
  return {current, xs.size()};
}

// The arguments of a call with a varying one are columns, one after the other.
void Columns::RunCalls(const CallPlan& call, std::size_t count) noexcept {
  const double* const first = mNumbers.data() + mColumnOf[call.first] * kBlock;
  for (std::size_t i = 0; i < count; ++i) mNumbers[i] = RunCall(call, first + i, kBlock);
}

std::size_t Columns::LeadingFinite(std::span<const double> numbers) noexcept {
  const auto isFault = [](double number) { return number - number != 0; };
  return static_cast<std::size_t>(std::ranges::find_if(numbers, isFault) - numbers.begin());
}

bool Columns::AllFinite(std::span<const double> numbers) noexcept {
  double fault = 0;  // turns into a not-a-number, and stays one
  for (const double number : numbers) fault += number - number;
  return fault == 0;
}

}  // namespace plotvane::engine
