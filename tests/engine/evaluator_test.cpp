// The evaluator: operands, statements, stores, argument lists, and what is reported where a line cannot go
// on.
#include <gtest/gtest.h>

#include <array>

#include "identifiers/clsVarTable.h"
#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

template <std::size_t Count>
void CheckEachAlone(const std::array<Case, Count>& cases) {
  for (const Case& row : cases) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
  }
}

// One table for the whole column.
template <std::size_t Count>
void CheckInTurn(const std::array<Case, Count>& cases) {
  Calculator calculator;
  for (const Case& row : cases) EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
}

TEST(Evaluator, literals) {
  CheckEachAlone(std::array{
      Case{"2e3", "2000"},
      Case{"1.5e-3", "0.0015"},
      Case{"&HFF", "255"},
      Case{"&hff", "255"},
      Case{"&HFFFF", "65535"},
      Case{"&HFFFFFFFF", "4294967295"},
      Case{"&O17", "15"},
      Case{"&q17", "15"},
      Case{"&B101", "5"},
      Case{"&D1.5", "1.5"},
      Case{"&B1e3", "1000"},
      Case{"&H1e3", "483"},
      Case{".5", "0.5"},
      Case{"5.", "5"},
      Case{"1..2", "error *1: Syntax error '1..2'"},
      Case{".", "error *1: Syntax error '.'"},
      Case{"..", "error *1: Syntax error '..'"},
      Case{"&D", "error *1: Syntax error ''"},
      Case{"&D1..2", "error *1: Syntax error '1..2'"},
      Case{"&H", "error *6: Invalid base digits ''"},
      Case{"&B", "error *6: Invalid base digits ''"},
      Case{"&O", "error *6: Invalid base digits ''"},
      Case{"&B102", "error *6: Invalid base digits '102'"},
      Case{"&O78", "error *6: Invalid base digits '78'"},
      Case{"&Z1", "error *7: Invalid base specification '&z'"},
      Case{"&", "error *7: Invalid base specification '&'"},
      Case{"&é", "error *7: Invalid base specification '&é'"},
  });
  Calculator calculator;
  EXPECT_EQ(calculator.Report("1" + std::string(400, '0')), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("&H" + std::string(400, 'f')), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("&H1FFFFFFFFFFFFF"), "9.00719925474099E+15");
}

TEST(Evaluator, every_bracket_is_closed_by_its_own_partner) {
  CheckEachAlone(std::array{
      Case{"(1+2)*3", "9"},
      Case{"[1+2]*3", "9"},
      Case{"{1+2}*3", "9"},
      Case{"{[(2)]}", "2"},
      Case{"(1+2]", "error *2: Expected a match to '(', and got ']'"},
      Case{"[1+2}", "error *2: Expected a match to '[', and got '}'"},
      Case{"{1+2)", "error *2: Expected a match to '{', and got ')'"},
      Case{"([1)]", "error *2: Expected a match to '[', and got ')'"},
      Case{"(1+2", "error *2: Expected a match to '(', and got ''"},
      Case{"(1 2)", "error *2: Expected a match to '(', and got '2'"},
      Case{"(1;2)", "error *2: Expected a match to '(', and got ';'"},
      Case{"()", "error *1: Syntax error ')'"},
      Case{")", "error *1: Syntax error ')'"},
      Case{"1)", "error *1: Syntax error ')'"},
  });
}

TEST(Evaluator, statements_are_joined_and_empty_ones_skipped) {
  CheckEachAlone(std::array{
      Case{"1+2;3*4", "3 : 12"},
      Case{"1:2", "1 : 2"},
      Case{"1;;2", "1 : 2"},
      Case{"1;:;2:3", "1 : 2 : 3"},
      Case{"1<2;3", "True : 3"},
      Case{"x=2;x*3", "2 : 6"},
      Case{"1;", "error *1: Syntax error ''"},
      Case{"1;;", "error *1: Syntax error ''"},
      Case{";1", "error *1: Syntax error ';'"},
      Case{":", "error *1: Syntax error ':'"},
      Case{"", "error *1: Syntax error ''"},
      Case{"  ", "error *1: Syntax error ''"},
      Case{"1;2 3", "error *1: Syntax error '3'"},
      Case{"3 4", "error *1: Syntax error '4'"},
      Case{"1,2", "error *1: Syntax error ','"},
      Case{"2x", "error *1: Syntax error 'x'"},
      Case{"2e3x", "error *1: Syntax error 'x'"},
      Case{"2 e3", "error *1: Syntax error 'e3'"},
      Case{"1 $ 2", "error *1: Syntax error '$'"},
      Case{"é", "error *1: Syntax error 'é'"},
  });
}

