#include "engine/compile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/evaluator.h"
#include "engine/literal.h"
#include "engine/operators.h"
#include "functions/compute.h"

namespace plotvane::engine {
namespace {

using functions::Function;
using functions::Operation;

// Where a value is while the steps for it and for what follows are written.
enum class Place : std::uint8_t { Constant, Slot, Accumulator };

// One value on the compiler's stack. A uniform one does not depend on the varying variable; its steps stand
// in the first part of the program and its accumulator is that part's.
struct Operand {
  Place place = Place::Constant;
  bool isUniform = true;
  bool isBoolean = false;
  double constant = 0;
  Slot slot = 0;
};

// What an operator does with numbers, with two truth values, and whether its result is a truth value.
struct OperatorCode {
  TokenKind kind;
  OperationCode onNumbers;
  OperationCode onBooleans;
  bool givesBoolean;  // whatever the operands are
};

template <class OnNumbers, class OnBooleans = OnNumbers>
constexpr OperatorCode Entry(TokenKind kind, bool givesBoolean = false) {
  return {kind, operations::kOfTwo<OnNumbers>, operations::kOfTwo<OnBooleans>, givesBoolean};
}

constexpr std::array kOperatorCodes{
    Entry<operations::Scientific>(TokenKind::Exponent),
    Entry<operations::Power>(TokenKind::Power),
    Entry<operations::Multiply>(TokenKind::Times),
    Entry<operations::Divide>(TokenKind::Divide),
    Entry<operations::WholeQuotient>(TokenKind::Backslash),
    Entry<operations::WholeRemainder>(TokenKind::Mod),
    Entry<operations::Add>(TokenKind::Plus),
    Entry<operations::Subtract>(TokenKind::Minus),
    Entry<operations::Equal>(TokenKind::Equal, true),
    Entry<operations::Less>(TokenKind::Less, true),
    Entry<operations::Greater>(TokenKind::Greater, true),
    Entry<operations::NotEqual>(TokenKind::NotEqual, true),
    Entry<operations::LessOrEqual>(TokenKind::LessOrEqual, true),
    Entry<operations::GreaterOrEqual>(TokenKind::GreaterOrEqual, true),
    Entry<operations::AndBits, operations::And>(TokenKind::And),
    Entry<operations::OrBits, operations::Or>(TokenKind::Or),
    Entry<operations::XorBits, operations::Xor>(TokenKind::Xor),
    Entry<operations::EqvBits, operations::Eqv>(TokenKind::Eqv),
    Entry<operations::ImpBits, operations::Imp>(TokenKind::Imp),
};

const OperatorCode* FindOperatorCode(TokenKind kind) noexcept {
  for (const OperatorCode& entry : kOperatorCodes) {
    if (entry.kind == kind) return &entry;
  }
  return nullptr;
}

struct WholePowerCode {
  double exponent;
  OperationCode code;
};

template <int... kExponents>
constexpr auto WholePowers(std::integer_sequence<int, kExponents...> /*from 2*/) {
  return std::array{
      WholePowerCode{kExponents + 2.0, operations::kOfOne<operations::WholePower<kExponents + 2>>}...};
}

constexpr auto kWholePowers = WholePowers(std::make_integer_sequence<int, 7>{});

// The functions of two numbers that are operations.
std::optional<OperationCode> CodeOfTwo(Operation operation) {
  switch (operation) {
    case Operation::LogN: return operations::kOfTwo<operations::LogN>;
    case Operation::DecimalMod: return operations::kOfTwo<operations::DecimalMod>;
    case Operation::Round: return operations::kOfTwo<operations::Round>;
    default: return std::nullopt;
  }
}

// Writes steps for operations over a stack of operands, as late as possible: numbers are loaded where they
// are used.
class Emitter {
 public:
  explicit Emitter(Program& program) : mProgram(program), mVaryingSlot(program.AddSlot(SlotKind::Varying)) {}

  void PushConstant(double value) { mStack.push_back({.constant = value}); }
  void PushSlot(Slot slot, bool isUniform, bool isBoolean) {
    mStack.push_back({Place::Slot, isUniform, isBoolean, 0, slot});
  }
  void PushVarying() { PushSlot(mVaryingSlot, false, false); }

