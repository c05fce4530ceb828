// clsStdErrObj: the catalogue's texts, recording, tolerance in graph mode.
#include <gtest/gtest.h>

#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

// A line that raises each custom error, and the text to the last character.
struct Raised {
  std::int32_t number;
  const char* line;
  const char* text;
};

constexpr Raised kRaised[] = {
    {1, "2 + * 3", "Syntax error '*'"},
    {2, "(1]", "Expected a match to '(', and got ']'"},
    {4, "ncr(5)", "Missing Argument(s)."},
    {5, "ncr(5,2,1)", "Too many arguments."},
    {6, "&B12", "Invalid base digits '12'"},
    {7, "&Y", "Invalid base specification '&y'"},
    {9, "pi=3", "Cannot store to id. The specified id name may be reserved for a constant."},
    {10, "1->2", "Cannot store to variable; a variable is not specified."},
    {11, "tan(pi/2)", "Undefined function value. Function is not defined at the specified value(s)."},
    {12, "unknown", "Undefined function or identifier."},
    {13, "ss(k,2,1,3)", "Expecting a variable name and got the unexpected input: '2'"},
    {14, "sin 2", "Syntax error. Expecting opening parenthesis but got: '2'"},
    {15, "sin(2;", "Syntax error. Expecting closing parenthesis but got: ';'"},
};

TEST(ErrorObject, every_custom_error_has_its_number_and_exact_text) {
  for (const bool graphMode : {false, true}) {
    Calculator calculator;
    clsStdErrObj& error = calculator.expression.ErrObj();
    error.GraphMode = graphMode;
    for (const Raised& row : kRaised) {
      if (graphMode && row.number == 9) continue;
      platform::Value result;
      EXPECT_FALSE(calculator.expression.Evaluate(row.line, result)) << row.line;
      EXPECT_EQ(error.CustomErrorNum, row.number) << row.line;
      EXPECT_EQ(error.StandardErrorNum, 0) << row.line;
      EXPECT_EQ(error.CustomErrorDescription, row.text);
      EXPECT_EQ(error.StandardErrorDescription, "");
      EXPECT_FALSE(error.WasOkGraphErr) << row.line;
    }
  }
}

TEST(ErrorObject, a_result_that_is_not_numeric_is_error_8) {
  Calculator calculator;
  calculator.expression.SetAcceptNumericResultOnly(true);
  EXPECT_EQ(calculator.Report("1;2"), "error *8: Result is not numeric. A numeric result is required.");
}

TEST(ErrorObject, error_3_is_in_the_catalogue_though_nothing_raises_it) {
  Calculator calculator;
  calculator.expression.ErrObj().GEP(0, 3);
  EXPECT_EQ(calculator.expression.ErrObj().CustomErrorDescription, "Undefined function.");
}

TEST(ErrorObject, numbers_outside_the_catalogue_have_one_text) {
  Calculator calculator;
  for (const std::int32_t number : {0, -1, 16, 1000}) {
    calculator.expression.ErrObj().GEP(0, number);
    EXPECT_EQ(calculator.expression.ErrObj().CustomErrorDescription,
              "There is no description for this error number.");
    EXPECT_EQ(calculator.expression.ErrObj().CustomErrorNum, number);
  }
}

TEST(ErrorObject, standard_errors_carry_the_platform_text_alone) {
  for (const auto& [line, number, text] : {std::tuple{"1/0", 11, "Division by zero"},
                                           {"sqr(-1)", 5, "Invalid procedure call or argument"},
                                           {"1e308*10", 6, "Overflow"}}) {
    Calculator calculator;
    platform::Value result;
    EXPECT_FALSE(calculator.expression.Evaluate(line, result));
    const clsStdErrObj& error = calculator.expression.ErrObj();
    EXPECT_EQ(error.StandardErrorNum, number);
    EXPECT_EQ(error.CustomErrorNum, 0);
    EXPECT_EQ(error.StandardErrorDescription, text);
    EXPECT_EQ(error.CustomErrorDescription, "");
  }
}

TEST(ErrorObject, both_texts_are_composed_when_both_numbers_are_set) {
  Calculator calculator;
  clsStdErrObj& error = calculator.expression.ErrObj();
  error.GEP(6, 4);
  EXPECT_EQ(error.CustomErrorDescription, "Missing Argument(s).");
  EXPECT_EQ(error.StandardErrorDescription, "Overflow");
}

