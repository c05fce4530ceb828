#include "graph/clsYGraph.h"

namespace plotvane::graph {

void clsYGraph::CopyData(const clsYGraph& other) {
  Equation = other.Equation;
  Enabled = other.Enabled;
  DrawStyle = other.DrawStyle;
  DrawColor = other.DrawColor;
}

}  // namespace plotvane::graph
