// SavedVariable: gives an identifier of a variable table its value back.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/value.h"
#include "platform/variable_table.h"

namespace plotvane::graph {

// An identifier that did not exist holds an empty value afterwards. A refused store is ignored.
class SavedVariable {
 public:
  // Reads the value. `id` outlives this object; error 91 without a table, errors of the table pass through.
  SavedVariable(std::shared_ptr<platform::VariableTable> table, std::string_view id)
      : mTable(std::move(table)), mId(id) {
    if (!mTable) throw platform::RunTimeError(platform::StandardError::ObjectNotSet);
    static_cast<void>(mTable->GetIdValue(mId, mValue));
  }
  SavedVariable(const SavedVariable&) = delete;
  SavedVariable& operator=(const SavedVariable&) = delete;

  // On the way out of a failed operation; a second failure is not reported.
  ~SavedVariable() {
    try {
      GiveBack();
    } catch (...) {  // the first failure is already on its way to the caller
    }
  }

  // Stores the value again, once; errors of the table pass through.
  void GiveBack() {
    if (!std::exchange(mHeld, false)) return;
    static_cast<void>(mTable->Change(mId, mValue));
  }

 private:
  std::shared_ptr<platform::VariableTable> mTable;
  std::string_view mId;
  platform::Value mValue;
  bool mHeld = true;
};

}  // namespace plotvane::graph
