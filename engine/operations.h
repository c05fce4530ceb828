// The operations of compiled programs: each is written once, for any kind of number, and listed once.
//
// The single-value path and the column path are tables made from the same lists (engine/operation_table.h),
// and so is what the compiler writes for operators and functions of two numbers (engine/operation_choice.h):
// a new operation is added here and nowhere else. The functions of one number come from
// functions/unary_formulas.h.
//
// Beside its name for printed programs an operation says what it is the meaning of:
//   kOperator       a binary operator of the language; on numbers, …
//   kOfTruthValues  … or, where that is true, on two truth values, which then give one
//   kGivesTruth     the result is a truth value
//   kFunction       a function of two numbers
//
// One rule holds for all: a failure is a result that is not finite, and no operation turns an operand that is
// not finite into a finite result. So one look at the end of a program tells whether any of its steps failed.
// Truth values are the numbers -1 and +0.
#pragma once

#include <array>
#include <string_view>

#include "engine/token.h"
#include "functions/catalogue.h"
#include "functions/formulas.h"
#include "functions/kernels/bits.h"

namespace plotvane::engine::operations {

template <class... Operations>
struct List {
  static constexpr std::size_t kSize = sizeof...(Operations);
};

// --- Arithmetic

struct Add {
  static constexpr std::string_view kName = "add";
  static constexpr TokenKind kOperator = TokenKind::Plus;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return a + b;
  }
};

struct Subtract {
  static constexpr std::string_view kName = "subtract";
  static constexpr TokenKind kOperator = TokenKind::Minus;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return a - b;
  }
};

struct Multiply {
  static constexpr std::string_view kName = "multiply";
  static constexpr TokenKind kOperator = TokenKind::Times;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return a * b;
  }
};

struct Divide {
  static constexpr std::string_view kName = "divide";
  static constexpr TokenKind kOperator = TokenKind::Divide;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return a / b;
  }
};

// By a divisor that is certainly finite.
struct DivideByFinite {
  static constexpr std::string_view kName = "divide by";
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Real(a.Get() / b.Get());
  }
};

struct Power {
  static constexpr std::string_view kName = "power";
  static constexpr TokenKind kOperator = TokenKind::Power;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Pow(a, b);
  }
};

// By a whole exponent from 2 to 8; the same bits as Power.
template <int kExponent>
struct WholePower {
  static constexpr double kWholeExponent = kExponent;
  static constexpr std::array<char, 8> kText{
      'p', 'o', 'w', 'e', 'r', ' ', static_cast<char>('0' + kExponent)};
  static constexpr std::string_view kName{kText.data()};
  template <class Real>
  static Real Apply(Real a) {
    return a.template WholePower<kExponent>();
  }
};

struct Scientific {
  static constexpr std::string_view kName = "scientific";
  static constexpr TokenKind kOperator = TokenKind::Exponent;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return functions::formulas::ScientificNotation(a, b);
  }
};

struct Negate {
  static constexpr std::string_view kName = "negate";
  template <class Real>
  static Real Apply(Real a) {
    return -a;
  }
};

struct Percent {
  static constexpr std::string_view kName = "percent";
  template <class Real>
  static Real Apply(Real a) {
    return a / Real(100);
  }
};

// --- 32-bit whole numbers, halves to even

// The whole number as a double; not-a-number outside 32 bits.
template <class Real>
double Whole(Real a) {
  const double value = a.Get();
  // Adding and taking away 1.5 * 2^52 rounds; adding 0 makes the zero positive.
  const double nearest =
      (value + functions::kernels::kRoundToWhole) - functions::kernels::kRoundToWhole + 0.0;
  const double atMost = value < 2147483647.5 ? nearest : functions::kernels::kNotANumber;
  return value >= -2147483648.5 ? atMost : functions::kernels::kNotANumber;
}

template <class Real>
Real WholeQuotientOf(double a, double b) {
  return Truncate(Real(a / b));
}

