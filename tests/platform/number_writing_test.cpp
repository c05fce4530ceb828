// Numbers to texts: significant digits, exponent form, based digits and the two format patterns.
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "platform/number_text.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::platform {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

struct DoubleCase {
  double value;
  const char* text;
};

TEST(NumberText, shows_up_to_15_significant_digits_without_zeros_at_the_end) {
  const DoubleCase cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1, "-1"},
      {0.1, "0.1"},
      {0.25, "0.25"},
      {-0.25, "-0.25"},
      {2.50, "2.5"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {100, "100"},
      {123456789012345, "123456789012345"},
      {3.14159265358979, "3.14159265358979"},
      {9.80655, "9.80655"},
      {8987551787.37, "8987551787.37"},
  };
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text);
}

TEST(NumberText, takes_the_exponent_form_below_1E_04_and_from_1E15_on) {
  const DoubleCase cases[] = {
      {0.0001, "0.0001"},
      {0.00012345, "0.00012345"},
      {0.00001, "1E-05"},
      {0.000099999, "9.9999E-05"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {-1e15, "-1E+15"},
      {999999999999999.9, "1E+15"},  // the rounded digits decide, not the number
      {0.00009999999999999999, "0.0001"},
      {1.5e15, "1.5E+15"},
      {6.67259e-11, "6.67259E-11"},
      {1e99, "1E+99"},
      {1e100, "1E+100"},
      {kLargest, "1.79769313486232E+308"},
      {kSmallest, "4.94065645841247E-324"},
  };
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text);
}

TEST(NumberText, of_a_32_bit_float_shows_7_digits) {
  struct Case {
    float value;
    const char* text;
  };
  const Case cases[] = {
      {0.0F, "0"},
      {-0.0F, "0"},
      {0.1F, "0.1"},
      {2.0F, "2"},
      {0.7055475F, "0.7055475"},
      {9999999.0F, "9999999"},
      {1e7F, "1E+07"},
      {12345678.0F, "1.234568E+07"},
      {0.0001F, "0.0001"},
      {0.00001F, "1E-05"},
      {3.4028235e38F, "3.402823E+38"},
  };
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text);
}

// Every bit pattern is as likely as any other, so all exponents occur.
double RandomFinite(std::mt19937_64& random) {
  for (;;) {
    const double value = std::bit_cast<double>(random());
    if (std::isfinite(value) && value != 0) return value;
  }
}

TEST(NumberText, equals_the_C_library_on_random_numbers) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 20000; ++i) {
    const double value = RandomFinite(random);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.15G", value);
#ifndef _WIN32  // whose C library writes its own exponents
    ASSERT_EQ(NumberText(value), expected);
#endif
    const double moderate =
        std::ldexp(static_cast<double>(random() >> 11U), static_cast<int>(random() % 80) - 90);
    std::snprintf(expected, sizeof expected, "%.15G", moderate);
    ASSERT_EQ(NumberText(moderate), expected);
  }
}

TEST(ShortestNumberText, is_the_shortest_that_reads_back) {
  const DoubleCase cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {0.1, "0.1"},
      {0.1 + 0.2, "0.30000000000000004"},
      {3.14159265358979, "3.14159265358979"},
      {6.67259e-11, "6.67259E-11"},
      {100000, "100000"},
      {1e15, "1E+15"},
      {1234567890123456.75, "1.2345678901234568E+15"},
      {123456789012345.67, "123456789012345.67"},
      {0.00001, "1E-05"},
      {kSmallest, "5E-324"},
      {kLargest, "1.7976931348623157E+308"},
  };
  for (const auto& c : cases) EXPECT_EQ(ShortestNumberText(c.value), c.text);
}

TEST(ShortestNumberText, of_random_numbers_reads_back_to_the_same_bits) {
  std::mt19937_64 random(21);
  for (int i = 0; i < 20000; ++i) {
    const double value = RandomFinite(random);
    const std::string text = ShortestNumberText(value);
    ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    ASSERT_EQ(WholeTextNumber(text).Get(), value) << text;
  }
}

TEST(HexText, writes_upper_case_digits_and_twos_complement) {
  const DoubleCase cases[] = {
      {0, "0"},
      {255, "FF"},
      {16, "10"},
      {-1, "FFFFFFFF"},
      {-16, "FFFFFFF0"},
      {2147483647, "7FFFFFFF"},
      {-2147483648.0, "80000000"},
      {2.5, "2"},
      {3.5, "4"},
      {-0.5, "0"},
  };
  for (const auto& c : cases) EXPECT_EQ(HexText(c.value).Get(), c.text);
}

