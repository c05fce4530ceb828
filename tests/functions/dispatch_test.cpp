// Focus: from a name and its argument list to a value or an error, with the expression object played by a
// fake.
#include "functions/dispatch.h"

#include <gtest/gtest.h>

#include "tests/functions/fake_context.h"

namespace plotvane::functions {
namespace {

using platform::StandardError;
using platform::Value;
using Items = std::vector<FakeContext::Item>;
using Errors = std::vector<ErrorPair>;

constexpr ErrorPair Custom(CustomError error) {
  return {StandardError::None, error};
}

struct Outcome {
  bool produced;
  bool notAFunction;
  Value value;
  Errors raised;
};

Outcome Offer(std::string_view name, FakeContext& context) {
  Outcome outcome{};
  outcome.notAFunction = true;
  outcome.produced = Dispatch(name, context, outcome.value, outcome.notAFunction);
  outcome.raised = context.raised;
  return outcome;
}

Outcome Offer(std::string_view name, Items items, AngleMode mode = AngleMode::Radians) {
  FakeContext context(std::move(items), mode);
  return Offer(name, context);
}

double ValueOf(std::string_view name, Items items, AngleMode mode = AngleMode::Radians) {
  const Outcome outcome = Offer(name, std::move(items), mode);
  EXPECT_TRUE(outcome.produced) << name;
  EXPECT_FALSE(outcome.notAFunction) << name;
  EXPECT_TRUE(outcome.raised.empty()) << name;
  return outcome.value.IsNumber() ? outcome.value.Number() : -1e99;
}

TEST(Dispatch, an_unknown_name_is_handed_back_without_reading_or_raising) {
  FakeContext context({1.0});
  const Outcome outcome = Offer("foo", context);
  EXPECT_FALSE(outcome.produced);
  EXPECT_TRUE(outcome.notAFunction);
  EXPECT_TRUE(outcome.raised.empty());
  EXPECT_EQ(context.readings, 0);
}

TEST(Dispatch, sine_of_30_is_one_half_in_degrees_and_the_sine_of_30_radians_otherwise) {
  EXPECT_NEAR(ValueOf("sin", {30.0}, AngleMode::Degrees), 0.5, 1e-15);
  EXPECT_NEAR(ValueOf("SIN", {30.0}), -0.9880316240928618, 1e-14);
}

TEST(Dispatch, arc_tangent_of_1_is_45_degrees_or_a_quarter_of_pi) {
  for (const std::string_view name : {"atn", "atan"}) {
    EXPECT_NEAR(ValueOf(name, {1.0}, AngleMode::Degrees), 45, 1e-12);
    EXPECT_EQ(ValueOf(name, {1.0}), 3.14159265358979 / 4);
  }
}

TEST(Dispatch, angles_that_go_out_in_radians_are_reduced_by_360) {
  // 0.5 is below 360, so only the reduction's own arithmetic shows: x - 360 * fix(x / 360).
  EXPECT_EQ(ValueOf("atan", {0.5}), 0.4636476090008061);
}

TEST(Dispatch, whole_turns_make_the_right_angle_undefined_in_degrees) {
  for (const double angle : {90.0, 270.0, 450.0}) {
    EXPECT_EQ(Offer("tan", {angle}, AngleMode::Degrees).raised, Errors{Custom(CustomError::UndefinedValue)})
        << angle;
  }
}

TEST(Dispatch, logarithms_of_round_numbers) {
  EXPECT_EQ(ValueOf("log", {100.0}), 2);
  EXPECT_EQ(ValueOf("log10", {100.0}), 2);
  EXPECT_EQ(ValueOf("ln", {1.0}), 0);
}

TEST(Dispatch, round_takes_one_or_two_arguments) {
  EXPECT_EQ(ValueOf("round", {2.567, 2.0}), 2.57);
  EXPECT_EQ(ValueOf("round", {2.567}), 3);
}

TEST(Dispatch, random_takes_one_or_two_arguments) {
  const double below = ValueOf("random", {10.0});
  EXPECT_TRUE(below >= 0 && below < 10);
  const double between = ValueOf("random", {10.0, 5.0});
  EXPECT_TRUE(between >= 5 && between < 10);
  EXPECT_EQ(Offer("random", {}).raised, Errors{Custom(CustomError::MissingArguments)});
  EXPECT_EQ(Offer("random", {1.0, 2.0, 3.0}).raised, Errors{Custom(CustomError::TooManyArguments)});
}

TEST(Dispatch, payments_are_negative_and_need_three_arguments) {
  EXPECT_LT(ValueOf("pmt", {0.01, 12.0, 1000.0}), 0);
  EXPECT_EQ(Offer("pmt", {0.01, 12.0}).raised, Errors{Custom(CustomError::MissingArguments)});
}

TEST(Dispatch, colours) {
  EXPECT_EQ(ValueOf("rgb", {255.0, 0.0, 0.0}), 255);
  EXPECT_EQ(ValueOf("rgb", {0.0, 0.0, 255.0}), 16711680);
}

TEST(Dispatch, all_arguments_are_read_before_their_number_is_judged) {
  FakeContext context(Items(20, 1.0));
  const Outcome outcome = Offer("sin", context);
  EXPECT_FALSE(outcome.produced);
  EXPECT_EQ(context.readings, 20);
  EXPECT_EQ(outcome.raised, Errors{Custom(CustomError::TooManyArguments)});
}

TEST(Dispatch, a_wrong_number_is_told_before_a_wrong_kind) {
  EXPECT_EQ(Offer("logn", {"x"}).raised, Errors{Custom(CustomError::MissingArguments)});
  EXPECT_EQ(Offer("logn", {"x", 2.0}).raised, (Errors{{StandardError::TypeMismatch, CustomError::None}}));
}

TEST(Dispatch, an_error_in_an_argument_ends_the_call_with_that_error_alone) {
  for (const std::string_view name : {"logn", "ss", "nder"}) {
    for (const std::size_t failing : {0U, 1U}) {
      FakeContext context({1.0, "x", 1.0});
      context.failingItem = failing;
      const Outcome outcome = Offer(name, context);
      EXPECT_FALSE(outcome.produced);
      EXPECT_FALSE(outcome.notAFunction);
      EXPECT_EQ(outcome.raised, (Errors{{StandardError::DivisionByZero, CustomError::None}}));
      EXPECT_EQ(context.readings, static_cast<int>(failing) + 1);
    }
  }
}

TEST(Dispatch, brackets_are_the_contexts_errors) {
  FakeContext withoutBracket({1.0});
  withoutBracket.hasBracket = false;
  EXPECT_EQ(Offer("sin", withoutBracket).raised, Errors{Custom(CustomError::OpenBracketExpected)});
  FakeContext notClosed({1.0});
  notClosed.closes = false;
  EXPECT_EQ(Offer("sin", notClosed).raised, Errors{Custom(CustomError::CloseBracketExpected)});
}

TEST(Dispatch, a_failed_call_leaves_the_value_alone) {
  FakeContext context({0.0});
  Value value("before");
  bool notAFunction = false;
  EXPECT_FALSE(Dispatch("ln", context, value, notAFunction));
  EXPECT_EQ(value, Value("before"));
}

std::string TextOf(const CalculusCall& call) {
  return static_cast<const FakeRecording&>(*call.expression).text;  // NOLINT: the fake makes no other kind
}

TEST(Dispatch, calculus_calls_record_the_expression_take_the_name_and_fill_in_the_step) {
  struct Case {
    std::string_view name;
    Items items;
    CalculusOperation operation;
    std::int16_t n;
    double from, to, step;
  };
  const std::vector<Case> cases{
      {"definiteintegral", {"x^2", "x", 0.0, 1.0}, CalculusOperation::LIntegral, 1, 0, 1, 0.01},
      {"di", {"x^2", "x", 0.0, 1.0, 0.5}, CalculusOperation::LIntegral, 1, 0, 1, 0.5},
      {"derivative", {"x^2", "x", 3.0}, CalculusOperation::Derivative, 1, 3, 0, 0.01},
      {"der", {"x^2", "x", 3.0, 0.0}, CalculusOperation::Derivative, 1, 3, 0, 0},
      {"nderivative", {2.5, "x^2", "x", 3.0}, CalculusOperation::NDerivative, 2, 3, 0, 0.01},
      {"nder", {-40.0, "x^2", "x", 3.0, 0.1}, CalculusOperation::NDerivative, -40, 3, 0, 0.1},
      {"sigmasum", {"x^2", "x", 1.0, 10.0}, CalculusOperation::SigmaSum, 1, 1, 10, 1},
      {"SS", {"x^2", "x", 1.0, 10.0, 2.0}, CalculusOperation::SigmaSum, 1, 1, 10, 2},
  };
  for (const Case& given : cases) {
    FakeContext context(given.items);
    const Outcome outcome = Offer(given.name, context);
    EXPECT_EQ(outcome.value, Value(42.0)) << given.name;
    ASSERT_EQ(context.calculusCalls.size(), 1U);
    const CalculusCall& call = context.calculusCalls[0];
    EXPECT_EQ(call.operation, given.operation) << given.name;
    EXPECT_EQ(call.n, given.n) << given.name;
    EXPECT_EQ(TextOf(call), "x^2") << given.name;
    EXPECT_EQ(call.variable, "x") << given.name;
    EXPECT_EQ(call.from, given.from) << given.name;
    EXPECT_EQ(call.to, given.to) << given.name;
    EXPECT_EQ(call.step, given.step) << given.name;
  }
}

TEST(Dispatch, bad_calculus_lists_never_reach_the_operation) {
  struct Case {
    std::string_view name;
    Items items;
    ErrorPair error;
  };
  const ErrorPair mismatch{StandardError::TypeMismatch, CustomError::None};
  const ErrorPair overflow{StandardError::Overflow, CustomError::None};
  const std::vector<Case> cases{
      {"ss", {}, Custom(CustomError::MissingArguments)},
      {"ss", {"k", "k", 1.0}, Custom(CustomError::MissingArguments)},
      {"ss", {"k", "k", 1.0, 2.0, 1.0, 1.0}, Custom(CustomError::TooManyArguments)},
      {"der", {"x", "x"}, Custom(CustomError::MissingArguments)},
      {"der", {"x", "x", 1.0, 1.0, 1.0}, Custom(CustomError::TooManyArguments)},
      {"nder", {1.0, "x", "x"}, Custom(CustomError::MissingArguments)},
      {"di", {"x", "x", "a", 1.0}, mismatch},
      {"nder", {"n", "x", "x", 1.0}, mismatch},
      {"nder", {32767.5, "x", "x", 1.0}, overflow},
      {"nder", {-32769.0, "x", "x", 1.0}, overflow},
  };
  for (const Case& given : cases) {
    FakeContext context(given.items);
    EXPECT_EQ(Offer(given.name, context).raised, Errors{given.error}) << given.name << given.items.size();
    EXPECT_TRUE(context.calculusCalls.empty());
  }
}

}  // namespace
}  // namespace plotvane::functions
