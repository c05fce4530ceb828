// Says what is wrong with an equation before it is plotted.
#pragma once

#include <string>
#include <string_view>

#include "engine/clsExp.h"

namespace plotvane::desktop {

// The engine's text of the error that would keep `equation` from being plotted from x = `x` on, or an empty text.
// Follows the plotter's own test: a point where the function is merely undefined is no error. The variable x is
// given its value back.
[[nodiscard]] std::string EquationError(engine::clsExp& expression, std::string_view equation, double x);

// The texts of the last error of `expression`, custom text first, in one line.
[[nodiscard]] std::string ErrorText(engine::clsExp& expression);

}  // namespace plotvane::desktop
