// The catalogue: the one table of all built-in function names.
//
// The evaluator, arity errors, the help and completion of the command line and the language reference use
// this table; no other place lists the names. Its order is that of the reference.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace plotvane::functions {

// What a function does; aliases share one operation. functions/operations.h holds the table that carries them
// out.
enum class Operation : std::uint8_t {
  LIntegral,
  Derivative,
  NDerivative,
  SigmaSum,
  Abs,
  Exp,
  Fix,
  Int,
  Log10,
  Ln,
  Rnd,
  Random,
  RandomInt,
  Sgn,
  SquareRoot,
  Factorial,
  Degrees,
  Radians,
  GetDecimal,
  Sine,
  Cosine,
  Tangeant,
  Sec,
  Csc,
  Ctn,
  ArcSin,
  ArcCos,
  ArcTan,
  ArcSec,
  ArcCsc,
  ArcCtn,
  HSin,
  HCos,
  HTan,
  HSec,
  HCsc,
  HCtn,
  HArcSin,
  HArcCos,
  HArcTan,
  HArcSec,
  HArcCsc,
  HArcCtn,
  LogN,
  NCr,
  NPr,
  Gcf,
  Lcm,
  DecimalMod,
  Round,
  Rgb,
  Sln,
  NPer,
  Pmt,
  Pv,
  Fv,
  Rate,
  Syd,
  IPmt,
  PPmt,
};
inline constexpr std::size_t kOperationCount = static_cast<std::size_t>(Operation::PPmt) + 1;

// The unit of angles.
enum class AngleMode : std::uint8_t { Radians, Degrees };

// How the angle mode takes part in a call.
enum class AngleRule : std::uint8_t {
  None,
  In,   // the argument is an angle: converted before the operation
  Out,  // the result is an angle: converted after the operation
};

struct Function {
  std::string_view name;  // lower case
  std::uint8_t least;     // fewest arguments
  std::uint8_t most;      // most arguments
  AngleRule angle;
  Operation operation;
  std::string_view parameters;  // names of all `most` arguments, separated by ", "
  std::string_view help;        // one line, without a full stop

  // True for the operations that take an expression and a variable instead of values only.
  [[nodiscard]] constexpr bool IsCalculus() const noexcept { return operation <= Operation::SigmaSum; }

  // True for the operations that draw from the random generator, so that no two calls need agree.
  [[nodiscard]] constexpr bool IsRandom() const noexcept {
    return operation == Operation::Rnd || operation == Operation::Random || operation == Operation::RandomInt;
  }
};