  // The top when it is a constant, else not-a-number.
  [[nodiscard]] double TopConstant() const noexcept {
    return mStack.back().place == Place::Constant ? mStack.back().constant : functions::kernels::kNotANumber;
  }
  // Whether the top is certainly finite for the operation with the operand below it: no step of the same part
  // computed it.
  [[nodiscard]] bool TopIsFinite() const noexcept {
    const Operand& top = mStack.back();
    if (top.place == Place::Constant) return true;
    if (top.isUniform && !mStack[mStack.size() - 2].isUniform) return true;
    if (top.place != Place::Slot) return false;
    const SlotKind kind = mProgram.KindOf(top.slot);
    return kind == SlotKind::Variable || kind == SlotKind::Varying;
  }
  void Drop() { mStack.pop_back(); }

  [[nodiscard]] bool TopIsBoolean() const noexcept { return mStack.back().isBoolean; }
  [[nodiscard]] bool BothBoolean() const noexcept {
    return mStack.back().isBoolean && mStack[mStack.size() - 2].isBoolean;
  }

  void One(OperationCode code, bool isBoolean) {
    Operand& operand = mStack.back();
    if (operand.place == Place::Constant && Fold(operand, RunOperation(code, operand.constant), isBoolean))
      return;
    MoveToAccumulator(mStack.size() - 1, operand.isUniform);
    Write(operand.isUniform, {StepForm::OfAccumulator, code, 0});
    operand.isBoolean = isBoolean;
  }

