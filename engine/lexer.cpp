#include "engine/lexer.h"

#include <algorithm>

#include "platform/ascii.h"

namespace plotvane::engine {

namespace {

using platform::IsDigit;

// The text is in lower case already.
constexpr bool IsWordStart(char c) noexcept {
  return (c >= 'a' && c <= 'z') || c == '_';
}
constexpr bool IsWordPart(char c) noexcept {
  return IsWordStart(c) || IsDigit(c);
}
constexpr bool IsNumberPart(char c) noexcept {
  return IsDigit(c) || c == '.';
}
constexpr bool IsHexDigit(char c) noexcept {
  return IsDigit(c) || (c >= 'a' && c <= 'f');
}
constexpr bool IsWhiteSpace(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool BeginsPair(char c) noexcept {
  return c == '<' || c == '>' || c == '=' || c == '-' || c == '+';
}
constexpr bool EndsPair(char c) noexcept {
  return c == '=' || c == '>' || c == '-' || c == '+';
}

// How many bytes the UTF-8 character at the front of `text` has; 1 where there is no well-formed one.
constexpr std::size_t CharacterLength(std::string_view text) noexcept {
  const auto byte = [text](std::size_t place) {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
  };
  const unsigned lead = byte(0);
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
  if (lead > 0xF4) return 1;
  for (std::size_t place = 1; place < length; ++place) {
    if ((byte(place) & 0xC0U) != 0x80U) return 1;
  }
  // Overlong forms, surrogates and what lies beyond the last character have a second byte out of its range.
  const bool tooLow = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
  const bool tooHigh = (lead == 0xED && byte(1) > 0x9F) || (lead == 0xF4 && byte(1) > 0x8F);
  return tooLow || tooHigh ? 1 : length;
}

}  // namespace

void Lexer::Start(std::string_view text) {
  mText.resize(text.size());
  std::ranges::transform(text, mText.begin(), platform::LowerCase);
  mPlace = 0;
  mAfterNumber = false;
}

Token Lexer::Next() {
  const std::size_t before = mPlace;
  SkipWhiteSpace();
  const bool directlyAfterNumber = mAfterNumber && mPlace == before;
  mAfterNumber = false;
  if (mPlace == mText.size()) return {};
  const char first = Peek();
  if (IsNumberPart(first)) return DecimalNumber();
  if (IsWordStart(first)) return Word(directlyAfterNumber);
  if (first == '&') return BasedNumber();
  return Symbol();
}

// A NUL past the end: no rule takes it for part of anything, as with one inside the text.
char Lexer::Peek(std::size_t ahead) const noexcept {
  return mPlace + ahead < mText.size() ? mText[mPlace + ahead] : '\0';
}

void Lexer::SkipWhiteSpace() noexcept {
  while (IsWhiteSpace(Peek())) ++mPlace;
}

template <bool (*kBelongs)(char) noexcept>
std::string_view Lexer::TakeWhile() noexcept {
  const std::size_t begin = mPlace;
  while (kBelongs(Peek())) ++mPlace;
  return std::string_view(mText).substr(begin, mPlace - begin);
}

// One character, all bytes of it; nothing at the end of the text. Bytes that are not UTF-8 are taken one by
// one.
std::string_view Lexer::TakeCharacter() noexcept {
  const std::string_view rest = std::string_view(mText).substr(mPlace);
  if (rest.empty()) return rest;
  const std::size_t length = CharacterLength(rest);
  mPlace += length;
  return rest.substr(0, length);
}

Token Lexer::DecimalNumber() noexcept {
  mAfterNumber = true;
  return {TokenKind::Number, Radix::Decimal, TakeWhile<IsNumberPart>()};
}

// Digits that do not fit the base are let in here; the conversion of the literal refuses them.
Token Lexer::BasedNumber() noexcept {
  const std::size_t begin = mPlace++;
  const std::string_view letter = TakeCharacter();
  mAfterNumber = true;
  if (letter == "h") return {TokenKind::Number, Radix::Hexadecimal, TakeWhile<IsHexDigit>()};
  if (letter == "o" || letter == "q") return {TokenKind::Number, Radix::Octal, TakeWhile<IsDigit>()};
  if (letter == "b") return {TokenKind::Number, Radix::Binary, TakeWhile<IsDigit>()};
  if (letter == "d") return {TokenKind::Number, Radix::Decimal, TakeWhile<IsNumberPart>()};
  return {TokenKind::BadBase, Radix::Decimal, std::string_view(mText).substr(begin, mPlace - begin)};
}

Token Lexer::Word(bool directlyAfterNumber) noexcept {
  if (directlyAfterNumber && Peek() == 'e' && IsDigit(Peek(1))) {
    return {TokenKind::Exponent, Radix::Decimal, TakeCharacter()};
  }
  const std::string_view word = TakeWhile<IsWordPart>();
  return {WordKind(word), Radix::Decimal, word};
}

Token Lexer::Symbol() noexcept {
  if (BeginsPair(Peek()) && EndsPair(Peek(1))) {
    const std::string_view pair = std::string_view(mText).substr(mPlace, 2);
    if (const TokenKind kind = PairKind(pair); kind != TokenKind::Unknown) {
      mPlace += 2;
      return {kind, Radix::Decimal, pair};
    }
  }
  const std::string_view character = TakeCharacter();
  return {character.size() == 1 ? CharacterKind(character[0]) : TokenKind::Unknown, Radix::Decimal,
          character};
}

}  // namespace plotvane::engine
