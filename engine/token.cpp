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

constexpr std::array kSymbols{
    Named{"<=", TokenKind::LessOrEqual}, Named{">=", TokenKind::GreaterOrEqual},
    Named{"<>", TokenKind::NotEqual},    Named{"==", TokenKind::Equal},
    Named{"=>", TokenKind::FatArrow},    Named{"->", TokenKind::Arrow},
    Named{"--", TokenKind::Decrement},   Named{"++", TokenKind::Increment},
    Named{"+", TokenKind::Plus},         Named{"-", TokenKind::Minus},
    Named{"*", TokenKind::Times},        Named{"/", TokenKind::Divide},
    Named{"\\", TokenKind::Backslash},   Named{"^", TokenKind::Power},
    Named{"!", TokenKind::Factorial},    Named{"%", TokenKind::Percent},
    Named{"<", TokenKind::Less},         Named{">", TokenKind::Greater},
    Named{"=", TokenKind::Assign},       Named{",", TokenKind::Comma},
    Named{";", TokenKind::Semicolon},    Named{":", TokenKind::Colon},
    Named{"(", TokenKind::OpenRound},    Named{"[", TokenKind::OpenSquare},
    Named{"{", TokenKind::OpenCurly},    Named{")", TokenKind::CloseRound},
    Named{"]", TokenKind::CloseSquare},  Named{"}", TokenKind::CloseCurly},
};

constexpr std::size_t kOtherKinds = 5;  // End, Number, BadBase, Identifier, Unknown have no one text
static_assert(kWords.size() + kSymbols.size() + kOtherKinds ==
              static_cast<std::size_t>(TokenKind::Unknown) + 1);

template <std::size_t Count>
constexpr const Named* Find(const std::array<Named, Count>& table, std::string_view text) noexcept {
  const auto found = std::ranges::find(table, text, &Named::text);
  return found == table.end() ? nullptr : &*found;
}

}  // namespace

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
  const auto word = std::ranges::find(kWords, token.kind, &Named::kind);
  return word != kWords.end() ? word->text : std::ranges::find(kSymbols, token.kind, &Named::kind)->text;
}

TokenKind KindFromText(std::string_view text) noexcept {
  if (text.empty()) return TokenKind::End;
  if (text == "num") return TokenKind::Number;
  if (text == "id") return TokenKind::Identifier;
  if (const Named* word = Find(kWords, text)) return word->kind;
  const Named* symbol = Find(kSymbols, text);
  return symbol ? symbol->kind : TokenKind::Unknown;
}

}  // namespace plotvane::engine
