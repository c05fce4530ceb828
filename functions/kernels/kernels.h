// The seven elementary kernels: the only places where the system computes a transcendental function.
//
// Each result is within 1 unit in the last place of the exact value over the whole range of its argument, and
// the same to the last bit in every build: plain additions, subtractions, multiplications and divisions only.
// Arguments beyond a function's domain give what IEEE 754 recommends (not-a-number, or an infinity at a pole
// or past the largest double); callers turn these into error numbers.
#pragma once

namespace plotvane::functions::kernels {

[[nodiscard]] double Sin(double x) noexcept;  // radians
[[nodiscard]] double Cos(double x) noexcept;
[[nodiscard]] double Tan(double x) noexcept;
[[nodiscard]] double Atan(double x) noexcept;
[[nodiscard]] double Exp(double x) noexcept;
[[nodiscard]] double Log(double x) noexcept;  // natural
[[nodiscard]] double Pow(double base, double exponent) noexcept;

}  // namespace plotvane::functions::kernels
