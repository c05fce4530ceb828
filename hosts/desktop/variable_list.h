// Reads the user's variables out of the control's variable table.
#pragma once

#include <string>
#include <vector>

#include "hosts/desktop/late_bound.h"

namespace plotvane::desktop {

// One text for each ordinary variable in ascending order, "a = 2"; x, which belongs to the plotter, is left out.
// Throws platform::RunTimeError when the table does not answer.
[[nodiscard]] std::vector<std::string> ListVariables(IDispatch& table);

}  // namespace plotvane::desktop
