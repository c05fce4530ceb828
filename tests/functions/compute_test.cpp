// Focus: from a name and the values of its arguments to a value or an error.
#include "functions/compute.h"

#include <gtest/gtest.h>

#include <vector>

namespace plotvane::functions {
namespace {

using platform::StandardError;
using platform::Value;
using Arguments = std::vector<Value>;

constexpr ErrorPair Custom(CustomError error) {
  return {StandardError::None, error};
}

Trapped Try(std::string_view name, const Arguments& arguments, AngleMode mode = AngleMode::Radians) {
  return Compute(*FindFunction(name), mode, arguments);
}

double ValueOf(std::string_view name, const Arguments& arguments, AngleMode mode = AngleMode::Radians) {
  const Trapped result = Try(name, arguments, mode);
  EXPECT_TRUE(result.Ok()) << name;
  return result.Ok() ? result.Get() : -1e99;
}

ErrorPair ErrorOf(std::string_view name, const Arguments& arguments, AngleMode mode = AngleMode::Radians) {
  return Try(name, arguments, mode).Error();
}

TEST(Compute, sine_of_30_is_one_half_in_degrees_and_the_sine_of_30_radians_otherwise) {
  EXPECT_NEAR(ValueOf("sin", {Value(30.0)}, AngleMode::Degrees), 0.5, 1e-15);
  EXPECT_NEAR(ValueOf("SIN", {Value(30.0)}), -0.9880316240928618, 1e-14);
}

TEST(Compute, arc_tangent_of_1_is_45_degrees_or_a_quarter_of_pi) {
  for (const std::string_view name : {"atn", "atan"}) {
    EXPECT_NEAR(ValueOf(name, {Value(1.0)}, AngleMode::Degrees), 45, 1e-12);
    EXPECT_EQ(ValueOf(name, {Value(1.0)}), 3.14159265358979 / 4);
  }
}

TEST(Compute, angles_that_go_out_in_radians_are_reduced_by_360) {
  // 0.5 is below 360, so only the reduction's own arithmetic shows: x - 360 * fix(x / 360).
  EXPECT_EQ(ValueOf("atan", {Value(0.5)}), 0.4636476090008061);
}

TEST(Compute, whole_turns_make_the_right_angle_undefined_in_degrees) {
  for (const double angle : {90.0, 270.0, 450.0}) {
    EXPECT_EQ(ErrorOf("tan", {Value(angle)}, AngleMode::Degrees), Custom(CustomError::UndefinedValue))
        << angle;
  }
}

TEST(Compute, logarithms_of_round_numbers) {
  EXPECT_EQ(ValueOf("log", {Value(100.0)}), 2);
  EXPECT_EQ(ValueOf("log10", {Value(100.0)}), 2);
  EXPECT_EQ(ValueOf("ln", {Value(1.0)}), 0);
}

TEST(Compute, round_takes_one_or_two_arguments) {
  EXPECT_EQ(ValueOf("round", {Value(2.567), Value(2.0)}), 2.57);
  EXPECT_EQ(ValueOf("round", {Value(2.567)}), 3);
}

TEST(Compute, random_takes_one_or_two_arguments) {
  const double below = ValueOf("random", {Value(10.0)});
  EXPECT_TRUE(below >= 0 && below < 10);
  const double between = ValueOf("random", {Value(10.0), Value(5.0)});
  EXPECT_TRUE(between >= 5 && between < 10);
  EXPECT_EQ(ErrorOf("random", {}), Custom(CustomError::MissingArguments));
  EXPECT_EQ(ErrorOf("random", Arguments(3, Value(1.0))), Custom(CustomError::TooManyArguments));
}

TEST(Compute, payments_are_negative_and_need_three_arguments) {
  EXPECT_LT(ValueOf("pmt", {Value(0.01), Value(12.0), Value(1000.0)}), 0);
  EXPECT_EQ(ErrorOf("pmt", {Value(0.01), Value(12.0)}), Custom(CustomError::MissingArguments));
}

TEST(Compute, colours) {
  EXPECT_EQ(ValueOf("rgb", {Value(255.0), Value(0.0), Value(0.0)}), 255);
  EXPECT_EQ(ValueOf("rgb", {Value(0.0), Value(0.0), Value(255.0)}), 16711680);
}

TEST(Compute, a_wrong_number_is_told_before_a_wrong_kind) {
  EXPECT_EQ(ErrorOf("logn", {Value("x")}), Custom(CustomError::MissingArguments));
  EXPECT_EQ(ErrorOf("logn", Arguments(3, Value("x"))), Custom(CustomError::TooManyArguments));
  EXPECT_EQ(ErrorOf("logn", {Value("x"), Value(2.0)}),
            (ErrorPair{StandardError::TypeMismatch, CustomError::None}));
}

TEST(Compute, far_too_many_arguments_are_only_counted) {
  EXPECT_EQ(ErrorOf("sin", Arguments(100000, Value("x"))), Custom(CustomError::TooManyArguments));
}

}  // namespace
}  // namespace plotvane::functions
