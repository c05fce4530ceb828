#include "functions/arithmetic.h"

#include <cstdint>

#include "platform/conversions.h"
#include "platform/random.h"

namespace plotvane::functions {

namespace {

using platform::StandardError;

constexpr int kMostEuclidRounds = 10'000;

// An operation on two 32-bit whole numbers, the right one not 0.
template <class Operation>
Trapped OnWholeNumbers(Trapped a, Trapped b, Operation operation) {
  if (!a.Ok()) return a;
  if (!b.Ok()) return b;
  const auto left = platform::ToInt32(a.Get());
  if (!left.Ok()) return left.Error();
  const auto right = platform::ToInt32(b.Get());
  if (!right.Ok()) return right.Error();
  if (right.Get() == 0) return StandardError::DivisionByZero;
  // In 64 bits the one quotient beyond 32 bits has a value too.
  return operation(std::int64_t{left.Get()}, std::int64_t{right.Get()});
}

Trapped ToWhole16(Trapped x) {
  if (!x.Ok()) return x;
  const auto whole = platform::ToInt16(x.Get());
  return whole.Ok() ? Trapped(static_cast<double>(whole.Get())) : Trapped(whole.Error());
}

Trapped ToSinglePrecision(Trapped x) {
  if (!x.Ok()) return x;
  const auto single = platform::ToSingle(x.Get());
  return single.Ok() ? Trapped(static_cast<double>(single.Get())) : Trapped(single.Error());
}

double NextRandom() {
  return static_cast<double>(platform::SharedRandomGenerator().Next());
}

}  // namespace

Trapped Factorial(Trapped n) {
  const Trapped whole = ToWhole16(n);
  if (!whole.Ok()) return whole;
  Trapped product = 1.0;
  for (double factor = whole.Get(); factor >= 2 && product.Ok(); factor -= 1)
    product = product * Trapped(factor);
  return product;
}

Trapped Combinations(Trapped n, Trapped r) {
  return Factorial(n) / (Factorial(r) * Factorial(n - r));
}

Trapped Permutations(Trapped n, Trapped r) {
  return Factorial(n) / Factorial(n - r);
}

Trapped GreatestCommonFactor(Trapped a, Trapped b) {
  for (int round = 0; round < kMostEuclidRounds; ++round) {
    const Trapped quotient = a / b;
    const Trapped whole = Floor(quotient);
    if (!whole.Ok()) return whole;
    if (quotient.Get() == whole.Get()) return b;
    const Trapped remainder = a - b * whole;
    a = b;
    b = remainder;
  }
  return CustomError::UndefinedValue;
}

Trapped LeastCommonMultiple(Trapped a, Trapped b) {
  return a * b / GreatestCommonFactor(a, b);
}

Trapped WholeQuotient(Trapped a, Trapped b) {
  return OnWholeNumbers(a, b, [](std::int64_t left, std::int64_t right) -> Trapped {
    const std::int64_t quotient = left / right;
    if (quotient > INT32_MAX) return StandardError::Overflow;
    return static_cast<double>(quotient);
  });
}

Trapped WholeRemainder(Trapped a, Trapped b) {
  return OnWholeNumbers(a, b, [](std::int64_t left, std::int64_t right) -> Trapped {
    return static_cast<double>(left % right);
  });
}

Trapped ColourNumber(Trapped red, Trapped green, Trapped blue) {
  return ToWhole16(red) + Trapped(256) * green + Trapped(65536) * blue;
}

Trapped RandomFromSeed(Trapped seed) {
  const Trapped single = ToSinglePrecision(seed);
  if (!single.Ok()) return single;
  platform::RandomGenerator& generator = platform::SharedRandomGenerator();
  if (single.Get() > 0) return static_cast<double>(generator.Next());
  if (single.Get() == 0) return static_cast<double>(generator.Last());
  return static_cast<double>(generator.Restart(static_cast<float>(single.Get())));
}

// The generator advances once for every call whose arguments are numbers, also when the result is too large.
Trapped RandomBelow(Trapped high) {
  if (!high.Ok()) return high;
  return ToSinglePrecision(Trapped(NextRandom()) * high);
}

Trapped RandomBetween(Trapped high, Trapped low) {
  const Trapped width = high - low;
  if (!width.Ok()) return width;
  return ToSinglePrecision(low + Trapped(NextRandom()) * width);
}

Trapped RandomWholeBelow(Trapped high) {
  if (!high.Ok()) return high;
  return Floor(Trapped(NextRandom()) * high);
}

Trapped RandomWholeBetween(Trapped high, Trapped low) {
  const Trapped width = high - low + Trapped(1);
  if (!width.Ok()) return width;
  return Floor(low + Trapped(NextRandom()) * width);
}

Trapped RandomColourNumber() {
  const auto colour = platform::ToInt32(NextRandom() * 16777215.0);
  return colour.Ok() ? Trapped(static_cast<double>(colour.Get())) : Trapped(colour.Error());
}

}  // namespace plotvane::functions