struct WholeQuotient {
  static constexpr std::string_view kName = "whole quotient";
  static constexpr TokenKind kOperator = TokenKind::Backslash;
  template <class Real>
  static Real Apply(Real a, Real b) {
    // -2147483648 \ -1 alone leaves the 32 bits.
    const double quotient = WholeQuotientOf<Real>(Whole(a), Whole(b)).Get() + 0.0;
    return Real(quotient <= 2147483647.0 ? quotient : functions::kernels::kNotANumber);
  }
};

struct WholeRemainder {
  static constexpr std::string_view kName = "whole remainder";
  static constexpr TokenKind kOperator = TokenKind::Mod;
  template <class Real>
  static Real Apply(Real a, Real b) {
    const double left = Whole(a);
    const double right = Whole(b);
    return Real(left - right * WholeQuotientOf<Real>(left, right).Get());
  }
};

// The operands' 32 bits, as the low bits of two doubles, joined by `join`.
template <class Tag, class Real, class Join>
Real JoinBits(Real a, Real b, Join join) {
  using namespace functions::kernels;
  const double left = Whole(a);
  const double right = Whole(b);
  constexpr std::uint64_t kTopBit = 0x80000000U;
  const std::uint64_t joined =
      join(Bits<Tag>(left + kRoundToWhole), Bits<Tag>(right + kRoundToWhole)) & 0xFFFFFFFFU;
  const double offset = FromBits<Tag>(Bits<Tag>(kTwo52) | (joined ^ kTopBit));
  const double whole = offset - (kTwo52 + 2147483648.0);
  // 0, or not-a-number when a side was.
  const double fault = (left - left) + (right - right);
  return Real(whole + fault);
}

struct AndBits {
  static constexpr std::string_view kName = "and bits";
  static constexpr TokenKind kOperator = TokenKind::And;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return JoinBits<typename Real::Tag>(a, b, [](std::uint64_t l, std::uint64_t r) { return l & r; });
  }
};

struct OrBits {
  static constexpr std::string_view kName = "or bits";
  static constexpr TokenKind kOperator = TokenKind::Or;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return JoinBits<typename Real::Tag>(a, b, [](std::uint64_t l, std::uint64_t r) { return l | r; });
  }
};

struct XorBits {
  static constexpr std::string_view kName = "xor bits";
  static constexpr TokenKind kOperator = TokenKind::Xor;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return JoinBits<typename Real::Tag>(a, b, [](std::uint64_t l, std::uint64_t r) { return l ^ r; });
  }
};

struct EqvBits {
  static constexpr std::string_view kName = "eqv bits";
  static constexpr TokenKind kOperator = TokenKind::Eqv;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return JoinBits<typename Real::Tag>(a, b, [](std::uint64_t l, std::uint64_t r) { return ~(l ^ r); });
  }
};

struct ImpBits {
  static constexpr std::string_view kName = "imp bits";
  static constexpr TokenKind kOperator = TokenKind::Imp;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return JoinBits<typename Real::Tag>(a, b, [](std::uint64_t l, std::uint64_t r) { return ~l | r; });
  }
};

struct NotBits {
  static constexpr std::string_view kName = "not bits";
  template <class Real>
  static Real Apply(Real a) {
    return Real(-1.0 - Whole(a));
  }
};

// --- Comparisons: truth values

// `holds` as a truth value; not-a-number when a side is not finite.
template <class Real>
Real Truth(bool holds, Real a, Real b) {
  return Choose(holds, Real(-1.0), Real(0.0)) + ((a - a) + (b - b));
}

struct Equal {
  static constexpr std::string_view kName = "equal";
  static constexpr TokenKind kOperator = TokenKind::Equal;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() == b.Get(), a, b);
  }
};

struct NotEqual {
  static constexpr std::string_view kName = "not equal";
  static constexpr TokenKind kOperator = TokenKind::NotEqual;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() != b.Get(), a, b);
  }
};

