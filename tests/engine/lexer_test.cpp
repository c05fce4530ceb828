// The lexer: how text is cut into tokens. Each column shows input and tokens as kind:spelling.
#include "engine/lexer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace plotvane::engine {
namespace {

// Tokens as "kind:spelling" separated by blanks; just the spelling where the kind is the same.
std::string Cut(std::string_view text) {
  Lexer lexer;
  lexer.Start(text);
  std::string tokens;
  for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
    if (!tokens.empty()) tokens += ' ';
    if (KindText(token) != token.spelling) tokens += std::string(KindText(token)) + ":";
    tokens += token.spelling;
    if (token.radix != Radix::Decimal) tokens += "/" + std::to_string(static_cast<int>(token.radix));
  }
  return tokens;
}

TEST(Lexer, white_space_is_skipped_before_and_after) {
  for (const char* text : {" 3", "\t3", "\r3", "\n3", " \t\r\n3 \t\r\n"}) EXPECT_EQ(Cut(text), "num:3");
}

TEST(Lexer, empty_and_blank_input_give_the_end_at_once) {
  for (const char* text : {"", " ", "\t\r\n "}) EXPECT_EQ(Cut(text), "");
}

TEST(Lexer, the_end_comes_again_and_again) {
  Lexer lexer;
  lexer.Start("x");
  EXPECT_EQ(lexer.Next().kind, TokenKind::Identifier);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(lexer.Next().kind, TokenKind::End);
}

TEST(Lexer, words_take_letters_digits_and_underscores_in_lower_case) {
  EXPECT_EQ(Cut("x1_y"), "id:x1_y");
  EXPECT_EQ(Cut("_"), "id:_");
  EXPECT_EQ(Cut("X x PI Pi"), "id:x id:x id:pi id:pi");
  EXPECT_EQ(Cut("1x"), "num:1 id:x");
  EXPECT_EQ(Cut("exp e5 ande"), "id:exp id:e5 id:ande");
}

TEST(Lexer, eight_words_are_operators) {
  EXPECT_EQ(Cut("e and eqv imp mod not or xor"), "e and eqv imp mod not or xor");
  EXPECT_EQ(Cut("E AND Eqv IMP MOD Not oR XOR"), "e and eqv imp mod not or xor");
}

TEST(Lexer, a_number_takes_any_points) {
  EXPECT_EQ(Cut("1..2"), "num:1..2");
  EXPECT_EQ(Cut("."), "num:.");
  EXPECT_EQ(Cut(".5 5. 1.5"), "num:.5 num:5. num:1.5");
}

TEST(Lexer, an_e_between_a_number_and_a_digit_is_the_operator) {
  EXPECT_EQ(Cut("2e3"), "num:2 e num:3");
  EXPECT_EQ(Cut("2E3"), "num:2 e num:3");
  EXPECT_EQ(Cut("2e3x"), "num:2 e num:3 id:x");
  EXPECT_EQ(Cut("2e3e4"), "num:2 e num:3 e num:4");
  EXPECT_EQ(Cut("1.5e-3"), "num:1.5 e - num:3");
  EXPECT_EQ(Cut("2 e 3"), "num:2 e num:3");
  EXPECT_EQ(Cut("2e 3"), "num:2 e num:3");
  EXPECT_EQ(Cut("&B1e3 &O7e3 &D2e3"), "num:1/2 e num:3 num:7/3 e num:3 num:2 e num:3");
}

TEST(Lexer, an_e_elsewhere_belongs_to_its_word) {
  EXPECT_EQ(Cut("2 e3"), "num:2 id:e3");
  EXPECT_EQ(Cut("e5"), "id:e5");
  EXPECT_EQ(Cut("2ee3"), "num:2 id:ee3");
  EXPECT_EQ(Cut("2exp"), "num:2 id:exp");
  EXPECT_EQ(Cut("(2)e3"), "( num:2 ) id:e3");
}

TEST(Lexer, pairs_are_one_token) {
  EXPECT_EQ(Cut("<=>=<>===>->--++"), "<= >= <> == => -> -- ++");
  EXPECT_EQ(Cut("a<=b"), "id:a <= id:b");
  EXPECT_EQ(Cut("x++"), "id:x ++");
  EXPECT_EQ(Cut("x->y"), "id:x -> id:y");
  EXPECT_EQ(Cut("x-->y"), "id:x -- > id:y");
  EXPECT_EQ(Cut("+++"), "++ +");
  EXPECT_EQ(Cut("===>"), "== =>");
}

