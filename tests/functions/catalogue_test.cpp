// Focus: the table of all built-in names, walked from the first to the last.
#include "functions/catalogue.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <map>
#include <vector>

#include "functions/compute.h"
#include "functions/plain.h"
#include "functions/unary_formulas.h"

namespace plotvane::functions {
namespace {

using platform::StandardError;
using platform::Value;
using Numbers = std::vector<double>;

constexpr ErrorPair Standard(StandardError error) {
  return {error, CustomError::None};
}
constexpr ErrorPair Custom(CustomError error) {
  return {StandardError::None, error};
}

constexpr auto kInvalid = Standard(StandardError::InvalidCall);
constexpr auto kOverflow = Standard(StandardError::Overflow);
constexpr auto kDivision = Standard(StandardError::DivisionByZero);
constexpr auto kMismatch = Standard(StandardError::TypeMismatch);
constexpr auto kUndefined = Custom(CustomError::UndefinedValue);

std::vector<Value> Values(const Numbers& numbers) {
  std::vector<Value> values;
  for (const double number : numbers) values.emplace_back(number);
  return values;
}

Trapped Try(std::string_view name, const Numbers& arguments, AngleMode mode = AngleMode::Degrees) {
  const Function* function = FindFunction(name);
  EXPECT_NE(function, nullptr) << name;
  return Compute(*function, mode, Values(arguments));
}

double Of(std::string_view name, const Numbers& arguments, AngleMode mode = AngleMode::Degrees) {
  const Trapped result = Try(name, arguments, mode);
  EXPECT_TRUE(result.Ok()) << name;
  return result.Get();
}

void ExpectNear(double actual, double expected, std::string_view name) {
  EXPECT_NEAR(actual, expected, 4e-14 * std::max(1.0, std::abs(expected))) << name;
}

// One row per name that is no calculus operation, angles in degrees: a known value, and what lies outside the
// domain (no arguments: every number is inside; a text that is no number must then fail).
struct Known {
  std::string_view name;
  Numbers arguments;
  double value;
  Numbers outside;
  ErrorPair error;
};

const std::vector<Known> kKnown{
    {"abs", {-3}, 3, {}, kMismatch},
    {"exp", {1}, 2.718281828459045, {710}, kOverflow},
    {"fix", {-2.7}, -2, {}, kMismatch},
    {"int", {-2.7}, -3, {}, kMismatch},
    {"log", {100}, 2, {0}, kInvalid},
    {"log10", {1000}, 3, {-1}, kInvalid},
    {"ln", {10}, 2.302585092994046, {0}, kInvalid},
    {"rnd", {-1}, 0.2240070104598999, {1e39}, kOverflow},
    {"random", {0}, 0, {1e300}, kOverflow},
    {"randomint", {1}, 0, {-1e308, 1e308}, kOverflow},
    {"sgn", {-0.5}, -1, {}, kMismatch},
    {"sqr", {2}, 1.4142135623730951, {-5e-324}, kInvalid},
    {"factorial", {5}, 120, {171}, kOverflow},
    {"degrees", {1}, 57.29577951308232, {}, kMismatch},
    {"radians", {180}, 3.141592653589793, {}, kMismatch},
    {"getdecimal", {-2.75}, -0.75, {}, kMismatch},
    {"sin", {30}, 0.5, {}, kMismatch},
    {"cos", {60}, 0.5, {}, kMismatch},
    {"tan", {45}, 1, {90}, kUndefined},
    {"sec", {60}, 2, {}, kMismatch},
    {"csc", {30}, 2, {0}, kDivision},
    {"ctn", {45}, 1, {0}, kDivision},
    {"cot", {45}, 1, {0}, kDivision},
    {"asin", {0.5}, 30, {1.0000000000000002}, kInvalid},
    {"acos", {0.5}, 60, {-1}, kDivision},
    {"atan", {1}, 45, {}, kMismatch},
    {"asec", {2}, 139.10660535086907, {0.5}, kInvalid},
    {"acsc", {2}, 30, {1}, kDivision},
    {"actn", {1}, 135, {}, kMismatch},
    {"acot", {1}, 135, {}, kMismatch},
    {"atn", {1}, 45, {}, kMismatch},
    {"sinh", {1}, 1.1752011936438014, {711}, kOverflow},
    {"cosh", {1}, 1.5430806348152437, {-711}, kOverflow},
    {"tanh", {1}, 0.7615941559557649, {711}, kOverflow},
    {"sech", {1}, 0.6480542736638855, {711}, kOverflow},
    {"csch", {1}, 0.8509181282393216, {0}, kDivision},
    {"ctnh", {1}, 1.3130352854993312, {0}, kDivision},
    {"coth", {1}, 1.3130352854993312, {0}, kDivision},
    {"arcsinh", {1}, 0.881373587019543, {1e200}, kOverflow},
    {"arccosh", {2}, 1.3169578969248166, {0.999}, kInvalid},
    {"arctanh", {0.5}, 0.5493061443340549, {1}, kDivision},
    {"arcsech", {0.5}, 1.3169578969248166, {0}, kDivision},
    {"arccsch", {1}, 0.881373587019543, {0}, kDivision},
    {"arcctnh", {2}, 0.5493061443340549, {1}, kDivision},
    {"arccoth", {2}, 0.5493061443340549, {0.5}, kInvalid},
    {"logn", {8, 2}, 3, {2, 1}, kDivision},
    {"ncr", {5, 2}, 10, {171, 1}, kOverflow},
    {"npr", {5, 2}, 20, {40000, 1}, kOverflow},
    {"gcf", {12, 18}, 6, {1, 0}, kDivision},
    {"gcd", {12, 18}, 6, {1, 0}, kDivision},
    {"lcm", {4, 6}, 12, {1, 0}, kDivision},
    {"decimalmod", {-7.5, 2}, -1.5, {1, 0}, kDivision},
    {"round", {2.567, 2}, 2.57, {1, 400}, kDivision},
    {"rgb", {0, 0, 255}, 16711680, {32768, 0, 0}, kOverflow},
    {"sln", {1000, 100, 9}, 100, {1000, 100, 0}, kDivision},
    {"nper", {0, -50, 1000}, 20, {-1, -100, 1000}, kInvalid},
    {"pmt", {0.01, 12, 1000}, -88.8487886783417, {0.1, 0, 1}, kDivision},
    {"pv", {0.1, 20000, -100}, 1000, {-1, 1, 1}, kDivision},
    {"fv", {0.5, 2, -1}, 2.5, {0.1, 100000, 1}, kOverflow},
    {"rate", {1, -1100, 1000}, 0.1, {12, 100, 1000}, kUndefined},
    {"syd", {1000, 100, 5, 1}, 300, {1000, 100, 5, 6}, kInvalid},
    {"ipmt", {0.1, 1, 2, 2100}, -210, {0.1, 0, 2, 2100}, kInvalid},
    {"ppmt", {0.1, 1, 2, 2100}, -1000, {0.1, 3, 2, 2100}, kInvalid},
};

TEST(Catalogue, names_stand_in_the_order_in_which_they_are_tested) {
  const std::vector<std::string_view> expected{"definiteintegral",
                                               "di",
                                               "derivative",
                                               "der",
                                               "nderivative",
                                               "nder",
                                               "sigmasum",
                                               "ss",
                                               "abs",
                                               "exp",
                                               "fix",
                                               "int",
                                               "log",
                                               "log10",
                                               "ln",
                                               "rnd",
                                               "random",
                                               "randomint",
                                               "sgn",
                                               "sqr",
                                               "factorial",
                                               "degrees",
                                               "radians",
                                               "getdecimal",
                                               "sin",
                                               "cos",
                                               "tan",
                                               "sec",
                                               "csc",
                                               "ctn",
                                               "cot",
                                               "asin",
                                               "acos",
                                               "atan",
                                               "asec",
                                               "acsc",
                                               "actn",
                                               "acot",
                                               "atn",
                                               "sinh",
                                               "cosh",
                                               "tanh",
                                               "sech",
                                               "csch",
                                               "ctnh",
                                               "coth",
                                               "arcsinh",
                                               "arccosh",
                                               "arctanh",
                                               "arcsech",
                                               "arccsch",
                                               "arcctnh",
                                               "arccoth",
                                               "logn",
                                               "ncr",
                                               "npr",
                                               "gcf",
                                               "gcd",
                                               "lcm",
                                               "decimalmod",
                                               "round",
                                               "rgb",
                                               "sln",
                                               "nper",
                                               "pmt",
                                               "pv",
                                               "fv",
                                               "rate",
                                               "syd",
                                               "ipmt",
                                               "ppmt"};
  std::vector<std::string_view> actual;
  for (const Function& function : kCatalogue) actual.push_back(function.name);
  EXPECT_EQ(actual, expected);
}

TEST(Catalogue, every_name_is_found_in_any_case_and_no_other_is) {
  for (const Function& function : kCatalogue) {
    EXPECT_EQ(FindFunction(function.name), &function);
    std::string upper(function.name);
    for (char& character : upper)
      character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    EXPECT_EQ(FindFunction(upper), &function);
    EXPECT_EQ(FindFunction(upper + "x"), nullptr);
  }
  for (const std::string_view name : {"", "foo", "sqrt", "x", "definiteintegrals", "mod", "si\xC4\xB0n"}) {
    EXPECT_EQ(FindFunction(name), nullptr) << name;
  }
}

TEST(Catalogue, every_function_has_a_known_value) {
  std::size_t walked = 0;
  for (const Function& function : kCatalogue) {
    if (function.IsCalculus()) continue;
    ASSERT_LT(walked, kKnown.size());
    const Known& known = kKnown[walked++];
    ASSERT_EQ(known.name, function.name);
    ExpectNear(Of(known.name, known.arguments), known.value, known.name);
  }
  EXPECT_EQ(walked, kKnown.size());
}

TEST(Catalogue, every_function_fails_outside_its_domain_with_its_own_error) {
  for (const Known& known : kKnown) {
    const Function& function = *FindFunction(known.name);
    std::vector<Value> arguments = Values(known.outside);
    if (known.outside.empty()) arguments.assign(function.least, Value("x"));
    const Trapped result = Compute(function, AngleMode::Degrees, arguments);
    EXPECT_FALSE(result.Ok()) << known.name;
    EXPECT_EQ(result.Error(), known.error) << known.name;
  }
}

TEST(Catalogue, every_function_refuses_texts_and_takes_booleans_as_minus_one_and_zero) {
  for (const Known& known : kKnown) {
    const Function& function = *FindFunction(known.name);
    for (std::size_t wrong = 0; wrong < known.arguments.size(); ++wrong) {
      std::vector<Value> arguments = Values(known.arguments);
      arguments[wrong] = Value("1x");
      EXPECT_EQ(Compute(function, AngleMode::Radians, arguments).Error(), kMismatch) << known.name;
    }
  }
  EXPECT_EQ(Compute(*FindFunction("abs"), AngleMode::Radians, std::vector{Value(true)}).Get(), 1);
  EXPECT_EQ(Compute(*FindFunction("cos"), AngleMode::Radians, std::vector{Value(false)}).Get(), 1);
  EXPECT_EQ(Compute(*FindFunction("exp"), AngleMode::Radians, std::vector{Value()}).Get(), 1);
  EXPECT_EQ(Compute(*FindFunction("sqr"), AngleMode::Radians, std::vector{Value(" 9 ")}).Get(), 3);
}

TEST(Catalogue, every_function_refuses_wrong_counts) {
  for (const Function& function : kCatalogue) {
    EXPECT_EQ(CheckCount(function, function.least - 1U), Custom(CustomError::MissingArguments))
        << function.name;
    EXPECT_EQ(CheckCount(function, 0), Custom(CustomError::MissingArguments)) << function.name;
    EXPECT_EQ(CheckCount(function, function.most + 1U), Custom(CustomError::TooManyArguments))
        << function.name;
    EXPECT_EQ(CheckCount(function, 1000), Custom(CustomError::TooManyArguments)) << function.name;
    for (std::size_t count = function.least; count <= function.most; ++count) {
      EXPECT_TRUE(CheckCount(function, count).None()) << function.name;
    }
  }
}

TEST(Catalogue, every_function_takes_each_number_of_arguments_it_allows) {
  for (const Known& known : kKnown) {
    const Function& function = *FindFunction(known.name);
    Numbers arguments = known.arguments;
    if (known.name == "rate") arguments = {12, -100, 1000};
    while (arguments.size() < function.most) {
      arguments.push_back(0);
      EXPECT_TRUE(Try(known.name, arguments).Ok()) << known.name << ' ' << arguments.size();
    }
  }
}

// Each name on the left side, made from others on the right side. Radians.
struct Identity {
  std::string_view name;
  std::function<double()> left;
  std::function<double()> right;
};

double R(std::string_view name, const Numbers& arguments) {
  return Of(name, arguments, AngleMode::Radians);
}

const std::vector<Identity> kIdentities{
    {"abs", [] { return R("abs", {-2.5}); }, [] { return R("sqr", {6.25}); }},
    {"exp", [] { return R("exp", {3}); }, [] { return R("exp", {1}) * R("exp", {2}); }},
    {"fix", [] { return R("fix", {-7.3}); }, [] { return -R("int", {7.3}); }},
    {"int", [] { return R("int", {7.3}); }, [] { return 7.3 - R("getdecimal", {7.3}); }},
    {"log", [] { return R("log", {50}); }, [] { return R("log", {5}) + 1; }},
    {"log10", [] { return R("log10", {7}); }, [] { return R("log", {7}); }},
    {"ln", [] { return R("ln", {R("exp", {2.5})}); }, [] { return 2.5; }},
    {"rnd", [] { return R("rnd", {-3}); }, [] { return R("rnd", {0}); }},
    {"random",
     [] {
       R("rnd", {-1});
       return R("random", {8});
     },
     [] {
       R("rnd", {-1});
       return 8 * R("rnd", {1});
     }},
    {"randomint",
     [] {
       R("rnd", {-1});
       return R("randomint", {6, 1});
     },
     [] {
       R("rnd", {-1});
       return R("int", {1 + 6 * R("rnd", {1})});
     }},
    {"sgn", [] { return R("sgn", {-9}); }, [] { return -9 / R("abs", {-9}); }},
    {"sqr", [] { return R("sqr", {7}) * R("sqr", {7}); }, [] { return 7.0; }},
    {"factorial", [] { return R("factorial", {9}); }, [] { return 9 * R("factorial", {8}); }},
    {"degrees", [] { return R("degrees", {R("radians", {123})}); }, [] { return 123.0; }},
    {"radians", [] { return R("radians", {483}); }, [] { return R("radians", {123}); }},
    {"getdecimal", [] { return R("getdecimal", {-5.25}); },
     [] {
       return R("decimalmod", {-5.25, 1});
     }},
    {"sin", [] { return R("sin", {0.7}) * R("sin", {0.7}); },
     [] { return 1 - R("cos", {0.7}) * R("cos", {0.7}); }},
    {"cos", [] { return R("cos", {2 * 0.7}); }, [] { return 1 - 2 * R("sin", {0.7}) * R("sin", {0.7}); }},
    {"tan", [] { return R("tan", {0.7}); }, [] { return R("sin", {0.7}) / R("cos", {0.7}); }},
    {"sec", [] { return R("sec", {0.7}) * R("cos", {0.7}); }, [] { return 1.0; }},
    {"csc", [] { return R("csc", {0.7}) * R("sin", {0.7}); }, [] { return 1.0; }},
    {"ctn", [] { return R("ctn", {0.7}) * R("tan", {0.7}); }, [] { return 1.0; }},
    {"cot", [] { return R("cot", {0.3}); }, [] { return R("ctn", {0.3}); }},
    {"asin", [] { return R("asin", {R("sin", {0.7})}); }, [] { return 0.7; }},
    {"acos", [] { return R("acos", {R("cos", {0.7})}); }, [] { return 0.7; }},
    {"atan", [] { return R("atan", {R("tan", {0.7})}); }, [] { return 0.7; }},
    {"asec", [] { return R("asec", {1.5}); },
     [] { return R("atan", {1.5 / R("sqr", {1.25})}) + 2 * R("atan", {1}); }},
    {"acsc", [] { return R("acsc", {1.5}); }, [] { return R("asin", {1 / 1.5}); }},
    {"actn", [] { return R("actn", {0.4}); }, [] { return R("atan", {0.4}) + 2 * R("atan", {1}); }},
    {"acot", [] { return R("acot", {-2}); }, [] { return R("actn", {-2}); }},
    {"atn", [] { return R("atn", {-0.3}); }, [] { return R("atan", {-0.3}); }},
    {"sinh", [] { return R("sinh", {1.2}) + R("cosh", {1.2}); }, [] { return R("exp", {1.2}); }},
    {"cosh", [] { return R("cosh", {1.2}) - R("sinh", {1.2}); }, [] { return R("exp", {-1.2}); }},
    {"tanh", [] { return R("tanh", {1.2}); }, [] { return R("sinh", {1.2}) / R("cosh", {1.2}); }},
    {"sech", [] { return R("sech", {1.2}) * R("cosh", {1.2}); }, [] { return 1.0; }},
    {"csch", [] { return R("csch", {1.2}) * R("sinh", {1.2}); }, [] { return 1.0; }},
    {"ctnh", [] { return R("ctnh", {1.2}) * R("tanh", {1.2}); }, [] { return 1.0; }},
    {"coth", [] { return R("coth", {-0.4}); }, [] { return R("ctnh", {-0.4}); }},
    {"arcsinh", [] { return R("arcsinh", {R("sinh", {1.2})}); }, [] { return 1.2; }},
    {"arccosh", [] { return R("arccosh", {R("cosh", {1.2})}); }, [] { return 1.2; }},
    {"arctanh", [] { return R("arctanh", {R("tanh", {1.2})}); }, [] { return 1.2; }},
    {"arcsech", [] { return R("arcsech", {R("sech", {1.2})}); }, [] { return 1.2; }},
    {"arccsch", [] { return R("arccsch", {R("csch", {1.2})}); }, [] { return 1.2; }},
    {"arcctnh", [] { return R("arcctnh", {R("ctnh", {1.2})}); }, [] { return 1.2; }},
    {"arccoth", [] { return R("arccoth", {3}); }, [] { return R("arcctnh", {3}); }},
    {"logn",
     [] {
       return R("logn", {7, 3}) * R("ln", {3});
     },
     [] { return R("ln", {7}); }},
    {"ncr",
     [] {
       return R("ncr", {9, 4});
     },
     [] {
       return R("ncr", {8, 3}) + R("ncr", {8, 4});
     }},
    {"npr",
     [] {
       return R("npr", {9, 4});
     },
     [] {
       return R("ncr", {9, 4}) * R("factorial", {4});
     }},
    {"gcf",
     [] {
       return R("gcf", {84, 30});
     },
     [] {
       return R("gcf", {30, 24});
     }},
    {"gcd",
     [] {
       return R("gcd", {84, 30});
     },
     [] {
       return R("gcf", {84, 30});
     }},
    {"lcm",
     [] {
       return R("lcm", {84, 30}) * R("gcf", {84, 30});
     },
     [] { return 84.0 * 30; }},
    {"decimalmod",
     [] {
       return R("decimalmod", {17.25, 5});
     },
     [] { return 17.25 - 5 * R("fix", {17.25 / 5}); }},
    {"round", [] { return R("round", {-7.5}); }, [] { return R("int", {-7.5 + 0.5}); }},
    {"rgb",
     [] {
       return R("rgb", {1, 2, 3});
     },
     [] {
       return R("rgb", {1, 0, 0}) + 2 * 256 + 3 * 65536;
     }},
    {"sln",
     [] {
       return R("sln", {1000, 100, 5}) * 5;
     },
     [] { return 900.0; }},
    {"nper",
     [] {
       return R("nper", {0.01, R("pmt", {0.01, 18, 1000}), 1000});
     },
     [] { return 18.0; }},
    {"pmt",
     [] {
       return R("pmt", {0.05, 1, 1000});
     },
     [] { return -1050.0; }},
    {"pv",
     [] {
       return R("pv", {0.05, 8, R("pmt", {0.05, 8, 1000, -300, 1}), -300, 1});
     },
     [] { return 1000.0; }},
    {"fv",
     [] {
       return R("fv", {0.05, 8, R("pmt", {0.05, 8, 1000, -300, 1}), 1000, 1});
     },
     [] { return -300.0; }},
    {"rate",
     [] {
       return R("rate", {8, R("pmt", {0.05, 8, 1000}), 1000});
     },
     [] { return 0.05; }},
    {"syd",
     [] {
       double sum = 0;
       for (const double period : {1.0, 2.0, 3.0, 4.0}) sum += R("syd", {1000, 100, 4, period});
       return sum;
     },
     [] { return 900.0; }},
    {"ipmt",
     [] {
       return R("ipmt", {0.05, 1, 8, 1000});
     },
     [] { return -0.05 * 1000; }},
    {"ppmt",
     [] {
       double sum = 0;
       for (const double period : {1.0, 2.0, 3.0, 4.0}) sum += R("ppmt", {0.05, period, 4, 1000});
       return sum;
     },
     [] { return -1000.0; }},
};

TEST(Catalogue, every_function_satisfies_an_identity) {
  ASSERT_EQ(kIdentities.size(), kKnown.size());
  for (std::size_t i = 0; i < kIdentities.size(); ++i) {
    const Identity& identity = kIdentities[i];
    EXPECT_EQ(identity.name, kKnown[i].name);
    const double left = identity.left();
    ExpectNear(left, identity.right(), identity.name);
  }
}

// The functions of one real number as the compiled programs run them.
struct PlainForms {
  using Form = double (*)(double);
  std::map<Operation, Form> radians;
  std::map<Operation, Form> degrees;

