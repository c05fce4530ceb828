// Bounds: the one limit of nesting in every form and build, the stack it takes, long texts, and damaged ones.
#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "tests/engine/calculator.h"
#include "tests/engine/small_stack.h"

namespace plotvane::engine::test {
namespace {

constexpr int kMostLevels = 1024;
constexpr std::size_t kHalfOfSmallestStack = 512 * 1024;
constexpr const char* kTooDeep = "error 28: Out of stack space";

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// `opening` and `closing` nest a level each; the whole statement is one level too.
struct Nesting {
  const char* opening;
  const char* core;
  const char* closing;
  const char* expected;
};

constexpr Nesting kNestings[] = {
    {"(", "7", ")", "7"},           {"- ", "7", "", "-7"},       {"+ ", "7", "", "7"},
    {"not ", "7", "", "-8"},        {"x=", "7", "", "7"},        {"abs(", "7", ")", "7"},
    {"di(", "7", ",k,0,1,1)", "7"}, {"round(7,", "0", ")", "7"},
};

std::string Nested(const Nesting& nesting, int count) {
  return Times(count, nesting.opening) + nesting.core + Times(count, nesting.closing);
}

TEST(Nesting, exactly_1024_levels_are_accepted_in_every_form) {
  for (const Nesting& nesting : kNestings) {
    const int perOpening = std::string(nesting.opening) == "1+(" ? 2 : 1;
    const int most = (kMostLevels - 1) / perOpening;
    Calculator calculator;
    EXPECT_EQ(calculator.Report(Nested(nesting, most)), nesting.expected) << nesting.opening;
    EXPECT_EQ(calculator.Report(Nested(nesting, most + 1)), kTooDeep) << nesting.opening;
    EXPECT_EQ(calculator.Record(Nested(nesting, most)), nesting.expected) << nesting.opening;
    EXPECT_EQ(calculator.Replay(), nesting.expected) << nesting.opening;
  }
}

TEST(Nesting, mixed_forms_count_alike) {
  Calculator calculator;
  const auto mixed = [](int brackets) {
    return "abs(-ss(" + Times(brackets, "(") + "k" + Times(brackets, ")") + ",k,1,2))";
  };
  // The statement, the argument, the sign and the line of the private object are four levels.
  EXPECT_EQ(calculator.Report(mixed(kMostLevels - 4)), "3");
  EXPECT_EQ(calculator.Report(mixed(kMostLevels - 3)), kTooDeep);
}

TEST(Nesting, a_recorded_argument_that_is_never_evaluated_may_be_as_deep_as_it_likes) {
  Calculator calculator;
  EXPECT_EQ(calculator.Report("ss(" + Times(5000, "(") + "k" + Times(5000, ")") + ",k,3,1)"), "0");
  EXPECT_EQ(calculator.Report("ss(" + Times(5000, "(") + "k" + Times(5000, ")") + ",k,1,1)"), kTooDeep);
}

TEST(Nesting, far_too_deep_texts_end_as_error_28) {
  Calculator calculator;
  for (const char* opening : {"(", "[", "-", "not ", "abs(", "x=", "ss(", "2^-", "1+("}) {
    const std::string report = calculator.Report(Times(200000, opening));
    EXPECT_TRUE(report == kTooDeep || report == "error *1: Syntax error '--'" ||
                report == "error 6: Overflow")
        << opening << ' ' << report;
    EXPECT_EQ(calculator.Report("1+1"), "2");
  }
}

TEST(Nesting, the_deepest_expression_fits_into_half_a_mebibyte_of_stack) {
  for (const Nesting& nesting : kNestings) {
    std::string report;
    RunWithStack(kHalfOfSmallestStack, [&] {
      Calculator calculator;
      const int perOpening = std::string(nesting.opening) == "1+(" ? 2 : 1;
      report = calculator.Report(Nested(nesting, (kMostLevels - 1) / perOpening));
    });
    EXPECT_EQ(report, nesting.expected) << nesting.opening;
  }
}

TEST(Bounds, an_expression_of_a_mebibyte_is_evaluated_in_linear_time) {
  for (const char* piece : {"1+", "x=1;", "1;", "abs(1)+", "(1)*", "-1+"}) {
    Calculator calculator;
    std::string line;
    while (line.size() < (1U << 20U)) line += piece;
    line += "1";
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(calculator.Report(line).find("error"), std::string::npos) << piece;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5)) << piece;
  }
}

TEST(Bounds, very_long_names_numbers_and_lists) {
  Calculator calculator;
  const std::string name(100000, 'n');
  EXPECT_EQ(calculator.Report(name + "=3"), "3");
  EXPECT_EQ(calculator.Report(name), "3");
  EXPECT_EQ(calculator.Report("." + std::string(100000, '3')), "0.333333333333333");
  EXPECT_EQ(calculator.Report("0" + std::string(100000, '0') + "7"), "7");
  EXPECT_EQ(calculator.Report("abs(" + Times(100000, "1,") + "1)"), "error *5: Too many arguments.");
}

TEST(Bounds, nothing_is_stored_or_returned_that_is_not_finite) {
  Calculator calculator;
  for (const char* line : {"1e308*10", "-1e308*10", "x=1e308*10", "ss(1e308,k,1,9)", "exp(710)",
                           "1e308+1e308->x", "tan(pi/2)", "ln(0)", "0/0", "(-1)^.5", "1e308%*1e10"}) {
    EXPECT_NE(calculator.Report(line).find("error"), std::string::npos) << line;
  }
  EXPECT_EQ(calculator.Report("x"), "error *12: Undefined function or identifier.");
}

// Token soup: whatever is thrown at it, an evaluation ends with a result or a worded error, a recording
// replays, and the evaluation after it is unaffected.
TEST(Bounds, token_soup) {
  constexpr const char* kPieces[] = {
      "1",    "2.5",     "x",    "e",      "+",    "-",   "*",   "/",   "^",   "!",    "%",   "(",
      ")",    "[",       "]",    "{",      "}",    ",",   ";",   ":",   "=",   "->",   "=>",  "++",
      "--",   "<",       ">=",   "==",     "and",  "not", "mod", "imp", "sin", "abs(", "ss(", "der(x,",
      "di(",  "nder(2,", "k,",   "1,2)",   "&HF",  "&",   "&B2", ".",   "..",  " ",    "\t",  "é",
      "\xFF", "pi",      "True", "round(", "rnd(", "$",   "\\",  "ncr("};
  std::mt19937 random(20);
  std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
  std::uniform_int_distribution<int> length(1, 12);
  Calculator calculator;
  for (int round = 0; round < 20000; ++round) {
    std::string line;
    for (int i = length(random); i > 0; --i) line += std::string(kPieces[piece(random)]) + " ";
    const std::string report = calculator.Record(line);
    EXPECT_NE(report, "error 0:") << line;
    EXPECT_FALSE(report.starts_with("result not cleared")) << line;
    calculator.Replay();
    ASSERT_EQ(calculator.Report("(1+1)"), "2") << line;
  }
}

}  // namespace
}  // namespace plotvane::engine::test
