// A graph with a recording surface and frame, a variable table of its own, and Y functions that can call
// back.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/clsExp.h"
#include "graph/clsYGraph.h"
#include "graph/graph_engine.h"
#include "platform/variable_table.h"
#include "tests/graph/drawing_log.h"
#include "tests/graph/run_time_error.h"

namespace plotvane::graph::test {

// A host's table: remembers every value that `x` was given.
class HostTable : public platform::VariableTable {
 public:
  std::function<void()> onGet;
  std::function<void()> onChange;
  std::vector<platform::Value> changesOfX;
  std::map<std::string, platform::Value, std::less<>> values;

  bool GetIdValue(std::string_view id, platform::Value& value) override {
    if (onGet) onGet();
    const auto found = values.find(id);
    if (found == values.end()) return false;
    value = found->second;
    return true;
  }
  bool Change(std::string_view id, const platform::Value& value) override {
    if (onChange) onChange();
    if (id == "x") changesOfX.push_back(value);
    values[std::string(id)] = value;
    return true;
  }
};

// A clsYGraph whose reads can call back.
class WatchedFunction : public clsYGraph {
 public:
  std::function<void(std::string_view)> onRead;

  std::string GetEquation() override { return Read("Equation"), clsYGraph::GetEquation(); }
  bool GetEnabled() override { return Read("Enabled"), clsYGraph::GetEnabled(); }
  std::int32_t GetDrawStyle() override { return Read("DrawStyle"), clsYGraph::GetDrawStyle(); }
  std::int32_t GetDrawColor() override { return Read("DrawColor"), clsYGraph::GetDrawColor(); }
  bool GetQuickRedraw() override { return Read("QuickRedraw"), clsYGraph::GetQuickRedraw(); }

 private:
  void Read(std::string_view field) const {
    if (onRead) onRead(field);
  }
};

inline std::shared_ptr<WatchedFunction> MakeFunction(std::string_view equation, std::int32_t colour = 255,
                                                     bool enabled = true) {
  auto function = std::make_shared<WatchedFunction>();
  function->Equation = equation;
  function->DrawColor = colour;
  function->Enabled = enabled;
  return function;
}

// The standard window on a surface of the given size, without axes, prepared.
struct TestGraph {
  TestGraph(std::int16_t width, std::int16_t height)
      : frame(log),
        surface(std::make_shared<RecordingSurface>(log, width, height)),
        graph(expression, frame) {
    expression.SetVarTable(table);
    graph.PIC = surface;
    graph.ShowAxis = false;
    graph.ReadSurfaceSize();
    graph.PrepareGraph();
  }

  void Range(double xMin, double xMax, double yMin, double yMax) {
    graph.Xmin = xMin;
    graph.Xmax = xMax;
    graph.Ymin = yMin;
    graph.Ymax = yMax;
    graph.PrepareGraph();
  }

  // What PlotAllY writes to the log.
  Log Plot() {
    log.clear();
    graph.PlotAllY();
    return log;
  }
  // Only the lines and dots in a colour of their own: those of the functions.
  Log PlotCurves() {
    Plot();
    Log curves;
    for (const std::string& line : log)
      if (line.find(" colour ") != std::string::npos) curves.push_back(line);
    return curves;
  }

  Log log;
  engine::clsExp expression;
  std::shared_ptr<HostTable> table = std::make_shared<HostTable>();
  RecordingFrame frame;
  std::shared_ptr<RecordingSurface> surface;
  GraphEngine graph;
};

inline std::string Dot(int x, int y, int colour = 255) {
  return "pixel " + std::to_string(x) + "," + std::to_string(y) + " colour " + std::to_string(colour);
}
inline std::string Segment(int x0, int y0, int x1, int y1, int colour = 255) {
  return "line " + std::to_string(x0) + "," + std::to_string(y0) + " " + std::to_string(x1) + "," +
         std::to_string(y1) + " colour " + std::to_string(colour);
}

}  // namespace plotvane::graph::test