TEST(Lexer, other_neighbours_are_two_tokens) {
  EXPECT_EQ(Cut("a=<b"), "id:a = < id:b");
  EXPECT_EQ(Cut(">< += -= =+ <- +-"), "> < + = - = = + < - + -");
  EXPECT_EQ(Cut("- -"), "- -");
  EXPECT_EQ(Cut("<"), "<");
}

TEST(Lexer, based_literals_keep_digits_and_radix_but_not_the_prefix) {
  EXPECT_EQ(Cut("&HfF"), "num:ff/1");
  EXPECT_EQ(Cut("&H1F"), "num:1f/1");
  EXPECT_EQ(Cut("&O17 &Q17"), "num:17/3 num:17/3");
  EXPECT_EQ(Cut("&B102"), "num:102/2");
  EXPECT_EQ(Cut("&D1.5"), "num:1.5");
  EXPECT_EQ(Cut("&h1g"), "num:1/1 id:g");
  EXPECT_EQ(Cut("&O1.5"), "num:1/3 num:.5");
  EXPECT_EQ(Cut("&H"), "num:/1");
  EXPECT_EQ(Cut("& H1"), "num:&  id:h1");
}

TEST(Lexer, an_ampersand_with_any_other_letter_is_a_number_with_a_bad_base) {
  for (const auto& [text, spelling] :
       {std::pair{"&Z1", "&z"}, {"&", "&"}, {"&&H1", "&&"}, {"&é1", "&é"}, {"&1", "&1"}}) {
    Lexer lexer;
    lexer.Start(text);
    const Token token = lexer.Next();
    EXPECT_EQ(token.kind, TokenKind::BadBase) << text;
    EXPECT_EQ(KindText(token), "num") << text;
    EXPECT_EQ(token.spelling, spelling) << text;
  }
}

TEST(Lexer, every_other_character_is_a_token_by_itself) {
  EXPECT_EQ(Cut("+-*/\\^!%,()[]{}:;<>="), "+ - * / \\ ^ ! % , ( ) [ ] { } : ; <> =");
  EXPECT_EQ(Cut("$#@~?\"'`|"), "$ # @ ~ ? \" ' ` |");
}

TEST(Lexer, a_character_outside_ascii_is_one_token_with_all_its_bytes) {
  EXPECT_EQ(Cut("é€😀x"), "é € 😀 id:x");
  EXPECT_EQ(Cut("xé"), "id:x é");
  EXPECT_EQ(Cut("É"), "É");
  EXPECT_EQ(Cut("\xFF\x80z"), "\xFF \x80 id:z");
  EXPECT_EQ(Cut("\xE2\x82"), "\xE2 \x82");
}

TEST(Lexer, a_nul_is_a_character_like_any_other) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Cut("1\0002"sv), "num:1 \0 num:2"sv);
  EXPECT_EQ(Cut("\0"sv), "\0"sv);
}

// A text eight times as long may take about eight times as long, not sixty-four.
TEST(Lexer, a_mebibyte_is_lexed_in_linear_time) {
  for (const std::string_view piece : {"x+", "1.5*", "<=", "verylongname", "7", " ", "\xC3\xA9"}) {
    std::string text;
    while (text.size() < (1U << 20U)) text += piece;
    const auto begin = std::chrono::steady_clock::now();
    Lexer lexer;
    lexer.Start(text);
    while (lexer.Next().kind != TokenKind::End) continue;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << piece;
  }
}

TEST(TokenKinds, every_kind_is_found_by_its_text) {
  for (int kind = static_cast<int>(TokenKind::Exponent); kind < static_cast<int>(TokenKind::Unknown);
       ++kind) {
    const Token token{static_cast<TokenKind>(kind), Radix::Decimal, {}};
    EXPECT_FALSE(KindText(token).empty()) << kind;
    EXPECT_EQ(static_cast<int>(KindFromText(KindText(token))), kind) << KindText(token);
  }
}

TEST(TokenKinds, brackets_know_their_partners) {
  EXPECT_EQ(PartnerOf(KindFromText("(")), KindFromText(")"));
  EXPECT_EQ(PartnerOf(KindFromText("[")), KindFromText("]"));
  EXPECT_EQ(PartnerOf(KindFromText("{")), KindFromText("}"));
}

}  // namespace
}  // namespace plotvane::engine
