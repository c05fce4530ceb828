#include "graph/clsYGraph.h"

#include <array>
#include <vector>

#include "platform/conversions.h"
#include "platform/open_files.h"
#include "platform/runtime_error.h"
#include "platform/value.h"

namespace plotvane::graph {

namespace {

using platform::Value;

void Require(bool rightKind) {
  if (!rightKind) throw platform::RunTimeError(platform::StandardError::TypeMismatch);
}

std::int32_t WholeNumber(const Value& field) {
  Require(field.IsNumber());
  return platform::ToInt32(field.Number()).OrThrow();
}

}  // namespace

void clsYGraph::SaveDataToOpenFile(std::int16_t file) const {
  const std::array fields{Value(Equation), Value(Enabled), Value(static_cast<double>(DrawStyle)),
                          Value(static_cast<double>(DrawColor))};
  platform::SharedOpenFiles().WriteRecord(file, fields);
}

void clsYGraph::LoadDataFromOpenFile(std::int16_t file) {
  const std::vector<Value> fields = platform::SharedOpenFiles().ReadRecord(file, 4);
  Require(fields[0].IsText() && fields[1].IsBoolean());
  const std::int32_t style = WholeNumber(fields[2]);
  const std::int32_t colour = WholeNumber(fields[3]);
  Equation = fields[0].Text();
  Enabled = fields[1].Boolean();
  DrawStyle = style;
  DrawColor = colour;
}

void clsYGraph::CopyData(const clsYGraph& other) {
  Equation = other.Equation;
  Enabled = other.Enabled;
  DrawStyle = other.DrawStyle;
  DrawColor = other.DrawColor;
}

}  // namespace plotvane::graph
