// clsExp: the members of the expression object, recording and replaying, a table that raises errors or calls
// back.
#include <gtest/gtest.h>

#include <tuple>

#include "tests/engine/calculator.h"
#include "tests/engine/host_table.h"

namespace plotvane::engine::test {
namespace {

using platform::Value;

TEST(ExpressionObject, a_new_one_is_decimal_in_radians_and_has_no_table) {
  const clsExp expression;
  EXPECT_EQ(expression.GetFormatMode(), "decimal");
  EXPECT_EQ(expression.GetFixedDecimalPlaces(), 0);
  EXPECT_TRUE(expression.GetRadianMode());
  EXPECT_FALSE(expression.GetDegreeMode());
  EXPECT_FALSE(expression.GetAcceptNumericResultOnly());
  EXPECT_EQ(expression.GetVarTable(), nullptr);
  EXPECT_EQ(expression.GetExpression(), "");
  EXPECT_EQ(expression.ErrObj().ExpObj, &expression);
}

TEST(ExpressionObject, radian_and_degree_mode_are_one_switch) {
  clsExp expression;
  expression.SetDegreeMode(true);
  EXPECT_FALSE(expression.GetRadianMode());
  expression.SetRadianMode(true);
  EXPECT_FALSE(expression.GetDegreeMode());
  expression.SetRadianMode(false);
  EXPECT_TRUE(expression.GetDegreeMode());
}

TEST(ExpressionObject, a_new_table_holds_the_predefined_constants) {
  clsExp expression;
  expression.CreateNewVarTable();
  Value value;
  EXPECT_TRUE(expression.GetVarTable()->GetIdValue("PI", value));
  EXPECT_EQ(value.Number(), 3.14159265358979);
}

TEST(ExpressionObject, EvaluateIt_evaluates_the_stored_text) {
  clsExp expression;
  expression.SetExpression("1+1");
  EXPECT_EQ(expression.GetExpression(), "1+1");
  Value result;
  EXPECT_TRUE(expression.EvaluateIt(result));
  EXPECT_EQ(result.ToText(), "2");
}

TEST(ExpressionObject, a_failed_evaluation_clears_the_result_and_the_next_succeeds) {
  clsExp expression;
  Value result(5.0);
  EXPECT_FALSE(expression.Evaluate("1/0", result));
  EXPECT_TRUE(result.IsEmpty());
  EXPECT_TRUE(expression.Evaluate("1+1", result));
  EXPECT_EQ(result.Number(), 2);
}

TEST(ExpressionObject, a_single_result_keeps_its_kind_in_decimal_mode) {
  clsExp expression;
  Value result;
  EXPECT_TRUE(expression.Evaluate("1<2", result));
  EXPECT_TRUE(result.IsBoolean());
  EXPECT_TRUE(expression.Evaluate("7", result));
  EXPECT_TRUE(result.IsNumber());
  EXPECT_TRUE(expression.Evaluate("7;8", result));
  EXPECT_TRUE(result.IsText());
}

TEST(ExpressionObject, accepting_numbers_only_skips_the_format_of_one_statement) {
  Calculator calculator;
  calculator.expression.SetAcceptNumericResultOnly(true);
  calculator.expression.SetFormatMode("hexadecimal");
  EXPECT_EQ(calculator.Report("255"), "255");
  EXPECT_EQ(calculator.Report("1<2"), "True");
  EXPECT_EQ(calculator.Report("1;2"), "error *8: Result is not numeric. A numeric result is required.");
  EXPECT_EQ(calculator.Report("1; 2 3"), "error *1: Syntax error '3'");
}

TEST(ExpressionObject, EvaluateLineAndFormat_goes_on_from_the_current_token) {
  clsExp expression;
  Value result;
  EXPECT_TRUE(expression.Evaluate("1", result));
  EXPECT_FALSE(expression.EvaluateLineAndFormat(result));
  EXPECT_TRUE(result.IsEmpty());
  EXPECT_EQ(ErrorReport(expression.ErrObj()), "error *1: Syntax error ''");
  EXPECT_FALSE(expression.EvaluateLineAndFormat(result));
  expression.PreEvalInitiate();
  EXPECT_FALSE(expression.ErrorOccurred());
}

TEST(Replay, gives_the_same_value_and_a_new_one_when_the_variable_changes) {
  Calculator calculator;
  calculator.Report("x=3");
  EXPECT_EQ(calculator.Record("x^2"), "9");
  EXPECT_EQ(calculator.Replay(), "9");
  EXPECT_TRUE(calculator.expression.GetVarTable()->Change("x", Value(4.0)));
  EXPECT_EQ(calculator.Replay(), "16");
}

TEST(Replay, keeps_the_radix_of_literals) {
  Calculator calculator;
  for (const auto& [line, expected] :
       {std::pair{"&H10", "16"}, {"&B11+&O11+&D11", "23"}, {"&HFF*1e1", "2550"}}) {
    EXPECT_EQ(calculator.Record(line), expected);
    EXPECT_EQ(calculator.Replay(), expected);
  }
}

TEST(Replay, agrees_with_the_text_on_all_kinds_of_lines) {
  for (const char* line : {"1+2;3*4", "(1+2]", "sin(1)", "sin 1", "ss(k,k,1,10)", "ss(ss(i*j,i,1,3),j,1,3)",
                           "nder(2,x^3,x,1)", "1..2", "&B2", "der(di(t,t,0,x,.5),x,2)", "1/0", "1;;2;",
                           "not 5", "abs(ss(k,k,1,3))", "3 4", "", "ncr(5)", "$", "1,2"}) {
    Calculator calculator;
    const std::string text = calculator.Report(line);
    EXPECT_EQ(calculator.Record(line), text) << line;
    EXPECT_EQ(calculator.Replay(), text) << line;
    EXPECT_EQ(calculator.Replay(), text) << line;
  }
}

TEST(Replay, a_recording_stops_at_the_first_error) {
  Calculator calculator;
  EXPECT_EQ(calculator.Record("1/0*2+5"), "error 11: Division by zero");
  EXPECT_EQ(calculator.expression.GetPPE()->GetSpellingString(), "1/0*");
  EXPECT_EQ(calculator.Record("&Z+1"), "error *7: Invalid base specification '&z'");
  EXPECT_EQ(calculator.expression.GetPPE()->GetSpellingString(), "&z");
}

TEST(Replay, another_list_is_installed_and_kept) {
  Calculator calculator;
  EXPECT_EQ(calculator.Record("1+1"), "2");
  const auto first = calculator.expression.GetPPE();
  calculator.expression.SetPPE(std::make_shared<clsPreParsedExpression>());
  EXPECT_EQ(calculator.Record("2+2"), "4");
  EXPECT_EQ(calculator.Replay(), "4");
  Value result;
  EXPECT_TRUE(calculator.expression.EvaluatePreParsedExpression(first, result));
  EXPECT_EQ(result.ToText(), "2");
  EXPECT_EQ(calculator.expression.GetPPE(), first);
  EXPECT_EQ(calculator.Replay(), "2");
}

TEST(Replay, an_empty_list_is_a_syntax_error_at_the_end) {
  Calculator calculator;
  EXPECT_EQ(calculator.Replay(), "error *1: Syntax error ''");
}

TEST(Replay, a_list_of_more_than_32767_tokens_is_error_6) {
  Calculator calculator;
  std::string line = "1";
  for (int i = 0; i < 16383; ++i) line += "+1";  // 32,767 tokens and the end
  EXPECT_EQ(calculator.Report(line), "16384");
  EXPECT_EQ(calculator.Record(line), "error 6: Overflow");
  line.resize(line.size() - 2);
  EXPECT_EQ(calculator.Record(line), "16383");
  EXPECT_EQ(calculator.Replay(), "16383");
  EXPECT_EQ(calculator.expression.GetPPE()->NumberOfTokens(), 32766);
  EXPECT_EQ(calculator.Report("ss(" + line + "+1+1,k,1,2)"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("ss(" + line + ",k,1,2)"), "32766");
}

// --- A host's own table

struct HostCase : ::testing::Test {
  HostCase() { expression.SetVarTable(table); }
  std::shared_ptr<HostTable> table = std::make_shared<HostTable>();
  clsExp expression;
  Value result;
};

TEST_F(HostCase, is_asked_once_for_each_occurrence_of_a_name) {
  EXPECT_TRUE(expression.Evaluate("x=1; x+x; x++", result));
  EXPECT_EQ(table->calls, (std::vector<std::string>{"set x 1", "get x", "get x", "get x", "set x 2"}));
}

TEST_F(HostCase, an_error_it_raises_reaches_the_caller_and_the_next_evaluation_is_unaffected) {
  for (const char* line : {"1+x*2", "x=1", "ss(k,k,1,3)", "abs((x))", "((((x"}) {
    table->onCall = [] { throw platform::RunTimeError(1234, "the host's own"); };
    EXPECT_THROW(static_cast<void>(expression.Evaluate(line, result)), platform::RunTimeError) << line;
    EXPECT_THROW(static_cast<void>(expression.EvaluateThenSavePreParsedExpression(line, result)),
                 platform::RunTimeError);
    table->onCall = nullptr;
    const auto recorded = expression.GetPPE()->NumberOfTokens();
    EXPECT_TRUE(expression.Evaluate("(1+1)", result)) << line;
    EXPECT_EQ(result.ToText(), "2");
    EXPECT_EQ(expression.GetPPE()->NumberOfTokens(), recorded) << "still recording after " << line;
  }
}

TEST_F(HostCase, may_evaluate_with_the_same_object_meanwhile) {
  std::string inner;
  table->onCall = [&] {
    Value value;
    table->onCall = nullptr;
    EXPECT_TRUE(expression.Evaluate("2*(3+4)", value));
    inner = value.ToText();
  };
  EXPECT_TRUE(expression.Evaluate("(x=5)+100", result));
  EXPECT_EQ(inner, "14");
  EXPECT_EQ(result.ToText(), "105");
}

TEST_F(HostCase, may_fail_in_an_evaluation_of_its_own_without_failing_the_outer_one) {
  table->onCall = [&] {
    Value value;
    table->onCall = nullptr;
    EXPECT_FALSE(expression.Evaluate("((", value));
  };
  EXPECT_TRUE(expression.Evaluate("(x=5)+100", result));
  EXPECT_EQ(result.ToText(), "105");
}

TEST_F(HostCase, may_record_anew_while_the_list_is_being_replayed) {
  std::ignore = table->names.Change("x", Value(5.0));
  EXPECT_TRUE(expression.EvaluateThenSavePreParsedExpression("x + 1000 * x", result));
  table->onCall = [&] {
    Value value;
    table->onCall = nullptr;
    EXPECT_TRUE(expression.EvaluateThenSavePreParsedExpression("7", value));
  };
  EXPECT_TRUE(expression.EvaluateCurrentPreParsedExpression(result));
  EXPECT_EQ(result.ToText(), "5005");
  EXPECT_TRUE(expression.EvaluateCurrentPreParsedExpression(result));
  EXPECT_EQ(result.ToText(), "7");
}

TEST_F(HostCase, EvaluateIt_inside_a_replay_replays) {
  expression.SetExpression("1+1");
  std::ignore = table->names.Change("x", Value(5.0));
  EXPECT_TRUE(expression.EvaluateThenSavePreParsedExpression("x*x", result));
  std::string inner;
  table->onCall = [&] {
    Value value;
    table->onCall = nullptr;
    EXPECT_TRUE(expression.EvaluateIt(value));
    inner = value.ToText();
  };
  EXPECT_TRUE(expression.EvaluateCurrentPreParsedExpression(result));
  EXPECT_EQ(inner, "25");
  EXPECT_EQ(result.ToText(), "25");
}

TEST_F(HostCase, may_replace_itself_while_it_answers) {
  table->onCall = [&] {
    table->onCall = nullptr;
    expression.CreateNewVarTable();
  };
  EXPECT_TRUE(expression.Evaluate("(x=5);pi", result));
  EXPECT_EQ(result.ToText(), "5 : 3.14159265358979");
}

TEST_F(HostCase, endless_calls_back_end_as_error_28) {
  int failures = 0;
  table->onCall = [&] {
    Value value;
    if (!expression.Evaluate("x", value)) ++failures;
  };
  std::ignore = table->names.Change("x", Value(1.0));
  static_cast<void>(expression.Evaluate("x", result));
  EXPECT_EQ(failures, 1);
}

}  // namespace
}  // namespace plotvane::engine::test
