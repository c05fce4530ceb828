// The timed lines, by subject; each registers its benchmarks and checks its answers before timing.
#pragma once

#include <string>

namespace plotvane::bench {

void RegisterScalar();    // one call per point: native, muParser, the compiled replay
void RegisterColumns();   // blocks of points: LuaJIT, columns on SSE2 and on AVX2
void RegisterParse();     // parse and evaluate once: muParser, Evaluate
void RegisterIntegral();  // 10^7 points: a hand-written loop, di()
void RegisterSurface();   // ten functions into a 1920 x 1080 surface: a plain loop, PlotAllY
// The same picture as PNG, whole processes: gnuplot and the command-line host at `plotvane`.
void RegisterPicture(const std::string& plotvane);

}  // namespace plotvane::bench
