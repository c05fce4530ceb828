// HostFunction: a Y function over an object of the host with the members Equation, Enabled, DrawStyle,
// DrawColor and QuickRedraw.
//
// Such an object has no path of its own, so the adapter keeps it. QuickRedraw is the host's: it is read from
// and written to the object.
#pragma once

#include <memory>
#include <vector>

#include "control/com/host_object.h"
#include "graph/path_cache.h"
#include "graph/y_function.h"

namespace plotvane::control::com {

class HostFunction final : public graph::YFunction {
 public:
  explicit HostFunction(ComPtr<IDispatch> object);

  [[nodiscard]] IDispatch* Object() const noexcept { return mObject.Get(); }

  [[nodiscard]] std::string GetEquation() override;
  [[nodiscard]] bool GetEnabled() override;
  [[nodiscard]] std::int32_t GetDrawStyle() override;
  [[nodiscard]] std::int32_t GetDrawColor() override;
  [[nodiscard]] bool GetQuickRedraw() override;
  void SetQuickRedraw(bool valid) override;
  [[nodiscard]] graph::PathCache& Path() override { return mPath; }

 private:
  HostObject mObject;
  graph::PathCache mPath;
};

using HostFunctions = std::vector<std::shared_ptr<HostFunction>>;

// The functions of a host's array: elements 1 to its upper bound, whatever lies below 1 is not looked at.
// Each object has one adapter, wherever it stands in the array; one that is among `known` keeps its adapter,
// and with it the path drawn last.
//
// RunTimeError 13 when `array` holds no array, 9 for more than one dimension, an upper bound below 0 or a
// missing element, 6 for an upper bound above 32,767, 424 for an element that is no object.
[[nodiscard]] HostFunctions FunctionsOf(const VARIANT& array, const HostFunctions& known);

}  // namespace plotvane::control::com
