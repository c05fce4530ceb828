// Arithmetic, combinatorics and random numbers under the error trap: what is not a formula of real numbers
// alone.
#pragma once

#include "functions/trapped.h"

namespace plotvane::functions {

// n converted to a 16-bit whole number (halves to even); 1 for n below 2. Error 6 beyond 170.
[[nodiscard]] Trapped Factorial(Trapped n);
[[nodiscard]] Trapped Combinations(Trapped n, Trapped r);
[[nodiscard]] Trapped Permutations(Trapped n, Trapped r);

// Euclid's algorithm on real numbers. Ends after 10,000 rounds with custom error 11.
[[nodiscard]] Trapped GreatestCommonFactor(Trapped a, Trapped b);
[[nodiscard]] Trapped LeastCommonMultiple(Trapped a, Trapped b);

// Both sides are converted to 32-bit whole numbers (halves to even) first. The quotient truncates toward zero
// (error 6 for -2147483648 by -1), the remainder takes the sign of the left side; error 11 for a right side
// of 0.
[[nodiscard]] Trapped WholeQuotient(Trapped a, Trapped b);
[[nodiscard]] Trapped WholeRemainder(Trapped a, Trapped b);

// red + 256*green + 65536*blue, red converted to a 16-bit whole number first.
[[nodiscard]] Trapped ColourNumber(Trapped red, Trapped green, Trapped blue);

// Random numbers come from the generator that all expression objects share. The real ones are computed to
// single precision and widened; the whole ones are not.
[[nodiscard]] Trapped RandomFromSeed(Trapped seed);
[[nodiscard]] Trapped RandomBelow(Trapped high);
[[nodiscard]] Trapped RandomBetween(Trapped high, Trapped low);
[[nodiscard]] Trapped RandomWholeBelow(Trapped high);
[[nodiscard]] Trapped RandomWholeBetween(Trapped high, Trapped low);
[[nodiscard]] Trapped RandomColourNumber();

}  // namespace plotvane::functions
