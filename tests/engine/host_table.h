// HostTable: a table as a host may supply it. It keeps its names in the system's own table, writes down every
// call, and can be told to refuse, to raise an error, or to do something of its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "identifiers/clsVarTable.h"
#include "platform/runtime_error.h"
#include "platform/variable_table.h"

namespace plotvane::engine::test {

class HostTable : public platform::VariableTable {
 public:
  bool GetIdValue(std::string_view id, platform::Value& value) override {
    calls.push_back("get " + std::string(id));
    if (onCall) onCall();
    return names.GetIdValue(id, value);
  }
  bool Change(std::string_view id, const platform::Value& value) override {
    calls.push_back("set " + std::string(id) + " " + value.ToText());
    if (onCall) onCall();
    return names.Change(id, value);
  }

  identifiers::clsVarTable names;
  std::vector<std::string> calls;
  std::function<void()> onCall;
};

}  // namespace plotvane::engine::test
