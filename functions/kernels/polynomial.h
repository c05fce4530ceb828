// Polynomials with fixed coefficients, lowest power first.
//
// The coefficients of all kernels are minimax fits made for them: Remez exchange at 300 bits, then rounded to
// doubles in the way that loses least.
#pragma once

#include <array>
#include <cstddef>

namespace plotvane::functions::kernels {

// Every kStride-th term from kFirst on, by Horner's rule in x.
template <class Tag, std::size_t kFirst, std::size_t kStride, std::size_t kCount>
inline double Horner(double x, const std::array<double, kCount>& coefficients) noexcept {
  if constexpr (kFirst + kStride < kCount) {
    return coefficients[kFirst] + x * Horner<Tag, kFirst + kStride, kStride>(x, coefficients);
  } else {
    return coefficients[kFirst];
  }
}

// Even and odd powers apart, so that two chains run side by side.
template <class Tag, std::size_t kCount>
inline double Polynomial(double x, const std::array<double, kCount>& coefficients) noexcept {
  const double square = x * x;
  return Horner<Tag, 0, 2>(square, coefficients) + x * Horner<Tag, 1, 2>(square, coefficients);
}

}  // namespace plotvane::functions::kernels
