// The high-precision reference: distances of computed results from exact ones, in units of the last place.
#pragma once

#include <mpfr.h>

#include <cstdint>

namespace plotvane::functions::reference {

// Enough for the distance of any double from the exact value to a thousandth of a unit.
inline constexpr mpfr_prec_t kPrecision = 120;

class Number {
 public:
  Number() { mpfr_init2(mValue, kPrecision); }
  explicit Number(double value) : Number() { mpfr_set_d(mValue, value, MPFR_RNDN); }
  Number(const Number&) = delete;
  Number& operator=(const Number&) = delete;
  ~Number() { mpfr_clear(mValue); }

  [[nodiscard]] mpfr_ptr Get() { return mValue; }

 private:
  mpfr_t mValue;
};

// |computed - exact| in units of the last place of the double nearest to `exact`; of the smallest one for
// subnormal values. `exact` is consumed.
inline double UnitsApart(double computed, Number& exact) {
  constexpr mpfr_exp_t kSmallestUnit = -1074;
  if (mpfr_zero_p(exact.Get()) != 0) return computed == 0 ? 0.0 : 1e300;
  const mpfr_exp_t unit = std::max(mpfr_get_exp(exact.Get()) - 53, kSmallestUnit);
  mpfr_sub_d(exact.Get(), exact.Get(), computed, MPFR_RNDN);
  mpfr_mul_2si(exact.Get(), exact.Get(), -unit, MPFR_RNDN);
  return std::abs(mpfr_get_d(exact.Get(), MPFR_RNDU));
}

using OfOne = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using OfTwo = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

inline double ErrorOf(double computed, OfOne function, double x) {
  Number argument(x);
  Number exact;
  function(exact.Get(), argument.Get(), MPFR_RNDN);
  return UnitsApart(computed, exact);
}

inline double ErrorOf(double computed, OfTwo function, double x, double y) {
  Number first(x);
  Number second(y);
  Number exact;
  function(exact.Get(), first.Get(), second.Get(), MPFR_RNDN);
  return UnitsApart(computed, exact);
}

}  // namespace plotvane::functions::reference
