#include "engine/emitter.h"

namespace plotvane::engine {

using functions::Function;

bool Emitter::TopIsFinite() const noexcept {
  const Operand& top = mStack.back();
  if (top.place == Place::Constant) return true;
  if (top.isUniform && !mStack[mStack.size() - 2].isUniform) return true;
  if (top.place != Place::InSlot) return false;
  const SlotKind kind = mProgram.KindOf(top.slot);
  return kind == SlotKind::Variable || kind == SlotKind::Varying;
}

// --- Operations

void Emitter::One(OperationCode code, bool givesBoolean) {
  Operand& operand = mStack.back();
  if (operand.place == Place::Constant && Fold(operand, RunOperation(code, operand.constant), givesBoolean))
    return;
  MoveToAccumulator(mStack.size() - 1, operand.isUniform);
  Write(operand.isUniform, {StepForm::OfAccumulator, code, 0});
  operand.isBoolean = givesBoolean;
}

void Emitter::Two(OperationCode code, bool givesBoolean) {
  const std::size_t leftPlace = mStack.size() - 2;
  const std::size_t rightPlace = mStack.size() - 1;
  Operand& first = mStack[leftPlace];
  const Operand& second = mStack[rightPlace];
  if (first.place == Place::Constant && second.place == Place::Constant &&
      Fold(first, RunOperation(code, first.constant, second.constant), givesBoolean)) {
    mStack.pop_back();
    return;
  }
  const bool isUniform = first.isUniform && second.isUniform;
  const bool swap = !InAccumulator(leftPlace, isUniform) && InAccumulator(rightPlace, isUniform);
  const std::size_t inAccumulator = swap ? rightPlace : leftPlace;
  const Slot other = SlotOf(swap ? leftPlace : rightPlace);
  MoveToAccumulator(inAccumulator, isUniform);
  const bool left = swap && !operations::IsCommutative(code);
  Write(isUniform, {left ? StepForm::SlotLeft : StepForm::SlotRight, code, other});
  FreeTemporary(other);
  mStack.pop_back();
  Part(isUniform).owner = leftPlace;
  mStack[leftPlace] = {Place::Accumulator, isUniform, givesBoolean, 0, 0};
}

void Emitter::Call(const Function& function, functions::AngleMode mode, std::size_t count) {
  const std::size_t first = mStack.size() - count;
  bool isUniform = true;
  for (std::size_t i = first; i < mStack.size(); ++i) isUniform = isUniform && mStack[i].isUniform;
  SpillAll(isUniform);
  const SlotKind kind = isUniform ? SlotKind::Uniform : SlotKind::Temporary;
  std::vector<Slot> arguments(count);
  for (Slot& slot : arguments) slot = mProgram.AddSlot(kind);
  for (std::size_t i = 0; i < count; ++i) {
    const Slot from = SlotOf(first + i);
    Write(isUniform, {StepForm::Load, 0, from});
    Write(isUniform, {StepForm::Store, 0, arguments[i]});
    FreeTemporary(from);
  }
  const std::uint32_t call =
      mProgram.AddCall({&function, mode, arguments.front(), static_cast<std::uint32_t>(count)});
  Write(isUniform, {StepForm::Call, 0, call});
  mStack.resize(first);
  Part(isUniform).owner = first;
  Part(isUniform).holdsVarying = false;
  mStack.push_back({Place::Accumulator, isUniform, false, 0, 0});
}

void Emitter::Finish(std::size_t depth) {
  const bool isBoolean = mStack.back().isBoolean;
  MoveToAccumulator(0, false);
  mProgram.Finish(mVaryingSlot, isBoolean, depth);
}

void Emitter::Write(bool isUniform, const Step& step) {
  isUniform ? mProgram.AddUniform(step) : mProgram.AddVarying(step);
  if (!isUniform) mVarying.holdsVarying = false;
}

bool Emitter::Fold(Operand& operand, double value, bool isBoolean) {
  // A failure is left to the run, where it ends in the exact evaluator.
  if (value - value != 0) return false;
  operand.constant = value;
  operand.isBoolean = isBoolean;
  return true;
}

// --- The accumulators

// Also true for the varying variable while the accumulator still holds it.
bool Emitter::InAccumulator(std::size_t place, bool isUniform) noexcept {
  if (Part(isUniform).owner == place) return true;
  const Operand& operand = mStack[place];
  return !isUniform && mVarying.holdsVarying && operand.place == Place::InSlot && operand.slot == mVaryingSlot;
}

void Emitter::MoveToAccumulator(std::size_t place, bool isUniform) {
  PartState& part = Part(isUniform);
  if (!InAccumulator(place, isUniform)) {
    SpillAll(isUniform);
    const Slot slot = SlotOf(place);
    Write(isUniform, {StepForm::Load, 0, slot});
    FreeTemporary(slot);
  }
  part.owner = place;
  if (!isUniform) mVarying.holdsVarying = false;
  mStack[place].place = Place::Accumulator;
  mStack[place].isUniform = isUniform;
}

// Makes room in a part's accumulator: its value goes to a slot.
void Emitter::SpillAll(bool isUniform) {
  PartState& part = Part(isUniform);
  if (part.owner == kNobody) return;
  Operand& operand = mStack[part.owner];
  operand.slot = isUniform ? mProgram.AddSlot(SlotKind::Uniform) : NewTemporary();
  operand.place = Place::InSlot;
  Write(isUniform, {StepForm::Store, 0, operand.slot});
  part.owner = kNobody;
}

// The slot of an operand; one that is still in an accumulator is stored.
Slot Emitter::SlotOf(std::size_t place) {
  Operand& operand = mStack[place];
  if (operand.place == Place::Constant) return mProgram.AddSlot(SlotKind::Constant, operand.constant);
  if (operand.place == Place::Accumulator) SpillAll(operand.isUniform);
  return mStack[place].slot;
}

// --- Temporaries of the second part are used again: columns need memory for each

Slot Emitter::NewTemporary() {
  if (mFreeTemporaries.empty()) return mProgram.AddSlot(SlotKind::Temporary);
  const Slot slot = mFreeTemporaries.back();
  mFreeTemporaries.pop_back();
  return slot;
}

void Emitter::FreeTemporary(Slot slot) {
  if (mProgram.KindOf(slot) == SlotKind::Temporary) mFreeTemporaries.push_back(slot);
}

}  // namespace plotvane::engine
