// The rate of an annuity: the secant method from the guess, then a search for a change of sign with
// bisection.
#include <cmath>
#include <optional>

#include "functions/financial.h"

namespace plotvane::functions::financial {

namespace {

using platform::StandardError;

constexpr int kMostSecantSteps = 100;
constexpr int kMostHalvings = 200;
constexpr double kSettled = 1e-14;  // relative change of the rate that ends the secant steps

// How far the future value of the annuity at a rate is from the wanted one.
class Balance {
 public:
  Balance(double periods, double payment, double present, double future, double due)
      : mPeriods(periods), mPayment(payment), mPresent(present), mFuture(future), mDue(due) {}

  [[nodiscard]] Trapped operator()(double rate) const {
    return Trapped(mFuture) - FutureValue(rate, mPeriods, mPayment, mPresent, mDue);
  }

  // The same balance at the start of the term: other values, the same signs, and no overflow for large rates.
  [[nodiscard]] Trapped AtStart(double rate) const {
    return Trapped(mPresent) - PresentValue(rate, mPeriods, mPayment, mFuture, mDue);
  }

 private:
  double mPeriods;
  double mPayment;
  double mPresent;
  double mFuture;
  double mDue;
};

struct Sample {
  double rate;
  double balance;
};

std::optional<Sample> Evaluate(const Balance& balance, double rate) {
  if (!(rate > -1)) return std::nullopt;
  const Trapped value = balance(rate);
  if (!value.Ok()) return std::nullopt;
  return Sample{rate, value.Get()};
}

// True when the balance changes its sign at a rate, or vanishes there: steps can also become small far from
// any root.
bool IsRoot(const Balance& balance, double rate) {
  constexpr double kNeighbourhood = 1e-7;
  const double distance = kNeighbourhood * std::abs(rate);
  const Trapped below = balance.AtStart(rate - distance);
  const Trapped above = balance.AtStart(rate + distance);
  return below.Ok() && above.Ok() && (below.Get() > 0) != (above.Get() > 0);
}

// The second point lies on the side where a plain loan's balance falls.
std::optional<double> Secant(const Balance& balance, double guess) {
  std::optional<Sample> before = Evaluate(balance, guess);
  if (!before) return std::nullopt;
  std::optional<Sample> last = Evaluate(balance, before->balance > 0 ? guess / 2 : guess * 2);
  for (int step = 0; last && step < kMostSecantSteps; ++step) {
    if (last->balance == 0) return last->rate;
    const double slope = last->balance - before->balance;
    if (slope == 0) return std::nullopt;
    const double change = -(last->rate - before->rate) * last->balance / slope;
    const std::optional<Sample> next = Evaluate(balance, last->rate + change);
    if (!next) return std::nullopt;
    if (std::abs(change) <= kSettled * std::abs(next->rate)) {
      const double rate = std::abs(next->balance) < std::abs(last->balance) ? next->rate : last->rate;
      return IsRoot(balance, rate) ? std::optional(rate) : std::nullopt;
    }
    before = last;
    last = next;
  }
  return std::nullopt;
}

// A rate between two others of opposite signs.
double Bisect(const Balance& balance, double low, double high, bool lowIsPositive) {
  for (int step = 0; step < kMostHalvings; ++step) {
    const double middle = low + (high - low) / 2;
    if (middle == low || middle == high) break;
    const Trapped value = balance.AtStart(middle);
    if (!value.Ok()) break;
    if (value.Get() == 0) return middle;
    ((value.Get() > 0) == lowIsPositive ? low : high) = middle;
  }
  return low;
}

// Walks away from rate 0 in growing steps, up to 1000 per period and down to just above -1.
std::optional<double> SearchFromZero(const Balance& balance, double direction) {
  constexpr double kFirstStep = 1e-6;
  constexpr double kGrowth = 1.1;
  const double bound = direction > 0 ? 1000.0 : 1.0;
  double before = 0;
  Trapped valueBefore = balance.AtStart(0);
  for (double step = kFirstStep; step < bound; step *= kGrowth) {
    const double rate = direction * step;
    const Trapped value = balance.AtStart(rate);
    if (!value.Ok()) return std::nullopt;
    if (valueBefore.Ok() && (value.Get() > 0) != (valueBefore.Get() > 0)) {
      return Bisect(balance, before, rate, valueBefore.Get() > 0);
    }
    before = rate;
    valueBefore = value;
  }
  return std::nullopt;
}

}  // namespace

Trapped InterestRate(Trapped periods, Trapped payment, Trapped present, Trapped future, Trapped due,
                     Trapped guess) {
  for (const Trapped& argument : {periods, payment, present, future, due, guess}) {
    if (!argument.Ok()) return argument;
  }
  if (periods.Get() <= 0) return StandardError::InvalidCall;
  const Balance balance(periods.Get(), payment.Get(), present.Get(), future.Get(), due.Get());
  std::optional<double> rate = Secant(balance, guess.Get());
  // Next to 0 the balance of an annuity without interest decides exactly.
  const Trapped withoutInterest = balance(0);
  const bool zeroIsARoot = withoutInterest.Ok() && withoutInterest.Get() == 0;
  if (zeroIsARoot && (!rate || std::abs(*rate) < 1e-9)) return 0.0;
  if (!rate) rate = SearchFromZero(balance, 1);
  if (!rate) rate = SearchFromZero(balance, -1);
  return rate ? Trapped(*rate) : Trapped(CustomError::UndefinedValue);
}

}  // namespace plotvane::functions::financial
