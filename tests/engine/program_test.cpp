// Compiled programs: which steps a list becomes, what is left to the exact evaluator, and when tables are
// read anew.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
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

constexpr std::array kOperands{-1e300, -37.5, -3.0, -2.0, -1.0, -0.75, -0.0,  0.0,
                               1e-310, 0.25,  0.5,  1.0,  2.0,  3.5,   170.0, 1e9};
using Results = std::array<double, kOperands.size()>;

// The instruction sets of this processor, each once.
std::vector<const ColumnCode*> ColumnCodes() {
  if (WidestColumns() == ColumnWidth::Sse2) return {&kSse2Columns};
  return {&kSse2Columns, &kAvx2Columns};
}

// What a loop makes of kOperands in the accumulator.
Results ColumnResults(ColumnRun run, const ColumnOperand& operand, const ColumnOperand& second) {
  Results out{};
  run({out.data(), kOperands.data(), operand, second, out.size() / kColumnGroup});
  return out;
}

// The loops give a number or leave the point to the single value.
void ExpectBits(double column, double single, const std::string& what) {
  if (!std::isfinite(column)) return;
  EXPECT_EQ(std::bit_cast<std::uint64_t>(column), std::bit_cast<std::uint64_t>(single)) << what;
}

TEST(Columns, have_the_bits_of_single_values_in_every_operation_and_form) {
  Results others = kOperands;
  std::ranges::rotate(others, others.begin() + 5);
  for (const ColumnCode* columns : ColumnCodes()) {
    for (OperationCode code = 0; code < operations::kCodeCount; ++code) {
      if (!HasOperation(code)) continue;
      const ColumnForms& forms = columns->forms(code);
      if (code >= operations::kFirstOfOne) {
        const Results out = ColumnResults(forms.ofAccumulator, {}, {});
        for (std::size_t i = 0; i < out.size(); ++i)
          ExpectBits(out[i], RunOperation(code, kOperands[i]), OperationName(code));
        continue;
      }
      for (const double uniform : {-2.0, 0.5, 2.0, 3.0}) {
        const ColumnOperand operand{others.data(), uniform};
        const Results right = ColumnResults(forms.uniformRight, operand, {});
        const Results left = ColumnResults(forms.uniformLeft, operand, {});
        const Results columnRight = ColumnResults(forms.columnRight, operand, {});
        const Results columnLeft = ColumnResults(forms.columnLeft, operand, {});
        for (std::size_t i = 0; i < kOperands.size(); ++i) {
          const double x = kOperands[i];
          ExpectBits(right[i], RunOperation(code, x, uniform), OperationName(code));
          ExpectBits(left[i], RunOperation(code, uniform, x), OperationName(code));
          ExpectBits(columnRight[i], RunOperation(code, x, others[i]), OperationName(code));
          ExpectBits(columnLeft[i], RunOperation(code, others[i], x), OperationName(code));
        }
      }
    }
  }
}

// The kernels among them are what could differ.
TEST(Columns, have_the_bits_of_single_values_over_the_whole_range_of_doubles) {
  std::mt19937_64 generator(20'000);
  constexpr std::size_t kCount = 4096;
  std::vector<double> xs;
  while (xs.size() < kCount) {
    const double x = std::bit_cast<double>(generator());
    const double fraction = static_cast<double>(generator() >> 11U) * 0x1p-53;
    if (!std::isfinite(x)) continue;
    // Any double at all, one of a plot's size, and one of a few turns.
    xs.push_back(xs.size() % 3 == 0 ? x : (fraction - 0.5) * (xs.size() % 3 == 1 ? 2000 : 30));
  }
  std::vector<double> out(kCount);
  for (const ColumnCode* columns : ColumnCodes()) {
    for (OperationCode code = operations::kFirstOfOne; code < operations::kCodeCount; ++code) {
      if (!HasOperation(code)) continue;
      columns->forms(code).ofAccumulator({out.data(), xs.data(), {}, {}, kCount / kColumnGroup});
      std::size_t given = 0;
      for (std::size_t i = 0; i < kCount; ++i) {
        given += std::isfinite(out[i]) ? 1U : 0U;
        ExpectBits(out[i], RunOperation(code, xs[i]), OperationName(code));
      }
      EXPECT_GT(given, 0U) << OperationName(code);
    }
  }
}

TEST(Columns, have_the_bits_of_two_single_operations_in_every_pair) {
  Results firsts = kOperands;
  Results seconds = kOperands;
  std::ranges::rotate(firsts, firsts.begin() + 5);
  std::ranges::rotate(seconds, seconds.begin() + 9);
  const ColumnOperand operand{firsts.data(), 0.75};
  const ColumnOperand second{seconds.data(), -3.0};
  int pairs = 0;
  for (const ColumnCode* columns : ColumnCodes()) {
    for (OperationCode a = 0; a < operations::kCodeCount; ++a) {
      for (OperationCode b = 0; b < operations::kFirstOfOne; ++b) {
        const ColumnPairForms* const forms = columns->pairForms(a, b);
        if (!forms) continue;
        ++pairs;
        for (const bool firstIsColumn : {false, true}) {
          for (const bool secondIsColumn : {false, true}) {
            const ColumnRun run = (*forms)[firstIsColumn ? 1 : 0][secondIsColumn ? 1 : 0];
            if (!run) continue;
            const Results out = ColumnResults(run, operand, second);
            for (std::size_t i = 0; i < out.size(); ++i) {
              const double between = RunOperation(a, kOperands[i], firstIsColumn ? firsts[i] : 0.75);
              const double single = RunOperation(b, between, secondIsColumn ? seconds[i] : -3.0);
              ExpectBits(out[i], single, OperationName(a) + ", " + OperationName(b));
            }
          }
        }
      }
    }
  }
  EXPECT_GE(pairs, 28);
}

// Long enough for every way of joining steps, at each place of a run and across its end.
TEST(Program, gives_the_same_for_steps_joined_in_any_way) {
  const std::array<std::string, 5> pieces{"+x", "*0.5", "-x^2", "+3*x-1", "/2+sin(x)"};
  std::string text = "x";
  for (std::size_t i = 0; i < 400; ++i) {
    text += pieces[i * i % pieces.size()];
    clsExp expression;
    expression.CreateNewVarTable();
    ASSERT_TRUE(expression.GetVarTable()->Change("x", Value(0.625)));
    Value exact;
    ASSERT_TRUE(expression.Evaluate(text, exact));
    const auto program = ProgramOf(text);
    ASSERT_NE(program, nullptr);
    ASSERT_EQ(Value(program->Run(0.625)), exact) << text;
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
