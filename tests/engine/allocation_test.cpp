// Memory of compiled evaluations: none is asked for while they run, and a program's grows with its tokens.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "engine/compile.h"
#include "engine/curve.h"
#include "tests/engine/counted_memory.h"

namespace plotvane::engine {
namespace {

using platform::Value;

struct Recording {
  explicit Recording(const std::string& text) {
    expression.CreateNewVarTable();
    expression.SetAcceptNumericResultOnly(true);
    for (const char* name : {"x", "a", "b"}) EXPECT_TRUE(expression.GetVarTable()->Change(name, Value(1.5)));
    Value unused;
    EXPECT_TRUE(expression.EvaluateThenSavePreParsedExpression(text, unused)) << text;
  }
  clsExp expression;
};

template <class Work>
std::size_t AllocationsOf(Work work) {
  const std::size_t before = test::CountedMemory().allocations;
  work();
  return test::CountedMemory().allocations - before;
}

constexpr std::array kExpressions{"x",
                                  "a*x^2+b*x+1",
                                  "sin(x)^2+cos(x)^2+tan(x)/exp(x)-ln(x)^0.3",
                                  "(x>0) and not (x<5) or (x mod 3==1)",
                                  "factorial(int(x))+pmt(0.01,x,1000)+round(x,2)",
                                  "((((((((((x+1)*2-x)/3+4)*x-5)/6+x)*7-8)/9+x)*2-3)/4+x)*x)"};

TEST(Allocations, none_while_values_are_asked_for_one_by_one) {
  for (const std::string text : kExpressions) {
    Recording recording(text);
    Curve curve(recording.expression, "x");
    double y = 0;
    ASSERT_TRUE(curve.At(1, y)) << text;
    double x = 1;
    EXPECT_EQ(AllocationsOf([&] {
                for (int i = 0; i < 1000; ++i, x += 0.125) EXPECT_TRUE(curve.At(x, y));
              }),
              0U)
        << text;
  }
}

TEST(Allocations, none_while_a_recorded_list_is_replayed) {
  for (const std::string text : kExpressions) {
    Recording recording(text);
    Value value;
    ASSERT_TRUE(recording.expression.EvaluateCurrentPreParsedExpression(value)) << text;
    EXPECT_EQ(AllocationsOf([&] {
                for (int i = 0; i < 1000; ++i)
                  EXPECT_TRUE(recording.expression.EvaluateCurrentPreParsedExpression(value));
              }),
              0U)
        << text;
  }
}

TEST(Allocations, none_while_the_table_changes_between_replays) {
  Recording recording("a*x^2+b");
  Value value;
  ASSERT_TRUE(recording.expression.EvaluateCurrentPreParsedExpression(value));
  EXPECT_EQ(AllocationsOf([&] {
              for (int i = 0; i < 1000; ++i) {
                EXPECT_TRUE(recording.expression.GetVarTable()->Change("a", Value(static_cast<double>(i))));
                EXPECT_TRUE(recording.expression.EvaluateCurrentPreParsedExpression(value));
              }
            }),
            0U);
}

TEST(Allocations, none_while_columns_are_computed) {
  std::vector<double> xs(1000);
  for (std::size_t i = 0; i < xs.size(); ++i) xs[i] = 1 + 0.125 * static_cast<double>(i);
  std::vector<double> ys(xs.size());
  for (const std::string text : kExpressions) {
    for (const ColumnWidth width : {ColumnWidth::Sse2, WidestColumns()}) {
      Recording recording(text);
      Curve curve(recording.expression, "x");
      curve.SetColumnWidth(width);
      ASSERT_EQ(curve.Block(xs, ys), xs.size()) << text;
      EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(curve.Block(xs, ys), xs.size()); }), 0U) << text;
      const auto followPlan = [&] {
        curve.Plan(xs);
        for (std::size_t i = 0; i < xs.size(); ++i) EXPECT_TRUE(curve.At(xs[i], ys[i]));
      };
      followPlan();
      EXPECT_EQ(AllocationsOf(followPlan), 0U) << text;
    }
  }
}

TEST(Allocations, of_a_sum_do_not_grow_with_its_terms) {
  clsExp expression;
  expression.CreateNewVarTable();
  Value value;
  const auto allocationsOf = [&](const std::string& text) {
    EXPECT_TRUE(expression.Evaluate(text, value)) << text;
    return AllocationsOf([&] { EXPECT_TRUE(expression.Evaluate(text, value)) << text; });
  };
  EXPECT_EQ(allocationsOf("di(sin(t)*t,t,0,100000,1)"), allocationsOf("di(sin(t)*t,t,0,100,1)"));
  EXPECT_EQ(allocationsOf("ss(k^2,k,1,100000)"), allocationsOf("ss(k^2,k,1,100)"));
}

std::size_t BytesOfProgram(std::size_t terms) {
  std::string text = "x";
  for (std::size_t i = 0; i < terms; ++i) text += "+sin(x)*a-3";
  Recording recording(text);
  const std::size_t before = test::CountedMemory().bytes;
  const auto program =
      Compile(recording.expression.GetPPE()->List(),
              {functions::AngleMode::Radians, "x", [](std::string_view /*name*/) { return false; }});
  EXPECT_NE(program, nullptr);
  return test::CountedMemory().bytes - before;
}

// All that was asked for counts, given back or not; vectors that double ask for up to twice their end.
TEST(Allocations, of_a_program_are_in_proportion_to_its_tokens) {
  const std::size_t small = BytesOfProgram(100);
  const std::size_t large = BytesOfProgram(2000);
  EXPECT_LE(large, 2 * 20 * small);
  EXPECT_LE(large, 2000U * 8 * 100);  // eight tokens a term
}

}  // namespace
}  // namespace plotvane::engine
