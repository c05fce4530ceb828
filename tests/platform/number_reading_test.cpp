// Texts to numbers: the leading-number reading, whole texts and hexadecimal digits.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

#include "platform/number_text.h"

namespace plotvane::platform {
namespace {

TEST(LeadingNumber, takes_the_number_at_the_front_and_ignores_the_rest) {
  struct Case {
    const char* text;
    double number;
  };
  const Case cases[] = {
      {"", 0},
      {"abc", 0},
      {"12", 12},
      {" \t12", 12},
      {"12abc", 12},
      {"+5", 5},
      {"-5", -5},
      {"- 5", 0},
      {"--5", 0},
      {"1.5.5", 1.5},
      {".5", 0.5},
      {"5.", 5},
      {".", 0},
      {"-.", 0},
      {"-.5e-1", -0.05},
      {"1,5", 1},
      {"2e3", 2000},
      {"2E+3", 2000},
      {"2e-3", 0.002},
      {"2e", 2},
      {"2e+", 2},
      {"2ex", 2},
      {"2e 3", 2},
      {"2.e3", 2000},
      {".e3", 0},
      {"12.011 C", 12.011},
      {"\n12", 0},
      {"1d5", 1},
      {"0x10", 0},
      {"inf", 0},
      {"nan", 0},
      {"&HFF", 0},
      {"1_000", 1},
      {"\xC2\xA0"
       "5",
       0},
      {"00012.500", 12.5},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(LeadingNumber(c.text).Ok()) << c.text;
    EXPECT_EQ(LeadingNumber(c.text).Get(), c.number) << c.text;
  }
}

TEST(LeadingNumber, stops_at_a_zero_byte) {
  EXPECT_EQ(LeadingNumber(std::string_view("1\0"
                                           "2",
                                           3))
                .Get(),
            1);
}

TEST(LeadingNumber, overflows_when_too_large_and_is_zero_when_too_small) {
  for (const char* text :
       {"1e309", "-1e309", "1e99999999999999999999", "179769313486231580794e288", "1e0400"}) {
    EXPECT_EQ(LeadingNumber(text).Error(), StandardError::Overflow) << text;
  }
  for (const char* text :
       {"1e-400", "-1e-99999999999999999999", "0e99999999999999999999", "0.000e400", "2e-324"}) {
    EXPECT_TRUE(LeadingNumber(text).Ok()) << text;
    EXPECT_EQ(LeadingNumber(text).Get(), 0) << text;
  }
}

TEST(LeadingNumber, judges_the_size_by_digits_and_exponent_together) {
  const std::string zeros(400, '0');
  EXPECT_EQ(LeadingNumber("1" + zeros).Error(), StandardError::Overflow);
  EXPECT_EQ(LeadingNumber("1" + zeros + "e-400").Get(), 1);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1").Get(), 0);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1e401").Get(), 1);
  EXPECT_EQ(LeadingNumber(zeros + "1").Get(), 1);
}

TEST(LeadingNumber, rounds_to_the_nearest_64_bit_float) {
  for (const char* text : {"9007199254740993", "0.1000000000000000055511151231257827021181583404541015625",
                           "2.2250738585072011e-308", "1.7976931348623158e308", "4.9e-324",
                           "3.14159265358979", "1.00000000000000011102230246251565404236316680908203125"}) {
    EXPECT_EQ(LeadingNumber(text).Get(), std::strtod(text, nullptr)) << text;
  }
}

TEST(WholeTextNumber, takes_blanks_around_the_number_and_nothing_else) {
  EXPECT_EQ(WholeTextNumber(" \t-2.5e1 \t").Get(), -25);
  EXPECT_EQ(WholeTextNumber("7").Get(), 7);
  for (const char* text :
       {"", " ", "x", "1x", "1 2", "1e", "1e+", ".", "+", "1,5", "1\n", "\r1", "&HFF", "True", "inf"}) {
    EXPECT_EQ(WholeTextNumber(text).Error(), StandardError::TypeMismatch) << text;
  }
  EXPECT_EQ(WholeTextNumber("1e999").Error(), StandardError::Overflow);
}

TEST(LeadingHexNumber, reads_a_non_negative_number) {
  struct Case {
    const char* text;
    double number;
  };
  const Case cases[] = {
      {"", 0},
      {"g", 0},
      {"FF", 255},
      {"ff", 255},
      {"10", 16},
      {"FFG", 255},
      {" FF", 0},
      {"FFFF", 65535},
      {"FFFFFFFF", 4294967295.0},
      {"0000000000000000000001", 1},
      {"20000000000000", 0x20000000000000p0},
      {"20000000000001", 0x20000000000000p0},  // half way, to even
      {"20000000000003", 0x20000000000004p0},  // half way, to even
      {"2000000000000100000000000000000001", 0x20000000000002p80},
  };
  for (const auto& c : cases) EXPECT_EQ(LeadingHexNumber(c.text).Get(), c.number) << c.text;
}

TEST(LeadingHexNumber, rounds_long_digits_to_the_nearest_64_bit_float) {
  std::mt19937_64 random(22);
  for (int i = 0; i < 2000; ++i) {
    std::string digits;
    for (std::uint64_t n = 1 + random() % 40; n > 0; --n)
      digits += "0123456789abcdef"[random() % (i % 3 == 0 ? 2 : 16)];
    ASSERT_EQ(LeadingHexNumber(digits).Get(), std::strtod(("0x" + digits).c_str(), nullptr)) << digits;
  }
}

TEST(LeadingHexNumber, overflows_when_too_large) {
  EXPECT_EQ(LeadingHexNumber(std::string(256, 'F')).Error(), StandardError::Overflow);
  EXPECT_EQ(LeadingHexNumber(std::string(5000, 'F')).Error(), StandardError::Overflow);
  EXPECT_TRUE(LeadingHexNumber("7" + std::string(255, '0')).Ok());
  EXPECT_EQ(LeadingHexNumber(std::string(5000, '0') + "1").Get(), 1);
}

}  // namespace
}  // namespace plotvane::platform
