// Value: its kinds and their conversions; the random generator; the error catalogue.
#include "platform/value.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "platform/number_text.h"
#include "platform/random.h"

namespace plotvane::platform {
namespace {

TEST(Value, converts_to_a_number_by_kind) {
  EXPECT_EQ(Value().ToNumber().Get(), 0);
  EXPECT_EQ(Value(true).ToNumber().Get(), -1);
  EXPECT_EQ(Value(false).ToNumber().Get(), 0);
  EXPECT_EQ(Value(2.5).ToNumber().Get(), 2.5);
  EXPECT_EQ(Value(" 2.5 ").ToNumber().Get(), 2.5);
  EXPECT_EQ(Value("2.5x").ToNumber().Error(), StandardError::TypeMismatch);
  EXPECT_EQ(Value("").ToNumber().Error(), StandardError::TypeMismatch);
  EXPECT_EQ(Value("True").ToNumber().Error(), StandardError::TypeMismatch);
  EXPECT_EQ(Value("1e999").ToNumber().Error(), StandardError::Overflow);
}

TEST(Value, converts_to_a_text_by_kind) {
  EXPECT_EQ(Value().ToText(), "");
  EXPECT_EQ(Value(true).ToText(), "True");
  EXPECT_EQ(Value(false).ToText(), "False");
  EXPECT_EQ(Value(1.0 / 3).ToText(), "0.333333333333333");
  EXPECT_EQ(Value(" as it is ").ToText(), " as it is ");
}

TEST(Value, converts_to_a_boolean_by_kind) {
  EXPECT_FALSE(Value().ToBoolean().Get());
  EXPECT_TRUE(Value(true).ToBoolean().Get());
  EXPECT_TRUE(Value(0.1).ToBoolean().Get());
  EXPECT_FALSE(Value(0.0).ToBoolean().Get());
  EXPECT_TRUE(Value("TRUE").ToBoolean().Get());
  EXPECT_FALSE(Value("false").ToBoolean().OrThrow());
  EXPECT_TRUE(Value("-3").ToBoolean().Get());
  EXPECT_FALSE(Value("0").ToBoolean().OrThrow());
  EXPECT_EQ(Value("yes").ToBoolean().Error(), StandardError::TypeMismatch);
}

TEST(Value, compares_kind_and_content) {
  EXPECT_EQ(Value(1.0), Value(1.0));
  EXPECT_NE(Value(1.0), Value("1"));
  EXPECT_NE(Value(true), Value(-1.0));
  EXPECT_EQ(Value(), Value());
  Value value("text");
  value.Clear();
  EXPECT_TRUE(value.IsEmpty());
}

TEST(RandomGenerator, gives_the_platforms_first_values) {
  RandomGenerator generator;
  EXPECT_EQ(NumberText(generator.Next()), "0.7055475");
  EXPECT_EQ(NumberText(generator.Next()), "0.533424");
  EXPECT_EQ(NumberText(generator.Next()), "0.5795186");
  EXPECT_EQ(NumberText(double{generator.Last()}), "0.579518616199493");
}

TEST(RandomGenerator, repeats_its_last_value_and_starts_from_its_state) {
  RandomGenerator generator;
  EXPECT_EQ(generator.Last(), 0x50000 / 0x1p24F);
  const float value = generator.Next();
  EXPECT_EQ(generator.Last(), value);
  EXPECT_EQ(generator.Last(), value);
}

TEST(RandomGenerator, restarts_from_the_bits_of_a_seed) {
  for (const float seed : {-1.0F, -2.5F, -1e30F}) {
    RandomGenerator generator;
    const auto bits = std::bit_cast<std::uint32_t>(seed);
    const std::uint64_t state = (std::uint64_t{bits} + (bits >> 24U)) % 0x1000000;
    const std::uint64_t next = (state * 0x43FD43FD + 0xC39EC3) % 0x1000000;
    EXPECT_EQ(generator.Restart(seed), static_cast<float>(next) / 0x1p24F);
    const float following = generator.Next();
    (void)generator.Restart(seed);
    EXPECT_EQ(generator.Next(), following);
  }
}

TEST(RandomGenerator, stays_below_1_through_its_whole_period) {
  RandomGenerator generator;
  float largest = 0;
  float smallest = 1;
  for (int i = 0; i < 0x1000000; ++i) {
    const float value = generator.Next();
    largest = std::max(largest, value);
    smallest = std::min(smallest, value);
  }
  EXPECT_EQ(largest, 0xFFFFFF / 0x1p24F);  // every state occurs once in a full period
  EXPECT_EQ(smallest, 0.0F);
  EXPECT_EQ(generator.Last(), 0x50000 / 0x1p24F);
}

TEST(SharedRandomGenerator, is_one_for_the_process) {
  EXPECT_EQ(&SharedRandomGenerator(), &SharedRandomGenerator());
}

TEST(StandardErrorText, names_the_catalogue_and_calls_all_else_application_defined) {
  EXPECT_EQ(StandardErrorText(5), "Invalid procedure call or argument");
  EXPECT_EQ(StandardErrorText(StandardError::DivisionByZero), "Division by zero");
  EXPECT_EQ(StandardErrorText(StandardError::UserInterrupt), "User interrupt occurred");
  EXPECT_EQ(StandardErrorText(91), "Object variable or With block variable not set");
  EXPECT_EQ(StandardErrorText(438), "Object doesn't support this property or method");
  for (const int number : {0, 1, 8, 10, 439, -5, 513, 2147483647}) {
    EXPECT_EQ(StandardErrorText(number), "Application-defined or object-defined error");
  }
}

TEST(RunTimeError, carries_number_and_text) {
  const RunTimeError error(StandardError::FileNotFound);
  EXPECT_EQ(error.Number(), 53);
  EXPECT_STREQ(error.what(), "File not found");
  EXPECT_THROW((void)Outcome<double>(StandardError::Overflow).OrThrow(), RunTimeError);
}

}  // namespace
}  // namespace plotvane::platform
