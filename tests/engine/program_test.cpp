// Compiled programs: which steps a list becomes, what is left to the exact evaluator, and when tables are
// read anew.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "engine/columns.h"
#include "engine/compile.h"
#include "engine/curve.h"
#include "identifiers/clsVarTable.h"

namespace plotvane::engine {
namespace {

using identifiers::clsVarTable;
using platform::Value;

// The program of a text as a function of x; null when there is none. `recorded` must evaluate without an
// error.
std::unique_ptr<Program> ProgramOf(const std::string& text) {
  clsExp expression;
  expression.CreateNewVarTable();
  for (const char* name : {"x", "a", "b"}) EXPECT_TRUE(expression.GetVarTable()->Change(name, Value(2.0)));
  Value unused;
  static_cast<void>(expression.EvaluateThenSavePreParsedExpression(text, unused));
  return Compile(expression.GetPPE()->List(), {functions::AngleMode::Radians, "x", [](std::string_view name) {
                                                 return name == "true" || name == "false";
                                               }});
}

struct PrintedCase {
  const char* text;
  const char* whenTheTableChanged;
  const char* forEachValue;
};

TEST(Program, holds_the_steps_of_its_expression) {
  const PrintedCase cases[] = {
      {"x", "", ""},
      {"x^2", "", "  power 2\n"},
      {"1/x", "", "  divide by left 1\n"},
      {"x/4", "", "  multiply 0.25\n"},
      {"x/3", "", "  divide by 3\n"},
      {"2*3+x", "", "  add 6\n"},
      {"sin(x)", "", "  sin\n"},
      {"a*b+x", "  load a\n  multiply b\n  store #3\n", "  add #3\n"},
      {"(x+1)*(x-1)", "", "  add 1\n  store #3\n  load varying\n  subtract 1\n  multiply #3\n"},
      {"x>0 and x<5", "", "  greater 0\n  store #3\n  load varying\n  less 5\n  and left #3\n"},
      {"factorial(x)", "", "  load varying\n  store #1\n  call factorial #1\n"},
  };
  for (const auto& [text, whenTheTableChanged, forEachValue] : cases) {
    const auto program = ProgramOf(text);
    ASSERT_NE(program, nullptr) << text;
    EXPECT_EQ(program->Print(), std::string("when the table changed\n") + whenTheTableChanged +
                                    "for each value\n" + forEachValue)
        << text;
  }
}

TEST(Program, leaves_what_does_more_than_compute_to_the_exact_evaluator) {
  for (const char* text :
       {"x=3", "x->a", "x++", "--x", "rnd(1)", "random(x)", "randomint(5,1)", "ss(k,k,1,3)", "di(x,x,0,1)",
        "x;a", "x)", "(x]", "sin(1,2)", "sin x", "1..2", "&b2", ""}) {
    EXPECT_EQ(ProgramOf(text), nullptr) << text;
  }
}

TEST(Program, has_memory_in_proportion_to_its_tokens) {
  std::string text = "x";
  for (int i = 0; i < 5000; ++i) text += "+x*2";
  const auto program = ProgramOf(text);
  ASSERT_NE(program, nullptr);
  EXPECT_LE(program->VaryingSteps().size(), 4 * 5000U);
  EXPECT_LE(program->SlotCount(), 2 * 5000U);
  EXPECT_EQ(program->Run(1), 10001);
}

// Every operation: a failure of an operand never ends as a finite number.
TEST(Program, keeps_a_failure_through_every_operation) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double fault : {infinity, -infinity, std::nan("")}) {
    for (OperationCode code = 0; code < operations::kCodeCount; ++code) {
      if (!HasOperation(code)) continue;
      EXPECT_FALSE(std::isfinite(RunOperation(code, fault, 2))) << OperationName(code);
      if (code >= operations::kFirstOfOne || code == operations::kOfTwo<operations::DivideByFinite>) continue;
      for (const double other : {-1.0, 0.0, 1.0, 2.5}) {
        EXPECT_FALSE(std::isfinite(RunOperation(code, other, fault))) << OperationName(code) << ' ' << other;
      }
    }
  }
}

