// Focus: 20,000 generated expressions over the whole catalogue have the same results, to the last bit, and
// the same errors in every build.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "engine/clsExp.h"
#include "functions/catalogue.h"
#include "functions/kernels/bits.h"

namespace plotvane::functions {
namespace {

using platform::Value;

constexpr int kExpressions = 20'000;
constexpr int kDepth = 4;

// Writes expressions from a fixed sequence of choices, without any library function.
class Writer {
 public:
  std::string Expression(int depth = kDepth) {
    switch (depth == 0 ? Choice(2) : Choice(8)) {
      case 0: return Number();
      case 1: return Choice(2) == 0 ? "x" : "y";
      case 2: return "(" + Expression(depth - 1) + ")";
      case 3: return "-" + Expression(depth - 1);
      case 4:
      case 5: return Expression(depth - 1) + Operator() + Expression(depth - 1);
      default: return Call(depth - 1);
    }
  }

 private:
  std::string Number() {
    static constexpr std::array kNumbers{
        "0",  "1",  "2",    "3",    "0.5", "10",  "90",   "0.1",   "7.25", "45.678", "1e3",        "100",
        "12", "30", "0.01", "&HFF", "360", "1.5", "1e-4", "1e300", "170",  "1e15",   "123456.789", "0.9999"};
    return kNumbers[Choice(kNumbers.size())];
  }
  std::string Operator() {
    static constexpr std::array kOperators{"+", "-", "*",  "/",     "^", "+",
                                           "*", "/", "\\", " mod ", "<", " and "};
    return kOperators[Choice(kOperators.size())];
  }
  std::string Call(int depth) {
    const Function& function = kCatalogue[Choice(kCatalogue.size())];
    std::string call = std::string(function.name) + "(";
    const std::size_t extra = function.IsCalculus() ? 0 : Choice(function.most - function.least + 1U);
    for (std::size_t position = 0; position < function.least + extra; ++position) {
      if (position > 0) call += ",";
      call += function.IsCalculus() ? CalculusArgumentText(function, position, depth) : Expression(depth);
    }
    return call + ")";
  }
  // Bounds and places stay small, so that every loop is short.
  std::string CalculusArgumentText(const Function& function, std::size_t position, int depth) {
    switch (CalculusArgumentAt(function, position)) {
      case CalculusArgument::Expression: return Expression(depth > 1 ? 1 : depth);
      case CalculusArgument::Variable: return "x";
      case CalculusArgument::Value: break;
    }
    return std::to_string(position);
  }
  std::size_t Choice(std::size_t count) {
    mState = mState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::size_t>((mState >> 33U) % count);
  }

  std::uint64_t mState = 4;
};

class Digest {
 public:
  void Add(std::uint64_t bits) {
    mHash = (mHash ^ bits) * 1099511628211U;
    mHash ^= mHash >> 32U;
  }
  void Add(const Value& value) {
    Add(static_cast<std::uint64_t>(value.GetKind()));
    if (value.IsNumber()) Add(kernels::Bits<kernels::Portable>(value.Number() + 0.0));
    if (value.IsBoolean()) Add(std::uint64_t{value.Boolean()});
  }
  [[nodiscard]] std::uint64_t Result() const { return mHash; }

 private:
  std::uint64_t mHash = 14695981039346656037U;
};

TEST(GeneratedExpressions, have_the_same_results_and_errors_in_every_build) {
  engine::clsExp expression;
  expression.CreateNewVarTable();
  expression.SetAcceptNumericResultOnly(true);
  Value result;
  ASSERT_TRUE(expression.Evaluate("rnd(-1)", result));
  Writer writer;
  Digest digest;
  int succeeded = 0;
  for (int i = 0; i < kExpressions; ++i) {
    ASSERT_TRUE(expression.Evaluate("x=0.75", result) && expression.Evaluate("y=3", result));
    expression.SetDegreeMode(i % 2 == 0);
    const std::string text = writer.Expression();
    const bool ok = expression.Evaluate(text, result);
    succeeded += ok ? 1 : 0;
    digest.Add(ok ? 1U : 0U);
    digest.Add(result);
    digest.Add(static_cast<std::uint64_t>(ok ? 0 : expression.ErrObj().StandardErrorNum));
    digest.Add(static_cast<std::uint64_t>(ok ? 0 : expression.ErrObj().CustomErrorNum));
  }
  // Enough of both kinds.
  EXPECT_GT(succeeded, kExpressions / 2);
  EXPECT_LT(succeeded, kExpressions * 9 / 10);
  EXPECT_EQ(digest.Result(), 4892600053895990923U) << succeeded;
}

}  // namespace
}  // namespace plotvane::functions
