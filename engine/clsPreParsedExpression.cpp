#include "engine/clsPreParsedExpression.h"

#include "engine/replay.h"
#include "platform/runtime_error.h"

namespace plotvane::engine {

Token TokenList::At(std::size_t place) const noexcept {
  const Entry& entry = mEntries[place];
  return {entry.kind, entry.radix, std::string_view(mText).substr(entry.begin, entry.length)};
}

std::string_view TokenList::KindTextAt(std::size_t place) const noexcept {
  const Entry& entry = mEntries[place];
  if (entry.kind != TokenKind::Unknown) return KindText(At(place));
  return std::string_view(mText).substr(entry.begin + entry.length, entry.strangeKind);
}

void TokenList::Add(const Token& token) {
  const std::string_view strangeKind = token.kind == TokenKind::Unknown ? token.spelling : std::string_view();
  Append(token, strangeKind);
}

void TokenList::Add(std::string_view kind, std::string_view spelling) {
  const Token token{KindFromText(kind), Radix::Decimal, spelling};
  Append(token, token.kind == TokenKind::Unknown ? kind : std::string_view());
}

void TokenList::Append(const Token& token, std::string_view strangeKind) {
  mEntries.push_back({token.kind, token.radix, static_cast<std::uint32_t>(mText.size()),
                      static_cast<std::uint32_t>(token.spelling.size()),
                      static_cast<std::uint32_t>(strangeKind.size())});
  mText.append(token.spelling).append(strangeKind);
}

std::int16_t clsPreParsedExpression::NumberOfTokens() const noexcept {
  return static_cast<std::int16_t>(mTokens->Size());
}

void clsPreParsedExpression::Add(std::string_view token, std::string_view spelling) {
  if (mTokens->Size() == TokenList::kMostTokens)
    throw platform::RunTimeError(platform::StandardError::Overflow);
  OwnTokens().Add(token, spelling);
}

bool clsPreParsedExpression::Append(const Token& token) {
  if (mTokens->Size() == TokenList::kMostTokens) return false;
  OwnTokens().Add(token);
  return true;
}

// The tokens to write to: a copy of its own when anybody else holds on to them.
TokenList& clsPreParsedExpression::OwnTokens() {
  mCompiled.clear();
  if (mTokens.use_count() > 1) mTokens = std::make_shared<TokenList>(*mTokens);
  return *mTokens;
}

void clsPreParsedExpression::RemoveAll() {
  mTokens = std::make_shared<TokenList>();
  mNext = 0;
  mCompiled.clear();
}

clsPreParsedExpression& clsPreParsedExpression::operator=(const clsPreParsedExpression& other) {
  if (this == &other) return *this;
  mTokens = other.mTokens;
  mNext = other.mNext;
  mCompiled.clear();
  return *this;
}

const std::shared_ptr<BoundProgram>& clsPreParsedExpression::Compiled(
    const std::shared_ptr<identifiers::clsVarTable>& table, functions::AngleMode angleMode,
    std::string_view varying) {
  for (const std::shared_ptr<BoundProgram>& program : mCompiled) {
    if (program->IsFor(table.get(), angleMode) && program->Varying() == varying) return program;
  }
  constexpr std::size_t kMostKept = 4;
  if (mCompiled.size() == kMostKept) mCompiled.erase(mCompiled.begin());
  mCompiled.push_back(std::make_shared<BoundProgram>(mTokens, table, angleMode, varying));
  return mCompiled.back();
}

bool clsPreParsedExpression::GetNext(std::string& token, std::string& spelling) {
  if (mNext >= mTokens->Size()) return false;
  token = mTokens->KindTextAt(mNext);
  spelling = mTokens->At(mNext).spelling;
  ++mNext;
  return true;
}

void clsPreParsedExpression::SetNextToBeginning() noexcept {
  mNext = 0;
}

std::string clsPreParsedExpression::GetSpellingString() const {
  std::string text;
  for (std::size_t place = 0; place < mTokens->Size(); ++place) text += mTokens->At(place).spelling;
  return text;
}

std::shared_ptr<const TokenList> clsPreParsedExpression::Tokens() const noexcept {
  return mTokens;
}

}  // namespace plotvane::engine