TEST(Evaluator, stores_yield_what_they_store) {
  CheckInTurn(std::array{
      Case{"x=5", "5"},
      Case{"X", "5"},
      Case{"6->x", "6"},
      Case{"7=>x", "7"},
      Case{"x", "7"},
      Case{"2*3 -> a -> b", "6"},
      Case{"a+b", "12"},
      Case{"t = 1<2", "True"},
      Case{"t", "True"},
      Case{"u = v = 3", "3"},
      Case{"u*v", "9"},
      Case{"2*x=3+4", "14"},
      Case{"x", "7"},
      Case{"1+2->w*3", "9"},
      Case{"w", "3"},
      Case{"(1+2->w)*3", "9"},
      Case{"sin=5", "5"},
      Case{"sin++", "5"},
      Case{"sin", "error *14: Syntax error. Expecting opening parenthesis but got: ''"},
      Case{"pi=3", "error *9: Cannot store to id. The specified id name may be reserved for a constant."},
      Case{"3->pi", "error *9: Cannot store to id. The specified id name may be reserved for a constant."},
      Case{"5->7", "error *10: Cannot store to variable; a variable is not specified."},
      Case{"5->", "error *10: Cannot store to variable; a variable is not specified."},
      Case{"5->-x", "error *10: Cannot store to variable; a variable is not specified."},
      Case{"5=x", "error *1: Syntax error '='"},
      Case{"x=", "error *1: Syntax error ''"},
  });
}

TEST(Evaluator, steps_before_and_after_a_name) {
  CheckInTurn(std::array{
      Case{"n++", "0"},
      Case{"n", "1"},
      Case{"n--", "1"},
      Case{"n", "0"},
      Case{"++m", "1"},
      Case{"--m", "0"},
      Case{"--m", "-1"},
      Case{"m++ + 10", "9"},
      Case{"m", "0"},
      Case{"t=True;t++;t", "True : True : 0"},
      Case{"x=5;y=3;x-->y", "5 : 3 : True"},
      Case{"x", "4"},
      Case{"x--2", "error *1: Syntax error '2'"},
      Case{"x", "3"},
      Case{"2--3", "error *1: Syntax error '--'"},
      Case{"1*--2", "error *1: Syntax error '2'"},
      Case{"++", "error *1: Syntax error ''"},
      Case{"++(x)", "error *1: Syntax error '('"},
      Case{"pi++", "error *9: Cannot store to id. The specified id name may be reserved for a constant."},
      Case{"--pi", "error *9: Cannot store to id. The specified id name may be reserved for a constant."},
      Case{"++q!", "1"},
      Case{"q++!", "1"},
      Case{"q", "2"},
  });
}

TEST(Evaluator, names) {
  CheckInTurn(std::array{
      Case{"True", "True"},
      Case{"pi", "3.14159265358979"},
      Case{"nothing", "error *12: Undefined function or identifier."},
      Case{"foo(1)", "error *12: Undefined function or identifier."},
      Case{"foo=2", "2"},
      Case{"foo(1)", "error *1: Syntax error '('"},
  });
}

TEST(Evaluator, argument_lists) {
  CheckEachAlone(std::array{
      Case{"abs(-2)", "2"},
      Case{"ABS[-2]", "2"},
      Case{"abs{-2}", "2"},
      Case{"round(2.567, 2)", "2.57"},
      Case{"abs(x=-3)+x", "0"},
      Case{"abs(1<2)", "1"},
      Case{"sin 5", "error *14: Syntax error. Expecting opening parenthesis but got: '5'"},
      Case{"sin->x", "error *14: Syntax error. Expecting opening parenthesis but got: '->'"},
      Case{"abs(1 2)", "error *15: Syntax error. Expecting closing parenthesis but got: '2'"},
      Case{"abs(1;2)", "error *15: Syntax error. Expecting closing parenthesis but got: ';'"},
      Case{"abs(1", "error *15: Syntax error. Expecting closing parenthesis but got: ''"},
      Case{"abs(1]", "error *2: Expected a match to '(', and got ']'"},
      Case{"abs[(1])", "error *2: Expected a match to '(', and got ']'"},
      Case{"abs(,1)", "error *1: Syntax error ','"},
      Case{"abs(1,)", "error *1: Syntax error ')'"},
      Case{"abs(", "error *1: Syntax error ''"},
      Case{"rnd()", "error *4: Missing Argument(s)."},
      Case{"rnd(]", "error *2: Expected a match to '(', and got ']'"},
      Case{"ncr(5)", "error *4: Missing Argument(s)."},
      Case{"abs(1,2)", "error *5: Too many arguments."},
      Case{"abs(1,2,3,4,5,6,7,8,9)", "error *5: Too many arguments."},
      Case{"abs(1,2,nothing)", "error *12: Undefined function or identifier."},
      Case{"abs(sgn(-5)*round(2.5))", "3"},
      Case{"tan(pi/2)",
           "error *11: Undefined function value. Function is not defined at the specified value(s)."},
      Case{"sqr(-1)", "error 5: Invalid procedure call or argument"},
      Case{"ln(0)", "error 5: Invalid procedure call or argument"},
      Case{"exp(1000)", "error 6: Overflow"},
  });
}

