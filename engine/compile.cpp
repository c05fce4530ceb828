#include "engine/compile.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "engine/emitter.h"
#include "engine/evaluator.h"
#include "engine/literal.h"
#include "engine/operation_choice.h"
#include "engine/operators.h"
#include "functions/compute.h"

namespace plotvane::engine {
namespace {

using functions::Function;

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
    const OperatorChoice* choice = ChooseForOperator(kind);
    if (!choice || !ReadLevel(which.rightLevel)) return false;
    if (kind == TokenKind::Power && EmitWholePower()) return true;
    if (kind == TokenKind::Divide && EmitSimpleDivision()) return true;
    const bool onTruthValues = choice->onTruthValues && mEmitter.BothBoolean();
    mEmitter.Two(onTruthValues ? *choice->onTruthValues : *choice->onNumbers,
                 choice->givesTruth || onTruthValues);
    return true;
  }

  bool Emit(OperationCode code) {
    mEmitter.One(code, false);
    return true;
  }

  // The power of a small whole exponent as an operation of one number.
  bool EmitWholePower() {
    const auto code = ChooseForWholePower(mEmitter.TopConstant());
    if (!code) return false;
    mEmitter.Drop();
    mEmitter.One(*code, false);
    return true;
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
    if (const auto ofTwo = ChooseForFunctionOfTwo(function.operation); ofTwo && count == 2)
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
