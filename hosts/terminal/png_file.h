// Writes a raster surface as a PNG picture.
#pragma once

#include <string>

#include "graph/raster_surface.h"

namespace plotvane::terminal {

// A picture with a colour map, in as few bits as that needs, or of true colours beyond 256 of them. No side
// of the surface is 0. std::runtime_error when it cannot be made or written; see
// hosts/terminal/output_file.h.
void WritePng(const graph::RasterSurface& surface, const std::string& path);

}  // namespace plotvane::terminal
