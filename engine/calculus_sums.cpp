#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "engine/calculus.h"
#include "engine/curve.h"
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

  void TakeBlocks(Curve& curve) override;

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

  static constexpr std::size_t kSmallestBlock = 8;
  static constexpr std::size_t kLargestBlock = 512;
  using Numbers = std::array<double, kLargestBlock>;

  // The next places of the loop, as long as it runs and they fit; the loop is then past them.
  static std::size_t Collect(CountedLoop& loop, std::size_t most, Numbers& places);
  [[nodiscard]] double AddWhileCollecting(std::span<const double> values, CountedLoop& loop, Numbers& places,
                                          std::size_t& collected) const;
  void TakeOneByOne(std::span<const double> places, std::span<const double> values);

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
  // Grows as long as whole blocks succeed: an expression that fails everywhere is not computed in vain.
  std::size_t mBlock = kSmallestBlock;
};

std::size_t CountedSum::Collect(CountedLoop& loop, std::size_t most, Numbers& places) {
  std::size_t collected = 0;
  for (; collected < most && loop.Running(); loop.Advance()) places[collected++] = loop.Counter();
  return collected;
}

// The sum with all values added, in order, and as many of the next places: the counter and the sum are two
// chains of additions, and side by side they take the time of one.
double CountedSum::AddWhileCollecting(std::span<const double> values, CountedLoop& loop, Numbers& places,
                                      std::size_t& collected) const {
  CountedLoop next = loop;
  double sum = mSum;
  std::size_t count = 0;
  for (const double value : values) {
    sum += value;
    if (!next.Running()) continue;
    places[count++] = next.Counter();
    next.Advance();
  }
  loop = next;
  collected = count;
  return sum;
}

void CountedSum::TakeOneByOne(std::span<const double> places, std::span<const double> values) {
  for (std::size_t i = 0; i < values.size() && End() == CalculusEnd::Running; ++i) {
    // It was set before, and nobody else changes the table meanwhile.
    static_cast<void>(mVariable.Set(places[i]));
    Take(values[i]);
  }
}

void CountedSum::TakeBlocks(Curve& curve) {
  if (End() != CalculusEnd::Running || !mLoop) return;
  Numbers places;
  Numbers nextPlaces;
  Numbers values;
  CountedLoop ahead = *mLoop;
  std::size_t count = Collect(ahead, mBlock, places);
  // A counter that overflows is an error of the pass before it: NextPoint meets it.
  while (count > 0 && Finite(ahead.Counter()).Ok()) {
    const std::span<const double> xs = std::span(places).first(count);
    const std::size_t done = curve.CompiledBlock(xs, std::span(values).first(count));
    const std::span<const double> ys = std::span(values).first(done);
    const CountedLoop after = ahead;
    std::size_t collected = 0;
    const double sum = AddWhileCollecting(ys, ahead, nextPlaces, collected);
    // An infinity or a not-a-number stays one, whatever is added.
    if (!Finite(sum).Ok()) return TakeOneByOne(xs, ys);
    mSum = sum;
    if (done < count) {
      for (std::size_t i = 0; i < done; ++i) mLoop->Advance();
      mBlock = kSmallestBlock;
      return;
    }
    mLoop = after;
    mBlock = std::min(2 * mBlock, kLargestBlock);
    std::swap(places, nextPlaces);
    count = collected + (collected == count ? Collect(ahead, mBlock - collected, nextPlaces) : 0);
    std::copy_n(nextPlaces.begin(), count - collected,
                places.begin() + static_cast<std::ptrdiff_t>(collected));
  }
}

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
