// Pairs of doubles: unevaluated sums high + low that carry the digits one double would lose.
//
// Methods: error-free sums after Møller, Knuth and Dekker; products made exact by cutting the factors to 26
// bits.
#pragma once

#include "functions/kernels/bits.h"

namespace plotvane::functions::kernels {

struct Pair {
  double high;
  double low;
};

// a + b exactly, for |a| >= |b| or a = 0.
template <class Tag>
inline Pair FastSum(double a, double b) noexcept {
  const double sum = a + b;
  return {sum, (a - sum) + b};
}

// a - b exactly, in any order of size.
template <class Tag>
inline Pair Difference(double a, double b) noexcept {
  const double difference = a - b;
  const double bPart = a - difference;
  const double aPart = difference + bPart;
  return {difference, (a - aPart) + (bPart - b)};
}

// a · b, to about 2^-76 of its value: the leading product is exact, and `low` rounded.
template <class Tag>
inline Pair Product(Pair a, Pair b) noexcept {
  const double aHead = Head<Tag>(a.high);
  const double aTail = (a.high - aHead) + a.low;
  const double bHead = Head<Tag>(b.high);
  const double bTail = (b.high - bHead) + b.low;
  return {aHead * bHead, aHead * bTail + aTail * (bHead + bTail)};
}

// a / b, to about 2^-75 of its value: `high` has 26 bits and `low` the rest, so that high · high is exact.
// `b` must be far from the ends of the range of doubles.
template <class Tag>
inline Pair Quotient(Pair a, Pair b) noexcept {
  const double reciprocal = 1.0 / b.high;
  const double high = Head<Tag>(a.high * reciprocal);
  const double bHead = Head<Tag>(b.high);
  const double bTail = (b.high - bHead) + b.low;
  const double remainder = ((a.high - high * bHead) - high * bTail) + a.low;
  return {high, remainder * reciprocal};
}

}  // namespace plotvane::functions::kernels
