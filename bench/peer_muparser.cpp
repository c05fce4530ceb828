#include <muParser.h>

#include "bench/peers.h"
#include "bench/workloads.h"

namespace plotvane::bench {

struct MuParserExpression::State {
  mu::Parser parser;
  double x = 1;
  Coefficients coefficients;
};

MuParserExpression::MuParserExpression(const char* text) : mState(std::make_unique<State>()) {
  mu::Parser& parser = mState->parser;
  parser.DefineVar("x", &mState->x);
  parser.DefineVar("a", &mState->coefficients.a);
  parser.DefineVar("b", &mState->coefficients.b);
  parser.DefineVar("c", &mState->coefficients.c);
  parser.SetExpr(text);
}

MuParserExpression::~MuParserExpression() = default;

double MuParserExpression::At(double x) {
  mState->x = x;
  return mState->parser.Eval();
}

double MuParserExpression::ParseAndEvaluate(const char* text, double x) {
  mState->parser.SetExpr(text);
  return At(x);
}

}  // namespace plotvane::bench
