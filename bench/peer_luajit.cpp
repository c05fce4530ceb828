#include <lua.hpp>
#include <stdexcept>
#include <string>

#include "bench/peers.h"

namespace plotvane::bench {

struct LuaJitExpression::State {
  lua_State* lua = luaL_newstate();
  State() = default;
  ~State() { lua_close(lua); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;
};

// The loop runs over plain arrays of doubles, which LuaJIT reads and writes without boxing.
LuaJitExpression::LuaJitExpression(const char* text) : mState(std::make_unique<State>()) {
  lua_State* lua = mState->lua;
  luaL_openlibs(lua);
  const std::string chunk =
      "local ffi = require('ffi')\n"
      "local sin, cos, tan, exp, log, sqrt, abs, pi = math.sin, math.cos, math.tan, math.exp, math.log, "
      "math.sqrt, math.abs, math.pi\n"
      "local a, b, c = 0.25, -1.5, 3.0\n"
      "return function(xs, ys, n)\n"
      "  xs = ffi.cast('const double*', xs)\n"
      "  ys = ffi.cast('double*', ys)\n"
      "  for i = 0, n - 1 do\n"
      "    local x = xs[i]\n"
      "    ys[i] = " +
      std::string(text) +
      "\n"
      "  end\n"
      "end\n";
  if (luaL_dostring(lua, chunk.c_str()) != 0) throw std::runtime_error(lua_tostring(lua, -1));
}

LuaJitExpression::~LuaJitExpression() = default;

void LuaJitExpression::Block(std::span<const double> xs, std::span<double> ys) {
  lua_State* lua = mState->lua;
  lua_pushvalue(lua, -1);
  lua_pushlightuserdata(lua, const_cast<double*>(xs.data()));
  lua_pushlightuserdata(lua, ys.data());
  lua_pushinteger(lua, static_cast<lua_Integer>(xs.size()));
  if (lua_pcall(lua, 3, 0, 0) != 0) throw std::runtime_error(lua_tostring(lua, -1));
}

}  // namespace plotvane::bench
