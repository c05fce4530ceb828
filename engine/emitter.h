// Emitter: writes the steps of a program, operation by operation, over a stack of operands.
//
// It writes as late as it can: a number is loaded where it is used, a constant operation is carried out at
// once, and what does not depend on the varying variable goes into the first part of the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/program.h"
#include "functions/kernels/bits.h"

namespace plotvane::engine {

class Emitter {
 public:
  explicit Emitter(Program& program) : mProgram(program), mVaryingSlot(program.AddSlot(SlotKind::Varying)) {}

  // --- Operands

  void PushConstant(double value) { mStack.push_back({.constant = value}); }
  void PushSlot(Slot slot, bool isUniform, bool isBoolean) {
    mStack.push_back({Place::InSlot, isUniform, isBoolean, 0, slot});
  }
  void PushVarying() { PushSlot(mVaryingSlot, false, false); }
  void Drop() { mStack.pop_back(); }

  // The top when it is a constant, else not-a-number.
  [[nodiscard]] double TopConstant() const noexcept {
    return mStack.back().place == Place::Constant ? mStack.back().constant : functions::kernels::kNotANumber;
  }
  // Whether the top is certainly finite for the operation with the operand below it: no step of the same part
  // computed it.
  [[nodiscard]] bool TopIsFinite() const noexcept;
  [[nodiscard]] bool TopIsBoolean() const noexcept { return mStack.back().isBoolean; }
  [[nodiscard]] bool BothBoolean() const noexcept {
    return mStack.back().isBoolean && mStack[mStack.size() - 2].isBoolean;
  }

  // --- Operations: each takes its operands off the stack and leaves its result there

  void One(OperationCode code, bool givesBoolean);
  void Two(OperationCode code, bool givesBoolean);
  // The last `count` operands become the arguments of a call.
  void Call(const functions::Function& function, functions::AngleMode mode, std::size_t count);

  // Leaves the one operand in the accumulator of the second part, and ends the program.
  void Finish(std::size_t depth);

 private:
  // Where a value is while the steps for it and for what follows are written.
  enum class Place : std::uint8_t { Constant, InSlot, Accumulator };

  // A uniform operand does not depend on the varying variable; its steps stand in the first part of the
  // program and its accumulator is that part's.
  struct Operand {
    Place place = Place::Constant;
    bool isUniform = true;
    bool isBoolean = false;
    double constant = 0;
    Slot slot = 0;
  };

  static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

  // One part of the program: whose value its accumulator holds.
  struct PartState {
    std::size_t owner = kNobody;  // index into mStack
    bool holdsVarying = false;    // nobody's, but the varying variable itself
  };

  PartState& Part(bool isUniform) noexcept { return isUniform ? mUniform : mVarying; }

  void Write(bool isUniform, const Step& step);
  static bool Fold(Operand& operand, double value, bool isBoolean);

  [[nodiscard]] bool InAccumulator(std::size_t place, bool isUniform) noexcept;
  void MoveToAccumulator(std::size_t place, bool isUniform);
  void SpillAll(bool isUniform);
  [[nodiscard]] Slot SlotOf(std::size_t place);

  [[nodiscard]] Slot NewTemporary();
  void FreeTemporary(Slot slot);

  Program& mProgram;
  Slot mVaryingSlot;
  std::vector<Operand> mStack;
  std::vector<Slot> mFreeTemporaries;
  PartState mUniform;
  PartState mVarying{.holdsVarying = true};
};

}  // namespace plotvane::engine
