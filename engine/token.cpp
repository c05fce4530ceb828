#include "engine/token.h"

#include <algorithm>
#include <array>

namespace plotvane::engine {

namespace {

struct Named {
  std::string_view text;
  TokenKind kind;
};

constexpr std::array kWords{
    Named{"and", TokenKind::And}, Named{"e", TokenKind::Exponent}, Named{"eqv", TokenKind::Eqv},
    Named{"imp", TokenKind::Imp}, Named{"mod", TokenKind::Mod},    Named{"not", TokenKind::Not},
    Named{"or", TokenKind::Or},   Named{"xor", TokenKind::Xor},
};

constexpr std::array kPairs{
    Named{"<=", TokenKind::LessOrEqual}, Named{">=", TokenKind::GreaterOrEqual},
    Named{"<>", TokenKind::NotEqual},    Named{"==", TokenKind::Equal},
    Named{"=>", TokenKind::FatArrow},    Named{"->", TokenKind::Arrow},
    Named{"--", TokenKind::Decrement},   Named{"++", TokenKind::Increment},
};

constexpr std::array kCharacters{
    Named{"+", TokenKind::Plus},        Named{"-", TokenKind::Minus},      Named{"*", TokenKind::Times},
    Named{"/", TokenKind::Divide},      Named{"\\", TokenKind::Backslash}, Named{"^", TokenKind::Power},
    Named{"!", TokenKind::Factorial},   Named{"%", TokenKind::Percent},    Named{"<", TokenKind::Less},
    Named{">", TokenKind::Greater},     Named{"=", TokenKind::Assign},     Named{",", TokenKind::Comma},
    Named{";", TokenKind::Semicolon},   Named{":", TokenKind::Colon},      Named{"(", TokenKind::OpenRound},
    Named{"[", TokenKind::OpenSquare},  Named{"{", TokenKind::OpenCurly},  Named{")", TokenKind::CloseRound},
    Named{"]", TokenKind::CloseSquare}, Named{"}", TokenKind::CloseCurly},
};

constexpr std::size_t kOtherKinds = 5;  // End, Number, BadBase, Identifier, Unknown have no one text
static_assert(kWords.size() + kPairs.size() + kCharacters.size() + kOtherKinds ==

              static_cast<std::size_t>(TokenKind::Unknown) + 1);

template <std::size_t Count>
constexpr const Named* Find(const std::array<Named, Count>& table, std::string_view text) noexcept {
  const auto found = std::ranges::find(table, text, &Named::text);
  return found == table.end() ? nullptr : &*found;
}

template <std::size_t Count>
constexpr std::string_view TextOf(const std::array<Named, Count>& table, TokenKind kind) noexcept {
  const auto found = std::ranges::find(table, kind, &Named::kind);
  return found == table.end() ? std::string_view() : found->text;
}

// The kinds of the single characters, by their codes.
constexpr std::array kKindOfCode = [] {
  std::array<TokenKind, 128> kinds{};
  kinds.fill(TokenKind::Unknown);
  for (const Named& character : kCharacters)
    kinds[static_cast<unsigned char>(character.text[0])] = character.kind;
  return kinds;
}();

}  // namespace

TokenKind CharacterKind(char character) noexcept {
  const auto code = static_cast<unsigned char>(character);
  return code < kKindOfCode.size() ? kKindOfCode[code] : TokenKind::Unknown;
}

TokenKind PairKind(std::string_view pair) noexcept {
  const Named* found = Find(kPairs, pair);
  return found ? found->kind : TokenKind::Unknown;
}

TokenKind WordKind(std::string_view lowerCaseWord) noexcept {
  if (lowerCaseWord.size() > 3) return TokenKind::Identifier;
  const Named* word = Find(kWords, lowerCaseWord);
  return word ? word->kind : TokenKind::Identifier;
}

std::string_view KindText(const Token& token) noexcept {
  switch (token.kind) {
    case TokenKind::End: return "";
    case TokenKind::Number:
    case TokenKind::BadBase: return "num";
    case TokenKind::Identifier: return "id";
    case TokenKind::Unknown: return token.spelling;
    default: break;
  }
  if (const std::string_view word = TextOf(kWords, token.kind); !word.empty()) return word;
  if (const std::string_view pair = TextOf(kPairs, token.kind); !pair.empty()) return pair;
  return TextOf(kCharacters, token.kind);
}

TokenKind KindFromText(std::string_view text) noexcept {
  if (text.empty()) return TokenKind::End;
  if (text == "num") return TokenKind::Number;
  if (text == "id") return TokenKind::Identifier;
  if (const Named* word = Find(kWords, text)) return word->kind;
  return text.size() == 1 ? CharacterKind(text[0]) : PairKind(text);
}

}  // namespace plotvane::engine
