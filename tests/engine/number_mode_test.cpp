// Number modes: how results are shown.
#include <gtest/gtest.h>

#include <clocale>

#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

using platform::Value;

TEST(NumberMode, words_are_taken_in_any_case_and_any_other_resets_to_decimal) {
  clsExp expression;
  EXPECT_EQ(expression.GetFormatMode(), "decimal");
  for (const char* word : {"fixed", "octal", "hexadecimal", "binary", "decimal"}) {
    EXPECT_TRUE(expression.SetFormatMode(word));
    EXPECT_EQ(expression.GetFormatMode(), word);
  }
  EXPECT_TRUE(expression.SetFormatMode("HEXADECIMAL"));
  EXPECT_EQ(expression.GetFormatMode(), "hexadecimal");
  for (const char* word : {"hex", "", "fixed ", "dezimal"}) {
    EXPECT_TRUE(expression.SetFormatMode("fixed"));
    EXPECT_FALSE(expression.SetFormatMode(word));
    EXPECT_EQ(expression.GetFormatMode(), "decimal");
  }
}

TEST(NumberMode, places_go_from_minus_100_to_127) {
  clsExp expression;
  EXPECT_EQ(expression.GetFixedDecimalPlaces(), 0);
  for (const double places : {127.0, -100.0, 2.0}) {
    EXPECT_TRUE(expression.SetFixedDecimalPlaces(Value(places)));
    EXPECT_EQ(expression.GetFixedDecimalPlaces(), places);
  }
  for (const double places : {128.0, -101.0, 127.1, -100.1, 1e300}) {
    EXPECT_FALSE(expression.SetFixedDecimalPlaces(Value(places)));
    EXPECT_EQ(expression.GetFixedDecimalPlaces(), 2);
  }
  EXPECT_FALSE(expression.SetFixedDecimalPlaces(Value("two")));
  EXPECT_TRUE(expression.SetFixedDecimalPlaces(Value("3")));
  EXPECT_EQ(expression.GetFixedDecimalPlaces(), 3);
}

struct Shown {
  const char* mode;
  int places;
  const char* line;
  const char* expected;
};

TEST(NumberMode, shown_forms) {
  constexpr Shown kShown[] = {
      {"decimal", 0, "1/3", "0.333333333333333"},
      {"decimal", 0, "-0", "0"},
      {"decimal", 0, "1e15", "1E+15"},
      {"decimal", 0, "1<2", "True"},
      {"fixed", 2, "3.14159", "3.14"},
      {"fixed", 2, "2", "2"},
      {"fixed", 2, "0.5", ".5"},
      {"fixed", 2, "0.25", ".25"},
      {"fixed", 2, "-0.25", "-.25"},
      {"fixed", 2, "2.50", "2.5"},
      {"fixed", 2, "1<2", "True"},
      {"fixed", 0, "2.5", "3"},
      {"fixed", 0, "-2.5", "-2"},
      {"fixed", -2, "1234", "1200"},
      {"fixed", -100, "1234", "0"},
      {"fixed", 127, "0.125", ".125"},
      {"fixed", 1, "1;1/4", "1 : .3"},
      {"fixed", 127, "1e300", "error 6: Overflow"},
      {"hexadecimal", 0, "255", "&HFF"},
      {"hexadecimal", 0, "-1", "&HFFFFFFFF"},
      {"hexadecimal", 0, "2.5", "&H2"},
      {"hexadecimal", 0, "1<2", "&HFFFFFFFF"},
      {"hexadecimal", 0, "1>2", "&H0"},
      {"hexadecimal", 0, "2147483648", "error 6: Overflow"},
      {"hexadecimal", 0, "-2147483648", "&H80000000"},
      {"octal", 0, "8", "&O10"},
      {"octal", 0, "-1", "&O37777777777"},
      {"octal", 0, "-2147483649", "error 6: Overflow"},
      {"binary", 0, "5", "&B101"},
      {"binary", 0, "0", "&B0"},
      {"binary", 0, "5.9", "&B101"},
      {"binary", 0, "-1", "&B1111111111111111"},
      {"binary", 0, "True", "&B1111111111111111"},
      {"hexadecimal", 0, "10;&HFF", "&HA : &HFF"},
  };
  for (const Shown& row : kShown) {
    Calculator calculator;
    EXPECT_TRUE(calculator.expression.SetFormatMode(row.mode));
    EXPECT_TRUE(calculator.expression.SetFixedDecimalPlaces(Value(static_cast<double>(row.places))));
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.mode << ' ' << row.places << ' ' << row.line;
  }
}

TEST(NumberMode, the_locale_of_the_process_plays_no_part) {
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) continue;
    Calculator calculator;
    EXPECT_EQ(calculator.Report("1.5+1/4"), "1.75");
    calculator.expression.SetFormatMode("fixed");
    calculator.expression.SetFixedDecimalPlaces(Value(2.0));
    EXPECT_EQ(calculator.Report("1.5+1/4"), "1.75");
  }
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace plotvane::engine::test
