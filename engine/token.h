// Token: one piece of an expression's text, as the lexer cuts it and as a recorded list keeps it.
#pragma once

#include <cstdint>
#include <string_view>

namespace plotvane::engine {

// Inside the engine a kind is one of these; as text (KindText) it exists where lists are read and written.
enum class TokenKind : std::uint8_t {
  End,      // the empty text: end of input
  Number,   // "num"
  BadBase,  // "num" too: "&" with a letter that names no base; reading it is custom error 7
  Identifier,
  // The operator words.
  Exponent,  // "e"
  And,
  Eqv,
  Imp,
  Mod,
  Not,
  Or,
  Xor,
  // Two characters.
  LessOrEqual,
  GreaterOrEqual,
  NotEqual,
  Equal,
  FatArrow,  // "=>"
  Arrow,     // "->"
  Decrement,
  Increment,
  // One character.
  Plus,
  Minus,
  Times,
  Divide,
  Backslash,
  Power,
  Factorial,
  Percent,
  Less,
  Greater,
  Assign,
  Comma,
  Semicolon,
  Colon,
  OpenRound,
  OpenSquare,
  OpenCurly,
  CloseRound,
  CloseSquare,
  CloseCurly,
  Unknown,  // any other character, or a kind that only a hand-made list has
};

// The radix of a number literal, by the codes of the member Base.
enum class Radix : std::uint8_t { Decimal = 0, Hexadecimal = 1, Binary = 2, Octal = 3 };

struct Token {
  TokenKind kind = TokenKind::End;
  Radix radix = Radix::Decimal;  // of a Number
  std::string_view spelling;     // lower case; a based literal without its prefix
};

// The kind as text: "num", "id", the word or the characters of an operator, "" for the end. An Unknown
// token's kind is its spelling.
[[nodiscard]] std::string_view KindText(const Token& token) noexcept;

// The kind that a text names; Unknown when no rule knows it.
[[nodiscard]] TokenKind KindFromText(std::string_view text) noexcept;

// The kind of one character that is neither part of a word nor of a number.
[[nodiscard]] TokenKind CharacterKind(char character) noexcept;

// The kind of two characters that are one token; Unknown for any other two.
[[nodiscard]] TokenKind PairKind(std::string_view pair) noexcept;

// The kind of a whole word of the language: an operator word's own kind, else Identifier.
[[nodiscard]] TokenKind WordKind(std::string_view lowerCaseWord) noexcept;

[[nodiscard]] constexpr bool IsOpenBracketKind(TokenKind kind) noexcept {
  return kind >= TokenKind::OpenRound && kind <= TokenKind::OpenCurly;
}
[[nodiscard]] constexpr bool IsCloseBracketKind(TokenKind kind) noexcept {
  return kind >= TokenKind::CloseRound && kind <= TokenKind::CloseCurly;
}

// The closing partner of an opening bracket.
[[nodiscard]] constexpr TokenKind PartnerOf(TokenKind openBracket) noexcept {
  constexpr int kDistance = static_cast<int>(TokenKind::CloseRound) - static_cast<int>(TokenKind::OpenRound);
  return static_cast<TokenKind>(static_cast<int>(openBracket) + kDistance);
}

}  // namespace plotvane::engine
