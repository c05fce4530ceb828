#include "engine/token.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

// The texts by their kinds; empty for the other kinds.
constexpr std::array kTextOfKind = [] {
  std::array<std::string_view, static_cast<std::size_t>(TokenKind::Unknown) + 1> texts{};
  for (const Named& word : kWords) texts[static_cast<std::size_t>(word.kind)] = word.text;
  for (const Named& pair : kPairs) texts[static_cast<std::size_t>(pair.kind)] = pair.text;
  for (const Named& character : kCharacters) texts[static_cast<std::size_t>(character.kind)] = character.text;
  return texts;
}();

// Up to three letters as one number.
constexpr std::uint32_t Letters(std::string_view word) noexcept {
  std::uint32_t letters = 0;
  for (const char letter : word) letters = letters << 8U | static_cast<unsigned char>(letter);
  return letters;
}
constexpr std::array kLettersOfWords = [] {
  std::array<std::uint32_t, kWords.size()> letters{};
  std::ranges::transform(kWords, letters.begin(), Letters, &Named::text);
  return letters;
}();
constexpr std::size_t kLongestWord = 3;
static_assert(std::ranges::all_of(kWords,
                                  [](const Named& word) { return word.text.size() <= kLongestWord; }));

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
  if (lowerCaseWord.size() > kLongestWord) return TokenKind::Identifier;
  const auto found = std::ranges::find(kLettersOfWords, Letters(lowerCaseWord));
  if (found == kLettersOfWords.end()) return TokenKind::Identifier;
  return kWords[static_cast<std::size_t>(found - kLettersOfWords.begin())].kind;
}

std::string_view KindText(const Token& token) noexcept {
  switch (token.kind) {
    case TokenKind::End: return "";
    case TokenKind::Number:
    case TokenKind::BadBase: return "num";
    case TokenKind::Identifier: return "id";
    case TokenKind::Unknown: return token.spelling;
    default: return kTextOfKind[static_cast<std::size_t>(token.kind)];
  }
}

TokenKind KindFromText(std::string_view text) noexcept {
  if (text.empty()) return TokenKind::End;
  if (text.size() == 1 && CharacterKind(text[0]) != TokenKind::Unknown) return CharacterKind(text[0]);
  if (text == "num") return TokenKind::Number;
  if (text == "id") return TokenKind::Identifier;
  if (const Named* word = Find(kWords, text)) return word->kind;
  return PairKind(text);
}

}  // namespace plotvane::engine
