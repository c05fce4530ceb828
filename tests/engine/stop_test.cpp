// Stopping an evaluation from outside: what ends, what it reports, what stays.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

#include "engine/curve.h"
#include "identifiers/clsVarTable.h"
#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

using platform::Value;

constexpr const char* kStopped = "error 18: User interrupt occurred";

// Sets the flag when `name` has been stored so many times; the values are kept by a table of the system's
// own.
class StoppingTable : public platform::VariableTable {
 public:
  StoppingTable(std::string_view name, int stores, std::atomic<bool>& stop)
      : mName(name), mStores(stores), mStop(stop) {}

  bool GetIdValue(std::string_view id, Value& value) override { return mTable.GetIdValue(id, value); }
  bool Change(std::string_view id, const Value& value) override {
    if (id == mName && --mStores == 0) mStop = true;
    return mTable.Change(id, value);
  }

 private:
  identifiers::clsVarTable mTable;
  std::string mName;
  int mStores;
  std::atomic<bool>& mStop;
};

TEST(Stop, ends_each_calculus_operation_at_its_next_pass) {
  for (const std::string_view line : std::array{
           std::string_view("ss(k,k,1,1e12)"),
           std::string_view("ss(ss(k,k,1,1e12),j,1,1e12)"),
           std::string_view("1+di(k^2,k,0,1e9)*2"),
           std::string_view("nder(24,(v=1)*k,k,1)"),
           std::string_view("der(ss(k,k,1,1e12),x,1)"),
       }) {
    std::atomic<bool> stop{false};
    Calculator calculator;
    calculator.expression.SetVarTable(std::make_shared<StoppingTable>("k", 100, stop));
    calculator.expression.SetStopFlag(&stop);
    EXPECT_EQ(calculator.Report(line), kStopped) << line;
  }
}

TEST(Stop, ends_sums_that_are_carried_out_in_blocks) {
  for (const std::string_view line : std::array{
           std::string_view("ss(k,k,1,1e12)"),
           std::string_view("di(k^2,k,0,1e9)"),
       }) {
    std::atomic<bool> stop{false};
    Calculator calculator;
    calculator.expression.SetStopFlag(&stop);
    std::thread stopper([&stop] {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      stop = true;
    });
    EXPECT_EQ(calculator.Report(line), kStopped) << line;
    stopper.join();
  }
}

TEST(Stop, gives_the_variable_of_a_sum_back) {
  std::atomic<bool> stop{false};
  Calculator calculator;
  calculator.expression.SetVarTable(std::make_shared<StoppingTable>("k", 100, stop));
  calculator.expression.SetStopFlag(&stop);
  EXPECT_EQ(calculator.Report("k=7"), "7");
  EXPECT_EQ(calculator.Report("ss(k,k,1,1e12)"), kStopped);
  stop = false;
  EXPECT_EQ(calculator.Report("k"), "7");
}

TEST(Stop, is_not_tolerated_as_an_undefined_value_is) {
  std::atomic<bool> stop{true};
  Calculator calculator;
  calculator.expression.ErrObj().GraphMode = true;
  calculator.expression.SetStopFlag(&stop);
  EXPECT_EQ(calculator.Report("1/0"), kStopped);
  EXPECT_FALSE(calculator.expression.ErrObj().WasOkGraphErr);
}

TEST(Stop, holds_until_the_flag_is_cleared) {
  std::atomic<bool> stop{true};
  Calculator calculator;
  calculator.expression.SetStopFlag(&stop);
  EXPECT_EQ(calculator.Report("1+1"), kStopped);
  EXPECT_EQ(calculator.Report("x=5"), kStopped);
  stop = false;
  EXPECT_EQ(calculator.Report("1+1"), "2");
  stop = true;
  calculator.expression.SetStopFlag(nullptr);
  EXPECT_EQ(calculator.Report("1+1"), "2");
}