struct Less {
  static constexpr std::string_view kName = "less";
  static constexpr TokenKind kOperator = TokenKind::Less;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() < b.Get(), a, b);
  }
};

struct Greater {
  static constexpr std::string_view kName = "greater";
  static constexpr TokenKind kOperator = TokenKind::Greater;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() > b.Get(), a, b);
  }
};

struct LessOrEqual {
  static constexpr std::string_view kName = "less or equal";
  static constexpr TokenKind kOperator = TokenKind::LessOrEqual;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() <= b.Get(), a, b);
  }
};

struct GreaterOrEqual {
  static constexpr std::string_view kName = "greater or equal";
  static constexpr TokenKind kOperator = TokenKind::GreaterOrEqual;
  static constexpr bool kGivesTruth = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Truth(a.Get() >= b.Get(), a, b);
  }
};

// --- Logic on truth values, in arithmetic so that a fault of either side stays

struct And {
  static constexpr std::string_view kName = "and";
  static constexpr TokenKind kOperator = TokenKind::And;
  static constexpr bool kOfTruthValues = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Real(0.0) - a * b;
  }
};

struct Or {
  static constexpr std::string_view kName = "or";
  static constexpr TokenKind kOperator = TokenKind::Or;
  static constexpr bool kOfTruthValues = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return a + b + a * b;
  }
};

struct Xor {
  static constexpr std::string_view kName = "xor";
  static constexpr TokenKind kOperator = TokenKind::Xor;
  static constexpr bool kOfTruthValues = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Real(0.0) - (a - b) * (a - b);
  }
};

struct Eqv {
  static constexpr std::string_view kName = "eqv";
  static constexpr TokenKind kOperator = TokenKind::Eqv;
  static constexpr bool kOfTruthValues = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return (a - b) * (a - b) - Real(1.0);
  }
};

struct Imp {
  static constexpr std::string_view kName = "imp";
  static constexpr TokenKind kOperator = TokenKind::Imp;
  static constexpr bool kOfTruthValues = true;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return Real(-1.0) - a * (Real(1.0) + b);
  }
};

struct Not {
  static constexpr std::string_view kName = "not";
  template <class Real>
  static Real Apply(Real a) {
    return Real(-1.0) - a;
  }
};

// --- Functions of two numbers

struct LogN {
  static constexpr std::string_view kName = "logn";
  static constexpr functions::Operation kFunction = functions::Operation::LogN;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return functions::formulas::LogN(a, b);
  }
};

struct DecimalMod {
  static constexpr std::string_view kName = "decimalmod";
  static constexpr functions::Operation kFunction = functions::Operation::DecimalMod;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return functions::formulas::DecimalMod(a, b);
  }
};

struct Round {
  static constexpr std::string_view kName = "round";
  static constexpr functions::Operation kFunction = functions::Operation::Round;
  template <class Real>
  static Real Apply(Real a, Real b) {
    return functions::formulas::Round(a, b);
  }
};

// Operations that are often met in pairs, and then carried out two at a time: one of the first list, then one
// of the second.
using PairedFirst = List<Negate, WholePower<2>, WholePower<3>, Add, Subtract, Multiply, DivideByFinite>;
using PairedSecond = List<Add, Subtract, Multiply, DivideByFinite>;

using OfOne = List<Negate, Percent, Not, NotBits, WholePower<2>, WholePower<3>, WholePower<4>, WholePower<5>,
                   WholePower<6>, WholePower<7>, WholePower<8>>;
using OfTwo = List<Add, Subtract, Multiply, Divide, DivideByFinite, Power, Scientific, WholeQuotient,
                   WholeRemainder, Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, And, Or, Xor,
                   Eqv, Imp, AndBits, OrBits, XorBits, EqvBits, ImpBits, LogN, DecimalMod, Round>;

}  // namespace plotvane::engine::operations