// Every operation over columns, on both instruction sets: the bits of the single value wherever the loop
// gives a number.
TEST(Columns, have_the_bits_of_single_values) {
  const std::array values{-1e300, -37.5, -3.0, -2.0, -1.0, -0.75, -0.0,  0.0,
                          1e-310, 0.25,  0.5,  1.0,  2.0,  3.5,   170.0, 1e9};
  for (const ColumnWidth width : {ColumnWidth::Sse2, WidestColumns()}) {
    for (OperationCode code = 0; code < operations::kCodeCount; ++code) {
      if (!HasOperation(code)) continue;
      const ColumnForms& forms = (width == ColumnWidth::Avx2 ? kAvx2Columns : kSse2Columns).forms(code);
      std::array<double, values.size()> out{};
      for (const double uniform : {-2.0, 0.5, 2.0, 3.0}) {
        const ColumnArguments arguments{
            out.data(), values.data(), nullptr, uniform, 0, values.size() / kColumnGroup};
        (code < operations::kFirstOfOne ? forms.uniformRight : forms.ofAccumulator)(arguments);
        for (std::size_t i = 0; i < values.size(); ++i) {
          if (!std::isfinite(out[i])) continue;
          const double single = RunOperation(code, values[i], uniform);
          EXPECT_EQ(std::bit_cast<std::uint64_t>(out[i]), std::bit_cast<std::uint64_t>(single))
              << OperationName(code) << ' ' << values[i] << ' ' << uniform;
        }
      }
    }
  }
}

TEST(Curve, stores_x_and_sees_every_change_of_the_table) {
  clsExp expression;
  expression.CreateNewVarTable();
  expression.SetAcceptNumericResultOnly(true);
  auto& table = dynamic_cast<clsVarTable&>(*expression.GetVarTable());
  ASSERT_TRUE(table.Change("a", Value(10.0)));
  Value value;
  ASSERT_FALSE(expression.EvaluateThenSavePreParsedExpression("a+x", value));  // x is unknown
  ASSERT_TRUE(table.Change("x", Value(1.0)));
  ASSERT_TRUE(expression.EvaluateThenSavePreParsedExpression("a+x", value));
  Curve curve(expression, "x");
  double y = 0;
  ASSERT_TRUE(curve.At(5, y));
  EXPECT_EQ(y, 15);
  ASSERT_TRUE(table.GetIdValue("x", value));
  EXPECT_EQ(value, Value(5.0));
  ASSERT_TRUE(table.Change("a", Value(20.0)));
  ASSERT_TRUE(curve.At(5, y));
  EXPECT_EQ(y, 25);
  ASSERT_TRUE(table.Remove("a"));
  EXPECT_FALSE(curve.At(5, y));
  EXPECT_EQ(expression.ErrObj().CustomErrorNum, 12);
  ASSERT_TRUE(table.Change("a", Value(true)));
  ASSERT_TRUE(curve.At(5, y));
  EXPECT_EQ(y, 4);
}

TEST(Curve, drops_a_plan_that_is_not_followed) {
  clsExp expression;
  expression.CreateNewVarTable();
  expression.SetAcceptNumericResultOnly(true);
  ASSERT_TRUE(expression.GetVarTable()->Change("x", Value(1.0)));
  Value unused;
  ASSERT_TRUE(expression.EvaluateThenSavePreParsedExpression("x^2", unused));
  Curve curve(expression, "x");
  curve.Plan(std::vector<double>{1, 2, 3});
  double y = 0;
  ASSERT_TRUE(curve.At(1, y));
  EXPECT_EQ(curve.Planned(), 2U);
  ASSERT_TRUE(curve.At(7, y));
  EXPECT_EQ(y, 49);
  EXPECT_EQ(curve.Planned(), 0U);
}

}  // namespace
}  // namespace plotvane::engine
