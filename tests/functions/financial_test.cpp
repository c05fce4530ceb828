// Focus: annuities and depreciation; expected values were computed with 700 digits from the annuity equation.
#include <gtest/gtest.h>

#include <cmath>

#include "functions/compute.h"

namespace plotvane::functions {
namespace {

using platform::StandardError;
using platform::Value;

Trapped Try(std::string_view name, const std::vector<double>& numbers) {
  std::vector<Value> values;
  for (const double number : numbers) values.emplace_back(number);
  return Compute(*FindFunction(name), AngleMode::Radians, values);
}

// Of the order of a few units in the last place.
void ExpectClose(const Trapped& actual, double expected, const std::string& what, double tolerance = 4e-15) {
  EXPECT_TRUE(actual.Ok()) << what;
  EXPECT_NEAR(actual.Get(), expected, tolerance * std::abs(expected)) << what;
}

struct Row {
  const char* name;
  std::vector<double> arguments;
  double expected;
};

const std::vector<Row> kRows{
    Row{"pmt", {0.01, 12.0, 1000.0}, -88.8487886783417},
    Row{"pmt", {0.008333333333333333, 360.0, 200000.0}, -1755.1431401775976},
    Row{"pmt", {1e-12, 360.0, 1000.0, -50.0}, -2.6388888894152083},
    Row{"pmt", {1e-300, 12.0, 1000.0}, -83.33333333333333},
    Row{"pmt", {0.05, 10.0, 1000.0, -200.0, 1.0}, -108.1939618784432},
    Row{"pmt", {0.1, 10000.0, 1000.0}, -100.0},
    Row{"pmt", {-0.5, 4.0, 1000.0}, -33.333333333333336},
    Row{"pmt", {-0.02, 24.0, 1000.0, 500.0, 1.0}, -59.26564785571814},
    Row{"pmt", {0.0, 8.0, 1000.0, 200.0}, -150.0},
    Row{"pv", {0.006666666666666667, 240.0, 500.0}, -59777.14585118802},
    Row{"pv", {1e-15, 1000000.0, -1.0}, 999999.9994999995},
    Row{"pv", {0.07, 30.0, -1000.0, -5000.0, 1.0}, 13934.509652124218},
    Row{"pv", {-0.9, 5.0, 100.0}, -11111000.000000011},
    Row{"pv", {0.1, 20000.0, -100.0}, 1000.0},
    Row{"fv", {0.005, 10.0, -200.0, -500.0, 1.0}, 2581.403374060179},
    Row{"fv", {1e-10, 1000000000.0, -1.0}, 1051709180.7012177},
    Row{"fv", {1e-17, 12.0, -1.0, -1.0}, 13.0},
    Row{"fv", {0.009166666666666667, 35.0, -2000.0, 0.0, 1.0}, 82846.24637189951},
    Row{"fv", {-0.3, 6.0, 10.0, 20.0}, -31.764680000000002},
    Row{"nper", {0.01, -100.0, -1000.0, 10000.0, 1.0}, 59.673865674294625},
    Row{"nper", {1e-14, -1.0, 1000.0}, 1000.000000005005},
    Row{"nper", {0.01, -100.0, 1000.0}, 10.588644459423236},
    Row{"nper", {0.0, -50.0, 1000.0, 200.0}, 24.0},
    Row{"nper", {-0.01, -20.0, 1000.0}, 40.34343866895794},
    Row{"ipmt", {0.008333333333333333, 1.0, 36.0, 8000.0}, -66.66666666666667},
    Row{"ipmt", {0.008333333333333333, 36.0, 36.0, 8000.0}, -2.1333677483528914},
    Row{"ipmt", {0.1, 3.0, 3.0, 8000.0}, -292.4471299093656},
    Row{"ipmt", {0.008333333333333333, 2.0, 36.0, 8000.0, 0.0, 1.0}, -64.53329891831378},
    Row{"ipmt", {0.008333333333333333, 1.0, 36.0, 8000.0, 0.0, 1.0}, 0.0},
    Row{"ipmt", {1e-12, 200.0, 360.0, 100000.0}, -4.4722222226672085e-08},
};

struct RateRow {
  std::vector<double> arguments;
  double expected;
};

const std::vector<RateRow> kRates{
    RateRow{{48.0, -200.0, 8000.0}, 0.007701472488202044},
    RateRow{{12.0, -100.0, 1000.0}, 0.029228540769133695},
    RateRow{{360.0, -1500.0, 200000.0}, 0.006859981484458229},
    RateRow{{10.0, -200.0, 1000.0, 500.0}, 0.11052393324207277},
    RateRow{{4.0, -300.0, 1000.0, 0.0, 1.0}, 0.13700914959534716},
    RateRow{{24.0, -41.7, 1000.0}, 6.398430686849415e-05},
    RateRow{{5.0, -100.0, 1000.0}, -0.19401852018873172},
    RateRow{{1.0, -1100.0, 1000.0}, 0.1},
    RateRow{{3.0, 0.0, -100.0, 200.0}, 0.2599210498948732},
    RateRow{{12.0, 100.0, -1200.0001}, -1.2820512050255435e-08},
    RateRow{{2.0, -3000.0, 1000.0}, 2.79128784747792},
};

TEST(Financial, values_agree_with_the_annuity_equation_to_full_precision) {
  for (const Row& row : kRows) {
    ExpectClose(Try(row.name, row.arguments), row.expected,
                std::string(row.name) + " rate " + std::to_string(row.arguments[0]));
  }
}

TEST(Financial, rates_agree_with_the_annuity_equation) {
  for (const RateRow& row : kRates) {
    // Rounding the amounts alone moves a rate by as much.
    const Trapped rate = Try("rate", row.arguments);
    EXPECT_TRUE(rate.Ok());
    EXPECT_NEAR(rate.Get(), row.expected, 1e-12 * std::abs(row.expected) + 1e-17);
  }
}

TEST(Financial, the_rate_of_an_annuity_without_interest_is_0) {
  EXPECT_EQ(Try("rate", {12, -100, 1200}).Get(), 0);
}

TEST(Financial, rates_are_found_from_poor_guesses_too) {
  for (const double guess : {-2.0, -0.99, -0.5, 0.0, 1e-9, 0.5, 5.0, 1000.0, 1e300}) {
    ExpectClose(Try("rate", {48, -200, 8000, 0, 0, guess}), 0.007701472488202044, std::to_string(guess),
                1e-10);
  }
}

TEST(Financial, an_equation_without_a_rate_is_undefined) {
  const ErrorPair undefined{StandardError::None, CustomError::UndefinedValue};
  EXPECT_EQ(Try("rate", {12, 100, 1000}).Error(), undefined);
  EXPECT_EQ(Try("rate", {12, 0, 0}).Error(), ErrorPair{});  // every rate solves it
  EXPECT_EQ(Try("rate", {12, 0, 1000, 1000}).Error(), undefined);
}

TEST(Financial, any_due_flag_but_0_moves_payments_to_the_beginning) {
  const double atBeginning = Try("pmt", {0.05, 10, 1000, 0, 1}).Get();
  for (const double due : {2.0, -1.0, 0.5, 1e300})
    EXPECT_EQ(Try("pmt", {0.05, 10, 1000, 0, due}).Get(), atBeginning);
  EXPECT_NE(Try("pmt", {0.05, 10, 1000, 0, 0}).Get(), atBeginning);
}

TEST(Financial, parts_of_each_payment_add_up_and_pay_the_loan_off) {
  for (const double due : {0.0, 1.0}) {
    const double payment = Try("pmt", {0.01, 24, 5000, -700, due}).Get();
    double principal = 0;
    for (double period = 1; period <= 24; ++period) {
      const double interest = Try("ipmt", {0.01, period, 24, 5000, -700, due}).Get();
      const double part = Try("ppmt", {0.01, period, 24, 5000, -700, due}).Get();
      EXPECT_NEAR(interest + part, payment, 1e-10);
      principal += part;
    }
    if (due == 0) {
      EXPECT_NEAR(principal, -4300, 1e-9);
    }
  }
}

TEST(Financial, errors_outside_the_domain) {
  constexpr auto kInvalid = StandardError::InvalidCall;
  constexpr auto kOverflow = StandardError::Overflow;
  constexpr auto kDivision = StandardError::DivisionByZero;
  struct Case {
    const char* name;
    std::vector<double> arguments;
    StandardError error;
  };
  const std::vector<Case> cases{
      {"sln", {1000, 100, 0}, kDivision},        {"sln", {1e308, -1e308, 1}, kOverflow},
      {"syd", {1000, 100, 5, 0.5}, kInvalid},    {"syd", {1000, 100, 5, 5.5}, kInvalid},
      {"syd", {1000, 100, -5, 1}, kInvalid},     {"pmt", {0, 0, 1000}, kDivision},
      {"pmt", {0.1, 0, 1000}, kDivision},        {"pmt", {-1, 12, 1000, 0, 1}, kDivision},
      {"pmt", {-1, -12, 1000}, kDivision},       {"pmt", {-1.5, 2.5, 1000}, kInvalid},
      {"pv", {-1, 12, 100}, kDivision},          {"pv", {-0.9, 1000, 100}, kOverflow},
      {"fv", {0.1, 1e6, -1}, kOverflow},         {"fv", {-1, -1, -1}, kDivision},
      {"nper", {0, 0, 1000}, kDivision},         {"nper", {0.1, -100, 1000}, kDivision},
      {"nper", {0.1, -50, 1000}, kInvalid},      {"nper", {-1, -50, 1000}, kInvalid},
      {"nper", {-2, -50, 1000}, kInvalid},       {"rate", {0, -50, 1000}, kInvalid},
      {"rate", {-12, -50, 1000}, kInvalid},      {"ipmt", {0.1, 0.5, 12, 1000}, kInvalid},
      {"ipmt", {0.1, 12.5, 12, 1000}, kInvalid}, {"ppmt", {0.1, 0, 12, 1000}, kInvalid},
      {"ppmt", {0.1, 13, 12, 1000}, kInvalid},
  };
  for (const Case& given : cases) {
    EXPECT_EQ(Try(given.name, given.arguments).Error(), (ErrorPair{given.error, CustomError::None}))
        << given.name << ' ' << given.arguments[0] << ' ' << given.arguments[1];
  }
}

TEST(Financial, edges_of_the_domain_have_values) {
  EXPECT_EQ(Try("pmt", {-1, 12, 1000, 50}).Get(), -50);    // nothing is left of the loan
  EXPECT_EQ(Try("fv", {-1, 12, -100, -5000}).Get(), 100);  // nor of the savings but the last payment
  ExpectClose(Try("fv", {-2, 3, 0, 1}), 1, "rate -2");     // (-1)^3
  EXPECT_EQ(Try("syd", {1000, 100, 5, 5}).Get(), 60);
  EXPECT_EQ(Try("sln", {1000, 100, -9}).Get(), -100);
  ExpectClose(Try("ppmt", {0.1, 12, 12, 1000}), -133.42119559, "last period", 1e-9);
}

TEST(Financial, nothing_hangs_or_gives_an_infinity) {
  const std::vector<double> numbers{0, 1e-300, 1e-17, 0.1, 1, 12, 1e9, 1e300, -1e-17, -0.5, -1, -2, -1e300};
  for (const char* name : {"nper", "pmt", "pv", "fv", "rate"}) {
    for (const double a : numbers) {
      for (const double b : numbers) {
        for (const double c : numbers) EXPECT_TRUE(std::isfinite(Try(name, {a, b, c}).Get())) << name;
      }
    }
  }
}

}  // namespace
}  // namespace plotvane::functions
