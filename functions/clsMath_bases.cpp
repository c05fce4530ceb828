// The number bases of clsMath: digit texts to numbers and back.
#include <algorithm>
#include <bit>
#include <limits>

#include "functions/clsMath.h"
#include "functions/kernels/bits.h"
#include "platform/number_text.h"

namespace plotvane::functions {

namespace {

using platform::Outcome;
using platform::StandardError;

constexpr std::int32_t kWidestBytes = 8;

// 2^(8·bytes) for unsigned numbers, half of it for the magnitude of negative ones; exact.
double TwoToTheBits(std::int32_t bytes) {
  return std::bit_cast<double>((1023U + 8ULL * static_cast<unsigned>(bytes)) << 52U);
}

bool FitsInto(double whole, std::int32_t bytes) {
  return whole >= 0 ? whole < TwoToTheBits(bytes) : whole >= -TwoToTheBits(bytes) / 2;
}

std::int32_t DefaultWidth(double whole) {
  if (FitsInto(whole, 2)) return 2;
  return FitsInto(whole, 4) ? 4 : kWidestBytes;
}

// The low 8·bytes bits of a number that fits.
std::uint64_t TwosComplement(double whole, std::int32_t bytes) {
  if (whole >= 0) return static_cast<std::uint64_t>(whole);
  const std::uint64_t negated = ~static_cast<std::uint64_t>(-whole) + 1;
  return negated & (~std::uint64_t{0} >> (64 - 8 * bytes));
}

std::string BinaryDigits(std::uint64_t bits) {
  std::string digits;
  do {
    digits.push_back((bits & 1U) != 0 ? '1' : '0');
    bits >>= 1U;
  } while (bits != 0);
  std::ranges::reverse(digits);
  return digits;
}

}  // namespace

Trapped clsMath::StrOctToDec(std::string_view s) {
  return StrBaseNToDec(s, 8);
}
Trapped clsMath::StrBinToDec(std::string_view s) {
  return StrBaseNToDec(s, 2);
}

Trapped clsMath::StrBaseNToDec(std::string_view s, std::int32_t base) {
  const std::string baseText = std::to_string(base);
  Trapped sum = 0.0;
  Trapped weight = 1.0;
  for (auto digit = s.rbegin(); digit != s.rend(); ++digit) {
    const std::string_view text(&*digit, 1);
    if (text < "0" || text >= baseText) return Report(CustomError::BaseDigits);
    // A zero needs no weight, which may be too large for a number by then.
    if (*digit != '0') sum = sum + Trapped(static_cast<double>(*digit - '0')) * weight;
    weight = weight * Trapped(static_cast<double>(base));
  }
  return sum;
}

Trapped clsMath::StrToDec(std::string_view s) {
  return platform::LeadingNumber(s);
}
Trapped clsMath::StrToHex(std::string_view s) {
  return platform::LeadingHexNumber(s);
}

Outcome<std::string> clsMath::Binary(Operand numToConvert, std::int32_t numBytes) const {
  const Trapped whole = Truncate(numToConvert.Number());
  if (!whole.Ok()) return whole.Error().standard;
  if (numBytes < 0 || numBytes > kWidestBytes) return StandardError::InvalidCall;
  const std::int32_t bytes = numBytes == 0 ? DefaultWidth(whole.Get()) : numBytes;
  if (!FitsInto(whole.Get(), bytes)) return StandardError::Overflow;
  return BinaryDigits(TwosComplement(whole.Get(), bytes));
}

}  // namespace plotvane::functions
