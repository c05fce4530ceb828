// clsPreParsedExpression: the token list of one expression, recorded once and replayed for later evaluations.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/token.h"
#include "functions/catalogue.h"

namespace plotvane::identifiers {
class clsVarTable;
}

namespace plotvane::engine {

class BoundProgram;

// The tokens themselves: kinds and places in one text, so that a list costs two allocations whatever its
// length.
class TokenList {
 public:
  static constexpr std::size_t kMostTokens = 32767;

  [[nodiscard]] std::size_t Size() const noexcept { return mEntries.size(); }

  // The token at a place below Size(); its spelling is valid until the list is added to or destroyed.
  [[nodiscard]] Token At(std::size_t place) const noexcept;

  // The kind as text. A token that was added with a kind of its own (no rule knows it) gives that text back.
  [[nodiscard]] std::string_view KindTextAt(std::size_t place) const noexcept;

  // The caller keeps Size() within kMostTokens.
  void Add(const Token& token);
  void Add(std::string_view kind, std::string_view spelling);

 private:
  struct Entry {
    TokenKind kind;
    Radix radix;
    std::uint32_t begin;        // where the spelling begins in mText
    std::uint32_t length;       // of the spelling
    std::uint32_t strangeKind;  // length of an unknown kind's own text, which then follows the spelling
  };

  void Append(const Token& token, std::string_view strangeKind);

  std::vector<Entry> mEntries;
  std::string mText;
};

// Copies share their tokens until one of them changes. An evaluation that replays the list holds on to the
// tokens it started with, so the list may be emptied or recorded anew meanwhile (by a host's table, for
// example).
class clsPreParsedExpression {
 public:
  clsPreParsedExpression() = default;
  clsPreParsedExpression(const clsPreParsedExpression& other) : mTokens(other.mTokens), mNext(other.mNext) {}
  clsPreParsedExpression& operator=(const clsPreParsedExpression& other);

  // 0 to 32767.
  [[nodiscard]] std::int16_t NumberOfTokens() const noexcept;

  // Appends one token; RunTimeError 6 beyond 32,767 of them. A "num" token added so is decimal.
  void Add(std::string_view token, std::string_view spelling);

  // Also sets the reading position to the beginning.
  void RemoveAll();

  // The next token and true; past the end false, and the arguments are left alone.
  [[nodiscard]] bool GetNext(std::string& token, std::string& spelling);

  void SetNextToBeginning() noexcept;
  [[nodiscard]] bool IsAtBeginning() const noexcept { return mNext == 0; }

  // All spellings with nothing between them: for display only, as word operators lose their blanks ("1modx")
  // and based literals their prefix.
  [[nodiscard]] std::string GetSpellingString() const;

  // For the engine. Add with the radix kept; false (and nothing added) when the list is full.
  [[nodiscard]] bool Append(const Token& token);
  [[nodiscard]] std::shared_ptr<const TokenList> Tokens() const noexcept;
  [[nodiscard]] const TokenList& List() const noexcept { return *mTokens; }

  // The list compiled for a table, an angle mode and a varying variable (empty for none); compiled at the
  // first request and kept for the next ones, for the last few different requests.
  [[nodiscard]] const std::shared_ptr<BoundProgram>& Compiled(
      const std::shared_ptr<identifiers::clsVarTable>& table, functions::AngleMode angleMode,
      std::string_view varying);

 private:
  TokenList& OwnTokens();

  std::shared_ptr<TokenList> mTokens = std::make_shared<TokenList>();
  std::size_t mNext = 0;  // how many tokens GetNext has handed out
  // Of mTokens; each holds on to them. Copies compile for themselves: programs carry the numbers of their
  // run.
  std::vector<std::shared_ptr<BoundProgram>> mCompiled;
};

}  // namespace plotvane::engine