  void Two(OperationCode code, bool isBoolean) {
    const std::size_t leftPlace = mStack.size() - 2;
    const std::size_t rightPlace = mStack.size() - 1;
    Operand& first = mStack[leftPlace];
    const Operand& second = mStack[rightPlace];
    if (first.place == Place::Constant && second.place == Place::Constant &&
        Fold(first, RunOperation(code, first.constant, second.constant), isBoolean)) {
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
    mStack[leftPlace] = {Place::Accumulator, isUniform, isBoolean, 0, 0};
  }

  // The last `count` operands become the arguments of a call.
  void Call(const Function& function, functions::AngleMode mode, std::size_t count) {
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

  // Leaves the one operand in the accumulator of the second part.
  void Finish(std::size_t depth) {
    const bool isBoolean = mStack.back().isBoolean;
    MoveToAccumulator(0, false);
    mProgram.Finish(mVaryingSlot, isBoolean, depth);
  }

 private:
  static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

  // One part of the program: whose value its accumulator holds.
  struct PartState {
    std::size_t owner = kNobody;  // index into mStack
    bool holdsVarying = false;    // nobody's, but the varying variable itself
  };

  PartState& Part(bool isUniform) noexcept { return isUniform ? mUniform : mVarying; }

  void Write(bool isUniform, const Step& step) {
    isUniform ? mProgram.AddUniform(step) : mProgram.AddVarying(step);
    if (!isUniform) mVarying.holdsVarying = false;
  }

  static bool Fold(Operand& operand, double value, bool isBoolean) {
    // A failure is left to the run, where it ends in the exact evaluator.
    if (value - value != 0) return false;
    operand.constant = value;
    operand.isBoolean = isBoolean;
    return true;
  }

  // Also true for the varying variable while the accumulator still holds it.
  [[nodiscard]] bool InAccumulator(std::size_t place, bool isUniform) noexcept {
    if (Part(isUniform).owner == place) return true;
    const Operand& operand = mStack[place];
    return !isUniform && mVarying.holdsVarying && operand.place == Place::Slot &&
           operand.slot == mVaryingSlot;
  }

  // Makes room in a part's accumulator: its value goes to a slot.
  void SpillAll(bool isUniform) {
    PartState& part = Part(isUniform);
    if (part.owner == kNobody) return;
    Operand& operand = mStack[part.owner];
    operand.slot = isUniform ? mProgram.AddSlot(SlotKind::Uniform) : NewTemporary();
    operand.place = Place::Slot;
    Write(isUniform, {StepForm::Store, 0, operand.slot});
    part.owner = kNobody;
  }

  void MoveToAccumulator(std::size_t place, bool isUniform) {
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

  // The slot of an operand; one that is still in an accumulator is stored.
  Slot SlotOf(std::size_t place) {
    Operand& operand = mStack[place];
    if (operand.place == Place::Constant) return mProgram.AddSlot(SlotKind::Constant, operand.constant);
    if (operand.place == Place::Accumulator) SpillAll(operand.isUniform);
    return mStack[place].slot;
  }

  // Slots of the second part's temporaries are used again: columns need memory for each.
  Slot NewTemporary() {
    if (mFreeTemporaries.empty()) return mProgram.AddSlot(SlotKind::Temporary);
    const Slot slot = mFreeTemporaries.back();
    mFreeTemporaries.pop_back();
    return slot;
  }
  void FreeTemporary(Slot slot) {
    if (mProgram.KindOf(slot) == SlotKind::Temporary) mFreeTemporaries.push_back(slot);
  }

  Program& mProgram;
  Slot mVaryingSlot;
  std::vector<Operand> mStack;
  std::vector<Slot> mFreeTemporaries;
  PartState mUniform;
  PartState mVarying{.holdsVarying = true};
};

// Reads the tokens by the grammar of the exact evaluator (engine/evaluator.h) and gives up where that would
// raise an error or do more than compute.
class Compiler {
 public:
  Compiler(const TokenList& tokens, const CompileOptions& options)
      : mTokens(tokens), mOptions(options), mProgram(std::make_unique<Program>()), mEmitter(*mProgram) {}

  std::unique_ptr<Program> Run() {
    Next();
    if (!ReadLevel(kStatementLevel) || mToken.kind != TokenKind::End) return nullptr;
    mEmitter.Finish(mDeepest);
    mProgram->SetLastBracket(mLastBracket);
    return std::move(mProgram);
  }

 private:
  void Next() { mToken = mPlace < mTokens.Size() ? mTokens.At(mPlace++) : Token{}; }

  // One operand, then the operators that bind at least as tightly as `level`.
  bool ReadLevel(std::uint8_t level) {
    if (++mDepth > Evaluator::kMostLevels) return false;
    mDeepest = std::max(mDeepest, mDepth);
    if (!ReadOperand()) return false;
    for (const Operator* next = FindOperator(mToken.kind); next && level <= next->threshold;
         next = FindOperator(mToken.kind)) {
      if (!Apply(*next)) return false;
    }
    --mDepth;
    return true;
  }

  bool Apply(const Operator& which) {
    const TokenKind kind = which.kind;
    if (which.form == OperatorForm::Store) return false;
    Next();
    if (kind == TokenKind::Percent) return Emit(operations::kOfOne<operations::Percent>);
    if (kind == TokenKind::Factorial) {
      mEmitter.Call(*functions::FindFunction("factorial"), mOptions.angleMode, 1);
      return true;
    }
    const OperatorCode* code = FindOperatorCode(kind);
    if (!code || !ReadLevel(which.rightLevel)) return false;
    if (kind == TokenKind::Power && EmitWholePower()) return true;
    if (kind == TokenKind::Divide && EmitSimpleDivision()) return true;
    const bool onBooleans = code->onBooleans != code->onNumbers && mEmitter.BothBoolean();
    mEmitter.Two(onBooleans ? code->onBooleans : code->onNumbers, code->givesBoolean || onBooleans);
    return true;
  }

  bool Emit(OperationCode code) {
    mEmitter.One(code, false);
    return true;
  }

  // The power of a small whole exponent as an operation of one number.
  bool EmitWholePower() {
    const double exponent = mEmitter.TopConstant();
    for (const WholePowerCode& entry : kWholePowers) {
      if (entry.exponent != exponent) continue;
      mEmitter.Drop();
      mEmitter.One(entry.code, false);
      return true;
    }
    return false;
  }

  // By a power of two: the product with its reciprocal, which has the same bits; by what is finite: without a
  // check.
  bool EmitSimpleDivision() {
    const double divisor = mEmitter.TopConstant();
    int exponent = 0;
    const bool isPowerOfTwo = std::abs(std::frexp(divisor, &exponent)) == 0.5 && std::abs(exponent) < 1000;
    if (isPowerOfTwo) {
      mEmitter.Drop();
      mEmitter.PushConstant(1 / divisor);
      mEmitter.Two(operations::kOfTwo<operations::Multiply>, false);
    } else if (mEmitter.TopIsFinite()) {
      mEmitter.Two(operations::kOfTwo<operations::DivideByFinite>, false);
    } else {
      return false;
    }
    return true;
  }

  bool ReadOperand() {
    switch (mToken.kind) {
      case TokenKind::Minus:
        Next();
        return ReadLevel(kSignLevel) && Emit(operations::kOfOne<operations::Negate>);
      case TokenKind::Plus: Next(); return ReadLevel(kSignLevel);
      case TokenKind::Not: Next(); return ReadLevel(kNotLevel) && EmitNot();
      case TokenKind::Number: return ReadNumber();
      case TokenKind::Identifier: return ReadName();
      default: return IsOpenBracketKind(mToken.kind) && ReadBracket();
    }
  }

  bool EmitNot() {
    const bool isBoolean = mEmitter.TopIsBoolean();
    mEmitter.One(isBoolean ? operations::kOfOne<operations::Not> : operations::kOfOne<operations::NotBits>,
                 isBoolean);
    return true;
  }

  bool ReadNumber() {
    functions::clsMath math;
    const functions::Trapped value = LiteralValue(mToken, math);
    if (!value.Ok()) return false;
    mEmitter.PushConstant(value.Get());
    Next();
    return true;
  }

  bool ReadBracket() {
    const TokenKind bracket = mToken.kind;
    Next();
    return ReadLevel(kStatementLevel) && Close(bracket);
  }

  bool Close(TokenKind bracket) {
    if (mToken.kind != PartnerOf(bracket)) return false;
    mLastBracket = bracket;
    Next();
    return true;
  }

  bool ReadName() {
    const std::string_view name = mToken.spelling;
    Next();
    switch (mToken.kind) {
      case TokenKind::Assign:
      case TokenKind::Increment:
      case TokenKind::Decrement: return false;
      default: break;
    }
    const Function* function = functions::FindFunction(name);
    return function ? ReadCall(*function) : ReadVariable(name);
  }

  bool ReadVariable(std::string_view name) {
    if (name == mOptions.varying) {
      mEmitter.PushVarying();
      return true;
    }
    const auto [place, isNew] = mVariables.emplace(name, Variable{});
    if (isNew) {
      place->second = {mProgram->AddSlot(SlotKind::Variable), mOptions.isBoolean(name)};
      mProgram->AddVariable(name, place->second.isBoolean, place->second.slot);
    }
    mEmitter.PushSlot(place->second.slot, true, place->second.isBoolean);
    return true;
  }

  bool ReadCall(const Function& function) {
    if (function.IsCalculus() || function.IsRandom() || !IsOpenBracketKind(mToken.kind)) return false;
    const TokenKind bracket = mToken.kind;
    std::size_t count = 0;
    do {
      Next();
      if (!ReadLevel(kStatementLevel)) return false;
      ++count;
    } while (mToken.kind == TokenKind::Comma);
    if (!functions::CheckCount(function, count).None() || !Close(bracket)) return false;
    EmitCall(function, count);
    return true;
  }

  void EmitCall(const Function& function, std::size_t count) {
    const OperationCode code = operations::CodeOfFunction(function.operation, mOptions.angleMode);
    if (count == 1 && HasOperation(code)) return mEmitter.One(code, false);
    if (const auto ofTwo = CodeOfTwo(function.operation); ofTwo && count == 2)
      return mEmitter.Two(*ofTwo, false);
    mEmitter.Call(function, mOptions.angleMode, count);
  }

  struct Variable {
    Slot slot = 0;
    bool isBoolean = false;
  };

  const TokenList& mTokens;
  const CompileOptions& mOptions;
  std::unique_ptr<Program> mProgram;
  Emitter mEmitter;
  std::unordered_map<std::string_view, Variable> mVariables;
  std::size_t mPlace = 0;
  Token mToken;
  std::size_t mDepth = 0;
  std::size_t mDeepest = 0;
  TokenKind mLastBracket = TokenKind::End;
};

}  // namespace

std::unique_ptr<Program> Compile(const TokenList& tokens, const CompileOptions& options) {
  return Compiler(tokens, options).Run();
}

}  // namespace plotvane::engine
