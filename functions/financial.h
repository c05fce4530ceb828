// The financial functions: annuities and depreciation.
//
// With rate r, number of periods n, payment p, present value v, future value f and due flag d (0: payments at
// the end of each period, any other value counts as 1: at its beginning) an annuity satisfies
//
//   v·(1+r)^n + p·(1+r·d)·((1+r)^n − 1)/r + f = 0        (v + p·n + f = 0 when r is 0)
//
// Cash paid out is negative. Growth factors are computed so that tiny rates and long terms lose no digits.
// Errors: a zero divisor 11, a result too large 6, anything else outside the domain 5.
#pragma once

#include "functions/trapped.h"

namespace plotvane::functions::financial {

// (cost − salvage) / life.
[[nodiscard]] Trapped StraightLine(Trapped cost, Trapped salvage, Trapped life);

// (cost − salvage)·(life − period + 1)·2 / (life·(life + 1)); error 5 for a period outside 1 to life.
[[nodiscard]] Trapped SumOfYears(Trapped cost, Trapped salvage, Trapped life, Trapped period);

[[nodiscard]] Trapped NumberOfPeriods(Trapped rate, Trapped payment, Trapped present, Trapped future,
                                      Trapped due);
[[nodiscard]] Trapped Payment(Trapped rate, Trapped periods, Trapped present, Trapped future, Trapped due);
[[nodiscard]] Trapped PresentValue(Trapped rate, Trapped periods, Trapped payment, Trapped future,
                                   Trapped due);
[[nodiscard]] Trapped FutureValue(Trapped rate, Trapped periods, Trapped payment, Trapped present,
                                  Trapped due);

// The rate, found by iteration from `guess` to full precision. Error 5 for periods of 0 or less; custom error
// 11 when no rate above -1 is found.
[[nodiscard]] Trapped InterestRate(Trapped periods, Trapped payment, Trapped present, Trapped future,
                                   Trapped due, Trapped guess);

// The parts of the payment of one period; error 5 for a period outside 1 to `periods`.
[[nodiscard]] Trapped InterestPart(Trapped rate, Trapped period, Trapped periods, Trapped present,
                                   Trapped future, Trapped due);
[[nodiscard]] Trapped PrincipalPart(Trapped rate, Trapped period, Trapped periods, Trapped present,
                                    Trapped future, Trapped due);

}  // namespace plotvane::functions::financial
