#include <utility>

#include "engine/calculus.h"
#include "platform/conversions.h"

namespace plotvane::engine {

namespace {

using platform::CountedLoop;
using platform::Finite;

// A counted loop over real numbers whose values are added up and at the end multiplied by a factor.
class CountedSum : public CalculusOperation {
 public:
  CountedSum(VariedVariable variable, double step, double start, double factor)
      : CalculusOperation(step == 0 ? CalculusEnd::Failed : CalculusEnd::Running),
        mVariable(std::move(variable)),
        mSum(start),
        mFactor(factor) {}

  bool NextPoint() override {
    if (End() != CalculusEnd::Running) return false;
    if (!mLoop && !Begin()) return false;
    if (!mLoop->Running()) {
      Close(mLoop->StoodStill() ? CalculusEnd::Failed : CalculusEnd::Done);
      return false;
    }
    if (mVariable.Set(mLoop->Counter())) return true;
    Close(CalculusEnd::Refused);
    return false;
  }

  void Take(double value) override {
    const auto sum = Finite(mSum + value);
    if (!sum.Ok()) return CloseWithError(sum.Error());
    mSum = sum.Get();
    Advance();
  }

  void TakeFailure(bool tolerated) override { tolerated ? Advance() : Close(CalculusEnd::Failed); }

  std::optional<double> Result() const override { return mLoop ? std::optional(mSum) : std::nullopt; }

 protected:
  // The loop; finishes the operation instead when it cannot run.
  virtual std::optional<CountedLoop> MakeLoop() = 0;

 private:
  bool Begin() {
    mVariable.Remember();
    mLoop = MakeLoop();
    return mLoop.has_value();
  }

  void Advance() {
    mLoop->Advance();
    if (const auto counter = Finite(mLoop->Counter()); !counter.Ok()) CloseWithError(counter.Error());
  }

  // Whether the loop ended normally or by a failure, the variable is restored and the factor applied.
  void Close(CalculusEnd end) {
    Finish(end);
    mVariable.Restore();
    const auto product = Finite(mSum * mFactor);
    if (product.Ok()) {
      mSum = product.Get();
    } else if (end == CalculusEnd::Done) {
      FinishWithError(product.Error());
    }
  }

  void CloseWithError(platform::StandardError error) {
    Close(CalculusEnd::Failed);
    FinishWithError(error);
  }

  VariedVariable mVariable;
  std::optional<CountedLoop> mLoop;
  double mSum;
  double mFactor;
};

class SigmaSum : public CountedSum {
 public:
  SigmaSum(VariedVariable variable, double low, double high, double step, double start)
      : CountedSum(std::move(variable), step, start, 1.0), mCounted(low, high, step) {}

 private:
  std::optional<CountedLoop> MakeLoop() override { return mCounted; }

  CountedLoop mCounted;
};

class LIntegral : public CountedSum {
 public:
  LIntegral(VariedVariable variable, double a, double b, double width)
      : CountedSum(std::move(variable), width, 0.0, width), mA(a), mB(b), mWidth(width) {}

 private:
  std::optional<CountedLoop> MakeLoop() override {
    // The number of rectangles is a guard only: when it cannot be computed there is nothing to add up.
    if (!Finite(mB - mA).Ok() || !Finite((mB - mA) / mWidth).Ok()) {
      Finish(CalculusEnd::Failed);
      return std::nullopt;
    }
    const auto last = Finite(mB - mWidth);
    if (!last.Ok()) {
      FinishWithError(last.Error());
      return std::nullopt;
    }
    return CountedLoop(mA, last.Get(), mWidth);
  }

  double mA;
  double mB;
  double mWidth;
};

}  // namespace

std::unique_ptr<CalculusOperation> MakeSigmaSum(VariedVariable variable, double low, double high, double step,
                                                double start) {
  return std::make_unique<SigmaSum>(std::move(variable), low, high, step, start);
}

std::unique_ptr<CalculusOperation> MakeLIntegral(VariedVariable variable, double a, double b, double width) {
  return std::make_unique<LIntegral>(std::move(variable), a, b, width);
}

}  // namespace plotvane::engine
