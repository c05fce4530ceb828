#include "control/com/host_variable_table.h"

#include <array>
#include <utility>

namespace plotvane::control::com {

namespace {

enum Operation : std::size_t { kGetIdValue, kChange };
constexpr std::array kOperations{L"GetIdValue", L"Change"};

}  // namespace

HostVariableTable::HostVariableTable(ComPtr<IDispatch> object) : mObject(std::move(object), kOperations) {}

bool HostVariableTable::GetIdValue(std::string_view id, platform::Value& value) {
  Variant found;
  const std::array arguments{Variant(id), ReferenceTo(found)};
  if (!ToBool(mObject.Call(kGetIdValue, arguments).Get())) return false;
  value = ToValue(found.Get());
  return true;
}

bool HostVariableTable::Change(std::string_view id, const platform::Value& value) {
  const std::array arguments{Variant(id), Variant(value)};
  return ToBool(mObject.Call(kChange, arguments).Get());
}

}  // namespace plotvane::control::com
