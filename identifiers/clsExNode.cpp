#include "identifiers/clsExNode.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/conversions.h"
#include "platform/open_files.h"
#include "platform/runtime_error.h"

namespace plotvane::identifiers {

namespace {

// A text field; nothing between the commas is the empty text.
std::string TextField(const platform::Value& field) {
  if (!field.IsText() && !field.IsEmpty())
    throw platform::RunTimeError(platform::StandardError::TypeMismatch);
  return field.ToText();
}

std::optional<std::int32_t> TypeField(const platform::Value& field) {
  if (field.IsEmpty()) return std::nullopt;
  if (!field.IsNumber()) throw platform::RunTimeError(platform::StandardError::TypeMismatch);
  return platform::ToInt32(field.Number()).OrThrow();
}

}  // namespace

void clsExNode::SaveDataToOpenFile(std::int16_t fileNum) const {
  const platform::Value flags = Flags ? platform::Value(static_cast<double>(*Flags)) : platform::Value();
  const std::array fields{platform::Value(Id), Value, flags, platform::Value(Description)};
  platform::SharedOpenFiles().WriteRecord(fileNum, fields);
}

void clsExNode::LoadDataFromOpenFile(std::int16_t fileNum) {
  std::vector<platform::Value> fields = platform::SharedOpenFiles().ReadRecord(fileNum, 4);
  std::string id = TextField(fields[0]);
  const std::optional<std::int32_t> flags = TypeField(fields[2]);
  Description = TextField(fields[3]);
  Id = std::move(id);
  Value = std::move(fields[1]);
  Flags = flags;
}

void clsExNode::CopyData(const clsExNode& copyFrom) {
  Id = copyFrom.Id;
  Value = copyFrom.Value;
  Flags = copyFrom.Flags;
  Description = copyFrom.Description;
}

}  // namespace plotvane::identifiers
