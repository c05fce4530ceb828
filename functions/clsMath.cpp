#include "functions/clsMath.h"

#include <algorithm>

#include "functions/arithmetic.h"
#include "functions/financial.h"
#include "functions/formulas.h"

namespace plotvane::functions {

Trapped clsMath::Report(CustomError error) {
  StandardErrorNum = 0;
  CustomErrNum = static_cast<std::int32_t>(error);
  if (ErrObj != nullptr) ErrObj->GEP(StandardErrorNum, CustomErrNum);
  return error;
}

Trapped clsMath::Factorial(Operand n) {
  return functions::Factorial(n.Number());
}
Trapped clsMath::nCr(Operand n, Operand r) {
  return Combinations(n.Number(), r.Number());
}
Trapped clsMath::nPr(Operand n, Operand r) {
  return Permutations(n.Number(), r.Number());
}
Trapped clsMath::GCF(Operand a, Operand b) {
  return GreatestCommonFactor(a.Number(), b.Number());
}
Trapped clsMath::GCD(Operand a, Operand b) {
  return GreatestCommonFactor(a.Number(), b.Number());
}

void clsMath::GroupToPowers(std::vector<double>& numArray, std::vector<std::int32_t>& powArray) const {
  std::vector<double> numbers;
  std::vector<std::int32_t> counts;
  for (const double number : numArray) {
    const auto place = std::ranges::find(numbers, number) - numbers.begin();
    if (static_cast<std::size_t>(place) == numbers.size()) {
      numbers.push_back(number);
      counts.push_back(0);
    }
    ++counts[static_cast<std::size_t>(place)];
  }
  numArray = std::move(numbers);
  powArray = std::move(counts);
}

Trapped clsMath::LCM(Operand a, Operand b) {
  return LeastCommonMultiple(a.Number(), b.Number());
}
Trapped clsMath::Divide(Operand a, Operand b) {
  return a.Number() / b.Number();
}
Trapped clsMath::Multiply(Operand a, Operand b) {
  return a.Number() * b.Number();
}
Trapped clsMath::IntDivide(Operand a, Operand b) {
  return WholeQuotient(a.Number(), b.Number());
}
Trapped clsMath::RaisedTo(Operand a, Operand b) {
  return Pow(a.Number(), b.Number());
}
Trapped clsMath::Add(Operand a, Operand b) {
  return a.Number() + b.Number();
}
Trapped clsMath::Subtract(Operand a, Operand b) {
  return a.Number() - b.Number();
}
Trapped clsMath::Modulus(Operand a, Operand b) {
  return WholeRemainder(a.Number(), b.Number());
}

bool clsMath::IsSingleRange(platform::Value& x) {
  const Trapped magnitude = Abs(Operand(x).Number());
  if (!magnitude.Ok()) {
    StandardErrorNum = static_cast<std::int32_t>(magnitude.Error().standard);
    CustomErrNum = 0;
    return false;
  }
  x = platform::Value(magnitude.Get());
  return magnitude.Get() >= 1.401298E-45 && magnitude.Get() <= 3.402823E+38;
}

Trapped clsMath::SquareRoot(Operand x) {
  return Sqrt(x.Number());
}
Trapped clsMath::Rnd_VB(Operand x) {
  return RandomFromSeed(x.Number());
}
Trapped clsMath::RandomIntFromHighToLow(Operand high, Operand low) {
  return RandomWholeBetween(high.Number(), low.Number());
}
Trapped clsMath::RandomInt(Operand high) {
  return RandomWholeBelow(high.Number());
}
Trapped clsMath::RandomFromHighToLow(Operand high, Operand low) {
  return RandomBetween(high.Number(), low.Number());
}
Trapped clsMath::Random(Operand high) {
  return RandomBelow(high.Number());
}
Trapped clsMath::RandomColor() {
  return RandomColourNumber();
}
Trapped clsMath::eRaisedTo(Operand x) {
  return Exp(x.Number());
}

Trapped clsMath::VB_NPer(Operand rate, Operand pmt, Operand pv, Operand fv, Operand due) {
  return financial::NumberOfPeriods(rate.Number(), pmt.Number(), pv.Number(), fv.Number(), due.Number());
}

Trapped clsMath::RadToDeg(Operand x) {
  return formulas::RadiansToDegrees(x.Number());
}
Trapped clsMath::RadiansToDegrees(Operand x) {
  return formulas::RadiansToDegrees(x.Number());
}
Trapped clsMath::DegToRad(Operand x) {
  return formulas::DegreesToRadians(x.Number());
}
Trapped clsMath::DegreesToRadians(Operand x) {
  return formulas::DegreesToRadians(x.Number());
}
Trapped clsMath::DegreesOver360N(Operand x) {
  return formulas::DegreesOver360N(x.Number());
}
Trapped clsMath::RadiansOver2PiN(Operand x) {
  return formulas::RadiansOver2PiN(x.Number());
}
Trapped clsMath::DecimalMod(Operand numToMod, Operand modNum) {
  return formulas::DecimalMod(numToMod.Number(), modNum.Number());
}
Trapped clsMath::GetDecimal(Operand x) {
  return formulas::GetDecimal(x.Number());
}
Trapped clsMath::Round(Operand number, Operand decimalPlacesToRight) {
  return formulas::Round(number.Number(), decimalPlacesToRight.Number());
}
Trapped clsMath::Ctn(Operand x) {
  return formulas::Ctn(x.Number());
}
Trapped clsMath::Csc(Operand x) {
  return formulas::Csc(x.Number());
}
Trapped clsMath::Sec(Operand x) {
  return formulas::Sec(x.Number());
}
Trapped clsMath::ArcSin(Operand x) {
  return formulas::ArcSin(x.Number());
}
Trapped clsMath::ArcCos(Operand x) {
  return formulas::ArcCos(x.Number());
}
Trapped clsMath::ArcSec(Operand x) {
  return formulas::ArcSec(x.Number());
}
Trapped clsMath::ArcCsc(Operand x) {
  return formulas::ArcCsc(x.Number());
}
Trapped clsMath::ArcTan(Operand x) {
  return formulas::ArcTan(x.Number());
}
Trapped clsMath::ArcCtn(Operand x) {
  return formulas::ArcCtn(x.Number());
}
Trapped clsMath::HSin(Operand x) {
  return formulas::HSin(x.Number());
}
Trapped clsMath::HCos(Operand x) {
  return formulas::HCos(x.Number());
}
Trapped clsMath::HTan(Operand x) {
  return formulas::HTan(x.Number());
}
Trapped clsMath::HSec(Operand x) {
  return formulas::HSec(x.Number());
}
Trapped clsMath::HCsc(Operand x) {
  return formulas::HCsc(x.Number());
}
Trapped clsMath::HCtn(Operand x) {
  return formulas::HCtn(x.Number());
}
Trapped clsMath::HArcSin(Operand x) {
  return formulas::HArcSin(x.Number());
}
Trapped clsMath::HArcCos(Operand x) {
  return formulas::HArcCos(x.Number());
}
Trapped clsMath::HArcTan(Operand x) {
  return formulas::HArcTan(x.Number());
}
Trapped clsMath::HArcSec(Operand x) {
  return formulas::HArcSec(x.Number());
}
Trapped clsMath::HArcCsc(Operand x) {
  return formulas::HArcCsc(x.Number());
}
Trapped clsMath::HArcCtn(Operand x) {
  return formulas::HArcCtn(x.Number());
}
Trapped clsMath::LogN(Operand x, Operand n) {
  return formulas::LogN(x.Number(), n.Number());
}
Trapped clsMath::Log10(Operand x) {
  return formulas::Log10(x.Number());
}
Trapped clsMath::Ln(Operand x) {
  return Log(x.Number());
}
Trapped clsMath::Cot(Operand x) {
  return formulas::Ctn(x.Number());
}
Trapped clsMath::ArcCot(Operand x) {
  return formulas::ArcCtn(x.Number());
}
Trapped clsMath::HCot(Operand x) {
  return formulas::HCtn(x.Number());
}
Trapped clsMath::HArcCot(Operand x) {
  return formulas::HArcCtn(x.Number());
}
Trapped clsMath::PiX(Operand x) {
  return x.Number() * Trapped(formulas::kPi);
}
Trapped clsMath::Sine(Operand x) {
  return formulas::Sine(x.Number());
}
Trapped clsMath::Cosine(Operand x) {
  return formulas::Cosine(x.Number());
}

Trapped clsMath::Tangeant(Operand x) {
  const Trapped tangent = formulas::Tangeant(x.Number());
  return tangent.Error().custom == CustomError::None ? tangent : Report(tangent.Error().custom);
}

Trapped clsMath::ScientificNotation(Operand x, Operand exponent) {
  return formulas::ScientificNotation(x.Number(), exponent.Number());
}
Trapped clsMath::VB_RGB(Operand r, Operand g, Operand b) {
  return ColourNumber(r.Number(), g.Number(), b.Number());
}

}  // namespace plotvane::functions