  template <AngleRule kRule, auto kFormula>
  void Make(Operation operation) {
    radians[operation] = &Apply<WithAngles<kRule, AngleMode::Radians, kFormula>>;
    degrees[operation] = &Apply<WithAngles<kRule, AngleMode::Degrees, kFormula>>;
  }

  template <class Formula>
  static double Apply(double x) {
    return Formula::template Apply<Plain<WholeRangeKernels>>(x).Get();
  }
};

TEST(Catalogue, plain_forms_have_the_bits_of_the_trapped_ones_and_fail_with_them) {
  Numbers arguments{-1e300, -1e155, -1000, -720,   -400,
                    -90,    -3.5,   -1,    -0.5,   -1e-300,
                    0,      1e-300, 0.25,  0.5,    1,
                    45,     90,     180,   270,    709,
                    710,    745,    1e155, 1e300,  1.5707963267948950,
                    1e-310, 1e22,   -0.0,  823549, 4.712388980384685};
  // Around each quarter of the first three turns, and beyond what a kernel reduces by itself.
  for (int quarter = 1; quarter <= 12; ++quarter) {
    const double angle = quarter * (formulas::kPi / 2);
    for (const double x : {std::nextafter(angle, 0), angle, std::nextafter(angle, 100)}) {
      arguments.push_back(x);
      arguments.push_back(-x);
    }
  }
  PlainForms plain;
  ForEachUnary(plain);
  for (const Function& function : kCatalogue) {
    if (!plain.radians.contains(function.operation)) continue;
    for (const AngleMode mode : {AngleMode::Radians, AngleMode::Degrees}) {
      const PlainForms::Form form =
          (mode == AngleMode::Degrees ? plain.degrees : plain.radians).at(function.operation);
      for (const double x : arguments) {
        const Trapped exact = Compute(function, mode, Values({x}));
        const double result = form(x);
        EXPECT_EQ(std::isfinite(result), exact.Ok()) << function.name << ' ' << x;
        if (exact.Ok()) {
          EXPECT_EQ(std::bit_cast<std::uint64_t>(result), std::bit_cast<std::uint64_t>(exact.Get()))
              << function.name << ' ' << x;
        }
      }
    }
  }
}

TEST(Catalogue, call_forms_put_optional_arguments_in_brackets) {
  EXPECT_EQ(CallForm(*FindFunction("sin")), "sin(x)");
  EXPECT_EQ(CallForm(*FindFunction("round")), "round(x [, places])");
  EXPECT_EQ(CallForm(*FindFunction("pmt")), "pmt(rate, nper, pv [, fv [, due]])");
  EXPECT_EQ(CallForm(*FindFunction("nder")), "nder(n, expression, variable, x [, h])");
  EXPECT_EQ(CallForm(*FindFunction("rgb")), "rgb(red, green, blue)");
}

}  // namespace
}  // namespace plotvane::functions
