// The functions of one real number, as one table for any kind of number.
//
// A maker turns each formula into what its user needs: the table of operations makes a trapped form, the
// compiled programs a plain one and a loop over columns. Angle conversions are part of the forms, so a maker
// sees one formula from the argument as written to the result as shown.
#pragma once

#include "functions/catalogue.h"
#include "functions/formulas.h"

namespace plotvane::functions {

// The formula with the angle conversion of its rule around it.
//
// Angles that come in are reduced by whole turns. Angles that go out pass, in radians, through the whole-turn
// reduction of degrees: that asymmetry is the rule here, and harmless for the values that the inverse
// functions have.
template <AngleRule kRule, AngleMode kMode, auto kFormula>
struct WithAngles {
  template <class Real>
  static Real Apply(Real x) {
    constexpr bool kDegrees = kMode == AngleMode::Degrees;
    if constexpr (kRule == AngleRule::In) {
      return kFormula(kDegrees ? formulas::DegreesToRadians(x) : formulas::RadiansOver2PiN(x));
    } else if constexpr (kRule == AngleRule::Out) {
      const Real angle = kFormula(x);
      return kDegrees ? formulas::RadiansToDegrees(angle) : formulas::DegreesOver360N(angle);
    } else {
      return kFormula(x);
    }
  }
};

// Calls maker.Make<rule, formula>(operation) for every function of one real number.
template <class Maker>
constexpr void ForEachUnary(Maker& maker) {
  using enum AngleRule;
  maker.template Make<None, [](auto x) { return Abs(x); }>(Operation::Abs);
  maker.template Make<None, [](auto x) { return Exp(x); }>(Operation::Exp);
  maker.template Make<None, [](auto x) { return Truncate(x); }>(Operation::Fix);
  maker.template Make<None, [](auto x) { return Floor(x); }>(Operation::Int);
  maker.template Make<None, [](auto x) { return formulas::Log10(x); }>(Operation::Log10);
  maker.template Make<None, [](auto x) { return Log(x); }>(Operation::Ln);
  maker.template Make<None, [](auto x) { return Sign(x); }>(Operation::Sgn);
  maker.template Make<None, [](auto x) { return Sqrt(x); }>(Operation::SquareRoot);
  maker.template Make<None, [](auto x) { return formulas::RadiansToDegrees(x); }>(Operation::Degrees);
  maker.template Make<None, [](auto x) { return formulas::DegreesToRadians(x); }>(Operation::Radians);
  maker.template Make<None, [](auto x) { return formulas::GetDecimal(x); }>(Operation::GetDecimal);
  maker.template Make<In, [](auto x) { return formulas::Sine(x); }>(Operation::Sine);
  maker.template Make<In, [](auto x) { return formulas::Cosine(x); }>(Operation::Cosine);
  maker.template Make<In, [](auto x) { return formulas::Tangeant(x); }>(Operation::Tangeant);
  maker.template Make<In, [](auto x) { return formulas::Sec(x); }>(Operation::Sec);
  maker.template Make<In, [](auto x) { return formulas::Csc(x); }>(Operation::Csc);
  maker.template Make<In, [](auto x) { return formulas::Ctn(x); }>(Operation::Ctn);
  maker.template Make<Out, [](auto x) { return formulas::ArcSin(x); }>(Operation::ArcSin);
  maker.template Make<Out, [](auto x) { return formulas::ArcCos(x); }>(Operation::ArcCos);
  maker.template Make<Out, [](auto x) { return formulas::ArcTan(x); }>(Operation::ArcTan);
  maker.template Make<Out, [](auto x) { return formulas::ArcSec(x); }>(Operation::ArcSec);
  maker.template Make<Out, [](auto x) { return formulas::ArcCsc(x); }>(Operation::ArcCsc);
  maker.template Make<Out, [](auto x) { return formulas::ArcCtn(x); }>(Operation::ArcCtn);
  maker.template Make<None, [](auto x) { return formulas::HSin(x); }>(Operation::HSin);
  maker.template Make<None, [](auto x) { return formulas::HCos(x); }>(Operation::HCos);
  maker.template Make<None, [](auto x) { return formulas::HTan(x); }>(Operation::HTan);
  maker.template Make<None, [](auto x) { return formulas::HSec(x); }>(Operation::HSec);
  maker.template Make<None, [](auto x) { return formulas::HCsc(x); }>(Operation::HCsc);
  maker.template Make<None, [](auto x) { return formulas::HCtn(x); }>(Operation::HCtn);
  maker.template Make<None, [](auto x) { return formulas::HArcSin(x); }>(Operation::HArcSin);
  maker.template Make<None, [](auto x) { return formulas::HArcCos(x); }>(Operation::HArcCos);
  maker.template Make<None, [](auto x) { return formulas::HArcTan(x); }>(Operation::HArcTan);
  maker.template Make<None, [](auto x) { return formulas::HArcSec(x); }>(Operation::HArcSec);
  maker.template Make<None, [](auto x) { return formulas::HArcCsc(x); }>(Operation::HArcCsc);
  maker.template Make<None, [](auto x) { return formulas::HArcCtn(x); }>(Operation::HArcCtn);
}

}  // namespace plotvane::functions
