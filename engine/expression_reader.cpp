#include "engine/expression_reader.h"

#include <utility>

#include "engine/clsExp.h"

namespace plotvane::engine {

using functions::CustomError;
using functions::ErrorPair;
using platform::StandardError;

void RecordedTokens::Start(std::shared_ptr<const TokenList> tokens) noexcept {
  mTokens = std::move(tokens);
  mPlace = 0;
}

Token RecordedTokens::Next() {
  return mPlace < mTokens->Size() ? mTokens->At(mPlace++) : Token{};
}

void ExpressionReader::StartText(std::string_view text, std::shared_ptr<clsPreParsedExpression> recording) {
  mText.Start(text);
  mSource = &mText;
  mReplaying = false;
  mRecording = std::move(recording);
}

void ExpressionReader::StartReplay(std::shared_ptr<const TokenList> tokens) {
  mRecorded.Start(std::move(tokens));
  mSource = &mRecorded;
  mReplaying = true;
  mRecording = nullptr;
}

void ExpressionReader::End() noexcept {
  mReplaying = false;
  mRecording = nullptr;
}

void ExpressionReader::FinishReplay(TokenKind lastBracket) noexcept {
  mToken = {};
  mError = {};
  if (!mBrackets.EmptyStack()) mBrackets.MakeNew();
  if (lastBracket != TokenKind::End) mPoppedBracket = KindText({lastBracket, Radix::Decimal, {}});
}

void ExpressionReader::Next() {
  if (mErrorOccurred) return;
  mToken = mSource->Next();
  if (mToken.kind == TokenKind::BadBase) {
    mToken.kind = TokenKind::Number;
    Raise(CustomError::BaseSpecification);
  }
  if (mRecording && !mRecording->Append(mToken)) Raise(StandardError::Overflow);
}

bool ExpressionReader::IsOpenBracket() const noexcept {
  return !mErrorOccurred && IsOpenBracketKind(mToken.kind);
}

bool ExpressionReader::IsCloseBracket() const noexcept {
  return !mErrorOccurred && IsCloseBracketKind(mToken.kind);
}

bool ExpressionReader::AcceptOpenBracket() {
  if (!IsOpenBracket()) return false;
  mBrackets.Push(std::string(KindText(mToken)));
  Next();
  return true;
}

bool ExpressionReader::AcceptCloseBracket() {
  if (mErrorOccurred) return false;
  mPoppedBracket = mBrackets.Pop();
  if (IsCloseBracket() && mToken.kind == PartnerOf(KindFromText(mPoppedBracket))) {
    Next();
    return true;
  }
  Raise(CustomError::BracketMismatch);
  return false;
}

void ExpressionReader::SetErrorFlags(bool errorOccurred, bool errorAlreadySet) noexcept {
  mErrorOccurred = errorOccurred;
  mErrorAlreadySet = errorAlreadySet;
}

void ExpressionReader::Raise(ErrorPair error) {
  if (mErrorAlreadySet) return;
  mError = error;
  mErrorOccurred = true;
  mOwner.ErrObj().GEP(static_cast<std::int32_t>(error.standard), static_cast<std::int32_t>(error.custom));
}

void ExpressionReader::RaiseQuoting(ErrorPair error, std::string_view spelling,
                                    std::string_view poppedBracket) {
  mQuotedSpelling = spelling;
  mToken.spelling = mQuotedSpelling;
  mPoppedBracket = poppedBracket;
  Raise(error);
}

void ExpressionReader::RaiseIfUnreported() {
  if (mErrorOccurred) Raise(mError);
}

}  // namespace plotvane::engine
