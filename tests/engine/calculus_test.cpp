// Calculus operations: values by plain loops of this file, what the variable holds afterwards, and what is
// reported.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "engine/calculus.h"
#include "tests/engine/calculator.h"
#include "tests/engine/host_table.h"

namespace plotvane::engine::test {
namespace {

using platform::Value;

constexpr const char* kUndefined =
    "error *11: Undefined function value. Function is not defined at the specified value(s).";
constexpr const char* kRefused =
    "error *9: Cannot store to id. The specified id name may be reserved for a constant.";

TEST(Calculus, sums) {
  for (const Case& row : std::array{
           Case{"ss(k,k,1,10)", "55"},
           Case{"sigmasum(k,k,1,10,2)", "25"},
           Case{"ss(k,k,10,1,-1)", "55"},
           Case{"ss(k,k,3,1)", "0"},
           Case{"ss(k,k,1,3,-1)", "0"},
           Case{"ss(1/k,k,-1,1)", "0"},
           Case{"ss(sqr(k),k,-4,4)", "6.14626436994197"},
           Case{"ss(k<3,k,1,5)", "-2"},
           Case{"ss[k,k,1,3]", "6"},
           Case{"ss(k,k,1,3)*2+1", "13"},
           Case{"ss(pi=k,k,1,3)", "0"},
           Case{"ss(1,pi,3,1)", "0"},
           Case{"ss(k,k,1,3,0)", kUndefined},
           Case{"ss(1,pi,1,3)", kRefused},
           Case{"ss(k,k,1e17,2e17)", kUndefined},
           Case{"ss(1e308,k,1,3)", "error 6: Overflow"},
           Case{"ss(1,k,1e308,1.7e308,1e308)", "error 6: Overflow"},
           Case{"ss(foo,k,1,3)", "error *12: Undefined function or identifier."},
           Case{"ss(exp(k),k,1e3,1e3)", "error 6: Overflow"},
       }) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
  }
}

TEST(Calculus, integrals_add_left_endpoints_by_repeated_addition) {
  double sum = 0;
  for (double t = 0; t <= 1 - 0.01; t += 0.01) sum += t * t;
  Calculator calculator;
  EXPECT_EQ(calculator.Report("definiteintegral(x^2, x, 0, 1)"), Value(sum * 0.01).ToText());
  EXPECT_EQ(calculator.Report("di(x,x,0,1,.25)"), "0.375");
  EXPECT_EQ(calculator.Report("di(x,x,1,0,-.25)"), "-0.625");
  EXPECT_EQ(calculator.Report("di(1/x,x,-1,1,.5)"), "-0.5");
  EXPECT_EQ(calculator.Report("di(x,x,1,0)"), "0");
  EXPECT_EQ(calculator.Report("di(x,x,0,1,0)"), kUndefined);
  EXPECT_EQ(calculator.Report("di(x,x,0,1e308,1e-10)"), kUndefined);
  EXPECT_EQ(calculator.Report("di(x,x,0,1.7e308,-1.7e308)"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("di(foo,x,0,1)"), "error *12: Undefined function or identifier.");
}

TEST(Calculus, derivatives_are_forward_differences) {
  Calculator calculator;
  const double later = 3 + 0.01;
  EXPECT_EQ(calculator.Report("derivative(x^2, x, 3)"), Value((later * later - 9) / 0.01).ToText());
  EXPECT_EQ(calculator.Report("der(x^2,x,3,1)"), "7");
  EXPECT_EQ(calculator.Report("der(x^2,x,3,-1)"), "5");
  EXPECT_EQ(calculator.Report("der(x^2,x,3,0)"), kUndefined);
  EXPECT_EQ(calculator.Report("der(sqr(x),x,-1)"), kUndefined);
  EXPECT_EQ(calculator.Report("der(1/x,x,0)"), kUndefined);
  EXPECT_EQ(calculator.Report("der(pi=x,x,1)"), kUndefined);
  EXPECT_EQ(calculator.Report("der(x,pi,1)"), kRefused);
  EXPECT_EQ(calculator.Report("der(x,x,1.7e308,1e308)"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("der(x,x,1,1e-320)"), "0");
  EXPECT_EQ(calculator.Report("der((x>1)*1e300,x,1,-1e-10)"), "0");
  EXPECT_EQ(calculator.Report("der((x>1)*1e300,x,1,1e-10)"), "error 6: Overflow");
}

double WrittenRecursion(int n, double x, double h, double (*f)(double)) {
  if (n == 1) return (f(x + h) - f(x)) / h;
  return (WrittenRecursion(n - 1, x + h, h, f) - WrittenRecursion(n - 1, x, h, f)) / h;
}

TEST(Calculus, nth_derivatives_are_the_written_recursion_to_the_last_bit) {
  Calculator calculator;
  for (int n = 1; n <= 12; ++n) {
    for (const double x : {0.3, 1.0, -2.5}) {
      const double expected = WrittenRecursion(n, x, 0.01, [](double t) { return t * t * t - 2 * t; });
      Value result;
      const std::string line = "nder(" + std::to_string(n) + ",x*x*x-2*x,x," + Value(x).ToText() + ")";
      ASSERT_TRUE(calculator.expression.Evaluate(line, result)) << line;
      EXPECT_EQ(result.Number(), expected) << line;
    }
  }
  EXPECT_EQ(calculator.Report("nder(1,x^2,x,3)"), calculator.Report("der(x^2,x,3)"));
  EXPECT_EQ(calculator.Report("nder(2,x^2,x,3,1)"), "2");
  EXPECT_EQ(calculator.Report("nder(1.5,x^2,x,3,1)"), "2");
  EXPECT_EQ(calculator.Report("nder(0,x^2,x,1)"), kUndefined);
  EXPECT_EQ(calculator.Report("nder(-3,x^2,x,1)"), kUndefined);
  EXPECT_EQ(calculator.Report("nder(2,x^2,x,1,0)"), kUndefined);
  EXPECT_EQ(calculator.Report("nder(32768,x,x,1)"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("nder(2,x,pi,1)"), kRefused);
}

// How many evaluations: counted by the random numbers drawn would be a side effect, so the time must tell.
TEST(Calculus, a_high_order_without_side_effects_takes_n_plus_1_evaluations) {
  Calculator calculator;
  EXPECT_EQ(calculator.Report("nder(40,1,x,1,1)"), "0");
  EXPECT_EQ(calculator.Report("nder(60,ss(k*x,k,1,3),x,1,2)").find("error"), std::string::npos);
  EXPECT_EQ(calculator.Report("nder(25,x=x,x,1)"), "error 5: Invalid procedure call or argument");
  EXPECT_EQ(calculator.Report("nder(25,rnd(1),x,1)"), "error 5: Invalid procedure call or argument");
  EXPECT_EQ(calculator.Report("nder(25,y++,x,1)"), "error 5: Invalid procedure call or argument");
}

// The same lines with the system's own table and with a host's, which gets the recursion: all that can be
// seen afterwards must be the same.
TEST(Calculus, nth_derivatives_do_the_same_with_both_kinds_of_table) {
  for (const char* line :
       {"nder(3,x^3,x,1)", "nder(4,exp(x),x,0)", "nder(3,sqr(x),x,-.015)", "nder(3,sqr(x),x,-.005)",
        "nder(3,1/x,x,-.03)", "nder(3,1/x,x,-.02)", "nder(2,(x>1)*1e306,x,1,.001)", "nder(3,x^2,new,1)",
        "nder(3,new^2,new,1)", "nder(2,(new>1.5)*1e306,new,1,.001)", "nder(5,new<0,new,-.02,.01)",
        "nder(1,new,new,2)", "nder(3,foo,x,1)", "nder(3,ss(k*x,k,1,3),x,1)", "nder(3,ss(1,k,1,x),x,1,1)+k",
        "nder(2,der(y^2,y,x)*y,x,1)", "nder(3,x,x,1e308,1e308)", "nder(2,1e308*x^0*(2*(x>1)-1),x,1,1)",
        "nder(3,1e300*(new>1.025),new,1,1e-5)"}) {
    Calculator own;
    clsExp host;
    const auto table = std::make_shared<HostTable>();
    host.SetVarTable(table);
    own.Report("x=7");
    Value hostResult;
    static_cast<void>(host.Evaluate("x=7", hostResult));
    const bool succeeded = host.Evaluate(line, hostResult);
    EXPECT_EQ(own.Report(line), succeeded ? hostResult.ToText() : ErrorReport(host.ErrObj())) << line;
    for (const char* name : {"x", "new", "k", "y"}) {
      Value ownValue("none");
      Value hostValue("none");
      static_cast<void>(own.expression.GetVarTable()->GetIdValue(name, ownValue));
      static_cast<void>(table->names.GetIdValue(name, hostValue));
      EXPECT_EQ(ownValue.ToText(), hostValue.ToText()) << name << " after " << line;
    }
  }
}

TEST(Calculus, the_variable_afterwards) {
  for (const Case& row : std::array{
           Case{"k=5;ss(k,k,1,3);k", "5 : 6 : 5"},
           Case{"ss(k,k,1,3);k", "6 : 3"},
           Case{"k=5;ss(k,k,3,1);k", "5 : 0 : 5"},
           Case{"ss(j,k,3,1);k", "error *12: Undefined function or identifier."},
           Case{"k=5;der(k,k,1);k", "5 : 1 : 5"},
           Case{"der(k^2,k,1,1);k", "3 : 1"},
           Case{"k=True;ss(k,k,1,3);k", "True : 6 : True"},
           Case{"x=8;ss(ss(x,x,1,2),x,1,2);x", "8 : 6 : 8"},
       }) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
  }
  for (const auto& [line, after] : {std::pair{"der(1/(k-1),k,1)", "1"},
                                    {"der(1/(k-1.01),k,1)", "1.01"},
                                    {"ss(1/foo,k,1,3)", "5"},
                                    {"ss(1e308,k,1,3)", "5"},
                                    {"di(foo,k,1,3)", "5"}}) {
    Calculator calculator;
    calculator.Report("k=5");
    EXPECT_NE(calculator.Report(line).find("error"), std::string::npos) << line;
    EXPECT_EQ(calculator.Report("k"), after) << line;
  }
}

TEST(Calculus, inside_calculus) {
  for (const Case& row : std::array{
           Case{"ss(ss(i*j,i,1,3),j,1,3)", "36"},
           Case{"ss(ss(k,k,1,k),k,1,3)", "10"},
           Case{"der(di(ss(k*t,k,1,2),t,0,x,.5),x,2,1)", "6.75"},
           Case{"abs(-ss(k,k,1,3))", "6"},
           Case{"round(der(x^2,x,3)+di(1,t,0,1,.5),1)", "7"},
           Case{"ss(der(1/y,y,k),k,-1,1)", kUndefined},
           Case{"ss(der(y,pi,k),k,1,3)", "0"},
           Case{"ss(ss(foo,i,1,2),j,1,2)", "error *12: Undefined function or identifier."},
           Case{"ss(ss((i],i,1,2),j,1,2)", "error *2: Expected a match to '(', and got ']'"},
       }) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
    EXPECT_EQ(calculator.Record(row.line), row.expected) << row.line;
    EXPECT_EQ(calculator.Replay(), row.expected) << row.line;
  }
}

TEST(Calculus, lists_that_cannot_be_read) {
  for (const Case& row : std::array{
           Case{"ss", "error *14: Syntax error. Expecting opening parenthesis but got: ''"},
           Case{"ss()", "error *4: Missing Argument(s)."},
           Case{"ss(k)", "error *4: Missing Argument(s)."},
           Case{"ss(k,k,1)", "error *4: Missing Argument(s)."},
           Case{"ss(k,k,1,3,1,1)", "error *5: Too many arguments."},
           Case{"der(k,k)", "error *4: Missing Argument(s)."},
           Case{"der(k,k,1,1,1)", "error *5: Too many arguments."},
           Case{"nder(2,k,k)", "error *4: Missing Argument(s)."},
           Case{"nder(2,k)", "error *4: Missing Argument(s)."},
           Case{"nder()", "error *4: Missing Argument(s)."},
           Case{"nder(,k,k,1)", "error *1: Syntax error ','"},
           Case{"nder(2,,k,1)", "error *1: Syntax error ','"},
           Case{"nder(2,)", "error *1: Syntax error ')'"},
           Case{"ss(,k,1,3)", "error *1: Syntax error ','"},
           Case{"ss(", "error *1: Syntax error ''"},
           Case{"ss(k", "error *15: Syntax error. Expecting closing parenthesis but got: ''"},
           Case{"ss((k,k,1,3)", "error *15: Syntax error. Expecting closing parenthesis but got: ''"},
           Case{"ss(k,1,1,3)", "error *13: Expecting a variable name and got the unexpected input: '1'"},
           Case{"ss(k,,1,3)", "error *13: Expecting a variable name and got the unexpected input: ','"},
           Case{"ss(k,)", "error *13: Expecting a variable name and got the unexpected input: ')'"},
           Case{"ss(k,", "error *13: Expecting a variable name and got the unexpected input: ''"},
           Case{"ss(k,(k),1,3)", "error *13: Expecting a variable name and got the unexpected input: '('"},
           Case{"ss(k,k+1,1,3)", "error *15: Syntax error. Expecting closing parenthesis but got: '+'"},
           Case{"ss(k,k,1 2,3)", "error *15: Syntax error. Expecting closing parenthesis but got: '2'"},
           Case{"ss(k,k,1,3]", "error *2: Expected a match to '(', and got ']'"},
           Case{"ss(k],k,1,3)", "error *2: Expected a match to '(', and got ']'"},
           Case{"ss((k],k,1,3)", "error *2: Expected a match to '(', and got ']'"},
           Case{"ss((k],k,3,1)", "0"},
           Case{"ss(k $ 2,k,1,3)", "error *1: Syntax error '$'"},
           Case{"ss(k;2,k,1,3)", "error *8: Result is not numeric. A numeric result is required."},
           Case{"ss(k;,k,1,3)", "error *1: Syntax error ''"},
           Case{"ss(&z,k,1,3)", "error *7: Invalid base specification '&z'"},
           Case{"ss(&B2,k,1,3)", "error *6: Invalid base digits '2'"},
           Case{"ss(k,sin,1,3)", "error *12: Undefined function or identifier."},
           Case{"ss(2,sin,1,3)", "6"},
       }) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
  }
}

TEST(Calculus, an_omitted_step_is_1_for_sums_and_a_hundredth_for_the_others) {
  struct Row {
    std::string_view shortForm, longForm;
  };
  for (const Row& row : std::array{
           Row{"sigmasum(x^2,x,1,4)", "ss(x^2,x,1,4,1)"},
           Row{"definiteintegral(x^2,x,0,1)", "di(x^2,x,0,1,0.01)"},
           Row{"derivative(x^2,x,3)", "der(x^2,x,3,0.01)"},
           Row{"nderivative(2,x^3,x,3)", "nder(2,x^3,x,3,0.01)"},
       }) {
    Calculator calculator;
    EXPECT_EQ(calculator.Report(row.shortForm), calculator.Report(row.longForm)) << row.shortForm;
  }
}

TEST(Calculus, an_order_is_rounded_to_a_whole_number_of_16_bits) {
  Calculator calculator;
  EXPECT_EQ(calculator.Report("nder(2.5,x^3,x,3,1)"), calculator.Report("nder(2,x^3,x,3,1)"));
  EXPECT_EQ(calculator.Report("nder(-40,x,x,1)"), kUndefined);
  EXPECT_EQ(calculator.Report("nder(32767.5,x,x,1)"), "error 6: Overflow");
  EXPECT_EQ(calculator.Report("nder(-32769,x,x,1)"), "error 6: Overflow");
}

TEST(Calculus, texts_that_are_no_numbers_are_told_before_the_operation_begins) {
  Calculator calculator;
  ASSERT_TRUE(calculator.expression.GetVarTable()->Change("t", Value("a")));
  for (const std::string_view line :
       {"di(v=x,x,t,1)", "di(v=x,x,0,t)", "di(v=x,x,0,1,t)", "nder(t,v=x,x,1)"}) {
    EXPECT_EQ(calculator.Report(line), "error 13: Type mismatch") << line;
  }
  Value never;
  EXPECT_FALSE(calculator.expression.GetVarTable()->GetIdValue("v", never));
}

TEST(Calculus, angles_follow_the_caller) {
  Calculator calculator;
  calculator.expression.SetDegreeMode(true);
  EXPECT_EQ(calculator.Report("ss(sin(k),k,30,30)"), "0.5");
}

TEST(Calculus, number_modes_do_not_reach_into_it) {
  Calculator calculator;
  calculator.expression.SetFormatMode("hexadecimal");
  EXPECT_EQ(calculator.Report("ss(k/2,k,1,3)*2"), "&H6");
}

// --- Calls of a host's table, and the members for C++ callers

TEST(CalculusCalls, a_sum_remembers_sets_and_restores) {
  clsExp expression;
  const auto table = std::make_shared<HostTable>();
  expression.SetVarTable(table);
  Value result;
  EXPECT_TRUE(expression.Evaluate("ss(1,k,1,2)", result));
  EXPECT_EQ(table->calls, (std::vector<std::string>{"get k", "set k 1", "set k 2"}));
  table->calls.clear();
  EXPECT_TRUE(expression.Evaluate("ss(1,k,1,2)", result));
  EXPECT_EQ(table->calls, (std::vector<std::string>{"get k", "set k 1", "set k 2", "set k 2"}));
  table->calls.clear();
  EXPECT_FALSE(expression.Evaluate("ss(1,k,1,2,0)", result));
  EXPECT_TRUE(table->calls.empty());
  EXPECT_TRUE(expression.Evaluate("ss(1,pi,2,1)", result));
  EXPECT_EQ(table->calls, (std::vector<std::string>{"get pi"}));
  table->calls.clear();
  EXPECT_TRUE(expression.Evaluate("nder(2,1,k,0,1)", result));
  EXPECT_EQ(table->calls, (std::vector<std::string>{"get k", "set k 2", "set k 1", "set k 2", "get k",
                                                    "set k 1", "set k 0", "set k 2"}));
}

std::shared_ptr<clsPreParsedExpression> Recorded(const char* line) {
  Calculator calculator;
  calculator.Report("k=1");
  calculator.Record(line);
  return calculator.expression.GetPPE();
}

TEST(CalculusMembers, write_their_results) {
  Calculator calculator;
  clsExp& expression = calculator.expression;
  double result = 100;
  EXPECT_TRUE(expression.SigmaSum(Recorded("k"), "k", 1, 3, 1, result));
  EXPECT_EQ(result, 106) << "the sum begins with what was passed in";
  EXPECT_FALSE(expression.SigmaSum(Recorded("k"), "k", 1, 3, 0, result));
  EXPECT_EQ(result, 106);
  EXPECT_TRUE(expression.Derivative(Recorded("k^2"), "k", 3, 1, result));
  EXPECT_EQ(result, 7);
  EXPECT_TRUE(expression.LIntegral(Recorded("k"), "k", 0, 1, 0.25, result));
  EXPECT_EQ(result, 0.375);
  EXPECT_FALSE(expression.LIntegral(Recorded("k"), "k", 0, 1, 0, result));
  EXPECT_EQ(result, 0.375);
  EXPECT_TRUE(expression.NDerivative(2, Recorded("k^2"), "k", 3, 1, result));
  EXPECT_EQ(result, 2);
  EXPECT_FALSE(expression.NDerivative(0, Recorded("k^2"), "k", 3, 1, result));
  EXPECT_EQ(result, 2);
}

TEST(CalculusMembers, a_sum_that_fails_keeps_its_part_and_reports_nothing_here) {
  Calculator calculator;
  calculator.Report("limit=3");
  double result = 0;
  EXPECT_FALSE(calculator.expression.SigmaSum(Recorded("k+exp(1000*(k-2))"), "k", 1, 3, 1, result));
  EXPECT_EQ(result, 4);
  EXPECT_EQ(calculator.expression.ErrObj().StandardErrorNum, 0);
}

TEST(CalculusMembers, errors_of_their_own_arithmetic_are_recorded) {
  Calculator calculator;
  double result = 0;
  EXPECT_FALSE(calculator.expression.SigmaSum(Recorded("1e308*k^0"), "k", 1, 3, 1, result));
  EXPECT_EQ(ErrorReport(calculator.expression.ErrObj()), "error 6: Overflow");
  clsExp bare;
  EXPECT_FALSE(bare.SigmaSum(Recorded("k"), "k", 1, 3, 1, result));
  EXPECT_EQ(bare.ErrObj().StandardErrorNum, 91);
}

TEST(SideEffects, are_found_by_the_tokens) {
  for (const char* line : {"x^2+k", "ss(k*x,k,1,3)", "sin(x)==cos(x)", "1;2"}) {
    EXPECT_TRUE(HasNoSideEffects(*Recorded(line)->Tokens())) << line;
  }
  for (const char* line : {"k=2", "2->k", "2=>k", "k++", "--k", "rnd(1)", "Random(2)", "randomint(2)"}) {
    EXPECT_FALSE(HasNoSideEffects(*Recorded(line)->Tokens())) << line;
  }
}

}  // namespace
}  // namespace plotvane::engine::test