TEST(OctText, writes_octal_digits_and_twos_complement) {
  const DoubleCase cases[] = {
      {0, "0"}, {8, "10"}, {511, "777"}, {-1, "37777777777"}, {-2147483648.0, "20000000000"}};
  for (const auto& c : cases) EXPECT_EQ(OctText(c.value).Get(), c.text);
}

TEST(HexText, and_octal_text_overflow_outside_32_bits) {
  for (const double value : {2147483647.5, 2147483648.0, -2147483649.0, 1e300}) {
    EXPECT_EQ(HexText(value).Error(), StandardError::Overflow);
    EXPECT_EQ(OctText(value).Error(), StandardError::Overflow);
  }
  EXPECT_EQ(HexText(-2147483648.4).Get(), "80000000");
}

TEST(PointPatternText, shows_no_zero_before_the_point_and_none_at_the_end) {
  struct Case {
    double value;
    int places;
    const char* text;
  };
  const Case cases[] = {
      {0.5, 2, ".5"},
      {0.25, 2, ".25"},
      {-0.25, 2, "-.25"},
      {3.14, 2, "3.14"},
      {2.5, 2, "2.5"},
      {2, 2, "2"},
      {0.25, 1, ".3"},
      {2.675, 2, "2.68"},
      {-2.675, 2, "-2.68"},
      {9.999, 2, "10"},
      {0.95, 1, "1"},
      {0.05, 1, ".1"},
      {0.04, 1, "0"},
      {-0.001, 2, "0"},
      {0, 2, "0"},
      {2.5, 0, "3"},
      {2.4, -3, "2"},
      {1.0 / 3, 127, ".333333333333333"},
      {1e-20, 127, ".00000000000000000001"},
      {1e20, 5, "100000000000000000000"},
      {199.995, 2, "200"},
      {1.0625, 3, "1.063"},
      {10.5, 1, "10.5"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(PointPatternText(c.value, c.places), c.text) << c.value << ' ' << c.places;
}

TEST(WholePatternText, has_no_point_and_no_exponent) {
  const DoubleCase cases[] = {
      {0, "0"},   {-0.0, "0"}, {2, "2"}, {-17, "-17"}, {1200, "1200"}, {1e20, "100000000000000000000"},
      {0.4, "0"}, {-0.4, "0"},
  };
  for (const auto& c : cases) EXPECT_EQ(WholePatternText(c.value), c.text);
}

// Makes a locale with a decimal comma current until it is destroyed; on Linux it compiles one for this
// purpose.
class CommaLocale {
 public:
  CommaLocale() {
#ifdef __linux__
    const std::string target = mDirectory.File("de_DE.UTF-8");
    EXPECT_EQ(std::system(("localedef -i de_DE -f UTF-8 " + target).c_str()), 0);
    ::setenv("LOCPATH", mDirectory.Path().c_str(), 1);
    EXPECT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
#else
    EXPECT_NE(std::setlocale(LC_ALL, "German_Germany.1252"), nullptr);
#endif
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, mBefore.c_str());
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

 private:
  std::string mBefore = std::setlocale(LC_ALL, nullptr);
  tests::TemporaryDirectory mDirectory;
};

TEST(NumberText, does_not_depend_on_the_locale) {
  const CommaLocale locale;
  char commaText[16];
  std::snprintf(commaText, sizeof commaText, "%g", 0.5);
  ASSERT_STREQ(commaText, "0,5");
  EXPECT_EQ(NumberText(1234.5), "1234.5");
  EXPECT_EQ(NumberText(1234.5F), "1234.5");
  EXPECT_EQ(ShortestNumberText(1234.5), "1234.5");
  EXPECT_EQ(PointPatternText(1234.5, 2), "1234.5");
  EXPECT_EQ(LeadingNumber("1234.5").Get(), 1234.5);
  EXPECT_EQ(LeadingNumber("1234,5").Get(), 1234);
  EXPECT_EQ(WholeTextNumber("1234.5").Get(), 1234.5);
  EXPECT_EQ(WholeTextNumber("1234,5").Error(), StandardError::TypeMismatch);
}

}  // namespace
}  // namespace plotvane::platform
