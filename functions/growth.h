// Compound growth: ln(1+r), (1+r)^n and (1+r)^n − 1 without loss of digits for tiny rates and long terms.
#pragma once

#include "functions/trapped.h"

namespace plotvane::functions::growth {

// ln(1+r); error 5 for r of -1 and below.
[[nodiscard]] Trapped LogarithmOfOnePlus(Trapped r);

// (1+r)^n and (1+r)^n − 1, each within a few units in the last place; failures as in Pow.
struct Growth {
  Trapped factor;
  Trapped gain;
};
[[nodiscard]] Growth Compound(double r, double n);

}  // namespace plotvane::functions::growth
