// SharedTable: lets the host's own calculator use the variable table of the control.
#pragma once

#include "hosts/desktop/late_bound.h"
#include "platform/variable_table.h"

namespace plotvane::desktop {

class SharedTable final : public platform::VariableTable {
 public:
  // `table`: what the control's VarTable property holds.
  explicit SharedTable(ComPtr<IDispatch> table) : mTable(std::move(table)) {}

  [[nodiscard]] bool GetIdValue(std::string_view id, platform::Value& value) override;
  [[nodiscard]] bool Change(std::string_view id, const platform::Value& value) override;

 private:
  ComPtr<IDispatch> mTable;
};

}  // namespace plotvane::desktop
