// Program: a recorded token list compiled to a flat list of steps over an accumulator.
//
// The program of `b^2*x^2+1` as a function of x, as Print() shows it:
//
//   when the table changed
//     load     b
//     power    2
//     store    #3
//   for each x
//     power    2
//     multiply left #3
//     add      1
//
// The accumulator starts as the varying variable. Whatever does not depend on that variable stands in the
// first part, which runs only when the table changed; a program without a varying variable consists of that
// part alone.
//
// A program checks nothing on its way: the operations keep a failure as a result that is not finite (see
// engine/operations.h), so a finite result is the right one, and any other sends the evaluation to the exact
// evaluator, which finds the error and words it. A program has no side effects, so nothing happens twice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/operation_table.h"
#include "engine/token.h"
#include "functions/catalogue.h"

namespace plotvane::engine {

// A number that steps read or write: an index into the program's slots.
using Slot = std::uint32_t;

// What a slot holds.
enum class SlotKind : std::uint8_t {
  Constant,   // a literal
  Variable,   // a variable of the table, read when the table changed
  Uniform,    // a result of the first part
  Varying,    // the varying variable
  Temporary,  // a result within the second part
};

enum class StepForm : std::uint8_t {
  OfAccumulator,  // acc = f(acc)
  SlotRight,      // acc = f(acc, slot)
  SlotLeft,       // acc = f(slot, acc)
  Load,           // acc = slot
  Store,          // slot = acc
  Call,           // acc = one of Program::Calls()
};

struct Step {
  StepForm form;
  OperationCode code;   // of the first three forms
  std::uint32_t place;  // the slot, or the number of the call
};

// A call of a function that has no form of its own among the operations (factorials, financial functions, …).
struct CallPlan {
  const functions::Function* function;
  functions::AngleMode mode;
  Slot first;           // of the arguments, which stand in consecutive slots
  std::uint32_t count;  // within what the function takes
};

// A variable, and the kind of value that the program was compiled for: any other kind needs another program,
// or the exact evaluator.
struct ProgramVariable {
  std::string name;
  bool isBoolean;
  Slot slot;
};

// Whether two steps can be one where there is code for their two operations: one on the accumulator and one
// with a slot on the right, or two of the latter.
[[nodiscard]] bool IsPair(const Step& first, const Step& second) noexcept;

// One or two steps bound to their code and their numbers. The code of an instruction ends by running the next
// one, which compilers turn into a jump; the last of a run gives the accumulator back.
struct Instruction {
  double (*run)(double accumulator, const Instruction* self) noexcept = nullptr;
  double* operand = nullptr;
  double* second = nullptr;  // of the second step
  const CallPlan* call = nullptr;
};

class Program {
 public:
  Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // --- Building

  Slot AddSlot(SlotKind kind, double value = 0);
  void AddVariable(std::string_view name, bool isBoolean, Slot slot);
  void AddUniform(const Step& step) { mUniformSteps.push_back(step); }
  void AddVarying(const Step& step) { mVaryingSteps.push_back(step); }
  std::uint32_t AddCall(const CallPlan& call);

  // Ends the building. `depth` is how many levels of evaluation the tokens nest.
  void Finish(Slot varying, bool isBoolean, std::size_t depth);
  void SetLastBracket(TokenKind bracket) noexcept { mLastBracket = bracket; }

  // --- Facts

  // The result is a truth value, -1 or 0.
  [[nodiscard]] bool IsBoolean() const noexcept { return mIsBoolean; }
  [[nodiscard]] std::size_t Depth() const noexcept { return mDepth; }
  // What the exact evaluator remembers of the tokens: the kind of opening bracket that was closed last, End
  // when none was.
  [[nodiscard]] TokenKind LastBracket() const noexcept { return mLastBracket; }
  [[nodiscard]] const std::vector<Step>& UniformSteps() const noexcept { return mUniformSteps; }
  [[nodiscard]] const std::vector<Step>& VaryingSteps() const noexcept { return mVaryingSteps; }
  [[nodiscard]] const std::vector<CallPlan>& Calls() const noexcept { return mCalls; }
  [[nodiscard]] const std::vector<ProgramVariable>& Variables() const noexcept { return mVariables; }
  [[nodiscard]] std::size_t SlotCount() const noexcept { return mSlots.size(); }
  [[nodiscard]] SlotKind KindOf(Slot slot) const noexcept { return mKinds[slot]; }
  [[nodiscard]] const double& NumberAt(Slot slot) const noexcept { return mSlots[slot]; }

  // One line per step.
  [[nodiscard]] std::string Print() const;

  // --- Running

  // Gives a variable its number; -1 or 0 for a truth value.
  void SetVariable(const ProgramVariable& variable, double value) noexcept { mSlots[variable.slot] = value; }

  // Runs the first part; afterwards the program is ready for any number of Runs. False when a result is not
  // finite: then the exact evaluator must be asked, whatever the varying variable is.
  [[nodiscard]] bool RunUniform() noexcept;

  // The result for one value of the varying variable; not finite when the exact evaluator must be asked.
  [[nodiscard]] double Run(double varying) noexcept {
    *mVaryingSlot = varying;
    return mVarying.front().run(varying, mVarying.data());
  }

 private:
  // Instructions are cut into runs: a compiler that makes calls of the jumps between instructions nests them
  // only so deep. The first run of several consists of one instruction that carries out the others.
  static constexpr std::size_t kLongestRun = 256;

  void Link(const std::vector<Step>& steps, std::vector<Instruction>& linked);
  [[nodiscard]] Instruction OperandsOf(const Step& step);

  std::vector<Step> mUniformSteps;
  std::vector<Step> mVaryingSteps;
  std::vector<Instruction> mUniform;
  std::vector<Instruction> mVarying;
  std::vector<CallPlan> mCalls;
  std::vector<ProgramVariable> mVariables;
  std::vector<double> mSlots;
  std::vector<SlotKind> mKinds;
  double* mVaryingSlot = nullptr;  // in mSlots
  bool mIsBoolean = false;
  std::size_t mDepth = 0;
  TokenKind mLastBracket = TokenKind::End;
};

// One operation on plain numbers; `b` is ignored by an operation of one number.
[[nodiscard]] double RunOperation(OperationCode code, double a, double b = 0) noexcept;

// One call; the arguments lie `stride` numbers apart. Not a number when the function fails.
[[nodiscard]] double RunCall(const CallPlan& call, const double* arguments, std::size_t stride) noexcept;

}  // namespace plotvane::engine
