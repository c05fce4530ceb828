// Zooms and preset windows as changes of the range alone; the caller prepares and draws.
//
// Each assigns its fields in the order of its rule: after a fault (error 11 for a zero divisor, 6 for a
// result that is too large) the fields already assigned keep their new values.
#pragma once

#include "graph/graph_types.h"
#include "graph/window_model.h"

namespace plotvane::graph {

// Moves the rectangle, W by H, so that the current point is its centre.
void CentreOnCurrentPoint(WindowModel& window);

// W and H from the edges.
void MeasureRange(WindowModel& window);

// W and H divided (multiplied) by the zoom factors, used as they stand: one below 1 works the other way
// round.
void DivideByZoomFactors(WindowModel& window);
void MultiplyByZoomFactors(WindowModel& window);

// The rectangle of a selection box. A box without width or height is refused with false, and still leaves W
// and H changed; this is deliberate.
[[nodiscard]] bool SelectBox(WindowModel& window, PixelBox box);

void SetStandardRange(WindowModel& window);
void SetTrigRange(WindowModel& window, bool degrees);

// A centred window of exactly `pixelSize` real units per pixel in both directions, divisions every ten
// pixels. The pixel sizes are stored, not computed from the rounded edges, and RedrawAll is set.
void SetRangeByPixelSize(WindowModel& window, double pixelSize);

}  // namespace plotvane::graph