TEST(ErrorObject, a_text_that_is_not_composed_keeps_what_it_was) {
  Calculator calculator;
  clsStdErrObj& error = calculator.expression.ErrObj();
  error.GEP(0, 4);
  error.GEP(6, 0);
  EXPECT_EQ(error.CustomErrorDescription, "Missing Argument(s).");
  error.GEP(0, 5);
  EXPECT_EQ(error.StandardErrorDescription, "Overflow");
}

TEST(ErrorObject, graph_mode_tolerates_errors_5_and_11_and_leaves_the_numbers_and_texts_before) {
  Calculator calculator;
  clsStdErrObj& error = calculator.expression.ErrObj();
  error.GEP(0, 4);
  error.GraphMode = true;
  for (const std::int32_t number : {5, 11}) {
    calculator.expression.SetErrorFlags(false, false);
    error.WasOkGraphErr = false;
    error.GEP(number, 0);
    EXPECT_TRUE(error.WasOkGraphErr);
    EXPECT_TRUE(calculator.expression.ErrorOccurred());
    EXPECT_TRUE(calculator.expression.ErrorAlreadySet());
    EXPECT_EQ(error.StandardErrorNum, 0);
    EXPECT_EQ(error.CustomErrorNum, 4);
    EXPECT_EQ(error.CustomErrorDescription, "Missing Argument(s).");
  }
}

TEST(ErrorObject, graph_mode_tolerates_custom_9_and_the_empty_pair_but_nothing_else) {
  clsStdErrObj error;
  EXPECT_FALSE(error.IsOkGraphErr(11, 0));
  error.GraphMode = true;
  EXPECT_TRUE(error.IsOkGraphErr(0, 9));
  EXPECT_TRUE(error.IsOkGraphErr(0, 0));
  EXPECT_TRUE(error.WasOkGraphErr);
  for (const std::int32_t number : {6, 7, 9, 13, 28, 91})
    EXPECT_FALSE(error.IsOkGraphErr(number, 0)) << number;
  for (const std::int32_t number : {1, 2, 4, 8, 10, 11, 12, 15})
    EXPECT_FALSE(error.IsOkGraphErr(0, number)) << number;
  EXPECT_FALSE(error.WasOkGraphErr);
}

TEST(ErrorObject, an_evaluation_in_graph_mode_fails_without_a_recorded_error) {
  Calculator calculator;
  calculator.expression.ErrObj().GraphMode = true;
  for (const char* line : {"1/0", "sqr(-1)", "pi=3"}) EXPECT_EQ(calculator.Report(line), "error 0:") << line;
  EXPECT_EQ(calculator.Report("1e308*10"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("1+1"), "2");
}

TEST(ErrorObject, clearing_leaves_graph_mode_and_its_last_answer) {
  Calculator calculator;
  clsStdErrObj& error = calculator.expression.ErrObj();
  error.GEP(6, 4);
  error.GraphMode = true;
  error.WasOkGraphErr = true;
  error.ClearLastErrors();
  EXPECT_EQ(error.StandardErrorNum, 0);
  EXPECT_EQ(error.CustomErrorNum, 0);
  EXPECT_EQ(error.CustomErrorDescription, "");
  EXPECT_EQ(error.StandardErrorDescription, "");
  EXPECT_FALSE(calculator.expression.ErrorOccurred());
  EXPECT_FALSE(calculator.expression.ErrorAlreadySet());
  EXPECT_TRUE(error.GraphMode);
  EXPECT_TRUE(error.WasOkGraphErr);
}

TEST(ErrorObject, without_an_owner_no_custom_text_is_composed) {
  clsStdErrObj error;
  error.GEP(6, 4);
  EXPECT_EQ(error.CustomErrorNum, 4);
  EXPECT_EQ(error.CustomErrorDescription, "");
  EXPECT_EQ(error.StandardErrorDescription, "Overflow");
  error.ClearLastErrors();
  EXPECT_EQ(error.StandardErrorNum, 0);
}

}  // namespace
}  // namespace plotvane::engine::test