TEST(Evaluator, the_right_operand_and_the_token_after_it_are_read_before_an_operation_runs) {
  CheckEachAlone(std::array{
      Case{"1/0 &z", "error *7: Invalid base specification '&z'"},
      Case{"1/0*&z", "error 11: Division by zero"},
      Case{"1/0 2", "error 11: Division by zero"},
      Case{"1/0)", "error 11: Division by zero"},
      Case{"sqr(-1)&z", "error *7: Invalid base specification '&z'"},
      Case{"abs()&z", "error *7: Invalid base specification '&z'"},
  });
}

TEST(Evaluator, what_was_stored_before_a_failure_stays) {
  CheckInTurn(std::array{
      Case{"x=7 8", "error *1: Syntax error '8'"},
      Case{"x", "7"},
      Case{"(x=8)/0", "error 11: Division by zero"},
      Case{"x", "8"},
      Case{"x=9;y=z", "error *12: Undefined function or identifier."},
      Case{"x", "9"},
      Case{"abs(x=10,1)", "error *5: Too many arguments."},
      Case{"x", "10"},
      Case{"x=1/0", "error 11: Division by zero"},
      Case{"x", "10"},
  });
}

TEST(Evaluator, an_error_leaves_the_next_evaluation_alone) {
  Calculator calculator;
  for (const char* bad : {"1/0", "(", "&Z", "foo", "5->", "ss(", "((((", "1..2", "$", "sin(", "\x80"}) {
    EXPECT_NE(calculator.Report(bad).find("error"), std::string::npos) << bad;
    EXPECT_EQ(calculator.Report("1+1"), "2") << bad;
    EXPECT_EQ(calculator.expression.ErrObj().StandardErrorNum, 0) << bad;
    EXPECT_EQ(calculator.expression.ErrObj().CustomErrorNum, 0) << bad;
    EXPECT_EQ(calculator.expression.ErrObj().CustomErrorDescription, "") << bad;
  }
}

TEST(Evaluator, an_embedded_nul_is_an_unknown_character) {
  using namespace std::string_view_literals;
  Calculator calculator;
  EXPECT_EQ(calculator.Report("1+\0002"sv), "error *1: Syntax error '\0'"sv);
  EXPECT_EQ(calculator.Report("1\0"sv), "error *1: Syntax error '\0'"sv);
}

TEST(Evaluator, angles_follow_the_mode) {
  Calculator calculator;
  EXPECT_EQ(calculator.Report("sin(0)"), "0");
  EXPECT_EQ(calculator.Report("atn(1)"), "0.785398163397448");
  calculator.expression.SetDegreeMode(true);
  EXPECT_EQ(calculator.Report("sin(30)"), "0.5");
  EXPECT_EQ(calculator.Report("atn(1)"), "45");
}

TEST(Evaluator, without_a_table_every_name_is_error_91) {
  for (const char* line : {"x", "x=1", "1->x", "x++", "++x", "ss(1,k,1,2)"}) {
    clsExp expression;
    platform::Value result;
    EXPECT_FALSE(expression.Evaluate(line, result)) << line;
    EXPECT_EQ(ErrorReport(expression.ErrObj()), "error 91: Object variable or With block variable not set")
        << line;
    EXPECT_TRUE(expression.Evaluate("abs(-1)", result));
  }
}

// A table whose values are texts, as a host may supply.
class TextTable : public platform::VariableTable {
 public:
  bool GetIdValue(std::string_view id, platform::Value& value) override {
    value = platform::Value(id == "word" ? "word" : "12");
    return true;
  }
  bool Change(std::string_view, const platform::Value&) override { return true; }
};

TEST(Evaluator, texts_of_a_host_count_as_numbers_when_they_are) {
  Calculator calculator;
  calculator.expression.SetVarTable(std::make_shared<TextTable>());
  for (const Case& row :
       {Case{"n+1", "13"}, Case{"n<13", "True"}, Case{"-n", "-12"}, Case{"+word", "word"},
        Case{"word", "word"}, Case{"word+1", "error 13: Type mismatch"},
        Case{"1<word", "error 13: Type mismatch"}, Case{"not word", "error 13: Type mismatch"},
        Case{"abs(word)", "error 13: Type mismatch"}, Case{"abs(n)", "12"},
        Case{"word++", "error 13: Type mismatch"}, Case{"word%", "error 13: Type mismatch"},
        Case{"ss(k,k,word,3)", "error 13: Type mismatch"}}) {
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
  }
}

}  // namespace
}  // namespace plotvane::engine::test
