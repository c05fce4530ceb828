// VariableTable: the two members through which the engine and the control reach identifiers.
#pragma once

#include <string_view>

#include "platform/value.h"

namespace plotvane::platform {

// Implemented by clsVarTable, and by the adapter over a table that a host supplies. A host's table may raise
// errors of its own: they come as RunTimeError from either member.
class VariableTable {
 public:
  virtual ~VariableTable() = default;

  // True and the value when the identifier exists; otherwise false, and `value` is left alone.
  [[nodiscard]] virtual bool GetIdValue(std::string_view id, Value& value) = 0;

  // Creates or overwrites an identifier as an ordinary variable; false when the store is refused.
  [[nodiscard]] virtual bool Change(std::string_view id, const Value& value) = 0;
};

}  // namespace plotvane::platform
