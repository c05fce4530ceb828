#include "engine/error_catalogue.h"

#include <array>

#include "functions/errors.h"

namespace plotvane::engine {

namespace {

enum class Quotes { Nothing, Spelling, BracketAndSpelling };

struct Entry {
  functions::CustomError error;
  Quotes quotes;
  std::string_view text;
};

using functions::CustomError;

constexpr std::array kCatalogue{
    Entry{CustomError::Syntax, Quotes::Spelling, "Syntax error "},
    Entry{CustomError::BracketMismatch, Quotes::BracketAndSpelling, "Expected a match to "},
    // Never raised: an unknown name is an undefined identifier.
    Entry{CustomError::UndefinedFunction, Quotes::Nothing, "Undefined function."},
    Entry{CustomError::MissingArguments, Quotes::Nothing, "Missing Argument(s)."},
    Entry{CustomError::TooManyArguments, Quotes::Nothing, "Too many arguments."},
    Entry{CustomError::BaseDigits, Quotes::Spelling, "Invalid base digits "},
    Entry{CustomError::BaseSpecification, Quotes::Spelling, "Invalid base specification "},
    Entry{CustomError::NotNumeric, Quotes::Nothing, "Result is not numeric. A numeric result is required."},
    Entry{CustomError::CannotStore, Quotes::Nothing,
          "Cannot store to id. The specified id name may be reserved for a constant."},
    Entry{CustomError::NoVariableToStore, Quotes::Nothing,
          "Cannot store to variable; a variable is not specified."},
    Entry{CustomError::UndefinedValue, Quotes::Nothing,
          "Undefined function value. Function is not defined at the specified value(s)."},
    Entry{CustomError::UndefinedIdentifier, Quotes::Nothing, "Undefined function or identifier."},
    Entry{CustomError::VariableExpected, Quotes::Spelling,
          "Expecting a variable name and got the unexpected input: "},
    Entry{CustomError::OpenBracketExpected, Quotes::Spelling,
          "Syntax error. Expecting opening parenthesis but got: "},
    Entry{CustomError::CloseBracketExpected, Quotes::Spelling,
          "Syntax error. Expecting closing parenthesis but got: "},
};

// The number is the place: entry 0 is error 1.
constexpr bool InOrder() {
  for (std::size_t place = 0; place < kCatalogue.size(); ++place) {
    if (static_cast<std::size_t>(kCatalogue[place].error) != place + 1) return false;
  }
  return true;
}
static_assert(kCatalogue.size() == 15 && InOrder());

std::string Quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

}  // namespace

std::string CustomErrorText(std::int32_t number, std::string_view spelling, std::string_view poppedBracket) {
  if (number < 1 || number > static_cast<std::int32_t>(kCatalogue.size())) {
    return "There is no description for this error number.";
  }
  const Entry& entry = kCatalogue[static_cast<std::size_t>(number) - 1];
  std::string text(entry.text);
  switch (entry.quotes) {
    case Quotes::Nothing: break;
    case Quotes::Spelling: text += Quoted(spelling); break;
    case Quotes::BracketAndSpelling: text += Quoted(poppedBracket) + ", and got " + Quoted(spelling); break;
  }
  return text;
}

}  // namespace plotvane::engine
