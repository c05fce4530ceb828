#include "functions/financial.h"

#include <initializer_list>

#include "functions/growth.h"

namespace plotvane::functions::financial {

namespace {

using growth::Compound;
using growth::Growth;
using platform::StandardError;

// The annuity equation as balance·v + annuity·p + end·f = 0. It may be read at the last period (end 1,
// balance (1+r)^n) or at the first (balance 1, end (1+r)^-n).
struct Weights {
  Trapped balance;
  Trapped annuity;
  Trapped end;
};

// The first failed argument; the first of all when none failed.
Trapped FirstFailed(std::initializer_list<Trapped> arguments) {
  for (const Trapped& argument : arguments) {
    if (!argument.Ok()) return argument;
  }
  return *arguments.begin();
}

// 1 + r·d, with d 1 for any due flag but 0.
Trapped DueFactor(Trapped rate, Trapped due) {
  if (!due.Ok()) return due;
  return due.Get() == 0 ? Trapped(1) : Trapped(1) + rate;
}

Weights AtTheEnd(Trapped rate, Trapped periods, Trapped due) {
  const Trapped factor = DueFactor(rate, due);
  const Trapped failed = FirstFailed({rate, periods, factor});
  if (!failed.Ok()) return {failed, failed, failed};
  if (rate.Get() == 0) return {1, periods, 1};
  const Growth growth = Compound(rate.Get(), periods.Get());
  return {growth.factor, factor * growth.gain / rate, 1};
}

// Only for rates above -1.
Weights AtTheStart(Trapped rate, Trapped periods, Trapped due) {
  const Trapped factor = DueFactor(rate, due);
  const Trapped failed = FirstFailed({rate, periods, factor});
  if (!failed.Ok()) return {failed, failed, failed};
  if (rate.Get() == 0) return {1, periods, 1};
  const Growth discount = Compound(rate.Get(), -periods.Get());
  return {1, factor * -discount.gain / rate, discount.factor};
}

// Growing money is weighed at the start and shrinking money at the end, so that long terms do not overflow.
Weights WhereSmall(Trapped rate, Trapped periods, Trapped due) {
  const bool grows = rate.Get() > -1 && (rate.Get() > 0) == (periods.Get() > 0);
  return grows ? AtTheStart(rate, periods, due) : AtTheEnd(rate, periods, due);
}

bool IsOutside(Trapped period, Trapped last) {
  return period.Ok() && last.Ok() && !(period.Get() >= 1 && period.Get() <= last.Get());
}

}  // namespace

Trapped StraightLine(Trapped cost, Trapped salvage, Trapped life) {
  return (cost - salvage) / life;
}

Trapped SumOfYears(Trapped cost, Trapped salvage, Trapped life, Trapped period) {
  if (IsOutside(period, life)) return StandardError::InvalidCall;
  return (cost - salvage) * (life - period + Trapped(1)) * Trapped(2) / (life * (life + Trapped(1)));
}

// (1+r)^n = (p' − f·r)/(p' + v·r) with p' = p·(1+r·d): a ratio near 1 is taken as 1 plus its small
// difference.
Trapped NumberOfPeriods(Trapped rate, Trapped payment, Trapped present, Trapped future, Trapped due) {
  if (rate.Ok() && rate.Get() == 0) return -(present + future) / payment;
  const Trapped paid = payment * DueFactor(rate, due);
  const Trapped divisor = paid + present * rate;
  const Trapped difference = -(present + future) * rate / divisor;
  const Trapped rateLogarithm = growth::LogarithmOfOnePlus(rate);
  const Trapped failed = FirstFailed({difference, rateLogarithm});
  if (!failed.Ok()) return failed;
  const bool nearOne = difference.Get() > -0.5 && difference.Get() < 1;
  const Trapped ratioLogarithm =
      nearOne ? growth::LogarithmOfOnePlus(difference) : Log((paid - future * rate) / divisor);
  return ratioLogarithm / rateLogarithm;
}

Trapped Payment(Trapped rate, Trapped periods, Trapped present, Trapped future, Trapped due) {
  const Weights weights = WhereSmall(rate, periods, due);
  return -(weights.balance * present + weights.end * future) / weights.annuity;
}

Trapped PresentValue(Trapped rate, Trapped periods, Trapped payment, Trapped future, Trapped due) {
  const Weights weights = rate.Get() > -1 ? AtTheStart(rate, periods, due) : AtTheEnd(rate, periods, due);
  return -(weights.annuity * payment + weights.end * future) / weights.balance;
}

Trapped FutureValue(Trapped rate, Trapped periods, Trapped payment, Trapped present, Trapped due) {
  const Weights weights = AtTheEnd(rate, periods, due);
  return -(weights.balance * present + weights.annuity * payment);
}

// What is owed when the period begins, times the rate. With payments at the beginning the first period bears
// none.
Trapped InterestPart(Trapped rate, Trapped period, Trapped periods, Trapped present, Trapped future,
                     Trapped due) {
  if (IsOutside(period, periods)) return StandardError::InvalidCall;
  const Trapped payment = Payment(rate, periods, present, future, due);
  const Trapped failed = FirstFailed({payment, period});
  if (!failed.Ok()) return failed;
  if (due.Get() == 0) return FutureValue(rate, period - Trapped(1), payment, present, 0) * rate;
  if (period.Get() == 1) return 0.0;
  return FutureValue(rate, period - Trapped(2), payment, present + payment, 0) * rate;
}

Trapped PrincipalPart(Trapped rate, Trapped period, Trapped periods, Trapped present, Trapped future,
                      Trapped due) {
  return Payment(rate, periods, present, future, due) -
         InterestPart(rate, period, periods, present, future, due);
}

}  // namespace plotvane::functions::financial
