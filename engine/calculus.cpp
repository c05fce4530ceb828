#include "engine/calculus.h"

#include <utility>

#include "functions/catalogue.h"

namespace plotvane::engine {

void CalculusOperation::FinishWithError(platform::StandardError error) noexcept {
  mEnd = CalculusEnd::Error;
  mError = error;
}

VariedVariable::VariedVariable(std::shared_ptr<platform::VariableTable> table, std::string_view name)
    : mTable(std::move(table)), mName(name) {}

void VariedVariable::Remember() {
  mExisted = mTable->GetIdValue(mName, mBefore);
  mWasSet = false;
}

bool VariedVariable::Set(double value) {
  if (!mTable->Change(mName, platform::Value(value))) return false;
  mWasSet = true;
  return true;
}

void VariedVariable::Restore() {
  // A refusal here changes nothing: the operation is over.
  if (mExisted && mWasSet) static_cast<void>(mTable->Change(mName, mBefore));
}

namespace {

bool IsRandomFunction(std::string_view name) {
  const functions::Function* function = functions::FindFunction(name);
  return function && function->IsRandom();
}

bool HasSideEffect(const Token& token) {
  switch (token.kind) {
    case TokenKind::Assign:
    case TokenKind::Arrow:
    case TokenKind::FatArrow:
    case TokenKind::Increment:
    case TokenKind::Decrement: return true;
    case TokenKind::Identifier: return IsRandomFunction(token.spelling);
    default: return false;
  }
}

}  // namespace

bool HasNoSideEffects(const TokenList& tokens) {
  for (std::size_t place = 0; place < tokens.Size(); ++place) {
    if (HasSideEffect(tokens.At(place))) return false;
  }
  return true;
}

}  // namespace plotvane::engine
