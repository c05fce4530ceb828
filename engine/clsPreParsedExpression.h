// clsPreParsedExpression: the token list of one expression, recorded once and replayed for later evaluations.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::engine {

class clsPreParsedExpression {
 public:
  [[nodiscard]] std::int16_t NumberOfTokens() const noexcept;

  // Appends one token; error 6 (as a RunTimeError) beyond 32,767 of them.
  void Add(std::string_view token, std::string_view spelling);

  void RemoveAll() noexcept;

  // The next token and true; past the end false, and the arguments are left alone.
  [[nodiscard]] bool GetNext(std::string& token, std::string& spelling);

  void SetNextToBeginning() noexcept;

  // All spellings with nothing between them; for display only (word operators lose their blanks).
  [[nodiscard]] std::string GetSpellingString() const;
};

}  // namespace plotvane::engine
