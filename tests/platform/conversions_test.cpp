// Conversions between widths, and the counted loop over real numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "platform/conversions.h"

namespace plotvane::platform {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ToInt16, rounds_halves_to_even) {
  struct Case {
    double value;
    int whole;
  };
  const Case cases[] = {
      {0, 0},
      {0.5, 0},
      {1.5, 2},
      {2.5, 2},
      {3.5, 4},
      {-0.5, 0},
      {-1.5, -2},
      {-2.5, -2},
      {2.4999, 2},
      {2.5001, 3},
      {-2.5001, -3},
      {0.49999999999999994, 0},
      {32767.49, 32767},
      {32766.5, 32766},
      {-32768.5, -32768},
      {-32768, -32768},
  };
  for (const auto& c : cases) EXPECT_EQ(ToInt16(c.value).OrThrow(), c.whole) << c.value;
}

TEST(ToInt16, overflows_outside_its_range) {
  for (const double value :
       {32767.5, 32768.0, -32768.51, -32769.0, 1e9, 1e300, kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(ToInt16(value).Error(), StandardError::Overflow) << value;
  }
}

TEST(ToInt32, rounds_halves_to_even_up_to_its_ends) {
  EXPECT_EQ(ToInt32(2147483647.4999995).Get(), 2147483647);
  EXPECT_EQ(ToInt32(2147483646.5).Get(), 2147483646);
  EXPECT_EQ(ToInt32(-2147483648.5).OrThrow(), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(ToInt32(1073741824.5).Get(), 1073741824);
  EXPECT_EQ(ToInt32(-0.5).Get(), 0);
}

TEST(ToInt32, overflows_outside_its_range) {
  for (const double value :
       {2147483647.5, 2147483648.0, -2147483648.6, 1e19, 1e300, kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(ToInt32(value).Error(), StandardError::Overflow) << value;
  }
}

TEST(ToSingle, overflows_from_where_rounding_would_pass_the_largest_float) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  EXPECT_EQ(ToSingle(0.1).Get(), 0.1F);
  EXPECT_EQ(ToSingle(kLargest).Get(), kLargest);
  EXPECT_EQ(ToSingle(std::nextafter(0x1.ffffffp127, 0)).Get(), kLargest);
  EXPECT_EQ(ToSingle(-std::nextafter(0x1.ffffffp127, 0)).Get(), -kLargest);
  for (const double value : {0x1.ffffffp127, -0x1.ffffffp127, 1e300, kInfinity, kNotANumber}) {
    EXPECT_EQ(ToSingle(value).Error(), StandardError::Overflow) << value;
  }
  EXPECT_EQ(ToSingle(1e-50).Get(), 0.0F);
}

TEST(ClampToInt16, rounds_inside_the_range_and_clamps_outside) {
  struct Case {
    double value;
    int whole;
  };
  const Case cases[] = {
      {2.5, 2},         {3.5, 4},           {-2.5, -2},         {32767.5, 32767},
      {32766.6, 32767}, {-32767.6, -32768}, {40000, 32767},     {-40000, -32768},
      {1e300, 32767},   {-1e300, -32768},   {kInfinity, 32767}, {-kInfinity, -32768},
      {kNotANumber, 0},
  };
  for (const auto& c : cases) EXPECT_EQ(ClampToInt16(c.value), c.whole) << c.value;
}

TEST(Finite, passes_numbers_and_refuses_the_rest) {
  EXPECT_EQ(Finite(-2.5).Get(), -2.5);
  for (const double value : {kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(Finite(value).Error(), StandardError::Overflow);
  }
}

std::vector<double> Passes(CountedLoop& loop) {
  std::vector<double> counters;
  for (; loop.Running(); loop.Advance()) counters.push_back(loop.Counter());
  return counters;
}

TEST(CountedLoop, includes_its_end_and_leaves_the_first_value_past_it) {
  CountedLoop loop(1, 3, 1);
  EXPECT_EQ(Passes(loop), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(loop.Counter(), 4);
  EXPECT_FALSE(loop.StoodStill());
}

TEST(CountedLoop, follows_the_sign_of_its_step) {
  CountedLoop down(3, 1, -1);
  EXPECT_EQ(Passes(down), (std::vector<double>{3, 2, 1}));
  EXPECT_EQ(down.Counter(), 0);
  CountedLoop none(1, 3, -1);
  EXPECT_TRUE(Passes(none).empty());
  EXPECT_EQ(none.Counter(), 1);
}

TEST(CountedLoop, grows_by_repeated_addition) {
  CountedLoop loop(0, 1, 0.1);
  double last = 0;
  int passes = 0;
  for (; loop.Running(); loop.Advance(), ++passes) last = loop.Counter();
  EXPECT_EQ(passes, 11);  // ten additions of 0.1 stay just below 1
  EXPECT_EQ(last, 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1 + 0.1);
  EXPECT_NE(last, 1.0);
}

TEST(CountedLoop, ends_when_the_step_no_longer_changes_the_counter) {
  CountedLoop zero(1, 3, 0);
  EXPECT_EQ(Passes(zero).size(), 1U);
  EXPECT_TRUE(zero.StoodStill());
  CountedLoop tiny(1e17, 2e17, 1);
  EXPECT_EQ(Passes(tiny).size(), 1U);
  EXPECT_TRUE(tiny.StoodStill());
}

}  // namespace
}  // namespace plotvane::platform