// Single values and planned ones: a stop is not overlooked because nothing has to be looked up.
TEST(Stop, gives_the_same_error_in_both_gears) {
  for (const bool compiled : {false, true}) {
    std::atomic<bool> stop{false};
    Calculator calculator;
    clsExp& expression = calculator.expression;
    expression.SetCompiledReplay(compiled);
    expression.SetAcceptNumericResultOnly(true);
    expression.SetStopFlag(&stop);
    Value value;
    ASSERT_TRUE(expression.GetVarTable()->Change("x", Value(3.0)));
    ASSERT_TRUE(expression.EvaluateThenSavePreParsedExpression("x^2", value));
    ASSERT_TRUE(expression.EvaluateCurrentPreParsedExpression(value));
    Curve curve(expression, "x");
    Curve planned(expression, "x");
    planned.Plan(std::array{1.0, 2.0, 3.0});
    double y = 0;
    ASSERT_TRUE(curve.At(1, y));
    ASSERT_TRUE(planned.At(1, y));

    stop = true;
    EXPECT_FALSE(expression.EvaluateCurrentPreParsedExpression(value));
    EXPECT_EQ(expression.ErrObj().StandardErrorNum, 18);
    expression.ClearErrors();
    EXPECT_FALSE(planned.At(2, y));
    EXPECT_EQ(expression.ErrObj().StandardErrorNum, 18);
    expression.ClearErrors();
    EXPECT_FALSE(curve.At(5, y));
    EXPECT_EQ(expression.ErrObj().StandardErrorNum, 18);
    EXPECT_EQ(y, 1);
    std::array<double, 3> ys{};
    EXPECT_EQ(curve.Block(std::array{1.0, 2.0, 3.0}, ys), 0U);

    stop = false;
    ASSERT_TRUE(curve.At(5, y));
    EXPECT_EQ(y, 25);
    EXPECT_EQ(curve.Block(std::array{1.0, 2.0, 3.0}, ys), 3U);
  }
}

// What takes longest of everything that is stopped at all: each ends long before a second is over.
TEST(Stop, ends_any_long_evaluation_within_a_second) {
  for (const bool compiled : {false, true}) {
    for (const std::string_view line : std::array{
             std::string_view("ss(sin(k)*exp(k/1e9),k,1,1e12)"),
             std::string_view("ss(ss(1/k,k,-1e9,1e9),j,1,1e12)"),
             std::string_view("ss(factorial(100)+ncr(100,50)+gcf(k,1e15),k,1,1e12)"),
             std::string_view("ss(rate(360,-1000,1e5)+k,k,1,1e12)"),
             std::string_view("nder(24,(v=1)*k,k,1)"),
             std::string_view("di(nder(100,sin(k),k,1,1),t,0,1e9)"),
             std::string_view("ss(1/0,k,1,1e12)"),
         }) {
      std::atomic<bool> stop{false};
      Calculator calculator;
      calculator.expression.SetCompiledReplay(compiled);
      calculator.expression.SetStopFlag(&stop);
      using Clock = std::chrono::steady_clock;
      Clock::time_point stopped;
      std::thread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        stopped = Clock::now();
        stop = true;
      });
      EXPECT_EQ(calculator.Report(line), kStopped) << line;
      const Clock::time_point ended = Clock::now();
      stopper.join();
      EXPECT_LT(ended - stopped, std::chrono::seconds(1)) << line;
    }
  }
}

TEST(Stop, ends_the_calculus_members_too) {
  std::atomic<bool> stop{false};
  Calculator calculator;
  calculator.expression.SetVarTable(std::make_shared<StoppingTable>("k", 100, stop));
  calculator.expression.SetStopFlag(&stop);
  Value value;
  auto recorded = std::make_shared<clsPreParsedExpression>();
  calculator.expression.SetPPE(recorded);
  ASSERT_TRUE(calculator.expression.EvaluateThenSavePreParsedExpression("2", value));
  double sum = 0;
  EXPECT_FALSE(calculator.expression.SigmaSum(recorded, "k", 1, 1e12, 1, sum));
  EXPECT_EQ(sum, 2 * 99);
  EXPECT_EQ(calculator.expression.ErrObj().StandardErrorNum, 18);
}

}  // namespace
}  // namespace plotvane::engine::test
