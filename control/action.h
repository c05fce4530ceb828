// Action: what a click on the plotting surface does, with the caption and the pointer of each.
#pragma once

#include <cstdint>
#include <string_view>

#include "graph/drawing_surface.h"

namespace plotvane::control {

// Published to hosts; `None` begins with a capital letter and the others do not.
enum class Action : std::int32_t {
  None = 0,   // a click redraws
  zin = 1,    // a click zooms in at the point
  zout = 2,   // a click zooms out at the point
  zbox = 3,   // a drag draws a zoom box
  trace = 4,  // the mouse traces the current function
};

// What `txtSimple` shows while the action is current; any value outside the enumeration has the caption of
// None.
[[nodiscard]] std::string_view ActionCaption(Action action) noexcept;

// The pointer of the surface while the action is current. The box has the cross (4) and the trace the sizing
// arrows (3): the numbers of the two are swapped against those of the actions, deliberately.
[[nodiscard]] graph::PointerKind ActionPointer(Action action) noexcept;

}  // namespace plotvane::control
