#include <bit>
#include <cstddef>
#include <utility>
#include <vector>

#include "engine/calculus.h"
#include "functions/trapped.h"
#include "platform/conversions.h"

namespace plotvane::engine {

namespace {

using functions::Trapped;

// (later - earlier) / h
Trapped DifferenceQuotient(double later, double earlier, double h) {
  return (Trapped(later) - Trapped(earlier)) / Trapped(h);
}

// The derivative, and the last step of the recursion of an n-th one.
class ForwardDifference : public CalculusOperation {
 public:
  ForwardDifference(VariedVariable variable, double x, double h)
      : CalculusOperation(h == 0 ? CalculusEnd::Failed : CalculusEnd::Running),
        mVariable(std::move(variable)),
        mX(x),
        mH(h) {}

  bool NextPoint() override {
    if (End() != CalculusEnd::Running) return false;
    if (mLater) return SetTo(mX);
    mVariable.Remember();
    const auto later = platform::Finite(mX + mH);
    if (later.Ok()) return SetTo(later.Get());
    FinishWithError(later.Error());
    return false;
  }

  void Take(double value) override {
    if (!mLater) {
      mLater = value;
      return;
    }
    const Trapped difference = DifferenceQuotient(*mLater, value, mH);
    if (!difference.Ok()) return FinishWithError(difference.Error().standard);
    mResult = difference.Get();
    mVariable.Restore();
    Finish(CalculusEnd::Done);
  }

  // Tolerated or not; and the variable stays where it is.
  void TakeFailure(bool) override { Finish(CalculusEnd::Failed); }

  std::optional<double> Result() const override { return mResult; }

 private:
  bool SetTo(double place) {
    if (mVariable.Set(place)) return true;
    Finish(CalculusEnd::Refused);
    return false;
  }

  VariedVariable mVariable;
  double mX;
  double mH;
  std::optional<double> mLater;  // the value at x + h
  std::optional<double> mResult;
};

// x, x + h, (x + h) + h, …: `count` places; fewer when one overflows.
std::vector<double> PlacesFrom(double x, double h, std::size_t count) {
  std::vector<double> places{x};
  while (places.size() < count) {
    const auto next = platform::Finite(places.back() + h);
    if (!next.Ok()) break;
    places.push_back(next.Get());
  }
  return places;
}

// What both ways of computing an n-th derivative share.
class RepeatedDifference : public CalculusOperation {
 public:
  RepeatedDifference(VariedVariable variable, std::int16_t n, double x, double h)
      : CalculusOperation(n < 1 || h == 0 ? CalculusEnd::Failed : CalculusEnd::Running),
        mVariable(std::move(variable)),
        mOrder(static_cast<std::size_t>(n)),
        mH(h) {
    if (End() != CalculusEnd::Running) return;
    mPlaces = PlacesFrom(x, h, mOrder + 1);
    if (mPlaces.size() <= mOrder) FinishWithError(platform::StandardError::Overflow);
  }

  std::optional<double> Result() const override { return mResult; }

 protected:
  void FinishWith(double result) {
    mResult = result;
    Finish(CalculusEnd::Done);
  }

  VariedVariable mVariable;
  std::size_t mOrder;
  double mH;
  std::vector<double> mPlaces;  // x + k h for k from 0 to the order

 private:
  std::optional<double> mResult;
};

// The recursion as written, 2^(n-1) forward differences one after the other. Number i of them stands at the
// place that has as many steps of h as i has zero bits among n - 1, and the quotients are formed as soon as
// both sides are there: after difference i, once for each one bit at the end of i.
class WrittenRecursion : public RepeatedDifference {
 public:
  static constexpr std::int16_t kMostOrder = 24;

  WrittenRecursion(VariedVariable variable, std::int16_t n, double x, double h)
      : RepeatedDifference(std::move(variable), n, x, h) {
    if (End() != CalculusEnd::Running) return;
    if (n > kMostOrder) {
      FinishWithError(platform::StandardError::InvalidCall);
    } else {
      StartDifference();
    }
  }

  bool NextPoint() override {
    if (End() != CalculusEnd::Running) return false;
    if (mDifference->NextPoint()) return true;
    FollowDifference();
    return false;
  }

