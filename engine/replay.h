// Replay: compiled programs of one recorded list, bound to the system's own variable table.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/clsPreParsedExpression.h"
#include "engine/program.h"
#include "functions/catalogue.h"
#include "identifiers/clsVarTable.h"

namespace plotvane::engine {

// A program whose variables are bound to records of a table. The binding notices every change of the table:
// additions, removals and loads by its generation, values by its count of changes.
class BoundProgram {
 public:
  // `varying` is a name in lower case, or empty.
  BoundProgram(std::shared_ptr<const TokenList> tokens, std::shared_ptr<identifiers::clsVarTable> table,
               functions::AngleMode angleMode, std::string_view varying);

  // True when the program is of these.
  [[nodiscard]] bool IsFor(const identifiers::clsVarTable* table,
                           functions::AngleMode angleMode) const noexcept {
    return mTable.get() == table && mAngleMode == angleMode;
  }
  [[nodiscard]] std::string_view Varying() const noexcept { return mVarying; }

  // Brings the program's numbers up to date with the table. False when the exact evaluator must be asked: the
  // list is one that no program expresses, or a variable is missing or holds something else than a finite
  // number or a truth value.
  [[nodiscard]] bool Refresh() { return mSeenChanges == mTable->Changes() ? mReady : RefreshNow(); }

  // After Refresh.
  [[nodiscard]] Program& Compiled() noexcept { return *mProgram; }
  // Grows whenever Compiled() becomes another program.
  [[nodiscard]] std::uint64_t Compilations() const noexcept { return mCompilations; }

  // How often the program's numbers were read afresh.
  [[nodiscard]] std::uint64_t Refreshments() const noexcept { return mRefreshments; }

  // The record of the varying variable, whose number may be stored; null when it is missing or no ordinary
  // variable.
  [[nodiscard]] identifiers::clsExNode* VaryingRecord() const noexcept { return mVaryingRecord; }
  [[nodiscard]] identifiers::clsVarTable& Table() const noexcept { return *mTable; }

  // Says that since the last Refresh the table was changed by stores of the varying variable only.
  void NoteOwnStores() noexcept { mSeenChanges = mTable->Changes(); }

 private:
  bool RefreshNow();
  void Recompile();
  void Bind();
  [[nodiscard]] bool ReadVariables();

  std::shared_ptr<const TokenList> mTokens;
  std::shared_ptr<identifiers::clsVarTable> mTable;
  functions::AngleMode mAngleMode;
  std::string mVarying;

  std::unique_ptr<Program> mProgram;                    // null when no program expresses the list
  std::vector<const identifiers::clsExNode*> mRecords;  // of the program's variables; null where missing
  identifiers::clsExNode* mVaryingRecord = nullptr;
  std::uint64_t mCompilations = 0;
  std::uint64_t mRefreshments = 0;
  std::uint64_t mSeenGeneration = 0;
  std::uint64_t mSeenChanges = 0;
  bool mReady = false;
};

}  // namespace plotvane::engine
