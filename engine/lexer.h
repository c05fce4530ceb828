// Lexer: cuts the text of an expression into tokens, one for each call, in time linear in its length.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/token_source.h"

namespace plotvane::engine {

// number     digit or "." { digit or "." }            how many points there are is checked when it is
// converted based      "&" ( "h" hex | "o" digits | "q" digits | "b" digits | "d" digits and points ) word
// letter or "_" { letter, "_" or digit }   letters are a to z in either case pair       <=  >=  <>  ==  => ->
// --  ++ other      any other character by itself, outside ASCII the whole UTF-8 character
//
// Directly after a number, an "e" with a digit behind it is the operator "e" alone, so "2e3" is 2, e, 3;
// anywhere else the word goes on ("e3" is a name).
class Lexer : public TokenSource {
 public:
  // Takes a copy of the text in lower case (ASCII only); spellings are views of it, valid until the next
  // Start.
  void Start(std::string_view text);

  // The next token; at the end of the input the End token, again and again. "&" with a letter that names no
  // base gives a BadBase token whose spelling is the two characters.
  [[nodiscard]] Token Next() override;

 private:
  [[nodiscard]] char Peek(std::size_t ahead = 0) const noexcept;
  void SkipWhiteSpace() noexcept;
  template <bool (*kBelongs)(char) noexcept>
  std::string_view TakeWhile() noexcept;
  std::string_view TakeCharacter() noexcept;

  Token DecimalNumber() noexcept;
  Token BasedNumber() noexcept;
  Token Word(bool directlyAfterNumber) noexcept;
  Token Symbol() noexcept;

  std::string mText;
  std::size_t mPlace = 0;
  bool mAfterNumber = false;
};

}  // namespace plotvane::engine