  void Take(double value) override {
    mDifference->Take(value);
    if (mDifference->End() == CalculusEnd::Done) return TakeDifference(*mDifference->Result());
    FollowDifference();
  }

  void TakeFailure(bool tolerated) override {
    mDifference->TakeFailure(tolerated);
    FollowDifference();
  }

 private:
  void StartDifference() {
    const std::size_t stepsOfH = mOrder - 1 - static_cast<std::size_t>(std::popcount(mNumber));
    mDifference.emplace(mVariable, mPlaces[stepsOfH], mH);
  }

  void TakeDifference(double value) {
    for (std::uint32_t rest = mNumber; rest & 1U; rest >>= 1U) {
      const Trapped quotient = DifferenceQuotient(mWaiting.back(), value, mH);
      if (!quotient.Ok()) return FinishWithError(quotient.Error().standard);
      mWaiting.pop_back();
      value = quotient.Get();
    }
    ++mNumber;
    if (mNumber == 1U << (mOrder - 1)) return FinishWith(value);
    mWaiting.push_back(value);
    StartDifference();
  }

  // When the difference in progress failed, so did the whole.
  void FollowDifference() {
    if (mDifference->End() == CalculusEnd::Error) {
      FinishWithError(mDifference->Error());
    } else {
      Finish(mDifference->End());
    }
  }

  std::optional<ForwardDifference> mDifference;
  std::uint32_t mNumber = 0;     // of the difference in progress
  std::vector<double> mWaiting;  // left sides whose right sides are still to come
};

// Each place once, from the last to the first. mColumn[m] is the m-th difference that begins at the place
// evaluated last; the new value at the place before it gives the next column from the top down, in the order
// in which the recursion would first form each of them.
class DifferenceTable : public RepeatedDifference {
 public:
  DifferenceTable(VariedVariable variable, std::int16_t n, double x, double h)
      : RepeatedDifference(std::move(variable), n, x, h), mPlace(mOrder) {}

  bool NextPoint() override {
    if (End() != CalculusEnd::Running) return false;
    if (mColumn.empty()) mVariable.Remember();
    if (mVariable.Set(mPlaces[mPlace])) return true;
    Finish(CalculusEnd::Refused);
    return false;
  }

  void Take(double value) override {
    for (std::size_t order = 0; order < mColumn.size(); ++order) {
      const Trapped quotient = DifferenceQuotient(mColumn[order], value, mH);
      if (!quotient.Ok()) return Fail(order, quotient.Error().standard);
      mColumn[order] = value;
      value = quotient.Get();
    }
    mColumn.push_back(value);
    if (mPlace > 0) {
      --mPlace;
      return;
    }
    LeaveAsRecursionWould();
    FinishWith(value);
  }

  // The variable stays where it is.
  void TakeFailure(bool) override { Finish(CalculusEnd::Failed); }

 private:
  // A failing first difference leaves the variable where it is; a later one is formed between two first
  // differences that went well.
  void Fail(std::size_t order, platform::StandardError error) {
    if (order > 0) LeaveAsRecursionWould();
    FinishWithError(error);
  }

  // The first of the recursion's differences leaves a variable that did not exist at its place, the last but
  // one; to those after it that is the value to restore.
  void LeaveAsRecursionWould() {
    if (mVariable.Existed()) {
      mVariable.Restore();
    } else {
      static_cast<void>(mVariable.Set(mPlaces[mOrder - 1]));
    }
  }

  std::size_t mPlace;
  std::vector<double> mColumn;
};

}  // namespace

std::unique_ptr<CalculusOperation> MakeDerivative(VariedVariable variable, double x, double h) {
  return std::make_unique<ForwardDifference>(std::move(variable), x, h);
}

std::unique_ptr<CalculusOperation> MakeNDerivative(VariedVariable variable, std::int16_t n, double x,
                                                   double h, bool eachPointOnce) {
  if (eachPointOnce) return std::make_unique<DifferenceTable>(std::move(variable), n, x, h);
  return std::make_unique<WrittenRecursion>(std::move(variable), n, x, h);
}

}  // namespace plotvane::engine
