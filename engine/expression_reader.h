// ExpressionReader: the cursor of one evaluation over its tokens: the current token, the open brackets,
// recording, and the error that stops it all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/clsPreParsedExpression.h"
#include "engine/clsStack.h"
#include "engine/lexer.h"
#include "functions/errors.h"

namespace plotvane::engine {

class clsExp;

// Replays a recorded list; holds on to the tokens it started with.
class RecordedTokens : public TokenSource {
 public:
  void Start(std::shared_ptr<const TokenList> tokens) noexcept;
  [[nodiscard]] Token Next() override;

 private:
  std::shared_ptr<const TokenList> mTokens;
  std::size_t mPlace = 0;
};

// Once an error has occurred no token is read any more, so the first error wins and whoever reads unwinds
// quietly: after every call that may raise, ask Failed().
class ExpressionReader {
 public:
  // `owner` is the expression object whose error object hears of every error; it outlives the reader.
  explicit ExpressionReader(clsExp& owner) noexcept : mOwner(owner) {}

  // Makes text (or a recorded list) the input; Next then reads the first token. With `recording` every token
  // read from the text is appended to that list.
  void StartText(std::string_view text, std::shared_ptr<clsPreParsedExpression> recording = nullptr);
  void StartReplay(std::shared_ptr<const TokenList> tokens);
  // Lets go of the recording and of the replay; the current token stays.
  void End() noexcept;
  [[nodiscard]] bool Replaying() const noexcept { return mReplaying; }

  // Leaves the reader as a replay does that read its whole list without an error and closed a bracket of that
  // kind last (End when there was none).
  void FinishReplay(TokenKind lastBracket) noexcept;

  // Reads the next token. Custom error 7 for "&" with a letter that names no base; standard error 6 when the
  // recording list is full.
  void Next();

  [[nodiscard]] const Token& Current() const noexcept { return mToken; }
  [[nodiscard]] TokenKind Kind() const noexcept { return mToken.kind; }
  [[nodiscard]] std::string_view Spelling() const noexcept { return mToken.spelling; }

  // Brackets of the three kinds are interchangeable, but each is closed by its own partner.
  void ForgetBrackets() { mBrackets.MakeNew(); }
  [[nodiscard]] bool IsOpenBracket() const noexcept;
  [[nodiscard]] bool IsCloseBracket() const noexcept;
  // Takes an opening bracket; false and nothing taken when there is none.
  [[nodiscard]] bool AcceptOpenBracket();
  // Takes the partner of the last opening bracket; custom error 2 and false for anything else.
  [[nodiscard]] bool AcceptCloseBracket();
  [[nodiscard]] const std::string& PoppedBracket() const noexcept { return mPoppedBracket; }

  [[nodiscard]] bool Failed() const noexcept { return mErrorOccurred; }
  [[nodiscard]] bool ErrorAlreadySet() const noexcept { return mErrorAlreadySet; }
  void SetErrorFlags(bool errorOccurred, bool errorAlreadySet) noexcept;
  // Starts afresh: both numbers 0. (The flags are the error object's to clear.)
  void ForgetErrorNumbers() noexcept { mError = {}; }

  // Records an error with the owner's error object. Nothing after the first one.
  void Raise(functions::ErrorPair error);
  void Raise(platform::StandardError error) {
    Raise(functions::ErrorPair{error, functions::CustomError::None});
  }
  void Raise(functions::CustomError error) {
    Raise(functions::ErrorPair{platform::StandardError::None, error});
  }
  // Raises an error that occurred elsewhere, with the texts that it quotes there.
  void RaiseQuoting(functions::ErrorPair error, std::string_view spelling, std::string_view poppedBracket);
  // Hands over an error that was only noted, so that every failed evaluation is recorded exactly once.
  void RaiseIfUnreported();

 private:
  clsExp& mOwner;
  Lexer mText;
  RecordedTokens mRecorded;
  TokenSource* mSource = &mText;
  bool mReplaying = false;
  std::shared_ptr<clsPreParsedExpression> mRecording;

  Token mToken;
  std::string mQuotedSpelling;  // behind mToken.spelling after RaiseQuoting
  clsStack mBrackets;
  std::string mPoppedBracket;

  functions::ErrorPair mError;
  bool mErrorOccurred = false;
  bool mErrorAlreadySet = false;
};

}  // namespace plotvane::engine
