// The peers that the measures compare with: muParser and LuaJIT, each behind the few calls a measure needs.
#pragma once

#include <memory>
#include <span>

namespace plotvane::bench {

// One expression in muParser, with the variables x, a, b and c.
class MuParserExpression {
 public:
  explicit MuParserExpression(const char* text);
  ~MuParserExpression();
  MuParserExpression(const MuParserExpression&) = delete;
  MuParserExpression& operator=(const MuParserExpression&) = delete;

  // One evaluation by its bytecode.
  [[nodiscard]] double At(double x);

  // Parses `text` afresh and evaluates it once.
  [[nodiscard]] double ParseAndEvaluate(const char* text, double x);

 private:
  struct State;
  std::unique_ptr<State> mState;
};

// One expression in LuaJIT: a Lua function with its own loop over the points, compiled by LuaJIT's trace
// compiler.
class LuaJitExpression {
 public:
  explicit LuaJitExpression(const char* text);
  ~LuaJitExpression();
  LuaJitExpression(const LuaJitExpression&) = delete;
  LuaJitExpression& operator=(const LuaJitExpression&) = delete;

  void Block(std::span<const double> xs, std::span<double> ys);

 private:
  struct State;
  std::unique_ptr<State> mState;
};

}  // namespace plotvane::bench
