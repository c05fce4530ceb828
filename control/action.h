// Action: what a click on the plotting surface does, with the caption and the pointer of each.
#pragma once

#include <string_view>

#include "graph/drawing_surface.h"
#include "graph/graph_types.h"

namespace plotvane::control {

// None: a click redraws; zin, zout: a click zooms at the point, once; zbox: a drag draws a zoom box; trace:
// the mouse traces the current function.
using graph::Action;

// What `txtSimple` shows while the action is current; any value outside the enumeration has the caption of
// None.
[[nodiscard]] std::string_view ActionCaption(Action action) noexcept;

// The pointer of the surface while the action is current. The box has the cross (4) and the trace the sizing
// arrows (3): the numbers of the two are swapped against those of the actions, deliberately.
[[nodiscard]] graph::PointerKind ActionPointer(Action action) noexcept;

}  // namespace plotvane::control