// clang-format off
inline constexpr std::array kCatalogue{
    Function{"definiteintegral", 4, 5, AngleRule::None, Operation::LIntegral, "expression, variable, a, b, width", "definite integral by left-endpoint rectangles (width 0.01)"},
    Function{"di",               4, 5, AngleRule::None, Operation::LIntegral, "expression, variable, a, b, width", "definite integral by left-endpoint rectangles (width 0.01)"},
    Function{"derivative",       3, 4, AngleRule::None, Operation::Derivative, "expression, variable, x, h", "derivative by the forward difference (h 0.01)"},
    Function{"der",              3, 4, AngleRule::None, Operation::Derivative, "expression, variable, x, h", "derivative by the forward difference (h 0.01)"},
    Function{"nderivative",      4, 5, AngleRule::None, Operation::NDerivative, "n, expression, variable, x, h", "n-th derivative by repeated forward differences (h 0.01)"},
    Function{"nder",             4, 5, AngleRule::None, Operation::NDerivative, "n, expression, variable, x, h", "n-th derivative by repeated forward differences (h 0.01)"},
    Function{"sigmasum",         4, 5, AngleRule::None, Operation::SigmaSum, "expression, variable, low, high, step", "sum of the expression over the variable (step 1)"},
    Function{"ss",               4, 5, AngleRule::None, Operation::SigmaSum, "expression, variable, low, high, step", "sum of the expression over the variable (step 1)"},
    Function{"abs",        1, 1, AngleRule::None, Operation::Abs,        "x", "absolute value"},
    Function{"exp",        1, 1, AngleRule::None, Operation::Exp,        "x", "e raised to x"},
    Function{"fix",        1, 1, AngleRule::None, Operation::Fix,        "x", "x truncated toward zero"},
    Function{"int",        1, 1, AngleRule::None, Operation::Int,        "x", "greatest whole number not above x"},
    Function{"log",        1, 1, AngleRule::None, Operation::Log10,      "x", "logarithm to base 10"},
    Function{"log10",      1, 1, AngleRule::None, Operation::Log10,      "x", "logarithm to base 10"},
    Function{"ln",         1, 1, AngleRule::None, Operation::Ln,         "x", "natural logarithm"},
    Function{"rnd",        1, 1, AngleRule::None, Operation::Rnd,        "seed", "random number in [0, 1): next (seed above 0), last again (0), restarted (below 0)"},
    Function{"random",     1, 2, AngleRule::None, Operation::Random,     "high, low", "random real number from 0, or low, up to high"},
    Function{"randomint",  1, 2, AngleRule::None, Operation::RandomInt,  "high, low", "random whole number from 0 to high - 1, or from low to high"},
    Function{"sgn",        1, 1, AngleRule::None, Operation::Sgn,        "x", "sign: -1, 0 or 1"},
    Function{"sqr",        1, 1, AngleRule::None, Operation::SquareRoot, "x", "square root"},
    Function{"factorial",  1, 1, AngleRule::None, Operation::Factorial,  "n", "n!"},
    Function{"degrees",    1, 1, AngleRule::None, Operation::Degrees,    "x", "x radians in degrees, reduced by whole turns"},
    Function{"radians",    1, 1, AngleRule::None, Operation::Radians,    "x", "x degrees in radians, reduced by whole turns"},
    Function{"getdecimal", 1, 1, AngleRule::None, Operation::GetDecimal, "x", "fractional part of x, with its sign"},
    Function{"sin",        1, 1, AngleRule::In,   Operation::Sine,       "x", "sine"},
    Function{"cos",        1, 1, AngleRule::In,   Operation::Cosine,     "x", "cosine"},
    Function{"tan",        1, 1, AngleRule::In,   Operation::Tangeant,   "x", "tangent"},
    Function{"sec",        1, 1, AngleRule::In,   Operation::Sec,        "x", "secant"},
    Function{"csc",        1, 1, AngleRule::In,   Operation::Csc,        "x", "cosecant"},
    Function{"ctn",        1, 1, AngleRule::In,   Operation::Ctn,        "x", "cotangent"},
    Function{"cot",        1, 1, AngleRule::In,   Operation::Ctn,        "x", "cotangent"},
    Function{"asin",       1, 1, AngleRule::Out,  Operation::ArcSin,     "x", "inverse sine"},
    Function{"acos",       1, 1, AngleRule::Out,  Operation::ArcCos,     "x", "inverse cosine"},
    Function{"atan",       1, 1, AngleRule::Out,  Operation::ArcTan,     "x", "inverse tangent"},
    Function{"asec",       1, 1, AngleRule::Out,  Operation::ArcSec,     "x", "inverse secant"},
    Function{"acsc",       1, 1, AngleRule::Out,  Operation::ArcCsc,     "x", "inverse cosecant"},
    Function{"actn",       1, 1, AngleRule::Out,  Operation::ArcCtn,     "x", "inverse cotangent"},
    Function{"acot",       1, 1, AngleRule::Out,  Operation::ArcCtn,     "x", "inverse cotangent"},
    Function{"atn",        1, 1, AngleRule::Out,  Operation::ArcTan,     "x", "inverse tangent"},
    Function{"sinh",       1, 1, AngleRule::None, Operation::HSin,       "x", "hyperbolic sine"},
    Function{"cosh",       1, 1, AngleRule::None, Operation::HCos,       "x", "hyperbolic cosine"},
    Function{"tanh",       1, 1, AngleRule::None, Operation::HTan,       "x", "hyperbolic tangent"},
    Function{"sech",       1, 1, AngleRule::None, Operation::HSec,       "x", "hyperbolic secant"},
    Function{"csch",       1, 1, AngleRule::None, Operation::HCsc,       "x", "hyperbolic cosecant"},
    Function{"ctnh",       1, 1, AngleRule::None, Operation::HCtn,       "x", "hyperbolic cotangent"},
    Function{"coth",       1, 1, AngleRule::None, Operation::HCtn,       "x", "hyperbolic cotangent"},
    Function{"arcsinh",    1, 1, AngleRule::None, Operation::HArcSin,    "x", "inverse hyperbolic sine"},
    Function{"arccosh",    1, 1, AngleRule::None, Operation::HArcCos,    "x", "inverse hyperbolic cosine"},
    Function{"arctanh",    1, 1, AngleRule::None, Operation::HArcTan,    "x", "inverse hyperbolic tangent"},
    Function{"arcsech",    1, 1, AngleRule::None, Operation::HArcSec,    "x", "inverse hyperbolic secant"},
    Function{"arccsch",    1, 1, AngleRule::None, Operation::HArcCsc,    "x", "inverse hyperbolic cosecant"},
    Function{"arcctnh",    1, 1, AngleRule::None, Operation::HArcCtn,    "x", "inverse hyperbolic cotangent"},
    Function{"arccoth",    1, 1, AngleRule::None, Operation::HArcCtn,    "x", "inverse hyperbolic cotangent"},
    Function{"logn",       2, 2, AngleRule::None, Operation::LogN,       "x, base", "logarithm of x to the given base"},
    Function{"ncr",        2, 2, AngleRule::None, Operation::NCr,        "n, r", "number of combinations of r out of n"},
    Function{"npr",        2, 2, AngleRule::None, Operation::NPr,        "n, r", "number of permutations of r out of n"},
    Function{"gcf",        2, 2, AngleRule::None, Operation::Gcf,        "a, b", "greatest common factor"},
    Function{"gcd",        2, 2, AngleRule::None, Operation::Gcf,        "a, b", "greatest common divisor"},
    Function{"lcm",        2, 2, AngleRule::None, Operation::Lcm,        "a, b", "least common multiple"},
    Function{"decimalmod", 2, 2, AngleRule::None, Operation::DecimalMod, "number, modulus", "remainder that keeps the fraction and the sign of the number"},
    Function{"round",      1, 2, AngleRule::None, Operation::Round,      "x, places", "x rounded to places decimals (0), ties upward"},
    Function{"rgb",        3, 3, AngleRule::None, Operation::Rgb,        "red, green, blue", "colour number red + 256*green + 65536*blue"},
    Function{"sln",        3, 3, AngleRule::None, Operation::Sln,        "cost, salvage, life", "straight-line depreciation per period"},
    Function{"nper",       3, 5, AngleRule::None, Operation::NPer,       "rate, pmt, pv, fv, due", "number of periods of an annuity (fv 0, due 0)"},
    Function{"pmt",        3, 5, AngleRule::None, Operation::Pmt,        "rate, nper, pv, fv, due", "payment per period of an annuity (fv 0, due 0)"},
    Function{"pv",         3, 5, AngleRule::None, Operation::Pv,         "rate, nper, pmt, fv, due", "present value of an annuity (fv 0, due 0)"},
    Function{"fv",         3, 5, AngleRule::None, Operation::Fv,         "rate, nper, pmt, pv, due", "future value of an annuity (pv 0, due 0)"},
    Function{"rate",       3, 6, AngleRule::None, Operation::Rate,       "nper, pmt, pv, fv, due, guess", "interest rate per period of an annuity (fv 0, due 0, guess 0.1)"},
    Function{"syd",        4, 4, AngleRule::None, Operation::Syd,        "cost, salvage, life, period", "sum-of-years'-digits depreciation for the period"},
    Function{"ipmt",       4, 6, AngleRule::None, Operation::IPmt,       "rate, per, nper, pv, fv, due", "interest part of the payment of period per (fv 0, due 0)"},
    Function{"ppmt",       4, 6, AngleRule::None, Operation::PPmt,       "rate, per, nper, pv, fv, due", "principal part of the payment of period per (fv 0, due 0)"},
};
// clang-format on

