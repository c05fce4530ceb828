// HostVariableTable: a variable table over an object of the host with the members GetIdValue and Change.
#pragma once

#include "control/com/host_object.h"
#include "platform/variable_table.h"

namespace plotvane::control::com {

class HostVariableTable final : public platform::VariableTable {
 public:
  explicit HostVariableTable(ComPtr<IDispatch> object);

  [[nodiscard]] IDispatch* Object() const noexcept { return mObject.Get(); }

  // GetIdValue(Id, Value) with Value by reference; a variant that the host left as something no identifier
  // can hold is error 13.
  [[nodiscard]] bool GetIdValue(std::string_view id, platform::Value& value) override;
  [[nodiscard]] bool Change(std::string_view id, const platform::Value& value) override;

 private:
  HostObject mObject;
};

}  // namespace plotvane::control::com
