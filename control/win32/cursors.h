// The mouse pointers of the surface.
#pragma once

#include <windows.h>

#include <array>

#include "control/win32/handles.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::win32 {

// The system's own pointers, and the two magnifiers that the library draws itself, made when they are first
// needed.
class SurfaceCursors {
 public:
  [[nodiscard]] HCURSOR Get(graph::PointerKind kind);

 private:
  OwnedCursor mZoomIn;
  OwnedCursor mZoomOut;
};

}  // namespace plotvane::control::win32
