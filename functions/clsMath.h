// clsMath: the numeric library behind the built-in functions, the operators and the number bases.
//
//   clsMath math(&errorObject);
//   const Trapped quotient = math.Divide(left, right);
//   if (!quotient.Ok()) … quotient.Error() …
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "functions/errors.h"
#include "functions/trapped.h"
#include "platform/outcome.h"
#include "platform/value.h"

namespace plotvane::functions {

// An operand of clsMath: a number, or a value taken as one (True is -1, nothing is 0, a text that is no
// number fails with error 13, and the operation with it).
class Operand {
 public:
  Operand(double number) noexcept : mNumber(number) {}                  // NOLINT: numbers are operands
  Operand(const platform::Value& value) : mNumber(value.ToNumber()) {}  // NOLINT: values too

  [[nodiscard]] Trapped Number() const noexcept { return mNumber; }

 private:
  Trapped mNumber;
};

// Every operation runs under an error trap: it returns its number, or the error pair of the step that failed.
//
// Arithmetic failures (standard numbers 5, 6, 11, 13) are left to the caller to raise. The library's own
// domain errors (custom error 11 of Tangeant, custom error 6 of the base conversions) are reported here as
// well: the two error numbers below are set and GEP is called on the error object, when there is one.
//
// Angles are radians unless an operation says otherwise. formulas.h holds the formulas and the system's pi.
class clsMath {
 public:
  explicit clsMath(ErrorSink* errObj = nullptr) noexcept : ErrObj(errObj) {}

  ErrorSink* ErrObj;  // not owned; may be null
  std::int32_t StandardErrorNum = 0;
  std::int32_t CustomErrNum = 0;

  // n as a 16-bit whole number (halves to even); 1 for n below 2, error 6 beyond 170.
  Trapped Factorial(Operand n);
  Trapped nCr(Operand n, Operand r);
  Trapped nPr(Operand n, Operand r);
  // Euclid's algorithm on real numbers; custom error 11 after 10,000 rounds (not reported through GEP).
  Trapped GCF(Operand a, Operand b);
  Trapped GCD(Operand a, Operand b);
  // Groups equal numbers: afterwards numArray holds each number once, in the order of first appearance, and
  // powArray how often each occurred. So the prime factors 2, 2, 2, 3 become 2 and 3 with the powers 3 and 1.
  void GroupToPowers(std::vector<double>& numArray, std::vector<std::int32_t>& powArray) const;
  Trapped LCM(Operand a, Operand b);
  Trapped Divide(Operand a, Operand b);
  Trapped Multiply(Operand a, Operand b);
  // 32-bit whole numbers; the quotient truncates toward zero, the remainder has the sign of the left side.
  Trapped IntDivide(Operand a, Operand b);
  Trapped RaisedTo(Operand a, Operand b);
  Trapped Add(Operand a, Operand b);
  Trapped Subtract(Operand a, Operand b);
  Trapped Modulus(Operand a, Operand b);
  // True when |x| lies within the range of 32-bit floats (zero does not). Deliberately replaces x by its
  // absolute value. A text that is no number: false, x unchanged, StandardErrorNum 13.
  bool IsSingleRange(platform::Value& x);
  Trapped SquareRoot(Operand x);
  // Random numbers share one generator per process. A seed below 0 restarts it, 0 gives the last value again.
  Trapped Rnd_VB(Operand x = 1.0);
  Trapped RandomIntFromHighToLow(Operand high, Operand low);
  Trapped RandomInt(Operand high);
  Trapped RandomFromHighToLow(Operand high, Operand low);
  Trapped Random(Operand high);
  Trapped RandomColor();
  Trapped eRaisedTo(Operand x);
  // Number of periods of an annuity; see financial.h.
  Trapped VB_NPer(Operand rate, Operand pmt, Operand pv, Operand fv = 0.0, Operand due = 0.0);
  Trapped RadToDeg(Operand x);
  Trapped RadiansToDegrees(Operand x);
  Trapped DegToRad(Operand x);
  Trapped DegreesToRadians(Operand x);
  Trapped DegreesOver360N(Operand x);
  Trapped RadiansOver2PiN(Operand x);
  Trapped DecimalMod(Operand numToMod, Operand modNum);
  Trapped GetDecimal(Operand x);
  Trapped Round(Operand number, Operand decimalPlacesToRight = 0.0);
  Trapped StrOctToDec(std::string_view s);
  Trapped StrBinToDec(std::string_view s);
  // For bases 2 to 9: a character is a digit when it is not smaller than "0" and smaller than the decimal
  // text of the base, compared as texts. So base 10 ("1" < "10") accepts only 0 and 1. Any other character is
  // custom error 6; an empty text is 0.
  Trapped StrBaseNToDec(std::string_view s, std::int32_t base);
  // The number at the front of the text, 0 when there is none.
  Trapped StrToDec(std::string_view s);
  Trapped StrToHex(std::string_view s);
  // Binary digits of the whole part, neither padded nor grouped; a negative number in two's complement of
  // numBytes bytes (1 to 8; 0 for the default: 2, or 4 or 8 when the number needs them). Error 6 when it does
  // not fit (numbers of 0 and above as unsigned), 5 for any other width.
  platform::Outcome<std::string> Binary(Operand numToConvert, std::int32_t numBytes = 0) const;
  Trapped Ctn(Operand x);
  Trapped Csc(Operand x);
  Trapped Sec(Operand x);
  Trapped ArcSin(Operand x);
  Trapped ArcCos(Operand x);
  Trapped ArcSec(Operand x);
  Trapped ArcCsc(Operand x);
  Trapped ArcTan(Operand x);
  Trapped ArcCtn(Operand x);
  Trapped HSin(Operand x);
  Trapped HCos(Operand x);
  Trapped HTan(Operand x);
  Trapped HSec(Operand x);
  Trapped HCsc(Operand x);
  Trapped HCtn(Operand x);
  Trapped HArcSin(Operand x);
  Trapped HArcCos(Operand x);
  Trapped HArcTan(Operand x);
  Trapped HArcSec(Operand x);
  Trapped HArcCsc(Operand x);
  Trapped HArcCtn(Operand x);
  Trapped LogN(Operand x, Operand n);
  Trapped Log10(Operand x);
  Trapped Ln(Operand x);
  Trapped Cot(Operand x);
  Trapped ArcCot(Operand x);
  Trapped HCot(Operand x);
  Trapped HArcCot(Operand x);
  Trapped PiX(Operand x);
  Trapped Sine(Operand x);
  Trapped Cosine(Operand x);
  // The misspelt name is the public name. Custom error 11 at pi/2 and 3/2 pi.
  Trapped Tangeant(Operand x);
  Trapped ScientificNotation(Operand x, Operand exponent);
  Trapped VB_RGB(Operand r, Operand g, Operand b);

 private:
  // Hands a custom error to the error object; returns the failure.
  Trapped Report(CustomError error);
};

}  // namespace plotvane::functions