// The most arguments that any function takes.
inline constexpr std::size_t kMostArguments = std::ranges::max(kCatalogue, {}, &Function::most).most;

static_assert(kCatalogue.size() == 71);
static_assert(kMostArguments == 6);
static_assert(std::ranges::all_of(kCatalogue, [](const Function& function) {
  return function.least >= 1 && function.least <= function.most &&
         std::ranges::count(function.parameters, ',') + 1 == function.most;
}));

// The function of that name in any case (ASCII), or null when it is not built in. Never allocates.
[[nodiscard]] const Function* FindFunction(std::string_view name) noexcept;

// The call as the reference shows it, optional arguments in brackets: pmt(rate, nper, pv [, fv [, due]]).
[[nodiscard]] std::string CallForm(const Function& function);

// How an argument of a calculus call is read.
enum class CalculusArgument : std::uint8_t { Value, Expression, Variable };

// Position 0 is the first argument: an n-th derivative begins with n, the others with the expression.
[[nodiscard]] constexpr CalculusArgument CalculusArgumentAt(const Function& function,
                                                            std::size_t position) noexcept {
  const std::size_t expression = function.operation == Operation::NDerivative ? 1 : 0;
  if (position == expression) return CalculusArgument::Expression;
  return position == expression + 1 ? CalculusArgument::Variable : CalculusArgument::Value;
}

// The step, width or h of a calculus call that omits it.
[[nodiscard]] constexpr double DefaultStep(const Function& function) noexcept {
  return function.operation == Operation::SigmaSum ? 1.0 : 0.01;
}

// The default of an omitted optional argument, except the calculus steps: a guess is 0.1, anything else 0.
[[nodiscard]] constexpr double DefaultArgument(const Function& function, std::size_t position) noexcept {
  return function.operation == Operation::Rate && position == 5 ? 0.1 : 0.0;
}

}  // namespace plotvane::functions
